#pragma once
// ORVDescriptivesFreqDataType: what a frequency analysis counts.
//
// A 32-bit enumeration of the public surface. The component treats 0 as numerical and every
// other value as nominal, so a caller that passes an unlisted value gets the nominal analysis.

#include <cstdint>

namespace orv {

enum ORVDescriptivesFreqDataType : std::int32_t {
  ORVDescriptivesFreqNumerical = 0,  // numbers: distinct values or bins
  ORVDescriptivesFreqNominal = 1,    // items (texts or values taken as labels), first appearance
};

}  // namespace orv

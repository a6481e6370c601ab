#pragma once
// Shared by the clsFreqBO tests: arrays from literals, their text forms, an analysed engine.

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "../driver_fixture.h"
#include "frame/value_array.h"
#include "frequency/clsFreqBO.h"
#include "frequency/freq_data_type.h"

namespace orv::test {

inline const CellValue kBlank{};
inline constexpr const char* kAnalyse = "Line 0 in ORVDescriptives.clsFreqBO.Analyse";

using Texts = std::vector<std::string>;
using Counts = std::vector<std::int32_t>;

inline ValueArray1D cells(Cells values) { return ValueArray1D(std::move(values)); }
// The text form of every element: what the results sheet shows for it.
inline Texts textsOf(const ValueArray1D& values) {
  Texts out;
  for (const CellValue& v : values.items()) out.push_back(toText(v));
  return out;
}
// The categories with their counts, "value:count" joined by blanks: the table in one line.
inline std::string tableOf(const clsFreqBO& bo) {
  const Texts values = textsOf(bo.Values());
  const Counts counts = bo.Counts().items();
  std::string out;
  for (std::size_t i = 0; i < std::max(values.size(), counts.size()); ++i) {
    out += (i > 0 ? " " : "") + (i < values.size() ? values[i] : "?") + ":" +
           (i < counts.size() ? std::to_string(counts[i]) : "?");
  }
  return out;
}
// Data, optional weights (none: each weighs 1) and bins (none: distinct values), analysed.
struct Analysis {
  Cells data, weights, bins;
  std::int32_t dataType = 0;
  bool textbook = false;
};
inline clsFreqBO analysed(const Analysis& a) {
  clsFreqBO bo;
  bo.Textbook(a.textbook);
  bo.DataType(a.dataType);
  bo.Data(cells(a.data));
  if (!a.weights.empty()) bo.Frequencies(cells(a.weights));
  if (!a.bins.empty()) bo.Bin(cells(a.bins));
  bo.Analyse();
  return bo;
}

}  // namespace orv::test

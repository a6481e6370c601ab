#pragma once
// CellFormatter: the add-in's formats for results tables.

#include "frame/range.h"

namespace orv {

class CellFormatter {
 public:
  // Labels are bold. Row labels (flag true) are left-aligned; column names (flag false) centred.
  void LabelFormat(const Range& range, bool rowLabels) const;
  // Values are right-aligned; with the flag they also get the "General" number format.
  void ValueFormat(const Range& range, bool general) const;
  // Headings: bold with the flag, plain without.
  void EmphasisFormat(const Range& range, bool emphasise) const;
};

}  // namespace orv

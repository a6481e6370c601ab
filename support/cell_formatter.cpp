#include "support/cell_formatter.h"

#include "frame/procedure.h"

namespace orv {
namespace {

constexpr Procedures kProc("CellFormatter");

}  // namespace

// Each format is one patch, so a block is formatted in one pass over its cells.

void CellFormatter::LabelFormat(const Range& range, bool rowLabels) const {
  kProc("LabelFormat", [&] {
    FormatPatch patch;
    patch.bold = true;
    patch.horizontalAlignment = rowLabels ? HAlign::Left : HAlign::Center;
    range.ApplyFormat(patch);
  });
}

void CellFormatter::ValueFormat(const Range& range, bool general) const {
  kProc("ValueFormat", [&] {
    FormatPatch patch;
    patch.horizontalAlignment = HAlign::Right;
    if (general) patch.numberFormat = "General";
    range.ApplyFormat(patch);
  });
}

void CellFormatter::EmphasisFormat(const Range& range, bool emphasise) const {
  kProc("EmphasisFormat", [&] {
    FormatPatch patch;
    patch.bold = emphasise;
    range.ApplyFormat(patch);
  });
}

}  // namespace orv

#include "frame/cell_format.h"

namespace orv {

void FormatPatch::applyTo(CellFormat& f) const {
  if (numberFormat) f.numberFormat = *numberFormat;
  if (bold) f.bold = *bold;
  if (fontSize) f.fontSize = *fontSize;
  if (fontColorIndex) f.fontColorIndex = *fontColorIndex;
  if (interiorColorIndex) f.interiorColorIndex = *interiorColorIndex;
  if (horizontalAlignment) f.horizontalAlignment = *horizontalAlignment;
}

}  // namespace orv

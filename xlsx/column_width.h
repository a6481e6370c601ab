#pragma once
// Column widths in the two units that meet in a package: points, as the host model keeps them,
// and the file's characters of the default font's digit width, padding included. The font is
// taken as the default one, whose digit is 7 pixels wide at 96 dpi.

#include <cstdint>
#include <vector>

namespace orv {

class SheetGeometry;

// Points for a width in characters, by the spreadsheet's rule:
// pixels = trunc((256 w + trunc(128 / 7)) / 256 * 7), points = pixels * 0.75. Widths are held
// to 0..255 characters, the spreadsheet's range. 9.140625 (a default column) gives 48 pt.
double columnWidthPoints(double characters);

// Characters for a width in points; the inverse of columnWidthPoints for whole-pixel widths.
double columnWidthCharacters(double points);

// One <col> element of a sheet: columns first..last (1-based, within the sheet), `points` wide
// (0 when hidden).
struct ColumnWidth {
  std::int32_t first;
  std::int32_t last;
  double points;
};

// Sets the widths in file order, a later element overriding an earlier one where they overlap;
// widths equal to the sheet's default are left unset. Each column is touched once, however many
// wide ranges the list repeats.
void applyColumnWidths(SheetGeometry& geometry, const std::vector<ColumnWidth>& widths);

}  // namespace orv

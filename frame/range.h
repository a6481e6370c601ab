#pragma once
// Range: a worksheet plus one or more rectangular areas, the one value type through which the
// component reads and writes cells. Everything here is computed on top of the worksheet's cell
// primitives (host.h), so every host gets the same behaviour.
//
// Counts and Cells() follow the host: Rows/Columns count the first area; Cells(r, c) is relative
// to the top-left cell of the first area and may lie outside the range; a cell beyond the sheet
// raises a host failure (1004).

#include <cstdint>
#include <string>
#include <vector>

#include "frame/cell_format.h"
#include "frame/cell_value.h"
#include "frame/reference.h"
#include "frame/value_array.h"

namespace orv {

class Worksheet;

// Paste types of Range::PasteSpecial, with the host's enumeration values.
enum class PasteType : std::int32_t {
  All = -4104,      // values and formats
  Values = -4163,   // values only; the target keeps its formats
  Formats = -4122,  // formats only
  ValuesAndNumberFormats = 12,
};

class Range {
 public:
  Range(Worksheet& sheet, CellBlock block);
  Range(Worksheet& sheet, std::vector<CellBlock> areas);  // at least one area

  // The block spanned by two cells of one sheet (Worksheet.Range(cell, cell)).
  static Range Span(const Range& first, const Range& second);
  // Every cell of a sheet (Worksheet.Cells).
  static Range AllCells(Worksheet& sheet);

  Worksheet& Parent() const { return *sheet_; }
  const std::vector<CellBlock>& areas() const { return areas_; }
  const CellBlock& block() const { return areas_.front(); }

  std::int32_t AreasCount() const { return static_cast<std::int32_t>(areas_.size()); }
  Range Areas(std::int32_t index) const;  // 1-based; 9 when out of bounds
  std::int32_t RowsCount() const { return block().rows(); }
  std::int32_t ColumnsCount() const { return block().columns(); }
  Range Columns(std::int32_t column) const;  // column of the first area, 1-based
  Range Rows(std::int32_t row) const;
  Range Cells(std::int64_t row, std::int64_t column) const;
  std::int64_t CellCount() const;  // over all areas

  // The first area's values. A single cell reads as a 1-by-1 array.
  ValueArray2D Values() const;
  // The top-left cell's value.
  CellValue Value() const;
  // Assigns one value to every cell of every area.
  void SetValue(const CellValue& v) const;
  // Assigns a block to the first area, row by row; cells of the area beyond the array get #N/A,
  // array elements beyond the area are dropped (as the host does).
  void SetValues(const ValueArray2D& values) const;

  // "$A$1:$C$20" (areas joined by ","); AddressLocal is the same in this host's locale.
  std::string Address() const;
  std::string AddressLocal() const { return Address(); }
  // "Data!$A$1:$C$20", the sheet name quoted where needed.
  std::string AddressWithSheet() const;

  // Geometry of the first area in points, from the sheet's top-left corner.
  double Top() const;
  double Left() const;
  double Width() const;
  double Height() const;

  // The top-left cell's format, and changes to every cell of every area.
  CellFormat Format() const;
  std::string NumberFormat() const { return Format().numberFormat; }
  void ApplyFormat(const FormatPatch& patch) const;
  void SetNumberFormat(const std::string& format) const;
  void SetBold(bool bold) const;
  void SetFontSize(double size) const;
  void SetFontColorIndex(std::int32_t index) const;
  void SetInteriorColorIndex(std::int32_t index) const;
  void SetHorizontalAlignment(HAlign align) const;

  // Clears values and formats.
  void Clear() const;
  // Copy puts the range on the application's clipboard; PasteSpecial pastes the clipboard's
  // first area with its top-left cell at this range's top-left cell. Pasting with nothing on the
  // clipboard is a host failure.
  void Copy() const;
  void PasteSpecial(PasteType type) const;
  void Select() const;

 private:
  Worksheet* sheet_;
  std::vector<CellBlock> areas_;
};

// Application.Union: the areas of both ranges, in order. Ranges on different sheets are a host
// failure.
Range Union(const Range& first, const Range& second);

}  // namespace orv

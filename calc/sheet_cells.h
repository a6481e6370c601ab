#pragma once
// SheetCells: one sheet's cells in the office, a block per call: values through
// XCellRangeData, formats through the unique-format ranges and property sets, clearing through
// XSheetOperation. The host's caches (sheet_values.h, sheet_formats.h) call it.
//
// Values read: numbers, texts, empty; error values (which the office hands over as nothing) are
// asked for cell by cell, and a number in a cell formatted as Boolean reads as that Boolean, the
// office's way of holding TRUE and FALSE. Values written: numbers and texts in one block (a
// text is stored as text, never parsed); error values as the error constant's formula
// ("=#N/A") and Booleans as 1 or 0 formatted as Boolean, cell by cell.

#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>

#include <optional>
#include <string>
#include <vector>

#include "calc/cell_format_properties.h"
#include "calc/sheet_formats.h"
#include "calc/sheet_values.h"

namespace orv::calc {

class SheetCells final : public ValueSource, public FormatSource {
 public:
  // `label` names the sheet in messages.
  SheetCells(Reference<css::sheet::XSpreadsheet> sheet, Reference<css::lang::XMultiServiceFactory> document,
             NumberFormatTable& numbers, std::string label);

  void read(const CellBlock& block, ValueArray2D& out) override;
  void write(const CellBlock& block, const ValueArray2D& values) override;
  std::optional<CellBlock> usedBlock() override;

  std::vector<CellFormat> read(const CellBlock& block) override;
  void patch(const CellBlock& block, const FormatPatch& patch) override;
  void set(const std::vector<CellBlock>& blocks, const CellFormat& format) override;

  // Removes values, notes and formats of the block, as Range.Clear does.
  void clear(const CellBlock& block);

  const Reference<css::sheet::XSpreadsheet>& sheet() const { return sheet_; }
  std::string describe(const CellBlock& block) const;

 private:
  Reference<css::uno::XInterface> rangeOf(const CellBlock& block) const;
  void markBooleans(const CellBlock& block, ValueArray2D& out);

  Reference<css::sheet::XSpreadsheet> sheet_;
  Reference<css::lang::XMultiServiceFactory> document_;
  NumberFormatTable* numbers_;
  std::string label_;
};

}  // namespace orv::calc

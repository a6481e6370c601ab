#pragma once
// A worksheet of the live host: a sheet of an office document.
//
// Values and formats go through the sheet's caches (sheet_values.h, sheet_formats.h), so that
// the component's cell-by-cell calls cost the office a call per block; flush() sends what is
// pending. Row and column geometry is read once per row or column and kept: the office keeps
// sizes in twips and hands them over in 1/100 mm, so they are rounded back to twips, which gives
// the exact points (15 pt rows, 48 pt columns) a workbook file set.
//
// Cells and blocks must lie on the sheet (rows 1..1048576, columns 1..16384); anything else is a
// host failure (1004), as in the in-memory host.

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "calc/sheet_cells.h"
#include "frame/chart.h"
#include "frame/host.h"

namespace orv::calc {

class CalcWorkbook;
class CalcChartObjects;

class CalcWorksheet final : public Worksheet {
 public:
  CalcWorksheet(CalcWorkbook& parent, Reference<css::sheet::XSpreadsheet> sheet, std::string name);
  ~CalcWorksheet() override;
  CalcWorksheet(const CalcWorksheet&) = delete;
  CalcWorksheet& operator=(const CalcWorksheet&) = delete;

  std::string Name() const override { return name_; }
  Workbook& Parent() override;
  CalcWorkbook& workbook() { return *parent_; }

  CellValue cellValue(std::int32_t row, std::int32_t column) const override;
  // As a program assigns (frame/conversions.h, assignedValue).
  void assignValue(std::int32_t row, std::int32_t column, const CellValue& value) override;
  void pasteValue(std::int32_t row, std::int32_t column, const CellValue& value) override;
  void readBlock(const CellBlock& block, ValueArray2D& out) const override;

  CellFormat cellFormat(std::int32_t row, std::int32_t column) const override;
  void setCellFormat(std::int32_t row, std::int32_t column, const CellFormat& format) override;
  void applyFormat(const CellBlock& block, const FormatPatch& patch) override;
  void clear(const CellBlock& block) override;
  std::optional<CellBlock> usedBlock() const override;

  double rowTop(std::int32_t row) const override;
  double columnLeft(std::int32_t column) const override;
  double rowHeight(std::int32_t row) const override;
  double columnWidth(std::int32_t column) const override;
  // The office keeps no mark of a column sized by hand: a column counts as set when its width
  // differs from that of the sheet's last column, which files and people leave at the default.
  bool columnWidthSet(std::int32_t column) const override;
  void setColumnWidth(std::int32_t column, double points) override;

  // As in the in-memory host: Activate makes this the active sheet of its workbook and activates
  // the workbook; MoveAfter works within the sheet's own workbook and makes the moved sheet the
  // active one; select works only on the active sheet of the active workbook.
  void Activate() override;
  void MoveAfter(Worksheet& sheet) override;
  void select(const std::vector<CellBlock>& areas) override;
  const std::vector<CellBlock>& selection() const { return selection_; }

  ChartObjects& chartObjects() override;
  Shape& shapes(std::string_view name) override;

  // Sends pending values and formats, and brings the charts up to date.
  void flush();
  // Sends pending values only (what formulas and charts in the office read).
  void flushValues();
  const Reference<css::sheet::XSpreadsheet>& sheet() const { return cells_.sheet(); }
  std::string describe(const CellBlock& block) const { return cells_.describe(block); }

 private:
  double hundredthsToPoints(sal_Int32 hundredths) const;
  double cellPosition(std::int32_t row, std::int32_t column, bool vertical) const;
  // The height of a row or the width of a column, asked of the office.
  double measuredSize(bool row, std::int32_t index) const;

  CalcWorkbook* parent_;
  std::string name_;
  mutable SheetCells cells_;
  mutable SheetValues values_;
  mutable SheetFormats formats_;
  mutable std::map<std::int32_t, double> rowTops_, columnLefts_, rowHeights_, columnWidths_;
  std::vector<CellBlock> selection_{CellBlock{}};
  std::unique_ptr<CalcChartObjects> charts_;
};

}  // namespace orv::calc

#pragma once
// A worksheet of the in-memory host: values column by column (cell_store.h), formats by style id
// (format_store.h), row and column sizes (sheet_geometry.h), and the recorded selection.
//
// Cells and blocks must lie on the sheet (rows 1..1048576, columns 1..16384); anything else is
// a host failure (1004) with the host's generic description.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "frame/host.h"
#include "workbook/cell_store.h"
#include "workbook/chart_model.h"
#include "workbook/format_store.h"
#include "workbook/in_memory_chart_objects.h"
#include "workbook/sheet_geometry.h"

namespace orv {

class InMemoryWorkbook;

class InMemoryWorksheet final : public Worksheet {
 public:
  // Sheets are made by their workbook (InMemoryWorkbook::addSheet, addNewSheet), which checks
  // the name.
  InMemoryWorksheet(InMemoryWorkbook& parent, std::string name);
  InMemoryWorksheet(const InMemoryWorksheet&) = delete;
  InMemoryWorksheet& operator=(const InMemoryWorksheet&) = delete;

  std::string Name() const override { return name_; }
  Workbook& Parent() override;
  InMemoryWorkbook& workbook() { return *parent_; }
  const InMemoryWorkbook& workbook() const { return *parent_; }

  CellValue cellValue(std::int32_t row, std::int32_t column) const override;
  // As a program assigns: a text that reads as a plain number (blanks around it allowed, so
  // " 7" becomes 7) is stored as that number unless the cell's number format is text ("@");
  // an empty text empties the cell; every other value is stored as it is. A number that is not
  // finite is a host failure.
  void assignValue(std::int32_t row, std::int32_t column, const CellValue& value) override;
  // As a file reader stores: no conversion at all.
  void storeRaw(std::int32_t row, std::int32_t column, CellValue value);
  void pasteValue(std::int32_t row, std::int32_t column, const CellValue& value) override;
  void readBlock(const CellBlock& block, ValueArray2D& out) const override;

  CellFormat cellFormat(std::int32_t row, std::int32_t column) const override;
  void setCellFormat(std::int32_t row, std::int32_t column, const CellFormat& format) override;
  void applyFormat(const CellBlock& block, const FormatPatch& patch) override;
  void clear(const CellBlock& block) override;
  std::optional<CellBlock> usedBlock() const override { return cells_.usedBlock(); }
  // The smallest block that holds every cell whose value or format was set through the host
  // interface (assignValue, pasteValue, setCellFormat, applyFormat, clear), that is by a program
  // rather than by a file reader's storeRaw; none when there is no such cell. What a writer must
  // put into a file that already holds the sheet.
  const std::optional<CellBlock>& writtenBlock() const { return written_; }

  double rowTop(std::int32_t row) const override;
  double columnLeft(std::int32_t column) const override;
  double rowHeight(std::int32_t row) const override;
  double columnWidth(std::int32_t column) const override;
  // Set: a width in the geometry's list of custom widths (a file's <col> width that differs from
  // the sheet's default, or one set since).
  bool columnWidthSet(std::int32_t column) const override;
  void setColumnWidth(std::int32_t column, double points) override;
  SheetGeometry& geometry() { return geometry_; }
  const SheetGeometry& geometry() const { return geometry_; }

  // Makes this the active sheet of its workbook and activates the workbook (InMemoryWorkbook::
  // Activate: the add-in workbook never becomes the active one while a user workbook is open).
  void Activate() override;
  // Within this sheet's workbook only; a sheet of another workbook is a host failure. The moved
  // sheet becomes the active sheet of its workbook, as in the host.
  void MoveAfter(Worksheet& sheet) override;
  // Range.Select: only on the active sheet of the active workbook, as in the host; otherwise a
  // host failure. The selection is recorded for tests and writers.
  void select(const std::vector<CellBlock>& areas) override;
  const std::vector<CellBlock>& selection() const { return selection_; }

  // Renames the sheet under the workbook's name rules (sheet_names.h; unique in the workbook).
  void Rename(std::string name);

  const FormatStore& formats() const { return formats_; }

  // The chart objects of this sheet, and the charts recorded behind them in the order of adding
  // (what tests inspect and the .xlsx writer serialises). Shapes are found among the chart
  // objects, the only drawing objects this host makes.
  ChartObjects& chartObjects() override { return charts_; }
  Shape& shapes(std::string_view name) override { return charts_.Item(name); }
  const std::vector<ChartModel>& charts() const { return charts_.models(); }

 private:
  friend class InMemoryWorkbook;  // sets the name after checking it

  void noteWritten(const CellBlock& block);

  InMemoryWorkbook* parent_;
  std::string name_;
  CellStore cells_;
  FormatStore formats_;
  SheetGeometry geometry_;
  std::vector<CellBlock> selection_{CellBlock{}};
  std::optional<CellBlock> written_;
  InMemoryChartObjects charts_{*this};
};

}  // namespace orv

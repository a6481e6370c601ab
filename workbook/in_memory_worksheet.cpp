#include "workbook/in_memory_worksheet.h"

#include <algorithm>

#include "frame/conversions.h"
#include "frame/errors.h"
#include "workbook/in_memory_application.h"
#include "workbook/in_memory_workbook.h"

namespace orv {
InMemoryWorksheet::InMemoryWorksheet(InMemoryWorkbook& parent, std::string name)
    : parent_(&parent), name_(std::move(name)) {}

Workbook& InMemoryWorksheet::Parent() { return *parent_; }

CellValue InMemoryWorksheet::cellValue(std::int32_t row, std::int32_t column) const {
  requireCellOnSheet(row, column);
  return cells_.get(row, column);
}

void InMemoryWorksheet::assignValue(std::int32_t row, std::int32_t column, const CellValue& value) {
  requireCellOnSheet(row, column);
  cells_.set(row, column, assignedValue(value, [&] { return formats_.format(row, column).numberFormat; }));
  noteWritten(CellBlock{row, column, row, column});
}

void InMemoryWorksheet::pasteValue(std::int32_t row, std::int32_t column, const CellValue& value) {
  storeRaw(row, column, value);
  noteWritten(CellBlock{row, column, row, column});
}

void InMemoryWorksheet::storeRaw(std::int32_t row, std::int32_t column, CellValue value) {
  requireCellOnSheet(row, column);
  cells_.set(row, column, std::move(value));
}

void InMemoryWorksheet::readBlock(const CellBlock& block, ValueArray2D& out) const {
  requireBlockOnSheet(block);
  cells_.read(block, out);
}

CellFormat InMemoryWorksheet::cellFormat(std::int32_t row, std::int32_t column) const {
  requireCellOnSheet(row, column);
  return formats_.format(row, column);
}

void InMemoryWorksheet::setCellFormat(std::int32_t row, std::int32_t column, const CellFormat& format) {
  requireCellOnSheet(row, column);
  formats_.set(row, column, format);
  noteWritten(CellBlock{row, column, row, column});
}

void InMemoryWorksheet::applyFormat(const CellBlock& block, const FormatPatch& patch) {
  requireBlockOnSheet(block);
  formats_.apply(block, patch);
  noteWritten(block);
}

void InMemoryWorksheet::clear(const CellBlock& block) {
  requireBlockOnSheet(block);
  if (block.wholeColumns() && block.wholeRows()) {
    cells_.clearAll();
  } else {
    cells_.clear(block);
  }
  formats_.clear(block);
  noteWritten(block);
}

void InMemoryWorksheet::noteWritten(const CellBlock& block) {
  if (!written_) {
    written_ = block;
    return;
  }
  written_ = CellBlock{std::min(written_->top, block.top), std::min(written_->left, block.left),
                       std::max(written_->bottom, block.bottom), std::max(written_->right, block.right)};
}

double InMemoryWorksheet::rowTop(std::int32_t row) const {
  if (row < 1 || row > kMaxRows + 1) raise(err::kHostFailure);
  return geometry_.rowTop(row);
}

double InMemoryWorksheet::columnLeft(std::int32_t column) const {
  if (column < 1 || column > kMaxColumns + 1) raise(err::kHostFailure);
  return geometry_.columnLeft(column);
}

double InMemoryWorksheet::rowHeight(std::int32_t row) const {
  requireCellOnSheet(row, 1);
  return geometry_.rowHeight(row);
}

double InMemoryWorksheet::columnWidth(std::int32_t column) const {
  requireCellOnSheet(1, column);
  return geometry_.columnWidth(column);
}

bool InMemoryWorksheet::columnWidthSet(std::int32_t column) const {
  requireCellOnSheet(1, column);
  return geometry_.customColumnWidths().contains(column);
}

void InMemoryWorksheet::setColumnWidth(std::int32_t column, double points) {
  requireCellOnSheet(1, column);
  geometry_.setColumnWidth(column, points);
}

void InMemoryWorksheet::Activate() {
  parent_->activateSheet(*this);
  parent_->Activate();
}

void InMemoryWorksheet::MoveAfter(Worksheet& sheet) {
  auto* after = dynamic_cast<InMemoryWorksheet*>(&sheet);
  if (after == nullptr || after->parent_ != parent_) {
    raiseHost("Move method of Worksheet class failed: the sheet \"" + name_ +
              "\" can only be moved within its own workbook");
  }
  parent_->moveAfter(*this, *after);
}

void InMemoryWorksheet::select(const std::vector<CellBlock>& areas) {
  for (const CellBlock& b : areas) requireBlockOnSheet(b);
  InMemoryApplication& app = parent_->inMemoryApplication();
  if (&app.ActiveWorkbook() != parent_ || parent_->activeSheet() != this) {
    raiseHost("Select method of Range class failed: the sheet \"" + name_ + "\" is not the active sheet");
  }
  if (!areas.empty()) selection_ = areas;
}

void InMemoryWorksheet::Rename(std::string name) { parent_->renameSheet(*this, std::move(name)); }

}  // namespace orv

#include "workbook/in_memory_worksheet.h"

#include "frame/conversions.h"
#include "frame/errors.h"
#include "workbook/in_memory_application.h"
#include "workbook/in_memory_workbook.h"

namespace orv {
namespace {

void checkCell(std::int32_t row, std::int32_t column) {
  if (row < 1 || row > kMaxRows || column < 1 || column > kMaxColumns) raise(err::kHostFailure);
}

void checkBlock(const CellBlock& b) {
  if (b.top < 1 || b.left < 1 || b.bottom > kMaxRows || b.right > kMaxColumns || b.top > b.bottom ||
      b.left > b.right) {
    raise(err::kHostFailure);
  }
}

}  // namespace

InMemoryWorksheet::InMemoryWorksheet(InMemoryWorkbook& parent, std::string name)
    : parent_(&parent), name_(std::move(name)) {}

Workbook& InMemoryWorksheet::Parent() { return *parent_; }

CellValue InMemoryWorksheet::cellValue(std::int32_t row, std::int32_t column) const {
  checkCell(row, column);
  return cells_.get(row, column);
}

void InMemoryWorksheet::assignValue(std::int32_t row, std::int32_t column, const CellValue& value) {
  checkCell(row, column);
  cells_.set(row, column, assignedValue(value, [&] { return formats_.format(row, column).numberFormat; }));
}

void InMemoryWorksheet::storeRaw(std::int32_t row, std::int32_t column, CellValue value) {
  checkCell(row, column);
  cells_.set(row, column, std::move(value));
}

void InMemoryWorksheet::readBlock(const CellBlock& block, ValueArray2D& out) const {
  checkBlock(block);
  cells_.read(block, out);
}

CellFormat InMemoryWorksheet::cellFormat(std::int32_t row, std::int32_t column) const {
  checkCell(row, column);
  return formats_.format(row, column);
}

void InMemoryWorksheet::setCellFormat(std::int32_t row, std::int32_t column, const CellFormat& format) {
  checkCell(row, column);
  formats_.set(row, column, format);
}

void InMemoryWorksheet::applyFormat(const CellBlock& block, const FormatPatch& patch) {
  checkBlock(block);
  formats_.apply(block, patch);
}

void InMemoryWorksheet::clear(const CellBlock& block) {
  checkBlock(block);
  if (block.wholeColumns() && block.wholeRows()) {
    cells_.clearAll();
  } else {
    cells_.clear(block);
  }
  formats_.clear(block);
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
  checkCell(row, 1);
  return geometry_.rowHeight(row);
}

double InMemoryWorksheet::columnWidth(std::int32_t column) const {
  checkCell(1, column);
  return geometry_.columnWidth(column);
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
  for (const CellBlock& b : areas) checkBlock(b);
  InMemoryApplication& app = parent_->inMemoryApplication();
  if (&app.ActiveWorkbook() != parent_ || parent_->activeSheet() != this) {
    raiseHost("Select method of Range class failed: the sheet \"" + name_ + "\" is not the active sheet");
  }
  if (!areas.empty()) selection_ = areas;
}

void InMemoryWorksheet::Rename(std::string name) { parent_->renameSheet(*this, std::move(name)); }

}  // namespace orv

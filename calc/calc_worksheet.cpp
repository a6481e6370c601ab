#include "calc/calc_worksheet.h"

#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>

#include <cmath>

#include "calc/calc_application.h"
#include "calc/calc_chart_objects.h"
#include "calc/calc_workbook.h"
#include "frame/conversions.h"
#include "frame/errors.h"

namespace orv::calc {
namespace {

using css::uno::UNO_QUERY_THROW;

bool wholeSheet(const CellBlock& b) { return b.wholeRows() && b.wholeColumns(); }

// A size or position asked of the office once, then kept.
template <class Compute>
double cached(std::map<std::int32_t, double>& cache, std::int32_t key, Compute&& compute) {
  const auto found = cache.find(key);
  if (found != cache.end()) return found->second;
  const double v = compute();
  cache.emplace(key, v);
  return v;
}

}  // namespace

CalcWorksheet::CalcWorksheet(CalcWorkbook& parent, Reference<css::sheet::XSpreadsheet> sheet, std::string name)
    : parent_(&parent),
      name_(name),
      cells_(std::move(sheet), parent.factory(), parent.numberFormats(), std::move(name)),
      values_(cells_),
      formats_(cells_) {}

CalcWorksheet::~CalcWorksheet() = default;

Workbook& CalcWorksheet::Parent() { return *parent_; }

CellValue CalcWorksheet::cellValue(std::int32_t row, std::int32_t column) const {
  requireCellOnSheet(row, column);
  return values_.get(row, column);
}

void CalcWorksheet::assignValue(std::int32_t row, std::int32_t column, const CellValue& value) {
  requireCellOnSheet(row, column);
  values_.set(row, column, assignedValue(value, [&] { return formats_.get(row, column).numberFormat; }));
}

void CalcWorksheet::pasteValue(std::int32_t row, std::int32_t column, const CellValue& value) {
  requireCellOnSheet(row, column);
  values_.set(row, column, value);
}

void CalcWorksheet::readBlock(const CellBlock& block, ValueArray2D& out) const {
  requireBlockOnSheet(block);
  values_.read(block, out);
}

CellFormat CalcWorksheet::cellFormat(std::int32_t row, std::int32_t column) const {
  requireCellOnSheet(row, column);
  return formats_.get(row, column);
}

void CalcWorksheet::setCellFormat(std::int32_t row, std::int32_t column, const CellFormat& format) {
  requireCellOnSheet(row, column);
  formats_.set(row, column, format);
}

void CalcWorksheet::applyFormat(const CellBlock& block, const FormatPatch& patch) {
  requireBlockOnSheet(block);
  formats_.patch(block, patch);
}

void CalcWorksheet::clear(const CellBlock& block) {
  requireBlockOnSheet(block);
  values_.flush();
  formats_.flush();
  cells_.clear(block);
  values_.cleared(block);
  std::optional<CellFormat> standard;
  if (wholeSheet(block)) standard = cells_.read(CellBlock{1, 1, 1, 1}).front();
  formats_.cleared(block, standard);
}

std::optional<CellBlock> CalcWorksheet::usedBlock() const { return values_.usedBlock(); }

double CalcWorksheet::hundredthsToPoints(sal_Int32 hundredths) const {
  const double twips = std::round(hundredths * 1440.0 / 2540.0);
  return twips / 20.0;
}

double CalcWorksheet::cellPosition(std::int32_t row, std::int32_t column, bool vertical) const {
  return remote("measure the sheet " + name_, [&] {
    const Reference<css::beans::XPropertySet> cell(sheet()->getCellByPosition(column - 1, row - 1), UNO_QUERY_THROW);
    css::awt::Point at;
    cell->getPropertyValue("Position") >>= at;
    return hundredthsToPoints(vertical ? at.Y : at.X);
  });
}

double CalcWorksheet::rowTop(std::int32_t row) const {
  if (row < 1 || row > kMaxRows + 1) raise(err::kHostFailure);
  if (row == 1) return 0;
  if (row == kMaxRows + 1) return rowTop(kMaxRows) + rowHeight(kMaxRows);
  return cached(rowTops_, row, [&] { return cellPosition(row, 1, true); });
}

double CalcWorksheet::columnLeft(std::int32_t column) const {
  if (column < 1 || column > kMaxColumns + 1) raise(err::kHostFailure);
  if (column == 1) return 0;
  if (column == kMaxColumns + 1) return columnLeft(kMaxColumns) + columnWidth(kMaxColumns);
  return cached(columnLefts_, column, [&] { return cellPosition(1, column, false); });
}

double CalcWorksheet::rowHeight(std::int32_t row) const {
  requireCellOnSheet(row, 1);
  return cached(rowHeights_, row, [&] { return measuredSize(true, row); });
}

double CalcWorksheet::columnWidth(std::int32_t column) const {
  requireCellOnSheet(1, column);
  return cached(columnWidths_, column, [&] { return measuredSize(false, column); });
}

bool CalcWorksheet::columnWidthSet(std::int32_t column) const {
  return columnWidth(column) != columnWidth(kMaxColumns);
}

void CalcWorksheet::setColumnWidth(std::int32_t column, double points) {
  requireCellOnSheet(1, column);
  if (!std::isfinite(points) || points < 0.0) raiseHost("Unable to set the ColumnWidth property of the Range class");
  remote("size a column of the sheet " + name_, [&] {
    const Reference<css::table::XColumnRowRange> range(sheet(), UNO_QUERY_THROW);
    Reference<css::beans::XPropertySet>(range->getColumns()->getByIndex(column - 1), UNO_QUERY_THROW)
        ->setPropertyValue("Width", css::uno::Any(static_cast<sal_Int32>(std::lround(points * 2540.0 / 72.0))));
  });
  // The office rounds to its own units; what it keeps is asked again when needed, and every
  // column to the right has moved.
  columnWidths_.erase(column);
  columnLefts_.erase(columnLefts_.upper_bound(column), columnLefts_.end());
}

double CalcWorksheet::measuredSize(bool row, std::int32_t index) const {
  return remote("measure the sheet " + name_, [&] {
    const Reference<css::table::XColumnRowRange> range(sheet(), UNO_QUERY_THROW);
    const css::uno::Any line =
        row ? range->getRows()->getByIndex(index - 1) : range->getColumns()->getByIndex(index - 1);
    sal_Int32 size = 0;
    Reference<css::beans::XPropertySet>(line, UNO_QUERY_THROW)
        ->getPropertyValue(OUString::createFromAscii(row ? "Height" : "Width")) >>= size;
    return hundredthsToPoints(size);
  });
}

void CalcWorksheet::Activate() {
  parent_->activateSheet(*this);
  parent_->Activate();
}

void CalcWorksheet::MoveAfter(Worksheet& sheet) {
  auto* after = dynamic_cast<CalcWorksheet*>(&sheet);
  if (after == nullptr || after->parent_ != parent_) {
    raiseHost("Move method of Worksheet class failed: the sheet \"" + name_ +
              "\" can only be moved within its own workbook");
  }
  parent_->moveAfter(*this, *after);
}

void CalcWorksheet::select(const std::vector<CellBlock>& areas) {
  for (const CellBlock& b : areas) requireBlockOnSheet(b);
  CalcApplication& app = parent_->calcApplication();
  if (&app.ActiveWorkbook() != parent_ || parent_->activeSheet() != this) {
    raiseHost("Select method of Range class failed: the sheet \"" + name_ + "\" is not the active sheet");
  }
  if (areas.empty()) return;
  selection_ = areas;
  parent_->select(*this, areas);
}

ChartObjects& CalcWorksheet::chartObjects() {
  if (!charts_) charts_ = std::make_unique<CalcChartObjects>(*this);
  return *charts_;
}

Shape& CalcWorksheet::shapes(std::string_view name) { return chartObjects().Item(name); }

void CalcWorksheet::flushValues() { values_.flush(); }

void CalcWorksheet::flush() {
  values_.flush();
  formats_.flush();
  if (charts_) charts_->flush();
}

}  // namespace orv::calc

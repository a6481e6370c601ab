#include "calc/calc_chart_objects.h"

#include <com/sun/star/awt/Rectangle.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/XEmbeddedObjectSupplier.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/table/XTableCharts.hpp>
#include <com/sun/star/table/XTableChartsSupplier.hpp>

#include <cmath>

#include "calc/calc_application.h"
#include "calc/calc_workbook.h"
#include "calc/calc_worksheet.h"
#include "frame/errors.h"

namespace orv::calc {
namespace {

using css::uno::UNO_QUERY_THROW;

sal_Int32 hundredths(double points) { return static_cast<sal_Int32>(std::lround(points * 2540.0 / 72.0)); }

void requireFinite(double points, std::string_view property) {
  if (!std::isfinite(points))
    raiseHost("Unable to set the " + std::string(property) + " property of the ChartObject class");
}

void requireSize(double points, std::string_view property) {
  requireFinite(points, property);
  if (points < 0) raiseHost("Unable to set the " + std::string(property) + " property of the ChartObject class");
}

// The draw page's shape of an embedded chart: the one that keeps the chart under its name. The office marks the
// draw page supplier deprecated, but a sheet offers its shapes no other way.
Reference<css::drawing::XShape> shapeNamed(const Reference<css::sheet::XSpreadsheet>& sheet, const OUString& name) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
  const Reference<css::container::XIndexAccess> page(
      Reference<css::drawing::XDrawPageSupplier>(sheet, UNO_QUERY_THROW)->getDrawPage(), UNO_QUERY_THROW);
#pragma GCC diagnostic pop
  for (sal_Int32 i = page->getCount() - 1; i >= 0; --i) {
    const Reference<css::beans::XPropertySet> shape(page->getByIndex(i), UNO_QUERY_THROW);
    if (!shape->getPropertySetInfo()->hasPropertyByName("PersistName")) continue;
    OUString persistName;
    shape->getPropertyValue("PersistName") >>= persistName;
    if (persistName == name) return Reference<css::drawing::XShape>(shape, UNO_QUERY_THROW);
  }
  raiseHost("The office made a chart without a shape on the sheet");
}

}  // namespace

CalcChartObject::CalcChartObject(CalcWorksheet& sheet, std::string name, Reference<css::drawing::XShape> shape,
                                 std::unique_ptr<ChartDrawing> drawing, double left, double top, double width,
                                 double height)
    : sheet_(&sheet),
      name_(std::move(name)),
      shape_(std::move(shape)),
      left_(left),
      top_(top),
      width_(width),
      height_(height),
      chart_(*this, std::move(drawing)) {}

void CalcChartObject::place() {
  remote("place the chart " + name_, [&] {
    shape_->setPosition(css::awt::Point(hundredths(left_), hundredths(top_)));
    shape_->setSize(css::awt::Size(hundredths(width_), hundredths(height_)));
  });
}

void CalcChartObject::SetLeft(double points) {
  requireFinite(points, "Left");
  left_ = points;
  place();
}

void CalcChartObject::SetTop(double points) {
  requireFinite(points, "Top");
  top_ = points;
  place();
}

// A new size changes the chart's layout: it is drawn again.
void CalcChartObject::SetWidth(double points) {
  requireSize(points, "Width");
  width_ = points;
  chart_.edit();
  place();
}

void CalcChartObject::SetHeight(double points) {
  requireSize(points, "Height");
  height_ = points;
  chart_.edit();
  place();
}

void CalcChartObject::Select() {
  CalcWorkbook& book = sheet_->workbook();
  if (&book.calcApplication().ActiveWorkbook() != &book || book.activeSheet() != sheet_) {
    raiseHost("Select method of ChartObject class failed: the sheet \"" + sheet_->Name() +
              "\" is not the active sheet");
  }
}

ChartObject& CalcChartObjects::Item(std::int32_t index) {
  if (index < 1 || index > Count()) raiseHost("Unable to get the ChartObjects property of the Worksheet class");
  return *objects_[static_cast<std::size_t>(index - 1)];
}

ChartObject& CalcChartObjects::Item(std::string_view name) {
  for (const auto& object : objects_) {
    if (sameSheetName(object->Name(), name)) return *object;
  }
  raiseHost("The item named \"" + std::string(name) + "\" was not found");
}

ChartObject& CalcChartObjects::Add(double left, double top, double width, double height) {
  requireFinite(left, "Left");
  requireFinite(top, "Top");
  requireSize(width, "Width");
  requireSize(height, "Height");
  CalcWorkbook& book = sheet_->workbook();
  return remote("add a chart to the sheet " + sheet_->Name(), [&]() -> ChartObject& {
    const Reference<css::table::XTableCharts> charts =
        Reference<css::table::XTableChartsSupplier>(sheet_->sheet(), UNO_QUERY_THROW)->getCharts();
    std::size_t n = objects_.size() + 1;
    while (charts->hasByName(toUno("Chart " + std::to_string(n)))) ++n;
    const std::string name = "Chart " + std::to_string(n);
    charts->addNewByName(toUno(name),
                         css::awt::Rectangle(hundredths(left), hundredths(top), hundredths(width), hundredths(height)),
                         css::uno::Sequence<css::table::CellRangeAddress>(), false, false);
    const Reference<css::document::XEmbeddedObjectSupplier> embedded(charts->getByName(toUno(name)), UNO_QUERY_THROW);
    const Reference<css::chart2::XChartDocument> document(embedded->getEmbeddedObject(), UNO_QUERY_THROW);
    auto drawing = std::make_unique<ChartDrawing>(book.calcApplication().context(), document, book.factory());
    objects_.push_back(std::make_unique<CalcChartObject>(*sheet_, name, shapeNamed(sheet_->sheet(), toUno(name)),
                                                         std::move(drawing), left, top, width, height));
    return *objects_.back();
  });
}

void CalcChartObjects::flush() {
  for (const auto& object : objects_) object->chart().draw();
}

}  // namespace orv::calc

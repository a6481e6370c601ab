#include "workbook/in_memory_chart_objects.h"

#include <cmath>

#include "frame/errors.h"
#include "frame/sheet_name.h"
#include "workbook/in_memory_application.h"

namespace orv {
namespace {

void requireFinite(double points, std::string_view property) {
  if (!std::isfinite(points)) {
    raiseHost("Unable to set the " + std::string(property) + " property of the ChartObject class");
  }
}

void requireSize(double points, std::string_view property) {
  requireFinite(points, property);
  if (points < 0) {
    raiseHost("Unable to set the " + std::string(property) + " property of the ChartObject class");
  }
}

}  // namespace

InMemoryChartObject::InMemoryChartObject(InMemoryChartObjects& owner, InMemoryWorksheet& sheet, std::size_t index)
    : owner_(&owner), sheet_(&sheet), index_(index), chart_(sheet, [this]() -> ChartModel& { return model(); }) {}

ChartModel& InMemoryChartObject::model() const { return owner_->models()[index_]; }

void InMemoryChartObject::SetLeft(double points) {
  requireFinite(points, "Left");
  model().left = points;
}

void InMemoryChartObject::SetTop(double points) {
  requireFinite(points, "Top");
  model().top = points;
}

void InMemoryChartObject::SetWidth(double points) {
  requireSize(points, "Width");
  model().width = points;
}

void InMemoryChartObject::SetHeight(double points) {
  requireSize(points, "Height");
  model().height = points;
}

void InMemoryChartObject::Select() {
  InMemoryWorkbook& book = sheet_->workbook();
  if (&book.inMemoryApplication().ActiveWorkbook() != &book || book.activeSheet() != sheet_) {
    raiseHost("Select method of ChartObject class failed: the sheet \"" + sheet_->Name() +
              "\" is not the active sheet");
  }
}

ChartObject& InMemoryChartObjects::Item(std::int32_t index) {
  if (index < 1 || index > Count()) raiseHost("Unable to get the ChartObjects property of the Worksheet class");
  return *objects_[static_cast<std::size_t>(index - 1)];
}

ChartObject& InMemoryChartObjects::Item(std::string_view name) {
  for (const auto& object : objects_) {
    if (sameSheetName(object->Name(), name)) return *object;
  }
  raiseHost("The item named \"" + std::string(name) + "\" was not found");
}

ChartObject& InMemoryChartObjects::Add(double left, double top, double width, double height) {
  requireFinite(left, "Left");
  requireFinite(top, "Top");
  requireSize(width, "Width");
  requireSize(height, "Height");
  ChartModel chart;
  // Charts are never removed, so the count names the next one.
  chart.name = "Chart " + std::to_string(models_.size() + 1);
  chart.kind = ChartKind::ColumnClustered;  // the host's default type for a new chart
  chart.left = left;
  chart.top = top;
  chart.width = width;
  chart.height = height;
  models_.push_back(std::move(chart));
  objects_.push_back(std::make_unique<InMemoryChartObject>(*this, *sheet_, models_.size() - 1));
  return *objects_.back();
}

}  // namespace orv

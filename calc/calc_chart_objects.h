#pragma once
// The chart objects of a live worksheet: embedded charts of the office, each a shape on the
// sheet's draw page, named "Chart 1", "Chart 2", ... in the order of adding (a name the sheet
// already has, from the file it was opened from, is skipped).
//
// Positions and sizes are kept in points as they were set and handed to the office in 1/100 mm;
// reading them gives the points set, not the office's rounded value.

#include <com/sun/star/drawing/XShape.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "calc/calc_chart.h"
#include "frame/chart.h"

namespace orv::calc {

class CalcWorksheet;

class CalcChartObject final : public ChartObject {
 public:
  CalcChartObject(CalcWorksheet& sheet, std::string name, Reference<css::drawing::XShape> shape,
                  std::unique_ptr<ChartDrawing> drawing, double left, double top, double width, double height);
  CalcChartObject(const CalcChartObject&) = delete;
  CalcChartObject& operator=(const CalcChartObject&) = delete;

  std::string Name() const override { return name_; }
  double Left() const override { return left_; }
  double Top() const override { return top_; }
  void SetLeft(double points) override;
  void SetTop(double points) override;
  orv::Chart& Chart() override { return chart_; }
  double Width() const override { return width_; }
  double Height() const override { return height_; }
  void SetWidth(double points) override;
  void SetHeight(double points) override;
  // Only on the active sheet of the active workbook.
  void Select() override;

  CalcWorksheet& sheet() const { return *sheet_; }
  CalcChart& chart() { return chart_; }
  const Reference<css::drawing::XShape>& shape() const { return shape_; }

 private:
  void place();
  CalcWorksheet* sheet_;
  std::string name_;
  Reference<css::drawing::XShape> shape_;
  double left_, top_, width_, height_;
  CalcChart chart_;
};

class CalcChartObjects final : public ChartObjects {
 public:
  explicit CalcChartObjects(CalcWorksheet& sheet) : sheet_(&sheet) {}

  std::int32_t Count() const override { return static_cast<std::int32_t>(objects_.size()); }
  ChartObject& Item(std::int32_t index) override;
  ChartObject& Item(std::string_view name) override;
  ChartObject& Add(double left, double top, double width, double height) override;

  // Draws every chart that changed.
  void flush();
  const std::vector<std::unique_ptr<CalcChartObject>>& objects() const { return objects_; }

 private:
  CalcWorksheet* sheet_;
  std::vector<std::unique_ptr<CalcChartObject>> objects_;
};

}  // namespace orv::calc

#pragma once
// The chart objects of one in-memory worksheet and the recorded charts behind them, in the order
// of adding. Charts are named "Chart 1", "Chart 2", ... per sheet; Chart.Name reads
// "<sheet name> Chart N". Positions and sizes must be finite, sizes not negative (a host failure
// otherwise).

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/chart.h"
#include "workbook/chart_model.h"
#include "workbook/in_memory_chart.h"

namespace orv {

class InMemoryWorksheet;
class InMemoryChartObjects;

class InMemoryChartObject final : public ChartObject {
 public:
  InMemoryChartObject(InMemoryChartObjects& owner, InMemoryWorksheet& sheet, std::size_t index);
  InMemoryChartObject(const InMemoryChartObject&) = delete;
  InMemoryChartObject& operator=(const InMemoryChartObject&) = delete;

  std::string Name() const override { return model().name; }
  double Left() const override { return model().left; }
  double Top() const override { return model().top; }
  double Width() const override { return model().width; }
  double Height() const override { return model().height; }
  void SetLeft(double points) override;
  void SetTop(double points) override;
  void SetWidth(double points) override;
  void SetHeight(double points) override;
  orv::Chart& Chart() override { return chart_; }
  // Only on the active sheet of the active workbook, as the host allows.
  void Select() override;

  ChartModel& model() const;

 private:
  InMemoryChartObjects* owner_;
  InMemoryWorksheet* sheet_;
  std::size_t index_;
  InMemoryChart chart_;
};

class InMemoryChartObjects final : public ChartObjects {
 public:
  explicit InMemoryChartObjects(InMemoryWorksheet& sheet) : sheet_(&sheet) {}
  InMemoryChartObjects(const InMemoryChartObjects&) = delete;
  InMemoryChartObjects& operator=(const InMemoryChartObjects&) = delete;

  std::int32_t Count() const override { return static_cast<std::int32_t>(objects_.size()); }
  ChartObject& Item(std::int32_t index) override;
  ChartObject& Item(std::string_view name) override;
  ChartObject& Add(double left, double top, double width, double height) override;

  const std::vector<ChartModel>& models() const { return models_; }
  std::vector<ChartModel>& models() { return models_; }

 private:
  InMemoryWorksheet* sheet_;
  std::vector<ChartModel> models_;
  std::vector<std::unique_ptr<InMemoryChartObject>> objects_;  // objects_[i] records models_[i]
};

}  // namespace orv

#pragma once
// A host with one workbook "Book1.xlsx" (sheet "Data", active) attached to the component, and
// helpers to fill cells and read back the charts recorded on a sheet.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "../driver_fixture.h"
#include "frame/errors.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"

namespace orv::test {

class ChartTest : public ::testing::Test {
 protected:
  ChartTest() : book(app.AddWorkbook("Book1.xlsx", {"Data"})), data(book.Worksheets("Data")) {
    HostSession::Attach(&app);
  }
  ~ChartTest() override { HostSession::Attach(nullptr); }

  // Writes values into one row from column `left` on.
  void row(std::int32_t r, std::int32_t left, const std::vector<CellValue>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      data.storeRaw(r, left + static_cast<std::int32_t>(i), values[i]);
    }
  }

  Range cells(std::int32_t top, std::int32_t left, std::int32_t bottom, std::int32_t right) {
    return Range(data, CellBlock{top, left, bottom, right});
  }

  static SheetRef ref(std::int32_t top, std::int32_t left, std::int32_t bottom, std::int32_t right,
                      std::string sheet = "Data") {
    return SheetRef{std::move(sheet), CellBlock{top, left, bottom, right}};
  }

  const ChartModel& onlyChart(const InMemoryWorksheet& sheet) {
    EXPECT_EQ(sheet.charts().size(), 1U);
    return sheet.charts().back();
  }

  static const AxisModel* axis(const ChartModel& chart, AxisKind kind, AxisGroup group) {
    for (const AxisModel& a : chart.axes) {
      if (a.kind == kind && a.group == group) return &a;
    }
    return nullptr;
  }

  // Each case sets a plot builder up; CreatePlot fails with the case's number from `source` and
  // leaves the case's count of charts added.
  template <class Plot>
  struct PlotFailure {
    std::string name;
    std::function<void(Plot&)> setUp;
    std::int32_t number;
    std::size_t chartsLeft;
  };
  template <class Plot>
  void expectPlotFailures(const std::string& source, const std::vector<PlotFailure<Plot>>& cases) {
    for (const PlotFailure<Plot>& c : cases) {
      SCOPED_TRACE(c.name);
      const std::size_t before = data.charts().size();
      Plot plot;
      c.setUp(plot);
      const ComponentError e = errorOf([&] { plot.CreatePlot(); });
      EXPECT_EQ(e.number(), c.number);
      EXPECT_EQ(e.source(), source);
      EXPECT_EQ(data.charts().size(), before + c.chartsLeft);
    }
  }

  InMemoryApplication app;
  InMemoryWorkbook& book;
  InMemoryWorksheet& data;
};

using Cached = std::vector<std::optional<double>>;

}  // namespace orv::test

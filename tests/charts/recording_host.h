#pragma once
// A host for tests that wraps the in-memory host and records the thread of every call the
// component makes into it: the application, workbooks, worksheets (and through them every
// Range), the worksheet functions and the whole chart object model. Each wrapper passes the call
// on unchanged, so the analyses write exactly what they write on the in-memory host.
//
// The distribution functions (TInv, NormDist, ChiInv) are logged apart from the object model,
// and the host declares them callable from any thread or not, as a live spreadsheet would not.

#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <typeindex>
#include <utility>
#include <vector>

#include "frame/chart.h"
#include "frame/host.h"
#include "workbook/in_memory_application.h"

namespace orv::test {

class ThreadLog {
 public:
  enum class Kind { ObjectModel, DistributionFunction };

  void note(Kind kind = Kind::ObjectModel) {
    const std::lock_guard<std::mutex> lock(mutex_);
    threads_[static_cast<std::size_t>(kind)].insert(std::this_thread::get_id());
    ++calls_[static_cast<std::size_t>(kind)];
  }
  std::set<std::thread::id> threads(Kind kind) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return threads_[static_cast<std::size_t>(kind)];
  }
  std::size_t calls(Kind kind) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return calls_[static_cast<std::size_t>(kind)];
  }

  // The one wrapper W of `inner`, made on first use, so that a host object keeps one identity.
  template <class W, class Inner>
  W& wrap(Inner& inner) {
    typename W::Wrapped& object = inner;  // one key however the object was reached
    const std::lock_guard<std::mutex> lock(mutex_);
    std::shared_ptr<void>& slot = wrappers_[{std::type_index(typeid(W)), &object}];
    if (!slot) slot = std::make_shared<W>(*this, object);
    return *static_cast<W*>(slot.get());
  }

  Application* application = nullptr;  // the recording application, for Workbook::application

 private:
  mutable std::mutex mutex_;
  std::set<std::thread::id> threads_[2];
  std::size_t calls_[2] = {0, 0};
  std::map<std::pair<std::type_index, const void*>, std::shared_ptr<void>> wrappers_;
};

// The wrapped object and the log, for every wrapper below.
template <class Inner>
class Passing {
 public:
  using Wrapped = Inner;
  Passing(ThreadLog& log, Inner& inner) : log_(log), inner_(inner) {}
  Inner& inner() const { return inner_; }

 protected:
  ThreadLog& log_;
  Inner& inner_;
};

// A member that notes its thread and passes the call on; ORV_WRAP also wraps what comes back.
#define ORV_PASS(call) return (log_.note(), inner_.call)
#define ORV_WRAP(W, call) return (log_.note(), log_.wrap<W>(inner_.call))
#define ORV_FUNCTION(call) return (log_.note(ThreadLog::Kind::DistributionFunction), inner_.call)

struct RecFont final : ChartFont, Passing<ChartFont> {
  using Passing::Passing;
  void SetSize(double points) override { ORV_PASS(SetSize(points)); }
  void SetBold(bool bold) override { ORV_PASS(SetBold(bold)); }
};

struct RecBorder final : ChartBorder, Passing<ChartBorder> {
  using Passing::Passing;
  void SetLineStyle(host::LineStyle style) override { ORV_PASS(SetLineStyle(style)); }
  void SetWeight(host::BorderWeight weight) override { ORV_PASS(SetWeight(weight)); }
  void SetColorIndex(std::int32_t index) override { ORV_PASS(SetColorIndex(index)); }
};

struct RecInterior final : ChartInterior, Passing<ChartInterior> {
  using Passing::Passing;
  void SetColorIndex(std::int32_t index) override { ORV_PASS(SetColorIndex(index)); }
};

struct RecFill final : ChartFill, Passing<ChartFill> {
  using Passing::Passing;
  void SetVisible(host::TriState visible) override { ORV_PASS(SetVisible(visible)); }
};

struct RecTitle final : ChartTitle, Passing<ChartTitle> {
  using Passing::Passing;
  void SetText(const std::string& text) override { ORV_PASS(SetText(text)); }
  ChartFont& Font() override { ORV_WRAP(RecFont, Font()); }
};

struct RecTickLabels final : TickLabels, Passing<TickLabels> {
  using Passing::Passing;
  ChartFont& Font() override { ORV_WRAP(RecFont, Font()); }
  std::string NumberFormat() const override { ORV_PASS(NumberFormat()); }
  void SetNumberFormat(const std::string& format) override { ORV_PASS(SetNumberFormat(format)); }
};

struct RecLegend final : Legend, Passing<Legend> {
  using Passing::Passing;
  void SetPosition(host::LegendPosition position) override { ORV_PASS(SetPosition(position)); }
  ChartFont& Font() override { ORV_WRAP(RecFont, Font()); }
};

struct RecAxis final : Axis, Passing<Axis> {
  using Passing::Passing;
  void Delete() override { ORV_PASS(Delete()); }
  void SetHasTitle(bool on) override { ORV_PASS(SetHasTitle(on)); }
  ChartTitle& AxisTitle() override { ORV_WRAP(RecTitle, AxisTitle()); }
  orv::TickLabels& TickLabels() override { ORV_WRAP(RecTickLabels, TickLabels()); }
  void SetHasMajorGridlines(bool on) override { ORV_PASS(SetHasMajorGridlines(on)); }
  void SetHasMinorGridlines(bool on) override { ORV_PASS(SetHasMinorGridlines(on)); }
  ChartBorder& Border() override { ORV_WRAP(RecBorder, Border()); }
  void SetMajorTickMark(host::TickMark mark) override { ORV_PASS(SetMajorTickMark(mark)); }
  void SetTickLabelPosition(host::TickLabelPosition position) override { ORV_PASS(SetTickLabelPosition(position)); }
  void SetMinimumScale(double value) override { ORV_PASS(SetMinimumScale(value)); }
  void SetMaximumScale(double value) override { ORV_PASS(SetMaximumScale(value)); }
  void SetMajorUnit(double value) override { ORV_PASS(SetMajorUnit(value)); }
  double MaximumScale() const override { ORV_PASS(MaximumScale()); }
};

struct RecErrorBars final : ErrorBars, Passing<ErrorBars> {
  using Passing::Passing;
  void Delete() override { ORV_PASS(Delete()); }
  void SetEndStyle(host::EndStyle style) override { ORV_PASS(SetEndStyle(style)); }
};

struct RecSeries final : Series, Passing<Series> {
  using Passing::Passing;
  void Delete() override { ORV_PASS(Delete()); }
  host::AxisGroup AxisGroup() const override { ORV_PASS(AxisGroup()); }
  void SetAxisGroup(host::AxisGroup group) override { ORV_PASS(SetAxisGroup(group)); }
  void SetHasErrorBars(bool on) override { ORV_PASS(SetHasErrorBars(on)); }
  orv::ErrorBars& ErrorBars() override { ORV_WRAP(RecErrorBars, ErrorBars()); }
  void ErrorBar(host::ErrorBarDirection direction, host::ErrorBarInclude include, host::ErrorBarType type,
                const ErrorAmount& amount, const ErrorAmount& minusValues) override {
    ORV_PASS(ErrorBar(direction, include, type, amount, minusValues));
  }
  ChartBorder& Border() override { ORV_WRAP(RecBorder, Border()); }
  void SetName(const std::string& name) override { ORV_PASS(SetName(name)); }
  void SetChartType(host::ChartType type) override { ORV_PASS(SetChartType(type)); }
  void SetValues(const SeriesSource& values) override { ORV_PASS(SetValues(values)); }
  void SetXValues(const SeriesSource& values) override { ORV_PASS(SetXValues(values)); }
  void SetSmooth(bool on) override { ORV_PASS(SetSmooth(on)); }
  void SetMarkerStyle(host::MarkerStyle style) override { ORV_PASS(SetMarkerStyle(style)); }
  void SetMarkerSize(std::int32_t points) override { ORV_PASS(SetMarkerSize(points)); }
};

struct RecSeriesCollection final : SeriesCollection, Passing<SeriesCollection> {
  using Passing::Passing;
  std::int32_t Count() const override { ORV_PASS(Count()); }
  Series& Item(std::int32_t index) override { ORV_WRAP(RecSeries, Item(index)); }
  Series& Add(const Range& source, host::RowCol rowcol, bool seriesLabels, bool categoryLabels, bool replace) override {
    ORV_WRAP(RecSeries, Add(source, rowcol, seriesLabels, categoryLabels, replace));
  }
  Series& NewSeries() override { ORV_WRAP(RecSeries, NewSeries()); }
};

struct RecUpDownBars final : UpDownBars, Passing<UpDownBars> {
  using Passing::Passing;
  ChartBorder& Border() override { ORV_WRAP(RecBorder, Border()); }
  ChartInterior& Interior() override { ORV_WRAP(RecInterior, Interior()); }
};

struct RecChartGroup final : ChartGroup, Passing<ChartGroup> {
  using Passing::Passing;
  void SetHasUpDownBars(bool on) override { ORV_PASS(SetHasUpDownBars(on)); }
  UpDownBars& UpBars() override { ORV_WRAP(RecUpDownBars, UpBars()); }
  void SetGapWidth(std::int32_t percent) override { ORV_PASS(SetGapWidth(percent)); }
};

struct RecChartArea final : ChartArea, Passing<ChartArea> {
  using Passing::Passing;
  void SetAutoScaleFont(bool on) override { ORV_PASS(SetAutoScaleFont(on)); }
  ChartInterior& Interior() override { ORV_WRAP(RecInterior, Interior()); }
  double Width() const override { ORV_PASS(Width()); }
};

struct RecPlotArea final : PlotArea, Passing<PlotArea> {
  using Passing::Passing;
  ChartFill& Fill() override { ORV_WRAP(RecFill, Fill()); }
  ChartBorder& Border() override { ORV_WRAP(RecBorder, Border()); }
  double Left() const override { ORV_PASS(Left()); }
  double Top() const override { ORV_PASS(Top()); }
  double Width() const override { ORV_PASS(Width()); }
  double Height() const override { ORV_PASS(Height()); }
  void SetLeft(double points) override { ORV_PASS(SetLeft(points)); }
  void SetTop(double points) override { ORV_PASS(SetTop(points)); }
  void SetWidth(double points) override { ORV_PASS(SetWidth(points)); }
  void SetHeight(double points) override { ORV_PASS(SetHeight(points)); }
};

struct RecChart final : Chart, Passing<Chart> {
  using Passing::Passing;
  std::string Name() const override { ORV_PASS(Name()); }
  orv::SeriesCollection& SeriesCollection() override { ORV_WRAP(RecSeriesCollection, SeriesCollection()); }
  void SetChartType(host::ChartType type) override { ORV_PASS(SetChartType(type)); }
  ChartGroup& ChartGroups(std::int32_t index) override { ORV_WRAP(RecChartGroup, ChartGroups(index)); }
  Axis& Axes(host::AxisType type, host::AxisGroup group) override { ORV_WRAP(RecAxis, Axes(type, group)); }
  void SetHasTitle(bool on) override { ORV_PASS(SetHasTitle(on)); }
  orv::ChartTitle& ChartTitle() override { ORV_WRAP(RecTitle, ChartTitle()); }
  void SetHasLegend(bool on) override { ORV_PASS(SetHasLegend(on)); }
  orv::Legend& Legend() override { ORV_WRAP(RecLegend, Legend()); }
  orv::ChartArea& ChartArea() override { ORV_WRAP(RecChartArea, ChartArea()); }
  orv::PlotArea& PlotArea() override { ORV_WRAP(RecPlotArea, PlotArea()); }
};

struct RecShape final : Shape, Passing<Shape> {
  using Passing::Passing;
  std::string Name() const override { ORV_PASS(Name()); }
  double Left() const override { ORV_PASS(Left()); }
  double Top() const override { ORV_PASS(Top()); }
  void SetLeft(double points) override { ORV_PASS(SetLeft(points)); }
  void SetTop(double points) override { ORV_PASS(SetTop(points)); }
};

struct RecChartObject final : ChartObject, Passing<ChartObject> {
  using Passing::Passing;
  std::string Name() const override { ORV_PASS(Name()); }
  double Left() const override { ORV_PASS(Left()); }
  double Top() const override { ORV_PASS(Top()); }
  void SetLeft(double points) override { ORV_PASS(SetLeft(points)); }
  void SetTop(double points) override { ORV_PASS(SetTop(points)); }
  orv::Chart& Chart() override { ORV_WRAP(RecChart, Chart()); }
  double Width() const override { ORV_PASS(Width()); }
  double Height() const override { ORV_PASS(Height()); }
  void SetWidth(double points) override { ORV_PASS(SetWidth(points)); }
  void SetHeight(double points) override { ORV_PASS(SetHeight(points)); }
  void Select() override { ORV_PASS(Select()); }
};

struct RecChartObjects final : ChartObjects, Passing<ChartObjects> {
  using Passing::Passing;
  std::int32_t Count() const override { ORV_PASS(Count()); }
  ChartObject& Item(std::int32_t index) override { ORV_WRAP(RecChartObject, Item(index)); }
  ChartObject& Item(std::string_view name) override { ORV_WRAP(RecChartObject, Item(name)); }
  ChartObject& Add(double left, double top, double width, double height) override {
    ORV_WRAP(RecChartObject, Add(left, top, width, height));
  }
};

struct RecWorkbook;

struct RecWorksheet final : Worksheet, Passing<Worksheet> {
  using Passing::Passing;
  std::string Name() const override { ORV_PASS(Name()); }
  Workbook& Parent() override;
  CellValue cellValue(std::int32_t row, std::int32_t column) const override { ORV_PASS(cellValue(row, column)); }
  void assignValue(std::int32_t row, std::int32_t column, const CellValue& value) override {
    ORV_PASS(assignValue(row, column, value));
  }
  void pasteValue(std::int32_t row, std::int32_t column, const CellValue& value) override {
    ORV_PASS(pasteValue(row, column, value));
  }
  void readBlock(const CellBlock& block, ValueArray2D& out) const override { ORV_PASS(readBlock(block, out)); }
  CellFormat cellFormat(std::int32_t row, std::int32_t column) const override { ORV_PASS(cellFormat(row, column)); }
  void setCellFormat(std::int32_t row, std::int32_t column, const CellFormat& format) override {
    ORV_PASS(setCellFormat(row, column, format));
  }
  void applyFormat(const CellBlock& block, const FormatPatch& patch) override { ORV_PASS(applyFormat(block, patch)); }
  void clear(const CellBlock& block) override { ORV_PASS(clear(block)); }
  std::optional<CellBlock> usedBlock() const override { ORV_PASS(usedBlock()); }
  double rowTop(std::int32_t row) const override { ORV_PASS(rowTop(row)); }
  double columnLeft(std::int32_t column) const override { ORV_PASS(columnLeft(column)); }
  double rowHeight(std::int32_t row) const override { ORV_PASS(rowHeight(row)); }
  double columnWidth(std::int32_t column) const override { ORV_PASS(columnWidth(column)); }
  bool columnWidthSet(std::int32_t column) const override { ORV_PASS(columnWidthSet(column)); }
  void setColumnWidth(std::int32_t column, double points) override { ORV_PASS(setColumnWidth(column, points)); }
  void Activate() override { ORV_PASS(Activate()); }
  void MoveAfter(Worksheet& sheet) override { ORV_PASS(MoveAfter(unwrapped(sheet))); }
  void select(const std::vector<CellBlock>& areas) override { ORV_PASS(select(areas)); }
  ChartObjects& chartObjects() override { ORV_WRAP(RecChartObjects, chartObjects()); }
  Shape& shapes(std::string_view name) override { ORV_WRAP(RecShape, shapes(name)); }

 private:
  static Worksheet& unwrapped(Worksheet& sheet) {
    auto* wrapper = dynamic_cast<RecWorksheet*>(&sheet);
    return wrapper != nullptr ? wrapper->inner() : sheet;
  }
};

struct RecWorkbook final : Workbook, Passing<Workbook> {
  using Passing::Passing;
  std::string Name() const override { ORV_PASS(Name()); }
  Application& application() override { return (log_.note(), *log_.application); }
  std::int32_t WorksheetsCount() const override { ORV_PASS(WorksheetsCount()); }
  Worksheet& Worksheets(std::int32_t index) override { ORV_WRAP(RecWorksheet, Worksheets(index)); }
  Worksheet& Worksheets(std::string_view name) override { ORV_WRAP(RecWorksheet, Worksheets(name)); }
  void Activate() override { ORV_PASS(Activate()); }
};

inline Workbook& RecWorksheet::Parent() { ORV_WRAP(RecWorkbook, Parent()); }

struct RecFunctions final : WorksheetFunction, Passing<WorksheetFunction> {
  RecFunctions(ThreadLog& log, WorksheetFunction& inner, bool anyThread) : Passing(log, inner), anyThread_(anyThread) {}
  double TInv(double p, double df) override { ORV_FUNCTION(TInv(p, df)); }
  double NormDist(double x, double mean, double sd, bool cumulative) override {
    ORV_FUNCTION(NormDist(x, mean, sd, cumulative));
  }
  double ChiInv(double p, double df) override { ORV_FUNCTION(ChiInv(p, df)); }
  bool callableFromAnyThread() const override { return anyThread_; }
  double Min(const Range& range) override { ORV_PASS(Min(range)); }
  double Max(const Range& range) override { ORV_PASS(Max(range)); }

 private:
  bool anyThread_;
};

struct RecApplication final : Application, Passing<InMemoryApplication> {
  // `anyThread`: whether the distribution functions declare themselves callable from any thread.
  RecApplication(ThreadLog& log, InMemoryApplication& inner, bool anyThread)
      : Passing(log, inner), functions_(log, inner.worksheetFunction(), anyThread) {
    log.application = this;
  }
  Workbook& Workbooks(std::string_view name) override { ORV_WRAP(RecWorkbook, Workbooks(name)); }
  Workbook& ActiveWorkbook() override { ORV_WRAP(RecWorkbook, ActiveWorkbook()); }
  Worksheet& ActiveSheet() override { ORV_WRAP(RecWorksheet, ActiveSheet()); }
  Worksheet& AddWorksheet() override { ORV_WRAP(RecWorksheet, AddWorksheet()); }
  WorksheetFunction& worksheetFunction() override { return (log_.note(), functions_); }
  bool ScreenUpdating() const override { ORV_PASS(ScreenUpdating()); }
  void SetScreenUpdating(bool on) override { ORV_PASS(SetScreenUpdating(on)); }

 private:
  RecFunctions functions_;
};

#undef ORV_PASS
#undef ORV_WRAP
#undef ORV_FUNCTION

}  // namespace orv::test

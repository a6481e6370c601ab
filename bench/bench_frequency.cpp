// The frequency engine and driver on the largest column they accept: 32767 observations, every
// one a distinct value. A scan of every datum against every category would take minutes here;
// the engine must stay in milliseconds.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "frame/value_array.h"
#include "frequency/clsFreq.h"
#include "frequency/clsFreqBO.h"
#include "support/host_session.h"
#include "workbook/in_memory_application.h"

namespace orv {
namespace {

constexpr std::int32_t kRows = 32767;

// 0.5, 1.5, ... 32766.5 in a shuffled order from a fixed seed.
std::vector<double> distinctValues() {
  std::vector<double> values;
  for (std::int32_t i = 0; i < kRows; ++i) values.push_back(i + 0.5);
  std::shuffle(values.begin(), values.end(), std::mt19937_64(20240611));
  return values;
}

ValueArray1D numbers() {
  std::vector<CellValue> cells;
  for (double x : distinctValues()) cells.emplace_back(x);
  return ValueArray1D(std::move(cells));
}

ValueArray1D items() {
  std::vector<CellValue> cells;
  for (double x : distinctValues()) cells.emplace_back("item " + std::to_string(x));
  return ValueArray1D(std::move(cells));
}

void analyse(benchmark::State& state, const ValueArray1D& data, std::int32_t type,
             const std::optional<ValueArray1D>& bins) {
  for (auto _ : state) {
    clsFreqBO bo;
    bo.DataType(type);
    bo.Data(data);
    if (bins) bo.Bin(*bins);
    bo.Analyse();
    benchmark::DoNotOptimize(bo.CumPercents());
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}

void BM_FreqDistinctNumbers(benchmark::State& state) { analyse(state, numbers(), 0, std::nullopt); }
void BM_FreqDistinctItems(benchmark::State& state) { analyse(state, items(), 1, std::nullopt); }

void BM_FreqProposedBins(benchmark::State& state) {
  const ValueArray1D data = numbers();
  clsFreqBO proposer;
  analyse(state, data, 0, proposer.ProposeBins(data));
}

// As many bins as observations: the bin search, not the bin count, decides the time.
void BM_FreqOneBinPerValue(benchmark::State& state) {
  std::vector<CellValue> bins;
  for (std::int32_t i = 0; i < kRows; ++i) bins.emplace_back(static_cast<double>(i));
  analyse(state, numbers(), 0, ValueArray1D(std::move(bins)));
}

// The driver end to end: read the column, count it, write 32767 rows and paste them.
void BM_FreqDriverDistinctNumbers(benchmark::State& state) {
  InMemoryApplication host;
  HostSession::Attach(&host);
  InMemoryWorkbook& book = host.AddWorkbook("Book1.xlsx", {"Data"});
  InMemoryWorksheet& sheet = book.Worksheets("Data");
  std::int32_t row = 0;
  for (double x : distinctValues()) sheet.storeRaw(++row, 1, x);
  for (auto _ : state) {
    clsFreq f;
    f.InputRange("Data!A1:A32767");
    f.OutputRange("Data!C1");
    f.Results(true);
  }
  state.SetItemsProcessed(state.iterations() * kRows);
  HostSession::Attach(nullptr);
}

BENCHMARK(BM_FreqDistinctNumbers)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FreqDistinctItems)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FreqProposedBins)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FreqOneBinPerValue)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FreqDriverDistinctNumbers)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orv

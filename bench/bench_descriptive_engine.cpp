// The descriptive engine on the largest column it accepts (32767 observations): one Data call
// followed by every statistic the driver can ask for.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>

#include "descriptive/clsDSBO.h"
#include "frame/value_array.h"
#include "workbook/in_memory_application.h"

namespace orv {
namespace {

constexpr std::int32_t kRows = 32767;

// kRows values from a fixed seed; `distinct` > 0 draws from that many whole numbers only.
ValueArray2D randomColumn(int distinct) {
  std::mt19937_64 gen(20240229);
  std::normal_distribution<double> normal(50.0, 12.0);
  std::uniform_int_distribution<int> pick(1, distinct > 0 ? distinct : 1);
  ValueArray2D column(kRows, 1);
  for (std::int32_t row = 1; row <= kRows; ++row) {
    column(row, 1) = distinct > 0 ? static_cast<double>(pick(gen)) : normal(gen);
  }
  return column;
}

void askEverything(clsDSBO& e) {
  benchmark::DoNotOptimize(e.Count());
  benchmark::DoNotOptimize(e.Mean());
  benchmark::DoNotOptimize(e.Median());
  benchmark::DoNotOptimize(e.Mode());
  benchmark::DoNotOptimize(e.SE());
  benchmark::DoNotOptimize(e.SD());
  benchmark::DoNotOptimize(e.Variance());
  benchmark::DoNotOptimize(e.CV());
  benchmark::DoNotOptimize(e.LCL(95));
  benchmark::DoNotOptimize(e.UCL(95));
  benchmark::DoNotOptimize(e.Sum());
  benchmark::DoNotOptimize(e.Skewness());
  benchmark::DoNotOptimize(e.SkewnessP());
  benchmark::DoNotOptimize(e.Kurtosis());
  benchmark::DoNotOptimize(e.KurtosisP());
  benchmark::DoNotOptimize(e.Min());
  benchmark::DoNotOptimize(e.Max());
  benchmark::DoNotOptimize(e.Largest(3));
  benchmark::DoNotOptimize(e.Smallest(3));
  benchmark::DoNotOptimize(e.rng());
  benchmark::DoNotOptimize(e.LP(25));
  benchmark::DoNotOptimize(e.UP(25));
}

void runEngine(benchmark::State& state, int distinct) {
  InMemoryApplication host;
  const ValueArray2D column = randomColumn(distinct);
  clsDSBO engine;
  engine.Functions(&host.worksheetFunction());
  for (auto _ : state) {
    engine.Data(column);
    askEverything(engine);
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}

void BM_EngineAllStatistics(benchmark::State& state) { runEngine(state, 0); }
void BM_EngineTenDistinctValues(benchmark::State& state) { runEngine(state, 10); }

// The mode alone on data that are already in the engine: the frequency table and its sort.
void BM_ModeTenDistinctValues(benchmark::State& state) {
  clsDSBO engine;
  engine.Data(randomColumn(10));
  for (auto _ : state) benchmark::DoNotOptimize(engine.Mode());
  state.SetItemsProcessed(state.iterations() * kRows);
}

BENCHMARK(BM_EngineAllStatistics)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EngineTenDistinctValues)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ModeTenDistinctValues)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace orv

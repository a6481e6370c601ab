#pragma once
// Shared by the clsDSBO tests: the in-memory host's distribution functions (the engine takes
// TInv and NormDist from them; no host is attached), column builders and error capture.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "descriptive/clsDSBO.h"
#include "frame/errors.h"
#include "frame/value_array.h"
#include "workbook/host_worksheet_functions.h"

namespace orv::testing {

inline const CellValue kBlank{};

inline ValueArray2D column(const std::vector<CellValue>& values) {
  ValueArray2D out(static_cast<std::int32_t>(values.size()), 1);
  std::int32_t row = 0;
  for (const CellValue& v : values) out(++row, 1) = v;
  return out;
}
inline ValueArray2D columnOf(const std::vector<double>& values) {
  return column(std::vector<CellValue>(values.begin(), values.end()));
}
inline ValueArray2D repeated(std::int32_t n, double x) {
  return columnOf(std::vector<double>(static_cast<std::size_t>(n), x));
}
inline std::vector<double> shifted(std::vector<double> data, double by) {
  for (double& x : data) x += by;
  return data;
}
inline bool isDash(const CellValue& v) { return v.isText() && v.text() == "-"; }
// The number a statistic gave; NaN, which no comparison accepts, for "-" or any other text.
inline double numberOf(const CellValue& v) { return v.isNumber() ? v.number() : std::nan(""); }
// The textbook value of a note of this rule; NaN when there is no note.
inline double noted(const std::optional<KeptRuleEffect>& note, KeptRule rule) {
  EXPECT_TRUE(note.has_value());
  if (!note) return std::nan("");
  EXPECT_EQ(note->rule, rule);
  return note->textbook;
}
// The relative distance of a from b.
inline double relative(double a, double b) { return std::fabs(a - b) / std::fabs(b); }
inline std::string source(const char* procedure) {
  return std::string("Line 0 in ORVDescriptives.clsDSBO.") + procedure;
}

// Runs f and expects a ComponentError with this number and source.
template <class F>
void expectError(F&& f, std::int32_t number, const std::string& src) {
  try {
    f();
    ADD_FAILURE() << "no error raised, expected " << number << " from " << src;
  } catch (const ComponentError& e) {
    EXPECT_EQ(e.number(), number);
    EXPECT_EQ(e.source(), src);
  }
}

// Distribution functions that give fixed answers and remember every question, to see what an
// engine asks of the service handed to it.
struct FixedFunctions final : DistributionFunctions {
  struct Call {
    const char* function;
    double a, b;
    friend bool operator==(const Call&, const Call&) = default;
  };
  double TInv(double p, double df) override { return ask("TInv", p, df, 2.0); }
  double NormDist(double x, double mean, double sd, bool) override {
    calls.push_back({"NormDist", mean, sd});
    return x <= 0 ? 0.25 : 0.75;
  }
  double ChiInv(double p, double df) override { return ask("ChiInv", p, df, 3.841458820694124); }
  double ask(const char* function, double a, double b, double answer) {
    calls.push_back({function, a, b});
    return answer;
  }
  std::vector<Call> calls;
};

class EngineTest : public ::testing::Test {
 protected:
  clsDSBO engineOf(const ValueArray2D& data) {
    clsDSBO e;
    e.Functions(&functions_);
    e.Data(data);
    return e;
  }
  HostWorksheetFunctions functions_;
};

}  // namespace orv::testing

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include "frame/range.h"
#include "host_fixture.h"

namespace orv::test {
namespace {

using WorksheetFunctionTest = HostTest;

TEST_F(WorksheetFunctionTest, DistributionsAgainstPublishedValues) {
  WorksheetFunction& wf = app.worksheetFunction();
  const struct {
    std::string call;
    std::function<double()> f;
    double expected, tolerance;
  } cases[] = {
      {"TInv(0.05, 10)", [&] { return wf.TInv(0.05, 10); }, 2.228138852, 1e-9},
      {"TInv(0.05, 10.9)", [&] { return wf.TInv(0.05, 10.9); }, 2.228138852, 1e-9},
      {"TInv(0.05, 1)", [&] { return wf.TInv(0.05, 1); }, 12.70620474, 1e-7},
      {"TInv(1, 5)", [&] { return wf.TInv(1, 5); }, 0.0, 1e-12},
      {"TInv(0.05, 1e12)", [&] { return wf.TInv(0.05, 1e12); }, 1.959963985, 1e-8},
      {"ChiInv(0.05, 1)", [&] { return wf.ChiInv(0.05, 1); }, 3.841458821, 1e-9},
      {"ChiInv(0.05, 1.99)", [&] { return wf.ChiInv(0.05, 1.99); }, 3.841458821, 1e-9},
      {"ChiInv(0.05, 2)", [&] { return wf.ChiInv(0.05, 2); }, 5.991464547, 1e-9},
      {"NormDist(-1.96, 0, 1, True)", [&] { return wf.NormDist(-1.96, 0, 1, true); }, 0.0249979, 1e-7},
      {"NormDist(12, 10, 2, True)", [&] { return wf.NormDist(12, 10, 2, true); }, 0.841344746, 1e-9},
      {"NormDist(0, 0, 1, False)", [&] { return wf.NormDist(0, 0, 1, false); }, 0.398942280, 1e-9},
      {"NormDist(-40, 0, 1, True)", [&] { return wf.NormDist(-40, 0, 1, true); }, 0.0, 1e-300},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.call);
    EXPECT_NEAR(c.f(), c.expected, c.tolerance);
  }
}

TEST_F(WorksheetFunctionTest, ArgumentFaultsAreHostFailuresNamingTheFunction) {
  WorksheetFunction& wf = app.worksheetFunction();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    std::string function;
    std::function<void()> f;
  } cases[] = {{"TInv", [&] { wf.TInv(0, 10); }},
               {"TInv", [&] { wf.TInv(1.0001, 10); }},
               {"TInv", [&] { wf.TInv(0.05, 0.99); }},
               {"TInv", [&] { wf.TInv(std::numeric_limits<double>::denorm_min(), 1); }},  // would be infinite
               {"ChiInv", [&] { wf.ChiInv(0, 1); }},
               {"ChiInv", [&] { wf.ChiInv(0.5, 0.5); }},
               {"ChiInv", [&] { wf.ChiInv(0.5, 2e10); }},
               {"NormDist", [&] { wf.NormDist(0, 0, 0, true); }},
               {"NormDist", [&] { wf.NormDist(nan, 0, 1, true); }}};
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    const Raised r = raised(c.f);
    EXPECT_EQ(r.number, 1004);
    EXPECT_EQ(r.description, "Unable to get the " + c.function + " property of the WorksheetFunction class");
  }
}

TEST_F(WorksheetFunctionTest, MinAndMaxTakeNumbersOnlyOverEveryArea) {
  WorksheetFunction& wf = app.worksheetFunction();
  // Readers' storage: texts stay texts even where they read as numbers.
  data.storeRaw(1, 1, "-99");
  data.storeRaw(2, 1, true);
  data.storeRaw(3, 1, 5.0);
  data.storeRaw(3, 3, -8.0);
  data.storeRaw(9, 9, 100.0);
  const Range areas = app.ResolveRange("A1:A3,C3");
  EXPECT_EQ(wf.Min(areas), -8.0);
  EXPECT_EQ(wf.Max(areas), 5.0);
  EXPECT_EQ(wf.Max(app.ResolveRange("A1:A2")), 0.0);  // no number
  EXPECT_EQ(wf.Max(app.ResolveRange("C:C")), -8.0);
  data.storeRaw(2, 1, ErrorValue::Div0);
  EXPECT_EQ(raised([&] { wf.Min(areas); }).description,
            "Unable to get the Min property of the WorksheetFunction class");
}

}  // namespace
}  // namespace orv::test

// The host's automatic value-axis scale, which the box and error plots test against 10.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "workbook/chart_automatic.h"

namespace orv::test {
namespace {

TEST(AutomaticValueScale, FollowsTheSpreadsheetRule) {
  struct Case {
    std::string name;
    std::vector<double> values;
    double minimum, maximum, majorUnit;
  };
  const std::vector<Case> cases = {
      {"no data", {}, 0, 1, 0.2},
      // The boundary the builders care about: 7.6 stays below 10, 9.5 reaches 10, 11 passes it.
      {"up to 7.6", {0, 3, 7.6}, 0, 8, 1},
      {"up to 9.5", {1, 9.5}, 0, 10, 1},
      {"up to 11", {2, 11}, 0, 12, 2},
      // A 20th of the range pads the maximum; data far from zero keep their own minimum.
      {"0 to 9.1", {0, 9.1}, 0, 10, 1},
      {"8.2 to 9.1", {8.2, 9.1}, 8, 9.2, 0.2},
      {"a maximum on a step is passed", {0, 10}, 0, 12, 2},
      {"negative, near zero", {-5, -1}, -6, 0, 1},
      {"small", {0.01, 0.034}, 0, 0.04, 0.005},
      {"the largest doubles", {-1.5e308, 1.5e308}, -1.5e308, 1.5e308, 3e307},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const AxisScale scale = automaticValueScale(c.values);
    EXPECT_DOUBLE_EQ(scale.minimum, c.minimum);
    EXPECT_DOUBLE_EQ(scale.maximum, c.maximum);
    EXPECT_DOUBLE_EQ(scale.majorUnit, c.majorUnit);
  }
}

}  // namespace
}  // namespace orv::test

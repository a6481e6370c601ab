#include "support/ordinal.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(Ordinal, SuffixFollowsTheLastTwoDigitsOfANumberAndLeavesOtherTextsAlone) {
  const struct {
    const char* text;
    const char* expected;
  } rows[] = {{"0", "0th"},
              {"1", "1st"},
              {"2", "2nd"},
              {"3", "3rd"},
              {"11", "11th"},
              {"12", "12th"},
              {"13", "13th"},
              {"21", "21st"},
              {"112", "112th"},
              {"-1", "-1st"},
              {" 3 ", "3rd"},
              {"012", "012th"},
              {"123456789012345678901", "123456789012345678901st"},
              {"", ""},
              {"-", "-"},
              {"2.5", "2.5"},
              {"12a", "12a"}};
  for (const auto& row : rows) EXPECT_EQ(Ordinal(row.text), row.expected) << row.text;
}

}  // namespace
}  // namespace orv

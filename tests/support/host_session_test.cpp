#include "support/host_session.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "test_util.h"
#include "workbook/in_memory_application.h"

namespace orv {
namespace {

TEST(Ordinal, SuffixFollowsTheLastTwoDigits) {
  const struct { const char* text; const char* expected; } rows[] = {
      {"0", "0th"}, {"1", "1st"}, {"2", "2nd"}, {"3", "3rd"}, {"4", "4th"}, {"11", "11th"}, {"12", "12th"},
      {"13", "13th"}, {"21", "21st"}, {"22", "22nd"}, {"23", "23rd"}, {"101", "101st"}, {"111", "111th"},
      {"112", "112th"}, {"2011", "2011th"}, {"-1", "-1st"}, {"-12", "-12th"}, {" 3 ", "3rd"}, {"012", "012th"},
      {"123456789012345678901", "123456789012345678901st"}};
  for (const auto& row : rows) EXPECT_EQ(HostSession::Ordinal(row.text), row.expected) << row.text;
  for (const char* text : {"", "-", "abc", "2.5", "1e3", "12a", "1 2", "+"}) EXPECT_EQ(HostSession::Ordinal(text), text);
}

TEST(IsUnassigned, OnlyNothingIsUnassigned) {
  EXPECT_TRUE(HostSession::IsUnassigned(CellValue()));
  for (const CellValue& v : {CellValue(0), CellValue(""), CellValue(false), CellValue(ErrorValue::NA)}) {
    EXPECT_FALSE(HostSession::IsUnassigned(v)) << describe(v);
  }
  EXPECT_TRUE(HostSession::IsUnassigned(std::optional<std::vector<double>>()));
  EXPECT_FALSE(HostSession::IsUnassigned(std::optional<std::vector<double>>(std::vector<double>{})));
}

TEST(HostSessionApplication, HandsOutTheAttachedHostUntilDetached) {
  InMemoryApplication host;
  HostSession::Attach(&host);
  EXPECT_EQ(&HostSession::Application(), &host);
  HostSession::Attach(nullptr);
  EXPECT_EQ(test::ExpectError(err::kObjectRequired, "Line 0 in ORVDescriptives.HostSession.Application",
                              [] { HostSession::Application(); }),
            "Object required");
}

}  // namespace
}  // namespace orv

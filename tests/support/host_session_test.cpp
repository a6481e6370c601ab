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
  struct Row {
    const char* text;
    const char* expected;
  };
  const std::vector<Row> rows = {
      {"0", "0th"},       {"1", "1st"},       {"2", "2nd"},       {"3", "3rd"},
      {"4", "4th"},       {"10", "10th"},     {"11", "11th"},     {"12", "12th"},
      {"13", "13th"},     {"14", "14th"},     {"21", "21st"},     {"22", "22nd"},
      {"23", "23rd"},     {"25", "25th"},     {"50", "50th"},     {"75", "75th"},
      {"101", "101st"},   {"102", "102nd"},   {"111", "111th"},   {"112", "112th"},
      {"113", "113th"},   {"1001", "1001st"}, {"2011", "2011th"}, {"-1", "-1st"},
      {"-12", "-12th"},   {" 3 ", "3rd"},     {"012", "012th"},
      {"123456789012345678901", "123456789012345678901st"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(HostSession::Ordinal(row.text), row.expected);
  }
}

TEST(Ordinal, TextWithoutAWholeNumberIsReturnedUnchanged) {
  for (const char* text : {"", " ", "-", "abc", "2.5", "1e3", "12a", "1 2", "+", "$5"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(HostSession::Ordinal(text), text);
  }
}

TEST(IsUnassigned, OnlyNothingIsUnassigned) {
  EXPECT_TRUE(HostSession::IsUnassigned(CellValue()));
  for (const CellValue& v : {CellValue(0), CellValue(""), CellValue(false), CellValue(ErrorValue::NA)}) {
    SCOPED_TRACE(describe(v));
    EXPECT_FALSE(HostSession::IsUnassigned(v));
  }
  EXPECT_TRUE(HostSession::IsUnassigned(std::optional<std::vector<double>>()));
  EXPECT_FALSE(HostSession::IsUnassigned(std::optional<std::vector<double>>(std::vector<double>{})));
}

TEST(HostSessionApplication, WithoutAHostIsObjectRequired) {
  HostSession::Attach(nullptr);
  const std::string description =
      test::ExpectError(err::kObjectRequired, "Line 0 in ORVDescriptives.HostSession.Application",
                        [] { HostSession::Application(); });
  EXPECT_EQ(description, "Object required");
}

TEST(HostSessionApplication, HandsOutTheAttachedHostUntilDetached) {
  InMemoryApplication host;
  HostSession::Attach(&host);
  EXPECT_EQ(&HostSession::Application(), &host);
  HostSession::Attach(nullptr);
  EXPECT_THROW(HostSession::Application(), ComponentError);
}

}  // namespace
}  // namespace orv

#include "frame/reference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "frame/errors.h"

namespace orv {
namespace {

TEST(ParseReference, AcceptedFormsAndTheirAddresses) {
  struct Row {
    const char* text;
    const char* sheet;  // nullptr: no sheet named
    const char* address;
  };
  const std::vector<Row> rows = {
      {"B7", nullptr, "$B$7"},
      {"$B$7", nullptr, "$B$7"},
      {"b7", nullptr, "$B$7"},
      {"$B7", nullptr, "$B$7"},
      {"B$7", nullptr, "$B$7"},
      {"A1:C20", nullptr, "$A$1:$C$20"},
      {"$A$1:$C$20", nullptr, "$A$1:$C$20"},
      {"C20:A1", nullptr, "$A$1:$C$20"},
      {"A20:C1", nullptr, "$A$1:$C$20"},
      {"A1:A1", nullptr, "$A$1"},
      {"XFD1048576", nullptr, "$XFD$1048576"},
      {"A007", nullptr, "$A$7"},
      {"A:C", nullptr, "$A:$C"},
      {"$C:$A", nullptr, "$A:$C"},
      {"B:B", nullptr, "$B:$B"},
      {"3:5", nullptr, "$3:$5"},
      {"$5:$3", nullptr, "$3:$5"},
      {"1:1048576", nullptr, "$1:$1048576"},
      {"A1:XFD1048576", nullptr, "$1:$1048576"},
      {"A:XFD", nullptr, "$1:$1048576"},
      {"A1:A10,C1:C10", nullptr, "$A$1:$A$10,$C$1:$C$10"},
      {"A1,A1", nullptr, "$A$1,$A$1"},
      {"Data!A1:C20", "Data", "$A$1:$C$20"},
      {"Data!A:A", "Data", "$A:$A"},
      {"'My data'!A1:C20", "My data", "$A$1:$C$20"},
      {"'It''s'!B2", "It's", "$B$2"},
      {"''''!B2", "'", "$B$2"},
      {"'a,b!c'!B2", "a,b!c", "$B$2"},
      {"Data!A1:A10,Data!C1:C10", "Data", "$A$1:$A$10,$C$1:$C$10"},
      {"Data!A1,data!B2", "Data", "$A$1,$B$2"},
      {"Data!A1,B2", "Data", "$A$1,$B$2"},
      {"A1,Data!B2", "Data", "$A$1,$B$2"},
      {"'My data'!A1,'My data'!C1", "My data", "$A$1,$C$1"},
      {"Sheet_2.old!A1", "Sheet_2.old", "$A$1"},
      {"A1!B2", "A1", "$B$2"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    const ParsedReference parsed = parseReference(row.text);
    if (row.sheet == nullptr) {
      EXPECT_FALSE(parsed.sheet.has_value());
    } else {
      ASSERT_TRUE(parsed.sheet.has_value());
      EXPECT_EQ(*parsed.sheet, row.sheet);
    }
    EXPECT_EQ(absoluteAddress(parsed.areas), row.address);
  }
}

TEST(ParseReference, WholeColumnsAndRowsSpanTheSheet) {
  const CellBlock columns = parseReference("B:D").areas.at(0);
  EXPECT_EQ(columns, (CellBlock{1, 2, kMaxRows, 4}));
  EXPECT_TRUE(columns.wholeColumns());
  EXPECT_FALSE(columns.wholeRows());
  const CellBlock rows = parseReference("4:9").areas.at(0);
  EXPECT_EQ(rows, (CellBlock{4, 1, 9, kMaxColumns}));
  EXPECT_TRUE(rows.wholeRows());
  EXPECT_EQ(rows.rows(), 6);
  EXPECT_EQ(parseReference("C5:B2").areas.at(0), (CellBlock{2, 2, 5, 3}));
}

TEST(ParseReference, RejectsWithAHostFailureQuotingTheText) {
  for (const char* text :
       {"", " ", "A", "3", "$A", "A0", "A00", "A1048577", "A99999999999999999999", "XFE1", "AAAA1",
        "A1:", ":A1", "A1:B", "A:3", "3:A", "A1:3", "A1,", ",A1", "A1,,B1", "A1 ", " A1", "A1 B1",
        "A1B", "A$", "$A$", "$$A1", "A$$1", "$1:$", "A1:B2:C3", "1A", "A-1", "A1;B1", "Data!",
        "!A1", "Data!!A1", "'My data!A1", "'My data'A1", "'My data'", "''!A1", "'a[b'!A1",
        "My data!A1", "Data!A1,Other!B1", "Data!A1,'Other'!B1", "A1!", "R1C1", "=A1", "A1\n"}) {
    SCOPED_TRACE(text);
    try {
      parseReference(text);
      ADD_FAILURE() << "accepted";
    } catch (const ComponentError& e) {
      EXPECT_EQ(e.number(), err::kHostFailure);
      EXPECT_EQ(e.description(), "\"" + std::string(text) + "\" is not a valid reference");
    }
  }
}

TEST(ColumnLetters, BijectiveBaseTwentySix) {
  struct Row {
    std::int32_t column;
    const char* letters;
  };
  const std::vector<Row> rows = {{1, "A"},     {26, "Z"},     {27, "AA"},   {52, "AZ"},
                                 {53, "BA"},   {702, "ZZ"},   {703, "AAA"}, {16384, "XFD"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.letters);
    EXPECT_EQ(columnLetters(row.column), row.letters);
    EXPECT_EQ(columnNumber(row.letters), row.column);
  }
  for (std::int32_t column = 1; column <= kMaxColumns; ++column) {
    ASSERT_EQ(columnNumber(columnLetters(column)), column);
  }
  EXPECT_EQ(columnNumber("xfd"), 16384);
  for (const char* bad : {"", "XFE", "ZZZ", "AAAA", "A1", "$A", "Ä"}) {
    SCOPED_TRACE(bad);
    EXPECT_EQ(columnNumber(bad), 0);
  }
}

TEST(QuoteSheetName, QuotesWhatCouldNotStandAlone) {
  struct Row {
    const char* name;
    const char* expected;
  };
  const std::vector<Row> rows = {
      {"Data", "Data"},         {"Sheet_2.old", "Sheet_2.old"}, {"ABCD1", "ABCD1"},
      {"My data", "'My data'"}, {"It's", "'It''s'"},            {"2019", "'2019'"},
      {"A1", "'A1'"},           {"xfd1048576", "'xfd1048576'"}, {"R1C1", "'R1C1'"},
      {"R", "'R'"},             {"c3", "'c3'"},                 {"RC", "'RC'"},
      {"a-b", "'a-b'"},         {"", "''"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(quoteSheetName(row.name), row.expected);
  }
}

TEST(ParseReference, FormattedReferencesReadBack) {
  const unsigned seed = 7001;
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  std::uniform_int_distribution<std::int32_t> row(1, kMaxRows);
  std::uniform_int_distribution<std::int32_t> column(1, kMaxColumns);
  std::uniform_int_distribution<int> areaCount(1, 3);
  const std::vector<std::string> names = {"Data", "My data", "It's", "2019", "A1", "R1C1", "x!,y"};
  for (int i = 0; i < 500; ++i) {
    std::vector<CellBlock> blocks;
    for (int a = areaCount(random); a > 0; --a) {
      const auto [r1, r2] = std::minmax({row(random), row(random)});
      const auto [c1, c2] = std::minmax({column(random), column(random)});
      blocks.push_back({r1, c1, r2, c2});
    }
    const std::string& name = names[static_cast<std::size_t>(i) % names.size()];
    const std::string text = quoteSheetName(name) + "!" + absoluteAddress(blocks);
    SCOPED_TRACE(text);
    const ParsedReference parsed = parseReference(text);
    EXPECT_EQ(parsed.sheet, name);
    EXPECT_EQ(parsed.areas, blocks);
  }
}

// Random texts from the characters that matter to the scanner: every one either parses into
// valid blocks or fails with a host failure; nothing crashes.
TEST(ParseReference, RandomTextsNeverCrash) {
  const unsigned seed = 424242;
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const std::string alphabet = "AaBXFDZz$:!,'019 8_.-\x80";
  std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
  std::uniform_int_distribution<int> length(0, 24);
  int accepted = 0;
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (int n = length(random); n > 0; --n) text.push_back(alphabet[pick(random)]);
    try {
      const ParsedReference parsed = parseReference(text);
      ++accepted;
      ASSERT_FALSE(parsed.areas.empty()) << text;
      for (const CellBlock& b : parsed.areas) {
        ASSERT_TRUE(b.top >= 1 && b.top <= b.bottom && b.bottom <= kMaxRows) << text;
        ASSERT_TRUE(b.left >= 1 && b.left <= b.right && b.right <= kMaxColumns) << text;
      }
    } catch (const ComponentError& e) {
      ASSERT_EQ(e.number(), err::kHostFailure) << text;
    }
  }
  EXPECT_GT(accepted, 0);
}

// Long texts of the shapes that make backtracking scanners slow; a linear scan handles each in
// well under a second even under the sanitizers.
TEST(ParseReference, LongTextsStayLinear) {
  const std::size_t n = 200000;
  std::string manyAreas;
  for (std::size_t i = 0; i < n / 4; ++i) manyAreas += "A1:B2,";
  manyAreas += "C3";
  EXPECT_EQ(parseReference(manyAreas).areas.size(), n / 4 + 1);

  for (const std::string& text : {std::string(n, 'A'), "'" + std::string(n, 'a'),
                                  std::string(n, '1'), "Data!" + manyAreas + ",Other!A1",
                                  std::string(n, 'x') + "!", "A" + std::string(n, '9')}) {
    EXPECT_THROW(parseReference(text), ComponentError);
  }
}

}  // namespace
}  // namespace orv

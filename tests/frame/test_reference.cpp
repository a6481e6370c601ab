#include "frame/reference.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/errors.h"
#include "frame/sheet_name.h"

namespace orv {
namespace {

TEST(ParseReference, AcceptedFormsAndTheirAddresses) {
  const struct {
    const char* text;
    const char* sheet;
    const char* address;
  } rows[] = {// sheet "": none named
              {"b7", "", "$B$7"},
              {"B$7", "", "$B$7"},
              {"C20:A1", "", "$A$1:$C$20"},
              {"A20:C1", "", "$A$1:$C$20"},
              {"A1:A1", "", "$A$1"},
              {"XFD1048576", "", "$XFD$1048576"},
              {"A007", "", "$A$7"},
              {"$C:$A", "", "$A:$C"},
              {"$5:$3", "", "$3:$5"},
              {"A1:XFD1048576", "", "$1:$1048576"},
              {"A1:A10,C1:C10", "", "$A$1:$A$10,$C$1:$C$10"},
              {"Data!A:A", "Data", "$A:$A"},
              {"'It''s'!B2", "It's", "$B$2"},
              {"'a,b!c'!B2", "a,b!c", "$B$2"},
              {"Data!A1,data!B2", "Data", "$A$1,$B$2"},
              {"A1,Data!B2", "Data", "$A$1,$B$2"},
              {"'My data'!A1,'My data'!C1", "My data", "$A$1,$C$1"},
              {"A1!B2", "A1", "$B$2"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    const ParsedReference parsed = parseReference(row.text);
    EXPECT_EQ(parsed.sheet.value_or(""), row.sheet);
    EXPECT_EQ(parsed.sheet.has_value(), *row.sheet != '\0');
    EXPECT_EQ(absoluteAddress(parsed.areas), row.address);
  }
  const CellBlock columns = parseReference("B:D").areas.at(0);
  EXPECT_EQ(columns, (CellBlock{1, 2, kMaxRows, 4}));
  EXPECT_TRUE(columns.wholeColumns());
  EXPECT_FALSE(columns.wholeRows());
  EXPECT_EQ(parseReference("4:9").areas.at(0), (CellBlock{4, 1, 9, kMaxColumns}));
}

TEST(ParseReference, RejectsWithAHostFailureQuotingTheText) {
  std::vector<std::string> rejected = {
      "",       "A",        "3",          "A0",   "A1048577", "XFE1",  "A1:",   "A1:B", "A:3",         "A1,",
      "A1,,B1", "A1 ",      "A1B",        "$$A1", "A1:B2:C3", "A1;B1", "Data!", "!A1",  "'My data!A1", "'My data'A1",
      "''!A1",  "'a[b'!A1", "My data!A1", "R1C1", "=A1"};
  rejected.insert(rejected.end(), {"A99999999999999999999", "Data!A1,Other!B1"});
  for (const std::string& text : rejected) {
    SCOPED_TRACE(text);
    try {
      parseReference(text);
      ADD_FAILURE() << "accepted";
    } catch (const ComponentError& e) {
      EXPECT_EQ(e.number(), err::kHostFailure);
      EXPECT_EQ(e.description(), "\"" + text + "\" is not a valid reference");
    }
  }
}

TEST(ColumnLetters, BijectiveBaseTwentySix) {
  const struct {
    std::int32_t column;
    const char* letters;
  } rows[] = {{26, "Z"}, {27, "AA"}, {52, "AZ"}, {53, "BA"}, {702, "ZZ"}, {703, "AAA"}, {16384, "XFD"}};
  for (const auto& row : rows) EXPECT_EQ(columnLetters(row.column), row.letters);
  for (std::int32_t column = 1; column <= kMaxColumns; ++column) ASSERT_EQ(columnNumber(columnLetters(column)), column);
  EXPECT_EQ(columnNumber("xfd"), 16384);
  for (const char* bad : {"", "XFE", "AAAA", "A1", "$A"}) EXPECT_EQ(columnNumber(bad), 0) << bad;
}

TEST(QuoteSheetName, QuotesWhatCouldNotStandAlone) {
  const struct {
    const char* name;
    const char* expected;
  } rows[] = {{"Sheet_2.old", "Sheet_2.old"}, {"ABCD1", "ABCD1"}, {"It's", "'It''s'"}, {"2019", "'2019'"},
              {"xfd1048576", "'xfd1048576'"}, {"R1C1", "'R1C1'"}, {"RC", "'RC'"},      {"a-b", "'a-b'"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(quoteSheetName(row.name), row.expected);
    EXPECT_EQ(parseReference(quoteSheetName(row.name) + "!A1").sheet, row.name);
  }
}

// Sheet qualifiers of one reference, worksheet and workbook lookups and the file writer all
// compare names this one way.
TEST(SameSheetName, FoldsAsciiLettersOnly) {
  const struct {
    const char* a;
    const char* b;
    bool same;
  } rows[] = {
      {"Daten", "DATEN", true},
      {"Sheet1", "sHEET1", true},
      {"", "", true},
      {"Data", "Data ", false},
      {"Data", "Dat", false},
      // Byte pairs 32 apart that are no letters: a fold by bit 5 would take them for one.
      {"@", "`", false},
      {"[", "{", false},
      {"1", "\x11", false},
      // UTF-8 letters stay as they are.
      {"\xC3\x84", "\xC3\xA4", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.a) + " / " + row.b);
    EXPECT_EQ(sameSheetName(row.a, row.b), row.same);
    EXPECT_EQ(sameSheetName(row.b, row.a), row.same);
  }
  // A qualifier that names the sheet of the first area in another case is the same sheet.
  EXPECT_EQ(parseReference("Daten!A1,DATEN!B2").areas.size(), 2U);
}

// Shapes that make backtracking scanners slow; a linear scan takes well under a second.
TEST(ParseReference, LongTextsStayLinear) {
  std::string manyAreas;
  for (int i = 0; i < 50000; ++i) manyAreas += "A1:B2,";
  EXPECT_EQ(parseReference(manyAreas + "C3").areas.size(), 50001u);
  for (const std::string& text :
       {"'" + std::string(200000, 'a'), "Data!" + manyAreas + "Other!A1", "A" + std::string(200000, '9')}) {
    EXPECT_THROW(parseReference(text), ComponentError);
  }
}

}  // namespace
}  // namespace orv

// Delimited text: dialects, quoting, encodings, and which fields become numbers.

#include <gtest/gtest.h>

#include <vector>

#include "test_packages.h"
#include "workbook/in_memory_application.h"
#include "xlsx/csv_reader.h"
#include "xlsx/reader_workbook.h"

namespace orv {
namespace {

struct Field {
  std::int32_t row, column;
  std::string text;
  friend bool operator==(const Field&, const Field&) = default;
};

std::vector<Field> fields(std::string_view text, char delimiter) {
  std::vector<Field> out;
  parseDelimited(text, delimiter, [&out](std::int32_t r, std::int32_t c, std::string&& f) {
    out.push_back({r, c, f});
  });
  return out;
}

TEST(CsvReader, DelimiterIsDetectedFromTheOpeningRecords) {
  const struct {
    std::string text;
    char fallback;
    char expected;
  } rows[] = {
      {"a;b\n1,5;2,5\n", ',', ';'},       // decimal commas in a semicolon file
      {"a,b\tc\n1,2\t3\n", ',', '\t'},    // both consistent: tab first
      {"\"a,b\";c\n1;2\n", ',', ';'},     // a quoted comma does not count
      {"single\ncolumn\n", '\t', '\t'},   // nothing decides: the extension's choice
      {"a,b\n1,2,3;4\n5,6\n", ',', ','},  // none consistent: the one on most records
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(detectDelimiter(row.text, row.fallback), row.expected);
  }
}

TEST(CsvReader, FieldsFollowQuotingAndLineEndRules) {
  const struct {
    std::string text;
    std::vector<Field> expected;
  } rows[] = {
      {"a,,c", {{1, 1, "a"}, {1, 3, "c"}}},
      {"\"line\nbreak\",2", {{1, 1, "line\nbreak"}, {1, 2, "2"}}},
      {"\"say \"\"hi\"\"\"", {{1, 1, "say \"hi\""}}},
      {"\"\"", {}},
      {"a\r\nb\rc\n\nd", {{1, 1, "a"}, {2, 1, "b"}, {3, 1, "c"}, {5, 1, "d"}}},
      {"\"open,end", {{1, 1, "open,end"}}},             // unterminated quote takes the rest
      {"\"q\"tail,x", {{1, 1, "qtail"}, {1, 2, "x"}}},  // text after a closing quote is kept
      {"mid\"quote,x", {{1, 1, "mid\"quote"}, {1, 2, "x"}}},
      {",\n,", {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(fields(row.text, ','), row.expected);
  }
}

TEST(CsvReader, OnlyPlainNumbersWithADecimalPointBecomeNumbers) {
  const struct {
    std::string field;
    CellValue expected;
  } rows[] = {
      {"+3", 3.0},        {" 7 ", 7.0},     {".5", 0.5},      {"5.", 5.0},        {"2.5E-1", 0.25},
      {"1,5", "1,5"},     {"TRUE", "TRUE"}, {"0x1F", "0x1F"}, {"inf", "inf"},     {"nan", "nan"},
      {"1e999", "1e999"}, {"1e", "1e"},     {".", "."},       {"12abc", "12abc"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.field);
    EXPECT_EQ(csvFieldValue(std::string(row.field)), row.expected);
  }
}

TEST(CsvReader, FileBecomesOneSheetNamedAfterItsStem) {
  const struct {
    std::string name;
    std::string bytes;
    std::string sheet;
    std::vector<std::pair<CellBlock, CellValue>> cells;  // CellBlock top/left as the cell
  } rows[] = {
      {"scores.csv",
       "\xEF\xBB\xBFName,Score\r\nAnn,1.5\r\n\"Lee, Bo\",\"2\"\r\n",
       "scores",
       {{{1, 1}, "Name"}, {{2, 2}, 1.5}, {{3, 1}, "Lee, Bo"}, {{3, 2}, 2.0}}},
      {"semi.csv", "a;b\n1,5;2\n", "semi", {{{2, 1}, "1,5"}, {{2, 2}, 2.0}}},
      {"latin.txt", "caf\xE9\t1\n", "latin", {{{1, 1}, "caf\xC3\xA9"}, {{1, 2}, 1.0}}},
      {"a[1]:b?.csv", "v\n", "a_1__b_", {{{1, 1}, "v"}}},
      {"a-very-long-file-name-for-a-sheet-name.csv", "v\n", "a-very-long-file-name-for-a-she", {}},
      {"blank.csv", "", "blank", {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    InMemoryApplication app;
    const LoadedWorkbook loaded = openWorkbookFile(app, test::writeBytes(row.name, row.bytes));
    EXPECT_EQ(loaded.book.Name(), row.name);
    ASSERT_EQ(loaded.book.WorksheetsCount(), 1);
    InMemoryWorksheet& ws = loaded.book.Worksheets(1);
    EXPECT_EQ(ws.Name(), row.sheet);
    EXPECT_FALSE(loaded.info.fromPackage);
    EXPECT_TRUE(loaded.info.sheetParts.empty());
    for (const auto& [at, value] : row.cells) EXPECT_EQ(ws.cellValue(at.top, at.left), value) << describe(value);
  }
}

}  // namespace
}  // namespace orv

// The table printed on the terminal: numbers as a General cell shows them, columns aligned by the
// width the terminal gives each character.

#include <gtest/gtest.h>

#include <sstream>

#include "../support/test_util.h"
#include "cli/block_report.h"
#include "cli/display_width.h"

namespace orv::cli {
namespace {

using test::kEmpty;
using test::Table;

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

TEST(DisplayWidth, CountsColumnsNotBytes) {
  const struct {
    std::string text;
    std::size_t width;
  } cases[] = {
      {"", 0},
      {"Mean", 4},
      {"µg/l", 4},                // µ is two bytes, one column
      {"95%CL (±)", 9},           // so is ±
      {"身長", 4},                // CJK ideographs take two columns each
      {"ｱｲ", 2},                  // halfwidth katakana take one
      {"Ｎ", 2},                  // fullwidth forms take two
      {"e\xCC\x81t\xC3\xA9", 3},  // a combining accent takes none
      {"\xFF\xFEx", 3},           // bytes that are no UTF-8 take one each
      {"\xE4\xB8", 2},            // a sequence cut short as well
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(displayWidth(c.text), c.width);
    EXPECT_EQ(displayWidth(padRight(c.text, 12)), std::max<std::size_t>(12, c.width));
    EXPECT_EQ(displayWidth(padLeft(c.text, 12)), std::max<std::size_t>(12, c.width));
  }
}

TEST(PrintedTable, NumbersLookAsInAGeneralCell) {
  const struct {
    double value;
    std::string shown;
  } cases[] = {
      {4500000.12, "4500000.12"},
      {21.641666666666666, "21.6416666666667"},  // 15 significant digits
      {0.1 + 0.2, "0.3"},
      {-0.0, "0"},
      {123456789012345.0, "123456789012345"},
      {1e15, "1E+15"},
      {0.0001, "0.0001"},
      {6.252705014900346e-08, "6.25270501490035E-08"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.shown);
    EXPECT_EQ(formatTable(Table({{"x", c.value}})), "x  " + c.shown + "\n");
  }
}

TEST(PrintedTable, ColumnsAlignByDisplayWidth) {
  const std::vector<std::string> lines = linesOf(
      formatTable(Table({{kEmpty, "身長", "µg"}, {"Mean", 172.5, 3.25}, {"95%CL (±)", 1, "n/a"}, {"Count", 12, 12}})));
  ASSERT_EQ(lines.size(), 4u);
  // Every value column ends at the same terminal column on every line.
  for (const std::string& line : lines) {
    SCOPED_TRACE(line);
    EXPECT_EQ(displayWidth(line), displayWidth(lines[1]));
  }
  EXPECT_EQ(lines[0], "            身長    µg");
  EXPECT_EQ(lines[2], "95%CL (±)      1   n/a");
}

// The heading of chart data written below a table stands in the block's last row; the data lie
// outside it, so the heading alone is not printed. Headings above a table are.
TEST(PrintedTable, AHeadingThatEndsTheBlockIsNotPrinted) {
  const ValueArray2D block = Table({{"Descriptive Statistics for:", kEmpty},
                                    {kEmpty, kEmpty},
                                    {kEmpty, "Control"},
                                    {"Mean", 21.5},
                                    {kEmpty, kEmpty},
                                    {"Data for Error Bars", kEmpty}});
  EXPECT_EQ(formatTable(block), "Descriptive Statistics for:\n\n      Control\nMean     21.5\n");
}

}  // namespace
}  // namespace orv::cli

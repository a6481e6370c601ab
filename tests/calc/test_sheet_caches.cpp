// The live host's sheet caches against a fake office that counts its calls: every value and
// format the component reads or writes must arrive as in the office, in a call per block.

#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

#include "calc/sheet_formats.h"
#include "calc/sheet_values.h"
#include "calc/tile_grid.h"

namespace orv::calc {
namespace {

// A sheet held in maps, recording every block the host asks for.
class FakeSheet final : public ValueSource, public FormatSource {
 public:
  std::map<std::pair<std::int32_t, std::int32_t>, CellValue> values;
  std::map<std::pair<std::int32_t, std::int32_t>, CellFormat> formats;
  std::vector<CellBlock> reads, writes, formatReads, patches;
  std::vector<std::vector<CellBlock>> sets;
  int usedQueries = 0;

  void read(const CellBlock& block, ValueArray2D& out) override {
    reads.push_back(block);
    for (std::int32_t r = block.top; r <= block.bottom; ++r)
      for (std::int32_t c = block.left; c <= block.right; ++c) {
        const auto it = values.find({r, c});
        out(r - block.top + 1, c - block.left + 1) = it == values.end() ? CellValue{} : it->second;
      }
  }
  void write(const CellBlock& block, const ValueArray2D& v) override {
    writes.push_back(block);
    for (std::int32_t r = block.top; r <= block.bottom; ++r)
      for (std::int32_t c = block.left; c <= block.right; ++c) {
        const CellValue& x = v(r - block.top + 1, c - block.left + 1);
        if (x.isEmpty()) values.erase({r, c});
        else values[{r, c}] = x;
      }
  }
  std::optional<CellBlock> usedBlock() override {
    ++usedQueries;
    std::optional<CellBlock> used;
    for (const auto& [at, v] : values) {
      const auto [r, c] = at;
      used = used ? CellBlock{std::min(used->top, r), std::min(used->left, c), std::max(used->bottom, r),
                              std::max(used->right, c)}
                  : CellBlock{r, c, r, c};
    }
    return used;
  }
  std::vector<CellFormat> read(const CellBlock& block) override {
    formatReads.push_back(block);
    std::vector<CellFormat> out;
    for (std::int32_t r = block.top; r <= block.bottom; ++r)
      for (std::int32_t c = block.left; c <= block.right; ++c) out.push_back(format(r, c));
    return out;
  }
  void patch(const CellBlock& block, const FormatPatch& p) override {
    patches.push_back(block);
    // Only the cells a test looks at are kept; a whole sheet is not materialised.
    for (auto& [at, f] : formats) {
      if (block.contains(at.first, at.second)) p.applyTo(f);
    }
    lastPatch = p;
    lastPatchBlock = block;
  }
  void set(const std::vector<CellBlock>& blocks, const CellFormat& f) override {
    sets.push_back(blocks);
    for (const CellBlock& b : blocks)
      for (std::int32_t r = b.top; r <= b.bottom; ++r)
        for (std::int32_t c = b.left; c <= b.right; ++c) formats[{r, c}] = f;
  }
  CellFormat format(std::int32_t r, std::int32_t c) const {
    const auto it = formats.find({r, c});
    if (it != formats.end()) return it->second;
    CellFormat f;
    if (lastPatchBlock.contains(r, c)) lastPatch.applyTo(f);
    return f;
  }

 private:
  FormatPatch lastPatch;
  CellBlock lastPatchBlock{0, 0, -1, -1};
};

TEST(CoveringBlocks, CoverExactlyTheCellsWithFewRectangles) {
  using Cells = std::vector<std::pair<std::int32_t, std::int32_t>>;
  const struct {
    const char* what;
    Cells cells;
    std::vector<CellBlock> blocks;
  } cases[] = {
      {"nothing", {}, {}},
      {"one cell", {{4, 2}}, {{4, 2, 4, 2}}},
      {"a block in any order", {{2, 3}, {1, 2}, {2, 2}, {1, 3}}, {{1, 2, 2, 3}}},
      {"a row gap splits", {{1, 1}, {3, 1}}, {{1, 1, 1, 1}, {3, 1, 3, 1}}},
      {"a wider row starts anew", {{1, 1}, {2, 1}, {2, 2}}, {{1, 1, 1, 1}, {2, 1, 2, 2}}},
      {"two runs in a row", {{1, 1}, {1, 3}, {2, 1}, {2, 3}}, {{1, 1, 2, 1}, {1, 3, 2, 3}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(coveringBlocks(c.cells), c.blocks);
  }
}

TEST(SheetValues, ReadsBandsOfTilesOnceAndNothingOutsideTheUsedBlock) {
  FakeSheet sheet;
  for (std::int32_t r = 1; r <= 600; ++r) sheet.values[{r, 2}] = r;
  sheet.values[std::pair(3, 40)] = "far";
  SheetValues values(sheet);

  ValueArray2D column(600, 1);
  values.read(CellBlock{1, 2, 600, 2}, column);
  EXPECT_EQ(column(600, 1), CellValue(600));
  // One read of the first band of 16 columns, clipped to the used block's rows.
  ASSERT_EQ(sheet.reads.size(), 1u);
  EXPECT_EQ(sheet.reads[0], (CellBlock{1, 2, 600, 16}));

  // Cells of the same band cost nothing more; cells below the used block never ask the office.
  EXPECT_EQ(values.get(599, 2), CellValue(599));
  EXPECT_EQ(values.get(5000, 3), CellValue{});
  ValueArray2D whole(1048576, 1);
  values.read(CellBlock{1, 3, 1048576, 3}, whole);
  EXPECT_EQ(sheet.reads.size(), 1u);
  EXPECT_EQ(values.get(3, 40), CellValue("far"));
  EXPECT_EQ(sheet.reads.size(), 2u);
}

TEST(SheetValues, WritesAreSeenAtOnceSurviveTheFirstReadAndAreSentAsBlocks) {
  FakeSheet sheet;
  sheet.values[std::pair(1, 1)] = "kept";
  sheet.values[std::pair(2, 1)] = "overwritten";
  SheetValues values(sheet);
  for (std::int32_t r = 2; r <= 301; ++r)
    for (std::int32_t c = 1; c <= 3; ++c) values.set(r, c, r * 10 + c);
  values.set(1, 5, "note");
  EXPECT_EQ(values.get(301, 3), CellValue(3013));
  EXPECT_EQ(values.get(1, 1), CellValue("kept"));  // read around the pending writes
  EXPECT_EQ(values.get(2, 1), CellValue(21));
  EXPECT_TRUE(sheet.writes.empty());
  EXPECT_EQ(values.usedBlock(), (CellBlock{1, 1, 301, 5}));

  values.flush();
  EXPECT_EQ(sheet.writes, (std::vector<CellBlock>{{1, 5, 1, 5}, {2, 1, 301, 3}}));
  EXPECT_EQ(sheet.values[std::pair(301, 3)], CellValue(3013));
  EXPECT_EQ(sheet.values[std::pair(1, 1)], CellValue("kept"));
  EXPECT_FALSE(values.pending());
  values.flush();
  EXPECT_EQ(sheet.writes.size(), 2u);
}

TEST(SheetValues, EmptyingCellsShrinksTheUsedBlockAfterAskingTheOfficeAgain) {
  FakeSheet sheet;
  sheet.values[std::pair(1, 1)] = 1;
  sheet.values[std::pair(9, 9)] = 9;
  SheetValues values(sheet);
  EXPECT_EQ(values.usedBlock(), (CellBlock{1, 1, 9, 9}));
  values.set(9, 9, CellValue{});
  EXPECT_EQ(values.usedBlock(), (CellBlock{1, 1, 1, 1}));
  EXPECT_EQ(sheet.usedQueries, 2);
  values.cleared(CellBlock{1, 1, kMaxRows, kMaxColumns});
  sheet.values.clear();
  EXPECT_EQ(values.usedBlock(), std::nullopt);
  EXPECT_EQ(sheet.usedQueries, 2);  // a cleared sheet is known empty
}

TEST(SheetFormats, SingleCellFormatsGoOutGroupedAfterThePatches) {
  FakeSheet sheet;
  SheetFormats formats(sheet);
  formats.cleared(CellBlock{1, 1, kMaxRows, kMaxColumns}, CellFormat{});
  FormatPatch none;
  none.interiorColorIndex = kColorIndexNone;
  formats.patch(CellBlock{1, 1, kMaxRows, kMaxColumns}, none);
  CellFormat bold;
  bold.bold = true;
  CellFormat right;
  right.horizontalAlignment = HAlign::Right;
  for (std::int32_t r = 1; r <= 3; ++r) {
    formats.set(r, 1, bold);
    formats.set(r, 2, right);
    formats.set(r, 3, right);
  }
  // A patch after single-cell formats changes them here as it will in the office.
  FormatPatch red;
  red.fontColorIndex = 3;
  formats.patch(CellBlock{3, 1, 3, 3}, red);
  EXPECT_EQ(formats.get(3, 2).fontColorIndex, 3);
  EXPECT_EQ(formats.get(3, 2).horizontalAlignment, HAlign::Right);
  EXPECT_TRUE(formats.get(500, 500) == CellFormat{});
  EXPECT_TRUE(sheet.formatReads.empty());  // known since the clear

  formats.flush();
  EXPECT_EQ(sheet.patches.size(), 2u);
  ASSERT_EQ(sheet.sets.size(), 4u);  // bold, right, and both of them red
  EXPECT_EQ(sheet.formats[std::pair(2, 3)], right);
  EXPECT_EQ(sheet.formats[std::pair(3, 3)].fontColorIndex, 3);
  EXPECT_TRUE(sheet.formats[std::pair(3, 1)].bold);
  std::size_t rectangles = 0;
  for (const auto& blocks : sheet.sets) rectangles += blocks.size();
  EXPECT_EQ(rectangles, 4u);
}

TEST(SheetFormats, AnUnknownCellIsReadWithItsTileAfterThePendingPatches) {
  FakeSheet sheet;
  CellFormat money;
  money.numberFormat = "0.00";
  sheet.formats[std::pair(300, 20)] = money;
  SheetFormats formats(sheet);
  FormatPatch bold;
  bold.bold = true;
  formats.patch(CellBlock{300, 20, 300, 20}, bold);
  const CellFormat got = formats.get(300, 20);
  EXPECT_EQ(got.numberFormat, "0.00");
  EXPECT_TRUE(got.bold);
  ASSERT_EQ(sheet.formatReads.size(), 1u);
  EXPECT_EQ(sheet.formatReads[0], (CellBlock{257, 17, 512, 32}));
  EXPECT_EQ(sheet.patches.size(), 1u);
  formats.get(257, 32);
  EXPECT_EQ(sheet.formatReads.size(), 1u);
}

}  // namespace
}  // namespace orv::calc

// The format store against a plain model of its rules: a cell's own format wins over its
// column's, which wins over the sheet's; patches change only what they set; a cleared cell is
// plain. Random blocks, single cells, whole columns and clears, in every order, on a small grid.

#include "workbook/format_store.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <random>
#include <utility>
#include <vector>

namespace orv {
namespace {

constexpr std::int32_t kRows = 40;
constexpr std::int32_t kColumns = 4;

struct Model {
  CellFormat sheet;
  std::map<std::int32_t, CellFormat> whole;
  std::map<std::pair<std::int32_t, std::int32_t>, CellFormat> own;  // (column, row)

  CellFormat fallback(std::int32_t c) const {
    const auto w = whole.find(c);
    return w != whole.end() ? w->second : sheet;
  }
  CellFormat at(std::int32_t r, std::int32_t c) const {
    const auto o = own.find({c, r});
    return o != own.end() ? o->second : fallback(c);
  }
};

FormatPatch boldPatch(bool bold) {
  FormatPatch p;
  p.bold = bold;
  return p;
}
FormatPatch sizePatch(double size) {
  FormatPatch p;
  p.fontSize = size;
  return p;
}

TEST(FormatStore, FollowsThePlainModelThroughRandomChanges) {
  std::mt19937 random(11);
  const auto pick = [&](std::int32_t low, std::int32_t high) {
    return std::uniform_int_distribution<std::int32_t>(low, high)(random);
  };
  for (int round = 0; round < 30; ++round) {
    FormatStore store;
    Model model;
    for (int step = 0; step < 60; ++step) {
      const std::int32_t left = pick(1, kColumns);
      const std::int32_t right = pick(left, kColumns);
      const std::int32_t top = pick(1, kRows);
      const std::int32_t bottom = std::min(kRows, top + pick(0, 12));
      const FormatPatch patch = pick(0, 1) ? boldPatch(pick(0, 1) == 1) : sizePatch(pick(8, 12));
      switch (pick(0, 3)) {
        case 0: {  // a block, patched cell by cell
          store.apply(CellBlock{top, left, bottom, right}, patch);
          for (std::int32_t c = left; c <= right; ++c)
            for (std::int32_t r = top; r <= bottom; ++r) {
              CellFormat f = model.at(r, c);
              patch.applyTo(f);
              model.own[{c, r}] = f;
            }
          break;
        }
        case 1: {  // one cell set outright
          CellFormat f;
          f.fontSize = pick(8, 12);
          store.set(top, left, f);
          model.own[{left, top}] = f;
          break;
        }
        case 2: {  // whole columns: their own format and every own cell in them
          store.apply(CellBlock{1, left, kMaxRows, right}, patch);
          for (std::int32_t c = left; c <= right; ++c) {
            CellFormat w = model.fallback(c);
            patch.applyTo(w);
            model.whole[c] = w;
            for (auto& [place, f] : model.own)
              if (place.first == c) patch.applyTo(f);
          }
          break;
        }
        case 3: {  // cleared cells are plain, whatever their column says
          store.clear(CellBlock{top, left, bottom, right});
          for (std::int32_t c = left; c <= right; ++c)
            for (std::int32_t r = top; r <= bottom; ++r) {
              if (model.fallback(c) == CellFormat{}) model.own.erase({c, r});
              else model.own[{c, r}] = CellFormat{};
            }
          break;
        }
      }
      for (std::int32_t c = 1; c <= kColumns; ++c)
        for (std::int32_t r = 1; r <= kRows; ++r)
          ASSERT_EQ(store.format(r, c), model.at(r, c))
              << "round " << round << ", step " << step << ", R" << r << "C" << c;
    }
    // The writer's walk sees each cell with a format of its own once, column by column, rows ascending.
    std::vector<std::pair<std::int32_t, std::int32_t>> walked;
    store.forEachCellFormat([&](std::int32_t r, std::int32_t c, const CellFormat& f) {
      walked.emplace_back(c, r);
      EXPECT_EQ(f, model.at(r, c));
    });
    std::vector<std::pair<std::int32_t, std::int32_t>> expected;
    for (const auto& [place, f] : model.own) expected.push_back(place);
    EXPECT_EQ(walked, expected);
  }
}

}  // namespace
}  // namespace orv

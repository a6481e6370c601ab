#include <gtest/gtest.h>

#include "frame/palette.h"

namespace orv {
namespace {

TEST(Palette, IndicesOutsideThePaletteHaveNoColour) {
  EXPECT_EQ(paletteColor(1), 0x000000u);
  EXPECT_EQ(paletteColor(15), 0xC0C0C0u);
  EXPECT_EQ(paletteRgb(22), "FF8080");
  EXPECT_EQ(paletteRgb(56), "333333");
  for (std::int32_t index : {0, 57, -4105, -4142}) {
    SCOPED_TRACE(index);
    EXPECT_EQ(paletteColor(index), std::nullopt);
    EXPECT_EQ(paletteRgb(index), std::nullopt);
  }
}

// A colour read back from a host that keeps RGB becomes the index it was written from; entries
// that repeat in the palette (yellow is 6 and 27) come back as the lowest index.
TEST(Palette, NearestIndexInvertsTheTable) {
  for (std::int32_t index = 1; index <= kPaletteSize; ++index) {
    SCOPED_TRACE(index);
    const std::int32_t back = nearestPaletteIndex(*paletteColor(index));
    EXPECT_EQ(paletteColor(back), paletteColor(index));
    EXPECT_LE(back, index);
  }
  EXPECT_EQ(nearestPaletteIndex(0xFFFF00), 6);
  EXPECT_EQ(nearestPaletteIndex(0xFE0101), 3);   // near red
  EXPECT_EQ(nearestPaletteIndex(0xC8C8C8), 15);  // between the greys, nearest to C0C0C0
}

}  // namespace
}  // namespace orv

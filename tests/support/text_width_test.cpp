#include "support/text_width.h"

#include <gtest/gtest.h>

#include <string>

namespace orv {
namespace {

// Advance widths in 1/2048 em, measured outside the build with Pillow 9.4
// (ImageFont.truetype(<Carlito-Regular.ttf or Carlito-Bold.ttf>, 2048, layout_engine=BASIC)
// .getlength(text)) on the fonts of the Debian package fonts-crosextra-carlito 20220224-1.
TEST(TextWidth, SumsTheFontsAdvanceWidthsAtAnySize) {
  const struct {
    std::string text;
    bool bold;
    double units;
  } rows[] = {
      {"Coeff. Var.", false, 8795},      {"Coeff. Var.", true, 9019},
      {"25th Percentile", false, 12698}, {"25th Percentile", true, 12931},
      {"21.64166667", false, 10897},     {"21.64166667", true, 10927},
      {"-0.781451668", false, 11524},    {"Größe µm ±", false, 9893},
      {"Größe µm ±", true, 10067},       {"", false, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text + (row.bold ? " (bold)" : ""));
    for (const double size : {11.0, 8.0, 22.5}) {
      EXPECT_NEAR(textWidthPoints(row.text, size, row.bold), row.units / 2048 * size, 1e-9) << size << " pt";
    }
  }
}

TEST(TextWidth, CharactersBeyondTheFontCountAsWideAsTheyShow) {
  const double digit = textWidthPoints("0", 11, false);
  const struct {
    const char* what;
    std::string text;
    double expected;
  } rows[] = {
      {"an East Asian wide character is one em", "\xE6\xB8\xAC", 11},                   // U+6E2C
      {"a supplementary ideograph too", "\xF0\xA0\x80\x80", 11},                        // U+20000
      {"a combining mark adds nothing", "e\xCC\x81", textWidthPoints("e", 11, false)},  // e + U+0301
      {"another script counts as a digit", "\xD0\x96", digit},                          // U+0416
      {"a stray continuation byte counts as a digit", "\x80", digit},
      {"a cut-off sequence counts as Latin-1 bytes", "\xE6\xB8", textWidthPoints("\xC3\xA6\xC2\xB8", 11, false)},
      {"a control character adds nothing", "a\tb", textWidthPoints("ab", 11, false)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_NEAR(textWidthPoints(row.text, 11, false), row.expected, 1e-9);
  }
}

}  // namespace
}  // namespace orv

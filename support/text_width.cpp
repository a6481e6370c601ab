#include "support/text_width.h"

#include <array>
#include <cstdint>

#include "frame/utf8.h"

namespace orv {
namespace {

// Advance widths in 1/2048 em of U+0020..U+007E and U+00A0..U+00FF, read from the horizontal
// metrics (hmtx) of Carlito-Regular.ttf and Carlito-Bold.ttf of the Debian 12 package
// fonts-crosextra-carlito 20220224-1 with python3-fonttools; the soft hyphen has no glyph there
// and counts as a digit.
constexpr double kUnitsPerEm = 2048;
constexpr std::uint16_t kDigit = 1038;
constexpr std::uint16_t kWide = 2048;
constexpr std::array<std::uint16_t, 95> kRegularAscii = {
    463,  667,  821,  1020, 1038, 1464, 1397, 452,  621,  621,  1020, 1020, 511,  627,  517,  791,  1038, 1038, 1038,
    1038, 1038, 1038, 1038, 1038, 1038, 1038, 548,  548,  1020, 1020, 1020, 949,  1831, 1185, 1114, 1092, 1260, 1000,
    941,  1292, 1276, 516,  653,  1064, 861,  1751, 1322, 1356, 1058, 1378, 1112, 941,  998,  1314, 1162, 1822, 1063,
    998,  959,  628,  791,  628,  1020, 1020, 596,  981,  1076, 866,  1076, 1019, 625,  964,  1076, 470,  490,  931,
    470,  1636, 1076, 1080, 1076, 1076, 714,  801,  686,  1076, 925,  1464, 887,  927,  809,  644,  943,  644,  1020,
};
constexpr std::array<std::uint16_t, 96> kRegularLatin1 = {
    1038, 667,  1020, 1038, 1020, 1038, 1020, 1020, 804,  1709, 824,  1049, 1020, 1038, 1038, 807,
    694,  1020, 688,  685,  598,  1126, 1200, 517,  629,  504,  865,  1049, 1303, 1375, 1383, 949,
    1185, 1185, 1185, 1185, 1185, 1185, 1563, 1092, 1000, 1000, 1000, 1000, 516,  516,  516,  516,
    1279, 1322, 1356, 1356, 1356, 1356, 1356, 1020, 1359, 1314, 1314, 1314, 1314, 998,  1058, 1080,
    981,  981,  981,  981,  981,  981,  1583, 866,  1019, 1019, 1019, 1019, 470,  470,  470,  470,
    1076, 1076, 1080, 1080, 1080, 1080, 1080, 1020, 1084, 1076, 1076, 1076, 1076, 927,  1076, 927,
};
constexpr std::array<std::uint16_t, 95> kBoldAscii = {
    463,  667,  898,  1020, 1038, 1493, 1443, 478,  638,  638,  1020, 1020, 528,  627,  547,  880,  1038, 1038, 1038,
    1038, 1038, 1038, 1038, 1038, 1038, 1038, 565,  565,  1020, 1020, 1020, 949,  1840, 1241, 1148, 1084, 1291, 999,
    940,  1305, 1292, 546,  678,  1120, 866,  1790, 1349, 1385, 1090, 1405, 1153, 968,  1014, 1337, 1211, 1856, 1128,
    1064, 979,  665,  880,  665,  1020, 1020, 615,  1011, 1099, 857,  1099, 1031, 648,  971,  1099, 503,  523,  983,
    503,  1666, 1099, 1101, 1099, 1099, 728,  817,  710,  1099, 969,  1526, 941,  970,  814,  704,  973,  704,  1020,
};
constexpr std::array<std::uint16_t, 96> kBoldLatin1 = {
    1038, 667,  1020, 1038, 1020, 1038, 1020, 1020, 849,  1709, 852,  1103, 1020, 1038, 1038, 799,
    701,  1020, 692,  688,  616,  1154, 1224, 548,  621,  517,  891,  1103, 1347, 1415, 1437, 949,
    1241, 1241, 1241, 1241, 1241, 1241, 1588, 1084, 999,  999,  999,  999,  546,  546,  546,  546,
    1309, 1349, 1385, 1385, 1385, 1385, 1385, 1020, 1394, 1337, 1337, 1337, 1337, 1064, 1090, 1136,
    1011, 1011, 1011, 1011, 1011, 1011, 1587, 857,  1031, 1031, 1031, 1031, 503,  503,  503,  503,
    1099, 1099, 1101, 1101, 1101, 1101, 1101, 1020, 1114, 1099, 1099, 1099, 1099, 970,  1099, 970,
};

// East Asian wide and fullwidth blocks: Hangul Jamo, CJK radicals to Yi, Hangul syllables, CJK
// compatibility ideographs and forms, fullwidth forms, and the supplementary ideographic planes.
bool isWide(char32_t c) {
  return (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7A3) ||
         (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE4F) || (c >= 0xFF00 && c <= 0xFF60) ||
         (c >= 0xFFE0 && c <= 0xFFE6) || (c >= 0x20000 && c <= 0x3FFFD);
}

bool isCombining(char32_t c) { return (c >= 0x0300 && c <= 0x036F) || (c >= 0x20D0 && c <= 0x20FF); }

std::uint16_t advance(char32_t c, bool bold) {
  if (c >= 0x20 && c <= 0x7E) return (bold ? kBoldAscii : kRegularAscii)[c - 0x20];
  if (c >= 0xA0 && c <= 0xFF) return (bold ? kBoldLatin1 : kRegularLatin1)[c - 0xA0];
  if (isWide(c)) return kWide;
  if (isCombining(c) || c < 0x20) return 0;
  return kDigit;
}

}  // namespace

double textWidthPoints(std::string_view utf8, double fontSize, bool bold) {
  double units = 0;
  for (std::size_t at = 0; at < utf8.size();) units += advance(nextCodePoint(utf8, at), bold);
  return units / kUnitsPerEm * fontSize;
}

}  // namespace orv

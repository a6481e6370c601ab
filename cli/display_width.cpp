#include "cli/display_width.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "frame/utf8.h"

namespace orv::cli {
namespace {

struct CodeRange {
  char32_t first;
  char32_t last;
};

// Characters drawn over the one before them, and invisible format characters.
constexpr std::array kZeroWidth = {
    CodeRange{0x0300, 0x036F},   CodeRange{0x0483, 0x0489}, CodeRange{0x0591, 0x05BD},   CodeRange{0x05BF, 0x05BF},
    CodeRange{0x05C1, 0x05C2},   CodeRange{0x05C4, 0x05C5}, CodeRange{0x05C7, 0x05C7},   CodeRange{0x0610, 0x061A},
    CodeRange{0x064B, 0x065F},   CodeRange{0x0670, 0x0670}, CodeRange{0x06D6, 0x06DC},   CodeRange{0x06DF, 0x06E4},
    CodeRange{0x06E7, 0x06E8},   CodeRange{0x06EA, 0x06ED}, CodeRange{0x0900, 0x0902},   CodeRange{0x093A, 0x093A},
    CodeRange{0x093C, 0x093C},   CodeRange{0x0941, 0x0948}, CodeRange{0x094D, 0x094D},   CodeRange{0x0951, 0x0957},
    CodeRange{0x0962, 0x0963},   CodeRange{0x0E31, 0x0E31}, CodeRange{0x0E34, 0x0E3A},   CodeRange{0x0E47, 0x0E4E},
    CodeRange{0x1160, 0x11FF},   CodeRange{0x1AB0, 0x1AFF}, CodeRange{0x1DC0, 0x1DFF},   CodeRange{0x200B, 0x200F},
    CodeRange{0x2028, 0x202E},   CodeRange{0x2060, 0x2064}, CodeRange{0x20D0, 0x20FF},   CodeRange{0xFE00, 0xFE0F},
    CodeRange{0xFE20, 0xFE2F},   CodeRange{0xFEFF, 0xFEFF}, CodeRange{0x1F3FB, 0x1F3FF}, CodeRange{0xE0000, 0xE007F},
    CodeRange{0xE0100, 0xE01EF},
};

// East Asian wide and fullwidth characters, and the emoji a terminal draws two columns wide.
constexpr std::array kWide = {
    CodeRange{0x1100, 0x115F},   CodeRange{0x231A, 0x231B},   CodeRange{0x2329, 0x232A},   CodeRange{0x23E9, 0x23EC},
    CodeRange{0x23F0, 0x23F0},   CodeRange{0x23F3, 0x23F3},   CodeRange{0x25FD, 0x25FE},   CodeRange{0x2614, 0x2615},
    CodeRange{0x2648, 0x2653},   CodeRange{0x267F, 0x267F},   CodeRange{0x2693, 0x2693},   CodeRange{0x26A1, 0x26A1},
    CodeRange{0x26AA, 0x26AB},   CodeRange{0x26BD, 0x26BE},   CodeRange{0x26C4, 0x26C5},   CodeRange{0x26CE, 0x26CE},
    CodeRange{0x26D4, 0x26D4},   CodeRange{0x26EA, 0x26EA},   CodeRange{0x26F2, 0x26F3},   CodeRange{0x26F5, 0x26F5},
    CodeRange{0x26FA, 0x26FA},   CodeRange{0x26FD, 0x26FD},   CodeRange{0x2705, 0x2705},   CodeRange{0x270A, 0x270B},
    CodeRange{0x2728, 0x2728},   CodeRange{0x274C, 0x274C},   CodeRange{0x274E, 0x274E},   CodeRange{0x2753, 0x2755},
    CodeRange{0x2757, 0x2757},   CodeRange{0x2795, 0x2797},   CodeRange{0x27B0, 0x27B0},   CodeRange{0x27BF, 0x27BF},
    CodeRange{0x2B1B, 0x2B1C},   CodeRange{0x2B50, 0x2B50},   CodeRange{0x2B55, 0x2B55},   CodeRange{0x2E80, 0x303E},
    CodeRange{0x3041, 0x33FF},   CodeRange{0x3400, 0x4DBF},   CodeRange{0x4E00, 0x9FFF},   CodeRange{0xA000, 0xA4CF},
    CodeRange{0xA960, 0xA97F},   CodeRange{0xAC00, 0xD7A3},   CodeRange{0xF900, 0xFAFF},   CodeRange{0xFE10, 0xFE19},
    CodeRange{0xFE30, 0xFE6F},   CodeRange{0xFF00, 0xFF60},   CodeRange{0xFFE0, 0xFFE6},   CodeRange{0x16FE0, 0x16FE4},
    CodeRange{0x17000, 0x18AFF}, CodeRange{0x1B000, 0x1B2FF}, CodeRange{0x1F004, 0x1F004}, CodeRange{0x1F0CF, 0x1F0CF},
    CodeRange{0x1F18E, 0x1F18E}, CodeRange{0x1F191, 0x1F19A}, CodeRange{0x1F200, 0x1F251}, CodeRange{0x1F300, 0x1F64F},
    CodeRange{0x1F680, 0x1F6FF}, CodeRange{0x1F900, 0x1F9FF}, CodeRange{0x1FA70, 0x1FAFF}, CodeRange{0x20000, 0x2FFFD},
    CodeRange{0x30000, 0x3FFFD},
};

template <std::size_t N>
bool inRanges(const std::array<CodeRange, N>& ranges, char32_t c) {
  const auto it = std::upper_bound(ranges.begin(), ranges.end(), c,
                                   [](char32_t value, const CodeRange& r) { return value < r.first; });
  return it != ranges.begin() && c <= std::prev(it)->last;
}

std::size_t characterWidth(char32_t c) {
  if (c < 0x300) return 1;
  if (inRanges(kZeroWidth, c)) return 0;
  return inRanges(kWide, c) ? 2 : 1;
}

}  // namespace

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  for (std::size_t at = 0; at < text.size();) width += characterWidth(nextCodePoint(text, at));
  return width;
}

std::string padRight(std::string_view text, std::size_t width) {
  const std::size_t shown = displayWidth(text);
  std::string out(text);
  if (shown < width) out.append(width - shown, ' ');
  return out;
}

std::string padLeft(std::string_view text, std::size_t width) {
  const std::size_t shown = displayWidth(text);
  std::string out = shown < width ? std::string(width - shown, ' ') : std::string();
  return out.append(text);
}

}  // namespace orv::cli

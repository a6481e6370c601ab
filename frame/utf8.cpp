#include "frame/utf8.h"

namespace orv {

char32_t nextCodePoint(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  const std::size_t length = lead < 0x80           ? 1
                             : (lead >> 5) == 0x6  ? 2
                             : (lead >> 4) == 0xE  ? 3
                             : (lead >> 3) == 0x1E ? 4
                                                   : 0;
  if (length <= 1 || at + length > text.size()) {
    ++at;
    return lead;
  }
  char32_t c = lead & (0x7F >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) {
      ++at;
      return lead;
    }
    c = (c << 6) | (byte(at + i) & 0x3F);
  }
  at += length;
  return c;
}

}  // namespace orv

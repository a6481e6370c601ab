#include "xlsx/reader_text.h"

#include <array>

namespace orv {

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

void appendUtf8(std::string& out, std::uint32_t code) {
  auto put = [&out](std::uint32_t byte) { out.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | (code >> 6));
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | (code >> 18));
    put(0x80 | ((code >> 12) & 0x3F));
    put(0x80 | ((code >> 6) & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

bool isValidUtf8(std::string_view text) {
  std::size_t i = 0;
  const std::size_t n = text.size();
  while (i < n) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c < 0x80) {
      ++i;
      continue;
    }
    std::size_t length = 0;
    std::uint32_t code = 0;
    if (c >= 0xC2 && c <= 0xDF) {
      length = 2;
      code = c & 0x1F;
    } else if (c >= 0xE0 && c <= 0xEF) {
      length = 3;
      code = c & 0x0F;
    } else if (c >= 0xF0 && c <= 0xF4) {
      length = 4;
      code = c & 0x07;
    } else {
      return false;
    }
    if (i + length > n) return false;
    for (std::size_t k = 1; k < length; ++k) {
      const auto b = static_cast<unsigned char>(text[i + k]);
      if ((b & 0xC0) != 0x80) return false;
      code = (code << 6) | (b & 0x3F);
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    if (overlong || (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF) return false;
    i += length;
  }
  return true;
}

std::string windows1252ToUtf8(std::string_view text) {
  // 0x80..0x9F differ from Latin-1; the five bytes the code page leaves undefined map to
  // themselves as C1 controls, so nothing is lost.
  static constexpr std::array<std::uint16_t, 32> kHigh = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  for (const char ch : text) {
    const auto c = static_cast<unsigned char>(ch);
    if (c < 0x80) {
      out.push_back(ch);
    } else if (c < 0xA0) {
      appendUtf8(out, kHigh[c - 0x80]);
    } else {
      appendUtf8(out, c);
    }
  }
  return out;
}

}  // namespace orv

// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

// Reads the code point at s[i] and moves i past it. A malformed or cut sequence gives U+FFFD for
// its first byte, so that every byte is consumed and nothing is read beyond the end.
inline char32_t nextCodePoint(std::string_view s, size_t& i) {
  const auto b0 = static_cast<unsigned char>(s[i]);
  if (b0 < 0x80) {
    ++i;
    return b0;
  }
  int extra = b0 >= 0xF0 && b0 < 0xF5 ? 3 : b0 >= 0xE0 ? 2 : b0 >= 0xC2 && b0 < 0xE0 ? 1 : -1;
  if (extra < 0 || static_cast<size_t>(extra) >= s.size() - i) {
    ++i;
    return 0xFFFD;
  }
  char32_t c = b0 & (0x3F >> extra);
  for (int k = 1; k <= extra; ++k) {
    const auto b = static_cast<unsigned char>(s[i + static_cast<size_t>(k)]);
    if ((b & 0xC0) != 0x80) {
      ++i;
      return 0xFFFD;
    }
    c = (c << 6) | (b & 0x3F);
  }
  // Overlong forms and surrogates are malformed too.
  if ((extra == 2 && c < 0x800) || (extra == 3 && (c < 0x10000 || c > 0x10FFFF)) ||
      (c >= 0xD800 && c < 0xE000)) {
    ++i;
    return 0xFFFD;
  }
  i += static_cast<size_t>(extra) + 1;
  return c;
}

inline void appendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

}  // namespace corvane

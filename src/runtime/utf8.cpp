// SPDX-License-Identifier: MIT
#include <corvane/runtime/utf8.h>

namespace corvane::utf8 {

namespace {
inline bool isCont(unsigned char c) { return (c & 0xC0) == 0x80; }
}  // namespace

size_t charSize(std::string_view s, size_t i) {
  auto b = static_cast<unsigned char>(s[i]);
  if (b < 0x80) return 1;
  size_t n;
  char32_t min;
  if (b >= 0xC2 && b <= 0xDF)
    n = 2, min = 0x80;
  else if (b >= 0xE0 && b <= 0xEF)
    n = 3, min = 0x800;
  else if (b >= 0xF0 && b <= 0xF4)
    n = 4, min = 0x10000;
  else
    return 1;
  if (i + n > s.size()) return 1;
  char32_t cp = b & (0x7F >> n);
  for (size_t k = 1; k < n; ++k) {
    auto c = static_cast<unsigned char>(s[i + k]);
    if (!isCont(c)) return 1;
    cp = (cp << 6) | (c & 0x3F);
  }
  // Overlong forms, surrogates and values past U+10FFFF are not well formed.
  if (cp < min || (cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) return 1;
  return n;
}

char32_t decode(std::string_view s, size_t& i) {
  auto b = static_cast<unsigned char>(s[i]);
  if (b < 0x80) {
    ++i;
    return b;
  }
  size_t n = charSize(s, i);
  if (n == 1) {
    ++i;
    return Replacement;
  }
  char32_t cp = b & (0x7F >> n);
  for (size_t k = 1; k < n; ++k) cp = (cp << 6) | (static_cast<unsigned char>(s[i + k]) & 0x3F);
  i += n;
  return cp;
}

void append(std::string& out, char32_t cp) {
  if ((cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) cp = Replacement;
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

std::string encode(char32_t cp) {
  std::string s;
  append(s, cp);
  return s;
}

size_t skip(std::string_view s, size_t from, int64_t& count) {
  size_t i = from;
  const size_t n = s.size();
  while (count > 0 && i < n) {
    // Whole runs of eight ASCII bytes at once.
    if (count >= 8 && i + 8 <= n) {
      uint64_t w;
      std::memcpy(&w, s.data() + i, 8);
      if (!(w & 0x8080808080808080ull)) {
        i += 8;
        count -= 8;
        continue;
      }
    }
    i += static_cast<unsigned char>(s[i]) < 0x80 ? 1 : charSize(s, i);
    --count;
  }
  return i;
}

int64_t length(std::string_view s) {
  int64_t len = 0;
  size_t i = 0;
  const size_t n = s.size();
  while (i < n) {
    if (i + 8 <= n) {
      uint64_t w;
      std::memcpy(&w, s.data() + i, 8);
      if (!(w & 0x8080808080808080ull)) {
        i += 8;
        len += 8;
        continue;
      }
    }
    i += static_cast<unsigned char>(s[i]) < 0x80 ? 1 : charSize(s, i);
    ++len;
  }
  return len;
}

}  // namespace corvane::utf8

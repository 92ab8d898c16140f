// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include <corvane/export.h>

// UTF-8 walking shared by the string helpers. A character is one code point. A byte that does not
// start a well-formed sequence counts as one character of its own (decoded as U+FFFD), so every
// byte string splits into characters and nothing ever cuts inside a well-formed sequence.
namespace corvane::utf8 {

constexpr char32_t Replacement = 0xFFFD;

// True when no byte has the high bit set; checks eight bytes per step.
inline bool isAscii(std::string_view s) {
  const char* p = s.data();
  size_t n = s.size();
  while (n >= 8) {
    uint64_t w;
    std::memcpy(&w, p, 8);
    if (w & 0x8080808080808080ull) return false;
    p += 8;
    n -= 8;
  }
  for (; n; --n, ++p)
    if (static_cast<unsigned char>(*p) & 0x80) return false;
  return true;
}

// Length in bytes of the character starting at byte offset i (i < s.size()); 1 for a stray byte.
CORVANE_API size_t charSize(std::string_view s, size_t i);

// Decodes the character at byte offset i and advances i past it.
CORVANE_API char32_t decode(std::string_view s, size_t& i);

// Appends the UTF-8 form of a code point; surrogates and values past U+10FFFF become U+FFFD.
CORVANE_API void append(std::string& out, char32_t cp);
CORVANE_API std::string encode(char32_t cp);

// Byte offset after skipping `count` characters from byte offset `from`; stops at the end.
// `count` receives the number of characters that could not be skipped.
CORVANE_API size_t skip(std::string_view s, size_t from, int64_t& count);

// Number of characters in s.
CORVANE_API int64_t length(std::string_view s);

}  // namespace corvane::utf8

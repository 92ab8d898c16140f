// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <string_view>

#include "desktop/text_utf8.h"

namespace corvane {

// Whether a code point can be drawn from its own glyph at its own advance, left to right, as the
// platform's text calls draw Latin. Everything else (combining marks, right-to-left and joining
// scripts, Indic and South-East Asian scripts, joiners, variation selectors, emoji sequences) is
// shaped together with the rest of its word.
inline bool drawnOnItsOwn(char32_t c) {
  if (c < 0x0300) return true;                       // Latin, Latin-1, Latin extended, spacing modifiers
  if (c < 0x0370) return false;                      // combining diacritical marks
  if (c < 0x0483) return true;                       // Greek, Cyrillic
  if (c < 0x048A) return false;                      // Cyrillic combining marks
  if (c < 0x0590) return true;                       // Cyrillic supplement, Armenian
  if (c < 0x1E00) return c >= 0x10A0 && c < 0x1100;  // Hebrew to Khmer etc.; Georgian is simple
  if (c < 0x2000) return true;                       // Latin extended additional, Greek extended
  if (c < 0x20D0)
    return !(c >= 0x200B && c <= 0x200F) && !(c >= 0x2028 && c <= 0x202E) && !(c >= 0x2060 && c <= 0x206F);
  if (c < 0x2100) return false;       // combining marks for symbols
  if (c < 0x2C00) return true;        // letterlike, arrows, maths, box drawing, shapes, dingbats
  if (c < 0x2E80) return c < 0x2CEF;  // Glagolitic, Coptic; Tifinagh and the rest are shaped
  if (c < 0xA000) return !(c >= 0x302A && c <= 0x302F) && c != 0x3099 && c != 0x309A;  // CJK, kana
  if (c < 0xA4D0) return true;                                                         // Yi
  if (c >= 0xAC00 && c < 0xD7A4) return true;                                          // Hangul syllables
  if (c >= 0xF900 && c < 0xFB00) return true;  // CJK compatibility ideographs
  if (c >= 0xFF00 && c < 0xFFF0) return true;  // full and half width forms
  if (c == 0xFFFD) return true;
  if (c >= 0x20000 && c < 0x40000) return true;  // CJK extensions
  return false;
}

// Whether a UTF-8 text holds anything that has to be shaped.
inline bool needsShaping(std::string_view text) {
  for (size_t i = 0; i < text.size();) {
    if (static_cast<unsigned char>(text[i]) < 0x80) {
      ++i;
      continue;
    }
    if (!drawnOnItsOwn(nextCodePoint(text, i))) return true;
  }
  return false;
}

}  // namespace corvane

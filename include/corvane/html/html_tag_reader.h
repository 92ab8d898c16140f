// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::html {

// Reads one tag chunk: whether it is a tag, its name and its attributes. The attribute lists are
// refilled by each call of mintExtractTagAttributes.
class CORVANE_API HtmlTagReader {
 public:
  // True when the chunk starts with "<" and ends with ">".
  static bool mIsTagChunk(std::string_view chunk);

  // The upper-cased name of a tag given with its brackets: up to the first blank, or, with no
  // blank, the trimmed tag without its first and last character.
  static std::string mstrTagID(std::string_view tag);

  // Fills mAttrNames and mAttrValues and returns how many attributes were found; a tag with no
  // blank has none. A name is everything between the previous attribute and the "=", so a bare
  // word joins the name behind it. Positions are 16-bit: a longer text overflows (error 6).
  int16_t mintExtractTagAttributes(std::string_view tag);

  std::vector<std::string> mAttrNames;
  std::vector<std::string> mAttrValues;
};

}  // namespace corvane::html

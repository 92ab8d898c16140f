// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/text_font.h"

namespace corvane {

// Breaking a text into the lines DrawTextA shows, and shortening a path to a width.
class TextLayout {
 public:
  struct Line {
    std::string text;                // what is shown, prefix marks taken out
    int32_t width = 0;               // pixels
    std::vector<size_t> underlined;  // byte offsets in text of the letters marked by "&"
  };

  // The lines of a text under DrawTextA flags: CR, LF or CR LF end a line unless DT_SINGLELINE;
  // DT_WORDBREAK breaks at blanks to maxWidth (a word wider than that stays whole); unless
  // DT_NOPREFIX an "&" marks the next letter and "&&" shows one "&".
  static std::vector<Line> lines(TextFont& font, std::string_view text, int32_t flags, int32_t maxWidth);

  // The text itself if it fits; else a path keeps its start and its file name around "..."
  // ("C:\...\file.txt"), and other text is cut and ends with "...".
  static std::string compactPath(TextFont& font, const std::string& path, int32_t maxWidth);

 private:
  static Line stripPrefixes(std::string_view paragraph, bool noPrefix);
  static void wrap(TextFont& font, const Line& paragraph, int32_t maxWidth, std::vector<Line>& out);
  static std::string fitWithEllipsis(TextFont& font, std::string_view text, std::string_view tail,
                                     int32_t maxWidth);
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include "desktop/text_layout.h"

#include "desktop/text_utf8.h"
#include <corvane/platform/types.h>

namespace corvane {

TextLayout::Line TextLayout::stripPrefixes(std::string_view paragraph, bool noPrefix) {
  Line line;
  if (noPrefix || paragraph.find('&') == std::string_view::npos) {
    line.text = paragraph;
    return line;
  }
  for (size_t i = 0; i < paragraph.size(); ++i) {
    if (paragraph[i] != '&') {
      line.text += paragraph[i];
      continue;
    }
    if (i + 1 >= paragraph.size()) break;  // a lone "&" at the end shows nothing
    if (paragraph[i + 1] == '&') {
      line.text += '&';
      ++i;
    } else {
      line.underlined.push_back(line.text.size());
    }
  }
  return line;
}

void TextLayout::wrap(TextFont& font, const Line& paragraph, int32_t maxWidth, std::vector<Line>& out) {
  const std::string& s = paragraph.text;
  const size_t n = s.size();
  const int32_t blank = font.advance(' ');
  size_t pos = 0;
  do {
    // Take words while the line still fits; the first word of a line is taken in any case.
    size_t lineEnd = pos, i = pos;
    int32_t lineWidth = 0;
    bool any = false;
    while (i < n) {
      size_t j = i;
      int32_t w = lineWidth;
      while (j < n && s[j] == ' ') {
        w += blank;
        ++j;
      }
      if (j == n) break;  // blanks at the end of a line are not shown
      size_t k = s.find(' ', j);
      if (k == std::string::npos) k = n;
      w += font.width(std::string_view(s).substr(j, k - j));  // a shaped word is measured whole
      if (any && w > maxWidth) break;
      lineWidth = w;
      lineEnd = k;
      any = true;
      i = k;
      if (w > maxWidth) break;  // a word wider than the line stands alone
    }
    Line line;
    line.text = s.substr(pos, lineEnd - pos);
    line.width = lineWidth;
    for (size_t u : paragraph.underlined)
      if (u >= pos && u < lineEnd) line.underlined.push_back(u - pos);
    out.push_back(std::move(line));
    pos = lineEnd;
    while (pos < n && s[pos] == ' ') ++pos;
  } while (pos < n);
}

std::vector<TextLayout::Line> TextLayout::lines(TextFont& font, std::string_view text, int32_t flags,
                                                int32_t maxWidth) {
  std::vector<Line> out;
  const bool single = flags & DT_SINGLELINE, noPrefix = flags & DT_NOPREFIX;
  size_t start = 0;
  while (true) {
    size_t end = single ? text.size() : text.find_first_of("\r\n", start);
    if (end == std::string_view::npos) end = text.size();
    Line paragraph = stripPrefixes(text.substr(start, end - start), noPrefix);
    if ((flags & DT_WORDBREAK) && !single) {
      wrap(font, paragraph, maxWidth, out);
    } else {
      paragraph.width = font.width(paragraph.text);
      out.push_back(std::move(paragraph));
    }
    if (end >= text.size()) break;
    start = end + ((text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n') ? 2 : 1);
    if (start >= text.size()) break;  // a break at the very end opens no further line
  }
  return out;
}

std::string TextLayout::fitWithEllipsis(TextFont& font, std::string_view text, std::string_view tail,
                                        int32_t maxWidth) {
  // The longest start of text (whole characters) that fits together with "..." and the tail;
  // empty when not even those fit.
  int32_t w = font.width("...") + font.width(tail);
  if (w > maxWidth) return {};
  size_t keep = 0;
  for (size_t i = 0; i < text.size(); keep = i) {
    w += font.advance(nextCodePoint(text, i));
    if (w > maxWidth) break;
  }
  return std::string(text.substr(0, keep)) + "..." + std::string(tail);
}

std::string TextLayout::compactPath(TextFont& font, const std::string& path, int32_t maxWidth) {
  if (font.width(path) <= maxWidth) return path;
  std::vector<size_t> seps;
  for (size_t i = 0; i < path.size(); ++i)
    if (path[i] == '\\' || path[i] == '/') seps.push_back(i);
  if (seps.empty()) return fitWithEllipsis(font, path, "", maxWidth);
  const char sep = path[seps.back()];
  const std::string file = path.substr(seps.back() + 1);
  // Keep as many leading folders as fit, giving them up from the end: "C:\a\...\file.txt", then
  // "C:\...\file.txt", then "...\file.txt".
  for (size_t m = seps.size() - 1; m-- > 0;) {
    std::string candidate = path.substr(0, seps[m]) + sep + "..." + sep + file;
    if (font.width(candidate) <= maxWidth) return candidate;
  }
  std::string candidate = std::string("...") + sep + file;
  if (font.width(candidate) <= maxWidth) return candidate;
  return fitWithEllipsis(font, file, "", maxWidth);  // not even the file name fits: cut it too
}

}  // namespace corvane

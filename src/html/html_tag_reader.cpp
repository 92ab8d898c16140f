// SPDX-License-Identifier: MIT
#include <corvane/html/html_tag_reader.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/indexed_text.h>
#include <corvane/runtime/strings.h>

#include <algorithm>

namespace corvane::html {

bool HtmlTagReader::mIsTagChunk(std::string_view chunk) {
  return !chunk.empty() && chunk.front() == '<' && chunk.back() == '>';
}

std::string HtmlTagReader::mstrTagID(std::string_view tag) {
  int16_t blank = CInt(InStr(tag, " "));
  std::string name;
  if (blank > 0) {
    name = Mid(tag, 2, blank - 2);
  } else {
    std::string trimmed = Trim(tag);
    name = Mid(trimmed, 2, Len(trimmed) - 2);
  }
  return UCase(Trim(name));
}

int16_t HtmlTagReader::mintExtractTagAttributes(std::string_view tag) {
  mAttrNames.clear();
  mAttrValues.clear();
  const IndexedText text{std::string(tag)};
  const int16_t length = CInt(text.Len());
  int16_t pos = CInt(text.InStr(1, " "));
  if (pos == 0) return 0;
  int16_t count = 0;
  while (text.InStr(pos, "=") > 0) {
    const int16_t eq = CInt(text.InStr(add16(pos, 1), "="));
    // The only "=" left stands at pos itself: there is no name before another one, so the tag
    // has no more attributes (reading on would walk the same span again).
    if (eq == 0) break;
    mAttrNames.push_back(Replace(Trim(UCase(text.Mid(pos, eq - pos))), "\t", ""));

    int16_t valueStart = add16(eq, 1);
    while (valueStart <= length && text.midView(valueStart, 1) == " ") valueStart = add16(valueStart, 1);
    const std::string_view first = text.midView(valueStart, 1);
    const std::string delimiter = first == "'" || first == "\"" ? std::string(first) : std::string(" ");

    int16_t end = CInt(text.InStr(add16(valueStart, 1), delimiter));
    std::string value;
    if (end > 0) {
      value = text.Mid(valueStart, end - valueStart);
    } else {
      // No closing delimiter: the value runs to the end, the closing ">" left out.
      value = text.Mid(valueStart, std::max(0, length - valueStart));
      end = length;
    }
    value = Trim(value);
    if (Left(value, 1) == delimiter) value = Mid(value, 2);
    mAttrValues.push_back(value);

    pos = add16(end, 1);
    count = add16(count, 1);
  }
  return count;
}

}  // namespace corvane::html

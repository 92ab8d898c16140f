// SPDX-License-Identifier: MIT
#include <corvane/html/html_decode.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/utf8.h>
#include <corvane/runtime/val.h>
#include <corvane/runtime/win1252.h>

namespace corvane::html {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The references "&#digits" of a text that has one, rebuilt left to right.
std::string decodeReferences(std::string_view value) {
  std::string out;
  out.reserve(value.size());
  size_t i = 0;
  while (i < value.size()) {
    if (value.compare(i, 2, "&#") != 0 || value.find(';', i + 2) == std::string_view::npos) {
      out += value[i++];
      continue;
    }
    size_t j = i + 2;
    int32_t code = 0;
    bool fourDigitsOrMore = false;
    for (; j < value.size() && isDigit(value[j]); ++j) {
      code = code * 10 + (value[j] - '0');
      // From four digits on the number yields nothing; stopping here also keeps it in 16 bits.
      if (code >= 1000) fourDigitsOrMore = true;
      if (fourDigitsOrMore) code = 1000;
    }
    if (j < value.size()) j += utf8::charSize(value, j);  // the ";" or whatever stands there
    if (!fourDigitsOrMore && code <= 255) out += Chr(code);
    i = j;
  }
  return out;
}

}  // namespace

std::string mDecodeText(std::string_view value) {
  std::string text =
      value.find("&#") == std::string_view::npos ? std::string(value) : decodeReferences(value);
  text = Replace(text, "\r\n", " ");
  text = Replace(text, "\n", " ");
  return Replace(text, "\t", " ");
}

int32_t colorFromHexDigits(std::string_view digits) {
  auto pair = [&](int32_t start) { return static_cast<int32_t>(Val("&H" + Mid(digits, start, 2))); };
  return pair(1) + pair(3) * 256 + pair(5) * 65536;
}

int32_t mColorFromName(std::string_view name) {
  static const std::pair<const char*, const char*> names[] = {
      {"black", "000000"},  {"maroon", "800000"},  {"green", "008000"},  {"navy", "000080"},
      {"silver", "C0C0C0"}, {"red", "FF0000"},     {"lime", "00FF00"},   {"blue", "0000FF"},
      {"gray", "808080"},   {"purple", "800080"},  {"olive", "808000"},  {"teal", "008080"},
      {"white", "FFFFFF"},  {"fuchsia", "FF00FF"}, {"yellow", "FFFF00"}, {"aqua", "00FFFF"},
  };
  std::string lower = LCase(name);
  for (const auto& [known, hex] : names)
    if (lower == known) return colorFromHexDigits(hex);
  return colorFromHexDigits("000000");
}

int32_t colorFromAttribute(std::string_view value) {
  std::string digits = Replace(value, "#", "");
  if (IsNumeric("&H" + digits)) return colorFromHexDigits(digits);
  return mColorFromName(digits);
}

}  // namespace corvane::html

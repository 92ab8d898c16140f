// SPDX-License-Identifier: MIT
#include <corvane/html/html_source.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/win1252.h>

#include <utility>

namespace corvane::html {

namespace {

// The entity table, in its order. The comparison ignores case, so "&Auml;" is already gone
// (as a lower-case letter) when its own row comes; those rows never match, and that stays.
const std::pair<const char*, std::string>* entityTable(size_t& count) {
  static const std::pair<const char*, std::string> table[] = {
      {"&lt;", "&#060;"},     {"&gt;", "&#062;"},     {"&quot;", "&#034;"},   {"&copy;", "&#169;"},
      {"&deg;", "&#176;"},    {"&amp;", "&#038;"},    {"&middot;", "&#183;"}, {"&agrave;", "&#224;"},
      {"&aacute;", "&#225;"}, {"&egrave;", "&#232;"}, {"&eacute;", "&#233;"}, {"&euml;", "&#235;"},
      {"&auml;", Chr(228)},   {"&ouml;", Chr(246)},   {"&uuml;", Chr(252)},   {"&Auml;", Chr(196)},
      {"&Ouml;", Chr(214)},   {"&Uuml;", Chr(220)},
  };
  count = std::size(table);
  return table;
}

bool equalsAsciiNoCase(std::string_view text, size_t at, std::string_view name) {
  if (text.size() - at < name.size()) return false;
  for (size_t k = 0; k < name.size(); ++k) {
    char a = text[at + k], b = name[k];
    if (a >= 'A' && a <= 'Z') a = static_cast<char>(a - 'A' + 'a');
    if (b >= 'A' && b <= 'Z') b = static_cast<char>(b - 'A' + 'a');
    if (a != b) return false;
  }
  return true;
}

// One pass that gives what replacing row after row of the table does: every name starts with
// its only "&" and ends with ";", so no two matches overlap, and no replacement can form a name
// with its neighbours. At each "&" the first row of the table that matches wins.
std::string replaceEntities(const std::string& text) {
  size_t count = 0;
  const auto* entities = entityTable(count);
  std::string out;
  out.reserve(text.size());
  size_t i = 0;
  while (i < text.size()) {
    size_t amp = text.find('&', i);
    if (amp == std::string::npos) break;
    out.append(text, i, amp - i);
    i = amp;
    const std::pair<const char*, std::string>* hit = nullptr;
    for (size_t k = 0; k < count && !hit; ++k)
      if (equalsAsciiNoCase(text, amp, entities[k].first)) hit = &entities[k];
    if (hit) {
      out += hit->second;
      i += std::char_traits<char>::length(hit->first);
    } else {
      out += '&';
      ++i;
    }
  }
  out.append(text, i, std::string::npos);
  return out;
}

}  // namespace

std::string normaliseHtmlSource(std::string_view value) {
  std::string text(value);
  if (InStr(UCase(text), "<BODY") == 0) text = "<BODY>" + text + "</BODY>";
  if (InStr(UCase(text), "<HTML>") == 0) text = "<HTML>" + text + "</HTML>";
  text = replaceEntities(text);
  text = Replace(text, "\t", " ");
  for (int pass = 0; pass < 3; ++pass) text = Replace(text, "  ", " ");
  return text;
}

}  // namespace corvane::html

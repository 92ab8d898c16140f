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

}  // namespace

std::string normaliseHtmlSource(std::string_view value) {
  std::string text(value);
  if (InStr(UCase(text), "<BODY") == 0) text = "<BODY>" + text + "</BODY>";
  if (InStr(UCase(text), "<HTML>") == 0) text = "<HTML>" + text + "</HTML>";
  size_t count = 0;
  const auto* entities = entityTable(count);
  for (size_t i = 0; i < count; ++i)
    text = Replace(text, entities[i].first, entities[i].second, 1, -1, CompareMethod::Text);
  text = Replace(text, "\t", " ");
  for (int pass = 0; pass < 3; ++pass) text = Replace(text, "  ", " ");
  return text;
}

}  // namespace corvane::html

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/html/html_dump.h>
#include <corvane/html/vex_html.h>

#include <memory>
#include <string>

namespace corvane::test {

// A view that is not sited on a form: setting Text parses, and nothing is drawn.
inline std::shared_ptr<VexHTML> parsedView(const std::string& text, bool anchors = false) {
  auto view = std::make_shared<VexHTML>();
  view->setEnableAnchors(anchors);
  view->setText(text);
  return view;
}

inline std::string dumpOf(const std::string& text, bool anchors = false) {
  return html::dumpHtmlDocument(parsedView(text, anchors)->document());
}

// The chunk at `index` of a parsed text; index 2 is the first chunk behind "<HTML><BODY>".
inline html::HtmlChunk chunkOf(const std::string& text, int32_t index = 2) {
  return parsedView(text)->document().chunk(index);
}

}  // namespace corvane::test

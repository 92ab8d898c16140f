// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <corvane/html/html_document.h>

#include <string>

namespace corvane::html {

// A plain-text picture of a parsed document, for tests and debugging. A first line gives the
// page values; then one line per chunk of the array, those beyond mChunkCount included:
//
//   3 [16] "<P ALIGN=center>" AlignCenter parent=1 kids=1 first=4 next=6
//
// index, [tag id], the source in quotes, the fields that differ from a fresh chunk (flags by
// name, values as Name=value, colours as &H...), the words of a text chunk, the Parent field, the
// child count, and the first child and next sibling as layout finds them ("-" for none). Control
// characters and quotes in texts are escaped (\n, \x00, \").
CORVANE_API std::string dumpHtmlDocument(const HtmlDocument& document);

// One chunk's line, without the index and tree part: [id] "source" fields words=[...].
CORVANE_API std::string describeHtmlChunk(const HtmlChunk& chunk);

}  // namespace corvane::html

// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <corvane/html/html_document.h>

#include <string_view>

namespace corvane::html {

// Cuts the normalised source of a document into chunks and classifies each: its tag id, the
// defaults of that id, its attributes, and for text the words. Failing statements are skipped,
// so a bad attribute value leaves its field at the default.
class CORVANE_API HtmlTokenizer {
 public:
  explicit HtmlTokenizer(HtmlDocument& document) : m_doc(document) {}

  // Fills mChunks from mText. A comment is one chunk up to its "-->"; a stray "<" with no ">"
  // behind it starts text behind itself; text behind the last tag is dropped. Positions are
  // 16-bit: the split ends where one no longer fits, and at a comment with no "-->".
  void mSplitChunks();
  // Classifies chunks 0 to mChunkCount - 1.
  void mClassifyAll();
  void mClassifyChunk(HtmlChunk& chunk);
  // Applies the attributes last read by the tag reader to a tag chunk.
  void mApplyAttributes(HtmlChunk& chunk);

 private:
  void appendChunk(std::string_view source, int16_t glue);
  void setTagDefaults(HtmlChunk& chunk, const std::string& name);
  void applyAttribute(HtmlChunk& chunk, const std::string& name, const std::string& value);

  HtmlDocument& m_doc;
};

}  // namespace corvane::html

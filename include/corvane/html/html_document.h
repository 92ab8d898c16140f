// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <corvane/html/html_chunk.h>
#include <corvane/html/html_tag_reader.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::html {

// The properties of the view that parsing reads, and the one it writes (a TEXT attribute sets
// DefaultTextColor for the whole view).
struct CORVANE_API HtmlViewDefaults {
  std::string DefaultFontName = "Arial";
  float DefaultFontSize = 10;
  int32_t DefaultTextColor = 0;
  int32_t BackColor = static_cast<int32_t>(0x8000000F);
  bool EnableAnchors = false;
};

// The parse state of the HTML view: the normalised source, the flat array of chunks with the tree
// threaded through it, and the page values that tags set. setText runs the whole pipeline;
// HtmlTokenizer and HtmlTree hold its steps.
class CORVANE_API HtmlDocument {
 public:
  HtmlDocument() = default;
  explicit HtmlDocument(HtmlViewDefaults defaults) : view(std::move(defaults)) {}

  // Normalises the value into mText (and takes the page colour from BackColor); nothing more.
  void normalise(std::string_view value);
  // The steps behind the normalisation: split, classify, repair, collect links, build the tree.
  void parse();
  // Both, as setting the view's Text does (without its report to the host and its redraw).
  void setText(std::string_view value);

  // The chunk at an index of the array; outside it is error 9.
  HtmlChunk& chunk(int32_t index);
  const HtmlChunk& chunk(int32_t index) const;
  // The array's upper bound: chunks inserted by the repair lie beyond mChunkCount - 1.
  int32_t upperBound() const { return static_cast<int32_t>(mChunks.size()) - 1; }

  // The tree as layout reads it; each gives a copy of the chunk it found. A child of chunk 0
  // has no parent here, and so no next sibling either.
  bool mParentOf(const HtmlChunk& chunk, HtmlChunk& result) const;
  bool mAncestorOf(const HtmlChunk& chunk, HtmlChunk& result, int32_t tagId) const;
  bool mFirstChild(const HtmlChunk& chunk, HtmlChunk& result) const;
  bool mNextSibling(const HtmlChunk& chunk, HtmlChunk& result) const;

  HtmlViewDefaults view;
  std::string mText;
  std::vector<HtmlChunk> mChunks;  // lower bound 0
  int16_t mChunkCount = 0;         // the logical number of chunks
  HtmlTagReader tagReader;         // holds mAttrNames and mAttrValues
  int16_t mBodyIndex = 0;          // the last BODY or NOFRAMES chunk
  int32_t mBodyColor = static_cast<int32_t>(0x8000000F);
  std::string mBackgroundSource;
  std::vector<int16_t> mAnchors;  // the links, in the order of the text
  int16_t mAnchorCount = 0;
};

}  // namespace corvane::html

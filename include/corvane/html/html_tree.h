// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <corvane/html/html_document.h>

#include <cstdint>

namespace corvane::html {

// The structure of a document over its flat chunk array: missing closers added, the list of
// links, and parent and child links threaded through the chunks. A node is a chunk.
class CORVANE_API HtmlTree {
 public:
  explicit HtmlTree(HtmlDocument& document) : m_doc(document) {}

  // Adds "</P>", "</TR>" and "</TD>" where a paragraph, row or cell is left open (three passes).
  // A missing "</TD>" gets the id of a row's end, so such a cell ends the row for layout. An
  // inserted chunk is a copy of the one it was put in front of, apart from its id and source;
  // mChunkCount does not change, so as many chunks as were inserted fall outside it at the end.
  void mRepairNesting();
  // The links (id 41) below mChunkCount, when the view's EnableAnchors is set.
  void mCollectAnchors();
  // Threads the tree through chunks 0 to mChunkCount - 1, chunk 0 being the root.
  void mBuildHierarchy();
  // One level of the tree below `parent`, starting behind `index`; returns its child count.
  // Any closer ends the current level, whether it matches or not. Nested levels are walked with
  // a stack of their own, so the depth of a document is limited by memory only.
  int16_t mBuildLevel(int16_t& index, int16_t parent);

 private:
  HtmlDocument& m_doc;
};

}  // namespace corvane::html

// SPDX-License-Identifier: MIT
#include <corvane/html/html_tags.h>
#include <corvane/html/html_tree.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>

#include <vector>

#include "html/html_nesting_repair.h"

namespace corvane::html {

void HtmlTree::mRepairNesting() { HtmlNestingRepair(m_doc).run(); }

// ---- links ----

void HtmlTree::mCollectAnchors() {
  m_doc.mAnchors.clear();
  m_doc.mAnchorCount = 0;
  if (!m_doc.view.EnableAnchors) return;
  for (int32_t i = 0; i < m_doc.mChunkCount; ++i) {
    if (m_doc.chunk(i).TagID != TagAnchor) continue;
    m_doc.mAnchors.push_back(CInt(i));
    m_doc.mAnchorCount = add16(m_doc.mAnchorCount, 1);
  }
}

// ---- tree ----

void HtmlTree::mBuildHierarchy() {
  if (m_doc.mChunkCount <= 0) return;
  int16_t index = 0;
  int16_t count = mBuildLevel(index, 0);
  m_doc.chunk(0).ChildCount = count;
}

int16_t HtmlTree::mBuildLevel(int16_t& index, int16_t parent) {
  struct Level {
    int16_t parent;
    int16_t count;
  };
  std::vector<Level> levels{{parent, 0}};
  for (;;) {
    Level& level = levels.back();
    bool finished = index >= m_doc.mChunkCount;
    if (!finished) {
      index = add16(index, 1);
      finished = index >= m_doc.mChunkCount;
    }
    if (!finished) {
      HtmlChunk& owner = m_doc.chunk(level.parent);
      owner.Children.resize(static_cast<size_t>(level.count) + 1);
      owner.Children[static_cast<size_t>(level.count)] = index;
      HtmlChunk& child = m_doc.chunk(index);
      child.Parent = owner.Index;
      child.ChildPos = level.count;
      if (child.TagID != TagText && isContainerTag(child.TagID)) {
        levels.push_back({index, 0});
        continue;
      }
      // A closer ends the level before the count grows: it has its place but is not counted.
      finished = child.TagID != TagText && isCloserTag(child.TagID);
      if (!finished) {
        level.count = add16(level.count, 1);
        continue;
      }
    }
    // The level is done: its count goes to its owner, which counts as one child of the level above.
    Level done = levels.back();
    levels.pop_back();
    if (levels.empty()) return done.count;
    m_doc.chunk(done.parent).ChildCount = done.count;
    levels.back().count = add16(levels.back().count, 1);
  }
}

}  // namespace corvane::html

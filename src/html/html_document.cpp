// SPDX-License-Identifier: MIT
#include <corvane/html/html_document.h>
#include <corvane/html/html_source.h>
#include <corvane/html/html_tokenizer.h>
#include <corvane/html/html_tree.h>
#include <corvane/runtime/runtime_error.h>

namespace corvane::html {

void HtmlDocument::normalise(std::string_view value) {
  mBodyColor = view.BackColor;
  mText = normaliseHtmlSource(value);
}

void HtmlDocument::parse() {
  HtmlTokenizer tokenizer(*this);
  tokenizer.mSplitChunks();
  mBodyIndex = 0;
  mBackgroundSource.clear();
  tokenizer.mClassifyAll();
  HtmlTree tree(*this);
  tree.mRepairNesting();
  tree.mCollectAnchors();
  tree.mBuildHierarchy();
}

void HtmlDocument::setText(std::string_view value) {
  normalise(value);
  parse();
}

HtmlChunk& HtmlDocument::chunk(int32_t index) {
  if (index < 0 || index > upperBound()) throw RuntimeError(err::SubscriptOutOfRange);
  return mChunks[static_cast<size_t>(index)];
}

const HtmlChunk& HtmlDocument::chunk(int32_t index) const {
  if (index < 0 || index > upperBound()) throw RuntimeError(err::SubscriptOutOfRange);
  return mChunks[static_cast<size_t>(index)];
}

bool HtmlDocument::mParentOf(const HtmlChunk& node, HtmlChunk& result) const {
  if (node.Parent < 1) return false;
  result = chunk(node.Parent);
  return true;
}

bool HtmlDocument::mAncestorOf(const HtmlChunk& node, HtmlChunk& result, int32_t tagId) const {
  HtmlChunk current;
  if (!mParentOf(node, current)) return false;
  // Parents stand before their children, so the walk ends.
  while (current.TagID != tagId) {
    HtmlChunk up;
    if (!mParentOf(current, up)) return false;
    current = std::move(up);
  }
  result = std::move(current);
  return true;
}

bool HtmlDocument::mFirstChild(const HtmlChunk& node, HtmlChunk& result) const {
  if (node.ChildCount < 1 || node.Children.empty()) return false;
  result = chunk(node.Children[0]);
  return true;
}

bool HtmlDocument::mNextSibling(const HtmlChunk& node, HtmlChunk& result) const {
  HtmlChunk parent;
  if (!mParentOf(node, parent)) return false;
  size_t next = static_cast<size_t>(node.ChildPos) + 1;
  if (static_cast<int32_t>(next) >= parent.ChildCount || next >= parent.Children.size()) return false;
  result = chunk(parent.Children[next]);
  return true;
}

}  // namespace corvane::html

// SPDX-License-Identifier: MIT
#include "html/html_nesting_repair.h"

#include <corvane/html/html_tags.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>

#include <algorithm>

namespace corvane::html {

HtmlNestingRepair::HtmlNestingRepair(HtmlDocument& document) : m_doc(document) {
  m_rows.reserve(m_doc.mChunks.size());
  for (size_t i = 0; i < m_doc.mChunks.size(); ++i)
    m_rows.push_back({m_doc.mChunks[i].TagID, static_cast<int32_t>(i), nullptr});
}

void HtmlNestingRepair::run() {
  guarded([&] { repairParagraphs(); });
  guarded([&] { repairRowsOrCells(TagRow, TagRowEnd, {TagRow, TagTableEnd}, "</TR>"); });
  // A cell without its close tag gets the id of a row's end, not of a cell's: it ends the row.
  guarded([&] { repairRowsOrCells(TagCell, TagCellEnd, {TagCell, TagRowEnd, TagTableEnd}, "</TD>"); });
  if (m_inserted) writeBack();
}

void HtmlNestingRepair::mInsertRecord(int32_t index) {
  if (index < 0 || index > upperBound()) throw RuntimeError(err::SubscriptOutOfRange);
  // Index stays 16-bit: one place more than that cannot be given.
  CInt(static_cast<double>(m_rows.size()));
  m_rows.insert(m_rows.begin() + index, m_rows[static_cast<size_t>(index)]);
  m_inserted = true;
}

void HtmlNestingRepair::insertCloser(int32_t index, int32_t id, const char* source) {
  mInsertRecord(index);
  m_rows[static_cast<size_t>(index)].tagId = id;
  m_rows[static_cast<size_t>(index)].source = source;
}

void HtmlNestingRepair::repairParagraphs() {
  int32_t i = 0;
  while (i <= upperBound()) {
    if (m_rows[i].tagId != TagParagraph) {
      ++i;
      continue;
    }
    int32_t j = i + 1;
    bool closed = false;
    for (; j <= upperBound(); ++j) {
      int32_t id = m_rows[j].tagId;
      if (id == TagParagraphEnd) {
        closed = true;
        break;
      }
      if (id == TagParagraph || id == TagTable || id == TagCellEnd) break;
    }
    if (closed) {
      i = j + 2;  // the chunk right behind the close is never looked at
    } else if (j > upperBound()) {
      ++i;
    } else {
      insertCloser(j, TagParagraphEnd, "</P>");
      i = j + 1;
    }
  }
}

void HtmlNestingRepair::repairRowsOrCells(int32_t opener, int32_t closer, std::vector<int32_t> stoppers,
                                          const char* source) {
  int32_t i = 0;
  while (i <= upperBound()) {
    if (m_rows[i].tagId != opener) {
      ++i;
      continue;
    }
    // The tags of a nested table are counted by depth and stop nothing.
    int32_t depth = 0;
    for (int32_t j = i + 1; j <= upperBound(); ++j) {
      int32_t id = m_rows[j].tagId;
      if (depth > 0) {
        if (id == TagTable) ++depth;
        if (id == TagTableEnd) --depth;
      } else if (id == closer) {
        break;
      } else if (id == TagTable) {
        depth = 1;
      } else if (std::find(stoppers.begin(), stoppers.end(), id) != stoppers.end()) {
        insertCloser(j, TagRowEnd, source);
        break;
      }
    }
    i += 2;
  }
}

void HtmlNestingRepair::writeBack() {
  std::vector<HtmlChunk> chunks;
  chunks.reserve(m_rows.size());
  for (size_t k = 0; k < m_rows.size(); ++k) {
    const Row& row = m_rows[k];
    chunks.push_back(m_doc.mChunks[static_cast<size_t>(row.contentsOf)]);
    HtmlChunk& chunk = chunks.back();
    chunk.TagID = row.tagId;
    if (row.source) chunk.Source = row.source;
    // Each chunk moved by an insertion took its new place as Index; the one left at the place
    // kept its Index, which is that place too.
    chunk.Index = static_cast<int16_t>(k);
  }
  m_doc.mChunks = std::move(chunks);
}

}  // namespace corvane::html

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/html/html_document.h>

#include <cstdint>
#include <vector>

namespace corvane::html {

// The three repair passes over a document's chunks: "</P>", "</TR>" and "</TD>" inserted where a
// paragraph, row or cell is left open. The passes read only tag ids, so they work on a light
// table of rows (id, which chunk's contents, new source) and the chunk array is rebuilt once at
// the end; a long document with many open paragraphs thus costs no copying of whole chunks per
// insertion.
class HtmlNestingRepair {
 public:
  explicit HtmlNestingRepair(HtmlDocument& document);

  // Runs the passes in their order and writes the result back into the document. A pass that
  // fails stops where it stands, and the next runs.
  void run();

  // Opens a place at `index`: every row from there moves one up, and the row left at `index`
  // keeps what it held until the caller gives it its id and source.
  void mInsertRecord(int32_t index);

 private:
  struct Row {
    int32_t tagId;
    int32_t contentsOf;  // the original chunk whose fields the row carries
    const char* source;  // nullptr: the original source; else the inserted closer's
  };

  int32_t upperBound() const { return static_cast<int32_t>(m_rows.size()) - 1; }
  void insertCloser(int32_t index, int32_t id, const char* source);
  void repairParagraphs();
  void repairRowsOrCells(int32_t opener, int32_t closer, std::vector<int32_t> stoppers, const char* source);
  void writeBack();

  HtmlDocument& m_doc;
  std::vector<Row> m_rows;
  bool m_inserted = false;
};

}  // namespace corvane::html

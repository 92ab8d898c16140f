// SPDX-License-Identifier: MIT
// The table handlers of the layout walk: a fixed stack of open tables, and the heights that a
// measuring pass leaves in the chunks for the drawing pass.
#include <corvane/html/html_layout.h>
#include <corvane/html/html_tags.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/runtime_error.h>

namespace corvane::html {

namespace {
float f(int32_t v) { return static_cast<float>(v); }

// A place of a fixed array; outside it is the swallowed bounds failure of the walk.
template <class A>
auto& cwAt(A& array, int64_t index) {
  if (index < 0 || index >= static_cast<int64_t>(array.size())) throw RuntimeError(err::SubscriptOutOfRange);
  return array[static_cast<size_t>(index)];
}
}  // namespace

HtmlTableFrame& HtmlLayout::frame(int32_t depth) {
  if (depth < 0 || depth >= static_cast<int32_t>(tables.size())) throw RuntimeError(err::SubscriptOutOfRange);
  return tables[static_cast<size_t>(depth)];
}

void HtmlLayout::handleTable(HtmlChunk& c, bool final) {
  if (tableDepth < 0) tableDepth = 0;
  HtmlTableFrame& T = frame(tableDepth);
  const bool nested = inTable;
  if (!inTable) {
    if (Y > m_set.DefaultPadding || (Y == m_set.DefaultPadding && m_page.CurrentX() > LM)) {
      blockBreak();
      c.Top = Y;
    }
  }
  inTable = true;
  T.Width = c.Width <= 1.0f ? CLng(c.Width * (RM - 2 * m_set.DefaultPadding - LM)) : CLng(c.Width);
  c.LayoutWidth = T.Width;
  mColumnWidths(c);
  T.Top = Y;
  T.RowTop = Y + c.Border + c.CellSpacing;
  T.RowHeight = 0;
  T.Border = c.Border;
  if (final) {
    T.Height = c.LayoutHeight;
  } else {
    T.Height = c.Height <= 1.0f ? 2 * c.Border : CLng(c.Height);
  }
  T.CellSpacing = c.CellSpacing;
  T.CellPadding = c.CellPadding;
  T.ChunkIndex = static_cast<int16_t>(i);
  const int32_t plainLeft = nested ? LM + T.CellPadding : LM;
  if (c.AlignCenter) {
    T.Left = (RM - LM - T.Width) / 2 + LM;
    if (T.Left < LM) T.Left = plainLeft;
  } else {
    T.Left = plainLeft;
  }
  if (final) {
    if (c.HasBgColor)
      m_page.Line(f(T.Left), f(T.Top), f(T.Left + T.Width - 1), f(T.Top + T.Height + T.CellSpacing - 1),
                  c.BgColor, true, true);
    if (T.Border > 0)
      draw3DFrame(false, T.Left, T.Top, T.Left + T.Width + 1, T.Top + T.Height + T.CellSpacing - 1);
  }
  T.SavedCenter = c.AlignCenter && centerOn ? -1 : 0;
  centerOn = false;
  ++tableDepth;
  if (!final && m_set.EnableScroll != 0)
    mDocWidth = std::max(mDocWidth, c.LayoutWidth + m_set.DefaultPadding);
}

void HtmlLayout::handleRow(HtmlChunk& c) {
  marginReturn();
  c.IndentX = X - LM;
  HtmlTableFrame& T = frame(tableDepth - 1);
  T.RowHeight = c.Height <= 1.0f ? T.CellSpacing : CLng(c.Height);
  T.CellX = T.Border + T.CellSpacing;
  T.Column = 0;
}

void HtmlLayout::handleCell(HtmlChunk& d, bool final) {
  HtmlTableFrame& T = frame(tableDepth - 1);
  centerOn = d.AlignCenter != 0;
  rightOn = d.AlignRight != 0;
  LM = T.Left + T.CellX + T.Border + T.CellPadding;
  RM = T.Left + T.CellX + d.LayoutWidth - 2 * T.Border - T.CellPadding;
  T.CellRight = RM;
  X = LM;
  auto& column = cwAt(T.Columns, T.Column);
  column[0] = T.Left + T.CellX;
  column[1] = RM + T.CellPadding + T.Border;
  if (column[1] - T.Left > T.Width) T.Width = column[1] - T.Left;
  ++T.Column;
  if (!final && m_set.EnableScroll != 0) mDocWidth = std::max(mDocWidth, T.Width);
  if (!final) {
    Y = T.RowTop + T.Border + T.CellPadding;
    d.LayoutHeight = Y;
    return;
  }
  HtmlChunk parent;
  int32_t h = T.RowHeight;
  if (m_doc.mParentOf(d, parent)) h = parent.RowHeight - (T.Border == 0 ? 1 : 0);
  if (d.HasBgColor)
    m_page.Line(f(T.Left + T.CellX + T.Border), f(T.RowTop + T.Border),
                f(RM + T.CellPadding - (T.Border == 0 ? 1 : 0)), f(T.RowTop + h - T.Border), d.BgColor, true,
                true);
  switch (d.VAlign) {
    case 3:
      Y = CLng(T.RowTop + T.CellSpacing / 2.0 + T.CellPadding);
      break;
    case 4:
      Y = T.RowTop + (h - d.LayoutHeight) / 2;
      break;
    case 5:
      Y = CLng(T.RowTop + h - d.LayoutHeight - T.CellSpacing / 2.0 - 2 * T.CellPadding);
      break;
    default:
      break;
  }
}

void HtmlLayout::handleCellEnd(HtmlChunk& c, bool final) {
  HtmlTableFrame& T = frame(tableDepth - 1);
  HtmlChunk cell;
  const bool hasCell = m_doc.mParentOf(c, cell);
  if (!final && hasCell) {
    HtmlChunk& d = m_doc.chunk(cell.Index);
    d.LayoutHeight = Y - d.LayoutHeight + LH - m_set.DefaultSpacing;
  }
  if (LH != lineHeightOfFont()) {
    if (m_page.CurrentY() < Y + LH) m_page.setCurrentY(f(Y + LH));
    LH = lineHeightOfFont();
  }
  HtmlChunk row;
  if (final) {
    if (hasCell && m_doc.mParentOf(cell, row)) T.RowHeight = row.RowHeight;
  } else if (m_page.CurrentY() - T.RowTop > T.RowHeight) {
    T.RowHeight = static_cast<int32_t>(m_page.CurrentY()) - T.RowTop;
  }
  // The cell just ended is the last one placed in the row.
  T.CellX = cwAt(T.Columns, T.Column - 1)[1] + T.CellSpacing + T.Border - T.Left;
  rightOn = centerOn = false;
  HtmlChunk found;
  if (m_doc.mAncestorOf(c, found, TagDiv)) {
    rightOn = found.AlignRight != 0;
    centerOn = found.AlignCenter != 0;
  } else if (hasCell && m_doc.mAncestorOf(cell, found, TagCell)) {
    rightOn = found.AlignRight != 0;
    centerOn = found.AlignCenter != 0;
  } else if (m_doc.mAncestorOf(c, found, TagCenter)) {
    centerOn = true;
  }
}

void HtmlLayout::handleRowEnd(HtmlChunk& c, bool final) {
  HtmlTableFrame& T = frame(tableDepth - 1);
  if (Y <= T.RowTop) Y += LH;
  marginReturn();
  if (!final) T.Height += T.RowHeight + T.CellSpacing + T.Border;
  if (T.Border > 0)
    for (int32_t k = 0; k < T.Column && k < static_cast<int32_t>(T.Columns.size()); ++k)
      draw3DFrame(true, T.Columns[static_cast<size_t>(k)][0], T.RowTop, T.Columns[static_cast<size_t>(k)][1],
                  T.RowTop + T.RowHeight);
  HtmlChunk row;
  if (!final && m_doc.mParentOf(c, row)) m_doc.chunk(row.Index).RowHeight = T.RowHeight;
  T.RowTop += T.RowHeight + T.CellSpacing + T.Border;
}

void HtmlLayout::handleTableEnd(HtmlChunk& c, bool final) {
  HtmlTableFrame& T = frame(tableDepth - 1);
  c.Bottom = T.Top + T.Height - 1 + LH + m_set.DefaultSpacing;
  HtmlChunk table;
  if (!final && m_doc.mParentOf(c, table)) m_doc.chunk(table.Index).LayoutHeight = T.Height;
  const int32_t endedTop = T.Top, endedHeight = T.Height, endedSpacing = T.CellSpacing;
  --tableDepth;
  blockBreak();
  if (tableDepth > 0) {
    HtmlTableFrame& outer = frame(tableDepth - 1);
    LM = outer.Left + outer.CellX + outer.CellPadding;
    X = LM + LI;
    centerOn = outer.SavedCenter != 0;
  } else {
    inTable = false;
    LM = m_set.DefaultPadding;
    X = LM;
    RM = static_cast<int32_t>(m_page.ScaleWidth());
  }
  Y = endedTop + endedHeight - endedSpacing / 2;
  LH = lineHeightOfFont();
}

void HtmlLayout::mColumnWidths(HtmlChunk& table) {
  std::array<float, 17> cw{};
  HtmlChunk firstRow;
  const HtmlChunk* rowPtr = nullptr;
  std::vector<int32_t> rows;
  for (int16_t k : table.Children)
    if (k >= 0 && k <= m_doc.upperBound() && m_doc.chunk(k).IsTag && m_doc.chunk(k).TagID == TagRow)
      rows.push_back(k);
  if (rows.empty()) return;
  rowPtr = &m_doc.chunk(rows.front());
  int32_t N = 0;
  for (int16_t k : rowPtr->Children) {
    const HtmlChunk& cell = m_doc.chunk(k);
    if ((cell.IsTag && cell.TagID == TagCell) || cell.ColSpan > 1) N += cell.ColSpan;
  }
  const float avail = static_cast<float>(table.LayoutWidth - (N + 1) * table.CellSpacing);
  const HtmlChunk* reference = nullptr;
  for (int32_t r : rows) {
    bool plain = true;
    for (int16_t k : m_doc.chunk(r).Children) {
      const HtmlChunk& cell = m_doc.chunk(k);
      if (cell.IsTag && cell.TagID == TagCell && cell.ColSpan > 1) plain = false;
    }
    if (plain) {
      reference = &m_doc.chunk(r);
      break;
    }
  }
  float fixed = 0;
  int32_t autoCount = 0;
  if (reference) {
    size_t j = 0;
    for (int16_t k : reference->Children) {
      const HtmlChunk& cell = m_doc.chunk(k);
      if (!cell.IsTag || cell.TagID != TagCell) continue;
      if (j >= cw.size()) throw RuntimeError(err::SubscriptOutOfRange);
      if (cell.Width < 1.0f) {
        cw[j] = cell.Width * avail;
        fixed += cw[j];
      } else if (cell.Width > 1.0f) {
        cw[j] = cell.Width;
        fixed += cw[j];
      } else {
        cw[j] = 1.0f;
        ++autoCount;
      }
      ++j;
    }
  } else {
    for (int32_t j = 0; j < N; ++j) cwAt(cw, static_cast<size_t>(j)) = avail * (1.0f / static_cast<float>(N));
  }
  float total = 0;
  for (int32_t j = 0; j < N; ++j) {
    float& w = cwAt(cw, static_cast<size_t>(j));
    if (w == 1.0f && autoCount > 0) w = static_cast<float>(CLng(avail - fixed) / autoCount);
    total += w;
  }
  if (total <= 1.0f || table.Width <= 1.0f || total <= static_cast<float>(table.LayoutWidth)) {
    if (total < static_cast<float>(table.LayoutWidth) && total > 0)
      for (int32_t j = 0; j < N; ++j)
        cwAt(cw, static_cast<size_t>(j)) = cwAt(cw, static_cast<size_t>(j)) / total * avail;
  } else {
    table.LayoutWidth = CLng(total);
  }
  for (int32_t r : rows) {
    size_t j = 0;
    for (int16_t k : m_doc.chunk(r).Children) {
      HtmlChunk& cell = m_doc.chunk(k);
      if (!cell.IsTag || cell.TagID != TagCell) continue;
      cell.LayoutWidth = 0;
      for (int32_t s = 0; s < cell.ColSpan; ++s)
        cell.LayoutWidth = CLng(cwAt(cw, static_cast<int64_t>(j++)) + cell.LayoutWidth);
    }
  }
}

}  // namespace corvane::html

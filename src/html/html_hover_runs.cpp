// SPDX-License-Identifier: MIT
#include <corvane/html/html_hover_runs.h>
#include <corvane/platform/api.h>

#include <algorithm>

namespace corvane::html {

namespace {
// The kept pixels are packed in rows into sheets of this size; a run that does not fit one sheet
// makes the pass unusable for quick repaints, and so do too many sheets.
constexpr int32_t kSheetWidth = 1024, kSheetHeight = 512;
constexpr size_t kMaxSheets = 16;
}  // namespace

HtmlHoverRuns::~HtmlHoverRuns() { release(); }

void HtmlHoverRuns::release() {
  if (currentPlatform()) {
    if (m_dc) {
      gdi().SelectObject(m_dc, m_original);
      gdi().DeleteDC(m_dc);
    }
    for (HBITMAP sheet : m_sheets) gdi().DeleteObject(sheet);
  }
  m_dc = 0;
  m_sheets.clear();
  m_runs.clear();
  m_selected = SIZE_MAX;
  m_valid = false;
}

void HtmlHoverRuns::begin() {
  m_runs.clear();
  m_shelfX = m_shelfY = m_shelfHeight = 0;
  m_sheet = 0;
  m_valid = false;
  m_overflow = false;
}

bool HtmlHoverRuns::place(int32_t width, int32_t height, size_t& sheet, int32_t& x, int32_t& y) {
  if (width > kSheetWidth || height > kSheetHeight) return false;
  if (m_shelfX + width > kSheetWidth) {
    m_shelfY += m_shelfHeight;
    m_shelfX = m_shelfHeight = 0;
  }
  if (m_shelfY + height > kSheetHeight) {
    ++m_sheet;
    m_shelfX = m_shelfY = m_shelfHeight = 0;
  }
  if (m_sheet >= kMaxSheets) return false;
  while (m_sheets.size() <= m_sheet) {
    if (!m_dc) {
      m_dc = gdi().CreateCompatibleDC(0);
      m_original = 0;
    }
    m_sheets.push_back(gdi().CreateCompatibleBitmap(m_dc, kSheetWidth, kSheetHeight));
  }
  sheet = m_sheet;
  x = m_shelfX;
  y = m_shelfY;
  m_shelfX += width;
  m_shelfHeight = std::max(m_shelfHeight, height);
  return true;
}

void HtmlHoverRuns::record(Surface& page, int16_t link, const std::string& text) {
  if (m_overflow || text.empty()) return;
  Run r;
  r.link = link;
  r.x = page.toPixelX(page.CurrentX());
  r.y = page.toPixelY(page.CurrentY());
  r.width = static_cast<int32_t>(page.TextWidth(text));
  r.height = static_cast<int32_t>(page.TextHeight(text));
  r.text = text;
  const FontRef& font = page.Font();
  r.fontName = font->Name();
  r.fontSize = font->Size();
  r.bold = font->Bold();
  r.italic = font->Italic();
  r.underline = font->Underline();
  r.strike = font->Strikethrough();
  if (r.width <= 0 || r.height <= 0) return;
  if (!place(r.width, r.height, r.sheet, r.sheetX, r.sheetY)) {
    m_overflow = true;
    return;
  }
  HGDIOBJ old = gdi().SelectObject(m_dc, m_sheets[r.sheet]);
  if (!m_original) m_original = old;
  gdi().BitBlt(m_dc, r.sheetX, r.sheetY, r.width, r.height, page.hdc(), r.x, r.y, SRCCOPY);
  m_runs.push_back(std::move(r));
}

bool HtmlHoverRuns::repaint(Surface& page, int16_t a, int16_t b, int16_t hovered, OLE_COLOR linkColour,
                            OLE_COLOR hoverColour) {
  if (!m_valid) return false;
  auto concerned = [&](const Run& r) { return (a != 0 && r.link == a) || (b != 0 && r.link == b); };
  // Pixels back first, the latest run first, so that each place ends with what lay there before
  // any of the runs was printed; then the runs again in their order.
  for (auto it = m_runs.rbegin(); it != m_runs.rend(); ++it) {
    if (!concerned(*it)) continue;
    gdi().SelectObject(m_dc, m_sheets[it->sheet]);
    gdi().BitBlt(page.hdc(), it->x, it->y, it->width, it->height, m_dc, it->sheetX, it->sheetY, SRCCOPY);
  }
  // The page's pen and font are left as the pass left them.
  const FontRef& font = page.Font();
  const std::string name = font->Name();
  const double size = font->Size();
  const bool bold = font->Bold(), italic = font->Italic(), underline = font->Underline(),
             strike = font->Strikethrough();
  const OLE_COLOR colour = page.ForeColor();
  const float cx = page.CurrentX(), cy = page.CurrentY();
  for (const Run& r : m_runs) {
    if (!concerned(r)) continue;
    font->setName(r.fontName);
    font->setSize(r.fontSize);
    font->setBold(r.bold);
    font->setItalic(r.italic);
    font->setUnderline(r.underline);
    font->setStrikethrough(r.strike);
    page.setForeColor(r.link == hovered ? hoverColour : linkColour);
    page.setCurrentX(page.fromPixelX(r.x));
    page.setCurrentY(page.fromPixelY(r.y));
    page.Print(r.text, false);
  }
  font->setName(name);
  font->setSize(size);
  font->setBold(bold);
  font->setItalic(italic);
  font->setUnderline(underline);
  font->setStrikethrough(strike);
  page.setForeColor(colour);
  page.setCurrentX(cx);
  page.setCurrentY(cy);
  return true;
}

}  // namespace corvane::html

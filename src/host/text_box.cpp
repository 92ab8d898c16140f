// SPDX-License-Identifier: MIT
#include <corvane/host/text_box.h>
#include <corvane/platform/api.h>

#include <algorithm>

#include "host/window_geometry.h"

namespace corvane {

namespace {
constexpr int32_t kBarWidth = 17;  // the scroll bar's design width
constexpr int32_t kFrame = 2;      // the sunken frame, two pixels each side
constexpr int32_t kInset = 1;      // the text's distance from the frame

std::string oneLineEnd(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r') {
      out += '\n';
      if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      out += text[i];
    }
  }
  return out;
}
}  // namespace

void TextBox::create(HWND parent, int32_t left, int32_t top, int32_t width, int32_t height) {
  site(ControlSite{}, parent, left, top, width, height);
  surface().setScaleMode(Surface::Pixels);
  surface().setBackColor(static_cast<OLE_COLOR>(0x80000005));  // the window colour
  surface().setForeColor(static_cast<OLE_COLOR>(0x80000008));
  m_bar = std::make_shared<ScrollBar>(true);
  m_bar->site(ControlSite{}, surface().hWnd(), 0, 0, kBarWidth, std::max(height, 1));
  m_bar->setMin(0);
  m_bar->setMax(0);
  m_bar->Change.connect([this] { draw(); });
  m_bar->Scroll.connect([this] { draw(); });
  user().ShowWindow(m_bar->surface().hWnd(), SW_SHOWNOACTIVATE);
  user().ShowWindow(surface().hWnd(), SW_SHOWNOACTIVATE);
  onResize();
}

void TextBox::setText(const std::string& value) {
  m_Text = value;
  measure();
  if (m_bar && m_bar->Value() != 0) m_bar->setValue(0);  // a new text starts at its top
  draw();
}

void TextBox::setFont(const FontRef& value) {
  surface().setFont(value);
  measure();
  draw();
}

void TextBox::setForeColor(OLE_COLOR value) {
  surface().setForeColor(value);
  draw();
}

void TextBox::setBackColor(OLE_COLOR value) {
  surface().setBackColor(value);
  draw();
}

int32_t TextBox::Left() const { return clientRectInParent(*this).Left; }

int32_t TextBox::Top() const { return clientRectInParent(*this).Top; }

void TextBox::Move(int32_t left, int32_t top, int32_t width, int32_t height) {
  user().MoveWindow(surface().hWnd(), left, top, std::max(width, 0), std::max(height, 0), true);
}

bool TextBox::Visible() const { return user().IsWindowVisible(surface().hWnd()); }
void TextBox::setVisible(bool value) {
  user().ShowWindow(surface().hWnd(), value ? SW_SHOWNOACTIVATE : SW_HIDE);
}

int32_t TextBox::topLine() const { return m_bar ? m_bar->Value() : 0; }

void TextBox::onResize() {
  if (!m_bar) return;
  Surface& s = surface();
  // The bar stands inside the frame at the right.
  int32_t h = std::max(s.pixelHeight() - 2 * kFrame, 1);
  user().MoveWindow(m_bar->surface().hWnd(), std::max(s.pixelWidth() - kFrame - kBarWidth, 0), kFrame,
                    kBarWidth, h, true);
  measure();
  draw();
}

RECT TextBox::textArea() const {
  const Surface& s = surface();
  return RECT{kFrame + kInset, kFrame,
              std::max(s.pixelWidth() - kFrame - kBarWidth - kInset, kFrame + kInset),
              std::max(s.pixelHeight() - kFrame, kFrame)};
}

int32_t TextBox::lineHeight() {
  TEXTMETRIC tm;
  gdi().SetDCFont(surface().hdc(), surface().Font()->desc());
  gdi().GetTextMetricsA(surface().hdc(), tm);
  return std::max(tm.tmHeight, 1);
}

void TextBox::measure() {
  if (!m_bar) return;
  Surface& s = surface();
  RECT area = textArea();
  int32_t lh = lineHeight();
  RECT r{0, 0, area.Right - area.Left, 0};
  gdi().DrawTextA(s.hdc(), oneLineEnd(m_Text), -1, r, DT_WORDBREAK | DT_CALCRECT);
  m_lineCount = (r.Bottom - r.Top) / lh;
  int32_t visible = std::max((area.Bottom - area.Top) / lh, 1);
  // Scroll positions are 16-bit; a longer text scrolls as far as they reach.
  int32_t hidden = std::clamp(m_lineCount - visible, 0, 32767);
  if (m_bar->Value() > hidden) m_bar->setValue(static_cast<int16_t>(hidden));
  m_bar->setMax(static_cast<int16_t>(hidden));
  m_bar->setSmallChange(1);
  m_bar->setLargeChange(static_cast<int16_t>(std::min(visible, 32767)));
}

void TextBox::draw() {
  if (!m_bar) return;
  Surface& s = surface();
  HDC dc = s.hdc();
  s.Cls();
  RECT area = textArea();
  int32_t lh = lineHeight();
  gdi().SetTextColor(dc, translateColor(s.ForeColor()));
  gdi().SetBkMode(dc, 1);
  RECT r{area.Left, area.Top - topLine() * lh, area.Right, area.Bottom};
  gdi().DrawTextA(dc, oneLineEnd(m_Text), -1, r, DT_WORDBREAK);
  // The frame last, over any line cut at the top.
  RECT frame{0, 0, s.pixelWidth(), s.pixelHeight()};
  HBRUSH back = gdi().CreateSolidBrush(translateColor(s.BackColor()));
  gdi().FillRect(dc, RECT{0, 0, s.pixelWidth(), kFrame}, back);
  gdi().DeleteObject(back);
  gdi().DrawEdge(dc, frame, EDGE_SUNKEN, BF_RECT);
}

}  // namespace corvane

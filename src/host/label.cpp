// SPDX-License-Identifier: MIT
#include <corvane/host/label.h>
#include <corvane/platform/api.h>

#include <algorithm>

#include "host/window_geometry.h"

namespace corvane {

namespace {
// Every kind of line end becomes one line feed, so that a carriage return alone breaks too.
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

void Label::create(HWND parent, int32_t left, int32_t top, int32_t width, int32_t height) {
  site(ControlSite{}, parent, left, top, width, height);
  surface().setScaleMode(Surface::Pixels);
  user().ShowWindow(surface().hWnd(), SW_SHOWNOACTIVATE);
  draw();
}

void Label::setCaption(const std::string& value) {
  m_Caption = value;
  fitToText();
  draw();
}

void Label::setAutoSize(bool value) {
  m_AutoSize = value;
  fitToText();
  draw();
}

void Label::setWordWrap(bool value) {
  m_WordWrap = value;
  fitToText();
  draw();
}

void Label::setFont(const FontRef& value) {
  surface().setFont(value);
  fitToText();
  draw();
}

void Label::setForeColor(OLE_COLOR value) {
  surface().setForeColor(value);
  draw();
}

void Label::setBackColor(OLE_COLOR value) {
  surface().setBackColor(value);
  draw();
}

int32_t Label::Left() const { return clientRectInParent(*this).Left; }

int32_t Label::Top() const { return clientRectInParent(*this).Top; }

void Label::Move(int32_t left, int32_t top, int32_t width, int32_t height) {
  // As in the form engine, a move keeps the size given; only a new text or font fits it again.
  user().MoveWindow(surface().hWnd(), left, top, std::max(width, 0), std::max(height, 0), true);
}

bool Label::Visible() const { return user().IsWindowVisible(surface().hWnd()); }
void Label::setVisible(bool value) {
  user().ShowWindow(surface().hWnd(), value ? SW_SHOWNOACTIVATE : SW_HIDE);
}

void Label::setAlignment(int16_t value) {
  m_Alignment = value;
  draw();
}

int32_t Label::textFlags() const {
  int32_t align = m_Alignment == 1 ? DT_RIGHT : m_Alignment == 2 ? DT_CENTER : DT_LEFT;
  return (m_WordWrap ? DT_WORDBREAK : 0) | align;
}

void Label::fitToText() {
  if (!m_AutoSize || m_fitting || !isSited()) return;
  m_fitting = true;  // the move below comes back here
  Surface& s = surface();
  gdi().SetDCFont(s.hdc(), s.Font()->desc());
  RECT r{0, 0, m_WordWrap ? s.pixelWidth() : 0, 0};
  gdi().DrawTextA(s.hdc(), oneLineEnd(m_Caption), -1, r, textFlags() | DT_CALCRECT);
  int32_t width = m_WordWrap ? s.pixelWidth() : r.Right - r.Left;
  user().MoveWindow(s.hWnd(), Left(), Top(), width, r.Bottom - r.Top, true);
  m_fitting = false;
}

void Label::draw() {
  if (!isSited()) return;
  Surface& s = surface();
  s.Cls();
  drawText(s.hdc(), s.Font()->desc(), s.ForeColor(), m_Caption, RECT{0, 0, s.pixelWidth(), s.pixelHeight()},
           textFlags());
}

void Label::drawText(HDC hdc, const FontSpec& font, OLE_COLOR colour, const std::string& text, RECT box,
                     int32_t flags) {
  gdi().SetDCFont(hdc, font);
  gdi().SetTextColor(hdc, translateColor(colour));
  gdi().SetBkMode(hdc, 1);
  gdi().DrawTextA(hdc, oneLineEnd(text), -1, box, flags);
}

}  // namespace corvane

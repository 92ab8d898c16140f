// SPDX-License-Identifier: MIT
#include <corvane/host/label.h>
#include <corvane/host/screen.h>
#include <corvane/msgbox/msg_button.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>

#include <algorithm>

#include "host/window_geometry.h"

namespace corvane {

namespace {
constexpr int32_t kCheckSide = 13;  // pixels of the check box's square
constexpr int32_t COLOR_BTNFACE = 15, COLOR_WINDOW = 5, COLOR_BTNTEXT = 18, COLOR_GRAYTEXT = 17;
float tx() { return Screen::instance().TwipsPerPixelX(); }
float ty() { return Screen::instance().TwipsPerPixelY(); }
}  // namespace

void MsgButton::onSited() {
  surface().setScaleMode(Surface::Pixels);
  surface().setFont(StdFont::create(FontSpec{"Tahoma", 8}));
  // A second click soon after the first is a click too, as on any button.
  auto press = [this] {
    if (!m_Enabled) return;
    if (m_kind == CheckBox) setValue(m_Value == 1 ? 0 : 1);
    Click();
  };
  surface().Click.connect(press);
  surface().DblClick.connect(press);
  surface().KeyPress.connect([this](int16_t& key) { KeyPress(key); });
  draw();
}

void MsgButton::setCaption(const std::string& value) {
  m_Caption = value;
  draw();
}

void MsgButton::setEnabled(bool value) {
  m_Enabled = value;
  if (isSited()) user().EnableWindow(surface().hWnd(), value);
  draw();
}

bool MsgButton::Visible() const { return isSited() && user().IsWindowVisible(surface().hWnd()); }
void MsgButton::setVisible(bool value) {
  if (isSited()) user().ShowWindow(surface().hWnd(), value ? SW_SHOWNOACTIVATE : SW_HIDE);
}

void MsgButton::setValue(int16_t value) {
  m_Value = value;
  draw();
}

int32_t MsgButton::Left() const { return CLng(clientRectInParent(*this).Left * tx()); }
int32_t MsgButton::Top() const { return CLng(clientRectInParent(*this).Top * ty()); }
int32_t MsgButton::Width() const { return CLng(surface().pixelWidth() * tx()); }
int32_t MsgButton::Height() const { return CLng(surface().pixelHeight() * ty()); }

void MsgButton::Move(int32_t left, int32_t top, int32_t width, int32_t height) {
  user().MoveWindow(surface().hWnd(), CLng(left / tx()), CLng(top / ty()), std::max(CLng(width / tx()), 0),
                    std::max(CLng(height / ty()), 0), true);
}

std::string MsgButton::shownText(const std::string& caption) {
  std::string out;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&') {
      if (i + 1 < caption.size() && caption[i + 1] == '&') out += caption[++i];
      continue;
    }
    out += caption[i];
  }
  return out;
}

void MsgButton::draw() {
  if (!isSited()) return;
  Surface& s = surface();
  HDC hdc = s.hdc();
  int32_t w = s.pixelWidth(), h = s.pixelHeight();
  HBRUSH face = gdi().CreateSolidBrush(gdi().GetSysColor(COLOR_BTNFACE));
  gdi().FillRect(hdc, RECT{0, 0, w, h}, face);
  gdi().DeleteObject(face);
  OLE_COLOR text = static_cast<OLE_COLOR>(0x80000000 | (m_Enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
  if (m_kind == PushButton) {
    RECT edge{0, 0, w, h};
    gdi().DrawEdge(hdc, edge, EDGE_RAISED, BF_RECT);
    Label::drawText(hdc, s.Font()->desc(), text, shownText(m_Caption), RECT{2, 2, w - 2, h - 2},
                    DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    return;
  }
  int32_t top = (h - kCheckSide) / 2;
  RECT box{0, top, kCheckSide, top + kCheckSide};
  HBRUSH white = gdi().CreateSolidBrush(gdi().GetSysColor(COLOR_WINDOW));
  gdi().FillRect(hdc, box, white);
  gdi().DeleteObject(white);
  gdi().DrawEdge(hdc, box, EDGE_SUNKEN, BF_RECT);
  if (m_Value == 1) {
    // A tick of two strokes inside the square.
    HPEN pen = gdi().CreatePen(0, 2, 0);
    HGDIOBJ old = gdi().SelectObject(hdc, pen);
    gdi().MoveToEx(hdc, 3, top + 6, nullptr);
    gdi().LineTo(hdc, 5, top + 9);
    gdi().LineTo(hdc, 10, top + 3);
    gdi().SelectObject(hdc, old);
    gdi().DeleteObject(pen);
  }
  Label::drawText(hdc, s.Font()->desc(), text, shownText(m_Caption), RECT{kCheckSide + 4, 0, w, h},
                  DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/host/label.h>
#include <corvane/host/surface.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/painted_label.h>

namespace corvane {

void PaintedLabel::AutoSize(HDC hdc) {
  if (!Font) return;
  gdi().SetDCFont(hdc, Font->desc());
  SIZE size{};
  gdi().GetTextExtentPoint32A(hdc, Caption, size);
  TEXTMETRIC tm{};
  gdi().GetTextMetricsA(hdc, tm);
  Width = size.cx;
  Height = tm.tmHeight;
}

void PaintedLabel::paint(HDC hdc) const {
  if (!Visible) return;
  RECT box{Left, Top, Left + Width, Top + Height};
  if (Opaque) {
    HBRUSH brush = gdi().CreateSolidBrush(translateColor(BackColor));
    gdi().FillRect(hdc, box, brush);
    gdi().DeleteObject(brush);
  }
  if (Caption.empty() || !Font) return;
  Label::drawText(hdc, Font->desc(), ForeColor, Caption, box, Alignment);
}

bool PaintedLabel::contains(int32_t x, int32_t y) const {
  return Visible && x >= Left && x < Left + Width && y >= Top && y < Top + Height;
}

}  // namespace corvane

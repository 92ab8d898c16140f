// SPDX-License-Identifier: MIT
#include "desktop/window_frame.h"

namespace corvane {

int32_t WindowFrame::inset(int32_t style, int32_t exStyle) {
  return ((style & WS_BORDER) ? 1 : 0) + ((exStyle & WS_EX_CLIENTEDGE) ? 2 : 0);
}

std::vector<WindowFrame::Piece> WindowFrame::pieces(int32_t style, int32_t exStyle, int32_t width,
                                                    int32_t height,
                                                    const std::function<COLORREF(int32_t)>& sysColour) {
  std::vector<Piece> out;
  RECT r{0, 0, width, height};
  // One ring: top and left in one colour, then bottom and right in the other, which so take the
  // top-right and bottom-left corners, as the sunken edge is drawn; the next ring lies further in.
  auto ring = [&](COLORREF topLeft, COLORREF bottomRight) {
    if (r.Right <= r.Left || r.Bottom <= r.Top) return;
    out.push_back({RECT{r.Left, r.Top, r.Right, r.Top + 1}, topLeft});
    out.push_back({RECT{r.Left, r.Top, r.Left + 1, r.Bottom}, topLeft});
    out.push_back({RECT{r.Left, r.Bottom - 1, r.Right, r.Bottom}, bottomRight});
    out.push_back({RECT{r.Right - 1, r.Top, r.Right, r.Bottom}, bottomRight});
    r = RECT{r.Left + 1, r.Top + 1, r.Right - 1, r.Bottom - 1};
  };
  if (style & WS_BORDER) {
    const COLORREF frame = sysColour(syscolor::WINDOWFRAME);
    ring(frame, frame);
  }
  if (exStyle & WS_EX_CLIENTEDGE) {
    ring(sysColour(syscolor::BTNSHADOW), sysColour(syscolor::BTNHIGHLIGHT));
    ring(sysColour(syscolor::DKSHADOW3D), sysColour(syscolor::LIGHT3D));
  }
  return out;
}

}  // namespace corvane

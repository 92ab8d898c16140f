// SPDX-License-Identifier: MIT
#include "host/window_geometry.h"

#include <corvane/host/hosted_control.h>
#include <corvane/platform/api.h>

namespace corvane {

RECT clientRectInParent(const HostedControl& c) {
  HWND h = c.surface().hWnd();
  RECT r;
  user().GetWindowRect(h, r);
  POINTAPI p{r.Left, r.Top};
  user().ScreenToClient(user().GetParent(h), p);
  return RECT{p.x, p.y, p.x + (r.Right - r.Left), p.y + (r.Bottom - r.Top)};
}

}  // namespace corvane

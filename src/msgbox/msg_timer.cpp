// SPDX-License-Identifier: MIT
#include <corvane/msgbox/msg_timer.h>
#include <corvane/platform/api.h>

namespace corvane {

namespace {
constexpr int32_t kTimerId = 1;
}

void MsgTimer::setEnabled(bool value) {
  m_Enabled = value;
  apply();
}

void MsgTimer::setInterval(int32_t value) {
  m_Interval = value;
  apply();
}

void MsgTimer::apply() {
  if (!isSited()) return;
  HWND h = surface().hWnd();
  user().KillTimer(h, kTimerId);
  // As the form engine's timer: an interval of 0 never ticks.
  if (m_Enabled && m_Interval > 0) user().SetTimer(h, kTimerId, m_Interval);
}

LRESULT MsgTimer::windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  if (msg == wm::TIMER && wParam == kTimerId) {
    if (m_Enabled) Timer();
    return 0;
  }
  return HostedControl::windowProc(hWnd, msg, wParam, lParam);
}

}  // namespace corvane

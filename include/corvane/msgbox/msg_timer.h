// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/hosted_control.h>
#include <corvane/runtime/event.h>

#include <cstdint>
#include <string>

namespace corvane {

// The form engine's timer on the message box window: while Enabled, Timer is raised every
// Interval milliseconds from the message loop. Tag holds whatever its user keeps there.
class CORVANE_API MsgTimer : public HostedControl {
 public:
  explicit MsgTimer(int32_t interval = 1000) : m_Interval(interval) {}
  std::string typeName() const override { return "Timer"; }
  DesignForm designForm() const override { return {0, 0}; }

  bool Enabled() const { return m_Enabled; }
  void setEnabled(bool value);
  int32_t Interval() const { return m_Interval; }
  void setInterval(int32_t value);
  std::string Tag;

  Event<> Timer;
  void Terminate() override { setEnabled(false); }

 protected:
  LRESULT windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override;

 private:
  void apply();
  bool m_Enabled = false;
  int32_t m_Interval;
};

}  // namespace corvane

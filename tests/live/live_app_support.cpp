// SPDX-License-Identifier: MIT
#include "live_app_support.h"

#include <corvane/platform/api.h>

#include <chrono>

#include "desktop/desktop.h"

namespace corvane::live_test {

Application::Options liveOptions() {
  Application::Options o;
  o.display = Application::DisplayKind::Live;
  return o;
}

LiveWindowManager& liveWindows() {
  return dynamic_cast<LiveWindowManager&>(dynamic_cast<Desktop&>(platform()).windows());
}

Window nativeOf(HWND h) { return liveWindows().nativeWindow(h); }

bool pumpUntil(Application& app, const std::function<bool()>& done, int timeoutMs) {
  auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
  for (;;) {
    app.processEvents();
    if (done()) return true;
    if (std::chrono::steady_clock::now() > end) return false;
    user().WaitForWork(20);
  }
}

void settle(Application& app, int ms) {
  pumpUntil(
      app, [] { return false; }, ms);
}

}  // namespace corvane::live_test

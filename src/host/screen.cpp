// SPDX-License-Identifier: MIT
#include <corvane/host/screen.h>

#include <corvane/platform/api.h>

#include "host/screen_resolution.h"

namespace corvane {

namespace {
// A capability of the screen. The context on the screen is kept for the process; when the
// platform was replaced (tests make a new desktop), the old handle answers 0 and a new one is taken.
int32_t screenCaps(GdiApi& g, int32_t index) {
  static HDC screenDc = 0;
  int32_t v = screenDc ? g.GetDeviceCaps(screenDc, index) : 0;
  if (v == 0) {
    screenDc = g.GetDC(0);
    v = g.GetDeviceCaps(screenDc, index);
  }
  return v;
}
}  // namespace

const ScreenResolution& ScreenResolution::refresh(GdiApi& g, uint64_t serial) {
  ScreenResolution& kept = g_keptScreenResolution;
  const int32_t x = screenCaps(g, LOGPIXELSX), y = screenCaps(g, LOGPIXELSY);
  kept = {serial, x, y, 1440.0f / static_cast<float>(x), 1440.0f / static_cast<float>(y)};
  if (kept.x <= 0 || kept.y <= 0) kept.serial = 0;  // no answer is not kept
  return kept;
}

int32_t Screen::pixelsPerInchX() { return ScreenResolution::current().x; }
int32_t Screen::pixelsPerInchY() { return ScreenResolution::current().y; }

Screen& Screen::instance() {
  static Screen s;
  return s;
}

float Screen::TwipsPerPixelX() const { return screenTwipsPerPixelX(); }
float Screen::TwipsPerPixelY() const { return screenTwipsPerPixelY(); }
float Screen::Width() const { return static_cast<float>(user().GetSystemMetrics(SM_CXSCREEN)) * TwipsPerPixelX(); }
float Screen::Height() const { return static_cast<float>(user().GetSystemMetrics(SM_CYSCREEN)) * TwipsPerPixelY(); }

const Dispatch* Screen::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<Screen>(t)
        .get("TwipsPerPixelX", &Screen::TwipsPerPixelX)
        .get("TwipsPerPixelY", &Screen::TwipsPerPixelY)
        .get("Width", &Screen::Width)
        .get("Height", &Screen::Height);
    return t;
  }();
  return &d;
}

App& App::instance() {
  static App a;
  return a;
}

std::string App::Path() const { return sys().applicationPath(); }
std::string App::EXEName() const { return sys().applicationName(); }

const Dispatch* App::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<App>(t).get("Path", &App::Path).get("EXEName", &App::EXEName).get("Title", &App::Title);
    return t;
  }();
  return &d;
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/host/screen.h>

#include <corvane/platform/api.h>

namespace corvane {

namespace {
// A capability of the screen. The context on the screen is kept for the process; when the
// platform was replaced (tests make a new desktop), the old handle answers 0 and a new one is taken.
int32_t screenCaps(int32_t index) {
  static HDC screenDc = 0;
  int32_t v = screenDc ? gdi().GetDeviceCaps(screenDc, index) : 0;
  if (v == 0) {
    screenDc = gdi().GetDC(0);
    v = gdi().GetDeviceCaps(screenDc, index);
  }
  return v;
}
}  // namespace

int32_t Screen::pixelsPerInchX() { return screenCaps(LOGPIXELSX); }
int32_t Screen::pixelsPerInchY() { return screenCaps(LOGPIXELSY); }

Screen& Screen::instance() {
  static Screen s;
  return s;
}

float Screen::TwipsPerPixelX() const { return 1440.0f / static_cast<float>(pixelsPerInchX()); }
float Screen::TwipsPerPixelY() const { return 1440.0f / static_cast<float>(pixelsPerInchY()); }
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

#include "host/screen.h"

#include "platform/api.h"

namespace corvane {

Screen& Screen::instance() {
  static Screen s;
  return s;
}

float Screen::TwipsPerPixelX() const { return 1440.0f / static_cast<float>(gdi().GetDeviceCaps(0, LOGPIXELSX)); }
float Screen::TwipsPerPixelY() const { return 1440.0f / static_cast<float>(gdi().GetDeviceCaps(0, LOGPIXELSY)); }
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

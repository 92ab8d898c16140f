// SPDX-License-Identifier: MIT
#include "live/live_desktop.h"

#include <X11/Xlib.h>
#include <X11/Xresource.h>
#include <corvane/runtime/runtime_error.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>

#include "live/live_dialogs.h"
#include "live/live_window_manager.h"

namespace corvane {

namespace {

// The display's scale from its resources (Xft.dpi), as twips per pixel; 0 when it gives none.
int32_t twipsPerPixelOf(Display* display) {
  const char* resources = XResourceManagerString(display);
  if (!resources) return 0;
  XrmInitialize();
  XrmDatabase db = XrmGetStringDatabase(resources);
  if (!db) return 0;
  char* type = nullptr;
  XrmValue value{};
  int32_t twips = 0;
  if (XrmGetResource(db, "Xft.dpi", "Xft.Dpi", &type, &value) && value.addr) {
    double dpi = std::atof(value.addr);
    if (dpi >= 24 && dpi <= 1440) twips = static_cast<int32_t>(std::lround(1440 / dpi));
  }
  XrmDestroyDatabase(db);
  return twips;
}

// A request on a window that another program or the server already dropped is no reason to end
// the program, as Xlib's own handler would: the error is left out.
int ignoreProtocolError(Display*, XErrorEvent*) { return 0; }

}  // namespace

std::unique_ptr<Desktop> openLiveDesktop(Desktop::Options options) {
  Display* display = XOpenDisplay(nullptr);
  // A busy server may turn a connection away for a moment: a few more tries, a second at most.
  for (int i = 0; !display && std::getenv("DISPLAY") && i < 10; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    display = XOpenDisplay(nullptr);
  }
  if (!display)
    throw RuntimeError(
        err::InvalidProcedureCall,
        "No display to open for the live application: DISPLAY is not set or refuses the connection",
        "corvane");
  XSetErrorHandler(ignoreProtocolError);
  options.width = DisplayWidth(display, DefaultScreen(display));
  options.height = DisplayHeight(display, DefaultScreen(display));
  options.virtualClock = false;
  if (int32_t twips = twipsPerPixelOf(display)) options.twipsPerPixelX = options.twipsPerPixelY = twips;
  options.makeWindows = [display](Clock& clock, int32_t, int32_t) {
    return std::make_unique<LiveWindowManager>(clock, display);
  };
  options.makeDialogs = [](WindowManager& windows) -> std::unique_ptr<DialogApi> {
    return std::make_unique<LiveDialogs>(dynamic_cast<LiveWindowManager&>(windows));
  };
  return std::make_unique<Desktop>(options);
}

}  // namespace corvane

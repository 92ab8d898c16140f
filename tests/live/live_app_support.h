// SPDX-License-Identifier: MIT
#pragma once
#include <X11/Xlib.h>
#include <corvane/app/application.h>
#include <corvane/host/form.h>

#include <functional>

#include "live/live_window_manager.h"

namespace corvane::live_test {

// Options that ask the application for the live display.
Application::Options liveOptions();
// The live platform's window manager (the running platform must be the live one).
LiveWindowManager& liveWindows();
// The X window that shows a top-level window of the program.
Window nativeOf(HWND h);
inline Window nativeOf(const Form& f) { return nativeOf(f.hWnd()); }
// Runs the application's loop until the condition holds or the time is up.
bool pumpUntil(Application& app, const std::function<bool()>& done, int timeoutMs = 3000);
// Lets the display settle: the program's requests reach the server and its answers come back.
void settle(Application& app, int ms = 200);

}  // namespace corvane::live_test

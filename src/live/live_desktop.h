// SPDX-License-Identifier: MIT
#pragma once
#include <memory>

#include "desktop/desktop.h"

namespace corvane {

// Opens the user's display (DISPLAY) and makes a desktop whose top-level windows are real windows
// on it, with the display's screen size, scale, clock, input and clipboard. A RuntimeError that
// says so when there is no display to open.
std::unique_ptr<Desktop> openLiveDesktop(Desktop::Options options);

}  // namespace corvane

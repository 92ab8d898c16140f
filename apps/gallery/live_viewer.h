// SPDX-License-Identifier: MIT
#pragma once
#include "desktop/desktop.h"

namespace corvane::gallery {

// Shows the desktop in a real window and feeds the mouse back into it until the window is
// closed. False when there is no display (or no SDL2 in this build).
bool runLiveViewer(Desktop& desktop);

}  // namespace corvane::gallery

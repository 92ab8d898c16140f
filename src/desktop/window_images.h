// SPDX-License-Identifier: MIT
#pragma once
#include "desktop/canvas.h"
#include <corvane/platform/types.h>

namespace corvane {

// What the drawing side needs of the window side: the pixel store behind a window's device
// context, and a note that it changed (so that the screen is composed again).
class WindowImages {
 public:
  virtual ~WindowImages() = default;
  virtual Canvas* windowCanvas(HWND hWnd) = 0;  // nullptr for no such window; 0 is the screen
  virtual void windowDrawn(HWND hWnd) = 0;
};

}  // namespace corvane

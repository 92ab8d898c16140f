// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <functional>
#include <vector>

#include <corvane/platform/types.h>

namespace corvane {

// The non-client border of a child window, as its styles ask for it: WS_BORDER is a single line
// in the window-frame colour, WS_EX_CLIENTEDGE the sunken 3-D edge inside it. Top-level windows
// get none here: a live display's window manager decorates them.
struct WindowFrame {
  struct Piece {
    RECT rect;  // in window coordinates
    COLORREF colour;
  };

  // Pixels taken from each side of the window.
  static int32_t inset(int32_t style, int32_t exStyle);
  // The border's pixels for a window of the given size, in painting order (a later piece wins
  // where two overlap); sysColour gives a system colour by index.
  static std::vector<Piece> pieces(int32_t style, int32_t exStyle, int32_t width, int32_t height,
                                   const std::function<COLORREF(int32_t)>& sysColour);
};

}  // namespace corvane

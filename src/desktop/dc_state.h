// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "desktop/canvas.h"
#include "desktop/text_font.h"
#include <corvane/platform/types.h>

namespace corvane {

// One device context: what it draws into and the state it keeps until it is released.
// Selected objects are copied in (pen and brush values, the font, the bitmap's pixels), so
// deleting an object that is still selected cannot leave the context pointing at nothing.
struct DcState {
  // Target: a window's image (looked up at each call, since the window may replace it), or for a
  // memory context the selected bitmap.
  HWND window = 0;
  bool memory = false;
  HBITMAP bitmapHandle = 0;
  std::shared_ptr<Canvas> bitmap;

  HPEN pen = 0;
  int32_t penStyle = 0, penWidth = 1;
  COLORREF penColour = 0;

  HBRUSH brush = 0;
  COLORREF brushColour = 0xFFFFFF;

  HFONT font = 0;
  std::shared_ptr<TextFont> textFont;
  bool underline = false, strikethrough = false;
  HFONT ownFont = 0;  // the handle of the font set by SetDCFont, which the context owns
  FontSpec ownSpec;    // what the own font was made from, and at which resolution
  int32_t ownDpi = 0;

  COLORREF textColour = 0, bkColour = 0xFFFFFF;
  int32_t bkMode = 2;  // opaque, as a fresh context on the platform
  POINTAPI position;

  bool recording = false;
  std::vector<std::string> log;
};

}  // namespace corvane

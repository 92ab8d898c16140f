// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <functional>
#include <memory>

#include "desktop/canvas.h"
#include <corvane/platform/types.h>

namespace corvane {

// Puts pictures onto canvases: scaled, composited through their alpha, with a mask colour left
// out, or reduced to their shape in one colour.
class ImagePainter {
 public:
  // Draws the part (srcX, srcY, srcWidth, srcHeight) of a picture into the box (x, y, width,
  // height). Pixels of exactly maskColour (not -1) are left out. Integer scale factors use the
  // nearest pixel, so that small pictures stay crisp; other factors are smoothed.
  static void draw(Canvas& dst, const Canvas& src, int32_t x, int32_t y, int32_t width, int32_t height,
                   int32_t srcX, int32_t srcY, int32_t srcWidth, int32_t srcHeight, COLORREF maskColour);

  // A canvas of that size with every pixel transparent.
  static std::unique_ptr<Canvas> transparent(int32_t width, int32_t height);

  // Lays src over dst with its top left at (x, y), through src's alpha.
  static void blendOver(Canvas& dst, const Canvas& src, int32_t x, int32_t y);

  // Sets every pixel of dst at (x, y) + (i, j) to colour where the src pixel (i, j) passes the test.
  static void paintShape(Canvas& dst, const Canvas& src, int32_t x, int32_t y, COLORREF colour,
                         const std::function<bool(uint32_t)>& inShape);

  // Alpha and brightness (0 to 255, of the colour before premultiplication) of a pixel.
  static uint32_t alpha(uint32_t argb) { return argb >> 24; }
  static uint32_t brightness(uint32_t argb);
};

}  // namespace corvane

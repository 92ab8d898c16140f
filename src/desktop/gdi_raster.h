// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "desktop/canvas.h"
#include <corvane/platform/types.h>

namespace corvane {

// Aliased, pixel-exact shapes written straight into a canvas, clipped to it.
class GdiRaster {
 public:
  // A line from (x0, y0) towards (x1, y1); the end point itself is not drawn. A width above 1
  // paints a square of that many pixels around each point.
  static void line(Canvas& canvas, int32_t x0, int32_t y0, int32_t x1, int32_t y1, COLORREF colour,
                   int32_t width) {
    if (width <= 1 && x0 == x1 && y0 != y1)
      verticalLine(canvas, x0, y0, y1, colour);
    else
      otherLine(canvas, x0, y0, x1, y1, colour, width);
  }

  // One-pixel lines k from ends[2k] towards ends[2k + 1] in colours[k], one after another. A run
  // of vertical lines over the same rows, as a sweep draws, has its rows clipped once.
  static void lines(Canvas& canvas, std::span<const POINTAPI> ends, std::span<const COLORREF> colours);

  // One-pixel frame on the inside edge of [left, right) x [top, bottom).
  static void frame(Canvas& canvas, int32_t left, int32_t top, int32_t right, int32_t bottom,
                    COLORREF colour);

  // The row spans of a rectangle with quarter-ellipse corners of the given ellipse size: for
  // each row from top, the first and one past the last pixel inside.
  struct RowSpan {
    int32_t left, right;
  };
  static std::vector<RowSpan> roundedShape(int32_t left, int32_t top, int32_t right, int32_t bottom,
                                           int32_t ellipseWidth, int32_t ellipseHeight);

  // Paints a shape given by row spans starting at row top: the pixels on its edge with the
  // outline colour (when outline is true), the rest with the fill colour (when fill is true).
  static void paintShape(Canvas& canvas, int32_t top, const std::vector<RowSpan>& rows, bool outline,
                         COLORREF outlineColour, int32_t outlineWidth, bool fill, COLORREF fillColour);

 private:
  // A one-pixel vertical line, the common case of painters, clipped at once; inline, as painters
  // draw thousands one after another.
  static void verticalLine(Canvas& canvas, int32_t x, int32_t y0, int32_t y1, COLORREF colour) {
    if (x < 0 || x >= canvas.width()) return;
    // The rows drawn: from y0 towards y1, y1 itself left out.
    const int64_t from = y0 < y1 ? y0 : int64_t{y1} + 1, to = y0 < y1 ? int64_t{y1} : int64_t{y0} + 1;
    const int64_t top = std::max<int64_t>(from, 0), bottom = std::min<int64_t>(to, canvas.height());
    if (top < bottom) canvas.column(x, static_cast<int32_t>(top), static_cast<int32_t>(bottom), Canvas::toArgb(colour));
  }
  static void otherLine(Canvas& canvas, int32_t x0, int32_t y0, int32_t x1, int32_t y1, COLORREF colour,
                        int32_t width);

  static void plot(Canvas& canvas, int32_t x, int32_t y, uint32_t argb, int32_t width);
};

}  // namespace corvane

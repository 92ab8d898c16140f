// SPDX-License-Identifier: MIT
#include "desktop/gdi_raster.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstdint>
#include <cstddef>

namespace corvane {

void GdiRaster::plot(Canvas& canvas, int32_t x, int32_t y, uint32_t argb, int32_t width) {
  if (width <= 1) {
    if (canvas.contains(x, y)) canvas.row(y)[x] = argb;
    return;
  }
  int32_t left = x - (width - 1) / 2, top = y - (width - 1) / 2;
  int32_t right = std::min(left + width, canvas.width()), bottom = std::min(top + width, canvas.height());
  for (int32_t py = std::max(top, 0); py < bottom; ++py)
    for (int32_t px = std::max(left, 0); px < right; ++px) canvas.row(py)[px] = argb;
}

void GdiRaster::lines(Canvas& canvas, std::span<const POINTAPI> ends, std::span<const COLORREF> colours) {
  const size_t count = std::min(ends.size() / 2, colours.size());
  for (size_t k = 0; k < count;) {
    const POINTAPI from = ends[2 * k], to = ends[2 * k + 1];
    if (from.x != to.x || from.y == to.y) {
      otherLine(canvas, from.x, from.y, to.x, to.y, colours[k], 1);
      ++k;
      continue;
    }
    // The vertical lines that follow over the same rows, each one column further the same way,
    // are drawn with this one as a run.
    size_t n = 1;
    const int64_t direction = k + 1 < count ? int64_t{ends[2 * k + 2].x} - from.x : 0;
    if (direction == 1 || direction == -1) {
      int64_t x = from.x + direction;
      while (k + n < count && ends[2 * (k + n)].x == x && ends[2 * (k + n) + 1].x == x &&
             ends[2 * (k + n)].y == from.y && ends[2 * (k + n) + 1].y == to.y) {
        ++n;
        x += direction;
      }
    }
    // Rows from from.y towards to.y, to.y itself left out; columns of the run on the canvas.
    const int64_t first = from.y < to.y ? from.y : int64_t{to.y} + 1,
                  end = from.y < to.y ? int64_t{to.y} : int64_t{from.y} + 1;
    const int64_t top = std::max<int64_t>(first, 0), bottom = std::min<int64_t>(end, canvas.height());
    const int64_t step = direction == -1 ? -1 : 1;
    int64_t skip = 0, take = static_cast<int64_t>(n);  // the run's lines left out at its start, and drawn
    if (step > 0) {
      skip = std::clamp<int64_t>(-int64_t{from.x}, 0, take);
      take = std::min<int64_t>(take, int64_t{canvas.width()} - from.x) - skip;
    } else {
      skip = std::clamp<int64_t>(int64_t{from.x} - (canvas.width() - 1), 0, take);
      take = std::min<int64_t>(take, int64_t{from.x} + 1) - skip;
    }
    if (top < bottom && take > 0)
      canvas.columns(static_cast<int32_t>(from.x + skip * step), static_cast<int32_t>(step),
                     static_cast<int32_t>(top), static_cast<int32_t>(bottom),
                     colours.subspan(k + static_cast<size_t>(skip), static_cast<size_t>(take)));
    k += n;
  }
}

void GdiRaster::otherLine(Canvas& canvas, int32_t x0, int32_t y0, int32_t x1, int32_t y1, COLORREF colour,
                          int32_t width) {
  const int64_t dx = int64_t{x1} - x0, dy = int64_t{y1} - y0;
  const int64_t adx = std::llabs(dx), ady = std::llabs(dy);
  const int64_t steps = std::max(adx, ady);  // pixels drawn: the end point is left out
  if (steps == 0) return;
  const uint32_t argb = Canvas::toArgb(colour);
  const bool xMajor = adx >= ady;
  const int64_t majorStart = xMajor ? x0 : y0, minorStart = xMajor ? y0 : x0;
  const int64_t majorStep = (xMajor ? dx : dy) < 0 ? -1 : 1, minorStep = (xMajor ? dy : dx) < 0 ? -1 : 1;
  const int64_t minorDelta = xMajor ? ady : adx;

  // Only the steps whose major coordinate lies on the canvas (plus the pen's reach) matter, so a
  // line far longer than the canvas costs no more than one across it.
  const int64_t reach = width > 1 ? width : 0;
  const int64_t majorSize = xMajor ? canvas.width() : canvas.height();
  int64_t first = 0, last = steps - 1;
  if (majorStep > 0) {
    first = std::max<int64_t>(first, -reach - majorStart);
    last = std::min<int64_t>(last, majorSize - 1 + reach - majorStart);
  } else {
    first = std::max<int64_t>(first, majorStart - (majorSize - 1 + reach));
    last = std::min<int64_t>(last, majorStart + reach);
  }
  if (first > last) return;

  if (width <= 1) {
    // Also clip by the minor coordinate, which only grows (or only falls) with the step, so that
    // every remaining step lands on the canvas and needs no test.
    const int64_t minorSize = xMajor ? canvas.height() : canvas.width();
    const int64_t s = steps, md = minorDelta;
    // q(i) = floor((2 i md + s) / 2s): how far the minor coordinate has moved after i steps.
    auto firstWithAtLeast = [&](int64_t k) -> int64_t {  // smallest i with q(i) >= k
      if (k <= 0) return 0;
      if (md == 0) return INT64_MAX;
      __int128 num = static_cast<__int128>(2 * s) * k - s, den = 2 * md;
      return static_cast<int64_t>((num + den - 1) / den);
    };
    auto lastWithAtMost = [&](int64_t k) -> int64_t {  // largest i with q(i) <= k
      if (k < 0) return -1;
      if (md == 0) return INT64_MAX;
      __int128 num = static_cast<__int128>(2 * s) * (k + 1) - s, den = 2 * md;
      return static_cast<int64_t>((num + den - 1) / den) - 1;
    };
    if (minorStep > 0) {
      first = std::max(first, firstWithAtLeast(-minorStart));
      last = std::min(last, lastWithAtMost(minorSize - 1 - minorStart));
    } else {
      first = std::max(first, firstWithAtLeast(minorStart - (minorSize - 1)));
      last = std::min(last, lastWithAtMost(minorStart));
    }
    if (first > last) return;
    const int64_t twoSteps = 2 * steps;
    const __int128 numerator = static_cast<__int128>(2 * first) * minorDelta + steps;
    const int64_t minor = minorStart + minorStep * static_cast<int64_t>(numerator / twoSteps);
    int64_t err = static_cast<int64_t>(numerator % twoSteps);
    const int64_t major = majorStart + majorStep * first;
    if (minorDelta == 0 && !xMajor) {  // vertical: gathered with its neighbours
      const int64_t from = majorStep > 0 ? major : major - (last - first);
      canvas.column(static_cast<int32_t>(minor), static_cast<int32_t>(from),
                    static_cast<int32_t>(from + (last - first) + 1), argb);
      return;
    }
    const ptrdiff_t stride = canvas.height() > 1 ? canvas.row(1) - canvas.row(0) : 0;
    uint32_t* p = xMajor ? canvas.row(static_cast<int32_t>(minor)) + major : canvas.row(static_cast<int32_t>(major)) + minor;
    const ptrdiff_t majorInc = xMajor ? majorStep : majorStep * stride;
    const ptrdiff_t minorInc = xMajor ? minorStep * stride : minorStep;
    const int64_t errInc = 2 * minorDelta;
    if (errInc == 0 && majorInc == 1) {  // horizontal, to the right
      std::fill_n(p, last - first + 1, argb);
      return;
    }
    if (errInc == 0 && majorInc == -1) {  // horizontal, to the left
      std::fill_n(p - (last - first), last - first + 1, argb);
      return;
    }
    for (int64_t i = first; i <= last; ++i) {
      *p = argb;
      p += majorInc;
      err += errInc;
      if (err >= twoSteps) {
        err -= twoSteps;
        p += minorInc;
      }
    }
    return;
  }

  // Minor coordinate at step i is minorStart + round(i * minorDelta / steps), halves rounded up;
  // err carries the remainder so each step needs no division.
  const int64_t twoSteps = 2 * steps;
  // Far-off coordinates can make the first numerator exceed 64 bits.
  const __int128 numerator = static_cast<__int128>(2 * first) * minorDelta + steps;
  int64_t minor = minorStart + minorStep * static_cast<int64_t>(numerator / twoSteps);
  int64_t err = static_cast<int64_t>(numerator % twoSteps);
  for (int64_t i = first; i <= last; ++i) {
    int64_t major = majorStart + majorStep * i;
    if (xMajor)
      plot(canvas, static_cast<int32_t>(major), static_cast<int32_t>(minor), argb, width);
    else
      plot(canvas, static_cast<int32_t>(minor), static_cast<int32_t>(major), argb, width);
    err += 2 * minorDelta;
    while (err >= twoSteps) {
      err -= twoSteps;
      minor += minorStep;
    }
  }
}

void GdiRaster::frame(Canvas& canvas, int32_t left, int32_t top, int32_t right, int32_t bottom,
                      COLORREF colour) {
  if (left >= right || top >= bottom) return;
  canvas.fillRect(left, top, right, top + 1, colour);
  canvas.fillRect(left, bottom - 1, right, bottom, colour);
  canvas.fillRect(left, top, left + 1, bottom, colour);
  canvas.fillRect(right - 1, top, right, bottom, colour);
}

std::vector<GdiRaster::RowSpan> GdiRaster::roundedShape(int32_t left, int32_t top, int32_t right,
                                                        int32_t bottom, int32_t ellipseWidth,
                                                        int32_t ellipseHeight) {
  std::vector<RowSpan> rows;
  if (left >= right || top >= bottom) return rows;
  const int32_t w = right - left, h = bottom - top;
  const double rx = std::clamp(ellipseWidth, 0, w) / 2.0, ry = std::clamp(ellipseHeight, 0, h) / 2.0;
  rows.reserve(static_cast<size_t>(h));
  for (int32_t j = 0; j < h; ++j) {
    int32_t k = std::min(j, h - 1 - j);  // rows from the nearer top or bottom edge: the shape is symmetric
    int32_t inset = 0;
    if (rx > 0 && ry > 0 && k < ry) {
      double v = (ry - (k + 0.5)) / ry;  // row centre, relative to the corner ellipse's centre
      double half = rx * std::sqrt(std::max(0.0, 1.0 - v * v));
      inset = static_cast<int32_t>(std::floor(rx - half + 0.5));
    }
    inset = std::min(inset, (w - 1) / 2);
    rows.push_back({left + inset, right - inset});
  }
  return rows;
}

void GdiRaster::paintShape(Canvas& canvas, int32_t top, const std::vector<RowSpan>& rows, bool outline,
                           COLORREF outlineColour, int32_t outlineWidth, bool fill, COLORREF fillColour) {
  const int32_t n = static_cast<int32_t>(rows.size());
  const int32_t pen = std::max(outlineWidth, 1);
  auto inside = [&](int32_t j, int32_t x) {
    return j >= 0 && j < n && x >= rows[j].left && x < rows[j].right;
  };
  const uint32_t outlineArgb = Canvas::toArgb(outlineColour), fillArgb = Canvas::toArgb(fillColour);
  for (int32_t j = 0; j < n; ++j) {
    int32_t y = top + j;
    if (y < 0 || y >= canvas.height()) continue;
    uint32_t* row = canvas.row(y);
    int32_t from = std::max(rows[j].left, 0), to = std::min(rows[j].right, canvas.width());
    for (int32_t x = from; x < to; ++x) {
      // A pixel is on the edge when some pixel within the pen's width, straight up, down, left or
      // right, is outside the shape.
      bool edge = false;
      if (outline)
        for (int32_t d = 1; d <= pen && !edge; ++d)
          edge = !inside(j - d, x) || !inside(j + d, x) || !inside(j, x - d) || !inside(j, x + d);
      if (edge)
        row[x] = outlineArgb;
      else if (fill)
        row[x] = fillArgb;
    }
  }
}

}  // namespace corvane

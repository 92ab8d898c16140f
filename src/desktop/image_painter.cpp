// SPDX-License-Identifier: MIT
#include "desktop/image_painter.h"

#include <algorithm>
#include <memory>

namespace corvane {

namespace {

inline uint32_t div255(uint32_t v) {
  v += 128;
  return (v + (v >> 8)) >> 8;
}

bool isWhole(int32_t to, int32_t from) { return from > 0 && to % from == 0; }

}  // namespace

std::unique_ptr<Canvas> ImagePainter::transparent(int32_t width, int32_t height) {
  // Cairo clears a new image surface to transparent black.
  return std::make_unique<Canvas>(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::max(width, 0), std::max(height, 0)));
}

uint32_t ImagePainter::brightness(uint32_t argb) {
  const uint32_t a = argb >> 24;
  if (a == 0) return 0;
  const uint32_t sum = ((argb >> 16) & 255) + ((argb >> 8) & 255) + (argb & 255);
  return std::min<uint32_t>(255, (sum * 255 / a) / 3);
}

void ImagePainter::blendOver(Canvas& dst, const Canvas& src, int32_t x, int32_t y) {
  const int32_t j0 = std::max(0, -y), j1 = std::min(src.height(), dst.height() - y);
  const int32_t i0 = std::max(0, -x), i1 = std::min(src.width(), dst.width() - x);
  for (int32_t j = j0; j < j1; ++j) {
    const uint32_t* s = src.row(j);
    uint32_t* d = dst.row(y + j);
    for (int32_t i = i0; i < i1; ++i) {
      const uint32_t p = s[i], a = p >> 24;
      if (a == 255) {
        d[x + i] = p;
      } else if (a != 0) {
        const uint32_t q = d[x + i], na = 255 - a;
        uint32_t out = 0;
        for (int shift = 0; shift < 32; shift += 8)
          out |= std::min<uint32_t>(255, ((p >> shift) & 255) + div255(((q >> shift) & 255) * na)) << shift;
        d[x + i] = out;
      }
    }
  }
}

void ImagePainter::paintShape(Canvas& dst, const Canvas& src, int32_t x, int32_t y, COLORREF colour,
                              const std::function<bool(uint32_t)>& inShape) {
  const uint32_t argb = Canvas::toArgb(colour);
  const int32_t j0 = std::max(0, -y), j1 = std::min(src.height(), dst.height() - y);
  const int32_t i0 = std::max(0, -x), i1 = std::min(src.width(), dst.width() - x);
  for (int32_t j = j0; j < j1; ++j) {
    const uint32_t* s = src.row(j);
    uint32_t* d = dst.row(y + j);
    for (int32_t i = i0; i < i1; ++i)
      if (inShape(s[i])) d[x + i] = argb;
  }
}

void ImagePainter::draw(Canvas& dst, const Canvas& src, int32_t x, int32_t y, int32_t width, int32_t height,
                        int32_t srcX, int32_t srcY, int32_t srcWidth, int32_t srcHeight,
                        COLORREF maskColour) {
  if (width <= 0 || height <= 0 || srcWidth <= 0 || srcHeight <= 0) return;
  const bool whole = srcX == 0 && srcY == 0 && srcWidth == src.width() && srcHeight == src.height();
  const Canvas* source = &src;
  std::unique_ptr<Canvas> part;
  if (!whole || maskColour != -1) {
    // A copy of the part, transparent outside the picture and where the mask colour is.
    part = transparent(srcWidth, srcHeight);
    const uint32_t masked = maskColour == -1 ? 0 : Canvas::toArgb(maskColour);
    for (int32_t j = 0; j < srcHeight; ++j) {
      uint32_t* d = part->row(j);
      const int32_t sy = srcY + j;
      for (int32_t i = 0; i < srcWidth; ++i) {
        const int32_t sx = srcX + i;
        uint32_t p = src.contains(sx, sy) ? src.row(sy)[sx] : 0;
        if (maskColour != -1 && p == masked) p = 0;
        d[i] = p;
      }
    }
    part->markDirty();
    source = part.get();
  }
  if (width == srcWidth && height == srcHeight) {
    blendOver(dst, *source, x, y);
    return;
  }
  dst.markDirty();
  cairo_t* cr = cairo_create(dst.surface());
  cairo_rectangle(cr, x, y, width, height);
  cairo_clip(cr);
  cairo_translate(cr, x, y);
  cairo_scale(cr, double(width) / srcWidth, double(height) / srcHeight);
  cairo_set_source_surface(cr, source->surface(), 0, 0);
  cairo_pattern_t* pattern = cairo_get_source(cr);
  const bool crisp = isWhole(width, srcWidth) && isWhole(height, srcHeight);
  cairo_pattern_set_filter(pattern, crisp ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);
  cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
  cairo_paint(cr);
  cairo_destroy(cr);
  dst.flush();
}

}  // namespace corvane

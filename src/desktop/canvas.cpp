// SPDX-License-Identifier: MIT
#include "desktop/canvas.h"

#include <algorithm>

namespace corvane {

namespace {
// An image surface of the size, or null when Cairo cannot make one (it then gives an error surface
// without pixels).
cairo_surface_t* createImage(int32_t width, int32_t height) {
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::max(width, 0), std::max(height, 0));
  if (cairo_surface_status(s) == CAIRO_STATUS_SUCCESS) return s;
  cairo_surface_destroy(s);
  return nullptr;
}
}  // namespace

Canvas::Canvas(int32_t width, int32_t height, COLORREF fillColour) {
  m_surface = createImage(width, height);
  if (!m_surface) m_surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 0, 0);
  attach();
  fill(fillColour);
}

Canvas::Canvas(cairo_surface_t* adopt) : m_surface(adopt) { attach(); }

Canvas::~Canvas() { cairo_surface_destroy(m_surface); }

void Canvas::startColumns(int32_t x, int32_t top, int32_t bottom, uint32_t argb) {
  ++m_version;
  settle();
  m_columnColours.resize(static_cast<size_t>(m_width));
  m_columnsLeft = x;
  m_columnsRight = x + 1;
  m_columnsTop = top;
  m_columnsBottom = bottom;
  m_columnColours[static_cast<size_t>(x)] = argb;
}

void Canvas::columns(int32_t x, int32_t direction, int32_t top, int32_t bottom,
                     std::span<const COLORREF> colours) {
  if (colours.empty()) return;
  column(x, top, bottom, toArgb(colours[0]));
  const size_t rest = colours.size() - 1;
  // The rest extend the gathered columns on the side of x, unless x went to the other side.
  if (direction > 0 && m_columnsRight == x + 1) {
    uint32_t* to = m_columnColours.data() + m_columnsRight;
    for (size_t j = 0; j < rest; ++j) to[j] = toArgb(colours[j + 1]);
    m_columnsRight += static_cast<int32_t>(rest);
  } else if (direction < 0 && m_columnsLeft == x) {
    uint32_t* to = m_columnColours.data() + m_columnsLeft - 1;
    for (size_t j = 0; j < rest; ++j) *(to - j) = toArgb(colours[j + 1]);
    m_columnsLeft -= static_cast<int32_t>(rest);
  } else {
    for (size_t j = 0; j < rest; ++j)
      column(x + static_cast<int32_t>(j + 1) * direction, top, bottom, toArgb(colours[j + 1]));
    return;
  }
  m_version += rest;
}

void Canvas::writeColumns() const {
  const int32_t left = m_columnsLeft, count = m_columnsRight - m_columnsLeft;
  m_columnsLeft = m_columnsRight = 0;  // first, so that nothing below settles again
  const uint32_t* colours = m_columnColours.data() + left;
  for (int32_t y = m_columnsTop; y < m_columnsBottom; ++y)
    std::copy_n(colours, count, reinterpret_cast<uint32_t*>(m_data + static_cast<size_t>(y) * m_stride) + left);
  m_cairoStale = true;
}

void Canvas::attach() {
  cairo_surface_flush(m_surface);
  m_data = cairo_image_surface_get_data(m_surface);
  m_width = cairo_image_surface_get_width(m_surface);
  m_height = cairo_image_surface_get_height(m_surface);
  m_stride = cairo_image_surface_get_stride(m_surface);
}

bool Canvas::resize(int32_t width, int32_t height, COLORREF fillColour) {
  width = std::max(width, 0);
  height = std::max(height, 0);
  if (width == m_width && height == m_height) return true;
  ++m_version;
  cairo_surface_t* next = createImage(width, height);
  if (!next) return false;
  settle();
  cairo_surface_flush(m_surface);
  cairo_surface_flush(next);
  unsigned char* nd = cairo_image_surface_get_data(next);
  int ns = cairo_image_surface_get_stride(next);
  uint32_t f = toArgb(fillColour);
  for (int32_t y = 0; y < height; ++y) {
    auto* dst = reinterpret_cast<uint32_t*>(nd + static_cast<size_t>(y) * ns);
    int32_t keep = y < m_height ? std::min(width, m_width) : 0;
    if (keep > 0) std::copy(row(y), row(y) + keep, dst);
    std::fill(dst + keep, dst + width, f);
  }
  cairo_surface_mark_dirty(next);
  m_cairoStale = false;
  cairo_surface_destroy(m_surface);
  m_surface = next;
  attach();
  return true;
}

COLORREF Canvas::pixel(int32_t x, int32_t y) const {
  if (!contains(x, y)) return -1;
  return fromArgb(row(y)[x]);
}

void Canvas::setPixel(int32_t x, int32_t y, COLORREF c) {
  if (contains(x, y)) row(y)[x] = toArgb(c);
}

void Canvas::fill(COLORREF c) { fillRect(0, 0, m_width, m_height, c); }

void Canvas::fillRect(int32_t left, int32_t top, int32_t right, int32_t bottom, COLORREF c) {
  left = std::max(left, 0);
  top = std::max(top, 0);
  right = std::min(right, m_width);
  bottom = std::min(bottom, m_height);
  uint32_t p = toArgb(c);
  for (int32_t y = top; y < bottom; ++y) std::fill(row(y) + left, row(y) + std::max(left, right), p);
}

}  // namespace corvane

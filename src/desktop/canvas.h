// SPDX-License-Identifier: MIT
#pragma once
#include <cairo.h>

#include <cstdint>
#include <span>
#include <vector>

#include <corvane/platform/types.h>

namespace corvane {

// A pixel store: one Cairo image surface in ARGB32 (premultiplied; window images are kept opaque).
// Window images, bitmaps and the composed screen are canvases.
class Canvas {
 public:
  // A canvas that cannot be made (too large for an image, or no memory) is 0 by 0 pixels.
  Canvas(int32_t width, int32_t height, COLORREF fill = 0xFFFFFF);
  explicit Canvas(cairo_surface_t* adopt);  // takes ownership of an image surface
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  int32_t width() const { return m_width; }
  int32_t height() const { return m_height; }
  cairo_surface_t* surface() const {  // for drawing: counts as a change
    ++m_version;
    return settledForCairo();
  }
  cairo_surface_t* readSurface() const { return settledForCairo(); }  // for reading only, as when saving
  // Goes up with every call that can change the pixels, so that a copy of them knows it is stale.
  uint64_t version() const { return m_version; }

  // Changes the size, keeping the pixels at the top left; new pixels get the fill colour. When an
  // image of the new size cannot be made, the canvas stays as it was and the result is false.
  bool resize(int32_t width, int32_t height, COLORREF fill);

  // Direct pixel access; callers check bounds with contains(). Pixels are 0xAARRGGBB words.
  bool contains(int32_t x, int32_t y) const { return x >= 0 && y >= 0 && x < m_width && y < m_height; }
  uint32_t* row(int32_t y) {
    settle();
    ++m_version;
    return reinterpret_cast<uint32_t*>(m_data + static_cast<size_t>(y) * m_stride);
  }
  const uint32_t* row(int32_t y) const {
    settle();
    return reinterpret_cast<const uint32_t*>(m_data + static_cast<size_t>(y) * m_stride);
  }

  // A one-pixel column from row top to bottom (excluded) in one colour, x and the rows on the
  // canvas. Columns over the same rows that follow one another (to the right or to the left) are
  // gathered and written a whole row at a time when the pixels are next used: the same pixels as
  // column by column, in far fewer memory passes.
  void column(int32_t x, int32_t top, int32_t bottom, uint32_t argb) {
    if (m_columnsLeft < m_columnsRight && top == m_columnsTop && bottom == m_columnsBottom) {
      if (x == m_columnsRight) {
        ++m_version;
        m_columnColours[static_cast<size_t>(m_columnsRight++)] = argb;
        return;
      }
      if (x == m_columnsLeft - 1) {
        ++m_version;
        m_columnColours[static_cast<size_t>(--m_columnsLeft)] = argb;
        return;
      }
    }
    startColumns(x, top, bottom, argb);
  }
  // Columns x, x + direction, x + 2 * direction and so on (direction 1 or -1), one per colour
  // given as &H00BBGGRR, all on the canvas: the same as column() for each in turn.
  void columns(int32_t x, int32_t direction, int32_t top, int32_t bottom, std::span<const COLORREF> colours);
  COLORREF pixel(int32_t x, int32_t y) const;      // as &H00BBGGRR, -1 outside
  void setPixel(int32_t x, int32_t y, COLORREF c);  // opaque
  void fill(COLORREF c);
  void fillRect(int32_t left, int32_t top, int32_t right, int32_t bottom, COLORREF c);  // clipped, right/bottom excluded

  // Call before reading pixels after Cairo drew, and after writing pixels before Cairo draws.
  void flush() { cairo_surface_flush(m_surface); }
  // Pixels written directly are told to Cairo the next time Cairo is given the surface, once for
  // any number of writes.
  void markDirty() { m_cairoStale = true; }

  // Red and blue swap places: the byte order of 0x00BBGGRR shifted up is that of 0x00RRGGBB.
  static uint32_t toArgb(COLORREF c) {
    return 0xFF000000u | __builtin_bswap32(static_cast<uint32_t>(c) << 8);
  }
  static COLORREF fromArgb(uint32_t p) {
    return static_cast<COLORREF>(((p >> 16) & 0xFF) | (p & 0xFF00) | ((p & 0xFF) << 16));
  }

 private:
  void attach();
  void startColumns(int32_t x, int32_t top, int32_t bottom, uint32_t argb);  // after settling any others
  void settle() const {
    if (m_columnsLeft < m_columnsRight) writeColumns();
  }
  // Settled, and Cairo told of the pixels written directly since it last had the surface.
  cairo_surface_t* settledForCairo() const {
    settle();
    if (m_cairoStale) {
      m_cairoStale = false;
      cairo_surface_mark_dirty(m_surface);
    }
    return m_surface;
  }
  void writeColumns() const;

  // Gathered columns: m_columnColours[x] for x in [m_columnsLeft, m_columnsRight), rows
  // [m_columnsTop, m_columnsBottom). Written by settle() before any other use of the pixels.
  mutable uint64_t m_version = 0;
  mutable bool m_cairoStale = false;
  mutable int32_t m_columnsLeft = 0, m_columnsRight = 0, m_columnsTop = 0, m_columnsBottom = 0;
  std::vector<uint32_t> m_columnColours;
  cairo_surface_t* m_surface = nullptr;
  unsigned char* m_data = nullptr;
  int32_t m_width = 0, m_height = 0, m_stride = 0;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include "live/x_cursors.h"

#include <X11/Xcursor/Xcursor.h>
#include <X11/cursorfont.h>
#include <corvane/platform/api.h>

#include <algorithm>
#include <vector>

#include "resources/cursor_hot_spots.h"

namespace corvane {

namespace {

constexpr int32_t kCustomPointer = 99;
constexpr int32_t kLargestCursor = 64;

unsigned fontShape(int32_t pointer) {
  switch (pointer) {
    case 2:
      return XC_crosshair;
    case 3:
      return XC_xterm;
    case 4:
      return XC_icon;
    case 5:
    case 15:
      return XC_fleur;
    case 6:
      return XC_bottom_left_corner;
    case 7:
      return XC_sb_v_double_arrow;
    case 8:
      return XC_bottom_right_corner;
    case 9:
      return XC_sb_h_double_arrow;
    case 10:
      return XC_sb_up_arrow;
    case 11:
    case 13:
      return XC_watch;
    case 12:
      return XC_X_cursor;
    case 14:
      return XC_question_arrow;
    default:
      return XC_left_ptr;
  }
}

}  // namespace

XCursors::~XCursors() {
  for (auto& [key, cursor] : m_made)
    if (cursor != None) XFreeCursor(m_display, cursor);
}

Cursor XCursors::cursorFor(int32_t pointer, HGDIOBJ image) {
  if (pointer == 0) return None;
  if (pointer != kCustomPointer) image = 0;
  auto key = std::make_pair(pointer, image);
  auto it = m_made.find(key);
  if (it != m_made.end()) return it->second;
  Cursor c = pointer == kCustomPointer ? fromImage(image) : XCreateFontCursor(m_display, fontShape(pointer));
  m_made.emplace(key, c);
  return c;
}

// The image is drawn on black and on white: what differs between the two is its transparency,
// what it leaves on black is its premultiplied colour.
Cursor XCursors::fromImage(HGDIOBJ image) {
  if (!image) return None;
  GdiApi& g = gdi();
  SIZE size = g.GetImageSize(image);
  int32_t w = std::min(size.cx, kLargestCursor), h = std::min(size.cy, kLargestCursor);
  if (w <= 0 || h <= 0) return None;
  HDC dc = g.CreateCompatibleDC(0);
  HBITMAP bitmap = g.CreateCompatibleBitmap(dc, w, h);
  HGDIOBJ old = g.SelectObject(dc, bitmap);
  std::vector<COLORREF> onBlack, onWhite;
  for (COLORREF back : {COLORREF(0), COLORREF(0xFFFFFF)}) {
    HBRUSH brush = g.CreateSolidBrush(back);
    g.FillRect(dc, RECT{0, 0, w, h}, brush);
    g.DeleteObject(brush);
    g.DrawImage(dc, image, 0, 0, w, h, 0, 0, w, h, -1);
    auto& out = back ? onWhite : onBlack;
    for (int32_t y = 0; y < h; ++y)
      for (int32_t x = 0; x < w; ++x) out.push_back(g.GetPixel(dc, x, y));
  }
  g.SelectObject(dc, old);
  g.DeleteObject(bitmap);
  g.DeleteDC(dc);
  XcursorImage* cursorImage = XcursorImageCreate(w, h);
  if (!cursorImage) return None;
  // The library's cursors keep their hot spot with the image; other images have it at the top left.
  const POINTAPI spot = hotSpotOf(image);
  cursorImage->xhot = static_cast<XcursorDim>(std::clamp(spot.x, 0, w - 1));
  cursorImage->yhot = static_cast<XcursorDim>(std::clamp(spot.y, 0, h - 1));
  for (size_t i = 0; i < onBlack.size(); ++i) {
    uint32_t b = static_cast<uint32_t>(onBlack[i]), wt = static_cast<uint32_t>(onWhite[i]);
    // Alpha from the green channel: 255 less how far the white shows through.
    uint32_t alpha =
        255 - std::min<uint32_t>(255, ((wt >> 8) & 0xFF) - std::min((wt >> 8) & 0xFF, (b >> 8) & 0xFF));
    uint32_t r = b & 0xFF, gr = (b >> 8) & 0xFF, bl = (b >> 16) & 0xFF;
    cursorImage->pixels[i] =
        (alpha << 24) | (std::min(r, alpha) << 16) | (std::min(gr, alpha) << 8) | std::min(bl, alpha);
  }
  Cursor c = XcursorImageLoadCursor(m_display, cursorImage);
  XcursorImageDestroy(cursorImage);
  return c;
}

}  // namespace corvane

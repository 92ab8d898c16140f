// SPDX-License-Identifier: MIT
#pragma once
#include <X11/Xlib.h>
#include <corvane/platform/types.h>

#include <cstdint>
#include <map>
#include <utility>

namespace corvane {

// The display's cursors for the mouse-pointer values: the system's shapes from the cursor font,
// and pointer 99 as a colour cursor made from the image (hot spot where the image keeps one,
// else at its top left). Made once per value and image, freed with the display.
class XCursors {
 public:
  explicit XCursors(Display* display) : m_display(display) {}
  ~XCursors();
  XCursors(const XCursors&) = delete;
  XCursors& operator=(const XCursors&) = delete;

  // None (the parent's cursor, the default arrow) for pointer 0 and for an image that cannot be read.
  Cursor cursorFor(int32_t pointer, HGDIOBJ image);

 private:
  Cursor fromImage(HGDIOBJ image);

  Display* m_display;
  std::map<std::pair<int32_t, HGDIOBJ>, Cursor> m_made;
};

}  // namespace corvane

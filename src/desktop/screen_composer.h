// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <vector>

#include "desktop/canvas.h"
#include "desktop/window_manager.h"

namespace corvane {

// Keeps the screen image up to date from the windows that changed since it was last composed:
// the whole screen when windows moved, appeared, went or changed their look (order, size, region,
// opacity), otherwise only the rectangles of the top-level windows whose images were drawn on.
// The pixels are those of composing the whole screen afresh.
class ScreenComposer {
 public:
  explicit ScreenComposer(WindowManager& windows) : m_windows(windows) {}

  void update(Canvas& screen, COLORREF desktopColour);
  // The part of the screen under rect (screen coordinates) as the screen shows it, composed into
  // out (made rect's size) without composing the screen; pixels beyond the screen are black.
  bool composePart(const RECT& rect, int32_t screenWidth, int32_t screenHeight, COLORREF desktopColour,
                   Canvas& out);

 private:
  // What decides how the windows are laid over one another, in composition order.
  std::vector<int64_t> layout() const;
  void addLayout(HWND hWnd, std::vector<int64_t>& out) const;
  uint64_t contentVersion(HWND hWnd) const;  // of the window's image and its children's

  WindowManager& m_windows;
  const Canvas* m_screen = nullptr;  // the image last composed, with its state then
  uint64_t m_screenVersion = 0;
  COLORREF m_colour = 0;
  std::vector<int64_t> m_layout;
  std::vector<uint64_t> m_contents;  // per top-level window, in m_windows.topLevelWindows() order
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <map>
#include <memory>

#include "desktop/canvas.h"
#include "desktop/window_images.h"

namespace corvane::test {

// Window images for drawing tests: a canvas per window handle, and a count of drawing reports.
class FakeWindows : public WindowImages {
 public:
  Canvas& add(HWND hWnd, int32_t width, int32_t height, COLORREF fill = 0xFFFFFF) {
    m_canvases[hWnd] = std::make_unique<Canvas>(width, height, fill);
    return *m_canvases[hWnd];
  }
  void remove(HWND hWnd) { m_canvases.erase(hWnd); }
  Canvas* windowCanvas(HWND hWnd) override {
    auto it = m_canvases.find(hWnd);
    return it == m_canvases.end() ? nullptr : it->second.get();
  }
  void windowDrawn(HWND hWnd) override { ++drawn[hWnd]; }

  std::map<HWND, int> drawn;

 private:
  std::map<HWND, std::unique_ptr<Canvas>> m_canvases;
};

}  // namespace corvane::test

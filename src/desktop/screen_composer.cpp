// SPDX-License-Identifier: MIT
#include "desktop/screen_composer.h"

#include <algorithm>

namespace corvane {

void ScreenComposer::addLayout(HWND hWnd, std::vector<int64_t>& out) const {
  const DesktopWindow* w = m_windows.window(hWnd);
  if (!w) return;
  out.insert(out.end(), {hWnd, w->visible, w->rect.Left, w->rect.Top, w->canvas->width(), w->canvas->height(),
                         w->exStyle, w->alpha, w->region ? static_cast<int64_t>(w->region->size()) : -1});
  // The outer size and the border styles: a child's border lies outside its image.
  out.insert(out.end(), {w->rect.Right - w->rect.Left, w->rect.Bottom - w->rect.Top, w->style & WS_BORDER});
  if (w->region)
    for (const RECT& r : *w->region) out.insert(out.end(), {r.Left, r.Top, r.Right, r.Bottom});
  out.push_back(static_cast<int64_t>(w->children.size()));
  for (HWND c : w->children) addLayout(c, out);
}

std::vector<int64_t> ScreenComposer::layout() const {
  std::vector<int64_t> out;
  for (HWND h : m_windows.topLevelWindows()) addLayout(h, out);
  return out;
}

uint64_t ScreenComposer::contentVersion(HWND hWnd) const {
  const DesktopWindow* w = m_windows.window(hWnd);
  if (!w) return 0;
  uint64_t v = w->canvas->version();
  for (HWND c : w->children) v += contentVersion(c);  // versions only grow: the sum changes with any
  return v;
}

void ScreenComposer::update(Canvas& screen, COLORREF desktopColour) {
  std::vector<HWND> tops = m_windows.topLevelWindows();
  std::vector<uint64_t> contents;
  contents.reserve(tops.size());
  for (HWND h : tops) contents.push_back(contentVersion(h));
  std::vector<int64_t> now = layout();
  // Something drawn on the screen itself is covered again, as a fresh composition would.
  const bool whole = m_screen != &screen || screen.version() != m_screenVersion ||
                     desktopColour != m_colour || now != m_layout || contents.size() != m_contents.size();
  if (whole) {
    m_windows.compose(screen, desktopColour);
  } else {
    bool flushed = false;
    for (size_t i = 0; i < tops.size(); ++i) {
      if (contents[i] == m_contents[i]) continue;
      const DesktopWindow* w = m_windows.window(tops[i]);
      if (!flushed) screen.flush();
      flushed = true;
      const RECT r = w->rect;
      screen.fillRect(r.Left, r.Top, r.Right, r.Bottom, desktopColour);
      m_windows.composeArea(screen, 0, 0, r);
    }
    if (flushed) screen.markDirty();
  }
  m_screen = &screen;
  m_screenVersion = screen.version();
  m_colour = desktopColour;
  m_layout = std::move(now);
  m_contents = std::move(contents);
}

bool ScreenComposer::composePart(const RECT& rect, int32_t screenWidth, int32_t screenHeight,
                                 COLORREF desktopColour, Canvas& out) {
  if (!out.resize(std::max(rect.Right - rect.Left, 0), std::max(rect.Bottom - rect.Top, 0), 0)) return false;
  out.flush();
  out.fill(0);
  RECT onScreen{std::max(rect.Left, 0) - rect.Left, std::max(rect.Top, 0) - rect.Top,
                std::min(rect.Right, screenWidth) - rect.Left,
                std::min(rect.Bottom, screenHeight) - rect.Top};
  out.fillRect(onScreen.Left, onScreen.Top, onScreen.Right, onScreen.Bottom, desktopColour);
  m_windows.composeArea(out, rect.Left, rect.Top, onScreen);
  out.markDirty();
  return true;
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <X11/Xlib.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/window_manager.h"
#include "live/x_clipboard.h"
#include "live/x_cursors.h"

namespace corvane {

// The window side of the live display: the desktop's own window manager, whose top-level windows
// are mirrored as real windows of an X display, and whose input, time and clipboard come from it.
// Child windows stay composed in process inside their top-level window.
class LiveWindowManager : public WindowManager {
 public:
  // Takes over the connection and closes it at the end.
  LiveWindowManager(Clock& clock, Display* display);
  ~LiveWindowManager() override;

  // The X window that shows a top-level window, 0 when there is none (yet).
  unsigned long nativeWindow(HWND hWnd) const;

  HWND SetCapture(HWND hWnd) override;
  bool ReleaseCapture() override;
  bool GetCursorPos(POINTAPI& point) override;
  bool SetCursorPos(int32_t x, int32_t y) override;
  bool ClipCursor(const RECT* rect) override;
  int16_t GetAsyncKeyState(int32_t key) override;
  int32_t GetSystemMetrics(int32_t index) override;
  int32_t DoEvents() override;
  bool WaitForWork(int32_t maxMilliseconds) override;
  bool setClipboardText(const std::string& text) override;
  std::string clipboardText() override;

 private:
  // What the real window shows now, to change only what differs.
  struct Mirror {
    Window xid = 0;
    RECT rect;
    bool mapped = false;
    std::string title;
    int32_t exStyle = -1;
    int32_t alpha = -1;
    std::optional<std::vector<RECT>> region;
    bool stale = true;  // the pixels need presenting
    Cursor cursor = None;
  };

  int32_t pumpNative();
  void handle(XEvent& event);
  HWND windowOf(Window xid) const;
  HWND topLevelOf(HWND hWnd) const;
  void syncWindows();
  void create(HWND hWnd, const DesktopWindow& w, Mirror& m);
  void applyStates(const DesktopWindow& w, Mirror& m);
  void applyShape(const DesktopWindow& w, Mirror& m);
  void present(HWND hWnd, Mirror& m);
  void restack();
  // Shows the cursor of the window under the mouse on its real window.
  void updateCursor();
  // Grabs the pointer as capture and clip ask: for the capturing window, confined to the clip.
  void grabPointer();
  // The tracking sizes a window asks for, when they differ from the system's.
  std::optional<MINMAXINFO> sizeLimits(HWND hWnd);

  Display* m_display;
  Window m_root;
  std::unique_ptr<XClipboard> m_clipboardX;
  std::unique_ptr<XCursors> m_cursors;
  std::map<HWND, Mirror> m_mirrors;
  std::vector<HWND> m_stacked;  // the order last given to the display, bottom to top
  std::optional<RECT> m_clip;
  Window m_confine = 0;                  // an input-only window under all others that covers the clip
  std::optional<unsigned> m_eventState;  // the modifier keys of the input event being handled
  uint64_t m_lastDrawCount = ~0ull;
  bool m_pumping = false;
  Canvas m_image{1, 1, 0};
  Atom m_deleteWindow, m_protocols, m_netWmName, m_utf8, m_netWmState, m_above, m_skipTaskbar, m_skipPager,
      m_opacity, m_motifHints, m_windowType, m_typeNormal, m_typeNotification, m_workArea;
};

}  // namespace corvane

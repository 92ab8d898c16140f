// SPDX-License-Identifier: MIT
#pragma once
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "desktop/canvas.h"
#include "desktop/clock.h"
#include "desktop/window_images.h"
#include <corvane/platform/message_memory.h>
#include <corvane/platform/platform.h>

namespace corvane {

// One window of the desktop. A child window's styles may give it a border (WS_BORDER,
// WS_EX_CLIENTEDGE) that takes room from its client area; a top-level window has no non-client area
// here, since a live display's window manager puts its own frame round it.
struct DesktopWindow {
  HWND hwnd = 0;
  HWND parent = 0;
  std::string className;
  std::string title;
  int32_t style = 0;
  int32_t exStyle = 0;
  int32_t classStyle = 0;
  RECT rect;  // the outer rectangle, in the parent's client coordinates; screen ones for a top level
  bool visible = false;
  bool enabled = true;
  COLORREF background = 0xFFFFFF;
  std::unique_ptr<Canvas> canvas;  // the client area: the window less its border
  std::vector<HWND> children;  // bottom to top
  std::map<std::string, int32_t> props;
  WNDPROC proc = 0;
  std::optional<std::vector<RECT>> region;  // in window coordinates
  uint8_t alpha = 255;                      // used while the layered style is set
  bool needsPaint = false;
  int32_t processId = 0;
  int32_t cursor = 0;        // the mouse-pointer value shown over the window
  HGDIOBJ cursorImage = 0;  // the image of pointer 99
};

// The window side of the desktop: windows with z-order, messages through window procedures,
// window properties, input with capture and mouse-leave tracking, and timers on a clock.
class WindowManager : public UserApi, public WindowImages {
 public:
  WindowManager(Clock& clock, int32_t screenWidth, int32_t screenHeight);
  ~WindowManager() override;

  // The drawing side hands regions over by handle (rectangles) and frees them.
  void setRegionSource(std::function<std::vector<RECT>(HRGN)> rects, std::function<void(HRGN)> release);
  // The drawing side's system colours, for the borders of child windows.
  void setSystemColours(std::function<COLORREF(int32_t)> colour) { m_sysColour = std::move(colour); }

  // UserApi.
  HWND CreateWindowExA(int32_t exStyle, const std::string& className, const std::string& title, int32_t style,
                       int32_t x, int32_t y, int32_t width, int32_t height, HWND parent, WNDPROC proc) override;
  bool DestroyWindow(HWND hWnd) override;
  bool IsWindow(HWND hWnd) override;
  bool IsWindowVisible(HWND hWnd) override;
  bool IsWindowEnabled(HWND hWnd) override;
  bool EnableWindow(HWND hWnd, bool enable) override;
  bool ShowWindow(HWND hWnd, int32_t command) override;
  bool MoveWindow(HWND hWnd, int32_t x, int32_t y, int32_t width, int32_t height, bool repaint) override;
  bool SetWindowPos(HWND hWnd, HWND after, int32_t x, int32_t y, int32_t cx, int32_t cy, int32_t flags) override;
  bool GetWindowRect(HWND hWnd, RECT& rect) override;
  bool GetClientRect(HWND hWnd, RECT& rect) override;
  HWND GetParent(HWND hWnd) override;
  HWND SetParent(HWND hWnd, HWND parent) override;
  std::vector<HWND> childWindows(HWND hWnd) override;
  int32_t GetWindowLongA(HWND hWnd, int32_t index) override;
  int32_t SetWindowLongA(HWND hWnd, int32_t index, int32_t value) override;
  int32_t GetClassLongA(HWND hWnd, int32_t index) override;
  int32_t SetClassLongA(HWND hWnd, int32_t index, int32_t value) override;
  bool SetLayeredWindowAttributes(HWND hWnd, COLORREF key, uint8_t alpha, int32_t flags) override;
  int32_t SetWindowRgn(HWND hWnd, HRGN region, bool redraw) override;
  bool SetForegroundWindow(HWND hWnd) override;
  HWND GetForegroundWindow() override { return m_foreground; }
  HWND SetFocus(HWND hWnd) override;
  HWND GetFocus() override { return m_focus; }
  bool SetWindowTextA(HWND hWnd, const std::string& text) override;
  std::string GetWindowTextA(HWND hWnd) override;
  bool InvalidateRect(HWND hWnd, const RECT* rect, bool erase) override;
  bool UpdateWindow(HWND hWnd) override;

  WNDPROC RegisterWindowProc(WindowProcedure proc) override;
  void UnregisterWindowProc(WNDPROC proc) override;
  LRESULT CallWindowProcA(WNDPROC proc, HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override;
  LRESULT DefWindowProcA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override;
  LRESULT SendMessageA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override;
  bool PostMessageA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override;
  bool SetPropA(HWND hWnd, const std::string& name, int32_t value) override;
  int32_t GetPropA(HWND hWnd, const std::string& name) override;
  int32_t RemovePropA(HWND hWnd, const std::string& name) override;
  int32_t GetWindowThreadProcessId(HWND hWnd, int32_t* processId) override;
  int32_t GetCurrentProcessId() override;

  bool GetCursorPos(POINTAPI& point) override;
  bool SetCursorPos(int32_t x, int32_t y) override;
  HWND WindowFromPoint(int32_t x, int32_t y) override;
  bool ScreenToClient(HWND hWnd, POINTAPI& point) override;
  bool ClientToScreen(HWND hWnd, POINTAPI& point) override;
  HWND SetCapture(HWND hWnd) override;
  bool ReleaseCapture() override;
  HWND GetCapture() override { return m_capture; }
  bool ClipCursor(const RECT* rect) override;
  int16_t GetAsyncKeyState(int32_t key) override;
  bool TrackMouseEvent(TRACKMOUSEEVENT& request) override;
  int32_t GetSystemMetrics(int32_t index) override;

  int32_t SetTimer(HWND hWnd, int32_t id, int32_t milliseconds) override;
  bool KillTimer(HWND hWnd, int32_t id) override;
  uint32_t GetTickCount() override { return static_cast<uint32_t>(m_clock.now()); }
  int32_t DoEvents() override;
  bool WaitForWork(int32_t maxMilliseconds) override;

  // WindowImages.
  Canvas* windowCanvas(HWND hWnd) override;
  void windowDrawn(HWND hWnd) override { ++m_drawCount; (void)hWnd; }

  // Desktop services beyond the platform calls.
  const DesktopWindow* window(HWND hWnd) const;
  // What a context on window 0 draws into; made when first asked for.
  void setScreenCanvas(std::function<Canvas*()> screen) { m_screen = std::move(screen); }
  void setWindowBackground(HWND hWnd, COLORREF colour);
  void setWindowProcess(HWND hWnd, int32_t processId);  // makes a window look foreign, for tests
  std::vector<HWND> topLevelWindows() const;             // bottom to top, top-most ones last
  int32_t screenWidth() const { return m_screenWidth; }
  int32_t screenHeight() const { return m_screenHeight; }
  // The monitors: their count and the size of the box over all of them. The screen image is the
  // primary monitor; with one monitor the box is the screen.
  void setMonitors(int32_t count, int32_t virtualWidth, int32_t virtualHeight);
  uint64_t drawCount() const { return m_drawCount; }
  // The limits of a top-level window's size: the system's values, then WM_GETMINMAXINFO lets the
  // window change them. A size change of a top-level window keeps within the tracking sizes.
  MINMAXINFO minMaxInfo(HWND hWnd);

  // Synthetic input: each call delivers its messages at once, then pumps posted messages.
  void mouseMove(int32_t x, int32_t y);
  void mouseDown(int32_t button);  // 1 left, 2 right, 4 middle
  void mouseUp(int32_t button);
  void keyDown(int32_t virtualKey);
  void keyUp(int32_t virtualKey);
  void typeChar(int32_t charCode);
  int32_t keyState() const;  // MK_ flags for wParam

  // Moves the virtual clock by ms, firing each timer as it falls due.
  void advance(int64_t ms);
  int64_t nextTimerDue() const;  // -1 when there is none

  // Composes all visible windows into the screen image.
  void compose(Canvas& screen, COLORREF desktopColour);
  // Composes every top-level window, bottom to top, into the pixels of target inside clip (target
  // coordinates); target's pixel (0, 0) shows the screen's (originX, originY). What lies below the
  // windows is the caller's.
  void composeArea(Canvas& target, int32_t originX, int32_t originY, RECT clip);
  // How many windows were composed into an image so far (each window once per area), for tests.
  uint64_t windowsComposed() const { return m_windowsComposed; }
  // Composes one top-level window with its children into an image of the window's size, at full
  // opacity and without its region: a live display applies those to the real window.
  bool composeTopLevel(HWND hWnd, Canvas& out);

  bool setWindowCursor(HWND hWnd, int32_t pointer, HGDIOBJ image) override;

  // Clipboard text: in process here, the display's clipboard on a live display.
  bool setClipboardText(const std::string& text) override;
  std::string clipboardText() override { return m_clipboard; }

 protected:
  bool hasPostedMessages() const { return !m_posted.empty(); }

 private:
  struct Timer {
    HWND hwnd;
    int32_t id;
    int32_t interval;
    int64_t due;
  };
  struct Posted {
    HWND hwnd;
    int32_t msg;
    WPARAM wParam;
    LPARAM lParam;
  };

  DesktopWindow* find(HWND hWnd);
  std::vector<HWND>& siblingsOf(DesktopWindow& w);
  void raise(DesktopWindow& w);
  void resizeTo(DesktopWindow& w, int32_t x, int32_t y, int32_t width, int32_t height);
  bool isShown(const DesktopWindow& w) const;  // visible with all its ancestors
  bool regionContains(const DesktopWindow& w, int32_t x, int32_t y) const;
  HWND childFromPoint(const DesktopWindow& w, int32_t x, int32_t y) const;
  POINTAPI screenOrigin(const DesktopWindow& w) const;
  // The border of a window and where its client area starts on the screen.
  int32_t borderOf(const DesktopWindow& w) const;
  POINTAPI clientOrigin(const DesktopWindow& w) const;
  // The window under a point in w's window coordinates: a child in w's client area, else w.
  HWND hitInWindow(const DesktopWindow& w, int32_t x, int32_t y) const;
  // The window that gets client mouse messages at a screen point: the capture, or the window
  // under the point when the point is in its client area (its border gets none).
  HWND mouseTarget(int32_t x, int32_t y);
  // The styles changed the border: the client area follows the outer size.
  void frameChanged(DesktopWindow& w);
  void deliverMouse(int32_t msg, HWND target);
  // Sends one message on behalf of the message loop: an error raised while it is handled goes to
  // the application's error handler instead of ending the loop.
  void dispatchFromLoop(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam);
  void checkMouseLeave(HWND over);
  void fireTimers(int64_t upTo);
  void composeWindow(const DesktopWindow& w, Canvas& screen, int32_t ox, int32_t oy, RECT clip, double alpha);
  void paintPending();

  Clock& m_clock;
  int32_t m_screenWidth, m_screenHeight;
  int32_t m_monitors = 1, m_virtualWidth = 0, m_virtualHeight = 0;  // 0: the screen's size
  std::unordered_map<HWND, std::unique_ptr<DesktopWindow>> m_windows;
  std::vector<HWND> m_topLevel;  // bottom to top
  std::unordered_map<WNDPROC, WindowProcedure> m_procs;
  WNDPROC m_nextProc = 0x400000;
  HWND m_nextHwnd = 0x10000;
  std::deque<Posted> m_posted;
  std::vector<Timer> m_timers;
  POINTAPI m_cursor;
  std::optional<RECT> m_cursorClip;
  HWND m_capture = 0, m_focus = 0, m_foreground = 0, m_tracking = 0;
  int32_t m_buttons = 0;
  // Buttons pressed since GetAsyncKeyState last asked about them (its low bit).
  int32_t m_pressedSinceAsked = 0;
  std::map<int32_t, bool> m_keys;
  struct LastClick {
    HWND hwnd = 0;
    int32_t button = 0;
    int64_t time = -1000000;
    POINTAPI at;
  } m_lastClick;
  std::function<std::vector<RECT>(HRGN)> m_regionRects;
  std::function<void(HRGN)> m_regionRelease;
  std::function<COLORREF(int32_t)> m_sysColour;
  uint64_t m_drawCount = 0;
  uint64_t m_windowsComposed = 0;
  std::function<Canvas*()> m_screen;
  int32_t m_processId;
  std::string m_clipboard;
};

// Packs client coordinates into a message's lParam, each as a signed 16-bit value.
constexpr LPARAM makePointParam(int32_t x, int32_t y) {
  return static_cast<LPARAM>((static_cast<uint32_t>(static_cast<uint16_t>(x))) |
                             (static_cast<uint32_t>(static_cast<uint16_t>(y)) << 16));
}
constexpr int32_t pointParamX(LPARAM l) { return static_cast<int16_t>(l & 0xFFFF); }
constexpr int32_t pointParamY(LPARAM l) { return static_cast<int16_t>((static_cast<uint32_t>(l) >> 16) & 0xFFFF); }

}  // namespace corvane

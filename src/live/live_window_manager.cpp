// SPDX-License-Identifier: MIT
#include "live/live_window_manager.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/extensions/Xrandr.h>
#include <X11/extensions/shape.h>
#include <poll.h>

#include <algorithm>

#include "live/virtual_keys.h"

namespace corvane {

namespace {

constexpr int32_t kWheelDelta = 120;
constexpr int32_t kCaptionHeight = 26;  // the caption bar of a maximised window, in pixels

// Keeps the flag set while native events are handled, also when a handler throws.
struct PumpGuard {
  bool& flag;
  explicit PumpGuard(bool& f) : flag(f) { flag = true; }
  ~PumpGuard() { flag = false; }
};

bool sameRegion(const std::optional<std::vector<RECT>>& a, const std::optional<std::vector<RECT>>& b) {
  if (a.has_value() != b.has_value()) return false;
  if (!a) return true;
  return std::equal(a->begin(), a->end(), b->begin(), b->end(), [](const RECT& p, const RECT& q) {
    return p.Left == q.Left && p.Top == q.Top && p.Right == q.Right && p.Bottom == q.Bottom;
  });
}

// X keeps positions in 16 bits: a window far off the screen stays at the edge of that range.
int32_t coordinate(int32_t v) { return std::clamp(v, -32768 + kMaxWindowSide, 32767 - kMaxWindowSide); }

bool sameRect(const RECT& a, const RECT& b) {
  return a.Left == b.Left && a.Top == b.Top && a.Right == b.Right && a.Bottom == b.Bottom;
}

}  // namespace

LiveWindowManager::LiveWindowManager(Clock& clock, Display* display)
    : WindowManager(clock, DisplayWidth(display, DefaultScreen(display)),
                    DisplayHeight(display, DefaultScreen(display))),
      m_display(display),
      m_root(DefaultRootWindow(display)),
      m_clipboardX(std::make_unique<XClipboard>(display)),
      m_cursors(std::make_unique<XCursors>(display)) {
  auto atom = [&](const char* name) { return XInternAtom(m_display, name, False); };
  m_deleteWindow = atom("WM_DELETE_WINDOW");
  m_protocols = atom("WM_PROTOCOLS");
  m_netWmName = atom("_NET_WM_NAME");
  m_utf8 = atom("UTF8_STRING");
  m_netWmState = atom("_NET_WM_STATE");
  m_above = atom("_NET_WM_STATE_ABOVE");
  m_skipTaskbar = atom("_NET_WM_STATE_SKIP_TASKBAR");
  m_skipPager = atom("_NET_WM_STATE_SKIP_PAGER");
  m_opacity = atom("_NET_WM_WINDOW_OPACITY");
  m_motifHints = atom("_MOTIF_WM_HINTS");
  m_windowType = atom("_NET_WM_WINDOW_TYPE");
  m_typeNormal = atom("_NET_WM_WINDOW_TYPE_NORMAL");
  m_typeNotification = atom("_NET_WM_WINDOW_TYPE_NOTIFICATION");
  m_workArea = atom("_NET_WORKAREA");
  // The monitors, where the display tells them; the screen is the box over all of them.
  int count = 0;
  if (XRRMonitorInfo* monitors = XRRGetMonitors(m_display, m_root, True, &count)) XRRFreeMonitors(monitors);
  setMonitors(std::max(count, 1), screenWidth(), screenHeight());
}

LiveWindowManager::~LiveWindowManager() {
  if (m_confine) XDestroyWindow(m_display, m_confine);
  for (auto& [h, m] : m_mirrors) XDestroyWindow(m_display, m.xid);
  m_clipboardX.reset();
  m_cursors.reset();
  XCloseDisplay(m_display);
}

unsigned long LiveWindowManager::nativeWindow(HWND hWnd) const {
  auto it = m_mirrors.find(hWnd);
  return it == m_mirrors.end() ? 0 : it->second.xid;
}

HWND LiveWindowManager::windowOf(Window xid) const {
  for (const auto& [h, m] : m_mirrors)
    if (m.xid == xid) return h;
  return 0;
}

HWND LiveWindowManager::topLevelOf(HWND hWnd) const {
  const DesktopWindow* w = window(hWnd);
  while (w && w->parent) w = window(w->parent);
  return w ? w->hwnd : 0;
}

// ---- mirroring the top-level windows ----

void LiveWindowManager::create(HWND hWnd, const DesktopWindow& w, Mirror& m) {
  XSetWindowAttributes a{};
  a.background_pixmap = None;
  a.bit_gravity = NorthWestGravity;
  a.event_mask = ExposureMask | ButtonPressMask | ButtonReleaseMask | PointerMotionMask | EnterWindowMask |
                 LeaveWindowMask | KeyPressMask | KeyReleaseMask | FocusChangeMask | StructureNotifyMask;
  int32_t width = std::max(1, w.rect.Right - w.rect.Left), height = std::max(1, w.rect.Bottom - w.rect.Top);
  m.xid = XCreateWindow(m_display, m_root, coordinate(w.rect.Left), coordinate(w.rect.Top), width, height, 0,
                        CopyFromParent, InputOutput, CopyFromParent,
                        CWBackPixmap | CWBitGravity | CWEventMask, &a);
  m.rect = w.rect;
  XSetWMProtocols(m_display, m.xid, &m_deleteWindow, 1);
  XClassHint cls{const_cast<char*>("corvane"), const_cast<char*>("Corvane")};
  XSetClassHint(m_display, m.xid, &cls);
  (void)hWnd;
}

// Title, size hints, window kind, stacking states and opacity.
void LiveWindowManager::applyStates(const DesktopWindow& w, Mirror& m) {
  if (w.title != m.title) {
    m.title = w.title;
    XStoreName(m_display, m.xid, w.title.c_str());  // older window managers read this name
    XChangeProperty(m_display, m.xid, m_netWmName, m_utf8, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(w.title.data()), static_cast<int>(w.title.size()));
  }
  // The desktop decides the size and the place: the window manager is asked to keep both. A
  // window with size limits of its own (WM_GETMINMAXINFO) may be resized within them.
  XSizeHints hints{};
  hints.flags = USPosition | USSize | PMinSize | PMaxSize;
  hints.x = w.rect.Left;
  hints.y = w.rect.Top;
  hints.width = hints.min_width = hints.max_width = std::max(1, w.rect.Right - w.rect.Left);
  hints.height = hints.min_height = hints.max_height = std::max(1, w.rect.Bottom - w.rect.Top);
  if (auto limits = sizeLimits(w.hwnd)) {
    hints.min_width = std::max(1, limits->ptMinTrackSize.x);
    hints.min_height = std::max(1, limits->ptMinTrackSize.y);
    hints.max_width = std::max(hints.min_width, limits->ptMaxTrackSize.x);
    hints.max_height = std::max(hints.min_height, limits->ptMaxTrackSize.y);
  }
  XSetWMNormalHints(m_display, m.xid, &hints);

  int32_t flags = WS_EX_TOPMOST | WS_EX_TOOLWINDOW;
  if ((w.exStyle & flags) != (m.exStyle & flags) || m.exStyle < 0) {
    bool tool = w.exStyle & WS_EX_TOOLWINDOW, topmost = w.exStyle & WS_EX_TOPMOST;
    // A tool window (an alert, a balloon) has no frame of the window manager and no task-bar entry.
    long motif[5] = {2, 0, tool ? 0 : 1, 0, 0};
    XChangeProperty(m_display, m.xid, m_motifHints, m_motifHints, 32, PropModeReplace,
                    reinterpret_cast<unsigned char*>(motif), 5);
    Atom type = tool ? m_typeNotification : m_typeNormal;
    XChangeProperty(m_display, m.xid, m_windowType, XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<unsigned char*>(&type), 1);
    std::vector<Atom> states;
    if (topmost) states.push_back(m_above);
    if (tool) states.insert(states.end(), {m_skipTaskbar, m_skipPager});
    XChangeProperty(m_display, m.xid, m_netWmState, XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<unsigned char*>(states.data()), static_cast<int>(states.size()));
    // A tool window shows without taking the focus from the application.
    XWMHints input{};
    input.flags = InputHint;
    input.input = tool ? False : True;
    XSetWMHints(m_display, m.xid, &input);
    if (m.mapped) {
      // A window manager keeps the states of a shown window itself: it is asked by message.
      for (auto [state, on] : {std::pair{m_above, topmost}, std::pair{m_skipTaskbar, tool}}) {
        XEvent e{};
        e.xclient.type = ClientMessage;
        e.xclient.window = m.xid;
        e.xclient.message_type = m_netWmState;
        e.xclient.format = 32;
        e.xclient.data.l[0] = on ? 1 : 0;
        e.xclient.data.l[1] = static_cast<long>(state);
        e.xclient.data.l[3] = 1;
        XSendEvent(m_display, m_root, False, SubstructureRedirectMask | SubstructureNotifyMask, &e);
      }
    }
  }
  m.exStyle = w.exStyle;

  int32_t alpha = (w.exStyle & WS_EX_LAYERED) ? w.alpha : 255;
  if (alpha != m.alpha) {
    m.alpha = alpha;
    if (alpha == 255) {
      XDeleteProperty(m_display, m.xid, m_opacity);
    } else {
      unsigned long opacity = static_cast<unsigned long>(alpha) * 0xFFFFFFFFul / 255;
      XChangeProperty(m_display, m.xid, m_opacity, XA_CARDINAL, 32, PropModeReplace,
                      reinterpret_cast<unsigned char*>(&opacity), 1);
    }
  }
}

// The window's region becomes its X shape, for both drawing and input, so that clicks outside
// the shape reach the window below.
void LiveWindowManager::applyShape(const DesktopWindow& w, Mirror& m) {
  if (sameRegion(w.region, m.region)) return;
  m.region = w.region;
  for (int kind : {ShapeBounding, ShapeInput}) {
    if (!w.region) {
      XShapeCombineMask(m_display, m.xid, kind, 0, 0, None, ShapeSet);
      continue;
    }
    std::vector<XRectangle> rects;
    for (const RECT& r : *w.region) {
      if (r.Right <= r.Left || r.Bottom <= r.Top) continue;
      rects.push_back(XRectangle{static_cast<short>(r.Left), static_cast<short>(r.Top),
                                 static_cast<unsigned short>(r.Right - r.Left),
                                 static_cast<unsigned short>(r.Bottom - r.Top)});
    }
    XShapeCombineRectangles(m_display, m.xid, kind, 0, 0, rects.data(), static_cast<int>(rects.size()),
                            ShapeSet, Unsorted);
  }
}

void LiveWindowManager::present(HWND hWnd, Mirror& m) {
  if (!m.mapped || !composeTopLevel(hWnd, m_image)) return;
  m_image.flush();
  Visual* visual = DefaultVisual(m_display, DefaultScreen(m_display));
  int depth = DefaultDepth(m_display, DefaultScreen(m_display));
  // The image's words are 0xAARRGGBB, which is the layout of a 24-bit true-colour display.
  XImage* image =
      XCreateImage(m_display, visual, depth, ZPixmap, 0, reinterpret_cast<char*>(m_image.row(0)),
                   m_image.width(), m_image.height(), 32, cairo_image_surface_get_stride(m_image.surface()));
  if (!image) return;
  XPutImage(m_display, m.xid, DefaultGC(m_display, DefaultScreen(m_display)), image, 0, 0, 0, 0,
            m_image.width(), m_image.height());
  image->data = nullptr;  // the canvas owns the pixels
  XDestroyImage(image);
  m.stale = false;
}

void LiveWindowManager::restack() {
  std::vector<HWND> order;
  for (HWND h : topLevelWindows())
    if (m_mirrors.count(h) && m_mirrors[h].mapped) order.push_back(h);
  if (order == m_stacked) return;
  m_stacked = order;
  std::vector<Window> topFirst;
  for (auto it = order.rbegin(); it != order.rend(); ++it) topFirst.push_back(m_mirrors[*it].xid);
  if (!topFirst.empty()) XRestackWindows(m_display, topFirst.data(), static_cast<int>(topFirst.size()));
}

std::optional<MINMAXINFO> LiveWindowManager::sizeLimits(HWND hWnd) {
  MINMAXINFO system;
  system.ptMaxSize = POINTAPI{screenWidth(), screenHeight()};
  system.ptMaxTrackSize = POINTAPI{kMaxWindowSide, kMaxWindowSide};
  const MINMAXINFO info = minMaxInfo(hWnd);
  if (info.ptMinTrackSize == system.ptMinTrackSize && info.ptMaxTrackSize == system.ptMaxTrackSize)
    return std::nullopt;
  return info;
}

void LiveWindowManager::syncWindows() {
  std::vector<HWND> tops = topLevelWindows();
  for (auto it = m_mirrors.begin(); it != m_mirrors.end();) {
    if (std::find(tops.begin(), tops.end(), it->first) == tops.end()) {
      XDestroyWindow(m_display, it->second.xid);
      it = m_mirrors.erase(it);
    } else {
      ++it;
    }
  }
  bool drawn = drawCount() != m_lastDrawCount;
  m_lastDrawCount = drawCount();
  for (HWND h : tops) {
    const DesktopWindow& w = *window(h);
    Mirror& m = m_mirrors[h];
    if (!m.xid) {
      if (!w.visible) {
        m_mirrors.erase(h);  // made when first shown
        continue;
      }
      create(h, w, m);
    }
    applyStates(w, m);
    applyShape(w, m);
    if (!sameRect(w.rect, m.rect)) {
      m.rect = w.rect;
      XMoveResizeWindow(m_display, m.xid, coordinate(w.rect.Left), coordinate(w.rect.Top),
                        std::max(1, w.rect.Right - w.rect.Left), std::max(1, w.rect.Bottom - w.rect.Top));
      m.stale = true;
    }
    if (w.visible && !m.mapped) {
      XMapWindow(m_display, m.xid);
      m.mapped = true;
      m.stale = true;
    } else if (!w.visible && m.mapped) {
      XUnmapWindow(m_display, m.xid);
      m.mapped = false;
    }
    if (drawn || m.stale) present(h, m);
  }
  restack();
  updateCursor();
  XFlush(m_display);
}

void LiveWindowManager::updateCursor() {
  POINTAPI at;
  WindowManager::GetCursorPos(at);
  HWND over = GetCapture() ? GetCapture() : WindowFromPoint(at.x, at.y);
  const DesktopWindow* w = window(over);
  auto it = m_mirrors.find(topLevelOf(over));
  if (!w || it == m_mirrors.end() || !it->second.xid) return;
  Cursor c = m_cursors->cursorFor(w->cursor, w->cursorImage);
  if (c == it->second.cursor) return;
  it->second.cursor = c;
  if (c == None)
    XUndefineCursor(m_display, it->second.xid);
  else
    XDefineCursor(m_display, it->second.xid, c);
}

// ---- input and events ----

int32_t LiveWindowManager::pumpNative() {
  int32_t handled = 0;
  while (XPending(m_display) > 0) {
    XEvent e;
    XNextEvent(m_display, &e);
    handle(e);
    ++handled;
  }
  return handled;
}

void LiveWindowManager::handle(XEvent& e) {
  if (m_clipboardX->handle(e)) return;
  HWND h = windowOf(e.xany.window);
  // While the cursor is clipped, moves and clicks outside this program's windows come to the
  // clip's window; they count as input at their place on the screen.
  bool clipped = m_confine && e.xany.window == m_confine;
  if (!h && !(clipped && (e.type == MotionNotify || e.type == ButtonPress || e.type == ButtonRelease)))
    return;
  struct StateScope {
    std::optional<unsigned>& slot;
    ~StateScope() { slot.reset(); }
  } scope{m_eventState};
  if (e.type == KeyPress || e.type == KeyRelease) m_eventState = e.xkey.state;
  if (e.type == ButtonPress || e.type == ButtonRelease) m_eventState = e.xbutton.state;
  if (e.type == MotionNotify) m_eventState = e.xmotion.state;
  auto moveTo = [&](int32_t x, int32_t y) {
    if (m_clip && (x < m_clip->Left || y < m_clip->Top || x >= m_clip->Right || y >= m_clip->Bottom)) {
      x = std::clamp(x, m_clip->Left, m_clip->Right - 1);
      y = std::clamp(y, m_clip->Top, m_clip->Bottom - 1);
      XWarpPointer(m_display, None, m_root, 0, 0, 0, 0, x, y);  // the cursor stays in the clip
    }
    POINTAPI at;
    WindowManager::GetCursorPos(at);
    if (at.x != x || at.y != y) mouseMove(x, y);
  };
  switch (e.type) {
    case Expose:
      m_mirrors[h].stale = true;
      break;
    case DestroyNotify:
      // Another program destroyed the window: the next round makes a new one.
      m_mirrors.erase(h);
      m_stacked.clear();
      break;
    case ConfigureNotify: {
      // The window manager may have placed or moved the window: the desktop follows.
      int x = 0, y = 0;
      Window child;
      XTranslateCoordinates(m_display, e.xconfigure.window, m_root, 0, 0, &x, &y, &child);
      const DesktopWindow* w = window(h);
      if (w && (x != w->rect.Left || y != w->rect.Top)) {
        Mirror& m = m_mirrors[h];
        m.rect = RECT{x, y, x + (w->rect.Right - w->rect.Left), y + (w->rect.Bottom - w->rect.Top)};
        WindowManager::SetWindowPos(h, 0, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
      }
      // A window with size limits follows a new size, held within its limits; the next round
      // gives a size outside them back to the real window.
      w = window(h);
      const int32_t width = e.xconfigure.width, height = e.xconfigure.height;
      if (w && (width != w->rect.Right - w->rect.Left || height != w->rect.Bottom - w->rect.Top) &&
          sizeLimits(h)) {
        m_mirrors[h].rect = RECT{w->rect.Left, w->rect.Top, w->rect.Left + width, w->rect.Top + height};
        WindowManager::SetWindowPos(h, 0, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
      }
      break;
    }
    case MotionNotify:
      moveTo(e.xmotion.x_root, e.xmotion.y_root);
      break;
    case ButtonPress:
    case ButtonRelease: {
      moveTo(e.xbutton.x_root, e.xbutton.y_root);
      unsigned b = e.xbutton.button;
      if (b == Button4 || b == Button5) {
        if (e.type == ButtonRelease) break;
        POINTAPI at;
        WindowManager::GetCursorPos(at);
        HWND target = GetFocus() ? GetFocus() : WindowFromPoint(at.x, at.y);
        int32_t delta = b == Button4 ? kWheelDelta : -kWheelDelta;
        if (target)
          SendMessageA(target, wm::MOUSEWHEEL, static_cast<WPARAM>((delta << 16) | (keyState() & 0xFFFF)),
                       makePointParam(at.x, at.y));
        break;
      }
      int32_t button = b == Button1 ? 1 : b == Button3 ? 2 : b == Button2 ? 4 : 0;
      if (!button) break;
      if (e.type == ButtonPress) {
        // A click brings the window to the front of the desktop's order too.
        if (h) WindowManager::SetWindowPos(h, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        mouseDown(button);
      } else {
        mouseUp(button);
      }
      break;
    }
    case LeaveNotify:
      if (e.xcrossing.mode == NotifyNormal) {
        // Outside all of this program's windows the desktop sees the cursor leave.
        mouseMove(e.xcrossing.x_root, e.xcrossing.y_root);
      }
      break;
    case EnterNotify:
      moveTo(e.xcrossing.x_root, e.xcrossing.y_root);
      break;
    case KeyPress:
    case KeyRelease: {
      char text[16];
      KeySym sym = 0;
      int n = XLookupString(&e.xkey, text, sizeof text, &sym, nullptr);
      int32_t vk = virtualKeyFromKeysym(sym);
      // A modifier key's own press already counts as held.
      if (e.type == KeyPress && vk == VK_SHIFT) *m_eventState |= ShiftMask;
      if (e.type == KeyPress && vk == VK_CONTROL) *m_eventState |= ControlMask;
      if (e.type == KeyPress) {
        if (vk) keyDown(vk);
        // The character as a code of the language: one byte of the Latin range.
        if (n == 1) typeChar(static_cast<unsigned char>(text[0]));
      } else if (vk) {
        keyUp(vk);
      }
      break;
    }
    case FocusIn: {
      HWND focus = GetFocus();
      if (!focus || topLevelOf(focus) != h) SetFocus(h);
      break;
    }
    case ClientMessage:
      if (static_cast<Atom>(e.xclient.data.l[0]) == m_deleteWindow) PostMessageA(h, wm::CLOSE, 0, 0);
      break;
    default:
      break;
  }
}

void LiveWindowManager::grabPointer() {
  constexpr unsigned kMask =
      ButtonPressMask | ButtonReleaseMask | PointerMotionMask | EnterWindowMask | LeaveWindowMask;
  HWND top = topLevelOf(GetCapture());
  bool captured = top && m_mirrors.count(top) && m_mirrors[top].mapped;
  XUngrabPointer(m_display, CurrentTime);
  // The mouse stays with the capturing window after it leaves it; a clip holds it in its rectangle.
  if (captured)
    XGrabPointer(m_display, m_mirrors[top].xid, False, kMask, GrabModeAsync, GrabModeAsync,
                 m_confine ? m_confine : None, None, CurrentTime);
  else if (m_confine)
    XGrabPointer(m_display, m_confine, True, kMask, GrabModeAsync, GrabModeAsync, m_confine, None,
                 CurrentTime);
  XFlush(m_display);
}

HWND LiveWindowManager::SetCapture(HWND hWnd) {
  HWND old = WindowManager::SetCapture(hWnd);
  grabPointer();
  return old;
}

bool LiveWindowManager::ReleaseCapture() {
  bool done = WindowManager::ReleaseCapture();
  grabPointer();
  return done;
}

bool LiveWindowManager::ClipCursor(const RECT* rect) {
  if (rect && (rect->Right <= rect->Left || rect->Bottom <= rect->Top)) rect = nullptr;  // nothing to hold to
  if (m_confine) XDestroyWindow(m_display, m_confine);
  m_confine = 0;
  m_clip.reset();
  if (rect) {
    m_clip = *rect;
    XSetWindowAttributes a{};
    a.override_redirect = True;
    m_confine =
        XCreateWindow(m_display, m_root, rect->Left, rect->Top, rect->Right - rect->Left,
                      rect->Bottom - rect->Top, 0, 0, InputOnly, CopyFromParent, CWOverrideRedirect, &a);
    XMapWindow(m_display, m_confine);
    XLowerWindow(m_display, m_confine);  // under every window: it holds the pointer, it takes no clicks
  }
  grabPointer();
  return WindowManager::ClipCursor(rect);
}

bool LiveWindowManager::GetCursorPos(POINTAPI& point) {
  Window root, child;
  int rx = 0, ry = 0, wx, wy;
  unsigned mask;
  if (!XQueryPointer(m_display, m_root, &root, &child, &rx, &ry, &wx, &wy, &mask))
    return WindowManager::GetCursorPos(point);
  point = POINTAPI{rx, ry};
  return true;
}

bool LiveWindowManager::SetCursorPos(int32_t x, int32_t y) {
  XWarpPointer(m_display, None, m_root, 0, 0, 0, 0, x, y);
  XFlush(m_display);
  return WindowManager::SetCursorPos(x, y);
}

int16_t LiveWindowManager::GetAsyncKeyState(int32_t key) {
  bool down = false;
  int16_t pressed = 0;
  if (m_eventState && (key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU)) {
    // During an input event its own modifier state counts, not the keyboard's state by now.
    down = *m_eventState & (key == VK_SHIFT ? ShiftMask : key == VK_CONTROL ? ControlMask : Mod1Mask);
  } else if (key == VK_LBUTTON || key == VK_RBUTTON || key == VK_MBUTTON) {
    Window root, child;
    int rx, ry, wx, wy;
    unsigned mask = 0;
    XQueryPointer(m_display, m_root, &root, &child, &rx, &ry, &wx, &wy, &mask);
    down = mask & (key == VK_LBUTTON ? Button1Mask : key == VK_RBUTTON ? Button3Mask : Button2Mask);
    // A press on one of the program's windows since the last question, however short.
    pressed = WindowManager::GetAsyncKeyState(key) & 1;
  } else {
    char keys[32];
    XQueryKeymap(m_display, keys);
    for (int code = 8; code < 256 && !down; ++code) {
      if (!(keys[code / 8] & (1 << (code % 8)))) continue;
      KeySym sym = XkbKeycodeToKeysym(m_display, static_cast<KeyCode>(code), 0, 0);
      down = virtualKeyFromKeysym(sym) == key;
    }
  }
  return static_cast<int16_t>((down ? 0x8000 : 0) | pressed);
}

// The client area of a maximised window: the work area above the task bar, as the window manager
// publishes it (the whole screen without one), less a caption bar in height.
int32_t LiveWindowManager::GetSystemMetrics(int32_t index) {
  if (index != SM_CXFULLSCREEN && index != SM_CYFULLSCREEN) return WindowManager::GetSystemMetrics(index);
  int32_t value = index == SM_CXFULLSCREEN ? screenWidth() : screenHeight();
  Atom type;
  int format;
  unsigned long count = 0, after;
  unsigned char* data = nullptr;
  if (XGetWindowProperty(m_display, m_root, m_workArea, 0, 4, False, XA_CARDINAL, &type, &format, &count,
                         &after, &data) == Success &&
      data && format == 32 && count >= 4) {
    const long* area = reinterpret_cast<const long*>(data);
    value = static_cast<int32_t>(index == SM_CXFULLSCREEN ? area[2] : area[3]);
  }
  if (data) XFree(data);
  return index == SM_CYFULLSCREEN ? value - kCaptionHeight : value;
}

int32_t LiveWindowManager::DoEvents() {
  if (m_pumping) return WindowManager::DoEvents();
  int32_t delivered = 0;
  {
    PumpGuard guard(m_pumping);
    delivered += pumpNative();
    delivered += WindowManager::DoEvents();
    syncWindows();
  }
  return delivered;
}

// Sleeps on the display's connection until an event comes or the next timer is due.
bool LiveWindowManager::WaitForWork(int32_t maxMilliseconds) {
  syncWindows();
  if (hasPostedMessages() || XPending(m_display) > 0) return true;
  int64_t due = nextTimerDue();
  int64_t wait = due < 0 ? maxMilliseconds : std::max<int64_t>(0, due - GetTickCount());
  if (maxMilliseconds >= 0) wait = std::min<int64_t>(wait, maxMilliseconds);
  pollfd p{ConnectionNumber(m_display), POLLIN, 0};
  poll(&p, 1, static_cast<int>(std::min<int64_t>(wait, 1 << 30)));
  return true;
}

bool LiveWindowManager::setClipboardText(const std::string& text) {
  WindowManager::setClipboardText(text);
  return m_clipboardX->setText(text);
}

std::string LiveWindowManager::clipboardText() { return m_clipboardX->text(); }

}  // namespace corvane

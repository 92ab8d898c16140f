// SPDX-License-Identifier: MIT
#include "desktop/window_manager.h"

#include "desktop/sys_colors.h"
#include "desktop/window_frame.h"
#include <corvane/runtime/error_handler.h>

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <thread>

namespace corvane {

namespace {
constexpr int32_t kDoubleClickTime = 500;
constexpr int32_t kDoubleClickBox = 4;
constexpr int32_t kCaptionHeight = 26;  // the caption bar of a maximised window, in pixels

bool inside(const RECT& r, int32_t x, int32_t y) { return x >= r.Left && y >= r.Top && x < r.Right && y < r.Bottom; }

RECT intersect(const RECT& a, const RECT& b) {
  RECT r{std::max(a.Left, b.Left), std::max(a.Top, b.Top), std::min(a.Right, b.Right), std::min(a.Bottom, b.Bottom)};
  if (r.Right < r.Left) r.Right = r.Left;
  if (r.Bottom < r.Top) r.Bottom = r.Top;
  return r;
}
}  // namespace

WindowManager::WindowManager(Clock& clock, int32_t screenWidth, int32_t screenHeight)
    : m_clock(clock), m_screenWidth(screenWidth), m_screenHeight(screenHeight), m_processId(static_cast<int32_t>(::getpid())) {}

WindowManager::~WindowManager() = default;

void WindowManager::setRegionSource(std::function<std::vector<RECT>(HRGN)> rects, std::function<void(HRGN)> release) {
  m_regionRects = std::move(rects);
  m_regionRelease = std::move(release);
}

DesktopWindow* WindowManager::find(HWND hWnd) {
  auto it = m_windows.find(hWnd);
  return it == m_windows.end() ? nullptr : it->second.get();
}

const DesktopWindow* WindowManager::window(HWND hWnd) const {
  auto it = m_windows.find(hWnd);
  return it == m_windows.end() ? nullptr : it->second.get();
}

std::vector<HWND>& WindowManager::siblingsOf(DesktopWindow& w) {
  if (w.parent) return find(w.parent)->children;
  return m_topLevel;
}

// Brings a window to the top of its siblings; among top-level windows the top-most ones stay above.
void WindowManager::raise(DesktopWindow& w) {
  auto& sib = siblingsOf(w);
  sib.erase(std::remove(sib.begin(), sib.end(), w.hwnd), sib.end());
  if (w.parent || (w.exStyle & WS_EX_TOPMOST)) {
    sib.push_back(w.hwnd);
    return;
  }
  auto firstTopmost = std::find_if(sib.begin(), sib.end(), [&](HWND h) { return find(h)->exStyle & WS_EX_TOPMOST; });
  sib.insert(firstTopmost, w.hwnd);
}

HWND WindowManager::CreateWindowExA(int32_t exStyle, const std::string& className, const std::string& title,
                                    int32_t style, int32_t x, int32_t y, int32_t width, int32_t height, HWND parent,
                                    WNDPROC proc) {
  if (parent && !find(parent)) return 0;
  auto w = std::make_unique<DesktopWindow>();
  w->hwnd = m_nextHwnd += 2;
  w->parent = parent;
  w->className = className;
  w->title = title;
  w->style = style | (parent ? WS_CHILD : 0);
  w->exStyle = exStyle;
  w->classStyle = CS_DBLCLKS;
  width = std::clamp(width, 0, kMaxWindowSide);
  height = std::clamp(height, 0, kMaxWindowSide);
  const int32_t border = borderOf(*w);
  const int32_t clientWidth = std::max(width - 2 * border, 0);
  const int32_t clientHeight = std::max(height - 2 * border, 0);
  w->canvas = std::make_unique<Canvas>(clientWidth, clientHeight, w->background);
  // A window whose image could not be made has no area.
  if (w->canvas->width() != clientWidth || w->canvas->height() != clientHeight) width = height = 0;
  w->rect = RECT{x, y, x + width, y + height};
  w->visible = (style & WS_VISIBLE) != 0;
  w->enabled = (style & WS_DISABLED) == 0;
  w->proc = m_procs.count(proc) ? proc : 0;
  w->processId = m_processId;
  HWND h = w->hwnd;
  DesktopWindow& ref = *w;
  m_windows.emplace(h, std::move(w));
  raise(ref);
  SendMessageA(h, wm::CREATE, 0, 0);
  return h;
}

bool WindowManager::DestroyWindow(HWND hWnd) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  // The window hears of its end first, then its children, as on the platform.
  SendMessageA(hWnd, wm::DESTROY, 0, 0);
  for (HWND c : std::vector<HWND>(w->children)) DestroyWindow(c);
  w = find(hWnd);
  if (!w) return true;
  auto& sib = siblingsOf(*w);
  sib.erase(std::remove(sib.begin(), sib.end(), hWnd), sib.end());
  std::erase_if(m_timers, [&](const Timer& t) { return t.hwnd == hWnd; });
  std::erase_if(m_posted, [&](const Posted& p) { return p.hwnd == hWnd; });
  if (m_capture == hWnd) m_capture = 0;
  if (m_focus == hWnd) m_focus = 0;
  if (m_foreground == hWnd) m_foreground = 0;
  if (m_tracking == hWnd) m_tracking = 0;
  if (m_lastClick.hwnd == hWnd) m_lastClick.hwnd = 0;
  m_windows.erase(hWnd);
  return true;
}

bool WindowManager::IsWindow(HWND hWnd) { return find(hWnd) != nullptr; }

bool WindowManager::isShown(const DesktopWindow& w) const {
  for (const DesktopWindow* p = &w; p; p = p->parent ? window(p->parent) : nullptr)
    if (!p->visible) return false;
  return true;
}

bool WindowManager::IsWindowVisible(HWND hWnd) {
  DesktopWindow* w = find(hWnd);
  return w && isShown(*w);
}

bool WindowManager::IsWindowEnabled(HWND hWnd) {
  DesktopWindow* w = find(hWnd);
  return w && w->enabled;
}

bool WindowManager::EnableWindow(HWND hWnd, bool enable) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  bool wasDisabled = !w->enabled;
  if (w->enabled != enable) {
    w->enabled = enable;
    if (!enable && m_capture == hWnd) ReleaseCapture();
    SendMessageA(hWnd, wm::ENABLE, enable ? 1 : 0, 0);
  }
  return wasDisabled;
}

bool WindowManager::ShowWindow(HWND hWnd, int32_t command) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  bool was = w->visible;
  bool show = command != SW_HIDE;
  if (was != show) {
    w->visible = show;
    if (show) w->needsPaint = true;
    SendMessageA(hWnd, wm::SHOWWINDOW, show ? 1 : 0, 0);
  }
  return was;
}

// A size beyond the longest side is cut to it; a size whose image cannot be made (no memory) is
// refused, and the window keeps its size.
void WindowManager::resizeTo(DesktopWindow& w, int32_t x, int32_t y, int32_t width, int32_t height) {
  if (!w.parent && (width != w.rect.Right - w.rect.Left || height != w.rect.Bottom - w.rect.Top)) {
    // The minimum wins over the maximum, as the window system has it.
    HWND self = w.hwnd;
    MINMAXINFO info = minMaxInfo(self);
    if (!find(self)) return;  // the window went while it was asked
    width = std::max(std::min(width, info.ptMaxTrackSize.x), info.ptMinTrackSize.x);
    height = std::max(std::min(height, info.ptMaxTrackSize.y), info.ptMinTrackSize.y);
  }
  width = std::clamp(width, 0, kMaxWindowSide);
  height = std::clamp(height, 0, kMaxWindowSide);
  bool sized = width != w.rect.Right - w.rect.Left || height != w.rect.Bottom - w.rect.Top;
  const int32_t border = borderOf(w);
  if (sized &&
      !w.canvas->resize(std::max(width - 2 * border, 0), std::max(height - 2 * border, 0), w.background)) {
    sized = false;
    width = w.rect.Right - w.rect.Left;
    height = w.rect.Bottom - w.rect.Top;
  }
  bool moved = x != w.rect.Left || y != w.rect.Top;
  w.rect = RECT{x, y, x + width, y + height};
  HWND h = w.hwnd;
  if (sized) {
    w.needsPaint = true;
    SendMessageA(h, wm::SIZE, 0, makePointParam(w.canvas->width(), w.canvas->height()));
  }
  if (moved && find(h)) SendMessageA(h, wm::MOVE, 0, makePointParam(x, y));
}

MINMAXINFO WindowManager::minMaxInfo(HWND hWnd) {
  MINMAXINFO info;
  info.ptMaxSize = POINTAPI{m_screenWidth, m_screenHeight};
  info.ptMaxPosition = POINTAPI{0, 0};
  info.ptMinTrackSize = POINTAPI{0, 0};  // the desktop's windows have no frame to keep
  info.ptMaxTrackSize = POINTAPI{kMaxWindowSide, kMaxWindowSide};
  const DesktopWindow* w = find(hWnd);
  if (!w || w->parent) return info;
  MessageMemoryLoan loan(&info, sizeof info);
  SendMessageA(hWnd, wm::GETMINMAXINFO, 0, loan.address());
  return info;
}

bool WindowManager::MoveWindow(HWND hWnd, int32_t x, int32_t y, int32_t width, int32_t height, bool) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  resizeTo(*w, x, y, width, height);
  return true;
}

bool WindowManager::SetWindowPos(HWND hWnd, HWND after, int32_t x, int32_t y, int32_t cx, int32_t cy,
                                 int32_t flags) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  if (!(flags & SWP_NOZORDER)) {
    if (after == HWND_TOPMOST) w->exStyle |= WS_EX_TOPMOST;
    if (after == HWND_NOTOPMOST) w->exStyle &= ~WS_EX_TOPMOST;
    if (after == HWND_BOTTOM) {
      auto& sib = siblingsOf(*w);
      sib.erase(std::remove(sib.begin(), sib.end(), hWnd), sib.end());
      sib.insert(sib.begin(), hWnd);
    } else {
      raise(*w);
    }
  }
  int32_t nx = (flags & SWP_NOMOVE) ? w->rect.Left : x;
  int32_t ny = (flags & SWP_NOMOVE) ? w->rect.Top : y;
  int32_t nw = (flags & SWP_NOSIZE) ? w->rect.Right - w->rect.Left : cx;
  int32_t nh = (flags & SWP_NOSIZE) ? w->rect.Bottom - w->rect.Top : cy;
  resizeTo(*w, nx, ny, nw, nh);
  if (flags & SWP_SHOWWINDOW) ShowWindow(hWnd, SW_SHOWNOACTIVATE);
  if (flags & SWP_HIDEWINDOW) ShowWindow(hWnd, SW_HIDE);
  return true;
}

POINTAPI WindowManager::screenOrigin(const DesktopWindow& w) const {
  POINTAPI p{w.rect.Left, w.rect.Top};
  for (const DesktopWindow* q = w.parent ? window(w.parent) : nullptr; q; q = q->parent ? window(q->parent) : nullptr) {
    const int32_t border = borderOf(*q);
    p.x += q->rect.Left + border;
    p.y += q->rect.Top + border;
  }
  return p;
}

int32_t WindowManager::borderOf(const DesktopWindow& w) const {
  return w.parent ? WindowFrame::inset(w.style, w.exStyle) : 0;
}

POINTAPI WindowManager::clientOrigin(const DesktopWindow& w) const {
  POINTAPI p = screenOrigin(w);
  const int32_t border = borderOf(w);
  return POINTAPI{p.x + border, p.y + border};
}

void WindowManager::frameChanged(DesktopWindow& w) {
  const int32_t border = borderOf(w);
  const int32_t width = std::max(w.rect.Right - w.rect.Left - 2 * border, 0);
  const int32_t height = std::max(w.rect.Bottom - w.rect.Top - 2 * border, 0);
  if (width == w.canvas->width() && height == w.canvas->height()) return;
  if (!w.canvas->resize(width, height, w.background)) return;  // no memory: the old client image stays
  w.needsPaint = true;
  SendMessageA(w.hwnd, wm::SIZE, 0, makePointParam(width, height));
}

bool WindowManager::GetWindowRect(HWND hWnd, RECT& rect) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  POINTAPI o = screenOrigin(*w);
  rect = RECT{o.x, o.y, o.x + (w->rect.Right - w->rect.Left), o.y + (w->rect.Bottom - w->rect.Top)};
  return true;
}

bool WindowManager::GetClientRect(HWND hWnd, RECT& rect) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  rect = RECT{0, 0, w->canvas->width(), w->canvas->height()};
  return true;
}

HWND WindowManager::GetParent(HWND hWnd) {
  DesktopWindow* w = find(hWnd);
  return w ? w->parent : 0;
}

HWND WindowManager::SetParent(HWND hWnd, HWND parent) {
  DesktopWindow* w = find(hWnd);
  if (!w || (parent && !find(parent)) || parent == hWnd) return 0;
  HWND old = w->parent;
  auto& sib = siblingsOf(*w);
  sib.erase(std::remove(sib.begin(), sib.end(), hWnd), sib.end());
  w->parent = parent;
  if (parent) w->style |= WS_CHILD; else w->style &= ~WS_CHILD;
  raise(*w);
  frameChanged(*w);  // a border belongs to child windows only
  return old ? old : -3;  // the desktop window stands for "no parent" as a non-zero result
}

std::vector<HWND> WindowManager::childWindows(HWND hWnd) {
  DesktopWindow* w = find(hWnd);
  return w ? w->children : std::vector<HWND>{};
}

std::vector<HWND> WindowManager::topLevelWindows() const { return m_topLevel; }

int32_t WindowManager::GetWindowLongA(HWND hWnd, int32_t index) {
  DesktopWindow* w = find(hWnd);
  if (!w) return 0;
  switch (index) {
    case GWL_WNDPROC: return w->proc;
    case GWL_STYLE: return w->style | (w->visible ? WS_VISIBLE : 0) | (w->enabled ? 0 : WS_DISABLED);
    case GWL_EXSTYLE: return w->exStyle;
    default: return 0;
  }
}

int32_t WindowManager::SetWindowLongA(HWND hWnd, int32_t index, int32_t value) {
  DesktopWindow* w = find(hWnd);
  if (!w) return 0;
  int32_t old = GetWindowLongA(hWnd, index);
  switch (index) {
    case GWL_WNDPROC:
      if (!m_procs.count(value)) return 0;
      w->proc = value;
      return old;
    case GWL_STYLE:
      w->style = value & ~(WS_VISIBLE | WS_DISABLED);
      w->visible = (value & WS_VISIBLE) != 0;
      w->enabled = (value & WS_DISABLED) == 0;
      frameChanged(*w);
      return old;
    case GWL_EXSTYLE:
      // Taking the layered style away makes the window opaque again.
      if ((old & WS_EX_LAYERED) && !(value & WS_EX_LAYERED)) w->alpha = 255;
      w->exStyle = value;
      frameChanged(*w);
      return old;
    default:
      return 0;
  }
}

int32_t WindowManager::GetClassLongA(HWND hWnd, int32_t index) {
  DesktopWindow* w = find(hWnd);
  return (w && index == GCL_STYLE) ? w->classStyle : 0;
}

int32_t WindowManager::SetClassLongA(HWND hWnd, int32_t index, int32_t value) {
  DesktopWindow* w = find(hWnd);
  if (!w || index != GCL_STYLE) return 0;
  int32_t old = w->classStyle;
  w->classStyle = value;
  return old;
}

bool WindowManager::SetLayeredWindowAttributes(HWND hWnd, COLORREF, uint8_t alpha, int32_t flags) {
  DesktopWindow* w = find(hWnd);
  if (!w || !(w->exStyle & WS_EX_LAYERED)) return false;
  if (flags & LWA_ALPHA) w->alpha = alpha;
  return true;
}

int32_t WindowManager::SetWindowRgn(HWND hWnd, HRGN region, bool) {
  DesktopWindow* w = find(hWnd);
  if (!w) return 0;
  if (region == 0) {
    w->region.reset();
    return 1;
  }
  if (!m_regionRects) return 0;
  w->region = m_regionRects(region);
  if (m_regionRelease) m_regionRelease(region);  // the window owns its region from now on
  return 1;
}

bool WindowManager::SetForegroundWindow(HWND hWnd) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  while (w->parent) w = find(w->parent);
  m_foreground = w->hwnd;
  raise(*w);
  return true;
}

HWND WindowManager::SetFocus(HWND hWnd) {
  HWND old = m_focus;
  if (hWnd && !find(hWnd)) return 0;
  if (old && old != hWnd) SendMessageA(old, wm::KILLFOCUS, hWnd, 0);
  m_focus = hWnd;
  if (hWnd && old != hWnd) SendMessageA(hWnd, wm::SETFOCUS, old, 0);
  return old;
}

bool WindowManager::SetWindowTextA(HWND hWnd, const std::string& text) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  w->title = text;
  return true;
}

std::string WindowManager::GetWindowTextA(HWND hWnd) {
  DesktopWindow* w = find(hWnd);
  return w ? w->title : std::string();
}

bool WindowManager::InvalidateRect(HWND hWnd, const RECT*, bool) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  w->needsPaint = true;
  return true;
}

bool WindowManager::UpdateWindow(HWND hWnd) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  if (w->needsPaint && isShown(*w)) {
    w->needsPaint = false;
    SendMessageA(hWnd, wm::PAINT, 0, 0);
  }
  return true;
}

WNDPROC WindowManager::RegisterWindowProc(WindowProcedure proc) {
  WNDPROC addr = m_nextProc += 16;
  m_procs.emplace(addr, std::move(proc));
  return addr;
}

void WindowManager::UnregisterWindowProc(WNDPROC proc) { m_procs.erase(proc); }

LRESULT WindowManager::CallWindowProcA(WNDPROC proc, HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  auto it = m_procs.find(proc);
  if (it == m_procs.end()) return DefWindowProcA(hWnd, msg, wParam, lParam);
  WindowProcedure f = it->second;  // the procedure may unregister itself while it runs
  return f(hWnd, msg, wParam, lParam);
}

LRESULT WindowManager::DefWindowProcA(HWND, int32_t, WPARAM, LPARAM) { return 0; }

LRESULT WindowManager::SendMessageA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  DesktopWindow* w = find(hWnd);
  if (!w) return 0;
  return CallWindowProcA(w->proc, hWnd, msg, wParam, lParam);
}

bool WindowManager::PostMessageA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  if (!find(hWnd)) return false;
  m_posted.push_back({hWnd, msg, wParam, lParam});
  return true;
}

bool WindowManager::SetPropA(HWND hWnd, const std::string& name, int32_t value) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  w->props[name] = value;
  return true;
}

int32_t WindowManager::GetPropA(HWND hWnd, const std::string& name) {
  DesktopWindow* w = find(hWnd);
  if (!w) return 0;
  auto it = w->props.find(name);
  return it == w->props.end() ? 0 : it->second;
}

int32_t WindowManager::RemovePropA(HWND hWnd, const std::string& name) {
  DesktopWindow* w = find(hWnd);
  if (!w) return 0;
  auto it = w->props.find(name);
  if (it == w->props.end()) return 0;
  int32_t v = it->second;
  w->props.erase(it);
  return v;
}

int32_t WindowManager::GetWindowThreadProcessId(HWND hWnd, int32_t* processId) {
  DesktopWindow* w = find(hWnd);
  if (!w) return 0;
  if (processId) *processId = w->processId;
  return 1;
}

int32_t WindowManager::GetCurrentProcessId() { return m_processId; }

void WindowManager::setWindowProcess(HWND hWnd, int32_t processId) {
  if (DesktopWindow* w = find(hWnd)) w->processId = processId;
}

void WindowManager::setWindowBackground(HWND hWnd, COLORREF colour) {
  if (DesktopWindow* w = find(hWnd)) w->background = colour;
}

// ---- input ----

bool WindowManager::GetCursorPos(POINTAPI& point) {
  point = m_cursor;
  return true;
}

bool WindowManager::SetCursorPos(int32_t x, int32_t y) {
  mouseMove(x, y);
  return true;
}

bool WindowManager::regionContains(const DesktopWindow& w, int32_t x, int32_t y) const {
  if (!w.region) return true;
  for (const RECT& r : *w.region)
    if (inside(r, x, y)) return true;
  return false;
}

// The deepest shown child under a point given in w's client coordinates; disabled children
// pass the point on to their parent, as on the platform.
HWND WindowManager::childFromPoint(const DesktopWindow& w, int32_t x, int32_t y) const {
  for (auto it = w.children.rbegin(); it != w.children.rend(); ++it) {
    const DesktopWindow& c = *window(*it);
    if (!c.visible || !inside(c.rect, x, y)) continue;
    int32_t cx = x - c.rect.Left, cy = y - c.rect.Top;
    if (!regionContains(c, cx, cy)) continue;
    if (!c.enabled) return w.hwnd;
    return hitInWindow(c, cx, cy);
  }
  return w.hwnd;
}

HWND WindowManager::hitInWindow(const DesktopWindow& w, int32_t x, int32_t y) const {
  const int32_t border = borderOf(w);
  if (x < border || y < border || x >= border + w.canvas->width() || y >= border + w.canvas->height())
    return w.hwnd;  // on the border
  return childFromPoint(w, x - border, y - border);
}

HWND WindowManager::mouseTarget(int32_t x, int32_t y) {
  if (m_capture) return m_capture;
  HWND over = WindowFromPoint(x, y);
  const DesktopWindow* w = find(over);
  if (!w) return 0;
  POINTAPI p = clientOrigin(*w);
  return inside(RECT{0, 0, w->canvas->width(), w->canvas->height()}, x - p.x, y - p.y) ? over : 0;
}

HWND WindowManager::WindowFromPoint(int32_t x, int32_t y) {
  for (auto it = m_topLevel.rbegin(); it != m_topLevel.rend(); ++it) {
    const DesktopWindow& w = *find(*it);
    if (!w.visible || !inside(w.rect, x, y)) continue;
    if (!regionContains(w, x - w.rect.Left, y - w.rect.Top)) continue;
    return hitInWindow(w, x - w.rect.Left, y - w.rect.Top);
  }
  return 0;
}

bool WindowManager::ScreenToClient(HWND hWnd, POINTAPI& point) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  POINTAPI o = clientOrigin(*w);
  point.x -= o.x;
  point.y -= o.y;
  return true;
}

bool WindowManager::ClientToScreen(HWND hWnd, POINTAPI& point) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  POINTAPI o = clientOrigin(*w);
  point.x += o.x;
  point.y += o.y;
  return true;
}

HWND WindowManager::SetCapture(HWND hWnd) {
  HWND old = m_capture;
  if (!find(hWnd)) return old;
  m_capture = hWnd;
  return old;
}

bool WindowManager::ReleaseCapture() {
  HWND old = m_capture;
  m_capture = 0;
  if (old) SendMessageA(old, wm::CAPTURECHANGED, 0, 0);
  return true;
}

bool WindowManager::ClipCursor(const RECT* rect) {
  if (rect) m_cursorClip = *rect; else m_cursorClip.reset();
  return true;
}

int16_t WindowManager::GetAsyncKeyState(int32_t key) {
  bool down = false;
  int32_t button = key == VK_LBUTTON ? 1 : key == VK_RBUTTON ? 2 : key == VK_MBUTTON ? 4 : 0;
  if (button) down = m_buttons & button;
  else down = m_keys[key];
  // The low bit: the button was pressed since the last question about it.
  int16_t pressed = (m_pressedSinceAsked & button) ? 1 : 0;
  m_pressedSinceAsked &= ~button;
  return static_cast<int16_t>((down ? 0x8000 : 0) | pressed);
}

bool WindowManager::TrackMouseEvent(TRACKMOUSEEVENT& request) {
  if (!(request.dwFlags & TME_LEAVE) || !find(request.hwndTrack)) return false;
  HWND over = mouseTarget(m_cursor.x, m_cursor.y);
  if (over != request.hwndTrack) {
    // The cursor is not over the window already: the leave notice comes at once.
    PostMessageA(request.hwndTrack, wm::MOUSELEAVE, 0, 0);
    return true;
  }
  m_tracking = request.hwndTrack;
  return true;
}

void WindowManager::setMonitors(int32_t count, int32_t virtualWidth, int32_t virtualHeight) {
  m_monitors = count;
  m_virtualWidth = virtualWidth;
  m_virtualHeight = virtualHeight;
}

int32_t WindowManager::GetSystemMetrics(int32_t index) {
  switch (index) {
    case SM_CXSCREEN: return m_screenWidth;
    case SM_CYSCREEN: return m_screenHeight;
    case SM_CXVIRTUALSCREEN: return m_virtualWidth > 0 ? m_virtualWidth : m_screenWidth;
    case SM_CYVIRTUALSCREEN: return m_virtualHeight > 0 ? m_virtualHeight : m_screenHeight;
    case SM_CMONITORS: return m_monitors;
    // The client area of a maximised window: the whole width, the height without a caption bar.
    case SM_CXFULLSCREEN: return m_screenWidth;
    case SM_CYFULLSCREEN: return m_screenHeight - kCaptionHeight;
    case SM_CXDOUBLECLK: case SM_CYDOUBLECLK: return kDoubleClickBox;
    default: return 0;
  }
}

int32_t WindowManager::keyState() const {
  int32_t s = 0;
  if (m_buttons & 1) s |= MK_LBUTTON;
  if (m_buttons & 2) s |= MK_RBUTTON;
  if (m_buttons & 4) s |= MK_MBUTTON;
  auto k = [&](int32_t vk) { auto it = m_keys.find(vk); return it != m_keys.end() && it->second; };
  if (k(VK_SHIFT)) s |= MK_SHIFT;
  if (k(VK_CONTROL)) s |= MK_CONTROL;
  return s;
}

void WindowManager::checkMouseLeave(HWND over) {
  if (m_tracking && m_tracking != over) {
    HWND left = m_tracking;
    m_tracking = 0;
    PostMessageA(left, wm::MOUSELEAVE, 0, 0);
  }
}

void WindowManager::deliverMouse(int32_t msg, HWND target) {
  DesktopWindow* w = find(target);
  if (!w || !w->enabled) return;
  POINTAPI p = m_cursor;
  ScreenToClient(target, p);
  dispatchFromLoop(target, msg, keyState(), makePointParam(p.x, p.y));
}

void WindowManager::dispatchFromLoop(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  runReportingErrors([&] { SendMessageA(hWnd, msg, wParam, lParam); });
}

void WindowManager::mouseMove(int32_t x, int32_t y) {
  if (m_cursorClip) {
    x = std::clamp(x, m_cursorClip->Left, m_cursorClip->Right - 1);
    y = std::clamp(y, m_cursorClip->Top, m_cursorClip->Bottom - 1);
  }
  m_cursor = POINTAPI{x, y};
  HWND over = mouseTarget(x, y);
  checkMouseLeave(over);
  DoEvents();  // the leave notice comes before the move reaches the new window
  deliverMouse(wm::MOUSEMOVE, over);
  DoEvents();
}

void WindowManager::mouseDown(int32_t button) {
  m_buttons |= button;
  m_pressedSinceAsked |= button;
  HWND over = mouseTarget(m_cursor.x, m_cursor.y);
  int32_t down = button == 1 ? wm::LBUTTONDOWN : button == 2 ? wm::RBUTTONDOWN : wm::MBUTTONDOWN;
  int64_t now = m_clock.now();
  DesktopWindow* w = find(over);
  bool dbl = w && (w->classStyle & CS_DBLCLKS) && m_lastClick.hwnd == over && m_lastClick.button == button &&
             now - m_lastClick.time <= kDoubleClickTime &&
             std::abs(m_cursor.x - m_lastClick.at.x) <= kDoubleClickBox / 2 &&
             std::abs(m_cursor.y - m_lastClick.at.y) <= kDoubleClickBox / 2;
  if (dbl) {
    m_lastClick.hwnd = 0;  // a third click starts a new pair
    deliverMouse(down + 2, over);
  } else {
    m_lastClick = LastClick{over, button, now, m_cursor};
    deliverMouse(down, over);
  }
  DoEvents();
}

void WindowManager::mouseUp(int32_t button) {
  m_buttons &= ~button;
  HWND over = mouseTarget(m_cursor.x, m_cursor.y);
  deliverMouse(button == 1 ? wm::LBUTTONUP : button == 2 ? wm::RBUTTONUP : wm::MBUTTONUP, over);
  DoEvents();
}

void WindowManager::keyDown(int32_t vk) {
  m_keys[vk] = true;
  if (m_focus) dispatchFromLoop(m_focus, wm::KEYDOWN, vk, 0);
  DoEvents();
}

void WindowManager::keyUp(int32_t vk) {
  m_keys[vk] = false;
  if (m_focus) dispatchFromLoop(m_focus, wm::KEYUP, vk, 0);
  DoEvents();
}

void WindowManager::typeChar(int32_t ch) {
  if (m_focus) dispatchFromLoop(m_focus, wm::CHAR, ch, 0);
  DoEvents();
}

// ---- timers and the message loop ----

int32_t WindowManager::SetTimer(HWND hWnd, int32_t id, int32_t milliseconds) {
  if (!find(hWnd)) return 0;
  milliseconds = std::max(milliseconds, 10);  // the platform's shortest timer
  for (Timer& t : m_timers)
    if (t.hwnd == hWnd && t.id == id) {
      t.interval = milliseconds;
      t.due = m_clock.now() + milliseconds;
      return id;
    }
  m_timers.push_back({hWnd, id, milliseconds, m_clock.now() + milliseconds});
  return id;
}

bool WindowManager::KillTimer(HWND hWnd, int32_t id) {
  auto before = m_timers.size();
  std::erase_if(m_timers, [&](const Timer& t) { return t.hwnd == hWnd && t.id == id; });
  return m_timers.size() != before;
}

int64_t WindowManager::nextTimerDue() const {
  int64_t due = -1;
  for (const Timer& t : m_timers)
    if (due < 0 || t.due < due) due = t.due;
  return due;
}

// Fires every timer due at or before upTo, earliest first; a timer fires once per call even when
// several of its periods passed, as the platform merges missed ticks.
void WindowManager::fireTimers(int64_t upTo) {
  std::vector<std::pair<HWND, int32_t>> due;
  for (const Timer& t : m_timers)
    if (t.due <= upTo) due.emplace_back(t.hwnd, t.id);
  std::stable_sort(due.begin(), due.end(), [&](auto& a, auto& b) {
    auto da = std::find_if(m_timers.begin(), m_timers.end(), [&](const Timer& t) { return t.hwnd == a.first && t.id == a.second; });
    auto db = std::find_if(m_timers.begin(), m_timers.end(), [&](const Timer& t) { return t.hwnd == b.first && t.id == b.second; });
    return da->due < db->due;
  });
  for (const auto& timer : due) {
    HWND h = timer.first;  // plain variables: a lambda may not capture structured bindings in C++20
    int32_t id = timer.second;
    auto it = std::find_if(m_timers.begin(), m_timers.end(), [&](const Timer& t) { return t.hwnd == h && t.id == id; });
    if (it == m_timers.end() || it->due > upTo) continue;  // killed or reset by an earlier handler
    it->due = upTo + it->interval;
    dispatchFromLoop(h, wm::TIMER, id, 0);
  }
}

void WindowManager::paintPending() {
  std::vector<HWND> pending;
  for (auto& [h, w] : m_windows)
    if (w->needsPaint && isShown(*w)) pending.push_back(h);
  std::sort(pending.begin(), pending.end());
  for (HWND h : pending) runReportingErrors([&] { UpdateWindow(h); });
}

int32_t WindowManager::DoEvents() {
  int32_t delivered = 0;
  // Only what was posted before this call is delivered, so a handler that posts again cannot
  // keep the loop running for ever.
  size_t n = m_posted.size();
  for (size_t i = 0; i < n && !m_posted.empty(); ++i) {
    Posted p = m_posted.front();
    m_posted.pop_front();
    dispatchFromLoop(p.hwnd, p.msg, p.wParam, p.lParam);
    ++delivered;
  }
  if (!m_clock.isVirtual()) fireTimers(m_clock.now());
  paintPending();
  return delivered;
}

void WindowManager::advance(int64_t ms) {
  int64_t target = m_clock.now() + ms;
  DoEvents();
  for (;;) {
    int64_t due = nextTimerDue();
    if (due < 0 || due > target) break;
    m_clock.setNow(due);
    fireTimers(due);
    DoEvents();
  }
  m_clock.setNow(target);
  DoEvents();
}

bool WindowManager::WaitForWork(int32_t maxMilliseconds) {
  if (!m_posted.empty()) return true;
  int64_t due = nextTimerDue();
  if (m_clock.isVirtual()) {
    if (due < 0) return false;
    int64_t step = std::max<int64_t>(0, due - m_clock.now());
    if (maxMilliseconds >= 0) step = std::min<int64_t>(step, maxMilliseconds);
    advance(step);
    return true;
  }
  int64_t wait = due < 0 ? maxMilliseconds : std::max<int64_t>(0, due - m_clock.now());
  if (maxMilliseconds >= 0) wait = std::min<int64_t>(wait, maxMilliseconds);
  std::this_thread::sleep_for(std::chrono::milliseconds(std::max<int64_t>(wait, 1)));
  return true;
}

// ---- images and composition ----

Canvas* WindowManager::windowCanvas(HWND hWnd) {
  if (hWnd == 0) return m_screen ? m_screen() : nullptr;
  DesktopWindow* w = find(hWnd);
  return w ? w->canvas.get() : nullptr;
}

void WindowManager::composeWindow(const DesktopWindow& w, Canvas& screen, int32_t ox, int32_t oy, RECT clip,
                                  double alpha) {
  if (!w.visible) return;
  int32_t x0 = ox + w.rect.Left, y0 = oy + w.rect.Top;
  RECT own{x0, y0, ox + w.rect.Right, oy + w.rect.Bottom};
  RECT vis = intersect(own, clip);
  if (vis.Right <= vis.Left || vis.Bottom <= vis.Top) return;
  ++m_windowsComposed;
  if (w.exStyle & WS_EX_LAYERED) alpha *= w.alpha / 255.0;
  const Canvas& src = *w.canvas;
  const_cast<Canvas&>(src).flush();
  uint32_t a = static_cast<uint32_t>(std::lround(alpha * 256));
  auto put = [&](uint32_t* d, int32_t x, uint32_t p) {
    if (a >= 256) {
      d[x] = p | 0xFF000000u;
      return;
    }
    uint32_t q = d[x], r = 0xFF000000u;
    for (int sh = 0; sh < 24; sh += 8) {
      uint32_t cs = (p >> sh) & 255, cd = (q >> sh) & 255;
      r |= ((cs * a + cd * (256 - a)) >> 8) << sh;
    }
    d[x] = r;
  };
  // The border first (the non-client paint), then the client image inside it.
  const int32_t border = borderOf(w);
  if (border > 0) {
    static const SysColors scheme;
    auto colour = [&](int32_t index) { return m_sysColour ? m_sysColour(index) : scheme.get(index); };
    for (const WindowFrame::Piece& piece :
         WindowFrame::pieces(w.style, w.exStyle, own.Right - own.Left, own.Bottom - own.Top, colour)) {
      RECT r = intersect(vis, RECT{x0 + piece.rect.Left, y0 + piece.rect.Top, x0 + piece.rect.Right,
                                   y0 + piece.rect.Bottom});
      const uint32_t p = Canvas::toArgb(piece.colour);
      for (int32_t y = r.Top; y < r.Bottom; ++y) {
        uint32_t* d = screen.row(y);
        for (int32_t x = r.Left; x < r.Right; ++x)
          if (regionContains(w, x - x0, y - y0)) put(d, x, p);
      }
    }
  }
  const int32_t cx0 = x0 + border, cy0 = y0 + border;
  const RECT client = intersect(vis, RECT{cx0, cy0, cx0 + src.width(), cy0 + src.height()});
  const bool plain = a >= 256 && !w.region;  // the common case: a straight copy of each row
  for (int32_t y = client.Top; y < client.Bottom; ++y) {
    const uint32_t* s = src.row(y - cy0);
    uint32_t* d = screen.row(y);
    if (plain) {
      for (int32_t x = client.Left; x < client.Right; ++x) d[x] = s[x - cx0] | 0xFF000000u;
      continue;
    }
    for (int32_t x = client.Left; x < client.Right; ++x)
      if (regionContains(w, x - x0, y - y0)) put(d, x, s[x - cx0]);
  }
  for (HWND c : w.children) {
    const DesktopWindow& child = *window(c);
    // A child is cut to its parent's client area, and to the parent's region.
    if (!w.region) {
      composeWindow(child, screen, cx0, cy0, client, alpha);
    } else {
      for (const RECT& r : *w.region)
        composeWindow(child, screen, cx0, cy0,
                      intersect(client, RECT{x0 + r.Left, y0 + r.Top, x0 + r.Right, y0 + r.Bottom}), alpha);
    }
  }
}

bool WindowManager::composeTopLevel(HWND hWnd, Canvas& out) {
  const DesktopWindow* w = window(hWnd);
  if (!w || w->parent) return false;
  const Canvas& src = *w->canvas;
  if ((out.width() != src.width() || out.height() != src.height()) && !out.resize(src.width(), src.height(), 0))
    return false;
  const_cast<Canvas&>(src).flush();
  out.flush();
  for (int32_t y = 0; y < src.height(); ++y) {
    const uint32_t* s = src.row(y);
    uint32_t* d = out.row(y);
    for (int32_t x = 0; x < src.width(); ++x) d[x] = s[x] | 0xFF000000u;
  }
  RECT all{0, 0, out.width(), out.height()};
  for (HWND c : w->children) composeWindow(*window(c), out, 0, 0, all, 1.0);
  out.markDirty();
  return true;
}

bool WindowManager::setWindowCursor(HWND hWnd, int32_t pointer, HGDIOBJ image) {
  DesktopWindow* w = find(hWnd);
  if (!w) return false;
  w->cursor = pointer;
  w->cursorImage = image;
  return true;
}

bool WindowManager::setClipboardText(const std::string& text) {
  m_clipboard = text;
  return true;
}

void WindowManager::compose(Canvas& screen, COLORREF desktopColour) {
  screen.flush();
  screen.fill(desktopColour);
  composeArea(screen, 0, 0, RECT{0, 0, screen.width(), screen.height()});
  screen.markDirty();
}

void WindowManager::composeArea(Canvas& target, int32_t originX, int32_t originY, RECT clip) {
  clip = intersect(clip, RECT{0, 0, target.width(), target.height()});
  for (HWND h : m_topLevel) composeWindow(*find(h), target, -originX, -originY, clip, 1.0);
}

}  // namespace corvane

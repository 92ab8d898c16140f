// SPDX-License-Identifier: MIT
#include <corvane/host/scroll_bar.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/runtime_error.h>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {
constexpr int32_t kRepeatTimer = 1;
constexpr int32_t kFirstRepeatMs = 350, kRepeatMs = 50;
constexpr int32_t kMinThumb = 8;

COLORREF sysColour(int32_t index) { return gdi().GetSysColor(index); }

void fill(HDC dc, const RECT& r, COLORREF colour) {
  HBRUSH b = gdi().CreateSolidBrush(colour);
  gdi().FillRect(dc, r, b);
  gdi().DeleteObject(b);
}

int32_t lowWord(LPARAM l) { return static_cast<int16_t>(l & 0xFFFF); }
int32_t highWord(LPARAM l) { return static_cast<int16_t>((static_cast<uint32_t>(l) >> 16) & 0xFFFF); }
}  // namespace

DesignForm ScrollBar::designForm() const {
  if (m_vertical) return {255, 1215, Surface::Pixels, static_cast<OLE_COLOR>(0x8000000F)};
  return {1215, 255, Surface::Pixels, static_cast<OLE_COLOR>(0x8000000F)};
}

// ---- properties ----

void ScrollBar::setMin(int16_t v) {
  m_Min = v;
  int16_t lo = std::min(m_Min, m_Max), hi = std::max(m_Min, m_Max);
  if (m_Value < lo || m_Value > hi)
    setValue(m_Value < lo ? lo : hi);
  else
    draw();
}

void ScrollBar::setMax(int16_t v) {
  m_Max = v;
  int16_t lo = std::min(m_Min, m_Max), hi = std::max(m_Min, m_Max);
  if (m_Value < lo || m_Value > hi)
    setValue(m_Value < lo ? lo : hi);
  else
    draw();
}

void ScrollBar::setValue(int16_t v) {
  if (v < std::min(m_Min, m_Max) || v > std::max(m_Min, m_Max)) throw RuntimeError(err::InvalidPropertyValue);
  bool changed = v != m_Value;
  m_Value = v;
  draw();
  if (changed) Change();
}

void ScrollBar::setSmallChange(int16_t v) {
  if (v < 0) throw RuntimeError(err::InvalidPropertyValue);
  m_SmallChange = v;
}

void ScrollBar::setLargeChange(int16_t v) {
  if (v < 0) throw RuntimeError(err::InvalidPropertyValue);
  m_LargeChange = v;
  draw();
}

bool ScrollBar::Enabled() const { return user().IsWindowEnabled(surface().hWnd()); }

void ScrollBar::setEnabled(bool v) {
  user().EnableWindow(surface().hWnd(), v);
  if (!v) release();
  draw();
}

bool ScrollBar::Visible() const {
  return (user().GetWindowLongA(surface().hWnd(), GWL_STYLE) & WS_VISIBLE) != 0;
}

void ScrollBar::setVisible(bool v) {
  if (!v) release();
  user().ShowWindow(surface().hWnd(), v ? SW_SHOWNOACTIVATE : SW_HIDE);
}

// ---- geometry ----

int32_t ScrollBar::length() const { return m_vertical ? surface().pixelHeight() : surface().pixelWidth(); }
int32_t ScrollBar::breadth() const { return m_vertical ? surface().pixelWidth() : surface().pixelHeight(); }

int32_t ScrollBar::arrowLength() const {
  // Square buttons; a bar shorter than two of them shares its length between them.
  return std::max(0, std::min(breadth(), length() / 2));
}

RECT ScrollBar::along(int32_t from, int32_t to) const {
  return m_vertical ? RECT{0, from, breadth(), to} : RECT{from, 0, to, breadth()};
}

void ScrollBar::thumbExtent(int32_t& start, int32_t& end) const {
  start = end = 0;
  int32_t a = arrowLength();
  int32_t track = length() - 2 * a;
  if (!isSited() || track < kMinThumb || !Enabled()) return;
  int32_t range = std::abs(m_Max - m_Min);
  // The thumb shows how much of the whole one large step is.
  int32_t size = track;
  if (range > 0) {
    double share = static_cast<double>(m_LargeChange) / (static_cast<double>(range) + m_LargeChange);
    size = std::clamp(static_cast<int32_t>(std::lround(track * share)), std::min(kMinThumb, track), track);
  }
  double fraction = range > 0 ? static_cast<double>(m_Value - m_Min) / (m_Max - m_Min) : 0.0;
  start = a + static_cast<int32_t>(std::lround((track - size) * fraction));
  end = start + size;
}

ScrollBar::Part ScrollBar::partAt(int32_t x, int32_t y) const {
  int32_t pos = m_vertical ? y : x, across = m_vertical ? x : y;
  if (pos < 0 || pos >= length() || across < 0 || across >= breadth()) return NoPart;
  int32_t a = arrowLength();
  if (pos < a) return LineUp;
  if (pos >= length() - a) return LineDown;
  int32_t t0 = 0, t1 = 0;
  thumbExtent(t0, t1);
  if (t1 <= t0) return NoPart;
  if (pos < t0) return PageUp;
  if (pos >= t1) return PageDown;
  return Thumb;
}

// ---- drawing ----

void ScrollBar::drawArrow(const RECT& r, bool first, bool pressed) {
  HDC dc = surface().hdc();
  fill(dc, r, sysColour(syscolor::BTNFACE));
  if (pressed) {
    HBRUSH b = gdi().CreateSolidBrush(sysColour(syscolor::BTNSHADOW));
    gdi().FrameRect(dc, r, b);
    gdi().DeleteObject(b);
  } else {
    RECT edge = r;
    gdi().DrawEdge(dc, edge, EDGE_RAISED, BF_RECT);
  }
  // A filled triangle pointing away from the track, in the text colour (embossed grey when disabled).
  int32_t size = std::min(r.Right - r.Left, r.Bottom - r.Top);
  int32_t rows = std::max(1, size / 4);
  int32_t cx = (r.Left + r.Right) / 2 - (m_vertical ? 1 : 0),
          cy = (r.Top + r.Bottom) / 2 - (m_vertical ? 0 : 1);
  int32_t shift = pressed ? 1 : 0;
  auto triangle = [&](int32_t dx, int32_t dy, COLORREF colour) {
    for (int32_t k = 0; k < rows; ++k) {
      // Row k counts from the tip.
      int32_t tip = (first ? -rows / 2 : rows / 2) + (first ? k : -k);
      RECT line = m_vertical ? RECT{cx - k, cy + tip, cx + k + 1, cy + tip + 1}
                             : RECT{cx + tip, cy - k, cx + tip + 1, cy + k + 1};
      line.Left += dx + shift, line.Right += dx + shift, line.Top += dy + shift, line.Bottom += dy + shift;
      fill(dc, line, colour);
    }
  };
  if (Enabled()) {
    triangle(0, 0, sysColour(syscolor::BTNTEXT));
  } else {
    triangle(1, 1, sysColour(syscolor::BTNHIGHLIGHT));
    triangle(0, 0, sysColour(syscolor::BTNSHADOW));
  }
}

void ScrollBar::drawTrack(const RECT& r) {
  // The classic track: a fine checker of the highlight and the face colour; dark while pressed.
  HDC dc = surface().hdc();
  COLORREF light = sysColour(syscolor::BTNHIGHLIGHT), face = sysColour(syscolor::BTNFACE);
  fill(dc, r, light);
  for (int32_t y = r.Top; y < r.Bottom; ++y)
    for (int32_t x = r.Left + ((r.Left + y) % 2 == 0 ? 1 : 0); x < r.Right; x += 2)
      gdi().SetPixel(dc, x, y, face);
}

void ScrollBar::draw() {
  if (!isSited()) return;
  guarded([&] {
    Surface& s = surface();
    s.setAutoRedraw(true);
    HDC dc = s.hdc();
    int32_t len = length(), a = arrowLength();
    fill(dc, RECT{0, 0, s.pixelWidth(), s.pixelHeight()}, sysColour(syscolor::BTNFACE));
    if (len - 2 * a > 0) drawTrack(along(a, len - a));
    int32_t t0 = 0, t1 = 0;
    thumbExtent(t0, t1);
    HBRUSH dark = gdi().CreateSolidBrush(sysColour(syscolor::DKSHADOW3D));
    if (m_pressed == PageUp && t0 > a) gdi().FillRect(dc, along(a, t0), dark);
    if (m_pressed == PageDown && t1 > t0 && len - a > t1) gdi().FillRect(dc, along(t1, len - a), dark);
    gdi().DeleteObject(dark);
    if (t1 > t0) {
      RECT thumb = along(t0, t1);
      fill(dc, thumb, sysColour(syscolor::BTNFACE));
      gdi().DrawEdge(dc, thumb, EDGE_RAISED, BF_RECT);
    }
    if (a > 0) {
      drawArrow(along(0, a), true, m_pressed == LineUp);
      drawArrow(along(len - a, len), false, m_pressed == LineDown);
    }
    s.Refresh();
  });
}

// ---- input ----

void ScrollBar::setValueFromUser(int32_t v, bool scrolling) {
  int32_t lo = std::min(m_Min, m_Max), hi = std::max(m_Min, m_Max);
  auto clamped = static_cast<int16_t>(std::clamp(v, lo, hi));
  bool changed = clamped != m_Value;
  m_Value = clamped;
  draw();
  if (scrolling) {
    if (changed) Scroll();
  } else if (changed) {
    Change();
  }
}

void ScrollBar::step(int32_t amount) {
  int32_t direction = m_Max >= m_Min ? 1 : -1;
  setValueFromUser(m_Value + direction * amount, false);
}

void ScrollBar::stepPart(Part p) {
  switch (p) {
    case LineUp:
      step(-m_SmallChange);
      break;
    case LineDown:
      step(m_SmallChange);
      break;
    case PageUp:
      step(-m_LargeChange);
      break;
    case PageDown:
      step(m_LargeChange);
      break;
    default:
      break;
  }
}

void ScrollBar::dragTo(int32_t pos) {
  int32_t t0 = 0, t1 = 0;
  thumbExtent(t0, t1);
  int32_t a = arrowLength();
  int32_t room = length() - 2 * a - (t1 - t0);
  if (room <= 0) return;
  double fraction = std::clamp(static_cast<double>(pos - m_grabOffset - a) / room, 0.0, 1.0);
  setValueFromUser(m_Min + static_cast<int32_t>(std::lround(fraction * (m_Max - m_Min))), true);
}

void ScrollBar::press(int32_t x, int32_t y) {
  if (!Enabled()) return;
  HWND h = surface().hWnd();
  if (user().GetFocus() != h) user().SetFocus(h);
  Part p = partAt(x, y);
  if (p == NoPart) return;
  user().SetCapture(h);
  m_pressed = p;
  m_lastX = x, m_lastY = y;
  if (p == Thumb) {
    int32_t t0 = 0, t1 = 0;
    thumbExtent(t0, t1);
    m_grabOffset = (m_vertical ? y : x) - t0;
    m_dragStartValue = m_Value;
    draw();
    return;
  }
  stepPart(p);
  draw();
  user().SetTimer(h, kRepeatTimer, kFirstRepeatMs);
}

void ScrollBar::release() {
  if (m_pressed == NoPart) return;
  Part was = m_pressed;
  m_pressed = NoPart;
  if (!isSited()) return;
  HWND h = surface().hWnd();
  user().KillTimer(h, kRepeatTimer);
  if (user().GetCapture() == h) user().ReleaseCapture();
  draw();
  if (was == Thumb && m_Value != m_dragStartValue) Change();
}

LRESULT ScrollBar::windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  switch (msg) {
    case wm::LBUTTONDOWN:
    case wm::LBUTTONDBLCLK:
      press(lowWord(lParam), highWord(lParam));
      return 0;
    case wm::MOUSEMOVE:
      if (m_pressed == NoPart) return 0;
      m_lastX = lowWord(lParam), m_lastY = highWord(lParam);
      if (m_pressed == Thumb) dragTo(m_vertical ? m_lastY : m_lastX);
      return 0;
    case wm::LBUTTONUP:
      release();
      return 0;
    case wm::CAPTURECHANGED:
      if (m_pressed != NoPart && static_cast<HWND>(lParam) != hWnd) release();
      break;
    case wm::TIMER:
      if (wParam == kRepeatTimer && m_pressed != NoPart && m_pressed != Thumb) {
        // Repeat only while the pointer stays on the part that was pressed.
        if (partAt(m_lastX, m_lastY) == m_pressed) stepPart(m_pressed);
        user().SetTimer(hWnd, kRepeatTimer, kRepeatMs);
      }
      return 0;
    case wm::SETFOCUS:
      GotFocus();
      break;
    default:
      break;
  }
  return HostedControl::windowProc(hWnd, msg, wParam, lParam);
}

// ---- persistence and members by name ----

void ScrollBar::ReadProperties(PropertyBag& bag) {
  guarded([&] { m_Min = bag.ReadProperty("Min", static_cast<int16_t>(0)).toInteger(); });
  guarded([&] { m_Max = bag.ReadProperty("Max", static_cast<int16_t>(32767)).toInteger(); });
  guarded([&] {
    int32_t v = bag.ReadProperty("Value", static_cast<int16_t>(0)).toInteger();
    m_Value = static_cast<int16_t>(std::clamp<int32_t>(v, std::min(m_Min, m_Max), std::max(m_Min, m_Max)));
  });
  guarded([&] { setSmallChange(bag.ReadProperty("SmallChange", static_cast<int16_t>(1)).toInteger()); });
  guarded([&] { setLargeChange(bag.ReadProperty("LargeChange", static_cast<int16_t>(1)).toInteger()); });
  guarded([&] { setEnabled(bag.ReadProperty("Enabled", true).toBool()); });
}

void ScrollBar::WriteProperties(PropertyBag& bag) {
  bag.WriteProperty("Min", m_Min, static_cast<int16_t>(0));
  bag.WriteProperty("Max", m_Max, static_cast<int16_t>(32767));
  bag.WriteProperty("Value", m_Value, static_cast<int16_t>(0));
  bag.WriteProperty("SmallChange", m_SmallChange, static_cast<int16_t>(1));
  bag.WriteProperty("LargeChange", m_LargeChange, static_cast<int16_t>(1));
  bag.WriteProperty("Enabled", Enabled(), true);
}

const Dispatch* ScrollBar::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<ScrollBar>(t)
        .get("hWnd", [](ScrollBar& b) { return b.surface().hWnd(); })
        .prop("Min", &ScrollBar::Min, &ScrollBar::setMin)
        .prop("Max", &ScrollBar::Max, &ScrollBar::setMax)
        .prop("Value", &ScrollBar::Value, &ScrollBar::setValue)
        .prop("SmallChange", &ScrollBar::SmallChange, &ScrollBar::setSmallChange)
        .prop("LargeChange", &ScrollBar::LargeChange, &ScrollBar::setLargeChange)
        .prop("Enabled", &ScrollBar::Enabled, &ScrollBar::setEnabled);
    return t;
  }();
  return &d;
}

}  // namespace corvane

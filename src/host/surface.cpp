// SPDX-License-Identifier: MIT
#include <corvane/host/surface.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>

#include "host/screen_resolution.h"

namespace corvane {

namespace {
constexpr float kTwipsPerHiMetric = 1440.0f / 2540.0f;

std::vector<std::string> splitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::string cur;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    if (text[i] == '\n' || text[i] == '\r') {
      lines.push_back(cur);
      cur.clear();
    } else {
      cur += text[i];
    }
  }
  lines.push_back(cur);
  return lines;
}

// Whether the text holds a carriage return or a line feed. Where the processor compares sixteen
// bytes at once, a word is looked at in one or two such steps: the first bytes and the last ones,
// which may overlap.
bool hasLineBreak(std::string_view text) {
  const char* p = text.data();
  const size_t n = text.size();
#if defined(__SSE2__)
  if (n >= 8) {
    const __m128i lineFeeds = _mm_set1_epi8('\n'), returns = _mm_set1_epi8('\r');
    auto breakIn = [&](__m128i v) {
      return _mm_movemask_epi8(_mm_or_si128(_mm_cmpeq_epi8(v, lineFeeds), _mm_cmpeq_epi8(v, returns))) != 0;
    };
    if (n < 16)  // the first eight bytes and the last eight
      return breakIn(_mm_unpacklo_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)),
                                        _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p + n - 8))));
    for (size_t at = 0; at + 16 <= n; at += 16)
      if (breakIn(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p + at)))) return true;
    return n % 16 != 0 && breakIn(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p + n - 16)));
  }
#endif
  return std::memchr(p, '\n', n) || std::memchr(p, '\r', n);
}

// As many as splitLines gives, without making them.
size_t lineCount(const std::string& text) {
  size_t count = 1;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    count += text[i] == '\n' || text[i] == '\r';
  }
  return count;
}
}  // namespace

COLORREF translateColor(OLE_COLOR colour) {
  if (colour == -1) return 0xFFFFFF;  // the engine takes -1 as plain white
  COLORREF rgb = 0;
  if (gdi().OleTranslateColor(colour, 0, rgb) != 0) throw RuntimeError(err::InvalidPropertyValue);
  return rgb;
}

Surface::Surface(HWND hWnd)
    : m_hWnd(hWnd), m_hdc(gdi().GetDC(hWnd)), m_font(StdFont::create()), m_erasedWidth(pixelWidth()),
      m_erasedHeight(pixelHeight()) {}

Surface::~Surface() {
  if (currentPlatform()) gdi().ReleaseDC(m_hWnd, m_hdc);
}

void Surface::setBackColor(OLE_COLOR c) {
  translateColor(c);
  m_backColor = c;
  Cls();
}

void Surface::setForeColor(OLE_COLOR c) {
  translateColor(c);
  m_foreColor = c;
}

void Surface::setFont(FontRef f) {
  if (!f) throw RuntimeError(err::InvalidPropertyValue, "Cannot set Font to Nothing");
  m_font = std::move(f);
}

// The outer size: a window's border lies outside its client area.
float Surface::Width() const {
  RECT r;
  user().GetWindowRect(m_hWnd, r);
  return static_cast<float>(r.Right - r.Left) * screenTwipsPerPixelX();
}
float Surface::Height() const {
  RECT r;
  user().GetWindowRect(m_hWnd, r);
  return static_cast<float>(r.Bottom - r.Top) * screenTwipsPerPixelY();
}

int32_t Surface::pixelWidth() const {
  RECT r;
  user().GetClientRect(m_hWnd, r);
  return r.Right;
}

int32_t Surface::pixelHeight() const {
  RECT r;
  user().GetClientRect(m_hWnd, r);
  return r.Bottom;
}

void Surface::setWidth(float twips) {
  RECT r;
  user().GetWindowRect(m_hWnd, r);
  POINTAPI p{r.Left, r.Top};
  if (HWND parent = user().GetParent(m_hWnd)) user().ScreenToClient(parent, p);
  user().MoveWindow(m_hWnd, p.x, p.y, CLng(twips / screenTwipsPerPixelX()), r.Bottom - r.Top, true);
}

void Surface::setHeight(float twips) {
  RECT r;
  user().GetWindowRect(m_hWnd, r);
  POINTAPI p{r.Left, r.Top};
  if (HWND parent = user().GetParent(m_hWnd)) user().ScreenToClient(parent, p);
  user().MoveWindow(m_hWnd, p.x, p.y, r.Right - r.Left, CLng(twips / screenTwipsPerPixelY()), true);
}

float Surface::twipsPerUnit(int16_t mode, bool horizontal) {
  switch (mode) {
    case Pixels: return horizontal ? screenTwipsPerPixelX() : screenTwipsPerPixelY();
    case HiMetric: return kTwipsPerHiMetric;
    default: return 1.0f;  // twips
  }
}

// The screen's twips per pixel are asked for once: in pixels they are divided by themselves.
// Inline: text measuring asks for it on every call.
inline float Surface::unitsPerPixelX(GdiApi& g) const {
  if (m_scaleMode == User) return m_userWidth / static_cast<float>(std::max(pixelWidth(), 1));
  const float twipsPerPixel = screenTwipsPerPixelX(g);
  return twipsPerPixel / (m_scaleMode == Pixels ? twipsPerPixel : twipsPerUnit(m_scaleMode, true));
}

float Surface::unitsPerPixelX() const { return unitsPerPixelX(gdi()); }

float Surface::unitsPerPixelY() const {
  if (m_scaleMode == User) return m_userHeight / static_cast<float>(std::max(pixelHeight(), 1));
  const float twipsPerPixel = screenTwipsPerPixelY();
  return twipsPerPixel / (m_scaleMode == Pixels ? twipsPerPixel : twipsPerUnit(m_scaleMode, false));
}

void Surface::setScaleMode(int16_t mode) {
  if (mode != User && mode != Twips && mode != Pixels && mode != HiMetric) throw RuntimeError(err::InvalidPropertyValue);
  if (mode == User) {
    m_userWidth = ScaleWidth();
    m_userHeight = ScaleHeight();
  } else {
    m_scaleLeft = m_scaleTop = 0;
  }
  m_scaleMode = mode;
}

float Surface::ScaleWidth() const {
  if (m_scaleMode == User) return m_userWidth;
  return static_cast<float>(pixelWidth()) * unitsPerPixelX();
}

float Surface::ScaleHeight() const {
  if (m_scaleMode == User) return m_userHeight;
  return static_cast<float>(pixelHeight()) * unitsPerPixelY();
}

// Setting any part of the scale makes it a user scale; the other values keep their present figures.
void Surface::setScaleLeft(float v) {
  if (m_scaleMode != User) setScaleMode(User);
  m_scaleLeft = v;
}
void Surface::setScaleTop(float v) {
  if (m_scaleMode != User) setScaleMode(User);
  m_scaleTop = v;
}
void Surface::setScaleWidth(float v) {
  if (v == 0) throw RuntimeError(err::InvalidPropertyValue);
  if (m_scaleMode != User) setScaleMode(User);
  m_userWidth = v;
}
void Surface::setScaleHeight(float v) {
  if (v == 0) throw RuntimeError(err::InvalidPropertyValue);
  if (m_scaleMode != User) setScaleMode(User);
  m_userHeight = v;
}

void Surface::Scale(float x1, float y1, float x2, float y2) {
  setScaleLeft(x1);
  setScaleTop(y1);
  setScaleWidth(x2 - x1);
  setScaleHeight(y2 - y1);
}

void Surface::resetScale() {
  int16_t mode = m_scaleMode == User ? static_cast<int16_t>(Twips) : m_scaleMode;
  m_scaleMode = mode;
  m_scaleLeft = m_scaleTop = 0;
}

bool Surface::Enabled() const { return user().IsWindowEnabled(m_hWnd); }
void Surface::setEnabled(bool v) { user().EnableWindow(m_hWnd, v); }
bool Surface::Visible() const { return user().IsWindowVisible(m_hWnd); }

void Surface::setPicture(PictureRef p) {
  m_picture = std::move(p);
  Cls();
}

void Surface::setMaskPicture(PictureRef p) {
  m_maskPicture = std::move(p);
  updateMaskRegion();
}

void Surface::setMaskColor(OLE_COLOR c) {
  translateColor(c);
  m_maskColor = c;
  updateMaskRegion();
}

void Surface::setBackStyle(int16_t v) {
  if (v != 0 && v != 1) throw RuntimeError(err::InvalidPropertyValue);
  m_backStyle = v;
  updateMaskRegion();
}

PictureRef Surface::Image() const {
  const int32_t width = pixelWidth(), height = pixelHeight();
  HDC mem = gdi().CreateCompatibleDC(m_hdc);
  HBITMAP bitmap = gdi().CreateCompatibleBitmap(m_hdc, width, height);
  HGDIOBJ old = gdi().SelectObject(mem, bitmap);
  gdi().BitBlt(mem, 0, 0, width, height, m_hdc, 0, 0, SRCCOPY);
  gdi().SelectObject(mem, old);
  gdi().DeleteDC(mem);
  return StdPicture::fromBitmap(bitmap);
}

void Surface::updateMaskRegion() {
  bool applies = m_backStyle == 0 && m_maskPicture && m_maskPicture->Handle() != 0;
  if (!applies) {
    // Only a region of our own making is taken away again; a shaped form keeps its own.
    if (m_maskShape) {
      user().SetWindowRgn(m_hWnd, 0, true);
      m_maskShape.reset();
    }
    return;
  }
  MaskShape shape{m_maskPicture->Handle(), translateColor(m_maskColor) & 0xFFFFFF};
  if (m_maskShape && *m_maskShape == shape) return;

  // Render the mask into a memory context of its own size and scan it row by row; what the
  // picture leaves transparent reads as the mask colour, so it falls away as well.
  SIZE size = m_maskPicture->pixelSize();
  HDC mem = gdi().CreateCompatibleDC(m_hdc);
  HBITMAP bitmap = gdi().CreateCompatibleBitmap(m_hdc, std::max(size.cx, 1), std::max(size.cy, 1));
  HGDIOBJ oldBitmap = gdi().SelectObject(mem, bitmap);
  HBRUSH fill = gdi().CreateSolidBrush(shape.colour);
  gdi().FillRect(mem, RECT{0, 0, size.cx, size.cy}, fill);
  gdi().DeleteObject(fill);
  m_maskPicture->Render(mem, 0, 0, size.cx, size.cy);

  HRGN shapeRegion = gdi().CreateRectRgn(0, 0, 0, 0);
  for (int32_t y = 0; y < size.cy; ++y) {
    int32_t x = 0;
    while (x < size.cx) {
      while (x < size.cx && (gdi().GetPixel(mem, x, y) & 0xFFFFFF) == shape.colour) ++x;
      int32_t start = x;
      while (x < size.cx && (gdi().GetPixel(mem, x, y) & 0xFFFFFF) != shape.colour) ++x;
      if (x > start) {
        HRGN run = gdi().CreateRectRgn(start, y, x, y + 1);
        gdi().CombineRgn(shapeRegion, shapeRegion, run, RGN_OR);
        gdi().DeleteObject(run);
      }
    }
  }
  gdi().SelectObject(mem, oldBitmap);
  gdi().DeleteObject(bitmap);
  gdi().DeleteDC(mem);
  user().SetWindowRgn(m_hWnd, shapeRegion, true);  // the window owns the region from here on
  m_maskShape = shape;
}

int32_t Surface::toPixelX(float x) const { return CLng((x - m_scaleLeft) / unitsPerPixelX()); }
int32_t Surface::toPixelY(float y) const { return CLng((y - m_scaleTop) / unitsPerPixelY()); }
float Surface::fromPixelX(int32_t px) const { return static_cast<float>(px) * unitsPerPixelX() + m_scaleLeft; }
float Surface::fromPixelY(int32_t py) const { return static_cast<float>(py) * unitsPerPixelY() + m_scaleTop; }

// Pixels become twips or user units by a product with the units per pixel, and back by the
// quotient, in single precision: 200 pixels at 15 twips per pixel are 3000 twips exactly, and a
// user scale does not take a detour through twips. HiMetric goes through twips.
float Surface::scaleBetween(float value, int16_t from, int16_t to, bool horizontal) const {
  if (from == -1) from = m_scaleMode;
  if (to == -1) to = m_scaleMode;
  const float twipsPerPixel = horizontal ? screenTwipsPerPixelX() : screenTwipsPerPixelY();
  const float userPerPixel = horizontal ? unitsPerPixelX() : unitsPerPixelY();
  auto unitsPerPixel = [&](int16_t mode) {
    return mode == User ? userPerPixel : mode == Pixels ? 1.0f : twipsPerPixel;  // not for HiMetric
  };
  if (from == to) return value;
  if (from != HiMetric && to != HiMetric) {
    if (from == Pixels) return value * unitsPerPixel(to);
    if (to == Pixels) return value / unitsPerPixel(from);
    return value / unitsPerPixel(from) * unitsPerPixel(to);  // twips and a user scale
  }
  auto twipsPer = [&](int16_t mode) {
    if (mode == User) return userPerPixel == 0 ? 1.0f : twipsPerPixel / userPerPixel;
    return twipsPerUnit(mode, horizontal);
  };
  return value * twipsPer(from) / twipsPer(to);
}

float Surface::ScaleX(float value, int16_t from, int16_t to) const { return scaleBetween(value, from, to, true); }
float Surface::ScaleY(float value, int16_t from, int16_t to) const { return scaleBetween(value, from, to, false); }

void Surface::setMousePointer(int16_t v) {
  m_mousePointer = v;
  showCursor();
}

void Surface::setMouseIcon(PictureRef p) {
  m_mouseIcon = std::move(p);
  showCursor();
}

// The window's cursor follows the pointer value; a surface outliving the application keeps it only.
void Surface::showCursor() {
  if (Platform* p = currentPlatform())
    p->user().setWindowCursor(m_hWnd, m_mousePointer, m_mouseIcon ? m_mouseIcon->Handle() : 0);
}

void Surface::Cls() {
  HBRUSH b = gdi().CreateSolidBrush(translateColor(m_backColor));
  gdi().FillRect(m_hdc, RECT{0, 0, pixelWidth(), pixelHeight()}, b);
  gdi().DeleteObject(b);
  if (m_picture && m_picture->Handle()) {
    SIZE s = m_picture->pixelSize();
    COLORREF mask = (m_maskPicture && m_backStyle == 0) ? translateColor(m_maskColor) : -1;
    m_picture->Render(m_hdc, 0, 0, s.cx, s.cy, mask);
  }
  m_currentX = m_scaleLeft;
  m_currentY = m_scaleTop;
}

void Surface::Refresh() {
  user().InvalidateRect(m_hWnd, nullptr, false);
  user().UpdateWindow(m_hWnd);
}

void Surface::Line(float x1, float y1, float x2, float y2, OLE_COLOR colour, bool box, bool fill) {
  COLORREF rgb = translateColor(colour);
  int32_t px1 = toPixelX(x1), py1 = toPixelY(y1), px2 = toPixelX(x2), py2 = toPixelY(y2);
  if (box && fill) {
    HBRUSH b = gdi().CreateSolidBrush(rgb);
    gdi().FillRect(m_hdc, RECT{std::min(px1, px2), std::min(py1, py2), std::max(px1, px2) + 1, std::max(py1, py2) + 1}, b);
    gdi().DeleteObject(b);
  } else {
    HPEN pen = gdi().CreatePen(PS_SOLID, 1, rgb);
    HGDIOBJ old = gdi().SelectObject(m_hdc, pen);
    if (box) {
      gdi().MoveToEx(m_hdc, px1, py1, nullptr);
      gdi().LineTo(m_hdc, px2, py1);
      gdi().LineTo(m_hdc, px2, py2);
      gdi().LineTo(m_hdc, px1, py2);
      gdi().LineTo(m_hdc, px1, py1);
    } else {
      gdi().MoveToEx(m_hdc, px1, py1, nullptr);
      gdi().LineTo(m_hdc, px2, py2);
      gdi().SetPixel(m_hdc, px2, py2, rgb);  // the engine's line includes its end point
    }
    gdi().SelectObject(m_hdc, old);
    gdi().DeleteObject(pen);
  }
  m_currentX = x2;
  m_currentY = y2;
}

void Surface::PaintPicture(const PictureRef& picture, float x, float y, float width, float height) {
  if (!picture) throw RuntimeError(err::ObjectNotSet);
  int32_t px = toPixelX(x), py = toPixelY(y);
  int32_t pw = CLng(width / unitsPerPixelX()), ph = CLng(height / unitsPerPixelY());
  picture->Render(m_hdc, px, py, pw, ph);
}

void Surface::selectFont() { gdi().SetDCFont(m_hdc, m_font->desc()); }

float Surface::TextWidth(const std::string& text) {
  GdiApi& g = gdi();
  g.SetDCFont(m_hdc, m_font->desc());
  if (hasLineBreak(text)) return widestLine(g, text);
  SIZE s;  // one line is measured as it is
  g.GetTextExtentPoint32A(m_hdc, text, s);
  return static_cast<float>(s.cx) * unitsPerPixelX(g);
}

float Surface::widestLine(GdiApi& g, const std::string& text) {
  int32_t widest = 0;
  SIZE s;
  for (const std::string& line : splitLines(text)) {
    g.GetTextExtentPoint32A(m_hdc, line, s);
    widest = std::max(widest, s.cx);
  }
  return static_cast<float>(widest) * unitsPerPixelX(g);
}

float Surface::TextHeight(const std::string& text) {
  selectFont();
  TEXTMETRIC tm;
  gdi().GetTextMetricsA(m_hdc, tm);
  return static_cast<float>(lineCount(text) * static_cast<size_t>(tm.tmHeight)) * unitsPerPixelY();
}

void Surface::Print(const std::string& text, bool newLine) {
  selectFont();
  gdi().SetTextColor(m_hdc, translateColor(m_foreColor));
  gdi().SetBkMode(m_hdc, 1);
  TEXTMETRIC tm;
  gdi().GetTextMetricsA(m_hdc, tm);
  auto printLine = [&](const std::string& line, bool last) {
    gdi().TextOutA(m_hdc, toPixelX(m_currentX), toPixelY(m_currentY), line);
    if (last && !newLine) {
      SIZE s;
      gdi().GetTextExtentPoint32A(m_hdc, line, s);
      m_currentX += static_cast<float>(s.cx) * unitsPerPixelX();
    } else {
      m_currentX = m_scaleLeft;
      m_currentY += static_cast<float>(tm.tmHeight) * unitsPerPixelY();
    }
  };
  if (lineCount(text) == 1) {
    printLine(text, true);  // one line, printed as it is
    return;
  }
  auto lines = splitLines(text);
  for (size_t i = 0; i < lines.size(); ++i) printLine(lines[i], i + 1 == lines.size());
}

// A window that grew shows its back colour in the new area, as the engine erases it.
void Surface::eraseGrownArea() {
  const int32_t w = pixelWidth(), h = pixelHeight();
  if (w > m_erasedWidth || h > m_erasedHeight) {
    HBRUSH b = gdi().CreateSolidBrush(translateColor(m_backColor));
    if (w > m_erasedWidth) gdi().FillRect(m_hdc, RECT{m_erasedWidth, 0, w, h}, b);
    if (h > m_erasedHeight) gdi().FillRect(m_hdc, RECT{0, m_erasedHeight, w, h}, b);
    gdi().DeleteObject(b);
  }
  m_erasedWidth = w;
  m_erasedHeight = h;
}

int16_t Surface::shiftState() const {
  int16_t s = 0;
  if (user().GetAsyncKeyState(VK_SHIFT) & 0x8000) s |= 1;
  if (user().GetAsyncKeyState(VK_CONTROL) & 0x8000) s |= 2;
  if (user().GetAsyncKeyState(VK_MENU) & 0x8000) s |= 4;
  return s;
}

void Surface::handleMessage(int32_t msg, WPARAM wParam, LPARAM lParam) {
  auto mouse = [&](Event<int16_t&, int16_t&, float&, float&>& ev, int16_t button) {
    int16_t shift = shiftState();
    float x = fromPixelX(static_cast<int16_t>(lParam & 0xFFFF));
    float y = fromPixelY(static_cast<int16_t>((static_cast<uint32_t>(lParam) >> 16) & 0xFFFF));
    ev(button, shift, x, y);
  };
  auto buttonsOf = [](WPARAM w) {
    return static_cast<int16_t>(((w & MK_LBUTTON) ? 1 : 0) | ((w & MK_RBUTTON) ? 2 : 0) | ((w & MK_MBUTTON) ? 4 : 0));
  };
  switch (msg) {
    case wm::LBUTTONDOWN:
    case wm::RBUTTONDOWN:
    case wm::MBUTTONDOWN:
      user().SetCapture(m_hWnd);  // the engine holds the mouse while a button is down
      if (msg == wm::LBUTTONDOWN) m_leftDownHere = true;
      mouse(MouseDown, msg == wm::LBUTTONDOWN ? 1 : msg == wm::RBUTTONDOWN ? 2 : 4);
      break;
    case wm::LBUTTONUP:
    case wm::RBUTTONUP:
    case wm::MBUTTONUP: {
      if (buttonsOf(wParam) == 0 && user().GetCapture() == m_hWnd) user().ReleaseCapture();
      mouse(MouseUp, msg == wm::LBUTTONUP ? 1 : msg == wm::RBUTTONUP ? 2 : 4);
      if (msg == wm::LBUTTONUP && m_leftDownHere) {
        m_leftDownHere = false;
        int32_t x = static_cast<int16_t>(lParam & 0xFFFF), y = static_cast<int16_t>((static_cast<uint32_t>(lParam) >> 16) & 0xFFFF);
        if (x >= 0 && y >= 0 && x < pixelWidth() && y < pixelHeight()) Click();
      }
      break;
    }
    case wm::LBUTTONDBLCLK:
    case wm::RBUTTONDBLCLK:
      user().SetCapture(m_hWnd);
      m_leftDownHere = false;
      DblClick();
      break;
    case wm::MOUSEMOVE:
      mouse(MouseMove, buttonsOf(wParam));
      break;
    case wm::KEYDOWN: {
      int16_t code = static_cast<int16_t>(wParam), shift = shiftState();
      KeyDown(code, shift);
      break;
    }
    case wm::KEYUP: {
      int16_t code = static_cast<int16_t>(wParam), shift = shiftState();
      KeyUp(code, shift);
      break;
    }
    case wm::CHAR: {
      int16_t ascii = static_cast<int16_t>(wParam);
      KeyPress(ascii);
      break;
    }
    case wm::SIZE:
      eraseGrownArea();
      Resize();
      break;
    case wm::PAINT:
      if (!m_autoRedraw) Paint();
      break;
    default:
      break;
  }
}

}  // namespace corvane

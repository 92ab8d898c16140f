// SPDX-License-Identifier: MIT
#include "desktop/gdi.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <climits>
#include <cstring>
#include <fstream>
#include <utility>

#include "desktop/gdi_raster.h"
#include "desktop/image_codec.h"
#include "desktop/image_painter.h"
#include "desktop/text_layout.h"
#include "desktop/text_utf8.h"

namespace corvane {

namespace {

constexpr int32_t PS_NULL = 5, TRANSPARENT = 1, OPAQUE = 2, PLANES = 14;
constexpr int32_t BF_MIDDLE = 0x800, BF_ADJUST = 0x2000;
constexpr int32_t kMaxBitmapSide = 32767;
constexpr std::streamoff kMaxFileBytes = std::streamoff{256} << 20;

// Argument formatting for the operation log.
void appendArg(std::string& out, int32_t v) { out += std::to_string(v); }
void appendArg(std::string& out, bool v) { out += v ? '1' : '0'; }
void appendArg(std::string& out, double v) {
  char buffer[32];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, v);
  out.append(buffer, result.ptr);
}
void appendArg(std::string& out, std::string_view v) { out += v; }
void appendArg(std::string& out, const std::string& v) { out += v; }
void appendArg(std::string& out, const RECT& r) {
  out += std::to_string(r.Left) + ',' + std::to_string(r.Top) + ',' + std::to_string(r.Right) + ',' +
         std::to_string(r.Bottom);
}
void appendArg(std::string& out, const FontSpec& f) {
  appendArg(out, f.name);
  out += ',';
  appendArg(out, f.size);
  for (bool flag : {f.bold, f.italic, f.underline, f.strikethrough}) {
    out += ',';
    appendArg(out, flag);
  }
}

RECT intersect(const RECT& a, const RECT& b) {
  return {std::max(a.Left, b.Left), std::max(a.Top, b.Top), std::min(a.Right, b.Right),
          std::min(a.Bottom, b.Bottom)};
}

RECT bounds(const Canvas& c) { return {0, 0, c.width(), c.height()}; }

void fillClipped(Canvas& canvas, const RECT& clip, int32_t left, int32_t top, int32_t right, int32_t bottom,
                 COLORREF colour) {
  canvas.fillRect(std::max(left, clip.Left), std::max(top, clip.Top), std::min(right, clip.Right),
                  std::min(bottom, clip.Bottom), colour);
}

// The first count characters of a text (all of it for a negative count).
std::string_view firstCharacters(std::string_view text, int32_t count) {
  if (count < 0) return text.substr(0, text.find('\0'));  // a text of unknown length ends at a NUL
  size_t i = 0;
  for (int32_t n = 0; n < count && i < text.size(); ++n) nextCodePoint(text, i);
  return text.substr(0, i);
}

}  // namespace

template <class... Args>
void DesktopGdi::record(DcState& state, const char* name, const Args&... args) {
  std::string line = name;
  line += '(';
  bool first = true;
  ((line += first ? "" : ",", first = false, appendArg(line, args)), ...);
  line += ')';
  state.log.push_back(std::move(line));
}

template <class... Args>
void DesktopGdi::recordEverywhere(const char* name, const Args&... args) {
  if (m_recording == 0) return;
  for (auto& [handle, state] : m_dcs)
    if (state->recording) record(*state, name, args...);
}

DesktopGdi::DesktopGdi(WindowImages& windows) : m_windows(windows) {
  // The defaults a fresh context starts with; they are never freed and not counted.
  GdiObject pen(GdiObject::Kind::Pen);
  pen.stock = true;
  m_stockPen = addObject(std::move(pen));
  GdiObject brush(GdiObject::Kind::Brush);
  brush.stock = true;
  brush.colour = 0xFFFFFF;
  m_stockBrush = addObject(std::move(brush));
  GdiObject font(GdiObject::Kind::Font);
  font.stock = true;
  m_stockFont = addObject(std::move(font));
  GdiObject bitmap(GdiObject::Kind::Bitmap);
  bitmap.stock = true;
  bitmap.canvas = std::make_shared<Canvas>(1, 1, 0);
  m_stockBitmap = addObject(std::move(bitmap));
}

DesktopGdi::~DesktopGdi() = default;

// --- handle table -------------------------------------------------------------------------------

int32_t DesktopGdi::addObject(GdiObject object) {
  const bool counted = object.counted(), image = object.kind == GdiObject::Kind::Image;
  const int32_t handle = m_handles.add(std::move(object));
  if (handle == 0) return 0;
  if (counted) ++m_liveObjects;
  if (image) ++m_liveImages;
  return handle;
}

int32_t DesktopGdi::addPlainObject(GdiObject::Kind kind, int32_t penStyle, int32_t penWidth, COLORREF colour) {
  const int32_t handle = m_handles.addPlain(kind, penStyle, penWidth, colour);
  if (handle != 0) ++m_liveObjects;
  return handle;
}

void DesktopGdi::removeObject(int32_t handle) {
  const GdiObject* o = m_handles.find(handle);
  if (!o) return;
  if (o->counted()) --m_liveObjects;
  if (o->kind == GdiObject::Kind::Image) --m_liveImages;
  m_handles.remove(handle);
}

GdiObject* DesktopGdi::object(int32_t handle) { return m_handles.find(handle); }

const GdiObject* DesktopGdi::picture(int32_t handle) {
  const GdiObject* o = object(handle);
  if (!o || (o->kind != GdiObject::Kind::Image && o->kind != GdiObject::Kind::Bitmap) || !o->canvas)
    return nullptr;
  return o;
}

HKEY DesktopGdi::addKeyHandle(int64_t keyId, int32_t access) {
  GdiObject key(GdiObject::Kind::Key);
  key.keyId = keyId;
  key.keyAccess = access;
  ++m_liveKeys;
  return addObject(std::move(key));
}

const GdiObject* DesktopGdi::keyHandle(HKEY handle) {
  const GdiObject* o = object(handle);
  return o && o->kind == GdiObject::Kind::Key ? o : nullptr;
}

bool DesktopGdi::removeKeyHandle(HKEY handle) {
  if (!keyHandle(handle)) return false;
  removeObject(handle);
  --m_liveKeys;
  return true;
}

HDC DesktopGdi::addDc(std::unique_ptr<DcState> state) {
  selectDefaults(*state);
  const HDC handle = m_handles.reserve();
  if (handle == 0) return 0;
  m_dcs.emplace(handle, std::move(state));
  return handle;
}

void DesktopGdi::removeDc(HDC hdc) {
  auto it = m_dcs.find(hdc);
  if (it == m_dcs.end()) return;
  if (it->second->recording) --m_recording;
  HFONT own = it->second->ownFont;
  if (m_otherHdc == hdc) {
    m_otherHdc = 0;
    m_otherDc = nullptr;
  }
  if (m_lastHdc == hdc) {
    m_lastHdc = 0;
    m_lastDc = nullptr;
  }
  m_dcs.erase(it);
  m_handles.remove(hdc);
  removeObject(own);
}

DcState* DesktopGdi::findDc(HDC hdc) {
  if (hdc == m_otherHdc && m_otherDc) {
    std::swap(m_lastHdc, m_otherHdc);
    std::swap(m_lastDc, m_otherDc);
    return m_lastDc;
  }
  auto it = m_dcs.find(hdc);
  if (it == m_dcs.end()) return nullptr;
  m_otherHdc = m_lastHdc;
  m_otherDc = m_lastDc;
  m_lastHdc = hdc;
  m_lastDc = it->second.get();
  return m_lastDc;
}

const std::shared_ptr<TextFont>& DesktopGdi::stockTextFont() {
  GdiObject& font = *m_handles.find(m_stockFont);
  if (!font.font) font.font = m_fonts.font(font.fontSpec, m_dpiY);
  return font.font;
}

TextFont& DesktopGdi::textFont(DcState& state) {
  if (!state.textFont) state.textFont = stockTextFont();
  return *state.textFont;
}

void DesktopGdi::selectDefaults(DcState& state) {
  const GdiObject& font = *m_handles.find(m_stockFont);
  state.pen = m_stockPen;
  state.penStyle = PS_SOLID;
  state.penWidth = 1;
  state.penColour = 0;
  state.brush = m_stockBrush;
  state.brushColour = 0xFFFFFF;
  state.font = m_stockFont;
  state.textFont = font.font;
  state.underline = state.strikethrough = false;
  if (state.memory) {
    state.bitmapHandle = m_stockBitmap;
    state.bitmap = m_handles.find(m_stockBitmap)->canvas;
  }
}

Canvas* DesktopGdi::target(const DcState& state) {
  return state.memory ? state.bitmap.get() : m_windows.windowCanvas(state.window);
}

void DesktopGdi::drawn(const DcState& state) {
  if (!state.memory) m_windows.windowDrawn(state.window);
}

bool DesktopGdi::brushColour(const DcState& state, HBRUSH brush, COLORREF& colour) {
  if (brush >= 1 && brush <= syscolor::COUNT) {  // a system colour index + 1 stands for its brush
    colour = m_colours.get(brush - 1);
    return true;
  }
  if (brush == 0) {  // the context's own brush
    colour = state.brushColour;
    return true;
  }
  const GdiObject* o = object(brush);
  if (!o || o->kind != GdiObject::Kind::Brush) return false;
  colour = o->colour;
  return true;
}

uint64_t DesktopGdi::nextResolutionSerial() {
  static std::atomic<uint64_t> last{0};
  return ++last;
}

void DesktopGdi::setPixelsPerInch(int32_t x, int32_t y) {
  const int32_t oldDpiY = m_dpiY;
  m_dpiX = std::max(x, 1);
  m_dpiY = std::max(y, 1);
  m_resolutionSerial = nextResolutionSerial();
  // Contexts holding the stock font keep the one of the old resolution, as if it had been made.
  GdiObject& font = *m_handles.find(m_stockFont);
  if (m_dpiY == oldDpiY) return;
  for (auto& [handle, state] : m_dcs) {
    if (state->textFont) continue;
    if (!font.font) font.font = m_fonts.font(font.fontSpec, oldDpiY);
    state->textFont = font.font;
  }
  font.font = nullptr;
}

std::vector<RECT> DesktopGdi::regionRects(HRGN region) const {
  const GdiObject* o = m_handles.find(region);
  if (!o || o->kind != GdiObject::Kind::Region) return {};
  return o->region.rects();
}

// --- device contexts ----------------------------------------------------------------------------

HDC DesktopGdi::GetDC(HWND hWnd) {
  // The screen (window 0) is always there; its image is made when something draws on it.
  if (hWnd != 0 && !m_windows.windowCanvas(hWnd)) return 0;
  auto state = std::make_unique<DcState>();
  state->window = hWnd;
  return addDc(std::move(state));
}

int32_t DesktopGdi::ReleaseDC(HWND, HDC hdc) {
  DcState* d = dc(hdc);
  if (!d || d->memory) return 0;
  removeDc(hdc);
  return 1;
}

HDC DesktopGdi::CreateCompatibleDC(HDC hdc) {
  if (hdc != 0 && !dc(hdc)) return 0;
  auto state = std::make_unique<DcState>();
  state->memory = true;
  HDC handle = addDc(std::move(state));
  recordEverywhere("CreateCompatibleDC", hdc);
  return handle;
}

bool DesktopGdi::DeleteDC(HDC hdc) {
  DcState* d = dc(hdc);
  if (!d || !d->memory) return false;  // a window's context goes back through ReleaseDC
  removeDc(hdc);
  recordEverywhere("DeleteDC", hdc);
  return true;
}

int32_t DesktopGdi::GetDeviceCaps(HDC hdc, int32_t index) {
  DcState* d = dc(hdc);
  if (!d) return 0;
  if (d->recording) record(*d, "GetDeviceCaps", index);
  switch (index) {
    case LOGPIXELSX:
      return m_dpiX;
    case LOGPIXELSY:
      return m_dpiY;
    case BITSPIXEL:
      return 32;
    case PLANES:
      return 1;
    case HORZRES:
    case VERTRES: {
      // Only the sizes need the image: asking for the resolution does not make the screen's.
      const Canvas* c = target(*d);
      return c ? (index == HORZRES ? c->width() : c->height()) : 0;
    }
    default:
      return 0;
  }
}

HPALETTE DesktopGdi::SelectPalette(HDC hdc, HPALETTE pal, bool forceBackground) {
  if (DcState* d = dc(hdc); d && d->recording) record(*d, "SelectPalette", pal, forceBackground);
  return 0;  // true colour: there is no palette to choose
}

int32_t DesktopGdi::RealizePalette(HDC hdc) {
  if (DcState* d = dc(hdc); d && d->recording) record(*d, "RealizePalette");
  return 0;
}

// --- drawing objects ----------------------------------------------------------------------------

HBRUSH DesktopGdi::CreateSolidBrush(COLORREF colour) {
  recordEverywhere("CreateSolidBrush", colour);
  return addPlainObject(GdiObject::Kind::Brush, 0, 1, colour & 0xFFFFFF);
}

HPEN DesktopGdi::CreatePen(int32_t style, int32_t width, COLORREF colour) {
  recordEverywhere("CreatePen", style, width, colour);
  return addPlainObject(GdiObject::Kind::Pen, style, std::max(width, 1), colour & 0xFFFFFF);
}

HFONT DesktopGdi::CreateFontIndirect(const FontSpec& font) {
  recordEverywhere("CreateFontIndirect", font);
  GdiObject o(GdiObject::Kind::Font);
  o.fontSpec = font;
  o.font = m_fonts.font(font, m_dpiY);
  return addObject(std::move(o));
}

HBITMAP DesktopGdi::CreateCompatibleBitmap(HDC hdc, int32_t width, int32_t height) {
  recordEverywhere("CreateCompatibleBitmap", hdc, width, height);
  if (width < 0 || height < 0 || width > kMaxBitmapSide || height > kMaxBitmapSide) return 0;
  if (hdc != 0 && !dc(hdc)) return 0;
  // A new bitmap is black; an empty size gives one pixel, as on the platform.
  if (width == 0 || height == 0) width = height = 1;
  GdiObject o(GdiObject::Kind::Bitmap);
  o.canvas = std::make_shared<Canvas>(width, height, 0);
  return addObject(std::move(o));
}

HRGN DesktopGdi::CreateRectRgn(int32_t left, int32_t top, int32_t right, int32_t bottom) {
  recordEverywhere("CreateRectRgn", left, top, right, bottom);
  GdiObject o(GdiObject::Kind::Region);
  o.region = Region(left, top, right, bottom);
  return addObject(std::move(o));
}

int32_t DesktopGdi::CombineRgn(HRGN dest, HRGN src1, HRGN src2, int32_t mode) {
  recordEverywhere("CombineRgn", dest, src1, src2, mode);
  if (mode < RGN_AND || mode > RGN_COPY) return 0;
  GdiObject* d = object(dest);
  GdiObject* a = object(src1);
  GdiObject* b = mode == RGN_COPY ? a : object(src2);
  auto isRegion = [](const GdiObject* o) { return o && o->kind == GdiObject::Kind::Region; };
  if (!isRegion(d) || !isRegion(a) || !isRegion(b)) return 0;
  d->region = Region::combine(a->region, b->region, mode);
  return d->region.kind();
}

HGDIOBJ DesktopGdi::SelectObject(HDC hdc, HGDIOBJ obj) {
  DcState* d = dc(hdc);
  if (!d) return 0;
  if (d->recording) record(*d, "SelectObject", obj);
  GdiObject* o = object(obj);
  if (!o) return 0;
  HGDIOBJ previous = 0;
  switch (o->kind) {
    case GdiObject::Kind::Pen:
      previous = d->pen;
      d->pen = obj;
      d->penStyle = o->penStyle;
      d->penWidth = o->penWidth;
      d->penColour = o->colour;
      return previous;
    case GdiObject::Kind::Brush:
      previous = d->brush;
      d->brush = obj;
      d->brushColour = o->colour;
      return previous;
    case GdiObject::Kind::Font:
      previous = d->font;
      d->font = obj;
      d->textFont = o->font;
      d->underline = o->fontSpec.underline;
      d->strikethrough = o->fontSpec.strikethrough;
      return previous;
    case GdiObject::Kind::Bitmap:
    case GdiObject::Kind::Image:
      if (!d->memory || o->icon) return 0;  // only a memory context takes a bitmap
      previous = d->bitmapHandle;
      d->bitmapHandle = obj;
      d->bitmap = o->canvas;
      return previous;
    case GdiObject::Kind::Region:
      return 0;  // clipping regions are not supported
    case GdiObject::Kind::Key:
      return 0;
  }
  return 0;
}

void DesktopGdi::SetDCFont(HDC hdc, const FontSpec& font) {
  DcState* d = dc(hdc);
  if (!d) return;
  if (d->recording) record(*d, "SetDCFont", font);
  // The font already selected again (as surfaces do before each text call): nothing to look up.
  if (d->ownFont && d->font == d->ownFont && d->ownDpi == m_dpiY && d->ownSpec == font) return;
  makeOwnFont(*d, font);
}

void DesktopGdi::makeOwnFont(DcState& state, const FontSpec& font) {
  std::shared_ptr<TextFont> made = m_fonts.font(font, m_dpiY);
  if (!state.ownFont) {
    GdiObject own(GdiObject::Kind::Font);
    own.dcOwned = true;
    state.ownFont = addObject(std::move(own));
    if (!state.ownFont) return;  // the handle table is full: the context keeps the font it has
  }
  GdiObject& own = *m_handles.find(state.ownFont);
  own.fontSpec = font;
  own.font = made;
  state.font = state.ownFont;
  state.ownSpec = font;
  state.ownDpi = m_dpiY;
  state.textFont = std::move(made);
  state.underline = font.underline;
  state.strikethrough = font.strikethrough;
}

bool DesktopGdi::DeleteObject(HGDIOBJ obj) {
  recordEverywhere("DeleteObject", obj);
  const GdiObject* o = object(obj);
  if (!o || o->stock || o->dcOwned || o->kind == GdiObject::Kind::Key) return false;
  if (o->kind == GdiObject::Kind::Image && o->icon) return false;  // icons go through DestroyIcon
  if (o->counted()) --m_liveObjects;
  if (o->kind == GdiObject::Kind::Image) --m_liveImages;
  m_handles.remove(obj);
  return true;
}

// --- pixels and shapes --------------------------------------------------------------------------

COLORREF DesktopGdi::SetTextColor(HDC hdc, COLORREF colour) {
  DcState* d = dc(hdc);
  if (!d) return -1;
  if (d->recording) record(*d, "SetTextColor", colour);
  return std::exchange(d->textColour, colour & 0xFFFFFF);
}

COLORREF DesktopGdi::SetBkColor(HDC hdc, COLORREF colour) {
  DcState* d = dc(hdc);
  if (!d) return -1;
  if (d->recording) record(*d, "SetBkColor", colour);
  return std::exchange(d->bkColour, colour & 0xFFFFFF);
}

int32_t DesktopGdi::SetBkMode(HDC hdc, int32_t mode) {
  DcState* d = dc(hdc);
  if (!d) return 0;
  if (d->recording) record(*d, "SetBkMode", mode);
  if (mode != TRANSPARENT && mode != OPAQUE) return 0;
  return std::exchange(d->bkMode, mode);
}

int32_t DesktopGdi::FillRect(HDC hdc, const RECT& rect, HBRUSH brush) {
  DcState* d = dc(hdc);
  if (!d) return 0;
  if (d->recording) record(*d, "FillRect", rect, brush);
  COLORREF colour = 0;
  Canvas* c = target(*d);
  if (!c || brush == 0 || !brushColour(*d, brush, colour)) return 0;
  c->fillRect(rect.Left, rect.Top, rect.Right, rect.Bottom, colour);
  c->markDirty();
  drawn(*d);
  return 1;
}

int32_t DesktopGdi::FrameRect(HDC hdc, const RECT& rect, HBRUSH brush) {
  DcState* d = dc(hdc);
  if (!d) return 0;
  if (d->recording) record(*d, "FrameRect", rect, brush);
  COLORREF colour = 0;
  Canvas* c = target(*d);
  if (!c || brush == 0 || !brushColour(*d, brush, colour)) return 0;
  GdiRaster::frame(*c, rect.Left, rect.Top, rect.Right, rect.Bottom, colour);
  c->markDirty();
  drawn(*d);
  return 1;
}

bool DesktopGdi::DrawEdge(HDC hdc, RECT& rect, int32_t edge, int32_t flags) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "DrawEdge", rect, edge, flags);
  Canvas* c = target(*d);
  if (!c) return false;
  using namespace syscolor;
  RECT r = rect;
  // One ring: top and left in one colour, then bottom and right in the other, which so take the
  // top-right and bottom-left corners; the next ring lies one pixel further in.
  auto ring = [&](int32_t topLeft, int32_t bottomRight) {
    const COLORREF tl = m_colours.get(topLeft), br = m_colours.get(bottomRight);
    if (flags & BF_TOP) c->fillRect(r.Left, r.Top, r.Right, r.Top + 1, tl);
    if (flags & BF_LEFT) c->fillRect(r.Left, r.Top, r.Left + 1, r.Bottom, tl);
    if (flags & BF_BOTTOM) c->fillRect(r.Left, r.Bottom - 1, r.Right, r.Bottom, br);
    if (flags & BF_RIGHT) c->fillRect(r.Right - 1, r.Top, r.Right, r.Bottom, br);
    if (flags & BF_TOP) ++r.Top;
    if (flags & BF_LEFT) ++r.Left;
    if (flags & BF_BOTTOM) --r.Bottom;
    if (flags & BF_RIGHT) --r.Right;
  };
  if (edge & BDR_RAISEDOUTER)
    ring(LIGHT3D, DKSHADOW3D);
  else if (edge & BDR_SUNKENOUTER)
    ring(BTNSHADOW, BTNHIGHLIGHT);
  if (edge & BDR_RAISEDINNER)
    ring(BTNHIGHLIGHT, BTNSHADOW);
  else if (edge & BDR_SUNKENINNER)
    ring(DKSHADOW3D, LIGHT3D);
  if (flags & BF_MIDDLE) c->fillRect(r.Left, r.Top, r.Right, r.Bottom, m_colours.get(BTNFACE));
  if (flags & BF_ADJUST) rect = r;
  c->markDirty();
  drawn(*d);
  return true;
}

bool DesktopGdi::RoundRect(HDC hdc, int32_t left, int32_t top, int32_t right, int32_t bottom,
                           int32_t ellipseWidth, int32_t ellipseHeight) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "RoundRect", left, top, right, bottom, ellipseWidth, ellipseHeight);
  Canvas* c = target(*d);
  if (!c) return false;
  if (left > right) std::swap(left, right);
  if (top > bottom) std::swap(top, bottom);
  const bool pen = d->penStyle != PS_NULL;
  if (!pen) {  // without an outline the shape is a pixel smaller, as on the platform
    --right;
    --bottom;
  }
  auto rows = GdiRaster::roundedShape(left, top, right, bottom, ellipseWidth, ellipseHeight);
  GdiRaster::paintShape(*c, top, rows, pen, d->penColour, d->penWidth, true, d->brushColour);
  c->markDirty();
  drawn(*d);
  return true;
}

bool DesktopGdi::Rectangle(HDC hdc, int32_t left, int32_t top, int32_t right, int32_t bottom) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "Rectangle", left, top, right, bottom);
  Canvas* c = target(*d);
  if (!c) return false;
  if (left > right) std::swap(left, right);
  if (top > bottom) std::swap(top, bottom);
  if (d->penStyle == PS_NULL) {
    c->fillRect(left, top, right - 1, bottom - 1, d->brushColour);  // a pixel smaller without an outline
  } else {
    c->fillRect(left, top, right, bottom, d->brushColour);
    for (int32_t i = 0; i < d->penWidth; ++i)
      GdiRaster::frame(*c, left + i, top + i, right - i, bottom - i, d->penColour);
  }
  c->markDirty();
  drawn(*d);
  return true;
}

bool DesktopGdi::MoveToEx(HDC hdc, int32_t x, int32_t y, POINTAPI* previous) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "MoveToEx", x, y);
  if (previous) *previous = d->position;
  d->position = {x, y};
  return true;
}

bool DesktopGdi::LineTo(HDC hdc, int32_t x, int32_t y) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "LineTo", x, y);
  Canvas* c = target(*d);
  if (!c) return false;
  if (d->penStyle != PS_NULL) {
    GdiRaster::line(*c, d->position.x, d->position.y, x, y, d->penColour, d->penWidth);
    c->markDirty();
  }
  d->position = {x, y};
  drawn(*d);
  return true;
}

void DesktopGdi::PenLines(HDC hdc, std::span<const POINTAPI> ends, std::span<const COLORREF> colours) {
  // The lines straight into the pixels, with what the six calls per line leave behind: the
  // context's own pen (selected back each time, so never changed), its position at the last end,
  // and a pen handle made and freed per line.
  // The calls are made one by one where any of them would be recorded, or would fail or end
  // otherwise: a recording context, one without pixels, a current pen that is no pen (as after it
  // was deleted) or a full handle table.
  const size_t count = std::min(ends.size() / 2, colours.size());
  DcState* d = dc(hdc);
  Canvas* c = d ? target(*d) : nullptr;
  const GdiObject* current = d ? object(d->pen) : nullptr;
  if (count == 0 || m_recording != 0 || !c || !current || current->kind != GdiObject::Kind::Pen ||
      !m_handles.cyclePlain(static_cast<uint32_t>(count))) {
    GdiApi::PenLines(hdc, ends, colours);
    return;
  }
  GdiRaster::lines(*c, ends.first(2 * count), colours.first(count));
  c->markDirty();
  d->position = ends[2 * count - 1];
  drawn(*d);
}

COLORREF DesktopGdi::SetPixel(HDC hdc, int32_t x, int32_t y, COLORREF colour) {
  DcState* d = dc(hdc);
  if (!d) return -1;
  if (d->recording) record(*d, "SetPixel", x, y, colour);
  Canvas* c = target(*d);
  if (!c || !c->contains(x, y)) return -1;
  c->setPixel(x, y, colour & 0xFFFFFF);
  c->markDirty();
  drawn(*d);
  return colour & 0xFFFFFF;
}

COLORREF DesktopGdi::GetPixel(HDC hdc, int32_t x, int32_t y) {
  DcState* d = dc(hdc);
  if (!d) return -1;
  if (d->recording) record(*d, "GetPixel", x, y);
  Canvas* c = target(*d);
  return c ? c->pixel(x, y) : -1;
}

bool DesktopGdi::BitBlt(HDC dest, int32_t x, int32_t y, int32_t width, int32_t height, HDC src, int32_t srcX,
                        int32_t srcY, int32_t rop) {
  DcState* d = dc(dest);
  if (!d) return false;
  if (d->recording) record(*d, "BitBlt", x, y, width, height, src, srcX, srcY, rop);
  DcState* s = dc(src);
  Canvas* to = target(*d);
  Canvas* from = s ? target(*s) : nullptr;
  if (!to || !from || rop != SRCCOPY) return false;
  // Keep to the pixels that exist on both sides.
  auto clipStart = [](int32_t& start, int32_t& other, int32_t& size) {
    if (start >= 0) return;
    other -= start;
    size += start;
    start = 0;
  };
  clipStart(srcX, x, width);
  clipStart(srcY, y, height);
  clipStart(x, srcX, width);
  clipStart(y, srcY, height);
  width = std::min({width, from->width() - srcX, to->width() - x});
  height = std::min({height, from->height() - srcY, to->height() - y});
  if (width > 0 && height > 0) {
    // On one canvas the rows go in the order that reads each before it is overwritten, and
    // memmove takes care of overlap inside a row.
    const bool upward = to == from && y > srcY;
    for (int32_t k = 0; k < height; ++k) {
      int32_t j = upward ? height - 1 - k : k;
      std::memmove(to->row(y + j) + x, from->row(srcY + j) + srcX, static_cast<size_t>(width) * 4);
    }
    to->markDirty();
  }
  drawn(*d);
  return true;
}

bool DesktopGdi::StretchBlt(HDC dest, int32_t x, int32_t y, int32_t width, int32_t height, HDC src,
                            int32_t srcX, int32_t srcY, int32_t srcWidth, int32_t srcHeight, int32_t rop) {
  DcState* d = dc(dest);
  if (!d) return false;
  if (d->recording) record(*d, "StretchBlt", x, y, width, height, src, srcX, srcY, srcWidth, srcHeight, rop);
  DcState* s = dc(src);
  Canvas* to = target(*d);
  Canvas* from = s ? target(*s) : nullptr;
  if (!to || !from || rop != SRCCOPY || width < 0 || height < 0 || srcWidth <= 0 || srcHeight <= 0)
    return false;
  if (width == srcWidth && height == srcHeight) {
    const bool recording = d->recording;
    d->recording = false;  // one call, one log line
    bool done = BitBlt(dest, x, y, width, height, src, srcX, srcY, rop);
    d->recording = recording;
    return done;
  }
  // Nearest source pixel for each destination pixel, from a copy when both are one canvas.
  std::unique_ptr<Canvas> copy;
  const Canvas* source = from;
  if (to == from) {
    copy = std::make_unique<Canvas>(from->width(), from->height(), 0);
    for (int32_t j = 0; j < from->height(); ++j) std::copy_n(from->row(j), from->width(), copy->row(j));
    source = copy.get();
  }
  const int32_t i0 = std::max(0, -x), i1 = std::min(width, to->width() - x);
  const int32_t j0 = std::max(0, -y), j1 = std::min(height, to->height() - y);
  for (int32_t j = j0; j < j1; ++j) {
    const int32_t sy = srcY + static_cast<int32_t>((int64_t{2} * j + 1) * srcHeight / (int64_t{2} * height));
    if (sy < 0 || sy >= source->height()) continue;
    uint32_t* row = to->row(y + j);
    for (int32_t i = i0; i < i1; ++i) {
      const int32_t sx = srcX + static_cast<int32_t>((int64_t{2} * i + 1) * srcWidth / (int64_t{2} * width));
      if (sx >= 0 && sx < source->width()) row[x + i] = source->row(sy)[sx];
    }
  }
  to->markDirty();
  drawn(*d);
  return true;
}

// --- text ---------------------------------------------------------------------------------------

void DesktopGdi::paintText(DcState& state, Canvas& canvas, int32_t x, int32_t y, std::string_view text,
                           const RECT& clip, const std::vector<size_t>* marks) {
  TextFont& font = textFont(state);
  const bool needWidth = state.bkMode == OPAQUE || state.underline || state.strikethrough;
  const int32_t width = needWidth ? font.width(text) : 0;
  if (state.bkMode == OPAQUE) fillClipped(canvas, clip, x, y, x + width, y + font.height(), state.bkColour);
  font.draw(canvas, x, y, text, state.textColour, clip);
  const int32_t baseline = y + font.ascent();
  const int32_t underTop = baseline + font.underlineOffset(),
                underBottom = underTop + font.underlineThickness();
  if (state.underline) fillClipped(canvas, clip, x, underTop, x + width, underBottom, state.textColour);
  if (state.strikethrough) {
    const int32_t top = baseline + font.strikeOffset();
    fillClipped(canvas, clip, x, top, x + width, top + font.strikeThickness(), state.textColour);
  }
  if (marks)
    for (size_t at : *marks) {
      if (at >= text.size()) continue;
      const int32_t left = x + font.width(text.substr(0, at));
      size_t next = at;
      const int32_t advance = font.advance(nextCodePoint(text, next));
      fillClipped(canvas, clip, left, underTop, left + advance, underBottom, state.textColour);
    }
  canvas.markDirty();
}

bool DesktopGdi::TextOutA(HDC hdc, int32_t x, int32_t y, const std::string& text) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "TextOutA", x, y, text);
  Canvas* c = target(*d);
  if (!c) return false;
  paintText(*d, *c, x, y, text, bounds(*c), nullptr);
  drawn(*d);
  return true;
}

bool DesktopGdi::GetTextExtentPoint32A(HDC hdc, const std::string& text, SIZE& size) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "GetTextExtentPoint32A", text);
  m_measuredTextBytes += text.size();
  size.cx = textFont(*d).width(text);
  size.cy = textFont(*d).height();
  return true;
}

bool DesktopGdi::GetTextMetricsA(HDC hdc, TEXTMETRIC& metrics) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "GetTextMetricsA");
  const TextFont& f = textFont(*d);
  metrics.tmHeight = f.height();
  metrics.tmAscent = f.ascent();
  metrics.tmDescent = f.descent();
  metrics.tmInternalLeading = std::max(0, f.height() - f.pixelSize());
  metrics.tmAveCharWidth = f.aveCharWidth();
  metrics.tmMaxCharWidth = f.maxCharWidth();
  return true;
}

int32_t DesktopGdi::DrawTextA(HDC hdc, const std::string& text, int32_t count, RECT& rect, int32_t flags) {
  DcState* d = dc(hdc);
  if (!d) return 0;
  const std::string_view shown = firstCharacters(text, count);
  if (d->recording) record(*d, "DrawTextA", shown, flags);
  TextFont& font = textFont(*d);
  const auto lines = TextLayout::lines(font, shown, flags, rect.Right - rect.Left);
  const int32_t lineHeight = font.height();
  const int32_t total = lineHeight * static_cast<int32_t>(lines.size());
  int32_t widest = 0;
  for (const auto& line : lines) widest = std::max(widest, line.width);

  if (flags & DT_CALCRECT) {
    // Wrapped text keeps the rectangle's width unless a word is wider; other text gets the
    // width of its widest line.
    if ((flags & DT_WORDBREAK) && !(flags & DT_SINGLELINE))
      rect.Right = std::max(rect.Right, rect.Left + widest);
    else
      rect.Right = rect.Left + widest;
    rect.Bottom = rect.Top + total;
    return total;
  }

  Canvas* c = target(*d);
  if (!c) return 0;
  int32_t top = rect.Top;
  if (flags & DT_SINGLELINE) {
    if (flags & DT_VCENTER)
      top = rect.Top + (rect.Bottom - rect.Top - lineHeight) / 2;
    else if (flags & DT_BOTTOM)
      top = rect.Bottom - lineHeight;
  }
  const RECT clip = (flags & DT_NOCLIP) ? bounds(*c) : intersect(rect, bounds(*c));
  int32_t y = top;
  for (const auto& line : lines) {
    int32_t x = rect.Left;
    if (flags & DT_CENTER)
      x = rect.Left + (rect.Right - rect.Left - line.width) / 2;
    else if (flags & DT_RIGHT)
      x = rect.Right - line.width;
    paintText(*d, *c, x, y, line.text, clip, &line.underlined);
    y += lineHeight;
  }
  drawn(*d);
  // With vertical placement the result reaches from the rectangle's top to the text's bottom.
  return (flags & DT_SINGLELINE) && (flags & (DT_VCENTER | DT_BOTTOM)) ? top - rect.Top + total : total;
}

bool DesktopGdi::PathCompactPathA(HDC hdc, std::string& path, int32_t width) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "PathCompactPathA", path, width);
  path = TextLayout::compactPath(textFont(*d), path, width);
  return true;
}

// --- images -------------------------------------------------------------------------------------

HGDIOBJ DesktopGdi::addPicture(std::unique_ptr<Canvas> pixels, bool icon) {
  if (!pixels) return 0;
  GdiObject o(GdiObject::Kind::Image);
  o.icon = icon;
  o.canvas = std::shared_ptr<Canvas>(std::move(pixels));
  return addObject(std::move(o));
}

HGDIOBJ DesktopGdi::LoadImageFromMemory(std::span<const unsigned char> bytes, int32_t type) {
  recordEverywhere("LoadImageFromMemory", type);
  if (type != IMAGE_BITMAP && type != IMAGE_ICON && type != IMAGE_CURSOR) return 0;
  const bool icon = type != IMAGE_BITMAP;
  return addPicture(ImageCodec::decode(bytes, icon), icon);
}

HGDIOBJ DesktopGdi::LoadImageFromFile(const std::string& path, int32_t type) {
  recordEverywhere("LoadImageFromFile", path, type);
  if (type != IMAGE_BITMAP && type != IMAGE_ICON && type != IMAGE_CURSOR) return 0;
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  if (!file) return 0;
  const std::streamoff size = file.tellg();
  if (size <= 0 || size > kMaxFileBytes) return 0;
  std::vector<unsigned char> bytes(static_cast<size_t>(size));
  file.seekg(0);
  if (!file.read(reinterpret_cast<char*>(bytes.data()), size)) return 0;
  const bool icon = type != IMAGE_BITMAP;
  return addPicture(ImageCodec::decode(bytes, icon), icon);
}

SIZE DesktopGdi::GetImageSize(HGDIOBJ image) {
  const GdiObject* o = picture(image);
  if (!o) return {};
  return {o->canvas->width(), o->canvas->height()};
}

bool DesktopGdi::DestroyIcon(HICON icon) {
  recordEverywhere("DestroyIcon", icon);
  const GdiObject* o = object(icon);
  if (!o || o->kind != GdiObject::Kind::Image || !o->icon) return false;
  removeObject(icon);
  return true;
}

bool DesktopGdi::DrawIconEx(HDC hdc, int32_t x, int32_t y, HICON icon, int32_t width, int32_t height) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "DrawIconEx", x, y, icon, width, height);
  const GdiObject* o = picture(icon);
  Canvas* c = target(*d);
  if (!o || !c) return false;
  const Canvas& src = *o->canvas;
  ImagePainter::draw(*c, src, x, y, width ? width : src.width(), height ? height : src.height(), 0, 0,
                     src.width(), src.height(), -1);
  c->markDirty();
  drawn(*d);
  return true;
}

bool DesktopGdi::DrawImage(HDC hdc, HGDIOBJ image, int32_t x, int32_t y, int32_t width, int32_t height,
                           int32_t srcX, int32_t srcY, int32_t srcWidth, int32_t srcHeight,
                           COLORREF maskColour) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording)
    record(*d, "DrawImage", image, x, y, width, height, srcX, srcY, srcWidth, srcHeight, maskColour);
  const GdiObject* o = picture(image);
  Canvas* c = target(*d);
  if (!o || !c) return false;
  // The mask colour only means something for an opaque bitmap; an icon has its own alpha.
  const COLORREF mask = o->icon || maskColour == -1 ? -1 : maskColour & 0xFFFFFF;
  ImagePainter::draw(*c, *o->canvas, x, y, width, height, srcX, srcY, srcWidth, srcHeight, mask);
  c->markDirty();
  drawn(*d);
  return true;
}

bool DesktopGdi::DrawStateA(HDC hdc, HBRUSH brush, int32_t reserved, int32_t image, int32_t wParam, int32_t x,
                            int32_t y, int32_t width, int32_t height, int32_t flags) {
  DcState* d = dc(hdc);
  if (!d) return false;
  if (d->recording) record(*d, "DrawStateA", brush, reserved, image, wParam, x, y, width, height, flags);
  const int32_t kind = flags & 0xF;
  const GdiObject* o = picture(image);
  Canvas* c = target(*d);
  if (!o || !c || (kind != DST_ICON && kind != DST_BITMAP)) return false;
  const Canvas& src = *o->canvas;
  if (width == 0) width = src.width();
  if (height == 0) height = src.height();
  if (width <= 0 || height <= 0 || width > kMaxBitmapSide || height > kMaxBitmapSide) return false;

  // The picture at the size asked for, on transparent ground: its shape is where it is opaque
  // (more than half for an icon's soft edges; every pixel of a bitmap).
  auto sized = ImagePainter::transparent(width, height);
  ImagePainter::draw(*sized, src, 0, 0, width, height, 0, 0, src.width(), src.height(), -1);
  auto opaque = [](uint32_t p) { return ImagePainter::alpha(p) > 127; };

  if (flags & DSS_MONO) {
    COLORREF colour = 0;
    if (!brushColour(*d, brush, colour)) return false;
    ImagePainter::paintShape(*c, *sized, x, y, colour, opaque);
  } else if (flags & DSS_DISABLED) {
    // Embossed: the darker parts (below three quarters of white) as a highlight one pixel down
    // and right, and over it as a shadow in place.
    auto dark = [&](uint32_t p) { return opaque(p) && ImagePainter::brightness(p) < 192; };
    ImagePainter::paintShape(*c, *sized, x + 1, y + 1, m_colours.get(syscolor::BTNHIGHLIGHT), dark);
    ImagePainter::paintShape(*c, *sized, x, y, m_colours.get(syscolor::BTNSHADOW), dark);
  } else {
    ImagePainter::blendOver(*c, *sized, x, y);
  }
  c->markDirty();
  drawn(*d);
  return true;
}

// --- colours and the log ------------------------------------------------------------------------

int32_t DesktopGdi::OleTranslateColor(OLE_COLOR colour, HPALETTE, COLORREF& result) {
  return m_colours.translate(colour, result);
}

void DesktopGdi::startRecording(HDC hdc) {
  DcState* d = dc(hdc);
  if (!d) return;
  if (!d->recording) ++m_recording;
  d->recording = true;
  d->log.clear();
}

std::vector<std::string> DesktopGdi::stopRecording(HDC hdc) {
  DcState* d = dc(hdc);
  if (!d) return {};
  if (d->recording) --m_recording;
  d->recording = false;
  return std::exchange(d->log, {});
}

}  // namespace corvane

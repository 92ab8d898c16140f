// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "desktop/dc_state.h"
#include "desktop/font_cache.h"
#include "desktop/gdi_handle_table.h"
#include "desktop/gdi_object.h"
#include "desktop/sys_colors.h"
#include "desktop/window_images.h"
#include <corvane/platform/platform.h>

namespace corvane {

// The desktop's drawing layer: device contexts on window images and memory bitmaps, drawing
// objects in a handle table, aliased pixel-exact shapes, text through Pango with cached glyphs,
// and pictures decoded from PNG, BMP and ICO/CUR files.
//
// Handles. Every context, drawing object, bitmap and picture has a positive handle from one
// counter that starts at 0x100 and only grows, so a freed handle is not soon given out again and
// no handle is mistaken for a small number. As on the platform, a brush argument from 1 to 25
// stands for the system colour of index brush - 1. DeleteObject of a pen, brush, font, region or
// bitmap still selected into a context succeeds: the context keeps what it copied.
//
// Window contexts. GetDC(hWnd) draws into windows.windowCanvas(hWnd), looked up at each call;
// every drawing call on it reports windows.windowDrawn(hWnd) once, after drawing (also when all
// of it fell outside the image). A fresh context has the stock black pen, white brush and
// "MS Sans Serif" 8.25 font, black text on an opaque white background (mode 2), as on the
// platform: a surface with transparent text calls SetBkMode(hdc, 1).
//
// Operation log. While startRecording(hdc) is in force, each call on that context adds one line
// Name(arg1,arg2,...): the call's arguments after the context, in their order, integers in
// decimal, texts as they are (no quotes), a RECT as its four members, booleans as 1 or 0, font
// sizes as the shortest decimal (8.25). Output-only arguments are left out. Examples:
//   MoveToEx(0,5)   LineTo(10,5)   SelectObject(260)   FillRect(0,0,10,10,261)
//   DrawEdge(0,0,20,20,5,15)   TextOutA(2,3,Hello)   BitBlt(0,0,8,8,300,0,0,13369376)
//   DrawStateA(261,0,270,0,0,0,32,32,35)   SetDCFont(Arial,9,1,0,0,0)
// DrawTextA logs the text (as far as count reaches) and the flags only: DrawTextA(Hello,37).
// Calls that make or free things not tied to one context are logged into every recording
// context: CreatePen(0,1,255), CreateSolidBrush(255), CreateFontIndirect(Arial,9,0,0,0,0),
// CreateCompatibleBitmap(300,16,16), CreateRectRgn(0,0,5,5), CombineRgn(270,270,271,2),
// CreateCompatibleDC(300), DeleteDC(301), DeleteObject(261), LoadImageFromMemory(1),
// LoadImageFromFile(a.ico,1), DestroyIcon(270).
//
// Single-threaded, like the windows it draws into.
class DesktopGdi : public GdiApi {
 public:
  explicit DesktopGdi(WindowImages& windows);
  ~DesktopGdi() override;
  DesktopGdi(const DesktopGdi&) = delete;
  DesktopGdi& operator=(const DesktopGdi&) = delete;

  // Resolution for GetDeviceCaps(LOGPIXELSX/Y) and for font sizes in points (96: 15 twips to a
  // pixel). Fonts made before keep their size.
  void setPixelsPerInch(int32_t x, int32_t y);
  uint64_t resolutionSerial() const override { return m_resolutionSerial; }
  bool stockFontMade() const { return m_handles.find(m_stockFont)->font != nullptr; }  // for tests
  // Loaded pictures (bitmaps and icons) that are alive; not part of liveObjectCount.
  int32_t liveImageCount() const { return m_liveImages; }
  // Bytes of text measured by GetTextExtentPoint32A so far: the work of text measurement, for
  // tests that check how an algorithm scales.
  uint64_t measuredTextBytes() const { return m_measuredTextBytes; }
  // The rectangles of a region, for a window to take it as its shape; empty for no such region.
  std::vector<RECT> regionRects(HRGN region) const;

  // Device contexts.
  HDC GetDC(HWND hWnd) override;
  int32_t ReleaseDC(HWND hWnd, HDC hdc) override;
  HDC CreateCompatibleDC(HDC hdc) override;
  bool DeleteDC(HDC hdc) override;
  int32_t GetDeviceCaps(HDC hdc, int32_t index) override;
  HPALETTE SelectPalette(HDC hdc, HPALETTE pal, bool forceBackground) override;
  int32_t RealizePalette(HDC hdc) override;

  // Drawing objects.
  HBRUSH CreateSolidBrush(COLORREF colour) override;
  HPEN CreatePen(int32_t style, int32_t width, COLORREF colour) override;
  HFONT CreateFontIndirect(const FontSpec& font) override;
  HBITMAP CreateCompatibleBitmap(HDC hdc, int32_t width, int32_t height) override;
  HRGN CreateRectRgn(int32_t left, int32_t top, int32_t right, int32_t bottom) override;
  int32_t CombineRgn(HRGN dest, HRGN src1, HRGN src2, int32_t mode) override;
  HGDIOBJ SelectObject(HDC hdc, HGDIOBJ obj) override;
  void SetDCFont(HDC hdc, const FontSpec& font) override;
  bool DeleteObject(HGDIOBJ obj) override;
  int32_t liveObjectCount() const override { return m_liveObjects; }

  // Pixels and shapes.
  COLORREF SetTextColor(HDC hdc, COLORREF colour) override;
  COLORREF SetBkColor(HDC hdc, COLORREF colour) override;
  int32_t SetBkMode(HDC hdc, int32_t mode) override;
  int32_t FillRect(HDC hdc, const RECT& rect, HBRUSH brush) override;
  int32_t FrameRect(HDC hdc, const RECT& rect, HBRUSH brush) override;
  bool DrawEdge(HDC hdc, RECT& rect, int32_t edge, int32_t flags) override;
  bool RoundRect(HDC hdc, int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t ellipseWidth,
                 int32_t ellipseHeight) override;
  bool Rectangle(HDC hdc, int32_t left, int32_t top, int32_t right, int32_t bottom) override;
  bool MoveToEx(HDC hdc, int32_t x, int32_t y, POINTAPI* previous) override;
  bool LineTo(HDC hdc, int32_t x, int32_t y) override;
  void PenLines(HDC hdc, std::span<const POINTAPI> ends, std::span<const COLORREF> colours) override;
  COLORREF SetPixel(HDC hdc, int32_t x, int32_t y, COLORREF colour) override;
  COLORREF GetPixel(HDC hdc, int32_t x, int32_t y) override;
  bool BitBlt(HDC dest, int32_t x, int32_t y, int32_t width, int32_t height, HDC src, int32_t srcX,
              int32_t srcY, int32_t rop) override;
  bool StretchBlt(HDC dest, int32_t x, int32_t y, int32_t width, int32_t height, HDC src, int32_t srcX,
                  int32_t srcY, int32_t srcWidth, int32_t srcHeight, int32_t rop) override;

  // Text.
  bool TextOutA(HDC hdc, int32_t x, int32_t y, const std::string& text) override;
  bool GetTextExtentPoint32A(HDC hdc, const std::string& text, SIZE& size) override;
  bool GetTextMetricsA(HDC hdc, TEXTMETRIC& metrics) override;
  int32_t DrawTextA(HDC hdc, const std::string& text, int32_t count, RECT& rect, int32_t flags) override;
  bool PathCompactPathA(HDC hdc, std::string& path, int32_t width) override;

  // Images.
  bool DrawStateA(HDC hdc, HBRUSH brush, int32_t reserved, int32_t image, int32_t wParam, int32_t x,
                  int32_t y, int32_t width, int32_t height, int32_t flags) override;
  bool DrawIconEx(HDC hdc, int32_t x, int32_t y, HICON icon, int32_t width, int32_t height) override;
  HGDIOBJ LoadImageFromMemory(std::span<const unsigned char> bytes, int32_t type) override;
  HGDIOBJ LoadImageFromFile(const std::string& path, int32_t type) override;
  SIZE GetImageSize(HGDIOBJ image) override;
  bool DestroyIcon(HICON icon) override;
  bool DrawImage(HDC hdc, HGDIOBJ image, int32_t x, int32_t y, int32_t width, int32_t height, int32_t srcX,
                 int32_t srcY, int32_t srcWidth, int32_t srcHeight, COLORREF maskColour) override;

  // Colours.
  COLORREF GetSysColor(int32_t index) override { return m_colours.get(index); }
  void SetSysColor(int32_t index, COLORREF colour) override { m_colours.set(index, colour); }
  int32_t OleTranslateColor(OLE_COLOR colour, HPALETTE palette, COLORREF& result) override;

  // Operation log.
  void startRecording(HDC hdc) override;
  std::vector<std::string> stopRecording(HDC hdc) override;

  // Open keys of the settings store share this table, so that no key handle is ever taken for a
  // drawing object or a context. They are not drawing objects: liveObjectCount leaves them out,
  // and DeleteObject refuses them.
  HKEY addKeyHandle(int64_t keyId, int32_t access);
  const GdiObject* keyHandle(HKEY handle);  // null when the handle is no open key
  bool removeKeyHandle(HKEY handle);
  int32_t openKeyHandles() const { return m_liveKeys; }

 private:
  // The state of a context; the one used last is found inline, as nearly every call asks for it.
  DcState* dc(HDC hdc) { return hdc == m_lastHdc && m_lastDc ? m_lastDc : findDc(hdc); }
  DcState* findDc(HDC hdc);
  // Makes or finds the font SetDCFont asked for and selects it as the context's own: apart, so
  // that selecting the same font again stays a short call.
  [[gnu::noinline]] void makeOwnFont(DcState& state, const FontSpec& font);
  GdiObject* object(int32_t handle);
  const GdiObject* picture(int32_t handle);  // a loaded picture or a bitmap
  int32_t addObject(GdiObject object);
  // A pen or a brush, made without building a whole object.
  int32_t addPlainObject(GdiObject::Kind kind, int32_t penStyle, int32_t penWidth, COLORREF colour);
  void removeObject(int32_t handle);
  HDC addDc(std::unique_ptr<DcState> state);
  void removeDc(HDC hdc);
  void selectDefaults(DcState& state);
  // The stock font is made when text is first measured or printed with it, not before.
  const std::shared_ptr<TextFont>& stockTextFont();
  TextFont& textFont(DcState& state);  // the context's font, the stock one made if need be
  Canvas* target(const DcState& state);
  void drawn(const DcState& state);
  bool brushColour(const DcState& state, HBRUSH brush, COLORREF& colour);
  // Text at (x, y) in the context's font and colours, inside clip; marks are byte offsets of
  // letters to underline.
  void paintText(DcState& state, Canvas& canvas, int32_t x, int32_t y, std::string_view text,
                 const RECT& clip, const std::vector<size_t>* marks);
  HGDIOBJ addPicture(std::unique_ptr<Canvas> pixels, bool icon);

  template <class... Args>
  void record(DcState& state, const char* name, const Args&... args);
  template <class... Args>
  void recordEverywhere(const char* name, const Args&... args);

  WindowImages& m_windows;
  FontCache& m_fonts = FontCache::shared();  // one per process: fonts and glyphs outlive a desktop
  SysColors m_colours;
  GdiHandleTable m_handles;
  std::unordered_map<HDC, std::unique_ptr<DcState>> m_dcs;
  uint64_t m_resolutionSerial = nextResolutionSerial();
  static uint64_t nextResolutionSerial();
  int32_t m_liveObjects = 0, m_liveImages = 0, m_liveKeys = 0, m_recording = 0;
  uint64_t m_measuredTextBytes = 0;
  int32_t m_dpiX = 96, m_dpiY = 96;
  HPEN m_stockPen = 0;
  HBRUSH m_stockBrush = 0;
  HFONT m_stockFont = 0;
  HBITMAP m_stockBitmap = 0;
  // The two contexts found last, since calls come in runs on one context (a surface's own and
  // the screen's, which every conversion of units asks for its resolution).
  HDC m_lastHdc = 0, m_otherHdc = 0;
  DcState* m_lastDc = nullptr;
  DcState* m_otherDc = nullptr;
};

}  // namespace corvane

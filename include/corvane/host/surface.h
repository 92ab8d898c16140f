// SPDX-License-Identifier: MIT
#pragma once
#include <optional>
#include <string>

#include <corvane/export.h>
#include <corvane/host/std_font.h>
#include <corvane/host/std_picture.h>
#include <corvane/platform/types.h>
#include <corvane/runtime/event.h>
#include <corvane/platform/system_macros_begin.h>

namespace corvane {

class GdiApi;

// The drawing target of a form, a picture box or a control: a window with its device context,
// colours, font, an inner coordinate system (scale) and the drawing methods of the form engine.
// Coordinates of the methods are in the surface's own scale; host geometry is in twips.
class CORVANE_API Surface {
 public:
  enum ScaleModes : int16_t { User = 0, Twips = 1, Pixels = 3, HiMetric = 8 };

  explicit Surface(HWND hWnd);
  ~Surface();
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  HWND hWnd() const { return m_hWnd; }
  HDC hdc() const { return m_hdc; }

  OLE_COLOR BackColor() const { return m_backColor; }
  void setBackColor(OLE_COLOR c);  // clears the surface to the new colour
  OLE_COLOR ForeColor() const { return m_foreColor; }
  void setForeColor(OLE_COLOR c);  // an invalid colour is error 380

  const FontRef& Font() const { return m_font; }
  void setFont(FontRef f);  // shares the reference; Nothing is error 380
  // The font flags write through to the font object, as the form engine does.
  bool FontBold() const { return m_font->Bold(); }
  void setFontBold(bool v) { m_font->setBold(v); }
  bool FontItalic() const { return m_font->Italic(); }
  void setFontItalic(bool v) { m_font->setItalic(v); }
  bool FontUnderline() const { return m_font->Underline(); }
  void setFontUnderline(bool v) { m_font->setUnderline(v); }
  bool FontStrikethru() const { return m_font->Strikethrough(); }
  void setFontStrikethru(bool v) { m_font->setStrikethrough(v); }

  // Outer size in twips.
  float Width() const;
  float Height() const;
  void setWidth(float twips);
  void setHeight(float twips);
  int32_t pixelWidth() const;
  int32_t pixelHeight() const;

  int16_t ScaleMode() const { return m_scaleMode; }
  void setScaleMode(int16_t mode);
  float ScaleLeft() const { return m_scaleLeft; }
  float ScaleTop() const { return m_scaleTop; }
  float ScaleWidth() const;
  float ScaleHeight() const;
  void setScaleLeft(float v);
  void setScaleTop(float v);
  void setScaleWidth(float v);
  void setScaleHeight(float v);
  void Scale(float x1, float y1, float x2, float y2);
  void resetScale();  // back to the scale mode without user values

  float CurrentX() const { return m_currentX; }
  float CurrentY() const { return m_currentY; }
  void setCurrentX(float v) { m_currentX = v; }
  void setCurrentY(float v) { m_currentY = v; }

  bool AutoRedraw() const { return m_autoRedraw; }
  void setAutoRedraw(bool v) { m_autoRedraw = v; }
  int16_t MousePointer() const { return m_mousePointer; }
  // The pointer and its image become the window's cursor.
  void setMousePointer(int16_t v);
  const PictureRef& MouseIcon() const { return m_mouseIcon; }
  void setMouseIcon(PictureRef p);
  bool Enabled() const;
  void setEnabled(bool v);
  bool Visible() const;

  // The background picture, drawn at the top left by Cls; with a mask picture and a transparent
  // back style the pixels of the mask colour fall away.
  const PictureRef& Picture() const { return m_picture; }
  void setPicture(PictureRef p);
  // Transparency: with BackStyle 0 and a mask picture, the window keeps only the pixels where the
  // mask picture (at the top left, its own size) is not MaskColor; the rest of the window is cut
  // away by a window region, so the container shows through and the mouse passes to it. A mask
  // colour that is no valid colour is error 380, a back style other than 0 or 1 too.
  const PictureRef& MaskPicture() const { return m_maskPicture; }
  void setMaskPicture(PictureRef p);
  OLE_COLOR MaskColor() const { return m_maskColor; }
  void setMaskColor(OLE_COLOR c);
  int16_t BackStyle() const { return m_backStyle; }
  void setBackStyle(int16_t v);
  // A copy of what the surface shows now, as a bitmap picture of its size.
  PictureRef Image() const;

  // Drawing methods, in the surface's scale.
  void Cls();
  void Refresh();
  void Line(float x1, float y1, float x2, float y2, OLE_COLOR colour, bool box = false, bool fill = false);
  void PaintPicture(const PictureRef& picture, float x, float y, float width, float height);
  float TextWidth(const std::string& text);
  float TextHeight(const std::string& text);
  // Prints at the current position; with newLine the position moves to the start of the next
  // line, otherwise it stays behind the text.
  void Print(const std::string& text, bool newLine = true);

  // Unit conversion: from and to are 0 user, 1 twips, 3 pixels, 8 HiMetric; -1 is the surface's scale.
  float ScaleX(float value, int16_t from = 8, int16_t to = -1) const;
  float ScaleY(float value, int16_t from = 8, int16_t to = -1) const;

  // Positions in the scale as device pixels (ties to even) and back.
  int32_t toPixelX(float x) const;
  int32_t toPixelY(float y) const;
  float fromPixelX(int32_t px) const;
  float fromPixelY(int32_t py) const;

  // Window events delivered to the owner of the surface.
  Event<> Click, DblClick;
  Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;
  Event<int16_t&, int16_t&> KeyDown, KeyUp;
  Event<int16_t&> KeyPress;
  Event<> Resize, Paint;

  // The surface's part of the window procedure: turns messages into events.
  void handleMessage(int32_t msg, WPARAM wParam, LPARAM lParam);

 private:
  void showCursor();
  float scaleBetween(float value, int16_t from, int16_t to, bool horizontal) const;
  float unitsPerPixelX() const;
  float unitsPerPixelX(GdiApi& g) const;  // with the drawing side at hand
  float unitsPerPixelY() const;
  static float twipsPerUnit(int16_t mode, bool horizontal);
  void selectFont();
  float widestLine(GdiApi& g, const std::string& text);  // TextWidth of a text of several lines
  int16_t shiftState() const;
  void eraseGrownArea();
  // Cuts the window to the mask when transparency applies, and gives it back its full shape when
  // it no longer does.
  void updateMaskRegion();

  HWND m_hWnd;
  HDC m_hdc;
  OLE_COLOR m_backColor = static_cast<OLE_COLOR>(0x8000000F);
  OLE_COLOR m_foreColor = static_cast<OLE_COLOR>(0x80000012);
  FontRef m_font;
  int16_t m_scaleMode = Twips;
  float m_scaleLeft = 0, m_scaleTop = 0, m_userWidth = 0, m_userHeight = 0;
  float m_currentX = 0, m_currentY = 0;
  bool m_autoRedraw = false;
  int16_t m_mousePointer = 0;
  PictureRef m_mouseIcon, m_picture, m_maskPicture;
  OLE_COLOR m_maskColor = 0xC0C0C0;
  int16_t m_backStyle = 1;
  bool m_leftDownHere = false;
  int32_t m_erasedWidth = 0, m_erasedHeight = 0;  // the size whose area shows the back colour
  // What the present window region was made from, so that an unchanged mask is not scanned again.
  struct MaskShape {
    HGDIOBJ image = 0;
    COLORREF colour = 0;
    bool operator==(const MaskShape&) const = default;
  };
  std::optional<MaskShape> m_maskShape;
};

// The RGB value of an OLE colour (a system colour resolved); error 380 for an invalid one.
CORVANE_API COLORREF translateColor(OLE_COLOR colour);

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

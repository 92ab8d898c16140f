// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_frame.h>
#include <corvane/host/extender.h>
#include <corvane/host/screen.h>
#include <corvane/host/std_picture.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>

#include <memory>

namespace corvane {

namespace {
constexpr int16_t kHandPointer = 99;
constexpr int32_t kTableRound[5] = {5, 3, 2, 1, 1};  // the cut-off corners, row by row
constexpr OLE_COLOR kDefaultTopLeftB = static_cast<OLE_COLOR>(0x8000000F);
constexpr OLE_COLOR kDefaultTopLeftA = 14278627;

float tx() { return Screen::instance().TwipsPerPixelX(); }
float ty() { return Screen::instance().TwipsPerPixelY(); }

bool hasPicture(const PictureRef& p) { return p && p->Handle() != 0; }
PictureRef pictureFrom(const Variant& v) {
  PictureRef p = v.as<PictureRef>();
  return p ? p : LoadPicture();
}
Variant pictureToStore(const PictureRef& p) { return hasPicture(p) ? Variant(p) : Variant(); }

void fillRect(HDC dc, const RECT& r, COLORREF colour) {
  HBRUSH b = gdi().CreateSolidBrush(colour);
  gdi().FillRect(dc, r, b);
  gdi().DeleteObject(b);
}

std::string doubleAmpersands(const std::string& s) {
  std::string out;
  for (char c : s) {
    out += c;
    if (c == '&') out += '&';
  }
  return out;
}
}  // namespace

// ---- properties ----

#define VEX_FRAME_SETTER(Name, Type) \
  void VexFrame::set##Name(Type v) { \
    m_##Name = v;                    \
    PropertyChanged(#Name);          \
    drawControl();                   \
  }

VEX_FRAME_SETTER(TopRightBColor, OLE_COLOR)
VEX_FRAME_SETTER(TopRightAColor, OLE_COLOR)
VEX_FRAME_SETTER(TopLeftBColor, OLE_COLOR)
VEX_FRAME_SETTER(TopLeftAColor, OLE_COLOR)
VEX_FRAME_SETTER(CollapseIcon, const PictureRef&)
VEX_FRAME_SETTER(BorderColor, OLE_COLOR)
VEX_FRAME_SETTER(BorderStyle, pbBorderStyle)
VEX_FRAME_SETTER(CaptionBorder, pbBorderStyle)
VEX_FRAME_SETTER(CaptionFont, const FontRef&)
VEX_FRAME_SETTER(CaptionFontColor, OLE_COLOR)
VEX_FRAME_SETTER(Caption, const std::string&)
VEX_FRAME_SETTER(CaptionIcon, const PictureRef&)
VEX_FRAME_SETTER(BackgroundImage, const PictureRef&)
VEX_FRAME_SETTER(CaptionStyle, pbCaptionStyle)
VEX_FRAME_SETTER(CaptionAlign, pbCaptionAlign)
VEX_FRAME_SETTER(IconTop, int32_t)
VEX_FRAME_SETTER(IconLeft, int32_t)
VEX_FRAME_SETTER(CaptionTop, int32_t)
#undef VEX_FRAME_SETTER

// Setters that only store and report: the look under the mouse is read when the mouse comes.
#define VEX_FRAME_STORE(Name, Type)  \
  void VexFrame::set##Name(Type v) { \
    m_##Name = v;                    \
    PropertyChanged(#Name);          \
  }

VEX_FRAME_STORE(CaptionFontHoverColor, OLE_COLOR)
VEX_FRAME_STORE(CaptionHoverMode, pbCapHoverMode)
VEX_FRAME_STORE(CaptionIconShadow, OLE_COLOR)
VEX_FRAME_STORE(ShadowWide, int32_t)
VEX_FRAME_STORE(PlaySound, bool)
#undef VEX_FRAME_STORE

void VexFrame::setBackColor(OLE_COLOR v) {
  surface().setBackColor(v);
  PropertyChanged("BackColor");
  drawControl();
}

void VexFrame::setBorderRoundColor(OLE_COLOR v) {
  m_BorderRoundColor = v;
  m_AutoColorRoundBorder = false;  // a chosen colour ends the automatic one, without a report of its own
  PropertyChanged("BorderRoundColor");
  drawControl();
}

void VexFrame::setAutoColorRoundBorder(bool v) {
  guarded([&] { m_AutoColorRoundBorder = v; });
  if (v) {
    guarded([&] { m_BorderRoundColor = containerMember("BackColor").toLong(); });
    guarded([&] { drawControl(); });
  }
  guarded([&] { PropertyChanged("AutoColorRoundBorder"); });
}

void VexFrame::setShowBullet(bool v) {
  m_ShowBullet = v;
  PropertyChanged("ShowBullet");
  drawControl();
  if (v) DrawIcon(false, false);
}

void VexFrame::setCurrentX(float v) {
  surface().setCurrentX(v);
  PropertyChanged("CurrentX");
}

void VexFrame::setCurrentY(float v) {
  surface().setCurrentY(v);
  PropertyChanged("CurrentY");
}

void VexFrame::Scale_(float x1, float y1, float x2, float y2) { surface().Scale(x1, y1, x2, y2); }
void VexFrame::Scale_() { surface().resetScale(); }

void VexFrame::setExpandierbar(bool v) {
  m_Expandierbar = v;
  PropertyChanged("Expandierbar");
  DrawIcon(false, false);  // the bullet changes
}

void VexFrame::setExpandiert(bool v) {
  m_Expandiert = v;
  PropertyChanged("Expandiert");
  SetExpanded(v);
}

void VexFrame::setHeightExpanded(int32_t v) {
  m_HeightExpanded = v;
  PropertyChanged("HeightExpanded");
  if (m_Expandiert) setSurfaceHeight(v);
}

void VexFrame::setCaptionHeight(int16_t v) {
  m_CaptionHeight = v;
  m_captionPixels = add16(mul16(v, 4), 4);  // above 8190 this overflows, and the error goes to the caller
  PropertyChanged("CaptionHeight");
  drawControl();
  if (!m_Expandiert) setSurfaceHeight(static_cast<double>(ty()) * m_captionPixels + 5);
  SetExpanded(m_Expandiert);
}

void VexFrame::setSurfaceHeight(double twips) { surface().setHeight(static_cast<float>(twips)); }

// ---- expansion ----

void VexFrame::SetExpanded(bool value) {
  if (value) {
    // Only a height stored below HeightExpanded is restored; otherwise the height stays.
    if (m_lastHeight < m_HeightExpanded) setSurfaceHeight(m_HeightExpanded);
  } else {
    double collapsed = static_cast<double>(ty()) * m_captionPixels;
    float present = surface().Height();
    if (collapsed < present) {
      m_lastHeight = CLng(present);
      setSurfaceHeight(collapsed);
    }
  }
  // Only a surrounding frame box is told; any other container is not.
  ObjectRef container = containerObject();
  auto ext = std::dynamic_pointer_cast<Extender>(container);
  if (ext && ext->control().typeName() == "VexFrameBox") container->call("CtrlRefresh", {Variant(hWnd())});
  drawControl();  // still sees the old state
  m_Expandiert = value;
  DrawIcon(false, false);  // the icon of the new state
}

void VexFrame::onResize() {
  Resize();
  if (m_Expandiert) guarded([&] { setHeightExpanded(CLng(surface().Height())); });
  drawControl();
  DrawIcon(false, false);
}

// ---- mouse ----

void VexFrame::onClick() {
  if (!(inCaption() && m_Enabled && m_Expandierbar)) return;
  m_hovering = true;
  SetExpanded(!m_Expandiert);
  if (m_Expandiert)
    Expand();
  else
    Collapse();
  PropertyChanged("Expandiert");
  IconClick();
}

void VexFrame::onDblClick() {
  if (inCaption() && m_Enabled) DblClick();
}

void VexFrame::onMouseDown(int16_t& b, int16_t& s, float& x, float& y) {
  if (!(inCaption() && m_Enabled && m_Expandierbar)) return;
  DrawIcon(true, true);
  MouseDown(b, s, x, y);
}

void VexFrame::onMouseUp(int16_t& b, int16_t& s, float& x, float& y) {
  if (inCaption() && m_Enabled && m_Expandierbar) MouseUp(b, s, x, y);
}

void VexFrame::onMouseMove(int16_t& b, int16_t& s, float& x, float& y) {
  m_lastY = y;
  if (!m_Enabled) return;
  if (!m_Expandierbar) {
    MouseMove(b, s, x, y);
    return;
  }
  HWND self = hWnd();
  POINTAPI pt;
  user().GetCursorPos(pt);
  HWND under = user().WindowFromPoint(pt.x, pt.y);
  user().ScreenToClient(self, pt);
  double twx = static_cast<double>(tx()) * pt.x, twy = static_cast<double>(ty()) * pt.y;
  if (twx > 0 && twx < surface().Width() && twy > 0 && pt.y < m_captionPixels) {
    MouseMove(b, s, x, y);
    CaptionOver();
    if (under == self) {
      if (user().GetCapture() != self) {
        user().SetCapture(self);
        m_hovering = true;
        surface().setMousePointer(kHandPointer);
        if (m_CaptionHoverMode == ColorUnderline || m_CaptionHoverMode == OnlyUnderline)
          guarded([&] { m_CaptionFont->setUnderline(true); });
        drawControl();
        DrawIcon(true, false);
      }
      return;
    }
  }
  if (m_hovering) {
    user().ReleaseCapture();
    m_hovering = false;
    surface().setMousePointer(0);
    guarded([&] { m_CaptionFont->setUnderline(false); });  // whatever the mode
    drawControl();
  }
}

// ---- drawing ----

void VexFrame::GradientRect(OLE_COLOR leftColour, OLE_COLOR rightColour, RECT rect, int32_t steps,
                            int32_t direction) {
  HDC dc = hdc();
  COLORREF left = 0, right = 0;
  guarded([&] { left = translateColor(leftColour); });
  guarded([&] { right = translateColor(rightColour); });
  int32_t lc[3] = {left & 255, (left >> 8) & 255, (left >> 16) & 255};
  int32_t rc[3] = {right & 255, (right >> 8) & 255, (right >> 16) & 255};
  int32_t band = steps / 255;
  if (band == 0) band = 1;
  int32_t current[3] = {rc[0], rc[1], rc[2]};
  for (int32_t p = steps; p >= 0; p -= band) {
    if (direction == 1)
      rect.Left = rect.Right - band;
    else
      rect.Top = rect.Bottom - band;
    guarded([&] { fillRect(dc, rect, RGB(current[0], current[1], current[2])); });
    if (direction == 1)
      rect.Right = rect.Left;
    else
      rect.Bottom = rect.Top;
    for (int ch = 0; ch < 3; ++ch)
      guarded([&] {
        if (steps == 0) throw RuntimeError(err::DivisionByZero);
        current[ch] = CLng(static_cast<double>(steps - p) * (lc[ch] - rc[ch]) / steps + rc[ch]);
      });
  }
}

void VexFrame::TileBitmap(const PictureRef& picture, int32_t tileWidth, int32_t tileHeight, int32_t x,
                          int32_t y, int32_t width, int32_t height) {
  if (!picture || picture->Type() != StdPicture::vbPicTypeBitmap) return;
  if (tileWidth <= 0 || tileHeight <= 0) return;  // the loops would not end
  HDC screen = gdi().GetDC(0);
  HDC mem = gdi().CreateCompatibleDC(screen);
  HGDIOBJ old = gdi().SelectObject(mem, picture->Handle());
  for (int32_t xx = x; xx <= x + width; xx += tileWidth)
    for (int32_t yy = y; yy <= y + height; yy += tileHeight) {
      int32_t w = xx + tileWidth > x + width ? x + width - xx : tileWidth;
      int32_t h = yy + tileHeight > y + height ? y + height - yy : tileHeight;
      gdi().BitBlt(hdc(), xx, yy, w, h, mem, 0, 0, SRCCOPY);
    }
  gdi().SelectObject(mem, old);
  gdi().DeleteDC(mem);
  gdi().ReleaseDC(0, screen);
}

void VexFrame::drawCaptionText(int32_t textLeft, int32_t textRight) {
  Surface& s = surface();
  HDC dc = s.hdc();
  // The context draws with the surface's font and text colour.
  auto prepare = [&] {
    gdi().SetDCFont(dc, s.Font()->desc());
    gdi().SetTextColor(dc, translateColor(s.ForeColor()));
    gdi().SetBkMode(dc, 1);
  };
  std::string text = doubleAmpersands(m_Caption);
  guarded([&] {
    prepare();
    gdi().PathCompactPathA(dc, text, textRight - textLeft - 6);
  });
  int32_t flags = m_CaptionAlign | DT_SINGLELINE | DT_VCENTER;
  if (m_Enabled) {
    guarded([&] {
      RECT r{textLeft, m_CaptionTop, textRight - 4, m_captionPixels};
      gdi().DrawTextA(dc, text, -1, r, flags);
    });
    return;
  }
  // Embossed: a white copy one pixel down and right, then the shadow colour.
  guarded([&] {
    s.setForeColor(0xFFFFFF);
    prepare();
    RECT r{textLeft + 1, m_CaptionTop + 1, textRight - 3, m_captionPixels + 1};
    gdi().DrawTextA(dc, text, -1, r, flags);
  });
  guarded([&] {
    s.setForeColor(static_cast<OLE_COLOR>(0x80000010));
    prepare();
    RECT r{textLeft, m_CaptionTop, textRight - 4, m_captionPixels};
    gdi().DrawTextA(dc, text, -1, r, flags);
  });
}

void VexFrame::drawControl() {
  if (!isSited()) return;
  Surface& s = surface();
  HDC dc = s.hdc();
  int32_t w = 0, h = 0;
  guarded([&] { w = CLng(s.ScaleWidth()); });
  guarded([&] { h = CLng(s.ScaleHeight()); });

  // 1. Where the text starts; it passes through a byte.
  int32_t textLeft = 0;
  guarded([&] { textLeft = CByte(m_ShowBullet ? 19 : (m_IconLeft != 0 ? m_IconLeft : 4)); });

  // 2.
  guarded([&] { s.setAutoRedraw(true); });
  guarded([&] { s.Cls(); });

  // 3. The caption's background.
  switch (m_CaptionStyle) {
    case pbHozLines: {
      // The limits are 16-bit sums: a CaptionHeight of 32767 makes them fail, and no stripe is drawn.
      int32_t last = -1, after = -1;
      guarded([&] { last = add16(m_CaptionHeight, 1); });
      guarded([&] { after = add16(m_CaptionHeight, 2); });
      // Stripes that start below the surface would not show; they are not drawn.
      for (int32_t i = 0; i <= last && i * 3 < h; ++i) {
        GradientRect(m_TopLeftAColor, m_TopRightAColor, RECT{0, i * 3, w, i * 3 + 3}, w, 1);
        GradientRect(m_TopLeftBColor, m_TopRightBColor, RECT{0, i * 3 + 2, w, i * 3 + 3}, w, 1);
      }
      if (after >= 0 && after * 3 < h)
        GradientRect(m_TopLeftAColor, m_TopRightAColor, RECT{0, after * 3, w, after * 3 + 2}, w, 1);
      break;
    }
    case pbHozSolid:
      GradientRect(m_TopLeftAColor, m_TopRightAColor, RECT{0, 0, w, m_captionPixels}, m_captionPixels, 0);
      break;
    case pbVerSolid:
      GradientRect(m_TopLeftAColor, m_TopRightBColor, RECT{0, 0, w, m_captionPixels}, w, 1);
      break;
    case pbSolid:
      guarded([&] { fillRect(dc, RECT{1, 1, w - 1, m_captionPixels}, translateColor(m_TopLeftAColor)); });
      break;
  }

  // 4. The caption's frame.
  guarded([&] {
    RECT r{1, 1, w - 1, m_captionPixels};
    switch (m_CaptionBorder) {
      case pbLine: {
        HBRUSH b = gdi().CreateSolidBrush(translateColor(m_BorderColor));
        gdi().FrameRect(dc, r, b);
        gdi().DeleteObject(b);
        break;
      }
      case pbSunken:
        gdi().DrawEdge(dc, r, BDR_SUNKENOUTER, BF_RECT);
        break;
      case pbThinRaised:
        gdi().DrawEdge(dc, r, BDR_RAISEDINNER, BF_RECT);
        break;
      case pbRaised:
        gdi().DrawEdge(dc, r, EDGE_RAISED, BF_RECT);
        break;
      default:
        break;
    }
  });

  // 5. The text colour follows the hover state.
  guarded([&] {
    bool plain = s.MousePointer() == 0 || m_CaptionHoverMode >= OnlyUnderline;
    s.setForeColor(plain ? m_CaptionFontColor : m_CaptionFontHoverColor);
  });
  guarded([&] { s.setFont(m_CaptionFont); });

  // 6. to 9. The caption's text, left of the icon.
  int32_t textRight = w;
  guarded([&] {
    if (hasPicture(m_CaptionIcon))
      textRight = w - CLng(s.ScaleX(static_cast<float>(m_CaptionIcon->Width()), 8, 3));
  });
  drawCaptionText(textLeft, textRight);

  // 10. The background image, tiled below the caption.
  guarded([&] {
    if (!hasPicture(m_BackgroundImage)) return;
    int32_t tw = CLng(s.ScaleX(static_cast<float>(m_BackgroundImage->Width()), 8, 1) / tx());
    int32_t th = CLng(s.ScaleY(static_cast<float>(m_BackgroundImage->Height()), 8, 1) / ty());
    TileBitmap(m_BackgroundImage, tw, th, 0, m_captionPixels, w, h);
  });

  // 11. The cut-off corners of a round caption.
  RECT frame{0, 0, w, h};
  if (m_CaptionBorder == pbRound) {
    int32_t W = 0;
    guarded([&] { W = CLng(s.Width() / tx()); });
    for (int32_t y = 0; y <= 4; ++y) {
      guarded([&] { fillRect(dc, RECT{0, y, kTableRound[y], y + 1}, translateColor(m_BorderRoundColor)); });
      guarded([&] {
        fillRect(dc, RECT{W - kTableRound[y], y, W, y + 1}, translateColor(m_BorderRoundColor));
      });
    }
    frame = RECT{0, m_captionPixels, w, h};
  }

  // 12. The frame of the control.
  guarded([&] {
    switch (m_BorderStyle) {
      case pbLine:
      case pbRound: {
        HBRUSH b = gdi().CreateSolidBrush(translateColor(m_BorderColor));
        gdi().FrameRect(dc, frame, b);
        gdi().DeleteObject(b);
        break;
      }
      case pbSunken:
        gdi().DrawEdge(dc, frame, BDR_SUNKENOUTER, BF_RECT);
        break;
      case pbThinRaised:
        gdi().DrawEdge(dc, frame, BDR_RAISEDINNER, BF_RECT);
        break;
      case pbRaised:
        gdi().DrawEdge(dc, frame, EDGE_RAISED, BF_RECT);
        break;
      default:
        break;
    }
  });
  if (m_BorderStyle == pbRound)  // opens the frame's top edge towards the caption
    guarded([&] {
      fillRect(dc, RECT{1, m_captionPixels, w - 1, m_captionPixels + 1}, translateColor(s.BackColor()));
    });

  // 13. While the mouse hovers, the hover routine draws the icon and the back image stays on.
  if (s.MousePointer() != kHandPointer) {
    DrawIcon(false, false);
    guarded([&] { s.setAutoRedraw(false); });
  }
  guarded([&] { s.Refresh(); });
}

void VexFrame::DrawIcon(bool hover, bool pressed) {
  if (!isSited() || !hasPicture(m_CaptionIcon)) return;
  Surface& s = surface();
  HDC dc = s.hdc();
  bool expandedLook = !hasPicture(m_CollapseIcon) || m_Expandiert;
  PictureRef picture = expandedLook ? m_CaptionIcon : m_CollapseIcon;
  std::string name = expandedLook ? "BMINUS" : "BPLUS";
  int32_t anchor = 0, iconWidth = 0;
  guarded([&] { anchor = m_IconLeft != 0 ? m_IconLeft : CLng(s.Width() / tx()); });
  guarded([&] { iconWidth = CLng(s.ScaleX(static_cast<float>(picture->Width()), 8, 3)); });
  auto silhouette = [&] {
    guarded([&] {
      HBRUSH b = gdi().CreateSolidBrush(static_cast<COLORREF>(m_CaptionIconShadow));  // not translated
      gdi().DrawStateA(dc, b, 0, picture->Handle(), 0, anchor + m_ShadowWide - iconWidth - 4,
                       m_IconTop + m_ShadowWide, iconWidth, iconWidth, DST_ICON | DSS_MONO);
      gdi().DeleteObject(b);
    });
  };
  auto icon = [&](int32_t x, int32_t y) {
    guarded([&] { gdi().DrawStateA(dc, 0, 0, picture->Handle(), 0, x, y, iconWidth, iconWidth, DST_ICON); });
  };
  if (hover && pressed) {
    drawControl();
    if (m_ShadowWide != 0) silhouette();
    icon(anchor - iconWidth - 3, m_IconTop + 1);
  } else if (hover) {
    silhouette();
    icon(anchor - iconWidth - 4, m_IconTop);
  } else {
    icon(anchor - iconWidth - 4, m_IconTop);
  }
  if (m_ShowBullet && anchor >= 36) {
    if (!(m_Enabled && m_Expandierbar)) name = "BPoint";
    guarded([&] {
      PictureRef bullet = LoadResPicture(name, 0);
      gdi().DrawStateA(dc, 0, 0, bullet->Handle(), 0, 6, 6, 9, 9, DST_BITMAP);
    });
  }
  guarded([&] { s.Refresh(); });
}

// ---- lifecycle ----

void VexFrame::InitProperties() {
  guarded([&] {
    m_Expandierbar = false;
    m_Expandiert = true;
    m_Enabled = true;
    m_BorderRoundColor = 0;
    m_AutoColorRoundBorder = true;
    m_TopRightBColor = 0xFFFFFF;
    m_TopRightAColor = 0x808080;
    m_TopLeftBColor = kDefaultTopLeftB;
    m_TopLeftAColor = kDefaultTopLeftA;
    m_BorderColor = 0x808080;
    m_BorderStyle = pbNone;
    m_CaptionBorder = pbNone;
    m_CaptionHeight = 4;
    m_captionPixels = 20;
    m_CaptionFontColor = 0;
    m_CaptionFontHoverColor = 0x404040;
    m_CaptionHoverMode = OnlyColor;
    m_Caption.clear();
    m_CaptionIconShadow = 0xC0C0C0;
    m_CaptionStyle = pbHozLines;
    m_CaptionAlign = CaptionLeft;
    m_PlaySound = true;
    m_HeightExpanded = 0;
    m_ShowBullet = false;
    m_IconTop = 2;
    m_IconLeft = 0;
    m_CaptionTop = 0;
    m_ShadowWide = 2;
  });
  guarded([&] { m_CollapseIcon = LoadPicture(); });
  guarded([&] { m_CaptionIcon = LoadPicture(); });
  guarded([&] { m_BackgroundImage = LoadPicture(); });
  // A copy of the container's font: the hover underlines the caption font, never the form's.
  guarded([&] { m_CaptionFont = ambient().Font()->clone(); });
  // A new frame blends with its container, although the stored default is 0.
  guarded([&] { m_BorderRoundColor = containerMember("BackColor").toLong(); });
}

void VexFrame::ReadProperties(PropertyBag& bag) {
  auto rd = [&](const char* key, const Variant& def) { return bag.ReadProperty(key, def); };
  guarded([&] { m_Expandierbar = rd("Expandierbar", false).toBool(); });
  guarded([&] { m_Expandiert = rd("Expandiert", true).toBool(); });
  guarded([&] { m_Enabled = rd("Enabled", true).toBool(); });
  guarded([&] { m_BorderRoundColor = rd("BorderRoundColor", 0).toLong(); });
  guarded([&] { m_AutoColorRoundBorder = rd("AutoColorRoundBorder", true).toBool(); });
  guarded([&] { m_TopRightBColor = rd("TopRightBColor", 0xFFFFFF).toLong(); });
  guarded([&] { m_TopRightAColor = rd("TopRightAColor", 0x808080).toLong(); });
  guarded([&] { m_TopLeftBColor = rd("TopLeftBColor", kDefaultTopLeftB).toLong(); });
  guarded([&] { m_TopLeftAColor = rd("TopLeftAColor", kDefaultTopLeftA).toLong(); });
  guarded([&] { m_CollapseIcon = pictureFrom(rd("CollapseIcon", Variant())); });
  guarded([&] { surface().setBackColor(rd("BackColor", 0xFFFFFF).toLong()); });
  guarded([&] { m_BorderColor = rd("BorderColor", 0x808080).toLong(); });
  guarded([&] { m_BorderStyle = static_cast<pbBorderStyle>(rd("BorderStyle", int16_t(0)).toInteger()); });
  guarded([&] { m_CaptionBorder = static_cast<pbBorderStyle>(rd("CaptionBorder", int16_t(0)).toInteger()); });
  guarded([&] { m_CaptionHeight = rd("CaptionHeight", int16_t(4)).toInteger(); });
  guarded([&] {
    FontRef ambientFont = ambient().Font();
    FontRef f = rd("CaptionFont", ambientFont).as<FontRef>();
    if (f) m_CaptionFont = f == ambientFont ? f->clone() : f;
  });
  guarded([&] { m_CaptionFontColor = rd("CaptionFontColor", 0).toLong(); });
  guarded([&] { m_CaptionFontHoverColor = rd("CaptionFontHoverColor", 0x404040).toLong(); });
  guarded([&] {
    m_CaptionHoverMode = static_cast<pbCapHoverMode>(rd("CaptionHoverMode", int16_t(1)).toInteger());
  });
  guarded([&] { m_Caption = rd("Caption", std::string()).toString(); });
  // The icon is read twice: through its setter, which draws, and into the field.
  guarded([&] { setCaptionIcon(pictureFrom(rd("CaptionIcon", Variant()))); });
  guarded([&] { m_CaptionIcon = pictureFrom(rd("CaptionIcon", Variant())); });
  guarded([&] { m_CaptionIconShadow = rd("CaptionIconShadow", 0xC0C0C0).toLong(); });
  guarded([&] { m_BackgroundImage = pictureFrom(rd("BackgroundImage", Variant())); });
  guarded([&] { m_CaptionStyle = static_cast<pbCaptionStyle>(rd("CaptionStyle", int16_t(0)).toInteger()); });
  guarded([&] { m_CaptionAlign = static_cast<pbCaptionAlign>(rd("CaptionAlign", int16_t(0)).toInteger()); });
  guarded([&] { m_PlaySound = rd("PlaySound", true).toBool(); });
  guarded([&] { m_HeightExpanded = rd("HeightExpanded", 0).toLong(); });
  guarded([&] { m_ShowBullet = rd("ShowBullet", false).toBool(); });
  guarded([&] { m_IconTop = rd("IconTop", 2).toLong(); });
  guarded([&] { surface().setCurrentX(rd("CurrentX", 0.0f).toSingle()); });
  guarded([&] { surface().setCurrentY(rd("CurrentY", 0.0f).toSingle()); });
  guarded([&] { m_CaptionTop = rd("CaptionTop", 0).toLong(); });
  guarded([&] { m_captionPixels = add16(mul16(m_CaptionHeight, 4), 4); });
  guarded([&] { surface().setEnabled(m_Enabled); });
  guarded([&] { m_IconLeft = rd("IconLeft", 0).toLong(); });
  guarded([&] { m_ShadowWide = rd("ShadowWide", 2).toLong(); });
}

void VexFrame::WriteProperties(PropertyBag& bag) {
  auto wr = [&](const char* key, const Variant& v, const Variant& def) {
    guarded([&] { bag.WriteProperty(key, v, def); });
  };
  wr("Expandierbar", m_Expandierbar, false);
  wr("Expandiert", m_Expandiert, true);
  wr("Enabled", m_Enabled, true);
  wr("BorderRoundColor", m_BorderRoundColor, 0);
  wr("AutoColorRoundBorder", m_AutoColorRoundBorder, true);
  wr("TopRightBColor", m_TopRightBColor, 0xFFFFFF);
  wr("TopRightAColor", m_TopRightAColor, 0x808080);
  wr("TopLeftBColor", m_TopLeftBColor, kDefaultTopLeftB);
  wr("TopLeftAColor", m_TopLeftAColor, kDefaultTopLeftA);
  wr("CollapseIcon", pictureToStore(m_CollapseIcon), Variant());
  guarded([&] { wr("BackColor", surface().BackColor(), 0xFFFFFF); });
  wr("BorderColor", m_BorderColor, 0x808080);
  wr("BorderStyle", static_cast<int16_t>(m_BorderStyle), int16_t(0));
  wr("CaptionBorder", static_cast<int16_t>(m_CaptionBorder), int16_t(0));
  wr("CaptionHeight", m_CaptionHeight, int16_t(4));
  guarded([&] {
    // The copy of the container's font counts as the default while it describes the same font.
    FontRef ambientFont = ambient().Font();
    bool same = m_CaptionFont && ambientFont && m_CaptionFont->desc() == ambientFont->desc();
    wr("CaptionFont", m_CaptionFont, same ? Variant(m_CaptionFont) : Variant(ambientFont));
  });
  wr("CaptionFontColor", m_CaptionFontColor, 0);
  wr("CaptionFontHoverColor", m_CaptionFontHoverColor, 0x404040);
  wr("CaptionHoverMode", static_cast<int16_t>(m_CaptionHoverMode), int16_t(1));
  wr("Caption", m_Caption, std::string());
  wr("CaptionIcon", pictureToStore(m_CaptionIcon), Variant());
  wr("CaptionIconShadow", m_CaptionIconShadow, 0xC0C0C0);
  wr("BackgroundImage", pictureToStore(m_BackgroundImage), Variant());
  wr("CaptionStyle", static_cast<int16_t>(m_CaptionStyle), int16_t(0));
  wr("CaptionAlign", static_cast<int16_t>(m_CaptionAlign), int16_t(0));
  wr("PlaySound", m_PlaySound, true);
  wr("HeightExpanded", m_HeightExpanded, 0);
  wr("ShowBullet", m_ShowBullet, false);
  wr("IconTop", m_IconTop, 2);
  guarded([&] { wr("CurrentX", surface().CurrentX(), 0.0f); });
  guarded([&] { wr("CurrentY", surface().CurrentY(), 0.0f); });
  wr("CaptionTop", m_CaptionTop, 0);
  wr("IconLeft", m_IconLeft, 0);
  wr("ShadowWide", m_ShadowWide, 2);
}

// ---- members by name ----

const Dispatch* VexFrame::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexFrame>(t)
        .prop("Expandierbar", &VexFrame::Expandierbar, &VexFrame::setExpandierbar)
        .prop("Expandiert", &VexFrame::Expandiert, &VexFrame::setExpandiert)
        .prop("BorderRoundColor", &VexFrame::BorderRoundColor, &VexFrame::setBorderRoundColor)
        .prop("AutoColorRoundBorder", &VexFrame::AutoColorRoundBorder, &VexFrame::setAutoColorRoundBorder)
        .prop("TopRightBColor", &VexFrame::TopRightBColor, &VexFrame::setTopRightBColor)
        .prop("TopRightAColor", &VexFrame::TopRightAColor, &VexFrame::setTopRightAColor)
        .prop("TopLeftBColor", &VexFrame::TopLeftBColor, &VexFrame::setTopLeftBColor)
        .prop("TopLeftAColor", &VexFrame::TopLeftAColor, &VexFrame::setTopLeftAColor)
        .prop("CollapseIcon", &VexFrame::CollapseIcon, &VexFrame::setCollapseIcon)
        .prop("BackColor", &VexFrame::BackColor, &VexFrame::setBackColor)
        .prop("BorderColor", &VexFrame::BorderColor, &VexFrame::setBorderColor)
        .get("BorderStyle", [](VexFrame& f) { return static_cast<int16_t>(f.BorderStyle()); })
        .let("BorderStyle", &VexFrame::setBorderStyle)
        .get("CaptionBorder", [](VexFrame& f) { return static_cast<int16_t>(f.CaptionBorder()); })
        .let("CaptionBorder", &VexFrame::setCaptionBorder)
        .prop("CaptionHeight", &VexFrame::CaptionHeight, &VexFrame::setCaptionHeight)
        .prop("CaptionFont", &VexFrame::CaptionFont, &VexFrame::setCaptionFont)
        .prop("CaptionFontColor", &VexFrame::CaptionFontColor, &VexFrame::setCaptionFontColor)
        .prop("CaptionFontHoverColor", &VexFrame::CaptionFontHoverColor, &VexFrame::setCaptionFontHoverColor)
        .get("CaptionHoverMode", [](VexFrame& f) { return static_cast<int16_t>(f.CaptionHoverMode()); })
        .let("CaptionHoverMode", &VexFrame::setCaptionHoverMode)
        .prop("Caption", &VexFrame::Caption, &VexFrame::setCaption)
        .prop("CaptionIcon", &VexFrame::CaptionIcon, &VexFrame::setCaptionIcon)
        .prop("CaptionIconShadow", &VexFrame::CaptionIconShadow, &VexFrame::setCaptionIconShadow)
        .prop("BackgroundImage", &VexFrame::BackgroundImage, &VexFrame::setBackgroundImage)
        .get("CaptionStyle", [](VexFrame& f) { return static_cast<int16_t>(f.CaptionStyle()); })
        .let("CaptionStyle", &VexFrame::setCaptionStyle)
        .get("CaptionAlign", [](VexFrame& f) { return static_cast<int16_t>(f.CaptionAlign()); })
        .let("CaptionAlign", &VexFrame::setCaptionAlign)
        .prop("PlaySound", &VexFrame::PlaySound, &VexFrame::setPlaySound)
        .prop("HeightExpanded", &VexFrame::HeightExpanded, &VexFrame::setHeightExpanded)
        .prop("ShowBullet", &VexFrame::ShowBullet, &VexFrame::setShowBullet)
        .prop("IconTop", &VexFrame::IconTop, &VexFrame::setIconTop)
        .prop("IconLeft", &VexFrame::IconLeft, &VexFrame::setIconLeft)
        .prop("CaptionTop", &VexFrame::CaptionTop, &VexFrame::setCaptionTop)
        .prop("ShadowWide", &VexFrame::ShadowWide, &VexFrame::setShadowWide)
        .prop("CurrentX", &VexFrame::CurrentX, &VexFrame::setCurrentX)
        .prop("CurrentY", &VexFrame::CurrentY, &VexFrame::setCurrentY)
        .method("drawControl", [](VexFrame& f, Dispatch::Args&) { f.drawControl(); })
        .method("Scale_", [](VexFrame& f, Dispatch::Args& a) {
          if (a.size() >= 4)
            f.Scale_(a[0].toSingle(), a[1].toSingle(), a[2].toSingle(), a[3].toSingle());
          else
            f.Scale_();
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane

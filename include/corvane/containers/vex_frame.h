// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/event.h>

#include <cstdint>
#include <string>

namespace corvane {

// A task-pane frame: a caption strip (shaded, framed, with an icon and a bullet) above a client
// area that holds the host's controls. An expandable frame collapses to its caption and expands
// again on a click in the caption, and tells a surrounding VexFrameBox to re-stack its frames.
class CORVANE_API VexFrame : public ControlBase {
 public:
  enum pbCaptionStyle : int16_t { pbHozLines = 0, pbHozSolid = 1, pbVerSolid = 2, pbSolid = 3 };
  enum pbBorderStyle : int16_t {
    pbNone = 0,
    pbLine = 1,
    pbSunken = 2,
    pbThinRaised = 3,
    pbRaised = 4,
    pbRound = 5
  };
  enum pbCaptionAlign : int16_t {
    CaptionLeft = 0,
    CaptionCenter = 1,
    CaptionRight = 2
  };  // DT_LEFT, DT_CENTER, DT_RIGHT
  enum pbCapHoverMode : int16_t { OnlyColor = 1, ColorUnderline = 2, OnlyUnderline = 3, Deactivate = 4 };

  std::string typeName() const override { return "VexFrame"; }
  DesignForm designForm() const override {
    return {2775, 1635, Surface::Pixels, static_cast<OLE_COLOR>(0xFFFFFF)};
  }

  bool Expandierbar() const { return m_Expandierbar; }
  void setExpandierbar(bool v);
  bool Expandiert() const { return m_Expandiert; }
  void setExpandiert(bool v);
  OLE_COLOR BorderRoundColor() const { return m_BorderRoundColor; }
  void setBorderRoundColor(OLE_COLOR v);
  bool AutoColorRoundBorder() const { return m_AutoColorRoundBorder; }
  void setAutoColorRoundBorder(bool v);
  OLE_COLOR TopRightBColor() const { return m_TopRightBColor; }
  void setTopRightBColor(OLE_COLOR v);
  OLE_COLOR TopRightAColor() const { return m_TopRightAColor; }
  void setTopRightAColor(OLE_COLOR v);
  OLE_COLOR TopLeftBColor() const { return m_TopLeftBColor; }
  void setTopLeftBColor(OLE_COLOR v);
  OLE_COLOR TopLeftAColor() const { return m_TopLeftAColor; }
  void setTopLeftAColor(OLE_COLOR v);
  PictureRef CollapseIcon() const { return m_CollapseIcon; }
  void setCollapseIcon(const PictureRef& v);
  void setBackColor(OLE_COLOR v) override;
  OLE_COLOR BorderColor() const { return m_BorderColor; }
  void setBorderColor(OLE_COLOR v);
  pbBorderStyle BorderStyle() const { return m_BorderStyle; }
  void setBorderStyle(pbBorderStyle v);
  pbBorderStyle CaptionBorder() const { return m_CaptionBorder; }
  void setCaptionBorder(pbBorderStyle v);
  int16_t CaptionHeight() const { return m_CaptionHeight; }
  void setCaptionHeight(int16_t v);
  FontRef CaptionFont() const { return m_CaptionFont; }
  void setCaptionFont(const FontRef& v);
  OLE_COLOR CaptionFontColor() const { return m_CaptionFontColor; }
  void setCaptionFontColor(OLE_COLOR v);
  OLE_COLOR CaptionFontHoverColor() const { return m_CaptionFontHoverColor; }
  void setCaptionFontHoverColor(OLE_COLOR v);
  pbCapHoverMode CaptionHoverMode() const { return m_CaptionHoverMode; }
  void setCaptionHoverMode(pbCapHoverMode v);
  const std::string& Caption() const { return m_Caption; }
  void setCaption(const std::string& v);
  PictureRef CaptionIcon() const { return m_CaptionIcon; }
  void setCaptionIcon(const PictureRef& v);
  OLE_COLOR CaptionIconShadow() const { return m_CaptionIconShadow; }
  void setCaptionIconShadow(OLE_COLOR v);
  PictureRef BackgroundImage() const { return m_BackgroundImage; }
  void setBackgroundImage(const PictureRef& v);
  pbCaptionStyle CaptionStyle() const { return m_CaptionStyle; }
  void setCaptionStyle(pbCaptionStyle v);
  pbCaptionAlign CaptionAlign() const { return m_CaptionAlign; }
  void setCaptionAlign(pbCaptionAlign v);
  bool PlaySound() const { return m_PlaySound; }
  void setPlaySound(bool v);
  int32_t HeightExpanded() const { return m_HeightExpanded; }
  void setHeightExpanded(int32_t v);
  bool ShowBullet() const { return m_ShowBullet; }
  void setShowBullet(bool v);
  int32_t IconTop() const { return m_IconTop; }
  void setIconTop(int32_t v);
  int32_t IconLeft() const { return m_IconLeft; }
  void setIconLeft(int32_t v);
  int32_t CaptionTop() const { return m_CaptionTop; }
  void setCaptionTop(int32_t v);
  int32_t ShadowWide() const { return m_ShadowWide; }
  void setShadowWide(int32_t v);
  void setCurrentX(float v);
  void setCurrentY(float v);
  // Forwards to the surface's Scale; with no arguments the scale goes back to pixels.
  void Scale_(float x1, float y1, float x2, float y2);
  void Scale_();

  // The caption's height in pixels, CaptionHeight * 4 + 4.
  int32_t captionPixels() const { return m_captionPixels; }
  // The height in twips at the last collapse.
  int32_t lastHeight() const { return m_lastHeight; }
  bool hovering() const { return m_hovering; }

  // Paints the whole control. Guarded.
  void drawControl();

  Event<> Click, DblClick, Resize, Expand, Collapse, CaptionOver, IconClick;
  Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;

  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;

 protected:
  void redraw() override { drawControl(); }
  void onClick() override;
  void onDblClick() override;
  void onMouseDown(int16_t& b, int16_t& s, float& x, float& y) override;
  void onMouseMove(int16_t& b, int16_t& s, float& x, float& y) override;
  void onMouseUp(int16_t& b, int16_t& s, float& x, float& y) override;
  const Dispatch* dispatch() const override;

 private:
  void SetExpanded(bool value);
  void DrawIcon(bool hover, bool pressed);
  void GradientRect(OLE_COLOR leftColour, OLE_COLOR rightColour, RECT rect, int32_t steps, int32_t direction);
  void TileBitmap(const PictureRef& picture, int32_t tileWidth, int32_t tileHeight, int32_t x, int32_t y,
                  int32_t width, int32_t height);
  void drawCaptionText(int32_t textLeft, int32_t textRight);
  bool inCaption() const { return m_lastY < m_captionPixels; }
  void setSurfaceHeight(double twips);

  bool m_Expandierbar = false;
  bool m_Expandiert = true;
  OLE_COLOR m_BorderRoundColor = 0;
  bool m_AutoColorRoundBorder = true;
  OLE_COLOR m_TopRightBColor = 0xFFFFFF;
  OLE_COLOR m_TopRightAColor = 0x808080;
  OLE_COLOR m_TopLeftBColor = static_cast<OLE_COLOR>(0x8000000F);
  OLE_COLOR m_TopLeftAColor = 14278627;
  PictureRef m_CollapseIcon;
  OLE_COLOR m_BorderColor = 0x808080;
  pbBorderStyle m_BorderStyle = pbNone;
  pbBorderStyle m_CaptionBorder = pbNone;
  int16_t m_CaptionHeight = 4;
  FontRef m_CaptionFont;
  OLE_COLOR m_CaptionFontColor = 0;
  OLE_COLOR m_CaptionFontHoverColor = 0x404040;
  pbCapHoverMode m_CaptionHoverMode = OnlyColor;
  std::string m_Caption;
  PictureRef m_CaptionIcon;
  OLE_COLOR m_CaptionIconShadow = 0xC0C0C0;
  PictureRef m_BackgroundImage;
  pbCaptionStyle m_CaptionStyle = pbHozLines;
  pbCaptionAlign m_CaptionAlign = CaptionLeft;
  bool m_PlaySound = true;
  int32_t m_HeightExpanded = 0;
  bool m_ShowBullet = false;
  int32_t m_IconTop = 2;
  int32_t m_IconLeft = 0;
  int32_t m_CaptionTop = 0;
  int32_t m_ShadowWide = 2;

  int32_t m_captionPixels = 20;
  int32_t m_lastHeight = 0;
  bool m_hovering = false;
  double m_lastY = 0;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/runtime/event.h>
#include <corvane/platform/system_macros_begin.h>

namespace corvane {

// A plain container with a decorated background: an optional gradient fill and a border drawn
// in one of seven line styles (three of them ornaments rather than frames). Everything is drawn
// by DrawPane; keyboard and mouse are relayed to the host.
class CORVANE_API VexPane : public ControlBase {
 public:
  enum BorderType : int16_t {  // prefixed (X11 defines None); by name: ClassRegistry::enumValue
    btNone = 0,
    btFlat = 1,
    btFrame = 2,
    btInset = 3,
    btRaised = 4,
    btCrossSingle = 5,
    btCrossFull = 6,
    btHeadLines = 7,
  };

  std::string typeName() const override { return "VexPane"; }
  DesignForm designForm() const override { return {5370, 3405, Surface::Twips, static_cast<OLE_COLOR>(0xC0C0C0)}; }

  // BackColor lives on the surface and is the gradient's start colour.
  void setBackColor(OLE_COLOR value) override;
  OLE_COLOR BackColor2() const { return m_BackColor2; }
  void setBackColor2(OLE_COLOR value);
  bool Gradient() const { return m_Gradient; }
  void setGradient(bool value);
  float GradientAngle() const { return m_GradientAngle; }
  void setGradientAngle(float value);
  BorderType BorderStyle() const { return m_BorderStyle; }
  void setBorderStyle(BorderType value);
  OLE_COLOR CrossColor1() const { return m_CrossColor1; }
  void setCrossColor1(OLE_COLOR value);
  OLE_COLOR CrossColor2() const { return m_CrossColor2; }
  void setCrossColor2(OLE_COLOR value);
  int16_t MousePointer() const { return surface().MousePointer(); }
  void setMousePointer(int16_t value);
  PictureRef MouseIcon() const { return surface().MouseIcon(); }
  void setMouseIcon(const PictureRef& value);
  float ScaleHeight() const { return surface().ScaleHeight(); }
  void setScaleHeight(float value);
  float ScaleLeft() const { return surface().ScaleLeft(); }
  void setScaleLeft(float value);
  float ScaleTop() const { return surface().ScaleTop(); }
  void setScaleTop(float value);
  float ScaleWidth() const { return surface().ScaleWidth(); }
  void setScaleWidth(float value);

  // Sets both gradient colours with a single repaint; the result is always empty.
  Variant ChangeColors(OLE_COLOR lBackColor1, OLE_COLOR lBackColor2);

  Event<int16_t&, int16_t&> KeyDown;
  Event<int16_t&> KeyPress;
  Event<int16_t&, int16_t&> KeyUp;
  Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;
  Event<> Resize;

  // Lifecycle.
  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;

  // The one draw routine, public so that tests can run it on its own. Guarded: a failing step
  // is skipped.
  void DrawPane();

 protected:
  void redraw() override { DrawPane(); }
  void onKeyDown(int16_t& k, int16_t& s) override { KeyDown(k, s); }
  void onKeyPress(int16_t& k) override { KeyPress(k); }
  void onKeyUp(int16_t& k, int16_t& s) override { KeyUp(k, s); }
  void onMouseDown(int16_t& b, int16_t& s, float& x, float& y) override { MouseDown(b, s, x, y); }
  void onMouseMove(int16_t& b, int16_t& s, float& x, float& y) override { MouseMove(b, s, x, y); }
  void onMouseUp(int16_t& b, int16_t& s, float& x, float& y) override { MouseUp(b, s, x, y); }
  const Dispatch* dispatch() const override;

 private:
  OLE_COLOR m_BackColor2 = 255;
  bool m_Gradient = false;
  float m_GradientAngle = 130;
  BorderType m_BorderStyle = btNone;
  OLE_COLOR m_CrossColor1 = 0x808080;
  OLE_COLOR m_CrossColor2 = 0xFFFFFF;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

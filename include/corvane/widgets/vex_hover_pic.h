// SPDX-License-Identifier: MIT
#pragma once
#include <memory>

#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/frame/subclass.h>
#include <corvane/runtime/event.h>
#include <corvane/platform/system_macros_begin.h>

namespace corvane {

enum STYLE_B : int32_t { abStandardButton = 0, abCheckButton = 1 };
enum VAL_U_P : int32_t { abUnPressed = 0, abPressed = 1 };
enum BACKSTYLE_TO : int32_t { abTransparent = 0, abOpaque = 1 };

// A picture button with up, hot, down and disabled pictures. Pictures that are not given are
// derived from the up picture: hot is the up picture over a one-colour shadow, down is the up
// picture one pixel lower and to the right, disabled is the embossed up picture. It works as a
// push button or as a toggle (Style). The end of hovering comes from the window system's
// mouse-leave notice, seen through a subclass of the control's own window.
class CORVANE_API VexHoverPic : public ControlBase {
 public:
  VexHoverPic();
  ~VexHoverPic() override;
  std::string typeName() const override { return "VexHoverPic"; }
  DesignForm designForm() const override;

  // Draw states.
  static constexpr int16_t StateUp = 0, StateDown = 1, StateHot = 2;

  void setEnabled(bool value) override;
  const PictureRef& ImageDown() const { return m_ImageDown; }
  void setImageDown(const PictureRef& value);
  const PictureRef& ImageHot() const { return m_ImageHot; }
  void setImageHot(const PictureRef& value);
  const PictureRef& ImageDisabled() const { return m_ImageDisabled; }
  void setImageDisabled(const PictureRef& value);
  STYLE_B Style() const { return m_Style; }
  void setStyle(STYLE_B value);
  VAL_U_P Value() const { return m_Value; }
  void setValue(VAL_U_P value);
  const PictureRef& ImageUp() const { return m_ImageUp; }
  void setImageUp(const PictureRef& value);
  OLE_COLOR MaskColor() const { return m_MaskColor; }
  void setMaskColor(OLE_COLOR value);
  BACKSTYLE_TO BackStyle() const { return m_BackStyle; }
  void setBackStyle(BACKSTYLE_TO value);
  void setBackColor(OLE_COLOR value) override;
  OLE_COLOR IconShadow() const { return m_IconShadow; }
  void setIconShadow(OLE_COLOR value);
  PictureRef MouseIcon() const { return surface().MouseIcon(); }
  void setMouseIcon(const PictureRef& value);
  bool Autosize() const { return m_Autosize; }
  void setAutosize(bool value);
  bool Sound() const { return m_Sound; }
  void setSound(bool value);

  Event<> Click, DblClick;
  // Declared for the host; the control never raises them.
  Event<int16_t&, int16_t&> KeyDown, KeyUp;
  Event<int16_t&> KeyPress;
  // Always reports zero coordinates.
  Event<float&, float&> MouseOut;
  Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;

  // Lifecycle.
  void Initialize() override;
  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void Show() override;
  void Terminate() override;

  // The drawing steps, public so that tests and the gallery can follow them.
  // State is as wide as Value, which it is often given.
  void Draw(int32_t State);
  void AdjustSize();
  bool skipNextDown() const { return m_SkipNextDown != 0; }
  // The subclass of the own window; nullptr before Initialize and after Terminate.
  clsSubClass* subclass() const { return m_SubClass.get(); }

 protected:
  void redraw() override;
  void onClick() override { Click(); }
  void onMouseDown(int16_t& b, int16_t& s, float& x, float& y) override;
  void onMouseMove(int16_t& b, int16_t& s, float& x, float& y) override;
  void onMouseUp(int16_t& b, int16_t& s, float& x, float& y) override;
  const Dispatch* dispatch() const override;

 private:
  void subclassMessage(int32_t hWnd, int32_t& uMsg, int32_t& wParam, int32_t& lParam, bool& Cancel);
  // The picture's size in pixels, from its HiMetric size.
  int32_t pixelsX(const PictureRef& p) const;
  int32_t pixelsY(const PictureRef& p) const;

  PictureRef m_ImageDown, m_ImageHot, m_ImageDisabled, m_ImageUp;
  STYLE_B m_Style = abStandardButton;
  VAL_U_P m_Value = abUnPressed;
  OLE_COLOR m_MaskColor = 255;
  BACKSTYLE_TO m_BackStyle = abOpaque;
  OLE_COLOR m_IconShadow = 0xC0C0C0;
  bool m_Autosize = true;
  bool m_Sound = true;
  int16_t m_SkipNextDown = 0;
  std::shared_ptr<clsSubClass> m_SubClass;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

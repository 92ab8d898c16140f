// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/frame/subclass.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/event.h>

#include <memory>
#include <string>

namespace corvane {

enum CapHoverMode : int32_t { OnlyColor = 1, ColorUnderline = 2, OnlyUnderline = 3, Deactivate = 4 };

// A one-line, link-like label with an optional 16-pixel icon. The mouse over it changes its
// colour or underlining; a text too wide is shortened in the middle as a path is. The end of
// hovering comes from the window system's mouse-leave notice, seen through a subclass of the
// control's own window. The Deactivate style makes it a plain label without click events.
class CORVANE_API VexLineHover : public ControlBase {
 public:
  VexLineHover();
  ~VexLineHover() override;
  std::string typeName() const override { return "VexLineHover"; }
  DesignForm designForm() const override;

  // The text shortened to the control's width; as long as Str, the shortened text ending at a
  // NUL character with the rest of Str behind it. Str itself is left unchanged.
  std::string CompactString(std::string& Str);

  const PictureRef& Icon() const { return m_Icon; }
  void setIcon(const PictureRef& value);
  const std::string& Caption() const { return m_Caption; }
  void setCaption(const std::string& value);
  CapHoverMode HoverStyle() const { return m_HoverStyle; }
  void setHoverStyle(CapHoverMode value);
  void setBackColor(OLE_COLOR value) override;
  OLE_COLOR ForeColor() const { return m_ForeColor; }
  void setForeColor(OLE_COLOR value);
  FontRef Font() const { return surface().Font(); }
  void setFont(const FontRef& value);
  OLE_COLOR ForeColorHover() const { return m_ForeColorHover; }
  void setForeColorHover(OLE_COLOR value);
  bool AutoBackColor() const { return m_AutoBackColor; }
  void setAutoBackColor(bool value);
  bool AutoWidth() const { return m_AutoWidth; }
  void setAutoWidth(bool value);
  int32_t MaxAutoWidth() const { return m_MaxAutoWidth; }
  void setMaxAutoWidth(int32_t value);

  Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;
  Event<> Click, DblClick;
  Event<int16_t&, int16_t&> KeyDown, KeyUp;
  Event<int16_t&> KeyPress;

  // Lifecycle.
  void Initialize() override;
  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override { Draw(false); }
  void Show() override;
  void Terminate() override;

  // The drawing steps, public so that tests and the gallery can follow them.
  void Draw(bool Hover);
  void AdjustWidth();
  // The subclass of the own window; nullptr before Initialize and after Terminate.
  clsSubClass* subclass() const { return m_SubClass.get(); }

 protected:
  void redraw() override { Draw(false); }
  void onClick() override;
  void onMouseDown(int16_t& b, int16_t& s, float& x, float& y) override { MouseDown(b, s, x, y); }
  void onMouseMove(int16_t& b, int16_t& s, float& x, float& y) override;
  void onMouseUp(int16_t& b, int16_t& s, float& x, float& y) override { MouseUp(b, s, x, y); }
  void onKeyDown(int16_t& k, int16_t& s) override { KeyDown(k, s); }
  void onKeyUp(int16_t& k, int16_t& s) override { KeyUp(k, s); }
  void onKeyPress(int16_t& k) override { KeyPress(k); }
  const Dispatch* dispatch() const override;

 private:
  void subclassMessage(int32_t hWnd, int32_t& uMsg, int32_t& wParam, int32_t& lParam, bool& Cancel);
  bool hasIcon() const;
  void applyPointer();

  PictureRef m_Icon;
  std::string m_Caption;
  CapHoverMode m_HoverStyle = ColorUnderline;
  OLE_COLOR m_ForeColor = 0;
  OLE_COLOR m_ForeColorHover = 0;
  bool m_AutoBackColor = true;
  bool m_AutoWidth = false;
  int32_t m_MaxAutoWidth = 0;
  std::shared_ptr<clsSubClass> m_SubClass;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

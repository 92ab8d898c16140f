// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/event.h>

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

class PictureBox;

// A scrolling column for frames: the box stacks its contained controls from top to bottom at
// FrameDistance, keeps that order when one of them changes its height, and shows its own
// vertical scroll bar (XPScroll) while the stack is taller than the box. New controls are
// noticed in the Paint hook.
class CORVANE_API VexFrameBox : public ControlBase {
 public:
  enum BackImageStyle : int16_t { vxstandard = 1, vxTiled = 2 };

  VexFrameBox();
  ~VexFrameBox() override;
  std::string typeName() const override { return "VexFrameBox"; }
  DesignForm designForm() const override {
    return {3600, 5880, Surface::Twips, static_cast<OLE_COLOR>(0x8000000F)};
  }

  bool AutoFrameAlign() const { return m_AutoFrameAlign; }
  void setAutoFrameAlign(bool v);
  int16_t ScrollValue() const;
  void setScrollValue(int16_t v);
  bool ScrollVisible() const { return m_ScrollVisible; }
  void setScrollVisible(bool v);
  PictureRef BackgroundImage() const { return m_BackgroundImage; }
  void setBackgroundImage(const PictureRef& v);
  int16_t BackgroundImageStyle() const { return m_BackgroundImageStyle; }
  void setBackgroundImageStyle(int16_t v);
  int16_t FrameDistance() const { return m_FrameDistance; }
  void setFrameDistance(int16_t v);
  bool AutoIndent() const { return m_AutoIndent; }
  void setAutoIndent(bool v);
  bool ScrollBarAlways() const { return m_ScrollBarAlways; }
  void setScrollBarAlways(bool v);
  int32_t ScrollBarTop() const { return m_ScrollBarTop; }
  void setScrollBarTop(int32_t v);

  // Re-stacks after a change of the control with the window lhwnd (-1 for none).
  void CtrlRefresh(int32_t lhwnd);
  // Shows or ends the scroll bar by the stack's height.
  void XPBarScrollCheck();

  // The fixed scroll bar.
  ScrollBar& XPScroll() const { return bar(); }

  // ScrollVisible(Sichtbar): raised by the ScrollVisible property with its value, which a handler
  // may change.
  Event<bool&> ScrollVisibleEvent;
  Event<> Resize;

  void Initialize() override;
  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;
  void Show() override;
  void Paint() override;
  void Terminate() override;

 protected:
  const Dispatch* dispatch() const override;

 private:
  // The contained controls with the one added last first.
  ScrollBar& bar() const;  // error 91 before Initialize and after Terminate
  std::vector<std::shared_ptr<Extender>> items() const;
  std::shared_ptr<Extender> orderItem(int32_t position) const;
  void sortOrder(int32_t low, int32_t high);
  void ApplyScroll(int32_t value);
  void paintBackground();

  bool m_AutoFrameAlign = true;
  bool m_ScrollVisible = false;
  PictureRef m_BackgroundImage;
  int16_t m_BackgroundImageStyle = vxstandard;
  int16_t m_FrameDistance = 255;
  bool m_AutoIndent = true;
  bool m_ScrollBarAlways = false;
  int32_t m_ScrollBarTop = 0;

  int16_t m_lastCount = 0;
  std::vector<std::pair<int16_t, int16_t>> m_order;  // index into the contained controls, Top at the sort
  double m_lastScroll = 0;
  std::shared_ptr<ScrollBar> m_XPScroll;
  std::shared_ptr<PictureBox> m_FocusWeg;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

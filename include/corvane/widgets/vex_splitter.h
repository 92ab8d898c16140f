// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/event.h>

namespace corvane {

enum enSplitterDir : int32_t { sdVertical = 0, sdHorizontal = 1 };

// A thin bar between two of the host's controls. While it is dragged only the bar moves, inside
// a cursor clip rectangle that keeps each neighbour's minimum; the neighbours are resized once,
// at the release. Escape cancels a drag.
class CORVANE_API VexSplitter : public ControlBase {
 public:
  std::string typeName() const override { return "VexSplitter"; }
  DesignForm designForm() const override;

  int32_t MinRightBottom() const { return m_MinRightBottom; }
  void setMinRightBottom(int32_t value) { m_MinRightBottom = value; }
  int32_t MinLeftTop() const { return m_MinLeftTop; }
  void setMinLeftTop(int32_t value) { m_MinLeftTop = value; }
  // The neighbours: each offers hWnd, Left, Top, Width and Height by name.
  void SetControls(ObjectRef& oLeftOrTop, ObjectRef& oRightOrBottom);
  OLE_COLOR BackColor() const { return m_BackColor; }
  void setBackColor(OLE_COLOR value) override;
  OLE_COLOR BorderColor() const { return m_BorderColor; }
  void setBorderColor(OLE_COLOR value);
  OLE_COLOR ActivateColor() const { return m_ActivateColor; }
  void setActivateColor(OLE_COLOR value);
  OLE_COLOR ActivateBorder() const { return m_ActivateBorder; }
  void setActivateBorder(OLE_COLOR value);
  enSplitterDir Direction() const { return m_Direction; }
  // The mouse pointer keeps its arrow until the next load.
  void setDirection(enSplitterDir value);

  Event<> BeforeScroll;
  // 1 while the cursor stands right of (below) the press position, 0 left of (above) it.
  Event<int32_t&> Scrolling;
  Event<> AfterScroll;
  Event<> DblClick;

  // Lifecycle.
  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;
  void Paint() override;
  void Show() override;
  void Terminate() override;

  // The steps, public so that tests and the gallery can follow them.
  // Fills the cursor's allowed area; true when one side has room for a drag.
  bool ComputeClip();
  // The release: ends the clip, shows the idle look and lines the neighbours up with the bar.
  void ArrangeNeighbours();
  bool dragging() const { return m_Dragging != 0; }
  const RECT& clipRect() const { return m_ClipRect; }
  const ObjectRef& leftOrTop() const { return m_LeftOrTop; }
  const ObjectRef& rightOrBottom() const { return m_RightOrBottom; }

 protected:
  void onDblClick() override { DblClick(); }
  void onMouseDown(int16_t& b, int16_t& s, float& x, float& y) override;
  void onMouseMove(int16_t& b, int16_t& s, float& x, float& y) override;
  void onMouseUp(int16_t& b, int16_t& s, float& x, float& y) override;
  void onKeyDown(int16_t& keyCode, int16_t& shift) override;
  const Dispatch* dispatch() const override;

 private:
  void drawIdle();
  void drawActive();

  int32_t m_MinLeftTop = 0;
  int32_t m_MinRightBottom = 0;
  OLE_COLOR m_BorderColor = 0, m_BackColor = 0, m_ActivateColor = 0;
  OLE_COLOR m_ActivateBorder = 0xA1A1A1;
  ObjectRef m_LeftOrTop, m_RightOrBottom;
  enSplitterDir m_Direction = sdVertical;
  uint8_t m_Dragging = 0;
  POINTAPI m_StartCursor{0, 0};
  float m_StartTop = 0, m_StartLeft = 0;
  RECT m_ClipRect{0, 0, 0, 0};
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

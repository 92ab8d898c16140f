// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/hosted_control.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/event.h>

#include <cstdint>

namespace corvane {

// The form engine's scroll bar, vertical ("VScrollBar") or horizontal ("HScrollBar"): two arrow
// buttons, a track and a thumb, drawn in the classic three-dimensional look. An arrow click moves
// Value by SmallChange, a click in the track beside the thumb by LargeChange, both repeating
// while the button is held; dragging the thumb raises Scroll at each move and Change at the end.
// Min may be above Max; the bar then runs the other way.
class CORVANE_API ScrollBar : public HostedControl {
 public:
  explicit ScrollBar(bool vertical = true) : m_vertical(vertical) {}
  std::string typeName() const override { return m_vertical ? "VScrollBar" : "HScrollBar"; }
  DesignForm designForm() const override;
  bool vertical() const { return m_vertical; }

  // 16-bit values; a Value outside Min to Max, or a negative step, is error 380.
  int16_t Min() const { return m_Min; }
  void setMin(int16_t v);
  int16_t Max() const { return m_Max; }
  void setMax(int16_t v);
  int16_t Value() const { return m_Value; }
  void setValue(int16_t v);  // raises Change when the value differs
  int16_t SmallChange() const { return m_SmallChange; }
  void setSmallChange(int16_t v);
  int16_t LargeChange() const { return m_LargeChange; }
  void setLargeChange(int16_t v);
  bool Enabled() const;
  void setEnabled(bool v);
  bool Visible() const;
  void setVisible(bool v);

  // Change: the value changed (by property, click, or the end of a drag). Scroll: the thumb is
  // being dragged. GotFocus: the bar took the focus (it does on a press).
  Event<> Change, Scroll, GotFocus;

  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override { draw(); }
  void Show() override { draw(); }

  // The parts of the bar under a point, in the window's pixels.
  enum Part { NoPart, LineUp, PageUp, Thumb, PageDown, LineDown };
  Part partAt(int32_t x, int32_t y) const;
  // The thumb's extent along the bar, in pixels from the bar's start; empty when there is none.
  void thumbExtent(int32_t& start, int32_t& end) const;

 protected:
  LRESULT windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override;
  const Dispatch* dispatch() const override;

 private:
  int32_t length() const;   // along the bar
  int32_t breadth() const;  // across it
  int32_t arrowLength() const;
  RECT along(int32_t from, int32_t to) const;  // a band across the bar between two positions along it
  void draw();
  void drawArrow(const RECT& button, bool first, bool pressed);
  void drawTrack(const RECT& track);
  // Moves Value by a number of steps towards Max (negative: towards Min), within the range.
  void step(int32_t amount);
  void stepPart(Part p);
  void dragTo(int32_t along);
  void press(int32_t x, int32_t y);
  void release();
  void setValueFromUser(int32_t v, bool scrolling);

  bool m_vertical;
  int16_t m_Min = 0, m_Max = 32767, m_Value = 0, m_SmallChange = 1, m_LargeChange = 1;
  Part m_pressed = NoPart;
  int32_t m_lastX = 0, m_lastY = 0;  // the pointer while a part is held
  int32_t m_grabOffset = 0;          // where the thumb was taken, from its start
  int16_t m_dragStartValue = 0;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

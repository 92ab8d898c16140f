// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/event.h>
#include <corvane/widgets/painted_label.h>

#include <string>

namespace corvane {

// The check mark's kind; by name the enumeration is "Checker".
enum CheckMark : int32_t { Haken = 0, HakenWing = 1, Kreuz = 2, Kreis = 3, Dreieck = 4 };
// The three states; by name the enumeration is "State".
enum CheckState : int32_t { Unchecked = 0, Checked = 1, Mixed = 2 };

// A three-state check box with a free choice of mark. The box is a picture chosen by state and
// look (normal, hover, pressed, disabled); the mark is a one-character label `ok` in a symbol
// font, shown only when checked; the caption is a second label `lbl`. Hover is followed by
// capturing the mouse while the cursor is over the control. A release toggles: unchecked becomes
// checked, checked and mixed become unchecked. No key toggles it.
class CORVANE_API VexCheck : public ControlBase {
 public:
  // The looks, the rows of the box pictures.
  enum Look : int32_t { LookNormal = 0, LookHover = 1, LookPressed = 2, LookDisabled = 3 };

  VexCheck();
  std::string typeName() const override { return "VexCheck"; }
  DesignForm designForm() const override;

  CheckMark Checker() const { return m_Checker; }
  void setChecker(CheckMark value);
  OLE_COLOR CheckColor() const { return m_CheckColor; }
  void setCheckColor(OLE_COLOR value);
  void setEnabled(bool value) override;
  CheckState value() const { return m_value; }
  void setValue(CheckState value);
  const std::string& Caption() const { return m_lbl.Caption; }
  void setCaption(const std::string& value);
  FontRef Font() const { return m_lbl.Font; }
  void setFont(const FontRef& value);
  void setBackColor(OLE_COLOR value) override;
  OLE_COLOR ForeColor() const { return m_ForeColor; }
  void setForeColor(OLE_COLOR value);

  Event<> Click;
  Event<int16_t&, int16_t&> KeyDown, KeyUp;
  Event<int16_t&> KeyPress;
  Event<> MouseOut;
  Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;

  // Lifecycle.
  void Initialize() override;
  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override { Layout(); }

  // The drawing steps, public so that tests and the gallery can follow them.
  void ShowEnabled();
  void ShowDisabled();
  void Layout();
  // The row shown last, its box picture's number, and the two labels.
  Look look() const { return m_look; }
  int32_t boxImage() const;
  const PaintedLabel& ok() const { return m_ok; }
  const PaintedLabel& lbl() const { return m_lbl; }

 protected:
  void redraw() override { render(); }
  void onMouseDown(int16_t& b, int16_t& s, float& x, float& y) override;
  void onMouseMove(int16_t& b, int16_t& s, float& x, float& y) override;
  void onMouseUp(int16_t& b, int16_t& s, float& x, float& y) override;
  void onKeyDown(int16_t& k, int16_t& s) override { KeyDown(k, s); }
  void onKeyUp(int16_t& k, int16_t& s) override { KeyUp(k, s); }
  void onKeyPress(int16_t& k) override { KeyPress(k); }
  const Dispatch* dispatch() const override;

 private:
  void setUpMark();
  void showRow(Look row);
  void render();
  // The label under a point of the control (in its scale), or nullptr.
  const PaintedLabel* labelAt(float x, float y) const;

  CheckMark m_Checker = Haken;
  OLE_COLOR m_CheckColor = 0;
  CheckState m_value = Unchecked;
  OLE_COLOR m_ForeColor = 0;
  Look m_look = LookNormal;
  PaintedLabel m_ok, m_lbl;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

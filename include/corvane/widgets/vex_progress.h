// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/platform/system_macros_begin.h>

#include <string>

namespace corvane {

// A flat percentage bar: a grey frame (prgBorder) filling the control, a growing bar (prgBar) and,
// over it, the percentage in white (txtPer), shown only once the bar is wide enough for it. Nothing
// is persisted; MaxValue is 100 at every start.
class CORVANE_API VexProgress : public ControlBase {
 public:
  // A child's place and size in twips, and whether it shows.
  struct Child {
    float Left = 0, Top = 0, Width = 0, Height = 0;
    bool Visible = true;
    OLE_COLOR BackColor = 0;
  };

  VexProgress();
  std::string typeName() const override { return "VexProgress"; }
  DesignForm designForm() const override;

  // Empties the bar, then applies each colour that is not -1: the control's back colour, the bar's
  // (also the back colour of the number), the frame's and the number's text colour.
  void Reset(int32_t lBackColor = -1, int32_t lBarColor = -1, int32_t lBorderColor = -1,
             int32_t lTextColor = -1);
  int32_t MaxValue() const { return m_MaxValue; }
  void setMaxValue(int32_t value) { m_MaxValue = value; }  // no check and no repaint
  // Shows CurrentValue of MaxValue; at or above MaxValue the bar is full.
  void UpdateTo(int32_t CurrentValue);

  // Lifecycle.
  void Initialize() override;
  void onResize() override;

  // The children and fields, for tests and the gallery.
  const Child& prgBorder() const { return m_prgBorder; }
  const Child& prgBar() const { return m_prgBar; }
  const Child& txtPer() const { return m_txtPer; }
  const std::string& txtPerText() const { return m_txtPerText; }
  OLE_COLOR txtPerForeColor() const { return m_txtPerForeColor; }
  float FullWidth() const { return m_FullWidth; }
  float MinLabelWidth() const { return m_MinLabelWidth; }

 protected:
  void redraw() override { render(); }
  const Dispatch* dispatch() const override;

 private:
  void render();
  // The height of the number's box, in twips: one line of its font.
  float textBoxHeight();

  int32_t m_MaxValue = 100;
  float m_FullWidth = 0;
  float m_MinLabelWidth = 0;
  Child m_prgBorder, m_prgBar, m_txtPer;
  std::string m_txtPerText;
  OLE_COLOR m_txtPerForeColor = 0xFFFFFF;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

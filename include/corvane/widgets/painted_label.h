// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/std_font.h>
#include <corvane/platform/types.h>

#include <string>

namespace corvane {

// A windowless label that a control paints on its own surface, as the form engine's light
// labels are: it has no window, so its mouse input arrives at the control that holds it.
// Geometry is in pixels of the owner's surface.
class CORVANE_API PaintedLabel {
 public:
  std::string Caption;
  FontRef Font;
  OLE_COLOR ForeColor = 0;
  OLE_COLOR BackColor = 0xFFFFFF;
  bool Opaque = false;    // fills its box with BackColor before the text
  int32_t Alignment = 0;  // DrawTextA's 0 left, 1 centre, 2 right
  int32_t Left = 0, Top = 0, Width = 0, Height = 0;
  bool Visible = true;
  std::string Tag;

  // Sizes the box to the caption in its font.
  void AutoSize(HDC hdc);
  // Paints the label on the owner's context; an invisible label paints nothing.
  void paint(HDC hdc) const;
  // Whether a pixel of the owner lies in the label's box (an invisible label has none).
  bool contains(int32_t x, int32_t y) const;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/hosted_control.h>
#include <corvane/platform/system_macros_begin.h>

#include <string>

namespace corvane {

// The form engine's label as a child of a control: a caption in a font and a fore colour on a
// back colour, optionally wrapped at its width, and sized to its text when AutoSize is on (with
// WordWrap only the height follows, without it both). A carriage return, a line feed or both
// break a line. Position and size are in the parent's pixels.
class CORVANE_API Label : public HostedControl {
 public:
  std::string typeName() const override { return "Label"; }
  // Makes the label's window inside the parent window, shown.
  void create(HWND parent, int32_t left, int32_t top, int32_t width, int32_t height);

  const std::string& Caption() const { return m_Caption; }
  void setCaption(const std::string& value);
  bool AutoSize() const { return m_AutoSize; }
  void setAutoSize(bool value);
  bool WordWrap() const { return m_WordWrap; }
  void setWordWrap(bool value);
  // 0 left, 1 right, 2 centre: how the lines stand in the label's width.
  int16_t Alignment() const { return m_Alignment; }
  void setAlignment(int16_t value);
  // Shares the font object; a change inside it shows from the next drawing.
  const FontRef& Font() const { return surface().Font(); }
  void setFont(const FontRef& value);
  OLE_COLOR ForeColor() const { return surface().ForeColor(); }
  void setForeColor(OLE_COLOR value);
  OLE_COLOR BackColor() const { return surface().BackColor(); }
  void setBackColor(OLE_COLOR value);

  int32_t Left() const;
  int32_t Top() const;
  int32_t Width() const { return surface().pixelWidth(); }
  int32_t Height() const { return surface().pixelHeight(); }
  void Move(int32_t left, int32_t top, int32_t width, int32_t height);
  void setWidth(int32_t value) { Move(Left(), Top(), value, Height()); }
  bool Visible() const;
  void setVisible(bool value);

  // The label's way of drawing text, shared with the windowless labels that controls paint
  // themselves: the caption in the font and colour, see-through, every kind of line end a break.
  static void drawText(HDC hdc, const FontSpec& font, OLE_COLOR colour, const std::string& text, RECT box,
                       int32_t flags);

  void onResize() override { draw(); }
  void Paint() override { draw(); }

 private:
  void fitToText();
  void draw();
  int32_t textFlags() const;

  std::string m_Caption;
  bool m_AutoSize = false;
  bool m_WordWrap = false;
  bool m_fitting = false;
  int16_t m_Alignment = 0;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

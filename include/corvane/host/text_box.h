// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/hosted_control.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/platform/system_macros_begin.h>

#include <memory>
#include <string>

namespace corvane {

// The form engine's text box as a child of a control, in the form a read-only tip needs: several
// lines wrapped at its width, a vertical scroll bar, a sunken classic frame. The text is shown,
// not edited. A carriage return with a line feed, or either alone, breaks a line. Position and
// size are in the parent's pixels.
class CORVANE_API TextBox : public HostedControl {
 public:
  std::string typeName() const override { return "TextBox"; }
  // Makes the text box's window inside the parent window, shown.
  void create(HWND parent, int32_t left, int32_t top, int32_t width, int32_t height);

  const std::string& Text() const { return m_Text; }
  void setText(const std::string& value);
  const FontRef& Font() const { return surface().Font(); }
  void setFont(const FontRef& value);  // shares the font object
  OLE_COLOR ForeColor() const { return surface().ForeColor(); }
  void setForeColor(OLE_COLOR value);
  OLE_COLOR BackColor() const { return surface().BackColor(); }
  void setBackColor(OLE_COLOR value);

  int32_t Left() const;
  int32_t Top() const;
  int32_t Width() const { return surface().pixelWidth(); }
  int32_t Height() const { return surface().pixelHeight(); }
  void Move(int32_t left, int32_t top, int32_t width, int32_t height);
  bool Visible() const;
  void setVisible(bool value);

  // The first line shown, which the scroll bar moves, and the number of wrapped lines.
  int32_t topLine() const;
  int32_t lineCount() const { return m_lineCount; }
  ScrollBar& scrollBar() const { return *m_bar; }

  void onResize() override;
  void Paint() override { draw(); }

 private:
  // Wraps the text again and sets the scroll bar's range to it.
  void measure();
  void draw();
  int32_t lineHeight();
  RECT textArea() const;

  std::string m_Text;
  std::shared_ptr<ScrollBar> m_bar;
  int32_t m_lineCount = 0;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

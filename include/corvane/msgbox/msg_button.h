// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/hosted_control.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/event.h>

#include <cstdint>
#include <string>

namespace corvane {

// A push button or a check box of the message box window: a caption with an access key ("&"),
// a Tag, a place in the tab order, and Enabled and Visible. Geometry is in twips of the parent.
// A click with the left button raises Click; a check box toggles its Value first.
class CORVANE_API MsgButton : public HostedControl {
 public:
  enum Kind { PushButton, CheckBox };
  explicit MsgButton(Kind kind = PushButton) : m_kind(kind) {}
  std::string typeName() const override { return m_kind == CheckBox ? "CheckBox" : "CommandButton"; }

  const std::string& Caption() const { return m_Caption; }
  void setCaption(const std::string& value);
  std::string Tag;
  int32_t TabIndex = 0;
  bool Enabled() const { return m_Enabled; }
  void setEnabled(bool value);
  bool Visible() const;
  void setVisible(bool value);
  // A check box's state: 0 unchecked, 1 checked.
  int16_t Value() const { return m_Value; }
  void setValue(int16_t value);

  int32_t Left() const;
  int32_t Top() const;
  int32_t Width() const;
  int32_t Height() const;
  void setLeft(int32_t twips) { Move(twips, Top(), Width(), Height()); }
  void setTop(int32_t twips) { Move(Left(), twips, Width(), Height()); }
  void setWidth(int32_t twips) { Move(Left(), Top(), twips, Height()); }
  void setHeight(int32_t twips) { Move(Left(), Top(), Width(), twips); }
  void Move(int32_t left, int32_t top, int32_t width, int32_t height);

  // The caption as shown: "&&" is an ampersand, a single "&" marks the access key and goes.
  static std::string shownText(const std::string& caption);

  Event<> Click;
  Event<int16_t&> KeyPress;

  void Paint() override { draw(); }
  void onResize() override { draw(); }

 protected:
  void onSited() override;

 private:
  void draw();
  Kind m_kind;
  std::string m_Caption;
  bool m_Enabled = true;
  int16_t m_Value = 0;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <string>

namespace corvane {

// The font dialog, for screen fonts with effects, starting from an empty font.
class CORVANE_API FontViewDLG : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "FontViewDLG"; }

  bool CancelError() const { return m_CancelError; }
  void setCancelError(bool value) { m_CancelError = value; }
  bool Italic() const { return m_Italic; }
  bool StrikeOut() const { return m_StrikeOut; }
  bool Underline() const { return m_Underline; }
  bool Bold() const { return m_Bold; }
  // True on OK with a font name. A cancel gives False, or error 18 with CancelError.
  bool Show();
  int32_t FontSize() const { return m_FontSize; }  // points
  std::string FontName() const { return m_FontName; }
  int32_t Owner() const { return m_Owner; }
  void setOwner(int32_t value) { m_Owner = value; }
  int32_t Color() const { return m_Color; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  bool m_CancelError = false;
  bool m_Italic = false, m_StrikeOut = false, m_Underline = false, m_Bold = false;
  int32_t m_FontSize = 0;
  std::string m_FontName;
  int32_t m_Owner = 0;
  int32_t m_Color = 0;
};

}  // namespace corvane

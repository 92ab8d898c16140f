// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <string>

namespace corvane {

// The colour dialog. Show opens it without an initial colour and with fresh custom colours each
// time; on OK Color holds the choice.
class CORVANE_API ColorViewDLG : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "ColorViewDLG"; }

  bool ExView() const { return m_ExView; }  // opens with the custom colour part shown
  void setExView(bool value) { m_ExView = value; }
  int32_t Color() const { return m_Color; }
  int32_t Owner() const { return m_Owner; }
  void setOwner(int32_t value) { m_Owner = value; }
  // True on OK. A cancel gives False, or error 18 with CancelError.
  bool Show();
  bool CancelError() const { return m_CancelError; }
  void setCancelError(bool value) { m_CancelError = value; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  bool m_ExView = false;
  int32_t m_Color = 0;
  int32_t m_Owner = 0;
  bool m_CancelError = false;
};

}  // namespace corvane

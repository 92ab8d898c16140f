// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <string>

namespace corvane {

// The folder dialog. A cancel gives False and an empty ReturnPath; CancelError is kept but
// raises nothing for this dialog.
class CORVANE_API BrowseFolderDLG : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "BrowseFolderDLG"; }

  bool CancelError() const { return m_CancelError; }
  void setCancelError(bool value) { m_CancelError = value; }
  std::string Prompt() const { return m_Prompt; }  // the text above the tree
  void setPrompt(const std::string& value) { m_Prompt = value; }
  bool Show();
  int32_t Owner() const { return m_Owner; }
  void setOwner(int32_t value) { m_Owner = value; }
  std::string ReturnPath() const { return m_ReturnPath; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  bool m_CancelError = false;
  std::string m_Prompt;
  int32_t m_Owner = 0;
  std::string m_ReturnPath;
};

}  // namespace corvane

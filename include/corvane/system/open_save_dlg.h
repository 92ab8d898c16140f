// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <string>

namespace corvane {

// The open and save dialogs. The texts are stored without leading and trailing blanks; Filter
// is in the platform's form, description and pattern pairs each ended by a NUL character.
class CORVANE_API OpenSaveDLG : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "OpenSaveDLG"; }

  // ReturnPath is read in the short form.
  bool ShortFileName() const { return m_ShortFileName; }
  void setShortFileName(bool value) { m_ShortFileName = value; }
  bool OldStyle() const { return m_OldStyle; }  // stored only
  void setOldStyle(bool value) { m_OldStyle = value; }
  bool CancelError() const { return m_CancelError; }
  void setCancelError(bool value) { m_CancelError = value; }
  std::string Filter() const { return m_Filter; }
  void setFilter(const std::string& value);
  std::string DialogTitle() const { return m_DialogTitle; }
  void setDialogTitle(const std::string& value);
  std::string InitDir() const { return m_InitDir; }
  void setInitDir(const std::string& value);
  std::string FileName() const { return m_FileName; }
  void setFileName(const std::string& value);
  std::string ReturnPath() const;
  void setReadOnly(bool value) { m_ReadOnly = value; }  // the dialog's read-only check box
  int32_t Owner() const { return m_Owner; }
  void setOwner(int32_t value) { m_Owner = value; }
  // OpenDlg True opens the open dialog, False the save dialog. True on OK; a cancel gives False,
  // or error 18 with CancelError. A FileName of more than 250 characters is error 5.
  bool Show(bool& OpenDlg);

 protected:
  const Dispatch* dispatch() const override;

 private:
  bool m_ShortFileName = false;
  bool m_OldStyle = false;
  bool m_CancelError = false;
  std::string m_Filter, m_DialogTitle, m_InitDir, m_FileName, m_ReturnPath;
  bool m_ReadOnly = false;
  int32_t m_Owner = 0;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <string>

namespace corvane {

// The print dialog. Show always gives False: a host reads PrintCancel, which stays True until
// the dialog ends with OK. The device context in PrinthDC belongs to the host.
class CORVANE_API PrintViewDLG : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "PrintViewDLG"; }

  std::string PrinterName() const { return m_PrinterName; }
  int32_t PrinthDC() const { return m_PrinthDC; }
  bool PrintCancel() const { return m_PrintCancel; }
  bool PrintColors() const { return m_PrintColors; }
  int32_t ToPage() const { return m_ToPage; }
  void setToPage(int32_t value) { m_ToPage = value; }
  int32_t FromPage() const { return m_FromPage; }
  void setFromPage(int32_t value) { m_FromPage = value; }
  int32_t MaxPage() const { return m_MaxPage; }
  void setMaxPage(int32_t value) { m_MaxPage = value; }
  int32_t Copies() const { return m_Copies; }
  void setCopies(int32_t value) { m_Copies = value; }
  bool DisablePntToFile() const { return m_DisablePntToFile; }
  void setDisablePntToFile(bool value) { m_DisablePntToFile = value; }
  bool HidePntToFile() const { return m_HidePntToFile; }
  void setHidePntToFile(bool value) { m_HidePntToFile = value; }
  bool DisableSelection() const { return m_DisableSelection; }
  void setDisableSelection(bool value) { m_DisableSelection = value; }
  bool Sort() const { return m_Sort; }
  void setSort(bool value) { m_Sort = value; }
  bool PrintALL() const { return m_PrintALL; }
  void setPrintALL(bool value) { m_PrintALL = value; }
  bool NoPageNums() const { return m_NoPageNums; }
  void setNoPageNums(bool value) { m_NoPageNums = value; }
  bool PageNums() const { return m_PageNums; }
  void setPageNums(bool value) { m_PageNums = value; }
  bool PrintToFile() const { return m_PrintToFile; }
  void setPrintToFile(bool value) { m_PrintToFile = value; }
  bool Show();
  int32_t Owner() const { return m_Owner; }
  void setOwner(int32_t value) { m_Owner = value; }

  // The flags the dialog is opened with, from the options.
  int32_t dialogFlags() const;

 protected:
  const Dispatch* dispatch() const override;

 private:
  std::string m_PrinterName;
  int32_t m_PrinthDC = 0;
  bool m_PrintCancel = true;
  bool m_PrintColors = false;
  int32_t m_ToPage = 0, m_FromPage = 0, m_MaxPage = 0, m_Copies = 0;
  bool m_DisablePntToFile = false, m_HidePntToFile = false, m_DisableSelection = false;
  bool m_Sort = false, m_PrintALL = false, m_NoPageNums = false, m_PageNums = false, m_PrintToFile = false;
  int32_t m_Owner = 0;
};

}  // namespace corvane

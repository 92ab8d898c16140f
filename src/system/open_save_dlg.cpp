// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/strings.h>
#include <corvane/system/open_save_dlg.h>

namespace corvane {

void OpenSaveDLG::setFilter(const std::string& value) { m_Filter = Trim(value); }
void OpenSaveDLG::setDialogTitle(const std::string& value) { m_DialogTitle = Trim(value); }
void OpenSaveDLG::setInitDir(const std::string& value) { m_InitDir = Trim(value); }
void OpenSaveDLG::setFileName(const std::string& value) { m_FileName = Trim(value); }

std::string OpenSaveDLG::ReturnPath() const {
  if (!m_ShortFileName) return Trim(m_ReturnPath);
  std::string shortPath;
  const int32_t length = sys().GetShortPathNameA(m_ReturnPath, shortPath, 1024);
  // Nothing fits the buffer when the call fails or the path is too long for it.
  if (length <= 0 || length >= 1024) return {};
  return Left(shortPath, length);
}

bool OpenSaveDLG::Show(bool& OpenDlg) {
  OPENFILENAME ofn;
  ofn.lStructSize = 76;
  ofn.hwndOwner = m_Owner;
  ofn.lpstrTitle = m_DialogTitle;
  ofn.lpstrFilter = m_Filter;
  ofn.nFilterIndex = 1;
  ofn.lpstrInitialDir = m_InitDir;
  // A name of more than 250 characters leaves a negative filler: error 5.
  ofn.lpstrFile = m_FileName + String(250 - Len(m_FileName), 0);
  ofn.nMaxFile = 255;
  ofn.lpstrFileTitle = std::string(255, '\0');
  ofn.nMaxFileTitle = 255;
  ofn.Flags = (m_ReadOnly ? OFN_READONLY : 0) + OFN_EXPLORER;
  const int32_t result = OpenDlg ? dlg().GetOpenFileNameA(ofn) : dlg().GetSaveFileNameA(ofn);
  m_ReturnPath.clear();
  if (result == 1) {
    m_ReturnPath = Trim(bufferText(ofn.lpstrFile));
    return true;
  }
  if (result == 0 && m_CancelError) throw RuntimeError(err::CancelError);
  return false;
}

const Dispatch* OpenSaveDLG::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    auto text = [](void (OpenSaveDLG::*setter)(const std::string&)) {
      return [setter](OpenSaveDLG& o, const Variant& v) { (o.*setter)(v.toString()); };
    };
    DispatchBuilder<OpenSaveDLG>(t)
        .prop("ShortFileName", &OpenSaveDLG::ShortFileName, &OpenSaveDLG::setShortFileName)
        .prop("OldStyle", &OpenSaveDLG::OldStyle, &OpenSaveDLG::setOldStyle)
        .prop("CancelError", &OpenSaveDLG::CancelError, &OpenSaveDLG::setCancelError)
        .get("Filter", &OpenSaveDLG::Filter)
        .let("Filter", text(&OpenSaveDLG::setFilter))
        .get("DialogTitle", &OpenSaveDLG::DialogTitle)
        .let("DialogTitle", text(&OpenSaveDLG::setDialogTitle))
        .get("InitDir", &OpenSaveDLG::InitDir)
        .let("InitDir", text(&OpenSaveDLG::setInitDir))
        .get("FileName", &OpenSaveDLG::FileName)
        .let("FileName", text(&OpenSaveDLG::setFileName))
        .get("ReturnPath", &OpenSaveDLG::ReturnPath)
        .let("ReadOnly", &OpenSaveDLG::setReadOnly)
        .prop("Owner", &OpenSaveDLG::Owner, &OpenSaveDLG::setOwner)
        // OpenDlg comes by reference: the caller's variable is given back as the dialog left it.
        .method("Show", [](OpenSaveDLG& o, Dispatch::Args& a) {
          if (a.empty()) throw RuntimeError(449, "Argument not optional");
          bool open = a[0].toBool();
          const bool result = o.Show(open);
          a[0] = Variant(open);
          return result;
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane

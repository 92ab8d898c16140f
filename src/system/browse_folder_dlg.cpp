// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/runtime/strings.h>
#include <corvane/system/browse_folder_dlg.h>

namespace corvane {

bool BrowseFolderDLG::Show() {
  BROWSEINFO bi;
  bi.hOwner = m_Owner;
  bi.lpszTitle = m_Prompt;
  const int32_t pidl = dlg().SHBrowseForFolderA(bi);
  m_ReturnPath.clear();
  std::string buffer = Space(512);
  // The item list is not freed. A cancel raises nothing here, whatever CancelError says.
  if (pidl && dlg().SHGetPathFromIDListA(pidl, buffer)) {
    m_ReturnPath = bufferText(buffer);
    return true;
  }
  return false;
}

const Dispatch* BrowseFolderDLG::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<BrowseFolderDLG>(t)
        .prop("CancelError", &BrowseFolderDLG::CancelError, &BrowseFolderDLG::setCancelError)
        .get("Prompt", &BrowseFolderDLG::Prompt)
        .let("Prompt", [](BrowseFolderDLG& o, const Variant& v) { o.setPrompt(v.toString()); })
        .method("Show", [](BrowseFolderDLG& o, Dispatch::Args&) { return o.Show(); })
        .prop("Owner", &BrowseFolderDLG::Owner, &BrowseFolderDLG::setOwner)
        .get("ReturnPath", &BrowseFolderDLG::ReturnPath);
    return t;
  }();
  return &d;
}

}  // namespace corvane

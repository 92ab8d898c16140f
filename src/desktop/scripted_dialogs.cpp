// SPDX-License-Identifier: MIT
#include "desktop/scripted_dialogs.h"

#include <algorithm>

namespace corvane {

ScriptedDialogs::Answer ScriptedDialogs::next() {
  if (m_answers.empty()) return Answer{};
  Answer a = std::move(m_answers.front());
  m_answers.pop_front();
  return a;
}

int32_t ScriptedDialogs::ChooseColorA(CHOOSECOLOR& cc) {
  Request r;
  r.kind = "ChooseColorA";
  r.structSize = cc.lStructSize;
  r.owner = cc.hwndOwner;
  r.flags = cc.Flags;
  r.customColours = cc.lpCustColors;
  r.colour = cc.rgbResult;
  m_requests.push_back(r);
  Answer a = next();
  // The user's custom colours stay in the buffer the caller gave.
  const size_t n = std::min(a.customColours.size(), cc.lpCustColors.size());
  cc.lpCustColors.replace(0, n, a.customColours, 0, n);
  if (a.ok) cc.rgbResult = a.colour;
  return resultOf(a);
}

int32_t ScriptedDialogs::fileDialog(const char* kind, OPENFILENAME& ofn) {
  Request r;
  r.kind = kind;
  r.structSize = ofn.lStructSize;
  r.owner = ofn.hwndOwner;
  r.title = ofn.lpstrTitle;
  r.filter = ofn.lpstrFilter;
  r.filters = parseDialogFilter(ofn.lpstrFilter);
  r.filterIndex = ofn.nFilterIndex;
  r.initialDir = ofn.lpstrInitialDir;
  r.file = ofn.lpstrFile;
  r.maxFile = ofn.nMaxFile;
  r.flags = ofn.Flags;
  m_requests.push_back(r);
  Answer a = next();
  if (a.ok) writeBuffer(ofn.lpstrFile, a.path);
  return resultOf(a);
}

int32_t ScriptedDialogs::GetOpenFileNameA(OPENFILENAME& ofn) { return fileDialog("GetOpenFileNameA", ofn); }
int32_t ScriptedDialogs::GetSaveFileNameA(OPENFILENAME& ofn) { return fileDialog("GetSaveFileNameA", ofn); }

int32_t ScriptedDialogs::SHBrowseForFolderA(BROWSEINFO& bi) {
  Request r;
  r.kind = "SHBrowseForFolderA";
  r.owner = bi.hOwner;
  r.title = bi.lpszTitle;
  r.flags = bi.ulFlags;
  m_requests.push_back(r);
  Answer a = next();
  if (!a.ok) return 0;
  const int32_t pidl = static_cast<int32_t>(m_itemLists.size()) + 1;
  m_itemLists[pidl] = a.path;
  return pidl;
}

bool ScriptedDialogs::SHGetPathFromIDListA(int32_t pidl, std::string& path) {
  auto it = m_itemLists.find(pidl);
  if (it == m_itemLists.end()) return false;
  writeBuffer(path, it->second);
  return true;
}

int32_t ScriptedDialogs::PrintDlgA(PRINTDLG& pd) {
  Request r;
  r.kind = "PrintDlgA";
  r.structSize = pd.lStructSize;
  r.owner = pd.hwndOwner;
  r.flags = pd.Flags;
  r.fromPage = pd.nFromPage;
  r.toPage = pd.nToPage;
  r.minPage = pd.nMinPage;
  r.maxPage = pd.nMaxPage;
  r.copies = pd.nCopies;
  m_requests.push_back(r);
  Answer a = next();
  if (a.ok) {
    pd.Flags = a.printFlags;
    pd.nFromPage = a.fromPage;
    pd.nToPage = a.toPage;
    pd.nMaxPage = a.maxPage;
    pd.hDC = a.printDC;
    pd.devMode = a.devMode;
  }
  return resultOf(a);
}

int32_t ScriptedDialogs::ChooseFontA(CHOOSEFONT& cf) {
  Request r;
  r.kind = "ChooseFontA";
  r.structSize = cf.lStructSize;
  r.owner = cf.hwndOwner;
  r.flags = cf.Flags;
  r.font = cf.lf;
  m_requests.push_back(r);
  Answer a = next();
  if (a.ok) {
    cf.lf = a.font;
    cf.iPointSize = a.pointSize;
    cf.rgbColors = a.colour;
  }
  return resultOf(a);
}

}  // namespace corvane

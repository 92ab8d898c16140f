// SPDX-License-Identifier: MIT
#include "live/live_dialogs.h"

#include <corvane/platform/api.h>
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "live/dialog_module.h"
#include "live/live_window_manager.h"

#ifndef CORVANE_MODULE_DIR
#define CORVANE_MODULE_DIR ""
#endif

namespace corvane {

namespace {

const DialogModule* s_module = nullptr;
bool s_tried = false;

// Where the module may be, in order: the path the environment names; beside the object that holds
// this code (the shared library in its library folder, or a program in a build tree's folder of
// programs); the folder it was installed to.
std::vector<std::string> moduleCandidates() {
  std::vector<std::string> paths;
  if (const char* named = std::getenv("CORVANE_DIALOGS_MODULE"); named && *named) paths.emplace_back(named);
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&moduleCandidates), &info) && info.dli_fname) {
    std::error_code error;
    const std::filesystem::path self = std::filesystem::canonical(info.dli_fname, error);
    if (!error) {
      paths.push_back((self.parent_path() / "corvane" / DialogModule::kFileName).string());
      paths.push_back((self.parent_path().parent_path() / "lib" / "corvane" / DialogModule::kFileName).string());
    }
  }
  if (*CORVANE_MODULE_DIR) paths.push_back(std::string(CORVANE_MODULE_DIR) + "/" + DialogModule::kFileName);
  return paths;
}

const DialogModule* dialogModule() {
  if (s_tried) return s_module;
  s_tried = true;
  std::string reasons;
  for (const std::string& path : moduleCandidates()) {
    if (!std::filesystem::exists(path)) continue;
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
      reasons += std::string(" ") + dlerror() + ";";
      continue;
    }
    using Entry = const DialogModule* (*)();
    auto entry = reinterpret_cast<Entry>(dlsym(handle, DialogModule::kEntry));
    const DialogModule* module = entry ? entry() : nullptr;
    if (module && module->version == DialogModule::kVersion) {
      s_module = module;  // kept loaded for the rest of the process, as GTK cannot be unloaded
      return s_module;
    }
    reasons += " " + path + " is of another version;";
    dlclose(handle);
  }
  std::fprintf(stderr, "corvane: the dialogs module %s could not be loaded (%s); dialogs are cancelled\n",
               DialogModule::kFileName, reasons.empty() ? " not found" : reasons.c_str());
  return nullptr;
}

}  // namespace

LiveDialogs::LiveDialogs(LiveWindowManager& windows) : m_windows(windows) {}

LiveDialogs::~LiveDialogs() = default;

bool LiveDialogs::moduleLoaded() { return s_module != nullptr; }

bool LiveDialogs::gtkStarted() { return s_module && s_module->gtkStarted(); }

unsigned long LiveDialogs::ownerWindow(HWND owner) const {
  for (HWND parent = owner ? user().GetParent(owner) : 0; parent; parent = user().GetParent(owner))
    owner = parent;
  return owner ? m_windows.nativeWindow(owner) : 0;
}

int32_t LiveDialogs::ChooseColorA(CHOOSECOLOR& cc) {
  const DialogModule* module = dialogModule();
  return module ? module->chooseColor(cc, ownerWindow(cc.hwndOwner)) : 0;
}

int32_t LiveDialogs::fileDialog(OPENFILENAME& ofn, bool save) {
  const DialogModule* module = dialogModule();
  if (!module) return 0;
  FileDialogRequest request;
  request.kind = save ? FileDialogRequest::Save : FileDialogRequest::Open;
  request.title = ofn.lpstrTitle;
  request.filters = parseDialogFilter(ofn.lpstrFilter);
  request.filterIndex = ofn.nFilterIndex;
  request.initialDir = ofn.lpstrInitialDir;
  request.proposed = bufferText(ofn.lpstrFile);
  request.readOnly = (ofn.Flags & OFN_READONLY) != 0;
  request.owner = ownerWindow(ofn.hwndOwner);
  FileDialogAnswer answer;
  const int32_t result = module->chooseFile(request, answer);
  if (result == 1) writeBuffer(ofn.lpstrFile, answer.path);
  if (!save) ofn.Flags = answer.readOnly ? (ofn.Flags | OFN_READONLY) : (ofn.Flags & ~OFN_READONLY);
  return result;
}

int32_t LiveDialogs::GetOpenFileNameA(OPENFILENAME& ofn) { return fileDialog(ofn, false); }
int32_t LiveDialogs::GetSaveFileNameA(OPENFILENAME& ofn) { return fileDialog(ofn, true); }

int32_t LiveDialogs::SHBrowseForFolderA(BROWSEINFO& bi) {
  const DialogModule* module = dialogModule();
  if (!module) return 0;
  FileDialogRequest request;
  request.kind = FileDialogRequest::Folder;
  request.title = bi.lpszTitle;
  request.owner = ownerWindow(bi.hOwner);
  FileDialogAnswer answer;
  if (module->chooseFile(request, answer) != 1) return 0;
  const int32_t pidl = static_cast<int32_t>(m_itemLists.size()) + 1;
  m_itemLists[pidl] = answer.path;
  return pidl;
}

bool LiveDialogs::SHGetPathFromIDListA(int32_t pidl, std::string& path) {
  auto it = m_itemLists.find(pidl);
  if (it == m_itemLists.end()) return false;
  writeBuffer(path, it->second);
  return true;
}

int32_t LiveDialogs::PrintDlgA(PRINTDLG& pd) {
  const DialogModule* module = dialogModule();
  if (!module || module->print(pd, ownerWindow(pd.hwndOwner)) != 1) return 0;
  // The host's device context; it draws like any other and the host frees it.
  if (pd.Flags & PD_RETURNDC) pd.hDC = gdi().CreateCompatibleDC(0);
  return 1;
}

int32_t LiveDialogs::ChooseFontA(CHOOSEFONT& cf) {
  const DialogModule* module = dialogModule();
  return module ? module->chooseFont(cf, bufferText(cf.lf.lfFaceName), ownerWindow(cf.hwndOwner)) : 0;
}

}  // namespace corvane

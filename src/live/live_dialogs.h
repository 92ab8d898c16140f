// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/dialogs.h>

#include <map>
#include <string>

namespace corvane {

class LiveWindowManager;
struct DialogModule;

// The common dialogs of the live display: the desktop portal's file and folder dialogs where a
// portal answers on the session bus, GTK's dialogs otherwise and for colours, fonts and printing,
// each modal to the owner's real window. They come from the dialogs module, which is loaded when
// the first dialog is asked for; where it cannot be loaded, every dialog is cancelled and the
// reason is written to the standard error once.
class LiveDialogs : public DialogApi {
 public:
  explicit LiveDialogs(LiveWindowManager& windows);
  ~LiveDialogs() override;

  int32_t ChooseColorA(CHOOSECOLOR& cc) override;
  int32_t GetOpenFileNameA(OPENFILENAME& ofn) override;
  int32_t GetSaveFileNameA(OPENFILENAME& ofn) override;
  int32_t SHBrowseForFolderA(BROWSEINFO& bi) override;
  bool SHGetPathFromIDListA(int32_t pidl, std::string& path) override;
  int32_t PrintDlgA(PRINTDLG& pd) override;
  int32_t ChooseFontA(CHOOSEFONT& cf) override;

  // Whether the dialogs module is loaded, and whether GTK has been set up (once a dialog of
  // GTK's was asked for).
  static bool moduleLoaded();
  static bool gtkStarted();

 private:
  unsigned long ownerWindow(HWND owner) const;
  int32_t fileDialog(OPENFILENAME& ofn, bool save);

  LiveWindowManager& m_windows;
  std::map<int32_t, std::string> m_itemLists;  // folders chosen; never freed, as item lists are not
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/dialogs.h>

#include <map>
#include <memory>
#include <string>

namespace corvane {

class LiveWindowManager;

// The common dialogs of the live display: the desktop portal's file and folder dialogs where a
// portal answers on the session bus, GTK's dialogs otherwise and for colours, fonts and
// printing. Each dialog is modal to the owner's real window. GTK is set up when the first dialog
// is asked for, so that a program that never opens one does not pay for it; where GTK cannot
// open the display, every dialog is cancelled.
class GtkDialogs : public DialogApi {
 public:
  explicit GtkDialogs(LiveWindowManager& windows);
  ~GtkDialogs() override;

  int32_t ChooseColorA(CHOOSECOLOR& cc) override;
  int32_t GetOpenFileNameA(OPENFILENAME& ofn) override;
  int32_t GetSaveFileNameA(OPENFILENAME& ofn) override;
  int32_t SHBrowseForFolderA(BROWSEINFO& bi) override;
  bool SHGetPathFromIDListA(int32_t pidl, std::string& path) override;
  int32_t PrintDlgA(PRINTDLG& pd) override;
  int32_t ChooseFontA(CHOOSEFONT& cf) override;

  // Whether GTK has been set up (it is, once a dialog was asked for).
  static bool gtkStarted();

 private:
  bool startGtk();
  unsigned long ownerWindow(HWND owner) const;
  int32_t fileDialog(OPENFILENAME& ofn, bool save);

  LiveWindowManager& m_windows;
  std::map<int32_t, std::string> m_itemLists;  // folders chosen; never freed, as item lists are not
};

}  // namespace corvane

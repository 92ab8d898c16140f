// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/dialogs.h>

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// The live display's dialogs live in a module of their own, loaded when the first dialog opens:
// GTK's dialogs and the desktop portal's file chooser. A program that never opens a dialog never
// loads GTK and its thirty libraries. The module is built with the library and calls nothing of
// it: requests arrive as plain data, owners as their X windows, and answers go back the same way.

// A file or folder dialog, and what the user chose in it.
struct FileDialogRequest {
  enum Kind { Open, Save, Folder };
  Kind kind = Open;
  std::string title;  // a folder dialog's prompt
  std::vector<FileFilter> filters;
  int32_t filterIndex = 0;  // from 1; 0 for none
  std::string initialDir;
  std::string proposed;  // a name, or a whole path
  bool readOnly = false;
  unsigned long owner = 0;  // the owner's X window, 0 for none
};
struct FileDialogAnswer {
  std::string path;
  bool readOnly = false;
};

// The module's functions. Each dialog returns 1 for OK and 0 for a cancel; a dialog that cannot be
// shown (GTK cannot open the display) is a cancel.
struct DialogModule {
  static constexpr int32_t kVersion = 1;
  static constexpr const char* kEntry = "corvane_dialog_module";  // extern "C", gives the functions
  static constexpr const char* kFileName = "libcorvane-live-dialogs.so";

  int32_t version;
  bool (*gtkStarted)();
  int32_t (*chooseColor)(CHOOSECOLOR& cc, unsigned long owner);
  int32_t (*chooseFile)(const FileDialogRequest& request, FileDialogAnswer& answer);
  // Fills the print settings; the library adds the device context a host asks for.
  int32_t (*print)(PRINTDLG& pd, unsigned long owner);
  int32_t (*chooseFont)(CHOOSEFONT& cf, const std::string& face, unsigned long owner);
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/dialogs.h>

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// The desktop portal's file chooser over the session bus: the file and folder dialogs of the
// user's desktop, also for sandboxed programs.
class PortalFileChooser {
 public:
  enum Kind { Open, Save, Folder };
  struct Request {
    Kind kind;
    std::string title;
    std::vector<FileFilter> filters;
    int32_t filterIndex;  // from 1; 0 for none
    std::string initialDir;
    std::string proposed;  // a name, or a whole path
    unsigned long owner;   // the owner's X window, 0 for none
  };

  // 1 with the chosen path, 0 for a cancel, -1 when no portal offers the dialog (no session
  // bus, no portal on it, or an error of the call): then another dialog is to be shown.
  static int32_t choose(const Request& request, std::string& path);
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/types.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

// The Linux equivalents of the system's user, folder and process facts, read afresh at each call.
// A test can pin any of them so that the headless desktop answers the same on every machine.
class SystemFacts {
 public:
  struct Process {
    int32_t id = 0;
    std::string path;  // the program's full path; empty when the process cannot be opened
    std::string exeFile;
  };

  std::string userName() const;          // the effective user's login name
  std::string tempPath() const;          // $TMPDIR, else /tmp
  std::string windowsDirectory() const;  // /etc: system-wide settings
  std::string systemDirectory() const;   // /usr/lib: the system's shared libraries
  // 26: $XDG_CONFIG_HOME or ~/.config; 5: $XDG_DOCUMENTS_DIR, else ~/Documents, else home.
  std::optional<std::string> specialFolder(int32_t folder) const;
  std::vector<Process> processes() const;     // from /proc
  std::string processPath(int32_t id) const;  // empty when the process cannot be opened

  // Pinned values; an empty optional reads the system again.
  std::optional<std::string> pinnedUserName, pinnedTempPath, pinnedWindowsDirectory, pinnedSystemDirectory;
  std::optional<std::string> pinnedAppData, pinnedDocuments;
  std::optional<std::vector<Process>> pinnedProcesses;
};

}  // namespace corvane

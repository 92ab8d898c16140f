// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/platform/types.h>

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// One request to the shell, as a headless display keeps it instead of running it.
struct CORVANE_API ShellRequest {
  HWND hWnd = 0;
  std::string operation, file, parameters, directory;
  int32_t showCommand = 0;
};

// Opens a document or an address with the program the desktop associates with it. "open" runs
// the opener (xdg-open) with the file as its one argument, started directly and never through a
// shell, so nothing in the text is interpreted. Returns a value above 32 on success, as the
// system's call does (2 when the opener could not be started, 31 for another operation).
// While recording (the default, and what a headless display wants) nothing is started: the
// request is kept for tests and 42 is returned.
CORVANE_API int32_t ShellExecuteA(HWND hWnd, const std::string& operation, const std::string& file,
                                  const std::string& parameters, const std::string& directory,
                                  int32_t showCommand);

CORVANE_API void setShellRecording(bool on);
CORVANE_API bool shellRecording();
CORVANE_API const std::vector<ShellRequest>& shellRequests();
CORVANE_API void clearShellRequests();
// The program "open" starts (found on the PATH unless it holds a slash); tests put a stand-in here.
CORVANE_API void setShellOpener(const std::string& program);
// The process id of the last opener started, 0 before any; its status is collected by the caller.
CORVANE_API int32_t lastShellProcess();

}  // namespace corvane

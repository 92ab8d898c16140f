// SPDX-License-Identifier: MIT
#include <corvane/platform/shell.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

extern char** environ;

namespace corvane {

namespace {
struct ShellState {
  bool recording = true;
  std::vector<ShellRequest> requests;
  std::string opener = "xdg-open";
  int32_t lastProcess = 0;
  std::vector<pid_t> running;  // openers started and not yet collected
};
ShellState& state() {
  static ShellState s;
  return s;
}
}  // namespace

int32_t ShellExecuteA(HWND hWnd, const std::string& operation, const std::string& file,
                      const std::string& parameters, const std::string& directory, int32_t showCommand) {
  ShellState& s = state();
  if (s.recording) {
    s.requests.push_back(ShellRequest{hWnd, operation, file, parameters, directory, showCommand});
    return 42;
  }
  if (operation != "open") return 31;
  // Collects the openers that have ended, so that none stays behind as a zombie; one the caller
  // collected itself is gone as well.
  std::erase_if(s.running, [](pid_t p) {
    return waitpid(p, nullptr, WNOHANG) != 0;
  });  // no association for another verb
  // The opener and the file as two separate arguments: no shell sees the text.
  std::string program = s.opener, argument = file;
  char* argv[] = {program.data(), argument.data(), nullptr};
  pid_t pid = 0;
  int rc = program.find('/') == std::string::npos
               ? posix_spawnp(&pid, program.c_str(), nullptr, nullptr, argv, environ)
               : posix_spawn(&pid, program.c_str(), nullptr, nullptr, argv, environ);
  if (rc != 0) return 2;
  s.lastProcess = static_cast<int32_t>(pid);
  s.running.push_back(pid);
  return 42;
}

void setShellRecording(bool on) { state().recording = on; }
bool shellRecording() { return state().recording; }
const std::vector<ShellRequest>& shellRequests() { return state().requests; }
void clearShellRequests() { state().requests.clear(); }
void setShellOpener(const std::string& program) { state().opener = program; }
int32_t lastShellProcess() { return state().lastProcess; }

}  // namespace corvane

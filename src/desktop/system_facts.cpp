// SPDX-License-Identifier: MIT
#include "desktop/system_facts.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace corvane {

namespace {

std::string env(const char* name) {
  const char* v = std::getenv(name);
  return v ? std::string(v) : std::string();
}

std::string homeFolder() {
  std::string home = env("HOME");
  if (!home.empty()) return home;
  if (const passwd* pw = getpwuid(geteuid()); pw && pw->pw_dir) return pw->pw_dir;
  return {};
}

std::string readFirstLine(const std::filesystem::path& file) {
  std::ifstream in(file);
  std::string line;
  std::getline(in, line);
  return line;
}

}  // namespace

std::string SystemFacts::userName() const {
  if (pinnedUserName) return *pinnedUserName;
  if (const passwd* pw = getpwuid(geteuid()); pw && pw->pw_name) return pw->pw_name;
  std::string user = env("USER");
  return user.empty() ? env("LOGNAME") : user;
}

std::string SystemFacts::tempPath() const {
  if (pinnedTempPath) return *pinnedTempPath;
  std::string tmp = env("TMPDIR");
  return tmp.empty() ? std::string("/tmp") : tmp;
}

std::string SystemFacts::windowsDirectory() const { return pinnedWindowsDirectory.value_or("/etc"); }

std::string SystemFacts::systemDirectory() const { return pinnedSystemDirectory.value_or("/usr/lib"); }

std::optional<std::string> SystemFacts::specialFolder(int32_t folder) const {
  if (folder == CSIDL_APPDATA) {
    if (pinnedAppData) return pinnedAppData;
    std::string config = env("XDG_CONFIG_HOME");
    return config.empty() ? homeFolder() + "/.config" : config;
  }
  if (folder == CSIDL_PERSONAL) {
    if (pinnedDocuments) return pinnedDocuments;
    std::string docs = env("XDG_DOCUMENTS_DIR");
    if (!docs.empty()) return docs;
    std::error_code ec;
    std::string home = homeFolder();
    if (std::filesystem::is_directory(home + "/Documents", ec)) return home + "/Documents";
    return home;
  }
  return std::nullopt;
}

std::string SystemFacts::processPath(int32_t id) const {
  if (pinnedProcesses) {
    for (const auto& p : *pinnedProcesses)
      if (p.id == id) return p.path;
    return {};
  }
  std::error_code ec;
  const auto exe = std::filesystem::read_symlink("/proc/" + std::to_string(id) + "/exe", ec);
  return ec ? std::string() : exe.string();
}

std::vector<SystemFacts::Process> SystemFacts::processes() const {
  if (pinnedProcesses) return *pinnedProcesses;
  std::vector<Process> list;
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator("/proc", ec)) {
    const std::string name = entry.path().filename().string();
    if (name.empty() || name.find_first_not_of("0123456789") != std::string::npos) continue;
    Process p;
    p.id = std::atoi(name.c_str());
    std::error_code linkError;
    const auto exe = std::filesystem::read_symlink(entry.path() / "exe", linkError);
    if (!linkError) p.path = exe.string();  // other users' processes cannot be opened
    if (!p.path.empty()) {
      p.exeFile = exe.filename().string();
    } else {
      // For a process of another user: the program named on its command line, else the
      // kernel's name of it, which is cut to 15 characters.
      std::string argv0;
      std::ifstream cmdline(entry.path() / "cmdline", std::ios::binary);
      std::getline(cmdline, argv0, '\0');
      p.exeFile = argv0.empty() ? readFirstLine(entry.path() / "comm")
                                : std::filesystem::path(argv0).filename().string();
    }
    if (!p.exeFile.empty()) list.push_back(std::move(p));
  }
  return list;
}

}  // namespace corvane

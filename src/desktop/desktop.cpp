// SPDX-License-Identifier: MIT
#include "desktop/desktop.h"

#include <spawn.h>
#include <sys/random.h>
#include <sys/utsname.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "desktop/gdi.h"
#include <corvane/runtime/runtime_error.h>

extern char** environ;

namespace corvane {

namespace {

std::string executableFolder() {
  std::error_code ec;
  auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::string(".") : exe.parent_path().string();
}

std::string executableName() {
  std::error_code ec;
  auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::string("corvane") : exe.stem().string();
}

// The version facts of this system: the kernel's release numbers stand in the version fields,
// in the family of the newer systems (platform 2).
OSVERSIONINFO systemVersion() {
  OSVERSIONINFO v;
  v.dwPlatformId = 2;
  utsname u{};
  if (uname(&u) == 0) {
    int major = 0, minor = 0, patch = 0;
    std::sscanf(u.release, "%d.%d.%d", &major, &minor, &patch);
    v.dwMajorVersion = major;
    v.dwMinorVersion = minor;
    v.dwBuildNumber = patch;
    v.szCSDVersion = u.version;
  }
  return v;
}

}  // namespace

Desktop::Desktop() : Desktop(Options{}) {}

Desktop::Desktop(Options options)
    : m_options(options),
      m_clock(options.virtualClock),
      m_windows(options.makeWindows ? options.makeWindows(m_clock, options.width, options.height)
                                    : std::make_unique<WindowManager>(m_clock, options.width, options.height)),
      m_gdi(std::make_unique<DesktopGdi>(*m_windows)),
      m_composer(std::make_unique<ScreenComposer>(*m_windows)),
      m_registry(std::make_unique<DesktopRegistry>(*m_gdi)),
      m_appPath(executableFolder()),
      m_appName(executableName()),
      m_version(systemVersion()) {
  m_windows->setScreenCanvas([this] { return &screenCanvas(); });
  m_windows->setRegionSource([this](HRGN r) { return m_gdi->regionRects(r); },
                             [this](HRGN r) { m_gdi->DeleteObject(r); });
  m_windows->setSystemColours([this](int32_t index) { return m_gdi->GetSysColor(index); });
  setTwipsPerPixel(options.twipsPerPixelX, options.twipsPerPixelY);
  m_registry->useFile(options.registryFile);
  m_dialogs = options.makeDialogs ? options.makeDialogs(*m_windows) : std::make_unique<ScriptedDialogs>();
}

ScriptedDialogs& Desktop::scriptedDialogs() {
  auto* scripted = dynamic_cast<ScriptedDialogs*>(m_dialogs.get());
  if (!scripted) throw RuntimeError(err::InvalidProcedureCall, "This desktop shows real dialogs", "corvane");
  return *scripted;
}

// Windows still open at the end are dropped without messages: their owners may be gone already.
Desktop::~Desktop() = default;

GdiApi& Desktop::gdi() { return *m_gdi; }

void Desktop::setTwipsPerPixel(int32_t x, int32_t y) {
  m_options.twipsPerPixelX = x;
  m_options.twipsPerPixelY = y;
  m_gdi->setPixelsPerInch(1440 / x, 1440 / y);
}

int32_t Desktop::liveDrawingObjects() const { return m_gdi->liveObjectCount(); }

void Desktop::click(int32_t x, int32_t y) {
  mouseMove(x, y);
  mouseDown(1);
  mouseUp(1);
}

void Desktop::doubleClick(int32_t x, int32_t y) {
  click(x, y);
  advance(50);
  mouseDown(1);
  mouseUp(1);
}

Canvas& Desktop::screenCanvas() {
  // The screen image is made when first used: a program that never looks at the whole screen or
  // draws on it keeps its 8 MB.
  if (!m_screen) m_screen = std::make_unique<Canvas>(m_options.width, m_options.height, m_options.desktopColour);
  return *m_screen;
}

Canvas& Desktop::screen() {
  Canvas& image = screenCanvas();
  m_composer->update(image, m_options.desktopColour);
  return image;
}

bool Desktop::savePng(const std::string& path) {
  std::error_code ec;
  auto parent = std::filesystem::path(path).parent_path();
  if (!parent.empty()) std::filesystem::create_directories(parent, ec);
  return cairo_surface_write_to_png(screen().readSurface(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}

bool Desktop::saveWindowPng(HWND hWnd, const std::string& path) {
  RECT r;
  if (!m_windows->GetWindowRect(hWnd, r)) return false;
  // Only the windows over this rectangle are composed, not the whole screen.
  Canvas part(r.Right - r.Left, r.Bottom - r.Top, 0);
  if (!m_composer->composePart(r, m_options.width, m_options.height, m_options.desktopColour, part)) return false;
  std::error_code ec;
  auto parent = std::filesystem::path(path).parent_path();
  if (!parent.empty()) std::filesystem::create_directories(parent, ec);
  return cairo_surface_write_to_png(part.readSurface(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}

bool Desktop::GetVersionExA(OSVERSIONINFO& info) {
  info = m_version;
  return true;
}

// There are no short names here: the short form of an existing path is its canonical form.
int32_t Desktop::GetShortPathNameA(const std::string& longPath, std::string& shortPath, int32_t bufferSize) {
  std::error_code ec;
  auto canon = std::filesystem::canonical(longPath, ec);
  if (ec) return 0;
  std::string s = canon.string();
  if (static_cast<int32_t>(s.size()) >= bufferSize) return static_cast<int32_t>(s.size()) + 1;
  shortPath = s;
  return static_cast<int32_t>(s.size());
}

// Plays asynchronously through the system's sound player where audio output is switched on;
// a missing file or player is no error. Every request is recorded.
bool Desktop::sndPlaySoundA(const std::string& path, int32_t) {
  m_sounds.push_back(path);
  std::string native = path;  // the library writes paths with backslashes
  std::replace(native.begin(), native.end(), '\\', '/');
  if (!m_soundOutput || !std::filesystem::exists(native)) return true;
  for (const char* player : {"/usr/bin/paplay", "/usr/bin/aplay"}) {
    if (access(player, X_OK) != 0) continue;
    pid_t pid;
    std::string p = native;
    char* argv[] = {const_cast<char*>(player), p.data(), nullptr};
    if (posix_spawn(&pid, player, nullptr, nullptr, argv, environ) == 0) {
      // Reap the child in the background so that no zombie is left.
      std::thread([pid] { int st; waitpid(pid, &st, 0); }).detach();
    }
    break;
  }
  return true;
}

namespace {
// A fixed buffer of `size` characters holds size - 1 of them and the terminator.
int32_t fit(const std::string& text, int32_t size, std::string& out) {
  if (size <= 0) return 0;
  out = text.substr(0, static_cast<size_t>(size - 1));
  return static_cast<int32_t>(out.size());
}
}  // namespace

bool Desktop::GetUserNameA(std::string& name, int32_t size) {
  std::string user = m_facts.userName();
  if (user.empty()) return false;
  fit(user, size, name);
  return true;
}

int32_t Desktop::GetTempPathA(int32_t size, std::string& path) { return fit(m_facts.tempPath(), size, path); }

int32_t Desktop::GetWindowsDirectoryA(std::string& path, int32_t size) {
  return fit(m_facts.windowsDirectory(), size, path);
}

int32_t Desktop::GetSystemDirectoryA(std::string& path, int32_t size) {
  return fit(m_facts.systemDirectory(), size, path);
}

bool Desktop::SHGetSpecialFolderPathA(int32_t folder, std::string& path) {
  auto found = m_facts.specialFolder(folder);
  if (!found) return false;
  path = *found;
  return true;
}

// Sixteen bytes of the kernel's random source, marked as version 4, variant 1.
bool Desktop::CoCreateGuid(GUID& guid) {
  uint8_t b[16];
  size_t got = 0;
  while (got < sizeof b) {
    ssize_t n = getrandom(b + got, sizeof b - got, 0);
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    got += static_cast<size_t>(n);
  }
  b[6] = static_cast<uint8_t>((b[6] & 0x0F) | 0x40);
  b[8] = static_cast<uint8_t>((b[8] & 0x3F) | 0x80);
  guid.Data1 = (uint32_t(b[0]) << 24) | (uint32_t(b[1]) << 16) | (uint32_t(b[2]) << 8) | b[3];
  guid.Data2 = static_cast<uint16_t>((b[4] << 8) | b[5]);
  guid.Data3 = static_cast<uint16_t>((b[6] << 8) | b[7]);
  std::copy(b + 8, b + 16, guid.Data4);
  return true;
}

std::vector<int32_t> Desktop::EnumProcesses() {
  std::vector<int32_t> ids;
  for (const auto& p : m_facts.processes()) ids.push_back(p.id);
  return ids;
}

int32_t Desktop::GetModuleFileNameExA(int32_t processId, std::string& path, int32_t size) {
  std::string found = m_facts.processPath(processId);
  return found.empty() ? 0 : fit(found, size, path);
}

std::vector<PROCESSENTRY32> Desktop::CreateToolhelp32Snapshot() {
  std::vector<PROCESSENTRY32> list;
  for (const auto& p : m_facts.processes()) list.push_back({p.id, p.exeFile});
  return list;
}

}  // namespace corvane

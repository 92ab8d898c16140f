// SPDX-License-Identifier: MIT
#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/canvas.h"
#include "desktop/clock.h"
#include "desktop/system_facts.h"
#include "desktop/desktop_registry.h"
#include "desktop/screen_composer.h"
#include "desktop/scripted_dialogs.h"
#include "desktop/window_manager.h"
#include <corvane/platform/platform.h>

namespace corvane {

class DesktopGdi;

// The built-in platform: windows, drawing and system services in process, on a screen image that
// can be saved as PNG or shown by a viewer. With a virtual clock it is fully deterministic.
class Desktop : public Platform, public SystemApi {
 public:
  struct Options {
    int32_t width = 1024;
    int32_t height = 768;
    bool virtualClock = true;
    int32_t twipsPerPixelX = 15;
    int32_t twipsPerPixelY = 15;
    COLORREF desktopColour = 0xA56E3A;  // the classic blue-grey desktop
    std::string registryFile = {};      // the settings store's file; empty keeps it in memory
    // Makes the window side; empty gives the in-process one. A live display brings its own.
    std::function<std::unique_ptr<WindowManager>(Clock&, int32_t width, int32_t height)> makeWindows = {};
    // Makes the common dialogs; empty gives the scripted ones. A live display brings its own.
    std::function<std::unique_ptr<DialogApi>(WindowManager&)> makeDialogs = {};
  };

  Desktop();
  explicit Desktop(Options options);
  ~Desktop() override;

  GdiApi& gdi() override;
  UserApi& user() override { return *m_windows; }
  SystemApi& system() override { return *this; }
  DesktopRegistry& registry() override { return *m_registry; }
  DialogApi& dialogs() override { return *m_dialogs; }
  // The scripted dialogs of a headless desktop; a RuntimeError on a desktop with real dialogs.
  ScriptedDialogs& scriptedDialogs();

  WindowManager& windows() { return *m_windows; }
  DesktopGdi& drawing() { return *m_gdi; }
  Clock& clock() { return m_clock; }

  int32_t twipsPerPixelX() const { return m_options.twipsPerPixelX; }
  int32_t twipsPerPixelY() const { return m_options.twipsPerPixelY; }
  void setTwipsPerPixel(int32_t x, int32_t y);

  // Drawing objects alive (pens, brushes, fonts, regions, bitmaps made by Create... calls).
  int32_t liveDrawingObjects() const;

  // Synthetic input and time, forwarded to the window side.
  void mouseMove(int32_t x, int32_t y) { m_windows->mouseMove(x, y); }
  void mouseDown(int32_t button = 1) { m_windows->mouseDown(button); }
  void mouseUp(int32_t button = 1) { m_windows->mouseUp(button); }
  void click(int32_t x, int32_t y);        // move, press and release the left button
  void doubleClick(int32_t x, int32_t y);  // two clicks within the double-click time
  void advance(int64_t ms) { m_windows->advance(ms); }

  // The composed screen, brought up to date from the windows that changed.
  Canvas& screen();
  bool screenMade() const { return m_screen != nullptr; }  // the screen image exists (made on first use)
  // Windows composed into an image so far (the screen or a saved window's part), for tests.
  uint64_t windowsComposed() const { return m_windows->windowsComposed(); }
  // Saves the screen, or the part a window covers, as PNG; false on failure.
  bool savePng(const std::string& path);
  bool saveWindowPng(HWND hWnd, const std::string& path);

  // SystemApi.
  bool GetVersionExA(OSVERSIONINFO& info) override;
  int32_t GetShortPathNameA(const std::string& longPath, std::string& shortPath, int32_t bufferSize) override;
  bool sndPlaySoundA(const std::string& path, int32_t flags) override;
  std::string applicationPath() override { return m_appPath; }
  std::string applicationName() override { return m_appName; }
  bool GetUserNameA(std::string& name, int32_t size) override;
  int32_t GetTempPathA(int32_t size, std::string& path) override;
  int32_t GetWindowsDirectoryA(std::string& path, int32_t size) override;
  int32_t GetSystemDirectoryA(std::string& path, int32_t size) override;
  bool SHGetSpecialFolderPathA(int32_t folder, std::string& path) override;
  bool CoCreateGuid(GUID& guid) override;
  std::vector<int32_t> EnumProcesses() override;
  int32_t GetModuleFileNameExA(int32_t processId, std::string& path, int32_t size) override;
  std::vector<PROCESSENTRY32> CreateToolhelp32Snapshot() override;

  // Test and host settings of the system facts.
  void setApplicationPath(const std::string& path) { m_appPath = path; }
  void setApplicationName(const std::string& name) { m_appName = name; }
  void setVersion(const OSVERSIONINFO& info) { m_version = info; }
  const std::vector<std::string>& soundsPlayed() const { return m_sounds; }
  void setSoundOutput(bool on) { m_soundOutput = on; }  // real audio output where a player exists
  // The user, folders and processes, which a test can pin.
  SystemFacts& systemFacts() { return m_facts; }
  void setMonitors(int32_t count, int32_t virtualWidth, int32_t virtualHeight) {
    m_windows->setMonitors(count, virtualWidth, virtualHeight);
  }

 private:
  Canvas& screenCanvas();  // the screen image, made on first use, not brought up to date
  Options m_options;
  Clock m_clock;
  std::unique_ptr<WindowManager> m_windows;
  std::unique_ptr<DesktopGdi> m_gdi;
  std::unique_ptr<Canvas> m_screen;
  std::unique_ptr<ScreenComposer> m_composer;
  std::unique_ptr<DesktopRegistry> m_registry;
  std::string m_appPath, m_appName;
  OSVERSIONINFO m_version;
  std::vector<std::string> m_sounds;
  bool m_soundOutput = false;
  SystemFacts m_facts;
  std::unique_ptr<DialogApi> m_dialogs;
};

}  // namespace corvane

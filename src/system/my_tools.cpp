// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/strings.h>
#include <corvane/system/my_tools.h>

#include <cstdio>
#include <cstdlib>

namespace corvane {

namespace {

// The text before the first NUL, as a fixed buffer is read.
std::string cutAtNul(const std::string& s) { return s.substr(0, s.find('\0')); }

std::string withTrailingBackslash(const std::string& s) { return Right(s, 1) == "\\" ? s : s + "\\"; }

// The platform's paths written with the library's separator, so that "\" + name finds a file
// name on a system that separates with "/".
std::string librarySeparators(std::string path) {
  for (char& ch : path)
    if (ch == '/') ch = '\\';
  return path;
}

// The platform's text form of an identifier: braces, dashes, upper-case digits.
std::string StringFromGUID(const GUID& g) {
  char text[39];
  std::snprintf(text, sizeof text, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", g.Data1, g.Data2,
                g.Data3, g.Data4[0], g.Data4[1], g.Data4[2], g.Data4[3], g.Data4[4], g.Data4[5], g.Data4[6],
                g.Data4[7]);
  return text;
}

int32_t screenCaps(int32_t index) {
  HDC hdc = gdi().GetDC(0);
  int32_t value = gdi().GetDeviceCaps(hdc, index);
  gdi().ReleaseDC(0, hdc);
  return value;
}

}  // namespace

std::string cMyTools::MakeMultiGUIDPur(int32_t iLen) {
  if (iLen > kMaxMultiGUIDDigits) throw RuntimeError(err::OutOfMemory);
  const int32_t n = CLng(iLen / 32.0);
  std::string digits;
  if (n >= 0) digits.reserve(static_cast<size_t>(n + 1) * 36);
  for (int32_t i = 0; i <= n; ++i) digits += Mid(MakeGUID(), 2, 36);
  return Left(Replace(digits, "-", ""), iLen);
}

int32_t cMyTools::MonitoreAnzahl() { return user().GetSystemMetrics(SM_CMONITORS); }

int32_t cMyTools::MonitoreFullWidth() {
  if (MonitoreAnzahl() > 1)
    return CLng(double(user().GetSystemMetrics(SM_CXVIRTUALSCREEN)) * Screen::instance().TwipsPerPixelX());
  return ScreenWidth();
}

int32_t cMyTools::MonitoreFullHeight() {
  if (MonitoreAnzahl() > 1)
    return CLng(double(user().GetSystemMetrics(SM_CYVIRTUALSCREEN)) * Screen::instance().TwipsPerPixelY());
  return ScreenHeight();
}

std::string cMyTools::OSVer_PlattFormID_Major_Minor_Build() { return Global::OSVersionText(); }

int32_t cMyTools::ScreenHeight() {
  return CLng(double(screenCaps(VERTRES)) * Screen::instance().TwipsPerPixelY());
}

int32_t cMyTools::ScreenWidth() {
  return CLng(double(screenCaps(HORZRES)) * Screen::instance().TwipsPerPixelX());
}

std::string cMyTools::specialFolder(int32_t folder) {
  std::string path;
  if (!sys().SHGetSpecialFolderPathA(folder, path)) path.clear();
  path = Trim(cutAtNul(Left(path, 512)));
  return withTrailingBackslash(path);
}

std::string cMyTools::GetAppDataFolder() { return specialFolder(CSIDL_APPDATA); }

std::string cMyTools::GetEigeneDateienFolder() { return specialFolder(CSIDL_PERSONAL); }

std::string cMyTools::MakeGUID() {
  GUID g;
  if (!sys().CoCreateGuid(g)) g = GUID{};
  return StringFromGUID(g);
}

std::string cMyTools::MakeGUIDPur() { return Replace(Mid(MakeGUID(), 2, 36), "-", ""); }

bool cMyTools::IsEXERunning(const std::string& sFileName) {
  const std::string name = LCase(sFileName);
  if (OSVersion() == "NT") {
    const std::string tail = "\\" + name;
    for (int32_t id : sys().EnumProcesses()) {
      std::string path;
      const int32_t n = sys().GetModuleFileNameExA(id, path, 260);
      if (n <= 0) continue;  // a process that cannot be opened is passed over
      const std::string lower = LCase(librarySeparators(Left(path, n)));
      if (lower.size() >= tail.size() && lower.compare(lower.size() - tail.size(), tail.size(), tail) == 0)
        return true;
    }
    return false;
  }
  for (const PROCESSENTRY32& p : sys().CreateToolhelp32Snapshot())
    if (LCase(cutAtNul(p.szExeFile)) == name) return true;
  return false;
}

void cMyTools::setGlobalSound(glSound value) {
  m_GlobalSound = value;
  if (value == SndAN)
    Global::setSoundOn(true);
  else if (value == SndAUS)
    Global::setSoundOn(false);
}

std::string cMyTools::OSVersion() { return Global::OSName(); }

std::string cMyTools::WinUserName() {
  std::string name;
  guarded([&] {
    std::string buffer;
    if (sys().GetUserNameA(buffer, 255)) name = cutAtNul(buffer);
  });
  return name;
}

std::string cMyTools::GetTempDir() {
  std::string path;
  guarded([&] {
    std::string buffer;
    const int32_t n = sys().GetTempPathA(255, buffer);
    path = Left(buffer, std::max(n, 0));
  });
  guarded([&] {
    if (path.empty())
      if (const char* temp = std::getenv("Temp")) path = temp;
  });
  guarded([&] { path = withTrailingBackslash(path); });
  return path;
}

std::string cMyTools::GetWinDir() {
  std::string path;
  guarded([&] {
    std::string buffer;
    const int32_t n = sys().GetWindowsDirectoryA(buffer, 260);
    if (n > 0) path = Left(buffer, n) + "\\";
  });
  return path;
}

std::string cMyTools::GetSysDir() {
  std::string path;
  guarded([&] {
    std::string buffer;
    const int32_t n = sys().GetSystemDirectoryA(buffer, 260);
    if (n > 0) path = Left(buffer, n) + "\\";
  });
  return path;
}

// An empty path, not a missing one: the file is looked for in the application's folder.
void cMyTools::PlayWavSound(const std::string& WavDatei) { Global::PlayWav(WavDatei, true, std::string()); }

const Dispatch* cMyTools::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    auto arg = [](Dispatch::Args& a, size_t i) -> Variant& {
      if (a.size() <= i) throw RuntimeError(449, "Argument not optional");
      return a[i];
    };
    DispatchBuilder<cMyTools>(t)
        .method("MakeMultiGUIDPur",
                [arg](cMyTools& m, Dispatch::Args& a) { return m.MakeMultiGUIDPur(arg(a, 0).toLong()); })
        .method("MonitoreFullHeight", [](cMyTools& m, Dispatch::Args&) { return m.MonitoreFullHeight(); })
        .method("MonitoreAnzahl", [](cMyTools& m, Dispatch::Args&) { return m.MonitoreAnzahl(); })
        .method("OSVer_PlattFormID_Major_Minor_Build",
                [](cMyTools& m, Dispatch::Args&) { return m.OSVer_PlattFormID_Major_Minor_Build(); })
        .get("ScreenHeight", &cMyTools::ScreenHeight)
        .method("MonitoreFullWidth", [](cMyTools& m, Dispatch::Args&) { return m.MonitoreFullWidth(); })
        .get("ScreenWidth", &cMyTools::ScreenWidth)
        .method("GetAppDataFolder", [](cMyTools& m, Dispatch::Args&) { return m.GetAppDataFolder(); })
        .method("GetEigeneDateienFolder",
                [](cMyTools& m, Dispatch::Args&) { return m.GetEigeneDateienFolder(); })
        .method("MakeGUID", [](cMyTools& m, Dispatch::Args&) { return m.MakeGUID(); })
        .method("MakeGUIDPur", [](cMyTools& m, Dispatch::Args&) { return m.MakeGUIDPur(); })
        .method("IsEXERunning",
                [arg](cMyTools& m, Dispatch::Args& a) { return m.IsEXERunning(arg(a, 0).toString()); })
        .get("GlobalSound", &cMyTools::GlobalSound)
        .let("GlobalSound",
             [](cMyTools& m, const Variant& v) { m.setGlobalSound(static_cast<glSound>(v.toLong())); })
        .method("OSVersion", [](cMyTools& m, Dispatch::Args&) { return m.OSVersion(); })
        .get("WinUserName", &cMyTools::WinUserName)
        .method("GetTempDir", [](cMyTools& m, Dispatch::Args&) { return m.GetTempDir(); })
        .method("GetWinDir", [](cMyTools& m, Dispatch::Args&) { return m.GetWinDir(); })
        .method("GetSysDir", [](cMyTools& m, Dispatch::Args&) { return m.GetSysDir(); })
        .method("PlayWavSound",
                [arg](cMyTools& m, Dispatch::Args& a) { m.PlayWavSound(arg(a, 0).toString()); });
    return t;
  }();
  return &d;
}

}  // namespace corvane

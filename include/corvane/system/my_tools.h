// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <string>

namespace corvane {

// The library-wide sound switch as cMyTools.GlobalSound sets it.
enum glSound : int32_t { SndAN = 1, SndAUS = 2 };

// Sound kinds, a set of constants for hosts; no member of the library takes one.
enum SndTyp : int32_t {
  sndButtonClick = 0,
  sndFrameSize = 1,
  sndShowAlert = 2,
  sndFadeAlert = 3,
  sndWavSound = 99
};

// Unrelated system facts and small services: screen and monitor sizes, special folders, fresh
// identifiers, a process check, the system's version and the library's sound switch. Folders end
// in the library's path separator "\". Only the sound switch holds state.
class CORVANE_API cMyTools : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "cMyTools"; }

  // iLen hexadecimal digits of fresh identifiers. A negative iLen is error 5; more than
  // kMaxMultiGUIDDigits is error 7, as no string of that size is wanted.
  std::string MakeMultiGUIDPur(int32_t iLen);
  static constexpr int32_t kMaxMultiGUIDDigits = 1 << 26;

  // Twips. With more than one monitor the box over all of them, else the screen.
  int32_t MonitoreFullHeight();
  int32_t MonitoreFullWidth();
  int32_t MonitoreAnzahl();
  // Platform, major, minor and build joined by "|".
  std::string OSVer_PlattFormID_Major_Minor_Build();
  int32_t ScreenHeight();
  int32_t ScreenWidth();
  std::string GetAppDataFolder();
  std::string GetEigeneDateienFolder();
  // "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}", upper case.
  std::string MakeGUID();
  // The 32 digits of a new identifier, without braces and dashes.
  std::string MakeGUIDPur();
  // Whether a process of that program runs; the name is compared without regard to case.
  bool IsEXERunning(const std::string& sFileName);
  // What this object was told, 0 until then; 1 turns the library's sound on, 2 off, and any other
  // value is kept without changing the switch.
  glSound GlobalSound() const { return m_GlobalSound; }
  void setGlobalSound(glSound value);
  // The version word of the system ("NT", "XP", "Vista", ... "Failed").
  std::string OSVersion();
  std::string WinUserName();
  std::string GetTempDir();
  std::string GetWinDir();
  std::string GetSysDir();
  // Plays a wave file; a name without a drive is looked for in the application's folder.
  void PlayWavSound(const std::string& WavDatei);

 protected:
  const Dispatch* dispatch() const override;

 private:
  std::string specialFolder(int32_t folder);

  glSound m_GlobalSound = static_cast<glSound>(0);
};

}  // namespace corvane

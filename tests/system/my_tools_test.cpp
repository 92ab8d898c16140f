// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/system/my_tools.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <regex>
#include <set>

#include "runtime/expect_error.h"
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

// Sets an environment variable for one test and restores it afterwards.
class EnvVar {
 public:
  EnvVar(const char* name, const char* value) : m_name(name) {
    if (const char* old = std::getenv(name)) m_old = old;
    if (value)
      setenv(name, value, 1);
    else
      unsetenv(name);
  }
  ~EnvVar() {
    if (m_old)
      setenv(m_name, m_old->c_str(), 1);
    else
      unsetenv(m_name);
  }

 private:
  const char* m_name;
  std::optional<std::string> m_old;
};

class MyToolsTest : public test::DesktopTest {
 protected:
  void TearDown() override {
    Global::setSoundOn(true);
    test::DesktopTest::TearDown();
  }
  void setVersion(int platformId, int major, int minor, int build = 0) {
    OSVERSIONINFO v;
    v.dwPlatformId = platformId;
    v.dwMajorVersion = major;
    v.dwMinorVersion = minor;
    v.dwBuildNumber = build;
    desktop().setVersion(v);
  }
  SystemFacts& facts() { return desktop().systemFacts(); }
  cMyTools tools;
};

bool isHex(const std::string& s) { return s.find_first_not_of("0123456789ABCDEF") == std::string::npos; }

TEST_F(MyToolsTest, MakeMultiGUIDPurGivesTheAskedNumberOfDigits) {
  for (int32_t n : {10, 100, 0, 1, 16, 32, 47, 48, 80, 1000}) {
    const std::string digits = tools.MakeMultiGUIDPur(n);
    EXPECT_EQ(digits.size(), static_cast<size_t>(n)) << n;
    EXPECT_TRUE(isHex(digits)) << digits;
  }
  EXPECT_NE(tools.MakeMultiGUIDPur(100), tools.MakeMultiGUIDPur(100));
}

TEST_F(MyToolsTest, MakeMultiGUIDPurOfANegativeLengthIsError5AndAHugeOneError7) {
  EXPECT_RUNTIME_ERROR(tools.MakeMultiGUIDPur(-1), 5);
  EXPECT_RUNTIME_ERROR(tools.MakeMultiGUIDPur(cMyTools::kMaxMultiGUIDDigits + 1), 7);
}

TEST_F(MyToolsTest, MakeGUIDIsAFreshVersion4IdentifierInBraces) {
  const std::regex form(R"(\{[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\})");
  std::set<std::string> seen;
  for (int i = 0; i < 200; ++i) {
    const std::string g = tools.MakeGUID();
    EXPECT_TRUE(std::regex_match(g, form)) << g;
    seen.insert(g);
  }
  EXPECT_EQ(seen.size(), 200u);
}

TEST_F(MyToolsTest, MakeGUIDPurIsThe32DigitsWithoutBracesAndDashes) {
  const std::string g = tools.MakeGUIDPur();
  ASSERT_EQ(g.size(), 32u);
  EXPECT_TRUE(isHex(g));
  EXPECT_EQ(g[12], '4');  // the version digit
  EXPECT_NE(tools.MakeGUIDPur(), g);
}

TEST_F(MyToolsTest, ScreenSizeIsThePixelsTimesTwipsPerPixel) {
  EXPECT_EQ(tools.ScreenWidth(), 1024 * 15);
  EXPECT_EQ(tools.ScreenHeight(), 768 * 15);
  desktop().setTwipsPerPixel(12, 10);
  EXPECT_EQ(tools.ScreenWidth(), 1024 * 12);
  EXPECT_EQ(tools.ScreenHeight(), 768 * 10);
}

TEST_F(MyToolsTest, WithOneMonitorTheFullSizeIsTheScreen) {
  EXPECT_EQ(tools.MonitoreAnzahl(), 1);
  desktop().setMonitors(1, 3000, 2000);  // a box of one monitor is not read
  EXPECT_EQ(tools.MonitoreFullWidth(), tools.ScreenWidth());
  EXPECT_EQ(tools.MonitoreFullHeight(), tools.ScreenHeight());
}

TEST_F(MyToolsTest, WithTwoMonitorsTheFullSizeIsTheBoxOverAll) {
  desktop().setMonitors(2, 2304, 1024);
  desktop().setTwipsPerPixel(15, 12);
  EXPECT_EQ(tools.MonitoreAnzahl(), 2);
  EXPECT_EQ(tools.MonitoreFullWidth(), 2304 * 15);
  EXPECT_EQ(tools.MonitoreFullHeight(), 1024 * 12);
  EXPECT_EQ(tools.ScreenWidth(), 1024 * 15);
}

TEST_F(MyToolsTest, VersionTextAndVersionWord) {
  setVersion(2, 6, 1, 7601);
  EXPECT_EQ(tools.OSVer_PlattFormID_Major_Minor_Build(), "2|6|1|7601");
  EXPECT_EQ(tools.OSVersion(), "Vista");  // 6.1 counts as "Vista"
  setVersion(2, 7, 0);
  EXPECT_EQ(tools.OSVersion(), "W7");
  setVersion(2, 5, 1);
  EXPECT_EQ(tools.OSVersion(), "XP");
  setVersion(2, 10, 0);
  EXPECT_EQ(tools.OSVersion(), "Failed");
}

TEST_F(MyToolsTest, SpecialFoldersAreCutTrimmedAndEndInABackslash) {
  facts().pinnedAppData = "  /home/anna/.config  ";
  EXPECT_EQ(tools.GetAppDataFolder(), "/home/anna/.config\\");
  facts().pinnedAppData = std::string("/a\0/b", 5);
  EXPECT_EQ(tools.GetAppDataFolder(), "/a\\");
  facts().pinnedDocuments = "D:\\Eigene Dateien\\";
  EXPECT_EQ(tools.GetEigeneDateienFolder(), "D:\\Eigene Dateien\\");
  facts().pinnedDocuments = "";
  EXPECT_EQ(tools.GetEigeneDateienFolder(), "\\");
  facts().pinnedAppData = std::string(600, 'x');
  EXPECT_EQ(tools.GetAppDataFolder(), std::string(512, 'x') + "\\");
}

TEST_F(MyToolsTest, SpecialFoldersOfTheSystemFollowXdg) {
  EnvVar config("XDG_CONFIG_HOME", "/srv/conf");
  EnvVar docs("XDG_DOCUMENTS_DIR", "/srv/docs");
  EXPECT_EQ(tools.GetAppDataFolder(), "/srv/conf\\");
  EXPECT_EQ(tools.GetEigeneDateienFolder(), "/srv/docs\\");
  EnvVar noConfig("XDG_CONFIG_HOME", nullptr);
  EnvVar home("HOME", "/home/anna");
  EXPECT_EQ(tools.GetAppDataFolder(), "/home/anna/.config\\");
}

TEST_F(MyToolsTest, IsEXERunningIgnoresCase) {
  facts().pinnedProcesses =
      std::vector<SystemFacts::Process>{{10, "/usr/bin/Gedit", "Gedit"}, {11, "", "Secret"}};
  setVersion(2, 7, 0);  // a snapshot of program names
  EXPECT_TRUE(tools.IsEXERunning("gedit"));
  EXPECT_TRUE(tools.IsEXERunning("GEDIT"));
  EXPECT_TRUE(tools.IsEXERunning("secret"));
  EXPECT_FALSE(tools.IsEXERunning("ged"));
  EXPECT_FALSE(tools.IsEXERunning("bin/gedit"));
  EXPECT_FALSE(tools.IsEXERunning(""));
  setVersion(2, 4, 0);  // "NT": the paths of the processes it can open
  EXPECT_TRUE(tools.IsEXERunning("gEdIt"));
  EXPECT_TRUE(tools.IsEXERunning("BIN\\GEDIT"));
  EXPECT_FALSE(tools.IsEXERunning("edit"));
  EXPECT_FALSE(tools.IsEXERunning("secret"));  // that process cannot be opened
}

TEST_F(MyToolsTest, IsEXERunningFindsThisProgramInProc) {
  char exe[4096] = {};
  ASSERT_GT(readlink("/proc/self/exe", exe, sizeof exe - 1), 0);
  const std::string name = std::string(exe).substr(std::string(exe).rfind('/') + 1);
  setVersion(2, 6, 0);
  EXPECT_TRUE(tools.IsEXERunning(name));
  setVersion(2, 4, 0);
  EXPECT_TRUE(tools.IsEXERunning(name));
  EXPECT_FALSE(tools.IsEXERunning("no-such-program-corvane"));
}

TEST_F(MyToolsTest, ANewObjectsGlobalSoundReadsZeroEvenWhileSoundIsOff) {
  tools.setGlobalSound(SndAUS);
  EXPECT_FALSE(Global::soundOn());
  cMyTools fresh;
  EXPECT_EQ(fresh.GlobalSound(), 0);
  EXPECT_EQ(tools.GlobalSound(), SndAUS);
}

TEST_F(MyToolsTest, GlobalSoundSwitchesTheLibrarysSound) {
  tools.setGlobalSound(SndAUS);
  tools.PlayWavSound("ding.wav");
  EXPECT_TRUE(desktop().soundsPlayed().empty());
  tools.setGlobalSound(SndAN);
  EXPECT_TRUE(Global::soundOn());
  tools.PlayWavSound("ding.wav");
  ASSERT_EQ(desktop().soundsPlayed().size(), 1u);
  // An empty path, not a missing one: the application's folder and two backslashes.
  EXPECT_EQ(desktop().soundsPlayed()[0], desktop().applicationPath() + "\\\\ding.wav");
  tools.PlayWavSound("C:\\Media\\tada.wav");
  EXPECT_EQ(desktop().soundsPlayed().back(), "C:\\Media\\tada.wav");
}

TEST_F(MyToolsTest, OtherGlobalSoundValuesAreKeptWithoutSwitching) {
  tools.setGlobalSound(SndAUS);
  tools.setGlobalSound(static_cast<glSound>(7));
  EXPECT_EQ(tools.GlobalSound(), 7);
  EXPECT_FALSE(Global::soundOn());
  tools.setGlobalSound(static_cast<glSound>(0));
  EXPECT_FALSE(Global::soundOn());
}

TEST_F(MyToolsTest, WinUserName) {
  const passwd* pw = getpwuid(geteuid());
  ASSERT_NE(pw, nullptr);
  EXPECT_EQ(tools.WinUserName(), pw->pw_name);
  facts().pinnedUserName = std::string("bob\0xx", 6);
  EXPECT_EQ(tools.WinUserName(), "bob");
  facts().pinnedUserName = std::string(300, 'u');
  EXPECT_EQ(tools.WinUserName(), std::string(254, 'u'));
  facts().pinnedUserName = "";
  EXPECT_EQ(tools.WinUserName(), "");
}

TEST_F(MyToolsTest, GetTempDirFallsBackToTheTempVariable) {
  {
    EnvVar tmpdir("TMPDIR", "/var/tmp");
    EXPECT_EQ(tools.GetTempDir(), "/var/tmp\\");
  }
  {
    EnvVar tmpdir("TMPDIR", nullptr);
    EXPECT_EQ(tools.GetTempDir(), "/tmp\\");
  }
  facts().pinnedTempPath = "C:\\Temp\\";
  EXPECT_EQ(tools.GetTempDir(), "C:\\Temp\\");
  facts().pinnedTempPath = "";
  {
    EnvVar temp("Temp", "/scratch");
    EXPECT_EQ(tools.GetTempDir(), "/scratch\\");
  }
  EnvVar noTemp("Temp", nullptr);
  EXPECT_EQ(tools.GetTempDir(), "\\");
}

TEST_F(MyToolsTest, WindowsAndSystemFolders) {
  EXPECT_EQ(tools.GetWinDir(), "/etc\\");
  EXPECT_EQ(tools.GetSysDir(), "/usr/lib\\");
  facts().pinnedWindowsDirectory = "";
  facts().pinnedSystemDirectory = "";
  EXPECT_EQ(tools.GetWinDir(), "");
  EXPECT_EQ(tools.GetSysDir(), "");
}

TEST_F(MyToolsTest, SoundKindConstants) {
  EXPECT_EQ(sndButtonClick, 0);
  EXPECT_EQ(sndFrameSize, 1);
  EXPECT_EQ(sndShowAlert, 2);
  EXPECT_EQ(sndFadeAlert, 3);
  EXPECT_EQ(sndWavSound, 99);
  EXPECT_EQ(SndAN, 1);
  EXPECT_EQ(SndAUS, 2);
}

TEST_F(MyToolsTest, CreatedByNameAndIdentifierAndCalledByName) {
  ObjectRef byId = ClassRegistry::instance().createById("16B05484-F9D2-448D-881E-8605B468EB10");
  ASSERT_TRUE(byId);
  EXPECT_EQ(byId->typeName(), "cMyTools");
  ObjectRef t = ClassRegistry::instance().create("cmytools");
  facts().pinnedUserName = "anna";
  facts().pinnedTempPath = "/t";
  setVersion(2, 5, 0, 2195);
  EXPECT_EQ(t->get("WinUserName").toString(), "anna");
  EXPECT_EQ(t->call("GetTempDir").toString(), "/t\\");
  EXPECT_EQ(t->call("GetWinDir").toString(), "/etc\\");
  EXPECT_EQ(t->call("GetSysDir").toString(), "/usr/lib\\");
  EXPECT_EQ(t->call("OSVersion").toString(), "2k");
  EXPECT_EQ(t->call("OSVer_PlattFormID_Major_Minor_Build").toString(), "2|5|0|2195");
  EXPECT_EQ(t->get("ScreenWidth").toLong(), 1024 * 15);
  EXPECT_EQ(t->get("ScreenHeight").toLong(), 768 * 15);
  EXPECT_EQ(t->call("MonitoreAnzahl").toLong(), 1);
  EXPECT_EQ(t->call("MonitoreFullWidth").toLong(), 1024 * 15);
  EXPECT_EQ(t->call("MonitoreFullHeight").toLong(), 768 * 15);
  EXPECT_EQ(t->call("MakeMultiGUIDPur", {Variant(10)}).toString().size(), 10u);
  EXPECT_EQ(t->call("MakeGUID").toString().size(), 38u);
  EXPECT_EQ(t->call("MakeGUIDPur").toString().size(), 32u);
  facts().pinnedAppData = "/c";
  facts().pinnedDocuments = "/d";
  EXPECT_EQ(t->call("GetAppDataFolder").toString(), "/c\\");
  EXPECT_EQ(t->call("GetEigeneDateienFolder").toString(), "/d\\");
  facts().pinnedProcesses = std::vector<SystemFacts::Process>{{5, "/bin/X", "X"}};
  EXPECT_TRUE(t->call("IsEXERunning", {"x"}).toBool());
  EXPECT_EQ(t->get("GlobalSound").toLong(), 0);
  t->let("GlobalSound", Variant(2));
  EXPECT_EQ(t->get("GlobalSound").toLong(), 2);
  EXPECT_FALSE(Global::soundOn());
  t->let("GlobalSound", Variant(1));
  t->call("PlayWavSound", {"C:\\a.wav"});
  EXPECT_EQ(desktop().soundsPlayed().back(), "C:\\a.wav");
  EXPECT_RUNTIME_ERROR(t->call("IsEXERunning"), 449);
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>

#include <gtest/gtest.h>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

class GlobalTest : public test::DesktopTest {
 protected:
  void setVersion(int platformId, int major, int minor, int build = 0) {
    OSVERSIONINFO v;
    v.dwPlatformId = platformId;
    v.dwMajorVersion = major;
    v.dwMinorVersion = minor;
    v.dwBuildNumber = build;
    desktop().setVersion(v);
  }
  void TearDown() override {
    Global::setSoundOn(true);
    test::DesktopTest::TearDown();
  }
};

TEST_F(GlobalTest, VersionWordsOfTheOldFamily) {
  setVersion(1, 4, 0);
  EXPECT_EQ(Global::OSName(), "95");
  setVersion(1, 4, 10);
  EXPECT_EQ(Global::OSName(), "98");
  setVersion(1, 4, 90);
  EXPECT_EQ(Global::OSName(), "ME");
  setVersion(1, 4, 3);
  EXPECT_EQ(Global::OSName(), "");
}

TEST_F(GlobalTest, VersionWordsOfTheNewFamily) {
  setVersion(2, 3, 51);
  EXPECT_EQ(Global::OSName(), "NT");
  setVersion(2, 4, 0);
  EXPECT_EQ(Global::OSName(), "NT");
  setVersion(2, 5, 0);
  EXPECT_EQ(Global::OSName(), "2k");
  setVersion(2, 5, 1);
  EXPECT_EQ(Global::OSName(), "XP");
  setVersion(2, 6, 0);
  EXPECT_EQ(Global::OSName(), "Vista");
  setVersion(2, 6, 1);
  EXPECT_EQ(Global::OSName(), "Vista") << "the mapping is kept as it stands";
  setVersion(2, 6, 2);
  EXPECT_EQ(Global::OSName(), "Vista");
  setVersion(2, 7, 0);
  EXPECT_EQ(Global::OSName(), "W7");
  setVersion(2, 10, 0);
  EXPECT_EQ(Global::OSName(), "Failed");
  setVersion(3, 5, 1);
  EXPECT_EQ(Global::OSName(), "Failed");
}

TEST_F(GlobalTest, VersionTextJoinsTheFourNumbers) {
  setVersion(2, 5, 1, 2600);
  EXPECT_EQ(Global::OSVersionText(), "2|5|1|2600");
}

class FadeTest : public GlobalTest {
 protected:
  FormRef makeForm() {
    setVersion(2, 5, 1);  // "XP": the fades run
    FormRef f = Form::create("Fader", 1500, 1500);
    return f;
  }
  bool layered(const Form& f) { return desktop().windows().GetWindowLongA(f.hWnd(), GWL_EXSTYLE) & WS_EX_LAYERED; }
};

TEST_F(FadeTest, FadeInToAlpha200KeepsTheLayeredStyle) {
  FormRef f = makeForm();
  float speed = 0;
  uint8_t alpha = 200;
  Global::FadeInForm(*f, speed, alpha);
  EXPECT_TRUE(layered(*f));
  EXPECT_TRUE(desktop().windows().IsWindowVisible(f->hWnd()));
  EXPECT_TRUE(f->Enabled()) << "the form is enabled again afterwards";
  EXPECT_FLOAT_EQ(speed, (1500.0f / 100) * (1500.0f / 100) / 2500) << "the speed is written back";
}

TEST_F(FadeTest, FadeInToAlpha254TakesTheLayeredStyleAway) {
  FormRef f = makeForm();
  float speed = 40;
  uint8_t alpha = 254;
  Global::FadeInForm(*f, speed, alpha);
  EXPECT_FALSE(layered(*f));
  EXPECT_FLOAT_EQ(speed, 0.5f);
}

TEST_F(FadeTest, FadeInToAlphaZeroStopsAtOnce) {
  FormRef f = makeForm();
  float speed = 40;
  uint8_t alpha = 0;
  Global::FadeInForm(*f, speed, alpha);
  EXPECT_FALSE(layered(*f));
  EXPECT_FLOAT_EQ(speed, 40) << "the speed is not touched";
}

TEST_F(FadeTest, FadeInOnAnOldSystemJustShows) {
  FormRef f = makeForm();
  setVersion(1, 4, 10);
  float speed = 40;
  uint8_t alpha = 200;
  Global::FadeInForm(*f, speed, alpha);
  EXPECT_FALSE(layered(*f));
  EXPECT_TRUE(desktop().windows().IsWindowVisible(f->hWnd()));
}

TEST_F(FadeTest, FadeOutUnloadsTheFormAndClearsTheVariable) {
  FormRef f = makeForm();
  f->Show();
  float speed = 100;
  uint8_t alpha = 255;
  Global::FadeOutForm(f, speed, alpha);
  EXPECT_EQ(f, nullptr);
  EXPECT_EQ(Forms::find("Fader"), nullptr);
  EXPECT_FLOAT_EQ(speed, 5);
}

TEST_F(FadeTest, FadeOutOnVistaGoesAtOnceWithoutTouchingTheSpeed) {
  FormRef f = makeForm();
  setVersion(2, 6, 0);
  float speed = 100;
  uint8_t alpha = 255;
  Global::FadeOutForm(f, speed, alpha);
  EXPECT_EQ(f, nullptr);
  EXPECT_FLOAT_EQ(speed, 100);
}

TEST_F(FadeTest, FadeOutOn2kDoublesTheSpeed) {
  FormRef f = makeForm();
  setVersion(2, 5, 0);
  float speed = 100;
  uint8_t alpha = 255;
  Global::FadeOutForm(f, speed, alpha);
  EXPECT_FLOAT_EQ(speed, 10);
}

TEST_F(GlobalTest, PlayWavWithADriveLetterIgnoresTheGivenPath) {
  desktop().setApplicationPath("C:\\App");
  Global::PlayWav("D:\\sounds\\ding.wav", true, std::string("E:\\other"));
  ASSERT_EQ(desktop().soundsPlayed().size(), 1u);
  EXPECT_EQ(desktop().soundsPlayed()[0], "D:\\sounds\\ding.wav");
}

TEST_F(GlobalTest, PlayWavWithARelativePathGoesThroughTheApplicationFolder) {
  desktop().setApplicationPath("C:\\App");
  Global::PlayWav("ding.wav", true, std::string("media"));
  Global::PlayWav("ding.wav", true, std::string("\\media\\"));
  ASSERT_EQ(desktop().soundsPlayed().size(), 2u);
  EXPECT_EQ(desktop().soundsPlayed()[0], "C:\\App\\media\\ding.wav");
  EXPECT_EQ(desktop().soundsPlayed()[1], "C:\\App\\media\\ding.wav");
}

TEST_F(GlobalTest, PlayWavWithoutAPathUsesTheApplicationFolder) {
  desktop().setApplicationPath("C:\\App");
  Global::PlayWav("ding.wav", true);
  Global::PlayWav("ding.wav", true, std::string("E:\\snd"));
  ASSERT_EQ(desktop().soundsPlayed().size(), 2u);
  EXPECT_EQ(desktop().soundsPlayed()[0], "C:\\App\\ding.wav");
  EXPECT_EQ(desktop().soundsPlayed()[1], "E:\\snd\\ding.wav");
}

TEST_F(GlobalTest, PlayWavIsSilentWithoutFlagFileOrSound) {
  Global::PlayWav("ding.wav", false);
  Global::PlayWav("", true);
  Global::setSoundOn(false);
  Global::PlayWav("ding.wav", true);
  EXPECT_TRUE(desktop().soundsPlayed().empty());
  EXPECT_FALSE(Global::soundOn());
}

TEST_F(GlobalTest, BytesToTextStopsAtTheFirstZero) {
  VbArray<uint8_t> bytes;
  bytes.redim(3, 7);
  const uint8_t data[] = {'A', 0xE4, 'b', 0, 'z'};
  for (int i = 0; i < 5; ++i) bytes(3 + i) = data[i];
  EXPECT_EQ(Global::BytesToText(bytes), "A\xC3\xA4" "b");
}

TEST_F(GlobalTest, MissingIconResourceGivesHandleZero) {
  PictureRef p = Global::LoadIconPicture("NO_SUCH_ICON");
  ASSERT_TRUE(p);
  EXPECT_EQ(p->Handle(), 0);
}

TEST_F(GlobalTest, ShortPathNameOfAMissingFileIsEmpty) {
  EXPECT_EQ(Global::ShortPathName("/no/such/file/here"), "");
  EXPECT_EQ(Global::ShortPathName("/"), "/");
}

}  // namespace
}  // namespace corvane

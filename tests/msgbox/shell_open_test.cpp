// SPDX-License-Identifier: MIT
// The shell's "open" starts the opener directly, with the address as its one argument: a mail
// body full of shell syntax arrives unchanged but for the mail escaping, and none of it runs.
#include <corvane/msgbox/frm_msg_box_ie.h>
#include <corvane/platform/shell.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace corvane::test {
namespace {

namespace fs = std::filesystem;

class ShellOpenTest : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = fs::temp_directory_path() / ("corvane_shell_" + std::to_string(getpid()));
    fs::create_directories(dir);
    // The stand-in opener writes how many arguments it got and the first one, byte for byte.
    opener = dir / "opener.sh";
    std::ofstream(opener) << "#!/bin/sh\nprintf '%s\\n' \"$#\" > \"" << (dir / "args").string()
                          << "\"\nprintf '%s' \"$1\" >> \"" << (dir / "args").string() << "\"\n";
    fs::permissions(opener, fs::perms::owner_all);
    setShellOpener(opener.string());
    setShellRecording(false);
  }
  void TearDown() override {
    setShellRecording(true);
    setShellOpener("xdg-open");
    fs::remove_all(dir);
  }
  // Waits for the opener and returns what it wrote.
  std::string received() {
    int status = 0;
    waitpid(lastShellProcess(), &status, 0);
    std::ifstream in(dir / "args", std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
  }
  fs::path dir, opener;
};

TEST_F(ShellOpenTest, AMailBodyWithShellSyntaxReachesTheOpenerAsOneArgumentAndNothingRuns) {
  std::string marker = (dir / "ran").string();
  std::string body = "Zitat \"a\" und 'b'; touch " + marker + "; $(touch " + marker + ") `touch " + marker +
                     "` | & > " + marker + "\r\nZeile zwei\nGrüße, Æøå — 日本";
  std::string link = frmMsgBoxIe::mailToLink("hilfe@example.invalid", "Betreff; $(id)", body);
  // The mail escaping alone: blanks, quotes, ampersands and CRLF; the rest stays.
  EXPECT_EQ(link,
            "mailto:hilfe@example.invalid?subject=Betreff; $(id)&body=Zitat%20'a'%20und%20'b';%20touch%20" +
                marker + ";%20$(touch%20" + marker + ")%20`touch%20" + marker + "`%20|%20%26%20>%20" +
                marker + "%0D%0AZeile%20zwei\nGrüße,%20Æøå%20—%20日本");
  frmMsgBoxIe::MailTo("hilfe@example.invalid", "Betreff; $(id)", body);
  ASSERT_GT(lastShellProcess(), 0);
  EXPECT_EQ(received(), "1\n" + link);
  EXPECT_FALSE(fs::exists(marker));
}

TEST_F(ShellOpenTest, OpenReturnsSuccessAndAMissingOpenerIsAFailureValue) {
  EXPECT_GT(ShellExecuteA(0, "open", "http://example.invalid/", "", "", 1), 32);
  EXPECT_EQ(received(), "1\nhttp://example.invalid/");
  setShellOpener((dir / "no-such-program").string());
  EXPECT_LE(ShellExecuteA(0, "open", "x", "", "", 1), 32);
  EXPECT_LE(ShellExecuteA(0, "print", "x", "", "", 1), 32);
}

TEST_F(ShellOpenTest, RecordingKeepsTheRequestAndStartsNothing) {
  setShellRecording(true);
  clearShellRequests();
  int32_t before = lastShellProcess();
  EXPECT_GT(ShellExecuteA(7, "open", "mailto:a?subject=s&body=b", "", "", 1), 32);
  EXPECT_EQ(lastShellProcess(), before);
  ASSERT_EQ(shellRequests().size(), 1u);
  EXPECT_EQ(shellRequests()[0].hWnd, 7);
  EXPECT_EQ(shellRequests()[0].file, "mailto:a?subject=s&body=b");
  clearShellRequests();
}

}  // namespace
}  // namespace corvane::test

// SPDX-License-Identifier: MIT
#include "desktop/scripted_dialogs.h"

#include <corvane/platform/dialogs.h>
#include <corvane/platform/message_memory.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace std::string_literals;

TEST(ScriptedDialogsTest, ADialogWithoutAQueuedAnswerIsCancelled) {
  ScriptedDialogs dialogs;
  OPENFILENAME ofn;
  ofn.lpstrFile = "keep"s + std::string(10, '\0');
  EXPECT_EQ(dialogs.GetOpenFileNameA(ofn), 0);
  EXPECT_EQ(ofn.lpstrFile, "keep"s + std::string(10, '\0'));
  CHOOSEFONT cf;
  EXPECT_EQ(dialogs.ChooseFontA(cf), 0);
  BROWSEINFO bi;
  EXPECT_EQ(dialogs.SHBrowseForFolderA(bi), 0);
  EXPECT_EQ(dialogs.requests().size(), 3u);
}

TEST(ScriptedDialogsTest, AnswersAreTakenInTheirOrder) {
  ScriptedDialogs dialogs;
  ScriptedDialogs::Answer first, second;
  first.ok = true;
  first.colour = 1;
  second.ok = true;
  second.colour = 2;
  dialogs.queue(first);
  dialogs.queue(second);
  CHOOSECOLOR cc;
  dialogs.ChooseColorA(cc);
  EXPECT_EQ(cc.rgbResult, 1);
  dialogs.ChooseColorA(cc);
  EXPECT_EQ(cc.rgbResult, 2);
  EXPECT_EQ(dialogs.pendingAnswers(), 0u);
}

TEST(ScriptedDialogsTest, AnUnknownItemListHasNoPath) {
  ScriptedDialogs dialogs;
  std::string path(512, ' ');
  EXPECT_FALSE(dialogs.SHGetPathFromIDListA(0, path));
  EXPECT_FALSE(dialogs.SHGetPathFromIDListA(42, path));
  EXPECT_EQ(path, std::string(512, ' '));
}

TEST(DialogBufferTest, TextIsWrittenWithItsNulAndCutToTheBuffer) {
  std::string buffer = "abcdef";
  writeBuffer(buffer, "xy");
  EXPECT_EQ(buffer, "xy\0def"s);
  EXPECT_EQ(bufferText(buffer), "xy");
  writeBuffer(buffer, "0123456789");
  EXPECT_EQ(buffer, "01234\0"s);
  std::string empty;
  writeBuffer(empty, "x");
  EXPECT_EQ(empty, "");
  EXPECT_EQ(bufferText("no nul"), "no nul");
}

TEST(MessageMemoryTest, ALentRecordIsCopiedInAndOutWithinItsSize) {
  MINMAXINFO info;
  info.ptMaxSize = POINTAPI{7, 8};
  MessageMemoryLoan loan(&info, sizeof info);
  MINMAXINFO copy;
  ASSERT_TRUE(copyFromMessage(&copy, loan.address(), sizeof copy));
  EXPECT_EQ(copy.ptMaxSize, (POINTAPI{7, 8}));
  copy.ptMinTrackSize = POINTAPI{1, 2};
  ASSERT_TRUE(copyToMessage(loan.address(), &copy, sizeof copy));
  EXPECT_EQ(info.ptMinTrackSize, (POINTAPI{1, 2}));
  char big[41] = {};
  EXPECT_FALSE(copyFromMessage(big, loan.address(), sizeof big));
  EXPECT_FALSE(copyToMessage(loan.address(), big, sizeof big));
}

TEST(MessageMemoryTest, AnEndedLoanOrAnyOtherNumberNamesNoRecord) {
  MINMAXINFO info, copy;
  LPARAM stale;
  {
    MessageMemoryLoan loan(&info, sizeof info);
    stale = loan.address();
  }
  EXPECT_FALSE(copyFromMessage(&copy, stale, sizeof copy));
  EXPECT_FALSE(copyFromMessage(&copy, 0, sizeof copy));
  EXPECT_FALSE(copyToMessage(-5, &copy, sizeof copy));
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
// GetAsyncKeyState: the high bit while a button is down, the low bit once for a press since the
// last question.
#include <corvane/platform/api.h>

#include "support/desktop_fixture.h"

namespace corvane::test {
namespace {

using AsyncKeyStateTest = DesktopTest;

TEST_F(AsyncKeyStateTest, AButtonHeldDownHasTheHighBit) {
  user().GetAsyncKeyState(VK_LBUTTON);
  desktop().mouseDown(1);
  EXPECT_TRUE(user().GetAsyncKeyState(VK_LBUTTON) & 0x8000);
  EXPECT_TRUE(user().GetAsyncKeyState(VK_LBUTTON) & 0x8000);
  desktop().mouseUp(1);
  EXPECT_EQ(user().GetAsyncKeyState(VK_LBUTTON), 0);
}

TEST_F(AsyncKeyStateTest, AClickSinceTheLastQuestionIsReportedOnceInTheLowBit) {
  EXPECT_EQ(user().GetAsyncKeyState(VK_LBUTTON), 0);
  desktop().click(10, 10);
  EXPECT_EQ(user().GetAsyncKeyState(VK_LBUTTON), 1);
  EXPECT_EQ(user().GetAsyncKeyState(VK_LBUTTON), 0);
}

TEST_F(AsyncKeyStateTest, EachButtonKeepsItsOwnPress) {
  desktop().mouseDown(2);
  desktop().mouseUp(2);
  EXPECT_EQ(user().GetAsyncKeyState(VK_LBUTTON), 0);
  EXPECT_EQ(user().GetAsyncKeyState(VK_RBUTTON), 1);
}

}  // namespace
}  // namespace corvane::test

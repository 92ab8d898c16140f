// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/platform/modal_loop.h>
#include <corvane/runtime/runtime_error.h>
#include <gtest/gtest.h>

#include "support/desktop_fixture.h"

namespace corvane::test {
namespace {

class ModalLoopTest : public DesktopTest {
 protected:
  void TearDown() override {
    ModalLoop::clearSteps();
    ModalLoop::setIdleLimit(0);
    DesktopTest::TearDown();
  }
};

TEST_F(ModalLoopTest, QueuedStepsRunInOrderUntilTheWindowIsDone) {
  std::vector<int> ran;
  bool done = false;
  ModalLoop::queueStep([&] { ran.push_back(1); });
  ModalLoop::queueStep([&] {
    ran.push_back(2);
    done = true;
  });
  ModalLoop::queueStep([&] { ran.push_back(3); });
  ModalLoop::run([&] { return done; });
  EXPECT_EQ(ran, (std::vector<int>{1, 2}));
  EXPECT_EQ(ModalLoop::pendingSteps(), 1);
}

TEST_F(ModalLoopTest, WaitingMovesTheVirtualClockToTheNextTimer) {
  FormRef f = Form::create("Timed", 3000, 2000);
  uint32_t start = user().GetTickCount();
  user().SetTimer(f->hWnd(), 1, 700);
  ModalLoop::run([&] { return user().GetTickCount() - start >= 1400; });
  EXPECT_EQ(user().GetTickCount() - start, 1400u);
}

TEST_F(ModalLoopTest, ALoopThatNothingCanEndIsAnErrorInsteadOfAHang) {
  try {
    ModalLoop::run([] { return false; });
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 5);
  }
  // A timer keeps it going, until the idle limit says no step came.
  FormRef f = Form::create("Ticking", 3000, 2000);
  user().SetTimer(f->hWnd(), 1, 100);
  ModalLoop::setIdleLimit(5000);
  uint32_t start = user().GetTickCount();
  EXPECT_THROW(ModalLoop::run([] { return false; }), RuntimeError);
  EXPECT_GT(user().GetTickCount() - start, 5000u);
  EXPECT_LT(user().GetTickCount() - start, 5200u);
}

}  // namespace
}  // namespace corvane::test

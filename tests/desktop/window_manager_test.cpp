// SPDX-License-Identifier: MIT
#include "desktop/window_manager.h"

#include <gtest/gtest.h>

#include <corvane/runtime/error_handler.h>
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

struct Message {
  HWND hwnd;
  int32_t msg;
  WPARAM w;
  LPARAM l;
};

class WindowManagerTest : public test::DesktopTest {
 protected:
  WindowManager& wm() { return desktop().windows(); }

  // A window whose procedure records what it receives.
  HWND makeWindow(int32_t x, int32_t y, int32_t w, int32_t h, HWND parent = 0, int32_t exStyle = 0) {
    WNDPROC proc = wm().RegisterWindowProc([this](HWND hwnd, int32_t msg, WPARAM wp, LPARAM lp) {
      log.push_back({hwnd, msg, wp, lp});
      return 0;
    });
    HWND hwnd = wm().CreateWindowExA(exStyle, "Test", "", WS_VISIBLE, x, y, w, h, parent, proc);
    return hwnd;
  }
  std::vector<int32_t> messagesOf(HWND h) {
    std::vector<int32_t> out;
    for (auto& m : log)
      if (m.hwnd == h) out.push_back(m.msg);
    return out;
  }
  int count(HWND h, int32_t msg) {
    int n = 0;
    for (auto& m : log) n += m.hwnd == h && m.msg == msg;
    return n;
  }
  std::vector<Message> log;
};

TEST_F(WindowManagerTest, LaterWindowsLieAboveEarlierOnes) {
  HWND a = makeWindow(0, 0, 100, 100);
  HWND b = makeWindow(50, 50, 100, 100);
  EXPECT_EQ(wm().WindowFromPoint(60, 60), b);
  EXPECT_EQ(wm().WindowFromPoint(10, 10), a);
  wm().SetWindowPos(a, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  EXPECT_EQ(wm().WindowFromPoint(60, 60), a);
}

TEST_F(WindowManagerTest, TopMostWindowStaysAboveWindowsRaisedLater) {
  HWND top = makeWindow(0, 0, 100, 100, 0, WS_EX_TOPMOST);
  HWND normal = makeWindow(0, 0, 100, 100);
  EXPECT_EQ(wm().WindowFromPoint(10, 10), top);
  wm().SetForegroundWindow(normal);
  EXPECT_EQ(wm().WindowFromPoint(10, 10), top);
}

TEST_F(WindowManagerTest, HiddenWindowsAndRegionHolesAreNotHit) {
  HWND below = makeWindow(0, 0, 100, 100);
  HWND above = makeWindow(0, 0, 100, 100);
  wm().ShowWindow(above, SW_HIDE);
  EXPECT_EQ(wm().WindowFromPoint(10, 10), below);
  wm().ShowWindow(above, SW_SHOWNOACTIVATE);
  HRGN r = desktop().gdi().CreateRectRgn(0, 0, 50, 50);
  ASSERT_EQ(wm().SetWindowRgn(above, r, true), 1);
  EXPECT_EQ(wm().WindowFromPoint(10, 10), above);
  EXPECT_EQ(wm().WindowFromPoint(70, 70), below);
}

TEST_F(WindowManagerTest, DisabledChildPassesThePointToItsParent) {
  HWND parent = makeWindow(0, 0, 100, 100);
  HWND child = makeWindow(10, 10, 20, 20, parent);
  EXPECT_EQ(wm().WindowFromPoint(15, 15), child);
  wm().EnableWindow(child, false);
  EXPECT_EQ(wm().WindowFromPoint(15, 15), parent);
}

TEST_F(WindowManagerTest, ChildCoordinatesAreRelativeToTheParent) {
  HWND parent = makeWindow(100, 50, 200, 200);
  HWND child = makeWindow(10, 20, 30, 30, parent);
  RECT r;
  wm().GetWindowRect(child, r);
  EXPECT_EQ(r, (RECT{110, 70, 140, 100}));
  POINTAPI p{115, 75};
  wm().ScreenToClient(child, p);
  EXPECT_EQ(p, (POINTAPI{5, 5}));
}

TEST_F(WindowManagerTest, ReplacingTheWindowProcedureReturnsTheOldOne) {
  HWND h = makeWindow(0, 0, 10, 10);
  WNDPROC old = wm().GetWindowLongA(h, GWL_WNDPROC);
  int calls = 0;
  WNDPROC mine = wm().RegisterWindowProc([&](HWND hw, int32_t m, WPARAM w, LPARAM l) {
    ++calls;
    return wm().CallWindowProcA(old, hw, m, w, l) + 7;
  });
  EXPECT_EQ(wm().SetWindowLongA(h, GWL_WNDPROC, mine), old);
  EXPECT_EQ(wm().SendMessageA(h, wm::USER, 1, 2), 7);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(count(h, wm::USER), 1);
  EXPECT_EQ(wm().SetWindowLongA(h, GWL_WNDPROC, 12345), 0) << "an unknown procedure is refused";
  EXPECT_EQ(wm().GetWindowLongA(h, GWL_WNDPROC), mine);
}

TEST_F(WindowManagerTest, WindowPropertiesAreKeptPerWindow) {
  HWND a = makeWindow(0, 0, 10, 10), b = makeWindow(0, 0, 10, 10);
  EXPECT_TRUE(wm().SetPropA(a, "SSC_OLDPROC", 42));
  EXPECT_EQ(wm().GetPropA(a, "SSC_OLDPROC"), 42);
  EXPECT_EQ(wm().GetPropA(b, "SSC_OLDPROC"), 0);
  EXPECT_EQ(wm().RemovePropA(a, "SSC_OLDPROC"), 42);
  EXPECT_EQ(wm().GetPropA(a, "SSC_OLDPROC"), 0);
  EXPECT_FALSE(wm().SetPropA(9999, "x", 1));
}

TEST_F(WindowManagerTest, ClickSendsDownAndUpWithClientCoordinates) {
  HWND h = makeWindow(100, 100, 50, 50);
  desktop().click(110, 120);
  auto msgs = messagesOf(h);
  ASSERT_GE(msgs.size(), 3u);
  EXPECT_EQ(count(h, wm::LBUTTONDOWN), 1);
  EXPECT_EQ(count(h, wm::LBUTTONUP), 1);
  for (auto& m : log)
    if (m.msg == wm::LBUTTONDOWN) {
      EXPECT_EQ(pointParamX(m.l), 10);
      EXPECT_EQ(pointParamY(m.l), 20);
      EXPECT_EQ(m.w & MK_LBUTTON, MK_LBUTTON);
    }
}

TEST_F(WindowManagerTest, SecondClickInTimeIsADoubleClick) {
  HWND h = makeWindow(0, 0, 50, 50);
  desktop().doubleClick(10, 10);
  EXPECT_EQ(count(h, wm::LBUTTONDOWN), 1);
  EXPECT_EQ(count(h, wm::LBUTTONDBLCLK), 1);
  EXPECT_EQ(count(h, wm::LBUTTONUP), 2);
}

TEST_F(WindowManagerTest, SecondClickTooLateIsAnotherDown) {
  HWND h = makeWindow(0, 0, 50, 50);
  desktop().click(10, 10);
  desktop().advance(600);
  desktop().click(10, 10);
  EXPECT_EQ(count(h, wm::LBUTTONDOWN), 2);
  EXPECT_EQ(count(h, wm::LBUTTONDBLCLK), 0);
}

TEST_F(WindowManagerTest, WindowWithoutDoubleClickStyleGetsTwoDowns) {
  HWND h = makeWindow(0, 0, 50, 50);
  wm().SetClassLongA(h, GCL_STYLE, 0);
  desktop().doubleClick(10, 10);
  EXPECT_EQ(count(h, wm::LBUTTONDOWN), 2);
}

TEST_F(WindowManagerTest, CaptureRoutesTheMouseToTheCapturingWindow) {
  HWND a = makeWindow(0, 0, 50, 50), b = makeWindow(100, 0, 50, 50);
  wm().SetCapture(a);
  desktop().mouseMove(120, 10);
  EXPECT_EQ(count(a, wm::MOUSEMOVE), 1);
  EXPECT_EQ(count(b, wm::MOUSEMOVE), 0);
  for (auto& m : log)
    if (m.msg == wm::MOUSEMOVE) {
      EXPECT_EQ(pointParamX(m.l), 120);
    }
  wm().ReleaseCapture();
  EXPECT_EQ(wm().GetCapture(), 0);
}

TEST_F(WindowManagerTest, LeavingATrackedWindowPostsMouseLeaveOnce) {
  HWND a = makeWindow(0, 0, 50, 50), b = makeWindow(100, 0, 50, 50);
  desktop().mouseMove(10, 10);
  TRACKMOUSEEVENT t{16, TME_LEAVE, a, 0};
  EXPECT_TRUE(wm().TrackMouseEvent(t));
  desktop().mouseMove(20, 20);
  EXPECT_EQ(count(a, wm::MOUSELEAVE), 0);
  desktop().mouseMove(110, 10);
  EXPECT_EQ(count(a, wm::MOUSELEAVE), 1);
  desktop().mouseMove(10, 10);
  desktop().mouseMove(110, 10);
  EXPECT_EQ(count(a, wm::MOUSELEAVE), 1) << "tracking ends with the notice";
  (void)b;
}

TEST_F(WindowManagerTest, TrackingAWindowNotUnderTheCursorLeavesAtOnce) {
  HWND a = makeWindow(0, 0, 50, 50);
  desktop().mouseMove(300, 300);
  TRACKMOUSEEVENT t{16, TME_LEAVE, a, 0};
  wm().TrackMouseEvent(t);
  wm().DoEvents();
  EXPECT_EQ(count(a, wm::MOUSELEAVE), 1);
}

TEST_F(WindowManagerTest, TimersFireAsTheVirtualClockMoves) {
  HWND h = makeWindow(0, 0, 10, 10);
  wm().SetTimer(h, 7, 100);
  desktop().advance(99);
  EXPECT_EQ(count(h, wm::TIMER), 0);
  desktop().advance(1);
  EXPECT_EQ(count(h, wm::TIMER), 1);
  desktop().advance(250);
  EXPECT_EQ(count(h, wm::TIMER), 3);
  wm().KillTimer(h, 7);
  desktop().advance(1000);
  EXPECT_EQ(count(h, wm::TIMER), 3);
}

TEST_F(WindowManagerTest, WaitingWithNothingToDoJumpsToTheNextTimer) {
  HWND h = makeWindow(0, 0, 10, 10);
  wm().SetTimer(h, 1, 1000);
  EXPECT_TRUE(wm().WaitForWork(-1));
  EXPECT_EQ(wm().GetTickCount(), 1000u);
  EXPECT_EQ(count(h, wm::TIMER), 1);
  wm().KillTimer(h, 1);
  EXPECT_FALSE(wm().WaitForWork(-1));
}

TEST_F(WindowManagerTest, DestroyingAWindowTellsItFirstThenItsChildren) {
  HWND parent = makeWindow(0, 0, 100, 100);
  HWND child = makeWindow(0, 0, 10, 10, parent);
  log.clear();
  wm().DestroyWindow(parent);
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[0].hwnd, parent);
  EXPECT_EQ(log[0].msg, wm::DESTROY);
  EXPECT_EQ(log[1].hwnd, child);
  EXPECT_FALSE(wm().IsWindow(parent));
  EXPECT_FALSE(wm().IsWindow(child));
}

TEST_F(WindowManagerTest, ResizeSendsSizeWithTheNewClientSize) {
  HWND h = makeWindow(0, 0, 10, 10);
  wm().MoveWindow(h, 0, 0, 30, 40, true);
  ASSERT_EQ(count(h, wm::SIZE), 1);
  for (auto& m : log)
    if (m.msg == wm::SIZE) {
      EXPECT_EQ(pointParamX(m.l), 30);
      EXPECT_EQ(pointParamY(m.l), 40);
    }
  wm().MoveWindow(h, 5, 5, 30, 40, true);
  EXPECT_EQ(count(h, wm::SIZE), 1) << "a move alone sends no size";
}

TEST_F(WindowManagerTest, LayeredAlphaBlendsWithWhatLiesBelow) {
  HWND below = makeWindow(0, 0, 10, 10);
  HWND above = makeWindow(0, 0, 10, 10);
  wm().windowCanvas(below)->fill(0x000000);
  wm().windowCanvas(above)->fill(0xFFFFFF);
  EXPECT_FALSE(wm().SetLayeredWindowAttributes(above, 0, 128, LWA_ALPHA)) << "needs the layered style";
  wm().SetWindowLongA(above, GWL_EXSTYLE, WS_EX_LAYERED);
  EXPECT_TRUE(wm().SetLayeredWindowAttributes(above, 0, 128, LWA_ALPHA));
  COLORREF c = screenPixel(5, 5);
  EXPECT_NEAR(c & 0xFF, 128, 2);
  wm().SetWindowLongA(above, GWL_EXSTYLE, 0);
  EXPECT_EQ(screenPixel(5, 5), 0xFFFFFF) << "without the style the window is opaque again";
}

TEST_F(WindowManagerTest, ChildIsCutToItsParent) {
  HWND parent = makeWindow(0, 0, 20, 20);
  HWND child = makeWindow(10, 10, 30, 30, parent);
  wm().windowCanvas(parent)->fill(0x0000FF);
  wm().windowCanvas(child)->fill(0x00FF00);
  EXPECT_EQ(screenPixel(15, 15), 0x00FF00);
  EXPECT_EQ(screenPixel(25, 25), 0xA56E3A) << "the desktop shows past the parent";
  EXPECT_EQ(screenPixel(5, 5), 0x0000FF);
}

TEST_F(WindowManagerTest, ForeignWindowsReportTheirProcess) {
  HWND h = makeWindow(0, 0, 10, 10);
  int32_t pid = 0;
  wm().GetWindowThreadProcessId(h, &pid);
  EXPECT_EQ(pid, wm().GetCurrentProcessId());
  wm().setWindowProcess(h, pid + 1);
  wm().GetWindowThreadProcessId(h, &pid);
  EXPECT_NE(pid, wm().GetCurrentProcessId());
}

// A window whose procedure raises a run-time error for one message and records all others,
// with the errors that reach the application's error handler.
class LoopErrorTest : public WindowManagerTest {
 protected:
  static constexpr int32_t kFailing = 0x400, kOther = 0x401;
  void SetUp() override {
    WindowManagerTest::SetUp();
    setErrorHandler([this](const RuntimeError& e) { errors.push_back(e); });
    WNDPROC proc = wm().RegisterWindowProc([this](HWND hwnd, int32_t msg, WPARAM wp, LPARAM lp) -> LRESULT {
      if (msg == kFailing || msg == failOn) throw RuntimeError(err::Overflow, "", "Window1");
      log.push_back({hwnd, msg, wp, lp});
      return 0;
    });
    window = wm().CreateWindowExA(0, "Test", "", WS_VISIBLE, 0, 0, 100, 100, 0, proc);
  }
  void TearDown() override {
    setErrorHandler({});
    WindowManagerTest::TearDown();
  }
  HWND window = 0;
  int32_t failOn = -1;
  std::vector<RuntimeError> errors;
};

TEST_F(LoopErrorTest, ErrorOfAPostedMessageGoesToTheHandlerAndTheLoopGoesOn) {
  wm().PostMessageA(window, kFailing, 0, 0);
  wm().PostMessageA(window, kOther, 0, 0);
  EXPECT_NO_THROW(wm().DoEvents());
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].number(), err::Overflow);
  EXPECT_EQ(errors[0].source(), "Window1");
  EXPECT_EQ(count(window, kOther), 1);
}

TEST_F(LoopErrorTest, ErrorOfATimerGoesToTheHandlerAndTheTimerKeepsFiring) {
  failOn = wm::TIMER;
  wm().SetTimer(window, 1, 100);
  EXPECT_NO_THROW(wm().advance(250));
  EXPECT_EQ(errors.size(), 2u);
}

TEST_F(LoopErrorTest, ErrorOfInputGoesToTheHandler) {
  failOn = wm::LBUTTONDOWN;
  wm().mouseMove(10, 10);
  EXPECT_NO_THROW(wm().mouseDown(1));
  wm().mouseUp(1);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(count(window, wm::LBUTTONUP), 1);
  failOn = wm::KEYDOWN;
  wm().SetFocus(window);
  EXPECT_NO_THROW(wm().keyDown(65));
  EXPECT_EQ(errors.size(), 2u);
}

TEST_F(LoopErrorTest, OtherExceptionsAreReportedAsInternalErrors) {
  WNDPROC proc = wm().RegisterWindowProc([](HWND, int32_t msg, WPARAM, LPARAM) -> LRESULT {
    if (msg == kOther) throw std::logic_error("broken");
    return 0;
  });
  HWND other = wm().CreateWindowExA(0, "Test", "", WS_VISIBLE, 0, 0, 10, 10, 0, proc);
  wm().PostMessageA(other, kOther, 0, 0);
  EXPECT_NO_THROW(wm().DoEvents());
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].number(), err::InternalError);
  EXPECT_EQ(errors[0].description(), "broken");
}

TEST_F(LoopErrorTest, DirectSendStillPassesTheErrorToTheCaller) {
  EXPECT_THROW(wm().SendMessageA(window, kFailing, 0, 0), RuntimeError);
  EXPECT_TRUE(errors.empty());
}

TEST(ErrorHandler, DefaultWritesNumberDescriptionAndSourceToTheErrorStream) {
  setErrorHandler({});
  testing::internal::CaptureStderr();
  reportError(RuntimeError(err::Overflow, "", "VexHoverPic"));
  const std::string text = testing::internal::GetCapturedStderr();
  EXPECT_NE(text.find("6"), std::string::npos) << text;
  EXPECT_NE(text.find("Overflow"), std::string::npos) << text;
  EXPECT_NE(text.find("VexHoverPic"), std::string::npos) << text;
}

TEST(ErrorHandler, AHandlerThatThrowsDoesNotEndTheLoop) {
  setErrorHandler([](const RuntimeError&) { throw RuntimeError(err::TypeMismatch); });
  testing::internal::CaptureStderr();
  EXPECT_NO_THROW(reportError(RuntimeError(err::Overflow)));
  const std::string text = testing::internal::GetCapturedStderr();
  setErrorHandler({});
  EXPECT_NE(text.find("Overflow"), std::string::npos) << text;
  EXPECT_NE(text.find("Type mismatch"), std::string::npos) << text;
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
// The balloon on the live display, seen from outside: a top-most X window with the shape of its
// region, through which the window below gets the mouse.
// clang-format off
// GoogleTest before the X headers, whose macros (None, Bool) would break it.
#include <gtest/gtest.h>
#include <X11/Xlib.h>
#include <X11/extensions/shape.h>
// clang-format on
#include <corvane/app/application.h>
#include <corvane/notify/balloon_window.h>
#include <corvane/notify/mini_balloon.h>
#include <corvane/platform/api.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>

#include "desktop/desktop.h"
#include "live/live_window_manager.h"
#include "live/live_app_support.h"
#include "live/x_probe.h"

namespace corvane {
namespace {

using live_test::haveProgram;
using live_test::runCommand;
using live_test::XProbe;
using live_test::liveOptions;
using live_test::nativeOf;
using live_test::pumpUntil;
using live_test::settle;





class BalloonLiveTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!std::getenv("DISPLAY")) GTEST_SKIP() << "no X display (run under xvfb-run)";
    ASSERT_TRUE(probe.ok());
  }
  void TearDown() override { BalloonWindow::instance().unload(); }
  XProbe probe;
};

TEST_F(BalloonLiveTest, TheBalloonIsATopMostWindowWithTheShapeOfItsRegion) {
  if (!haveProgram("xdotool")) GTEST_SKIP() << "xdotool is missing";
  Application app(liveOptions());
  FormRef below = Form::create("Below", 500 * 15.0f, 400 * 15.0f);
  below->surface().setBackColor(0xC0C0C0);
  below->Move(50 * 15.0f, 50 * 15.0f);
  below->Show();
  int belowClicks = 0;
  below->surface().Click.connect([&] { ++belowClicks; });

  auto creator = std::make_shared<cMiniBalloon>();
  std::string message = "Ein Ballon auf dem echten Bildschirm";
  creator->popUpBalloon(below->hWnd(), message, "Hinweis", vbInformation, false, true, 0, 8, "MS Sans Serif",
                        0, false, true, 6000, 200, 300);
  ASSERT_TRUE(creator->IsVisible());
  HWND h = BalloonWindow::instance().form()->hWnd();
  below->Show();  // raised again: the balloon still stays above it
  settle(app, 300);

  Window native = nativeOf(h);
  ASSERT_NE(native, 0u);
  RECT r{};
  user().GetWindowRect(h, r);
  int32_t W = r.Right - r.Left, H = r.Bottom - r.Top, B = H - 19;
  // The X shape, as a second client sees it, point by point against the region's rules.
  auto rects = probe.shape(native, ShapeBounding);
  ASSERT_FALSE(rects.empty());
  auto inside = [&](int32_t x, int32_t y) {
    return std::any_of(rects.begin(), rects.end(), [&](const XRectangle& q) {
      return x >= q.x && x < q.x + q.width && y >= q.y && y < q.y + q.height;
    });
  };
  EXPECT_FALSE(inside(W / 2, 10)) << "the upper rows are cut away";
  EXPECT_TRUE(inside(W / 2, 19 + (B - 19) / 2));
  EXPECT_FALSE(inside(0, 20));
  EXPECT_TRUE(inside(0, 21));
  EXPECT_TRUE(inside(16, B + 17));
  EXPECT_TRUE(inside(17, B + 17));
  EXPECT_FALSE(inside(18, B + 17));
  EXPECT_FALSE(inside(16, B + 18));
  EXPECT_EQ(probe.shape(native, ShapeInput).size(), rects.size());

  // Top-most, and stacked above the form shown after it.
  auto states = probe.atomNames(native, "_NET_WM_STATE");
  EXPECT_NE(std::find(states.begin(), states.end(), "_NET_WM_STATE_ABOVE"), states.end());
  auto shown = probe.viewableTopLevels();
  auto at = [&](Window w) { return std::find(shown.begin(), shown.end(), w) - shown.begin(); };
  ASSERT_NE(at(native), static_cast<long>(shown.size()));
  EXPECT_GT(at(native), at(nativeOf(below->hWnd())));

  // In the balloon's box but outside its shape, the pointer is over the form below.
  runCommand("xdotool mousemove " + std::to_string(r.Left + W / 2) + " " + std::to_string(r.Top + 8) +
             " 2>&1");
  settle(app, 300);
  EXPECT_EQ(probe.windowUnderPointer(), nativeOf(below->hWnd()));
  // Inside the shape it is over the balloon.
  runCommand("xdotool mousemove " + std::to_string(r.Left + W / 2) + " " + std::to_string(r.Top + 22) +
             " 2>&1");
  settle(app, 300);
  EXPECT_EQ(probe.windowUnderPointer(), native);

  // A press of the left button elsewhere closes the balloon at the next poll; the form below gets it.
  runCommand("xdotool mousemove 400 400 mousedown 1 2>&1");
  EXPECT_TRUE(pumpUntil(app, [&] { return !BalloonWindow::instance().isLoaded(); }));
  runCommand("xdotool mouseup 1 2>&1");
  EXPECT_TRUE(pumpUntil(app, [&] { return belowClicks == 1; }));
  EXPECT_FALSE(creator->IsVisible());
}

TEST_F(BalloonLiveTest, AShortClickOnAnotherWindowOfTheProgramClosesTheBalloon) {
  if (!haveProgram("xdotool")) GTEST_SKIP() << "xdotool is missing";
  Application app(liveOptions());
  FormRef below = Form::create("Below", 500 * 15.0f, 400 * 15.0f);
  below->Move(50 * 15.0f, 50 * 15.0f);
  below->Show();
  auto creator = std::make_shared<cMiniBalloon>();
  std::string message = "Ein kurzer Klick daneben schlie\xC3\x9Ft mich";
  creator->popUpBalloon(below->hWnd(), message, "", vbNone, false, true, 0, 8, "MS Sans Serif", 0, false,
                        true, 6000, 200, 300);
  settle(app, 300);
  ASSERT_TRUE(creator->IsVisible());
  // Press and release within one poll: the press is still counted at the next tick.
  runCommand("xdotool mousemove 450 400 click 1 2>&1");
  EXPECT_TRUE(pumpUntil(app, [&] { return !BalloonWindow::instance().isLoaded(); }));
  EXPECT_FALSE(creator->IsVisible());
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/host/screen.h>
#include <corvane/notify/balloon_window.h>
#include <corvane/notify/mini_balloon.h>
#include <corvane/platform/api.h>

#include <memory>
#include <string>

#include "support/desktop_fixture.h"

namespace corvane::test {

// A headless desktop (1024 by 768 pixels, 15 twips per pixel) with a hidden owner form and a
// plain balloon object; the shared balloon window is unloaded before the desktop goes.
class BalloonTest : public DesktopTest {
 protected:
  static constexpr COLORREF kDesktop = 0xA56E3A;

  void SetUp() override {
    DesktopTest::SetUp();
    owner = Form::create("Form1", 3000, 2250);
    mini = std::make_shared<cMiniBalloon>();
  }
  void TearDown() override {
    BalloonWindow::instance().unload();
    mini.reset();
    owner.reset();
    DesktopTest::TearDown();
  }

  BalloonWindow& balloon() { return BalloonWindow::instance(); }
  // The balloon window's place on the screen, in pixels.
  RECT rect() {
    RECT r{};
    user().GetWindowRect(balloon().form()->hWnd(), r);
    return r;
  }
  int32_t W() { return rect().Right - rect().Left; }
  int32_t H() { return rect().Bottom - rect().Top; }
  // Whether the screen shows the balloon at a point of its window (pixels from its top left):
  // outside the shape the desktop shows through.
  bool inShape(int32_t x, int32_t y) {
    RECT r = rect();
    return screenPixel(r.Left + x, r.Top + y) != kDesktop;
  }
  // A balloon at the mouse, which is moved there first.
  void popAtMouse(int32_t x, int32_t y, const std::string& text = "Eine Nachricht im Ballon",
                  bool tipAbove = true) {
    desktop().mouseMove(x, y);
    std::string m = text;
    BalloonRequest r;
    r.OwnerFormHwnd = owner->hWnd();
    r.Title = "Hinweis";
    r.TipAbove = tipAbove;
    balloon().popUpBalloon(*mini, m, r);
  }
  void pop(BalloonRequest r, const std::string& text = "Eine Nachricht im Ballon") {
    std::string m = text;
    r.OwnerFormHwnd = owner->hWnd();
    balloon().popUpBalloon(*mini, m, r);
  }
  // Where the tip stands, read from the stubs.
  std::string tip() {
    BalloonWindow& b = balloon();
    if (!b.TopStub[0].Visible) return "top left";
    if (!b.TopStub[1].Visible) return "top right";
    if (!b.BottomStub[0].Visible) return "bottom left";
    if (!b.BottomStub[1].Visible) return "bottom right";
    return "none";
  }
  float tx() { return Screen::instance().TwipsPerPixelX(); }
  float ty() { return Screen::instance().TwipsPerPixelY(); }

  FormRef owner;
  std::shared_ptr<cMiniBalloon> mini;
};

}  // namespace corvane::test

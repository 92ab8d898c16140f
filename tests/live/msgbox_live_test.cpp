// SPDX-License-Identifier: MIT
// The message box on the live display: a real window above its owner, made top-most by its
// guard, whose report on the clipboard another X client reads.
// clang-format off
// GoogleTest before the X headers, whose macros (None, Bool) would break it.
#include <gtest/gtest.h>
#include <X11/Xatom.h>
// clang-format on
#include <corvane/app/application.h>
#include <corvane/msgbox/frm_msg_box_ie.h>
#include <corvane/msgbox/msg.h>
#include <corvane/msgbox/msg_button.h>
#include <corvane/platform/api.h>
#include <corvane/platform/modal_loop.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <thread>

#include "desktop/desktop.h"
#include "live/live_window_manager.h"
#include "live/x_probe.h"

namespace corvane {
namespace {

using live_test::XProbe;

Window nativeOf(HWND h) {
  return dynamic_cast<LiveWindowManager&>(dynamic_cast<Desktop&>(platform()).windows()).nativeWindow(h);
}

// Runs the display's events until the condition holds or the time is up.
bool pumpUntil(const std::function<bool()>& done, int timeoutMs) {
  auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
  for (;;) {
    Application::current()->processEvents();
    if (done()) return true;
    if (std::chrono::steady_clock::now() > end) return false;
    user().WaitForWork(20);
  }
}

TEST(MsgBoxLive, TheBoxIsARealTopMostWindowAboveItsOwnerAndItsReportIsOnTheDisplaysClipboard) {
  if (!std::getenv("DISPLAY")) GTEST_SKIP() << "no X display (run under xvfb-run)";
  XProbe probe;
  ASSERT_TRUE(probe.ok());
  Application::Options options;
  options.display = Application::DisplayKind::Live;
  Application app(options);
  FormRef owner = Form::create("Owner", 6000, 4500);
  owner->setCaption("Besitzer");
  owner->Move(1500, 1500);
  owner->Show();
  auto msg = owner->add<Msg>("Msg1");
  frmMsgBoxIe& box = frmMsgBoxIe::instance();

  std::vector<std::string> states;
  bool above = false, shown = false, clickedFromOutside = false;
  std::string read;
  ModalLoop::setIdleLimit(20000);
  ModalLoop::queueStep([&] {
    Window boxWindow = nativeOf(box.form()->hWnd()), ownerWindow = nativeOf(owner->hWnd());
    // Mapped, and made top-most by the guard's first tick.
    pumpUntil(
        [&] {
          auto list = probe.viewableTopLevels();
          auto at = [&](Window w) { return std::find(list.begin(), list.end(), w) - list.begin(); };
          shown = at(boxWindow) < static_cast<long>(list.size());
          above = shown && at(boxWindow) > at(ownerWindow);
          states = probe.atomNames(boxWindow, "_NET_WM_STATE");
          return above && std::find(states.begin(), states.end(), "_NET_WM_STATE_ABOVE") != states.end();
        },
        3000);
    box.cmdCopier_Click();
    bool done = false;
    std::thread reader([&] {
      XProbe other;
      read = other.readClipboard(3000);
      done = true;
    });
    pumpUntil([&] { return done; }, 4000);
    reader.join();
    // The answer comes from another program's click on the OK button, if xdotool is there.
    if (live_test::haveProgram("xdotool")) {
      RECT r;
      user().GetWindowRect(box.cmdSys(0)->surface().hWnd(), r);
      live_test::runCommand("xdotool mousemove " + std::to_string((r.Left + r.Right) / 2) + " " +
                            std::to_string((r.Top + r.Bottom) / 2) + " click 1 2>&1");
      pumpUntil([&] { return !box.isOpen(); }, 3000);
      clickedFromOutside = !box.isOpen();
    }
    if (box.isOpen()) box.cmdSys_Click(0);
  });
  EXPECT_EQ(msg->MsgBoxEx("Meldung für die Ablage", 0, "Live", "", 0, 0, "Einzelheiten", true), 1);
  ModalLoop::setIdleLimit(0);
  EXPECT_TRUE(shown);
  if (live_test::haveProgram("xdotool")) {
    EXPECT_TRUE(clickedFromOutside);
  }
  EXPECT_TRUE(above);
  EXPECT_NE(std::find(states.begin(), states.end(), "_NET_WM_STATE_ABOVE"), states.end());
  EXPECT_EQ(read.rfind("-------------------------------------\r\n<", 0), 0u) << read;
  EXPECT_NE(read.find("\r\nLive\r\n"), std::string::npos);
  EXPECT_NE(read.find("\r\nMeldung für die Ablage\r\n"), std::string::npos);
  EXPECT_NE(read.find("Einzelheiten"), std::string::npos);
}

}  // namespace
}  // namespace corvane

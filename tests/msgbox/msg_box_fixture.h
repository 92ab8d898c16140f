// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/host/label.h>
#include <corvane/host/screen.h>
#include <corvane/msgbox/frm_msg_box_ie.h>
#include <corvane/msgbox/msg.h>
#include <corvane/msgbox/msg_button.h>
#include <corvane/platform/api.h>
#include <corvane/platform/modal_loop.h>
#include <corvane/platform/shell.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "support/desktop_fixture.h"

namespace corvane::test {

// A shown host form with one Msg control; the shell only records, and a modal box that nothing
// would close fails after a minute of the virtual clock instead of hanging.
class MsgBoxTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    host = Form::create("Form1", 6000, 4500, true);
    host->Show();
    msg = host->add<Msg>("Msg1", 120, 120);
    setShellRecording(true);
    clearShellRequests();
    ModalLoop::clearSteps();
    ModalLoop::setIdleLimit(60000);
    App::instance().setTitle("Testprogramm");
    App::instance().setHelpFile("");
  }
  void TearDown() override {
    ModalLoop::clearSteps();
    ModalLoop::setIdleLimit(0);
    box().dispose();
    clearShellRequests();
    App::instance().setTitle("");
    DesktopTest::TearDown();
  }

  static frmMsgBoxIe& box() { return frmMsgBoxIe::instance(); }
  static int32_t tx() { return static_cast<int32_t>(Screen::instance().TwipsPerPixelX()); }
  static int32_t ty() { return static_cast<int32_t>(Screen::instance().TwipsPerPixelY()); }
  // A length in twips as a window has it: in whole pixels.
  static int32_t px(int32_t twips) {
    return static_cast<int32_t>(std::nearbyint(twips / static_cast<double>(tx()))) * tx();
  }

  // The size in twips that an autosizing label in the box's font gives a text.
  std::pair<int32_t, int32_t> measure(const std::string& text) {
    auto l = std::make_shared<Label>();
    host->add(l, "Label", "lblMeasure" + std::to_string(++m_measured), nullptr, 0, 0, 100, 100);
    l->setFont(StdFont::create(FontSpec{"Tahoma", 8}));
    l->setAutoSize(true);
    l->setCaption(text);
    return {l->Width() * tx(), l->Height() * ty()};
  }

  // A click on the middle of a control of the box, through the desktop's mouse.
  void clickOn(HostedControl& c) {
    RECT r;
    user().GetWindowRect(c.surface().hWnd(), r);
    desktop().click((r.Left + r.Right) / 2, (r.Top + r.Bottom) / 2);
  }
  // A click just below the top edge of a control, for one that the window shows only in part.
  void clickNearTop(HostedControl& c) {
    RECT r;
    user().GetWindowRect(c.surface().hWnd(), r);
    desktop().click((r.Left + r.Right) / 2, r.Top + 2);
  }
  void pressEscape() { desktop().windows().typeChar(27); }
  // Queues a step for the modal loop.
  static void step(std::function<void()> f) { ModalLoop::queueStep(std::move(f)); }

  FormRef host;
  std::shared_ptr<Msg> msg;

 private:
  int m_measured = 0;
};

}  // namespace corvane::test

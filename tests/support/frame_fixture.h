// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/containers/vex_frame.h>
#include <corvane/host/screen.h>

#include <memory>
#include <string>
#include <vector>

#include "support/desktop_fixture.h"
#include "support/hover_fixture.h"

namespace corvane::test {

// A shown grey form at the top left of the screen with one frame of the design size (185 by 109
// pixels) at (20, 20) pixels, its events logged in order.
class FrameTest : public DesktopTest {
 protected:
  static constexpr int32_t kLeft = 20, kTop = 20, kWidth = 185, kHeight = 109;
  static constexpr COLORREF kFormColour = 0x808080;

  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 6000, 4500, true);
    form->surface().setBackColor(kFormColour);
    form->Show();
    frame = addFrame("Frame1");
    logEvents(*frame);
  }
  void TearDown() override {
    frame.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  std::shared_ptr<VexFrame> addFrame(const std::string& name, PropertyBag* bag = nullptr) {
    float tpp = Screen::instance().TwipsPerPixelX();
    return std::dynamic_pointer_cast<VexFrame>(
        form->add("VexFrame", name, nullptr, kLeft * tpp, kTop * tpp, -1, -1, bag));
  }
  void logEvents(VexFrame& f) {
    f.DblClick.connect([this] { log.push_back("DblClick"); });
    f.Resize.connect([this] { log.push_back("Resize"); });
    f.Expand.connect([this] { log.push_back("Expand"); });
    f.Collapse.connect([this] { log.push_back("Collapse"); });
    f.CaptionOver.connect([this] { log.push_back("CaptionOver"); });
    f.IconClick.connect([this] { log.push_back("IconClick"); });
    f.MouseDown.connect([this](int16_t&, int16_t&, float&, float&) { log.push_back("MouseDown"); });
    f.MouseMove.connect([this](int16_t&, int16_t&, float&, float&) { log.push_back("MouseMove"); });
    f.MouseUp.connect([this](int16_t&, int16_t&, float&, float&) { log.push_back("MouseUp"); });
  }
  // A pixel of the frame in its own pixel coordinates, as its window holds it.
  COLORREF px(int32_t x, int32_t y) { return desktop().windows().windowCanvas(frame->hWnd())->pixel(x, y); }
  int32_t pixelHeight() { return frame->surface().pixelHeight(); }
  void moveTo(int32_t x, int32_t y) { desktop().mouseMove(kLeft + x, kTop + y); }
  void clickAt(int32_t x, int32_t y) { desktop().click(kLeft + x, kTop + y); }
  // The drawing calls of one full repaint.
  std::vector<std::string> drawLog() {
    gdi().startRecording(frame->hdc());
    frame->drawControl();
    return gdi().stopRecording(frame->hdc());
  }
  static GdiApi& gdi() { return platform().gdi(); }

  FormRef form;
  std::shared_ptr<VexFrame> frame;
  std::vector<std::string> log;
};

}  // namespace corvane::test

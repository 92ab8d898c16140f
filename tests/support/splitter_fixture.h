// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/host/extender.h>
#include <corvane/host/property_bag.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_splitter.h>

#include <memory>
#include <string>
#include <vector>

#include "support/desktop_fixture.h"

namespace corvane::test {

// A shown run-time form at the top left of the screen (screen and form pixels agree) with two
// picture boxes and a splitter between them, placed in pixels; the desktop runs at 15 twips per
// pixel. Vertical: picLeft (0, 0, 100 by 100), the bar at x 100, 5 pixels wide, picRight from
// x 105, 100 wide. Horizontal: the same turned, the bar at y 100.
class SplitterTest : public DesktopTest {
 protected:
  static constexpr float kTwips = 15;
  static constexpr OLE_COLOR kBack = 0x00C000, kBorder = 0x0000C0, kActive = 0xC00000,
                             kActiveBorder = 0x00C0C0;

  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 400 * kTwips, 300 * kTwips, true);
    form->surface().setBackColor(0xFFFFFF);
    form->Show();
  }
  void TearDown() override {
    splitter.reset();
    form.reset();
    DesktopTest::TearDown();
  }

  // The bag of a splitter with test colours and minimums of 20 (left, top) and 30 pixels.
  static void colour(PropertyBag& bag, enSplitterDir dir) {
    bag.set("MinLeftTop", int32_t(20 * kTwips));
    bag.set("MinRightBottom", int32_t(30 * kTwips));
    bag.set("Direction", int32_t(dir));
    bag.set("BackColor", kBack);
    bag.set("BorderColor", kBorder);
    bag.set("ActivateColor", kActive);
    bag.set("ActivateBorder", kActiveBorder);
  }

  void build(enSplitterDir dir, PropertyBag* bag = nullptr) {
    PropertyBag own;
    colour(own, dir);
    if (!bag) bag = &own;
    if (dir == sdVertical) {
      first = addBox("picLeft", 0, 0, 100, 100);
      second = addBox("picRight", 105, 0, 100, 100);
      splitter = addSplitter(100, 0, 5, 100, bag);
    } else {
      first = addBox("picTop", 0, 0, 100, 100);
      second = addBox("picBottom", 0, 105, 100, 100);
      splitter = addSplitter(0, 100, 100, 5, bag);
    }
    ObjectRef a = first->extenderRef(), b = second->extenderRef();
    splitter->SetControls(a, b);
    logEvents();
  }

  HostedControlRef addBox(const std::string& name, int x, int y, int w, int h) {
    return form->add("PictureBox", name, nullptr, x * kTwips, y * kTwips, w * kTwips, h * kTwips);
  }
  std::shared_ptr<VexSplitter> addSplitter(int x, int y, int w, int h, PropertyBag* bag,
                                           const std::string& name = "Splitter1") {
    return std::dynamic_pointer_cast<VexSplitter>(
        form->add("VexSplitter", name, nullptr, x * kTwips, y * kTwips, w * kTwips, h * kTwips, bag));
  }

  void logEvents() {
    splitter->BeforeScroll.connect([this] { log.push_back("BeforeScroll"); });
    splitter->Scrolling.connect([this](int32_t& d) { log.push_back("Scrolling " + std::to_string(d)); });
    splitter->AfterScroll.connect([this] { log.push_back("AfterScroll"); });
    splitter->DblClick.connect([this] { log.push_back("DblClick"); });
  }

  // A window's place in its parent, in pixels.
  static RECT placeOf(const HostedControl& c) {
    RECT r;
    user().GetWindowRect(c.surface().hWnd(), r);  // the form sits at the screen's origin
    return r;
  }

  COLORREF px(int32_t x, int32_t y) { return screenPixel(x, y); }

  FormRef form;
  HostedControlRef first, second;
  std::shared_ptr<VexSplitter> splitter;
  std::vector<std::string> log;
};

}  // namespace corvane::test

// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <corvane/host/property_bag.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/error_handler.h>
#include "support/hover_fixture.h"

namespace corvane {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF, kShadow = 0xC0C0C0;

bool near(COLORREF a, COLORREF b, int tolerance = 8) {
  for (int sh = 0; sh < 24; sh += 8)
    if (std::abs(((a >> sh) & 255) - ((b >> sh) & 255)) > tolerance) return false;
  return true;
}

// A hover picture with the standard icon, driven through the desktop's mouse, its events logged.
class HoverScenarioTest : public test::HoverTest {
 protected:
  void SetUp() override {
    HoverTest::SetUp();
    hover->setImageUp(upIcon());
    logEvents(*hover);
  }

  void logEvents(VexHoverPic& h) {
    h.Click.connect([this] { log.push_back("Click"); });
    h.DblClick.connect([this] { log.push_back("DblClick"); });
    h.MouseDown.connect([this](int16_t& b, int16_t&, float&, float&) { log.push_back("MouseDown " + std::to_string(b)); });
    h.MouseMove.connect([this](int16_t& b, int16_t&, float&, float&) { log.push_back("MouseMove " + std::to_string(b)); });
    h.MouseUp.connect([this](int16_t& b, int16_t&, float&, float&) { log.push_back("MouseUp " + std::to_string(b)); });
    h.MouseOut.connect([this](float& x, float& y) {
      log.push_back("MouseOut " + std::to_string(static_cast<int>(x)) + " " + std::to_string(static_cast<int>(y)));
    });
    h.KeyDown.connect([this](int16_t&, int16_t&) { log.push_back("KeyDown"); });
    h.KeyUp.connect([this](int16_t&, int16_t&) { log.push_back("KeyUp"); });
    h.KeyPress.connect([this](int16_t&) { log.push_back("KeyPress"); });
  }
  int count(const std::string& entry) const { return static_cast<int>(std::count(log.begin(), log.end(), entry)); }

  // The three looks of the standard icon, told apart by three pixels.
  bool looksUp() { return near(px(4, 4), kRed) && near(px(12, 12), kWhite) && near(px(13, 13), kWhite); }
  bool looksHot() { return near(px(4, 4), kRed) && near(px(12, 12), kShadow) && near(px(13, 13), kShadow); }
  bool looksDown() { return near(px(4, 4), kWhite) && near(px(12, 12), kRed) && near(px(13, 13), kWhite); }

  std::vector<std::string> log;
};

TEST_F(HoverScenarioTest, HoverWithOnlyTheUpPictureShowsTheShadow) {
  ASSERT_TRUE(looksUp());
  moveTo(8, 8);
  EXPECT_TRUE(looksHot());
  EXPECT_EQ(log, std::vector<std::string>{"MouseMove 0"});
}

TEST_F(HoverScenarioTest, MouseMoveIsRaisedBeforeTheHotLookIsDrawn) {
  bool hotDuringEvent = true;
  hover->MouseMove.connect([&](int16_t&, int16_t&, float&, float&) { hotDuringEvent = near(windowPx(13, 13), kShadow); });
  moveTo(8, 8);
  EXPECT_FALSE(hotDuringEvent);
  EXPECT_TRUE(looksHot());
}

TEST_F(HoverScenarioTest, PressShiftsThePictureOnePixel) {
  moveTo(8, 8);
  desktop().mouseDown(1);
  EXPECT_TRUE(looksDown());
  moveTo(9, 9);
  EXPECT_TRUE(looksDown()) << "moving with the left button down keeps the pressed look";
  EXPECT_EQ(log, (std::vector<std::string>{"MouseMove 0", "MouseDown 1", "MouseMove 1"}));
}

TEST_F(HoverScenarioTest, ReleaseDoesNotRedrawUntilTheNextMove) {
  moveTo(8, 8);
  desktop().mouseDown(1);
  desktop().mouseUp(1);
  EXPECT_TRUE(looksDown()) << "the release leaves the picture as it is";
  EXPECT_EQ(hover->Value(), abUnPressed);
  EXPECT_EQ(log, (std::vector<std::string>{"MouseMove 0", "MouseDown 1", "MouseUp 1", "Click"}));
  moveTo(9, 9);
  EXPECT_TRUE(looksHot());
}

TEST_F(HoverScenarioTest, RightButtonRaisesMouseDownWithoutThePressedLook) {
  moveTo(8, 8);
  desktop().mouseDown(2);
  EXPECT_TRUE(looksHot());
  moveTo(9, 9);
  EXPECT_TRUE(looksHot()) << "only the left button draws the pressed look on a move";
  desktop().mouseUp(2);
  EXPECT_EQ(log, (std::vector<std::string>{"MouseMove 0", "MouseDown 2", "MouseMove 2", "MouseUp 2"}));
}

TEST_F(HoverScenarioTest, LeavingRaisesMouseOutAtZeroAndRedraws) {
  moveTo(8, 8);
  ASSERT_TRUE(looksHot());
  moveOff();
  EXPECT_TRUE(looksUp());
  EXPECT_EQ(log, (std::vector<std::string>{"MouseMove 0", "MouseOut 0 0"}));
}

TEST_F(HoverScenarioTest, StoredValueBeyondSixteenBitsIsKeptAndSurvivesHoverAndLeave) {
  std::vector<int32_t> reported;
  setErrorHandler([&](const RuntimeError& e) { reported.push_back(e.number()); });
  PropertyBag bag;
  bag.WriteProperty("Value", int32_t{32768}, int32_t{0});
  FormRef other = makeForm(true, "Form2");
  auto loaded = addHover(*other, "Hover2", &bag);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(static_cast<int32_t>(loaded->Value()), 32768);
  logEvents(*loaded);
  EXPECT_NO_THROW(moveTo(8, 8));
  EXPECT_NO_THROW(moveOff());
  setErrorHandler({});
  EXPECT_TRUE(reported.empty());
  EXPECT_EQ(count("MouseOut 0 0"), 1);
}

TEST_F(HoverScenarioTest, StoredValueBeyondThirtyTwoBitsKeepsTheDefault) {
  PropertyBag bag;
  bag.WriteProperty("Value", 4294967296.0, int32_t{0});
  bag.WriteProperty("Style", int32_t{abCheckButton}, int32_t{0});
  FormRef other = makeForm(true, "Form2");
  auto loaded = addHover(*other, "Hover2", &bag);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->Value(), abUnPressed);
  EXPECT_EQ(loaded->Style(), abCheckButton);
}

TEST_F(HoverScenarioTest, MouseLeaveArrivesThroughTheSubclass) {
  std::vector<int32_t> seen;
  hover->subclass()->NewMessage.connect(
      [&](int32_t, int32_t& msg, int32_t&, int32_t&, bool&) { seen.push_back(msg); });
  moveTo(8, 8);
  moveOff();
  EXPECT_NE(std::find(seen.begin(), seen.end(), wm::MOUSELEAVE), seen.end());
  EXPECT_EQ(count("MouseOut 0 0"), 1);
}

TEST_F(HoverScenarioTest, EveryMoveAsksForTheLeaveNoticeAgain) {
  moveTo(8, 8);
  moveOff();
  moveTo(8, 8);
  moveTo(9, 9);
  moveOff();
  EXPECT_EQ(count("MouseOut 0 0"), 2);
  EXPECT_TRUE(looksUp());
}

TEST_F(HoverScenarioTest, PressedToggleKeepsItsLookThroughHoverAndLeave) {
  hover->setStyle(abCheckButton);
  moveTo(8, 8);
  desktop().mouseDown(1);
  desktop().mouseUp(1);
  EXPECT_EQ(hover->Value(), abPressed);
  moveTo(9, 9);
  EXPECT_TRUE(looksDown()) << "a pressed toggle does not light up";
  moveOff();
  EXPECT_TRUE(looksDown()) << "the leave draws Value, which is the pressed state";
  EXPECT_EQ(count("MouseOut 0 0"), 1);
  // The second click lets it go.
  moveTo(8, 8);
  desktop().mouseDown(1);
  desktop().mouseUp(1);
  EXPECT_EQ(hover->Value(), abUnPressed);
  moveTo(9, 9);
  EXPECT_TRUE(looksHot());
  moveOff();
  EXPECT_TRUE(looksUp());
}

TEST_F(HoverScenarioTest, DoubleClickGivesDblClickAndNoSecondMouseDown) {
  desktop().doubleClick(kLeft + 8, kTop + 8);
  EXPECT_EQ(count("DblClick"), 1);
  EXPECT_EQ(count("MouseDown 1"), 1);
  // The rewritten down is swallowed; its release still comes, as does the click of that release.
  EXPECT_EQ(log, (std::vector<std::string>{"MouseMove 0", "MouseDown 1", "MouseUp 1", "Click", "DblClick",
                                           "MouseUp 1", "Click"}));
  EXPECT_TRUE(looksUp()) << "a double click leaves the button drawn up";
  EXPECT_FALSE(hover->skipNextDown());
}

TEST_F(HoverScenarioTest, NextPressAfterADoubleClickCountsAgain) {
  desktop().doubleClick(kLeft + 8, kTop + 8);
  desktop().advance(1000);
  desktop().mouseDown(1);
  EXPECT_EQ(count("MouseDown 1"), 2);
  EXPECT_TRUE(looksDown());
}

TEST_F(HoverScenarioTest, RightDoubleClickIsTurnedIntoALeftDownAndSwallowed) {
  moveTo(8, 8);
  desktop().mouseDown(2);
  desktop().mouseUp(2);
  desktop().advance(50);
  desktop().mouseDown(2);
  desktop().mouseUp(2);
  EXPECT_EQ(count("DblClick"), 1);
  EXPECT_EQ(count("MouseDown 2"), 1);
  EXPECT_EQ(count("MouseDown 1"), 0);
  EXPECT_TRUE(looksUp());
}

TEST_F(HoverScenarioTest, DoubleClickOnAToggleFlipsItTwice) {
  hover->setStyle(abCheckButton);
  desktop().doubleClick(kLeft + 8, kTop + 8);
  EXPECT_EQ(hover->Value(), abUnPressed);
  EXPECT_EQ(count("MouseUp 1"), 2);
}

TEST_F(HoverScenarioTest, KeyEventsAreNeverRaised) {
  user().SetFocus(hover->hWnd());
  desktop().windows().keyDown(65);
  desktop().windows().typeChar(65);
  desktop().windows().keyUp(65);
  EXPECT_TRUE(log.empty());
}

TEST_F(HoverScenarioTest, DisabledControlIgnoresTheMouse) {
  hover->setEnabled(false);
  moveTo(8, 8);
  desktop().mouseDown(1);
  desktop().mouseUp(1);
  EXPECT_TRUE(log.empty());
}

TEST_F(HoverScenarioTest, ClickForwardsClick) {
  desktop().click(kLeft + 8, kTop + 8);
  EXPECT_EQ(count("Click"), 1);
}

// ---- hooks in the life of the control ----

TEST_F(HoverScenarioTest, RunTimeControlHooksItsWindowAndTerminateUnhooks) {
  EXPECT_NE(user().GetPropA(hover->hWnd(), "SSC_OLDPROC"), 0);
  ASSERT_NE(hover->subclass(), nullptr);
  hover->Terminate();
  EXPECT_EQ(user().GetPropA(hover->hWnd(), "SSC_OLDPROC"), 0);
  EXPECT_EQ(hover->subclass(), nullptr);
  moveTo(8, 8);
  moveOff();
  EXPECT_EQ(count("MouseOut 0 0"), 0) << "no leave notice reaches the control without its subclass";
}

TEST_F(HoverScenarioTest, DesignModeUnhooksAndDisablesTheSurface) {
  FormRef designer = makeForm(false, "Designer");
  auto h = addHover(*designer, "Hover1");
  ASSERT_TRUE(h);
  EXPECT_EQ(user().GetPropA(h->hWnd(), "SSC_OLDPROC"), 0);
  ASSERT_NE(h->subclass(), nullptr) << "the subclass object stays until Terminate";
  EXPECT_FALSE(h->surface().Enabled());
  EXPECT_TRUE(h->Enabled()) << "the stored value stays true";
  h->setImageUp(upIcon());
  log.clear();
  logEvents(*h);
  moveTo(8, 8);
  desktop().mouseDown(1);
  desktop().mouseUp(1);
  moveOff();
  EXPECT_TRUE(log.empty()) << "no hover in a form designer";
  EXPECT_TRUE(looksUp());
  h->setEnabled(true);
  EXPECT_FALSE(h->surface().Enabled()) << "Enabled does not reach the surface in the designer";
  h.reset();
  designer->Unload();
}

TEST_F(HoverScenarioTest, RunTimeShowChangesNothing) {
  hover->Show();
  EXPECT_TRUE(hover->surface().Enabled());
  EXPECT_NE(user().GetPropA(hover->hWnd(), "SSC_OLDPROC"), 0);
}

}  // namespace
}  // namespace corvane

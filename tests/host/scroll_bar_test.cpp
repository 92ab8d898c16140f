// SPDX-License-Identifier: MIT
#include <corvane/host/property_bag.h>
#include <corvane/host/screen.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/platform/api.h>
#include <gtest/gtest.h>

#include <memory>

#include "runtime/expect_error.h"
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

// A shown form at the top left of the screen with a vertical bar of 17 by 200 pixels at (20, 20).
class ScrollBarTest : public test::DesktopTest {
 protected:
  static constexpr int32_t kLeft = 20, kTop = 20, kWide = 17, kLong = 200;

  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 6000, 4500, true);
    form->Show();
    bar = add("VScrollBar", "VScroll1", kWide, kLong);
    bar->Change.connect([this] { ++changes; });
    bar->Scroll.connect([this] { ++scrolls; });
  }
  void TearDown() override {
    bar.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  std::shared_ptr<ScrollBar> add(const std::string& cls, const std::string& name, int32_t w, int32_t h,
                                 PropertyBag* bag = nullptr) {
    float tpp = Screen::instance().TwipsPerPixelX();
    return std::dynamic_pointer_cast<ScrollBar>(
        form->add(cls, name, nullptr, kLeft * tpp, kTop * tpp, w * tpp, h * tpp, bag));
  }
  void clickAt(int32_t x, int32_t y) { desktop().click(kLeft + x, kTop + y); }
  COLORREF px(int32_t x, int32_t y) { return screenPixel(kLeft + x, kTop + y); }

  FormRef form;
  std::shared_ptr<ScrollBar> bar;
  int changes = 0, scrolls = 0;
};

TEST_F(ScrollBarTest, ClassNamesMakeVerticalAndHorizontalBars) {
  ASSERT_TRUE(bar);
  EXPECT_EQ(bar->typeName(), "VScrollBar");
  EXPECT_TRUE(bar->vertical());
  auto h = add("HScrollBar", "HScroll1", 200, 17);
  ASSERT_TRUE(h);
  EXPECT_EQ(h->typeName(), "HScrollBar");
  EXPECT_FALSE(h->vertical());
}

TEST_F(ScrollBarTest, DefaultsAreThoseOfTheFormEngine) {
  EXPECT_EQ(bar->Min(), 0);
  EXPECT_EQ(bar->Max(), 32767);
  EXPECT_EQ(bar->Value(), 0);
  EXPECT_EQ(bar->SmallChange(), 1);
  EXPECT_EQ(bar->LargeChange(), 1);
  EXPECT_TRUE(bar->Enabled());
  EXPECT_TRUE(bar->Visible());
}

TEST_F(ScrollBarTest, ValueOutsideTheRangeIsError380AndKeepsTheValue) {
  bar->setMax(100);
  bar->setValue(40);
  EXPECT_RUNTIME_ERROR(bar->setValue(101), 380);
  EXPECT_RUNTIME_ERROR(bar->setValue(-1), 380);
  EXPECT_EQ(bar->Value(), 40);
  EXPECT_RUNTIME_ERROR(bar->setSmallChange(-1), 380);
  EXPECT_RUNTIME_ERROR(bar->setLargeChange(-5), 380);
}

TEST_F(ScrollBarTest, SettingValueRaisesChangeOnlyWhenItDiffers) {
  bar->setValue(10);
  EXPECT_EQ(changes, 1);
  bar->setValue(10);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(scrolls, 0);
}

TEST_F(ScrollBarTest, LoweringMaxBelowTheValuePullsTheValueAlong) {
  bar->setValue(500);
  changes = 0;
  bar->setMax(100);
  EXPECT_EQ(bar->Value(), 100);
  EXPECT_EQ(changes, 1);
  bar->setMin(200);  // Min above Max: the range is 100 to 200
  EXPECT_EQ(bar->Value(), 100);
}

TEST_F(ScrollBarTest, ArrowClicksStepBySmallChangeWithinTheRange) {
  bar->setMax(100);
  bar->setSmallChange(5);
  clickAt(8, kLong - 5);  // lower arrow
  EXPECT_EQ(bar->Value(), 5);
  EXPECT_EQ(changes, 1);
  clickAt(8, 5);  // upper arrow
  EXPECT_EQ(bar->Value(), 0);
  clickAt(8, 5);
  EXPECT_EQ(bar->Value(), 0) << "the bar stops at Min";
  EXPECT_EQ(changes, 2) << "no Change without a change";
}

TEST_F(ScrollBarTest, TrackClicksStepByLargeChange) {
  bar->setMax(100);
  bar->setLargeChange(20);
  clickAt(8, kLong - kWide - 3);  // the track below the thumb
  EXPECT_EQ(bar->Value(), 20);
  int32_t t0 = 0, t1 = 0;
  bar->thumbExtent(t0, t1);
  clickAt(8, t0 - 2);  // the track above the thumb
  EXPECT_EQ(bar->Value(), 0);
  EXPECT_EQ(changes, 2);
}

TEST_F(ScrollBarTest, AHeldArrowRepeatsAfterAPause) {
  bar->setMax(100);
  desktop().mouseMove(kLeft + 8, kTop + kLong - 5);
  desktop().mouseDown();
  EXPECT_EQ(bar->Value(), 1);
  desktop().advance(300);
  EXPECT_EQ(bar->Value(), 1) << "no repeat before the first pause is over";
  desktop().advance(60);
  EXPECT_EQ(bar->Value(), 2);
  desktop().advance(50);
  EXPECT_EQ(bar->Value(), 3);
  desktop().mouseUp();
  desktop().advance(500);
  EXPECT_EQ(bar->Value(), 3) << "release ends the repeat";
}

TEST_F(ScrollBarTest, DraggingTheThumbRaisesScrollThenChangeAtTheEnd) {
  bar->setMax(100);
  bar->setLargeChange(10);
  int32_t t0 = 0, t1 = 0;
  bar->thumbExtent(t0, t1);
  ASSERT_GT(t1, t0);
  EXPECT_EQ(t0, kWide) << "at Min the thumb touches the upper arrow";
  int32_t grab = (t0 + t1) / 2;
  desktop().mouseMove(kLeft + 8, kTop + grab);
  desktop().mouseDown();
  desktop().mouseMove(kLeft + 8, kTop + grab + 40);
  desktop().mouseMove(kLeft + 8, kTop + kLong + 300);  // far past the end: stays at Max
  EXPECT_EQ(bar->Value(), 100);
  EXPECT_EQ(scrolls, 2);
  EXPECT_EQ(changes, 0);
  desktop().mouseUp();
  EXPECT_EQ(changes, 1);
  bar->thumbExtent(t0, t1);
  EXPECT_EQ(t1, kLong - kWide) << "at Max the thumb touches the lower arrow";
}

TEST_F(ScrollBarTest, MinAboveMaxRunsTheOtherWay) {
  bar->setMax(0);
  bar->setMin(100);
  bar->setValue(100);
  clickAt(8, kLong - 5);
  EXPECT_EQ(bar->Value(), 99) << "the lower arrow moves towards Max";
}

TEST_F(ScrollBarTest, ADisabledBarIgnoresTheMouseAndHasNoThumb) {
  bar->setMax(100);
  bar->setEnabled(false);
  clickAt(8, kLong - 5);
  EXPECT_EQ(bar->Value(), 0);
  int32_t t0 = 0, t1 = 0;
  bar->thumbExtent(t0, t1);
  EXPECT_EQ(t1 - t0, 0);
}

TEST_F(ScrollBarTest, HorizontalBarStepsToTheRight) {
  auto h = add("HScrollBar", "HScroll1", 200, 17);
  h->setMax(10);
  desktop().click(kLeft + 195, kTop + 8);
  EXPECT_EQ(h->Value(), 1);
}

TEST_F(ScrollBarTest, DrawsArrowsTrackAndThumbInTheSystemColours) {
  bar->setMax(100);
  bar->setLargeChange(10);
  COLORREF face = gdi().GetSysColor(syscolor::BTNFACE), light = gdi().GetSysColor(syscolor::BTNHIGHLIGHT);
  COLORREF text = gdi().GetSysColor(syscolor::BTNTEXT);
  // The arrow's triangle sits in the middle of its square button.
  EXPECT_EQ(px(7, 8), text);
  EXPECT_EQ(px(3, 3), face);
  // The track is a checker of highlight and face.
  int32_t t0 = 0, t1 = 0;
  bar->thumbExtent(t0, t1);
  int32_t y = (t1 + kLong - kWide) / 2;
  EXPECT_NE(px(8, y), px(9, y));
  EXPECT_TRUE((px(8, y) == face && px(9, y) == light) || (px(8, y) == light && px(9, y) == face));
  // The thumb is a raised face.
  EXPECT_EQ(px(8, (t0 + t1) / 2), face);
}

TEST_F(ScrollBarTest, PropertiesSurviveABag) {
  bar->setMin(-10);
  bar->setMax(50);
  bar->setValue(7);
  bar->setSmallChange(3);
  bar->setLargeChange(9);
  PropertyBag bag;
  bar->WriteProperties(bag);
  auto copy = add("VScrollBar", "VScroll2", kWide, kLong, &bag);
  EXPECT_EQ(copy->Min(), -10);
  EXPECT_EQ(copy->Max(), 50);
  EXPECT_EQ(copy->Value(), 7);
  EXPECT_EQ(copy->SmallChange(), 3);
  EXPECT_EQ(copy->LargeChange(), 9);
  PropertyBag empty;
  add("VScrollBar", "VScroll3", kWide, kLong)->WriteProperties(empty);
  EXPECT_TRUE(empty.entries().empty());
}

TEST_F(ScrollBarTest, MembersAreReachableByName) {
  bar->let("Max", Variant(static_cast<int16_t>(60)));
  bar->let("Value", Variant(static_cast<int16_t>(30)));
  EXPECT_EQ(bar->get("Value").toInteger(), 30);
  EXPECT_EQ(bar->get("Max").toInteger(), 60);
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace corvane

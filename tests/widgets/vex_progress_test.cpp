// SPDX-License-Identifier: MIT
#include <corvane/host/property_bag.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_progress.h>
#include <gtest/gtest.h>

#include <string>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

constexpr COLORREF kBorder = 0xC0C0C0, kBar = 0xB3783E, kWhite = 0xFFFFFF;

bool near(COLORREF a, COLORREF b, int tolerance = 8) {
  for (int sh = 0; sh < 24; sh += 8)
    if (std::abs(static_cast<int>((a >> sh) & 255) - static_cast<int>((b >> sh) & 255)) > tolerance)
      return false;
  return true;
}

// A progress bar of 200 by 20 pixels at (20, 20) on a shown form.
class ProgressTest : public test::DesktopTest {
 protected:
  static constexpr int32_t kWidth = 200, kHeight = 20;
  static constexpr float kTwips = 15;

  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 4000, 2250, true);
    form->Show();
    bar = std::dynamic_pointer_cast<VexProgress>(form->add("VexProgress", "Progress1", nullptr, 20 * kTwips,
                                                           20 * kTwips, kWidth * kTwips, kHeight * kTwips));
    ASSERT_TRUE(bar);
  }
  void TearDown() override {
    bar.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  COLORREF windowPx(int32_t x, int32_t y) {
    return desktop().windows().windowCanvas(bar->hWnd())->pixel(x, y);
  }
  int pixelsOf(COLORREF colour, int32_t x0, int32_t y0, int32_t x1, int32_t y1, int tolerance = 8) {
    int n = 0;
    for (int32_t y = y0; y < y1; ++y)
      for (int32_t x = x0; x < x1; ++x) n += near(windowPx(x, y), colour, tolerance);
    return n;
  }

  FormRef form;
  std::shared_ptr<VexProgress> bar;
};

TEST_F(ProgressTest, StartsWithMaxValueHundredAndSevenPixelsAsTheLeastNumberWidth) {
  EXPECT_EQ(bar->MaxValue(), 100);
  EXPECT_FLOAT_EQ(bar->MinLabelWidth(), 7 * kTwips);
  EXPECT_EQ(bar->BackColor(), kWhite);
}

TEST_F(ProgressTest, ResizeLaysOutFrameBarAndNumber) {
  EXPECT_FLOAT_EQ(bar->prgBorder().Left, 0);
  EXPECT_FLOAT_EQ(bar->prgBorder().Top, 0);
  EXPECT_FLOAT_EQ(bar->prgBorder().Width, kWidth * kTwips);
  EXPECT_FLOAT_EQ(bar->prgBorder().Height, kHeight * kTwips);
  EXPECT_FLOAT_EQ(bar->FullWidth(), (kWidth - 2) * kTwips);
  EXPECT_FLOAT_EQ(bar->prgBar().Left, kTwips);
  EXPECT_FLOAT_EQ(bar->prgBar().Top, kTwips);
  EXPECT_FLOAT_EQ(bar->prgBar().Width, 0);
  EXPECT_FLOAT_EQ(bar->prgBar().Height, (kHeight - 2) * kTwips);
  const float h = bar->txtPer().Height;
  EXPECT_GT(h, 0);
  EXPECT_FLOAT_EQ(bar->txtPer().Top, (kHeight - 2) * kTwips / 2 - h / 2 + kTwips);
  EXPECT_FLOAT_EQ(bar->txtPer().Left, kTwips);
  EXPECT_FALSE(bar->txtPer().Visible);
}

TEST_F(ProgressTest, HalfWayDrawsHalfTheBarWithItsNumber) {
  bar->UpdateTo(50);
  EXPECT_FLOAT_EQ(bar->prgBar().Width, (kWidth - 2) * kTwips / 2);
  EXPECT_FLOAT_EQ(bar->txtPer().Width, bar->prgBar().Width);
  EXPECT_EQ(bar->txtPerText(), "50%");
  EXPECT_TRUE(bar->prgBar().Visible);
  EXPECT_TRUE(bar->txtPer().Visible);
  // Frame, bar from pixel 1 to 99, white behind it.
  EXPECT_TRUE(near(windowPx(0, 0), kBorder));
  EXPECT_TRUE(near(windowPx(kWidth - 1, kHeight - 1), kBorder));
  EXPECT_TRUE(near(windowPx(1, 1), kBar));
  EXPECT_TRUE(near(windowPx(99, kHeight - 2), kBar));
  EXPECT_TRUE(near(windowPx(100, 10), kWhite));
  EXPECT_TRUE(near(windowPx(150, 10), kWhite));
  EXPECT_GT(pixelsOf(kWhite, 1, 1, 100, kHeight - 1, 60), 5) << "the number in white on the bar";
}

TEST_F(ProgressTest, ZeroHidesBarAndNumber) {
  bar->UpdateTo(50);
  bar->UpdateTo(0);
  EXPECT_FALSE(bar->prgBar().Visible);
  EXPECT_FALSE(bar->txtPer().Visible);
  EXPECT_EQ(pixelsOf(kBar, 0, 0, kWidth, kHeight), 0);
  EXPECT_EQ(bar->txtPerText(), "0%");
}

TEST_F(ProgressTest, ValueAboveMaxValueIsShownAsHundredPercent) {
  bar->UpdateTo(250);
  EXPECT_EQ(bar->txtPerText(), "100%");
  EXPECT_FLOAT_EQ(bar->prgBar().Width, bar->FullWidth());
  EXPECT_TRUE(near(windowPx(kWidth - 2, 10), kBar));
}

TEST_F(ProgressTest, WithMaxValueZeroAnyValueFromZeroCountsAsFull) {
  bar->setMaxValue(0);
  bar->UpdateTo(0);
  EXPECT_EQ(bar->txtPerText(), "100%");
  EXPECT_FLOAT_EQ(bar->prgBar().Width, bar->FullWidth());
  EXPECT_FALSE(bar->prgBar().Visible) << "a value below 1 still hides the bar";
  bar->UpdateTo(7);
  EXPECT_EQ(bar->txtPerText(), "100%");
  EXPECT_TRUE(bar->prgBar().Visible);
}

TEST_F(ProgressTest, NegativeValueWithMaxValueZeroIsDivisionByZero) {
  bar->setMaxValue(0);
  try {
    bar->UpdateTo(-1);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 11);
  }
}

TEST_F(ProgressTest, NegativeValueIsAnInvalidBarWidth) {
  bar->UpdateTo(40);
  try {
    bar->UpdateTo(-5);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
  }
  EXPECT_FLOAT_EQ(bar->prgBar().Width, bar->FullWidth() * 0.4f) << "the bar keeps its width";
}

TEST_F(ProgressTest, ShortBarShowsNoNumberAndAShownNumberStays) {
  // 3 % of 198 pixels is under 6 pixels: narrower than the 7 a number needs.
  bar->UpdateTo(3);
  EXPECT_TRUE(bar->prgBar().Visible);
  EXPECT_FALSE(bar->txtPer().Visible);
  bar->UpdateTo(50);
  EXPECT_TRUE(bar->txtPer().Visible);
  bar->UpdateTo(3);
  EXPECT_TRUE(bar->txtPer().Visible) << "a shown number stays until the value falls below 1";
  EXPECT_EQ(bar->txtPerText(), "3%");
}

TEST_F(ProgressTest, BarOfOnePixelOrLessStaysHidden) {
  bar->setMaxValue(1000);
  bar->UpdateTo(5);  // 0.99 pixel
  EXPECT_FALSE(bar->prgBar().Visible);
  EXPECT_EQ(bar->txtPerText(), "1%");
  bar->UpdateTo(6);  // 1.19 pixels
  EXPECT_TRUE(bar->prgBar().Visible);
}

TEST_F(ProgressTest, MaxValueChangesNothingUntilTheNextUpdate) {
  bar->UpdateTo(50);
  bar->setMaxValue(200);
  EXPECT_EQ(bar->txtPerText(), "50%");
  EXPECT_FLOAT_EQ(bar->prgBar().Width, bar->FullWidth() / 2);
  bar->UpdateTo(50);
  EXPECT_EQ(bar->txtPerText(), "25%");
}

TEST_F(ProgressTest, ResetWithoutArgumentsOnlyClearsTheBar) {
  bar->UpdateTo(60);
  bar->Reset();
  EXPECT_FALSE(bar->prgBar().Visible);
  EXPECT_FALSE(bar->txtPer().Visible);
  EXPECT_EQ(bar->BackColor(), kWhite);
  EXPECT_EQ(bar->prgBar().BackColor, kBar);
  EXPECT_EQ(bar->txtPer().BackColor, kBar);
  EXPECT_EQ(bar->prgBorder().BackColor, kBorder);
  EXPECT_EQ(bar->txtPerForeColor(), kWhite);
}

TEST_F(ProgressTest, ResetAppliesEachGivenColour) {
  bar->Reset(0x00FFFF, -1, 0x0000FF, -1);
  EXPECT_EQ(bar->BackColor(), 0x00FFFF);
  EXPECT_EQ(bar->prgBar().BackColor, kBar);
  EXPECT_EQ(bar->prgBorder().BackColor, 0x0000FF);
  bar->Reset(-1, 0x00FF00, -1, 0);
  EXPECT_EQ(bar->prgBar().BackColor, 0x00FF00);
  EXPECT_EQ(bar->txtPer().BackColor, 0x00FF00);
  EXPECT_EQ(bar->txtPerForeColor(), 0);
  bar->UpdateTo(50);
  EXPECT_TRUE(near(windowPx(0, 0), 0x0000FF));
  EXPECT_TRUE(near(windowPx(2, 2), 0x00FF00));
  EXPECT_TRUE(near(windowPx(150, 10), 0x00FFFF));
}

TEST_F(ProgressTest, ResetByNameTakesMissingArgumentsAsLeftOut) {
  Dispatch::Args args{Variant(int32_t(0x00FFFF))};
  bar->invoke("Reset", CallType::Method, args);
  EXPECT_EQ(bar->BackColor(), 0x00FFFF);
  EXPECT_EQ(bar->prgBar().BackColor, kBar);
  Dispatch::Args update{Variant(int32_t(30))};
  bar->invoke("UpdateTo", CallType::Method, update);
  EXPECT_EQ(bar->txtPerText(), "30%");
}

TEST_F(ProgressTest, NothingIsPersisted) {
  bar->UpdateTo(50);
  bar->setMaxValue(10);
  PropertyBag bag;
  bar->WriteProperties(bag);
  EXPECT_TRUE(bag.writeOrder().empty());
  auto loaded = std::dynamic_pointer_cast<VexProgress>(
      form->add("VexProgress", "Progress2", nullptr, 0, 0, 1500, 300, &bag));
  EXPECT_TRUE(bag.readOrder().empty());
  EXPECT_EQ(loaded->MaxValue(), 100);
}

TEST_F(ProgressTest, NoDrawingObjectIsLeftAlive) {
  int32_t before = desktop().liveDrawingObjects();
  bar->UpdateTo(50);
  bar->Reset(1, 2, 3, 4);
  EXPECT_EQ(desktop().liveDrawingObjects(), before);
}

}  // namespace
}  // namespace corvane

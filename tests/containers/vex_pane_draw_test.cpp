// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <sstream>

#include <corvane/frame/gradient.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/screen.h>
#include "pane_fixture.h"

namespace corvane {
namespace {

using test::ContainerTest;
using test::ExpectedImage;

constexpr COLORREF kBg = 0x40A040;
constexpr COLORREF kShadow = 0x808080;
constexpr COLORREF kLight = 0xFFFFFF;

// A pane of 3000 by 1500 twips (200 by 100 pixels) at pixel (20, 20) of the screen. The border's
// twip coordinates are left 4, top 4, right 2992, bottom 1492; at 15 twips a pixel they land on
// pixels 0, 0, 199 and 99, and the bottom edge runs from pixel 0 to 200 (clipped).
class PaneDrawTest : public ContainerTest {
 protected:
  void SetUp() override {
    ContainerTest::SetUp();
    pane = addPane("Pane1", 300, 300, 3000, 1500);
    ASSERT_TRUE(pane);
    pane->setBackColor(kBg);
  }
  void TearDown() override {
    pane.reset();
    ContainerTest::TearDown();
  }

  // Compares the composed screen under the pane with the expected picture.
  ::testing::AssertionResult screenMatches(const ExpectedImage& e) {
    int mismatches = 0;
    std::ostringstream out;
    const Canvas& screen = desktop().screen();  // composed once for the whole comparison
    for (int32_t y = 0; y < e.height(); ++y)
      for (int32_t x = 0; x < e.width(); ++x) {
        COLORREF got = screen.pixel(kOffset + x, kOffset + y);
        if (got != e.at(x, y)) {
          if (++mismatches <= 8)
            out << " (" << x << "," << y << "): got " << std::hex << got << " want " << e.at(x, y) << std::dec;
        }
      }
    if (mismatches == 0) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << mismatches << " pixels differ:" << out.str();
  }

  static ExpectedImage plainBox(COLORREF top, COLORREF right, COLORREF bottom, COLORREF left) {
    ExpectedImage e(200, 100, kBg);
    e.run(0, 0, 199, 0, top);
    e.run(199, 0, 199, 99, right);
    e.run(0, 99, 200, 99, bottom);
    e.run(0, 0, 0, 99, left);
    return e;
  }

  std::shared_ptr<VexPane> pane;
};

TEST_F(PaneDrawTest, NoneDrawsOnlyTheBackground) {
  pane->setBorderStyle(VexPane::btNone);
  EXPECT_TRUE(screenMatches(ExpectedImage(200, 100, kBg)));
}

TEST_F(PaneDrawTest, FlatIsASingleColourBoxInCrossColor1) {
  pane->setCrossColor1(0x0000FF);
  pane->setBorderStyle(VexPane::btFlat);
  EXPECT_TRUE(screenMatches(plainBox(0x0000FF, 0x0000FF, 0x0000FF, 0x0000FF)));
}

TEST_F(PaneDrawTest, FlatIgnoresCrossColor2) {
  pane->setBorderStyle(VexPane::btFlat);
  pane->setCrossColor2(0x00FFFF);
  EXPECT_TRUE(screenMatches(plainBox(kShadow, kShadow, kShadow, kShadow)));
}

TEST_F(PaneDrawTest, InsetIsShadowTopLeftAndLightBottomRight) {
  pane->setBorderStyle(VexPane::btInset);
  EXPECT_TRUE(screenMatches(plainBox(kShadow, kLight, kLight, kShadow)));
}

TEST_F(PaneDrawTest, RaisedIsLightTopLeftAndShadowBottomRight) {
  pane->setBorderStyle(VexPane::btRaised);
  EXPECT_TRUE(screenMatches(plainBox(kLight, kShadow, kShadow, kLight)));
}

TEST_F(PaneDrawTest, FrameAddsAGrooveFifteenTwipsInward) {
  pane->setBorderStyle(VexPane::btFrame);
  ExpectedImage e = plainBox(kShadow, kLight, kLight, kShadow);
  // Inner box: 19, 19, 2977, 1477 twips; its bottom edge runs from 20 to 2978 twips, which ends
  // on pixel 199 and so paints over the outer right edge there.
  e.run(1, 1, 198, 1, kLight);
  e.run(198, 1, 198, 98, kShadow);
  e.run(1, 98, 199, 98, kShadow);
  e.run(1, 1, 1, 98, kLight);
  EXPECT_TRUE(screenMatches(e));
  EXPECT_EQ(screenPixel(kOffset + 199, kOffset + 98), kShadow);
  EXPECT_EQ(screenPixel(kOffset + 199, kOffset + 97), kLight);
}

TEST_F(PaneDrawTest, HeadLinesIsADoubleRuleAcrossTheMiddle) {
  pane->setCrossColor1(0x0000C0);
  pane->setCrossColor2(0xC00000);
  pane->setBorderStyle(VexPane::btHeadLines);
  // y = 1492 / 2 - 15 = 731 twips (pixel 49), then 746 (pixel 50); from 17 pixels to 2992 twips.
  ExpectedImage e(200, 100, kBg);
  e.run(17, 49, 199, 49, 0x0000C0);
  e.run(17, 50, 199, 50, 0xC00000);
  EXPECT_TRUE(screenMatches(e));
}

// The top left ornament, hw = 1496 and hh = 746 twips.
void topLeftOrnament(ExpectedImage& e, COLORREF c1, COLORREF c2) {
  e.run(0, 10, 50, 10, c1);   // (4, 154) to (748, 154)
  e.run(4, 13, 54, 13, c2);   // (54, 194) to (808, 194)
  e.run(10, 3, 10, 50, c2);   // (154, 49) to (154, 746)
  e.run(13, 13, 13, 46, c1);  // (199, 195) to (199, 686)
}

TEST_F(PaneDrawTest, CrossSingleDrawsTheTopLeftOrnament) {
  pane->setCrossColor1(0x0000C0);
  pane->setCrossColor2(0xC00000);
  pane->setBorderStyle(VexPane::btCrossSingle);
  ExpectedImage e(200, 100, kBg);
  topLeftOrnament(e, 0x0000C0, 0xC00000);
  EXPECT_TRUE(screenMatches(e));
  // Later lines cross earlier ones.
  EXPECT_EQ(screenPixel(kOffset + 10, kOffset + 10), 0xC00000);
  EXPECT_EQ(screenPixel(kOffset + 13, kOffset + 13), 0x0000C0);
}

TEST_F(PaneDrawTest, CrossFullAddsTheBottomRightOrnament) {
  pane->setCrossColor1(0x0000C0);
  pane->setCrossColor2(0xC00000);
  pane->setBorderStyle(VexPane::btCrossFull);
  ExpectedImage e(200, 100, kBg);
  topLeftOrnament(e, 0x0000C0, 0xC00000);
  e.run(147, 86, 196, 86, 0xC00000);   // (2199, 1297) to (2947, 1297)
  e.run(150, 89, 200, 89, 0x0000C0);   // (2244, 1342) to (3007, 1342)
  e.run(189, 51, 189, 96, 0xC00000);   // (2842, 761) to (2842, 1447)
  e.run(186, 55, 186, 100, 0x0000C0);  // (2797, 821) to (2797, 1507)
  EXPECT_TRUE(screenMatches(e));
  // Not a mirror of the top left: the rules sit 13 and 10 pixels up, not 10 and 13.
  EXPECT_EQ(screenPixel(kOffset + 160, kOffset + 86), 0xC00000);
  EXPECT_EQ(screenPixel(kOffset + 160, kOffset + 89), 0x0000C0);
}

TEST_F(PaneDrawTest, FrameDrawsEightLinesAndInsetFour) {
  pane->setBorderStyle(VexPane::btFrame);
  auto frame = linesDrawn(pane->hdc(), [&] { pane->DrawPane(); });
  EXPECT_EQ(frame, (std::vector<std::vector<int>>{{0, 0, 199, 0},
                                                  {199, 0, 199, 99},
                                                  {0, 99, 200, 99},
                                                  {0, 0, 0, 99},
                                                  {1, 1, 198, 1},
                                                  {198, 1, 198, 98},
                                                  {1, 98, 199, 98},
                                                  {1, 1, 1, 98}}));
  pane->setBorderStyle(VexPane::btInset);
  auto inset = linesDrawn(pane->hdc(), [&] { pane->DrawPane(); });
  EXPECT_EQ(inset, (std::vector<std::vector<int>>{{0, 0, 199, 0}, {199, 0, 199, 99}, {0, 99, 200, 99}, {0, 0, 0, 99}}));
}

TEST_F(PaneDrawTest, LineCountsOfEveryStyle) {
  const std::vector<std::pair<VexPane::BorderType, size_t>> expected = {
      {VexPane::btNone, 0},   {VexPane::btFlat, 4},        {VexPane::btFrame, 8},     {VexPane::btInset, 4},
      {VexPane::btRaised, 4}, {VexPane::btCrossSingle, 4}, {VexPane::btCrossFull, 8}, {VexPane::btHeadLines, 2}};
  for (auto [style, count] : expected) {
    pane->setBorderStyle(style);
    EXPECT_EQ(linesDrawn(pane->hdc(), [&] { pane->DrawPane(); }).size(), count) << "style " << style;
  }
}

TEST_F(PaneDrawTest, DrawPaneClearsFirst) {
  pane->setBorderStyle(VexPane::btCrossFull);
  pane->setBorderStyle(VexPane::btHeadLines);
  ExpectedImage e(200, 100, kBg);
  e.run(17, 49, 199, 49, kShadow);
  e.run(17, 50, 199, 50, kLight);
  EXPECT_TRUE(screenMatches(e)) << "nothing of the ornaments is left";
}

// ---- scale ----

TEST_F(PaneDrawTest, PlainFramesEndWithTheInnerScale) {
  for (auto style : {VexPane::btFlat, VexPane::btFrame, VexPane::btInset, VexPane::btRaised}) {
    pane->setBorderStyle(style);
    EXPECT_FLOAT_EQ(pane->ScaleLeft(), 8) << style;
    EXPECT_FLOAT_EQ(pane->ScaleTop(), 8) << style;
    EXPECT_FLOAT_EQ(pane->ScaleWidth(), 2988) << style;  // right - 4 = 3000 - 12
    EXPECT_FLOAT_EQ(pane->ScaleHeight(), 1488) << style;
  }
}

TEST_F(PaneDrawTest, HeadLinesAndCrossStylesLeaveTheFullSize) {
  for (auto style : {VexPane::btHeadLines, VexPane::btCrossSingle, VexPane::btCrossFull}) {
    pane->setBorderStyle(VexPane::btFlat);  // start from the inner scale
    pane->setBorderStyle(style);
    EXPECT_FLOAT_EQ(pane->ScaleLeft(), 0) << style;
    EXPECT_FLOAT_EQ(pane->ScaleTop(), 0) << style;
    EXPECT_FLOAT_EQ(pane->ScaleWidth(), 3000) << style;
    EXPECT_FLOAT_EQ(pane->ScaleHeight(), 1500) << style;
  }
}

TEST_F(PaneDrawTest, NoneLeavesTheScaleAsItWas) {
  // A new pane has the scale of its defaults, which a pane without a border keeps.
  EXPECT_EQ(pane->surface().ScaleMode(), Surface::User);
  EXPECT_FLOAT_EQ(pane->ScaleWidth(), 8025);
  pane->setBorderStyle(VexPane::btRaised);
  pane->setBorderStyle(VexPane::btNone);
  EXPECT_FLOAT_EQ(pane->ScaleLeft(), 8) << "None stops before the scale is touched";
  EXPECT_FLOAT_EQ(pane->ScaleWidth(), 2988);
}

TEST_F(PaneDrawTest, InnerScaleGivesTheLeftEdgeTheCoordinateEight) {
  pane->setBorderStyle(VexPane::btFrame);
  // ScaleLeft is the coordinate of the left edge: a child at (8, 8) sits on the pane's first pixel.
  auto child = form->add("PictureBox", "Pic1", pane.get(), 8, 8, 600, 300);
  RECT r;
  user().GetWindowRect(child->surface().hWnd(), r);
  EXPECT_EQ(r.Left, kOffset);
  EXPECT_EQ(r.Top, kOffset);
}

TEST_F(PaneDrawTest, AfterResizeScaleWidthFollowsTheLastDraw) {
  PropertyBag bag;
  bag.set("BorderStyle", static_cast<int16_t>(VexPane::btFlat));
  bag.set("ScaleWidth", 8025.0f);
  bag.set("ScaleHeight", 6300.0f);
  auto loaded = addPane("Pane2", 300, 2400, 3000, 1500, &bag);
  EXPECT_FLOAT_EQ(loaded->ScaleWidth(), 2988) << "not the stored 8025";
  EXPECT_FLOAT_EQ(loaded->ScaleHeight(), 1488);

  loaded->setScaleWidth(1234);
  float widthInHandler = 0;
  loaded->Resize.connect([&] { widthInHandler = loaded->ScaleWidth(); });
  loaded->extenderObject().setWidth(4500);
  EXPECT_FLOAT_EQ(loaded->ScaleWidth(), 4488);
  EXPECT_FLOAT_EQ(widthInHandler, 4488) << "DrawPane runs before Resize is raised";
}

TEST_F(PaneDrawTest, ResizeRedrawsTheBorderAtTheNewSize) {
  pane->setBorderStyle(VexPane::btFlat);
  pane->extenderObject().setWidth(2400);  // 160 pixels
  EXPECT_EQ(screenPixel(kOffset + 159, kOffset + 50), kShadow);
  EXPECT_EQ(screenPixel(kOffset + 158, kOffset + 50), kBg);
}

// ---- guarded steps ----

TEST_F(PaneDrawTest, AFailingStepIsSkippedAndTheNextRuns) {
  pane->setBorderStyle(VexPane::btFlat);
  pane->extenderObject().setWidth(0);  // ScaleWidth = Width = 0 is refused
  EXPECT_NO_THROW(pane->DrawPane());
  EXPECT_FLOAT_EQ(pane->ScaleHeight(), 1488) << "the statements after the failing one ran";
  EXPECT_FLOAT_EQ(pane->ScaleWidth(), -12);  // right - 4 with right = 0 - 8
}

TEST_F(PaneDrawTest, UnsitedPaneDrawsNothingAndRaisesNothing) {
  auto loose = std::make_shared<VexPane>();
  EXPECT_NO_THROW(loose->DrawPane());
  EXPECT_NO_THROW(loose->setGradient(true));
  EXPECT_NO_THROW(loose->setBorderStyle(VexPane::btCrossFull));
  CGradient g;
  EXPECT_FALSE(g.Draw(loose->extenderRef())) << "no extender, no gradient";
}

// ---- gradient ----

// A picture box of the pane's size with a gradient drawn by a CGradient of the given settings.
class PaneGradientTest : public PaneDrawTest {
 protected:
  HostedControlRef reference(int32_t colour1, int32_t colour2, float angle) {
    auto pic = form->add("PictureBox", "Ref" + std::to_string(++m_refs), nullptr, 300, 3000, 3000, 1500);
    CGradient g;
    g.setAngle(angle);
    g.setColor1(colour1);
    g.setColor2(colour2);
    EXPECT_TRUE(g.Draw(pic->extenderRef()));
    return pic;
  }
  // Pixels that differ between the pane's window and another window of the same size.
  int differingPixels(const HostedControl& other) {
    int n = 0;
    for (int32_t y = 0; y < 100; ++y)
      for (int32_t x = 0; x < 200; ++x)
        if (gdi().GetPixel(pane->hdc(), x, y) != gdi().GetPixel(other.surface().hdc(), x, y)) ++n;
    return n;
  }
  int m_refs = 0;
};

TEST_F(PaneGradientTest, GradientUsesBackColorBackColor2AndTheAngle) {
  pane->setBackColor(0x2060E0);
  pane->setBackColor2(0xE06020);
  pane->setGradientAngle(45);
  pane->setGradient(true);
  auto same = reference(0x2060E0, 0xE06020, 45);
  EXPECT_EQ(differingPixels(*same), 0);
  auto otherAngle = reference(0x2060E0, 0xE06020, 130);
  EXPECT_GT(differingPixels(*otherAngle), 1000);
}

TEST_F(PaneGradientTest, DefaultAngleIs130) {
  pane->setBackColor2(0x0000FF);
  pane->setGradient(true);
  auto same = reference(kBg, 0x0000FF, 130);
  EXPECT_EQ(differingPixels(*same), 0);
}

TEST_F(PaneGradientTest, SystemBackColorIsResolvedByTheGradient) {
  gdi().SetSysColor(15, 0x3399CC);
  pane->setBackColor(static_cast<OLE_COLOR>(0x8000000F));
  pane->setBackColor2(0x000080);
  pane->setGradient(true);
  auto resolved = reference(0x3399CC, 0x000080, 130);
  EXPECT_EQ(differingPixels(*resolved), 0);
}

TEST_F(PaneGradientTest, BorderIsDrawnOverTheGradient) {
  pane->setBackColor2(0x0000FF);
  pane->setGradient(true);
  pane->setBorderStyle(VexPane::btFlat);
  auto ref = reference(kBg, 0x0000FF, 130);
  EXPECT_EQ(differingPixels(*ref), 596) << "exactly the box outline differs";
  EXPECT_EQ(screenPixel(kOffset + 100, kOffset), kShadow);
}

TEST_F(PaneGradientTest, GradientOffClearsToBackColor) {
  pane->setBackColor2(0x0000FF);
  pane->setGradient(true);
  pane->setGradient(false);
  EXPECT_TRUE(screenMatches(ExpectedImage(200, 100, kBg)));
}

TEST_F(PaneGradientTest, TheExtenderPassesHwndAndHdcToTheGradient) {
  EXPECT_EQ(pane->extenderObject().get("hWnd").toLong(), pane->hWnd());
  EXPECT_EQ(pane->extenderObject().get("hDC").toLong(), pane->hdc());
  CGradient g;
  EXPECT_TRUE(g.Draw(pane->extenderRef()));
}

// ---- twips per pixel other than 15 ----

class PaneTenTwipsTest : public ContainerTest {
 protected:
  Desktop::Options options() const override {
    Desktop::Options o;
    o.twipsPerPixelX = 10;
    o.twipsPerPixelY = 10;
    return o;
  }
};

TEST_F(PaneTenTwipsTest, FrameGrooveKeepsAGapOnTheTopLeftAtTenTwips) {
  // 2000 by 1000 twips: outer box on 0, 0, 199, 99; inner box 19 twips in rounds to pixel 2.
  auto p = addPane("Pane1", 200, 200, 2000, 1000);
  p->setBackColor(kBg);
  p->setBorderStyle(VexPane::btFrame);
  auto lines = linesDrawn(p->hdc(), [&] { p->DrawPane(); });
  EXPECT_EQ(lines, (std::vector<std::vector<int>>{{0, 0, 199, 0},
                                                  {199, 0, 199, 99},
                                                  {0, 99, 199, 99},
                                                  {0, 0, 0, 99},
                                                  {2, 2, 198, 2},
                                                  {198, 2, 198, 98},
                                                  {2, 98, 198, 98},
                                                  {2, 2, 2, 98}}));
  EXPECT_EQ(screenPixel(kOffset + 1, kOffset + 50), kBg);
  EXPECT_EQ(screenPixel(kOffset + 2, kOffset + 50), kLight);
  EXPECT_EQ(screenPixel(kOffset + 198, kOffset + 50), kShadow);
  EXPECT_FLOAT_EQ(p->ScaleWidth(), 1988);
}

// Fifteen twips across, twelve down: the ornaments' mixed factors show.
class PaneMixedTwipsTest : public ContainerTest {
 protected:
  Desktop::Options options() const override {
    Desktop::Options o;
    o.twipsPerPixelX = 15;
    o.twipsPerPixelY = 12;
    return o;
  }
};

TEST_F(PaneMixedTwipsTest, CrossFullUsesTheFactorsAsWritten) {
  // 3000 by 1200 twips: right 2992, bottom 1192, hw 1496, hh 596.
  auto p = addPane("Pane1", 300, 240, 3000, 1200);
  p->setBorderStyle(VexPane::btCrossFull);
  auto lines = linesDrawn(p->hdc(), [&] { p->DrawPane(); });
  EXPECT_EQ(lines, (std::vector<std::vector<int>>{
                       {0, 10, 50, 10},       // top + 10 * ty = 124
                       {4, 16, 54, 16},       // top + 190 = 194
                       {10, 3, 10, 50},       // top + 3 * ty = 40 to hh
                       {13, 16, 13, 46},      // 13 * tx = 195 down to hh - 4 * ty = 548
                       {147, 83, 196, 86},    // bottom - 13 * tx = 997 to bottom - 13 * ty = 1036: slanted
                       {150, 87, 200, 87},    // bottom - 10 * tx = 1042
                       {189, 51, 189, 96},    // hh + tx = 611 to bottom - 3 * tx = 1147
                       {186, 56, 186, 100}}));  // hh + 5 * tx = 671 to bottom + ty = 1204
}

TEST_F(PaneMixedTwipsTest, HeadLinesStepByTheVerticalFactor) {
  auto p = addPane("Pane1", 300, 240, 3000, 1200);
  p->setBorderStyle(VexPane::btHeadLines);
  auto lines = linesDrawn(p->hdc(), [&] { p->DrawPane(); });
  // y = 1192 / 2 - 12 = 584 (pixel 48.67 -> 49), then 596 (49.67 -> 50); x from 17 * 15 twips.
  EXPECT_EQ(lines, (std::vector<std::vector<int>>{{17, 49, 199, 49}, {17, 50, 199, 50}}));
}

}  // namespace
}  // namespace corvane

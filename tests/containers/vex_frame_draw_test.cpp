// SPDX-License-Identifier: MIT
#include <corvane/host/property_bag.h>
#include <corvane/platform/api.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/frame_fixture.h"

namespace corvane {
namespace {

constexpr COLORREF kRed = 0x0000FF, kBlue = 0xFF0000, kWhite = 0xFFFFFF, kBlack = 0;

class FrameDrawTest : public test::FrameTest {
 protected:
  // A caption of one colour for the A ramp and another for the B ramp.
  void flatRamps(COLORREF a, COLORREF b) {
    frame->setTopLeftAColor(a);
    frame->setTopRightAColor(a);
    frame->setTopLeftBColor(b);
    frame->setTopRightBColor(b);
  }
  static bool contains(const std::vector<std::string>& log, const std::string& entry) {
    return std::find(log.begin(), log.end(), entry) != log.end();
  }
  static int countPrefix(const std::vector<std::string>& log, const std::string& prefix) {
    return static_cast<int>(
        std::count_if(log.begin(), log.end(), [&](const std::string& l) { return l.rfind(prefix, 0) == 0; }));
  }
};

TEST_F(FrameDrawTest, HozLinesStripesCoverExactlyTheDefaultCaption) {
  flatRamps(kRed, kBlue);
  ASSERT_EQ(frame->captionPixels(), 20);
  // Two rows of the A ramp, one of the B ramp, repeated; the last two rows are A.
  for (int y = 0; y < 18; ++y) EXPECT_EQ(px(100, y), y % 3 == 2 ? kBlue : kRed) << "row " << y;
  EXPECT_EQ(px(100, 18), kRed);
  EXPECT_EQ(px(100, 19), kRed);
  EXPECT_EQ(px(100, 20), kWhite) << "the client area starts below the caption";
}

TEST_F(FrameDrawTest, HozLinesStopShortOfATallCaptionAndPassASmallOne) {
  flatRamps(kRed, kBlue);
  frame->setCaptionHeight(8);  // 36 pixels; stripes over 8 * 3 + 8 = 32 rows
  EXPECT_EQ(px(100, 31), kRed);
  EXPECT_EQ(px(100, 32), kWhite);
  EXPECT_EQ(px(100, 35), kWhite);
  frame->setCaptionHeight(1);  // 8 pixels; stripes over 11 rows
  EXPECT_EQ(frame->captionPixels(), 8);
  EXPECT_EQ(px(100, 10), kRed);
  EXPECT_EQ(px(100, 11), kWhite);
}

TEST_F(FrameDrawTest, HozLinesOfAVeryTallCaptionFillTheSurfaceWithoutDrawingBelowIt) {
  flatRamps(kRed, kBlue);
  frame->setCaptionHeight(8190);  // 32764 pixels of caption on a frame of 109
  EXPECT_EQ(px(100, 105), kRed);
  EXPECT_EQ(px(100, 107), kBlue);
  EXPECT_EQ(px(100, 108), kRed);
  // A band per pixel of width for each stripe that starts inside the surface: 37 rows of
  // stripes, two ramps each, at most one band per column and one more.
  std::vector<std::string> calls = drawLog();
  EXPECT_LE(countPrefix(calls, "FillRect"), 37 * 2 * (kWidth + 2) + 100);
}

TEST_F(FrameDrawTest, HozLinesLimitBeyond16BitsIsAnOverflowAndDrawsNoStripes) {
  PropertyBag bag;
  bag.set("CaptionHeight", static_cast<int16_t>(32767));
  bag.set("TopLeftAColor", static_cast<int32_t>(kRed));
  bag.set("TopRightAColor", static_cast<int32_t>(kRed));
  auto f = addFrame("Frame2", &bag);
  EXPECT_EQ(f->CaptionHeight(), 32767);
  EXPECT_EQ(f->captionPixels(), 20) << "the caption's pixels overflow and keep their value";
  COLORREF top = desktop().windows().windowCanvas(f->hWnd())->pixel(100, 0);
  EXPECT_EQ(top, kWhite) << "CaptionHeight + 1 overflows: no stripe";
}

TEST_F(FrameDrawTest, HozSolidRampRunsFromTopToBottomInBandsWorkedInward) {
  frame->setTopLeftAColor(RGB(0, 0, 0));
  frame->setTopRightAColor(RGB(200, 200, 200));
  frame->setCaptionStyle(VexFrame::pbHozSolid);
  // Twenty one-pixel bands from the bottom: the two lowest have the bottom colour, then each
  // band moves a twentieth towards the top colour; row 0 is band p = 1, at 18/20 of the way.
  EXPECT_EQ(px(50, 19), RGB(200, 200, 200));
  EXPECT_EQ(px(50, 18), RGB(200, 200, 200));
  EXPECT_EQ(px(50, 17), RGB(190, 190, 190));
  EXPECT_EQ(px(50, 0), RGB(20, 20, 20));
  EXPECT_EQ(px(50, 20), kWhite);
}

TEST_F(FrameDrawTest, VerSolidRampRunsFromLeftToRight) {
  frame->setTopLeftAColor(RGB(0, 0, 0));
  frame->setTopRightBColor(RGB(0, 0, 184));
  frame->setCaptionStyle(VexFrame::pbVerSolid);
  EXPECT_EQ(px(kWidth - 1, 5), RGB(0, 0, 184));
  EXPECT_EQ(px(kWidth - 2, 5), RGB(0, 0, 184));
  EXPECT_EQ(px(kWidth - 3, 5), RGB(0, 0, 183));  // (185 - 184) * -184 / 185 + 184, rounded
}

TEST_F(FrameDrawTest, SolidCaptionLeavesAOnePixelEdgeOfTheBackColour) {
  frame->setTopLeftAColor(kRed);
  frame->setCaptionStyle(VexFrame::pbSolid);
  EXPECT_EQ(px(0, 5), kWhite);
  EXPECT_EQ(px(5, 0), kWhite);
  EXPECT_EQ(px(kWidth - 1, 5), kWhite);
  EXPECT_EQ(px(1, 1), kRed);
  EXPECT_EQ(px(kWidth - 2, 19), kRed);
  EXPECT_EQ(px(5, 20), kWhite);
}

TEST_F(FrameDrawTest, CaptionBordersDrawOnTheCaptionRectangle) {
  frame->setCaptionStyle(VexFrame::pbSolid);
  frame->setTopLeftAColor(kWhite);
  frame->setBorderColor(kRed);
  frame->setCaptionBorder(VexFrame::pbLine);
  EXPECT_EQ(px(1, 1), kRed);
  EXPECT_EQ(px(kWidth - 2, 19), kRed);
  EXPECT_EQ(px(5, 5), kWhite);
  EXPECT_TRUE(contains(drawLog(), "DrawTextA(,36)"));

  auto edgeOf = [&](VexFrame::pbBorderStyle style) {
    frame->setCaptionBorder(style);
    std::vector<std::string> log = drawLog();
    return std::count_if(log.begin(), log.end(),
                         [](const std::string& l) { return l.rfind("DrawEdge(1,1,184,20,", 0) == 0; })
               ? *std::find_if(log.begin(), log.end(),
                               [](const std::string& l) { return l.rfind("DrawEdge(", 0) == 0; })
               : std::string();
  };
  EXPECT_EQ(edgeOf(VexFrame::pbSunken), "DrawEdge(1,1,184,20,2,15)");
  EXPECT_EQ(edgeOf(VexFrame::pbThinRaised), "DrawEdge(1,1,184,20,4,15)");
  EXPECT_EQ(edgeOf(VexFrame::pbRaised), "DrawEdge(1,1,184,20,5,15)");
  EXPECT_EQ(edgeOf(VexFrame::pbNone), "");
  EXPECT_EQ(edgeOf(VexFrame::pbRound), "");
}

TEST_F(FrameDrawTest, BorderStylesFrameTheWholeControl) {
  frame->setBorderColor(kRed);
  frame->setBorderStyle(VexFrame::pbLine);
  EXPECT_EQ(px(0, kHeight - 1), kRed);
  EXPECT_EQ(px(kWidth - 1, 60), kRed);
  auto edges = [&](VexFrame::pbBorderStyle style) {
    frame->setBorderStyle(style);
    return countPrefix(drawLog(), "DrawEdge(0,0,185,109," +
                                      std::to_string(style == VexFrame::pbSunken       ? 2
                                                     : style == VexFrame::pbThinRaised ? 4
                                                                                       : 5) +
                                      ",15)");
  };
  EXPECT_EQ(edges(VexFrame::pbSunken), 1);
  EXPECT_EQ(edges(VexFrame::pbThinRaised), 1);
  EXPECT_EQ(edges(VexFrame::pbRaised), 1);
}

TEST_F(FrameDrawTest, RoundCaptionWithoutBorderCutsTheCornersOnly) {
  frame->setBorderRoundColor(kBlue);
  frame->setCaptionBorder(VexFrame::pbRound);
  int widths[5] = {5, 3, 2, 1, 1};
  for (int y = 0; y < 5; ++y) {
    EXPECT_EQ(px(widths[y] - 1, y), kBlue) << y;
    EXPECT_NE(px(widths[y], y), kBlue) << y;
    EXPECT_EQ(px(kWidth - widths[y], y), kBlue) << y;
    EXPECT_NE(px(kWidth - widths[y] - 1, y), kBlue) << y;
  }
  EXPECT_EQ(px(0, kHeight - 1), kWhite) << "no frame";
  EXPECT_FALSE(frame->AutoColorRoundBorder()) << "a chosen colour ends the automatic one";
}

TEST_F(FrameDrawTest, RoundBorderStartsBelowTheCaptionAndOpensItsTopEdge) {
  frame->setBorderColor(kRed);
  frame->setCaptionBorder(VexFrame::pbRound);
  frame->setBorderStyle(VexFrame::pbRound);
  EXPECT_EQ(px(0, 20), kRed);
  EXPECT_EQ(px(0, kHeight - 1), kRed);
  EXPECT_EQ(px(50, kHeight - 1), kRed);
  EXPECT_EQ(px(50, 20), kWhite) << "the top edge is opened towards the caption";
  EXPECT_EQ(px(kWidth - 1, 20), kRed);
}

TEST_F(FrameDrawTest, AmpersandIsDoubledAndALongCaptionIsCompacted) {
  frame->setCaption("A&B");
  std::vector<std::string> log = drawLog();
  EXPECT_TRUE(contains(log, "DrawTextA(A&&B,36)"));
  frame->setCaptionAlign(VexFrame::CaptionRight);
  EXPECT_TRUE(contains(drawLog(), "DrawTextA(A&&B,38)"));
  frame->setCaption("C:\\Programme\\Ein sehr langer Ordnername\\noch ein Ordner\\Datei.txt");
  log = drawLog();
  // The width given is the room between 4 and 185, less 6.
  EXPECT_EQ(countPrefix(log, "PathCompactPathA("), 1);
  auto text = std::find_if(log.begin(), log.end(),
                           [](const std::string& l) { return l.rfind("DrawTextA(", 0) == 0; });
  ASSERT_NE(text, log.end());
  EXPECT_NE(text->find("..."), std::string::npos) << *text;
}

TEST_F(FrameDrawTest, DisabledFrameEmbossesItsCaption) {
  frame->setCaption("Aus");
  frame->setEnabled(false);
  std::vector<std::string> log = drawLog();
  EXPECT_EQ(countPrefix(log, "DrawTextA(Aus,36)"), 2);
  EXPECT_TRUE(contains(log, "SetTextColor(16777215)"));
}

TEST_F(FrameDrawTest, BackgroundImageTilesBitmapsAndIgnoresIcons) {
  frame->setBackgroundImage(test::squareIcon(16, RECT{0, 0, 16, 16}, kRed));
  EXPECT_EQ(countPrefix(drawLog(), "BitBlt("), 0);
  EXPECT_EQ(px(10, 30), kWhite);
  frame->setBackgroundImage(test::squareBitmap(50, RECT{0, 0, 50, 50}, kRed, kRed));
  std::vector<std::string> log = drawLog();
  EXPECT_EQ(countPrefix(log, "BitBlt(0,20,50,50,"), 1);
  EXPECT_EQ(countPrefix(log, "BitBlt(150,120,35,9,"), 1) << "the last tile is cut at the limit";
  EXPECT_EQ(px(10, 30), kRed);
}

TEST_F(FrameDrawTest, IconSitsAtTheRightAnchor) {
  frame->setCaptionIcon(test::squareIcon(16, RECT{0, 0, 16, 16}, kRed));
  // anchor 185, icon 16 wide: at 185 - 16 - 4 = 165, top 2.
  EXPECT_EQ(px(165, 2), kRed);
  EXPECT_EQ(px(180, 17), kRed);
  EXPECT_NE(px(164, 2), kRed);
  EXPECT_NE(px(181, 2), kRed);
  frame->setIconLeft(100);
  EXPECT_EQ(px(80, 2), kRed);
  EXPECT_NE(px(165, 2), kRed);
}

TEST_F(FrameDrawTest, BulletShowsPointMinusOrPlus) {
  frame->setCaptionIcon(test::squareIcon(16, RECT{0, 0, 16, 16}, kRed));
  frame->setShowBullet(true);
  // Bullet at (6, 6), 9 by 9: the point fills (9..11, 9..11), the minus is row 10 from 8 to 12,
  // the plus adds column 10 from 8 to 12.
  EXPECT_EQ(px(10, 9), kBlack) << "not expandable: the point";
  frame->setExpandierbar(true);
  EXPECT_NE(px(10, 9), kBlack);
  EXPECT_EQ(px(8, 10), kBlack) << "expanded: the minus";
  frame->setCollapseIcon(test::squareIcon(16, RECT{0, 0, 16, 16}, kBlue));
  frame->setExpandiert(false);
  EXPECT_EQ(px(10, 8), kBlack) << "collapsed with a collapse icon: the plus";
  EXPECT_EQ(px(165, 2), kBlue) << "and the collapse icon";
}

TEST_F(FrameDrawTest, NoBulletWithoutACaptionIcon) {
  frame->setShowBullet(true);
  EXPECT_EQ(countPrefix(drawLog(), "DrawStateA("), 0);
  EXPECT_NE(px(10, 9), kBlack);
  EXPECT_NE(px(8, 10), kBlack);
}

TEST_F(FrameDrawTest, IconLeftAboveAByteStillDrawsTheIconAtThatAnchor) {
  frame->setCaptionIcon(test::squareIcon(16, RECT{0, 0, 16, 16}, kRed));
  frame->setCaption("X");
  frame->setIconLeft(170);
  EXPECT_EQ(px(150, 2), kRed);
  frame->setIconLeft(300);  // the text's left edge fails and stays 0
  std::vector<std::string> log = drawLog();
  EXPECT_TRUE(contains(
      log, "DrawStateA(0,0," + std::to_string(frame->CaptionIcon()->Handle()) + ",0,280,2,16,16,3)"));
}

TEST_F(FrameDrawTest, HoverShadowUsesTheRawColourAndTheMonoFlag) {
  frame->setCaptionIcon(test::squareIcon(16, RECT{0, 0, 16, 16}, kRed));
  frame->setExpandierbar(true);
  frame->setCaptionIconShadow(0x00FF00);
  gdi().startRecording(frame->hdc());
  moveTo(50, 5);
  std::vector<std::string> log = gdi().stopRecording(frame->hdc());
  EXPECT_TRUE(contains(log, "CreateSolidBrush(65280)"));
  EXPECT_EQ(countPrefix(log, "DrawStateA("), 2);
  auto mono = std::find_if(log.begin(), log.end(),
                           [](const std::string& l) { return l.rfind("DrawStateA(", 0) == 0; });
  EXPECT_NE(mono->find(",167,4,16,16,131)"), std::string::npos) << *mono;  // 185 + 2 - 16 - 4, 2 + 2
  EXPECT_EQ(px(181, 19), 0x00FF00) << "the shadow shows beside the icon";
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <corvane/host/extender.h>
#include <corvane/runtime/checked.h>
#include "support/label_fixture.h"

namespace corvane {
namespace {

using test::LabelTest;

bool isRed(COLORREF c) { return (c & 0xFF) > 180 && ((c >> 8) & 0xFF) < 90 && ((c >> 16) & 0xFF) < 90; }
bool isDark(COLORREF c) { return (c & 0xFF) < 100 && ((c >> 8) & 0xFF) < 100 && ((c >> 16) & 0xFF) < 100; }

class LabelDrawTest : public LabelTest {
 protected:
  int countPixels(int32_t x0, int32_t y0, int32_t x1, int32_t y1, bool (*pred)(COLORREF)) {
    Canvas& s = desktop().screen();
    int n = 0;
    for (int32_t y = y0; y < y1; ++y)
      for (int32_t x = x0; x < x1; ++x) n += pred(s.pixel(x, y));
    return n;
  }
  void setLabelWidth(float twips) { label->extenderObject().setWidth(twips); }
};

TEST_F(LabelDrawTest, MarkupShowsBoldRedAndASecondLine) {
  label->extenderObject().Move(0, 0, 4000, 900);
  label->setCaption("<b>Fett</b> und <c&HFF>rot</c><br>zweite Zeile");
  const int32_t lh = CLng(lineHeight() / tpp());
  Surface& s = label->surface();
  s.setFontBold(true);
  const int32_t boldW = CLng(s.TextWidth("Fett") / tpp());
  s.setFontBold(false);
  const int32_t before = CLng(s.TextWidth(" und ") / tpp()) + boldW;
  const int32_t redW = CLng(s.TextWidth("rot") / tpp());
  // Red only where "rot" stands on the first line.
  EXPECT_GT(countPixels(before, 0, before + redW, lh, isRed), 10);
  EXPECT_EQ(countPixels(0, 0, before, 2 * lh, isRed), 0);
  EXPECT_EQ(countPixels(0, lh, 200, 2 * lh, isRed), 0);
  // The second line has ink.
  EXPECT_GT(countPixels(0, lh, 200, 2 * lh, isDark), 20);
  // Bold "Fett" carries more ink than the same word printed plain.
  int boldInk = countPixels(0, 0, boldW, lh, isDark);
  label->setCaption("Fett");
  int plainInk = countPixels(0, 0, boldW, lh, isDark);
  EXPECT_GT(boldInk, plainInk + plainInk / 8);
}

TEST_F(LabelDrawTest, LeadingLineBreakPrintsTheTextOnTheSecondLine) {
  label->extenderObject().Move(0, 0, 3000, 900);
  label->setCaption("<br>a");
  const int32_t lh = CLng(lineHeight() / tpp());
  EXPECT_EQ(countPixels(0, 0, 100, lh, isDark), 0);
  EXPECT_GT(countPixels(0, lh, 100, 2 * lh, isDark), 0);
}

TEST_F(LabelDrawTest, FiveHexDigitColourIsDrawnAsA32BitColour) {
  // &H0FFFF is 65535, yellow; as &HFFFF it would be -1, the default colour.
  label->setForeColor(0x000000);
  label->setCaption("<c&H0FFFF>WWWW");
  auto isYellow = [](COLORREF c) { return (c & 0xFF) > 180 && ((c >> 8) & 0xFF) > 180 && ((c >> 16) & 0xFF) < 90; };
  EXPECT_GT(countPixels(0, 0, 60, 20, isYellow), 10);
  EXPECT_EQ(countPixels(0, 0, 60, 20, isDark), 0);
}

TEST_F(LabelDrawTest, WrapKeepsATextThatIsExactlyAsWideAsTheControl) {
  Surface& s = label->surface();
  const float w = s.TextWidth("aaa bbb");
  const int32_t px = CLng(w / tpp());
  ASSERT_EQ(static_cast<float>(px) * tpp(), w);
  setLabelWidth(w);
  ASSERT_EQ(s.pixelWidth(), px);
  EXPECT_EQ(s.ScaleWidth(), w) << "pixels times twips per pixel, exactly";
  label->setWordWrap(true);
  label->setCaption("aaa bbb");
  EXPECT_EQ(partsText(), "aaa bbb");
  setLabelWidth(w - tpp());
  EXPECT_EQ(partsText(), "aaa|/bbb") << "one pixel less and it wraps";
}

TEST_F(LabelDrawTest, ColoursInTheir32BitFormShowThreeColours) {
  // The gallery's colour line. Written as 16-bit numbers (&H8000, &H80FF) the green and orange
  // would be negative, refused, and printed in the earlier colour.
  label->extenderObject().setWidth(5000);
  label->setCaption("<c&H00C00000&>blau</c> <c&H00008000&>gruen</c> <c&H000080FF&>orange</c> normal");
  const auto& p = label->Parts();
  ASSERT_EQ(p.ubound(), 4);
  EXPECT_EQ(p(1).Color, 0xC00000);
  EXPECT_EQ(p(2).Color, 0x008000);
  EXPECT_EQ(p(3).Color, 0x0080FF);
  auto isBlue = [](COLORREF c) { return ((c >> 16) & 0xFF) > 140 && (c & 0xFF) < 60 && ((c >> 8) & 0xFF) < 60; };
  auto isGreen = [](COLORREF c) { return ((c >> 8) & 0xFF) > 90 && (c & 0xFF) < 60 && ((c >> 16) & 0xFF) < 60; };
  auto isOrange = [](COLORREF c) {
    return (c & 0xFF) > 200 && ((c >> 8) & 0xFF) > 80 && ((c >> 8) & 0xFF) < 170 && ((c >> 16) & 0xFF) < 60;
  };
  EXPECT_GT(countPixels(0, 0, 330, 20, isBlue), 10);
  EXPECT_GT(countPixels(0, 0, 330, 20, isGreen), 10);
  EXPECT_GT(countPixels(0, 0, 330, 20, isOrange), 10);
  label->setCaption("<c&HC00000>blau</c> <c&H8000>gruen</c>");
  EXPECT_EQ(label->Parts()(2).Color, -32768) << "four digits are a 16-bit number";
  EXPECT_EQ(countPixels(0, 0, 330, 20, isGreen), 0);
}

TEST_F(LabelDrawTest, RefusedColourPrintsInTheEarlierColour) {
  label->setForeColor(0x0000FF);
  label->setCaption("<c-5>xx");
  EXPECT_GT(countPixels(0, 0, 40, 20, isRed), 5);
}

TEST_F(LabelDrawTest, NoDrawingObjectIsLeftAfterARepaint) {
  int32_t before = desktop().liveDrawingObjects();
  label->setCaption("<b>Fett</b> und <c&HFF>rot</c><br>zweite Zeile");
  label->setWordWrap(true);
  label->setAutosize(true);
  EXPECT_EQ(desktop().liveDrawingObjects(), before);
  EXPECT_EQ(desktop().liveDrawingObjects(), 0);
}

TEST_F(LabelDrawTest, WrapBreaksInFrontOfAPieceThatDoesNotFit) {
  const float w = label->surface().TextWidth("x ") + 2 * tpp();
  setLabelWidth(w);
  label->setWordWrap(true);
  label->setCaption("x <b>y");
  EXPECT_EQ(partsText(), "x |/y") << "the blank stays in the first piece, past the edge";
}

TEST_F(LabelDrawTest, WrapBreaksAtTheLastBlankThatFits) {
  const float w = label->surface().TextWidth("eins zwei") + 3 * tpp();
  setLabelWidth(w);
  label->setWordWrap(true);
  label->setCaption("eins zwei drei vier");
  EXPECT_EQ(partsText(), "eins zwei|/drei vier");
}

TEST_F(LabelDrawTest, WordWiderThanTheControlOverflowsAndTheRestStartsANewLine) {
  setLabelWidth(600);
  label->setWordWrap(true);
  label->setCaption("Donaudampfschifffahrt ab");
  EXPECT_EQ(partsText(), "Donaudampfschifffahrt|/ab");
  label->setCaption("Donaudampfschifffahrt");
  EXPECT_EQ(partsText(), "Donaudampfschifffahrt") << "neither broken nor hyphenated";
}

TEST_F(LabelDrawTest, UnbreakablePieceAfterTextMovesToANewLine) {
  setLabelWidth(900);
  label->setWordWrap(true);
  label->setCaption("ab<b>Donaudampfschifffahrt</b>cd");
  EXPECT_EQ(partsText(), "ab|/Donaudampfschifffahrt|/cd");
}

TEST_F(LabelDrawTest, WrapHeightCountsTheLines) {
  setLabelWidth(1200);
  label->setWordWrap(true);
  label->setCaption("eins zwei drei vier fuenf sechs sieben");
  int lines = 1;
  for (int32_t i = 2; i <= label->Parts().ubound(); ++i) lines += label->Parts()(i).NewLine != 0;
  EXPECT_GT(lines, 1);
  std::string measure;
  for (int i = 1; i < lines; ++i) measure += "ABCD\r\n";
  EXPECT_FLOAT_EQ(label->surface().Height(), static_cast<float>(CLng(label->surface().TextHeight(measure))));
}

TEST_F(LabelDrawTest, AutosizeCountsSixPixelsPerPiece) {
  setLabelWidth(150);
  label->setAutosize(true);
  label->setCaption("abc<b>def</b>");
  Surface& s = label->surface();
  int32_t w1 = CLng(s.TextWidth("abc"));
  s.setFontBold(true);
  int32_t w2 = CLng(s.TextWidth("def"));
  s.setFontBold(false);
  int32_t expected = CLng(CLng(CLng(0) + w1 + 6.0 * tpp()) + w2 + 6.0 * tpp());
  EXPECT_NEAR(label->surface().Width(), static_cast<float>(expected), tpp());
}

TEST_F(LabelDrawTest, AutosizeWithoutWrapNeverShrinksTheWidth) {
  setLabelWidth(150);
  label->setAutosize(true);
  label->setCaption("ein ziemlich langer Text");
  float wide = label->surface().Width();
  label->setCaption("kurz");
  EXPECT_FLOAT_EQ(label->surface().Width(), wide);
}

TEST_F(LabelDrawTest, ResizeRaisesTheEventAndRepaints) {
  label->setCaption("abc");
  int resizes = 0;
  label->Resize.connect([&] { ++resizes; });
  setLabelWidth(2000);
  EXPECT_EQ(resizes, 1);
  EXPECT_FALSE(label->busy());
}

TEST_F(LabelDrawTest, MouseEventsArePassedOnByReference) {
  int clicks = 0;
  float seenX = -1;
  label->Click.connect([&] { ++clicks; });
  label->MouseDown.connect([&](int16_t& b, int16_t&, float& x, float&) {
    seenX = x;
    EXPECT_EQ(b, 1);
  });
  desktop().click(10, 5);
  EXPECT_EQ(clicks, 1);
  EXPECT_FLOAT_EQ(seenX, 10 * tpp());
}

}  // namespace
}  // namespace corvane

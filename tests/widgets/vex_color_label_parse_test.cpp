// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <corvane/host/extender.h>
#include <corvane/host/property_bag.h>
#include "support/label_fixture.h"

namespace corvane {
namespace {

using test::LabelTest;

TEST_F(LabelTest, MarkupCaptionBecomesFormattedPieces) {
  label->setCaption("<b>Fett</b> und <c&HFF>rot</c><br>zweite Zeile");
  EXPECT_EQ(partsText(), "Fett| und |rot||/zweite Zeile");
  const auto& p = label->Parts();
  EXPECT_NE(p(1).Bold, 0);
  EXPECT_EQ(p(2).Bold, 0);
  EXPECT_EQ(p(3).Color, 255);
  EXPECT_EQ(p(4).Color, p(1).Color) << "</c> goes back to the default colour";
}

TEST_F(LabelTest, TagsMatchWithoutRegardToCase) {
  label->setCaption("<B>a</B> <I>b</I>");
  EXPECT_EQ(partsText(), "a |b");
  EXPECT_NE(label->Parts()(1).Bold, 0);
  EXPECT_NE(label->Parts()(2).Italic, 0);
}

TEST_F(LabelTest, BlankBetweenTaggedPiecesStaysWithTheEarlierPiece) {
  label->setCaption("<b>a</b> <i>b</i>");
  EXPECT_EQ(label->Parts()(1).Text, "a ");
  EXPECT_NE(label->Parts()(1).Bold, 0);
}

TEST_F(LabelTest, EmptyCaptionClearsTheControlToOneEmptyLine) {
  label->extenderObject().setHeight(900);
  label->setBackColor(0xE0FFFF);
  label->setCaption("<b>Fett</b> und <c&HFF>rot</c><br>zweite Zeile");
  const Canvas& image = *desktop().windows().windowCanvas(label->surface().hWnd());
  auto inked = [&] {
    int n = 0;
    for (int32_t y = 0; y < image.height(); ++y)
      for (int32_t x = 0; x < image.width(); ++x) n += image.pixel(x, y) != 0xE0FFFF;
    return n;
  };
  ASSERT_GT(inked(), 50) << "the caption was printed";
  label->setWordWrap(true);
  label->setCaption("");
  EXPECT_EQ(label->Parts().ubound(), 1);
  EXPECT_EQ(partsText(), "");
  EXPECT_FLOAT_EQ(label->surface().Height(), static_cast<float>(CLng(lineHeight())));
  ASSERT_GT(image.width() * image.height(), 0);
  EXPECT_EQ(inked(), 0) << "every pixel shows the back colour";
}

TEST_F(LabelTest, EmptyCaptionWithAutosizeHasTheHeightOfOneLine) {
  label->setAutosize(true);
  label->setCaption("");
  EXPECT_FLOAT_EQ(label->surface().Height(), static_cast<float>(CLng(lineHeight())));
}

TEST_F(LabelTest, BoldTagAloneGivesOneEmptyBoldPiece) {
  label->setCaption("<b>");
  ASSERT_EQ(label->Parts().ubound(), 1);
  EXPECT_EQ(label->Parts()(1).Text, "");
  EXPECT_NE(label->Parts()(1).Bold, 0);
}

TEST_F(LabelTest, TrailingLineBreakAddsNoLine) {
  label->setAutosize(true);
  label->setCaption("a<br>");
  EXPECT_EQ(partsText(), "a");
  EXPECT_FLOAT_EQ(label->surface().Height(), static_cast<float>(CLng(lineHeight())));
}

TEST_F(LabelTest, LeadingLineBreakLeavesAnEmptyFirstPiece) {
  label->setCaption("<br>a");
  EXPECT_EQ(partsText(), "|/a");
}

TEST_F(LabelTest, TwoLineBreaksGiveThreeLinesWithAnEmptyMiddle) {
  label->setAutosize(true);
  label->setCaption("a<br><br>b");
  EXPECT_EQ(partsText(), "a|/|/b");
  EXPECT_FLOAT_EQ(label->surface().Height(), static_cast<float>(CLng(label->surface().TextHeight("ABCD\r\nABCD\r\n"))));
  EXPECT_NEAR(label->surface().Height(), 3 * lineHeight(), 1);
}

TEST_F(LabelTest, LeadingBlanksBeforeATagAreDropped) {
  PropertyBag bag;
  bag.set("Caption", "  <b>x");  // a stored caption is taken as it stands, untrimmed
  label->ReadProperties(bag);
  EXPECT_EQ(label->Caption(), "  <b>x");
  label->DrawLabel();
  EXPECT_EQ(partsText(), "x");
  EXPECT_NE(label->Parts()(1).Bold, 0);
}

TEST_F(LabelTest, SetterTrimsBlanksButNotTabs) {
  label->setCaption("  x  ");
  EXPECT_EQ(label->Caption(), "x");
  label->setCaption("\tx\t");
  EXPECT_EQ(label->Caption(), "\tx\t");
}

TEST_F(LabelTest, BlankBeforeATagStaysInTheEarlierPiece) {
  label->setCaption("x <b>y");
  EXPECT_EQ(partsText(), "x |y");
}

TEST_F(LabelTest, CenterTagIsReadAsTheColourBlack) {
  label->setForeColor(0x00FF00);
  label->setCaption("<center>x");
  EXPECT_EQ(partsText(), "x");
  EXPECT_EQ(label->Parts()(1).Color, 0);
}

TEST_F(LabelTest, ColourTagOfTwentyCharactersIsText) {
  const std::string twenty = "<c" + std::string(17, '0') + ">";
  ASSERT_EQ(twenty.size(), 20u);
  label->setCaption(twenty + "x");
  EXPECT_EQ(partsText(), twenty + "x");
  const std::string nineteen = "<c" + std::string(16, '0') + ">";
  label->setCaption(nineteen + "x");
  EXPECT_EQ(partsText(), "x");
}

TEST_F(LabelTest, LessThanWithoutClosingBracketIsText) {
  label->setCaption("a < b");
  EXPECT_EQ(partsText(), "a < b");
  label->setCaption("a < b > c");
  EXPECT_EQ(partsText(), "a < b > c");
}

TEST_F(LabelTest, SearchResumesBehindAnUnknownTag) {
  label->setCaption("<foo <b>x");
  EXPECT_EQ(partsText(), "<foo |x");
  EXPECT_NE(label->Parts()(2).Bold, 0);
}

TEST_F(LabelTest, NextTagReportsKindValueAndPositions) {
  // Parsing stops at the oversized colour, leaving "b<i>c" unparsed in the second piece.
  label->setCaption("<b>a</b><c99999999999>b<i>c");
  LabelTag t = label->NextTag(2);
  EXPECT_EQ(t.Kind, 3);
  EXPECT_EQ(t.Value, "True");
  EXPECT_EQ(t.Start, 2);
  EXPECT_EQ(t.End, 4);
  label->setCaption("a < b > c");
  t = label->NextTag(1);
  EXPECT_EQ(t.Kind, 1);
  EXPECT_EQ(t.Value, "");
}

TEST_F(LabelTest, ColourNumbersGoThroughTheNumberParser) {
  label->setCaption("<c&HFF>a</c> <c255>b</c> <c>c");
  const auto& p = label->Parts();
  EXPECT_EQ(p(1).Color, 255);
  EXPECT_EQ(p(2).Color, 255);
  EXPECT_EQ(p(3).Color, 0);
}

TEST_F(LabelTest, FourHexDigitsAllSetResetToTheDefaultColour) {
  label->setForeColor(0x123456);
  label->setCaption("<c&HFF>a<c&HFFFF>b");
  EXPECT_EQ(label->Parts()(2).Color, 0x123456);
  label->setCaption("<c&HFF>a<c&HFFFF&>b");
  EXPECT_EQ(label->Parts()(2).Color, 65535);
}

TEST_F(LabelTest, SystemForeColorIsResolvedAtParseTime) {
  label->setForeColor(static_cast<OLE_COLOR>(0x80000008));
  label->setCaption("x");
  EXPECT_EQ(label->Parts()(1).Color, desktop().gdi().GetSysColor(8));
}

TEST_F(LabelTest, ClosingTagClearsAttributeEvenOfABoldFont) {
  label->Font()->setBold(true);
  label->setCaption("a</b>b");
  EXPECT_NE(label->Parts()(1).Bold, 0);
  EXPECT_EQ(label->Parts()(2).Bold, 0);
  EXPECT_TRUE(label->Font()->Bold()) << "the font's own flags are restored after drawing";
}

TEST_F(LabelTest, ColourBeyondThirtyTwoBitsStopsParsingAtThatTag) {
  label->setCaption("<b>a</b><c99999999999>b<i>c");
  EXPECT_EQ(partsText(), "a|b<i>c");
  EXPECT_EQ(label->Parts()(2).Italic, 0) << "the text behind the tag stays unparsed";
}

TEST_F(LabelTest, OversizedColourAfterTextKeepsTheRestUnparsedInItsOwnPart) {
  // The new part holds the rest of the caption before the colour fails on it.
  label->setCaption("a<c99999999999>b<b>c");
  ASSERT_EQ(label->Parts().ubound(), 2);
  EXPECT_EQ(partsText(), "a|b<b>c");
  const auto& p = label->Parts();
  EXPECT_EQ(p(2).Bold, 0) << "nothing behind the failing tag is parsed";
  EXPECT_EQ(p(2).NewLine, 0);
  EXPECT_EQ(p(2).Color, p(1).Color) << "the failing colour is not applied";
}

TEST_F(LabelTest, OversizedHexColourAfterTextKeepsTheRestUnparsed) {
  label->setCaption("x <i>a<c&H123456789>b</i>c");
  EXPECT_EQ(partsText(), "x |a<c&H123456789>b</i>c");
  EXPECT_NE(label->Parts()(2).Italic, 0);
}

TEST_F(LabelTest, FiveHexDigitsAreA32BitColour) {
  label->setForeColor(0x123456);
  label->setCaption("<c&HFF>a<c&H0FFFF>b<c&H08000>c");
  const auto& p = label->Parts();
  ASSERT_EQ(p.ubound(), 3);
  EXPECT_EQ(p(2).Color, 65535);
  EXPECT_EQ(p(3).Color, 32768);
}

TEST_F(LabelTest, TagThatEndsAtPosition32767IsStillParsed) {
  // "<b>" ends at 32767 here, the last position the 16-bit tag positions hold.
  const std::string text(32764, 'x');
  label->setCaption(text + "<b>y");
  ASSERT_EQ(label->Parts().ubound(), 2);
  EXPECT_EQ(label->Parts()(1).Text, text);
  EXPECT_EQ(label->Parts()(2).Text, "y");
  EXPECT_NE(label->Parts()(2).Bold, 0);
  // One character more, and the ">" stands at 32768: parsing stops.
  label->setCaption(text + "x<b>y");
  ASSERT_EQ(label->Parts().ubound(), 1);
  EXPECT_EQ(label->Parts()(1).Text, text + "x<b>y");
}

TEST_F(LabelTest, TagBeyondThe16BitPositionOfALaterPartStopsParsingThere) {
  // Positions count within the part that is searched, so a long caption parses as long as each
  // tag stands within 32767 characters of the one before.
  std::string caption;
  for (int i = 0; i < 40; ++i) caption += std::string(1000, 'a') + "<b>" + std::string(1000, 'b') + "</b>";
  const std::string tail = std::string(33000, 'x') + "<i>y";
  label->setCaption(caption + tail);
  const auto& p = label->Parts();
  ASSERT_EQ(p.ubound(), 81);
  EXPECT_NE(p(80).Bold, 0);
  EXPECT_EQ(p(81).Text, tail);
  EXPECT_EQ(p(81).Italic, 0);
}

TEST_F(LabelTest, CharactersNotBytesCountTowardsTheTagPositions) {
  // 32,764 two-byte characters: "<b>" ends at character 32,767, far past byte 32,767.
  std::string text;
  for (int i = 0; i < 32764; ++i) text += "\xC3\xA4";
  label->setCaption(text + "<b>y");
  ASSERT_EQ(label->Parts().ubound(), 2);
  EXPECT_EQ(label->Parts()(1).Text, text);
  EXPECT_NE(label->Parts()(2).Bold, 0);
  label->setCaption(text + "\xC3\xA4<b>y");
  EXPECT_EQ(label->Parts().ubound(), 1) << "one character more and the tag is out of reach";
}

TEST_F(LabelTest, StoredPartTextGrowsLinearlyWithTheCaption) {
  // Every part holds a buffer no larger than its own text, not the rest of the caption.
  std::string caption;
  for (int i = 0; i < 2000; ++i) caption += "ab <b>cd</b> ";
  label->setCaption(caption);
  const auto& p = label->Parts();
  ASSERT_EQ(p.ubound(), 4000);
  size_t stored = 0;
  for (const LabelPart& part : p) stored += part.Text.capacity();
  EXPECT_LT(stored, 2 * caption.size() + 16 * p.size());
}

TEST_F(LabelTest, TagBeyondThe16BitPositionStopsParsing) {
  std::string longText(33000, 'x');
  label->setCaption(longText + "<b>y");
  ASSERT_EQ(label->Parts().ubound(), 1);
  EXPECT_EQ(label->Parts()(1).Text, longText + "<b>y");
}

TEST_F(LabelTest, RefusedColourLeavesTheEarlierColourInForce) {
  label->setForeColor(0x0000FF);
  label->setCaption("<c-5>x");
  EXPECT_EQ(label->Parts()(1).Color, -5);
  // Painted in the colour the surface had before: the default colour, red.
  const Surface& s = label->surface();
  EXPECT_EQ(s.ForeColor(), 0x0000FF);
}

}  // namespace
}  // namespace corvane

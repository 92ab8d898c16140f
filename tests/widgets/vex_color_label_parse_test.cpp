#include <gtest/gtest.h>

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

TEST_F(LabelTest, EmptyCaptionGivesOneEmptyPieceAndOneLineOfHeight) {
  label->setWordWrap(true);
  label->setCaption("");
  EXPECT_EQ(label->Parts().ubound(), 1);
  EXPECT_EQ(partsText(), "");
  EXPECT_FLOAT_EQ(label->surface().Height(), static_cast<float>(CLng(lineHeight())));
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

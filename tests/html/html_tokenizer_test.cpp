// SPDX-License-Identifier: MIT
#include <corvane/html/html_tags.h>
#include <corvane/html/html_tokenizer.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "html/html_test_support.h"

namespace corvane {
namespace {

using html::HtmlChunk;
using test::chunkOf;
using test::parsedView;
using Words = std::vector<std::string>;

// ---- the vocabulary ----

TEST(HtmlTokenizerTest, TagNamesMapToTheirIds) {
  struct Case {
    const char* name;
    int32_t id;
  } cases[] = {{"HEAD", 2},     {"/HEAD", 3},       {"TITLE", 4},        {"/TITLE", 5},  {"BODY", 6},
               {"NOFRAMES", 6}, {"/BODY", 7},       {"/NOFRAMES", 7},    {"!--", 8},     {"--", 9},
               {"STRONG", 10},  {"B", 10},          {"/STRONG", 11},     {"/B", 11},     {"EM", 12},
               {"I", 12},       {"/EM", 13},        {"/I", 13},          {"U", 14},      {"/U", 15},
               {"P", 16},       {"/P", 17},         {"DIV", 18},         {"/DIV", 19},   {"BR", 20},
               {"HR", 21},      {"UL", 22},         {"/UL", 23},         {"OL", 24},     {"/OL", 25},
               {"LI", 26},      {"/LI", 1},         {"TABLE", 27},       {"/TABLE", 28}, {"THEAD", 29},
               {"/THEAD", 30},  {"TBODY", 31},      {"/TBODY", 32},      {"TFOOT", 33},  {"/TFOOT", 34},
               {"TR", 35},      {"/TR", 36},        {"TD", 37},          {"TH", 37},     {"/TD", 38},
               {"/TH", 38},     {"FONT", 39},       {"/FONT", 40},       {"A", 41},      {"/A", 42},
               {"IMG", 43},     {"BLOCKQUOTE", 44}, {"/BLOCKQUOTE", 45}, {"H1", 46},     {"H6", 46},
               {"/H3", 47},     {"H7", 1},          {"BIG", 48},         {"/BIG", 49},   {"SMALL", 50},
               {"/SMALL", 51},  {"CENTER", 52},     {"/CENTER", 53},     {"SUB", 54},    {"/SUB", 55},
               {"SUP", 56},     {"/SUP", 57},       {"FORM", 58},        {"/FORM", 59},  {"SCRIPT", 60},
               {"/SCRIPT", 61}, {"STYLE", 62},      {"/STYLE", 63},      {"HTML", 1},    {"BLINK", 1},
               {"b", 1}};
  for (const Case& c : cases) EXPECT_EQ(html::tagIdOfName(c.name), c.id) << c.name;
}

TEST(HtmlTokenizerTest, TagNamesAreComparedUpperCased) {
  EXPECT_EQ(chunkOf("<strong>x").TagID, 10);
  EXPECT_EQ(chunkOf("<Td>x").TagID, 37);
}

TEST(HtmlTokenizerTest, CommentIdDependsOnTheBlankBehindItsOpening) {
  EXPECT_EQ(chunkOf("<!-- a > b -->").TagID, 8);
  EXPECT_EQ(chunkOf("<!--x-->").TagID, 1);
}

// ---- splitting ----

TEST(HtmlTokenizerTest, EmptyTextGivesTheFourWrapperChunks) {
  auto view = parsedView("");
  const auto& doc = view->document();
  ASSERT_EQ(doc.mChunkCount, 4);
  EXPECT_EQ(doc.chunk(0).Source, "<HTML>");
  EXPECT_EQ(doc.chunk(1).Source, "<BODY>");
  EXPECT_EQ(doc.chunk(2).Source, "</BODY>");
  EXPECT_EQ(doc.chunk(3).Source, "</HTML>");
  EXPECT_EQ(doc.chunk(1).ChildCount, 0);
}

TEST(HtmlTokenizerTest, GlueTellsWhetherABlankStoodBeforeThePrecedingTag) {
  auto view = parsedView("a<B>b</B> c d <I>e</I>");
  const auto& doc = view->document();
  EXPECT_EQ(doc.chunk(4).Source, "b");
  EXPECT_EQ(doc.chunk(4).Glue, -1);
  // The text behind "</B>" starts with a blank, yet "b" stood right before that tag.
  EXPECT_EQ(doc.chunk(6).Source, " c d ");
  EXPECT_EQ(doc.chunk(6).Glue, -1);
  EXPECT_EQ(doc.chunk(6).Words, (Words{"", "c", "d", ""}));
  EXPECT_EQ(doc.chunk(8).Source, "e");
  EXPECT_EQ(doc.chunk(8).Glue, 0);
}

TEST(HtmlTokenizerTest, GlueStaysUnsetWhenTheFirstTagStandsAtPositionOne) {
  html::HtmlDocument doc;
  doc.mText = "<B>x</B>";
  doc.parse();
  ASSERT_EQ(doc.mChunkCount, 3);
  EXPECT_EQ(doc.chunk(1).Glue, 0);
}

TEST(HtmlTokenizerTest, GlueBelongsOnlyToTextChunks) { EXPECT_EQ(chunkOf("a<B>b", 3).Glue, 0); }

TEST(HtmlTokenizerTest, StrayLessThanSwallowsTextUpToTheNextGreaterThan) {
  auto view = parsedView("a < b");
  const auto& doc = view->document();
  ASSERT_EQ(doc.mChunkCount, 5);
  EXPECT_EQ(doc.chunk(2).Words, (Words{"a", ""}));
  EXPECT_EQ(doc.chunk(3).Source, "< b</BODY>");
  EXPECT_EQ(doc.chunk(3).TagID, 1);
  EXPECT_EQ(doc.chunk(4).Source, "</HTML>");
}

TEST(HtmlTokenizerTest, StrayLessThanWithoutGreaterThanBehindStartsTextBehindItself) {
  auto view = parsedView("<HTML><BODY>x</BODY></HTML>a < b < c");
  const auto& doc = view->document();
  ASSERT_EQ(doc.mChunkCount, 7);
  EXPECT_EQ(doc.chunk(5).Source, "a ");
  EXPECT_EQ(doc.chunk(6).Source, " b ");  // behind the first "<"; " c" behind the last is lost
}

TEST(HtmlTokenizerTest, OnlyTextBehindTheLastTagIsLost) {
  auto view = parsedView("<HTML><BODY>a</BODY></HTML>x<B>y");
  const auto& doc = view->document();
  ASSERT_EQ(doc.mChunkCount, 7);
  EXPECT_EQ(doc.chunk(5).Source, "x");
  EXPECT_EQ(doc.chunk(6).Source, "<B>");
}

TEST(HtmlTokenizerTest, UnknownTagInALineIsALeafThatLeavesTheWordsAlone) {
  auto view = parsedView("a<FOO bar=1>b");
  const auto& doc = view->document();
  EXPECT_EQ(doc.chunk(3).TagID, 1);
  EXPECT_EQ(doc.chunk(3).ChildCount, 0);
  EXPECT_EQ(doc.chunk(4).Words, (Words{"b"}));
  EXPECT_EQ(doc.chunk(4).Glue, -1);
  EXPECT_EQ(doc.chunk(4).Parent, doc.chunk(2).Parent);
}

TEST(HtmlTokenizerTest, WordsKeepEmptyStringsForNeighbouringBlanks) {
  EXPECT_EQ(chunkOf("a" + std::string(9, ' ') + "b").Words, (Words{"a", "", "b"}));
  EXPECT_EQ(chunkOf("x&nbsp;y z").Words, (Words{"x&nbsp;y", "z"}));
}

TEST(HtmlTokenizerTest, TextChunkIsDecodedIntoWordsButKeepsItsSource) {
  HtmlChunk c = chunkOf("A&#66;C&#10;D");
  EXPECT_EQ(c.Source, "A&#66;C&#10;D");
  EXPECT_EQ(c.Words, (Words{"ABC", "D"}));
  EXPECT_EQ(c.IsTag, 0);
  EXPECT_EQ(c.TagID, 0);
}

// ---- defaults of the ids ----

TEST(HtmlTokenizerTest, TableDefaults) {
  HtmlChunk c = chunkOf("<TABLE>");
  EXPECT_EQ(c.IsTag, -1);
  EXPECT_EQ(c.CellSpacing, 2);
  EXPECT_EQ(c.CellPadding, 2);
  EXPECT_EQ(c.Width, 1.0f);
}

TEST(HtmlTokenizerTest, CellDefaultsTakeTheViewsBackColor) {
  auto view = std::make_shared<VexHTML>();
  view->setBackColor(0x123456);
  view->setText("<TH>");
  const HtmlChunk& c = view->document().chunk(2);
  EXPECT_EQ(c.ColSpan, 1);
  EXPECT_EQ(c.Width, 1.0f);
  EXPECT_EQ(c.VAlign, 3);
  EXPECT_EQ(c.BgColor, 0x123456);
  EXPECT_EQ(c.HasBgColor, 0);
}

TEST(HtmlTokenizerTest, FontDefaultsComeFromTheView) {
  auto view = std::make_shared<VexHTML>();
  view->setDefaultFontName("Tahoma");
  view->setDefaultFontSize(12);
  view->setDefaultTextColor(0x0000C0);
  view->setText("<FONT>");
  const HtmlChunk& c = view->document().chunk(2);
  EXPECT_EQ(c.FontFace, "Tahoma");
  EXPECT_EQ(c.FontSize, 12.0f);
  EXPECT_EQ(c.Color, 0x0000C0);
}

TEST(HtmlTokenizerTest, AnchorBoxStartsAtMinusOne) {
  HtmlChunk c = chunkOf("<A>");
  EXPECT_EQ(c.Top, -1);
  EXPECT_EQ(c.Left, -1);
  EXPECT_EQ(c.Bottom, -1);
  EXPECT_EQ(c.Right, -1);
}

TEST(HtmlTokenizerTest, ImageSpacingDefaultsToTwo) {
  HtmlChunk c = chunkOf("<IMG>");
  EXPECT_EQ(c.HSpace, 2);
  EXPECT_EQ(c.VSpace, 2);
}

TEST(HtmlTokenizerTest, HeadingSizeStartsFromTheDefaultSize) {
  EXPECT_FLOAT_EQ(chunkOf("<H1>").FontSize, static_cast<float>(6 * 1.2 + 10));
  EXPECT_FLOAT_EQ(chunkOf("<H3>").FontSize, static_cast<float>(4 * 1.2 + 10));
  EXPECT_FLOAT_EQ(chunkOf("<h6>").FontSize, static_cast<float>(1 * 1.2 + 10));
}

TEST(HtmlTokenizerTest, BigAndSmallInsideAHeadingStillStartFromTheDefaultSize) {
  auto view = parsedView("<H1><BIG>a</BIG><SMALL>b</SMALL></H1>");
  EXPECT_EQ(view->document().chunk(3).FontSize, 11.0f);
  EXPECT_EQ(view->document().chunk(6).FontSize, 9.0f);
}

TEST(HtmlTokenizerTest, BodyIndexIsTheLastBodyOrNoframesChunk) {
  auto view = parsedView("<BODY>a</BODY><NOFRAMES>b</NOFRAMES>");
  EXPECT_EQ(view->document().mBodyIndex, 4);
  EXPECT_EQ(view->document().chunk(4).Source, "<NOFRAMES>");
}

// ---- attributes ----

TEST(HtmlTokenizerTest, AlignSetsCentreOrRightAndNeverClears) {
  EXPECT_EQ(chunkOf("<P ALIGN=center>").AlignCenter, -1);
  EXPECT_EQ(chunkOf("<P align=Right>").AlignRight, -1);
  HtmlChunk left = chunkOf("<P ALIGN=left>");
  EXPECT_EQ(left.AlignCenter, 0);
  EXPECT_EQ(left.AlignRight, 0);
  HtmlChunk both = chunkOf("<P ALIGN=center ALIGN=right>");
  EXPECT_EQ(both.AlignCenter, -1);
  EXPECT_EQ(both.AlignRight, -1);
}

TEST(HtmlTokenizerTest, AltHrefAndSrcAreDecodedButTitleIsNot) {
  HtmlChunk img = chunkOf("<IMG SRC=\"a&#65;.png\" ALT='x&amp;y'>");
  EXPECT_EQ(img.ImageSource, "aA.png");
  EXPECT_EQ(img.Alt, "x&y");
  HtmlChunk a = chunkOf("<A HREF=\"p?a=1&amp;b=2\" TITLE=\"t&amp;\">");
  EXPECT_EQ(a.Href, "p?a=1&b=2");
  EXPECT_EQ(a.Title, "t&#038;");
}

TEST(HtmlTokenizerTest, BackgroundOnAnyTagSetsThePageBackgroundUntilTheNextText) {
  auto view = parsedView("<I BACKGROUND=tile.png>x</I>");
  EXPECT_EQ(view->document().mBackgroundSource, "tile.png");
  view->setText("y");
  EXPECT_EQ(view->document().mBackgroundSource, "");
}

TEST(HtmlTokenizerTest, BodyBgColorGoesToThePageAndIsNotFlagged) {
  auto view = parsedView("<BODY BGCOLOR=#FF0000>x</BODY>");
  EXPECT_EQ(view->document().mBodyColor, 0x0000FF);
  EXPECT_EQ(view->document().chunk(1).HasBgColor, 0);
  EXPECT_EQ(view->document().chunk(1).BgColor, 0);
}

TEST(HtmlTokenizerTest, BgColorOfOtherTagsIsFlagged) {
  HtmlChunk c = chunkOf("<TD BGCOLOR=silver>");
  EXPECT_EQ(c.BgColor, 0xC0C0C0);
  EXPECT_EQ(c.HasBgColor, -1);
}

TEST(HtmlTokenizerTest, PageColourStartsFromBackColor) {
  auto view = std::make_shared<VexHTML>();
  view->setBackColor(0x00AA00);
  view->setText("x");
  EXPECT_EQ(view->document().mBodyColor, 0x00AA00);
}

TEST(HtmlTokenizerTest, SixteenBitNumbersRoundToEven) {
  HtmlChunk c = chunkOf("<TABLE BORDER=3 CELLPADDING=2.5 CELLSPACING=3.5>");
  EXPECT_EQ(c.Border, 3);
  EXPECT_EQ(c.CellPadding, 2);
  EXPECT_EQ(c.CellSpacing, 4);
  HtmlChunk img = chunkOf("<IMG HSPACE=5 VSPACE=7>");
  EXPECT_EQ(img.HSpace, 5);
  EXPECT_EQ(img.VSpace, 7);
}

TEST(HtmlTokenizerTest, FailedConversionLeavesTheDefault) {
  EXPECT_EQ(chunkOf("<TD COLSPAN=abc>").ColSpan, 1);
  EXPECT_EQ(chunkOf("<TD COLSPAN=40000>").ColSpan, 1);
  EXPECT_EQ(chunkOf("<TD COLSPAN=12abc>").ColSpan, 1);
  EXPECT_EQ(chunkOf("<TD COLSPAN=3>").ColSpan, 3);
}

TEST(HtmlTokenizerTest, ColorGoesToTheChunkWithoutFlag) {
  HtmlChunk c = chunkOf("<FONT COLOR=#00FF00>");
  EXPECT_EQ(c.Color, 0x00FF00);
  EXPECT_EQ(c.HasBgColor, 0);
}

TEST(HtmlTokenizerTest, LaterAttributeOfTheSameNameWins) {
  EXPECT_EQ(chunkOf("<FONT COLOR=red COLOR=blue>").Color, 0xFF0000);
}

TEST(HtmlTokenizerTest, FaceTakesTheFirstFontOfAList) {
  EXPECT_EQ(chunkOf("<FONT FACE=\"Times New Roman, serif\">").FontFace, "Times New Roman");
  EXPECT_EQ(chunkOf("<FONT FACE=Verdana>").FontFace, "Verdana");
  EXPECT_EQ(chunkOf("<FONT FACE=\",Arial\">").FontFace, ",Arial");
}

TEST(HtmlTokenizerTest, HeightOfAnImageIsPixelsElsewhereAFractionOrANumber) {
  EXPECT_EQ(chunkOf("<IMG HEIGHT=20>").ImageHeight, 20);
  EXPECT_EQ(chunkOf("<TD HEIGHT=50%>").Height, 0.5f);
  EXPECT_EQ(chunkOf("<TD HEIGHT=30>").Height, 30.0f);
  EXPECT_EQ(chunkOf("<TD HEIGHT=30px>").Height, 0.0f);
}

TEST(HtmlTokenizerTest, WidthHasThreeMeanings) {
  EXPECT_EQ(chunkOf("<TD WIDTH=50%>").Width, 0.5f);
  EXPECT_EQ(chunkOf("<TD WIDTH=100%>").Width, 1.0f);  // the same as not given
  EXPECT_EQ(chunkOf("<TABLE WIDTH=200>").Width, 200.0f);
  EXPECT_EQ(chunkOf("<TABLE WIDTH=200px>").Width, 200.0f);
  EXPECT_EQ(chunkOf("<TABLE WIDTH=1>").Width, 1.0f);  // one pixel cannot be told from "not given"
}

TEST(HtmlTokenizerTest, ImageWidthHasNoPercentHandling) {
  EXPECT_EQ(chunkOf("<IMG WIDTH=10%>").ImageWidth, 0);
  EXPECT_EQ(chunkOf("<IMG WIDTH=32>").ImageWidth, 32);
  EXPECT_EQ(chunkOf("<IMG WIDTH=32>").Width, 0.0f);
}

TEST(HtmlTokenizerTest, IdOrNameGiveTheId) {
  EXPECT_EQ(chunkOf("<A NAME=top>").ID, "top");
  EXPECT_EQ(chunkOf("<P ID=p1>").ID, "p1");
}

TEST(HtmlTokenizerTest, FontSizeWithSignIsRelativeAndWithoutCountsFromThree) {
  const float plusTwo = static_cast<float>(2 * 1.2 + 10);
  EXPECT_EQ(chunkOf("<FONT SIZE=+2>").FontSize, plusTwo);
  EXPECT_EQ(chunkOf("<FONT SIZE=5>").FontSize, plusTwo);
  EXPECT_EQ(chunkOf("<FONT SIZE=-1>").FontSize, static_cast<float>(-1 * 1.2 + 10));
  EXPECT_EQ(chunkOf("<FONT SIZE=3>").FontSize, 10.0f);
  EXPECT_EQ(chunkOf("<FONT SIZE=big>").FontSize, 10.0f);
  EXPECT_EQ(chunkOf("<P SIZE=4>").FontSize, static_cast<float>(1 * 1.2 + 10));
}

TEST(HtmlTokenizerTest, TextAttributeOnAnyTagSetsTheViewsTextColourForLaterFonts) {
  auto view = parsedView("<B TEXT=red>x</B>");
  EXPECT_EQ(view->DefaultTextColor(), 0x0000FF);
  view->setText("<FONT>y</FONT>");
  EXPECT_EQ(view->document().chunk(2).Color, 0x0000FF);
}

TEST(HtmlTokenizerTest, VAlignKnowsCentreAndBottomOnly) {
  EXPECT_EQ(chunkOf("<TD VALIGN=center>").VAlign, 4);
  EXPECT_EQ(chunkOf("<TD valign=Bottom>").VAlign, 5);
  EXPECT_EQ(chunkOf("<TD VALIGN=middle>").VAlign, 3);
  EXPECT_EQ(chunkOf("<TD VALIGN=top>").VAlign, 3);
}

}  // namespace
}  // namespace corvane

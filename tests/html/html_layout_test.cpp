// SPDX-License-Identifier: MIT
// Chunk fields of small pages, worked out from the layout rules with the page surface's own
// text metrics (DefaultPadding 4, DefaultSpacing 4).
#include <corvane/host/picture_box.h>
#include <corvane/html/html_tags.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/strings.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

using html::HtmlChunk;

class HtmlLayoutTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 9000, 6000);
    form->Show();
    view = std::dynamic_pointer_cast<VexHTML>(form->add("VexHTML", "HTML1", nullptr, 0, 0, 3000, 2000));
    ASSERT_TRUE(view);
  }
  Surface& page() { return view->picHTML()->surface(); }
  // Widths and heights at the default font, plain unless bold is asked for.
  int32_t tw(const std::string& s, bool bold = false) {
    page().setFontBold(bold);
    int32_t w = static_cast<int32_t>(page().TextWidth(s));
    page().setFontBold(false);
    return w;
  }
  int32_t lh() { return static_cast<int32_t>(page().TextHeight("X")) + 4; }
  int32_t ind() { return 2 * tw("W"); }
  // The first text chunk holding `word`, or the n-th tag of an id.
  const HtmlChunk& text(const std::string& word) {
    for (const auto& c : view->document().mChunks)
      if (!c.IsTag && std::find(c.Words.begin(), c.Words.end(), word) != c.Words.end()) return c;
    throw std::runtime_error("no text " + word);
  }
  const HtmlChunk& tag(int32_t id, int n = 0) {
    for (const auto& c : view->document().mChunks)
      if (c.IsTag && c.TagID == id && n-- == 0) return c;
    throw std::runtime_error("no tag");
  }
  FormRef form;
  std::shared_ptr<VexHTML> view;
};

TEST_F(HtmlLayoutTest, ParagraphTextStandsOneLineBelowTheTopPadding) {
  view->setText("<P>ab cd</P>");
  const int32_t LH = lh();
  const HtmlChunk& t = text("ab");
  EXPECT_EQ(t.Left, 4);
  EXPECT_EQ(t.Top, 4 + LH);
  EXPECT_EQ(t.IndentX, 0);
  EXPECT_EQ(t.Right, 4 + tw("ab") + tw(" ") + tw("cd"));
  EXPECT_EQ(t.Bottom, 2 * LH + (4 + LH) + 4);
  const HtmlChunk& p = tag(html::TagParagraph);
  EXPECT_EQ(p.Top, 4);
  EXPECT_EQ(p.Bottom, (4 + LH) + LH + 4);
  // /P: the pen stayed on the text line, then a block break.
  const HtmlChunk& endP = tag(html::TagParagraphEnd);
  EXPECT_EQ(endP.Top, 4 + LH);
  EXPECT_EQ(endP.Bottom, (4 + 2 * LH) + LH + 4);
}

TEST_F(HtmlLayoutTest, AWordLongerThanTheLineStandsAloneAndOverflows) {
  const std::string longWord(60, 'm');
  view->setText("<P>" + longWord + " b</P>");
  const int32_t LH = lh();
  ASSERT_GT(4 + tw(longWord), static_cast<int32_t>(page().ScaleWidth()));
  const HtmlChunk& t = text(longWord);
  // "b" went to the second line, which starts at the left margin.
  EXPECT_EQ(t.Right, 4 + tw("b"));
  EXPECT_EQ(t.Bottom, 2 * LH + (4 + 2 * LH) + 4);
  EXPECT_EQ(tag(html::TagParagraphEnd).Top, 4 + 2 * LH);
}

TEST_F(HtmlLayoutTest, GluedTextAfterAnInlineTagHasNoGap) {
  view->setText("<B>bo</B>ld");
  const int32_t glued = text("ld").Right;
  EXPECT_EQ(glued, 4 + tw("bo", true) + tw("ld"));
  view->setText("<B>bo</B> ld");
  EXPECT_EQ(text("ld").Right, glued + tw(" "));
}

TEST_F(HtmlLayoutTest, NestedListIndentsByOneStepAndOnlyTheOutermostBreaks) {
  view->setText("<UL><LI>a<UL><LI>b</UL></UL>");
  const int32_t LH = lh(), IND = ind();
  const std::string bullet = String(1, 149) + "  ";
  const HtmlChunk& first = tag(html::TagListItem, 0);
  const HtmlChunk& second = tag(html::TagListItem, 1);
  EXPECT_EQ(first.Top, 4 + 2 * LH);
  EXPECT_EQ(first.IndentX, IND);
  EXPECT_EQ(second.Top, 4 + 3 * LH);
  EXPECT_EQ(second.IndentX, 2 * IND);
  EXPECT_EQ(first.IsNumbered, 0);
  EXPECT_EQ(text("a").Left, 4 + IND + tw(bullet));
  EXPECT_EQ(text("a").Right, 4 + IND + tw(bullet) + tw("a"));
  EXPECT_EQ(text("b").Right, 4 + 2 * IND + tw(bullet) + tw("b"));
}

TEST_F(HtmlLayoutTest, OrderedItemBeyondNineKeepsTheTextOffsetOfW) {
  std::string items;
  for (int n = 1; n <= 10; ++n) items += "<LI>i" + std::to_string(n);
  view->setText("<OL>" + items + "</OL>");
  const HtmlChunk& tenth = tag(html::TagListItem, 9);
  EXPECT_EQ(tenth.IsNumbered, -1);
  EXPECT_EQ(tenth.ItemNumber, 10);
  EXPECT_EQ(text("i10").Left, 4 + ind() + tw("W. "));
  EXPECT_EQ(text("i1").Left, 4 + ind() + tw("W. "));
}

TEST_F(HtmlLayoutTest, HeadingAtTheTopMakesNoBreakButBelowItDoes) {
  view->setText("<H1>T</H1>");
  EXPECT_EQ(text("T").Top, 4);
  view->setText("x<H1>T</H1>");
  // The break below the first line is made with the heading's own line height.
  page().Font()->setSize(tag(html::TagHeading).FontSize);
  const int32_t headingLH = lh();
  page().Font()->setSize(view->DefaultFontSize());
  EXPECT_EQ(text("T").Top, 4 + headingLH);
}

TEST_F(HtmlLayoutTest, ScriptInARunIsJumpedAndStyleEndsTheRun) {
  view->setText("a<SCRIPT>zz</SCRIPT> b");
  EXPECT_EQ(text("b").Right, 4 + tw("a") + tw(" ") + tw("b"));
  EXPECT_EQ(text("zz").Right, 0);
  view->setText("a<STYLE>zz</STYLE> b");
  EXPECT_EQ(text("zz").Right, 0);  // skipped by the walk
  EXPECT_EQ(text("b").Right, 4 + tw("a") + tw(" ") + tw("b"));
}

TEST_F(HtmlLayoutTest, FontCloserInsideBoldEndsTheBold) {
  view->setText("<B>x<FONT SIZE=3>y</FONT>z");
  EXPECT_FALSE(page().FontBold());
  view->setText("<B>x<I>y</I>z");
  EXPECT_TRUE(page().FontBold());
}

TEST_F(HtmlLayoutTest, BlockquoteCloserWithoutOpeningMakesTheIndentNegative) {
  view->setText("</BLOCKQUOTE><P>x</P>");
  EXPECT_EQ(text("x").Left, 4 - ind());
}

TEST_F(HtmlLayoutTest, BreakStartsTheNextLineAtTheMargin) {
  view->setText("a<BR>b");
  const int32_t LH = lh();
  EXPECT_EQ(text("b").Top, 4 + LH);
  EXPECT_EQ(text("b").Left, 4);
  EXPECT_EQ(text("b").Right, 4 + tw("b"));
}

TEST_F(HtmlLayoutTest, RuleIsALineFromTheMarginToTheRightLimitLessThePadding) {
  view->setText("<HR>");
  const int32_t RM = static_cast<int32_t>(page().ScaleWidth()) - 4 - 5;
  HDC dc = page().hdc();
  EXPECT_EQ(gdi().GetPixel(dc, 4, 4), 0u);
  EXPECT_EQ(gdi().GetPixel(dc, RM - 4 - 1, 4), 0u);
  EXPECT_NE(gdi().GetPixel(dc, 3, 4), 0u);
  EXPECT_NE(gdi().GetPixel(dc, RM - 4 + 1, 4), 0u);
  EXPECT_NE(gdi().GetPixel(dc, 10, 5), 0u);
}

TEST_F(HtmlLayoutTest, ImageIsLoadedOnceAndWithoutPictureGetsAFrame) {
  int loads = 0;
  std::string asked;
  view->LoadImage.connect([&](std::string& source, PictureRef&) {
    ++loads;
    asked = source;
  });
  view->setText("<IMG SRC=\"pic.png\" WIDTH=20 HEIGHT=10>");
  EXPECT_EQ(loads, 1);
  EXPECT_EQ(asked, "pic.png");
  const HtmlChunk& img = tag(html::TagImage);
  EXPECT_EQ(img.Border, 1);
  EXPECT_EQ(img.ImageSlot, 1);
  // The pen moves by HSpace, the frame, the width, the frame and HSpace again.
  EXPECT_EQ(img.HSpace, 2);
  EXPECT_EQ(img.Right, 4 + 2 + 1 + 20 + 1 + 2);
  view->Refresh();
  EXPECT_EQ(loads, 1);
}

TEST_F(HtmlLayoutTest, FrozenViewParsesButLaysNothingOut) {
  view->setFreezeUpdates(true);
  view->setText("<P>ab</P>");
  EXPECT_EQ(text("ab").Right, 0);
  view->setFreezeUpdates(false);
  EXPECT_EQ(text("ab").Right, 4 + tw("ab"));
}

TEST_F(HtmlLayoutTest, LinkBoxStartsAtItsFirstPrintedWord) {
  view->setEnableAnchors(true);
  view->setText("xx <A HREF=\"u\">ab</A> yy");
  const int32_t LH = lh();
  const HtmlChunk& a = tag(html::TagAnchor);
  // The gap before the link is passed unprinted, so the box begins behind it.
  EXPECT_EQ(a.Left, 4 + tw("xx") + tw(" "));
  EXPECT_EQ(a.Right, 4 + tw("xx") + tw(" ") + tw("ab"));
  EXPECT_EQ(a.Bottom, LH + 4 + 4);
}

TEST_F(HtmlLayoutTest, RuleInACellRunsBetweenTheCellsLimits) {
  view->setText("<TABLE BORDER=0 CELLSPACING=0 CELLPADDING=0 WIDTH=100><TR><TD><HR></TD></TR></TABLE>");
  // The cell's margins are 4 and 4 + 100; the rule ends DefaultPadding before the right one.
  HDC dc = page().hdc();
  EXPECT_EQ(gdi().GetPixel(dc, 4, 4), 0u);
  EXPECT_EQ(gdi().GetPixel(dc, 98, 4), 0u);
  EXPECT_NE(gdi().GetPixel(dc, 102, 4), 0u);
  EXPECT_NE(gdi().GetPixel(dc, 150, 4), 0u);
}

TEST_F(HtmlLayoutTest, ListsDeeperThanTheCountersKeepIndentingWithoutNumbers) {
  std::string page;
  for (int n = 0; n < 18; ++n) page += "<OL>";
  page += "<LI>deep";
  view->setText(page);
  const HtmlChunk& item = tag(html::TagListItem);
  // Level 18 lies beyond the 17 counters: the item loses its number, the indentation grows on.
  EXPECT_EQ(item.IsNumbered, 0);
  EXPECT_EQ(item.IndentX, 18 * ind());
}

TEST_F(HtmlLayoutTest, TablesBeyondTheLimitsAndStrayCellsAreSkipped) {
  std::string nested;
  for (int n = 0; n < 18; ++n) nested += "<TABLE><TR><TD>";
  nested += "core";
  std::string wide = "<TABLE><TR>";
  for (int n = 0; n < 20; ++n) wide += "<TD>c" + std::to_string(n) + "</TD>";
  wide += "</TR></TABLE>";
  for (const std::string& page : {nested, wide, std::string("<TD>lost</TD></TR></TABLE><P>after")}) {
    view->setText(page);
    EXPECT_GT(view->mDocHeight(), 0);
  }
  EXPECT_EQ(text("after").Left, 4);
}

}  // namespace
}  // namespace corvane

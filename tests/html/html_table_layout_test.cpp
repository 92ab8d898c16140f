// SPDX-License-Identifier: MIT
// Table layout: column widths, heights kept for the drawing pass, frames, and nesting, worked out
// from the table rules (DefaultPadding 4, DefaultSpacing 4).
#include <corvane/host/picture_box.h>
#include <corvane/html/html_tags.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

using html::HtmlChunk;

class HtmlTableLayoutTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 9000, 6000);
    form->Show();
    view = std::dynamic_pointer_cast<VexHTML>(form->add("VexHTML", "HTML1", nullptr, 0, 0, 7500, 3000));
    ASSERT_TRUE(view);
  }
  Surface& page() { return view->picHTML()->surface(); }
  const HtmlChunk& tag(int32_t id, int n = 0) {
    for (const auto& c : view->document().mChunks)
      if (c.IsTag && c.TagID == id && n-- == 0) return c;
    throw std::runtime_error("no tag");
  }
  const HtmlChunk& text(const std::string& word) {
    for (const auto& c : view->document().mChunks)
      if (!c.IsTag && std::find(c.Words.begin(), c.Words.end(), word) != c.Words.end()) return c;
    throw std::runtime_error("no text " + word);
  }
  FormRef form;
  std::shared_ptr<VexHTML> view;
};

TEST_F(HtmlTableLayoutTest, TableWithoutRowsIsTwiceItsBorderHigh) {
  view->setText("<TABLE BORDER=2></TABLE>");
  EXPECT_EQ(tag(html::TagTable).LayoutHeight, 4);
}

TEST_F(HtmlTableLayoutTest, FixedCellsScaleUpWhenTheTableHasRoom) {
  view->setText("<TABLE WIDTH=300><TR><TD WIDTH=100>a</TD><TD WIDTH=100>b</TD></TR></TABLE>");
  const int32_t cs = tag(html::TagTable).CellSpacing;
  const float avail = static_cast<float>(300 - 3 * cs);
  // Each column is 100 of a total of 200, scaled to what the table leaves.
  EXPECT_EQ(tag(html::TagCell, 0).LayoutWidth, CLng(100.0f / 200.0f * avail));
  EXPECT_EQ(tag(html::TagCell, 1).LayoutWidth, CLng(100.0f / 200.0f * avail));
  EXPECT_LT(tag(html::TagCell, 0).LayoutWidth, 150);
  EXPECT_GT(tag(html::TagCell, 0).LayoutWidth, 100);
}

TEST_F(HtmlTableLayoutTest, FixedTableGrowsToColumnsThatNeedMore) {
  view->setText("<TABLE WIDTH=200><TR><TD WIDTH=300>a</TD><TD WIDTH=300>b</TD></TR></TABLE>");
  EXPECT_EQ(tag(html::TagTable).LayoutWidth, 600);
  EXPECT_EQ(tag(html::TagCell, 0).LayoutWidth, 300);
}

TEST_F(HtmlTableLayoutTest, RowsThatAllSpanShareTheWidthEvenly) {
  view->setText("<TABLE WIDTH=300><TR><TD COLSPAN=2>a</TD></TR></TABLE>");
  const int32_t cs = tag(html::TagTable).CellSpacing;
  const float share = static_cast<float>(300 - 3 * cs) * (1.0f / 2.0f);
  const int32_t first = CLng(share);
  EXPECT_EQ(tag(html::TagCell).LayoutWidth, CLng(share + static_cast<float>(first)));
}

TEST_F(HtmlTableLayoutTest, BorderZeroDrawsNoCellFrames) {
  const COLORREF shadow = translateColor(static_cast<OLE_COLOR>(0x80000010));
  view->setText("<TABLE BORDER=1 CELLSPACING=2><TR><TD>a</TD></TR></TABLE>");
  // The cell's frame starts at the table's left plus border and spacing, on the row's top.
  EXPECT_EQ(gdi().GetPixel(page().hdc(), 4 + 1 + 2, 4 + 1 + 2), shadow);
  view->setText("<TABLE BORDER=0 CELLSPACING=2><TR><TD>a</TD></TR></TABLE>");
  EXPECT_NE(gdi().GetPixel(page().hdc(), 4 + 0 + 2, 4 + 0 + 2), shadow);
}

TEST_F(HtmlTableLayoutTest, VAlignHasNoEffectOnTheMeasuringPass) {
  view->setText("<TABLE><TR><TD HEIGHT=80>a</TD><TD>b</TD></TR></TABLE>");
  const int32_t plain = text("b").Top;
  view->setText("<TABLE><TR><TD HEIGHT=80>a</TD><TD VALIGN=BOTTOM>b</TD></TR></TABLE>");
  EXPECT_EQ(text("b").Top, plain);
}

TEST_F(HtmlTableLayoutTest, NestedTableIsShiftedByItsOwnPadding) {
  view->setText(
      "<TABLE CELLPADDING=3 CELLSPACING=0 BORDER=0><TR><TD>"
      "<TABLE CELLPADDING=7 CELLSPACING=0 BORDER=0><TR><TD>x</TD></TR></TABLE></TD></TR></TABLE>");
  // Outer cell margin 4 + 3; inner table at that plus its own 7; its cell's text 7 further in.
  EXPECT_EQ(text("x").Left, 4 + 3 + 7 + 7);
  EXPECT_EQ(text("x").Right, 21 + static_cast<int32_t>(page().TextWidth("x")));
}

TEST_F(HtmlTableLayoutTest, NextCellStartsAtThePreviousCellsRightEdge) {
  view->setText(
      "<TABLE BORDER=0 CELLSPACING=0 CELLPADDING=0 WIDTH=100><TR><TD>a</TD><TD>b</TD></TR></TABLE>");
  // Two columns of 50: the first cell ends at 4 + 50, where the second one's text begins.
  EXPECT_EQ(tag(html::TagCell, 0).LayoutWidth, 50);
  EXPECT_EQ(text("a").Left, 4);
  EXPECT_EQ(text("b").Left, 54);
}

TEST_F(HtmlTableLayoutTest, SpannedCellIsNarrowerThanTheCellsAboveByTheSpacing) {
  view->setText(
      "<TABLE WIDTH=300 BORDER=1 CELLSPACING=4 CELLPADDING=0><TR><TD>a</TD><TD>b</TD></TR>"
      "<TR><TD COLSPAN=2>c</TD></TR></TABLE>");
  const int32_t a = tag(html::TagCell, 0).LayoutWidth, b = tag(html::TagCell, 1).LayoutWidth;
  const int32_t c = tag(html::TagCell, 2).LayoutWidth;
  // The span adds the columns' widths but not the spacing between them.
  EXPECT_EQ(c, a + b);
  // Each cell's right edge (the light side of its sunken frame) stands at the table's left 4,
  // plus the cell's X, plus its width, less one border; the next cell's X is that edge plus
  // spacing and border, less the table's left. The spanned cell ends 4 pixels short.
  const int32_t rightFirst = 4 + (1 + 4) + a - 1;
  const int32_t rightAbove = 4 + (rightFirst + 4 + 1 - 4) + b - 1;
  const int32_t rightBelow = 4 + (1 + 4) + c - 1;
  EXPECT_EQ(rightAbove - rightBelow, 4);
  const COLORREF back = gdi().GetPixel(page().hdc(), 1, 1);
  const COLORREF light = back == 0xFFFFFF ? translateColor(static_cast<OLE_COLOR>(0x8000000F)) : 0xFFFFFF;
  const int32_t rowAbove = text("a").Top + 2, rowBelow = text("c").Top + 2;
  EXPECT_EQ(gdi().GetPixel(page().hdc(), rightAbove, rowAbove), light);
  EXPECT_EQ(gdi().GetPixel(page().hdc(), rightBelow, rowBelow), light);
  EXPECT_EQ(gdi().GetPixel(page().hdc(), rightAbove, rowBelow), back);
}

TEST_F(HtmlTableLayoutTest, CellWithoutItsCloseTagEndsTheRow) {
  view->setText("<TABLE BORDER=0 CELLSPACING=2 CELLPADDING=1><TR><TD>a<TD>b</TR></TABLE>");
  // The missing close tag ends the row: the row, never grown by a cell's end, is as high as the
  // spacing, so the next cell stands that plus the spacing lower, at the same X, for the cell's
  // end never moved the next cell's X.
  EXPECT_EQ(text("b").Left, text("a").Left);
  EXPECT_EQ(text("b").Top, text("a").Top + 2 + 2);
  // With both close tags the cells stand side by side on one row.
  view->setText("<TABLE BORDER=0 CELLSPACING=2 CELLPADDING=1><TR><TD>a</TD><TD>b</TD></TR></TABLE>");
  EXPECT_EQ(text("b").Top, text("a").Top);
  EXPECT_GT(text("b").Left, text("a").Right);
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/html/html_tree.h>
#include <gtest/gtest.h>

#include <string>

#include "html/html_test_support.h"

namespace corvane {
namespace {

using html::HtmlChunk;
using test::parsedView;

TEST(HtmlTreeTest, ParagraphFollowedByItsCloseSkipsTheNextChunk) {
  // The P right behind the first "</P>" is never looked at, and the last P finds no stop.
  auto view = parsedView("<P>a</P><P>b<P>c");
  EXPECT_EQ(view->document().mChunks.size(), 11u);
  EXPECT_EQ(view->document().mChunkCount, 11);
}

TEST(HtmlTreeTest, ParagraphSearchStopsAtTableAndCellEnd) {
  auto view = parsedView("<P>a<TABLE><TR><TD><P>b</TD></TR></TABLE>");
  const auto& doc = view->document();
  EXPECT_EQ(doc.chunk(4).Source, "</P>");
  EXPECT_EQ(doc.chunk(5).Source, "<TABLE>");
  EXPECT_EQ(doc.chunk(8).Source, "<P>");
  EXPECT_EQ(doc.chunk(9).Source, "b");
  EXPECT_EQ(doc.chunk(10).Source, "</P>");
  EXPECT_EQ(doc.chunk(11).Source, "</TD>");
  EXPECT_EQ(doc.chunk(11).TagID, 38);
}

TEST(HtmlTreeTest, InsertedChunkCopiesTheOneItWasPutInFrontOf) {
  auto view = parsedView("<P>a<P ALIGN=center ID=x>b");
  const HtmlChunk& inserted = view->document().chunk(4);
  EXPECT_EQ(inserted.Source, "</P>");
  EXPECT_EQ(inserted.TagID, 17);
  EXPECT_EQ(inserted.IsTag, -1);
  EXPECT_EQ(inserted.AlignCenter, -1);
  EXPECT_EQ(inserted.ID, "x");
  EXPECT_EQ(inserted.Index, 4);
  EXPECT_EQ(view->document().chunk(5).Index, 5);
}

TEST(HtmlTreeTest, CellWithoutCloseGetsARowEndBetweenTheCells) {
  auto view = parsedView("<TR><TD>a<TD>b</TR>");
  const auto& doc = view->document();
  ASSERT_EQ(doc.mChunks.size(), 12u);
  EXPECT_EQ(doc.chunk(5).Source, "</TD>");
  EXPECT_EQ(doc.chunk(5).TagID, 36);
  EXPECT_EQ(doc.chunk(6).Source, "<TD>");
  EXPECT_EQ(doc.chunk(8).Source, "</TD>");
  EXPECT_EQ(doc.chunk(8).TagID, 36);
  EXPECT_EQ(doc.chunk(9).Source, "</TR>");
}

TEST(HtmlTreeTest, RowWithoutCloseGetsOneBeforeTheNextRowAndTheTableEnd) {
  auto view = parsedView("<TABLE><TR><TD>a</TD><TR><TD>b</TD></TABLE>");
  const auto& doc = view->document();
  EXPECT_EQ(doc.chunk(7).Source, "</TR>");
  EXPECT_EQ(doc.chunk(7).TagID, 36);
  EXPECT_EQ(doc.chunk(8).Source, "<TR>");
  EXPECT_EQ(doc.chunk(12).Source, "</TR>");
  EXPECT_EQ(doc.chunk(13).Source, "</TABLE>");
}

TEST(HtmlTreeTest, NestedTableDoesNotStopTheOuterRowOrCell) {
  auto view = parsedView("<TABLE><TR><TD><TABLE><TR><TD>x</TD></TR></TABLE></TD></TR></TABLE>");
  EXPECT_EQ(view->document().mChunks.size(), static_cast<size_t>(view->document().mChunkCount));
}

TEST(HtmlTreeTest, TableEndStopsAnOpenCell) {
  auto view = parsedView("<TABLE><TR><TD>x</TR></TABLE>");
  const auto& doc = view->document();
  // The cell search stops at "</TR>"; the row is closed, so only the cell gets a closer.
  EXPECT_EQ(doc.chunk(6).Source, "</TD>");
  EXPECT_EQ(doc.chunk(7).Source, "</TR>");
  EXPECT_EQ(doc.mChunks.size(), 11u);
}

TEST(HtmlTreeTest, InsertionsPushTheLastChunksOutsideTheCount) {
  auto view = parsedView("<P>a<P>b<P>c<P>d");
  const auto& doc = view->document();
  ASSERT_EQ(doc.mChunks.size(), 15u);
  EXPECT_EQ(doc.mChunkCount, 12);
  EXPECT_EQ(doc.chunk(12).Source, "d");
  EXPECT_EQ(doc.chunk(12).Parent, 0);
  EXPECT_EQ(doc.chunk(11).ChildCount, 0);
  EXPECT_EQ(doc.chunk(13).Source, "</BODY>");
  EXPECT_EQ(doc.chunk(14).Source, "</HTML>");
}

TEST(HtmlTreeTest, LinksAreCollectedOnlyWithAnchorsEnabled) {
  EXPECT_EQ(parsedView("<A HREF=1>x</A><B><A HREF=2>y</A></B>", true)->document().mAnchors,
            (std::vector<int16_t>{2, 6}));
  EXPECT_EQ(parsedView("<A HREF=1>x</A><B><A HREF=2>y</A></B>", true)->document().mAnchorCount, 2);
  EXPECT_TRUE(parsedView("<A HREF=1>x</A>", false)->document().mAnchors.empty());
}

TEST(HtmlTreeTest, EnablingAnchorsTakesEffectAtTheNextText) {
  auto view = parsedView("<A HREF=1>x</A>", false);
  view->setEnableAnchors(true);
  EXPECT_EQ(view->document().mAnchorCount, 0);
  view->setText("<A HREF=1>x</A>");
  EXPECT_EQ(view->document().mAnchorCount, 1);
}

TEST(HtmlTreeTest, LinkPushedOutsideTheCountIsNotCollected) {
  auto view = parsedView("<P>a<P>b<P>c<P>d<A HREF=x>", true);
  EXPECT_EQ(view->document().chunk(13).TagID, 41);
  EXPECT_EQ(view->document().mChunkCount, 13);
  EXPECT_EQ(view->document().mAnchorCount, 0);
}

TEST(HtmlTreeTest, DocumentOfOneChunkHasAnEmptyTree) {
  html::HtmlDocument doc;
  doc.mText = "<B>";
  doc.parse();
  ASSERT_EQ(doc.mChunkCount, 1);
  EXPECT_EQ(doc.chunk(0).ChildCount, 0);
  EXPECT_TRUE(doc.chunk(0).Children.empty());
}

TEST(HtmlTreeTest, HierarchyOfNoChunksDoesNothing) {
  html::HtmlDocument doc;
  html::HtmlTree(doc).mBuildHierarchy();
  EXPECT_TRUE(doc.mChunks.empty());
}

TEST(HtmlTreeTest, AnyCloserEndsTheLevel) {
  auto view = parsedView("<B>x</U>y");
  const auto& doc = view->document();
  EXPECT_EQ(doc.chunk(2).ChildCount, 1);
  EXPECT_EQ(doc.chunk(4).Parent, 2);  // "</U>" has its place in B
  EXPECT_EQ(doc.chunk(5).Parent, 1);  // y is beside B
}

TEST(HtmlTreeTest, CloserHasItsPlaceAmongTheChildrenButIsNotCounted) {
  auto view = parsedView("<B>x</B>");
  const HtmlChunk& b = view->document().chunk(2);
  EXPECT_EQ(b.ChildCount, 1);
  EXPECT_EQ(b.Children, (std::vector<int16_t>{3, 4}));
  EXPECT_EQ(view->document().chunk(4).ChildPos, 1);
}

TEST(HtmlTreeTest, ChildOfTheRootHasNoParentAndNoSibling) {
  auto view = parsedView("x");
  const auto& doc = view->document();
  HtmlChunk found;
  EXPECT_FALSE(doc.mParentOf(doc.chunk(1), found));
  EXPECT_FALSE(doc.mNextSibling(doc.chunk(1), found));
  EXPECT_TRUE(doc.mParentOf(doc.chunk(2), found));
  EXPECT_EQ(found.Index, 1);
}

TEST(HtmlTreeTest, AncestorWalksUpToTheAskedId) {
  auto view = parsedView("<TABLE><TR><TD><B>x</B></TD></TR></TABLE>");
  const auto& doc = view->document();
  HtmlChunk found;
  ASSERT_TRUE(doc.mAncestorOf(doc.chunk(6), found, 27));
  EXPECT_EQ(found.Index, 2);
  ASSERT_TRUE(doc.mAncestorOf(doc.chunk(6), found, 37));
  EXPECT_EQ(found.Index, 4);
  EXPECT_FALSE(doc.mAncestorOf(doc.chunk(6), found, 41));
}

TEST(HtmlTreeTest, FirstChildAndNextSiblingFollowTheCountedChildren) {
  auto view = parsedView("<UL><LI>a<LI>b</UL>");
  const auto& doc = view->document();
  HtmlChunk found;
  ASSERT_TRUE(doc.mFirstChild(doc.chunk(2), found));
  EXPECT_EQ(found.Index, 3);
  ASSERT_TRUE(doc.mNextSibling(doc.chunk(3), found));
  EXPECT_EQ(found.Index, 4);
  ASSERT_TRUE(doc.mNextSibling(doc.chunk(5), found));
  EXPECT_EQ(found.Index, 6);
  EXPECT_FALSE(doc.mNextSibling(doc.chunk(6), found));  // the closer behind it is not counted
  EXPECT_FALSE(doc.mFirstChild(doc.chunk(3), found));   // LI is a leaf
}

TEST(HtmlTreeTest, CopiesFromTheTreeDoNotReachTheArray) {
  auto view = parsedView("<B>x</B>");
  const auto& doc = view->document();
  HtmlChunk found;
  ASSERT_TRUE(doc.mFirstChild(doc.chunk(2), found));
  found.Top = 99;
  EXPECT_EQ(doc.chunk(3).Top, 0);
}

TEST(HtmlTreeTest, BuildingTheTreeAgainGivesTheSameTree) {
  auto view = parsedView("<B>x<I>y</I></B>");
  const std::string before = html::dumpHtmlDocument(view->document());
  view->mBuildHierarchy();
  EXPECT_EQ(html::dumpHtmlDocument(view->document()), before);
}

}  // namespace
}  // namespace corvane

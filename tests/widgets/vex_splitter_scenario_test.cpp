// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>

#include "support/splitter_fixture.h"

namespace corvane {
namespace {

using test::SplitterTest;
using Log = std::vector<std::string>;

constexpr RECT kLeftBox{0, 0, 100, 100}, kRightBox{105, 0, 205, 100};

float barLeftPx(VexSplitter& s) { return s.extenderRef()->Left() / 15; }
float barTopPx(VexSplitter& s) { return s.extenderRef()->Top() / 15; }

// Cursor clip: left box 0..100 plus 20, right box 105..205 less 30, so x from 20 to 174.
TEST_F(SplitterTest, DragStopsAtTheLeftMinimumAndResizesBothOnlyAtRelease) {
  build(sdVertical);
  desktop().mouseMove(102, 50);
  desktop().mouseDown(1);
  EXPECT_TRUE(splitter->dragging());
  EXPECT_EQ(splitter->clipRect(), (RECT{20, 0, 175, 100}));
  desktop().mouseMove(60, 50);
  EXPECT_EQ(barLeftPx(*splitter), 58);
  desktop().mouseMove(0, 50);
  POINTAPI cursor;
  user().GetCursorPos(cursor);
  EXPECT_EQ(cursor.x, 20) << "the cursor stops at the left box's minimum";
  EXPECT_EQ(barLeftPx(*splitter), 18) << "the bar keeps the press offset of two pixels";
  EXPECT_EQ(placeOf(*first), kLeftBox) << "no neighbour moves before the release";
  EXPECT_EQ(placeOf(*second), kRightBox);
  desktop().mouseUp(1);
  EXPECT_EQ(placeOf(*first), (RECT{0, 0, 18, 100}));
  EXPECT_EQ(placeOf(*second), (RECT{23, 0, 205, 100}));
  EXPECT_FALSE(splitter->dragging());
  EXPECT_EQ(log, (Log{"BeforeScroll", "Scrolling 0", "Scrolling 0", "AfterScroll"}));
}

TEST_F(SplitterTest, DragStopsAtTheRightMinimum) {
  build(sdVertical);
  desktop().mouseMove(102, 50);
  desktop().mouseDown(1);
  desktop().mouseMove(150, 50);
  desktop().mouseMove(399, 50);
  EXPECT_EQ(barLeftPx(*splitter), 172)
      << "the cursor stops at 174, the right box's edge less 30 and the exclusive edge";
  EXPECT_EQ(placeOf(*second), kRightBox);
  desktop().mouseUp(1);
  EXPECT_EQ(placeOf(*first), (RECT{0, 0, 172, 100}));
  EXPECT_EQ(placeOf(*second), (RECT{177, 0, 205, 100}));
}

TEST_F(SplitterTest, EscapeRestoresTheBarAndTheReleaseDoesNothing) {
  build(sdVertical);
  desktop().mouseMove(102, 50);
  desktop().mouseDown(1);
  desktop().mouseMove(150, 50);
  EXPECT_EQ(barLeftPx(*splitter), 148);
  user().SetFocus(splitter->hWnd());
  desktop().windows().keyDown(27);
  EXPECT_EQ(barLeftPx(*splitter), 100);
  EXPECT_FALSE(splitter->dragging());
  EXPECT_EQ(user().GetCapture(), 0) << "the capture went with the disabled window";
  EXPECT_TRUE(user().IsWindowEnabled(splitter->hWnd()));
  desktop().mouseMove(399, 50);
  POINTAPI cursor;
  user().GetCursorPos(cursor);
  EXPECT_EQ(cursor.x, 399) << "the cursor is free again";
  EXPECT_EQ(barLeftPx(*splitter), 100);
  desktop().mouseUp(1);
  EXPECT_EQ(placeOf(*first), kLeftBox);
  EXPECT_EQ(placeOf(*second), kRightBox);
  EXPECT_EQ(log, (Log{"BeforeScroll", "Scrolling 1"})) << "no AfterScroll after Escape";
}

TEST_F(SplitterTest, EscapeWithoutADragDoesNothing) {
  build(sdVertical);
  user().SetFocus(splitter->hWnd());
  desktop().windows().keyDown(27);
  EXPECT_EQ(barLeftPx(*splitter), 100);
  EXPECT_TRUE(log.empty());
}

TEST_F(SplitterTest, HorizontalBarMovesUpAndDownBetweenItsMinimums) {
  build(sdHorizontal);
  desktop().mouseMove(50, 102);
  desktop().mouseDown(1);
  EXPECT_EQ(splitter->clipRect(), (RECT{0, 20, 100, 175}));
  desktop().mouseMove(50, 130);
  EXPECT_EQ(barTopPx(*splitter), 128);
  EXPECT_EQ(barLeftPx(*splitter), 0);
  desktop().mouseMove(50, 299);
  EXPECT_EQ(barTopPx(*splitter), 172);
  EXPECT_EQ(placeOf(*first), kLeftBox);
  desktop().mouseUp(1);
  EXPECT_EQ(placeOf(*first), (RECT{0, 0, 100, 172}));
  EXPECT_EQ(placeOf(*second), (RECT{0, 177, 100, 205}));
  EXPECT_EQ(log, (Log{"BeforeScroll", "Scrolling 1", "Scrolling 1", "AfterScroll"}));
}

TEST_F(SplitterTest, HorizontalBarStopsAtTheUpperMinimum) {
  build(sdHorizontal);
  desktop().mouseMove(50, 102);
  desktop().mouseDown(1);
  desktop().mouseMove(50, 60);
  desktop().mouseMove(50, 0);
  EXPECT_EQ(barTopPx(*splitter), 18);
  desktop().mouseUp(1);
  EXPECT_EQ(placeOf(*first), (RECT{0, 0, 100, 18}));
  EXPECT_EQ(placeOf(*second), (RECT{0, 23, 100, 205}));
}

TEST_F(SplitterTest, TheFirstMoveIsNotYetClipped) {
  build(sdVertical);
  desktop().mouseMove(102, 50);
  desktop().mouseDown(1);
  desktop().mouseMove(5, 50);
  EXPECT_EQ(barLeftPx(*splitter), 3) << "the press sets no clip; the first move applies it";
  desktop().mouseMove(5, 50);
  EXPECT_EQ(barLeftPx(*splitter), 18);
  desktop().mouseUp(1);
}

TEST_F(SplitterTest, CursorBackAtThePressPositionRaisesNoScrolling) {
  build(sdVertical);
  desktop().mouseMove(102, 50);
  desktop().mouseDown(1);
  desktop().mouseMove(110, 50);
  desktop().mouseMove(102, 50);
  desktop().mouseMove(95, 50);
  EXPECT_EQ(log, (Log{"BeforeScroll", "Scrolling 1", "Scrolling 0"}));
}

TEST_F(SplitterTest, ScrollingTellsTheSideOfThePressNotTheLastStep) {
  build(sdVertical);
  desktop().mouseMove(102, 50);
  desktop().mouseDown(1);
  desktop().mouseMove(130, 50);
  desktop().mouseMove(120, 50);
  EXPECT_EQ(log, (Log{"BeforeScroll", "Scrolling 1", "Scrolling 1"}));
}

TEST_F(SplitterTest, BothNeighboursAtTheirMinimumAllowNoDragButReleaseRealigns) {
  PropertyBag bag;
  colour(bag, sdVertical);
  bag.set("MinLeftTop", int32_t(100 * 15));
  bag.set("MinRightBottom", int32_t(100 * 15));
  build(sdVertical, &bag);
  first->extenderRef()->setWidth(90 * 15);
  desktop().mouseMove(102, 50);
  desktop().mouseDown(1);
  EXPECT_FALSE(splitter->dragging());
  EXPECT_EQ(px(102, 50), static_cast<COLORREF>(kActive)) << "a press looks active even without a drag";
  desktop().mouseMove(150, 50);
  EXPECT_EQ(barLeftPx(*splitter), 100);
  desktop().mouseUp(1);
  EXPECT_EQ(placeOf(*first), kLeftBox) << "the release re-aligns the left box with the bar";
  EXPECT_EQ(placeOf(*second), kRightBox);
  EXPECT_TRUE(log.empty()) << "no BeforeScroll, Scrolling or AfterScroll";
}

TEST_F(SplitterTest, VerticalBarComparesWidthsInTheVerticalScale) {
  build(sdVertical);
  desktop().setTwipsPerPixel(15, 30);
  splitter->setMinLeftTop(1500);
  splitter->setMinRightBottom(1500);
  // 1500 twips are 50 vertical pixels, less than the width of 100; as horizontal pixels they are 100.
  EXPECT_TRUE(splitter->ComputeClip());
  // Both sides shrink by 100 horizontal pixels to nothing; a union leaves empty rectangles out.
  EXPECT_EQ(splitter->clipRect(), (RECT{}));
}

TEST_F(SplitterTest, OneSidesRoomSufficesForADrag) {
  PropertyBag bag;
  colour(bag, sdVertical);
  bag.set("MinLeftTop", int32_t(100 * 15));
  build(sdVertical, &bag);
  EXPECT_TRUE(splitter->ComputeClip());
  // The left box shrinks to nothing and drops out of the union: the cursor keeps to the right box.
  EXPECT_EQ(splitter->clipRect(), (RECT{105, 0, 175, 100}));
}

TEST_F(SplitterTest, DirectionSetByCodeDragsAtOnceButKeepsThePointerUntilTheNextLoad) {
  build(sdVertical);
  EXPECT_EQ(splitter->surface().MousePointer(), 9);
  splitter->setDirection(sdHorizontal);
  EXPECT_EQ(splitter->surface().MousePointer(), 9);
  desktop().mouseMove(102, 50);
  desktop().mouseDown(1);
  desktop().mouseMove(102, 60);
  EXPECT_EQ(barTopPx(*splitter), 10);
  EXPECT_EQ(barLeftPx(*splitter), 100);
  desktop().mouseUp(1);
  PropertyBag bag;
  splitter->WriteProperties(bag);
  auto reloaded = addSplitter(300, 0, 5, 100, &bag, "Splitter2");
  EXPECT_EQ(reloaded->surface().MousePointer(), 7);
}

TEST_F(SplitterTest, DoubleClickIsForwarded) {
  build(sdVertical);
  desktop().doubleClick(102, 50);
  EXPECT_EQ(std::count(log.begin(), log.end(), "DblClick"), 1);
}

TEST_F(SplitterTest, ShownAtRunTimeTheNeighboursLineUpWithTheBar) {
  build(sdVertical);
  first->extenderRef()->setWidth(60 * 15);
  splitter->Show();
  EXPECT_EQ(placeOf(*first), kLeftBox);
}

TEST_F(SplitterTest, ShownInTheDesignerNothingIsArranged) {
  form->setUserMode(false);
  build(sdVertical);
  first->extenderRef()->setWidth(60 * 15);
  splitter->Show();
  EXPECT_EQ(placeOf(*first), (RECT{0, 0, 60, 100}));
}

TEST_F(SplitterTest, WithoutNeighboursAPressOnlyShowsTheActiveLook) {
  PropertyBag bag;
  colour(bag, sdVertical);
  splitter = addSplitter(100, 0, 5, 100, &bag);
  logEvents();
  desktop().mouseMove(102, 50);
  desktop().mouseDown(1);
  EXPECT_FALSE(splitter->dragging());
  EXPECT_EQ(px(102, 50), static_cast<COLORREF>(kActive));
  desktop().mouseMove(150, 50);
  desktop().mouseUp(1);
  EXPECT_EQ(barLeftPx(*splitter), 100);
  EXPECT_EQ(px(102, 50), static_cast<COLORREF>(kBack));
  EXPECT_TRUE(log.empty());
}

TEST_F(SplitterTest, TerminateDropsTheNeighbours) {
  build(sdVertical);
  ASSERT_TRUE(splitter->leftOrTop());
  splitter->Terminate();
  EXPECT_FALSE(splitter->leftOrTop());
  EXPECT_FALSE(splitter->rightOrBottom());
}

// ---- looks ----

TEST_F(SplitterTest, IdleLookShowsOnlyTheTopAndBottomBorderLines) {
  build(sdVertical);
  EXPECT_EQ(px(102, 0), static_cast<COLORREF>(kBorder));
  EXPECT_EQ(px(102, 99), static_cast<COLORREF>(kBorder));
  EXPECT_EQ(px(100, 50), static_cast<COLORREF>(kBack)) << "the box's left side lies outside the bar";
  EXPECT_EQ(px(104, 50), static_cast<COLORREF>(kBack)) << "the box's right side lies outside the bar";
  EXPECT_EQ(px(102, 50), static_cast<COLORREF>(kBack));
}

TEST_F(SplitterTest, IdleLookOfAHorizontalBarIsNotTurned) {
  build(sdHorizontal);
  EXPECT_EQ(px(50, 100), static_cast<COLORREF>(kBorder));
  EXPECT_EQ(px(50, 104), static_cast<COLORREF>(kBorder));
  EXPECT_EQ(px(0, 102), static_cast<COLORREF>(kBack));
  EXPECT_EQ(px(99, 102), static_cast<COLORREF>(kBack));
}

TEST_F(SplitterTest, PressedLookIsTheActivateColourInAFullBox) {
  build(sdVertical);
  desktop().mouseMove(102, 50);
  desktop().mouseDown(1);
  EXPECT_EQ(px(102, 50), static_cast<COLORREF>(kActive));
  EXPECT_EQ(px(100, 50), static_cast<COLORREF>(kActiveBorder));
  EXPECT_EQ(px(104, 50), static_cast<COLORREF>(kActiveBorder));
  EXPECT_EQ(px(102, 0), static_cast<COLORREF>(kActiveBorder));
  EXPECT_EQ(px(102, 99), static_cast<COLORREF>(kActiveBorder));
  desktop().mouseUp(1);
  EXPECT_EQ(px(102, 50), static_cast<COLORREF>(kBack)) << "the idle look comes back on release";
  EXPECT_EQ(px(100, 50), static_cast<COLORREF>(kBack));
  EXPECT_EQ(px(102, 0), static_cast<COLORREF>(kBorder));
}

TEST_F(SplitterTest, PressBringsTheBarToTheFront) {
  build(sdVertical);
  // A box laid over the bar's lower half.
  auto over = addBox("picOver", 90, 60, 30, 40);
  over->surface().setBackColor(0x123456);
  EXPECT_EQ(px(102, 20), static_cast<COLORREF>(kBack));
  EXPECT_EQ(px(102, 80), COLORREF(0x123456));
  desktop().mouseMove(102, 20);
  desktop().mouseDown(1);
  EXPECT_EQ(px(102, 80), static_cast<COLORREF>(kActive));
  desktop().mouseUp(1);
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "desktop/gdi.h"
#include "gdi_test_support.h"

namespace corvane {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF, kRed = 0x0000FF;

class GdiShapes : public ::testing::Test {
 protected:
  GdiShapes() : canvas(windows.add(1, 40, 30)), gdi(windows), hdc(gdi.GetDC(1)) {}
  ~GdiShapes() override { gdi.ReleaseDC(1, hdc); }

  HPEN selectRedPen() {
    HPEN pen = gdi.CreatePen(PS_SOLID, 1, kRed);
    gdi.SelectObject(hdc, pen);
    return pen;
  }
  int countColour(COLORREF c) {
    int n = 0;
    for (int y = 0; y < canvas.height(); ++y)
      for (int x = 0; x < canvas.width(); ++x) n += canvas.pixel(x, y) == c;
    return n;
  }

  test::FakeWindows windows;
  Canvas& canvas;
  DesktopGdi gdi;
  HDC hdc;
};

TEST_F(GdiShapes, HorizontalLineLeavesOutItsEndPoint) {
  selectRedPen();
  gdi.MoveToEx(hdc, 2, 5, nullptr);
  gdi.LineTo(hdc, 10, 5);
  for (int x = 2; x < 10; ++x) EXPECT_EQ(canvas.pixel(x, 5), kRed) << x;
  EXPECT_EQ(canvas.pixel(10, 5), kWhite);
  EXPECT_EQ(canvas.pixel(1, 5), kWhite);
  EXPECT_EQ(countColour(kRed), 8);
}

TEST_F(GdiShapes, VerticalLineLeavesOutItsEndPoint) {
  selectRedPen();
  gdi.MoveToEx(hdc, 3, 12, nullptr);
  gdi.LineTo(hdc, 3, 4);  // upwards
  for (int y = 5; y <= 12; ++y) EXPECT_EQ(canvas.pixel(3, y), kRed) << y;
  EXPECT_EQ(canvas.pixel(3, 4), kWhite);
  EXPECT_EQ(countColour(kRed), 8);
}

TEST_F(GdiShapes, DiagonalLineLeavesOutItsEndPoint) {
  selectRedPen();
  gdi.MoveToEx(hdc, 0, 0, nullptr);
  gdi.LineTo(hdc, 6, 6);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(canvas.pixel(i, i), kRed) << i;
  EXPECT_EQ(canvas.pixel(6, 6), kWhite);
  EXPECT_EQ(countColour(kRed), 6);
}

TEST_F(GdiShapes, ShallowLineHasOnePixelPerColumn) {
  selectRedPen();
  gdi.MoveToEx(hdc, 0, 0, nullptr);
  gdi.LineTo(hdc, 20, 5);
  EXPECT_EQ(countColour(kRed), 20);
  for (int x = 0; x < 20; ++x) {
    int inColumn = 0;
    for (int y = 0; y < canvas.height(); ++y) inColumn += canvas.pixel(x, y) == kRed;
    EXPECT_EQ(inColumn, 1) << x;
  }
  EXPECT_EQ(canvas.pixel(0, 0), kRed);
}

TEST_F(GdiShapes, LineToMovesTheCurrentPositionAndMoveToExReturnsThePreviousOne) {
  selectRedPen();
  gdi.MoveToEx(hdc, 1, 1, nullptr);
  gdi.LineTo(hdc, 7, 1);
  POINTAPI previous;
  gdi.MoveToEx(hdc, 0, 0, &previous);
  EXPECT_EQ(previous, (POINTAPI{7, 1}));
}

TEST_F(GdiShapes, LineFarOutsideTheCanvasIsClippedAndCheap) {
  selectRedPen();
  gdi.MoveToEx(hdc, -2000000000, 7, nullptr);
  gdi.LineTo(hdc, 2000000000, 7);
  EXPECT_EQ(countColour(kRed), canvas.width());
}

TEST_F(GdiShapes, NullPenDrawsNothing) {
  HPEN pen = gdi.CreatePen(5, 1, kRed);
  gdi.SelectObject(hdc, pen);
  gdi.MoveToEx(hdc, 0, 0, nullptr);
  gdi.LineTo(hdc, 10, 10);
  EXPECT_EQ(countColour(kRed), 0);
}

TEST_F(GdiShapes, WidePenPaintsASquareAroundEachPoint) {
  HPEN pen = gdi.CreatePen(PS_SOLID, 3, kRed);
  gdi.SelectObject(hdc, pen);
  gdi.MoveToEx(hdc, 5, 10, nullptr);
  gdi.LineTo(hdc, 15, 10);
  EXPECT_EQ(canvas.pixel(5, 9), kRed);
  EXPECT_EQ(canvas.pixel(5, 11), kRed);
  EXPECT_EQ(canvas.pixel(5, 12), kWhite);
  EXPECT_EQ(countColour(kRed), 3 * 12);
}

TEST_F(GdiShapes, FillRectLeavesOutTheRightAndBottomEdges) {
  HBRUSH brush = gdi.CreateSolidBrush(kRed);
  EXPECT_EQ(gdi.FillRect(hdc, RECT{2, 3, 6, 8}, brush), 1);
  EXPECT_EQ(canvas.pixel(2, 3), kRed);
  EXPECT_EQ(canvas.pixel(5, 7), kRed);
  EXPECT_EQ(canvas.pixel(6, 7), kWhite);
  EXPECT_EQ(canvas.pixel(5, 8), kWhite);
  EXPECT_EQ(countColour(kRed), 4 * 5);
}

TEST_F(GdiShapes, FillRectTakesASystemColourIndexPlusOneAsBrush) {
  gdi.FillRect(hdc, RECT{0, 0, 2, 2}, syscolor::BTNFACE + 1);
  EXPECT_EQ(canvas.pixel(1, 1), RGB(212, 208, 200));
}

TEST_F(GdiShapes, FrameRectIsOnePixelInsideTheRectangle) {
  HBRUSH brush = gdi.CreateSolidBrush(kRed);
  gdi.FrameRect(hdc, RECT{2, 2, 8, 7}, brush);
  EXPECT_EQ(canvas.pixel(2, 2), kRed);
  EXPECT_EQ(canvas.pixel(7, 6), kRed);
  EXPECT_EQ(canvas.pixel(7, 2), kRed);
  EXPECT_EQ(canvas.pixel(2, 6), kRed);
  EXPECT_EQ(canvas.pixel(8, 6), kWhite);
  EXPECT_EQ(canvas.pixel(7, 7), kWhite);
  EXPECT_EQ(canvas.pixel(4, 4), kWhite);
  EXPECT_EQ(countColour(kRed), 2 * 6 + 2 * 3);
}

TEST_F(GdiShapes, RectangleHasThePenOnItsInsideEdgeAndTheBrushWithin) {
  selectRedPen();
  HBRUSH blue = gdi.CreateSolidBrush(0xFF0000);
  gdi.SelectObject(hdc, blue);
  gdi.Rectangle(hdc, 1, 1, 6, 5);
  EXPECT_EQ(canvas.pixel(1, 1), kRed);
  EXPECT_EQ(canvas.pixel(5, 4), kRed);
  EXPECT_EQ(canvas.pixel(6, 4), kWhite);
  EXPECT_EQ(canvas.pixel(5, 5), kWhite);
  EXPECT_EQ(canvas.pixel(2, 2), 0xFF0000);
  EXPECT_EQ(canvas.pixel(4, 3), 0xFF0000);
  EXPECT_EQ(countColour(0xFF0000), 3 * 2);
}

TEST_F(GdiShapes, RoundRectCutsItsCornersAndKeepsItsEdges) {
  selectRedPen();
  HBRUSH blue = gdi.CreateSolidBrush(0xFF0000);
  gdi.SelectObject(hdc, blue);
  gdi.RoundRect(hdc, 0, 0, 30, 20, 10, 10);
  EXPECT_EQ(canvas.pixel(0, 0), kWhite);  // corner cut off
  EXPECT_EQ(canvas.pixel(29, 19), kWhite);
  EXPECT_EQ(canvas.pixel(15, 0), kRed);  // straight edges on the rectangle
  EXPECT_EQ(canvas.pixel(15, 19), kRed);
  EXPECT_EQ(canvas.pixel(0, 10), kRed);
  EXPECT_EQ(canvas.pixel(29, 10), kRed);
  EXPECT_EQ(canvas.pixel(30, 10), kWhite);
  EXPECT_EQ(canvas.pixel(15, 10), 0xFF0000);
  // Symmetric left to right and top to bottom.
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 30; ++x) {
      ASSERT_EQ(canvas.pixel(x, y), canvas.pixel(29 - x, y)) << x << "," << y;
      ASSERT_EQ(canvas.pixel(x, y), canvas.pixel(x, 19 - y)) << x << "," << y;
    }
}

TEST_F(GdiShapes, SetPixelAndGetPixel) {
  EXPECT_EQ(gdi.SetPixel(hdc, 3, 4, kRed), kRed);
  EXPECT_EQ(gdi.GetPixel(hdc, 3, 4), kRed);
  EXPECT_EQ(gdi.GetPixel(hdc, -1, 4), -1);
  EXPECT_EQ(gdi.GetPixel(hdc, 40, 0), -1);
  EXPECT_EQ(gdi.SetPixel(hdc, 40, 0, kRed), -1);
}

TEST_F(GdiShapes, DrawingOnAWindowReportsIt) {
  int before = windows.drawn[1];
  HBRUSH brush = gdi.CreateSolidBrush(kRed);
  gdi.FillRect(hdc, RECT{0, 0, 1, 1}, brush);
  gdi.MoveToEx(hdc, 0, 0, nullptr);  // not drawing
  EXPECT_EQ(windows.drawn[1], before + 1);
}

TEST_F(GdiShapes, TheCanvasIsLookedUpAtEachCall) {
  HBRUSH brush = gdi.CreateSolidBrush(kRed);
  Canvas& bigger = windows.add(1, 80, 60);
  gdi.FillRect(hdc, RECT{70, 50, 75, 55}, brush);
  EXPECT_EQ(bigger.pixel(72, 52), kRed);
  windows.remove(1);
  EXPECT_EQ(gdi.FillRect(hdc, RECT{0, 0, 5, 5}, brush), 0);
}

struct EdgeCase {
  const char* name;
  int32_t edge;
  COLORREF outerTopLeft, outerBottomRight, innerTopLeft, innerBottomRight;
};

class GdiEdges : public GdiShapes, public ::testing::WithParamInterface<EdgeCase> {};

constexpr COLORREF kLight = RGB(212, 208, 200), kDark = RGB(64, 64, 64), kShadow = RGB(128, 128, 128),
                   kHighlight = RGB(255, 255, 255);

TEST_P(GdiEdges, DrawEdgeUsesTheSystemColoursOfEachRing) {
  const EdgeCase& e = GetParam();
  canvas.fill(RGB(1, 2, 3));
  RECT r{2, 2, 12, 10};
  ASSERT_TRUE(gdi.DrawEdge(hdc, r, e.edge, BF_RECT));
  EXPECT_EQ(canvas.pixel(5, 2), e.outerTopLeft);       // top
  EXPECT_EQ(canvas.pixel(2, 5), e.outerTopLeft);       // left
  EXPECT_EQ(canvas.pixel(5, 9), e.outerBottomRight);   // bottom
  EXPECT_EQ(canvas.pixel(11, 5), e.outerBottomRight);  // right
  EXPECT_EQ(canvas.pixel(11, 2), e.outerBottomRight);  // the top-right corner belongs to the right side
  EXPECT_EQ(canvas.pixel(2, 9), e.outerBottomRight);   // and the bottom-left one to the bottom
  EXPECT_EQ(canvas.pixel(5, 3), e.innerTopLeft);
  EXPECT_EQ(canvas.pixel(3, 5), e.innerTopLeft);
  EXPECT_EQ(canvas.pixel(5, 8), e.innerBottomRight);
  EXPECT_EQ(canvas.pixel(10, 5), e.innerBottomRight);
  EXPECT_EQ(canvas.pixel(12, 5), RGB(1, 2, 3));
  EXPECT_EQ(r, (RECT{2, 2, 12, 10}));  // unchanged without BF_ADJUST
}

constexpr COLORREF kUntouched = RGB(1, 2, 3);
INSTANTIATE_TEST_SUITE_P(
    EdgeKinds, GdiEdges,
    ::testing::Values(EdgeCase{"RaisedOuter", BDR_RAISEDOUTER, kLight, kDark, kUntouched, kUntouched},
                      EdgeCase{"SunkenOuter", BDR_SUNKENOUTER, kShadow, kHighlight, kUntouched, kUntouched},
                      EdgeCase{"Raised", EDGE_RAISED, kLight, kDark, kHighlight, kShadow},
                      EdgeCase{"Sunken", EDGE_SUNKEN, kShadow, kHighlight, kDark, kLight}),
    [](const ::testing::TestParamInfo<EdgeCase>& info) { return std::string(info.param.name); });

TEST_F(GdiShapes, DrawEdgeWithOnlyAnInnerRingDrawsItOnTheEdge) {
  canvas.fill(kUntouched);
  RECT r{0, 0, 10, 10};
  gdi.DrawEdge(hdc, r, BDR_RAISEDINNER, BF_RECT);
  EXPECT_EQ(canvas.pixel(5, 0), kHighlight);
  EXPECT_EQ(canvas.pixel(9, 5), kShadow);
  EXPECT_EQ(canvas.pixel(5, 1), kUntouched);
  gdi.DrawEdge(hdc, r, BDR_SUNKENINNER, BF_RECT);
  EXPECT_EQ(canvas.pixel(5, 0), kDark);
  EXPECT_EQ(canvas.pixel(9, 5), kLight);
}

TEST_F(GdiShapes, DrawEdgeDrawsOnlyTheChosenSidesAndAdjusts) {
  canvas.fill(kUntouched);
  RECT r{0, 0, 10, 10};
  gdi.DrawEdge(hdc, r, EDGE_RAISED, BF_TOP | BF_LEFT | 0x2000);
  EXPECT_EQ(canvas.pixel(5, 0), kLight);
  EXPECT_EQ(canvas.pixel(9, 5), kUntouched);
  EXPECT_EQ(canvas.pixel(5, 9), kUntouched);
  EXPECT_EQ(r, (RECT{2, 2, 10, 10}));
}

TEST_F(GdiShapes, DrawEdgeFollowsAChangedSystemColour) {
  gdi.SetSysColor(syscolor::BTNSHADOW, kRed);
  RECT r{0, 0, 10, 10};
  gdi.DrawEdge(hdc, r, BDR_SUNKENOUTER, BF_RECT);
  EXPECT_EQ(canvas.pixel(0, 5), kRed);
}

}  // namespace
}  // namespace corvane

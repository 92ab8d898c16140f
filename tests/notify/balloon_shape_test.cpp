// SPDX-License-Identifier: MIT
// The balloon's window region for each tip position, read back from the composed screen: inside
// the shape the balloon shows, outside it the desktop.
#include "support/balloon_fixture.h"

namespace corvane::test {
namespace {

class BalloonShapeTest : public BalloonTest {
 protected:
  // The body's corners, cut by single pixels, with its lower edge at row B - 1.
  void expectBody(int32_t B) {
    ASSERT_LE(rect().Right, 1024) << "the whole window is on the screen";
    int32_t w = W();
    EXPECT_TRUE(inShape(0, 21));
    EXPECT_TRUE(inShape(w - 1, 21));
    EXPECT_FALSE(inShape(0, 20));
    EXPECT_FALSE(inShape(w - 1, 20));
    EXPECT_TRUE(inShape(1, 20));
    EXPECT_TRUE(inShape(w - 2, 20));
    EXPECT_FALSE(inShape(1, 19));
    EXPECT_FALSE(inShape(w - 2, 19));
    EXPECT_TRUE(inShape(2, 19));
    EXPECT_TRUE(inShape(w - 3, 19));
    EXPECT_TRUE(inShape(0, B - 3));
    EXPECT_TRUE(inShape(w - 1, B - 3));
    EXPECT_FALSE(inShape(0, B - 2));
    EXPECT_FALSE(inShape(w - 1, B - 2));
    EXPECT_TRUE(inShape(1, B - 2));
    EXPECT_TRUE(inShape(w - 2, B - 2));
    EXPECT_FALSE(inShape(1, B - 1));
    EXPECT_FALSE(inShape(w - 2, B - 1));
    EXPECT_TRUE(inShape(2, B - 1));
    EXPECT_TRUE(inShape(w - 3, B - 1));
    EXPECT_TRUE(inShape(w / 2, (19 + B) / 2));
  }
};

TEST_F(BalloonShapeTest, TipTopLeftIsATriangleWithItsStraightEdgeAtSixteen) {
  popAtMouse(300, 400, "Eine Nachricht im Ballon", false);
  ASSERT_EQ(tip(), "top left");
  int32_t h = H();
  expectBody(h);
  EXPECT_FALSE(inShape(16, 0));
  EXPECT_TRUE(inShape(16, 1));
  EXPECT_TRUE(inShape(17, 1));
  EXPECT_FALSE(inShape(18, 1));
  EXPECT_FALSE(inShape(15, 1));
  EXPECT_TRUE(inShape(16, 18));
  EXPECT_TRUE(inShape(34, 18));
  EXPECT_FALSE(inShape(35, 18));
  EXPECT_FALSE(inShape(15, 18));
  EXPECT_FALSE(inShape(W() - 17, 5));
}

// Near the right edge the tip turns right; the window then ends 32 pixels right of the point.
TEST_F(BalloonShapeTest, TipTopRightMirrorsItSixteenPixelsFromTheRight) {
  popAtMouse(950, 400, "Eine Nachricht im Ballon", false);
  ASSERT_EQ(tip(), "top right");
  int32_t w = W();
  expectBody(H());
  EXPECT_TRUE(inShape(w - 17, 1));
  EXPECT_TRUE(inShape(w - 18, 1));
  EXPECT_FALSE(inShape(w - 19, 1));
  EXPECT_FALSE(inShape(w - 16, 1));
  EXPECT_TRUE(inShape(w - 17, 18));
  EXPECT_TRUE(inShape(w - 35, 18));
  EXPECT_FALSE(inShape(w - 36, 18));
  EXPECT_FALSE(inShape(w - 16, 18));
  EXPECT_FALSE(inShape(16, 5));
}

TEST_F(BalloonShapeTest, TipBottomLeftNarrowsFromTwentyPixelsToTwoGoingDown) {
  popAtMouse(300, 400);
  ASSERT_EQ(tip(), "bottom left");
  int32_t h = H(), B = h - 19;
  expectBody(B);
  // The upper 19 rows lie outside the body.
  for (int32_t y = 0; y < 19; ++y) EXPECT_FALSE(inShape(W() / 2, y)) << y;
  EXPECT_FALSE(inShape(16, 10));
  EXPECT_TRUE(inShape(16, B));
  EXPECT_TRUE(inShape(34, B));
  EXPECT_FALSE(inShape(35, B));
  EXPECT_FALSE(inShape(15, B));
  EXPECT_TRUE(inShape(16, B + 17));
  EXPECT_TRUE(inShape(17, B + 17));
  EXPECT_FALSE(inShape(18, B + 17));
  EXPECT_FALSE(inShape(16, B + 18));
  EXPECT_FALSE(inShape(W() / 2, B));
}

TEST_F(BalloonShapeTest, TipBottomRightEndsInARowOfTwoPixelsEndingAtWidthMinusSixteen) {
  popAtMouse(950, 400);
  ASSERT_EQ(tip(), "bottom right");
  int32_t w = W(), B = H() - 19;
  expectBody(B);
  EXPECT_FALSE(inShape(w / 2, 10));
  EXPECT_TRUE(inShape(w - 17, B));
  EXPECT_TRUE(inShape(w - 35, B));
  EXPECT_FALSE(inShape(w - 36, B));
  EXPECT_FALSE(inShape(w - 16, B));
  // The last row: two pixels, W - 18 and W - 17.
  EXPECT_TRUE(inShape(w - 18, B + 17));
  EXPECT_TRUE(inShape(w - 17, B + 17));
  EXPECT_FALSE(inShape(w - 19, B + 17));
  EXPECT_FALSE(inShape(w - 16, B + 17));
  EXPECT_FALSE(inShape(w - 17, B + 18));
}

TEST_F(BalloonShapeTest, EveryRegionRectangleIsDeletedAtOnce) {
  int32_t before = desktop().liveDrawingObjects();
  popAtMouse(300, 400);
  EXPECT_EQ(desktop().liveDrawingObjects(), before);
}

TEST_F(BalloonShapeTest, TheFrameIsDrawnInTheStubsBorderColourOnTheBalloonsBack) {
  popAtMouse(300, 400, "Eine Nachricht im Ballon", false);
  RECT r = rect();
  int32_t w = W(), h = H();
  // Upper edge at row 19 and lower edge at the last row, both in the border colour.
  EXPECT_EQ(screenPixel(r.Left + w / 2, r.Top + 19), BalloonWindow::kBorderColor);
  EXPECT_EQ(screenPixel(r.Left + w / 2, r.Top + h - 1), BalloonWindow::kBorderColor);
  EXPECT_EQ(screenPixel(r.Left, r.Top + h / 2), BalloonWindow::kBorderColor);
  EXPECT_EQ(screenPixel(r.Left + w - 1, r.Top + h / 2), BalloonWindow::kBorderColor);
  // The tip's opening at the top left is open: no edge across it.
  EXPECT_EQ(screenPixel(r.Left + 25, r.Top + 19), BalloonWindow::kBackColor);
  // The closed corner at the top right has its edge.
  EXPECT_EQ(screenPixel(r.Left + w - 25, r.Top + 19), BalloonWindow::kBorderColor);
}

}  // namespace
}  // namespace corvane::test

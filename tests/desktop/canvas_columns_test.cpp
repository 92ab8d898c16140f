// SPDX-License-Identifier: MIT
#include <cairo.h>
#include <gtest/gtest.h>

#include "desktop/canvas.h"
#include "desktop/gdi_raster.h"

namespace corvane {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF, kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000;

// Vertical one-pixel lines are gathered and written row by row when the pixels are next used;
// whoever looks sees exactly what column-by-column drawing gives.
TEST(CanvasColumns, GatheredColumnsShowWhenThePixelsAreRead) {
  Canvas c(10, 8);
  GdiRaster::line(c, 2, 1, 2, 6, kRed, 1);    // rows 1 to 5: the end point is left out
  GdiRaster::line(c, 3, 1, 3, 6, kGreen, 1);  // the next column to the right
  GdiRaster::line(c, 1, 5, 1, 0, kBlue, 1);   // upwards, to the left: rows 5 down to 1
  for (int y = 0; y < 8; ++y) {
    const bool inside = y >= 1 && y <= 5;
    EXPECT_EQ(c.pixel(2, y), inside ? kRed : kWhite) << y;
    EXPECT_EQ(c.pixel(3, y), inside ? kGreen : kWhite) << y;
    EXPECT_EQ(c.pixel(1, y), inside ? kBlue : kWhite) << y;
    EXPECT_EQ(c.pixel(4, y), kWhite) << y;
  }
}

TEST(CanvasColumns, LaterDrawingGoesOverEarlierColumns) {
  Canvas c(10, 8);
  GdiRaster::line(c, 4, 0, 4, 8, kRed, 1);
  GdiRaster::line(c, 0, 3, 10, 3, kGreen, 1);  // a row across the column, drawn after it
  EXPECT_EQ(c.pixel(4, 3), kGreen);
  EXPECT_EQ(c.pixel(4, 2), kRed);
  c.fillRect(0, 0, 10, 2, kBlue);
  EXPECT_EQ(c.pixel(4, 1), kBlue);
  EXPECT_EQ(c.pixel(4, 4), kRed);
}

TEST(CanvasColumns, ColumnsOverOtherRowsOrNotNextToEachOtherAreKeptApart) {
  Canvas c(10, 8);
  GdiRaster::line(c, 1, 0, 1, 4, kRed, 1);
  GdiRaster::line(c, 2, 2, 2, 8, kGreen, 1);  // other rows
  GdiRaster::line(c, 7, 2, 7, 8, kBlue, 1);   // not next to the one before
  GdiRaster::line(c, 2, 0, 2, 1, kRed, 1);
  EXPECT_EQ(c.pixel(1, 3), kRed);
  EXPECT_EQ(c.pixel(1, 4), kWhite);
  EXPECT_EQ(c.pixel(2, 0), kRed);
  EXPECT_EQ(c.pixel(2, 1), kWhite);
  EXPECT_EQ(c.pixel(2, 7), kGreen);
  EXPECT_EQ(c.pixel(7, 2), kBlue);
  EXPECT_EQ(c.pixel(7, 1), kWhite);
}

TEST(CanvasColumns, CairoSeesTheColumnsAndResizingKeepsThem) {
  Canvas c(6, 6);
  GdiRaster::line(c, 2, 0, 2, 6, kRed, 1);
  GdiRaster::line(c, 3, 0, 3, 6, kRed, 1);
  Canvas copy(6, 6);
  cairo_t* cr = cairo_create(copy.surface());
  cairo_set_source_surface(cr, c.surface(), 0, 0);
  cairo_paint(cr);
  cairo_destroy(cr);
  copy.flush();
  EXPECT_EQ(copy.pixel(2, 5), kRed);
  EXPECT_EQ(copy.pixel(3, 0), kRed);
  GdiRaster::line(c, 4, 0, 4, 6, kGreen, 1);
  ASSERT_TRUE(c.resize(8, 8, kBlue));
  EXPECT_EQ(c.pixel(4, 5), kGreen);
  EXPECT_EQ(c.pixel(4, 7), kBlue);
}

}  // namespace
}  // namespace corvane

namespace corvane {
namespace {

// Vertical lines reaching past the canvas are cut to its rows; the end point stays out.
TEST(CanvasColumns, VerticalLinesAreClippedToTheRows) {
  Canvas c(6, 5);
  GdiRaster::line(c, 0, -1000000, 0, 3, kRed, 1);       // from far above to row 2
  GdiRaster::line(c, 1, 2000000000, 1, 2, kGreen, 1);   // upwards from far below: rows 4 to 3
  GdiRaster::line(c, 2, 4, 2, 4, kBlue, 1);             // no length: nothing
  GdiRaster::line(c, 6, 0, 6, 5, kBlue, 1);             // right of the canvas: nothing
  GdiRaster::line(c, -1, 0, -1, 5, kBlue, 1);           // left of it: nothing
  GdiRaster::line(c, 3, -5, 3, -1, kBlue, 1);           // above it: nothing
  GdiRaster::line(c, 4, 9, 4, 5, kBlue, 1);             // below it, upwards, ending at row 5: nothing
  GdiRaster::line(c, 5, 4, 5, -3, kRed, 1);             // upwards from the last row off the top
  for (int y = 0; y < 5; ++y) {
    EXPECT_EQ(c.pixel(0, y), y <= 2 ? kRed : kWhite) << y;
    EXPECT_EQ(c.pixel(1, y), y >= 3 ? kGreen : kWhite) << y;
    for (int x = 2; x <= 4; ++x) EXPECT_EQ(c.pixel(x, y), kWhite) << x << "," << y;
    EXPECT_EQ(c.pixel(5, y), kRed) << y;
  }
}

}  // namespace
}  // namespace corvane

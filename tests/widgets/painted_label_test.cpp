// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/widgets/painted_label.h>
#include <gtest/gtest.h>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

// A painted label on a white memory picture of 60 by 60 pixels.
class PaintedLabelTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    dc = gdi().CreateCompatibleDC(0);
    bitmap = gdi().CreateCompatibleBitmap(0, 60, 60);
    old = gdi().SelectObject(dc, bitmap);
    HBRUSH white = gdi().CreateSolidBrush(0xFFFFFF);
    gdi().FillRect(dc, RECT{0, 0, 60, 60}, white);
    gdi().DeleteObject(white);
  }
  void TearDown() override {
    gdi().SelectObject(dc, old);
    gdi().DeleteObject(bitmap);
    gdi().DeleteDC(dc);
    DesktopTest::TearDown();
  }
  // Whether any pixel of the rows [top, bottom) is not white.
  bool inkIn(int32_t top, int32_t bottom) {
    for (int32_t y = top; y < bottom; ++y)
      for (int32_t x = 0; x < 60; ++x)
        if ((gdi().GetPixel(dc, x, y) & 0xFFFFFF) != 0xFFFFFF) return true;
    return false;
  }
  HDC dc = 0;
  HBITMAP bitmap = 0;
  HGDIOBJ old = 0;
};

TEST_F(PaintedLabelTest, CarriageReturnAloneBreaksTheLineAsInTheWindowedLabel) {
  PaintedLabel label;
  label.Font = StdFont::create(FontSpec{"Arial", 8});
  label.Caption = "I";
  label.AutoSize(dc);
  const int32_t lineHeight = label.Height;
  ASSERT_GT(lineHeight, 0);
  label.Caption = "I\rI";
  label.Width = 60;
  label.Height = 60;
  label.paint(dc);
  EXPECT_TRUE(inkIn(0, lineHeight));
  EXPECT_TRUE(inkIn(lineHeight, 2 * lineHeight)) << "the second line is drawn below the first";
}

}  // namespace
}  // namespace corvane

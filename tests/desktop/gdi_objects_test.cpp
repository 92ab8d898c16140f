// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "desktop/gdi.h"
#include "desktop/region.h"
#include "gdi_test_support.h"

namespace corvane {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF, kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000;

class GdiObjects : public ::testing::Test {
 protected:
  GdiObjects() : canvas(windows.add(1, 40, 30)), gdi(windows), hdc(gdi.GetDC(1)) { windows.add(0, 100, 80); }

  test::FakeWindows windows;
  Canvas& canvas;
  DesktopGdi gdi;
  HDC hdc;
};

TEST_F(GdiObjects, LiveObjectCountGoesUpAndDown) {
  const int32_t start = gdi.liveObjectCount();
  EXPECT_EQ(start, 0);
  HBRUSH brush = gdi.CreateSolidBrush(kRed);
  HPEN pen = gdi.CreatePen(PS_SOLID, 1, kRed);
  HFONT font = gdi.CreateFontIndirect(FontSpec{});
  HRGN region = gdi.CreateRectRgn(0, 0, 5, 5);
  HBITMAP bitmap = gdi.CreateCompatibleBitmap(hdc, 4, 4);
  EXPECT_EQ(gdi.liveObjectCount(), 5);
  for (HGDIOBJ o : {brush, pen, font, region, bitmap}) EXPECT_TRUE(gdi.DeleteObject(o));
  EXPECT_EQ(gdi.liveObjectCount(), 0);
  EXPECT_FALSE(gdi.DeleteObject(brush));  // already gone
}

TEST_F(GdiObjects, DeleteObjectOfAnUnknownOrStockHandleFails) {
  EXPECT_FALSE(gdi.DeleteObject(0));
  EXPECT_FALSE(gdi.DeleteObject(12345678));
  HBRUSH brush = gdi.CreateSolidBrush(kRed);
  HBRUSH stockBrush = gdi.SelectObject(hdc, brush);
  HPEN stockPen = gdi.SelectObject(hdc, gdi.CreatePen(PS_SOLID, 1, 0));
  HFONT stockFont = gdi.SelectObject(hdc, gdi.CreateFontIndirect(FontSpec{}));
  for (HGDIOBJ stock : {stockBrush, stockPen, stockFont}) {
    EXPECT_NE(stock, 0);
    EXPECT_FALSE(gdi.DeleteObject(stock));
  }
  EXPECT_EQ(gdi.liveObjectCount(), 3);
}

TEST_F(GdiObjects, HandlesAreLargeAndNotReusedSoon) {
  HBRUSH a = gdi.CreateSolidBrush(kRed);
  EXPECT_GE(a, 0x100);
  gdi.DeleteObject(a);
  HBRUSH b = gdi.CreateSolidBrush(kRed);
  EXPECT_GT(b, a);
  EXPECT_GE(hdc, 0x100);
  gdi.DeleteObject(b);
}

TEST_F(GdiObjects, SelectObjectGivesBackThePreviousObjectOfThatKind) {
  HPEN red = gdi.CreatePen(PS_SOLID, 1, kRed), green = gdi.CreatePen(PS_SOLID, 1, kGreen);
  HBRUSH blue = gdi.CreateSolidBrush(kBlue);
  HPEN stock = gdi.SelectObject(hdc, red);
  const HBRUSH stockBrush = gdi.SelectObject(hdc, blue);  // the brush has its own slot
  EXPECT_NE(stockBrush, red);
  EXPECT_EQ(gdi.SelectObject(hdc, blue), blue);
  EXPECT_EQ(gdi.SelectObject(hdc, green), red);
  EXPECT_EQ(gdi.SelectObject(hdc, stock), green);
  EXPECT_EQ(gdi.SelectObject(hdc, 999999), 0);
  EXPECT_EQ(gdi.SelectObject(777777, red), 0);
}

TEST_F(GdiObjects, AContextKeepsItsSelectionWhenTheObjectIsDeleted) {
  HPEN red = gdi.CreatePen(PS_SOLID, 1, kRed);
  HPEN stock = gdi.SelectObject(hdc, red);
  EXPECT_TRUE(gdi.DeleteObject(red));
  gdi.MoveToEx(hdc, 0, 0, nullptr);
  gdi.LineTo(hdc, 5, 0);
  EXPECT_EQ(canvas.pixel(2, 0), kRed);
  EXPECT_EQ(gdi.SelectObject(hdc, stock), red);
}

TEST_F(GdiObjects, TheContextsOwnFontIsNotCountedAndGoesWithTheContext) {
  FontSpec f;
  f.name = "Arial";
  f.size = 12;
  gdi.SetDCFont(hdc, f);
  gdi.SetDCFont(hdc, f);
  EXPECT_EQ(gdi.liveObjectCount(), 0);
  HFONT own = gdi.SelectObject(hdc, gdi.CreateFontIndirect(FontSpec{}));
  EXPECT_FALSE(gdi.DeleteObject(own));
  gdi.ReleaseDC(1, hdc);
  EXPECT_EQ(gdi.liveObjectCount(), 1);
}

TEST_F(GdiObjects, ContextsKeepTheirStateUntilReleased) {
  gdi.SetTextColor(hdc, kRed);
  EXPECT_EQ(gdi.SetTextColor(hdc, kGreen), kRed);
  EXPECT_EQ(gdi.SetBkColor(hdc, kBlue), kWhite);
  EXPECT_EQ(gdi.SetBkMode(hdc, 1), 2);
  EXPECT_EQ(gdi.SetBkMode(hdc, 2), 1);
  EXPECT_EQ(gdi.ReleaseDC(1, hdc), 1);
  EXPECT_EQ(gdi.ReleaseDC(1, hdc), 0);
  EXPECT_EQ(gdi.SetTextColor(hdc, kRed), -1);
  HDC again = gdi.GetDC(1);
  EXPECT_NE(again, hdc);
  EXPECT_EQ(gdi.SetTextColor(again, kRed), 0);
}

TEST_F(GdiObjects, GetDCOfAMissingWindowGivesNothingAndZeroIsTheScreen) {
  EXPECT_EQ(gdi.GetDC(42), 0);
  HDC screen = gdi.GetDC(0);
  ASSERT_NE(screen, 0);
  EXPECT_EQ(gdi.GetDeviceCaps(screen, HORZRES), 100);
  EXPECT_EQ(gdi.GetDeviceCaps(screen, VERTRES), 80);
}

TEST_F(GdiObjects, DeviceCapsAndPalettes) {
  EXPECT_EQ(gdi.GetDeviceCaps(hdc, LOGPIXELSX), 96);
  EXPECT_EQ(gdi.GetDeviceCaps(hdc, LOGPIXELSY), 96);
  EXPECT_EQ(gdi.GetDeviceCaps(hdc, BITSPIXEL), 32);
  EXPECT_EQ(gdi.GetDeviceCaps(hdc, HORZRES), 40);
  EXPECT_EQ(gdi.GetDeviceCaps(hdc, VERTRES), 30);
  gdi.setPixelsPerInch(120, 144);
  EXPECT_EQ(gdi.GetDeviceCaps(hdc, LOGPIXELSX), 120);
  EXPECT_EQ(gdi.GetDeviceCaps(hdc, LOGPIXELSY), 144);
  EXPECT_EQ(gdi.SelectPalette(hdc, 5, false), 0);
  EXPECT_EQ(gdi.RealizePalette(hdc), 0);
}

TEST_F(GdiObjects, AMemoryContextStartsWithAOnePixelBitmapAndDrawsIntoTheSelectedOne) {
  HDC memory = gdi.CreateCompatibleDC(hdc);
  ASSERT_NE(memory, 0);
  EXPECT_EQ(gdi.GetDeviceCaps(memory, HORZRES), 1);
  EXPECT_EQ(gdi.GetDeviceCaps(memory, VERTRES), 1);
  HBITMAP bitmap = gdi.CreateCompatibleBitmap(hdc, 16, 8);
  EXPECT_EQ(gdi.GetImageSize(bitmap), (SIZE{16, 8}));
  HBITMAP original = gdi.SelectObject(memory, bitmap);
  EXPECT_NE(original, 0);
  EXPECT_FALSE(gdi.DeleteObject(original));
  EXPECT_EQ(gdi.GetDeviceCaps(memory, HORZRES), 16);
  EXPECT_EQ(gdi.GetPixel(memory, 3, 3), 0);  // a new bitmap is black
  gdi.SetPixel(memory, 3, 3, kRed);
  EXPECT_EQ(gdi.GetPixel(memory, 3, 3), kRed);
  EXPECT_EQ(gdi.SelectObject(hdc, bitmap), 0);  // a window's context takes no bitmap
  const int drawnBefore = windows.drawn[1];
  EXPECT_EQ(gdi.SelectObject(memory, original), bitmap);
  EXPECT_FALSE(gdi.DeleteDC(hdc));  // window contexts are released, not deleted
  EXPECT_TRUE(gdi.DeleteDC(memory));
  EXPECT_FALSE(gdi.DeleteDC(memory));
  EXPECT_TRUE(gdi.DeleteObject(bitmap));
  EXPECT_EQ(windows.drawn[1], drawnBefore);
}

TEST_F(GdiObjects, BitBltCopiesBetweenContexts) {
  HDC memory = gdi.CreateCompatibleDC(hdc);
  HBITMAP bitmap = gdi.CreateCompatibleBitmap(hdc, 10, 10);
  gdi.SelectObject(memory, bitmap);
  gdi.FillRect(memory, RECT{0, 0, 10, 10}, gdi.CreateSolidBrush(kGreen));
  gdi.SetPixel(memory, 0, 0, kRed);
  ASSERT_TRUE(gdi.BitBlt(hdc, 5, 6, 4, 3, memory, 0, 0, SRCCOPY));
  EXPECT_EQ(canvas.pixel(5, 6), kRed);
  EXPECT_EQ(canvas.pixel(8, 8), kGreen);
  EXPECT_EQ(canvas.pixel(9, 8), kWhite);
  EXPECT_EQ(canvas.pixel(8, 9), kWhite);
  EXPECT_EQ(canvas.pixel(4, 6), kWhite);
  // And back, from the window into the bitmap, partly outside.
  canvas.setPixel(0, 0, kBlue);
  ASSERT_TRUE(gdi.BitBlt(memory, -1, -1, 3, 3, hdc, 0, 0, SRCCOPY));
  EXPECT_EQ(gdi.GetPixel(memory, 0, 0), kWhite);                        // came from the window's (1, 1)
  EXPECT_FALSE(gdi.BitBlt(hdc, 0, 0, 1, 1, memory, 0, 0, 0x00EE0086));  // only SRCCOPY
}

TEST_F(GdiObjects, BitBltOnOneCanvasHandlesOverlap) {
  for (int x = 0; x < 40; ++x)
    for (int y = 0; y < 30; ++y) canvas.setPixel(x, y, RGB(x, y, 7));
  ASSERT_TRUE(gdi.BitBlt(hdc, 2, 3, 20, 15, hdc, 0, 0, SRCCOPY));  // down and right
  for (int x = 0; x < 20; ++x)
    for (int y = 0; y < 15; ++y) ASSERT_EQ(canvas.pixel(2 + x, 3 + y), RGB(x, y, 7)) << x << "," << y;

  for (int x = 0; x < 40; ++x)
    for (int y = 0; y < 30; ++y) canvas.setPixel(x, y, RGB(x, y, 9));
  ASSERT_TRUE(gdi.BitBlt(hdc, 0, 0, 20, 15, hdc, 3, 2, SRCCOPY));  // up and left
  for (int x = 0; x < 20; ++x)
    for (int y = 0; y < 15; ++y) ASSERT_EQ(canvas.pixel(x, y), RGB(x + 3, y + 2, 9)) << x << "," << y;
}

TEST_F(GdiObjects, StretchBltTakesTheNearestPixel) {
  HDC memory = gdi.CreateCompatibleDC(hdc);
  HBITMAP bitmap = gdi.CreateCompatibleBitmap(hdc, 2, 2);
  gdi.SelectObject(memory, bitmap);
  gdi.SetPixel(memory, 0, 0, kRed);
  gdi.SetPixel(memory, 1, 0, kGreen);
  gdi.SetPixel(memory, 0, 1, kBlue);
  gdi.SetPixel(memory, 1, 1, kWhite);
  ASSERT_TRUE(gdi.StretchBlt(hdc, 10, 10, 8, 6, memory, 0, 0, 2, 2, SRCCOPY));
  EXPECT_EQ(canvas.pixel(10, 10), kRed);
  EXPECT_EQ(canvas.pixel(13, 12), kRed);
  EXPECT_EQ(canvas.pixel(14, 12), kGreen);
  EXPECT_EQ(canvas.pixel(10, 13), kBlue);
  EXPECT_EQ(canvas.pixel(17, 15), kWhite);
  EXPECT_EQ(canvas.pixel(18, 15), kWhite);
  EXPECT_EQ(canvas.pixel(17, 16), kWhite);
}

TEST(SystemColours, ClassicScheme) {
  test::FakeWindows windows;
  DesktopGdi gdi(windows);
  EXPECT_EQ(gdi.GetSysColor(syscolor::BTNFACE), RGB(212, 208, 200));
  EXPECT_EQ(gdi.GetSysColor(syscolor::BTNSHADOW), RGB(128, 128, 128));
  EXPECT_EQ(gdi.GetSysColor(syscolor::BTNHIGHLIGHT), RGB(255, 255, 255));
  EXPECT_EQ(gdi.GetSysColor(syscolor::DKSHADOW3D), RGB(64, 64, 64));
  EXPECT_EQ(gdi.GetSysColor(syscolor::HIGHLIGHT), RGB(10, 36, 106));
  EXPECT_EQ(gdi.GetSysColor(syscolor::INFOBK), RGB(255, 255, 225));
  EXPECT_EQ(gdi.GetSysColor(syscolor::BACKGROUND), RGB(58, 110, 165));
  EXPECT_EQ(gdi.GetSysColor(syscolor::WINDOWTEXT), 0);
  EXPECT_EQ(gdi.GetSysColor(-1), 0);
  EXPECT_EQ(gdi.GetSysColor(25), 0);
  gdi.SetSysColor(syscolor::BTNFACE, kRed);
  EXPECT_EQ(gdi.GetSysColor(syscolor::BTNFACE), kRed);
}

TEST(SystemColours, OleTranslateColor) {
  test::FakeWindows windows;
  DesktopGdi gdi(windows);
  COLORREF out = 77;
  EXPECT_EQ(gdi.OleTranslateColor(RGB(1, 2, 3), 0, out), 0);
  EXPECT_EQ(out, RGB(1, 2, 3));
  EXPECT_EQ(gdi.OleTranslateColor(static_cast<OLE_COLOR>(0x8000000F), 0, out), 0);
  EXPECT_EQ(out, RGB(212, 208, 200));
  EXPECT_EQ(gdi.OleTranslateColor(static_cast<OLE_COLOR>(0x80000010), 0, out), 0);
  EXPECT_EQ(out, RGB(128, 128, 128));
  EXPECT_EQ(gdi.OleTranslateColor(0x01000005, 0, out), 0);  // palette index form
  EXPECT_EQ(out, 5);
  EXPECT_EQ(gdi.OleTranslateColor(0x02123456, 0, out), 0);  // palette-relative form
  EXPECT_EQ(out, 0x123456);
  out = 77;
  const int32_t invalidArg = static_cast<int32_t>(0x80070057);
  EXPECT_EQ(gdi.OleTranslateColor(static_cast<OLE_COLOR>(0x80000019), 0, out), invalidArg);  // no such index
  EXPECT_EQ(gdi.OleTranslateColor(-1, 0, out), invalidArg);
  EXPECT_EQ(gdi.OleTranslateColor(0x05000000, 0, out), invalidArg);
  EXPECT_EQ(out, 77);
}

TEST(Regions, CombineGivesBandsOfRectangles) {
  Region a(0, 0, 10, 10), b(5, 5, 15, 15);
  Region both = Region::combine(a, b, RGN_OR);
  EXPECT_EQ(both.kind(), 3);
  EXPECT_EQ(both.rects(), (std::vector<RECT>{{0, 0, 10, 5}, {0, 5, 15, 10}, {5, 10, 15, 15}}));
  EXPECT_EQ(Region::combine(a, b, RGN_AND).rects(), (std::vector<RECT>{{5, 5, 10, 10}}));
  Region diff = Region::combine(a, b, RGN_DIFF);
  EXPECT_TRUE(diff.contains(0, 0));
  EXPECT_FALSE(diff.contains(7, 7));
  Region x = Region::combine(a, b, RGN_XOR);
  EXPECT_FALSE(x.contains(7, 7));
  EXPECT_TRUE(x.contains(12, 12));
  EXPECT_TRUE(Region::combine(a, Region(20, 20, 20, 30), RGN_AND).empty());
  // Rows that stack with the same spans merge into one rectangle.
  Region stacked = Region::combine(Region(0, 0, 4, 2), Region(0, 2, 4, 5), RGN_OR);
  EXPECT_EQ(stacked.rects(), (std::vector<RECT>{{0, 0, 4, 5}}));
}

TEST_F(GdiObjects, RegionsThroughHandles) {
  HRGN a = gdi.CreateRectRgn(0, 0, 10, 2);
  HRGN b = gdi.CreateRectRgn(2, 2, 8, 4);
  EXPECT_EQ(gdi.CombineRgn(a, a, b, RGN_OR), 3);
  EXPECT_EQ(gdi.regionRects(a), (std::vector<RECT>{{0, 0, 10, 2}, {2, 2, 8, 4}}));
  EXPECT_EQ(gdi.CombineRgn(b, a, 0, RGN_COPY), 3);
  EXPECT_EQ(gdi.CombineRgn(a, a, 424242, RGN_OR), 0);
  EXPECT_TRUE(gdi.regionRects(424242).empty());
  EXPECT_EQ(gdi.liveObjectCount(), 2);
  gdi.DeleteObject(a);
  gdi.DeleteObject(b);
  EXPECT_EQ(gdi.liveObjectCount(), 0);
}

}  // namespace
}  // namespace corvane

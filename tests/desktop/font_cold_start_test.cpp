// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "desktop/desktop.h"
#include "desktop/font_cache.h"
#include "desktop/gdi.h"

namespace corvane {
namespace {

int32_t widthOf(GdiApi& g, HDC dc, const std::string& text) {
  SIZE s;
  g.GetTextExtentPoint32A(dc, text, s);
  return s.cx;
}

TEST(FontColdStartTest, TheStockFontIsMadeWhenTextFirstNeedsIt) {
  Desktop desktop;
  GdiApi& g = desktop.gdi();
  EXPECT_FALSE(desktop.drawing().stockFontMade());
  HDC dc = g.GetDC(0);
  HBRUSH b = g.CreateSolidBrush(0xFF);
  g.FillRect(dc, RECT{0, 0, 10, 10}, b);
  g.DeleteObject(b);
  EXPECT_FALSE(desktop.drawing().stockFontMade()) << "a context that only fills needs no font";
  EXPECT_GT(widthOf(g, dc, "Wort"), 0);
  EXPECT_TRUE(desktop.drawing().stockFontMade());
  g.ReleaseDC(0, dc);
}

TEST(FontColdStartTest, AContextKeepsTheStockFontOfTheResolutionItWasMadeAt) {
  Desktop desktop;
  GdiApi& g = desktop.gdi();
  HDC before = g.GetDC(0);
  desktop.setTwipsPerPixel(7, 7);  // about twice the pixels per inch
  HDC after = g.GetDC(0);
  Desktop plain;
  HDC reference = plain.gdi().GetDC(0);
  const int32_t atFirst = widthOf(plain.gdi(), reference, "Breite Woerter");
  EXPECT_EQ(widthOf(g, before, "Breite Woerter"), atFirst) << "as if its font had been made with it";
  EXPECT_GT(widthOf(g, after, "Breite Woerter"), atFirst + atFirst / 2);
  g.ReleaseDC(0, before);
  g.ReleaseDC(0, after);
  plain.gdi().ReleaseDC(0, reference);
}

TEST(FontColdStartTest, InstalledFamiliesAreListedWhenAFaceNameFirstNeedsThem) {
  FontCache cache;
  EXPECT_FALSE(cache.familiesListed());
  EXPECT_EQ(cache.familyFor("No Such Face Anywhere"), "Liberation Sans");
  EXPECT_TRUE(cache.familiesListed());
}

}  // namespace
}  // namespace corvane

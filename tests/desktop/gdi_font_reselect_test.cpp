// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "desktop/gdi.h"
#include "gdi_test_support.h"

namespace corvane {
namespace {

// Selecting the context's font again (as a surface does before each text call) keeps what was
// selected when nothing changed, and makes the font anew when anything did.
class GdiFontReselect : public ::testing::Test {
 protected:
  GdiFontReselect() : canvas(windows.add(1, 200, 50)), gdi(windows), hdc(gdi.GetDC(1)) {}
  ~GdiFontReselect() override { gdi.ReleaseDC(1, hdc); }
  int32_t width(const std::string& text) {
    SIZE s;
    gdi.GetTextExtentPoint32A(hdc, text, s);
    return s.cx;
  }
  static FontSpec arial(double size) {
    FontSpec f;
    f.name = "Arial";
    f.size = size;
    return f;
  }
  test::FakeWindows windows;
  Canvas& canvas;
  DesktopGdi gdi;
  HDC hdc;
};

TEST_F(GdiFontReselect, TheSameFontAgainAfterAnotherWasSelectedIsTheSetOne) {
  gdi.SetDCFont(hdc, arial(10));
  const int32_t small = width("Hello");
  HFONT big = gdi.CreateFontIndirect(arial(30));
  gdi.SelectObject(hdc, big);
  ASSERT_GT(width("Hello"), small);
  gdi.SetDCFont(hdc, arial(10));
  EXPECT_EQ(width("Hello"), small);
  gdi.DeleteObject(big);
}

TEST_F(GdiFontReselect, AnyChangedPartMakesAnotherFont) {
  gdi.SetDCFont(hdc, arial(10));
  const int32_t plain = width("Hello");
  gdi.SetDCFont(hdc, arial(10));
  EXPECT_EQ(width("Hello"), plain);
  FontSpec bold = arial(10);
  bold.bold = true;
  gdi.SetDCFont(hdc, bold);
  EXPECT_GT(width("Hello"), plain);
  gdi.SetDCFont(hdc, arial(20));
  EXPECT_GT(width("Hello"), plain + 10);
}

}  // namespace
}  // namespace corvane

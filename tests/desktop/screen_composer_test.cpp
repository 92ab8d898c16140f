// SPDX-License-Identifier: MIT
#include "desktop/screen_composer.h"

#include <corvane/host/screen.h>

#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

class ScreenComposerTest : public test::DesktopTest {
 protected:
  Desktop::Options options() const override {
    Desktop::Options o;
    o.width = 320;
    o.height = 240;
    return o;
  }
  WindowManager& wm() { return desktop().windows(); }
  HWND makeWindow(int32_t x, int32_t y, int32_t w, int32_t h, HWND parent = 0) {
    WNDPROC proc = wm().RegisterWindowProc([](HWND, int32_t, WPARAM, LPARAM) { return LRESULT{0}; });
    return wm().CreateWindowExA(0, "Test", "", WS_VISIBLE, x, y, w, h, parent, proc);
  }
  // Paints a rectangle of a window through a device context, as a control does.
  void paint(HWND h, RECT r, COLORREF colour) {
    GdiApi& g = desktop().gdi();
    HDC dc = g.GetDC(h);
    HBRUSH b = g.CreateSolidBrush(colour);
    g.FillRect(dc, r, b);
    g.DeleteObject(b);
    g.ReleaseDC(h, dc);
  }
  // The screen as composed now, against all windows composed afresh into a new image.
  void expectScreenAsFresh(const char* step) {
    Canvas& screen = desktop().screen();
    Canvas fresh(screen.width(), screen.height(), 0);
    wm().compose(fresh, Desktop::Options{}.desktopColour);
    int differing = 0;
    for (int32_t y = 0; y < screen.height(); ++y)
      for (int32_t x = 0; x < screen.width(); ++x) differing += screen.pixel(x, y) != fresh.pixel(x, y);
    EXPECT_EQ(differing, 0) << step;
  }
};

TEST_F(ScreenComposerTest, DrawingOnOneWindowComposesOnlyThatWindowAgain) {
  std::vector<HWND> windows;
  for (int i = 0; i < 12; ++i) windows.push_back(makeWindow((i % 4) * 80, (i / 4) * 80, 70, 70));
  desktop().screen();
  uint64_t before = desktop().windowsComposed();
  desktop().screen();
  EXPECT_EQ(desktop().windowsComposed(), before) << "nothing changed, nothing composed";
  paint(windows[5], RECT{0, 0, 10, 10}, 0x0000FF);
  EXPECT_EQ(screenPixel(80 + 5, 80 + 5), 0x0000FF);
  EXPECT_EQ(desktop().windowsComposed(), before + 1) << "only the window drawn on";
  wm().MoveWindow(windows[0], 1, 1, 70, 70, true);
  desktop().screen();
  EXPECT_EQ(desktop().windowsComposed(), before + 1 + 12) << "a move composes every window";
}

TEST_F(ScreenComposerTest, SavingOneWindowComposesOnlyTheWindowsOverIt) {
  for (int i = 0; i < 12; ++i) makeWindow((i % 4) * 80, (i / 4) * 80, 70, 70);
  HWND saved = makeWindow(10, 10, 40, 40);
  HWND over = makeWindow(30, 30, 40, 40);
  paint(saved, RECT{0, 0, 40, 40}, 0x00FF00);
  paint(over, RECT{0, 0, 40, 40}, 0xFF0000);
  uint64_t before = desktop().windowsComposed();
  auto path = std::filesystem::temp_directory_path() / "corvane_screen_composer_part.png";
  ASSERT_TRUE(desktop().saveWindowPng(saved, path.string()));
  EXPECT_EQ(desktop().windowsComposed(), before + 3) << "the window below, the window and the one over it";

  cairo_surface_t* png = cairo_image_surface_create_from_png(path.string().c_str());
  ASSERT_EQ(cairo_surface_status(png), CAIRO_STATUS_SUCCESS);
  Canvas part(png);
  ASSERT_EQ(part.width(), 40);
  ASSERT_EQ(part.height(), 40);
  for (int32_t y = 0; y < 40; ++y)
    for (int32_t x = 0; x < 40; ++x)
      ASSERT_EQ(part.pixel(x, y), screenPixel(10 + x, 10 + y)) << x << "," << y;
  EXPECT_EQ(part.pixel(5, 5), 0x00FF00);
  EXPECT_EQ(part.pixel(35, 35), 0xFF0000);
  std::remove(path.string().c_str());
}

TEST_F(ScreenComposerTest, SavedWindowBeyondTheScreenEdgeIsBlackThere) {
  HWND h = makeWindow(300, 230, 40, 20);
  paint(h, RECT{0, 0, 40, 20}, 0x00FF00);
  auto path = std::filesystem::temp_directory_path() / "corvane_screen_composer_edge.png";
  ASSERT_TRUE(desktop().saveWindowPng(h, path.string()));
  Canvas part(cairo_image_surface_create_from_png(path.string().c_str()));
  EXPECT_EQ(part.pixel(5, 5), 0x00FF00);
  EXPECT_EQ(part.pixel(25, 5), 0x000000) << "past the screen's right edge";
  EXPECT_EQ(part.pixel(5, 15), 0x000000) << "past the screen's bottom edge";
  std::remove(path.string().c_str());
}

TEST_F(ScreenComposerTest, ScreenComposedFromChangesEqualsAFreshComposition) {
  HWND a = makeWindow(10, 10, 120, 100);
  HWND b = makeWindow(60, 40, 120, 100);
  HWND child = makeWindow(20, 20, 150, 30, b);
  HWND faded = makeWindow(100, 80, 100, 100);
  wm().SetWindowLongA(faded, GWL_EXSTYLE, WS_EX_LAYERED);
  wm().SetLayeredWindowAttributes(faded, 0, 100, LWA_ALPHA);
  expectScreenAsFresh("first");
  paint(a, RECT{0, 0, 120, 100}, 0x112233);
  expectScreenAsFresh("the lowest window drawn on, under the others");
  paint(child, RECT{5, 5, 200, 25}, 0x00FFFF);
  expectScreenAsFresh("a child drawn past its parent");
  paint(faded, RECT{0, 0, 50, 50}, 0xFFFFFF);
  expectScreenAsFresh("the translucent window drawn on");
  paint(0, RECT{0, 0, 320, 240}, 0x000000);
  expectScreenAsFresh("the screen itself drawn on is covered again");
  EXPECT_EQ(screenPixel(300, 230), 0xA56E3A);
  wm().ShowWindow(b, SW_HIDE);
  expectScreenAsFresh("a window hidden");
  paint(b, RECT{0, 0, 10, 10}, 0x0000FF);
  expectScreenAsFresh("a hidden window drawn on");
  wm().DestroyWindow(a);
  expectScreenAsFresh("a window gone");
  wm().SetWindowRgn(faded, desktop().gdi().CreateRectRgn(0, 0, 30, 30), true);
  paint(faded, RECT{0, 0, 100, 100}, 0x808080);
  expectScreenAsFresh("a region set");
}

TEST_F(ScreenComposerTest, TheScreenImageIsMadeOnlyWhenItIsUsed) {
  const HWND h = makeWindow(10, 10, 40, 30);
  paint(h, RECT{0, 0, 40, 30}, 0x0000FF);
  const std::string path = (std::filesystem::temp_directory_path() / "corvane_screen_unmade.png").string();
  ASSERT_TRUE(desktop().saveWindowPng(h, path));
  std::remove(path.c_str());
  EXPECT_FALSE(desktop().screenMade()) << "a window's picture is composed without the screen";
  EXPECT_EQ(Screen::instance().TwipsPerPixelX(), 15.0f);
  EXPECT_FALSE(desktop().screenMade()) << "the screen's resolution is known without its image";
  // A context on the screen itself makes it.
  GdiApi& g = desktop().gdi();
  HDC screenDc = g.GetDC(0);
  HBRUSH green = g.CreateSolidBrush(0x00FF00);
  g.FillRect(screenDc, RECT{0, 0, 100, 100}, green);
  g.DeleteObject(green);
  g.ReleaseDC(0, screenDc);
  EXPECT_TRUE(desktop().screenMade());
  Canvas& screen = desktop().screen();
  EXPECT_EQ(screen.width(), 320);
  EXPECT_EQ(screen.pixel(20, 20), 0x0000FF);
  EXPECT_EQ(screen.pixel(200, 200), Desktop::Options{}.desktopColour);
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
// The border of child windows: the sunken client edge and the single line take room from the
// client area, and positions, hit tests, mouse messages and the composed screen follow.
#include <gtest/gtest.h>

#include <vector>

#include "desktop/window_manager.h"
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

class WindowBorderTest : public test::DesktopTest {
 protected:
  WindowManager& wm() { return desktop().windows(); }

  HWND makeWindow(int32_t x, int32_t y, int32_t w, int32_t h, HWND parent = 0, int32_t style = 0,
                  int32_t exStyle = 0) {
    WNDPROC proc = wm().RegisterWindowProc([this](HWND hwnd, int32_t msg, WPARAM wp, LPARAM lp) {
      log.push_back({hwnd, msg, wp, lp});
      return 0;
    });
    return wm().CreateWindowExA(exStyle, "Test", "", WS_VISIBLE | style, x, y, w, h, parent, proc);
  }
  RECT clientRect(HWND h) {
    RECT r;
    wm().GetClientRect(h, r);
    return r;
  }
  RECT windowRect(HWND h) {
    RECT r;
    wm().GetWindowRect(h, r);
    return r;
  }
  // The client sizes the window was told of, in order.
  std::vector<POINTAPI> sizesOf(HWND h) {
    std::vector<POINTAPI> out;
    for (auto& m : log)
      if (m.hwnd == h && m.msg == wm::SIZE) out.push_back({pointParamX(m.l), pointParamY(m.l)});
    return out;
  }
  std::vector<POINTAPI> movesOf(HWND h) {
    std::vector<POINTAPI> out;
    for (auto& m : log)
      if (m.hwnd == h && m.msg == wm::MOUSEMOVE) out.push_back({pointParamX(m.l), pointParamY(m.l)});
    return out;
  }
  COLORREF sys(int32_t index) { return desktop().gdi().GetSysColor(index); }

  struct Message {
    HWND hwnd;
    int32_t msg;
    WPARAM w;
    LPARAM l;
  };
  std::vector<Message> log;
};

TEST_F(WindowBorderTest, ClientEdgeTakesTwoPixelsFromEachSide) {
  HWND parent = makeWindow(100, 50, 200, 200);
  HWND child = makeWindow(10, 20, 40, 30, parent, 0, WS_EX_CLIENTEDGE);
  EXPECT_EQ(windowRect(child), (RECT{110, 70, 150, 100})) << "the window rectangle is the outer one";
  EXPECT_EQ(clientRect(child), (RECT{0, 0, 36, 26}));
  EXPECT_EQ(wm().windowCanvas(child)->width(), 36) << "a context on the window draws into the client area";
  EXPECT_EQ(wm().windowCanvas(child)->height(), 26);
}

TEST_F(WindowBorderTest, SingleBorderTakesOnePixelAndBothTogetherThree) {
  HWND parent = makeWindow(0, 0, 200, 200);
  HWND single = makeWindow(0, 0, 40, 30, parent, WS_BORDER);
  HWND both = makeWindow(0, 0, 40, 30, parent, WS_BORDER, WS_EX_CLIENTEDGE);
  EXPECT_EQ(clientRect(single), (RECT{0, 0, 38, 28}));
  EXPECT_EQ(clientRect(both), (RECT{0, 0, 34, 24}));
}

TEST_F(WindowBorderTest, TopLevelWindowsHaveNoBorderOfTheirOwn) {
  HWND top = makeWindow(10, 10, 40, 30, 0, WS_BORDER, WS_EX_CLIENTEDGE);
  EXPECT_EQ(clientRect(top), (RECT{0, 0, 40, 30}));
  POINTAPI p{10, 10};
  wm().ScreenToClient(top, p);
  EXPECT_EQ(p, (POINTAPI{0, 0}));
}

TEST_F(WindowBorderTest, ChildrenAndCoordinatesStartAtTheClientOrigin) {
  HWND top = makeWindow(0, 0, 200, 200);
  HWND framed = makeWindow(10, 10, 50, 50, top, 0, WS_EX_CLIENTEDGE);
  HWND inner = makeWindow(0, 0, 10, 10, framed);
  EXPECT_EQ(windowRect(inner), (RECT{12, 12, 22, 22}));
  POINTAPI p{12, 12};
  wm().ScreenToClient(framed, p);
  EXPECT_EQ(p, (POINTAPI{0, 0}));
  POINTAPI q{0, 0};
  wm().ClientToScreen(framed, q);
  EXPECT_EQ(q, (POINTAPI{12, 12}));
  // A grandchild of a bordered window sits inside both borders.
  HWND deeper = makeWindow(5, 5, 20, 20, framed, WS_BORDER);
  HWND deepest = makeWindow(0, 0, 4, 4, deeper);
  EXPECT_EQ(windowRect(deepest), (RECT{18, 18, 22, 22}));
}

TEST_F(WindowBorderTest, APointOnTheBorderBelongsToTheWindowNotToAChild) {
  HWND top = makeWindow(0, 0, 200, 200);
  HWND framed = makeWindow(10, 10, 50, 50, top, 0, WS_EX_CLIENTEDGE);
  HWND inner = makeWindow(-5, -5, 100, 100, framed);  // covers the whole client area and more
  EXPECT_EQ(wm().WindowFromPoint(10, 10), framed);
  EXPECT_EQ(wm().WindowFromPoint(11, 11), framed);
  EXPECT_EQ(wm().WindowFromPoint(12, 12), inner);
  EXPECT_EQ(wm().WindowFromPoint(57, 57), inner);
  EXPECT_EQ(wm().WindowFromPoint(58, 58), framed);
  EXPECT_EQ(wm().WindowFromPoint(59, 30), framed);
  EXPECT_EQ(wm().WindowFromPoint(60, 30), top);
}

TEST_F(WindowBorderTest, MouseMessagesCarryClientCoordinatesAndTheBorderGetsNone) {
  HWND top = makeWindow(0, 0, 200, 200);
  HWND framed = makeWindow(10, 10, 50, 50, top, WS_BORDER);
  desktop().mouseMove(14, 13);
  ASSERT_EQ(movesOf(framed).size(), 1u);
  EXPECT_EQ(movesOf(framed)[0], (POINTAPI{3, 2}));
  desktop().mouseMove(10, 10);
  EXPECT_EQ(movesOf(framed).size(), 1u) << "the border is the non-client area";
  EXPECT_TRUE(movesOf(top).empty());
  wm().SetCapture(framed);
  desktop().mouseMove(5, 5);
  ASSERT_EQ(movesOf(framed).size(), 2u);
  EXPECT_EQ(movesOf(framed)[1], (POINTAPI{-6, -6})) << "captured: relative to the client origin";
}

TEST_F(WindowBorderTest, LeavingTheClientAreaForTheBorderEndsMouseTracking) {
  HWND top = makeWindow(0, 0, 200, 200);
  HWND framed = makeWindow(10, 10, 50, 50, top, 0, WS_EX_CLIENTEDGE);
  desktop().mouseMove(30, 30);
  TRACKMOUSEEVENT t;
  t.dwFlags = TME_LEAVE;
  t.hwndTrack = framed;
  wm().TrackMouseEvent(t);
  desktop().mouseMove(11, 30);
  int leaves = 0;
  for (auto& m : log) leaves += m.hwnd == framed && m.msg == wm::MOUSELEAVE;
  EXPECT_EQ(leaves, 1);
}

TEST_F(WindowBorderTest, StyleChangesResizeTheClientAreaAndSendSize) {
  HWND top = makeWindow(0, 0, 200, 200);
  HWND child = makeWindow(10, 10, 40, 30, top);
  log.clear();
  wm().SetWindowLongA(child, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
  ASSERT_EQ(sizesOf(child).size(), 1u);
  EXPECT_EQ(sizesOf(child)[0], (POINTAPI{36, 26}));
  EXPECT_EQ(windowRect(child), (RECT{10, 10, 50, 40})) << "the outer size stays";
  wm().SetWindowLongA(child, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
  EXPECT_EQ(sizesOf(child).size(), 1u) << "no change, no size";
  wm().SetWindowLongA(child, GWL_STYLE, wm().GetWindowLongA(child, GWL_STYLE) | WS_BORDER);
  ASSERT_EQ(sizesOf(child).size(), 2u);
  EXPECT_EQ(sizesOf(child)[1], (POINTAPI{34, 24}));
  wm().SetWindowLongA(child, GWL_STYLE, wm().GetWindowLongA(child, GWL_STYLE) & ~WS_BORDER);
  wm().SetWindowLongA(child, GWL_EXSTYLE, 0);
  ASSERT_EQ(sizesOf(child).size(), 4u);
  EXPECT_EQ(sizesOf(child)[3], (POINTAPI{40, 30}));
  EXPECT_EQ(clientRect(child), (RECT{0, 0, 40, 30}));
}

TEST_F(WindowBorderTest, ResizingKeepsTheOuterSizeAndTellsTheClientSize) {
  HWND top = makeWindow(0, 0, 200, 200);
  HWND child = makeWindow(10, 10, 40, 30, top, 0, WS_EX_CLIENTEDGE);
  log.clear();
  wm().MoveWindow(child, 0, 0, 60, 50, true);
  ASSERT_EQ(sizesOf(child).size(), 1u);
  EXPECT_EQ(sizesOf(child)[0], (POINTAPI{56, 46}));
  EXPECT_EQ(windowRect(child), (RECT{0, 0, 60, 50}));
}

TEST_F(WindowBorderTest, ReparentingGivesAndTakesTheBorder) {
  HWND top = makeWindow(0, 0, 200, 200);
  HWND loose = makeWindow(10, 10, 40, 30, 0, 0, WS_EX_CLIENTEDGE);
  EXPECT_EQ(clientRect(loose), (RECT{0, 0, 40, 30}));
  wm().SetParent(loose, top);
  EXPECT_EQ(clientRect(loose), (RECT{0, 0, 36, 26}));
  wm().SetParent(loose, 0);
  EXPECT_EQ(clientRect(loose), (RECT{0, 0, 40, 30}));
}

TEST_F(WindowBorderTest, TheSunkenEdgeHasItsFourColours) {
  HWND top = makeWindow(0, 0, 100, 100);
  HWND child = makeWindow(10, 10, 20, 20, top, 0, WS_EX_CLIENTEDGE);
  wm().windowCanvas(top)->fill(0xFF0000);
  wm().windowCanvas(child)->fill(0x00FF00);
  using namespace syscolor;
  // Outer ring: top and left in the button shadow, bottom and right (with the top-right and
  // bottom-left corners) in the button highlight.
  EXPECT_EQ(screenPixel(10, 10), sys(BTNSHADOW));
  EXPECT_EQ(screenPixel(20, 10), sys(BTNSHADOW));
  EXPECT_EQ(screenPixel(10, 20), sys(BTNSHADOW));
  EXPECT_EQ(screenPixel(29, 10), sys(BTNHIGHLIGHT));
  EXPECT_EQ(screenPixel(10, 29), sys(BTNHIGHLIGHT));
  EXPECT_EQ(screenPixel(20, 29), sys(BTNHIGHLIGHT));
  EXPECT_EQ(screenPixel(29, 20), sys(BTNHIGHLIGHT));
  // Inner ring: the 3-D dark shadow and the 3-D light.
  EXPECT_EQ(screenPixel(11, 11), sys(DKSHADOW3D));
  EXPECT_EQ(screenPixel(20, 11), sys(DKSHADOW3D));
  EXPECT_EQ(screenPixel(11, 20), sys(DKSHADOW3D));
  EXPECT_EQ(screenPixel(28, 11), sys(LIGHT3D));
  EXPECT_EQ(screenPixel(20, 28), sys(LIGHT3D));
  EXPECT_EQ(screenPixel(28, 28), sys(LIGHT3D));
  // The client image starts inside the edge, and the parent shows around it.
  EXPECT_EQ(screenPixel(12, 12), 0x00FF00u);
  EXPECT_EQ(screenPixel(27, 27), 0x00FF00u);
  EXPECT_EQ(screenPixel(9, 9), 0xFF0000u);
  EXPECT_EQ(screenPixel(30, 30), 0xFF0000u);
}

TEST_F(WindowBorderTest, TheEdgeFollowsTheSystemColours) {
  HWND top = makeWindow(0, 0, 100, 100);
  makeWindow(10, 10, 20, 20, top, 0, WS_EX_CLIENTEDGE);
  desktop().gdi().SetSysColor(syscolor::BTNSHADOW, 0x123456);
  EXPECT_EQ(screenPixel(10, 10), 0x123456u);
}

TEST_F(WindowBorderTest, TheSingleBorderIsOneLineInTheWindowFrameColour) {
  HWND top = makeWindow(0, 0, 100, 100);
  HWND child = makeWindow(10, 10, 20, 20, top, WS_BORDER);
  wm().windowCanvas(top)->fill(0xFF0000);
  wm().windowCanvas(child)->fill(0x00FF00);
  desktop().gdi().SetSysColor(syscolor::WINDOWFRAME, 0x0000C0);
  for (POINTAPI p : {POINTAPI{10, 10}, POINTAPI{29, 10}, POINTAPI{10, 29}, POINTAPI{29, 29}, POINTAPI{20, 10},
                     POINTAPI{10, 20}, POINTAPI{29, 20}, POINTAPI{20, 29}})
    EXPECT_EQ(screenPixel(p.x, p.y), 0x0000C0u) << p.x << "," << p.y;
  EXPECT_EQ(screenPixel(11, 11), 0x00FF00u);
  EXPECT_EQ(screenPixel(28, 28), 0x00FF00u);
}

TEST_F(WindowBorderTest, ChildrenAreCutToTheClientArea) {
  HWND top = makeWindow(0, 0, 100, 100);
  HWND framed = makeWindow(10, 10, 20, 20, top, 0, WS_EX_CLIENTEDGE);
  HWND inner = makeWindow(-5, -5, 50, 50, framed);
  wm().windowCanvas(inner)->fill(0x0000FF);
  EXPECT_EQ(screenPixel(12, 12), 0x0000FFu);
  EXPECT_EQ(screenPixel(27, 27), 0x0000FFu);
  EXPECT_EQ(screenPixel(11, 11), sys(syscolor::DKSHADOW3D)) << "the child does not cover the edge";
  EXPECT_EQ(screenPixel(28, 28), sys(syscolor::LIGHT3D));
}

TEST_F(WindowBorderTest, AWindowSmallerThanItsBorderHasNoClientArea) {
  HWND top = makeWindow(0, 0, 100, 100);
  HWND tiny = makeWindow(10, 10, 3, 3, top, WS_BORDER, WS_EX_CLIENTEDGE);
  makeWindow(0, 0, 5, 5, tiny);
  EXPECT_EQ(clientRect(tiny), (RECT{0, 0, 0, 0}));
  EXPECT_EQ(wm().WindowFromPoint(11, 11), tiny);
  EXPECT_EQ(screenPixel(10, 10), sys(syscolor::WINDOWFRAME));
  wm().MoveWindow(tiny, 10, 10, 1, 1, true);
  wm().SetWindowLongA(tiny, GWL_EXSTYLE, 0);
  EXPECT_EQ(clientRect(tiny), (RECT{0, 0, 0, 0}));
  desktop().mouseMove(10, 10);
  (void)desktop().screen();
}

TEST_F(WindowBorderTest, TheScreenFollowsABorderThatComesAfterItWasComposed) {
  HWND top = makeWindow(0, 0, 100, 100);
  HWND tiny = makeWindow(10, 10, 2, 2, top);
  wm().windowCanvas(top)->fill(0xFF0000);
  wm().windowCanvas(tiny)->fill(0x00FF00);
  ASSERT_EQ(screenPixel(10, 10), 0x00FF00u);
  desktop().gdi().SetSysColor(syscolor::WINDOWFRAME, 0x0000C0);
  // The client area was 2 by 2 and is now none: only the border shows.
  wm().SetWindowLongA(tiny, GWL_STYLE, wm().GetWindowLongA(tiny, GWL_STYLE) | WS_BORDER);
  EXPECT_EQ(screenPixel(10, 10), 0x0000C0u);
  EXPECT_EQ(screenPixel(11, 11), 0x0000C0u);
}

TEST_F(WindowBorderTest, TheScreenFollowsAStyleChangeThatLeavesTheClientAreaAsItWas) {
  HWND top = makeWindow(0, 0, 100, 100);
  HWND dot = makeWindow(10, 10, 1, 1, top, 0, WS_EX_CLIENTEDGE);  // no client area, before and after
  wm().windowCanvas(top)->fill(0xFF0000);
  ASSERT_EQ(screenPixel(10, 10), sys(syscolor::BTNHIGHLIGHT)) << "one pixel: bottom and right come last";
  desktop().gdi().SetSysColor(syscolor::WINDOWFRAME, 0x0000C0);
  wm().SetWindowLongA(dot, GWL_STYLE, wm().GetWindowLongA(dot, GWL_STYLE) | WS_BORDER);
  EXPECT_EQ(screenPixel(10, 10), 0x0000C0u) << "the single line is the outer ring now";
}

TEST_F(WindowBorderTest, ATopLevelWindowsOwnImageShowsItsChildrensBorders) {
  HWND top = makeWindow(50, 50, 40, 40);
  HWND child = makeWindow(5, 5, 20, 20, top, 0, WS_EX_CLIENTEDGE);
  wm().windowCanvas(top)->fill(0xFF0000);
  wm().windowCanvas(child)->fill(0x00FF00);
  Canvas image(1, 1);
  ASSERT_TRUE(wm().composeTopLevel(top, image));
  EXPECT_EQ(image.pixel(5, 5), sys(syscolor::BTNSHADOW));
  EXPECT_EQ(image.pixel(6, 6), sys(syscolor::DKSHADOW3D));
  EXPECT_EQ(image.pixel(24, 24), sys(syscolor::BTNHIGHLIGHT));
  EXPECT_EQ(image.pixel(7, 7), 0x00FF00u);
  EXPECT_EQ(image.pixel(4, 4), 0xFF0000u);
}

}  // namespace
}  // namespace corvane

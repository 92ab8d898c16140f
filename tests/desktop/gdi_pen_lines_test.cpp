// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/gdi.h"
#include "gdi_test_support.h"

namespace corvane {
namespace {

// Two drawing sides on windows of the same size: one draws pen lines its own way, the other makes
// the six calls per line one by one, as the interface's default does. Afterwards nothing may tell
// them apart.
class GdiPenLines : public ::testing::Test {
 protected:
  struct Side {
    test::FakeWindows windows;
    DesktopGdi gdi{windows};
    Canvas* canvas = nullptr;
    HDC hdc = 0;
    Side() {
      canvas = &windows.add(1, 40, 30);
      hdc = gdi.GetDC(1);
    }
  };

  void drawBoth(const std::vector<POINTAPI>& ends, const std::vector<COLORREF>& colours) {
    own.gdi.PenLines(own.hdc, ends, colours);
    calls.gdi.GdiApi::PenLines(calls.hdc, ends, colours);
  }

  void expectTheSame() {
    for (int32_t y = 0; y < 30; ++y)
      for (int32_t x = 0; x < 40; ++x)
        ASSERT_EQ(own.canvas->pixel(x, y), calls.canvas->pixel(x, y)) << x << "," << y;
    POINTAPI ownAt, callsAt;
    own.gdi.MoveToEx(own.hdc, 0, 0, &ownAt);
    calls.gdi.MoveToEx(calls.hdc, 0, 0, &callsAt);
    EXPECT_EQ(ownAt, callsAt) << "the position is the last line's end";
    // The context's pen draws the same colour afterwards.
    own.gdi.LineTo(own.hdc, 0, 29);
    calls.gdi.LineTo(calls.hdc, 0, 29);
    EXPECT_EQ(own.canvas->pixel(0, 10), calls.canvas->pixel(0, 10));
    EXPECT_EQ(own.gdi.liveObjectCount(), calls.gdi.liveObjectCount());
    EXPECT_EQ(own.gdi.CreatePen(PS_SOLID, 1, 0), calls.gdi.CreatePen(PS_SOLID, 1, 0))
        << "a pen made and freed per line: the next handle is the same";
    EXPECT_EQ(own.windows.drawn[1] > 0, calls.windows.drawn[1] > 0);
  }

  Side own, calls;
};

// Vertical lines side by side as at 0 degrees, lines running off the canvas, a slanted line, a
// horizontal one, one of no length and one wholly outside.
const std::vector<POINTAPI> kEnds = {{-1, -5}, {-1, 40}, {0, -5},  {0, 40},  {1, 35},   {1, -3},  {2, -5},
                                     {2, 40},  {5, 2},   {30, 25}, {3, 12},  {39, 12},  {7, 7},   {7, 7},
                                     {50, 1},  {60, 9},  {38, 0},  {38, 30}, {39, -10}, {39, 100}};
const std::vector<COLORREF> kColours = {0x0000FF, 0x00FF00, 0xFF0000, 0x123456, 0x654321,
                                        0x00FFFF, 0xFF00FF, 0x808080, 0x0F0F0F, 0x7F7F7F};

TEST_F(GdiPenLines, LinesDrawnAtOnceLeaveWhatTheCallsOneByOneLeave) {
  for (Side* s : {&own, &calls}) s->gdi.SelectObject(s->hdc, s->gdi.CreatePen(PS_SOLID, 1, 0x00AA00));
  drawBoth(kEnds, kColours);
  EXPECT_EQ(own.canvas->pixel(0, 0), 0x00FF00);
  EXPECT_EQ(own.canvas->pixel(1, 29), 0xFF0000) << "drawn from its start upwards";
  EXPECT_EQ(own.canvas->pixel(37, 12), 0x00FFFF);
  EXPECT_EQ(own.canvas->pixel(38, 12), 0x0F0F0F) << "a later line over an earlier one";
  EXPECT_EQ(own.canvas->pixel(7, 7), 0xFFFFFF) << "a line of no length draws nothing";
  expectTheSame();
  EXPECT_EQ(own.canvas->pixel(0, 10), 0x00AA00) << "the context's own pen is back";
}

// Vertical lines over the same rows, each one column beside the last, are drawn as a run. Runs to
// the right and to the left, reaching past either edge of the canvas, broken by other rows, by a
// gap or by a slanted line, and a run that turns back over columns just drawn.
TEST_F(GdiPenLines, RunsOfVerticalLinesLeaveWhatTheCallsOneByOneLeave) {
  std::vector<POINTAPI> ends;
  std::vector<COLORREF> colours;
  auto run = [&](int32_t x, int32_t direction, int32_t n, int32_t fromY, int32_t toY) {
    for (int32_t k = 0; k < n; ++k) {
      ends.push_back({x + k * direction, fromY});
      ends.push_back({x + k * direction, toY});
      colours.push_back(static_cast<COLORREF>(0x010203 * static_cast<uint32_t>(colours.size() + 1)));
    }
  };
  run(-3, 1, 8, -5, 40);   // from left of the canvas into it
  run(5, 1, 4, -5, 40);    // the same rows after a gap
  run(36, 1, 7, 30, 2);    // past the right edge, upwards
  run(42, -1, 6, 3, 20);   // from right of the canvas to the left, into it
  run(20, 1, 5, 10, 25);   // a run that turns back: to the right ...
  run(19, 1, 4, 10, 25);   // ... then again from just left of it, over its columns
  run(30, -1, 3, 10, 25);  // to the left, and then
  run(31, -1, 3, 10, 25);  // from just right of it, back over them
  run(12, 1, 3, 0, 10);
  run(15, 1, 3, 0, 11);  // other rows break the run
  ends.push_back({2, 2});
  ends.push_back({9, 6});  // a slanted line
  colours.push_back(0x00FF00);
  run(10, 1, 3, 1, 29);
  run(-9, 1, 5, 0, 30);   // wholly left of the canvas
  run(45, -1, 5, 0, 30);  // wholly right of it
  run(8, 1, 3, 40, 35);   // wholly below it
  drawBoth(ends, colours);
  expectTheSame();
  EXPECT_EQ(own.canvas->pixel(1, 0), 0x010203 * 5u);
  EXPECT_EQ(own.canvas->pixel(39, 3), 0x010203 * 23u) << "the right-to-left run's first line on the canvas";
  EXPECT_EQ(own.canvas->pixel(20, 15), 0x010203 * 32u) << "the run turning back draws over the earlier one";
}

TEST_F(GdiPenLines, TheShorterListDecidesHowManyLines) {
  drawBoth(kEnds, {0x0000FF, 0x00FF00});
  expectTheSame();
  EXPECT_EQ(own.canvas->pixel(2, 0), 0xFFFFFF) << "no colour for the third line: it is not drawn";
  drawBoth({{4, 0}, {4, 30}, {5, 0}}, kColours);  // an odd last end starts no line
  expectTheSame();
  EXPECT_EQ(own.canvas->pixel(5, 0), 0xFFFFFF);
}

TEST_F(GdiPenLines, AContextWhosePenWasDeletedKeepsTheLastLinesPen) {
  for (Side* s : {&own, &calls}) {
    const HPEN pen = s->gdi.CreatePen(PS_SOLID, 1, 0x00AA00);
    s->gdi.SelectObject(s->hdc, pen);
    s->gdi.DeleteObject(pen);
  }
  drawBoth(kEnds, kColours);
  expectTheSame();
}

TEST_F(GdiPenLines, ARecordingContextLogsTheSixCallsOfEachLine) {
  own.gdi.startRecording(own.hdc);
  own.gdi.PenLines(own.hdc, {{{3, 0}, {3, 9}, {4, 9}, {4, 0}}}, {{0x0000FF, 0x00FF00}});
  const std::vector<std::string> log = own.gdi.stopRecording(own.hdc);
  ASSERT_EQ(log.size(), 12u);
  EXPECT_EQ(log[0], "MoveToEx(3,0)");
  EXPECT_EQ(log[1], "CreatePen(0,1,255)");
  EXPECT_EQ(log[2].rfind("SelectObject(", 0), 0u);
  EXPECT_EQ(log[3], "LineTo(3,9)");
  EXPECT_EQ(log[4].rfind("SelectObject(", 0), 0u);
  EXPECT_EQ(log[5].rfind("DeleteObject(", 0), 0u);
  EXPECT_EQ(log[6], "MoveToEx(4,9)");
  EXPECT_EQ(log[7], "CreatePen(0,1,65280)");
  EXPECT_EQ(log[9], "LineTo(4,0)");
  EXPECT_EQ(own.canvas->pixel(4, 1), 0x00FF00);
}

TEST_F(GdiPenLines, AMemoryContextWithoutItsOwnBitmapDrawsLikeTheCalls) {
  for (Side* s : {&own, &calls}) s->hdc = s->gdi.CreateCompatibleDC(0);
  drawBoth(kEnds, kColours);
  EXPECT_EQ(own.gdi.CreatePen(PS_SOLID, 1, 0), calls.gdi.CreatePen(PS_SOLID, 1, 0));
  EXPECT_EQ(own.gdi.GetPixel(own.hdc, 0, 0), calls.gdi.GetPixel(calls.hdc, 0, 0));
}

}  // namespace
}  // namespace corvane

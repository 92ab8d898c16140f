// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/gdi.h"
#include "gdi_test_support.h"

namespace corvane {
namespace {

using Lines = std::vector<std::string>;

class GdiLog : public ::testing::Test {
 protected:
  GdiLog() : gdi(windows) {
    windows.add(1, 40, 30);
    hdc = gdi.GetDC(1);
  }
  test::FakeWindows windows;
  DesktopGdi gdi;
  HDC hdc = 0;
};

TEST_F(GdiLog, EachCallIsOneLineWithItsArgumentsInOrder) {
  gdi.startRecording(hdc);
  HPEN pen = gdi.CreatePen(0, 1, 255);
  HPEN old = gdi.SelectObject(hdc, pen);
  gdi.MoveToEx(hdc, 0, 5, nullptr);
  gdi.LineTo(hdc, 10, 5);
  HBRUSH brush = gdi.CreateSolidBrush(0x00FF00);
  gdi.FillRect(hdc, RECT{0, 0, 10, 10}, brush);
  RECT r{1, 2, 30, 20};
  gdi.DrawEdge(hdc, r, EDGE_RAISED, BF_RECT);
  gdi.DrawTextA(hdc, "Hello", -1, r, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
  gdi.TextOutA(hdc, 2, 3, "Word");
  gdi.SelectObject(hdc, old);
  gdi.DeleteObject(pen);
  gdi.DeleteObject(brush);
  const Lines log = gdi.stopRecording(hdc);
  auto n = [](int32_t v) { return std::to_string(v); };
  EXPECT_EQ(log, (Lines{"CreatePen(0,1,255)", "SelectObject(" + n(pen) + ")", "MoveToEx(0,5)", "LineTo(10,5)",
                        "CreateSolidBrush(65280)", "FillRect(0,0,10,10," + n(brush) + ")",
                        "DrawEdge(1,2,30,20,5,15)", "DrawTextA(Hello,37)", "TextOutA(2,3,Word)",
                        "SelectObject(" + n(old) + ")", "DeleteObject(" + n(pen) + ")",
                        "DeleteObject(" + n(brush) + ")"}));
}

TEST_F(GdiLog, FontsStatesAndPicturesAreLogged) {
  gdi.startRecording(hdc);
  FontSpec f;
  f.name = "Arial";
  f.size = 8.25;
  f.bold = true;
  gdi.SetDCFont(hdc, f);
  gdi.SetBkMode(hdc, 1);
  gdi.SetTextColor(hdc, 255);
  SIZE s;
  gdi.GetTextExtentPoint32A(hdc, "abc", s);
  gdi.DrawStateA(hdc, 0, 0, 999, 0, 2, 2, 32, 32, 131);
  gdi.BitBlt(hdc, 0, 0, 8, 8, hdc, 1, 1, SRCCOPY);
  EXPECT_EQ(gdi.stopRecording(hdc),
            (Lines{"SetDCFont(Arial,8.25,1,0,0,0)", "SetBkMode(1)", "SetTextColor(255)",
                   "GetTextExtentPoint32A(abc)", "DrawStateA(0,0,999,0,2,2,32,32,131)",
                   "BitBlt(0,0,8,8," + std::to_string(hdc) + ",1,1,13369376)"}));
}

TEST_F(GdiLog, OnlyRecordingContextsLogAndCreationGoesToAllOfThem) {
  windows.add(2, 10, 10);
  HDC other = gdi.GetDC(2), quiet = gdi.GetDC(2);
  gdi.startRecording(hdc);
  gdi.startRecording(other);
  gdi.LineTo(quiet, 1, 1);
  gdi.LineTo(other, 2, 2);
  HBRUSH b = gdi.CreateSolidBrush(1);
  EXPECT_EQ(gdi.stopRecording(hdc), (Lines{"CreateSolidBrush(1)"}));
  gdi.DeleteObject(b);
  EXPECT_EQ(gdi.stopRecording(other),
            (Lines{"LineTo(2,2)", "CreateSolidBrush(1)", "DeleteObject(" + std::to_string(b) + ")"}));
  EXPECT_TRUE(gdi.stopRecording(other).empty());
}

TEST_F(GdiLog, StartingAgainClearsTheLog) {
  gdi.startRecording(hdc);
  gdi.LineTo(hdc, 1, 1);
  gdi.startRecording(hdc);
  gdi.LineTo(hdc, 2, 2);
  EXPECT_EQ(gdi.stopRecording(hdc), (Lines{"LineTo(2,2)"}));
}

}  // namespace
}  // namespace corvane

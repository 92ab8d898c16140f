// SPDX-License-Identifier: MIT
#include <corvane/frame/msubclass.h>
#include <corvane/platform/api.h>
#include <corvane/platform/message_memory.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/system/form_min_max.h>
#include <gtest/gtest.h>

#include "runtime/expect_error.h"
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

class FormMinMaxTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    test::DesktopTest::SetUp();
    proc = user().RegisterWindowProc(
        [](HWND h, int32_t m, WPARAM w, LPARAM l) { return user().DefWindowProcA(h, m, w, l); });
    form = user().CreateWindowExA(0, "Form", "Form", WS_VISIBLE, 10, 10, 400, 300, 0, proc);
  }
  SIZE sizeOf(HWND h) {
    RECT r;
    user().GetWindowRect(h, r);
    return SIZE{r.Right - r.Left, r.Bottom - r.Top};
  }
  SIZE resized(HWND h, int32_t width, int32_t height) {
    user().MoveWindow(h, 10, 10, width, height, true);
    return sizeOf(h);
  }
  MINMAXINFO info(HWND h) { return desktop().windows().minMaxInfo(h); }
  WNDPROC proc = 0;
  HWND form = 0;
};

TEST_F(FormMinMaxTest, AResizeBelowTheMinimumIsHeldAtIt) {
  cFormMinMax limits;
  limits.AttachEx(form, 3000, 1500);  // twips, 15 per pixel
  SIZE s = resized(form, 50, 40);
  EXPECT_EQ(s.cx, 200);
  EXPECT_EQ(s.cy, 100);
}

TEST_F(FormMinMaxTest, AResizeAboveTheMaximumIsHeldAtIt) {
  cFormMinMax limits;
  limits.AttachEx(form, 0, 0, 6000, 4500);
  SIZE s = resized(form, 900, 800);
  EXPECT_EQ(s.cx, 400);
  EXPECT_EQ(s.cy, 300);
  s = resized(form, 20, 10);  // no minimum given: the system's stands
  EXPECT_EQ(s.cx, 20);
  EXPECT_EQ(s.cy, 10);
}

TEST_F(FormMinMaxTest, TheMinimumWinsOverASmallerMaximum) {
  cFormMinMax limits;
  limits.AttachEx(form, 3000, 3000, 1500, 1500);
  SIZE s = resized(form, 500, 500);
  EXPECT_EQ(s.cx, 200);
  EXPECT_EQ(s.cy, 200);
}

TEST_F(FormMinMaxTest, AFieldAtZeroLeavesTheSystemsValue) {
  const MINMAXINFO system = info(form);
  cFormMinMax limits;
  limits.Attach(form);
  limits.setMinTrackWidth(1500);
  limits.setMaxTop(-30);  // below zero: the system's value as well
  const MINMAXINFO limited = info(form);
  EXPECT_EQ(limited.ptMinTrackSize.x, 100);
  EXPECT_EQ(limited.ptMinTrackSize.y, system.ptMinTrackSize.y);
  EXPECT_EQ(limited.ptMaxTrackSize, system.ptMaxTrackSize);
  EXPECT_EQ(limited.ptMaxSize, system.ptMaxSize);
  EXPECT_EQ(limited.ptMaxPosition, system.ptMaxPosition);
}

TEST_F(FormMinMaxTest, EveryFieldReachesItsMember) {
  cFormMinMax limits;
  limits.Attach(form);
  limits.setMaxLeft(150);
  limits.setMaxTop(300);
  limits.setMaxWidth(4500);
  limits.setMaxHeight(6000);
  limits.setMaxTrackWidth(7500);
  limits.setMaxTrackHeight(9000);
  limits.setMinTrackWidth(1050);
  limits.setMinTrackHeight(1200);
  const MINMAXINFO i = info(form);
  EXPECT_EQ(i.ptMaxPosition, (POINTAPI{10, 20}));
  EXPECT_EQ(i.ptMaxSize, (POINTAPI{300, 400}));
  EXPECT_EQ(i.ptMaxTrackSize, (POINTAPI{500, 600}));
  EXPECT_EQ(i.ptMinTrackSize, (POINTAPI{70, 80}));
}

TEST_F(FormMinMaxTest, HeightsAlsoUseTheHorizontalScale) {
  desktop().setTwipsPerPixel(10, 20);
  cFormMinMax limits;
  limits.AttachEx(form, 1000, 1000);
  limits.setMaxTop(400);
  const MINMAXINFO i = info(form);
  EXPECT_EQ(i.ptMinTrackSize, (POINTAPI{100, 100}));
  EXPECT_EQ(i.ptMaxPosition.y, 40);
}

TEST_F(FormMinMaxTest, PixelsAreRoundedHalvesToEven) {
  desktop().setTwipsPerPixel(2, 2);
  cFormMinMax limits;
  limits.AttachEx(form, 5, 7);
  const MINMAXINFO i = info(form);
  EXPECT_EQ(i.ptMinTrackSize.x, 2);  // 2.5
  EXPECT_EQ(i.ptMinTrackSize.y, 4);  // 3.5
}

TEST_F(FormMinMaxTest, ANewAttachDetachesFromTheFormerWindowFirst) {
  HWND other = user().CreateWindowExA(0, "Form", "Other", WS_VISIBLE, 0, 0, 400, 300, 0, proc);
  cFormMinMax limits;
  limits.AttachEx(form, 3000, 3000);
  limits.Attach(other);
  EXPECT_EQ(MSubclass::MsgCount(form, wm::GETMINMAXINFO), 0);
  EXPECT_EQ(MSubclass::MsgCount(other, wm::GETMINMAXINFO), 1);
  EXPECT_EQ(resized(form, 50, 50).cx, 50);
  EXPECT_EQ(resized(other, 50, 50).cx, 200);
}

TEST_F(FormMinMaxTest, AValueAbove32767TwipsIsAnOverflowForTheHost) {
  cFormMinMax limits;
  EXPECT_RUNTIME_ERROR(limits.AttachEx(form, 32768), 6);
  EXPECT_EQ(limits.MinTrackWidth(), 0);
  EXPECT_EQ(MSubclass::MsgCount(form, wm::GETMINMAXINFO), 0);
  EXPECT_RUNTIME_ERROR(limits.AttachEx(form, 0, 0, 0, 40000), 6);
  EXPECT_RUNTIME_ERROR(limits.AttachEx(form, 32767, -32768), 0);
}

TEST_F(FormMinMaxTest, DetachAndTheEndOfTheObjectRemoveTheLimits) {
  {
    cFormMinMax limits;
    limits.AttachEx(form, 3000, 3000);
    limits.Detach();
    EXPECT_EQ(resized(form, 50, 50).cx, 50);
    limits.Attach(form);
    EXPECT_EQ(resized(form, 60, 60).cx, 200);
  }
  EXPECT_EQ(MSubclass::MsgCount(form, wm::GETMINMAXINFO), 0);
  EXPECT_EQ(resized(form, 70, 70).cx, 70);
}

TEST_F(FormMinMaxTest, TheResponseIsAlwaysConsume) {
  cFormMinMax limits;
  limits.setMsgResponse(emrPostProcess);
  EXPECT_EQ(limits.MsgResponse(), emrConsume);
}

TEST_F(FormMinMaxTest, AttachingToNoWindowRaisesTheSubclassingError) {
  cFormMinMax limits;
  int32_t number = test::errorNumberOf([&] { limits.Attach(123456); });
  EXPECT_EQ(MSubclass::ErrorCode(number), MSubclass::errInvalidWindow);
}

TEST_F(FormMinMaxTest, AMessageWithoutARecordChangesNothing) {
  cFormMinMax limits;
  limits.AttachEx(form, 3000, 3000);
  EXPECT_EQ(user().SendMessageA(form, wm::GETMINMAXINFO, 0, 987654), 0);
  MINMAXINFO small;
  MessageMemoryLoan loan(&small, 8);  // shorter than the record
  EXPECT_EQ(limits.WindowProc(form, wm::GETMINMAXINFO, 0, loan.address()), 0);
  EXPECT_EQ(small.ptMinTrackSize.x, 0);
}

TEST_F(FormMinMaxTest, ChildWindowsAreNotAsked) {
  HWND child = user().CreateWindowExA(0, "Child", "", WS_CHILD | WS_VISIBLE, 0, 0, 100, 100, form, proc);
  cFormMinMax limits;
  limits.AttachEx(child, 3000, 3000);
  EXPECT_EQ(resized(child, 20, 20).cx, 20);
}

TEST_F(FormMinMaxTest, MembersAreReachableByName) {
  auto object = ClassRegistry::instance().create("cFormMinMax");
  object->call("AttachEx", {Variant(form), Variant(int32_t{3000})});
  EXPECT_EQ(object->get("MinTrackWidth").toLong(), 3000);
  EXPECT_EQ(object->get("MinTrackHeight").toLong(), 0);
  EXPECT_EQ(resized(form, 50, 50).cx, 200);
  object->let("MsgResponse", Variant(int32_t{2}));
  EXPECT_EQ(object->get("MsgResponse").toLong(), 0);
  object->call("Detach");
  EXPECT_EQ(resized(form, 50, 50).cx, 50);
}

}  // namespace
}  // namespace corvane

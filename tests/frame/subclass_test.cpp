// SPDX-License-Identifier: MIT
#include <corvane/frame/subclass.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "frame/subclass_support.h"
#include <corvane/host/form.h>
#include <corvane/host/picture_box.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/class_registry.h>
#include "support/desktop_fixture.h"

namespace corvane {

namespace {

using test::RecordedMessage;
using test::RecordingWindow;

std::vector<int32_t> entries(const VbArray<int32_t>& a) {
  std::vector<int32_t> out;
  for (int32_t i = a.lbound(); i <= a.ubound(); ++i) out.push_back(a(i));
  return out;
}

struct NewMessageCall {
  int32_t hWnd, uMsg, wParam, lParam;
  bool operator==(const NewMessageCall&) const = default;
};

class SubClassTest : public test::DesktopTest {
 protected:
  static int32_t prop(HWND h, const char* key) { return user().GetPropA(h, key); }
  bool hasProp(HWND h, const char* key) {
    const DesktopWindow* w = desktop().windows().window(h);
    return w && w->props.count(key) > 0;
  }
};

// ---- hooking and unhooking ----

TEST_F(SubClassTest, NewObjectHasTheBoundsZeroToZeroWithIndexZeroZero) {
  clsSubClass s;
  EXPECT_EQ(s.hookedWindows().lbound(), 0);
  EXPECT_EQ(s.hookedWindows().ubound(), 0);
  EXPECT_EQ(s.hookedWindows()(0), 0);
}

TEST_F(SubClassTest, HookReplacesTheProcedureAndStoresTheOldOneAndTheOwner) {
  RecordingWindow w;
  clsSubClass s;
  EXPECT_TRUE(s.SubClassHwnd(w.hWnd, true));
  EXPECT_EQ(w.currentProc(), bSubClass::WindowProcAddress());
  EXPECT_EQ(prop(w.hWnd, "SSC_OLDPROC"), w.proc);
  EXPECT_EQ(prop(w.hWnd, "SSC_OBJADDR"), s.objectId());
  EXPECT_NE(s.objectId(), 0);
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0, w.hWnd}));
}

TEST_F(SubClassTest, SecondHookOfTheSameWindowFromAnyObjectReturnsFalseAndChangesNothing) {
  RecordingWindow w;
  clsSubClass first, second;
  ASSERT_TRUE(first.SubClassHwnd(w.hWnd, true));
  EXPECT_FALSE(first.SubClassHwnd(w.hWnd, true));
  EXPECT_FALSE(second.SubClassHwnd(w.hWnd, true));
  EXPECT_EQ(w.currentProc(), bSubClass::WindowProcAddress());
  EXPECT_EQ(prop(w.hWnd, "SSC_OLDPROC"), w.proc);
  EXPECT_EQ(prop(w.hWnd, "SSC_OBJADDR"), first.objectId());
  EXPECT_EQ(entries(first.hookedWindows()), (std::vector<int32_t>{0, w.hWnd}));
  EXPECT_EQ(entries(second.hookedWindows()), (std::vector<int32_t>{0}));
  // The messages still go to the first owner only.
  int firstCalls = 0, secondCalls = 0;
  first.NewMessage.connect([&](int32_t, int32_t&, int32_t&, int32_t&, bool&) { ++firstCalls; });
  second.NewMessage.connect([&](int32_t, int32_t&, int32_t&, int32_t&, bool&) { ++secondCalls; });
  user().SendMessageA(w.hWnd, wm::USER, 0, 0);
  EXPECT_EQ(firstCalls, 1);
  EXPECT_EQ(secondCalls, 0);
}

TEST_F(SubClassTest, UnhookWritesTheOldProcedureBackAndRemovesTheProperties) {
  RecordingWindow w;
  clsSubClass s;
  ASSERT_TRUE(s.SubClassHwnd(w.hWnd, true));
  EXPECT_TRUE(s.SubClassHwnd(w.hWnd, false));
  EXPECT_EQ(w.currentProc(), w.proc);
  EXPECT_FALSE(hasProp(w.hWnd, "SSC_OLDPROC"));
  EXPECT_FALSE(hasProp(w.hWnd, "SSC_OBJADDR"));
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0}));
}

TEST_F(SubClassTest, UnhookOfAWindowThatIsNotHookedReturnsFalse) {
  RecordingWindow w;
  clsSubClass s;
  EXPECT_FALSE(s.SubClassHwnd(w.hWnd, false));
  EXPECT_EQ(w.currentProc(), w.proc);
}

TEST_F(SubClassTest, UnhookOfADestroyedWindowReturnsFalseAndClearsTheEntry) {
  auto w = std::make_unique<RecordingWindow>();
  HWND h = w->hWnd;
  clsSubClass s;
  ASSERT_TRUE(s.SubClassHwnd(h, true));
  user().DestroyWindow(h);
  EXPECT_FALSE(user().IsWindow(h));
  EXPECT_FALSE(s.SubClassHwnd(h, false));
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0}));
}

TEST_F(SubClassTest, HookOfADestroyedWindowReturnsFalseAndForgetsIt) {
  RecordingWindow a, b;
  clsSubClass s;
  ASSERT_TRUE(s.SubClassHwnd(a.hWnd, true));
  ASSERT_TRUE(s.SubClassHwnd(b.hWnd, true));
  HWND gone = a.hWnd;
  user().DestroyWindow(gone);
  EXPECT_FALSE(s.SubClassHwnd(gone, true));
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0, -1, b.hWnd}));
}

TEST_F(SubClassTest, AWindowWhoseProcedureCannotBeReplacedIsNotHooked) {
  // A window without a procedure: SetWindowLongA reports no previous procedure (0).
  HWND h = user().CreateWindowExA(0, "Bare", "", WS_VISIBLE, 0, 0, 10, 10, 0, 0);
  clsSubClass s;
  EXPECT_FALSE(s.SubClassHwnd(h, true));
  EXPECT_FALSE(hasProp(h, "SSC_OLDPROC"));
  EXPECT_FALSE(hasProp(h, "SSC_OBJADDR"));
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0}));
  user().DestroyWindow(h);
}

TEST_F(SubClassTest, UnhookWhoseWriteBackFailsReturnsFalseButStillForgetsTheWindow) {
  test::FaultyPlatform faulty(desktop());
  setPlatform(&faulty);
  {
    RecordingWindow w;
    clsSubClass s;
    ASSERT_TRUE(s.SubClassHwnd(w.hWnd, true));
    faulty.faults().failSetWindowLong = [](HWND, int32_t index, int32_t) { return index == GWL_WNDPROC; };
    EXPECT_FALSE(s.SubClassHwnd(w.hWnd, false));
    EXPECT_EQ(w.currentProc(), bSubClass::WindowProcAddress());
    EXPECT_FALSE(hasProp(w.hWnd, "SSC_OLDPROC"));
    EXPECT_FALSE(hasProp(w.hWnd, "SSC_OBJADDR"));
    EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0}));
    // Without its properties the hooked procedure loses the messages.
    w.messages.clear();
    EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 1, 2), 0);
    EXPECT_TRUE(w.messages.empty());
    faulty.faults().failSetWindowLong = nullptr;
  }
  setPlatform(&desktop());
}

// ---- the list of hooked windows ----

TEST_F(SubClassTest, RemovedMiddleEntriesBecomeMinusOneAndFreeSlotsAreReused) {
  RecordingWindow a, b, c, d, e;
  clsSubClass s;
  ASSERT_TRUE(s.SubClassHwnd(a.hWnd, true));
  ASSERT_TRUE(s.SubClassHwnd(b.hWnd, true));
  ASSERT_TRUE(s.SubClassHwnd(c.hWnd, true));
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0, a.hWnd, b.hWnd, c.hWnd}));

  ASSERT_TRUE(s.SubClassHwnd(b.hWnd, false));
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0, a.hWnd, -1, c.hWnd}));

  ASSERT_TRUE(s.SubClassHwnd(d.hWnd, true));  // the first free slot
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0, a.hWnd, d.hWnd, c.hWnd}));

  ASSERT_TRUE(s.SubClassHwnd(a.hWnd, false));
  ASSERT_TRUE(s.SubClassHwnd(e.hWnd, true));
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0, e.hWnd, d.hWnd, c.hWnd}));
}

TEST_F(SubClassTest, RemovingTheLastEntryShrinksTheListByOne) {
  RecordingWindow a, b, c;
  clsSubClass s;
  ASSERT_TRUE(s.SubClassHwnd(a.hWnd, true));
  ASSERT_TRUE(s.SubClassHwnd(b.hWnd, true));
  ASSERT_TRUE(s.SubClassHwnd(c.hWnd, true));
  ASSERT_TRUE(s.SubClassHwnd(b.hWnd, false));
  ASSERT_TRUE(s.SubClassHwnd(c.hWnd, false));
  // Only by one: the removed entry before it stays.
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0, a.hWnd, -1}));
  ASSERT_TRUE(s.SubClassHwnd(a.hWnd, false));
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0, -1, -1}));
}

TEST_F(SubClassTest, HookingAgainAfterAnUnhookUsesTheListAgain) {
  RecordingWindow a;
  clsSubClass s;
  ASSERT_TRUE(s.SubClassHwnd(a.hWnd, true));
  ASSERT_TRUE(s.SubClassHwnd(a.hWnd, false));
  ASSERT_TRUE(s.SubClassHwnd(a.hWnd, true));
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0, a.hWnd}));
  EXPECT_EQ(a.currentProc(), bSubClass::WindowProcAddress());
}

// ---- Terminate ----

TEST_F(SubClassTest, TerminateUnhooksEveryWindowFromTheLastEntryDown) {
  RecordingWindow a, b, c;
  clsSubClass s;
  ASSERT_TRUE(s.SubClassHwnd(a.hWnd, true));
  ASSERT_TRUE(s.SubClassHwnd(b.hWnd, true));
  ASSERT_TRUE(s.SubClassHwnd(c.hWnd, true));
  ASSERT_TRUE(s.SubClassHwnd(b.hWnd, false));
  s.Terminate();
  for (RecordingWindow* w : {&a, &b, &c}) {
    EXPECT_EQ(w->currentProc(), w->proc);
    EXPECT_FALSE(hasProp(w->hWnd, "SSC_OLDPROC"));
    EXPECT_FALSE(hasProp(w->hWnd, "SSC_OBJADDR"));
  }
  // c was last and shrank the list; a was not last and became -1.
  EXPECT_EQ(entries(s.hookedWindows()), (std::vector<int32_t>{0, -1, -1}));
}

TEST_F(SubClassTest, DestroyingTheObjectUnhooksItsWindows) {
  RecordingWindow w;
  {
    clsSubClass s;
    ASSERT_TRUE(s.SubClassHwnd(w.hWnd, true));
  }
  EXPECT_EQ(w.currentProc(), w.proc);
  EXPECT_FALSE(hasProp(w.hWnd, "SSC_OLDPROC"));
  EXPECT_FALSE(hasProp(w.hWnd, "SSC_OBJADDR"));
  w.messages.clear();
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 3, 4), 77);
  EXPECT_EQ(w.messages, (std::vector<RecordedMessage>{{w.hWnd, wm::USER, 3, 4}}));
}

// ---- messages ----

TEST_F(SubClassTest, MessageIsRaisedThenPassedOnAndThePreviousResultReturned) {
  RecordingWindow w;
  clsSubClass s;
  std::vector<NewMessageCall> calls;
  s.NewMessage.connect([&](int32_t h, int32_t& m, int32_t& wp, int32_t& lp, bool& cancel) {
    EXPECT_FALSE(cancel);
    calls.push_back({h, m, wp, lp});
  });
  ASSERT_TRUE(s.SubClassHwnd(w.hWnd, true));
  w.messages.clear();
  w.result = 1234;
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER + 1, 5, 6), 1234);
  EXPECT_EQ(calls, (std::vector<NewMessageCall>{{w.hWnd, wm::USER + 1, 5, 6}}));
  EXPECT_EQ(w.messages, (std::vector<RecordedMessage>{{w.hWnd, wm::USER + 1, 5, 6}}));
}

TEST_F(SubClassTest, HandlerThatRewritesTheMessageChangesWhatThePreviousProcedureSees) {
  RecordingWindow w;
  clsSubClass s;
  s.NewMessage.connect([](int32_t, int32_t& m, int32_t& wp, int32_t& lp, bool&) {
    if (m == wm::USER) {
      m = wm::USER + 9;
      wp = -1;
      lp = 0x12345678;
    }
  });
  ASSERT_TRUE(s.SubClassHwnd(w.hWnd, true));
  w.messages.clear();
  user().SendMessageA(w.hWnd, wm::USER, 1, 2);
  EXPECT_EQ(w.messages, (std::vector<RecordedMessage>{{w.hWnd, wm::USER + 9, -1, 0x12345678}}));
}

TEST_F(SubClassTest, CancelledMessageReturnsZeroAndNeverReachesThePreviousProcedure) {
  RecordingWindow w;
  clsSubClass s;
  s.NewMessage.connect([](int32_t, int32_t& m, int32_t&, int32_t&, bool& cancel) { cancel = m == wm::USER; });
  ASSERT_TRUE(s.SubClassHwnd(w.hWnd, true));
  w.messages.clear();
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 1, 2), 0);
  EXPECT_TRUE(w.messages.empty());
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER + 1, 1, 2), 77);
  EXPECT_EQ(w.messages.size(), 1u);
}

TEST_F(SubClassTest, EveryHandlerSeesTheValuesTheOneBeforeLeft) {
  RecordingWindow w;
  clsSubClass s;
  int32_t seenBySecond = 0;
  s.NewMessage.connect([](int32_t, int32_t&, int32_t& wp, int32_t&, bool&) { wp += 10; });
  s.NewMessage.connect([&](int32_t, int32_t&, int32_t& wp, int32_t&, bool&) { seenBySecond = wp; });
  ASSERT_TRUE(s.SubClassHwnd(w.hWnd, true));
  w.messages.clear();
  user().SendMessageA(w.hWnd, wm::USER, 1, 0);
  EXPECT_EQ(seenBySecond, 11);
  EXPECT_EQ(w.messages.at(0).wParam, 11);
}

TEST_F(SubClassTest, MessageOfAWindowWithoutAnOwnerIsLost) {
  RecordingWindow w;
  clsSubClass s;
  ASSERT_TRUE(s.SubClassHwnd(w.hWnd, true));
  w.messages.clear();
  user().SetPropA(w.hWnd, "SSC_OBJADDR", 0);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 1, 2), 0);
  // An id that names no live object counts as none.
  user().SetPropA(w.hWnd, "SSC_OBJADDR", s.objectId() + 1000);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 1, 2), 0);
  EXPECT_TRUE(w.messages.empty());
  EXPECT_EQ(bSubClass::WindowProc(w.hWnd, wm::USER, 1, 2), 0);
}

TEST_F(SubClassTest, ObjectIdsAreLookedUpOnlyWhileTheObjectLives) {
  int32_t id = 0;
  {
    clsSubClass s;
    id = s.objectId();
    EXPECT_EQ(clsSubClass::fromObjectId(id), &s);
  }
  EXPECT_EQ(clsSubClass::fromObjectId(id), nullptr);
  EXPECT_EQ(clsSubClass::fromObjectId(0), nullptr);
}

// ---- the procedure address across platforms ----

TEST_F(SubClassTest, ProcedureIsRegisteredAgainWhenThePlatformForgotIt) {
  RecordingWindow w;
  WNDPROC first = bSubClass::WindowProcAddress();
  EXPECT_EQ(bSubClass::WindowProcAddress(), first);
  user().UnregisterWindowProc(first);
  clsSubClass s;
  ASSERT_TRUE(s.SubClassHwnd(w.hWnd, true));
  EXPECT_NE(w.currentProc(), first);
  EXPECT_EQ(w.currentProc(), bSubClass::WindowProcAddress());
  int calls = 0;
  s.NewMessage.connect([&](int32_t, int32_t&, int32_t&, int32_t&, bool&) { ++calls; });
  user().SendMessageA(w.hWnd, wm::USER, 0, 0);
  EXPECT_EQ(calls, 1);
}

TEST_F(SubClassTest, HooksWorkOnEveryPlatformInTurn) {
  Desktop other;
  RecordingWindow here;
  clsSubClass s;
  ASSERT_TRUE(s.SubClassHwnd(here.hWnd, true));
  setPlatform(&other);
  {
    RecordingWindow spare;  // one list holds the windows of both desktops: keep the handles apart
    RecordingWindow there;
    ASSERT_NE(there.hWnd, here.hWnd);
    HWND thereWnd = there.hWnd;
    int calls = 0;
    int id = s.NewMessage.connect(
        [&calls, thereWnd](int32_t h, int32_t&, int32_t&, int32_t&, bool&) { calls += h == thereWnd; });
    ASSERT_TRUE(s.SubClassHwnd(there.hWnd, true));
    EXPECT_EQ(there.currentProc(), bSubClass::WindowProcAddress());
    there.messages.clear();
    EXPECT_EQ(user().SendMessageA(there.hWnd, wm::USER, 0, 0), 77);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(there.messages.size(), 1u);
    ASSERT_TRUE(s.SubClassHwnd(there.hWnd, false));
    s.NewMessage.disconnect(id);
  }
  setPlatform(&desktop());
  here.messages.clear();
  EXPECT_EQ(user().SendMessageA(here.hWnd, wm::USER, 0, 0), 77);
  EXPECT_EQ(here.messages.size(), 1u);
}

// ---- late binding and creation ----

TEST_F(SubClassTest, CreatedByNameAndByIdentifierAndCalledByName) {
  RecordingWindow w;
  ObjectRef o = ClassRegistry::instance().create("clsSubClass");
  ASSERT_NE(std::dynamic_pointer_cast<clsSubClass>(o), nullptr);
  EXPECT_EQ(o->typeName(), "clsSubClass");
  EXPECT_TRUE(o->call("SubClassHwnd", {Variant(w.hWnd), Variant(true)}).toBool());
  EXPECT_FALSE(o->call("SubClassHwnd", {Variant(w.hWnd), Variant(true)}).toBool());
  EXPECT_TRUE(o->call("SubClassHwnd", {Variant(w.hWnd), Variant(false)}).toBool());
  ObjectRef byId = ClassRegistry::instance().createById("{222FF6BF-991E-46A5-B8A7-7DF73F9B9738}");
  EXPECT_NE(std::dynamic_pointer_cast<clsSubClass>(byId), nullptr);
}

// ---- real input through the hook ----

class SubClassInputTest : public SubClassTest {
 protected:
  void SetUp() override {
    SubClassTest::SetUp();
    scene = std::make_unique<test::PictureScene>();
    Surface& s = scene->pic->surface();
    s.MouseDown.connect([this](int16_t& b, int16_t&, float& x, float& y) { downs.push_back({b, x, y}); });
    s.Click.connect([this] { ++clicks; });
    s.DblClick.connect([this] { ++dblClicks; });
  }
  void TearDown() override {
    scene.reset();
    SubClassTest::TearDown();
  }
  HWND picWnd() const { return scene->picWnd(); }
  static bool isMouse(int32_t m) { return m >= wm::MOUSEMOVE && m <= wm::MBUTTONDBLCLK; }

  struct Down {
    int16_t button;
    float x, y;
  };
  std::unique_ptr<test::PictureScene> scene;
  std::vector<Down> downs;
  int clicks = 0, dblClicks = 0;
};

TEST_F(SubClassInputTest, ClickTravelsThroughTheHookToTheControl) {
  clsSubClass s;
  std::vector<int32_t> seen;
  std::vector<int32_t> points;
  s.NewMessage.connect([&](int32_t h, int32_t& m, int32_t&, int32_t& lp, bool&) {
    EXPECT_EQ(h, picWnd());
    if (isMouse(m)) seen.push_back(m);
    if (m == wm::LBUTTONDOWN) points.push_back(lp);
  });
  ASSERT_TRUE(s.SubClassHwnd(picWnd(), true));
  desktop().click(50, 30);
  EXPECT_EQ(seen, (std::vector<int32_t>{wm::MOUSEMOVE, wm::LBUTTONDOWN, wm::LBUTTONUP}));
  EXPECT_EQ(points, (std::vector<int32_t>{makePointParam(30, 20)}));
  ASSERT_EQ(downs.size(), 1u);
  EXPECT_EQ(downs[0].button, 1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(SubClassInputTest, CancelledButtonPressNeverReachesTheControl) {
  clsSubClass s;
  s.NewMessage.connect([](int32_t, int32_t& m, int32_t&, int32_t&, bool& cancel) {
    if (m == wm::LBUTTONDOWN) cancel = true;
  });
  ASSERT_TRUE(s.SubClassHwnd(picWnd(), true));
  desktop().click(50, 30);
  EXPECT_TRUE(downs.empty());
  EXPECT_EQ(clicks, 0);  // the release alone makes no click
}

TEST_F(SubClassInputTest, RewrittenButtonIsWhatTheControlHandles) {
  clsSubClass s;
  s.NewMessage.connect([](int32_t, int32_t& m, int32_t&, int32_t&, bool&) {
    if (m == wm::LBUTTONDOWN) m = wm::RBUTTONDOWN;  // a left press becomes a right one
  });
  ASSERT_TRUE(s.SubClassHwnd(picWnd(), true));
  desktop().click(50, 30);
  ASSERT_EQ(downs.size(), 1u);
  EXPECT_EQ(downs[0].button, 2);
  EXPECT_EQ(clicks, 0);  // no left press, so the release makes no click
}

TEST_F(SubClassTest, RewrittenPointerPositionIsWhatThePreviousProcedureSees) {
  RecordingWindow w(100, 100, 200, 150);
  clsSubClass s;
  s.NewMessage.connect([](int32_t, int32_t& m, int32_t&, int32_t& lp, bool&) {
    if (m == wm::MOUSEMOVE) lp = makePointParam(pointParamX(lp) + 5, pointParamY(lp) - 5);
  });
  ASSERT_TRUE(s.SubClassHwnd(w.hWnd, true));
  w.messages.clear();
  desktop().mouseMove(130, 140);
  auto moves = w.of(wm::MOUSEMOVE);
  ASSERT_EQ(moves.size(), 1u);
  EXPECT_EQ(moves[0].lParam, makePointParam(35, 35));
}

TEST_F(SubClassTest, PictureBoxOnAFormGetsThePositionTheHandlerWrote) {
  FormRef form = Form::create("Form1", 6000, 4500);
  form->Show();
  HostedControlRef pic = form->add("PictureBox", "Pic1", nullptr, 300, 150, 1500, 750);  // pixels 20,10
  std::vector<float> xs;
  pic->surface().MouseMove.connect([&](int16_t&, int16_t&, float& x, float&) { xs.push_back(x); });
  clsSubClass s;
  s.NewMessage.connect([](int32_t, int32_t& m, int32_t&, int32_t& lp, bool&) {
    if (m == wm::MOUSEMOVE) lp = makePointParam(pointParamX(lp) + 5, pointParamY(lp));
  });
  ASSERT_TRUE(s.SubClassHwnd(pic->surface().hWnd(), true));
  desktop().mouseMove(50, 30);  // client point 30,20
  ASSERT_EQ(xs.size(), 1u);
  EXPECT_FLOAT_EQ(xs[0], 35 * 15.0f);  // twips of the shifted point
  s.Terminate();
  desktop().mouseMove(51, 30);
  ASSERT_EQ(xs.size(), 2u);
  EXPECT_FLOAT_EQ(xs[1], 31 * 15.0f);
  form->Unload();
}

TEST_F(SubClassInputTest, DoubleClickArrivesAsItsOwnMessage) {
  clsSubClass s;
  std::vector<int32_t> seen;
  s.NewMessage.connect([&](int32_t, int32_t& m, int32_t&, int32_t&, bool&) {
    if (isMouse(m) && m != wm::MOUSEMOVE) seen.push_back(m);
  });
  ASSERT_TRUE(s.SubClassHwnd(picWnd(), true));
  desktop().doubleClick(50, 30);
  EXPECT_EQ(seen, (std::vector<int32_t>{wm::LBUTTONDOWN, wm::LBUTTONUP, wm::LBUTTONDBLCLK, wm::LBUTTONUP}));
  EXPECT_EQ(dblClicks, 1);
}

TEST_F(SubClassInputTest, AfterTerminateInputGoesStraightToTheControl) {
  clsSubClass s;
  int raised = 0;
  s.NewMessage.connect([&](int32_t, int32_t&, int32_t&, int32_t&, bool& cancel) {
    ++raised;
    cancel = true;
  });
  ASSERT_TRUE(s.SubClassHwnd(picWnd(), true));
  desktop().click(50, 30);
  EXPECT_EQ(clicks, 0);
  int before = raised;
  s.Terminate();
  desktop().advance(1000);  // not a double click
  desktop().click(50, 30);
  EXPECT_EQ(raised, before);
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace corvane

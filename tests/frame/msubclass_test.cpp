// SPDX-License-Identifier: MIT
#include <corvane/frame/msubclass.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <corvane/frame/subclass.h>
#include "frame/subclass_support.h"
#include <corvane/host/picture_box.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/class_registry.h>
#include "support/desktop_fixture.h"

namespace corvane {

namespace {

using test::RecordedMessage;
using test::RecordingWindow;
using Props = std::map<std::string, int32_t>;

// A client that writes its name into a shared log when called and returns a fixed result.
class RecordingClient : public ISubclass {
 public:
  RecordingClient(std::string name, std::vector<std::string>& log, int32_t result = 0,
                  EMsgResponse response = emrConsume)
      : m_name(std::move(name)), m_log(log), m_result(result) {
    setMsgResponse(response);
  }
  int32_t WindowProc(int32_t hWnd, int32_t iMsg, int32_t wParam, int32_t lParam) override {
    m_log.push_back(m_name);
    calls.push_back({hWnd, iMsg, wParam, lParam});
    currentMessages.push_back(MSubclass::CurrentMessage());
    int32_t result = m_result;
    if (onCall) {
      auto f = onCall;  // the call may end this object
      f();
    }
    return result;
  }
  std::vector<RecordedMessage> calls;
  std::vector<int32_t> currentMessages;
  std::function<void()> onCall;

 private:
  std::string m_name;
  std::vector<std::string>& m_log;
  int32_t m_result;
};

class MSubclassTest : public test::DesktopTest {
 protected:
  Props props(HWND h) {
    const DesktopWindow* w = desktop().windows().window(h);
    return w ? w->props : Props{};
  }
  // Makes the previous procedure of a recording window write "old" into the log.
  void logOld(RecordingWindow& w) {
    w.onMessage = [this](const RecordedMessage&) { log.push_back("old"); };
  }
  template <class F>
  std::optional<RuntimeError> raised(F f) {
    try {
      f();
    } catch (const RuntimeError& e) {
      return e;
    }
    return std::nullopt;
  }
  std::string key(HWND h) { return std::to_string(h); }
  std::vector<std::string> log;
};

// ---- keys and properties ----

TEST_F(MSubclassTest, KeysAreDecimalTextWithoutBlanks) {
  EXPECT_EQ(MSubclass::AttachCountKey(65538), "65538C");
  EXPECT_EQ(MSubclass::OldWindowProcKey(65538), "65538");
  EXPECT_EQ(MSubclass::MsgCountKey(65538, 513), "65538#513C");
  EXPECT_EQ(MSubclass::MsgClientKey(65538, 513, 2), "65538#513#2");
  EXPECT_EQ(MSubclass::MsgClientKey(-7, 2, 10), "-7#2#10");
}

TEST_F(MSubclassTest, PropertySetToZeroIsRemovedAtOnce) {
  RecordingWindow w;
  EXPECT_TRUE(subclassing::setWindowProp(w.hWnd, "k", 5));
  EXPECT_EQ(props(w.hWnd), (Props{{"k", 5}}));
  EXPECT_TRUE(subclassing::setWindowProp(w.hWnd, "k", 0));
  EXPECT_TRUE(props(w.hWnd).empty());
  MSubclass::setMsgCount(w.hWnd, 5, 3);
  EXPECT_TRUE(MSubclass::LastSetPropResult());
  EXPECT_EQ(MSubclass::MsgCount(w.hWnd, 5), 3);
  MSubclass::setMsgCount(w.hWnd, 5, 0);
  EXPECT_TRUE(props(w.hWnd).empty());
  MSubclass::setAttachCount(12345, 1);  // no such window
  EXPECT_FALSE(MSubclass::LastSetPropResult());
}

// ---- AttachMessage ----

TEST_F(MSubclassTest, FirstAttachmentHooksTheWindowAndWritesTheKeys) {
  RecordingWindow w;
  RecordingClient c("c", log);
  MSubclass::AttachMessage(c, w.hWnd, wm::USER);
  EXPECT_EQ(w.currentProc(), MSubclass::WindowProcAddress());
  std::string h = key(w.hWnd);
  EXPECT_EQ(props(w.hWnd),
            (Props{{h + "C", 1}, {h, w.proc}, {h + "#1024C", 1}, {h + "#1024#1", c.objectId()}}));
}

TEST_F(MSubclassTest, FurtherAttachmentsCountUpAndKeepTheFirstHook) {
  RecordingWindow w;
  RecordingClient a("a", log), b("b", log);
  MSubclass::AttachMessage(a, w.hWnd, wm::USER);
  MSubclass::AttachMessage(b, w.hWnd, wm::USER);
  MSubclass::AttachMessage(a, w.hWnd, wm::USER + 1);
  std::string h = key(w.hWnd);
  EXPECT_EQ(props(w.hWnd), (Props{{h + "C", 3},
                                  {h, w.proc},
                                  {h + "#1024C", 2},
                                  {h + "#1024#1", a.objectId()},
                                  {h + "#1024#2", b.objectId()},
                                  {h + "#1025C", 1},
                                  {h + "#1025#1", a.objectId()}}));
  EXPECT_EQ(w.currentProc(), MSubclass::WindowProcAddress());
}

TEST_F(MSubclassTest, AttachingTwiceRaises13082AndTheFirstRegistrationStays) {
  RecordingWindow w;
  RecordingClient c("c", log, 5);
  MSubclass::AttachMessage(c, w.hWnd, wm::USER);
  Props before = props(w.hWnd);
  auto e = raised([&] { MSubclass::AttachMessage(c, w.hWnd, wm::USER); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->number(), static_cast<int32_t>(0x80040000 | 13082));
  EXPECT_EQ(MSubclass::ErrorCode(e->number()), 13082);
  EXPECT_EQ(e->description(), "Message already handled by another class");
  EXPECT_EQ(e->source(), App::instance().Title() + ".WindowProc");
  EXPECT_EQ(props(w.hWnd), before);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 5);
  EXPECT_EQ(log, (std::vector<std::string>{"c"}));
}

TEST_F(MSubclassTest, InvalidWindowRaises13083) {
  RecordingClient c("c", log);
  auto e = raised([&] { MSubclass::AttachMessage(c, 0x7FFF0000, wm::USER); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->number(), static_cast<int32_t>(0x80040000 | 13083));
  EXPECT_EQ(MSubclass::ErrorCode(e->number()), 13083);
  EXPECT_EQ(e->description(), "Invalid window");
  EXPECT_EQ(e->source(), App::instance().Title() + ".WindowProc");

  HWND gone;
  {
    RecordingWindow w;
    gone = w.hWnd;
  }
  e = raised([&] { MSubclass::AttachMessage(c, gone, wm::USER); });
  ASSERT_TRUE(e);
  EXPECT_EQ(MSubclass::ErrorCode(e->number()), 13083);
}

TEST_F(MSubclassTest, WindowOfAnotherProcessRaises13084AndIsLeftAlone) {
  RecordingWindow w;
  desktop().windows().setWindowProcess(w.hWnd, user().GetCurrentProcessId() + 1);
  RecordingClient c("c", log);
  auto e = raised([&] { MSubclass::AttachMessage(c, w.hWnd, wm::USER); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->number(), static_cast<int32_t>(0x80040000 | 13084));
  EXPECT_EQ(MSubclass::ErrorCode(e->number()), 13084);
  EXPECT_EQ(e->description(), "Can't modify external window");
  EXPECT_EQ(e->source(), App::instance().Title() + ".WindowProc");
  EXPECT_TRUE(props(w.hWnd).empty());
  EXPECT_EQ(w.currentProc(), w.proc);
}

TEST_F(MSubclassTest, WindowWhoseProcedureCannotBeReplacedRaises13081AndTakesTheClientBack) {
  // A window without a procedure: SetWindowLongA reports no previous procedure (0).
  HWND h = user().CreateWindowExA(0, "Bare", "", WS_VISIBLE, 0, 0, 10, 10, 0, 0);
  RecordingClient c("c", log);
  auto e = raised([&] { MSubclass::AttachMessage(c, h, wm::USER); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->number(), static_cast<int32_t>(0x80040000 | 13081));
  EXPECT_EQ(MSubclass::ErrorCode(e->number()), 13081);
  EXPECT_EQ(e->description(), "Can't subclass window");
  EXPECT_EQ(e->source(), App::instance().Title() + ".WindowProc");
  EXPECT_TRUE(props(h).empty());
  // Without a previous procedure on record the hooked window's messages go nowhere.
  EXPECT_EQ(user().SendMessageA(h, wm::USER, 0, 0), 0);
  EXPECT_TRUE(log.empty());
  user().DestroyWindow(h);
}

TEST_F(MSubclassTest, RaiseRoutineGivesTheLibraryCodesTheirBaseAndSource) {
  App::instance().setTitle("Hostprogramm");
  auto e = raised([] { MSubclass::ErrRaise(13081); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->number(), static_cast<int32_t>(0x80043319));
  EXPECT_EQ(e->source(), "Hostprogramm.WindowProc");
  App::instance().setTitle("");

  e = raised([] { MSubclass::ErrRaise(5); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->number(), 5);
  EXPECT_EQ(e->source(), "");
  EXPECT_EQ(e->description(), RuntimeError::standardDescription(5));

  EXPECT_EQ(MSubclass::ErrorCode(5), 5);
  EXPECT_EQ(MSubclass::ErrorCode(static_cast<int32_t>(0x80040000 | 13084)), 13084);
  EXPECT_EQ(MSubclass::ErrorDescription(13082), "Message already handled by another class");
  EXPECT_EQ(MSubclass::ErrorDescription(5), "");
}

// ---- AttachMessage: rollback after a failed property or procedure write ----

class MSubclassFaultTest : public MSubclassTest {
 protected:
  void SetUp() override {
    MSubclassTest::SetUp();
    faulty = std::make_unique<test::FaultyPlatform>(desktop());
    setPlatform(faulty.get());
  }
  void TearDown() override {
    setPlatform(&desktop());
    MSubclassTest::TearDown();
    faulty.reset();
  }
  void failKey(const std::string& k) {
    faulty->faults().failSetProp = [k](HWND, const std::string& name, int32_t) { return name == k; };
  }
  void expectPlainFive(const std::optional<RuntimeError>& e) {
    ASSERT_TRUE(e);
    EXPECT_EQ(e->number(), 5);
    EXPECT_EQ(e->source(), "");
  }
  std::unique_ptr<test::FaultyPlatform> faulty;
};

TEST_F(MSubclassFaultTest, FailedClientCountRaisesFiveAndWritesNothing) {
  RecordingWindow w;
  RecordingClient c("c", log);
  failKey(MSubclass::MsgCountKey(w.hWnd, wm::USER));
  expectPlainFive(raised([&] { MSubclass::AttachMessage(c, w.hWnd, wm::USER); }));
  EXPECT_TRUE(props(w.hWnd).empty());
  EXPECT_EQ(w.currentProc(), w.proc);
}

TEST_F(MSubclassFaultTest, FailedClientEntryTakesTheCountBack) {
  RecordingWindow w;
  RecordingClient a("a", log), b("b", log);
  MSubclass::AttachMessage(a, w.hWnd, wm::USER);
  Props before = props(w.hWnd);
  failKey(MSubclass::MsgClientKey(w.hWnd, wm::USER, 2));
  expectPlainFive(raised([&] { MSubclass::AttachMessage(b, w.hWnd, wm::USER); }));
  EXPECT_EQ(props(w.hWnd), before);
  EXPECT_EQ(MSubclass::MsgCount(w.hWnd, wm::USER), 1);

  RecordingWindow fresh;
  failKey(MSubclass::MsgClientKey(fresh.hWnd, wm::USER, 1));
  expectPlainFive(raised([&] { MSubclass::AttachMessage(a, fresh.hWnd, wm::USER); }));
  EXPECT_TRUE(props(fresh.hWnd).empty());
}

TEST_F(MSubclassFaultTest, FailedProcedureReplacementRaises13081AndLeavesTheWindowAsItWas) {
  RecordingWindow w;
  RecordingClient c("c", log);
  faulty->faults().failSetWindowLong = [](HWND, int32_t index, int32_t) { return index == GWL_WNDPROC; };
  auto e = raised([&] { MSubclass::AttachMessage(c, w.hWnd, wm::USER); });
  ASSERT_TRUE(e);
  EXPECT_EQ(MSubclass::ErrorCode(e->number()), 13081);
  EXPECT_EQ(e->description(), "Can't subclass window");
  EXPECT_TRUE(props(w.hWnd).empty());
  EXPECT_EQ(w.currentProc(), w.proc);
}

TEST_F(MSubclassFaultTest, FailedOldProcedureKeyRestoresTheProcedureAndTakesTheClientBack) {
  RecordingWindow w;
  RecordingClient c("c", log);
  failKey(MSubclass::OldWindowProcKey(w.hWnd));
  expectPlainFive(raised([&] { MSubclass::AttachMessage(c, w.hWnd, wm::USER); }));
  EXPECT_TRUE(props(w.hWnd).empty());
  EXPECT_EQ(w.currentProc(), w.proc);
}

TEST_F(MSubclassFaultTest, FailedFirstAttachmentCountUndoesTheHookToo) {
  RecordingWindow w;
  RecordingClient c("c", log);
  failKey(MSubclass::AttachCountKey(w.hWnd));
  expectPlainFive(raised([&] { MSubclass::AttachMessage(c, w.hWnd, wm::USER); }));
  EXPECT_TRUE(props(w.hWnd).empty());
  EXPECT_EQ(w.currentProc(), w.proc);
}

TEST_F(MSubclassFaultTest, FailedLaterAttachmentCountKeepsTheEarlierHook) {
  RecordingWindow w;
  RecordingClient a("a", log), b("b", log);
  MSubclass::AttachMessage(a, w.hWnd, wm::USER);
  Props before = props(w.hWnd);
  failKey(MSubclass::AttachCountKey(w.hWnd));
  expectPlainFive(raised([&] { MSubclass::AttachMessage(b, w.hWnd, wm::USER + 1); }));
  EXPECT_EQ(props(w.hWnd), before);
  EXPECT_EQ(w.currentProc(), MSubclass::WindowProcAddress());
  faulty->faults().failSetProp = nullptr;
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 0);
  EXPECT_EQ(log, (std::vector<std::string>{"a"}));
}

// ---- the window procedure ----

TEST_F(MSubclassTest, TwoClientsAreBothCalledTheFirstAttachedLastAndItsResultWins) {
  RecordingWindow w;
  logOld(w);
  RecordingClient first("first", log, 111), second("second", log, 222);
  MSubclass::AttachMessage(first, w.hWnd, wm::USER);
  MSubclass::AttachMessage(second, w.hWnd, wm::USER);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 3, 4), 111);
  EXPECT_EQ(log, (std::vector<std::string>{"second", "first"}));  // consume: the old one never runs
  EXPECT_EQ(first.calls, (std::vector<RecordedMessage>{{w.hWnd, wm::USER, 3, 4}}));
  EXPECT_EQ(second.calls, first.calls);
}

TEST_F(MSubclassTest, PreprocessRunsThePreviousProcedureJustBeforeTheFirstAttachedClient) {
  RecordingWindow w;
  logOld(w);
  RecordingClient first("first", log, 111, emrPreprocess), second("second", log, 222);
  MSubclass::AttachMessage(first, w.hWnd, wm::USER);
  MSubclass::AttachMessage(second, w.hWnd, wm::USER);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 111);
  EXPECT_EQ(log, (std::vector<std::string>{"second", "old", "first"}));
}

TEST_F(MSubclassTest, PostProcessRunsThePreviousProcedureAfterTheClientsAndReturnsItsResult) {
  RecordingWindow w;
  logOld(w);
  w.result = 999;
  RecordingClient first("first", log, 111, emrPostProcess), second("second", log, 222);
  MSubclass::AttachMessage(first, w.hWnd, wm::USER);
  MSubclass::AttachMessage(second, w.hWnd, wm::USER);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 999);
  EXPECT_EQ(log, (std::vector<std::string>{"second", "first", "old"}));
}

TEST_F(MSubclassTest, OnlyTheFirstAttachedClientsResponseCounts) {
  RecordingWindow w;
  logOld(w);
  RecordingClient first("first", log, 111, emrConsume), second("second", log, 222, emrPreprocess);
  RecordingClient third("third", log, 333, emrPostProcess);
  MSubclass::AttachMessage(first, w.hWnd, wm::USER);
  MSubclass::AttachMessage(second, w.hWnd, wm::USER);
  MSubclass::AttachMessage(third, w.hWnd, wm::USER);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 111);
  EXPECT_EQ(log, (std::vector<std::string>{"third", "second", "first"}));
}

TEST_F(MSubclassTest, PreprocessIsReadBeforeTheClientsCallAndPostProcessAfterIt) {
  RecordingWindow w;
  logOld(w);
  w.result = 999;
  // Switches from pre-processing to post-processing during its own call: the old procedure runs
  // once, before, and the post-processing read afterwards finds it already called.
  RecordingClient a("a", log, 1, emrPreprocess);
  a.onCall = [&] { a.setMsgResponse(emrPostProcess); };
  MSubclass::AttachMessage(a, w.hWnd, wm::USER);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 1);
  EXPECT_EQ(log, (std::vector<std::string>{"old", "a"}));

  // Switches from consuming to post-processing during its call: the old procedure runs after it.
  log.clear();
  RecordingClient b("b", log, 2, emrConsume);
  b.onCall = [&] { b.setMsgResponse(emrPostProcess); };
  MSubclass::AttachMessage(b, w.hWnd, wm::USER + 1);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER + 1, 0, 0), 999);
  EXPECT_EQ(log, (std::vector<std::string>{"b", "old"}));
}

TEST_F(MSubclassTest, CurrentMessageIsSetBeforeEachClientCall) {
  RecordingWindow w;
  RecordingClient a("a", log), b("b", log);
  MSubclass::AttachMessage(a, w.hWnd, wm::USER + 3);
  MSubclass::AttachMessage(b, w.hWnd, wm::USER + 4);
  user().SendMessageA(w.hWnd, wm::USER + 3, 0, 0);
  user().SendMessageA(w.hWnd, wm::USER + 4, 0, 0);
  EXPECT_EQ(a.currentMessages, (std::vector<int32_t>{wm::USER + 3}));
  EXPECT_EQ(b.currentMessages, (std::vector<int32_t>{wm::USER + 4}));
  EXPECT_EQ(MSubclass::CurrentMessage(), wm::USER + 4);
}

TEST_F(MSubclassTest, MessagesWithoutClientsGoToThePreviousProcedureUnchanged) {
  RecordingWindow w;
  RecordingClient c("c", log);
  MSubclass::AttachMessage(c, w.hWnd, wm::USER);
  w.messages.clear();
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER + 1, 7, 8), 77);
  EXPECT_EQ(w.messages, (std::vector<RecordedMessage>{{w.hWnd, wm::USER + 1, 7, 8}}));
  EXPECT_TRUE(log.empty());
}

TEST_F(MSubclassTest, WindowWithoutAPreviousProcedureOnRecordLosesItsMessages) {
  RecordingWindow w;
  RecordingClient c("c", log);
  MSubclass::AttachMessage(c, w.hWnd, wm::USER);
  user().RemovePropA(w.hWnd, MSubclass::OldWindowProcKey(w.hWnd));
  w.messages.clear();
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 0);
  EXPECT_TRUE(log.empty());
  EXPECT_TRUE(w.messages.empty());
}

TEST_F(MSubclassTest, ClientThatIsGoneCountsAsNoneAndTheMessageIsLost) {
  RecordingWindow w;
  logOld(w);
  auto c = std::make_shared<RecordingClient>("c", log, 5, emrPostProcess);
  MSubclass::AttachMessage(*c, w.hWnd, wm::USER);
  c.reset();  // released without detaching
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 0);
  EXPECT_TRUE(log.empty());
}

TEST_F(MSubclassTest, ClientReleasedDuringItsOwnCallIsNotAskedForPostProcessing) {
  RecordingWindow w;
  logOld(w);
  auto c = std::make_shared<RecordingClient>("c", log, 5, emrPostProcess);
  HWND h = w.hWnd;
  c->onCall = [&c, h] {
    MSubclass::DetachMessage(*c, h, wm::USER);
    c.reset();
  };
  MSubclass::AttachMessage(*c, w.hWnd, wm::USER);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 5);
  EXPECT_EQ(log, (std::vector<std::string>{"c"}));
  EXPECT_EQ(w.currentProc(), w.proc);
  EXPECT_TRUE(props(w.hWnd).empty());
}

TEST_F(MSubclassTest, MessageDuringAClientCallNests) {
  RecordingWindow w;
  logOld(w);
  RecordingClient outer("outer", log, 1), inner("inner", log, 2, emrPostProcess);
  int32_t nestedResult = 0;
  outer.onCall = [&] { nestedResult = user().SendMessageA(w.hWnd, wm::USER + 1, 0, 0); };
  MSubclass::AttachMessage(outer, w.hWnd, wm::USER);
  MSubclass::AttachMessage(inner, w.hWnd, wm::USER + 1);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 1);
  EXPECT_EQ(nestedResult, 77);
  EXPECT_EQ(log, (std::vector<std::string>{"outer", "inner", "old"}));
  EXPECT_EQ(MSubclass::CurrentMessage(), wm::USER + 1);  // the nested call set it last
}

// ---- WM_DESTROY ----

TEST_F(MSubclassTest, DestroyWithoutAClientUnhooksBeforeThePreviousProcedureRuns) {
  auto w = std::make_unique<RecordingWindow>();
  HWND h = w->hWnd;
  RecordingClient c("c", log);
  MSubclass::AttachMessage(c, h, wm::USER);
  MSubclass::AttachMessage(c, h, wm::USER + 1);
  bool sawDestroy = false;
  WNDPROC procAtDestroy = 0;
  Props propsAtDestroy;
  w->onMessage = [&](const RecordedMessage& m) {
    if (m.msg != wm::DESTROY) return;
    sawDestroy = true;
    procAtDestroy = user().GetWindowLongA(h, GWL_WNDPROC);
    propsAtDestroy = props(h);
  };
  user().DestroyWindow(h);
  ASSERT_TRUE(sawDestroy);
  EXPECT_EQ(procAtDestroy, w->proc);
  EXPECT_EQ(propsAtDestroy.count(key(h)), 0u);
  EXPECT_EQ(propsAtDestroy.count(key(h) + "C"), 0u);
  // The message keys are not the unhook's business.
  EXPECT_EQ(propsAtDestroy.at(key(h) + "#1024C"), 1);
  EXPECT_TRUE(log.empty());
}

TEST_F(MSubclassTest, DestroyWithAClientGoesToTheClientAndKeepsTheHook) {
  auto w = std::make_unique<RecordingWindow>();
  HWND h = w->hWnd;
  RecordingClient c("c", log, 0, emrPostProcess);
  MSubclass::AttachMessage(c, h, wm::DESTROY);
  WNDPROC procAtDestroy = 0;
  w->onMessage = [&](const RecordedMessage& m) {
    log.push_back("old");
    if (m.msg == wm::DESTROY) procAtDestroy = user().GetWindowLongA(h, GWL_WNDPROC);
  };
  user().DestroyWindow(h);
  EXPECT_EQ(log, (std::vector<std::string>{"c", "old"}));
  EXPECT_EQ(procAtDestroy, MSubclass::WindowProcAddress());
}

TEST_F(MSubclassTest, UnhookAllRestoresTheProcedureAndClearsItsKeys) {
  RecordingWindow w;
  RecordingClient c("c", log);
  MSubclass::AttachMessage(c, w.hWnd, wm::USER);
  MSubclass::UnhookAll(w.hWnd);
  EXPECT_EQ(w.currentProc(), w.proc);
  std::string h = key(w.hWnd);
  EXPECT_EQ(props(w.hWnd), (Props{{h + "#1024C", 1}, {h + "#1024#1", c.objectId()}}));
  MSubclass::UnhookAll(w.hWnd);  // nothing attached any more: nothing happens
  EXPECT_EQ(w.currentProc(), w.proc);
}

// ---- DetachMessage ----

TEST_F(MSubclassTest, DetachMovesTheFollowingClientsDown) {
  RecordingWindow w;
  RecordingClient a("a", log), b("b", log), c("c", log);
  MSubclass::AttachMessage(a, w.hWnd, wm::USER);
  MSubclass::AttachMessage(b, w.hWnd, wm::USER);
  MSubclass::AttachMessage(c, w.hWnd, wm::USER);
  MSubclass::DetachMessage(b, w.hWnd, wm::USER);
  std::string h = key(w.hWnd);
  EXPECT_EQ(props(w.hWnd), (Props{{h + "C", 2},
                                  {h, w.proc},
                                  {h + "#1024C", 2},
                                  {h + "#1024#1", a.objectId()},
                                  {h + "#1024#2", c.objectId()}}));
  user().SendMessageA(w.hWnd, wm::USER, 0, 0);
  EXPECT_EQ(log, (std::vector<std::string>{"c", "a"}));
}

TEST_F(MSubclassTest, DetachOfTheLastAttachmentUnhooksAndLeavesNoKey) {
  RecordingWindow w;
  RecordingClient a("a", log), b("b", log);
  MSubclass::AttachMessage(a, w.hWnd, wm::USER);
  MSubclass::AttachMessage(b, w.hWnd, wm::USER + 1);
  MSubclass::DetachMessage(a, w.hWnd, wm::USER);
  EXPECT_EQ(w.currentProc(), MSubclass::WindowProcAddress());
  MSubclass::DetachMessage(b, w.hWnd, wm::USER + 1);
  EXPECT_EQ(w.currentProc(), w.proc);
  EXPECT_TRUE(props(w.hWnd).empty());
  w.messages.clear();
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 1, 1), 77);
  EXPECT_TRUE(log.empty());
}

TEST_F(MSubclassTest, DetachReturnsQuietlyWhereThereIsNothingToDo) {
  RecordingWindow w;
  RecordingClient a("a", log), stranger("s", log);
  MSubclass::AttachMessage(a, w.hWnd, wm::USER);
  Props before = props(w.hWnd);
  EXPECT_NO_THROW(MSubclass::DetachMessage(a, 0x7FFF0000, wm::USER));     // no window
  EXPECT_NO_THROW(MSubclass::DetachMessage(a, w.hWnd, wm::USER + 1));     // no client for the message
  EXPECT_NO_THROW(MSubclass::DetachMessage(stranger, w.hWnd, wm::USER));  // not a client
  EXPECT_EQ(props(w.hWnd), before);
  desktop().windows().setWindowProcess(w.hWnd, user().GetCurrentProcessId() + 1);
  EXPECT_NO_THROW(MSubclass::DetachMessage(a, w.hWnd, wm::USER));  // another process's window
  EXPECT_EQ(props(w.hWnd), before);
  desktop().windows().setWindowProcess(w.hWnd, user().GetCurrentProcessId());
}

TEST_F(MSubclassTest, ClientCanAttachAgainAfterDetaching) {
  RecordingWindow w;
  RecordingClient a("a", log, 4);
  MSubclass::AttachMessage(a, w.hWnd, wm::USER);
  MSubclass::DetachMessage(a, w.hWnd, wm::USER);
  MSubclass::AttachMessage(a, w.hWnd, wm::USER);
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 4);
}

// ---- the two mechanisms on one window ----

TEST_F(MSubclassTest, ClientsSitInFrontOfAnOwnerHook) {
  RecordingWindow w;
  logOld(w);
  clsSubClass owner;
  owner.NewMessage.connect([&](int32_t, int32_t&, int32_t&, int32_t&, bool&) { log.push_back("owner"); });
  ASSERT_TRUE(owner.SubClassHwnd(w.hWnd, true));
  RecordingClient c("c", log, 0, emrPostProcess);
  MSubclass::AttachMessage(c, w.hWnd, wm::USER);
  EXPECT_EQ(MSubclass::OldWindowProc(w.hWnd), bSubClass::WindowProcAddress());
  EXPECT_EQ(user().SendMessageA(w.hWnd, wm::USER, 0, 0), 77);
  EXPECT_EQ(log, (std::vector<std::string>{"c", "owner", "old"}));
  MSubclass::DetachMessage(c, w.hWnd, wm::USER);
  EXPECT_EQ(w.currentProc(), bSubClass::WindowProcAddress());
  ASSERT_TRUE(owner.SubClassHwnd(w.hWnd, false));
  EXPECT_EQ(w.currentProc(), w.proc);
}

// ---- the interface class ----

TEST_F(MSubclassTest, PlainInterfaceClassReturnsZeroAndKeepsItsResponse) {
  ObjectRef o = ClassRegistry::instance().create("ISubclass");
  auto client = std::dynamic_pointer_cast<ISubclass>(o);
  ASSERT_NE(client, nullptr);
  EXPECT_EQ(client->MsgResponse(), emrConsume);
  EXPECT_EQ(client->WindowProc(1, 2, 3, 4), 0);
  o->let("MsgResponse", Variant(int32_t{2}));
  EXPECT_EQ(client->MsgResponse(), emrPreprocess);
  EXPECT_EQ(o->get("MsgResponse").toLong(), 2);
  EXPECT_EQ(o->call("WindowProc", {Variant(1), Variant(2), Variant(3), Variant(4)}).toLong(), 0);
  EXPECT_NE(std::dynamic_pointer_cast<ISubclass>(
                ClassRegistry::instance().createById("284F12D9-F6EA-41CC-AA4D-15AA715912FD")),
            nullptr);
  EXPECT_EQ(emrConsume, 0);
  EXPECT_EQ(emrPostProcess, 1);
  EXPECT_EQ(emrPreprocess, 2);
}

// ---- real input through the clients ----

TEST_F(MSubclassTest, MouseInputReachesTheClientsInOrder) {
  RecordingWindow w(100, 100, 200, 150);
  logOld(w);
  RecordingClient first("first", log, 0, emrPostProcess), second("second", log);
  MSubclass::AttachMessage(first, w.hWnd, wm::MOUSEMOVE);
  MSubclass::AttachMessage(second, w.hWnd, wm::MOUSEMOVE);
  w.messages.clear();
  desktop().mouseMove(130, 140);
  EXPECT_EQ(log, (std::vector<std::string>{"second", "first", "old"}));
  ASSERT_EQ(first.calls.size(), 1u);
  EXPECT_EQ(first.calls[0].msg, wm::MOUSEMOVE);
  EXPECT_EQ(first.calls[0].lParam, makePointParam(30, 40));
  EXPECT_EQ(w.of(wm::MOUSEMOVE).size(), 1u);
}

TEST_F(MSubclassTest, ConsumedButtonPressNeverReachesThePictureBox) {
  test::PictureScene scene;
  auto& pic = scene.pic;
  int downs = 0, clicks = 0, dblClicks = 0;
  pic->surface().MouseDown.connect([&](int16_t&, int16_t&, float&, float&) { ++downs; });
  pic->surface().Click.connect([&] { ++clicks; });
  pic->surface().DblClick.connect([&] { ++dblClicks; });

  RecordingClient eat("eat", log, 0, emrConsume);
  MSubclass::AttachMessage(eat, pic->surface().hWnd(), wm::LBUTTONDOWN);
  desktop().click(50, 30);
  EXPECT_EQ(log, (std::vector<std::string>{"eat"}));
  EXPECT_EQ(downs, 0);
  EXPECT_EQ(clicks, 0);

  // A post-processing client lets the picture box have the press after it.
  log.clear();
  eat.setMsgResponse(emrPostProcess);
  desktop().advance(1000);
  desktop().click(50, 30);
  EXPECT_EQ(downs, 1);
  EXPECT_EQ(clicks, 1);

  RecordingClient dbl("dbl", log, 0, emrPreprocess);
  MSubclass::AttachMessage(dbl, pic->surface().hWnd(), wm::LBUTTONDBLCLK);
  log.clear();
  desktop().advance(1000);
  desktop().doubleClick(50, 30);
  EXPECT_EQ(log, (std::vector<std::string>{"eat", "dbl"}));
  EXPECT_EQ(dblClicks, 1);

  MSubclass::DetachMessage(eat, pic->surface().hWnd(), wm::LBUTTONDOWN);
  MSubclass::DetachMessage(dbl, pic->surface().hWnd(), wm::LBUTTONDBLCLK);
  EXPECT_TRUE(props(pic->surface().hWnd()).empty());
}

}  // namespace
}  // namespace corvane

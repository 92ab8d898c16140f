// SPDX-License-Identifier: MIT
#include <corvane/runtime/event.h>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include <corvane/runtime/runtime_error.h>

using namespace corvane;

TEST(Event, HandlersRunInConnectionOrder) {
  Event<int> e;
  std::string trace;
  e.connect([&](int v) { trace += "a" + std::to_string(v); });
  e.connect([&](int v) { trace += "b" + std::to_string(v); });
  e(1);
  EXPECT_EQ(trace, "a1b1");
  EXPECT_TRUE(e.connected());
}

TEST(Event, RaisingWithoutHandlersDoesNothing) {
  Event<> e;
  EXPECT_FALSE(e.connected());
  e();
  EXPECT_FALSE(e.connected());
}

TEST(Event, ByReferenceArgumentChangedByAHandlerIsSeenByTheRaiser) {
  Event<int16_t&, float&> keyPress;
  keyPress.connect([](int16_t& keyAscii, float& x) {
    keyAscii = 0;
    x += 1.5f;
  });
  int16_t key = 65;
  float x = 10;
  keyPress(key, x);
  EXPECT_EQ(key, 0);
  EXPECT_EQ(x, 11.5f);
}

TEST(Event, EachHandlerSeesTheChangesOfTheOnesBefore) {
  Event<int&> e;
  e.connect([](int& v) { v *= 2; });
  e.connect([](int& v) { v += 1; });
  int v = 5;
  e(v);
  EXPECT_EQ(v, 11);
}

TEST(Event, DisconnectStopsAHandler) {
  Event<> e;
  int a = 0, b = 0;
  int ida = e.connect([&] { ++a; });
  e.connect([&] { ++b; });
  e.disconnect(ida);
  e();
  EXPECT_EQ(a, 0);
  EXPECT_EQ(b, 1);
  e.disconnect(ida);  // twice is harmless
  e.disconnect(12345);
  e();
  EXPECT_EQ(b, 2);
}

TEST(Event, HandlerDisconnectingItselfRunsOnce) {
  Event<> e;
  int calls = 0, other = 0;
  int id = 0;
  id = e.connect([&] {
    ++calls;
    e.disconnect(id);
  });
  e.connect([&] { ++other; });
  e();
  e();
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(other, 2);
}

TEST(Event, HandlerDisconnectedDuringARaiseIsNotCalledLaterInIt) {
  Event<> e;
  int second = 0;
  int secondId = 0;
  e.connect([&] { e.disconnect(secondId); });
  secondId = e.connect([&] { ++second; });
  e();
  EXPECT_EQ(second, 0);
  EXPECT_TRUE(e.connected());
}

TEST(Event, HandlerConnectedDuringARaiseRunsFromTheNextRaise) {
  Event<> e;
  int late = 0;
  bool added = false;
  e.connect([&] {
    if (!added) {
      added = true;
      e.connect([&] { ++late; });
    }
  });
  e();
  EXPECT_EQ(late, 0);
  e();
  EXPECT_EQ(late, 1);
}

TEST(Event, NestedRaiseReachesAllHandlers) {
  Event<int> e;
  std::string trace;
  e.connect([&](int depth) {
    trace += "a" + std::to_string(depth);
    if (depth == 0) e(1);
  });
  e.connect([&](int depth) { trace += "b" + std::to_string(depth); });
  e(0);
  EXPECT_EQ(trace, "a0a1b1b0");
}

TEST(Event, OwnerDestroyedInsideAHandler) {
  struct Owner {
    Event<> Click;
  };
  auto owner = std::make_unique<Owner>();
  int after = 0;
  owner->Click.connect([&] { owner.reset(); });
  owner->Click.connect([&] { ++after; });
  owner->Click();
  EXPECT_EQ(owner, nullptr);
  EXPECT_EQ(after, 1);
}

TEST(Event, AnErrorFromAHandlerReachesTheRaiserAndTheEventStaysUsable) {
  Event<> e;
  int calls = 0;
  int id = e.connect([&] {
    ++calls;
    throw RuntimeError(5);
  });
  EXPECT_THROW(e(), RuntimeError);
  e.disconnect(id);
  EXPECT_FALSE(e.connected());
  e.connect([&] { ++calls; });
  e();
  EXPECT_EQ(calls, 2);
}

TEST(Event, ClearDisconnectsAll) {
  Event<> e;
  int calls = 0;
  e.connect([&] { ++calls; });
  e.connect([&] { ++calls; });
  e.clear();
  EXPECT_FALSE(e.connected());
  e();
  EXPECT_EQ(calls, 0);
}

TEST(Event, ConnectionIdsAreDistinct) {
  Event<> e;
  int a = e.connect([] {});
  int b = e.connect([] {});
  EXPECT_NE(a, b);
}

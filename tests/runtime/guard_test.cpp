// SPDX-License-Identifier: MIT
#include <corvane/runtime/guard.h>

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

#include <corvane/runtime/checked.h>
#include <corvane/runtime/vb_array.h>

using namespace corvane;

TEST(Guarded, SwallowsARuntimeErrorAndReportsIt) {
  int after = 0;
  EXPECT_FALSE(guarded([] { add16(32767, 1); }));
  EXPECT_TRUE(guarded([&] { after = 1; }));
  EXPECT_EQ(after, 1);
}

TEST(Guarded, AFailedStatementLeavesItsTargetAsItWas) {
  int16_t width = 10;
  guarded([&] { width = mul16(width, 5000); });
  EXPECT_EQ(width, 10);
}

TEST(Guarded, LetsOtherExceptionsPass) {
  EXPECT_THROW(guarded([] { throw std::logic_error("bug"); }), std::logic_error);
  EXPECT_THROW(guarded([] { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST(StatementGuard, RunsEveryStatementAndCountsFailures) {
  StatementGuard g;
  std::string trace;
  VbArray<int> parts(1, 2);
  g([&] { trace += "a"; });
  g([&] {
    parts(3) = 1;
    trace += "x";
  });  // subscript out of range: the rest of it is skipped
  g([&] { trace += "b"; });
  g([&] { intDiv(1, 0); });
  g([&] { trace += "c"; });
  EXPECT_EQ(trace, "abc");
  EXPECT_EQ(g.failures(), 2);
  ASSERT_TRUE(g.lastError().has_value());
  EXPECT_EQ(g.lastError()->number(), 11);
  EXPECT_EQ(g.lastErrorNumber(), 11);
}

TEST(StatementGuard, StartsCleanAndClears) {
  StatementGuard g;
  EXPECT_EQ(g.failures(), 0);
  EXPECT_EQ(g.lastErrorNumber(), 0);
  EXPECT_TRUE(g([] {}));
  EXPECT_FALSE(g([] { throw RuntimeError(380); }));
  g.clear();
  EXPECT_EQ(g.failures(), 0);
  EXPECT_FALSE(g.lastError().has_value());
}

TEST(StatementGuard, LetsOtherExceptionsPass) {
  StatementGuard g;
  EXPECT_THROW(g([] { throw std::out_of_range("bug"); }), std::out_of_range);
  EXPECT_EQ(g.failures(), 0);
}

TEST(TryOr, ReturnsTheValueOrTheFallback) {
  EXPECT_EQ(tryOr([] { return CInt(12.0); }, 0), 12);
  EXPECT_EQ(tryOr([] { return CInt(40000.0); }, -1), -1);
  EXPECT_EQ(tryOr([]() -> std::string { throw RuntimeError(13); }, "default"), "default");
  EXPECT_THROW(tryOr([]() -> int { throw std::logic_error("bug"); }, 0), std::logic_error);
}

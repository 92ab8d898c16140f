// SPDX-License-Identifier: MIT
#include <corvane/runtime/vb_array.h>

#include <gtest/gtest.h>

#include <string>

#include "runtime/expect_error.h"

using namespace corvane;

TEST(VbArray, StartsEmptyWithoutBounds) {
  VbArray<int> a;
  EXPECT_TRUE(a.empty());
  EXPECT_EQ(a.size(), 0u);
  EXPECT_RUNTIME_ERROR(a.lbound(), 9);
  EXPECT_RUNTIME_ERROR(a.ubound(), 9);
  EXPECT_RUNTIME_ERROR(a(0), 9);
  EXPECT_EQ(a.begin(), a.end());
}

TEST(VbArray, RedimGivesBoundsAndDefaultElements) {
  VbArray<int> a;
  a.redim(1, 3);
  EXPECT_FALSE(a.empty());
  EXPECT_EQ(a.lbound(), 1);
  EXPECT_EQ(a.ubound(), 3);
  EXPECT_EQ(a.size(), 3u);
  EXPECT_EQ(a(1), 0);
  EXPECT_EQ(a(3), 0);
  a(2) = 7;
  EXPECT_EQ(a.at(2), 7);
}

TEST(VbArray, AccessOutsideTheBoundsIsError9) {
  VbArray<int> a(1, 3);
  EXPECT_RUNTIME_ERROR(a(0), 9);
  EXPECT_RUNTIME_ERROR(a(4), 9);
  EXPECT_RUNTIME_ERROR(a.at(-1), 9);
  const VbArray<int>& c = a;
  EXPECT_RUNTIME_ERROR(c(4), 9);
  EXPECT_RUNTIME_ERROR(c.at(0), 9);
}

TEST(VbArray, NegativeAndSingleElementBounds) {
  VbArray<int> a(-2, 2);
  EXPECT_EQ(a.size(), 5u);
  a(-2) = 1;
  a(2) = 5;
  EXPECT_EQ(a(-2), 1);
  EXPECT_EQ(a(2), 5);
  VbArray<int> one(0, 0);
  EXPECT_EQ(one.size(), 1u);
  EXPECT_EQ(one.ubound(), 0);
}

TEST(VbArray, UpperBelowLowerIsError9) {
  VbArray<int> a;
  EXPECT_RUNTIME_ERROR(a.redim(3, 2), 9);
  EXPECT_TRUE(a.empty());
  a.redim(1, 2);
  EXPECT_RUNTIME_ERROR(a.redimPreserve(0), 9);
  EXPECT_EQ(a.ubound(), 2);
}

TEST(VbArray, RedimClearsTheElements) {
  VbArray<std::string> a(1, 2);
  a(1) = std::string("x");  // assigning a literal trips a false -Wrestrict of GCC 12 at -O3
  a.redim(1, 2);
  EXPECT_EQ(a(1), "");
}

TEST(VbArray, RedimPreserveKeepsTheContents) {
  VbArray<std::string> a(1, 2);
  a(1) = "one";
  a(2) = "two";
  a.redimPreserve(4);
  EXPECT_EQ(a.lbound(), 1);
  EXPECT_EQ(a.ubound(), 4);
  EXPECT_EQ(a(1), "one");
  EXPECT_EQ(a(2), "two");
  EXPECT_EQ(a(4), "");
  a.redimPreserve(1);
  EXPECT_EQ(a.size(), 1u);
  EXPECT_EQ(a(1), "one");
  EXPECT_RUNTIME_ERROR(a(2), 9);
}

TEST(VbArray, RedimPreserveOfAnEmptyArrayStartsAtZero) {
  VbArray<int> a;
  a.redimPreserve(2);
  EXPECT_EQ(a.lbound(), 0);
  EXPECT_EQ(a.ubound(), 2);
  VbArray<int> b;
  b.redimPreserve(1, 1);
  EXPECT_EQ(b.lbound(), 1);
}

TEST(VbArray, RedimPreserveCannotMoveTheLowerBound) {
  VbArray<int> a(1, 2);
  EXPECT_RUNTIME_ERROR(a.redimPreserve(0, 2), 9);
  a.redimPreserve(1, 3);
  EXPECT_EQ(a.ubound(), 3);
}

TEST(VbArray, EraseReturnsToTheEmptyState) {
  VbArray<int> a(1, 3);
  a.erase();
  EXPECT_TRUE(a.empty());
  EXPECT_RUNTIME_ERROR(a.ubound(), 9);
}

TEST(VbArray, BoolElementsAreReferences) {
  VbArray<bool> a(1, 2);
  bool& b = a(1);
  b = true;
  EXPECT_TRUE(a(1));
  EXPECT_FALSE(a(2));
}

TEST(VbArray, AssignmentCopiesTheElements) {
  VbArray<int> a(1, 2);
  a(1) = 5;
  VbArray<int> b = a;
  b(1) = 6;
  EXPECT_EQ(a(1), 5);
  EXPECT_EQ(b(1), 6);
  EXPECT_EQ(b.lbound(), 1);
  VbArray<int> c;
  c = a;
  EXPECT_EQ(c(1), 5);
  VbArray<int> empty;
  c = empty;
  EXPECT_TRUE(c.empty());
  VbArray<int> moved = std::move(a);
  EXPECT_EQ(moved(1), 5);
}

TEST(VbArray, IteratesFromLowerToUpper) {
  VbArray<int> a(3, 5);
  a(3) = 1;
  a(4) = 2;
  a(5) = 3;
  int sum = 0, first = 0;
  for (int v : a) {
    if (!first) first = v;
    sum += v;
  }
  EXPECT_EQ(first, 1);
  EXPECT_EQ(sum, 6);
}

// SPDX-License-Identifier: MIT
#include <corvane/runtime/checked.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "runtime/expect_error.h"

using namespace corvane;

TEST(Checked, SixteenBitSumsOverflowWithError6) {
  EXPECT_EQ(add16(32766, 1), 32767);
  EXPECT_RUNTIME_ERROR(add16(32767, 1), 6);
  EXPECT_RUNTIME_ERROR(add16(-32768, -1), 6);
  EXPECT_EQ(sub16(-32767, 1), -32768);
  EXPECT_RUNTIME_ERROR(sub16(-32768, 1), 6);
  EXPECT_RUNTIME_ERROR(sub16(0, -32768), 6);
  EXPECT_EQ(mul16(181, 181), 32761);
  EXPECT_RUNTIME_ERROR(mul16(256, 128), 6);
  EXPECT_RUNTIME_ERROR(mul16(-1, -32768), 6);
}

TEST(Checked, ThirtyTwoBitArithmeticOverflowsWithError6) {
  const int32_t max = std::numeric_limits<int32_t>::max(), min = std::numeric_limits<int32_t>::min();
  EXPECT_EQ(add32(max - 1, 1), max);
  EXPECT_RUNTIME_ERROR(add32(max, 1), 6);
  EXPECT_RUNTIME_ERROR(sub32(min, 1), 6);
  EXPECT_EQ(mul32(46340, 46340), 2147395600);
  EXPECT_RUNTIME_ERROR(mul32(46341, 46341), 6);
  EXPECT_RUNTIME_ERROR(mul32(65536, 32768), 6);
  EXPECT_EQ(mul32(-65536, 32768), min);
}

TEST(Checked, NegationOverflow) {
  EXPECT_EQ(neg16(32767), -32767);
  EXPECT_RUNTIME_ERROR(neg16(-32768), 6);
  EXPECT_EQ(neg32(5), -5);
  EXPECT_RUNTIME_ERROR(neg32(std::numeric_limits<int32_t>::min()), 6);
}

TEST(Checked, IntegerDivisionTruncates) {
  EXPECT_EQ(intDiv(7, 2), 3);
  EXPECT_EQ(intDiv(-7, 2), -3);
  EXPECT_EQ(intDiv(7, -2), -3);
  EXPECT_EQ(intDiv(1, 3), 0);
  EXPECT_EQ(intDiv(7.5, 2), 4);  // operands are rounded first: 8 \ 2
  EXPECT_EQ(intDiv(6.5, 2), 3);  // 6 \ 2
}

TEST(Checked, IntegerDivisionByZeroIsError11) {
  EXPECT_RUNTIME_ERROR(intDiv(1, 0), 11);
  EXPECT_RUNTIME_ERROR(intDiv(1, 0.4), 11);  // 0.4 rounds to 0
  EXPECT_RUNTIME_ERROR(intDiv(std::numeric_limits<int32_t>::min(), -1), 6);
  EXPECT_RUNTIME_ERROR(intDiv(3e9, 2), 6);
}

TEST(Checked, ModKeepsTheSignOfTheDividend) {
  EXPECT_EQ(mod32(7, 3), 1);
  EXPECT_EQ(mod32(-7, 3), -1);
  EXPECT_EQ(mod32(7, -3), 1);
  EXPECT_EQ(mod32(5.5, 2), 0);  // 6 Mod 2
  EXPECT_EQ(mod32(std::numeric_limits<int32_t>::min(), -1), 0);
  EXPECT_RUNTIME_ERROR(mod32(1, 0), 11);
}

TEST(Checked, FloatingDivisionByZero) {
  EXPECT_EQ(corvane::fdiv(1, 4), 0.25);  // qualified: the C library has an fdiv too
  EXPECT_RUNTIME_ERROR(corvane::fdiv(1, 0), 11);
  EXPECT_RUNTIME_ERROR(corvane::fdiv(0, 0), 6);
}

TEST(Checked, RoundingConversions) {
  EXPECT_EQ(CInt(2.5), 2);
  EXPECT_EQ(CInt(3.5), 4);
  EXPECT_EQ(CInt(-2.5), -2);
  EXPECT_RUNTIME_ERROR(CInt(32767.5), 6);
  EXPECT_EQ(CLng(-0.5), 0);
  EXPECT_EQ(CByte(254.5), 254);
  EXPECT_RUNTIME_ERROR(CByte(255.5), 6);
  EXPECT_RUNTIME_ERROR(CByte(-0.6), 6);
  EXPECT_RUNTIME_ERROR(CLng(std::numeric_limits<double>::quiet_NaN()), 6);
  EXPECT_EQ(CSng(0.5), 0.5f);
  EXPECT_RUNTIME_ERROR(CSng(1e39), 6);
}

// CLng gives what the library's rounding gives, ties to even included, up to the ends of the
// 32-bit range, and error 6 beyond them.
TEST(Checked, LongRoundingMatchesTheLibrarysAtEveryTie) {
  int compared = 0;
  for (double base : {0.0, 1.0, 2.0, 1e3, 65535.0, 1e6, 16777216.0, 1073741824.0, 2147483640.0}) {
    for (double k = -8; k <= 8; ++k)
      for (double fraction : {0.0, 0.25, 0.5, 0.75, 0.49999999999999994}) {
        for (double v : {base + k + fraction, -(base + k + fraction)}) {
          const double library = std::nearbyint(v);
          if (library >= -2147483648.0 && library <= 2147483647.0)
            EXPECT_EQ(CLng(v), static_cast<int32_t>(library)) << v;
          else
            EXPECT_RUNTIME_ERROR(CLng(v), 6);
          ++compared;
        }
      }
  }
  EXPECT_EQ(compared, 9 * 17 * 5 * 2);
  EXPECT_EQ(CLng(2.5), 2);
  EXPECT_EQ(CLng(-3.5), -4);
  EXPECT_EQ(CLng(2147483646.5), 2147483646);
  EXPECT_EQ(CLng(-2147483648.5), -2147483648);
  EXPECT_RUNTIME_ERROR(CLng(-2147483649.5), 6);
  EXPECT_RUNTIME_ERROR(CLng(2251799813685248.5), 6);
  EXPECT_RUNTIME_ERROR(CLng(std::numeric_limits<double>::infinity()), 6);
}

TEST(Checked, RoundingKeepsTiesToEvenAtEveryMagnitude) {
  // Near and beyond 2^51, where the quick rounding hands over to the library's.
  EXPECT_EQ(roundHalfEven(2251799813685247.5), 2251799813685248.0);
  EXPECT_EQ(roundHalfEven(2251799813685246.5), 2251799813685246.0);
  EXPECT_EQ(roundHalfEven(2251799813685248.5), 2251799813685248.0);
  EXPECT_EQ(roundHalfEven(-4503599627370495.5), -4503599627370496.0);
  EXPECT_EQ(roundHalfEven(1e300), 1e300);
  EXPECT_TRUE(std::isinf(roundHalfEven(-std::numeric_limits<double>::infinity())));
  EXPECT_TRUE(std::signbit(roundHalfEven(-0.4)));  // the sign of a zero result is kept
  EXPECT_EQ(roundHalfEven(0.49999999999999994), 0.0);
  EXPECT_EQ(roundHalfEven(-1.5), -2.0);
  EXPECT_EQ(CLng(2147483647.4), 2147483647);
  EXPECT_RUNTIME_ERROR(CLng(2147483647.5), 6);
}

TEST(Checked, IntAndFix) {
  EXPECT_EQ(Int(2.7), 2);
  EXPECT_EQ(Int(-2.5), -3);
  EXPECT_EQ(Fix(-2.5), -2);
  EXPECT_EQ(Fix(2.7), 2);
}

TEST(Checked, RoundTiesToEven) {
  EXPECT_EQ(Round(2.5), 2);
  EXPECT_EQ(Round(3.5), 4);
  EXPECT_EQ(Round(-2.5), -2);
  EXPECT_DOUBLE_EQ(Round(1.25, 1), 1.2);
  EXPECT_DOUBLE_EQ(Round(1.35, 1), 1.4);
  EXPECT_DOUBLE_EQ(Round(1.23456, 3), 1.235);
  EXPECT_RUNTIME_ERROR(Round(1.5, -1), 5);
}

// SPDX-License-Identifier: MIT
#include <corvane/runtime/format.h>
#include <gtest/gtest.h>

using namespace corvane;

TEST(Format, ZeroPaddedDigits) {
  EXPECT_EQ(Format(5, "00"), "05");
  EXPECT_EQ(Format(255, "00"), "255");
  EXPECT_EQ(Format(0, "00"), "00");
  EXPECT_EQ(Format(7, "000"), "007");
  EXPECT_EQ(Format(7, "0"), "7");
  EXPECT_EQ(Format(uint8_t(9), "00"), "09");
}

TEST(Format, RoundsHalfAwayFromZero) {
  EXPECT_EQ(Format(0.5, "0"), "1");
  EXPECT_EQ(Format(1.5, "0"), "2");
  EXPECT_EQ(Format(2.5, "0"), "3");
  EXPECT_EQ(Format(-2.5, "0"), "-3");
  EXPECT_EQ(Format(2.4, "0"), "2");
  EXPECT_EQ(Format(9.5, "00"), "10");
  EXPECT_EQ(Format(99.5, "00"), "100");
}

TEST(Format, RoundsOnFifteenSignificantDigits) {
  // 2.675 and 0.285 lie just below the tie in binary; the language rounds their decimal text.
  EXPECT_EQ(Format(2.675, "0.00"), "2.68");
  EXPECT_EQ(Format(1.005, "0.00"), "1.01");
  EXPECT_EQ(Format(0.285, "0%"), "29%");
}

TEST(Format, FixedDecimals) {
  EXPECT_EQ(Format(3.14159, "0.00"), "3.14");
  EXPECT_EQ(Format(3, "0.00"), "3.00");
  EXPECT_EQ(Format(0.999, "0.00"), "1.00");
  EXPECT_EQ(Format(0.004, "0.00"), "0.00");
  EXPECT_EQ(Format(-1.25, "0.0"), "-1.3");
  EXPECT_EQ(Format(0.5, "#.##"), ".5");
  EXPECT_EQ(Format(1.5, "0.0#"), "1.5");
  EXPECT_EQ(Format(1.256, "0.0#"), "1.26");
}

TEST(Format, NegativeValueRoundingToZeroKeepsItsSign) {
  EXPECT_EQ(Format(-0.4, "0"), "-0");
  EXPECT_EQ(Format(-0.001, "0.00"), "-0.00");
}

TEST(Format, HashShowsOnlySignificantDigits) {
  EXPECT_EQ(Format(5, "#"), "5");
  EXPECT_EQ(Format(0, "#"), "");
  EXPECT_EQ(Format(0.4, "#"), "");
  EXPECT_EQ(Format(123, "#"), "123");
  EXPECT_EQ(Format(5, "#0"), "5");
}

TEST(Format, ThousandsSeparator) {
  EXPECT_EQ(Format(1234567, "#,##0"), "1,234,567");
  EXPECT_EQ(Format(999, "#,##0"), "999");
  EXPECT_EQ(Format(1000, "#,##0"), "1,000");
  EXPECT_EQ(Format(0, "#,##0"), "0");
  EXPECT_EQ(Format(-1234.5, "#,##0"), "-1,235");
  EXPECT_EQ(Format(1234.5, "#,##0.00"), "1,234.50");
}

TEST(Format, PercentMultipliesByHundred) {
  EXPECT_EQ(Format(0.5, "0%"), "50%");
  EXPECT_EQ(Format(0.123, "0%"), "12%");
  EXPECT_EQ(Format(0.125, "0%"), "13%");
  EXPECT_EQ(Format(1, "0%"), "100%");
  EXPECT_EQ(Format(0.001, "0%"), "0%");
  EXPECT_EQ(Format(1.0 / 3.0, "0%"), "33%");
  EXPECT_EQ(Format(0.4567, "0.0%"), "45.7%");
}

TEST(Format, PercentOfZeroIsZero) {
  EXPECT_EQ(Format(0, "0%"), "0%");
  EXPECT_EQ(Format(0.0, "0.0%"), "0.0%");
  EXPECT_EQ(Format(0, "#%"), "%");
}

TEST(Format, LiteralsAndSections) {
  EXPECT_EQ(Format(5, "0 \"px\""), "5 px");
  EXPECT_EQ(Format(5, "\\#0"), "#5");
  EXPECT_EQ(Format(5, "(0)"), "(5)");
  EXPECT_EQ(Format(-5, "0;(0)"), "(5)");
  EXPECT_EQ(Format(5, "0;(0)"), "5");
  EXPECT_EQ(Format(0, "0;(0);\"zero\""), "zero");
  EXPECT_EQ(Format(-5, "0;;\"zero\""), "-5");
  EXPECT_EQ(Format(1234, "00-00"), "12-34");
  EXPECT_EQ(Format(123456, "00-00"), "1234-56");
}

TEST(Format, LargeAndSmallValues) {
  EXPECT_EQ(Format(1e20, "0"), "100000000000000000000");
  EXPECT_EQ(Format(123456789012345.0, "0"), "123456789012345");
  EXPECT_EQ(Format(1e-20, "0.00"), "0.00");
}

TEST(Format, BooleanAndEmptyValues) {
  EXPECT_EQ(Format(true, "0"), "-1");
  EXPECT_EQ(Format(false, "00"), "00");
  EXPECT_EQ(Format(Variant(), "00"), "00");
  EXPECT_EQ(Format(Variant::null(), "00"), "");
}

TEST(Format, SingleUsesSevenSignificantDigits) {
  EXPECT_EQ(Format(0.1f, "0.000000000"), "0.100000000");
  EXPECT_EQ(Format(0.1, "0.000000000"), "0.100000000");
}

TEST(Format, EmptyPatternIsLikeCStr) {
  EXPECT_EQ(Format(5), "5");
  EXPECT_EQ(Format(2.5), "2.5");
  EXPECT_EQ(Format(true), "True");
  EXPECT_EQ(Format("abc"), "abc");
  EXPECT_EQ(Format("007"), "007");
  EXPECT_EQ(Format(Variant()), "");
}

TEST(Format, NumericTextIsFormattedAsANumber) {
  EXPECT_EQ(Format("5", "00"), "05");
  EXPECT_EQ(Format("10", "00"), "10");
  EXPECT_EQ(Format(" 3.5 ", "0.00"), "3.50");
  EXPECT_EQ(Format("&HFF", "00"), "255");
}

TEST(Format, NonNumericTextComesBackUnchanged) {
  EXPECT_EQ(Format("FF", "00"), "FF");
  EXPECT_EQ(Format("2B", "00"), "2B");
  EXPECT_EQ(Format("A", "00"), "A");
  EXPECT_EQ(Format("1E", "00"), "1E");
  EXPECT_EQ(Format("13A", "00"), "13A");
  EXPECT_EQ(Format("123A", "00"), "123A");
  EXPECT_EQ(Format("", "00"), "");
  EXPECT_EQ(Format("&H123456789", "00"), "&H123456789");
}

TEST(Format, DigitAndAOrPIsReadAsATimeOfDay) {
  EXPECT_EQ(Format("1A", "00"), "00");
  EXPECT_EQ(Format("2A", "00"), "00");
  EXPECT_EQ(Format("9A", "00"), "00");
  EXPECT_EQ(Format("9a", "00"), "00");
  EXPECT_EQ(Format("12A", "0.000"), "0.000");  // midnight
  EXPECT_EQ(Format("6P", "0.00"), "0.75");
  EXPECT_EQ(Format("12P", "0.0"), "0.5");
  EXPECT_EQ(Format("6 PM", "0.00"), "0.75");
  EXPECT_EQ(Format("3A", "0.000"), "0.125");
}

TEST(Format, HexByteTextsThroughTwoDigitPattern) {
  // How hexadecimal byte text behaves when put through "00".
  EXPECT_EQ(Format("0", "00"), "00");
  EXPECT_EQ(Format("9", "00"), "09");
  EXPECT_EQ(Format("B", "00"), "B");
  EXPECT_EQ(Format("1F", "00"), "1F");
  EXPECT_EQ(Format("2A", "00"), "00");
  EXPECT_EQ(Format("42", "00"), "42");
}

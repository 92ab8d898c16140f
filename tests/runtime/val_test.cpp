// SPDX-License-Identifier: MIT
#include <corvane/runtime/val.h>

#include <gtest/gtest.h>

#include "runtime/expect_error.h"

using namespace corvane;

TEST(Val, ReadsDecimalNumbers) {
  EXPECT_EQ(Val("255"), 255);
  EXPECT_EQ(Val("12abc"), 12);
  EXPECT_EQ(Val("-12.5x"), -12.5);
  EXPECT_EQ(Val("+7"), 7);
  EXPECT_EQ(Val(".5"), 0.5);
  EXPECT_EQ(Val("5."), 5);
  EXPECT_EQ(Val("1.2.3"), 1.2);
  EXPECT_EQ(Val("1,000"), 1);
  EXPECT_EQ(Val("007"), 7);
}

TEST(Val, ReadsExponentsWithEOrD) {
  EXPECT_EQ(Val("1e3"), 1000);
  EXPECT_EQ(Val("1E3"), 1000);
  EXPECT_EQ(Val("1D3"), 1000);
  EXPECT_EQ(Val("2.5e-1"), 0.25);
  EXPECT_EQ(Val("1e"), 1);  // an exponent letter without digits ends the number
  EXPECT_EQ(Val("1e+"), 1);
  EXPECT_EQ(Val("1ex"), 1);
  EXPECT_EQ(Val("1e-400"), 0);
}

TEST(Val, DecimalOverflowIsError6) {
  EXPECT_RUNTIME_ERROR(Val("1e400"), 6);
  EXPECT_RUNTIME_ERROR(Val("-1e400"), 6);
}

TEST(Val, GivesZeroWhenNothingNumericStandsThere) {
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val("olor"), 0);
  EXPECT_EQ(Val("enter"), 0);
  EXPECT_EQ(Val("-"), 0);
  EXPECT_EQ(Val("."), 0);
  EXPECT_EQ(Val("e5"), 0);
  EXPECT_EQ(Val("--5"), 0);
  EXPECT_EQ(Val("   "), 0);
}

TEST(Val, SkipsBlanksTabsAndLineFeedsAnywhere) {
  EXPECT_EQ(Val(" 1 2 3"), 123);
  EXPECT_EQ(Val("\t4\n5"), 45);
  EXPECT_EQ(Val("- 5"), -5);
  EXPECT_EQ(Val("& H F F"), 255);
  EXPECT_EQ(Val("1\r2"), 1);  // a carriage return is not skipped
}

TEST(Val, ReadsHexadecimal) {
  EXPECT_EQ(Val("&HFF"), 255);
  EXPECT_EQ(Val("&hff"), 255);
  EXPECT_EQ(Val("&H7FFF"), 32767);
  EXPECT_EQ(Val("&H1G"), 1);  // stops at the first non-digit
  EXPECT_EQ(Val("&H"), 0);
  EXPECT_EQ(Val("&Hx"), 0);
  EXPECT_EQ(Val("&"), 0);
  EXPECT_EQ(Val("&X1"), 0);
}

TEST(Val, FourHexDigitsAreASigned16BitNumber) {
  EXPECT_EQ(Val("&HFFFF"), -1);
  EXPECT_EQ(Val("&H8000"), -32768);
  EXPECT_EQ(Val("&H1"), 1);
  EXPECT_EQ(Val("&H7FFF"), 32767);
}

TEST(Val, TheNumberOfHexDigitsDecidesTheWidthNotTheValue) {
  // A leading zero makes a fifth digit: the number is 32 bits wide and keeps its value.
  EXPECT_EQ(Val("&H0FFFF"), 65535);
  EXPECT_EQ(Val("&H08000"), 32768);
  EXPECT_EQ(Val("&H0000FFFF"), 65535);
  EXPECT_EQ(Val("&H00001"), 1);
  EXPECT_EQ(Val("&hffff"), -1);
  EXPECT_EQ(Val("&h0ffff"), 65535);
}

TEST(Val, FiveToEightHexDigitsAreASigned32BitNumber) {
  EXPECT_EQ(Val("&H10000"), 65536);
  EXPECT_EQ(Val("&HFFFFFFFF"), -1);
  EXPECT_EQ(Val("&H80000000"), -2147483648.0);
  EXPECT_EQ(Val("&H7FFFFFFF"), 2147483647);
  EXPECT_EQ(Val("&H00000000FF"), 255);
}

TEST(Val, TrailingAmpersandMakesHex32Bit) {
  EXPECT_EQ(Val("&HFFFF&"), 65535);
  EXPECT_EQ(Val("&H8000&"), 32768);
  EXPECT_EQ(Val("&HFF&"), 255);
  EXPECT_EQ(Val("&HFFFFFFFF&"), -1);
}

TEST(Val, MoreThan32BitsOfHexIsError6) {
  EXPECT_RUNTIME_ERROR(Val("&H100000000"), 6);
  EXPECT_RUNTIME_ERROR(Val("&HFFFFFFFFF"), 6);
}

TEST(Val, ReadsOctal) {
  EXPECT_EQ(Val("&O17"), 15);
  EXPECT_EQ(Val("&o777"), 511);
  EXPECT_EQ(Val("&O177777"), -1);
  EXPECT_EQ(Val("&O100000"), -32768);
  EXPECT_EQ(Val("&O177777&"), 65535);
  EXPECT_EQ(Val("&O200000"), 65536);
  EXPECT_EQ(Val("&O37777777777"), -1);
  EXPECT_EQ(Val("&O78"), 7);
  EXPECT_EQ(Val("&O8"), 0);
  EXPECT_RUNTIME_ERROR(Val("&O40000000000"), 6);
}

TEST(Val, TheNumberOfOctalDigitsDecidesTheWidth) {
  // Up to six digits are 16 bits while the value fits them; six digits above &O177777 cannot.
  EXPECT_EQ(Val("&O7"), 7);
  EXPECT_EQ(Val("&O77777"), 32767);
  EXPECT_EQ(Val("&O100000"), -32768);
  EXPECT_EQ(Val("&O177777"), -1);
  EXPECT_EQ(Val("&O200000"), 65536);
  EXPECT_EQ(Val("&O777777"), 262143);
  // A seventh digit, even a leading zero, makes a 32-bit number.
  EXPECT_EQ(Val("&O0177777"), 65535);
  EXPECT_EQ(Val("&O0100000"), 32768);
  EXPECT_EQ(Val("&O0000001"), 1);
  EXPECT_EQ(Val("&O17777777777"), 2147483647);
  EXPECT_EQ(Val("&O20000000000"), -2147483648.0);
  EXPECT_EQ(Val("&O177777&"), 65535);
}

TEST(ParseNumber, CountsDigitsLikeVal) {
  EXPECT_EQ(parseNumber("&H0FFFF"), 65535);
  EXPECT_EQ(parseNumber("&HFFFF"), -1);
  EXPECT_EQ(parseNumber("&O0177777"), 65535);
}

TEST(Val, SignBeforeHexPrefixReadsZero) {
  EXPECT_EQ(Val("-&H1"), 0);
  EXPECT_EQ(Val("+&HFF"), 0);
}

TEST(ParseNumber, AcceptsOnlyAWholeNumber) {
  EXPECT_EQ(parseNumber("12"), 12);
  EXPECT_EQ(parseNumber("  -1.5e2 "), -150);
  EXPECT_EQ(parseNumber("&HFF"), 255);
  EXPECT_EQ(parseNumber("&HFFFF"), -1);
  EXPECT_EQ(parseNumber("&HFFFF&"), 65535);
  EXPECT_FALSE(parseNumber("12abc"));
  EXPECT_FALSE(parseNumber(""));
  EXPECT_FALSE(parseNumber("  "));
  EXPECT_FALSE(parseNumber("&H"));
  EXPECT_FALSE(parseNumber("&HFG"));
  EXPECT_FALSE(parseNumber("1 2"));
  EXPECT_FALSE(parseNumber("1E"));
  EXPECT_FALSE(parseNumber("1D2"));
  EXPECT_FALSE(parseNumber("2A"));
  EXPECT_FALSE(parseNumber("FF"));
  EXPECT_FALSE(parseNumber("inf"));
  EXPECT_FALSE(parseNumber("nan"));
  EXPECT_FALSE(parseNumber("0x10"));
}

TEST(ParseNumber, HexBeyond32BitsIsError6) { EXPECT_RUNTIME_ERROR(parseNumber("&H123456789"), 6); }

TEST(IsNumeric, TellsNumbersFromOtherText) {
  EXPECT_TRUE(IsNumeric("42"));
  EXPECT_TRUE(IsNumeric(" 4.2 "));
  EXPECT_TRUE(IsNumeric("&H2A"));
  EXPECT_FALSE(IsNumeric("2A"));
  EXPECT_FALSE(IsNumeric(""));
  EXPECT_FALSE(IsNumeric("&H123456789"));
}

// SPDX-License-Identifier: MIT
#include <corvane/runtime/datetime.h>

#include <gtest/gtest.h>

using namespace corvane;

namespace {
const DateTime kSample{2024, 3, 7, 9, 5, 4};
}

TEST(FormatDate, FullPattern) {
  EXPECT_EQ(FormatDate(kSample, "dd.mm.yyyy hh:nn:ss"), "07.03.2024 09:05:04");
  EXPECT_EQ(FormatDate(kSample, "<dd.mm.yyyy hh:nn:ss> - "), "<07.03.2024 09:05:04> - ");
}

TEST(FormatDate, SingleLettersHaveNoPadding) {
  EXPECT_EQ(FormatDate(kSample, "d.m.yy h:n:s"), "7.3.24 9:5:4");
  EXPECT_EQ(FormatDate(DateTime{1999, 12, 31, 23, 59, 58}, "d.m.yyyy h:n:s"), "31.12.1999 23:59:58");
}

TEST(FormatDate, MonthAfterAnHourMeansMinutes) {
  EXPECT_EQ(FormatDate(kSample, "hh:mm"), "09:05");
  EXPECT_EQ(FormatDate(DateTime{2024, 11, 2, 8, 30, 0}, "mm/dd hh:mm"), "11/02 08:30");
}

TEST(FormatDate, LettersAreMatchedWithoutCase) {
  EXPECT_EQ(FormatDate(kSample, "DD.MM.YYYY HH:NN:SS"), "07.03.2024 09:05:04");
}

TEST(FormatDate, LiteralsAreCopied) {
  EXPECT_EQ(FormatDate(kSample, "yyyy-mm-dd"), "2024-03-07");
  EXPECT_EQ(FormatDate(kSample, "\"at\" hh\\h"), "at 09h");
  EXPECT_EQ(FormatDate(kSample, "ddd x"), "ddd x");
  EXPECT_EQ(FormatDate(kSample, ""), "");
}

TEST(FormatDate, DefaultIsDayZero) {
  EXPECT_EQ(FormatDate(DateTime{}, "dd.mm.yyyy hh:nn:ss"), "30.12.1899 00:00:00");
}

TEST(Now, GivesAPlausibleLocalTime) {
  DateTime now = Now();
  EXPECT_GE(now.year, 2020);
  EXPECT_GE(now.month, 1);
  EXPECT_LE(now.month, 12);
  EXPECT_GE(now.day, 1);
  EXPECT_LE(now.day, 31);
  EXPECT_LE(now.hour, 23);
  EXPECT_LE(now.minute, 59);
  EXPECT_LE(now.second, 60);
}

TEST(FormatDate, SmallestFieldValueKeepsOneSign) {
  const DateTime extreme{INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN, INT32_MIN};
  EXPECT_EQ(FormatDate(extreme, "dd"), "-2147483648");
  EXPECT_EQ(FormatDate(extreme, "d/m h:n:s"), "-2147483648/-2147483648 -2147483648:-2147483648:-2147483648");
  EXPECT_EQ(FormatDate(extreme, "yyyy yy"), "-2147483648 52");
}

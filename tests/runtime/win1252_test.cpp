// SPDX-License-Identifier: MIT
#include <corvane/runtime/win1252.h>

#include <gtest/gtest.h>

#include "runtime/expect_error.h"

using namespace corvane;

TEST(Win1252, ChrOfAsciiAndLatin1) {
  EXPECT_EQ(Chr(65), "A");
  EXPECT_EQ(Chr(0), std::string(1, '\0'));
  EXPECT_EQ(Chr(13) + Chr(10), "\r\n");
  EXPECT_EQ(Chr(0xE4), "\xC3\xA4");  // ä
  EXPECT_EQ(Chr(0xA0), "\xC2\xA0");  // no-break space
  EXPECT_EQ(Chr(255), "\xC3\xBF");   // ÿ
}

TEST(Win1252, ChrMapsTheHighControlRangeByTheCodePage) {
  EXPECT_EQ(Chr(0x80), "\xE2\x82\xAC");  // €
  EXPECT_EQ(Chr(0x85), "\xE2\x80\xA6");  // …
  EXPECT_EQ(Chr(0x93), "\xE2\x80\x9C");  // “
  EXPECT_EQ(Chr(0x9F), "\xC5\xB8");      // Ÿ
  EXPECT_EQ(Chr(0x8A), "\xC5\xA0");      // Š
}

TEST(Win1252, ChrOfUndefinedCodesGivesTheC1Control) {
  EXPECT_EQ(Chr(0x81), "\xC2\x81");
  EXPECT_EQ(Chr(0x8D), "\xC2\x8D");
  EXPECT_EQ(Chr(0x8F), "\xC2\x8F");
  EXPECT_EQ(Chr(0x90), "\xC2\x90");
  EXPECT_EQ(Chr(0x9D), "\xC2\x9D");
}

TEST(Win1252, ChrOutsideTheCodePageIsError5) {
  EXPECT_RUNTIME_ERROR(Chr(-1), 5);
  EXPECT_RUNTIME_ERROR(Chr(256), 5);
}

TEST(Win1252, AscGivesTheCodeOfTheFirstCharacter) {
  EXPECT_EQ(Asc("A"), 65);
  EXPECT_EQ(Asc("abc"), 97);
  EXPECT_EQ(Asc("\xC3\xA4x"), 0xE4);
  EXPECT_EQ(Asc("\xE2\x82\xAC"), 0x80);
  EXPECT_EQ(Asc("\xC2\x81"), 0x81);
  EXPECT_EQ(Asc(std::string(1, '\0')), 0);
}

TEST(Win1252, AscOfACharacterOutsideTheCodePageIsQuestionMark) {
  EXPECT_EQ(Asc("\xE2\x82\xB9"), 63);      // ₹
  EXPECT_EQ(Asc("\xF0\x9F\x98\x80"), 63);  // emoji
  EXPECT_EQ(Asc("\xE4"), 63);              // a stray byte
}

TEST(Win1252, AscOfEmptyTextIsError5) { EXPECT_RUNTIME_ERROR(Asc(""), 5); }

TEST(Win1252, ChrAndAscRoundTripEveryCode) {
  for (int code = 0; code < 256; ++code) EXPECT_EQ(Asc(Chr(code)), code) << code;
}

TEST(Win1252, ChrWAndAscWWorkOnCodePoints) {
  EXPECT_EQ(ChrW(0x20AC), "\xE2\x82\xAC");
  EXPECT_EQ(ChrW(65), "A");
  EXPECT_EQ(ChrW(0x1F600), "\xF0\x9F\x98\x80");
  EXPECT_EQ(ChrW(-1), "\xEF\xBF\xBF");  // a signed 16-bit code: U+FFFF
  EXPECT_EQ(AscW("\xE2\x82\xAC"), 0x20AC);
  EXPECT_EQ(AscW("\xF0\x9F\x98\x80"), 0x1F600);
  EXPECT_EQ(AscW("\xE4"), 0xFFFD);
}

TEST(Win1252, ChrWAndAscWRejectInvalidArguments) {
  EXPECT_RUNTIME_ERROR(ChrW(0xD800), 5);
  EXPECT_RUNTIME_ERROR(ChrW(0x110000), 5);
  EXPECT_RUNTIME_ERROR(ChrW(-32769), 5);
  EXPECT_RUNTIME_ERROR(AscW(""), 5);
}

TEST(Win1252, WholeStringConversions) {
  EXPECT_EQ(toAnsi("Gr\xC3\xBC\xC3\x9F"
                   "e \xE2\x82\xAC"),
            "Gr\xFC\xDF"
            "e \x80");
  EXPECT_EQ(fromAnsi("Gr\xFC\xDF"
                     "e \x80"),
            "Gr\xC3\xBC\xC3\x9F"
            "e \xE2\x82\xAC");
  EXPECT_EQ(toAnsi("a\xE2\x82\xB9"
                   "b"),
            "a?b");
  EXPECT_EQ(toAnsi("plain"), "plain");
  EXPECT_EQ(fromAnsi(""), "");
  std::string all;
  for (int c = 0; c < 256; ++c) all += static_cast<char>(c);
  EXPECT_EQ(toAnsi(fromAnsi(all)), all);
}

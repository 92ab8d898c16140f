// SPDX-License-Identifier: MIT
#include <corvane/runtime/strings.h>

#include <gtest/gtest.h>

#include "runtime/expect_error.h"

using namespace corvane;

namespace {
// "Grüße" is 5 characters in 7 bytes; "€" is 3 bytes.
const std::string kGruesse =
    "Gr\xC3\xBC\xC3\x9F"
    "e";
}  // namespace

TEST(Strings, LenCountsCharactersNotBytes) {
  EXPECT_EQ(Len(""), 0);
  EXPECT_EQ(Len("abc"), 3);
  EXPECT_EQ(Len(kGruesse), 5);
  EXPECT_EQ(Len("\xE2\x82\xAC"), 1);       // €
  EXPECT_EQ(Len("\xF0\x9F\x98\x80x"), 2);  // emoji and x
  EXPECT_EQ(Len(std::string(100, 'a') + "\xC3\xA4"), 101);
}

TEST(Strings, LenCountsEachStrayByteAsOneCharacter) {
  EXPECT_EQ(Len("a\xE4"
                "b"),
            3);                   // a Latin-1 byte, not UTF-8
  EXPECT_EQ(Len("\x80\x80"), 2);  // lone continuation bytes
  EXPECT_EQ(Len("\xE2\x82"), 2);  // truncated sequence
  EXPECT_EQ(Len("\xC0\xAF"), 2);  // overlong form
}

TEST(Strings, MidTakesCharacters) {
  EXPECT_EQ(Mid("abcdef", 2, 3), "bcd");
  EXPECT_EQ(Mid("abcdef", 4), "def");
  EXPECT_EQ(Mid(kGruesse, 3, 2), "\xC3\xBC\xC3\x9F");
  EXPECT_EQ(Mid(kGruesse, 4),
            "\xC3\x9F"
            "e");
  EXPECT_EQ(Mid("abc", 2, 100), "bc");
  EXPECT_EQ(Mid("abc", 4), "");
  EXPECT_EQ(Mid("abc", 10, 2), "");
  EXPECT_EQ(Mid("abc", 1, 0), "");
}

TEST(Strings, MidRejectsStartBelowOneAndNegativeLength) {
  EXPECT_RUNTIME_ERROR(Mid("abc", 0), 5);
  EXPECT_RUNTIME_ERROR(Mid("abc", 0, 1), 5);
  EXPECT_RUNTIME_ERROR(Mid("abc", -3, 1), 5);
  EXPECT_RUNTIME_ERROR(Mid("abc", 1, -1), 5);
  EXPECT_RUNTIME_ERROR(Mid("", 0), 5);
}

TEST(Strings, LeftAndRightNeverCutASequence) {
  EXPECT_EQ(Left(kGruesse, 3), "Gr\xC3\xBC");
  EXPECT_EQ(Right(kGruesse, 2),
            "\xC3\x9F"
            "e");
  EXPECT_EQ(Left("abc", 0), "");
  EXPECT_EQ(Left("abc", 5), "abc");
  EXPECT_EQ(Right("abc", 0), "");
  EXPECT_EQ(Right("abc", 2), "bc");
  EXPECT_EQ(Right("abc", 9), "abc");
  EXPECT_EQ(Right(kGruesse, 9), kGruesse);
  EXPECT_EQ(Left("\xE2\x82\xAC"
                 "x",
                 1),
            "\xE2\x82\xAC");
}

TEST(Strings, LeftAndRightRejectNegativeLength) {
  EXPECT_RUNTIME_ERROR(Left("abc", -1), 5);
  EXPECT_RUNTIME_ERROR(Right("abc", -1), 5);
}

TEST(Strings, InStrFindsOneBasedCharacterPositions) {
  EXPECT_EQ(InStr("abcabc", "c"), 3);
  EXPECT_EQ(InStr(4, "abcabc", "c"), 6);
  EXPECT_EQ(InStr("abc", "x"), 0);
  EXPECT_EQ(InStr(kGruesse, "e"), 5);
  EXPECT_EQ(InStr(kGruesse, "\xC3\x9F"), 4);
  EXPECT_EQ(InStr(4, kGruesse, "e"), 5);
  EXPECT_EQ(InStr(3, "abc", "c"), 3);
  EXPECT_EQ(InStr("ab", "abc"), 0);
}

TEST(Strings, InStrStartBelowOneIsError5) {
  EXPECT_RUNTIME_ERROR(InStr(0, "abc", "a"), 5);
  EXPECT_RUNTIME_ERROR(InStr(-1, "abc", ""), 5);
}

TEST(Strings, InStrStartPastTheEndGivesZero) {
  EXPECT_EQ(InStr(4, "abc", "c"), 0);
  EXPECT_EQ(InStr(100, "abc", "a"), 0);
}

TEST(Strings, InStrEmptyFindGivesStartUpToLenPlusOne) {
  EXPECT_EQ(InStr("abc", ""), 1);
  EXPECT_EQ(InStr(3, "abc", ""), 3);
  EXPECT_EQ(InStr(4, "abc", ""), 4);
  EXPECT_EQ(InStr(5, "abc", ""), 0);
}

TEST(Strings, InStrInEmptyTextGivesZero) {
  EXPECT_EQ(InStr("", ""), 0);
  EXPECT_EQ(InStr("", "a"), 0);
}

TEST(Strings, InStrTextCompareIgnoresCase) {
  EXPECT_EQ(InStr(1, "Hello World", "WORLD", CompareMethod::Text), 7);
  EXPECT_EQ(InStr(1, "Hello World", "WORLD", CompareMethod::Binary), 0);
  EXPECT_EQ(InStr(1,
                  "STRA\xC3\x9F"
                  "E \xC3\x84rger",
                  "\xC3\xA4"
                  "RGER",
                  CompareMethod::Text),
            8);                                                                            // Ärger / äRGER
  EXPECT_EQ(InStr(1, "x\xC3\x89t\xC3\xA9", "\xC3\xA9T\xC3\x89", CompareMethod::Text), 2);  // ÉTÉ
}

TEST(Strings, InStrDoesNotMatchInsideASequence) {
  // A stray continuation byte as the needle must not match the tail of "ä".
  EXPECT_EQ(InStr("\xC3\xA4", "\xA4"), 0);
  EXPECT_EQ(InStr("\xC3\xA4\xA4", "\xA4"), 2);
  // A stray lead byte as the needle must not match the head of "ä".
  EXPECT_EQ(InStr("\xC3\xA4", "\xC3"), 0);
}

TEST(Strings, InStrRevFindsTheLastMatchEndingAtStart) {
  EXPECT_EQ(InStrRev("abcabc", "abc"), 4);
  EXPECT_EQ(InStrRev("abcabc", "abc", 5), 1);
  EXPECT_EQ(InStrRev("abcabc", "abc", 6), 4);
  EXPECT_EQ(InStrRev("abcabc", "x"), 0);
  EXPECT_EQ(InStrRev(kGruesse, "\xC3\xBC"), 3);
  EXPECT_EQ(InStrRev("a.b.c", "."), 4);
  EXPECT_EQ(InStrRev("A.B", "b", -1, CompareMethod::Text), 3);
}

TEST(Strings, InStrRevEdgeArguments) {
  EXPECT_RUNTIME_ERROR(InStrRev("abc", "a", 0), 5);
  EXPECT_RUNTIME_ERROR(InStrRev("abc", "a", -2), 5);
  EXPECT_EQ(InStrRev("abc", "a", 4), 0);
  EXPECT_EQ(InStrRev("abc", ""), 3);
  EXPECT_EQ(InStrRev("abc", "", 2), 2);
  EXPECT_EQ(InStrRev("", "a"), 0);
}

TEST(Strings, ReplaceReplacesAllByDefault) {
  EXPECT_EQ(Replace("a b c", " ", "%20"), "a%20b%20c");
  EXPECT_EQ(Replace("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(Replace("aaaa", "aa", "b"), "bb");  // no overlap
  EXPECT_EQ(Replace("<b>x</b>", "<b>", ""), "x</b>");
  EXPECT_EQ(Replace(kGruesse, "\xC3\x9F", "ss"), "Gr\xC3\xBCsse");
}

TEST(Strings, ReplaceCountLimitsReplacements) {
  EXPECT_EQ(Replace("a-a-a", "-", "+", 1, 1), "a+a-a");
  EXPECT_EQ(Replace("a-a-a", "-", "+", 1, 0), "a-a-a");
  EXPECT_EQ(Replace("a-a-a", "-", "+", 1, -1), "a+a+a");
  EXPECT_RUNTIME_ERROR(Replace("a", "a", "b", 1, -2), 5);
}

TEST(Strings, ReplaceWithStartDropsTheTextBeforeIt) {
  EXPECT_EQ(Replace("abcabc", "a", "x", 2), "bcxbc");
  EXPECT_EQ(Replace(kGruesse, "e", "E", 4),
            "\xC3\x9F"
            "E");
  EXPECT_EQ(Replace("abc", "z", "x", 2), "bc");
  EXPECT_EQ(Replace("abc", "a", "x", 4), "");
  EXPECT_EQ(Replace("abc", "a", "x", 9), "");
  EXPECT_RUNTIME_ERROR(Replace("abc", "a", "x", 0), 5);
}

TEST(Strings, ReplaceEmptyFindLeavesTextUnchanged) {
  EXPECT_EQ(Replace("abc", "", "x"), "abc");
  EXPECT_EQ(Replace("abc", "", "x", 2), "bc");
  EXPECT_EQ(Replace("", "a", "x"), "");
}

TEST(Strings, ReplaceTextCompareKeepsUnmatchedText) {
  EXPECT_EQ(Replace("Vista vISTA", "vista", "W6", 1, -1, CompareMethod::Text), "W6 W6");
  EXPECT_EQ(Replace("Vista vISTA", "vista", "W6"), "Vista vISTA");
  EXPECT_EQ(Replace("\xC3\x84pfel \xC3\xA4pfel", "\xC3\xA4PFEL", "x", 1, -1, CompareMethod::Text), "x x");
}

TEST(Strings, TrimRemovesSpacesOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(LTrim("  a b  "), "a b  ");
  EXPECT_EQ(RTrim("  a b  "), "  a b");
  EXPECT_EQ(Trim("\ta\t"), "\ta\t");
  EXPECT_EQ(Trim(" \t "), "\t");
  EXPECT_EQ(Trim("    "), "");
  EXPECT_EQ(LTrim("   "), "");
  EXPECT_EQ(RTrim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\r\nx\r\n"), "\r\nx\r\n");
}

TEST(Strings, CaseMappingCoversAsciiAndLatinLetters) {
  EXPECT_EQ(UCase("abc XYZ 123"), "ABC XYZ 123");
  EXPECT_EQ(LCase("ABC xyz 123"), "abc xyz 123");
  EXPECT_EQ(UCase("\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA9"), "\xC3\x84\xC3\x96\xC3\x9C\xC3\x89");  // äöüé
  EXPECT_EQ(LCase("\xC3\x84\xC3\x96\xC3\x9C\xC3\x89"), "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\xA9");
  EXPECT_EQ(LCase("<B>"), "<b>");
}

TEST(Strings, CaseMappingLeavesNonLettersAlone) {
  EXPECT_EQ(UCase("\xC3\x9F"), "\xC3\x9F");          // ß has no single upper case
  EXPECT_EQ(UCase("\xC2\xB5"), "\xC2\xB5");          // µ
  EXPECT_EQ(UCase("\xC3\xB7"), "\xC3\xB7");          // ÷
  EXPECT_EQ(LCase("\xC3\x97"), "\xC3\x97");          // ×
  EXPECT_EQ(UCase("\xE2\x82\xAC"), "\xE2\x82\xAC");  // €
  EXPECT_EQ(UCase("a\xE4"
                  "b"),
            "A\xE4"
            "B");  // a stray byte passes through
}

TEST(Strings, CaseMappingOfWindows1252Extras) {
  EXPECT_EQ(UCase("\xC3\xBF"), "\xC5\xB8");  // ÿ -> Ÿ
  EXPECT_EQ(LCase("\xC5\xB8"), "\xC3\xBF");
  EXPECT_EQ(UCase("\xC5\xA1\xC5\x93\xC5\xBE"), "\xC5\xA0\xC5\x92\xC5\xBD");  // šœž
  EXPECT_EQ(LCase("\xC5\xA0\xC5\x92\xC5\xBD"), "\xC5\xA1\xC5\x93\xC5\xBE");
}

TEST(Strings, SpaceAndString) {
  EXPECT_EQ(Space(3), "   ");
  EXPECT_EQ(Space(0), "");
  EXPECT_RUNTIME_ERROR(Space(-1), 5);
  EXPECT_EQ(String(3, "xy"), "xxx");
  EXPECT_EQ(String(2, "\xC3\xA4"), "\xC3\xA4\xC3\xA4");
  EXPECT_EQ(String(3, 65), "AAA");
  EXPECT_EQ(String(2, 65 + 256), "AA");
  EXPECT_EQ(String(1, 0x80), "\xE2\x82\xAC");
  EXPECT_EQ(String(0, "x"), "");
  EXPECT_RUNTIME_ERROR(String(-1, "x"), 5);
  EXPECT_RUNTIME_ERROR(String(1, ""), 5);
  EXPECT_RUNTIME_ERROR(String(1, -1), 5);
}

TEST(Strings, StrCompOrdersAndIgnoresCaseOnRequest) {
  EXPECT_EQ(StrComp("a", "b"), -1);
  EXPECT_EQ(StrComp("b", "a"), 1);
  EXPECT_EQ(StrComp("a", "a"), 0);
  EXPECT_EQ(StrComp("a", "A"), 1);
  EXPECT_EQ(StrComp("a", "A", CompareMethod::Text), 0);
  EXPECT_EQ(StrComp("\xC3\xA4", "\xC3\x84", CompareMethod::Text), 0);
  EXPECT_EQ(StrComp("", "a"), -1);
  EXPECT_EQ(StrComp("z", "\xC3\xA4"), -1);  // code point order
}

TEST(Strings, SplitAndJoin) {
  EXPECT_EQ(Split("a,b,,c", ","), (std::vector<std::string>{"a", "b", "", "c"}));
  EXPECT_EQ(Split("a b"), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(Split(",a,", ","), (std::vector<std::string>{"", "a", ""}));
  EXPECT_EQ(Split("a<br>b<BR>c", "<br>", -1, CompareMethod::Text), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(Join({"a", "b", "c"}, ", "), "a, b, c");
  EXPECT_EQ(Join({}, ","), "");
  EXPECT_EQ(Join({"x"}), "x");
  EXPECT_EQ(Join(Split("a b c")), "a b c");
}

TEST(Strings, SplitEdgeArguments) {
  EXPECT_TRUE(Split("", ",").empty());
  EXPECT_EQ(Split("a,b", ""), (std::vector<std::string>{"a,b"}));
  EXPECT_EQ(Split("a,b,c", ",", 2), (std::vector<std::string>{"a", "b,c"}));
  EXPECT_EQ(Split("a,b,c", ",", 1), (std::vector<std::string>{"a,b,c"}));
  EXPECT_TRUE(Split("a,b", ",", 0).empty());
  EXPECT_RUNTIME_ERROR(Split("a", ",", -2), 5);
}

TEST(Strings, LongAsciiAndMixedTextsAgree) {
  std::string ascii(1000, 'x');
  ascii += "needle";
  EXPECT_EQ(InStr(ascii, "needle"), 1001);
  EXPECT_EQ(Mid(ascii, 999, 4), "xxne");
  std::string mixed = "\xC3\xA4" + ascii;
  EXPECT_EQ(InStr(mixed, "needle"), 1002);
  EXPECT_EQ(Mid(mixed, 1000, 4), "xxne");
  EXPECT_EQ(Right(mixed, 6), "needle");
  EXPECT_EQ(Len(mixed), 1007);
}

TEST(Strings, HexAndOctText) {
  EXPECT_EQ(Hex(255), "FF");
  EXPECT_EQ(Hex(0), "0");
  EXPECT_EQ(Hex(10), "A");
  EXPECT_EQ(Hex(uint8_t(42)), "2A");
  EXPECT_EQ(Hex(-1), "FFFFFFFF");
  EXPECT_EQ(Hex(int16_t(-1)), "FFFF");
  EXPECT_EQ(Hex(int16_t(-32768)), "8000");
  EXPECT_EQ(Hex(65536), "10000");
  EXPECT_EQ(Oct(8), "10");
  EXPECT_EQ(Oct(int16_t(-1)), "177777");
  EXPECT_EQ(Oct(-1), "37777777777");
}

TEST(Strings, InStrTextCompareFromAStartPosition) {
  EXPECT_EQ(InStr(2, "XaXbx", "x", CompareMethod::Text), 3);
  EXPECT_EQ(InStr(4, "XaXbx", "X", CompareMethod::Text), 5);
  EXPECT_EQ(InStr(2,
                  "\xC3\x84"
                  "a\xC3\xA4",
                  "\xC3\x84", CompareMethod::Text),
            3);
}

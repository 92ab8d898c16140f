// SPDX-License-Identifier: MIT
#include <corvane/html/html_decode.h>
#include <gtest/gtest.h>

#include <string>

namespace corvane::html {
namespace {

TEST(HtmlDecodeTest, NumericReferenceGivesItsCharacter) {
  EXPECT_EQ(mDecodeText("&#65;"), "A");
  EXPECT_EQ(mDecodeText("x&#060;y"), "x<y");
}

TEST(HtmlDecodeTest, ReferenceWithoutAnySemicolonBehindStaysLiteral) {
  EXPECT_EQ(mDecodeText("&#65"), "&#65");
}

TEST(HtmlDecodeTest, FourDigitsOrMoreGiveNothing) {
  EXPECT_EQ(mDecodeText("&#8364;"), "");
  EXPECT_EQ(mDecodeText("a&#1000;b"), "ab");
  EXPECT_EQ(mDecodeText("a&#99999999;b"), "ab");
}

TEST(HtmlDecodeTest, LeadingZerosDoNotCountAsDigits) { EXPECT_EQ(mDecodeText("&#0000065;"), "A"); }

TEST(HtmlDecodeTest, CodesAreWindows1252) {
  EXPECT_EQ(mDecodeText("&#128;"), "\u20ac");
  EXPECT_EQ(mDecodeText("&#228;"), "\u00e4");
}

TEST(HtmlDecodeTest, ThreeDigitCodeAboveByteRangeGivesNothing) { EXPECT_EQ(mDecodeText("a&#300;b"), "ab"); }

TEST(HtmlDecodeTest, TheCharacterBehindTheDigitsIsDroppedWhateverItIs) {
  EXPECT_EQ(mDecodeText("&#65 x;"), "Ax;");
  // The semicolon of the second reference makes the first one a reference too.
  EXPECT_EQ(mDecodeText("&#66&#65;"), "B#65;");
}

TEST(HtmlDecodeTest, ReferenceWithoutDigitsIsCodeZero) {
  EXPECT_EQ(mDecodeText("&#;"), std::string(1, '\0'));
  EXPECT_EQ(mDecodeText("&#x41;"), std::string(1, '\0') + "41;");
}

TEST(HtmlDecodeTest, OnlyReferencesWithASemicolonBehindThemAreRead) {
  EXPECT_EQ(mDecodeText("&#65;&#66"), "A&#66");
}

TEST(HtmlDecodeTest, LineEndsAndTabsBecomeBlanksButALoneCarriageReturnStays) {
  EXPECT_EQ(mDecodeText("a\r\nb\nc\td\re"), "a b c d\re");
  EXPECT_EQ(mDecodeText("a&#13;&#10;b&#9;c"), "a b c");
}

TEST(HtmlDecodeTest, TextWithoutReferencesIsUnchanged) {
  EXPECT_EQ(mDecodeText("a&amp;b &nbsp;"), "a&amp;b &nbsp;");
}

TEST(HtmlDecodeTest, SixteenColourNames) {
  struct Case {
    const char* name;
    int32_t colour;  // &H00BBGGRR
  } cases[] = {
      {"black", 0x000000},  {"maroon", 0x000080},  {"green", 0x008000},  {"navy", 0x800000},
      {"silver", 0xC0C0C0}, {"red", 0x0000FF},     {"lime", 0x00FF00},   {"blue", 0xFF0000},
      {"gray", 0x808080},   {"purple", 0x800080},  {"olive", 0x008080},  {"teal", 0x808000},
      {"white", 0xFFFFFF},  {"fuchsia", 0xFF00FF}, {"yellow", 0x00FFFF}, {"aqua", 0xFFFF00},
  };
  for (const Case& c : cases) EXPECT_EQ(mColorFromName(c.name), c.colour) << c.name;
}

TEST(HtmlDecodeTest, ColourNamesIgnoreCaseAndUnknownNamesAreBlack) {
  EXPECT_EQ(mColorFromName("RED"), 0x0000FF);
  EXPECT_EQ(mColorFromName("Teal"), 0x808000);
  EXPECT_EQ(mColorFromName("orange"), 0);
  EXPECT_EQ(mColorFromName(""), 0);
}

TEST(HtmlDecodeTest, HexColourIsSplitIntoRedGreenBlue) {
  EXPECT_EQ(colorFromAttribute("#FF8000"), 0x0080FF);
  EXPECT_EQ(colorFromAttribute("ff8000"), 0x0080FF);
}

TEST(HtmlDecodeTest, HexColourOfOtherLengthTakesThePairsThatStandThere) {
  EXPECT_EQ(colorFromAttribute("#FFF"), 0x000FFF);
  EXPECT_EQ(colorFromAttribute("1"), 0x000001);
  EXPECT_EQ(colorFromAttribute("12345678"), 0x563412);
}

TEST(HtmlDecodeTest, ColourThatReadsAsHexIsNotTakenAsAName) {
  EXPECT_EQ(colorFromAttribute("bad"), 0x000DBA);
  EXPECT_EQ(colorFromAttribute("Red"), 0x0000FF);
  EXPECT_EQ(colorFromAttribute("blue"), 0xFF0000);
}

TEST(HtmlDecodeTest, ColourWithNothingOrTooManyDigitsIsBlack) {
  EXPECT_EQ(colorFromAttribute("#"), 0);
  EXPECT_EQ(colorFromAttribute("123456789"), 0);
}

}  // namespace
}  // namespace corvane::html

// SPDX-License-Identifier: MIT
#include <corvane/html/html_tag_reader.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane::html {
namespace {

using Strings = std::vector<std::string>;

TEST(HtmlTagReaderTest, TagChunkStartsWithLessThanAndEndsWithGreaterThan) {
  EXPECT_TRUE(HtmlTagReader::mIsTagChunk("<B>"));
  EXPECT_TRUE(HtmlTagReader::mIsTagChunk("<>"));
  EXPECT_FALSE(HtmlTagReader::mIsTagChunk("<B"));
  EXPECT_FALSE(HtmlTagReader::mIsTagChunk("B>"));
  EXPECT_FALSE(HtmlTagReader::mIsTagChunk(""));
}

TEST(HtmlTagReaderTest, NameRunsToTheFirstBlankAndIsUpperCased) {
  EXPECT_EQ(HtmlTagReader::mstrTagID("<a href=x>"), "A");
  EXPECT_EQ(HtmlTagReader::mstrTagID("<H1 >"), "H1");
  EXPECT_EQ(HtmlTagReader::mstrTagID("< P>"), "");
}

TEST(HtmlTagReaderTest, NameWithoutBlankIsTheTagWithoutItsBrackets) {
  EXPECT_EQ(HtmlTagReader::mstrTagID("</p>"), "/P");
  EXPECT_EQ(HtmlTagReader::mstrTagID("<br/>"), "BR/");
  EXPECT_EQ(HtmlTagReader::mstrTagID("<>"), "");
}

TEST(HtmlTagReaderTest, CommentNameDependsOnTheBlank) {
  EXPECT_EQ(HtmlTagReader::mstrTagID("<!-- a > b -->"), "!--");
  EXPECT_EQ(HtmlTagReader::mstrTagID("<!--x-->"), "!--X--");
}

TEST(HtmlTagReaderTest, TagWithoutBlankHasNoAttributes) {
  HtmlTagReader r;
  r.mAttrNames = {"OLD"};
  r.mAttrValues = {"old"};
  EXPECT_EQ(r.mintExtractTagAttributes("<B>"), 0);
  EXPECT_TRUE(r.mAttrNames.empty());
  EXPECT_TRUE(r.mAttrValues.empty());
}

TEST(HtmlTagReaderTest, BareWordWithoutEqualsSignIsNoAttribute) {
  HtmlTagReader r;
  EXPECT_EQ(r.mintExtractTagAttributes("<TD NOWRAP>"), 0);
}

TEST(HtmlTagReaderTest, UnquotedValueRunsToTheNextBlankOrBeforeTheClosingBracket) {
  HtmlTagReader r;
  EXPECT_EQ(r.mintExtractTagAttributes("<IMG SRC=a.png WIDTH=10>"), 2);
  EXPECT_EQ(r.mAttrNames, (Strings{"SRC", "WIDTH"}));
  EXPECT_EQ(r.mAttrValues, (Strings{"a.png", "10"}));
}

TEST(HtmlTagReaderTest, QuotedValuesKeepTheirBlanksAndCase) {
  HtmlTagReader r;
  EXPECT_EQ(r.mintExtractTagAttributes("<A href=\"a b\" Title='C d'>"), 2);
  EXPECT_EQ(r.mAttrNames, (Strings{"HREF", "TITLE"}));
  EXPECT_EQ(r.mAttrValues, (Strings{"a b", "C d"}));
}

TEST(HtmlTagReaderTest, BlanksAroundTheEqualsSignAreSkipped) {
  HtmlTagReader r;
  EXPECT_EQ(r.mintExtractTagAttributes("<TD width = 50% >"), 1);
  EXPECT_EQ(r.mAttrNames, (Strings{"WIDTH"}));
  EXPECT_EQ(r.mAttrValues, (Strings{"50%"}));
}

TEST(HtmlTagReaderTest, QuoteWithoutItsCloseRunsToTheEnd) {
  HtmlTagReader r;
  EXPECT_EQ(r.mintExtractTagAttributes("<A HREF=\"x>"), 1);
  EXPECT_EQ(r.mAttrValues, (Strings{"x"}));
}

TEST(HtmlTagReaderTest, BareWordJoinsTheNameBehindIt) {
  HtmlTagReader r;
  EXPECT_EQ(r.mintExtractTagAttributes("<A NOWRAP HREF=x>"), 1);
  EXPECT_EQ(r.mAttrNames, (Strings{"NOWRAP HREF"}));
  EXPECT_EQ(r.mAttrValues, (Strings{"x"}));
}

TEST(HtmlTagReaderTest, NameIsWhateverStandsBeforeTheNextEqualsSign) {
  HtmlTagReader r;
  EXPECT_EQ(r.mintExtractTagAttributes("<A X=\"a\"=B=c>"), 2);
  EXPECT_EQ(r.mAttrNames, (Strings{"X", "=B"}));
  EXPECT_EQ(r.mAttrValues, (Strings{"a", "c"}));
}

TEST(HtmlTagReaderTest, LastEqualsSignWithNothingToNameEndsTheAttributes) {
  HtmlTagReader r;
  EXPECT_EQ(r.mintExtractTagAttributes("<A X=\"a\"=>"), 1);
  EXPECT_EQ(r.mAttrNames, (Strings{"X"}));
}

TEST(HtmlTagReaderTest, TabsAreRemovedFromNames) {
  HtmlTagReader r;
  EXPECT_EQ(r.mintExtractTagAttributes("<A \tHREF=x>"), 1);
  EXPECT_EQ(r.mAttrNames, (Strings{"HREF"}));
}

TEST(HtmlTagReaderTest, EmptyValueBeforeTheClosingBracket) {
  HtmlTagReader r;
  EXPECT_EQ(r.mintExtractTagAttributes("<A HREF=>"), 1);
  EXPECT_EQ(r.mAttrValues, (Strings{""}));
}

}  // namespace
}  // namespace corvane::html

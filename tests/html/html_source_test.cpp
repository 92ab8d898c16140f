// SPDX-License-Identifier: MIT
#include <corvane/html/html_source.h>
#include <gtest/gtest.h>

#include <string>

namespace corvane::html {
namespace {

TEST(HtmlSourceTest, PlainTextGetsBothWrappers) {
  EXPECT_EQ(normaliseHtmlSource("abc"), "<HTML><BODY>abc</BODY></HTML>");
}

TEST(HtmlSourceTest, EmptyTextIsAnEmptyPage) {
  EXPECT_EQ(normaliseHtmlSource(""), "<HTML><BODY></BODY></HTML>");
}

TEST(HtmlSourceTest, ABodyOfAnyCaseIsNotWrappedAgain) {
  EXPECT_EQ(normaliseHtmlSource("<body bgcolor=red>x</body>"), "<HTML><body bgcolor=red>x</body></HTML>");
}

TEST(HtmlSourceTest, TheTwoWrapperTestsAreSeparate) {
  // HTML without BODY: the BODY wrapper goes outside the HTML tag.
  EXPECT_EQ(normaliseHtmlSource("<html><p>x"), "<BODY><html><p>x</BODY>");
}

TEST(HtmlSourceTest, AnHtmlTagWithAttributesDoesNotCountAsHtml) {
  EXPECT_EQ(normaliseHtmlSource("<HTML lang=de>x"), "<HTML><BODY><HTML lang=de>x</BODY></HTML>");
}

TEST(HtmlSourceTest, NamedEntitiesBecomeNumericReferencesWithoutRegardToCase) {
  EXPECT_EQ(normaliseHtmlSource("<BODY><HTML>&LT;b&gt;&Quot;&copy;&DEG;&amp;&middot;"),
            "<BODY><HTML>&#060;b&#062;&#034;&#169;&#176;&#038;&#183;");
  EXPECT_EQ(normaliseHtmlSource("<BODY><HTML>&agrave;&aacute;&egrave;&eacute;&euml;"),
            "<BODY><HTML>&#224;&#225;&#232;&#233;&#235;");
}

TEST(HtmlSourceTest, UmlautEntitiesOfBothCasesGiveTheLowerCaseLetter) {
  EXPECT_EQ(normaliseHtmlSource("<BODY><HTML>&auml;&AUML;&Auml;"), "<BODY><HTML>\u00e4\u00e4\u00e4");
  EXPECT_EQ(normaliseHtmlSource("<BODY><HTML>&Ouml;&ouml;&Uuml;&UUML;"),
            "<BODY><HTML>\u00f6\u00f6\u00fc\u00fc");
}

TEST(HtmlSourceTest, AmpersandIsReplacedAfterLessThanSoAnEscapedEntityStaysText) {
  EXPECT_EQ(normaliseHtmlSource("<BODY><HTML>&amp;lt;"), "<BODY><HTML>&#038;lt;");
}

TEST(HtmlSourceTest, NonBreakingSpaceIsNotReplaced) {
  EXPECT_EQ(normaliseHtmlSource("<BODY><HTML>a&nbsp;b"), "<BODY><HTML>a&nbsp;b");
}

TEST(HtmlSourceTest, TabsBecomeBlanksAndThenCollapse) {
  EXPECT_EQ(normaliseHtmlSource("<BODY><HTML>a\tb\t\tc"), "<BODY><HTML>a b c");
}

TEST(HtmlSourceTest, ThreeHalvingPassesLeaveDoublesInRunsOfNineBlanksOrMore) {
  const std::string page = "<BODY><HTML>";
  EXPECT_EQ(normaliseHtmlSource(page + "a" + std::string(8, ' ') + "b"), page + "a b");
  EXPECT_EQ(normaliseHtmlSource(page + "a" + std::string(9, ' ') + "b"), page + "a  b");
  EXPECT_EQ(normaliseHtmlSource(page + "a" + std::string(16, ' ') + "b"), page + "a  b");
  EXPECT_EQ(normaliseHtmlSource(page + "a" + std::string(17, ' ') + "b"), page + "a   b");
}

}  // namespace
}  // namespace corvane::html

namespace corvane::html {
namespace {

TEST(HtmlSourceTest, EntityNeedsItsSemicolonAndAnAmpersandBeforeOneIsKept) {
  EXPECT_EQ(normaliseHtmlSource("<BODY><HTML>&lt &&gt;&&"), "<BODY><HTML>&lt &&#062;&&");
}

}  // namespace
}  // namespace corvane::html

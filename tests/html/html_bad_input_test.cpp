// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "html/html_test_support.h"

namespace corvane {
namespace {

using test::parsedView;
using Words = std::vector<std::string>;

std::string repeat(const std::string& s, int n) {
  std::string out;
  out.reserve(s.size() * static_cast<size_t>(n));
  for (int i = 0; i < n; ++i) out += s;
  return out;
}

TEST(HtmlBadInputTest, SourceLongerThanSixteenBitPositionsIsKeptButSplitOnlyWhereItFits) {
  auto view = parsedView(std::string(40000, 'x'));
  const auto& doc = view->document();
  EXPECT_EQ(view->Text().size(), 40026u);
  // The first text run would end past character 32767: the split ends before it.
  ASSERT_EQ(doc.mChunkCount, 2);
  EXPECT_EQ(doc.chunk(1).Source, "<BODY>");
  EXPECT_EQ(doc.chunk(0).ChildCount, 1);
}

TEST(HtmlBadInputTest, SplitEndsAtTheFirstPositionBeyond32767) {
  auto view = parsedView(std::string(32700, 'a') + "<B>bold</B>" + std::string(100, 'b'));
  const auto& doc = view->document();
  // "</B>" ends at character 32723; the next "<" stands at 32824.
  ASSERT_EQ(doc.mChunkCount, 6);
  EXPECT_EQ(doc.chunk(4).Source, "bold");
  EXPECT_EQ(doc.chunk(5).Source, "</B>");
  EXPECT_EQ(doc.chunk(1).ChildCount, 2);
}

TEST(HtmlBadInputTest, TagCrossingTheLimitIsDropped) {
  auto view = parsedView("<A " + repeat("X=1 ", 9000) + ">");
  EXPECT_EQ(view->document().mChunkCount, 2);
}

TEST(HtmlBadInputTest, TenThousandNestedLevels) {
  auto view = parsedView(repeat("<B>", 10000) + "x" + repeat("</B>", 10000));
  const auto& doc = view->document();
  // 688 closers end before character 32767; the rest of the source lies beyond it.
  ASSERT_EQ(doc.mChunkCount, 2 + 10000 + 1 + 688);
  const html::HtmlChunk& x = doc.chunk(10002);
  ASSERT_EQ(x.Source, "x");
  EXPECT_EQ(x.Parent, 10001);
  int levels = 0;
  for (int32_t i = x.Parent; i != 1; i = doc.chunk(i).Parent) {
    ASSERT_EQ(doc.chunk(i).TagID, 10);
    ++levels;
  }
  EXPECT_EQ(levels, 10000);
  EXPECT_EQ(doc.chunk(2).ChildCount, 1);
  EXPECT_EQ(doc.chunk(10001).Children, (std::vector<int16_t>{10002, 10003}));
}

TEST(HtmlBadInputTest, StrayLessThanWithoutGreaterThanAnywhere) {
  auto view = parsedView("<HTML><BODY>x</BODY></HTML><");
  EXPECT_EQ(view->document().mChunkCount, 5);
}

TEST(HtmlBadInputTest, TagOfThirtyThousandCharacters) {
  const std::string tag = "<A " + repeat("X=1 ", 7499) + "HREF=y>";
  ASSERT_EQ(tag.size(), 30006u);
  auto view = parsedView(tag + "link</A>");
  const auto& doc = view->document();
  ASSERT_EQ(doc.mChunkCount, 7);
  EXPECT_EQ(doc.chunk(2).Source, tag);
  EXPECT_EQ(doc.chunk(2).Href, "y");
  EXPECT_EQ(doc.chunk(3).Words, (Words{"link"}));
  EXPECT_EQ(view->mintExtractTagAttributes(tag), 7500);
}

TEST(HtmlBadInputTest, TagOfThirtyThousandCharactersWithoutBlank) {
  auto view = parsedView("<" + std::string(29998, 'x') + ">y");
  const auto& doc = view->document();
  EXPECT_EQ(doc.chunk(2).TagID, 1);
  EXPECT_EQ(doc.chunk(3).Words, (Words{"y"}));
}

TEST(HtmlBadInputTest, NulBytesAreOrdinaryCharacters) {
  auto view = parsedView(std::string("a\0b<B>c\0d</B><I\0>", 17));
  const auto& doc = view->document();
  ASSERT_EQ(doc.mChunkCount, 9);
  EXPECT_EQ(doc.chunk(2).Words, (Words{std::string("a\0b", 3)}));
  EXPECT_EQ(doc.chunk(4).Words, (Words{std::string("c\0d", 3)}));
  EXPECT_EQ(doc.chunk(6).TagID, 1);  // the name is "I" and a NUL
}

TEST(HtmlBadInputTest, InvalidUtf8BytesCountAsOneCharacterEach) {
  auto view = parsedView("\xff\xfe<B>\xc3</B>\xe2\x82 z<\xff>&#65\xff;");
  const auto& doc = view->document();
  ASSERT_EQ(doc.mChunkCount, 11);
  EXPECT_EQ(doc.chunk(2).Source, "\xff\xfe");
  EXPECT_EQ(doc.chunk(4).Source, "\xc3");
  EXPECT_EQ(doc.chunk(6).Words, (Words{"\xe2\x82", "z"}));
  EXPECT_EQ(doc.chunk(7).TagID, 1);
  // The byte behind the digits is dropped like any other character.
  EXPECT_EQ(doc.chunk(8).Words, (Words{"A;"}));
}

}  // namespace
}  // namespace corvane

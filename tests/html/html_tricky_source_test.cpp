// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "html/html_test_support.h"

// Chunk tables of sources that test the tokeniser and the tree together.
namespace corvane {
namespace {

using test::dumpOf;

const std::string kHead = "body=1 bodycolor=&H8000000F textcolor=&H0 anchors=[]\n";

TEST(HtmlTrickySourceTest, CommentWithGreaterThanInsideIsOneChunk) {
  EXPECT_EQ(dumpOf("a<!-- x > y -->b"), "chunks=7 count=7 " + kHead +
                                            "0 [1] \"<HTML>\" parent=0 kids=2 first=1 next=-\n"
                                            "1 [6] \"<BODY>\" parent=0 kids=3 first=2 next=-\n"
                                            "2 [0] \"a\" Glue words=[\"a\"] parent=1 kids=0 first=- next=3\n"
                                            "3 [8] \"<!-- x > y -->\" parent=1 kids=0 first=- next=4\n"
                                            "4 [0] \"b\" Glue words=[\"b\"] parent=1 kids=0 first=- next=-\n"
                                            "5 [7] \"</BODY>\" parent=1 kids=0 first=- next=-\n"
                                            "6 [1] \"</HTML>\" parent=0 kids=0 first=- next=-\n");
}

TEST(HtmlTrickySourceTest, CommentWithoutItsEndStopsTheSplit) {
  EXPECT_EQ(dumpOf("a<!-- open b<B>c</B>"),
            "chunks=3 count=3 " + kHead +
                "0 [1] \"<HTML>\" parent=0 kids=1 first=1 next=-\n"
                "1 [6] \"<BODY>\" parent=0 kids=1 first=2 next=-\n"
                "2 [0] \"a\" Glue words=[\"a\"] parent=1 kids=0 first=- next=-\n");
}

TEST(HtmlTrickySourceTest, EuroReferenceVanishesFromTheWords) {
  auto view = test::parsedView("Preis: 5&#8364; netto<B>&#8364;</B>");
  const auto& doc = view->document();
  EXPECT_EQ(doc.chunk(2).Source, "Preis: 5&#8364; netto");
  EXPECT_EQ(doc.chunk(2).Words, (std::vector<std::string>{"Preis:", "5", "netto"}));
  // Alone it leaves one empty word.
  EXPECT_EQ(doc.chunk(4).Words, (std::vector<std::string>{""}));
}

TEST(HtmlTrickySourceTest, UpperCaseUmlautEntityGivesTheLowerCaseLetter) {
  auto view = test::parsedView("M&AUML;rz &Auml;");
  EXPECT_EQ(view->document().chunk(2).Words, (std::vector<std::string>{"M\u00e4rz", "\u00e4"}));
}

TEST(HtmlTrickySourceTest, AttributesOnACloseTagAreReadToo) {
  EXPECT_EQ(
      dumpOf("<FONT COLOR=red>x</FONT COLOR=blue BGCOLOR=#00FF00><B BACKGROUND=bg.png>y</B TEXT=red>"),
      "chunks=10 count=10 body=1 bodycolor=&H8000000F textcolor=&HFF background=\"bg.png\" anchors=[]\n"
      "0 [1] \"<HTML>\" parent=0 kids=2 first=1 next=-\n"
      "1 [6] \"<BODY>\" parent=0 kids=2 first=2 next=-\n"
      "2 [39] \"<FONT COLOR=red>\" FontFace=\"Arial\" FontSize=10 Color=&HFF parent=1 kids=1 first=3 next=5\n"
      "3 [0] \"x\" Glue words=[\"x\"] parent=2 kids=0 first=- next=-\n"
      "4 [40] \"</FONT COLOR=blue BGCOLOR=#00FF00>\" HasBgColor Color=&HFF0000 BgColor=&HFF00 parent=2 "
      "kids=0 "
      "first=- next=-\n"
      "5 [10] \"<B BACKGROUND=bg.png>\" parent=1 kids=1 first=6 next=-\n"
      "6 [0] \"y\" Glue words=[\"y\"] parent=5 kids=0 first=- next=-\n"
      "7 [11] \"</B TEXT=red>\" parent=5 kids=0 first=- next=-\n"
      "8 [7] \"</BODY>\" parent=1 kids=0 first=- next=-\n"
      "9 [1] \"</HTML>\" parent=0 kids=0 first=- next=-\n");
}

TEST(HtmlTrickySourceTest, BareWordBeforeHrefLeavesTheLinkWithoutTarget) {
  EXPECT_EQ(dumpOf("<A NOWRAP HREF=x>link</A>", true),
            "chunks=7 count=7 body=1 bodycolor=&H8000000F textcolor=&H0 anchors=[2]\n"
            "0 [1] \"<HTML>\" parent=0 kids=2 first=1 next=-\n"
            "1 [6] \"<BODY>\" parent=0 kids=1 first=2 next=-\n"
            "2 [41] \"<A NOWRAP HREF=x>\" Top=-1 Left=-1 Bottom=-1 Right=-1 parent=1 kids=1 first=3 next=-\n"
            "3 [0] \"link\" Glue words=[\"link\"] parent=2 kids=0 first=- next=-\n"
            "4 [42] \"</A>\" parent=2 kids=0 first=- next=-\n"
            "5 [7] \"</BODY>\" parent=1 kids=0 first=- next=-\n"
            "6 [1] \"</HTML>\" parent=0 kids=0 first=- next=-\n");
}

TEST(HtmlTrickySourceTest, TextBehindTheClosingHtmlTagIsLost) {
  EXPECT_EQ(dumpOf("<HTML><BODY>a</BODY></HTML>tail"),
            "chunks=5 count=5 " + kHead +
                "0 [1] \"<HTML>\" parent=0 kids=2 first=1 next=-\n"
                "1 [6] \"<BODY>\" parent=0 kids=1 first=2 next=-\n"
                "2 [0] \"a\" Glue words=[\"a\"] parent=1 kids=0 first=- next=-\n"
                "3 [7] \"</BODY>\" parent=1 kids=0 first=- next=-\n"
                "4 [1] \"</HTML>\" parent=0 kids=0 first=- next=-\n");
}

TEST(HtmlTrickySourceTest, UnclosedParagraphsGetACloserBeforeTheNextOnly) {
  EXPECT_EQ(dumpOf("<P>a<P>b"), "chunks=9 count=8 " + kHead +
                                    "0 [1] \"<HTML>\" parent=0 kids=1 first=1 next=-\n"
                                    "1 [6] \"<BODY>\" parent=0 kids=2 first=2 next=-\n"
                                    "2 [16] \"<P>\" parent=1 kids=1 first=3 next=5\n"
                                    "3 [0] \"a\" Glue words=[\"a\"] parent=2 kids=0 first=- next=-\n"
                                    "4 [17] \"</P>\" parent=2 kids=0 first=- next=-\n"
                                    "5 [16] \"<P>\" parent=1 kids=1 first=6 next=-\n"
                                    "6 [0] \"b\" Glue words=[\"b\"] parent=5 kids=0 first=- next=-\n"
                                    "7 [7] \"</BODY>\" parent=5 kids=0 first=- next=-\n"
                                    "8 [1] \"</HTML>\" parent=0 kids=0 first=- next=-\n");
}

TEST(HtmlTrickySourceTest, MisnestedInlineTagsEndTheLevelTheyMeet) {
  // "</B>" ends the level of I, and "</I>" the level of B: y stays inside B, beside I.
  EXPECT_EQ(dumpOf("<B><I>x</B>y</I>z"), "chunks=11 count=11 " + kHead +
                                             "0 [1] \"<HTML>\" parent=0 kids=2 first=1 next=-\n"
                                             "1 [6] \"<BODY>\" parent=0 kids=2 first=2 next=-\n"
                                             "2 [10] \"<B>\" parent=1 kids=2 first=3 next=8\n"
                                             "3 [12] \"<I>\" parent=2 kids=1 first=4 next=6\n"
                                             "4 [0] \"x\" Glue words=[\"x\"] parent=3 kids=0 first=- next=-\n"
                                             "5 [11] \"</B>\" parent=3 kids=0 first=- next=-\n"
                                             "6 [0] \"y\" Glue words=[\"y\"] parent=2 kids=0 first=- next=-\n"
                                             "7 [13] \"</I>\" parent=2 kids=0 first=- next=-\n"
                                             "8 [0] \"z\" Glue words=[\"z\"] parent=1 kids=0 first=- next=-\n"
                                             "9 [7] \"</BODY>\" parent=1 kids=0 first=- next=-\n"
                                             "10 [1] \"</HTML>\" parent=0 kids=0 first=- next=-\n");
}

TEST(HtmlTrickySourceTest, UnclosedBlockInsideInlineTakesTheWrongCloser) {
  // "</B>" ends the DIV level, "</BODY>" the B level, and "</HTML>" lands inside BODY.
  EXPECT_EQ(dumpOf("<B>a<DIV>b</B>c"), "chunks=10 count=10 " + kHead +
                                           "0 [1] \"<HTML>\" parent=0 kids=1 first=1 next=-\n"
                                           "1 [6] \"<BODY>\" parent=0 kids=2 first=2 next=-\n"
                                           "2 [10] \"<B>\" parent=1 kids=3 first=3 next=9\n"
                                           "3 [0] \"a\" Glue words=[\"a\"] parent=2 kids=0 first=- next=4\n"
                                           "4 [18] \"<DIV>\" parent=2 kids=1 first=5 next=7\n"
                                           "5 [0] \"b\" Glue words=[\"b\"] parent=4 kids=0 first=- next=-\n"
                                           "6 [11] \"</B>\" parent=4 kids=0 first=- next=-\n"
                                           "7 [0] \"c\" Glue words=[\"c\"] parent=2 kids=0 first=- next=-\n"
                                           "8 [7] \"</BODY>\" parent=2 kids=0 first=- next=-\n"
                                           "9 [1] \"</HTML>\" parent=1 kids=0 first=- next=-\n");
}

TEST(HtmlTrickySourceTest, TablesNestedThreeDeepWithTheInnermostRowAndCellLeftOpen) {
  const std::string td = "Width=1 ColSpan=1 VAlign=3 BgColor=&H8000000F";
  const std::string table = "Width=1 CellPadding=2 CellSpacing=2";
  EXPECT_EQ(
      dumpOf("<TABLE><TR><TD><TABLE><TR><TD><TABLE><TR><TD>x</TABLE></TD></TR></TABLE></TD></TR></TABLE>"),
      "chunks=23 count=21 " + kHead +
          "0 [1] \"<HTML>\" parent=0 kids=1 first=1 next=-\n"
          "1 [6] \"<BODY>\" parent=0 kids=1 first=2 next=-\n"
          "2 [27] \"<TABLE>\" " +
          table +
          " parent=1 kids=1 first=3 next=-\n"
          "3 [35] \"<TR>\" parent=2 kids=1 first=4 next=-\n"
          "4 [37] \"<TD>\" " +
          td +
          " parent=3 kids=1 first=5 next=-\n"
          "5 [27] \"<TABLE>\" " +
          table +
          " parent=4 kids=1 first=6 next=-\n"
          "6 [35] \"<TR>\" parent=5 kids=1 first=7 next=-\n"
          "7 [37] \"<TD>\" " +
          td +
          " parent=6 kids=1 first=8 next=-\n"
          "8 [27] \"<TABLE>\" " +
          table +
          " parent=7 kids=1 first=9 next=-\n"
          "9 [35] \"<TR>\" parent=8 kids=1 first=10 next=-\n"
          "10 [37] \"<TD>\" " +
          td +
          " parent=9 kids=1 first=11 next=-\n"
          "11 [0] \"x\" Glue words=[\"x\"] parent=10 kids=0 first=- next=-\n"
          "12 [36] \"</TD>\" parent=10 kids=0 first=- next=-\n"
          "13 [36] \"</TR>\" parent=9 kids=0 first=- next=-\n"
          "14 [28] \"</TABLE>\" parent=8 kids=0 first=- next=-\n"
          "15 [38] \"</TD>\" parent=7 kids=0 first=- next=-\n"
          "16 [36] \"</TR>\" parent=6 kids=0 first=- next=-\n"
          "17 [28] \"</TABLE>\" parent=5 kids=0 first=- next=-\n"
          "18 [38] \"</TD>\" parent=4 kids=0 first=- next=-\n"
          "19 [36] \"</TR>\" parent=3 kids=0 first=- next=-\n"
          "20 [28] \"</TABLE>\" parent=2 kids=0 first=- next=-\n"
          "21 [7] \"</BODY>\" parent=0 kids=0 first=- next=-\n"
          "22 [1] \"</HTML>\" parent=0 kids=0 first=- next=-\n");
}

}  // namespace
}  // namespace corvane

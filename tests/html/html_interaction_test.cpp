// SPDX-License-Identifier: MIT
// The HTML view's mouse, keyboard and link handling, driven through the desktop's synthetic input
// and its virtual clock.
#include <corvane/host/std_picture.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "html/html_view_fixture.h"

namespace corvane {
namespace {

constexpr COLORREF kLinkColour = 0xFF0000, kHoverColour = 0x800080;

// A page longer than the view: a link at the top, a link to "#x" and the target far below.
std::string longPage() {
  std::string s =
      "<A HREF=\"http://a\" ID=\"first\" TITLE=\"tip\">first link</A> and "
      "<A HREF=\"#x\">jump</A> <A HREF=\"http://b\">second</A>";
  for (int i = 0; i < 30; ++i) s += "<P>line " + std::to_string(i) + "</P>";
  s += "<A NAME=\"x\">target</A>";
  for (int i = 0; i < 10; ++i) s += "<P>tail " + std::to_string(i) + "</P>";
  return s;
}

class HtmlInteractionTest : public test::HtmlViewTest {
 protected:
  void SetUp() override {
    HtmlViewTest::SetUp();
    view->setEnableScroll(1);
    view->setText(longPage());
    ASSERT_TRUE(view->panV()->extenderRef()->Visible());
    ASSERT_GE(view->document().mAnchors.size(), 3u);
    log.clear();
  }
};

TEST_F(HtmlInteractionTest, HoverColoursTheLinkAndLeavingRestoresIt) {
  const std::vector<COLORREF> before = viewportPixels();
  ASSERT_TRUE(boxHolds(link(0), kLinkColour));
  moveOver(link(0));
  EXPECT_EQ(view->mHoverIndex(), link(0).Index);
  EXPECT_TRUE(view->mOverLink());
  EXPECT_TRUE(boxHolds(link(0), kHoverColour));
  EXPECT_FALSE(boxHolds(link(0), kLinkColour));
  moveOffTheView();
  EXPECT_EQ(view->mHoverIndex(), 0);
  EXPECT_TRUE(viewportPixels() == before) << "the leave notice gives the link its colour back";
}

TEST_F(HtmlInteractionTest, MouseMoveCarriesTheLinkOrMinusOne) {
  moveOver(link(0));
  moveTo(kWidth - 40, kHeight - 10);
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[0], "MouseMove first http://a 0");
  EXPECT_EQ(log[1], "MouseMove -1 -1 0");
}

TEST_F(HtmlInteractionTest, ToolTipShowsTheTitleOrElseTheAddress) {
  moveOver(link(0));
  EXPECT_EQ(view->viewportToolTipText(), "tip");
  moveOver(link(2));
  EXPECT_EQ(view->viewportToolTipText(), "http://b");
  moveTo(kWidth - 40, kHeight - 10);
  EXPECT_EQ(view->viewportToolTipText(), "");
  view->setEnableTooltips(false);
  moveOver(link(2));
  EXPECT_EQ(view->viewportToolTipText(), "");
}

TEST_F(HtmlInteractionTest, HyperlinkClickComesOneHundredMillisecondsAfterTheRelease) {
  clickOn(link(0));
  EXPECT_EQ(count("HyperlinkClick first http://a"), 0u);
  EXPECT_TRUE(view->clickTimerEnabled());
  desktop().advance(99);
  EXPECT_EQ(count("HyperlinkClick first http://a"), 0u);
  desktop().advance(1);
  EXPECT_EQ(count("HyperlinkClick first http://a"), 1u);
  EXPECT_FALSE(view->clickTimerEnabled());
  desktop().advance(500);
  EXPECT_EQ(count("HyperlinkClick first http://a"), 1u) << "the timer is one shot";
}

TEST_F(HtmlInteractionTest, ClickEventsComeInTheirOrder) {
  clickOn(link(0));
  desktop().advance(100);
  const std::vector<std::string> expected = {"MouseMove first http://a 0", "MouseDown 1",
                                             "MouseUp first http://a 1", "Click",
                                             "HyperlinkClick first http://a"};
  EXPECT_EQ(log, expected);
}

TEST_F(HtmlInteractionTest, TwoClicksWithinTheDelayGiveOneEventForTheLastLink) {
  clickOn(link(0));
  desktop().advance(50);
  clickOn(link(2));
  desktop().advance(300);
  EXPECT_EQ(count("HyperlinkClick first http://a"), 0u);
  EXPECT_EQ(count("HyperlinkClick  http://b"), 1u);
}

TEST_F(HtmlInteractionTest, InternalJumpMovesTheBarToTheTargetsTop) {
  int16_t targetTop = -1;
  for (int32_t i = 0; i <= view->document().upperBound(); ++i)
    if (view->document().chunk(i).ID == "x") targetTop = static_cast<int16_t>(view->document().chunk(i).Top);
  ASSERT_GT(targetTop, 0);
  ASSERT_LE(targetTop, view->vscScroll()->Max());
  clickOn(link(1));
  EXPECT_EQ(view->vscScroll()->Value(), targetTop);
  EXPECT_EQ(log.at(2), "MouseUp -1 -1 1") << "a jump reports no link";
  desktop().advance(200);
  EXPECT_EQ(std::count_if(log.begin(), log.end(), [](auto& e) { return e.rfind("HyperlinkClick", 0) == 0; }),
            0);
}

TEST_F(HtmlInteractionTest, JumpToATargetBelowTheBarsEndStopsAtMax) {
  view->setText("<A HREF=\"#end\">go</A>" + std::string(200, ' ') + longPage() + "<A NAME=\"end\">end</A>");
  clickOn(link(0));
  EXPECT_EQ(view->vscScroll()->Value(), view->vscScroll()->Max());
}

TEST_F(HtmlInteractionTest, JumpNamesAreCaseSensitive) {
  view->setText("<A HREF=\"#X\">go</A>" + longPage());
  clickOn(link(0));
  EXPECT_EQ(view->vscScroll()->Value(), 0);
}

TEST_F(HtmlInteractionTest, DoubleClickGivesDblClickAndASecondPress) {
  moveTo(kWidth - 40, kHeight - 10);
  log.clear();
  desktop().doubleClick(kLeft + kWidth - 40, kTop + kHeight - 10);
  EXPECT_EQ(count("DblClick"), 1u);
  EXPECT_EQ(count("MouseDown 1"), 2u);
  const auto dbl = std::find(log.begin(), log.end(), "DblClick");
  ASSERT_NE(dbl, log.end());
  ASSERT_NE(dbl + 1, log.end());
  EXPECT_EQ(*(dbl + 1), "MouseDown 1") << "the rewritten double click reaches MouseDown after DblClick";
}

TEST_F(HtmlInteractionTest, EnabledFalseBlocksOnlyMouseMove) {
  view->setEnabled(false);
  EXPECT_FALSE(view->viewportTabStop());
  moveOver(link(0));
  EXPECT_EQ(view->mHoverIndex(), 0);
  desktop().mouseDown(1);
  desktop().mouseUp(1);
  desktop().advance(100);
  const std::vector<std::string> expected = {"MouseDown 1", "MouseUp first http://a 1", "Click",
                                             "HyperlinkClick first http://a"};
  EXPECT_EQ(log, expected);
}

TEST_F(HtmlInteractionTest, KeysScrollThePage) {
  ScrollBar& v = *view->vscScroll();
  user().SetFocus(viewport());
  desktop().windows().keyDown(34);  // Page Down
  EXPECT_EQ(v.Value(), std::min<int32_t>(v.LargeChange(), v.Max()));
  desktop().windows().keyUp(34);
  desktop().windows().keyDown(40);  // Down
  EXPECT_EQ(v.Value(), std::min<int32_t>(v.LargeChange(), v.Max()) + v.SmallChange());
  desktop().windows().keyUp(40);
  desktop().windows().keyDown(35);  // End without Ctrl: nothing
  EXPECT_NE(v.Value(), v.Max());
  desktop().windows().keyUp(35);
  desktop().windows().keyDown(VK_CONTROL);
  desktop().windows().keyDown(35);  // Ctrl+End
  EXPECT_EQ(v.Value(), v.Max());
  desktop().windows().keyUp(35);
  desktop().windows().keyDown(36);  // Ctrl+Home
  EXPECT_EQ(v.Value(), v.Min());
  desktop().windows().keyUp(36);
  desktop().windows().keyUp(VK_CONTROL);
  desktop().windows().keyDown(33);  // Page Up at the top: nothing
  EXPECT_EQ(v.Value(), 0);
  EXPECT_TRUE(std::none_of(log.begin(), log.end(), [](auto& e) { return e.rfind("Key", 0) == 0; }));
}

TEST_F(HtmlInteractionTest, APressGivesTheViewportTheFocusForTheKeys) {
  moveTo(kWidth - 40, kHeight - 10);
  desktop().mouseDown(1);
  desktop().mouseUp(1);
  EXPECT_EQ(user().GetFocus(), viewport());
  desktop().windows().keyDown(34);
  EXPECT_GT(view->vscScroll()->Value(), 0);
}

TEST_F(HtmlInteractionTest, PageKeysClampButUpAndDownDoNot) {
  ScrollBar& v = *view->vscScroll();
  user().SetFocus(viewport());
  // One small step short of the end: Down would pass Max, so the step fails and nothing moves.
  v.setValue(static_cast<int16_t>(v.Max() - v.SmallChange() / 2));
  desktop().windows().keyDown(40);
  EXPECT_EQ(v.Value(), v.Max() - v.SmallChange() / 2);
  desktop().windows().keyDown(34);  // Page Down is clamped to Max
  EXPECT_EQ(v.Value(), v.Max());
  v.setValue(static_cast<int16_t>(v.SmallChange() / 2));
  desktop().windows().keyDown(38);  // Up would fall below Min: nothing
  EXPECT_EQ(v.Value(), v.SmallChange() / 2);
  desktop().windows().keyDown(33);  // Page Up is clamped to Min
  EXPECT_EQ(v.Value(), 0);
}

TEST_F(HtmlInteractionTest, HorizontalKeysNeedTheHorizontalOption) {
  view->setText("<TABLE WIDTH=900><TR><TD>wide</TD></TR></TABLE>" + longPage());
  ScrollBar& h = *view->hscScroll();
  user().SetFocus(viewport());
  desktop().windows().keyDown(39);
  EXPECT_EQ(h.Value(), 0) << "EnableScroll 1 has no horizontal keys";
  view->setEnableScroll(3);
  ASSERT_GT(h.Max(), 0);
  desktop().windows().keyDown(39);
  EXPECT_EQ(h.Value(), std::min<int32_t>(h.SmallChange(), h.Max()));
  desktop().windows().keyDown(37);
  EXPECT_EQ(h.Value(), 0);
}

TEST_F(HtmlInteractionTest, TheHandDragsThePage) {
  view->setPageMover(true);
  ScrollBar& v = *view->vscScroll();
  moveTo(100, 120);
  EXPECT_EQ(view->picViewPort()->surface().MousePointer(), 99) << "the open hand";
  desktop().mouseDown(1);
  moveTo(100, 80);
  EXPECT_EQ(v.Value(), 40) << "dragging up by 40 pixels shows the page 40 pixels further down";
  moveTo(100, 90);
  EXPECT_EQ(v.Value(), 30);
  desktop().mouseUp(1);
}

TEST_F(HtmlInteractionTest, WithoutThePageMoverTheCursorIsTheDefault) {
  moveOver(link(0));
  EXPECT_EQ(view->picViewPort()->surface().MousePointer(), 99) << "the hand over a link";
  moveTo(100, 120);
  EXPECT_EQ(view->picViewPort()->surface().MousePointer(), 0);
  desktop().mouseDown(1);
  moveTo(100, 80);
  EXPECT_EQ(view->vscScroll()->Value(), 0);
}

TEST_F(HtmlInteractionTest, KillingTheFocusEndsTheHover) {
  moveOver(link(0));
  ASSERT_NE(view->mHoverIndex(), 0);
  user().SendMessageA(viewport(), wm::KILLFOCUS, 0, 0);
  EXPECT_EQ(view->mHoverIndex(), 0);
}

TEST_F(HtmlInteractionTest, HoverDisabledLeavesTheColour) {
  view->setHoverEnabled(false);
  moveOver(link(0));
  EXPECT_EQ(view->mHoverIndex(), 0);
  EXPECT_TRUE(view->mOverLink());
  EXPECT_FALSE(boxHolds(link(0), kHoverColour));
}

TEST_F(HtmlInteractionTest, LinkHoverColourShowsAtTheNextHover) {
  const std::vector<COLORREF> before = viewportPixels();
  view->setLinkHoverColor(0x00FF00);
  EXPECT_TRUE(viewportPixels() == before) << "no repaint";
  moveOver(link(0));
  EXPECT_TRUE(boxHolds(link(0), 0x00FF00));
}

TEST_F(HtmlInteractionTest, HashLinkWithoutAVerticalBarReachesTheHost) {
  view->setEnableScroll(0);
  clickOn(link(1));
  desktop().advance(100);
  EXPECT_EQ(count("HyperlinkClick  #x"), 1u);
}

TEST_F(HtmlInteractionTest, AnchorsSwitchedOffGiveNoLinks) {
  view->setEnableAnchors(false);
  EXPECT_FALSE(view->document().mAnchors.empty()) << "the list stays until Text is set again";
  const html::HtmlChunk first = link(0);
  view->setText(longPage());
  EXPECT_TRUE(view->document().mAnchors.empty());
  moveOver(first);
  clickOn(first);
  desktop().advance(200);
  EXPECT_EQ(view->mHoverIndex(), 0);
  EXPECT_TRUE(
      std::none_of(log.begin(), log.end(), [](auto& e) { return e.rfind("HyperlinkClick", 0) == 0; }));
}

TEST_F(HtmlInteractionTest, AnchorsSwitchedOnAfterTextWaitForTheNextText) {
  view->setEnableAnchors(false);
  view->setText(longPage());
  view->setEnableAnchors(true);
  EXPECT_TRUE(view->document().mAnchors.empty());
  view->setText(longPage());
  EXPECT_FALSE(view->document().mAnchors.empty());
}

class HtmlWrappedLinkTest : public test::HtmlViewTest {};

TEST_F(HtmlWrappedLinkTest, AWrappedLinkIsHitOnlyInsideItsOneRectangle) {
  view->setText(
      "<P>words words words words words <A HREF=\"w\">a link that wraps onto the next line of "
      "the view for sure</A> end</P>");
  const html::HtmlChunk& a = link(0);
  ASSERT_GT(a.Bottom - a.Top, 20) << "the link runs over two lines";
  moveTo(std::min(a.Left, a.Right) - 2, a.Top + 2);
  if (a.Right <= a.Left) {
    EXPECT_EQ(view->mHoverIndex(), 0) << "an inverted box holds no point";
  }
  if (a.Right > a.Left) {
    moveTo((a.Left + a.Right) / 2, a.Top + 2);
    EXPECT_EQ(view->mHoverIndex(), a.Index);
  }
  moveTo(2, a.Bottom - 3);
  EXPECT_EQ(view->mHoverIndex(), a.Left <= 2 && 2 < a.Right ? a.Index : 0);
}

// ---- calls by name ----

TEST(HtmlCallParseTest, NameAndArgumentsWithAQuotedComma) {
  std::string name;
  std::vector<Variant> args;
  VexHTML::mParseCall("Foo(1,'a,b')", name, args);
  EXPECT_EQ(name, "Foo");
  ASSERT_EQ(args.size(), 2u);
  EXPECT_EQ(args[0].toString(), "1");
  EXPECT_EQ(args[1].toString(), "a,b");
}

TEST(HtmlCallParseTest, BlanksEndTheNameAndEmptyArgumentsAreDropped) {
  std::string name;
  std::vector<Variant> args;
  VexHTML::mParseCall("  Bar( \"x\" , , 2 )", name, args);
  EXPECT_EQ(name, "Bar");
  ASSERT_EQ(args.size(), 2u);
  EXPECT_EQ(args[0].toString(), "x");
  EXPECT_EQ(args[1].toString(), "2");
  // A blank ends the name, so the bracket behind it is collected into the first argument.
  VexHTML::mParseCall("Bar (1)", name, args);
  EXPECT_EQ(name, "Bar");
  ASSERT_EQ(args.size(), 1u);
  EXPECT_EQ(args[0].toString(), "(1");
}

TEST(HtmlCallParseTest, ANameAloneAndARemainingArgument) {
  std::string name;
  std::vector<Variant> args;
  VexHTML::mParseCall("Baz", name, args);
  EXPECT_EQ(name, "Baz");
  EXPECT_TRUE(args.empty());
  VexHTML::mParseCall("Qux(7", name, args);
  EXPECT_EQ(name, "Qux");
  ASSERT_EQ(args.size(), 1u);
  EXPECT_EQ(args[0].toString(), "7");
}

TEST(HtmlCallParseTest, MixedQuotesStayAndAnOpenQuoteKeepsCollecting) {
  std::string name;
  std::vector<Variant> args;
  VexHTML::mParseCall("F(\"a', 'b)", name, args);
  EXPECT_EQ(name, "F");
  ASSERT_EQ(args.size(), 2u);
  EXPECT_EQ(args[0].toString(), "\"a'") << "different quotes at both ends are kept";
  EXPECT_EQ(args[1].toString(), "'b)") << "an open quote collects the closing bracket too";
  VexHTML::mParseCall("G('a, b", name, args);
  ASSERT_EQ(args.size(), 1u);
  EXPECT_EQ(args[0].toString(), "'a, b");
}

TEST_F(HtmlInteractionTest, VbLinkCallsTheParentFormByName) {
  std::vector<std::string> got;
  form->setHostProcedure("Foo", [&](Dispatch::Args& a) {
    got.push_back(std::to_string(a.size()));
    for (auto& v : a) got.push_back(v.toString());
    return Variant();
  });
  view->setText("<A HREF=\"VB:Foo(1,'a,b')\">call</A>");
  clickOn(link(0));
  EXPECT_TRUE(got.empty()) << "the call waits for the timer";
  desktop().advance(100);
  EXPECT_EQ(got, (std::vector<std::string>{"2", "1", "a,b"}));
  EXPECT_TRUE(
      std::none_of(log.begin(), log.end(), [](auto& e) { return e.rfind("HyperlinkClick", 0) == 0; }));
}

TEST_F(HtmlInteractionTest, VbPrefixIsCaseBlindAndFailuresAreSwallowed) {
  int calls = 0;
  form->setHostProcedure("Foo", [&](Dispatch::Args&) -> Variant {
    ++calls;
    throw RuntimeError(5, "bad");
  });
  view->setText("<A HREF=\"vb:foo()\">a</A> <A HREF=\"VB:Missing(1)\">b</A>");
  clickOn(link(0));
  desktop().advance(100);
  EXPECT_EQ(calls, 1);
  clickOn(link(1));
  desktop().advance(100);
  EXPECT_EQ(calls, 1);
}

TEST_F(HtmlInteractionTest, MoreThanEightArgumentsMakeACallWithoutArguments) {
  std::vector<size_t> counts;
  form->setHostProcedure("Many", [&](Dispatch::Args& a) {
    counts.push_back(a.size());
    return Variant();
  });
  std::vector<Variant> eight(8, Variant(std::string("1"))), nine(9, Variant(std::string("1"))), none;
  view->mCallParent("Many", eight);
  view->mCallParent("Many", nine);
  view->mCallParent("Many", none);
  EXPECT_EQ(counts, (std::vector<size_t>{8, 0, 0}));
}

}  // namespace
}  // namespace corvane

// ---- quick hover repaints ----

namespace corvane {
namespace {

// Links of many kinds: plain, wrapped over lines, with bold and a coloured font inside, in a
// list and a table, next to each other, and with a text colour equal to the link colour after.
std::string linkRichPage() {
  std::string s =
      "<P>Start <A HREF=\"a\">plain</A>, <A HREF=\"b\"><B>bold</B> and <I>italic</I></A>"
      "<A HREF=\"c\">glued</A>. <A HREF=\"d\">a long link that runs over the end of the line "
      "and goes on below it</A> <A HREF=\"e\">red <FONT COLOR=red>inside</FONT> after</A></P>"
      "<UL><LI><A HREF=\"f\">item link</A><LI>plain item</UL>"
      "<TABLE BORDER=1><TR><TD BGCOLOR=yellow><A HREF=\"g\">cell link</A></TD></TR></TABLE>"
      "<FONT COLOR=#0000FF>blue text like a link</FONT> <A HREF=\"h\">last</A>";
  for (int i = 0; i < 12; ++i)
    s += "<P>filler " + std::to_string(i) + " <A HREF=\"f" + std::to_string(i) + "\">more</A></P>";
  return s;
}

class HtmlQuickHoverTest : public test::HtmlViewTest {
 protected:
  std::vector<COLORREF> pagePixels() {
    Surface& page = view->picHTML()->surface();
    std::vector<COLORREF> out;
    const int32_t w = page.pixelWidth(), h = page.pixelHeight();
    for (int32_t y = 0; y < h; ++y)
      for (int32_t x = 0; x < w; ++x) out.push_back(gdi().GetPixel(page.hdc(), x, y));
    return out;
  }
  // The page after the mouse path, then after a whole pass in the same state: they must agree.
  void expectSameAsAWholePass(const std::string& what) {
    const auto quick = pagePixels();
    view->mRender(false);
    const auto whole = pagePixels();
    size_t differing = 0;
    for (size_t k = 0; k < quick.size(); ++k) differing += quick[k] != whole[k];
    EXPECT_EQ(differing, 0u) << what;
  }
};

TEST_F(HtmlQuickHoverTest, EveryLinkHoveredAndLeftGivesThePixelsOfAWholePass) {
  view->setEnableScroll(1);
  view->setText(linkRichPage());
  const auto& anchors = view->document().mAnchors;
  ASSERT_GE(anchors.size(), 8u);
  const int64_t before = view->quickHoverRepaints();
  for (size_t n = 0; n < 8; ++n) {
    const html::HtmlChunk& a = link(n);
    if (a.Right <= a.Left || a.Top - view->vscScroll()->Value() > kHeight - 20) continue;
    moveOver(a);
    ASSERT_EQ(view->mHoverIndex(), a.Index) << n;
    expectSameAsAWholePass("hovering link " + std::to_string(n));
  }
  moveOffTheView();
  EXPECT_EQ(view->mHoverIndex(), 0);
  expectSameAsAWholePass("after leaving");
  EXPECT_GT(view->quickHoverRepaints(), before) << "the quick way was taken";
}

TEST_F(HtmlQuickHoverTest, AChangedHoverColourOrAFrozenViewStillMatchAWholePass) {
  view->setText(linkRichPage());
  moveOver(link(0));
  view->setLinkHoverColor(0x00C000);
  moveOver(link(1));
  expectSameAsAWholePass("a new hover colour");
  view->setUnderlineLinks(false);
  const int64_t quick = view->quickHoverRepaints();
  moveOver(link(0));
  EXPECT_EQ(view->quickHoverRepaints(), quick) << "underlining changed: a whole pass is needed";
  expectSameAsAWholePass("underlining switched off");
}

TEST_F(HtmlQuickHoverTest, ABackgroundPictureIsAskedForAtEveryHoverAsByAWholePass) {
  view->setText("<BODY BACKGROUND=\"bg.png\"><A HREF=\"a\">link</A></BODY>");
  int asked = 0;
  view->LoadImage.connect([&](std::string& source, PictureRef&) { asked += source == "bg.png"; });
  moveOver(link(0));
  EXPECT_EQ(asked, 1) << "the hover's pass asks for the background";
}

}  // namespace
}  // namespace corvane

namespace corvane {
namespace {

class HtmlWheelTest : public test::HtmlViewTest {};

TEST_F(HtmlWheelTest, TheWheelMovesThePageThreeStepsANotchWithinTheRange) {
  std::string page;
  for (int i = 0; i < 40; ++i) page += "<P>line " + std::to_string(i) + "</P>";
  view->setEnableScroll(1);
  view->setText(page);
  ScrollBar& v = *view->vscScroll();
  const int32_t notchDown = static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint16_t>(-120)) << 16);
  user().SendMessageA(viewport(), wm::MOUSEWHEEL, notchDown, 0);
  EXPECT_EQ(v.Value(), 3 * v.SmallChange());
  user().SendMessageA(viewport(), wm::MOUSEWHEEL, 120 << 16, 0);
  user().SendMessageA(viewport(), wm::MOUSEWHEEL, 120 << 16, 0);
  EXPECT_EQ(v.Value(), 0) << "clamped at the top";
}

}  // namespace
}  // namespace corvane

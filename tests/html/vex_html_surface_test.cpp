// SPDX-License-Identifier: MIT
// The HTML view's public surface: properties with their defaults and effects, RawText,
// DocumentTitle, the panes' tags, persistence and the life of the control.
#include <corvane/host/form_file.h>
#include <corvane/host/property_bag.h>
#include <corvane/widgets/vex_color_label.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "html/html_view_fixture.h"

namespace corvane {
namespace {

class HtmlSurfaceTest : public test::HtmlViewTest {};

TEST_F(HtmlSurfaceTest, DefaultsOfANewView) {
  EXPECT_EQ(view->DefaultFontName(), "MS Sans Serif");
  EXPECT_EQ(view->DefaultFontSize(), 10.0f);
  EXPECT_EQ(view->BackColor(), static_cast<OLE_COLOR>(0x8000000F));
  EXPECT_EQ(view->Appearance(), 0);
  EXPECT_EQ(view->BorderStyle(), 0);
  EXPECT_TRUE(view->EnableTooltips());
  EXPECT_EQ(view->EnableScroll(), 0);
  EXPECT_TRUE(view->EnableAnchors()) << "switched on by the fixture";
  EXPECT_TRUE(view->UnderlineLinks());
  EXPECT_EQ(view->DefaultPadding(), 4);
  EXPECT_EQ(view->DefaultSpacing(), 4);
  EXPECT_FALSE(view->BackgroundImage());
  EXPECT_FALSE(view->Gradient());
  EXPECT_EQ(view->GradientAngle(), 270.0f);
  EXPECT_EQ(view->BackColor2(), 255);
  EXPECT_EQ(view->DefaultTextColor(), 0);
  EXPECT_EQ(view->LinkColor(), 0xFF0000);
  EXPECT_EQ(view->LinkHoverColor(), 0x800080);
  EXPECT_TRUE(view->HoverEnabled());
  EXPECT_TRUE(view->Enabled());
  EXPECT_FALSE(view->PageMover());
  EXPECT_FALSE(view->FreezeUpdates());
  EXPECT_EQ(view->Caption(), "*HTMLCntrl*");
  EXPECT_EQ(view->DocumentTitle(), "Unknown") << "the page of its own name has no title";
}

TEST(HtmlSurfaceUnsitedTest, CreationDefaultsBeforeThePropertyStore) {
  VexHTML view;
  EXPECT_EQ(view.DefaultFontName(), "Arial") << "only until InitProperties or the store set it";
  EXPECT_EQ(view.DefaultFontSize(), 10.0f);
  EXPECT_EQ(view.DocumentTitle(), "Unknown") << "no chunks";
}

TEST_F(HtmlSurfaceTest, DocumentTitleIsTheDecodedChunkBehindTheFirstTitle) {
  view->setText("<HEAD><TITLE>A &#38; B</TITLE><TITLE>second</TITLE></HEAD><BODY>x</BODY>");
  EXPECT_EQ(view->DocumentTitle(), "A & B");
  view->setText("<TITLE></TITLE>x");
  EXPECT_EQ(view->DocumentTitle(), "</TITLE>") << "the close tag is taken when the title is empty";
  view->setText("no title");
  EXPECT_EQ(view->DocumentTitle(), "Unknown");
}

TEST_F(HtmlSurfaceTest, RawTextTradesLineEndsForBreaksAndDropsTheWrappers) {
  view->setRawText("one\r\ntwo");
  EXPECT_EQ(view->Text(), "<HTML><BODY>one<BR>two</BODY></HTML>");
  EXPECT_EQ(view->RawText(), "one\r\ntwo");
  view->setText("<body bgcolor=red>a<br>b</body>");
  EXPECT_EQ(view->RawText(), "<body bgcolor=red>a\r\nb") << "a BODY with attributes stays";
}

TEST_F(HtmlSurfaceTest, DefaultFontSizeRefreshesAPage) {
  std::string page;
  for (int i = 0; i < 20; ++i) page += "<P>some words</P>";
  view->setText(page);
  const int32_t height = view->mDocHeight();
  view->setDefaultFontSize(30);
  EXPECT_GT(view->mDocHeight(), height);
}

TEST_F(HtmlSurfaceTest, GradientAngleKeepsItsFloat) {
  view->setGradientAngle(33.25f);
  EXPECT_EQ(view->GradientAngle(), 33.25f);
  EXPECT_EQ(view->get("GradientAngle").toSingle(), 33.25f);
}

TEST_F(HtmlSurfaceTest, EnableScrollSetsThePanesTags) {
  view->setEnableScroll(1);
  EXPECT_NE(view->panVTag(), "-1");
  EXPECT_EQ(view->panHTag(), "-1");
  view->setEnableScroll(0);
  EXPECT_EQ(view->panVTag(), "-1");
  EXPECT_EQ(view->panHTag(), "-1");
  EXPECT_FALSE(view->panV()->extenderRef()->Visible());
  view->setEnableScroll(2);
  EXPECT_EQ(view->panVTag(), "-1");
  EXPECT_NE(view->panHTag(), "-1");
}

TEST_F(HtmlSurfaceTest, SettersReportTheirKeys) {
  view->controlSite().changedKeys.clear();
  view->setHoverEnabled(false);
  view->setPageMover(true);
  view->setEnableTooltips(false);
  view->setEnabled(false);
  view->setFreezeUpdates(true);
  // EnableTooltips and LinkHoverColor are stored without a report.
  view->setLinkHoverColor(0x123456);
  const std::vector<std::string> expected = {"HoverEnabled", "PageMover", "Enabled", "FreezeUpdates"};
  EXPECT_EQ(view->controlSite().changedKeys, expected);
}

TEST_F(HtmlSurfaceTest, MembersAreReachableByName) {
  view->let("RawText", Variant(std::string("a\r\nb")));
  EXPECT_EQ(view->get("RawText").toString(), "a\r\nb");
  view->setText("<TITLE>T</TITLE>");
  EXPECT_EQ(view->get("DocumentTitle").toString(), "T");
  view->let("PageMover", Variant(true));
  EXPECT_TRUE(view->PageMover());
  EXPECT_EQ(view->get("hWnd").toLong(), view->surface().hWnd());
}

// ---- persistence ----

const std::vector<std::string> kKeyOrder = {"FreezeUpdates",
                                            "Appearance",
                                            "BorderStyle",
                                            "Gradient",
                                            "GradientAngle",
                                            "BackColor2",
                                            "BackgroundImage",
                                            "DefaultTextColor",
                                            "LinkColor",
                                            "LinkHoverColor",
                                            "BackColor",
                                            "Enabled",
                                            "EnableAnchors",
                                            "EnableScroll",
                                            "EnableTooltips",
                                            "DefaultFontName",
                                            "DefaultFontSize",
                                            "UnderlineLinks",
                                            "DefaultPadding",
                                            "DefaultSpacing",
                                            "HoverEnabled",
                                            "PageMover",
                                            "Text"};

TEST_F(HtmlSurfaceTest, KeysAreWrittenAndReadInTheirOrder) {
  PropertyBag bag;
  view->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), kKeyOrder);
  PropertyBag readBag;
  auto other =
      std::dynamic_pointer_cast<VexHTML>(form->add("VexHTML", "HTML2", nullptr, 0, 0, 3000, 2000, &readBag));
  ASSERT_TRUE(other);
  EXPECT_EQ(readBag.readOrder(), kKeyOrder);
}

TEST_F(HtmlSurfaceTest, ANewViewStoresOnlyWhatDiffersFromTheDefaults) {
  view->setEnableAnchors(false);
  PropertyBag bag;
  view->WriteProperties(bag);
  // Showing set Text to the normalised form of the name, so only Text differs from its default.
  ASSERT_EQ(bag.entries().size(), 1u);
  EXPECT_EQ(bag.entries()[0].first, "Text");
  EXPECT_EQ(bag.entries()[0].second.toString(), "<HTML><BODY>HTML1</BODY></HTML>");
  view->setLinkColor(0x00FF00);
  view->setText("x");
  PropertyBag changed;
  view->WriteProperties(changed);
  ASSERT_EQ(changed.entries().size(), 2u);
  EXPECT_EQ(changed.entries()[0].first, "LinkColor");
  EXPECT_EQ(changed.entries()[1].first, "Text");
}

TEST_F(HtmlSurfaceTest, ReadingSetsUpThePanesAndHoldsTextRaw) {
  PropertyBag bag;
  bag.set("EnableScroll", Variant(int16_t(3)));
  bag.set("Text", Variant(std::string("<b>raw</b>")));
  bag.set("BackColor", Variant(int32_t(0x123456)));
  auto other = std::make_shared<VexHTML>();
  form->add(other, "VexHTML", "HTML2", nullptr, 0, 0, 3000, 2000, &bag);
  EXPECT_NE(other->panVTag(), "-1");
  EXPECT_NE(other->panHTag(), "-1");
  EXPECT_EQ(other->BackColor(), 0x123456);
  EXPECT_EQ(other->document().mBodyColor, 0x123456);
  EXPECT_EQ(other->Text(), "<HTML><BODY><b>raw</b></BODY></HTML>") << "parsed when shown";
}

TEST_F(HtmlSurfaceTest, AFormWithAViewAndALabelSavesAndLoadsToTheSameValuesAndPixels) {
  view->setEnableScroll(1);
  view->setLinkColor(0x0000C0);
  view->setDefaultFontSize(12);
  view->setGradient(true);
  view->setGradientAngle(45.5f);
  view->setText("<H1>Title</H1><P>text <A HREF=\"x\">link</A></P>");
  const float tpp = Screen::instance().TwipsPerPixelX();
  auto label = std::dynamic_pointer_cast<VexColorLabel>(
      form->add("VexColorLabel", "Label1", nullptr, 10 * tpp, 200 * tpp, 2000, 400));
  ASSERT_TRUE(label);
  label->setCaption("<b>bold</b> <c&HFF>red</c>");

  const std::string json = FormFile::save(*form);
  auto shotOf = [&](HWND h) {
    std::vector<COLORREF> out;
    auto* canvas = desktop().windows().windowCanvas(h);
    for (int32_t y = 0; y < 100; ++y)
      for (int32_t x = 0; x < 200; ++x) out.push_back(canvas->pixel(x, y));
    return out;
  };
  const auto viewPixels = shotOf(view->picViewPort()->surface().hWnd());
  const auto labelPixels = shotOf(label->surface().hWnd());
  form->Unload();
  FormRef loaded = FormFile::load(json);
  loaded->Show();
  auto view2 = std::dynamic_pointer_cast<VexHTML>(loaded->control("HTML1"));
  auto label2 = std::dynamic_pointer_cast<VexColorLabel>(loaded->control("Label1"));
  ASSERT_TRUE(view2 && label2);
  for (const std::string& key : kKeyOrder) {
    if (key == "BackgroundImage") continue;
    EXPECT_EQ(view2->get(key).toString(), view->get(key).toString()) << key;
  }
  EXPECT_EQ(label2->Caption(), label->Caption());
  EXPECT_TRUE(shotOf(view2->picViewPort()->surface().hWnd()) == viewPixels);
  EXPECT_TRUE(shotOf(label2->surface().hWnd()) == labelPixels);
}

TEST_F(HtmlSurfaceTest, ShowingInRunModeTakesTheViewportOutOfTheTabOrder) {
  EXPECT_FALSE(view->viewportTabStop());
  FormRef design = Form::create("Design", 6000, 3000, false);
  design->Show();
  auto designed =
      std::dynamic_pointer_cast<VexHTML>(design->add("VexHTML", "HTML9", nullptr, 0, 0, 3000, 2000));
  EXPECT_TRUE(designed->viewportTabStop());
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/html/vex_html.h>
#include <corvane/runtime/class_registry.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

TEST(HtmlViewTest, CreatedByNameAndByClassIdentifier) {
  auto& registry = ClassRegistry::instance();
  EXPECT_TRUE(std::dynamic_pointer_cast<VexHTML>(registry.create("VexHTML")));
  EXPECT_TRUE(
      std::dynamic_pointer_cast<VexHTML>(registry.createById("{A5486937-C7AB-4A92-9E5E-B8E5CD41C4C6}")));
}

TEST(HtmlViewTest, TextReadsBackWithItsWrappers) {
  auto view = std::make_shared<VexHTML>();
  view->setText("abc");
  EXPECT_EQ(view->Text(), "<HTML><BODY>abc</BODY></HTML>");
}

TEST(HtmlViewTest, SettingTextReportsTheChangeAndResetsTheImageList) {
  auto view = std::make_shared<VexHTML>();
  view->setText("x");
  view->setText("x");
  const auto& keys = view->controlSite().changedKeys;
  EXPECT_EQ(std::count(keys.begin(), keys.end(), "Text"), 2);
  ASSERT_EQ(view->images().size(), 1u);
  EXPECT_FALSE(view->images()[0]);
}

TEST(HtmlViewTest, BackColorBecomesThePageColourUnlessTheBodyChunkIsFlagged) {
  auto view = std::make_shared<VexHTML>();
  view->setText("<BODY BGCOLOR=red>x</BODY>");
  EXPECT_EQ(view->document().mBodyColor, 0x0000FF);
  // BODY never sets the flag, so BackColor overrides the page colour until Text is set again.
  view->setBackColor(0x00FF00);
  EXPECT_EQ(view->document().mBodyColor, 0x00FF00);
  EXPECT_EQ(view->BackColor(), 0x00FF00);
}

TEST(HtmlViewTest, PublicParseRoutinesAreReachableByName) {
  auto view = std::make_shared<VexHTML>();
  EXPECT_EQ(view->call("mstrTagID", {Variant(std::string("<td width=1>"))}).toString(), "TD");
  EXPECT_EQ(view->call("mintExtractTagAttributes", {Variant(std::string("<A B=1 C=2>"))}).toInteger(), 2);
  EXPECT_EQ(view->get("Caption").toString(), "*HTMLCntrl*");
  view->let("Text", Variant(std::string("y")));
  EXPECT_EQ(view->get("Text").toString(), "<HTML><BODY>y</BODY></HTML>");
}

class HtmlViewOnFormTest : public test::DesktopTest {};

TEST_F(HtmlViewOnFormTest, NewViewShowsItsOwnName) {
  FormRef form = Form::create("Form1", 6000, 3000);
  form->Show();
  auto view = std::dynamic_pointer_cast<VexHTML>(form->add("VexHTML", "HTML1", nullptr, 0, 0, 3000, 2000));
  ASSERT_TRUE(view);
  EXPECT_EQ(view->Text(), "<HTML><BODY>HTML1</BODY></HTML>");
  EXPECT_EQ(view->document().chunk(2).Words, (std::vector<std::string>{"HTML1"}));
  EXPECT_EQ(view->DefaultFontName(), "MS Sans Serif");
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/html/caption_page.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/widgets/vex_color_label.h>
#include <gtest/gtest.h>

#include "html/html_view_fixture.h"

namespace corvane {
namespace {

TEST(CaptionPageRulesTest, ColourTagsLoseTheirLeadingZeros) {
  EXPECT_EQ(CaptionPage::normaliseColourTags("<c&h00FF>x"), "<c&HFF>x");
  EXPECT_EQ(CaptionPage::normaliseColourTags("<c&H0000000FF>a"), "<c&HFF>a");
  EXPECT_EQ(CaptionPage::normaliseColourTags("<c&H000000&>b"), "<c&H0&>b") << "colour 0 stays";
  EXPECT_EQ(CaptionPage::normaliseColourTags("<c&HFF00>c</c>"), "<c&HFF00>c</c>");
  EXPECT_EQ(CaptionPage::normaliseColourTags("<C&h0FF>d"), "<C&h0FF>d") << "an upper-case C is no match";
}

TEST(CaptionPageRulesTest, TheHelpLabelListsTheMarkup) {
  CaptionPage page;
  EXPECT_EQ(page.Caption(), "Caption");
  EXPECT_EQ(page.field("lblAnleitung").caption,
            "<b> + </b>  = Bold\r\n<i> + </i>    = Italic\r\n<u> + </u>  = Underline\r\n"
            "<s> + </s>   = Strike\r\n<br>           = BreakLine\r\n<c[Color]> + </c> = TextColor");
  EXPECT_TRUE(std::dynamic_pointer_cast<CaptionPage>(ClassRegistry::instance().create("Caption")));
}

class CaptionPageTest : public test::HtmlViewTest {};

TEST_F(CaptionPageTest, EditsTheViewsTextAndTheLabelsCaption) {
  auto label = std::dynamic_pointer_cast<VexColorLabel>(
      form->add("VexColorLabel", "Label1", nullptr, 0, 3000, 2000, 400));
  ASSERT_TRUE(label);
  label->setCaption("old caption");
  CaptionPage page;

  page.setSelectedControls({view->extenderRef()});
  EXPECT_EQ(page.field("txtCaption").text, view->Text());
  EXPECT_FALSE(page.Changed());
  page.setText("txtCaption", "<c&h00FF>x");
  EXPECT_TRUE(page.Changed());
  page.Apply();
  EXPECT_FALSE(page.Changed());
  EXPECT_EQ(view->Text(), "<HTML><BODY><c&HFF>x</BODY></HTML>");

  page.setSelectedControls({label->extenderRef()});
  EXPECT_EQ(page.field("txtCaption").text, "old caption");
  page.setText("txtCaption", "<c&h00FF>x");
  form->setDirty(false);
  page.Apply();
  EXPECT_EQ(label->Caption(), "<c&HFF>x");
  EXPECT_TRUE(form->dirty()) << "the host's design state follows the late-bound set";
}

TEST_F(CaptionPageTest, ReturnInTheEditIsALineFeed) {
  CaptionPage page;
  page.setSelectedControls({view->extenderRef()});
  page.setText("txtCaption", "a");
  page.typeIntoCaption(13);
  page.typeIntoCaption('b');
  EXPECT_EQ(page.field("txtCaption").text, "a\nb");
}

}  // namespace
}  // namespace corvane

namespace corvane {
namespace {

class CaptionPageDrawTest : public test::HtmlViewTest {};

TEST_F(CaptionPageDrawTest, TheEditShowsItsLinesFromTheTop) {
  CaptionPage page;
  page.setSelectedControls({view->extenderRef()});
  page.setText("txtCaption", "first\nsecond");
  FormRef sheet = Form::create("Sheet", page.designWidth(), page.designHeight(), false);
  sheet->Show();
  page.draw(sheet->surface());
  // The edit starts at 8 pixels; its first line lies within the top 24 pixels, the second below.
  auto inkIn = [&](int32_t top, int32_t bottom) {
    for (int32_t y = top; y < bottom; ++y)
      for (int32_t x = 12; x < 100; ++x)
        if ((gdi().GetPixel(sheet->surface().hdc(), x, y) & 0xC0C0C0) == 0) return true;  // dark ink
    return false;
  };
  EXPECT_TRUE(inkIn(8, 24));
  EXPECT_TRUE(inkIn(24, 40));
}

}  // namespace
}  // namespace corvane

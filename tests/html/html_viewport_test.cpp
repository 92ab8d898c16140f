// SPDX-License-Identifier: MIT
// Refresh, the page surface, the scroll bars and the copy into the viewport.
#include <corvane/containers/vex_pane.h>
#include <corvane/host/extender.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/html/html_tags.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/api.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

class HtmlViewportTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 9000, 6000);
    form->Show();
    // 200 by 150 pixels at 15 twips per pixel.
    view = std::dynamic_pointer_cast<VexHTML>(form->add("VexHTML", "HTML1", nullptr, 0, 0, 3000, 2250));
    ASSERT_TRUE(view);
  }
  Surface& page() { return view->picHTML()->surface(); }
  Surface& port() { return view->picViewPort()->surface(); }
  static std::string longPage() {
    std::string s;
    for (int n = 0; n < 40; ++n) s += "line " + std::to_string(n) + "<BR>";
    return s;
  }
  FormRef form;
  std::shared_ptr<VexHTML> view;
};

TEST_F(HtmlViewportTest, WithoutScrollingAShortPageKeepsTheViewportSize) {
  view->setText("short");
  EXPECT_EQ(page().pixelHeight(), 150);
  EXPECT_EQ(page().pixelWidth(), 200);
  EXPECT_EQ(port().pixelHeight(), 150);
}

TEST_F(HtmlViewportTest, WithoutScrollingALongPageIsCutAtTheBottom) {
  view->setText(longPage());
  EXPECT_GT(view->mDocHeight(), 150);
  EXPECT_EQ(page().pixelHeight(), view->mDocHeight());
  EXPECT_EQ(port().pixelHeight(), 150);
  EXPECT_FALSE(view->panV()->extenderRef()->Visible());
}

TEST_F(HtmlViewportTest, VerticalBarAppearsForALongPageAndNarrowsTheViewport) {
  view->setEnableScroll(1);
  // The view's own short name needs no bar.
  EXPECT_EQ(view->panVTag(), "0");
  view->setText(longPage());
  EXPECT_EQ(view->panVTag(), "255");
  EXPECT_TRUE(view->panV()->extenderRef()->Visible());
  EXPECT_EQ(port().pixelWidth(), 200 - 17);
  EXPECT_EQ(view->vscScroll()->Max(), view->mDocHeight() - 150);
  EXPECT_EQ(view->vscScroll()->LargeChange(), 150);
  EXPECT_EQ(view->vscScroll()->SmallChange(), 10);
  EXPECT_EQ(view->vscScroll()->Value(), 0);
  view->setText("short");
  EXPECT_FALSE(view->panV()->extenderRef()->Visible());
  EXPECT_EQ(view->panVTag(), "0");
}

TEST_F(HtmlViewportTest, ScrollingCopiesTheMatchingPartOfThePage) {
  view->setEnableScroll(1);
  view->setText(longPage());
  view->vscScroll()->setValue(60);
  int matched = 0;
  for (int32_t y = 0; y < 80; ++y)
    for (int32_t x = 0; x < 60; ++x)
      if (gdi().GetPixel(port().hdc(), x, y) == gdi().GetPixel(page().hdc(), x, y + 60)) ++matched;
  EXPECT_EQ(matched, 80 * 60);
  // The page itself is not copied from its top any more: text lines differ.
  int differs = 0;
  for (int32_t y = 0; y < 80; ++y)
    for (int32_t x = 0; x < 60; ++x)
      if (gdi().GetPixel(port().hdc(), x, y) != gdi().GetPixel(page().hdc(), x, y)) ++differs;
  EXPECT_GT(differs, 0);
}

TEST_F(HtmlViewportTest, PaintOnlyKeepsTheArrangement) {
  view->setText("short");
  view->picHTML()->extenderRef()->setWidth(50 * 15);
  view->Refresh(true);
  EXPECT_EQ(page().pixelWidth(), 50);
  view->Refresh(false);
  EXPECT_EQ(page().pixelWidth(), 200);
}

TEST_F(HtmlViewportTest, ShorterPageKeepsTheLargerSurfaceUntilTheViewIsArranged) {
  // A paragraph that wraps into many lines at 200 pixels and into fewer at 600.
  std::string words;
  for (int n = 0; n < 120; ++n) words += "word ";
  view->setText(words);
  const int32_t tall = page().pixelHeight();
  ASSERT_GT(tall, 150);
  // A wider page wraps into fewer lines; without arranging, the surface does not shrink.
  view->picHTML()->extenderRef()->setWidth(600 * 15);
  view->Refresh(true);
  ASSERT_LT(view->mDocHeight(), tall);
  EXPECT_EQ(page().pixelHeight(), tall);
  EXPECT_EQ(page().pixelWidth(), 600);
  // Arranging gives the surface the viewport's size again before the page grows it.
  view->Refresh(false);
  EXPECT_EQ(page().pixelWidth(), 200);
  EXPECT_EQ(page().pixelHeight(), view->mDocHeight());
}

TEST_F(HtmlViewportTest, GradientIgnoresTheBodyColour) {
  view->setText("<BODY BGCOLOR=#00FF00>x</BODY>");
  EXPECT_EQ(gdi().GetPixel(page().hdc(), 150, 140), 0x00FF00u);
  view->setBackColor2(0x0000FF);
  view->setGradient(true);
  EXPECT_NE(gdi().GetPixel(page().hdc(), 150, 140), 0x00FF00u);
}

TEST_F(HtmlViewportTest, BackgroundIsAskedForOncePerPass) {
  int asked = 0;
  view->LoadImage.connect([&](std::string& source, PictureRef&) {
    if (source == "tile") ++asked;
  });
  view->setText("<BODY BACKGROUND=\"tile\">x</BODY>");
  EXPECT_EQ(asked, 3);
}

TEST_F(HtmlViewportTest, FrozenViewDrawsNothing) {
  view->setText("<BODY BGCOLOR=#00FF00>x</BODY>");
  view->setFreezeUpdates(true);
  view->setText("<BODY BGCOLOR=#0000FF>x</BODY>");
  EXPECT_EQ(gdi().GetPixel(page().hdc(), 150, 140), 0x00FF00u);
  view->setFreezeUpdates(false);
  EXPECT_EQ(gdi().GetPixel(page().hdc(), 150, 140), 0xFF0000u);
}

TEST_F(HtmlViewportTest, SunkenFrameOfAMissingImage) {
  const COLORREF shadow = translateColor(static_cast<OLE_COLOR>(0x80000010));
  view->setText("<IMG SRC=\"none\" WIDTH=20 HEIGHT=10>");
  // HSpace and VSpace 2: the frame runs from (6, 6) to (6 + 20 + 1, 6 + 10 + 1).
  HDC dc = page().hdc();
  EXPECT_EQ(gdi().GetPixel(dc, 12, 6), shadow);
  EXPECT_EQ(gdi().GetPixel(dc, 6, 12), shadow);
  EXPECT_EQ(gdi().GetPixel(dc, 12, 17), 0xFFFFFFu);
  EXPECT_EQ(gdi().GetPixel(dc, 27, 12), 0xFFFFFFu);
  EXPECT_NE(gdi().GetPixel(dc, 12, 12), shadow);
}

}  // namespace
}  // namespace corvane

namespace corvane {
namespace {

TEST_F(HtmlViewportTest, NoDrawingObjectStaysAliveAfterARefresh) {
  view->setEnableScroll(3);
  view->setText("<P>x</P>");
  const int32_t before = gdi().liveObjectCount();
  view->setText(
      "<H1>Head</H1><TABLE BORDER=1 BGCOLOR=#FFFF00><TR><TD BGCOLOR=#00FFFF>a</TD><TD>b</TD></TR></TABLE>"
      "<UL><LI>i</UL><HR><IMG SRC=x WIDTH=5 HEIGHT=5>");
  view->setGradient(true);
  view->Refresh(false);
  EXPECT_EQ(gdi().liveObjectCount(), before);
}

}  // namespace
}  // namespace corvane

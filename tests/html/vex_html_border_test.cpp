// SPDX-License-Identifier: MIT
// The HTML view's Appearance and BorderStyle: the host's border round the view, the page and the
// scroll bars laid out on the inner size, and the values kept on the host and in the store.
#include <corvane/host/property_bag.h>
#include <corvane/runtime/runtime_error.h>
#include <gtest/gtest.h>

#include <string>

#include "html/html_view_fixture.h"

namespace corvane {
namespace {

class HtmlBorderTest : public test::HtmlViewTest {
 protected:
  static constexpr COLORREF kPage = 0x0000FF;

  void SetUp() override {
    test::HtmlViewTest::SetUp();
    view->setText("<P>x</P>");
    view->setBackColor(kPage);
  }
  RECT windowRect(HWND h) {
    RECT r;
    user().GetWindowRect(h, r);
    return r;
  }
  COLORREF sys(int32_t index) { return desktop().gdi().GetSysColor(index); }
  int32_t viewportWidth() { return view->picViewPort()->surface().pixelWidth(); }
  int32_t viewportHeight() { return view->picViewPort()->surface().pixelHeight(); }
};

TEST_F(HtmlBorderTest, ANewViewIsFlatWithoutABorder) {
  EXPECT_EQ(viewportWidth(), kWidth);
  EXPECT_EQ(viewportHeight(), kHeight);
  EXPECT_EQ(screenPixel(kLeft, kTop), kPage);
  EXPECT_EQ(screenPixel(kLeft + kWidth - 1, kTop + kHeight - 1), kPage);
}

TEST_F(HtmlBorderTest, FixedBorderIn3DIsTheSunkenEdgeRoundAPageFourPixelsSmaller) {
  view->setBorderStyle(1);
  view->setAppearance(1);
  EXPECT_EQ(view->BorderStyle(), 1);
  EXPECT_EQ(view->Appearance(), 1);
  EXPECT_EQ(viewportWidth(), kWidth - 4);
  EXPECT_EQ(viewportHeight(), kHeight - 4);
  EXPECT_EQ(view->picHTML()->surface().pixelWidth(), kWidth - 4);
  EXPECT_EQ(view->surface().pixelWidth(), kWidth - 4) << "the control's inner size";
  EXPECT_EQ(view->surface().Width(), kWidth * Screen::instance().TwipsPerPixelX()) << "its outer size stays";
  const RECT port = windowRect(view->picViewPort()->surface().hWnd());
  EXPECT_EQ(port.Left, kLeft + 2);
  EXPECT_EQ(port.Top, kTop + 2);
  using namespace syscolor;
  EXPECT_EQ(screenPixel(kLeft, kTop), sys(BTNSHADOW));
  EXPECT_EQ(screenPixel(kLeft + 1, kTop + 1), sys(DKSHADOW3D));
  EXPECT_EQ(screenPixel(kLeft + kWidth - 1, kTop + kHeight - 1), sys(BTNHIGHLIGHT));
  EXPECT_EQ(screenPixel(kLeft + kWidth - 2, kTop + kHeight - 2), sys(LIGHT3D));
  // The page's first pixel is at (2, 2) of the control; its last one just inside the edge.
  EXPECT_EQ(screenPixel(kLeft + 2, kTop + 2), kPage);
  EXPECT_EQ(screenPixel(kLeft + kWidth - 3, kTop + kHeight - 3), kPage);
}

TEST_F(HtmlBorderTest, FixedBorderFlatIsOneLineInTheWindowFrameColour) {
  view->setAppearance(0);
  view->setBorderStyle(1);
  EXPECT_EQ(viewportWidth(), kWidth - 2);
  EXPECT_EQ(viewportHeight(), kHeight - 2);
  EXPECT_EQ(screenPixel(kLeft, kTop), sys(syscolor::WINDOWFRAME));
  EXPECT_EQ(screenPixel(kLeft + kWidth - 1, kTop + kHeight - 1), sys(syscolor::WINDOWFRAME));
  EXPECT_EQ(screenPixel(kLeft + 1, kTop + 1), kPage);
}

TEST_F(HtmlBorderTest, NoBorderStyleMeansNoBorderWhateverTheAppearance) {
  view->setAppearance(1);
  EXPECT_EQ(viewportWidth(), kWidth);
  EXPECT_EQ(screenPixel(kLeft, kTop), kPage);
  view->setBorderStyle(1);
  view->setBorderStyle(0);
  EXPECT_EQ(viewportWidth(), kWidth) << "taking the border away gives the room back";
  EXPECT_EQ(viewportHeight(), kHeight);
  EXPECT_EQ(screenPixel(kLeft, kTop), kPage);
}

TEST_F(HtmlBorderTest, SwitchingTheAppearanceUnderABorderChangesTheEdge) {
  view->setBorderStyle(1);
  view->setAppearance(1);
  view->setAppearance(0);
  EXPECT_EQ(viewportWidth(), kWidth - 2);
  EXPECT_EQ(screenPixel(kLeft, kTop), sys(syscolor::WINDOWFRAME));
  EXPECT_EQ(screenPixel(kLeft + 1, kTop + 1), kPage);
}

TEST_F(HtmlBorderTest, TheScrollBarsSitInsideTheEdge) {
  view->setEnableScroll(3);
  std::string tall;
  for (int i = 0; i < 40; ++i) tall += "<P>line " + std::to_string(i) + "</P>";
  view->setText(tall);
  view->setBorderStyle(1);
  view->setAppearance(1);
  ASSERT_TRUE(view->panV()->extenderRef()->Visible());
  const RECT bar = windowRect(view->panV()->surface().hWnd());
  EXPECT_EQ(bar.Right, kLeft + kWidth - 2);
  EXPECT_EQ(bar.Top, kTop + 2);
  const RECT port = windowRect(view->picViewPort()->surface().hWnd());
  EXPECT_EQ(port.Right, bar.Left) << "the viewport ends where the bar starts";
}

TEST_F(HtmlBorderTest, AppearanceKeepsTheHostsBackColour) {
  // The host alone switches a back colour that is its look's system colour...
  view->surface().setBackColor(static_cast<OLE_COLOR>(0x80000005));
  view->HostedControl::setAppearance(1);
  EXPECT_EQ(view->surface().BackColor(), static_cast<OLE_COLOR>(0x8000000F));
  view->HostedControl::setAppearance(0);
  EXPECT_EQ(view->surface().BackColor(), static_cast<OLE_COLOR>(0x80000005));
  // ...while the view's setter writes the colour it read back.
  view->setAppearance(1);
  EXPECT_EQ(view->surface().BackColor(), static_cast<OLE_COLOR>(0x80000005));
  EXPECT_EQ(view->BackColor(), kPage) << "the view's own BackColor is another value";
}

TEST_F(HtmlBorderTest, ValuesOutsideTheEnumerationsAreRefused) {
  try {
    view->setBorderStyle(2);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
  }
  try {
    view->setAppearance(-1);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
  }
  EXPECT_EQ(view->BorderStyle(), 0);
  EXPECT_EQ(view->Appearance(), 0);
  EXPECT_EQ(viewportWidth(), kWidth);
}

TEST_F(HtmlBorderTest, TheStoreKeepsTheBorderAndReadingPutsItOnTheHost) {
  view->setBorderStyle(1);
  view->setAppearance(1);
  PropertyBag bag;
  view->WriteProperties(bag);
  EXPECT_EQ(bag.ReadProperty("BorderStyle", int16_t(0)).toInteger(), 1);
  EXPECT_EQ(bag.ReadProperty("Appearance", int16_t(0)).toInteger(), 1);
  const float tpp = Screen::instance().TwipsPerPixelX();
  auto other = std::dynamic_pointer_cast<VexHTML>(
      form->add("VexHTML", "HTML2", nullptr, 0, 200 * tpp, 100 * tpp, 50 * tpp, &bag));
  ASSERT_TRUE(other);
  EXPECT_EQ(other->BorderStyle(), 1);
  EXPECT_EQ(other->Appearance(), 1);
  EXPECT_EQ(other->picViewPort()->surface().pixelWidth(), 96);
  EXPECT_EQ(other->picViewPort()->surface().pixelHeight(), 46);
  EXPECT_EQ(screenPixel(0, 200), sys(syscolor::BTNSHADOW));
}

TEST_F(HtmlBorderTest, ABadStoredBorderIsIgnored) {
  PropertyBag bag;
  bag.set("BorderStyle", Variant(int16_t(7)));
  bag.set("Appearance", Variant(std::string("not a number")));
  auto other =
      std::dynamic_pointer_cast<VexHTML>(form->add("VexHTML", "HTML2", nullptr, 0, 3000, 1500, 750, &bag));
  ASSERT_TRUE(other);
  EXPECT_EQ(other->BorderStyle(), 0);
  EXPECT_EQ(other->Appearance(), 0);
  EXPECT_EQ(other->picViewPort()->surface().pixelWidth(), 100);
}

TEST_F(HtmlBorderTest, LinksAreHitThroughTheBorder) {
  view->setText("<A HREF=\"go\">link</A>");
  view->setBorderStyle(1);
  view->setAppearance(1);
  const html::HtmlChunk& c = link();
  log.clear();
  desktop().mouseMove(kLeft + 2 + (c.Left + c.Right) / 2, kTop + 2 + (c.Top + c.Bottom) / 2);
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(log.back().rfind("MouseMove", 0), 0u);
  EXPECT_NE(log.back().find("go"), std::string::npos) << log.back();
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/host/property_bag.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_info_panel_light.h>
#include <gtest/gtest.h>

#include "support/desktop_fixture.h"
#include "support/hover_fixture.h"

namespace corvane {
namespace {

using Keys = std::vector<std::string>;
constexpr float kTwips = 15;

// A light panel of 200 by 60 pixels at the top left of a white run-time form.
class InfoPanelLightTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 400 * kTwips, 300 * kTwips, true);
    form->surface().setBackColor(0xFFFFFF);
    form->Show();
    panel = add("Panel1");
  }
  void TearDown() override {
    panel.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  std::shared_ptr<VexInfoPanelLight> add(const std::string& name, PropertyBag* bag = nullptr) {
    return std::dynamic_pointer_cast<VexInfoPanelLight>(
        form->add("VexInfoPanelLight", name, nullptr, 0, 0, 200 * kTwips, 60 * kTwips, bag));
  }
  static RECT placeOf(const HostedControl& c) {
    RECT r;
    user().GetWindowRect(c.surface().hWnd(), r);
    return r;
  }
  FormRef form;
  std::shared_ptr<VexInfoPanelLight> panel;
};

const Keys kKeyOrder = {"BorderColor", "Picture",  "Font",       "Text",        "BackColor",  "TextColor",
                        "RightMargin", "WordWrap", "PicPosLeft", "TextPosLeft", "TextPosTop", "PicPosTop"};

TEST_F(InfoPanelLightTest, KeysAreWrittenAndReadInTheirOrder) {
  PropertyBag bag;
  panel->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), kKeyOrder);
  PropertyBag empty;
  add("Panel2", &empty);
  EXPECT_EQ(empty.readOrder(), kKeyOrder);
}

TEST_F(InfoPanelLightTest, BagAfterInitPropertiesHoldsOnlyTheEmptyText) {
  PropertyBag bag;
  panel->WriteProperties(bag);
  ASSERT_EQ(bag.entries().size(), 1u);
  EXPECT_EQ(bag.entries()[0].first, "Text");
  EXPECT_EQ(bag.entries()[0].second.toString(), "");
}

TEST_F(InfoPanelLightTest, EmptyBagGivesTheStoredDefaults) {
  PropertyBag empty;
  auto loaded = add("Panel2", &empty);
  EXPECT_EQ(loaded->Text(), "Panel2");
  EXPECT_EQ(loaded->BorderColor(), 0x808080);
  EXPECT_EQ(loaded->BackColor(), 0xE2FFFF);
  EXPECT_EQ(loaded->TextColor(), static_cast<OLE_COLOR>(0x80000017));
  EXPECT_EQ(loaded->RightMargin(), 0);
  EXPECT_FALSE(loaded->WordWrap());
  EXPECT_EQ(loaded->PicPosLeft(), 6);
  EXPECT_EQ(loaded->TextPosLeft(), 26);
  EXPECT_EQ(loaded->TextPosTop(), 6);
  EXPECT_EQ(loaded->PicPosTop(), 5);
  EXPECT_EQ(loaded->Font(), form->Font());
  EXPECT_EQ(panel->BorderColor(), loaded->BorderColor()) << "the new panel agrees but for Text";
  EXPECT_EQ(panel->PicPosTop(), loaded->PicPosTop());
  EXPECT_EQ(panel->Text(), "");
}

TEST_F(InfoPanelLightTest, StoredValuesComeBack) {
  panel->setText("Hallo");
  panel->setRightMargin(4);
  panel->setWordWrap(true);
  panel->setTextPosLeft(30);
  panel->setBorderColor(0x112233);
  PropertyBag bag;
  panel->WriteProperties(bag);
  auto loaded = add("Panel2", &bag);
  EXPECT_EQ(loaded->Text(), "Hallo");
  EXPECT_EQ(loaded->RightMargin(), 4);
  EXPECT_TRUE(loaded->WordWrap());
  EXPECT_TRUE(loaded->lblHead.WordWrap()) << "WordWrap read from the bag reaches the text";
  EXPECT_EQ(loaded->TextPosLeft(), 30);
  EXPECT_EQ(loaded->BorderColor(), 0x112233);
}

TEST_F(InfoPanelLightTest, OnlyLowerCaseBrBreaksTheLine) {
  panel->setText("eins<br>zwei<BR>drei");
  EXPECT_EQ(panel->lblHead.Caption(), "eins\r\nzwei<BR>drei");
  EXPECT_EQ(panel->Text(), "eins<br>zwei<BR>drei");
}

TEST_F(InfoPanelLightTest, TextSitsAtItsFreePositionWithTheMargins) {
  EXPECT_EQ(placeOf(panel->lblHead), (RECT{26, 6, 26 + 169, 6 + 49}));
  panel->setRightMargin(10);
  panel->setTextPosLeft(40);
  panel->setTextPosTop(12);
  EXPECT_EQ(placeOf(panel->lblHead), (RECT{40, 12, 40 + 145, 12 + 43}));
}

TEST_F(InfoPanelLightTest, PictureIsShownAtItsPositionOnlyWhenThereIsOne) {
  EXPECT_FALSE(user().IsWindowVisible(panel->imgPicture.surface().hWnd()));
  panel->setPicture(test::squareIcon(16, RECT{0, 0, 16, 16}, 0x0000FF));
  EXPECT_TRUE(user().IsWindowVisible(panel->imgPicture.surface().hWnd()));
  EXPECT_EQ(placeOf(panel->imgPicture), (RECT{6, 5, 22, 21}));
  EXPECT_EQ(screenPixel(10, 10), 0x0000FF);
  panel->setPicPosLeft(50);
  EXPECT_EQ(placeOf(panel->imgPicture).Left, 50);
  panel->setPicture(LoadPicture());
  EXPECT_FALSE(user().IsWindowVisible(panel->imgPicture.surface().hWnd()));
}

TEST_F(InfoPanelLightTest, FontNothingIsError380) {
  try {
    panel->setFont(nullptr);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
    EXPECT_EQ(e.description(), "Cannot set Font to Nothing");
  }
}

TEST_F(InfoPanelLightTest, FontGivesTheTextNameSizeBoldItalicAndUnderline) {
  FontRef f = StdFont::create();
  f->setName("Arial");
  f->setSize(12);
  f->setBold(true);
  f->setItalic(true);
  f->setUnderline(true);
  panel->setFont(f);
  const FontRef& got = panel->lblHead.Font();
  EXPECT_EQ(got->Name(), "Arial");
  EXPECT_EQ(got->Size(), 12);
  EXPECT_TRUE(got->Bold());
  EXPECT_TRUE(got->Italic());
  EXPECT_TRUE(got->Underline());
}

TEST_F(InfoPanelLightTest, LooksAreARoundedBorderOnTheBackColour) {
  panel->setText("");
  EXPECT_EQ(screenPixel(100, 0), 0x808080);
  EXPECT_EQ(screenPixel(100, 59), 0x808080);
  EXPECT_EQ(screenPixel(0, 30), 0x808080);
  EXPECT_EQ(screenPixel(199, 30), 0x808080);
  EXPECT_EQ(screenPixel(100, 30), 0xE2FFFF) << "the inside keeps the back colour";
  EXPECT_NE(screenPixel(0, 0), 0x808080) << "the corner is rounded";
  EXPECT_NE(screenPixel(1, 1), 0x808080);
}

TEST_F(InfoPanelLightTest, RefreshLeavesAtMostOnePenAlive) {
  int32_t before = gdi().liveObjectCount();
  for (int i = 0; i < 20; ++i) panel->Refresh();
  EXPECT_EQ(gdi().liveObjectCount(), before);
}

TEST_F(InfoPanelLightTest, ClickOnTheTextOrThePanelIsRaised) {
  int clicks = 0;
  panel->Click.connect([&] { ++clicks; });
  panel->setText("Tipp");
  desktop().click(30, 10);
  desktop().click(190, 50);
  EXPECT_EQ(clicks, 2);
}

TEST_F(InfoPanelLightTest, RefreshGivesTheSurfaceImageToTheMaskPicture) {
  panel->setText("");
  panel->Refresh();
  const PictureRef& mask = panel->surface().MaskPicture();
  ASSERT_TRUE(mask && mask->Handle() != 0);
  EXPECT_EQ(mask->pixelSize().cx, 200);
  EXPECT_EQ(mask->pixelSize().cy, 60);
}

TEST_F(InfoPanelLightTest, ResizeSetsTheTextToItselfAndReportsIt) {
  panel->controlSite().changedKeys.clear();
  panel->onResize();
  EXPECT_EQ(panel->controlSite().changedKeys, Keys({"Text"}));
}

TEST_F(InfoPanelLightTest, BorderPenStaysSelectedAfterDrawing) {
  panel->setBorderColor(0x123456);
  // A line drawn on the surface's context afterwards comes out in the border pen.
  HDC dc = panel->surface().hdc();
  gdi().MoveToEx(dc, 40, 30, nullptr);
  gdi().LineTo(dc, 80, 30);
  EXPECT_EQ(gdi().GetPixel(dc, 60, 30) & 0xFFFFFF, 0x123456u);
}

}  // namespace
}  // namespace corvane

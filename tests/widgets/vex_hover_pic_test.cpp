// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>

#include <corvane/host/extender.h>
#include <corvane/host/property_bag.h>
#include <corvane/platform/api.h>
#include "support/hover_fixture.h"

namespace corvane {
namespace {

using test::HoverTest;
using test::squareBitmap;
using test::squareIcon;

constexpr COLORREF kWhite = 0xFFFFFF;

bool near(COLORREF a, COLORREF b, int tolerance = 8) {
  for (int sh = 0; sh < 24; sh += 8)
    if (std::abs(((a >> sh) & 255) - ((b >> sh) & 255)) > tolerance) return false;
  return true;
}

class HoverDrawTest : public HoverTest {
 protected:
  void SetUp() override {
    HoverTest::SetUp();
    hover->setImageUp(upIcon());
  }
};

// ---- drawing ----

TEST_F(HoverDrawTest, UpStateDrawsTheIconAtItsSizeAtTheTopLeft) {
  hover->Draw(VexHoverPic::StateUp);
  EXPECT_TRUE(near(px(4, 4), kRed));
  EXPECT_TRUE(near(px(11, 11), kRed));
  EXPECT_TRUE(near(px(3, 3), kWhite));
  EXPECT_TRUE(near(px(12, 12), kWhite));
  EXPECT_TRUE(near(px(13, 13), kWhite)) << "no shadow in the up state";
}

TEST_F(HoverDrawTest, HotWithOnlyImageUpDrawsTheShadowAtTwoTwoUnderTheIcon) {
  hover->setIconShadow(kGreen);
  hover->Draw(VexHoverPic::StateHot);
  // The silhouette covers (6, 6) to (14, 14); the icon covers (4, 4) to (12, 12) on top of it.
  EXPECT_TRUE(near(px(13, 13), kGreen));
  EXPECT_TRUE(near(px(13, 7), kGreen));
  EXPECT_TRUE(near(px(7, 13), kGreen));
  EXPECT_TRUE(near(px(6, 6), kRed)) << "the icon is drawn over its shadow";
  EXPECT_TRUE(near(px(4, 4), kRed));
  EXPECT_TRUE(near(px(14, 14), kWhite));
  EXPECT_TRUE(near(px(13, 5), kWhite));
  EXPECT_TRUE(near(px(5, 13), kWhite));
}

TEST_F(HoverDrawTest, ShadowUsesTheDefaultIconShadowColour) {
  EXPECT_EQ(hover->IconShadow(), 0xC0C0C0);
  hover->Draw(VexHoverPic::StateHot);
  EXPECT_TRUE(near(px(13, 13), 0xC0C0C0));
}

TEST_F(HoverDrawTest, ShadowColourMayBeASystemColour) {
  hover->setIconShadow(static_cast<OLE_COLOR>(0x80000010));
  hover->Draw(VexHoverPic::StateHot);
  EXPECT_TRUE(near(px(13, 13), gdi().GetSysColor(syscolor::BTNSHADOW)));
}

TEST_F(HoverDrawTest, DownWithoutImageDownShiftsTheUpIconOnePixel) {
  hover->Draw(VexHoverPic::StateDown);
  EXPECT_TRUE(near(px(4, 4), kWhite));
  EXPECT_TRUE(near(px(5, 5), kRed));
  EXPECT_TRUE(near(px(12, 12), kRed));
  EXPECT_TRUE(near(px(13, 13), kWhite));
}

TEST_F(HoverDrawTest, ExplicitDownPictureIsDrawnWithoutOffset) {
  hover->setImageDown(squareIcon(20, RECT{4, 4, 12, 12}, kBlue));
  hover->Draw(VexHoverPic::StateDown);
  EXPECT_TRUE(near(px(4, 4), kBlue));
  EXPECT_TRUE(near(px(12, 12), kWhite));
}

TEST_F(HoverDrawTest, ExplicitHotPictureReplacesTheShadow) {
  hover->setIconShadow(kGreen);
  hover->setImageHot(squareIcon(20, RECT{4, 4, 12, 12}, kBlue));
  hover->Draw(VexHoverPic::StateHot);
  EXPECT_TRUE(near(px(4, 4), kBlue));
  EXPECT_TRUE(near(px(13, 13), kWhite));
}

TEST_F(HoverDrawTest, DrawClearsToTheBackColourFirst) {
  hover->Draw(VexHoverPic::StateDown);
  hover->Draw(VexHoverPic::StateUp);
  EXPECT_TRUE(near(px(12, 12), kWhite)) << "nothing of the down look is left";
  hover->setBackColor(0x00FFFF);
  EXPECT_TRUE(near(px(15, 15), 0x00FFFF));
  EXPECT_TRUE(near(px(4, 4), kRed));
}

TEST_F(HoverDrawTest, NoDrawingObjectIsLeftAlive) {
  int32_t before = desktop().liveDrawingObjects();
  for (int16_t state : {0, 1, 2}) hover->Draw(state);
  hover->setEnabled(false);
  EXPECT_EQ(desktop().liveDrawingObjects(), before);
}

TEST_F(HoverDrawTest, HotDrawsThroughDrawStateWithTheMonoAndPlainFlags) {
  HDC hdc = hover->hdc();
  gdi().startRecording(hdc);
  hover->Draw(VexHoverPic::StateHot);
  std::vector<std::string> log = gdi().stopRecording(hdc);
  std::vector<std::string> states;
  for (const std::string& line : log)
    if (line.rfind("DrawStateA", 0) == 0) states.push_back(line);
  ASSERT_EQ(states.size(), 2u);
  EXPECT_NE(states[0].find(",2,2,20,20,131)"), std::string::npos) << states[0];
  EXPECT_NE(states[1].find(",0,0,20,20,3)"), std::string::npos) << states[1];
}

// ---- the disabled look ----

class HoverDisabledTest : public HoverTest {
 protected:
  void SetUp() override {
    HoverTest::SetUp();
    hover->setAutosize(false);
    hover->extenderObject().Move(hover->extenderObject().Left(), hover->extenderObject().Top(), 40 * 15, 40 * 15);
  }
  // Pixels of the window image that differ from the back colour, inside a rectangle.
  int inked(int32_t x0, int32_t y0, int32_t x1, int32_t y1) {
    int n = 0;
    for (int32_t y = y0; y < y1; ++y)
      for (int32_t x = x0; x < x1; ++x) n += !near(windowPx(x, y), kWhite, 2);
    return n;
  }
};

TEST_F(HoverDisabledTest, SixteenPixelIconIsDrawnDisabledAtThirtyTwoByThirtyTwo) {
  hover->setImageUp(squareIcon(16, RECT{0, 0, 16, 16}, kRed));
  hover->setEnabled(false);
  EXPECT_GT(inked(16, 16, 32, 32), 100) << "the disabled look covers 32 by 32 pixels";
  EXPECT_EQ(inked(33, 0, 40, 40), 0);
  EXPECT_EQ(inked(0, 33, 40, 40), 0);
  for (int32_t y = 0; y < 32; ++y)
    for (int32_t x = 0; x < 32; ++x) ASSERT_FALSE(near(windowPx(x, y), kRed, 60)) << x << "," << y;
}

TEST_F(HoverDisabledTest, DisabledLookIgnoresTheStateAndTheSize) {
  hover->setImageUp(squareIcon(48, RECT{0, 0, 48, 48}, kRed));
  hover->setEnabled(false);
  HDC hdc = hover->hdc();
  for (int16_t state : {0, 1, 2}) {
    gdi().startRecording(hdc);
    hover->Draw(state);
    std::vector<std::string> log = gdi().stopRecording(hdc);
    auto it = std::find_if(log.begin(), log.end(), [](const std::string& l) { return l.rfind("DrawStateA", 0) == 0; });
    ASSERT_NE(it, log.end());
    EXPECT_NE(it->find(",0,0,32,32,35)"), std::string::npos) << *it;
  }
}

TEST_F(HoverDisabledTest, DisabledPictureIsUsedWhenGiven) {
  hover->setImageUp(upIcon());
  hover->setImageDisabled(squareIcon(20, RECT{4, 4, 12, 12}, kBlue));
  hover->setEnabled(false);
  EXPECT_TRUE(near(windowPx(4, 4), kBlue));
  EXPECT_TRUE(near(windowPx(20, 20), kWhite));
}

TEST_F(HoverDisabledTest, EnabledSetterDisablesTheWindowAndSetsTheCustomPointer) {
  hover->surface().setMousePointer(0);
  hover->controlSite().changedKeys.clear();
  hover->setEnabled(false);
  EXPECT_FALSE(hover->Enabled());
  EXPECT_FALSE(hover->surface().Enabled());
  EXPECT_EQ(hover->surface().MousePointer(), 99);
  EXPECT_EQ(hover->controlSite().changedKeys, std::vector<std::string>{"Enabled"});
  hover->setEnabled(true);
  EXPECT_TRUE(hover->surface().Enabled());
}

// ---- bitmaps, mask and back style ----

class HoverBitmapTest : public HoverTest {
 protected:
  // 20 by 20, red (the default mask colour) with a blue square from (5, 5) to (15, 15).
  PictureRef maskedBitmap() { return squareBitmap(20, RECT{5, 5, 15, 15}, kBlue, kRed); }
};

TEST_F(HoverBitmapTest, BitmapBecomesTheSurfacePictureAndItsMask) {
  PictureRef bmp = maskedBitmap();
  hover->setImageUp(bmp);
  EXPECT_EQ(hover->surface().Picture(), bmp);
  EXPECT_EQ(hover->surface().MaskPicture(), bmp);
  EXPECT_TRUE(near(px(2, 2), kRed)) << "opaque back style: the mask colour is painted";
  EXPECT_TRUE(near(px(10, 10), kBlue));
}

TEST_F(HoverBitmapTest, BitmapIsNotShiftedWhenPressed) {
  hover->setImageUp(maskedBitmap());
  hover->Draw(VexHoverPic::StateDown);
  EXPECT_TRUE(near(px(5, 5), kBlue));
  EXPECT_TRUE(near(px(15, 15), kRed));
}

TEST_F(HoverBitmapTest, TransparentBackStyleLetsTheMaskColourFallAway) {
  hover->setImageUp(maskedBitmap());
  hover->setBackStyle(abTransparent);
  EXPECT_TRUE(near(px(2, 2), kFormColour)) << "the container shows through";
  EXPECT_TRUE(near(px(10, 10), kBlue));
  EXPECT_TRUE(near(px(19, 19), kFormColour));
  // The mouse passes through the cut-away part to the form.
  int moves = 0;
  hover->MouseMove.connect([&](int16_t&, int16_t&, float&, float&) { ++moves; });
  moveTo(2, 2);
  EXPECT_EQ(moves, 0);
  moveTo(10, 10);
  EXPECT_EQ(moves, 1);
  hover->setBackStyle(abOpaque);
  EXPECT_TRUE(near(px(2, 2), kRed));
}

TEST_F(HoverBitmapTest, CuttingTheWindowLeavesNoDrawingObjectAlive) {
  hover->setImageUp(maskedBitmap());
  int32_t before = desktop().liveDrawingObjects();
  hover->setBackStyle(abTransparent);
  hover->setMaskColor(kBlue);
  hover->setBackStyle(abOpaque);
  EXPECT_EQ(desktop().liveDrawingObjects(), before);
}

TEST_F(HoverBitmapTest, IconWithTransparentBackStyleKeepsTheWholeWindow) {
  hover->setImageUp(upIcon());
  hover->setBackStyle(abTransparent);
  EXPECT_EQ(hover->surface().MaskPicture(), nullptr);
  EXPECT_TRUE(near(px(2, 2), kWhite)) << "without a mask nothing falls away";
  EXPECT_TRUE(near(px(21, 21), kWhite));
}

TEST_F(HoverBitmapTest, MaskColourChangeMovesTheCut) {
  hover->setImageUp(maskedBitmap());
  hover->setBackStyle(abTransparent);
  hover->setMaskColor(kBlue);
  EXPECT_EQ(hover->surface().MaskColor(), kBlue);
  EXPECT_TRUE(near(px(10, 10), kFormColour));
  EXPECT_TRUE(near(px(2, 2), kRed));
}

TEST_F(HoverBitmapTest, MaskIsClearedForAnEnabledControlWithADisabledIcon) {
  hover->setImageUp(maskedBitmap());
  hover->setImageDisabled(upIcon());
  hover->setMaskColor(kRed);
  EXPECT_EQ(hover->surface().MaskPicture(), nullptr);
}

TEST_F(HoverBitmapTest, MaskIsTheCurrentPictureForADisabledControlWithADisabledIcon) {
  // The test crosses enabled and disabled: a disabled control with a disabled icon keeps a mask.
  PictureRef bmp = maskedBitmap();
  hover->setImageUp(bmp);
  hover->setImageDisabled(upIcon());
  hover->setEnabled(false);
  hover->surface().setMaskPicture(nullptr);
  hover->setMaskColor(kRed);
  EXPECT_EQ(hover->surface().MaskPicture(), bmp);
}

TEST_F(HoverBitmapTest, MaskIsClearedForADisabledControlWithAnUpIcon) {
  PictureRef bmp = maskedBitmap();
  hover->setImageUp(upIcon());
  hover->setImageDisabled(bmp);
  hover->setEnabled(false);  // the disabled bitmap becomes picture and mask
  ASSERT_EQ(hover->surface().MaskPicture(), bmp);
  hover->setMaskColor(kRed);
  EXPECT_EQ(hover->surface().MaskPicture(), nullptr);
}

TEST_F(HoverBitmapTest, MaskIsTheCurrentPictureForAnEnabledControlWithAnUpIcon) {
  PictureRef bmp = maskedBitmap();
  hover->setImageUp(upIcon());
  hover->surface().setPicture(bmp);
  hover->setMaskColor(kRed);
  EXPECT_EQ(hover->surface().MaskPicture(), bmp);
  EXPECT_EQ(hover->MaskColor(), kRed);
}

TEST_F(HoverBitmapTest, BackStyleTakesThePictureAsMaskOnlyForABitmap) {
  PictureRef bmp = maskedBitmap();
  hover->setImageUp(upIcon());
  hover->surface().setPicture(bmp);
  hover->surface().setMaskPicture(bmp);
  hover->setBackStyle(abTransparent);
  EXPECT_EQ(hover->surface().MaskPicture(), nullptr) << "neither the up nor the disabled picture is a bitmap";
  EXPECT_EQ(hover->surface().BackStyle(), 0);
  hover->setImageDisabled(squareBitmap(20, RECT{0, 0, 1, 1}, kBlue, kRed));
  hover->setBackStyle(abTransparent);
  EXPECT_EQ(hover->surface().MaskPicture(), bmp) << "a disabled bitmap is enough";
  hover->setImageDisabled(LoadPicture());
  hover->setImageUp(bmp);
  hover->setBackStyle(abOpaque);
  EXPECT_EQ(hover->surface().MaskPicture(), bmp);
  EXPECT_EQ(hover->surface().BackStyle(), 1);
}

TEST_F(HoverBitmapTest, InvalidBackStyleIsIgnored) {
  hover->setBackStyle(static_cast<BACKSTYLE_TO>(7));
  EXPECT_EQ(hover->surface().BackStyle(), 1);
  EXPECT_EQ(hover->BackStyle(), 7) << "the field was stored before the surface refused";
}

// ---- size ----

TEST_F(HoverTest, IconGrowsTheControlByTwoPixelsEachWay) {
  hover->setImageUp(upIcon());
  EXPECT_EQ(hover->surface().pixelWidth(), 22);
  EXPECT_EQ(hover->surface().pixelHeight(), 22);
  EXPECT_FLOAT_EQ(hover->surface().Width(), 22 * 15);
}

TEST_F(HoverTest, BitmapSizesTheControlExactly) {
  hover->setImageUp(squareBitmap(24, RECT{0, 0, 1, 1}, kBlue, kRed));
  EXPECT_EQ(hover->surface().pixelWidth(), 24);
  EXPECT_EQ(hover->surface().pixelHeight(), 24);
}

TEST_F(HoverTest, IconMarginFollowsTheTwipsPerPixel) {
  desktop().setTwipsPerPixel(12, 12);
  hover->setImageUp(upIcon());
  EXPECT_EQ(hover->surface().pixelWidth(), 22);
  EXPECT_FLOAT_EQ(hover->surface().Width(), 22 * 12);
}

TEST_F(HoverTest, NoAutosizeLeavesTheSizeAlone) {
  int32_t w = hover->surface().pixelWidth();
  hover->setAutosize(false);
  hover->setImageUp(upIcon());
  EXPECT_EQ(hover->surface().pixelWidth(), w);
  hover->setAutosize(true);
  EXPECT_EQ(hover->surface().pixelWidth(), 22);
}

TEST_F(HoverTest, EmptyUpPictureLeavesTheSizeAlone) {
  int32_t w = hover->surface().pixelWidth();
  hover->AdjustSize();
  hover->setImageUp(LoadPicture());
  EXPECT_EQ(hover->surface().pixelWidth(), w);
}

// ---- property setters ----

TEST_F(HoverTest, SettersReportTheirKeysAndImageUpDoesNot) {
  hover->controlSite().changedKeys.clear();
  hover->setImageDown(upIcon());
  hover->setImageHot(upIcon());
  hover->setImageDisabled(upIcon());
  hover->setImageUp(upIcon());
  hover->setStyle(abCheckButton);
  hover->setValue(abPressed);
  hover->setMaskColor(kRed);
  hover->setBackStyle(abOpaque);
  hover->setBackColor(kWhite);
  hover->setIconShadow(kGreen);
  hover->setMouseIcon(LoadPicture());
  hover->setAutosize(true);
  hover->setSound(false);
  EXPECT_EQ(hover->controlSite().changedKeys,
            (std::vector<std::string>{"ImageDown", "ImageHot", "ImageDisabled", "Style", "Value", "MaskColor",
                                      "BackStyle", "BackColor", "IconShadow", "MouseIcon", "AutoSize", "Sound"}));
}

TEST_F(HoverTest, UnchangedValueIsReportedAgain) {
  hover->controlSite().changedKeys.clear();
  form->setDirty(false);
  hover->setIconShadow(0xC0C0C0);
  hover->setIconShadow(0xC0C0C0);
  EXPECT_EQ(hover->controlSite().changedKeys, (std::vector<std::string>{"IconShadow", "IconShadow"}));
  EXPECT_TRUE(form->dirty());
}

TEST_F(HoverTest, ImageUpClearsTheSurfacePictureAndDrawsUp) {
  hover->surface().setPicture(squareBitmap(20, RECT{0, 0, 1, 1}, kBlue, kRed));
  hover->setStyle(abCheckButton);
  hover->setValue(abPressed);
  hover->setImageUp(upIcon());
  EXPECT_EQ(hover->surface().Picture(), nullptr);
  EXPECT_TRUE(near(px(4, 4), kRed)) << "drawn up, not pressed, although Value is 1";
  EXPECT_EQ(hover->Value(), abPressed);
}

TEST_F(HoverTest, StyleResetsValueAndDrawsUp) {
  hover->setImageUp(upIcon());
  hover->setValue(abPressed);
  EXPECT_TRUE(near(px(4, 4), kWhite)) << "Value 1 draws the pressed look";
  hover->controlSite().changedKeys.clear();
  hover->setStyle(abCheckButton);
  EXPECT_EQ(hover->Value(), abUnPressed);
  EXPECT_TRUE(near(px(4, 4), kRed));
  EXPECT_EQ(hover->controlSite().changedKeys, std::vector<std::string>{"Style"});
}

TEST_F(HoverTest, IconShadowTakesEffectAtTheNextDrawing) {
  hover->setImageUp(upIcon());
  hover->Draw(VexHoverPic::StateHot);
  hover->setIconShadow(kGreen);
  EXPECT_TRUE(near(px(13, 13), 0xC0C0C0));
  hover->Draw(VexHoverPic::StateHot);
  EXPECT_TRUE(near(px(13, 13), kGreen));
}

TEST_F(HoverTest, SoundChangesNothingButItsValue) {
  hover->setImageUp(upIcon());
  int32_t before = desktop().liveDrawingObjects();
  auto sounds = desktop().soundsPlayed().size();
  hover->setSound(false);
  EXPECT_FALSE(hover->Sound());
  EXPECT_EQ(desktop().soundsPlayed().size(), sounds);
  EXPECT_EQ(desktop().liveDrawingObjects(), before);
  EXPECT_TRUE(near(px(4, 4), kRed));
}

TEST_F(HoverTest, MouseIconGoesToTheSurface) {
  PictureRef icon = upIcon();
  hover->setMouseIcon(icon);
  EXPECT_EQ(hover->surface().MouseIcon(), icon);
  EXPECT_EQ(hover->MouseIcon(), icon);
}

TEST_F(HoverTest, PropertiesAreReachableByName) {
  hover->let("IconShadow", Variant(int32_t(0x123456)));
  EXPECT_EQ(hover->IconShadow(), 0x123456);
  hover->let("Style", Variant(int32_t(1)));
  EXPECT_EQ(hover->get("Style").toLong(), 1);
  hover->let("Value", Variant(int32_t(1)));
  EXPECT_EQ(hover->get("value").toLong(), 1);
  hover->let("BackStyle", Variant(int32_t(0)));
  EXPECT_EQ(hover->get("BackStyle").toLong(), 0);
  EXPECT_EQ(hover->get("hWnd").toLong(), hover->hWnd());
  hover->let("AutoSize", Variant(false));
  EXPECT_FALSE(hover->Autosize());
}

// ---- persistence ----

const std::vector<std::string> kKeyOrder = {"Enabled",   "ImageDown", "ImageHot",   "ImageDisabled", "ImageUp",
                                            "Style",     "Value",     "MaskColor",  "BackStyle",     "BackColor",
                                            "IconShadow", "MouseIcon", "AutoSize", "Sound"};

TEST_F(HoverTest, KeysAreWrittenAndReadInTheirOrder) {
  PropertyBag bag;
  hover->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), kKeyOrder);
  addHover(*form, "Hover2", &bag);
  EXPECT_EQ(bag.readOrder(), kKeyOrder);
}

TEST_F(HoverTest, BagWrittenAfterInitPropertiesIsEmpty) {
  PropertyBag bag;
  hover->WriteProperties(bag);
  EXPECT_TRUE(bag.entries().empty());
}

TEST_F(HoverTest, NewControlHasTheStatedDefaults) {
  EXPECT_TRUE(hover->Enabled());
  EXPECT_EQ(hover->ImageDown()->Handle(), 0);
  EXPECT_EQ(hover->ImageHot()->Handle(), 0);
  EXPECT_EQ(hover->ImageDisabled()->Handle(), 0);
  EXPECT_EQ(hover->ImageUp()->Handle(), 0);
  EXPECT_EQ(hover->Style(), abStandardButton);
  EXPECT_EQ(hover->Value(), abUnPressed);
  EXPECT_EQ(hover->MaskColor(), 255);
  EXPECT_EQ(hover->surface().MaskColor(), 255);
  EXPECT_EQ(hover->BackStyle(), abOpaque);
  EXPECT_EQ(hover->surface().BackStyle(), 1);
  EXPECT_EQ(hover->BackColor(), 0xFFFFFF);
  EXPECT_EQ(hover->IconShadow(), 0xC0C0C0);
  EXPECT_EQ(hover->MouseIcon()->Handle(), 0);
  EXPECT_TRUE(hover->Autosize());
  EXPECT_TRUE(hover->Sound());
}

TEST_F(HoverTest, NewControlAndOneFromAnEmptyBagAgree) {
  PropertyBag empty;
  auto loaded = addHover(*form, "Hover2", &empty);
  EXPECT_EQ(loaded->Enabled(), hover->Enabled());
  EXPECT_EQ(loaded->ImageDown()->Handle(), hover->ImageDown()->Handle());
  EXPECT_EQ(loaded->ImageHot()->Handle(), hover->ImageHot()->Handle());
  EXPECT_EQ(loaded->ImageDisabled()->Handle(), hover->ImageDisabled()->Handle());
  EXPECT_EQ(loaded->ImageUp()->Handle(), hover->ImageUp()->Handle());
  EXPECT_EQ(loaded->Style(), hover->Style());
  EXPECT_EQ(loaded->Value(), hover->Value());
  EXPECT_EQ(loaded->MaskColor(), hover->MaskColor());
  EXPECT_EQ(loaded->BackStyle(), hover->BackStyle());
  EXPECT_EQ(loaded->BackColor(), hover->BackColor());
  EXPECT_EQ(loaded->IconShadow(), hover->IconShadow());
  EXPECT_EQ(loaded->MouseIcon()->Handle(), hover->MouseIcon()->Handle());
  EXPECT_EQ(loaded->Autosize(), hover->Autosize());
  EXPECT_EQ(loaded->Sound(), hover->Sound());
}

TEST_F(HoverTest, EveryValueSurvivesARoundTrip) {
  PictureRef up = upIcon(), down = squareIcon(20, RECT{1, 1, 5, 5}, kBlue), hot = squareIcon(20, RECT{0, 0, 3, 3}, kGreen),
             dis = squareIcon(20, RECT{2, 2, 6, 6}, 0x808000), mouse = squareIcon(16, RECT{0, 0, 2, 2}, kRed);
  hover->setImageUp(up);
  hover->setImageDown(down);
  hover->setImageHot(hot);
  hover->setImageDisabled(dis);
  hover->setStyle(abCheckButton);
  hover->setValue(abPressed);
  hover->setMaskColor(kBlue);
  hover->setBackStyle(abTransparent);
  hover->setBackColor(0x00FFFF);
  hover->setIconShadow(kGreen);
  hover->setMouseIcon(mouse);
  hover->setAutosize(false);
  hover->setSound(false);
  hover->setEnabled(false);
  PropertyBag bag;
  hover->WriteProperties(bag);
  EXPECT_EQ(bag.entries().size(), kKeyOrder.size());

  auto loaded = addHover(*form, "Hover2", &bag);
  EXPECT_FALSE(loaded->Enabled());
  EXPECT_FALSE(loaded->surface().Enabled());
  EXPECT_EQ(loaded->ImageUp(), up);
  EXPECT_EQ(loaded->ImageDown(), down);
  EXPECT_EQ(loaded->ImageHot(), hot);
  EXPECT_EQ(loaded->ImageDisabled(), dis);
  EXPECT_EQ(loaded->Style(), abCheckButton);
  EXPECT_EQ(loaded->Value(), abPressed);
  EXPECT_EQ(loaded->MaskColor(), kBlue);
  EXPECT_EQ(loaded->surface().MaskColor(), kBlue);
  EXPECT_EQ(loaded->BackStyle(), abTransparent);
  EXPECT_EQ(loaded->surface().BackStyle(), 0);
  EXPECT_EQ(loaded->BackColor(), 0x00FFFF);
  EXPECT_EQ(loaded->IconShadow(), kGreen);
  EXPECT_EQ(loaded->MouseIcon(), mouse);
  EXPECT_FALSE(loaded->Autosize());
  EXPECT_FALSE(loaded->Sound());
}

TEST_F(HoverTest, ReadingEndsWithTheDrawingOfTheCurrentState) {
  PropertyBag bag;
  bag.set("ImageUp", Variant(upIcon()));
  bag.set("Style", Variant(int32_t(abCheckButton)));
  bag.set("Value", Variant(int32_t(abPressed)));
  auto loaded = addHover(*form, "Hover2", &bag);
  // It lies over the first one. Pressed: the up icon one pixel lower and to the right, and no
  // size change on reading.
  EXPECT_TRUE(near(px(4, 4), kWhite));
  EXPECT_TRUE(near(px(12, 12), kRed));
  EXPECT_EQ(loaded->surface().pixelWidth(), 34) << "reading does not size the control";
}

TEST_F(HoverTest, WrongTypedKeyIsSkipped) {
  PropertyBag bag;
  bag.set("IconShadow", Variant("kein Wert"));
  bag.set("Sound", Variant(false));
  auto loaded = addHover(*form, "Hover2", &bag);
  EXPECT_EQ(loaded->IconShadow(), 0xC0C0C0);
  EXPECT_FALSE(loaded->Sound());
}

TEST_F(HoverTest, CreatableByName) {
  auto o = form->add("VexHoverPic", "Hover3");
  EXPECT_EQ(o->typeName(), "VexHoverPic");
}

}  // namespace
}  // namespace corvane

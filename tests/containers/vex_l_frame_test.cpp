// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <corvane/host/form_file.h>
#include <corvane/host/property_bag.h>
#include "pane_fixture.h"
#include <corvane/runtime/class_registry.h>

namespace corvane {
namespace {

using test::ContainerTest;

constexpr COLORREF kOn = 0x00C000;
constexpr COLORREF kOff = 0x0000C0;
constexpr COLORREF kBack = 0xF0E0D0;

// A frame of 3000 by 1500 twips (200 by 100 pixels) at pixel (20, 20).
class LFrameTest : public ContainerTest {
 protected:
  std::shared_ptr<VexLFrame> addFrame(const std::string& name, PropertyBag* bag = nullptr, float top = 300) {
    return std::dynamic_pointer_cast<VexLFrame>(form->add("VexLFrame", name, nullptr, 300, top, 3000, 1500, bag));
  }
  // True when the outline of the 200 by 100 box at pixel (20, 20 + dy) is all c and the inside is inside.
  ::testing::AssertionResult boxIs(COLORREF c, COLORREF inside, int32_t dy = 0) {
    const Canvas& screen = desktop().screen();  // composed once for the whole check
    auto screenPixel = [&](int32_t x, int32_t y) { return screen.pixel(x, y); };
    for (int32_t x = 0; x < 200; ++x)
      for (int32_t y : {0, 99})
        if (screenPixel(kOffset + x, kOffset + dy + y) != c)
          return ::testing::AssertionFailure() << "edge pixel " << x << "," << y << " is " << std::hex
                                               << screenPixel(kOffset + x, kOffset + dy + y);
    for (int32_t y = 0; y < 100; ++y)
      for (int32_t x : {0, 199})
        if (screenPixel(kOffset + x, kOffset + dy + y) != c)
          return ::testing::AssertionFailure() << "edge pixel " << x << "," << y;
    for (int32_t y = 1; y < 99; y += 7)
      for (int32_t x = 1; x < 199; x += 7)
        if (screenPixel(kOffset + x, kOffset + dy + y) != inside)
          return ::testing::AssertionFailure() << "inner pixel " << x << "," << y;
    return ::testing::AssertionSuccess();
  }
  void colour(VexLFrame& f) {
    f.setBackColor(kBack);
    f.setBorderColor(kOn);
    f.setBorderColorDisabled(kOff);
  }
};

TEST_F(LFrameTest, DesignFormIsPixels) {
  auto f = addFrame("Frame1");
  DesignForm d = f->designForm();
  EXPECT_EQ(d.scaleMode, Surface::Pixels);
  EXPECT_FLOAT_EQ(d.width, 3165);
  EXPECT_FLOAT_EQ(d.height, 1275);
  EXPECT_FLOAT_EQ(f->surface().ScaleWidth(), 200);
  auto dropped = form->add("VexLFrame", "Frame2", nullptr, 0, 0);
  EXPECT_EQ(dropped->surface().pixelWidth(), 211);
  EXPECT_EQ(dropped->surface().pixelHeight(), 85);
}

TEST_F(LFrameTest, InitializeTakesTheContainersColourAndEnables) {
  form->surface().setBackColor(0x336699);
  auto f = addFrame("Frame1");
  EXPECT_EQ(f->BackColor(), 0x336699);
  EXPECT_TRUE(f->Enabled());
  EXPECT_EQ(f->BorderColor(), 0);
  EXPECT_EQ(f->BorderColorDisabled(), 0);
}

TEST_F(LFrameTest, BorderIsAOnePixelBoxInTheEnabledColour) {
  auto f = addFrame("Frame1");
  colour(*f);
  EXPECT_TRUE(boxIs(kOn, kBack));
  EXPECT_EQ(f->currentBorderColor(), kOn);
}

TEST_F(LFrameTest, DisabledAtRunTimeDrawsTheDisabledBorderAndDisablesTheSurface) {
  auto f = addFrame("Frame1");
  colour(*f);
  f->setEnabled(false);
  EXPECT_TRUE(boxIs(kOff, kBack));
  EXPECT_FALSE(f->surface().Enabled());
  f->setEnabled(true);
  EXPECT_TRUE(boxIs(kOn, kBack));
  EXPECT_TRUE(f->surface().Enabled());
}

TEST_F(LFrameTest, DisabledInTheDesignerDrawsTheDisabledBorderAndStaysSelectable) {
  form->setUserMode(false);
  auto f = addFrame("Frame1");
  colour(*f);
  f->setEnabled(false);
  EXPECT_FALSE(f->Enabled());
  EXPECT_TRUE(boxIs(kOff, kBack));
  EXPECT_TRUE(f->surface().Enabled()) << "the designer can still select it";
  int downs = 0;
  f->surface().MouseDown.connect([&](int16_t&, int16_t&, float&, float&) { ++downs; });
  desktop().click(kOffset + 50, kOffset + 50);
  EXPECT_EQ(downs, 1);
}

TEST_F(LFrameTest, StoredDisabledFrameInTheDesigner) {
  form->setUserMode(false);
  PropertyBag bag;
  bag.set("Enabled", false);
  bag.set("BorderColorDisabled", kOff);
  bag.set("BackColor", kBack);
  auto f = addFrame("Frame1", &bag);
  EXPECT_TRUE(boxIs(kOff, kBack));
  EXPECT_TRUE(f->surface().Enabled());
  form->setUserMode(true);
  auto g = addFrame("Frame2", &bag, 2400);
  EXPECT_FALSE(g->surface().Enabled()) << "at run time the stored state reaches the surface";
}

TEST_F(LFrameTest, SettersReportAndRedraw) {
  auto f = addFrame("Frame1");
  f->controlSite().changedKeys.clear();
  f->setBorderColor(kOn);
  EXPECT_TRUE(boxIs(kOn, 0x303030));
  f->setBackColor(kBack);
  EXPECT_TRUE(boxIs(kOn, kBack)) << "the border is drawn again after the clear";
  f->setBorderColorDisabled(kOff);
  f->setEnabled(false);
  f->setEnabled(false);
  EXPECT_EQ(f->controlSite().changedKeys,
            (std::vector<std::string>{"BorderColor", "BackColor", "BorderColorDisabled", "Enabled", "Enabled"}));
}

TEST_F(LFrameTest, BorderColourChangeWhileDisabledKeepsTheDisabledLook) {
  auto f = addFrame("Frame1");
  colour(*f);
  f->setEnabled(false);
  f->setBorderColor(0x123456);
  EXPECT_TRUE(boxIs(kOff, kBack));
  EXPECT_EQ(f->currentBorderColor(), kOff);
}

TEST_F(LFrameTest, ResizeRedrawsTheBorderBeforeRaisingResize) {
  auto f = addFrame("Frame1");
  colour(*f);
  COLORREF cornerSeen = 0;
  f->Resize.connect([&] { cornerSeen = screenPixel(kOffset + 149, kOffset + 99); });
  f->extenderObject().setWidth(2250);  // 150 pixels
  EXPECT_EQ(cornerSeen, kOn) << "the new right edge was drawn when Resize came";
  EXPECT_EQ(screenPixel(kOffset + 149, kOffset + 50), kOn);
  EXPECT_EQ(screenPixel(kOffset + 148, kOffset + 50), kBack);
}

TEST_F(LFrameTest, OutlineIsOneLineBoxThroughTheSurface) {
  auto f = addFrame("Frame1");
  colour(*f);
  auto lines = linesDrawn(f->hdc(), [&] { f->DrawBorder(); });
  // The outline from (0, 0) to (ScaleWidth - 1, ScaleHeight - 1) in pixels, round the box.
  EXPECT_EQ(lines, (std::vector<std::vector<int>>{{0, 0, 199, 0}, {199, 0, 199, 99}, {199, 99, 0, 99}, {0, 99, 0, 0}}));
}

TEST_F(LFrameTest, PersistenceKeysAndDefaults) {
  PropertyBag empty;
  auto f = addFrame("Frame1", &empty);
  EXPECT_EQ(f->BackColor(), 0xFFFFFF) << "the stored default, not the container's";
  EXPECT_EQ(f->BorderColor(), 0);
  EXPECT_EQ(f->BorderColorDisabled(), 0);
  EXPECT_TRUE(f->Enabled());
  PropertyBag bag;
  f->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), (std::vector<std::string>{"BackColor", "BorderColor", "BorderColorDisabled", "Enabled"}));
  EXPECT_TRUE(bag.entries().empty()) << "all values are their defaults";
  EXPECT_EQ(empty.readOrder(), bag.writeOrder());
}

TEST_F(LFrameTest, NewFrameStoresOnlyWhatDiffersFromTheBagDefaults) {
  auto f = addFrame("Frame1");  // back colour 0x303030 from the form
  PropertyBag bag;
  f->WriteProperties(bag);
  ASSERT_EQ(bag.entries().size(), 1u);
  EXPECT_EQ(bag.entries()[0].first, "BackColor");
  EXPECT_EQ(bag.entries()[0].second.toLong(), 0x303030);
}

TEST_F(LFrameTest, RoundTripThroughAFormFile) {
  auto f = addFrame("Frame1");
  colour(*f);
  f->setEnabled(false);
  form->surface().setBackColor(static_cast<OLE_COLOR>(0x8000000F));  // the form's own colour is not under test
  std::string text = FormFile::save(*form);
  form->Unload();
  FormRef again = FormFile::load(text);
  auto g = std::dynamic_pointer_cast<VexLFrame>(again->control("Frame1"));
  ASSERT_TRUE(g);
  EXPECT_EQ(g->BackColor(), kBack);
  EXPECT_EQ(g->BorderColor(), kOn);
  EXPECT_EQ(g->BorderColorDisabled(), kOff);
  EXPECT_FALSE(g->Enabled());
  EXPECT_EQ(g->currentBorderColor(), kOff);
}

TEST_F(LFrameTest, MembersByNameAndFactory) {
  auto f = addFrame("Frame1");
  f->let("BorderColor", Variant(0x0000FF));
  EXPECT_EQ(f->get("BorderColor").toLong(), 0x0000FF);
  f->let("Enabled", Variant(false));
  EXPECT_FALSE(f->get("Enabled").toBool());
  EXPECT_EQ(f->currentBorderColor(), 0);
  EXPECT_EQ(f->get("hWnd").toLong(), f->hWnd());
  auto byId = ClassRegistry::instance().createById("CE7B992E-C717-4D65-8007-3A4511DD2627");
  ASSERT_TRUE(byId);
  EXPECT_EQ(byId->typeName(), "VexLFrame");
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_frame.h>
#include <corvane/containers/vex_frame_box.h>
#include <corvane/host/extender.h>
#include <corvane/host/form_file.h>
#include <corvane/host/property_bag.h>
#include <corvane/host/std_picture.h>
#include <corvane/widgets/vex_color_label.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "support/desktop_fixture.h"
#include "support/hover_fixture.h"

namespace corvane {
namespace {

// A box of 3600 by 4500 twips (240 by 300 pixels) at (20, 20) pixels on a shown form; frames are
// 3000 by 1500 twips.
class FrameBoxTest : public test::DesktopTest {
 protected:
  static constexpr int32_t kLeft = 20, kTop = 20;
  static constexpr float kBoxHeight = 4500, kFrameWidth = 3000, kFrameHeight = 1500;

  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 6000, 6000, true);
    form->Show();
    box = std::dynamic_pointer_cast<VexFrameBox>(
        form->add("VexFrameBox", "Box1", nullptr, 300, 300, 3600, kBoxHeight));
    box->ScrollVisibleEvent.connect([this](bool& v) { shown.push_back(v); });
  }
  void TearDown() override {
    frames.clear();
    box.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  // Adds a frame at the left of the box where the stack will put it (below the last one at
  // FrameDistance), and lets the box notice it.
  std::shared_ptr<VexFrame> addFrame(PropertyBag* bag = nullptr, float height = kFrameHeight, float at = -1) {
    std::string name = "Frame" + std::to_string(frames.size() + 1);
    if (at < 0) at = frames.empty() ? 0 : top(frames.size() - 1) + heightOf(frames.size() - 1) + 255;
    auto f = std::dynamic_pointer_cast<VexFrame>(
        form->add("VexFrame", name, box.get(), 0, at, kFrameWidth, height, bag));
    frames.push_back(f);
    box->Paint();
    return f;
  }
  // A position in twips as the window holds it: whole pixels of 15 twips, ties to even.
  static float snap(double twips) { return static_cast<float>(std::nearbyint(twips / 15) * 15); }
  float top(size_t i) { return frames[i]->extenderObject().Top(); }
  float heightOf(size_t i) { return frames[i]->extenderObject().Height(); }
  float width(size_t i) { return frames[i]->extenderObject().Width(); }
  // Clicks the caption of a frame, wherever the stack has put it.
  void clickCaption(size_t i) {
    desktop().advance(1000);
    desktop().click(kLeft + 50, kTop + static_cast<int32_t>(top(i) / 15) + 10);
  }
  static void fillCollapsed(PropertyBag& bag) {
    bag.set("Expandierbar", true);
    bag.set("Expandiert", false);
    bag.set("HeightExpanded", 1500);
  }

  FormRef form;
  std::shared_ptr<VexFrameBox> box;
  std::vector<std::shared_ptr<VexFrame>> frames;
  std::vector<bool> shown;
};

TEST_F(FrameBoxTest, DefaultsAndTheFixedScrollBar) {
  EXPECT_TRUE(box->AutoFrameAlign());
  EXPECT_FALSE(box->ScrollVisible());
  EXPECT_EQ(box->FrameDistance(), 255);
  EXPECT_TRUE(box->AutoIndent());
  EXPECT_FALSE(box->ScrollBarAlways());
  EXPECT_EQ(box->ScrollBarTop(), 0);
  EXPECT_EQ(box->BackgroundImageStyle(), 1);
  EXPECT_EQ(box->XPScroll().SmallChange(), 2000);
  EXPECT_EQ(box->XPScroll().LargeChange(), 4000);
  EXPECT_FALSE(box->XPScroll().Visible());
  EXPECT_TRUE(box->ContainedControls().empty()) << "the bar is no contained control";
  // The bar sits at the right edge, over the full height.
  Extender& bar = *box->XPScroll().extenderRef();
  EXPECT_EQ(bar.Left(), 3600 - 240);
  EXPECT_EQ(bar.Height(), kBoxHeight);
  EXPECT_EQ(bar.Width(), 240);
}

TEST_F(FrameBoxTest, OneControlMovesNothingAndTheCheckUsesIt) {
  addFrame(nullptr, 6000);  // taller than the box
  EXPECT_EQ(top(0), 0);
  EXPECT_TRUE(box->ScrollVisible());
  EXPECT_EQ(box->XPScroll().Max(), 6000 + 80 - 4500);
}

TEST_F(FrameBoxTest, NewControlAtTheOriginGoesToTheBottomAndThenIntoTheStack) {
  addFrame(nullptr, kFrameHeight, 0);
  addFrame(nullptr, 900, 0);
  // Put at 4500 - 900 - 80, it sorts last and is stacked below the first at FrameDistance.
  EXPECT_EQ(top(0), 0);
  EXPECT_EQ(top(1), 1500 + 255);
  addFrame(nullptr, 900, 0);
  EXPECT_EQ(top(2), 1755 + 900 + 255);
}

TEST_F(FrameBoxTest, TheBottomPlacementRoundsToPixelsAndCanShowTheBarForAMoment) {
  addFrame(nullptr, kFrameHeight, 0);
  addFrame(nullptr, kFrameHeight, 0);
  // 4500 - 1500 - 80 = 2920 twips is 194.67 pixels, held as 195: its bottom plus 80 passes the
  // box by 5, so the bar is taken into use before the stack closes up; the check after the
  // re-stack finds it fitting and widens the frames as when the bar ends.
  EXPECT_EQ(top(1), 1755);
  EXPECT_FALSE(box->ScrollVisible());
  EXPECT_EQ(width(0), snap(kFrameWidth + 100));
  EXPECT_EQ(shown, (std::vector<bool>{false, true, false}));
}

TEST_F(FrameBoxTest, StackOutgrowingTheBoxOnAddingShowsTheBarWithoutIndent) {
  addFrame();
  addFrame();
  EXPECT_FALSE(box->ScrollVisible());
  addFrame();  // bottom at 3510 + 1500 + 80 = 5090
  EXPECT_TRUE(box->ScrollVisible());
  EXPECT_TRUE(box->XPScroll().Visible());
  EXPECT_TRUE(box->XPScroll().Enabled());
  EXPECT_EQ(box->XPScroll().Max(), 5090 - 4500);
  // The arrangement takes the bar into use itself, so the check finds it in use: no indent.
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(width(i), kFrameWidth) << i;
  ASSERT_FALSE(shown.empty());
  EXPECT_TRUE(shown.back());
}

TEST_F(FrameBoxTest, CollapseRestacksAtFrameDistanceAndEndsTheBar) {
  addFrame();
  frames[0]->setExpandierbar(true);
  addFrame();
  addFrame();
  ASSERT_TRUE(box->ScrollVisible());
  clickCaption(0);
  EXPECT_FALSE(frames[0]->Expandiert());
  EXPECT_EQ(heightOf(0), 300);
  EXPECT_EQ(top(1), 300 + 255);
  EXPECT_EQ(top(2), 555 + 1500 + 255);
  EXPECT_FALSE(box->ScrollVisible()) << "the stack fits again";
  EXPECT_FALSE(box->XPScroll().Visible());
  for (size_t i = 0; i < 3; ++i)
    EXPECT_EQ(width(i), snap(kFrameWidth + 100)) << "the end of the bar widens by 100";
}

TEST_F(FrameBoxTest, ExpandingRestoresTheStoredHeightAndBringsTheFrameIntoView) {
  addFrame();
  addFrame();
  PropertyBag bag;
  fillCollapsed(bag);
  addFrame(&bag, 300);  // stored collapsed: no height at a collapse yet
  ASSERT_EQ(top(2), 3510);
  ASSERT_FALSE(box->ScrollVisible());
  clickCaption(2);
  EXPECT_TRUE(frames[2]->Expandiert());
  EXPECT_EQ(heightOf(2), 1500);
  EXPECT_TRUE(box->ScrollVisible());
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(width(i), snap(kFrameWidth - 100)) << "indented for the bar";
  // Its bottom lay below the view: the bar scrolls by 3510 + 1500 - 4500 + 80.
  EXPECT_EQ(box->XPScroll().Value(), 590);
  EXPECT_EQ(top(0), snap(-590));
  EXPECT_EQ(top(1), snap(1755 - 590));
  EXPECT_EQ(top(2), snap(3510 - 590));
  // Collapsing it again lets the stack fit: the bar goes and the stack scrolls back.
  clickCaption(2);
  EXPECT_FALSE(box->ScrollVisible());
  EXPECT_EQ(box->XPScroll().Value(), 0);
  EXPECT_EQ(top(0), snap(snap(-590) + 590));
  EXPECT_EQ(top(2), 3510);
}

TEST_F(FrameBoxTest, BringingIntoViewBeyond16BitsIsAnOverflowAndLeavesTheBar) {
  addFrame();
  auto tall = addFrame();
  // 1755 + 70000 - 4500 + 0 + 80 = 67335 does not fit a 16-bit value: that statement fails
  // (and so does the new Max), and the bar keeps its position instead of taking a wrapped one.
  tall->extenderObject().setHeight(70000);
  box->CtrlRefresh(tall->hWnd());
  ASSERT_TRUE(box->ScrollVisible());
  EXPECT_EQ(box->XPScroll().Value(), 0);
  EXPECT_EQ(top(0), 0);
}

TEST_F(FrameBoxTest, ScrollBarClicksMoveTheStack) {
  addFrame(nullptr, 3000);
  addFrame(nullptr, 3000);
  ASSERT_TRUE(box->ScrollVisible());
  int32_t max = box->XPScroll().Max();
  ASSERT_EQ(max, 3000 + 3255 + 80 - 4500);
  // The lower arrow of the bar (at the box's right edge, 300 pixels tall).
  desktop().click(kLeft + 240 - 8, kTop + 300 - 5);
  EXPECT_EQ(box->XPScroll().Value(), max) << "a step of 2000 stops at Max";
  EXPECT_EQ(top(0), snap(-max));
  EXPECT_EQ(top(1), snap(3255 - max));
}

TEST_F(FrameBoxTest, FrameDistanceMovesEveryControlButTheFirst) {
  addFrame();
  addFrame();
  box->setFrameDistance(600);
  EXPECT_EQ(top(0), 0);
  EXPECT_EQ(top(1), 2100);
}

TEST_F(FrameBoxTest, ScrollValueBeyondTheLastBottomStopsThere) {
  addFrame();
  addFrame();
  ASSERT_FALSE(box->ScrollVisible());
  box->setScrollValue(30000);
  EXPECT_EQ(box->ScrollValue(), 1755 + 1500);
  box->setScrollValue(-5);
  EXPECT_EQ(box->ScrollValue(), 0) << "raised to Min";
  EXPECT_EQ(top(0), 0);
}

TEST_F(FrameBoxTest, ScrollBarAlwaysKeepsTheBarAndWidensAtEachCheck) {
  addFrame();
  box->setScrollBarAlways(true);
  EXPECT_TRUE(box->ScrollVisible());
  EXPECT_TRUE(box->XPScroll().Visible());
  EXPECT_FALSE(box->XPScroll().Enabled()) << "in use only while the stack is too tall";
  float before = width(0);
  box->XPBarScrollCheck();
  EXPECT_EQ(width(0), snap(before + 100));
  box->XPBarScrollCheck();
  EXPECT_EQ(width(0), snap(snap(before + 100) + 100));
}

TEST_F(FrameBoxTest, AutoIndentOffKeepsTheWidths) {
  box->setAutoIndent(false);
  addFrame();
  addFrame();
  PropertyBag bag;
  fillCollapsed(bag);
  addFrame(&bag, 300);
  clickCaption(2);
  ASSERT_TRUE(box->ScrollVisible());
  EXPECT_EQ(width(0), kFrameWidth);
}

TEST_F(FrameBoxTest, ScrollVisibleHandlerMayChangeTheValue) {
  box->ScrollVisibleEvent.connect([](bool& v) { v = true; });
  box->setScrollVisible(false);
  EXPECT_TRUE(box->ScrollVisible());
  EXPECT_FALSE(box->XPScroll().Visible()) << "the bar was set before the event";
}

TEST_F(FrameBoxTest, ScrollBarTopMovesAndShortensTheBar) {
  box->setScrollBarTop(600);
  Extender& bar = *box->XPScroll().extenderRef();
  EXPECT_EQ(bar.Top(), 600);
  EXPECT_EQ(bar.Height(), kBoxHeight - 600);
}

TEST_F(FrameBoxTest, DesignerArrangesFromPaintOnlyWithAutoFrameAlign) {
  form->setUserMode(false);
  box->setAutoFrameAlign(false);
  addFrame();
  auto f = std::dynamic_pointer_cast<VexFrame>(
      form->add("VexFrame", "FrameX", box.get(), 0, 900, kFrameWidth, 600));
  box->Paint();
  EXPECT_EQ(f->extenderObject().Top(), 900) << "not stacked in the designer without AutoFrameAlign";
  box->setAutoFrameAlign(true);
  EXPECT_EQ(f->extenderObject().Top(), 1755);
}

TEST_F(FrameBoxTest, NewControlsAreNoticedFromTheWindowsPaintUntilTheBackImageIsOn) {
  auto add = [&](const std::string& name) {
    auto f = std::dynamic_pointer_cast<VexFrame>(
        form->add("VexFrame", name, box.get(), 0, 0, kFrameWidth, kFrameHeight));
    frames.push_back(f);
  };
  add("FrameA");
  add("FrameB");
  ASSERT_FALSE(box->surface().AutoRedraw());
  platform().user().InvalidateRect(box->hWnd(), nullptr, false);
  platform().user().DoEvents();
  EXPECT_EQ(top(1), 1755) << "the window's paint arranged both";
  EXPECT_TRUE(box->surface().AutoRedraw());
  add("FrameC");
  platform().user().InvalidateRect(box->hWnd(), nullptr, false);
  platform().user().DoEvents();
  EXPECT_EQ(top(2), 0) << "with the back image on, the window no longer asks for Paint";
  box->Paint();
  EXPECT_EQ(top(2), 3510);
}

TEST_F(FrameBoxTest, AControlWithoutGeometryIsSkipped) {
  addFrame();
  // A plain picture box has Top, Height and hWnd; the stack takes it as any other.
  form->add("PictureBox", "picPlain", box.get(), 0, 0, 1200, 600);
  box->Paint();
  EXPECT_EQ(std::dynamic_pointer_cast<HostedControl>(form->control("picPlain"))->extenderObject().Top(),
            1755);
}

TEST_F(FrameBoxTest, PropertiesSurviveABagInTheirOrder) {
  box->setFrameDistance(120);
  box->setAutoIndent(false);
  box->setScrollBarTop(300);
  box->setBackColor(0xEEEEEE);
  PropertyBag bag;
  box->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(),
            (std::vector<std::string>{"BackColor", "Enabled", "AutoFrameAlign", "ScrollValue",
                                      "ScrollVisible", "BackgroundImage", "BackgroundImageStyle",
                                      "FrameDistance", "AutoIndent", "ScrollBarAlways", "ScrollBarTop"}));
  auto copy = std::dynamic_pointer_cast<VexFrameBox>(
      form->add("VexFrameBox", "Box2", nullptr, 0, 0, 3600, 4500, &bag));
  EXPECT_EQ(copy->FrameDistance(), 120);
  EXPECT_FALSE(copy->AutoIndent());
  EXPECT_EQ(copy->ScrollBarTop(), 300);
  EXPECT_EQ(copy->BackColor(), 0xEEEEEEu);
  EXPECT_EQ(copy->XPScroll().extenderRef()->Top(), 300);
  PropertyBag fresh;
  std::dynamic_pointer_cast<VexFrameBox>(form->add("VexFrameBox", "Box3", nullptr, 0, 0, 3600, 4500))
      ->WriteProperties(fresh);
  EXPECT_TRUE(fresh.entries().empty());
  // A box loaded from an empty bag agrees with the new one.
  PropertyBag empty, fromEmpty;
  auto loaded = std::dynamic_pointer_cast<VexFrameBox>(
      form->add("VexFrameBox", "Box4", nullptr, 0, 0, 3600, 4500, &empty));
  loaded->WriteProperties(fromEmpty);
  EXPECT_TRUE(fromEmpty.entries().empty());
  EXPECT_TRUE(loaded->AutoFrameAlign());
  EXPECT_EQ(loaded->FrameDistance(), 255);
  EXPECT_EQ(loaded->BackgroundImageStyle(), 1);
}

TEST_F(FrameBoxTest, FormWithABoxOfFramesHoldingLabelsSurvivesSaveAndLoad) {
  addFrame();
  addFrame();
  addFrame();
  frames[0]->setCaption("Aufgaben");
  frames[0]->setExpandierbar(true);
  frames[1]->setCaption("Details");
  frames[1]->setCaptionStyle(VexFrame::pbSolid);
  frames[2]->setCaption("Orte");
  frames[2]->setCaptionBorder(VexFrame::pbRound);
  for (size_t i = 0; i < 3; ++i) {
    auto l = std::dynamic_pointer_cast<VexColorLabel>(
        form->add("VexColorLabel", "Label" + std::to_string(i + 1), frames[i].get(), 10, 30, 150, 20));
    l->setCaption("Eintrag <b>" + std::to_string(i + 1) + "</b>");
  }
  std::string text = FormFile::save(*form);
  Canvas& before = desktop().screen();
  std::vector<COLORREF> pixels;
  for (int y = kTop; y < kTop + 300; y += 3)
    for (int x = kLeft; x < kLeft + 240; x += 3) pixels.push_back(before.pixel(x, y));
  frames.clear();
  box.reset();
  form->Unload();
  form.reset();
  FormRef again = FormFile::load(text);
  again->Show();
  platform().user().DoEvents();  // the box's first paint arranges the stack and sets up its bar
  auto f1 = std::dynamic_pointer_cast<VexFrame>(again->control("Frame1"));
  auto f3 = std::dynamic_pointer_cast<VexFrame>(again->control("Frame3"));
  ASSERT_TRUE(f1 && f3);
  EXPECT_EQ(f1->Caption(), "Aufgaben");
  EXPECT_TRUE(f1->Expandierbar());
  EXPECT_EQ(f3->CaptionBorder(), VexFrame::pbRound);
  EXPECT_EQ(f3->extenderObject().Top(), 3510);
  EXPECT_EQ(FormFile::save(*again), text) << "a second save writes the same file";
  Canvas& after = desktop().screen();
  size_t k = 0, differing = 0;
  for (int y = kTop; y < kTop + 300; y += 3)
    for (int x = kLeft; x < kLeft + 240; x += 3)
      if (after.pixel(x, y) != pixels[k++]) ++differing;
  EXPECT_EQ(differing, 0u);
}

TEST_F(FrameBoxTest, TheBarNeverKeepsTheFocus) {
  addFrame(nullptr, 6000);
  ASSERT_TRUE(box->XPScroll().Visible());
  desktop().click(kLeft + 240 - 8, kTop + 300 - 5);
  EXPECT_NE(platform().user().GetFocus(), box->XPScroll().surface().hWnd());
  EXPECT_NE(platform().user().GetFocus(), 0);
}

TEST_F(FrameBoxTest, ShowScrollsBackToTheTop) {
  addFrame(nullptr, 6000);
  box->XPScroll().setValue(900);
  EXPECT_EQ(top(0), -900);
  box->Show();
  EXPECT_EQ(box->ScrollValue(), 0);
  EXPECT_EQ(top(0), 0);
}

TEST_F(FrameBoxTest, BackgroundImageIsShownOrTiled) {
  PictureRef tile = test::squareBitmap(10, RECT{0, 0, 5, 5}, 0x0000FF, 0xFF0000);
  box->setBackgroundImage(tile);
  EXPECT_EQ(box->surface().Picture(), tile) << "style 1: the surface's picture";
  box->setBackgroundImageStyle(VexFrameBox::vxTiled);
  // Tiles of 150 twips (10 pixels) from (1, 1) twips on: a red square at the top left of each.
  Canvas* c = desktop().windows().windowCanvas(box->hWnd());
  EXPECT_EQ(c->pixel(22, 22), 0x0000FFu);
  EXPECT_EQ(c->pixel(27, 27), 0xFF0000u);
  box->setBackgroundImage(LoadPicture());
  EXPECT_FALSE(box->surface().Picture() && box->surface().Picture()->Handle());
}

TEST_F(FrameBoxTest, BackgroundImageStyleAboveAByteIsAnOverflow) {
  EXPECT_THROW(box->setBackgroundImageStyle(300), RuntimeError);
  EXPECT_EQ(box->BackgroundImageStyle(), 1);
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/host/property_bag.h>
#include <corvane/platform/api.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "runtime/expect_error.h"
#include "support/frame_fixture.h"

namespace corvane {
namespace {

using Log = std::vector<std::string>;

class FrameInteractionTest : public test::FrameTest {
 protected:
  void makeExpandable() {
    frame->setExpandierbar(true);
    log.clear();
  }
};

TEST_F(FrameInteractionTest, NewFrameHasTheDefaultsAndBlendsWithItsContainer) {
  EXPECT_FALSE(frame->Expandierbar());
  EXPECT_TRUE(frame->Expandiert());
  EXPECT_EQ(frame->CaptionHeight(), 4);
  EXPECT_EQ(frame->captionPixels(), 20);
  EXPECT_EQ(frame->CaptionHoverMode(), VexFrame::OnlyColor);
  EXPECT_EQ(frame->TopLeftAColor(), 14278627u);
  EXPECT_EQ(frame->BorderRoundColor(), kFormColour) << "read from the container";
  EXPECT_EQ(frame->BackColor(), 0xFFFFFFu);
  EXPECT_EQ(frame->IconTop(), 2);
  EXPECT_EQ(frame->ShadowWide(), 2);
  EXPECT_EQ(frame->HeightExpanded(), kHeight * 15) << "the first Resize stores the height";
}

TEST_F(FrameInteractionTest, ClickInTheCaptionCollapsesAndRaisesCollapseThenIconClick) {
  makeExpandable();
  form->setDirty(false);
  clickAt(50, 10);
  EXPECT_FALSE(frame->Expandiert());
  EXPECT_EQ(pixelHeight(), 20);
  EXPECT_EQ(frame->lastHeight(), kHeight * 15);
  Log events;
  for (const auto& e : log)
    if (e == "Collapse" || e == "Expand" || e == "IconClick") events.push_back(e);
  EXPECT_EQ(events, (Log{"Collapse", "IconClick"}));
  EXPECT_TRUE(form->dirty());
}

TEST_F(FrameInteractionTest, ClickOutsideTheCaptionDoesNothing) {
  makeExpandable();
  clickAt(50, 60);
  EXPECT_TRUE(frame->Expandiert());
  EXPECT_EQ(pixelHeight(), kHeight);
}

TEST_F(FrameInteractionTest, NotExpandableClickChangesNothingButThePropertyStillCollapses) {
  clickAt(50, 10);
  EXPECT_TRUE(frame->Expandiert());
  for (const auto& e : log) {
    EXPECT_NE(e, "Collapse");
    EXPECT_NE(e, "IconClick");
    EXPECT_NE(e, "MouseDown");
    EXPECT_NE(e, "MouseUp");
  }
  frame->setExpandiert(false);
  EXPECT_EQ(pixelHeight(), 20);
}

TEST_F(FrameInteractionTest, ExpandingByPropertyRaisesNoEvent) {
  frame->setHeightExpanded(3000);
  frame->setExpandiert(false);
  log.clear();
  frame->setExpandiert(true);
  for (const auto& e : log) {
    EXPECT_NE(e, "Expand");
    EXPECT_NE(e, "Collapse");
  }
  EXPECT_TRUE(frame->Expandiert());
}

TEST_F(FrameInteractionTest, CollapsingAFrameAtCaptionHeightKeepsLastHeight) {
  frame->setExpandiert(false);
  int32_t stored = frame->lastHeight();
  ASSERT_EQ(stored, kHeight * 15);
  frame->setExpandiert(false);
  EXPECT_EQ(frame->lastHeight(), stored);
}

TEST_F(FrameInteractionTest, ExpandingRestoresHeightExpandedWhenLastHeightIsBelowIt) {
  // A frame stored collapsed has no last height yet: expanding goes to the stored height.
  PropertyBag bag;
  bag.set("Expandierbar", true);
  bag.set("Expandiert", false);
  bag.set("HeightExpanded", 1500);
  form->setUserMode(true);
  auto f = addFrame("Frame2", &bag);
  f->surface().setHeight(300);
  ASSERT_FALSE(f->Expandiert());
  EXPECT_EQ(f->HeightExpanded(), 1500) << "a Resize while collapsed leaves it";
  f->setExpandiert(true);
  EXPECT_EQ(f->surface().pixelHeight(), 100);
}

TEST_F(FrameInteractionTest, ExpandAfterCollapseFromAtOrAboveHeightExpandedKeepsTheHeight) {
  frame->setExpandiert(false);  // the property stores the state first: its Resize sees it collapsed
  EXPECT_EQ(frame->HeightExpanded(), kHeight * 15);
  EXPECT_EQ(frame->lastHeight(), kHeight * 15);
  frame->setExpandiert(true);
  EXPECT_EQ(pixelHeight(), 20) << "lastHeight is not below HeightExpanded";
  frame->setHeightExpanded(2000);
  EXPECT_EQ(pixelHeight(), 133) << "set while expanded: the height follows";
}

TEST_F(FrameInteractionTest, ACollapseByClickStoresTheCaptionHeightAsHeightExpanded) {
  makeExpandable();
  clickAt(50, 10);  // the collapse's own Resize still sees the frame expanded
  EXPECT_EQ(frame->HeightExpanded(), 300);
  desktop().advance(1000);
  clickAt(50, 10);
  EXPECT_TRUE(frame->Expandiert());
  EXPECT_EQ(pixelHeight(), 20) << "the height stays: lastHeight is above HeightExpanded";
  frame->setHeightExpanded(1635);
  EXPECT_EQ(pixelHeight(), kHeight) << "a host restores the height through HeightExpanded";
}

TEST_F(FrameInteractionTest, CaptionHeightOverflowIsError6) {
  EXPECT_RUNTIME_ERROR(frame->setCaptionHeight(8191), 6);
  frame->setCaptionHeight(8190);
}

TEST_F(FrameInteractionTest, CaptionHeightOfACollapsedFrameSetsTheCaptionHeightWithoutTheExtra) {
  frame->setExpandiert(false);
  frame->setCaptionHeight(6);  // 28 pixels
  EXPECT_EQ(pixelHeight(), 28);
  EXPECT_EQ(frame->surface().Height(), 28 * 15);
}

TEST_F(FrameInteractionTest, HoverChangesTheCaptionLookAndLeaveRestoresIt) {
  makeExpandable();
  frame->setCaption("Aufgaben");
  frame->setCaptionFontColor(0x0000FF);
  frame->setCaptionFontHoverColor(0xFF0000);
  gdi().startRecording(frame->hdc());
  moveTo(100, 8);
  Log hot = gdi().stopRecording(frame->hdc());
  EXPECT_EQ(frame->surface().MousePointer(), 99);
  EXPECT_TRUE(frame->hovering());
  EXPECT_EQ(platform().user().GetCapture(), frame->hWnd());
  EXPECT_NE(std::find(hot.begin(), hot.end(), "SetTextColor(16711680)"), hot.end());
  EXPECT_EQ((Log{log.begin(), log.begin() + 2}), (Log{"MouseMove", "CaptionOver"}));
  gdi().startRecording(frame->hdc());
  moveTo(100, 60);
  Log cold = gdi().stopRecording(frame->hdc());
  EXPECT_EQ(frame->surface().MousePointer(), 0);
  EXPECT_FALSE(frame->hovering());
  EXPECT_NE(platform().user().GetCapture(), frame->hWnd());
  EXPECT_NE(std::find(cold.begin(), cold.end(), "SetTextColor(255)"), cold.end());
}

TEST_F(FrameInteractionTest, UnderlineModesUnderlineWhileHovering) {
  makeExpandable();
  frame->setCaptionHoverMode(VexFrame::ColorUnderline);
  moveTo(100, 8);
  EXPECT_TRUE(frame->CaptionFont()->Underline());
  moveTo(100, 60);
  EXPECT_FALSE(frame->CaptionFont()->Underline());
}

TEST_F(FrameInteractionTest, HoverUnderlinesTheCaptionFontButNotTheForms) {
  makeExpandable();
  frame->setCaptionHoverMode(VexFrame::OnlyUnderline);
  EXPECT_NE(frame->CaptionFont(), form->Font()) << "a copy";
  EXPECT_FALSE(form->Font()->Underline());
  moveTo(100, 8);
  EXPECT_TRUE(frame->CaptionFont()->Underline());
  EXPECT_FALSE(form->Font()->Underline());
  EXPECT_EQ(frame->CaptionFont()->Name(), form->Font()->Name());
}

TEST_F(FrameInteractionTest, DeactivateModeShowsTheHandButNoOtherChange) {
  makeExpandable();
  frame->setCaptionFontColor(0x0000FF);
  frame->setCaptionFontHoverColor(0xFF0000);
  frame->setCaptionHoverMode(VexFrame::Deactivate);
  frame->setCaption("X");
  gdi().startRecording(frame->hdc());
  moveTo(100, 8);
  Log hot = gdi().stopRecording(frame->hdc());
  EXPECT_EQ(frame->surface().MousePointer(), 99);
  EXPECT_FALSE(frame->CaptionFont()->Underline());
  EXPECT_EQ(std::find(hot.begin(), hot.end(), "SetTextColor(16711680)"), hot.end());
}

TEST_F(FrameInteractionTest, MovingIntoAChildControlEndsTheHover) {
  makeExpandable();
  float tpp = 15;
  form->add("PictureBox", "picChild", frame.get(), 150, 4, 20, 10);  // pixels: the frame's scale
  (void)tpp;
  moveTo(50, 8);
  ASSERT_TRUE(frame->hovering());
  moveTo(155, 8);  // still within the caption's rows, but over the child
  EXPECT_FALSE(frame->hovering());
  EXPECT_EQ(frame->surface().MousePointer(), 0);
}

TEST_F(FrameInteractionTest, DoubleClickInTheCaptionIsRaisedWithoutAskingExpandierbar) {
  desktop().doubleClick(kLeft + 50, kTop + 10);
  EXPECT_NE(std::find(log.begin(), log.end(), "DblClick"), log.end());
  log.clear();
  desktop().doubleClick(kLeft + 50, kTop + 60);
  EXPECT_EQ(std::find(log.begin(), log.end(), "DblClick"), log.end());
}

TEST_F(FrameInteractionTest, PressAndReleaseAreRaisedOnlyForAnExpandableFrame) {
  clickAt(50, 10);
  EXPECT_EQ(std::find(log.begin(), log.end(), "MouseDown"), log.end());
  EXPECT_NE(std::find(log.begin(), log.end(), "MouseMove"), log.end());
  makeExpandable();
  desktop().advance(1000);  // not a double click
  clickAt(50, 10);
  EXPECT_NE(std::find(log.begin(), log.end(), "MouseDown"), log.end());
  EXPECT_NE(std::find(log.begin(), log.end(), "MouseUp"), log.end());
}

TEST_F(FrameInteractionTest, DisabledFrameIgnoresTheMouse) {
  makeExpandable();
  frame->setEnabled(false);
  moveTo(50, 10);
  EXPECT_TRUE(log.empty());
  frame->setExpandiert(false);
  EXPECT_EQ(pixelHeight(), 20);
}

TEST_F(FrameInteractionTest, ResizeWhileCollapsedLeavesHeightExpanded) {
  frame->setHeightExpanded(2400);
  frame->setExpandiert(false);
  int32_t before = frame->HeightExpanded();
  frame->surface().setWidth(3000);
  EXPECT_EQ(frame->HeightExpanded(), before);
  frame->setExpandiert(true);
  frame->surface().setHeight(1800);
  EXPECT_EQ(frame->HeightExpanded(), 1800);
}

TEST_F(FrameInteractionTest, SettersMarkTheHostDirtyEvenWithTheSameValue) {
  form->setDirty(false);
  frame->setCaption(frame->Caption());
  EXPECT_TRUE(form->dirty());
}

TEST_F(FrameInteractionTest, BagWrittenAfterInitHoldsOnlyTheContainerColour) {
  PropertyBag bag;
  frame->WriteProperties(bag);
  std::vector<std::string> keys;
  for (const auto& [k, v] : bag.entries()) keys.push_back(k);
  // The height follows the first Resize, and the round colour the container.
  EXPECT_EQ(keys, (Log{"BorderRoundColor", "HeightExpanded"}));
}

TEST_F(FrameInteractionTest, EmptyBagAndNewFrameAgree) {
  PropertyBag empty;
  auto loaded = addFrame("Frame2", &empty);
  PropertyBag a, b;
  frame->WriteProperties(a);
  loaded->WriteProperties(b);
  // The new frame differs only in the container's colour it took.
  EXPECT_EQ(loaded->BorderRoundColor(), 0u);
  EXPECT_EQ(b.contains("BorderRoundColor"), false);
  EXPECT_EQ(loaded->Caption(), frame->Caption());
  EXPECT_EQ(loaded->CaptionHeight(), frame->CaptionHeight());
  EXPECT_EQ(loaded->TopLeftBColor(), frame->TopLeftBColor());
}

TEST_F(FrameInteractionTest, PropertiesSurviveABagInKeyOrder) {
  frame->setExpandierbar(true);
  frame->setCaption("Dateien");
  frame->setCaptionStyle(VexFrame::pbVerSolid);
  frame->setCaptionBorder(VexFrame::pbRound);
  frame->setBorderStyle(VexFrame::pbLine);
  frame->setCaptionHeight(5);
  frame->setShowBullet(true);
  frame->setIconLeft(12);
  frame->setShadowWide(3);
  frame->setPlaySound(false);
  PropertyBag bag;
  frame->WriteProperties(bag);
  Log order = bag.writeOrder();
  ASSERT_GE(order.size(), 5u);
  EXPECT_EQ(order.front(), "Expandierbar");
  EXPECT_EQ(order.back(), "ShadowWide");
  auto copy = addFrame("Frame2", &bag);
  EXPECT_TRUE(copy->Expandierbar());
  EXPECT_EQ(copy->Caption(), "Dateien");
  EXPECT_EQ(copy->CaptionStyle(), VexFrame::pbVerSolid);
  EXPECT_EQ(copy->CaptionBorder(), VexFrame::pbRound);
  EXPECT_EQ(copy->BorderStyle(), VexFrame::pbLine);
  EXPECT_EQ(copy->CaptionHeight(), 5);
  EXPECT_EQ(copy->captionPixels(), 24);
  EXPECT_TRUE(copy->ShowBullet());
  EXPECT_EQ(copy->IconLeft(), 12);
  EXPECT_EQ(copy->ShadowWide(), 3);
  EXPECT_FALSE(copy->PlaySound());
  EXPECT_EQ(copy->BorderRoundColor(), frame->BorderRoundColor());
  PropertyBag again;
  copy->WriteProperties(again);
  EXPECT_EQ(again.entries().size(), bag.entries().size());
}

TEST_F(FrameInteractionTest, AutoColorRoundBorderReadsTheContainerAgain) {
  frame->setBorderRoundColor(0x123456);
  form->surface().setBackColor(0x00FF00);
  frame->setAutoColorRoundBorder(true);
  EXPECT_EQ(frame->BorderRoundColor(), 0x00FF00u);
  frame->setAutoColorRoundBorder(false);
  EXPECT_EQ(frame->BorderRoundColor(), 0x00FF00u);
}

TEST_F(FrameInteractionTest, LetEnabledKeepsTheSurfaceEnabledInTheDesignerOnly) {
  form->setUserMode(false);
  frame->setEnabled(false);
  EXPECT_FALSE(frame->Enabled());
  EXPECT_TRUE(frame->surface().Enabled()) << "selectable in the designer";
  form->setUserMode(true);
  frame->setEnabled(false);
  EXPECT_FALSE(frame->surface().Enabled());
}

TEST_F(FrameInteractionTest, ReadingAssignsTheSurfacesEnabledWithoutAskingTheMode) {
  form->setUserMode(false);
  PropertyBag bag;
  bag.set("Enabled", false);
  auto loaded = addFrame("Frame2", &bag);
  EXPECT_FALSE(loaded->Enabled());
  EXPECT_FALSE(loaded->surface().Enabled());
}

// A container without BackColor: the guarded reads of it fail silently.
class PlainHost : public HostedControl {
 public:
  std::string typeName() const override { return "PlainHost"; }
};

TEST_F(FrameInteractionTest, ContainerWithoutBackColorLeavesTheFrameUsable) {
  auto host = std::make_shared<PlainHost>();
  form->add(host, "PlainHost", "Host1", nullptr, 0, 0, 4000, 3000);
  auto inner =
      std::dynamic_pointer_cast<VexFrame>(form->add("VexFrame", "Inner", host.get(), 0, 0, 2775, 1635));
  ASSERT_TRUE(inner);
  EXPECT_EQ(inner->BorderRoundColor(), 0u) << "nothing was read";
  EXPECT_NO_THROW(inner->setAutoColorRoundBorder(true));
  EXPECT_EQ(inner->BorderRoundColor(), 0u);
  EXPECT_TRUE(inner->AutoColorRoundBorder());
  inner->setCaption("Noch da");
  EXPECT_EQ(inner->Caption(), "Noch da");
  EXPECT_NO_THROW(inner->setExpandiert(false)) << "a container that is no frame box is not told";
  EXPECT_EQ(inner->surface().pixelHeight(), 20);
}

TEST_F(FrameInteractionTest, MembersAreReachableByName) {
  frame->let("Caption", Variant(std::string("Name")));
  EXPECT_EQ(frame->Caption(), "Name");
  frame->let("CaptionStyle", Variant(static_cast<int16_t>(3)));
  EXPECT_EQ(frame->CaptionStyle(), VexFrame::pbSolid);
  EXPECT_EQ(frame->get("Expandiert").toBool(), true);
}

TEST_F(FrameInteractionTest, ResizeIsRaisedBeforeTheFrameRepaints) {
  log.clear();
  frame->surface().setHeight(2000);
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(log.front(), "Resize");
  EXPECT_EQ(frame->HeightExpanded(), 2000 / 15 * 15);
}

TEST_F(FrameInteractionTest, CaptionOverIsRaisedAtEachMoveOverTheCaption) {
  makeExpandable();
  moveTo(40, 5);
  moveTo(60, 6);
  moveTo(80, 7);
  EXPECT_EQ(std::count(log.begin(), log.end(), "CaptionOver"), 3);
  moveTo(80, 50);
  EXPECT_EQ(std::count(log.begin(), log.end(), "CaptionOver"), 3);
}

}  // namespace
}  // namespace corvane

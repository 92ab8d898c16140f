// SPDX-License-Identifier: MIT
#include <corvane/runtime/class_registry.h>
#include <gtest/gtest.h>

#include "support/splitter_fixture.h"

namespace corvane {
namespace {

using test::SplitterTest;
using Keys = std::vector<std::string>;

const Keys kKeyOrder = {"MinLeftTop",  "MinRightBottom", "Direction",     "BackColor",
                        "BorderColor", "ActivateColor",  "ActivateBorder"};

TEST_F(SplitterTest, KeysAreWrittenAndReadInTheirOrder) {
  build(sdVertical);
  PropertyBag bag;
  splitter->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), kKeyOrder);
  PropertyBag empty;
  addSplitter(300, 0, 5, 100, &empty, "Splitter2");
  EXPECT_EQ(empty.readOrder(), kKeyOrder);
}

TEST_F(SplitterTest, NewBarStartsAtZeroButForActivateBorder) {
  splitter = addSplitter(100, 0, 5, 100, nullptr);
  EXPECT_EQ(splitter->MinLeftTop(), 0);
  EXPECT_EQ(splitter->MinRightBottom(), 0);
  EXPECT_EQ(splitter->Direction(), sdVertical);
  EXPECT_EQ(splitter->BackColor(), 0);
  EXPECT_EQ(splitter->BorderColor(), 0);
  EXPECT_EQ(splitter->ActivateColor(), 0);
  EXPECT_EQ(splitter->ActivateBorder(), 0xA1A1A1);
}

TEST_F(SplitterTest, BagAfterInitPropertiesHoldsTheZerosAndNoDefault) {
  splitter = addSplitter(100, 0, 5, 100, nullptr);
  PropertyBag bag;
  splitter->WriteProperties(bag);
  Keys stored;
  for (const auto& [key, value] : bag.entries()) {
    stored.push_back(key);
    EXPECT_EQ(value.toLong(), 0) << key;
  }
  // Direction 0 and ActivateBorder equal their defaults and are left out.
  EXPECT_EQ(stored, (Keys{"MinLeftTop", "MinRightBottom", "BackColor", "BorderColor", "ActivateColor"}));
}

TEST_F(SplitterTest, EmptyBagGivesTheStoredDefaults) {
  PropertyBag empty;
  splitter = addSplitter(100, 0, 5, 100, &empty);
  EXPECT_EQ(splitter->MinLeftTop(), 250);
  EXPECT_EQ(splitter->MinRightBottom(), 250);
  EXPECT_EQ(splitter->Direction(), sdVertical);
  EXPECT_EQ(splitter->BackColor(), static_cast<OLE_COLOR>(0x8000000F));
  EXPECT_EQ(splitter->BorderColor(), static_cast<OLE_COLOR>(0x8000000F));
  EXPECT_EQ(splitter->ActivateColor(), 0x404040);
  EXPECT_EQ(splitter->ActivateBorder(), 0xA1A1A1);
  EXPECT_EQ(splitter->surface().BackColor(), static_cast<OLE_COLOR>(0x8000000F));
  EXPECT_EQ(splitter->surface().MousePointer(), 9);
  PropertyBag again;
  splitter->WriteProperties(again);
  EXPECT_TRUE(again.entries().empty());
}

TEST_F(SplitterTest, StoredValuesComeBack) {
  build(sdHorizontal);
  PropertyBag bag;
  splitter->WriteProperties(bag);
  auto other = addSplitter(0, 250, 100, 5, &bag, "Splitter2");
  EXPECT_EQ(other->MinLeftTop(), 300);
  EXPECT_EQ(other->MinRightBottom(), 450);
  EXPECT_EQ(other->Direction(), sdHorizontal);
  EXPECT_EQ(other->BackColor(), kBack);
  EXPECT_EQ(other->BorderColor(), kBorder);
  EXPECT_EQ(other->ActivateColor(), kActive);
  EXPECT_EQ(other->ActivateBorder(), kActiveBorder);
  EXPECT_EQ(other->surface().MousePointer(), 7);
}

TEST_F(SplitterTest, BagValueOfAWrongTypeIsSkipped) {
  PropertyBag bag;
  colour(bag, sdVertical);
  bag.set("MinLeftTop", "viel");
  bag.set("Direction", "quer");
  EXPECT_NO_THROW(splitter = addSplitter(100, 0, 5, 100, &bag));
  EXPECT_EQ(splitter->MinLeftTop(), 0) << "the failed read leaves the field as it was";
  EXPECT_EQ(splitter->Direction(), sdVertical);
  EXPECT_EQ(splitter->BackColor(), kBack);
}

TEST_F(SplitterTest, MinimumsAreStoredWithoutAChangeReport) {
  build(sdVertical);
  splitter->controlSite().changedKeys.clear();
  splitter->setMinLeftTop(600);
  splitter->setMinRightBottom(700);
  EXPECT_TRUE(splitter->controlSite().changedKeys.empty());
  EXPECT_EQ(splitter->MinLeftTop(), 600);
  EXPECT_EQ(splitter->MinRightBottom(), 700);
}

TEST_F(SplitterTest, ColourAndDirectionSettersReportEvenAnUnchangedValue) {
  build(sdVertical);
  splitter->controlSite().changedKeys.clear();
  splitter->setBackColor(splitter->BackColor());
  splitter->setBorderColor(splitter->BorderColor());
  splitter->setActivateColor(splitter->ActivateColor());
  splitter->setActivateBorder(splitter->ActivateBorder());
  splitter->setDirection(splitter->Direction());
  EXPECT_EQ(splitter->controlSite().changedKeys,
            (Keys{"BackColor", "BorderColor", "ActivateColor", "ActivateBorder", "Direction"}));
}

TEST_F(SplitterTest, BackColorAndBorderColorSettersPaint) {
  build(sdVertical);
  splitter->setBackColor(0x303030);
  EXPECT_EQ(px(102, 50), 0x303030);
  EXPECT_EQ(px(102, 0), static_cast<COLORREF>(kBorder));
  splitter->setBorderColor(0x505050);
  EXPECT_EQ(px(102, 0), 0x505050);
  EXPECT_EQ(px(102, 99), 0x505050);
}

TEST_F(SplitterTest, ReachableByNameWithSetControls) {
  first = addBox("picLeft", 0, 0, 100, 100);
  second = addBox("picRight", 105, 0, 100, 100);
  PropertyBag bag;
  colour(bag, sdVertical);
  splitter = addSplitter(100, 0, 5, 100, &bag);
  first->extenderRef()->setWidth(60 * 15);
  splitter->call("SetControls",
                 {Variant(ObjectRef(first->extenderRef())), Variant(ObjectRef(second->extenderRef()))});
  splitter->let("Direction", int32_t(sdVertical));
  EXPECT_EQ(splitter->get("MinLeftTop").toLong(), 300);
  desktop().click(102, 50);
  EXPECT_EQ(placeOf(*first), (RECT{0, 0, 100, 100}));
  auto made = ClassRegistry::instance().create("VexSplitter");
  EXPECT_TRUE(std::dynamic_pointer_cast<VexSplitter>(made));
}

TEST_F(SplitterTest, SetControlsWithNothingIsHarmless) {
  build(sdVertical);
  ObjectRef none;
  splitter->SetControls(none, none);
  desktop().mouseMove(102, 50);
  EXPECT_NO_THROW(desktop().mouseDown(1));
  EXPECT_NO_THROW(desktop().mouseUp(1));
  EXPECT_FALSE(splitter->dragging());
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#include "desktop/gdi_handle_table.h"

#include <gtest/gtest.h>

#include <set>

namespace corvane {
namespace {

GdiObject brushOf(COLORREF colour) {
  GdiObject o(GdiObject::Kind::Brush);
  o.colour = colour;
  return o;
}

TEST(GdiHandleTable, AHandleFindsItsObjectUntilRemoved) {
  GdiHandleTable table;
  const int32_t h = table.add(brushOf(0x123456));
  ASSERT_NE(table.find(h), nullptr);
  EXPECT_EQ(table.find(h)->colour, 0x123456);
  table.remove(h);
  EXPECT_EQ(table.find(h), nullptr);
  table.remove(h);  // twice: nothing happens
  EXPECT_EQ(table.find(0), nullptr);
  EXPECT_EQ(table.find(-5), nullptr);
  EXPECT_EQ(table.find(0x7FFFFFFF), nullptr);
  EXPECT_EQ(table.find(12), nullptr);  // small numbers stand for system colour brushes
}

TEST(GdiHandleTable, AReusedSlotGivesALargerHandleAndTheOldOneStaysInvalid) {
  GdiHandleTable table;
  const int32_t first = table.addPlain(GdiObject::Kind::Pen, 0, 1, 0xFF);
  table.remove(first);
  const int32_t second = table.addPlain(GdiObject::Kind::Brush, 0, 1, 0xFF00);
  EXPECT_GT(second, first);
  EXPECT_EQ(table.find(first), nullptr);
  ASSERT_NE(table.find(second), nullptr);
  EXPECT_EQ(table.find(second)->kind, GdiObject::Kind::Brush);
  EXPECT_EQ(table.find(second)->colour, 0xFF00);
}

TEST(GdiHandleTable, APlainObjectInAFreedSlotOfAFontStartsClean) {
  GdiHandleTable table;
  GdiObject font(GdiObject::Kind::Font);
  font.fontSpec.name = "Arial";
  font.canvas = std::make_shared<Canvas>(2, 2, 0);
  const int32_t h = table.add(std::move(font));
  table.remove(h);
  const int32_t pen = table.addPlain(GdiObject::Kind::Pen, 2, 3, 0x0000FF);
  const GdiObject* o = table.find(pen);
  ASSERT_NE(o, nullptr);
  EXPECT_EQ(o->fontSpec.name, FontSpec{}.name);
  EXPECT_EQ(o->canvas, nullptr);
  EXPECT_EQ(o->penStyle, 2);
  EXPECT_EQ(o->penWidth, 3);
}

TEST(GdiHandleTable, AReservedHandleNamesNoObjectButIsNeverGivenTwice) {
  GdiHandleTable table;
  std::set<int32_t> seen;
  const int32_t context = table.reserve();
  EXPECT_EQ(table.find(context), nullptr);
  seen.insert(context);
  for (int i = 0; i < 50; ++i) EXPECT_TRUE(seen.insert(table.add(brushOf(i))).second);
  table.remove(context);
  EXPECT_TRUE(seen.insert(table.reserve()).second);
}

TEST(GdiHandleTable, AFullTableGivesZeroUntilAHandleIsFreed) {
  GdiHandleTable table(3);
  const int32_t a = table.add(brushOf(1));
  const int32_t b = table.addPlain(GdiObject::Kind::Pen, 0, 1, 2);
  const int32_t c = table.reserve();
  EXPECT_NE(a, 0);
  EXPECT_NE(b, 0);
  EXPECT_NE(c, 0);
  EXPECT_EQ(table.add(brushOf(4)), 0);
  EXPECT_EQ(table.addPlain(GdiObject::Kind::Pen, 0, 1, 5), 0);
  EXPECT_EQ(table.reserve(), 0);
  table.remove(b);
  const int32_t d = table.add(brushOf(6));
  EXPECT_NE(d, 0);
  EXPECT_EQ(table.find(d)->colour, 6);
  EXPECT_EQ(table.find(a)->colour, 1);
}

// Cycling a plain pen count times leaves the table as adding and removing count pens one after
// another does: the next handles given are the same, from a fresh table and from one with a
// freed slot.
TEST(GdiHandleTable, CyclingPensIsAddingAndRemovingThemOneByOne) {
  for (int32_t freedFirst = 0; freedFirst < 2; ++freedFirst)
    for (uint32_t count : {1u, 2u, 1921u, 5000u}) {
      GdiHandleTable cycled, oneByOne;
      const int32_t keptCycled = cycled.add(brushOf(1)), keptOneByOne = oneByOne.add(brushOf(1));
      if (freedFirst) {
        cycled.remove(cycled.add(brushOf(2)));
        oneByOne.remove(oneByOne.add(brushOf(2)));
      }
      ASSERT_TRUE(cycled.cyclePlain(count));
      for (uint32_t k = 0; k < count; ++k) oneByOne.remove(oneByOne.addPlain(GdiObject::Kind::Pen, 0, 1, 7));
      EXPECT_EQ(cycled.add(brushOf(3)), oneByOne.add(brushOf(3))) << count;
      EXPECT_EQ(cycled.add(brushOf(4)), oneByOne.add(brushOf(4))) << count;
      EXPECT_EQ(cycled.find(keptCycled)->colour, 1);
      EXPECT_EQ(oneByOne.find(keptOneByOne)->colour, 1);
    }
}

TEST(GdiHandleTable, AFullTableCyclesNothing) {
  GdiHandleTable table(1);
  const int32_t only = table.add(brushOf(1));
  EXPECT_FALSE(table.cyclePlain(10));
  EXPECT_TRUE(table.cyclePlain(0));
  table.remove(only);
  const int32_t next = table.add(brushOf(2));
  EXPECT_NE(next, 0);
  EXPECT_TRUE(table.cyclePlain(0)) << "nothing to cycle needs no room";
  EXPECT_FALSE(table.cyclePlain(1));
}

TEST(GdiHandleTable, HandlesStayPositiveThroughEveryGeneration) {
  GdiHandleTable table(1);
  int32_t previous = 0;
  int wraps = 0;
  for (int i = 0; i < 5000; ++i) {
    const int32_t h = table.addPlain(GdiObject::Kind::Pen, 0, 1, 0);
    ASSERT_GT(h, 0);
    if (h < previous) ++wraps;  // the generation starts again after 2048 uses of the slot
    previous = h;
    table.remove(h);
  }
  EXPECT_EQ(wraps, 2);
}

}  // namespace
}  // namespace corvane

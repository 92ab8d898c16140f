// SPDX-License-Identifier: MIT
#include <corvane/runtime/class_registry.h>
#include <corvane/system/color_view_dlg.h>
#include <gtest/gtest.h>

#include "runtime/expect_error.h"
#include "system/dialog_test_support.h"

namespace corvane {
namespace {

class ColorViewDlgTest : public test::DialogTest {
 protected:
  ColorViewDLG dialog;
};

TEST_F(ColorViewDlgTest, ShowFillsTheRequestFromTheProperties) {
  dialog.setOwner(4711);
  dialog.Show();
  const auto& r = lastRequest();
  EXPECT_EQ(r.kind, "ChooseColorA");
  EXPECT_EQ(r.structSize, 36);
  EXPECT_EQ(r.owner, 4711);
  EXPECT_EQ(r.flags, 128);
  EXPECT_EQ(r.customColours, std::string(64, '\0'));
}

TEST_F(ColorViewDlgTest, ExViewAddsTheFullOpenFlag) {
  dialog.setExView(true);
  dialog.Show();
  EXPECT_EQ(lastRequest().flags, 128 + 2);
}

TEST_F(ColorViewDlgTest, OkCopiesTheChosenColourBack) {
  auto a = ok();
  a.colour = RGB(10, 20, 30);
  script().queue(a);
  EXPECT_TRUE(dialog.Show());
  EXPECT_EQ(dialog.Color(), RGB(10, 20, 30));
}

TEST_F(ColorViewDlgTest, NeverOpensOnTheFormerColour) {
  auto a = ok();
  a.colour = RGB(200, 0, 0);
  script().queue(a);
  dialog.Show();
  dialog.Show();
  EXPECT_EQ(lastRequest().colour, 0);
  EXPECT_EQ(lastRequest().flags & 1, 0);  // no initial colour asked for
}

TEST_F(ColorViewDlgTest, CancelWithoutCancelErrorReturnsFalseAndKeepsTheColour) {
  auto a = ok();
  a.colour = RGB(1, 2, 3);
  script().queue(a);
  dialog.Show();
  script().queue(cancel());
  EXPECT_FALSE(dialog.Show());
  EXPECT_EQ(dialog.Color(), RGB(1, 2, 3));
}

TEST_F(ColorViewDlgTest, CancelWithCancelErrorRaises18) {
  dialog.setCancelError(true);
  script().queue(cancel());
  EXPECT_RUNTIME_ERROR(dialog.Show(), 18);
}

TEST_F(ColorViewDlgTest, ASecondShowStartsWithoutTheEarlierCustomColours) {
  auto a = ok();
  a.customColours = std::string(64, '\x7F');  // the user defined custom colours
  script().queue(a);
  dialog.Show();
  dialog.Show();
  EXPECT_EQ(lastRequest().customColours, std::string(64, '\0'));
}

TEST_F(ColorViewDlgTest, MembersAreReachableByName) {
  auto object = ClassRegistry::instance().create("ColorViewDLG");
  object->let("ExView", Variant(true));
  object->let("Owner", Variant(int32_t{12}));
  auto a = ok();
  a.colour = 255;
  script().queue(a);
  EXPECT_TRUE(object->call("Show").toBool());
  EXPECT_EQ(object->get("Color").toLong(), 255);
  EXPECT_EQ(lastRequest().owner, 12);
  EXPECT_EQ(lastRequest().flags, 130);
}

}  // namespace
}  // namespace corvane

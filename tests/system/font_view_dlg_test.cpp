// SPDX-License-Identifier: MIT
#include <corvane/runtime/class_registry.h>
#include <corvane/system/font_view_dlg.h>
#include <gtest/gtest.h>

#include "runtime/expect_error.h"
#include "system/dialog_test_support.h"

namespace corvane {
namespace {

class FontViewDlgTest : public test::DialogTest {
 protected:
  ScriptedDialogs::Answer font(const std::string& face, int32_t weight, int32_t tenths) {
    auto a = ok();
    a.font.lfFaceName = face;
    a.font.lfWeight = weight;
    a.pointSize = tenths;
    return a;
  }
  FontViewDLG dialog;
};

TEST_F(FontViewDlgTest, ShowAsksForScreenFontsWithEffectsFromAnEmptyFont) {
  dialog.setOwner(8);
  dialog.Show();
  const auto& r = lastRequest();
  EXPECT_EQ(r.kind, "ChooseFontA");
  EXPECT_EQ(r.structSize, 60);
  EXPECT_EQ(r.owner, 8);
  EXPECT_EQ(r.flags, 257);
  EXPECT_EQ(r.font.lfFaceName, "");
  EXPECT_EQ(r.font.lfWeight, 0);
}

TEST_F(FontViewDlgTest, OkCopiesTheFontBack) {
  auto a = font("DejaVu Sans", 700, 120);
  a.font.lfItalic = 1;
  a.font.lfUnderline = 1;
  a.font.lfStrikeOut = 1;
  a.colour = RGB(0, 0, 128);
  script().queue(a);
  EXPECT_TRUE(dialog.Show());
  EXPECT_EQ(dialog.FontName(), "DejaVu Sans");
  EXPECT_EQ(dialog.FontSize(), 12);
  EXPECT_TRUE(dialog.Bold());
  EXPECT_TRUE(dialog.Italic());
  EXPECT_TRUE(dialog.Underline());
  EXPECT_TRUE(dialog.StrikeOut());
  EXPECT_EQ(dialog.Color(), RGB(0, 0, 128));
}

TEST_F(FontViewDlgTest, BoldIsAWeightOfAtLeast700) {
  script().queue(font("A", 699, 100));
  dialog.Show();
  EXPECT_FALSE(dialog.Bold());
  script().queue(font("A", 900, 100));
  dialog.Show();
  EXPECT_TRUE(dialog.Bold());
}

TEST_F(FontViewDlgTest, StylesCountOnlyWhenTheyEqualOne) {
  auto a = font("A", 400, 100);
  a.font.lfItalic = 255;
  a.font.lfUnderline = 2;
  script().queue(a);
  dialog.Show();
  EXPECT_FALSE(dialog.Italic());
  EXPECT_FALSE(dialog.Underline());
}

TEST_F(FontViewDlgTest, TheSizeIsRoundedFromTenthsHalvesToEven) {
  script().queue(font("A", 400, 125));
  dialog.Show();
  EXPECT_EQ(dialog.FontSize(), 12);
  script().queue(font("A", 400, 135));
  dialog.Show();
  EXPECT_EQ(dialog.FontSize(), 14);
  script().queue(font("A", 400, 87));
  dialog.Show();
  EXPECT_EQ(dialog.FontSize(), 9);
}

TEST_F(FontViewDlgTest, TheFaceNameEndsAtItsNul) {
  script().queue(font(std::string("Liberation Serif\0junk", 21), 400, 100));
  dialog.Show();
  EXPECT_EQ(dialog.FontName(), "Liberation Serif");
}

TEST_F(FontViewDlgTest, OkWithoutAFontNameGivesFalse) {
  script().queue(font("", 700, 100));
  EXPECT_FALSE(dialog.Show());
  EXPECT_TRUE(dialog.Bold());
}

TEST_F(FontViewDlgTest, TheStylesAreResetBeforeTheDialog) {
  auto a = font("A", 700, 100);
  a.font.lfItalic = 1;
  script().queue(a);
  dialog.Show();
  script().queue(cancel());
  EXPECT_FALSE(dialog.Show());
  EXPECT_FALSE(dialog.Bold());
  EXPECT_FALSE(dialog.Italic());
  EXPECT_EQ(dialog.FontName(), "A");
}

TEST_F(FontViewDlgTest, CancelWithCancelErrorRaises18) {
  dialog.setCancelError(true);
  script().queue(cancel());
  EXPECT_RUNTIME_ERROR(dialog.Show(), 18);
}

TEST_F(FontViewDlgTest, MembersAreReachableByName) {
  auto object = ClassRegistry::instance().create("FontViewDLG");
  script().queue(font("Sans", 400, 100));
  EXPECT_TRUE(object->call("Show").toBool());
  EXPECT_EQ(object->get("FontName").toString(), "Sans");
  EXPECT_EQ(object->get("FontSize").toLong(), 10);
}

}  // namespace
}  // namespace corvane

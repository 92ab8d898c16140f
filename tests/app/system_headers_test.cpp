// SPDX-License-Identifier: MIT
// The public headers after the X11 headers, whose macros (None, Bool, Status, Success, True,
// False, KeyPress ...) would break any declaration of the same name. GoogleTest comes first: it
// has such names itself.
#include <gtest/gtest.h>

#include <X11/Xlib.h>

#include <corvane/corvane.h>

// The program's own macros are left as they were.
static_assert(None == 0L && True == 1 && False == 0 && Success == 0);
static_assert(KeyPress == 2);

namespace corvane {
namespace {

TEST(SystemHeadersTest, PublicApiCompilesAfterX11) {
  EXPECT_EQ(static_cast<int>(VexPane::btNone), 0);
  EXPECT_EQ(static_cast<int>(StdPicture::vbPicTypeNone), 0);
  EXPECT_STREQ(CORVANE_VERSION_STRING, "0.6.1");
}

TEST(SystemHeadersTest, EnumerationMembersKeepTheirNamesForLateBinding) {
  ClassRegistry& registry = ClassRegistry::instance();
  EXPECT_EQ(registry.enumValue("None"), VexPane::btNone);
  EXPECT_EQ(registry.enumValue("BorderType.None"), VexPane::btNone);
  EXPECT_EQ(registry.enumValue("bordertype.headlines"), VexPane::btHeadLines);
  EXPECT_EQ(registry.enumValue("CrossFull"), VexPane::btCrossFull);
  EXPECT_EQ(registry.enumValue("vbPicTypeIcon"), StdPicture::vbPicTypeIcon);
  try {
    registry.enumValue("BorderType.Nothing");
    FAIL() << "an unknown member was found";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), err::MemberNotFound);
  }
}

}  // namespace
}  // namespace corvane

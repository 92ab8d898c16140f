// SPDX-License-Identifier: MIT
#include <corvane/host/std_picture.h>
#include <gtest/gtest.h>

#include "resources/cursor_hot_spots.h"
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

TEST(CursorHotSpotTest, TheHandsHaveTheirSpotsAndOtherResourcesTheTopLeft) {
  EXPECT_EQ(resourceHotSpot("HAND"), (POINTAPI{6, 0}));
  EXPECT_EQ(resourceHotSpot("zhandu"), (POINTAPI{9, 11}));
  EXPECT_EQ(resourceHotSpot("ZHANDD"), (POINTAPI{9, 11}));
  EXPECT_EQ(resourceHotSpot("BPLUS"), (POINTAPI{0, 0}));
}

class CursorPictureTest : public test::DesktopTest {};

TEST_F(CursorPictureTest, APictureOfACursorResourceKeepsItsSpotUntilItGoes) {
  int32_t handle = 0;
  {
    PictureRef hand = LoadResPicture("Hand");
    handle = hand->Handle();
    EXPECT_EQ(hotSpotOf(handle), (POINTAPI{6, 0}));
    PictureRef grip = LoadResPicture("ZHANDD");
    EXPECT_EQ(hotSpotOf(grip->Handle()), (POINTAPI{9, 11}));
    PictureRef plain = LoadResPicture(30000);
    EXPECT_EQ(hotSpotOf(plain->Handle()), (POINTAPI{0, 0}));
  }
  EXPECT_EQ(hotSpotOf(handle), (POINTAPI{0, 0})) << "a released image leaves no spot behind";
}

}  // namespace
}  // namespace corvane

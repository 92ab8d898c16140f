// SPDX-License-Identifier: MIT
// The public headers after SDL's, which an application with SDL windows of its own includes.
#include <SDL2/SDL.h>

#include <corvane/corvane.h>

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(SystemHeadersTest, PublicApiCompilesAfterSdl) {
  EXPECT_EQ(CORVANE_VERSION_MAJOR * 10000 + CORVANE_VERSION_MINOR * 100 + CORVANE_VERSION_PATCH, 601);
  EXPECT_EQ(SDL_MAJOR_VERSION, 2);
}

}  // namespace
}  // namespace corvane

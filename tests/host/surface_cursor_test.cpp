// SPDX-License-Identifier: MIT
#include <corvane/app/application.h>
#include <corvane/frame/global.h>
#include <corvane/platform/api.h>
#include <gtest/gtest.h>

#include "desktop/desktop.h"

namespace corvane {
namespace {

const DesktopWindow& windowOf(HWND h) { return *dynamic_cast<Desktop&>(platform()).windows().window(h); }

// A surface's mouse pointer and its image are its window's cursor, which a live display shows.
TEST(SurfaceCursorTest, MousePointerAndIconBecomeTheWindowsCursor) {
  Application app;
  FormRef f = Form::create("CursorForm");
  EXPECT_EQ(windowOf(f->hWnd()).cursor, 0);
  f->surface().setMousePointer(3);
  EXPECT_EQ(windowOf(f->hWnd()).cursor, 3);
  EXPECT_EQ(windowOf(f->hWnd()).cursorImage, 0);
  PictureRef icon = Global::LoadIconPicture("hover_demo");
  ASSERT_NE(icon->Handle(), 0);
  f->surface().setMouseIcon(icon);
  f->surface().setMousePointer(99);
  EXPECT_EQ(windowOf(f->hWnd()).cursor, 99);
  EXPECT_EQ(windowOf(f->hWnd()).cursorImage, icon->Handle());
  f->surface().setMouseIcon(nullptr);
  EXPECT_EQ(windowOf(f->hWnd()).cursorImage, 0);
}

}  // namespace
}  // namespace corvane

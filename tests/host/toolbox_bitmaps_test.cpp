// SPDX-License-Identifier: MIT
#include <corvane/host/form.h>
#include <corvane/host/std_picture.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/class_registry.h>
#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "runtime/expect_error.h"
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

using ToolboxBitmaps = test::DesktopTest;

TEST_F(ToolboxBitmaps, OneBitmapOfSixteenByFifteenForEachControl) {
  int32_t controls = 0;
  for (const ClassInfo& c : ClassRegistry::instance().all()) controls += c.kind == ClassKind::Control ? 1 : 0;
  ASSERT_EQ(controls, 19);
  for (int32_t id = 30000; id < 30000 + controls; ++id) {
    PictureRef p = LoadResPicture(id, 0);
    ASSERT_TRUE(p) << id;
    EXPECT_EQ(p->Type(), StdPicture::vbPicTypeBitmap) << id;
    EXPECT_EQ(p->pixelSize().cx, 16) << id;
    EXPECT_EQ(p->pixelSize().cy, 15) << id;
  }
  EXPECT_RUNTIME_ERROR(LoadResPicture(30000 + controls, 0), 326);
  EXPECT_RUNTIME_ERROR(LoadResPicture(29999, 0), 326);
}

TEST_F(ToolboxBitmaps, AreDrawnAndAllDiffer) {
  FormRef f = Form::create("frmToolbox", 19 * 20 * 15, 20 * 15);
  f->Show();
  const HDC dc = f->surface().hdc();
  std::set<std::vector<COLORREF>> seen;
  for (int32_t i = 0; i < 19; ++i) {
    LoadResPicture(30000 + i, 0)->Render(dc, i * 20, 0, 16, 15);
    std::vector<COLORREF> pixels;
    for (int32_t y = 0; y < 15; ++y)
      for (int32_t x = 0; x < 16; ++x) pixels.push_back(gdi().GetPixel(dc, i * 20 + x, y));
    EXPECT_GE(std::set<COLORREF>(pixels.begin(), pixels.end()).size(), 3u)
        << "a picture, not a plain field: " << i;
    EXPECT_TRUE(seen.insert(pixels).second) << "bitmap " << 30000 + i << " repeats another";
  }
}

}  // namespace
}  // namespace corvane

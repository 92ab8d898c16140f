// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cairo.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include <corvane/host/std_picture.h>
#include "resources/embedded.h"
#include "support/desktop_fixture.h"
#include "runtime/expect_error.h"
#include "support/png_bytes.h"

namespace corvane {
namespace {

using PictureTest = test::DesktopTest;

std::vector<unsigned char> pngBytes(int w, int h) {
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h);
  cairo_t* cr = cairo_create(s);
  cairo_set_source_rgb(cr, 1, 0, 0);
  cairo_paint(cr);
  cairo_destroy(cr);
  std::vector<unsigned char> out = test::pngBytesOf(s);
  cairo_surface_destroy(s);
  return out;
}

TEST_F(PictureTest, SizeIsGivenInHiMetric) {
  auto p = StdPicture::fromBytes(pngBytes(96, 48));
  ASSERT_TRUE(p);
  EXPECT_EQ(p->Type(), StdPicture::vbPicTypeBitmap);
  EXPECT_EQ(p->Width(), 2540) << "96 pixels are one inch at 96 pixels per inch";
  EXPECT_EQ(p->Height(), 1270);
  EXPECT_NE(p->Handle(), 0);
}

TEST_F(PictureTest, AskedAsIconAPictureKeepsItsTransparency) {
  auto p = StdPicture::fromBytes(pngBytes(16, 16), true);
  ASSERT_TRUE(p);
  EXPECT_EQ(p->Type(), StdPicture::vbPicTypeIcon);
}

TEST_F(PictureTest, EmptyPictureHasNoHandleAndNoSize) {
  auto p = LoadPicture();
  EXPECT_EQ(p->Handle(), 0);
  EXPECT_EQ(p->Type(), StdPicture::vbPicTypeNone);
  EXPECT_EQ(p->Width(), 0);
}

TEST_F(PictureTest, BytesThatAreNoPictureGiveNothing) {
  EXPECT_EQ(StdPicture::fromBytes({1, 2, 3, 4, 5}), nullptr);
  auto png = pngBytes(8, 8);
  png.resize(png.size() / 2);
  EXPECT_EQ(StdPicture::fromBytes(png), nullptr);
}

TEST_F(PictureTest, FileOfAPictureBeyondTheSizeLimitIsAnInvalidPicture) {
  const std::string path = ::testing::TempDir() + "wide_picture.png";
  auto write = [&](const std::vector<unsigned char>& bytes) {
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  };
  write(pngBytes(16384, 1));
  EXPECT_EQ(LoadPicture(path)->pixelSize().cx, 16384);
  write(pngBytes(16385, 1));
  EXPECT_RUNTIME_ERROR(LoadPicture(path), 481);
  std::remove(path.c_str());
}

TEST_F(PictureTest, MissingFileAndMissingResourceAreNumberedErrors) {
  try {
    LoadPicture("/no/such/picture.png");
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 53);
  }
  try {
    LoadResPicture("NO_SUCH_RESOURCE");
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 326);
  }
}

TEST_F(PictureTest, EveryEmbeddedResourceLoads) {
  for (const EmbeddedResource& r : embeddedResources()) {
    PictureRef p = LoadResPicture(r.name);
    ASSERT_TRUE(p) << r.name;
    EXPECT_NE(p->Handle(), 0) << r.name;
  }
}

TEST_F(PictureTest, PicturesFreeTheirImageWhenReleased) {
  int32_t before = desktop().drawing().liveImageCount();
  {
    auto p = StdPicture::fromBytes(pngBytes(4, 4));
    EXPECT_EQ(desktop().drawing().liveImageCount(), before + 1);
  }
  EXPECT_EQ(desktop().drawing().liveImageCount(), before);
}

}  // namespace
}  // namespace corvane

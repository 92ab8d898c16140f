// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdio>
#include <fstream>
#include <random>
#include <string>

#include "desktop/gdi.h"
#include "desktop/image_codec.h"
#include "gdi_test_support.h"
#include "image_encoders.h"

namespace corvane {
namespace {

using test::Bytes;

constexpr COLORREF kWhite = 0xFFFFFF, kRed = 0x0000FF, kGreen = 0x00FF00, kBlue = 0xFF0000;
constexpr uint32_t kArgbRed = 0xFFFF0000, kArgbGreen = 0xFF00FF00, kArgbBlue = 0xFF0000FF;

// Raw premultiplied pixel of a decoded picture.
uint32_t at(const Canvas& c, int x, int y) { return c.row(y)[x]; }

TEST(ImageCodec, Bmp24BottomUpAndTopDown) {
  const std::vector<uint32_t> pixels = {kArgbRed, kArgbGreen, kArgbBlue, 0xFF102030, 0xFF405060, 0xFF708090};
  for (bool topDown : {false, true}) {
    auto c = ImageCodec::decode(test::bmp(test::dib(3, 2, 24, pixels, {}, topDown), 0), false);
    ASSERT_TRUE(c) << topDown;
    EXPECT_EQ(c->width(), 3);
    EXPECT_EQ(c->height(), 2);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(at(*c, i % 3, i / 3), pixels[static_cast<size_t>(i)]) << i;
  }
}

TEST(ImageCodec, PalettedBmpsOfOneFourAndEightBits) {
  const std::vector<uint32_t> palette = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0x123456};
  for (int bits : {1, 4, 8}) {
    const int32_t w = 11, h = 3;  // rows need padding
    std::vector<uint32_t> indexes;
    for (int i = 0; i < w * h; ++i) indexes.push_back(static_cast<uint32_t>(bits == 1 ? i % 2 : i % 5));
    const auto pal = bits == 1 ? std::vector<uint32_t>(palette.begin(), palette.begin() + 2) : palette;
    auto c = ImageCodec::decode(test::bmp(test::dib(w, h, bits, indexes, pal), pal.size()), false);
    ASSERT_TRUE(c) << bits;
    for (int i = 0; i < w * h; ++i)
      ASSERT_EQ(at(*c, i % w, i / w), 0xFF000000u | pal[indexes[static_cast<size_t>(i)]]) << bits << " " << i;
  }
}

TEST(ImageCodec, Bmp32KeepsAlphaOnlyForIcons) {
  const std::vector<uint32_t> pixels = {0x80FF0000, 0xFF00FF00};
  const Bytes file = test::bmp(test::dib(2, 1, 32, pixels), 0);
  auto bitmap = ImageCodec::decode(file, false);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(at(*bitmap, 0, 0), kArgbRed);
  auto icon = ImageCodec::decode(file, true);
  ASSERT_TRUE(icon);
  EXPECT_EQ(at(*icon, 0, 0), 0x80800000u);  // premultiplied
  EXPECT_EQ(at(*icon, 1, 0), kArgbGreen);
}

TEST(ImageCodec, IconTakesItsTransparencyFromTheAndMask) {
  const std::vector<uint32_t> pixels = {kArgbRed, kArgbGreen, kArgbBlue, kArgbRed};
  const std::vector<bool> mask = {false, true, true, false};
  auto c = ImageCodec::decode(test::ico({{2, 2, test::dib(2, 2, 24, pixels, {}, false, &mask)}}), true);
  ASSERT_TRUE(c);
  EXPECT_EQ(at(*c, 0, 0), kArgbRed);
  EXPECT_EQ(at(*c, 1, 0), 0u);
  EXPECT_EQ(at(*c, 0, 1), 0u);
  EXPECT_EQ(at(*c, 1, 1), kArgbRed);
}

TEST(ImageCodec, IconWithAlphaIgnoresItsMask) {
  const std::vector<uint32_t> pixels = {0xFFFF0000, 0x00000000, 0x40404040, 0xFF0000FF};
  const std::vector<bool> mask = {true, true, true, true};
  auto c = ImageCodec::decode(test::ico({{2, 2, test::dib(2, 2, 32, pixels, {}, false, &mask)}}), true);
  ASSERT_TRUE(c);
  EXPECT_EQ(at(*c, 0, 0), kArgbRed);
  EXPECT_EQ(at(*c, 1, 0), 0u);
  EXPECT_EQ(at(*c, 0, 1), 0x40101010u);
}

TEST(ImageCodec, IconChoosesTheLargestEntryThenTheDeepest) {
  auto square = [](int32_t size, int bits, uint32_t colour) {
    std::vector<uint32_t> p(static_cast<size_t>(size * size), colour);
    std::vector<bool> mask(p.size(), false);
    return test::IconEntry{size, size, test::dib(size, size, bits, p, {}, false, &mask)};
  };
  const std::vector<uint32_t> palette = {0x00FF00, 0x0000FF};
  std::vector<uint32_t> indexes(32 * 32, 1);
  std::vector<bool> mask(indexes.size(), false);
  const Bytes file = test::ico({square(16, 32, kArgbRed),
                                {32, 32, test::dib(32, 32, 8, indexes, palette, false, &mask)},
                                square(32, 32, kArgbGreen),
                                square(24, 24, kArgbBlue)});
  auto c = ImageCodec::decode(file, true);
  ASSERT_TRUE(c);
  EXPECT_EQ(c->width(), 32);
  EXPECT_EQ(at(*c, 5, 5), kArgbGreen);  // the 32-bit one of the two 32 by 32 entries
}

TEST(ImageCodec, IconEntriesMayBePng) {
  std::vector<uint32_t> pixels(48 * 48, 0x800000FF);
  pixels[0] = 0xFFFF0000;
  const Bytes file = test::ico({{48, 48, test::png(48, 48, pixels)}});
  auto c = ImageCodec::decode(file, true);
  ASSERT_TRUE(c);
  EXPECT_EQ(c->width(), 48);
  EXPECT_EQ(at(*c, 0, 0), kArgbRed);
  EXPECT_EQ(at(*c, 1, 1), 0x80000080u);
  EXPECT_TRUE(ImageCodec::decode(test::ico({{48, 48, test::png(48, 48, pixels)}}, 2), true));  // a cursor
}

TEST(ImageCodec, PngKeepsAlphaForIconsAndIsLaidOnWhiteForBitmaps) {
  const Bytes file = test::png(2, 1, {0x00000000, 0xFF00FF00});
  auto icon = ImageCodec::decode(file, true);
  ASSERT_TRUE(icon);
  EXPECT_EQ(at(*icon, 0, 0), 0u);
  EXPECT_EQ(at(*icon, 1, 0), kArgbGreen);
  auto bitmap = ImageCodec::decode(file, false);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(at(*bitmap, 0, 0), 0xFFFFFFFFu);
}

TEST(ImageCodec, TruncatedFilesGiveNothing) {
  const std::vector<uint32_t> pixels(8 * 8, kArgbRed);
  std::vector<bool> mask(pixels.size(), false);
  const Bytes files[] = {test::bmp(test::dib(8, 8, 24, pixels), 0),
                         test::ico({{8, 8, test::dib(8, 8, 24, pixels, {}, false, &mask)}}),
                         test::png(8, 8, pixels)};
  for (const Bytes& file : files) {
    ASSERT_TRUE(ImageCodec::decode(file, true));
    for (size_t n = 0; n < file.size(); ++n)
      EXPECT_FALSE(ImageCodec::decode(std::span(file.data(), n), true))
          << "cut at " << n << " of " << file.size();
  }
}

TEST(ImageCodec, GarbageNeverCrashes) {
  std::mt19937 random(1234);
  const Bytes heads[] = {
      {}, {'B', 'M'}, {0, 0, 1, 0}, {0, 0, 2, 0}, {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'}};
  for (const Bytes& head : heads)
    for (int round = 0; round < 300; ++round) {
      Bytes b = head;
      const size_t n = random() % 300;
      for (size_t i = 0; i < n; ++i) b.push_back(static_cast<unsigned char>(random()));
      auto c = ImageCodec::decode(b, round % 2);
      if (c) {
        EXPECT_GT(c->width(), 0);
      }
    }
  EXPECT_FALSE(ImageCodec::decode(Bytes{'G', 'I', 'F', '8', '9', 'a', 0, 0}, true));
}

TEST(ImageCodec, HeadersClaimingHugePicturesAreRefused) {
  Bytes info = test::dib(1, 1, 24, {kArgbRed});
  info[4] = info[5] = info[6] = 0xFF;  // width 16 million
  info[7] = 0x00;
  EXPECT_FALSE(ImageCodec::decode(test::bmp(info, 0), false));
  Bytes bitfields = test::bmp(test::dib(1, 1, 32, {kArgbRed}), 0);
  bitfields[14 + 16] = 5;  // an unknown compression
  EXPECT_FALSE(ImageCodec::decode(bitfields, false));
}

TEST(ImageCodec, NoSideAbove16384Pixels) {
  std::vector<bool> mask(16385, false);
  const std::vector<uint32_t> wide(16385, kArgbRed), fits(16384, kArgbRed);
  EXPECT_TRUE(ImageCodec::decode(test::png(16384, 1, fits), true));
  EXPECT_TRUE(ImageCodec::decode(test::bmp(test::dib(16384, 1, 24, fits), 0), false));
  EXPECT_FALSE(ImageCodec::decode(test::png(16385, 1, wide), true));
  EXPECT_FALSE(ImageCodec::decode(test::png(1, 16385, wide), true));
  EXPECT_FALSE(ImageCodec::decode(test::bmp(test::dib(16385, 1, 24, wide), 0), false));
  EXPECT_FALSE(ImageCodec::decode(test::ico({{0, 0, test::png(16385, 1, wide)}}), true));
  EXPECT_FALSE(ImageCodec::decode(test::ico({{0, 0, test::dib(16385, 1, 24, wide, {}, false, &mask)}}, 2), true));
}

// The largest amount of memory the process has held, in kB, since resetPeakMemory.
long peakMemoryKb() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line))
    if (line.rfind("VmHWM:", 0) == 0) return std::stol(line.substr(6));
  return -1;
}
bool resetPeakMemory() { return static_cast<bool>(std::ofstream("/proc/self/clear_refs") << "5"); }

// A PNG of 8-bit grey that declares width by height pixels but holds only the given number of
// rows of zeros, compressed: a small file that asks for a huge picture.
Bytes greyPngDeclaring(uint32_t width, uint32_t height, uint32_t rows) {
  Bytes out{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  auto put32be = [](Bytes& b, uint32_t v) {
    for (int k = 3; k >= 0; --k) b.push_back(static_cast<unsigned char>(v >> (8 * k)));
  };
  auto chunk = [&](const char* type, const Bytes& data) {
    Bytes body(type, type + 4);
    body.insert(body.end(), data.begin(), data.end());
    put32be(out, static_cast<uint32_t>(data.size()));
    out.insert(out.end(), body.begin(), body.end());
    put32be(out, static_cast<uint32_t>(crc32(0, body.data(), static_cast<uInt>(body.size()))));
  };
  Bytes header;
  put32be(header, width);
  put32be(header, height);
  header.insert(header.end(), {8, 0, 0, 0, 0});  // 8 bits, grey, deflate, no filter, no interlace
  chunk("IHDR", header);
  z_stream z{};
  deflateInit(&z, 9);
  const Bytes row(width + 1, 0);  // filter byte and pixels
  Bytes compressed(1 << 16);
  Bytes idat;
  for (uint32_t r = 0; r <= rows; ++r) {
    z.next_in = const_cast<Bytef*>(row.data());
    z.avail_in = r < rows ? static_cast<uInt>(row.size()) : 0;
    const int flush = r < rows ? Z_NO_FLUSH : Z_FINISH;
    do {
      z.next_out = compressed.data();
      z.avail_out = static_cast<uInt>(compressed.size());
      deflate(&z, flush);
      idat.insert(idat.end(), compressed.data(), z.next_out);
    } while (z.avail_out == 0);
  }
  deflateEnd(&z);
  chunk("IDAT", idat);
  chunk("IEND", {});
  return out;
}

TEST(ImageCodec, PngDeclaringAHugeSizeIsRefusedBeforeItIsDecoded) {
  // 23,000 by 23,000 pixels would take 2 GB; the file holds 4,000 rows, which decoded into such
  // a picture would fill 368 MB before the data runs out.
  const Bytes file = greyPngDeclaring(23000, 23000, 4000);
  ASSERT_LT(file.size(), 200u * 1024);
  if (!resetPeakMemory()) GTEST_SKIP() << "the peak memory of the process cannot be reset here";
  const long before = peakMemoryKb();
  EXPECT_FALSE(ImageCodec::decode(file, true));
  EXPECT_LT(peakMemoryKb() - before, 64 * 1024) << "kB held at the peak while refusing the file";
}

class GdiPictures : public ::testing::Test {
 protected:
  GdiPictures() : canvas(windows.add(1, 80, 60)), gdi(windows), hdc(gdi.GetDC(1)) {}

  // A 16 by 16 icon: transparent, with an opaque square from 4 to 12 whose left half is dark
  // grey and right half white, and one mostly transparent red pixel at (0, 0).
  HICON testIcon() {
    std::vector<uint32_t> p(16 * 16, 0);
    for (int y = 4; y < 12; ++y)
      for (int x = 4; x < 12; ++x) p[static_cast<size_t>(y * 16 + x)] = x < 8 ? 0xFF404040 : 0xFFFFFFFF;
    p[0] = 0x60FF0000;
    const Bytes file = test::png(16, 16, p);
    return gdi.LoadImageFromMemory(file, IMAGE_ICON);
  }

  test::FakeWindows windows;
  Canvas& canvas;
  DesktopGdi gdi;
  HDC hdc;
};

TEST_F(GdiPictures, LoadingSizesAndFreeing) {
  HICON icon = testIcon();
  ASSERT_NE(icon, 0);
  EXPECT_EQ(gdi.GetImageSize(icon), (SIZE{16, 16}));
  const Bytes file = test::bmp(test::dib(3, 2, 24, std::vector<uint32_t>(6, kArgbRed)), 0);
  HBITMAP bitmap = gdi.LoadImageFromMemory(file, IMAGE_BITMAP);
  ASSERT_NE(bitmap, 0);
  EXPECT_EQ(gdi.liveImageCount(), 2);
  EXPECT_EQ(gdi.liveObjectCount(), 0);
  EXPECT_EQ(gdi.LoadImageFromMemory(Bytes{1, 2, 3}, IMAGE_ICON), 0);
  EXPECT_EQ(gdi.LoadImageFromMemory(file, 7), 0);
  EXPECT_FALSE(gdi.DeleteObject(icon));  // icons are destroyed, not deleted
  EXPECT_FALSE(gdi.DestroyIcon(bitmap));
  EXPECT_TRUE(gdi.DestroyIcon(icon));
  EXPECT_TRUE(gdi.DeleteObject(bitmap));
  EXPECT_EQ(gdi.liveImageCount(), 0);
  EXPECT_EQ(gdi.GetImageSize(icon), (SIZE{0, 0}));
}

TEST_F(GdiPictures, LoadingFromAFile) {
  const std::string path = ::testing::TempDir() + "corvane_gdi_picture.bmp";
  const Bytes file = test::bmp(test::dib(3, 2, 24, std::vector<uint32_t>(6, kArgbGreen)), 0);
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(file.data()), file.size());
  HBITMAP bitmap = gdi.LoadImageFromFile(path, IMAGE_BITMAP);
  ASSERT_NE(bitmap, 0);
  EXPECT_EQ(gdi.GetImageSize(bitmap), (SIZE{3, 2}));
  std::remove(path.c_str());
  EXPECT_EQ(gdi.LoadImageFromFile(path, IMAGE_BITMAP), 0);
}

TEST_F(GdiPictures, DrawIconExCompositesThroughAlphaAndScales) {
  canvas.fill(kBlue);
  HICON icon = testIcon();
  ASSERT_TRUE(gdi.DrawIconEx(hdc, 10, 10, icon, 0, 0));
  EXPECT_EQ(canvas.pixel(10 + 5, 10 + 5), RGB(64, 64, 64));
  EXPECT_EQ(canvas.pixel(10 + 10, 10 + 5), kWhite);
  EXPECT_EQ(canvas.pixel(10 + 2, 10 + 2), kBlue);  // transparent
  const COLORREF mixed = canvas.pixel(10, 10);     // 96/255 red over blue
  EXPECT_NEAR(mixed & 255, 96, 2);
  EXPECT_NEAR((mixed >> 16) & 255, 159, 2);

  canvas.fill(kBlue);
  ASSERT_TRUE(gdi.DrawIconEx(hdc, 0, 0, icon, 32, 32));
  EXPECT_EQ(canvas.pixel(8, 8), RGB(64, 64, 64));  // twice the size, crisp edges
  EXPECT_EQ(canvas.pixel(15, 20), RGB(64, 64, 64));
  EXPECT_EQ(canvas.pixel(16, 20), kWhite);
  EXPECT_EQ(canvas.pixel(7, 8), kBlue);
  EXPECT_EQ(canvas.pixel(24, 20), kBlue);
}

TEST_F(GdiPictures, DrawImageLeavesOutTheMaskColourOfABitmap) {
  canvas.fill(kBlue);
  const std::vector<uint32_t> p = {0xFFFF00FF, kArgbRed, kArgbRed, 0xFFFF00FF};
  HBITMAP bitmap = gdi.LoadImageFromMemory(test::bmp(test::dib(2, 2, 24, p), 0), IMAGE_BITMAP);
  ASSERT_TRUE(gdi.DrawImage(hdc, bitmap, 4, 4, 2, 2, 0, 0, 2, 2, RGB(255, 0, 255)));
  EXPECT_EQ(canvas.pixel(4, 4), kBlue);
  EXPECT_EQ(canvas.pixel(5, 4), kRed);
  EXPECT_EQ(canvas.pixel(5, 5), kBlue);
  ASSERT_TRUE(gdi.DrawImage(hdc, bitmap, 10, 10, 2, 2, 0, 0, 2, 2, -1));
  EXPECT_EQ(canvas.pixel(10, 10), RGB(255, 0, 255));
  // A part of the picture, stretched four times with its mask.
  ASSERT_TRUE(gdi.DrawImage(hdc, bitmap, 20, 20, 8, 4, 0, 0, 2, 1, RGB(255, 0, 255)));
  EXPECT_EQ(canvas.pixel(21, 21), kBlue);
  EXPECT_EQ(canvas.pixel(26, 23), kRed);
  EXPECT_EQ(canvas.pixel(26, 24), kBlue);
  // An odd stretch is smoothed but keeps the colours at its centre.
  ASSERT_TRUE(gdi.DrawImage(hdc, bitmap, 40, 40, 7, 7, 1, 0, 1, 1, -1));
  EXPECT_EQ(canvas.pixel(43, 43), kRed);
  EXPECT_EQ(canvas.pixel(47, 43), kBlue);
}

TEST_F(GdiPictures, DrawStateDrawsAnIconNormally) {
  canvas.fill(kGreen);
  HICON icon = testIcon();
  ASSERT_TRUE(gdi.DrawStateA(hdc, 0, 0, icon, 0, 0, 0, 0, 0, DST_ICON));
  EXPECT_EQ(canvas.pixel(5, 5), RGB(64, 64, 64));
  EXPECT_EQ(canvas.pixel(9, 5), kWhite);
  EXPECT_EQ(canvas.pixel(2, 2), kGreen);
  EXPECT_FALSE(gdi.DrawStateA(hdc, 0, 0, icon, 0, 0, 0, 0, 0, 1));  // text is no picture kind here
}

TEST_F(GdiPictures, DrawStateMonoPaintsTheShapeInTheBrushColour) {
  canvas.fill(kGreen);
  HICON icon = testIcon();
  HBRUSH shadow = gdi.CreateSolidBrush(RGB(192, 192, 192));
  ASSERT_TRUE(gdi.DrawStateA(hdc, shadow, 0, icon, 0, 2, 2, 16, 16, DST_ICON | DSS_MONO));
  for (int y = 0; y < 30; ++y)
    for (int x = 0; x < 30; ++x) {
      const bool inShape = x >= 6 && x < 14 && y >= 6 && y < 14;
      ASSERT_EQ(canvas.pixel(x, y), inShape ? RGB(192, 192, 192) : kGreen) << x << "," << y;
    }
  // A bitmap's shape is all of it.
  HBITMAP bitmap = gdi.LoadImageFromMemory(
      test::bmp(test::dib(2, 2, 24, std::vector<uint32_t>(4, 0xFF000000)), 0), IMAGE_BITMAP);
  ASSERT_TRUE(gdi.DrawStateA(hdc, shadow, 0, bitmap, 0, 40, 40, 0, 0, DST_BITMAP | DSS_MONO));
  EXPECT_EQ(canvas.pixel(41, 41), RGB(192, 192, 192));
  EXPECT_EQ(canvas.pixel(42, 41), kGreen);
  gdi.DeleteObject(shadow);
}

TEST_F(GdiPictures, DrawStateDisabledEmbossesTheDarkPartsAtTheAskedSize) {
  canvas.fill(kGreen);
  HICON icon = testIcon();
  ASSERT_TRUE(gdi.DrawStateA(hdc, 0, 0, icon, 0, 0, 0, 32, 32, DST_ICON | DSS_DISABLED));
  const COLORREF shadow = RGB(128, 128, 128), highlight = kWhite;
  // The dark half of the square, doubled: columns 8 to 15, rows 8 to 23, in the shadow colour.
  EXPECT_EQ(canvas.pixel(8, 8), shadow);
  EXPECT_EQ(canvas.pixel(15, 23), shadow);
  // The highlight shows one pixel right and below, where the shadow does not cover it.
  EXPECT_EQ(canvas.pixel(16, 9), highlight);
  EXPECT_EQ(canvas.pixel(9, 24), highlight);
  EXPECT_EQ(canvas.pixel(8, 24), kGreen);
  // The white half is not part of the shape; the mostly transparent corner neither.
  EXPECT_EQ(canvas.pixel(20, 12), kGreen);
  EXPECT_EQ(canvas.pixel(0, 0), kGreen);
  EXPECT_EQ(canvas.pixel(7, 8), kGreen);
}

}  // namespace
}  // namespace corvane

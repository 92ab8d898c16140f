// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include <corvane/host/extender.h>
#include <corvane/containers/vex_pane.h>
#include <corvane/host/form_file.h>
#include <corvane/host/screen.h>
#include "support/desktop_fixture.h"

namespace corvane {
namespace {

// Twips are pixels times twips per pixel in single precision: whole pixels give whole twips,
// exactly, wherever a size is converted.
class TwipsTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 6000, 4500);
  }
  void TearDown() override {
    form.reset();
    DesktopTest::TearDown();
  }
  FormRef form;
};

TEST_F(TwipsTest, ScaleSizeOfWholePixelsIsExact) {
  auto pic = form->add("PictureBox", "Pic", nullptr, 0, 0, 3000, 1500);
  Surface& s = pic->surface();
  ASSERT_EQ(s.pixelWidth(), 200);
  ASSERT_EQ(s.pixelHeight(), 100);
  EXPECT_EQ(s.ScaleWidth(), 3000.0f);
  EXPECT_EQ(s.ScaleHeight(), 1500.0f);
  EXPECT_EQ(s.Width(), 3000.0f);
  for (int32_t px = 1; px <= 400; ++px) {
    pic->extenderObject().Move(0, 0, static_cast<float>(px) * 15, static_cast<float>(px) * 15);
    ASSERT_EQ(s.ScaleWidth(), static_cast<float>(px) * 15) << px << " pixels";
    ASSERT_EQ(s.ScaleHeight(), static_cast<float>(px) * 15) << px << " pixels";
  }
}

TEST_F(TwipsTest, ScaleConversionsOfWholePixelsAreExact) {
  Surface& s = form->surface();
  for (int32_t px = 1; px <= 400; ++px) {
    const float v = static_cast<float>(px);
    ASSERT_EQ(s.ScaleX(v, Surface::Pixels, Surface::Twips), v * 15);
    ASSERT_EQ(s.ScaleY(v, Surface::Pixels, Surface::Twips), v * 15);
    ASSERT_EQ(s.ScaleX(v * 15, Surface::Twips, Surface::Pixels), v);
  }
  // A user scale is reached from pixels by the units per pixel, without a detour through twips.
  auto pic = form->add("PictureBox", "Pic", nullptr, 0, 0, 3000, 1500);
  Surface& p = pic->surface();
  p.Scale(0, 0, 7777, 6300);
  const float perPixel = 7777.0f / 200.0f;
  for (int32_t px = 1; px <= 200; ++px)
    ASSERT_EQ(p.ScaleX(static_cast<float>(px), Surface::Pixels, -1), static_cast<float>(px) * perPixel) << px;
  // So does the width of a control in that scale.
  auto inner = form->add("PictureBox", "Inner", pic.get(), 0, 0, 3 * perPixel, 3 * perPixel);
  ASSERT_EQ(inner->surface().pixelWidth(), 3);
  EXPECT_EQ(inner->extenderObject().Width(), 3 * perPixel);
}

TEST_F(TwipsTest, FormFileStoresWholeTwipsForWholePixels) {
  // 133 pixels are 1995 twips. A pane with the HeadLines border sets its scale to its full size,
  // in twips here, and stores that scale with its size.
  auto pane = form->add<VexPane>("Pane1", 15, 30, 1995, 1500);
  pane->setBorderStyle(VexPane::btHeadLines);
  const std::string text = FormFile::save(*form);
  EXPECT_NE(text.find("\"Single\": 1995.0"), std::string::npos) << text;
  EXPECT_EQ(text.find("1994.9"), std::string::npos) << text;
  form->Unload();
  FormRef again = FormFile::load(text);
  EXPECT_EQ(again->control("Pane1")->surface().ScaleWidth(), 1995.0f);
  again->Unload();
}

class TwipsAt12Test : public TwipsTest {
 protected:
  Desktop::Options options() const override {
    Desktop::Options o;
    o.twipsPerPixelX = o.twipsPerPixelY = 12;
    return o;
  }
};

TEST_F(TwipsAt12Test, ScaleSizeOfWholePixelsIsExactAtAnyResolution) {
  ASSERT_EQ(Screen::instance().TwipsPerPixelX(), 12.0f);
  auto pic = form->add("PictureBox", "Pic", nullptr, 0, 0, 2400, 1200);
  Surface& s = pic->surface();
  ASSERT_EQ(s.pixelWidth(), 200);
  EXPECT_EQ(s.ScaleWidth(), 2400.0f);
  EXPECT_EQ(s.ScaleHeight(), 1200.0f);
  for (int32_t px = 1; px <= 400; ++px) {
    pic->extenderObject().Move(0, 0, static_cast<float>(px) * 12, static_cast<float>(px) * 12);
    ASSERT_EQ(s.ScaleWidth(), static_cast<float>(px) * 12) << px << " pixels";
  }
}

}  // namespace
}  // namespace corvane

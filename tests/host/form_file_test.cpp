// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_pane.h>
#include <corvane/host/form_file.h>
#include <corvane/host/screen.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/widgets/vex_color_label.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include "support/hover_fixture.h"

namespace corvane {
namespace {

using test::HoverTest;
using test::squareBitmap;

bool near(COLORREF a, COLORREF b, int tolerance = 8) {
  for (int sh = 0; sh < 24; sh += 8)
    if (std::abs(((a >> sh) & 255) - ((b >> sh) & 255)) > tolerance) return false;
  return true;
}

// ---- texts and numbers that JSON cannot hold as they are ------------------------------------------

class FormFileTextTest : public test::DesktopTest {};

TEST_F(FormFileTextTest, CaptionThatIsNoUtf8IsStoredAndLoadedByteForByte) {
  // A stray continuation byte, a lone lead byte, an overlong slash and a Windows-1252 umlaut.
  const std::string caption = std::string("a\x80") + "b\xC3" + "c\xC0\xAF" + "\xE4nd<b>fett</b>";
  FormRef form = Form::create("frmText", 6000, 3000);
  form->setCaption("Fenster \xFF");
  auto label = std::dynamic_pointer_cast<VexColorLabel>(
      form->add("VexColorLabel", "Label1", nullptr, 0, 0, 3000, 300));
  ASSERT_TRUE(label);
  label->setCaption(caption);
  ASSERT_EQ(label->Caption(), caption) << "the label accepts any bytes";
  std::string text;
  ASSERT_NO_THROW(text = FormFile::save(*form));
  EXPECT_NE(text.find("\"base64\""), std::string::npos) << "stored in its tagged form";
  form->Unload();
  FormRef again = FormFile::load(text);
  EXPECT_EQ(again->Caption(), "Fenster \xFF");
  auto loaded = std::dynamic_pointer_cast<VexColorLabel>(again->control("Label1"));
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->Caption(), caption);
  EXPECT_EQ(FormFile::save(*again), text);
}

TEST_F(FormFileTextTest, WellFormedTextStaysAPlainString) {
  FormRef form = Form::create("frmText", 6000, 3000);
  auto label = std::dynamic_pointer_cast<VexColorLabel>(
      form->add("VexColorLabel", "Label1", nullptr, 0, 0, 3000, 300));
  label->setCaption(
      "Gr\xC3\xBC\xC3\x9F"
      "e \xE2\x82\xAC");
  std::string text = FormFile::save(*form);
  EXPECT_EQ(text.find("\"base64\""), std::string::npos);
  EXPECT_NE(text.find("Gr\xC3\xBC\xC3\x9F"
                      "e \xE2\x82\xAC"),
            std::string::npos);
}

TEST_F(FormFileTextTest, NumbersThatAreNoFiniteValueComeBack) {
  FormRef form = Form::create("frmText", 6000, 3000);
  auto pane = std::dynamic_pointer_cast<VexPane>(form->add("VexPane", "Pane1", nullptr, 0, 0, 3000, 1500));
  pane->setGradientAngle(std::numeric_limits<float>::quiet_NaN());
  auto other = std::dynamic_pointer_cast<VexPane>(form->add("VexPane", "Pane2", nullptr, 0, 0, 3000, 1500));
  other->setGradientAngle(-std::numeric_limits<float>::infinity());
  std::string text;
  ASSERT_NO_THROW(text = FormFile::save(*form));
  form->Unload();
  FormRef again = FormFile::load(text);
  EXPECT_TRUE(std::isnan(std::dynamic_pointer_cast<VexPane>(again->control("Pane1"))->GradientAngle()));
  EXPECT_EQ(std::dynamic_pointer_cast<VexPane>(again->control("Pane2"))->GradientAngle(),
            -std::numeric_limits<float>::infinity());
}

TEST_F(FormFileTextTest, BrokenTaggedTextIsAFormFileError) {
  FormRef form = Form::create("frmText", 6000, 3000);
  auto label = std::dynamic_pointer_cast<VexColorLabel>(
      form->add("VexColorLabel", "Label1", nullptr, 0, 0, 3000, 300));
  label->setCaption("x\xFF");
  std::string text = FormFile::save(*form);
  form->Unload();
  const size_t at = text.find("\"base64\": \"");
  ASSERT_NE(at, std::string::npos);
  std::string broken = text;
  broken.insert(at + 11, "!!");
  EXPECT_THROW(FormFile::load(broken), FormFileError);
  EXPECT_FALSE(Forms::find("frmText"));
}

// ---- pictures keep their type ---------------------------------------------------------------------

class FormFilePictureTest : public HoverTest {
 protected:
  // Saves the form, unloads it and loads it again; the hover picture of the new form.
  std::shared_ptr<VexHoverPic> roundTrip() {
    std::string text = FormFile::save(*form);
    hover.reset();
    form->Unload();
    form = FormFile::load(text);
    form->Show();
    return std::dynamic_pointer_cast<VexHoverPic>(form->control("Hover1"));
  }
};

TEST_F(FormFilePictureTest, IconComesBackAnIconWithItsSizeAndHoverLook) {
  hover->setImageUp(upIcon());  // an icon made from PNG bytes
  hover->setIconShadow(kGreen);
  ASSERT_EQ(hover->ImageUp()->Type(), StdPicture::vbPicTypeIcon);
  auto loaded = roundTrip();
  ASSERT_TRUE(loaded);
  hover = loaded;
  EXPECT_EQ(loaded->ImageUp()->Type(), StdPicture::vbPicTypeIcon);
  EXPECT_EQ(loaded->ImageUp()->pixelSize().cx, 20);
  EXPECT_EQ(loaded->ImageUp()->pixelSize().cy, 20);
  EXPECT_EQ(loaded->surface().pixelWidth(), 22) << "an icon leaves room for its shadow";
  EXPECT_EQ(loaded->surface().pixelHeight(), 22);
  loaded->Draw(VexHoverPic::StateHot);
  // The shadow at (2, 2) under the icon, as before saving.
  EXPECT_TRUE(near(windowPx(13, 13), kGreen));
  EXPECT_TRUE(near(windowPx(6, 6), kRed));
  EXPECT_TRUE(near(windowPx(14, 14), 0xFFFFFF));
  EXPECT_EQ(loaded->surface().MaskPicture(), nullptr) << "an icon is no mask";
}

TEST_F(FormFilePictureTest, BitmapComesBackABitmapWithItsMaskColour) {
  // Red is the mask colour; the blue square stays, the rest falls away.
  hover->setImageUp(squareBitmap(20, RECT{5, 5, 15, 15}, kBlue, kRed));
  hover->setBackStyle(abTransparent);
  auto loaded = roundTrip();
  ASSERT_TRUE(loaded);
  hover = loaded;
  EXPECT_EQ(loaded->ImageUp()->Type(), StdPicture::vbPicTypeBitmap);
  EXPECT_EQ(loaded->surface().pixelWidth(), 20);
  EXPECT_EQ(loaded->surface().MaskPicture(), loaded->ImageUp());
  EXPECT_TRUE(near(px(2, 2), kFormColour)) << "the mask colour falls away";
  EXPECT_TRUE(near(px(10, 10), kBlue));
}

TEST_F(FormFilePictureTest, PictureOfTheWrongDeclaredTypeIsRefused) {
  hover->setImageUp(upIcon());
  std::string text = FormFile::save(*form);
  form->Unload();
  hover.reset();
  const size_t at = text.find("\"type\": 3");
  ASSERT_NE(at, std::string::npos);
  std::string unknown = text;
  unknown.replace(at, 9, "\"type\": 7");
  EXPECT_THROW(FormFile::load(unknown), FormFileError);
  EXPECT_FALSE(Forms::find("Form1"));
}

// ---- declared sizes -------------------------------------------------------------------------------

class FormFileSizeTest : public test::DesktopTest {
 protected:
  static std::string number(double v) { return std::to_string(v); }
  // A form of the given size in twips with the given controls.
  static std::string document(double width, double height, const std::string& controls = "") {
    return R"({"format": "corvane-form", "version": 1, "form": {"name": "frmBig", "caption": "", "width": )" +
           number(width) + R"(, "height": )" + number(height) +
           R"(, "backColor": 0, "font": {"Font": {"name": "Arial", "size": 8, "bold": false, "italic": false,
           "underline": false, "strikethrough": false}}}, "controls": [)" +
           controls + "]}";
  }
  static std::string control(const std::string& cls, const std::string& name, const std::string& container,
                             double width, double height, const std::string& properties = "") {
    return R"({"class": ")" + cls + R"(", "name": ")" + name + R"(", "container": ")" + container +
           R"(", "left": 0, "top": 0, "width": )" + number(width) + R"(, "height": )" + number(height) +
           R"(, "visible": true, "properties": [)" + properties + "]}";
  }
  // Twips of a side of n pixels.
  static double twips(double pixels) { return pixels * 15; }

  void expectRefused(const std::string& text) {
    const size_t forms = Forms::all().size();
    const int64_t objects = ClassRegistry::liveObjects();
    try {
      FormFile::load(text);
      ADD_FAILURE() << "expected a FormFileError";
    } catch (const FormFileError& e) {
      EXPECT_NE(std::string(e.what()).find("16384"), std::string::npos) << e.what();
    }
    EXPECT_EQ(Forms::all().size(), forms);
    EXPECT_EQ(ClassRegistry::liveObjects(), objects);
  }
};

TEST_F(FormFileSizeTest, FormSideUpTo16384PixelsLoads) {
  ASSERT_EQ(Screen::instance().TwipsPerPixelX(), 15);
  FormRef f = FormFile::load(document(twips(16384), twips(10)));
  ASSERT_TRUE(f);
  EXPECT_EQ(f->surface().pixelWidth(), 16384);
}

TEST_F(FormFileSizeTest, FormSideAbove16384PixelsIsRefused) {
  expectRefused(document(twips(16385), twips(10)));
  expectRefused(document(twips(10), twips(30000)));
}

TEST_F(FormFileSizeTest, ControlSideAbove16384PixelsIsRefusedBeforeAnythingIsMade) {
  expectRefused(document(twips(100), twips(100), control("VexPane", "Pane1", "", twips(30000), twips(10))));
  expectRefused(document(twips(100), twips(100), control("PictureBox", "Pic1", "", twips(10), twips(16385))));
}

TEST_F(FormFileSizeTest, ControlInsideAContainerIsMeasuredInTheContainersScale) {
  // A pane of 100 by 100 pixels with a scale of 1 unit per pixel: a child of 20000 units is 20000
  // pixels wide, and one of 16384 units fits.
  const std::string scale = R"(["ScaleWidth", {"Single": 100}], ["ScaleHeight", {"Single": 100}])";
  const std::string pane = control("VexPane", "Pane1", "", twips(100), twips(100), scale);
  expectRefused(
      document(twips(200), twips(200), pane + "," + control("PictureBox", "Pic1", "Pane1", 20000, 10)));
  FormRef f = FormFile::load(
      document(twips(200), twips(200), pane + "," + control("PictureBox", "Pic1", "Pane1", 16384, 10)));
  EXPECT_EQ(f->control("Pic1")->surface().pixelWidth(), 16384);
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <cairo.h>

#include "support/png_bytes.h"

#include <memory>
#include <string>
#include <vector>

#include <corvane/host/screen.h>
#include <corvane/host/std_picture.h>
#include "support/desktop_fixture.h"
#include <corvane/widgets/vex_hover_pic.h>

namespace corvane::test {

// PNG bytes of a picture of width by height pixels: transparent (or filled with background when
// it is given), with an opaque square of colour from (left, top) to (right, bottom), exclusive.
inline std::vector<unsigned char> squarePng(int32_t width, int32_t height, RECT square, COLORREF colour,
                                            COLORREF background = -1) {
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
  cairo_t* cr = cairo_create(s);
  auto rgb = [&](COLORREF c) {
    cairo_set_source_rgb(cr, (c & 0xFF) / 255.0, ((c >> 8) & 0xFF) / 255.0, ((c >> 16) & 0xFF) / 255.0);
  };
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  if (background == -1) cairo_set_source_rgba(cr, 0, 0, 0, 0);
  else rgb(background);
  cairo_paint(cr);
  rgb(colour);
  cairo_rectangle(cr, square.Left, square.Top, square.Right - square.Left, square.Bottom - square.Top);
  cairo_fill(cr);
  cairo_destroy(cr);
  std::vector<unsigned char> bytes = test::pngBytesOf(s);
  cairo_surface_destroy(s);
  return bytes;
}

// An icon with a transparent background and an opaque square.
inline PictureRef squareIcon(int32_t size, RECT square, COLORREF colour) {
  return StdPicture::fromBytes(squarePng(size, size, square, colour), true);
}

// A bitmap filled with background, with a square of another colour.
inline PictureRef squareBitmap(int32_t size, RECT square, COLORREF colour, COLORREF background) {
  return StdPicture::fromBytes(squarePng(size, size, square, colour, background), false);
}

// A shown form with a grey background and one hover picture at (20, 20) pixels; the form sits at
// the top left of the screen, so screen and form coordinates agree.
class HoverTest : public DesktopTest {
 protected:
  static constexpr int32_t kLeft = 20, kTop = 20;
  static constexpr COLORREF kFormColour = 0x808080;
  static constexpr COLORREF kRed = 0x0000FF, kBlue = 0xFF0000, kGreen = 0x00FF00;

  void SetUp() override {
    DesktopTest::SetUp();
    form = makeForm(true);
    hover = addHover(*form, "Hover1");
    ASSERT_TRUE(hover);
  }
  void TearDown() override {
    hover.reset();
    form.reset();
    DesktopTest::TearDown();
  }

  FormRef makeForm(bool userMode, const std::string& name = "Form1") {
    FormRef f = Form::create(name, 3000, 2250, userMode);
    f->surface().setBackColor(kFormColour);
    f->Show();
    return f;
  }
  std::shared_ptr<VexHoverPic> addHover(Form& f, const std::string& name, PropertyBag* bag = nullptr) {
    float tpp = Screen::instance().TwipsPerPixelX();
    return std::dynamic_pointer_cast<VexHoverPic>(
        f.add("VexHoverPic", name, nullptr, kLeft * tpp, kTop * tpp, -1, -1, bag));
  }

  // The standard icon of the tests: 20 by 20 pixels, a red square from (4, 4) to (12, 12).
  PictureRef upIcon() { return squareIcon(20, RECT{4, 4, 12, 12}, kRed); }

  // A pixel of the control, in its own pixel coordinates, as the screen shows it.
  COLORREF px(int32_t x, int32_t y) { return screenPixel(kLeft + x, kTop + y); }
  // The same pixel as the control's window image holds it, without composition.
  COLORREF windowPx(int32_t x, int32_t y) {
    return desktop().windows().windowCanvas(hover->hWnd())->pixel(x, y);
  }
  void moveTo(int32_t x, int32_t y) { desktop().mouseMove(kLeft + x, kTop + y); }
  void moveOff() { desktop().mouseMove(kLeft + 150, kTop + 100); }

  FormRef form;
  std::shared_ptr<VexHoverPic> hover;
};

}  // namespace corvane::test

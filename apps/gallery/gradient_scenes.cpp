// SPDX-License-Identifier: MIT
#include <cairo.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include <corvane/frame/gradient.h>
#include <corvane/frame/tile_picture.h>
#include "gallery.h"
#include <corvane/host/std_font.h>
#include <corvane/host/std_picture.h>

namespace corvane::gallery {

namespace {


// A picture box at the given place (twips) with a gradient, and its angle written above it.
void addGradient(Form& f, const std::string& name, float left, float top, float width, float height,
                 float angle, COLORREF colour1, COLORREF colour2) {
  auto box = f.add("PictureBox", name, nullptr, left, top, width, height);
  CGradient g;
  g.setColor1(colour1);
  g.setColor2(colour2);
  g.setAngle(angle);
  g.Draw(box);
  Surface& s = f.surface();
  s.setCurrentX(left);
  s.setCurrentY(top - 240);
  s.Print("Angle " + std::to_string(static_cast<int>(angle)));
}

// A 48 by 48 pixel tile drawn with Cairo: a two-tone checker with a ring, whose edges meet the
// neighbouring tiles so that seams or gaps would show. 48 pixels are a whole number of HiMetric
// units at 96 pixels per inch, so the tile measures exactly 48 pixels on the surface.
PictureRef makeTile() {
  const int size = 48;
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size, size);
  cairo_t* cr = cairo_create(s);
  cairo_set_source_rgb(cr, 0.93, 0.95, 1.0);
  cairo_paint(cr);
  cairo_set_source_rgb(cr, 0.80, 0.86, 0.97);
  cairo_rectangle(cr, 0, 0, size / 2.0, size / 2.0);
  cairo_rectangle(cr, size / 2.0, size / 2.0, size / 2.0, size / 2.0);
  cairo_fill(cr);
  cairo_set_line_width(cr, 4);
  cairo_set_source_rgb(cr, 0.15, 0.35, 0.70);
  cairo_arc(cr, size / 2.0, size / 2.0, size / 2.0 - 8, 0, 2 * M_PI);
  cairo_stroke(cr);
  // A line along the top and the left edge: a tile placed one pixel off would show a double or
  // a missing line.
  cairo_set_line_width(cr, 1);
  cairo_set_source_rgb(cr, 0.55, 0.62, 0.80);
  cairo_move_to(cr, 0, 0.5);
  cairo_line_to(cr, size, 0.5);
  cairo_move_to(cr, 0.5, 0);
  cairo_line_to(cr, 0.5, size);
  cairo_stroke(cr);
  cairo_destroy(cr);
  std::vector<unsigned char> bytes;
  cairo_surface_write_to_png_stream(
      s,
      [](void* closure, const unsigned char* data, unsigned int length) {
        auto* out = static_cast<std::vector<unsigned char>*>(closure);
        out->insert(out->end(), data, data + length);
        return CAIRO_STATUS_SUCCESS;
      },
      &bytes);
  cairo_surface_destroy(s);
  return StdPicture::fromBytes(std::move(bytes));
}

}  // namespace

std::vector<Scene> gradientScenes();
namespace {
SceneRegistrar registerGradients("gradient", gradientScenes);
}

std::vector<Scene> gradientScenes() {
  return {
      {"gradient_angles", "gradients at 0, 45, 130 and 270 degrees on picture boxes",
       [] {
         FormRef f = makeSceneForm("GalleryGradients", 10500, 2700, 9);
         addGradient(*f, "picAngle0", 300, 450, 2250, 1800, 0, 0xFFFFD0, 0x400000);
         addGradient(*f, "picAngle45", 2850, 450, 2250, 1800, 45, 0xFFFFD0, 0x400000);
         addGradient(*f, "picAngle130", 5400, 450, 2250, 1800, 130, RGB(255, 255, 255), RGB(0, 90, 160));
         addGradient(*f, "picAngle270", 7950, 450, 2250, 1800, 270, RGB(250, 220, 120), RGB(140, 40, 20));
         return f;
       }},
      {"gradient_diagonal", "a large gradient at 45 degrees in strong colours: no stair-steps in the bands",
       [] {
         FormRef f = makeSceneForm("GalleryDiagonal", 5400, 3600, 9);
         auto box = f->add("PictureBox", "picDiagonal", nullptr, 150, 150, 5100, 3300);
         CGradient g;
         g.setColor1(RGB(255, 0, 0));
         g.setColor2(RGB(0, 0, 255));
         g.setAngle(45);
         g.Draw(box);
         return f;
       }},
      {"tilepicture_form", "a 48-pixel picture tiled over a form",
       [] {
         FormRef f = makeSceneForm("GalleryTiles", 5400, 3300, 9);
         auto tile = std::make_shared<clsTilePicture>();
         tile->Init(f, makeTile());
         tile->Paint();
         return f;
       }},
      {"tilepicture_resized", "a tiled form grown after the first paint: only the uncovered band is painted",
       [] {
         FormRef f = makeSceneForm("GalleryTilesGrown", 3300, 2100, 9);
         auto tile = std::make_shared<clsTilePicture>();
         tile->Init(f, makeTile());
         tile->Paint();
         f->Move(f->Left(), f->Top(), 5400, 3300);
         tile->Resize();
         tile->Paint();
         return f;
       }},
  };
}

}  // namespace corvane::gallery

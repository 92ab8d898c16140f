// SPDX-License-Identifier: MIT
// The gradient painter and Cairo's linear gradient on surfaces of the same size, for the benchmark
// and for the instruction counts. The painter draws one pen line per pixel step along the sweep;
// Cairo computes every pixel of the image.
#pragma once
#include <cairo.h>

#include <cmath>

#include "desktop/desktop.h"
#include <corvane/frame/gradient.h>
#include <corvane/platform/api.h>

namespace gradient_rigs {

using namespace corvane;

constexpr int32_t kWidth = 1920;
constexpr int32_t kHeight = 1080;
constexpr COLORREF kColour1 = 0xFFFFD0;
constexpr COLORREF kColour2 = 0x400000;

// A memory context with a 1920 by 1080 bitmap on the desktop, and a painter.
struct GradientRig {
  Desktop desktop;
  HDC hdc = 0;
  HBITMAP bitmap = 0;
  HGDIOBJ oldBitmap = 0;
  CGradient gradient;
  explicit GradientRig(float angle) {
    setPlatform(&desktop);
    hdc = gdi().CreateCompatibleDC(0);
    bitmap = gdi().CreateCompatibleBitmap(hdc, kWidth, kHeight);
    oldBitmap = gdi().SelectObject(hdc, bitmap);
    gradient.setAngle(angle);
    gradient.setColor1(kColour1);
    gradient.setColor2(kColour2);
  }
  ~GradientRig() {
    gdi().SelectObject(hdc, oldBitmap);
    gdi().DeleteObject(bitmap);
    gdi().DeleteDC(hdc);
    setPlatform(nullptr);
  }
  // Drawn and one pixel read back, so that every pixel is in the bitmap when the time is taken.
  int32_t draw(COLORREF& centre) {
    const int32_t lines = gradient.DrawGradient(hdc, kWidth, kHeight);
    centre = gdi().GetPixel(hdc, kWidth / 2, kHeight / 2);
    return lines;
  }
};

// Cairo's linear gradient over an image of the same size, from Colour1 to Colour2 in the direction
// of the angle (counter-clockwise from the x axis, with y pointing down on the image).
struct CairoRig {
  cairo_surface_t* surface;
  cairo_t* cr;
  cairo_pattern_t* pattern;
  explicit CairoRig(float angle) {
    surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight);
    cr = cairo_create(surface);
    const double a = angle * M_PI / 180.0, dx = std::cos(a), dy = -std::sin(a);
    const double half = (kWidth * std::fabs(dx) + kHeight * std::fabs(dy)) / 2.0;
    const double cx = kWidth / 2.0, cy = kHeight / 2.0;
    pattern = cairo_pattern_create_linear(cx - dx * half, cy - dy * half, cx + dx * half, cy + dy * half);
    auto stop = [&](double offset, COLORREF c) {
      cairo_pattern_add_color_stop_rgb(pattern, offset, (c & 0xFF) / 255.0, ((c >> 8) & 0xFF) / 255.0,
                                       ((c >> 16) & 0xFF) / 255.0);
    };
    stop(0, kColour1);
    stop(1, kColour2);
    cairo_set_source(cr, pattern);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  }
  ~CairoRig() {
    cairo_pattern_destroy(pattern);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
  }
  void draw() {
    cairo_paint(cr);
    cairo_surface_flush(surface);
  }
};

}  // namespace gradient_rigs

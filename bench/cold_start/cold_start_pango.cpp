// SPDX-License-Identifier: MIT
// Cold start of the peer: a fresh process in which Pango alone lays out and paints the same markup
// with the same font, size and options on a surface of the label's size.
#include <pango/pangocairo.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>

#include "../pango_label_layout.h"

int main() {
  auto start = std::chrono::steady_clock::now();
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 400, 20);
  cairo_t* cr = cairo_create(surface);
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
  PangoLayout* layout =
      pangoLabelLayout(cr, "<b>Fett</b> und <span foreground=\"#FF0000\">rot</span> und <i>kursiv</i>", 400, false);
  cairo_set_source_rgb(cr, 0, 0, 0);
  cairo_move_to(cr, 0, 0);
  pango_cairo_show_layout(cr, layout);
  cairo_surface_flush(surface);
  long pixel = static_cast<long>(
      reinterpret_cast<const unsigned*>(cairo_image_surface_get_data(surface))[2 * 400 + 2]);
  auto end = std::chrono::steady_clock::now();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf(
      "pango main_us=%lld maxrss_kb=%ld pixel=%ld\n",
      static_cast<long long>(std::chrono::duration_cast<std::chrono::microseconds>(end - start).count()),
      usage.ru_maxrss, pixel);
  g_object_unref(layout);
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
  return 0;
}

// SPDX-License-Identifier: MIT
// Cold start of the peer: a fresh process in which Pango alone lays out and paints the same markup
// with the same font, size and options on a surface of the label's size.
#include <pango/pangocairo.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>

int main() {
  auto start = std::chrono::steady_clock::now();
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 400, 20);
  cairo_t* cr = cairo_create(surface);
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
  PangoLayout* layout = pango_cairo_create_layout(cr);
  PangoContext* context = pango_layout_get_context(layout);
  cairo_font_options_t* o = cairo_font_options_create();
  cairo_font_options_set_antialias(o, CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(o, CAIRO_HINT_STYLE_SLIGHT);
  cairo_font_options_set_hint_metrics(o, CAIRO_HINT_METRICS_ON);
  pango_cairo_context_set_font_options(context, o);
  cairo_font_options_destroy(o);
  pango_context_set_round_glyph_positions(context, TRUE);
  PangoFontDescription* font = pango_font_description_from_string("Liberation Sans");
  pango_font_description_set_absolute_size(font, 13 * PANGO_SCALE);
  pango_layout_set_font_description(layout, font);
  pango_font_description_free(font);
  pango_layout_set_markup(layout, "<b>Fett</b> und <span foreground=\"#FF0000\">rot</span> und <i>kursiv</i>",
                          -1);
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

// SPDX-License-Identifier: MIT
// Pango set up as the label's text is, for the benchmarks that set Pango beside the label:
// Liberation Sans (the face drawn for Arial) at 13 pixels (10 points at 96 pixels per inch),
// greyscale antialiasing, slight hinting, whole-pixel metrics.
#pragma once
#include <pango/pangocairo.h>

#include <string>

inline PangoLayout* pangoLabelLayout(cairo_t* cr, const std::string& markup, int widthPx, bool wrap) {
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
  if (wrap) {
    pango_layout_set_width(layout, widthPx * PANGO_SCALE);
    pango_layout_set_wrap(layout, PANGO_WRAP_WORD);
  }
  pango_layout_set_markup(layout, markup.c_str(), -1);
  return layout;
}

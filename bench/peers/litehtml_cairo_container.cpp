// SPDX-License-Identifier: MIT
#include "litehtml_cairo_container.h"

struct LitehtmlCairoContainer::Font {
  PangoFontDescription* description;
  bool underline;
};

LitehtmlCairoContainer::LitehtmlCairoContainer(int width)
    : m_width(width),
      m_measureSurface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1)),
      m_measure(cairo_create(m_measureSurface)) {}

LitehtmlCairoContainer::~LitehtmlCairoContainer() {
  cairo_destroy(m_measure);
  cairo_surface_destroy(m_measureSurface);
}

litehtml::uint_ptr LitehtmlCairoContainer::create_font(const litehtml::tchar_t* faceName, int size, int weight,
                                                       litehtml::font_style italic, unsigned int decoration,
                                                       litehtml::font_metrics* fm) {
  auto* font = new Font{pango_font_description_from_string(faceName), (decoration & litehtml::font_decoration_underline) != 0};
  pango_font_description_set_absolute_size(font->description, size * PANGO_SCALE);
  pango_font_description_set_weight(font->description, static_cast<PangoWeight>(weight));
  pango_font_description_set_style(font->description,
                                   italic == litehtml::fontStyleItalic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  if (fm) {
    PangoContext* context = pango_cairo_create_context(m_measure);
    PangoFontMetrics* metrics = pango_context_get_metrics(context, font->description, nullptr);
    fm->ascent = PANGO_PIXELS(pango_font_metrics_get_ascent(metrics));
    fm->descent = PANGO_PIXELS(pango_font_metrics_get_descent(metrics));
    fm->height = fm->ascent + fm->descent;
    fm->x_height = fm->ascent / 2;
    pango_font_metrics_unref(metrics);
    g_object_unref(context);
  }
  return reinterpret_cast<litehtml::uint_ptr>(font);
}

void LitehtmlCairoContainer::delete_font(litehtml::uint_ptr hFont) {
  auto* font = reinterpret_cast<Font*>(hFont);
  pango_font_description_free(font->description);
  delete font;
}

int LitehtmlCairoContainer::text_width(const litehtml::tchar_t* text, litehtml::uint_ptr hFont) {
  PangoLayout* layout = pango_cairo_create_layout(m_measure);
  pango_layout_set_font_description(layout, reinterpret_cast<Font*>(hFont)->description);
  pango_layout_set_text(layout, text, -1);
  int width = 0, height = 0;
  pango_layout_get_pixel_size(layout, &width, &height);
  g_object_unref(layout);
  return width;
}

void LitehtmlCairoContainer::draw_text(litehtml::uint_ptr hdc, const litehtml::tchar_t* text, litehtml::uint_ptr hFont,
                                       litehtml::web_color color, const litehtml::position& pos) {
  auto* cr = reinterpret_cast<cairo_t*>(hdc);
  const Font* font = reinterpret_cast<Font*>(hFont);
  PangoLayout* layout = pango_cairo_create_layout(cr);
  pango_layout_set_font_description(layout, font->description);
  pango_layout_set_text(layout, text, -1);
  cairo_set_source_rgb(cr, color.red / 255.0, color.green / 255.0, color.blue / 255.0);
  cairo_move_to(cr, pos.x, pos.y);
  pango_cairo_show_layout(cr, layout);
  if (font->underline) {
    int width = 0, height = 0;
    pango_layout_get_pixel_size(layout, &width, &height);
    cairo_rectangle(cr, pos.x, pos.y + height - 2, width, 1);
    cairo_fill(cr);
  }
  g_object_unref(layout);
}

void LitehtmlCairoContainer::draw_list_marker(litehtml::uint_ptr hdc, const litehtml::list_marker& marker) {
  auto* cr = reinterpret_cast<cairo_t*>(hdc);
  cairo_set_source_rgb(cr, marker.color.red / 255.0, marker.color.green / 255.0, marker.color.blue / 255.0);
  cairo_rectangle(cr, marker.pos.x, marker.pos.y, marker.pos.width, marker.pos.height);
  cairo_fill(cr);
}

void LitehtmlCairoContainer::draw_background(litehtml::uint_ptr hdc, const litehtml::background_paint& bg) {
  if (bg.color.alpha == 0) return;
  auto* cr = reinterpret_cast<cairo_t*>(hdc);
  cairo_set_source_rgba(cr, bg.color.red / 255.0, bg.color.green / 255.0, bg.color.blue / 255.0, bg.color.alpha / 255.0);
  cairo_rectangle(cr, bg.clip_box.x, bg.clip_box.y, bg.clip_box.width, bg.clip_box.height);
  cairo_fill(cr);
}

void LitehtmlCairoContainer::draw_borders(litehtml::uint_ptr hdc, const litehtml::borders& borders,
                                          const litehtml::position& box, bool) {
  auto* cr = reinterpret_cast<cairo_t*>(hdc);
  auto edge = [cr](const litehtml::border& b, int x, int y, int w, int h) {
    if (b.width <= 0 || b.style == litehtml::border_style_none || b.style == litehtml::border_style_hidden) return;
    cairo_set_source_rgb(cr, b.color.red / 255.0, b.color.green / 255.0, b.color.blue / 255.0);
    cairo_rectangle(cr, x, y, w, h);
    cairo_fill(cr);
  };
  edge(borders.top, box.x, box.y, box.width, borders.top.width);
  edge(borders.bottom, box.x, box.bottom() - borders.bottom.width, box.width, borders.bottom.width);
  edge(borders.left, box.x, box.y, borders.left.width, box.height);
  edge(borders.right, box.right() - borders.right.width, box.y, borders.right.width, box.height);
}

void LitehtmlCairoContainer::get_client_rect(litehtml::position& client) const {
  client.x = client.y = 0;
  client.width = m_width;
  client.height = 400;
}

void LitehtmlCairoContainer::get_media_features(litehtml::media_features& media) const {
  media.type = litehtml::media_type_screen;
  media.width = media.device_width = m_width;
  media.height = media.device_height = 400;
  media.color = 8;
  media.monochrome = 0;
  media.color_index = 256;
  media.resolution = 96;
}

const char* LitehtmlCairoContainer::masterStyleSheet() {
  return R"(
html, body, div, p, h1, h2, h3, h4, h5, h6, ul, ol, blockquote, center, hr, pre, address { display: block; }
head, title, script, style, meta, link { display: none; }
li { display: list-item; }
table { display: table; border-collapse: separate; border-spacing: 2px; }
thead, tbody, tfoot { display: table-row-group; }
tr { display: table-row; }
td, th { display: table-cell; padding: 1px; vertical-align: middle; }
th { font-weight: bold; }
body { margin: 8px; }
p, ul, ol, blockquote { margin-top: 1em; margin-bottom: 1em; }
ul, ol { padding-left: 40px; }
ul { list-style-type: disc; }
ol { list-style-type: decimal; }
blockquote { margin-left: 40px; margin-right: 40px; }
center { text-align: center; }
h1 { font-size: 2em; font-weight: bold; margin: 0.67em 0; }
h2 { font-size: 1.5em; font-weight: bold; margin: 0.75em 0; }
h3 { font-size: 1.17em; font-weight: bold; margin: 0.83em 0; }
h4, h5, h6 { font-weight: bold; margin: 1em 0; }
b, strong { font-weight: bold; }
i, em { font-style: italic; }
u { text-decoration: underline; }
a { color: #0000EE; text-decoration: underline; }
hr { border: 1px solid gray; margin: 0.5em 0; }
)";
}

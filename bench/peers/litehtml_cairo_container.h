// SPDX-License-Identifier: MIT
#pragma once
#include <cairo.h>
#include <litehtml/litehtml.h>
#include <pango/pangocairo.h>

// A litehtml drawing container on Cairo and Pango, as small as the benchmark peer needs: fonts,
// text, backgrounds, borders and list markers; no images, no clipping. The hdc litehtml hands
// back is the cairo_t.
class LitehtmlCairoContainer final : public litehtml::document_container {
 public:
  explicit LitehtmlCairoContainer(int width);
  ~LitehtmlCairoContainer();  // litehtml's base has no virtual destructor

  litehtml::uint_ptr create_font(const litehtml::tchar_t* faceName, int size, int weight,
                                 litehtml::font_style italic, unsigned int decoration,
                                 litehtml::font_metrics* fm) override;
  void delete_font(litehtml::uint_ptr hFont) override;
  int text_width(const litehtml::tchar_t* text, litehtml::uint_ptr hFont) override;
  void draw_text(litehtml::uint_ptr hdc, const litehtml::tchar_t* text, litehtml::uint_ptr hFont,
                 litehtml::web_color color, const litehtml::position& pos) override;
  int pt_to_px(int pt) const override { return pt * 96 / 72; }
  int get_default_font_size() const override { return 16; }
  const litehtml::tchar_t* get_default_font_name() const override { return "DejaVu Sans"; }
  void draw_list_marker(litehtml::uint_ptr hdc, const litehtml::list_marker& marker) override;
  void load_image(const litehtml::tchar_t*, const litehtml::tchar_t*, bool) override {}
  void get_image_size(const litehtml::tchar_t*, const litehtml::tchar_t*, litehtml::size& sz) override {
    sz.width = sz.height = 0;
  }
  void draw_background(litehtml::uint_ptr hdc, const litehtml::background_paint& bg) override;
  void draw_borders(litehtml::uint_ptr hdc, const litehtml::borders& borders, const litehtml::position& draw_pos,
                    bool root) override;
  void set_caption(const litehtml::tchar_t*) override {}
  void set_base_url(const litehtml::tchar_t*) override {}
  void link(const std::shared_ptr<litehtml::document>&, const litehtml::element::ptr&) override {}
  void on_anchor_click(const litehtml::tchar_t*, const litehtml::element::ptr&) override {}
  void set_cursor(const litehtml::tchar_t*) override {}
  void transform_text(litehtml::tstring&, litehtml::text_transform) override {}
  void import_css(litehtml::tstring&, const litehtml::tstring&, litehtml::tstring&) override {}
  void set_clip(const litehtml::position&, const litehtml::border_radiuses&, bool, bool) override {}
  void del_clip() override {}
  void get_client_rect(litehtml::position& client) const override;
  std::shared_ptr<litehtml::element> create_element(const litehtml::tchar_t*, const litehtml::string_map&,
                                                    const std::shared_ptr<litehtml::document>&) override {
    return nullptr;
  }
  void get_media_features(litehtml::media_features& media) const override;
  void get_language(litehtml::tstring& language, litehtml::tstring& culture) const override {
    language = "de";
    culture = "DE";
  }

  // The browser-like defaults litehtml needs before any page: block elements, tables, lists,
  // headings and inline styles.
  static const char* masterStyleSheet();

 private:
  struct Font;
  int m_width;
  cairo_surface_t* m_measureSurface;
  cairo_t* m_measure;  // a context for measuring text outside of drawing
};

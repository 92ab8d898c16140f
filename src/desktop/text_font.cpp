// SPDX-License-Identifier: MIT
#include "desktop/text_font.h"

#include <hb-ot.h>
#include <hb.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-font.h>

#include <algorithm>
#include <cmath>

#include "desktop/text_script.h"
#include "desktop/text_utf8.h"

namespace corvane {

namespace {

inline uint32_t div255(uint32_t v) {
  v += 128;
  return (v + (v >> 8)) >> 8;
}

// The text colour over an opaque pixel at coverage a (1 to 254): red and blue share one 32-bit
// multiply, each in its own 16-bit lane, and each lane is divided by 255 with rounding.
inline uint32_t blendOverOpaque(uint32_t d, uint32_t srcRedBlue, uint32_t srcGreen, uint32_t a) {
  const uint32_t na = 255 - a;
  uint32_t rb = srcRedBlue * a + (d & 0xFF00FF) * na + 0x800080;
  uint32_t g = srcGreen * a + (d & 0xFF00) * na + 0x8000;
  rb = ((rb + ((rb >> 8) & 0xFF00FF)) >> 8) & 0xFF00FF;
  g = ((g + ((g >> 8) & 0xFF00)) >> 8) & 0xFF00;
  return 0xFF000000u | rb | g;
}

}  // namespace

TextFont::TextFont(PangoContext* context, const std::string& family, int32_t pixelSize, bool bold,
                   bool italic, FontSubstitution::Symbols symbols)
    : m_context(static_cast<PangoContext*>(g_object_ref(context))),
      m_description(pango_font_description_new()),
      m_layout(pango_layout_new(context)),
      m_symbols(symbols),
      m_pixelSize(std::max(pixelSize, 1)) {
  pango_font_description_set_family(m_description, family.c_str());
  pango_font_description_set_absolute_size(m_description, double(m_pixelSize) * PANGO_SCALE);
  pango_font_description_set_weight(m_description, bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_style(m_description, italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  pango_layout_set_font_description(m_layout, m_description);

  m_primary = pango_context_load_font(context, m_description);
  if (m_primary && !readFaceMetrics()) readPangoMetrics();
  // The underline stays inside the line box.
  m_underlineOffset = std::clamp(m_underlineOffset, 1, std::max(1, m_descent - m_underlineThickness));

  shapeAscii();
  for (const Glyph& g : m_ascii) m_maxCharWidth = std::max(m_maxCharWidth, g.advance);
}

bool TextFont::readFaceMetrics() {
  // What Pango's metrics hold but without the sample sentence Pango lays out for the average
  // width, which is what makes them slow: ascent and descent as the face gives them, in whole
  // pixels rounded up, and the line positions from the face's tables. A transformed or unhinted
  // face, or one without those tables, is left to Pango.
  if (!PANGO_IS_FC_FONT(m_primary)) return false;
  const PangoFcFont* fc = PANGO_FC_FONT(m_primary);
  if (fc->is_transformed || !fc->is_hinted) return false;
  hb_font_t* face = pango_font_get_hb_font(m_primary);
  hb_position_t underlineSize = 0, underlineOffset = 0, strikeSize = 0, strikeOffset = 0;
  if (!face || !hb_ot_metrics_get_position(face, HB_OT_METRICS_TAG_UNDERLINE_SIZE, &underlineSize) ||
      !hb_ot_metrics_get_position(face, HB_OT_METRICS_TAG_UNDERLINE_OFFSET, &underlineOffset) ||
      !hb_ot_metrics_get_position(face, HB_OT_METRICS_TAG_STRIKEOUT_SIZE, &strikeSize) ||
      !hb_ot_metrics_get_position(face, HB_OT_METRICS_TAG_STRIKEOUT_OFFSET, &strikeOffset) ||
      !underlineSize || !underlineOffset || !strikeSize || !strikeOffset)
    return false;
  hb_font_extents_t extents{};
  hb_font_get_extents_for_direction(face, HB_DIRECTION_LTR, &extents);
  m_ascent = PANGO_PIXELS_CEIL(extents.ascender);
  m_descent = PANGO_PIXELS_CEIL(-extents.descender);
  m_underlineThickness = std::max(1, PANGO_PIXELS(underlineSize));
  m_underlineOffset = PANGO_PIXELS(-underlineOffset);
  m_strikeThickness = std::max(1, PANGO_PIXELS(strikeSize));
  m_strikeOffset = PANGO_PIXELS(-strikeOffset);
  return true;
}

void TextFont::readPangoMetrics() {
  PangoFontMetrics* metrics = pango_font_get_metrics(m_primary, nullptr);
  m_ascent = PANGO_PIXELS_CEIL(pango_font_metrics_get_ascent(metrics));
  m_descent = PANGO_PIXELS_CEIL(pango_font_metrics_get_descent(metrics));
  m_underlineThickness = std::max(1, PANGO_PIXELS(pango_font_metrics_get_underline_thickness(metrics)));
  m_underlineOffset = PANGO_PIXELS(-pango_font_metrics_get_underline_position(metrics));
  m_strikeThickness = std::max(1, PANGO_PIXELS(pango_font_metrics_get_strikethrough_thickness(metrics)));
  m_strikeOffset = PANGO_PIXELS(-pango_font_metrics_get_strikethrough_position(metrics));
  pango_font_metrics_unref(metrics);
}

int32_t TextFont::aveCharWidth() const {
  if (m_aveCharWidth < 0) m_aveCharWidth = averageWidth();
  return m_aveCharWidth;
}

int32_t TextFont::averageWidth() const {
  // Pango's average character width: its sample sentence for the default language, laid out,
  // over the sentence's length in characters. An ASCII sentence the face holds whole is shaped
  // here on the face as Pango shapes it (positions rounded); any other is left to Pango's metrics.
  if (!m_primary) return 0;
  const char* sample = pango_language_get_sample_string(nullptr);
  const std::string_view text(sample ? sample : "");
  hb_font_t* face = pango_font_get_hb_font(m_primary);
  if (face && !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c > 0 && c < 0x7F; })) {
    hb_buffer_t* buffer = hb_buffer_create();
    hb_buffer_add_utf8(buffer, text.data(), static_cast<int>(text.size()), 0, static_cast<int>(text.size()));
    hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, HB_SCRIPT_LATIN);
    hb_buffer_set_language(buffer, hb_language_from_string(pango_language_to_string(pango_language_get_default()), -1));
    hb_shape(face, buffer, nullptr, 0);
    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, nullptr);
    int64_t units = 0;
    bool whole = true;
    for (unsigned k = 0; k < count; ++k) {
      whole = whole && infos[k].codepoint != 0;
      units += PANGO_UNITS_ROUND(positions[k].x_advance);
    }
    hb_buffer_destroy(buffer);
    if (whole) return PANGO_PIXELS(static_cast<int32_t>(units / static_cast<int64_t>(text.size())));
  }
  PangoFontMetrics* metrics = pango_font_get_metrics(m_primary, nullptr);
  const int32_t width = PANGO_PIXELS(pango_font_metrics_get_approximate_char_width(metrics));
  pango_font_metrics_unref(metrics);
  return width;
}

void TextFont::shapeAscii() {
  if (m_symbols == FontSubstitution::Symbols::None && shapeAsciiOnFace()) return;
  shapeAsciiWithPango();
}

bool TextFont::shapeAsciiOnFace() {
  // The printable characters in one shaping call on the face Pango chose, with the script,
  // language and features Pango's own shaping of them would use (pairs neither kerned nor
  // joined) and positions rounded as Pango rounds them; without Pango's layout around the call,
  // which would also load every glyph's outline for extents nobody asks for. A character the face
  // lacks, or that does not come out as one glyph, is shaped through Pango on its own.
  hb_font_t* face = m_primary ? pango_font_get_hb_font(m_primary) : nullptr;
  const int32_t slot = face ? slotFor(m_primary) : -1;
  if (slot < 0) return false;
  char text[0x7F - 0x20];
  for (int c = 0x20; c < 0x7F; ++c) text[c - 0x20] = static_cast<char>(c);
  static const std::array<hb_feature_t, 5> kUnjoined = [] {
    std::array<hb_feature_t, 5> features{};
    const char* names[] = {"kern=0", "liga=0", "clig=0", "calt=0", "dlig=0"};
    for (size_t i = 0; i < features.size(); ++i) hb_feature_from_string(names[i], -1, &features[i]);
    return features;
  }();
  hb_buffer_t* buffer = hb_buffer_create();
  hb_buffer_add_utf8(buffer, text, sizeof text, 0, sizeof text);
  hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
  hb_buffer_set_script(buffer, HB_SCRIPT_LATIN);
  hb_buffer_set_language(buffer, hb_language_from_string(pango_language_to_string(pango_context_get_language(m_context)), -1));
  hb_shape(face, buffer, kUnjoined.data(), kUnjoined.size());
  unsigned count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, nullptr);
  std::array<int32_t, 128> units{}, glyphs{};
  std::array<uint32_t, 128> index{};
  for (unsigned k = 0; k < count; ++k) {
    const uint32_t c = 0x20 + infos[k].cluster;
    if (c >= 0x7F) continue;
    units[c] += PANGO_UNITS_ROUND(positions[k].x_advance);
    ++glyphs[c];
    index[c] = infos[k].codepoint;
  }
  hb_buffer_destroy(buffer);
  for (char32_t c = 0x20; c < 0x7F; ++c) {
    if (glyphs[c] != 1 || index[c] == 0) {
      m_ascii[c] = shape(c);
      continue;
    }
    m_ascii[c].index = index[c];
    m_ascii[c].slot = slot;
    m_ascii[c].advance = std::max(0, PANGO_PIXELS(units[c]));
  }
  return true;
}

void TextFont::shapeAsciiWithPango() {
  // The printable characters side by side in one layout, pairs neither kerned nor joined, so that
  // each gets the glyph and advance it has on its own; a character that does not come out as one
  // glyph is shaped on its own after all.
  std::string text;
  std::vector<int32_t> charAt;  // byte offset in text to the character that starts there, or -1
  for (char32_t c = 0x20; c < 0x7F; ++c) {
    charAt.resize(text.size(), -1);
    charAt.push_back(static_cast<int32_t>(c));
    appendUtf8(text, FontSubstitution::mapSymbol(m_symbols, c));
  }
  charAt.resize(text.size(), -1);
  PangoAttrList* attributes = pango_attr_list_new();
  pango_attr_list_insert(attributes, pango_attr_font_features_new("kern 0, liga 0, clig 0, calt 0, dlig 0"));
  pango_layout_set_attributes(m_layout, attributes);
  pango_layout_set_text(m_layout, text.data(), static_cast<int>(text.size()));
  std::array<int32_t, 128> units{}, glyphs{};
  std::array<Glyph, 128> found{};
  PangoLayoutLine* line = pango_layout_get_line_readonly(m_layout, 0);
  for (GSList* r = line ? line->runs : nullptr; r; r = r->next) {
    auto* run = static_cast<PangoGlyphItem*>(r->data);
    const int32_t slot = slotFor(run->item->analysis.font);
    for (int k = 0; k < run->glyphs->num_glyphs; ++k) {
      const size_t at = static_cast<size_t>(run->item->offset + run->glyphs->log_clusters[k]);
      const int32_t c = at < charAt.size() ? charAt[at] : -1;
      if (c < 0) continue;
      const PangoGlyphInfo& info = run->glyphs->glyphs[k];
      units[c] += info.geometry.width;
      ++glyphs[c];
      if (slot >= 0 && !(info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) && info.glyph != PANGO_GLYPH_EMPTY) {
        found[c].index = info.glyph;
        found[c].slot = slot;
      }
    }
  }
  pango_layout_set_attributes(m_layout, nullptr);
  pango_attr_list_unref(attributes);
  for (char32_t c = 0x20; c < 0x7F; ++c) {
    if (glyphs[c] != 1) {
      m_ascii[c] = shape(c);
      continue;
    }
    m_ascii[c] = found[c];
    m_ascii[c].advance = std::max(0, PANGO_PIXELS(units[c]));
  }
}

TextFont::~TextFont() {
  for (Slot& s : m_slots) {
    cairo_scaled_font_destroy(s.scaled);
    g_object_unref(s.font);
  }
  if (m_primary) g_object_unref(m_primary);
  g_object_unref(m_layout);
  pango_font_description_free(m_description);
  g_object_unref(m_context);
}

TextFont::Glyph& TextFont::glyph(char32_t c) {
  if (c < 128) return m_ascii[c];
  auto it = m_other.find(c);
  if (it == m_other.end()) it = m_other.emplace(c, shape(c)).first;
  return it->second;
}

int32_t TextFont::slotFor(PangoFont* font) {
  // The glyph may come from a fallback face; each face keeps its own Cairo font.
  auto found = std::find_if(m_slots.begin(), m_slots.end(), [font](const Slot& s) { return s.font == font; });
  if (found != m_slots.end()) return static_cast<int32_t>(found - m_slots.begin());
  cairo_scaled_font_t* scaled = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font));
  if (!scaled) return -1;
  m_slots.push_back({static_cast<PangoFont*>(g_object_ref(font)), cairo_scaled_font_reference(scaled)});
  return static_cast<int32_t>(m_slots.size() - 1);
}

TextFont::Glyph TextFont::shape(char32_t c) {
  Glyph g;
  if (c < 0x20 || c == 0x7F) return g;  // control characters take no room and show nothing
  std::string s;
  appendUtf8(s, FontSubstitution::mapSymbol(m_symbols, c));
  pango_layout_set_text(m_layout, s.data(), static_cast<int>(s.size()));
  PangoLayoutLine* line = pango_layout_get_line_readonly(m_layout, 0);
  int32_t units = 0;
  for (GSList* r = line ? line->runs : nullptr; r; r = r->next) {
    auto* run = static_cast<PangoGlyphItem*>(r->data);
    for (int k = 0; k < run->glyphs->num_glyphs; ++k) {
      const PangoGlyphInfo& info = run->glyphs->glyphs[k];
      units += info.geometry.width;
      if (g.slot >= 0 || (info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) || info.glyph == PANGO_GLYPH_EMPTY) continue;
      const int32_t slot = slotFor(run->item->analysis.font);
      if (slot < 0) continue;
      g.index = info.glyph;
      g.slot = slot;
    }
  }
  g.advance = std::max(0, PANGO_PIXELS(units));  // so a text is never narrower than its beginning
  return g;
}

TextFont::ShapedWord& TextFont::shaped(std::string_view word) {
  auto known = m_shaped.find(word);
  if (known != m_shaped.end()) return known->second;
  if (m_shaped.size() >= kMaxShapedWords) m_shaped.clear();  // bounded memory for endless new words
  ShapedWord out;
  const std::string s = mapped(word);
  pango_layout_set_text(m_layout, s.data(), static_cast<int>(s.size()));
  PangoLayoutLine* line = pango_layout_get_line_readonly(m_layout, 0);
  // Runs and their glyphs come in visual order, left to right, right-to-left runs reversed.
  int32_t units = 0;
  for (GSList* r = line ? line->runs : nullptr; r; r = r->next) {
    auto* run = static_cast<PangoGlyphItem*>(r->data);
    const int32_t slot = slotFor(run->item->analysis.font);
    for (int k = 0; k < run->glyphs->num_glyphs; ++k) {
      const PangoGlyphInfo& info = run->glyphs->glyphs[k];
      if (slot >= 0 && !(info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) && info.glyph != PANGO_GLYPH_EMPTY)
        out.glyphs.push_back({info.glyph, slot, PANGO_PIXELS(units + info.geometry.x_offset),
                              PANGO_PIXELS(info.geometry.y_offset), -1});
      units += info.geometry.width;
    }
  }
  out.width = std::max(0, PANGO_PIXELS(units));
  return m_shaped.emplace(std::string(word), std::move(out)).first->second;
}

const TextFont::GlyphImage& TextFont::image(int32_t slot, uint32_t index, int32_t& cached) {
  if (cached >= 0) return m_images[static_cast<size_t>(cached)];
  const uint64_t key = (uint64_t(uint32_t(slot)) << 32) | index;
  auto known = m_imageOf.find(key);
  if (known != m_imageOf.end()) {
    cached = known->second;
    return m_images[static_cast<size_t>(cached)];
  }
  GlyphImage im;
  cairo_scaled_font_t* scaled = m_slots[static_cast<size_t>(slot)].scaled;
  cairo_glyph_t cg{index, 0, 0};
  cairo_text_extents_t e;
  cairo_scaled_font_glyph_extents(scaled, &cg, 1, &e);
  if (e.width > 0 && e.height > 0) {
    const int32_t left = static_cast<int32_t>(std::floor(e.x_bearing)) - 1;
    const int32_t top = static_cast<int32_t>(std::floor(e.y_bearing)) - 1;
    const int32_t w = static_cast<int32_t>(std::ceil(e.x_bearing + e.width)) + 1 - left;
    const int32_t h = static_cast<int32_t>(std::ceil(e.y_bearing + e.height)) + 1 - top;
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_A8, w, h);
    cairo_t* cr = cairo_create(surface);
    cairo_set_scaled_font(cr, scaled);
    cg.x = -left;
    cg.y = -top;
    cairo_show_glyphs(cr, &cg, 1);
    cairo_destroy(cr);
    cairo_surface_flush(surface);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    // Keep only the rows and columns that have ink.
    int32_t x0 = w, y0 = h, x1 = -1, y1 = -1;
    for (int32_t y = 0; y < h; ++y)
      for (int32_t x = 0; x < w; ++x)
        if (data[y * stride + x]) {
          x0 = std::min(x0, x);
          x1 = std::max(x1, x);
          y0 = std::min(y0, y);
          y1 = std::max(y1, y);
        }
    if (x1 >= 0) {
      im.left = left + x0;
      im.top = top + y0;
      im.width = x1 - x0 + 1;
      im.height = y1 - y0 + 1;
      im.coverage.resize(static_cast<size_t>(im.width) * static_cast<size_t>(im.height));
      for (int32_t y = 0; y < im.height; ++y) {
        const uint8_t* row = data + (y0 + y) * stride + x0;
        std::copy_n(row, im.width, im.coverage.begin() + y * im.width);
        int16_t first = 0, last = static_cast<int16_t>(im.width);
        while (first < last && !row[first]) ++first;
        while (last > first && !row[last - 1]) --last;
        im.rowStart.push_back(first);
        im.rowEnd.push_back(last);
      }
    }
    cairo_surface_destroy(surface);
  }
  // Very large glyphs, as of a font hundreds of points high, would fill the memory one by one;
  // past the budget a picture serves its one use only and is made again the next time.
  const size_t bytes = im.coverage.size() + 4 * im.rowStart.size() + sizeof(GlyphImage);
  if (m_imageBytes + bytes > kMaxImageBytes) {
    m_passingImage = std::move(im);
    return m_passingImage;
  }
  m_imageBytes += bytes;
  cached = static_cast<int32_t>(m_images.size());
  m_imageOf.emplace(key, cached);
  m_images.push_back(std::move(im));
  return m_images.back();
}

namespace {

// A byte that ends a word: a blank or a control character.
inline bool endsWord(unsigned char b) { return b <= 0x20 || b == 0x7F; }

}  // namespace

template <class Visit>
int32_t TextFont::walk(std::string_view text, Visit&& visit) {
  int32_t pen = 0;
  const size_t n = text.size();
  size_t i = 0;
  while (i < n) {
    const auto b = static_cast<unsigned char>(text[i]);
    if (endsWord(b)) {
      Glyph& g = m_ascii[b];
      if (g.slot >= 0) visit(g.slot, g.index, pen, 0, g.image);
      pen += g.advance;
      ++i;
      continue;
    }
    size_t end = i;
    bool plain = true;
    while (end < n && !endsWord(static_cast<unsigned char>(text[end])))
      plain &= static_cast<unsigned char>(text[end++]) < 0x80;
    const std::string_view word = text.substr(i, end - i);
    if (!plain && needsShaping(word)) {
      ShapedWord& w = shaped(word);
      for (PlacedGlyph& p : w.glyphs) visit(p.slot, p.index, pen + p.x, p.y, p.image);
      pen += w.width;
      i = end;
      continue;
    }
    while (i < end) {
      const auto c = static_cast<unsigned char>(text[i]);
      Glyph& g = c < 0x80 ? m_ascii[c] : glyph(nextCodePoint(text, i));
      if (c < 0x80) ++i;
      if (g.slot >= 0) visit(g.slot, g.index, pen, 0, g.image);
      pen += g.advance;
    }
  }
  return pen;
}

int32_t TextFont::mixedWidth(std::string_view text) {
  return walk(text, [](int32_t, uint32_t, int32_t, int32_t, int32_t&) {});
}

int32_t TextFont::draw(Canvas& canvas, int32_t x, int32_t y, std::string_view text, COLORREF colour,
                       const RECT& clip) {
  const uint32_t sr = colour & 255, sg = (colour >> 8) & 255, sb = (colour >> 16) & 255;
  const uint32_t solid = 0xFF000000u | (sr << 16) | (sg << 8) | sb;
  const uint32_t srcRedBlue = solid & 0xFF00FF, srcGreen = solid & 0xFF00;
  const int32_t baseline = y + m_ascent;
  auto blit = [&](int32_t slot, uint32_t index, int32_t gx0, int32_t gy0, int32_t& cached) {
    const GlyphImage& im = image(slot, index, cached);
    const int32_t gx = x + gx0 + im.left, gy = baseline + gy0 + im.top;
    const int32_t r0 = std::max(0, clip.Top - gy), r1 = std::min(im.height, clip.Bottom - gy);
    const int32_t c0 = std::max(0, clip.Left - gx), c1 = std::min(im.width, clip.Right - gx);
    for (int32_t r = r0; r < r1; ++r) {
      uint32_t* row = canvas.row(gy + r);
      const uint8_t* cov = im.coverage.data() + r * im.width;
      const int32_t from = std::max<int32_t>(c0, im.rowStart[r]), to = std::min<int32_t>(c1, im.rowEnd[r]);
      for (int32_t c = from; c < to; ++c) {
        const uint32_t a = cov[c];
        if (a == 0) continue;
        uint32_t& p = row[gx + c];
        const uint32_t d = p;
        if (a == 255) {
          p = solid;
          continue;
        }
        if ((d >> 24) == 255) {  // windows and bitmaps are opaque
          p = blendOverOpaque(d, srcRedBlue, srcGreen, a);
          continue;
        }
        // The text colour, as far as the glyph covers the pixel, over what is there.
        const uint32_t na = 255 - a;
        const uint32_t oa = a + div255(((d >> 24) & 255) * na);
        const uint32_t orr = div255(sr * a + ((d >> 16) & 255) * na);
        const uint32_t og = div255(sg * a + ((d >> 8) & 255) * na);
        const uint32_t ob = div255(sb * a + (d & 255) * na);
        p = (oa << 24) | (orr << 16) | (og << 8) | ob;
      }
    }
  };
  return walk(text, blit);
}

void TextFont::drawWithCairo(Canvas& canvas, int32_t x, int32_t y, std::string_view text, COLORREF colour,
                             const RECT& clip) {
  canvas.markDirty();
  cairo_t* cr = cairo_create(canvas.surface());
  cairo_rectangle(cr, clip.Left, clip.Top, clip.Right - clip.Left, clip.Bottom - clip.Top);
  cairo_clip(cr);
  cairo_set_source_rgb(cr, (colour & 255) / 255.0, ((colour >> 8) & 255) / 255.0,
                       ((colour >> 16) & 255) / 255.0);
  const double baseline = y + m_ascent;
  int32_t current = -1;
  auto flushRun = [&] {
    if (m_run.empty()) return;
    cairo_set_scaled_font(cr, m_slots[static_cast<size_t>(current)].scaled);
    cairo_show_glyphs(cr, m_run.data(), static_cast<int>(m_run.size()));
    m_run.clear();
  };
  walk(text, [&](int32_t slot, uint32_t index, int32_t gx, int32_t gy, int32_t&) {
    if (slot != current) {
      flushRun();
      current = slot;
    }
    m_run.push_back({index, double(x + gx), baseline + gy});
  });
  flushRun();
  cairo_destroy(cr);
  canvas.flush();
}

std::string TextFont::mapped(std::string_view text) const {
  if (m_symbols == FontSubstitution::Symbols::None) return std::string(text);
  std::string out;
  for (size_t i = 0; i < text.size();)
    appendUtf8(out, FontSubstitution::mapSymbol(m_symbols, nextCodePoint(text, i)));
  return out;
}

SIZE TextFont::layoutSize(std::string_view text) {
  std::string s = mapped(text);
  pango_layout_set_text(m_layout, s.data(), static_cast<int>(s.size()));
  SIZE size;
  pango_layout_get_pixel_size(m_layout, &size.cx, &size.cy);
  return size;
}

}  // namespace corvane

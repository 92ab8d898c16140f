// SPDX-License-Identifier: MIT
#include "desktop/font_cache.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <functional>

#include "desktop/font_substitution.h"

namespace corvane {

namespace {

std::string lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return s;
}

}  // namespace

size_t FontCache::SpecHash::operator()(const FontSpec& s) const {
  size_t h = std::hash<std::string>()(s.name);
  h ^= std::hash<double>()(s.size) + 0x9e3779b97f4a7c15ull + (h << 6) + (h >> 2);
  return h ^
         (size_t(s.bold) | size_t(s.italic) << 1 | size_t(s.underline) << 2 | size_t(s.strikethrough) << 3);
}

FontCache::FontCache(size_t maxFaces)
    : m_fontMap(pango_cairo_font_map_new()),
      m_context(pango_font_map_create_context(m_fontMap)),
      m_maxFaces(std::max<size_t>(maxFaces, 1)) {
  // Greyscale antialiasing without subpixel colour, slight hinting, and metrics rounded to
  // whole pixels: advances are integers, as the platform measures them.
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_subpixel_order(options, CAIRO_SUBPIXEL_ORDER_DEFAULT);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
  pango_cairo_context_set_font_options(m_context, options);
  cairo_font_options_destroy(options);
  pango_context_set_round_glyph_positions(m_context, TRUE);
  pango_context_set_language(m_context, pango_language_from_string("en-us"));
}

const std::set<std::string>& FontCache::installed() {
  // Listed when a face name first needs it: a process that only uses substituted faces never does.
  if (!m_listed) {
    m_listed = true;
    PangoFontFamily** families = nullptr;
    int count = 0;
    pango_font_map_list_families(m_fontMap, &families, &count);
    for (int i = 0; i < count; ++i) m_installed.insert(lower(pango_font_family_get_name(families[i])));
    g_free(families);
  }
  return m_installed;
}

FontCache& FontCache::shared() {
  static FontCache cache;
  return cache;
}

FontCache::~FontCache() {
  m_bySpec.clear();
  m_byFace.clear();
  g_object_unref(m_context);
  g_object_unref(m_fontMap);
}

std::string FontCache::familyFor(const std::string& name) {
  if (auto face = FontSubstitution::resolve(name)) return face->family;
  return installed().count(lower(name)) ? name : FontSubstitution::kFallbackFamily;
}

std::shared_ptr<TextFont> FontCache::font(const FontSpec& desc, int32_t pixelsPerInch) {
  if (pixelsPerInch != m_pixelsPerInch) {
    m_bySpec.clear();
    m_pixelsPerInch = pixelsPerInch;
  }
  auto known = m_bySpec.find(desc);
  if (known != m_bySpec.end()) return known->second;

  auto face = FontSubstitution::resolve(desc.name);
  const std::string family = face ? face->family : familyFor(desc.name);
  const auto symbols = face ? face->symbols : FontSubstitution::Symbols::None;
  const double size = std::isfinite(desc.size) ? std::clamp(std::fabs(desc.size), 0.0, 2048.0) : 8.25;
  const int32_t pixels = std::max(1, static_cast<int32_t>(std::lround(size * pixelsPerInch / 72.0)));
  // The symbol faces share DejaVu Sans but not its letters, so they are kept apart.
  const std::string faceKey = symbols == FontSubstitution::Symbols::None ? family : lower(desc.name);
  auto key = std::make_tuple(faceKey, pixels, desc.bold, desc.italic);
  if (m_byFace.size() >= m_maxFaces && !m_byFace.count(key)) forgetUnused();
  auto& made = m_byFace[key];
  if (!made) made = std::make_shared<TextFont>(m_context, family, pixels, desc.bold, desc.italic, symbols);
  m_bySpec.emplace(desc, made);
  return made;
}

// Fonts nobody holds any more go, with their glyphs, once many faces were made: a program that
// walks through sizes and names keeps only what it uses. The description memo is made again as
// descriptions are asked for.
void FontCache::forgetUnused() {
  m_bySpec.clear();
  std::erase_if(m_byFace, [](const auto& entry) { return entry.second.use_count() == 1; });
}

}  // namespace corvane

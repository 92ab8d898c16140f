// SPDX-License-Identifier: MIT
#pragma once
#include <cairo.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "desktop/canvas.h"
#include "desktop/font_substitution.h"
#include <corvane/platform/types.h>

// Pango's types, declared here so that users of this header need not see Pango's headers.
typedef struct _PangoContext PangoContext;
typedef struct _PangoFont PangoFont;
typedef struct _PangoFontDescription PangoFontDescription;
typedef struct _PangoLayout PangoLayout;

namespace corvane {

// One font at one pixel size, bold or not, italic or not, with a cache of its glyphs.
//
// Pango is asked once per code point (at creation for ASCII) for the glyph and its advance, a
// whole number of pixels as hinted metrics give. Measuring then only sums advances, and drawing
// places the same glyphs at the same advances, so measured and printed widths always agree.
// Glyph images are rendered once by Cairo (cairo_show_glyphs on the scaled font Pango chose,
// greyscale antialiasing, whole-pixel positions) and then blended from the cache.
class TextFont {
 public:
  TextFont(PangoContext* context, const std::string& family, int32_t pixelSize, bool bold, bool italic,
           FontSubstitution::Symbols symbols);
  ~TextFont();
  TextFont(const TextFont&) = delete;
  TextFont& operator=(const TextFont&) = delete;

  int32_t pixelSize() const { return m_pixelSize; }
  int32_t ascent() const { return m_ascent; }
  int32_t descent() const { return m_descent; }
  int32_t height() const { return m_ascent + m_descent; }
  int32_t aveCharWidth() const { return m_aveCharWidth; }
  int32_t maxCharWidth() const { return m_maxCharWidth; }
  // Lines under and through the text: top edge below the baseline (negative: above) and thickness.
  int32_t underlineOffset() const { return m_underlineOffset; }
  int32_t underlineThickness() const { return m_underlineThickness; }
  int32_t strikeOffset() const { return m_strikeOffset; }
  int32_t strikeThickness() const { return m_strikeThickness; }

  // Width of a UTF-8 text in pixels: the sum of its advances.
  int32_t width(std::string_view text) {
    int32_t w = 0;
    for (size_t i = 0; i < text.size();) {
      const auto b = static_cast<unsigned char>(text[i]);
      if (b < 0x80) {
        w += m_ascii[b].advance;
        ++i;
      } else {
        w += advanceOf(text, i);
      }
    }
    return w;
  }
  int32_t advance(char32_t c) { return c < 0x80 ? m_ascii[c].advance : glyph(c).advance; }

  // Draws a line of text with its box's top left at (x, y), the baseline at y + ascent, in one
  // colour, inside clip (already within the canvas). Returns the width drawn.
  int32_t draw(Canvas& canvas, int32_t x, int32_t y, std::string_view text, COLORREF colour,
               const RECT& clip);

  // The same glyphs at the same places, drawn by cairo_show_glyphs in one call; slower, kept to
  // check the glyph image cache against.
  void drawWithCairo(Canvas& canvas, int32_t x, int32_t y, std::string_view text, COLORREF colour,
                     const RECT& clip);

  // Pango's own measure of the text, as a laid-out paragraph (kerning and all).
  SIZE layoutSize(std::string_view text);

 private:
  struct Glyph {
    uint32_t index = 0;
    int32_t advance = 0;
    int32_t slot = -1;   // which of m_slots draws it; -1: nothing to draw
    int32_t image = -1;  // index in m_images once rendered
  };
  struct GlyphImage {
    int32_t left = 0, top = 0, width = 0, height = 0;  // relative to the origin on the baseline
    std::vector<uint8_t> coverage;
    std::vector<int16_t> rowStart, rowEnd;  // the inked columns of each row, to skip blank ends
  };
  struct Slot {
    PangoFont* font;
    cairo_scaled_font_t* scaled;
  };

  int32_t advanceOf(std::string_view text, size_t& i);
  Glyph& glyph(char32_t c);
  Glyph shape(char32_t c);
  const GlyphImage& image(Glyph& g);
  std::string mapped(std::string_view text) const;

  PangoContext* m_context;
  PangoFontDescription* m_description;
  PangoLayout* m_layout;  // reused to shape one code point at a time
  FontSubstitution::Symbols m_symbols;
  int32_t m_pixelSize;
  int32_t m_ascent = 0, m_descent = 0, m_aveCharWidth = 0, m_maxCharWidth = 0;
  int32_t m_underlineOffset = 0, m_underlineThickness = 1, m_strikeOffset = 0, m_strikeThickness = 1;
  std::array<Glyph, 128> m_ascii{};
  std::unordered_map<char32_t, Glyph> m_other;
  std::vector<Slot> m_slots;
  std::vector<GlyphImage> m_images;
  std::vector<cairo_glyph_t> m_run;  // scratch for drawWithCairo
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <cairo.h>

#include <array>
#include <functional>
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
// Simple text (Latin, Greek, Cyrillic, CJK, symbols) is drawn a glyph per code point: Pango is
// asked once per code point (at creation for ASCII) for the glyph and its advance, a whole number
// of pixels as hinted metrics give. A word (the text between blanks and control characters) that
// holds anything else (combining marks, right-to-left or joining scripts, Indic scripts, emoji
// sequences) is shaped by Pango as a whole, once: its glyphs, their places and its width are
// kept per word, so measuring and printing it again is a lookup. Within such a word right-to-left
// text reads right to left; the words themselves always follow one another left to right, in the
// order the caller gives them. Measuring and drawing walk the same glyphs at the same places, so
// measured and printed widths always agree. Glyph images are rendered once by Cairo
// (cairo_show_glyphs on the scaled font Pango chose, greyscale antialiasing, whole-pixel
// positions) and then blended from the cache.
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
  int32_t aveCharWidth() const;
  int32_t maxCharWidth() const { return m_maxCharWidth; }
  // Lines under and through the text: top edge below the baseline (negative: above) and thickness.
  int32_t underlineOffset() const { return m_underlineOffset; }
  int32_t underlineThickness() const { return m_underlineThickness; }
  int32_t strikeOffset() const { return m_strikeOffset; }
  int32_t strikeThickness() const { return m_strikeThickness; }

  // Width of a UTF-8 text in pixels: the sum of its advances and of its shaped words' widths.
  int32_t width(std::string_view text) {
    int32_t w = 0;
    for (const char ch : text) {
      const auto b = static_cast<unsigned char>(ch);
      if (b >= 0x80) return mixedWidth(text);
      w += m_ascii[b].advance;
    }
    return w;
  }
  // The advance of one code point drawn on its own.
  int32_t advance(char32_t c) { return c < 0x80 ? m_ascii[c].advance : glyph(c).advance; }
  // Shaped words kept so far (bounded: the store starts again when it is full).
  size_t shapedWords() const { return m_shaped.size(); }
  // The bytes of glyph pictures kept (bounded: beyond kMaxImageBytes a new glyph is drawn from a
  // picture made for the one use).
  size_t keptImageBytes() const { return m_imageBytes; }
  static constexpr size_t kMaxImageBytes = size_t{16} << 20;

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
  // The face Pango chose for this font (null if none), to check the metrics against Pango's.
  PangoFont* pangoFont() const { return m_primary; }

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
  // A glyph of a shaped word, at its place from the word's origin on the baseline.
  struct PlacedGlyph {
    uint32_t index = 0;
    int32_t slot = 0;
    int32_t x = 0, y = 0;
    int32_t image = -1;
  };
  struct ShapedWord {
    int32_t width = 0;
    std::vector<PlacedGlyph> glyphs;
  };
  struct WordHash {
    using is_transparent = void;
    size_t operator()(std::string_view s) const { return std::hash<std::string_view>()(s); }
  };
  static constexpr size_t kMaxShapedWords = 4096;

  bool readFaceMetrics();
  void readPangoMetrics();
  int32_t averageWidth() const;
  void shapeAscii();
  bool shapeAsciiOnFace();
  void shapeAsciiWithPango();
  int32_t mixedWidth(std::string_view text);
  // Calls visit(slot, glyph index, x, y, cached image index) for every glyph that shows ink, x
  // from the text's origin and y from the baseline; returns the text's width.
  template <class Visit>
  int32_t walk(std::string_view text, Visit&& visit);
  Glyph& glyph(char32_t c);
  Glyph shape(char32_t c);
  ShapedWord& shaped(std::string_view word);
  int32_t slotFor(PangoFont* font);
  const GlyphImage& image(int32_t slot, uint32_t index, int32_t& cached);
  std::string mapped(std::string_view text) const;

  PangoContext* m_context;
  PangoFontDescription* m_description;
  PangoLayout* m_layout;  // reused to shape one code point at a time
  PangoFont* m_primary = nullptr;  // the face Pango chose for the description; null if none
  FontSubstitution::Symbols m_symbols;
  int32_t m_pixelSize;
  int32_t m_ascent = 0, m_descent = 0, m_maxCharWidth = 0;
  mutable int32_t m_aveCharWidth = -1;  // -1 until first asked
  int32_t m_underlineOffset = 0, m_underlineThickness = 1, m_strikeOffset = 0, m_strikeThickness = 1;
  std::array<Glyph, 128> m_ascii{};
  std::unordered_map<char32_t, Glyph> m_other;
  std::vector<Slot> m_slots;
  std::vector<GlyphImage> m_images;
  size_t m_imageBytes = 0;
  GlyphImage m_passingImage;  // a glyph's picture past the budget, good until the next is asked for
  std::unordered_map<uint64_t, int32_t> m_imageOf;  // slot and glyph index to m_images
  std::unordered_map<std::string, ShapedWord, WordHash, std::equal_to<>> m_shaped;
  std::vector<cairo_glyph_t> m_run;  // scratch for drawWithCairo
};

}  // namespace corvane

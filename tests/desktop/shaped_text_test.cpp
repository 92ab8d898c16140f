// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <pango/pango.h>

#include <algorithm>
#include <string>
#include <vector>

#include "desktop/canvas.h"
#include "desktop/font_cache.h"
#include "desktop/text_font.h"

namespace corvane {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF;

FontSpec face(const std::string& name, double size) {
  FontSpec f;
  f.name = name;
  f.size = size;
  return f;
}

// A face in one of the four styles: bit 0 bold, bit 1 italic.
FontSpec styled(const std::string& name, double size, int style) {
  FontSpec f = face(name, size);
  f.bold = style & 1;
  f.italic = style & 2;
  return f;
}

// Where a drawing left ink: its box and how many pixels.
struct Ink {
  RECT box{0, 0, -1, -1};
  int pixels = 0;
  bool at(const Canvas& c, int x, int y) const { return c.pixel(x, y) != kWhite; }
};

Ink inkOf(const Canvas& c) {
  Ink ink;
  ink.box = {c.width(), c.height(), -1, -1};
  for (int y = 0; y < c.height(); ++y)
    for (int x = 0; x < c.width(); ++x)
      if (c.pixel(x, y) != kWhite) {
        ++ink.pixels;
        ink.box = {std::min(ink.box.Left, x), std::min(ink.box.Top, y), std::max(ink.box.Right, x + 1),
                   std::max(ink.box.Bottom, y + 1)};
      }
  return ink;
}

// The mean column of the inked pixels in rows [top, bottom).
double meanColumn(const Canvas& c, int top, int bottom) {
  double sum = 0;
  int count = 0;
  for (int y = std::max(top, 0); y < std::min(bottom, c.height()); ++y)
    for (int x = 0; x < c.width(); ++x)
      if (c.pixel(x, y) != kWhite) {
        sum += x;
        ++count;
      }
  return count ? sum / count : -1;
}

class ShapedText : public ::testing::Test {
 protected:
  std::shared_ptr<TextFont> font(const std::string& name = "DejaVu Sans", double points = 30) {
    return cache.font(face(name, points), 96);
  }
  FontCache cache;
  Canvas canvas{300, 100};
  const RECT all{0, 0, 300, 100};
};

TEST_F(ShapedText, ACombiningAccentSitsOverItsBaseLetter) {
  auto f = font();
  const std::string combined = "e\u0301";  // e and a combining acute accent
  // The mark takes no room of its own: no dotted circle beside the letter.
  EXPECT_EQ(f->width(combined), f->width("e"));
  f->draw(canvas, 10, 10, "e", 0, all);
  const Ink plain = inkOf(canvas);
  canvas.fill(kWhite);
  EXPECT_EQ(f->draw(canvas, 10, 10, combined, 0, all), f->width("e"));
  const Ink accented = inkOf(canvas);
  EXPECT_LT(accented.box.Top, plain.box.Top - 2);  // the accent stands above the letter
  EXPECT_GT(accented.pixels, plain.pixels);
  // And over it, not beside it.
  EXPECT_GE(accented.box.Left, plain.box.Left - 1);
  EXPECT_LE(accented.box.Right, plain.box.Right + 1);
}

TEST_F(ShapedText, AnArabicWordIsJoinedAndReadsRightToLeft) {
  auto f = font();
  const std::string word = "\u0628\u062A";  // beh (a dot below), teh (two dots above)
  const int32_t drawn = f->draw(canvas, 10, 10, word, 0, all);
  EXPECT_EQ(drawn, f->width(word));
  const Ink ink = inkOf(canvas);
  ASSERT_GT(ink.pixels, 0);
  EXPECT_GE(ink.box.Left, 10 - 2);
  EXPECT_LE(ink.box.Right, 10 + drawn + 2);
  const double middle = (ink.box.Left + ink.box.Right) / 2.0;
  const int baseline = 10 + f->ascent();
  // Beh, the first letter, is on the right: its dot is the ink below the baseline.
  EXPECT_GT(meanColumn(canvas, baseline + 2, ink.box.Bottom), middle);
  // Teh, the second, is on the left: its dots are the topmost ink.
  const int quarter = (ink.box.Bottom - ink.box.Top) / 4;
  EXPECT_LT(meanColumn(canvas, ink.box.Top, ink.box.Top + quarter), middle);
  // Joined: one row of ink runs across most of the word, where isolated letters leave a gap.
  int longest = 0;
  for (int y = ink.box.Top; y < ink.box.Bottom; ++y) {
    int run = 0;
    for (int x = ink.box.Left; x < ink.box.Right; ++x) {
      run = canvas.pixel(x, y) != kWhite ? run + 1 : 0;
      longest = std::max(longest, run);
    }
  }
  EXPECT_GE(longest * 10, (ink.box.Right - ink.box.Left) * 7);
}

TEST_F(ShapedText, AHebrewWordReadsRightToLeft) {
  auto f = font();
  const std::string word = "\u05E9\u05DC";  // shin, then lamed (the letter that rises above the others)
  const int32_t drawn = f->draw(canvas, 10, 10, word, 0, all);
  EXPECT_EQ(drawn, f->width(word));
  const Ink ink = inkOf(canvas);
  ASSERT_GT(ink.pixels, 0);
  const double middle = (ink.box.Left + ink.box.Right) / 2.0;
  const int quarter = (ink.box.Bottom - ink.box.Top) / 4;
  EXPECT_LT(meanColumn(canvas, ink.box.Top, ink.box.Top + quarter), middle);  // lamed on the left
}

TEST_F(ShapedText, WordsKeepTheirOrderLeftToRight) {
  auto f = font("DejaVu Sans", 20);
  // A Latin word, then a Hebrew one: the Latin word stays first, on the left.
  const std::string line = "ab \u05E9\u05DC";
  const int32_t latin = f->width("ab ");
  EXPECT_EQ(f->width(line), latin + f->width("\u05E9\u05DC"));
  f->draw(canvas, 0, 10, line, 0, all);
  Canvas alone(300, 100);
  f->draw(alone, 0, 10, "ab", 0, all);
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < latin; ++x) ASSERT_EQ(canvas.pixel(x, y), alone.pixel(x, y)) << x << "," << y;
}

TEST_F(ShapedText, ACjkWordIsDrawnWithRealGlyphs) {
  auto f = font("Arial", 30);                      // a Latin face: the ideographs come from a fallback face
  const std::string word = "\u4E2D";               // "middle": a box crossed by one long vertical stroke
  EXPECT_NEAR(f->width(word), f->pixelSize(), 2);  // a full-width square
  f->draw(canvas, 10, 10, word, 0, all);
  const Ink ink = inkOf(canvas);
  ASSERT_GT(ink.pixels, 0);
  // The stroke: a column in the middle third inked over almost the whole height of the glyph.
  const int w = ink.box.Right - ink.box.Left, h = ink.box.Bottom - ink.box.Top;
  int tallest = 0;
  for (int x = ink.box.Left + w / 3; x < ink.box.Right - w / 3; ++x) {
    int inked = 0;
    for (int y = ink.box.Top; y < ink.box.Bottom; ++y) inked += canvas.pixel(x, y) != kWhite;
    tallest = std::max(tallest, inked);
  }
  EXPECT_GE(tallest * 10, h * 9);
}

TEST_F(ShapedText, AShapedWordIsShapedOnceAndMeasuredAsPrinted) {
  auto f = font("DejaVu Sans", 12);
  const std::string word = "\u0645\u0631\u062D\u0628\u0627";
  const size_t before = f->shapedWords();
  const int32_t w = f->width(word);
  EXPECT_EQ(f->shapedWords(), before + 1);
  EXPECT_EQ(f->width(word), w);
  EXPECT_EQ(f->draw(canvas, 0, 0, word, 0, all), w);
  EXPECT_EQ(f->shapedWords(), before + 1);
  EXPECT_EQ(f->width("plain latin words"), f->width("plain") + f->width(" latin") + f->width(" words"));
  EXPECT_EQ(f->shapedWords(), before + 1);
}

TEST_F(ShapedText, TheStoreOfShapedWordsStaysBounded) {
  auto f = font("DejaVu Sans", 12);
  std::string word = "\u05D0";
  for (int i = 0; i < 6000; ++i) f->width(word + std::to_string(i));
  EXPECT_LE(f->shapedWords(), 4096u);
  EXPECT_GT(f->shapedWords(), 0u);
}

// A font hundreds of points high keeps glyph pictures only up to its budget; past it each glyph is
// drawn from a picture made again, with the same pixels.
TEST_F(ShapedText, TheGlyphPicturesOfAHugeFontStayBoundedAndDrawTheSame) {
  auto f = font("DejaVu Sans", 1500);
  // Each letter's picture is megabytes; the canvas shows a corner of it.
  auto drawn = [&](char letter) {
    canvas.fill(kWhite);
    f->draw(canvas, -300, -1100, std::string(1, letter), 0, all);
    std::vector<COLORREF> pixels;
    for (int y = 0; y < 100; ++y)
      for (int x = 0; x < 300; ++x) pixels.push_back(canvas.pixel(x, y));
    return pixels;
  };
  std::vector<std::vector<COLORREF>> first;
  for (char letter = 'A'; letter <= 'Z'; ++letter) first.push_back(drawn(letter));
  EXPECT_GT(f->keptImageBytes(), 0u);
  EXPECT_LE(f->keptImageBytes(), TextFont::kMaxImageBytes);
  size_t inked = 0;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const std::vector<COLORREF>& before = first[static_cast<size_t>(letter - 'A')];
    EXPECT_EQ(drawn(letter), before) << letter << ": kept or made again, the same pixels";
    inked += std::count_if(before.begin(), before.end(), [](COLORREF p) { return p != kWhite; }) > 0;
  }
  EXPECT_GT(inked, 13u) << "most corners show ink";
  EXPECT_LE(f->keptImageBytes(), TextFont::kMaxImageBytes);
}

TEST_F(ShapedText, CairoDrawsTheSameShapedGlyphs) {
  auto f = font("DejaVu Sans", 20);
  const std::string text = "e\u0301 \u0628\u062A \u05E9\u05DC";
  Canvas a(300, 100), b(300, 100);
  f->draw(a, 5, 5, text, 0, all);
  f->drawWithCairo(b, 5, 5, text, 0, all);
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 300; ++x)
      ASSERT_EQ(a.pixel(x, y) == kWhite, b.pixel(x, y) == kWhite) << x << "," << y;
}

// The advances of the printable ASCII characters, found in one layout, are those each character
// has laid out on its own.
TEST_F(ShapedText, AsciiAdvancesAreEachCharactersOwn) {
  for (const char* name : {"MS Sans Serif", "Arial", "Times New Roman", "Courier New", "Tahoma", "Marlett", "WenQuanYi Micro Hei"})
    for (double points : {1.0, 8.25, 10.0, 12.0, 19.5, 36.0})
      for (int style = 0; style < 4; ++style) {
        auto f = cache.font(styled(name, points, style), 96);
        for (char c = 0x20; c < 0x7F; ++c)
          ASSERT_EQ(f->advance(static_cast<char32_t>(c)), f->layoutSize(std::string(1, c)).cx)
              << name << " " << points << " style " << style << " '" << c << "'";
      }
}

// Ascent, descent, the line positions and the average width, read from the face without Pango's
// metrics, are what Pango's metrics give, in whole pixels as the text metrics report them.
TEST_F(ShapedText, TheMetricsAreThoseOfPango) {
  int checked = 0;
  for (const char* name : {"MS Sans Serif", "Arial", "Times New Roman", "Courier New", "WenQuanYi Micro Hei", "Wingdings"})
    for (double points = 1; points <= 72; points += 2.75)
      for (int style = 0; style < 4; ++style) {
        auto f = cache.font(styled(name, points, style), 96);
        ASSERT_NE(f->pangoFont(), nullptr);
        PangoFontMetrics* m = pango_font_get_metrics(f->pangoFont(), nullptr);
        const std::string what = std::string(name) + " " + std::to_string(points) + " style " + std::to_string(style);
        EXPECT_EQ(f->ascent(), PANGO_PIXELS_CEIL(pango_font_metrics_get_ascent(m))) << what;
        EXPECT_EQ(f->descent(), PANGO_PIXELS_CEIL(pango_font_metrics_get_descent(m))) << what;
        EXPECT_EQ(f->aveCharWidth(), PANGO_PIXELS(pango_font_metrics_get_approximate_char_width(m))) << what;
        EXPECT_EQ(f->underlineThickness(), std::max(1, PANGO_PIXELS(pango_font_metrics_get_underline_thickness(m))))
            << what;
        EXPECT_EQ(f->strikeThickness(), std::max(1, PANGO_PIXELS(pango_font_metrics_get_strikethrough_thickness(m))))
            << what;
        EXPECT_EQ(f->strikeOffset(), PANGO_PIXELS(-pango_font_metrics_get_strikethrough_position(m))) << what;
        const int32_t underline = PANGO_PIXELS(-pango_font_metrics_get_underline_position(m));
        EXPECT_EQ(f->underlineOffset(), std::clamp(underline, 1, std::max(1, f->descent() - f->underlineThickness())))
            << what;
        pango_font_metrics_unref(m);
        ++checked;
      }
  EXPECT_EQ(checked, 6 * 26 * 4);
}

}  // namespace
}  // namespace corvane

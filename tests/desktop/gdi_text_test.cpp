// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/font_cache.h"
#include "desktop/gdi.h"
#include "desktop/text_font.h"
#include "gdi_test_support.h"

namespace corvane {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF, kRed = 0x0000FF, kBlue = 0xFF0000;

class GdiText : public ::testing::Test {
 protected:
  GdiText() : canvas(windows.add(1, 300, 120)), gdi(windows), hdc(gdi.GetDC(1)) {}
  ~GdiText() override { gdi.ReleaseDC(1, hdc); }

  SIZE extent(const std::string& text) {
    SIZE s;
    gdi.GetTextExtentPoint32A(hdc, text, s);
    return s;
  }
  // The box around every pixel that is not white; empty (Right < Left) if there is none.
  RECT ink(const Canvas& c) {
    RECT r{c.width(), c.height(), -1, -1};
    for (int y = 0; y < c.height(); ++y)
      for (int x = 0; x < c.width(); ++x)
        if (c.pixel(x, y) != kWhite)
          r = {std::min(r.Left, x), std::min(r.Top, y), std::max(r.Right, x + 1), std::max(r.Bottom, y + 1)};
    return r;
  }
  static bool samePixels(const Canvas& a, const Canvas& b) {
    for (int y = 0; y < a.height(); ++y)
      for (int x = 0; x < a.width(); ++x)
        if (a.pixel(x, y) != b.pixel(x, y)) return false;
    return true;
  }

  test::FakeWindows windows;
  Canvas& canvas;
  DesktopGdi gdi;
  HDC hdc;
};

FontSpec desc(const std::string& name, double size, bool bold = false, bool italic = false) {
  FontSpec f;
  f.name = name;
  f.size = size;
  f.bold = bold;
  f.italic = italic;
  return f;
}

TEST(TextFonts, WidthsAgreeWithPangoWithinOnePixelPerGlyph) {
  FontCache cache;
  const std::vector<std::string> texts = {"Hello", "The quick brown fox jumps over the lazy dog.",
                                          "WAVE Type AV", "1234567890", "Grüße, naïve café"};
  for (const FontSpec& f : {desc("MS Sans Serif", 8.25), desc("Tahoma", 8), desc("Arial", 10, true),
                            desc("Times New Roman", 12, false, true), desc("Courier New", 10)}) {
    auto font = cache.font(f, 96);
    for (const std::string& t : texts) {
      int32_t glyphs = 0;
      for (unsigned char ch : t) glyphs += (ch & 0xC0) != 0x80;
      const SIZE pango = font->layoutSize(t);
      EXPECT_NEAR(font->width(t), pango.cx, glyphs) << f.name << ": " << t;
      EXPECT_EQ(font->height(), pango.cy) << f.name << ": " << t;
    }
  }
}

TEST(TextFonts, PointsBecomePixelsAtTheResolution) {
  FontCache cache;
  EXPECT_EQ(cache.font(desc("Arial", 8.25), 96)->pixelSize(), 11);
  EXPECT_EQ(cache.font(desc("Arial", 9), 96)->pixelSize(), 12);
  EXPECT_EQ(cache.font(desc("Arial", 9), 192)->pixelSize(), 24);
  EXPECT_EQ(cache.font(desc("Arial", 12), 120)->pixelSize(), 20);
}

TEST(TextFonts, KnownDescriptionsGiveTheSameFont) {
  FontCache cache;
  auto a = cache.font(desc("Arial", 10), 96);
  EXPECT_EQ(cache.font(desc("Arial", 10), 96), a);
  EXPECT_EQ(cache.font(desc("MS Sans Serif", 9.75), 96), a);  // same face and pixel size (13)
  EXPECT_NE(cache.font(desc("Arial", 10, true), 96), a);
}

TEST(TextFonts, WindowsNamesMapToInstalledFaces) {
  FontCache cache;
  EXPECT_EQ(cache.familyFor("MS Sans Serif"), "Liberation Sans");
  EXPECT_EQ(cache.familyFor("arial"), "Liberation Sans");
  EXPECT_EQ(cache.familyFor("Tahoma"), "DejaVu Sans");
  EXPECT_EQ(cache.familyFor("Verdana"), "DejaVu Sans");
  EXPECT_EQ(cache.familyFor("Times New Roman"), "Liberation Serif");
  EXPECT_EQ(cache.familyFor("Courier New"), "Liberation Mono");
  EXPECT_EQ(cache.familyFor("DejaVu Serif"), "DejaVu Serif");  // installed faces are used as they are
  EXPECT_EQ(cache.familyFor("No Such Face"), "Liberation Sans");
}

TEST(TextFonts, SymbolFacesShowUnicodeSymbols) {
  FontCache cache;
  auto marlett = cache.font(desc("Marlett", 10), 96);
  auto dejavu = cache.font(desc("DejaVu Sans", 10), 96);
  EXPECT_EQ(marlett->width("r"), dejavu->width("\u2715"));
  EXPECT_EQ(marlett->width("6"), dejavu->width("\u25BC"));
  EXPECT_EQ(marlett->width("t"), dejavu->width("\u25B4"));  // the steps of a spin button
  EXPECT_EQ(marlett->width("u"), dejavu->width("\u25BE"));
  auto wingdings = cache.font(desc("Wingdings", 10), 96);
  EXPECT_EQ(wingdings->width("\u00FC"), dejavu->width("\u2713"));
  EXPECT_EQ(wingdings->width("J"), dejavu->width("\u263A"));
  EXPECT_NE(marlett, dejavu);
}

TEST(TextFonts, MalformedUtf8IsMeasuredWithoutReadingPastTheEnd) {
  FontCache cache;
  auto font = cache.font(desc("Arial", 10), 96);
  const std::string cut = std::string("ab") + char(0xC3);
  EXPECT_GT(font->width(cut), font->width("ab"));
  EXPECT_GT(font->width(std::string(1, char(0xFF))), 0);
}

TEST_F(GdiText, ExtentIsTheSumOfAdvancesAndTheFontHeight) {
  gdi.SetDCFont(hdc, desc("Arial", 10));
  TEXTMETRIC tm;
  ASSERT_TRUE(gdi.GetTextMetricsA(hdc, tm));
  EXPECT_EQ(tm.tmHeight, tm.tmAscent + tm.tmDescent);
  EXPECT_GT(tm.tmAveCharWidth, 0);
  EXPECT_GE(tm.tmMaxCharWidth, tm.tmAveCharWidth);
  EXPECT_EQ(extent("Hello").cy, tm.tmHeight);
  EXPECT_EQ(extent("Hello world").cx, extent("Hello").cx + extent(" ").cx + extent("world").cx);
  EXPECT_EQ(extent("").cx, 0);
}

TEST_F(GdiText, HigherResolutionMakesBiggerText) {
  gdi.SetDCFont(hdc, desc("Arial", 10));
  const SIZE at96 = extent("Hello");
  gdi.setPixelsPerInch(192, 192);
  EXPECT_EQ(gdi.GetDeviceCaps(hdc, LOGPIXELSY), 192);
  gdi.SetDCFont(hdc, desc("Arial", 10));
  const SIZE at192 = extent("Hello");
  EXPECT_NEAR(at192.cx, 2 * at96.cx, 3);
  EXPECT_NEAR(at192.cy, 2 * at96.cy, 2);
}

TEST_F(GdiText, TextOutPaintsTheTextColourInsideTheMeasuredBoxOnly) {
  for (const char* face : {"MS Sans Serif", "Tahoma", "Times New Roman", "Courier New"}) {
    canvas.fill(kWhite);
    gdi.SetDCFont(hdc, desc(face, 9));
    gdi.SetBkMode(hdc, 1);
    gdi.SetTextColor(hdc, kRed);
    const std::string text = "Sample Text, quick!";
    ASSERT_TRUE(gdi.TextOutA(hdc, 10, 20, text));
    const SIZE s = extent(text);
    const RECT box = ink(canvas);
    EXPECT_GE(box.Left, 10) << face;
    EXPECT_GE(box.Top, 20) << face;
    EXPECT_LE(box.Right, 10 + s.cx) << face;
    EXPECT_LE(box.Bottom, 20 + s.cy) << face;
    int strong = 0;
    for (int y = 0; y < canvas.height(); ++y)
      for (int x = 0; x < canvas.width(); ++x) {
        const COLORREF p = canvas.pixel(x, y);
        strong += ((p >> 8) & 0xFF) < 96;  // mostly covered: close to the text colour
        // Only blends of red over white: red stays full, green and blue fall together.
        EXPECT_EQ(p & 0xFF, 0xFF) << face;
        EXPECT_EQ((p >> 8) & 0xFF, (p >> 16) & 0xFF) << face;
      }
    EXPECT_GT(strong, 40) << face;
  }
}

TEST_F(GdiText, OpaqueModeFillsTheTextBoxWithTheBackgroundColour) {
  gdi.SetBkMode(hdc, 2);
  gdi.SetBkColor(hdc, kBlue);
  gdi.TextOutA(hdc, 5, 5, "Word");
  const SIZE s = extent("Word");
  EXPECT_EQ(canvas.pixel(5, 5), kBlue);
  EXPECT_EQ(canvas.pixel(5 + s.cx - 1, 5 + s.cy - 1), kBlue);
  EXPECT_EQ(canvas.pixel(5 + s.cx, 5), kWhite);
  EXPECT_EQ(canvas.pixel(5, 5 + s.cy), kWhite);
  EXPECT_EQ(canvas.pixel(4, 5), kWhite);
}

TEST_F(GdiText, TransparentModeLeavesTheBackgroundAlone) {
  canvas.fill(kBlue);
  gdi.SetBkMode(hdc, 1);
  gdi.SetBkColor(hdc, kRed);
  gdi.TextOutA(hdc, 5, 5, "Word");
  for (int y = 0; y < canvas.height(); ++y)
    for (int x = 0; x < canvas.width(); ++x) ASSERT_NE(canvas.pixel(x, y), kRed);
}

TEST_F(GdiText, GlyphCacheDrawsWhatCairoDraws) {
  FontCache cache;
  for (const FontSpec& f :
       {desc("MS Sans Serif", 8.25), desc("Verdana", 11, true), desc("Georgia", 14, false, true)}) {
    auto font = cache.font(f, 96);
    Canvas a(200, 40), b(200, 40);
    const std::string text = "Quick & easy: 42 words, déjà vu";
    font->draw(a, 3, 5, text, RGB(20, 40, 160), RECT{0, 0, 200, 40});
    font->drawWithCairo(b, 3, 5, text, RGB(20, 40, 160), RECT{0, 0, 200, 40});
    // The same pixels are touched; shades differ at most by the rounding of the blend.
    int off = 0;
    for (int y = 0; y < 40; ++y)
      for (int x = 0; x < 200; ++x) {
        const COLORREF p = a.pixel(x, y), q = b.pixel(x, y);
        ASSERT_EQ(p == kWhite, q == kWhite) << f.name << " at " << x << "," << y;
        for (int shift = 0; shift < 24; shift += 8)
          off = std::max(off, std::abs(int((p >> shift) & 255) - int((q >> shift) & 255)));
      }
    EXPECT_LE(off, 4) << f.name;
    EXPECT_GT(ink(a).Right, 0) << f.name;
  }
}

TEST_F(GdiText, UnderlineAndStrikethroughRunTheWholeWidth) {
  FontSpec f = desc("Arial", 12);
  f.underline = true;
  gdi.SetDCFont(hdc, f);
  gdi.SetBkMode(hdc, 1);
  gdi.TextOutA(hdc, 10, 10, "a b");
  const SIZE s = extent("a b");
  TEXTMETRIC tm;
  gdi.GetTextMetricsA(hdc, tm);
  int fullRows = 0;
  for (int y = 10 + tm.tmAscent; y < 10 + tm.tmHeight; ++y) {
    bool full = true;
    for (int x = 10; x < 10 + s.cx; ++x) full = full && canvas.pixel(x, y) == 0;
    fullRows += full;
  }
  EXPECT_GE(fullRows, 1);
  EXPECT_EQ(canvas.pixel(10 + s.cx, 10 + tm.tmAscent + 1), kWhite);

  canvas.fill(kWhite);
  f.underline = false;
  f.strikethrough = true;
  gdi.SetDCFont(hdc, f);
  gdi.TextOutA(hdc, 10, 10, "a b");
  int strikeRows = 0;
  for (int y = 10; y < 10 + tm.tmAscent; ++y) {
    bool full = true;
    for (int x = 10; x < 10 + s.cx; ++x) full = full && canvas.pixel(x, y) == 0;
    strikeRows += full;
  }
  EXPECT_GE(strikeRows, 1);
}

TEST_F(GdiText, SelectedFontsAreUsedAndGiveTheirPreviousOneBack) {
  HFONT big = gdi.CreateFontIndirect(desc("Arial", 20));
  const SIZE small = extent("Hello");
  HFONT previous = gdi.SelectObject(hdc, big);
  EXPECT_NE(previous, 0);
  EXPECT_GT(extent("Hello").cx, small.cx);
  EXPECT_EQ(gdi.SelectObject(hdc, previous), big);
  EXPECT_EQ(extent("Hello").cx, small.cx);
  EXPECT_TRUE(gdi.DeleteObject(big));
}

// DrawTextA: compare with TextOutA at the place the text must go.
class GdiDrawText : public GdiText {
 protected:
  GdiDrawText() : expected(300, 120) {
    gdi.SetBkMode(hdc, 1);
    gdi.SetDCFont(hdc, desc("Arial", 10));
    memory = gdi.CreateCompatibleDC(hdc);
    bitmap = gdi.CreateCompatibleBitmap(hdc, 300, 120);
    gdi.SelectObject(memory, bitmap);
    gdi.SetBkMode(memory, 1);
    gdi.SetDCFont(memory, desc("Arial", 10));
    RECT all{0, 0, 300, 120};
    gdi.FillRect(memory, all, syscolor::WINDOW + 1);
  }
  ~GdiDrawText() override {
    gdi.DeleteDC(memory);
    gdi.DeleteObject(bitmap);
  }
  bool sameAsMemory() {
    for (int y = 0; y < 120; ++y)
      for (int x = 0; x < 300; ++x)
        if (canvas.pixel(x, y) != gdi.GetPixel(memory, x, y)) return false;
    return true;
  }
  Canvas expected;
  HDC memory = 0;
  HBITMAP bitmap = 0;
};

TEST_F(GdiDrawText, AlignsLeftCentreAndRight) {
  const int32_t w = extent("Centre").cx, h = extent("Centre").cy;
  RECT r{20, 10, 220, 60};
  EXPECT_EQ(gdi.DrawTextA(hdc, "Centre", -1, r, DT_CENTER | DT_SINGLELINE), h);
  gdi.TextOutA(memory, 20 + (200 - w) / 2, 10, "Centre");
  EXPECT_TRUE(sameAsMemory());

  canvas.fill(kWhite);
  gdi.FillRect(memory, RECT{0, 0, 300, 120}, syscolor::WINDOW + 1);
  gdi.DrawTextA(hdc, "Centre", -1, r, DT_RIGHT | DT_SINGLELINE);
  gdi.TextOutA(memory, 220 - w, 10, "Centre");
  EXPECT_TRUE(sameAsMemory());

  canvas.fill(kWhite);
  gdi.FillRect(memory, RECT{0, 0, 300, 120}, syscolor::WINDOW + 1);
  gdi.DrawTextA(hdc, "Centre", -1, r, DT_LEFT);
  gdi.TextOutA(memory, 20, 10, "Centre");
  EXPECT_TRUE(sameAsMemory());
}

TEST_F(GdiDrawText, VerticalCentreAndBottomOnASingleLine) {
  const int32_t h = extent("Mid").cy;
  RECT r{0, 10, 100, 61};
  const int32_t top = 10 + (51 - h) / 2;
  EXPECT_EQ(gdi.DrawTextA(hdc, "Mid", -1, r, DT_SINGLELINE | DT_VCENTER), top - 10 + h);
  gdi.TextOutA(memory, 0, top, "Mid");
  EXPECT_TRUE(sameAsMemory());

  canvas.fill(kWhite);
  gdi.FillRect(memory, RECT{0, 0, 300, 120}, syscolor::WINDOW + 1);
  gdi.DrawTextA(hdc, "Mid", -1, r, DT_SINGLELINE | DT_BOTTOM);
  gdi.TextOutA(memory, 0, 61 - h, "Mid");
  EXPECT_TRUE(sameAsMemory());
}

TEST_F(GdiDrawText, CalcRectMeasuresAndDrawsNothing) {
  RECT r{5, 7, 6, 8};
  const SIZE s = extent("Measure me");
  const int before = windows.drawn[1];
  EXPECT_EQ(gdi.DrawTextA(hdc, "Measure me", -1, r, DT_CALCRECT | DT_SINGLELINE), s.cy);
  EXPECT_EQ(r, (RECT{5, 7, 5 + s.cx, 7 + s.cy}));
  EXPECT_EQ(ink(canvas).Right, -1);
  EXPECT_EQ(windows.drawn[1], before);
}

TEST_F(GdiDrawText, CalcRectWithWordBreakKeepsTheWidthAndSetsTheBottom) {
  const int32_t h = extent("x").cy;
  const int32_t twoWords = extent("aa bb").cx;
  RECT r{0, 0, twoWords + 2, 0};
  EXPECT_EQ(gdi.DrawTextA(hdc, "aa bb aa bb aa", -1, r, DT_CALCRECT | DT_WORDBREAK), 3 * h);
  EXPECT_EQ(r, (RECT{0, 0, twoWords + 2, 3 * h}));
}

TEST_F(GdiDrawText, WordBreakBreaksAtBlanksAndKeepsALongWordWhole) {
  const int32_t h = extent("x").cy;
  const int32_t wide = extent("alpha beta").cx;
  RECT r{0, 0, wide + 3, 100};  // room for ink just past the last advance
  EXPECT_EQ(gdi.DrawTextA(hdc, "alpha beta gamma", -1, r, DT_WORDBREAK), 2 * h);
  gdi.TextOutA(memory, 0, 0, "alpha beta");
  gdi.TextOutA(memory, 0, h, "gamma");
  EXPECT_TRUE(sameAsMemory());

  RECT narrow{0, 0, 10, 0};
  EXPECT_EQ(gdi.DrawTextA(hdc, "unbreakable word", -1, narrow, DT_CALCRECT | DT_WORDBREAK), 2 * h);
  EXPECT_EQ(narrow.Right, extent("unbreakable").cx);  // widened to the long word
}

TEST_F(GdiDrawText, LineBreaksStartNewLines) {
  const int32_t h = extent("x").cy;
  RECT r{0, 0, 200, 100};
  EXPECT_EQ(gdi.DrawTextA(hdc, "one\r\ntwo\nthree", -1, r, DT_LEFT), 3 * h);
  gdi.TextOutA(memory, 0, 0, "one");
  gdi.TextOutA(memory, 0, h, "two");
  gdi.TextOutA(memory, 0, 2 * h, "three");
  EXPECT_TRUE(sameAsMemory());
  RECT calc{0, 0, 0, 0};
  EXPECT_EQ(gdi.DrawTextA(hdc, "a\r\nb", -1, calc, DT_CALCRECT | DT_SINGLELINE), h);
}

TEST_F(GdiDrawText, AnAmpersandUnderlinesTheNextLetterAndADoubleOneShowsOne) {
  RECT r{0, 0, 200, 40};
  gdi.DrawTextA(hdc, "&File", -1, r, DT_SINGLELINE);
  gdi.TextOutA(memory, 0, 0, "File");
  EXPECT_FALSE(sameAsMemory());  // the underline under F
  gdi.FillRect(memory, RECT{0, 0, 300, 120}, syscolor::WINDOW + 1);
  FontSpec underlined = desc("Arial", 10);
  underlined.underline = true;
  gdi.SetDCFont(memory, underlined);
  gdi.TextOutA(memory, 0, 0, "F");
  gdi.SetDCFont(memory, desc("Arial", 10));
  gdi.TextOutA(memory, extent("F").cx, 0, "ile");
  EXPECT_TRUE(sameAsMemory());

  canvas.fill(kWhite);
  gdi.SetDCFont(memory, desc("Arial", 10));
  gdi.FillRect(memory, RECT{0, 0, 300, 120}, syscolor::WINDOW + 1);
  RECT calc{0, 0, 0, 0};
  gdi.DrawTextA(hdc, "A&&B", -1, calc, DT_CALCRECT | DT_SINGLELINE);
  EXPECT_EQ(calc.Right, extent("A&B").cx);
  gdi.DrawTextA(hdc, "A&&B", -1, r, DT_SINGLELINE);
  gdi.TextOutA(memory, 0, 0, "A&B");
  EXPECT_TRUE(sameAsMemory());

  canvas.fill(kWhite);
  gdi.FillRect(memory, RECT{0, 0, 300, 120}, syscolor::WINDOW + 1);
  gdi.DrawTextA(hdc, "&File", -1, r, DT_SINGLELINE | DT_NOPREFIX);
  gdi.TextOutA(memory, 0, 0, "&File");
  EXPECT_TRUE(sameAsMemory());
}

TEST_F(GdiDrawText, ClipsToTheRectangleUnlessAskedNotTo) {
  RECT r{0, 0, 12, 40};
  gdi.DrawTextA(hdc, "Wide text here", -1, r, DT_SINGLELINE);
  EXPECT_LE(ink(canvas).Right, 12);
  canvas.fill(kWhite);
  gdi.DrawTextA(hdc, "Wide text here", -1, r, DT_SINGLELINE | DT_NOCLIP);
  EXPECT_GT(ink(canvas).Right, 12);
}

TEST_F(GdiDrawText, CountLimitsTheCharacters) {
  RECT calc{0, 0, 0, 0};
  gdi.DrawTextA(hdc, "Grüße", 3, calc, DT_CALCRECT | DT_SINGLELINE);
  EXPECT_EQ(calc.Right, extent("Grü").cx);
}

TEST_F(GdiText, PathCompactPathKeepsFittingTextsAndShortensOthersToFit) {
  gdi.SetDCFont(hdc, desc("MS Sans Serif", 8.25));
  std::string fits = "C:\\a.txt";
  ASSERT_TRUE(gdi.PathCompactPathA(hdc, fits, 200));
  EXPECT_EQ(fits, "C:\\a.txt");

  const std::string longPath = "C:\\Program Files\\Some Vendor\\Some Product\\Data\\report.txt";
  for (int32_t width : {60, 100, 150, 220}) {
    std::string path = longPath;
    ASSERT_TRUE(gdi.PathCompactPathA(hdc, path, width));
    EXPECT_LE(extent(path).cx, width) << path;
    EXPECT_NE(path.find("..."), std::string::npos) << path;
    EXPECT_EQ(path.substr(path.size() - 10), "report.txt") << path;
  }
  std::string middle = longPath;
  gdi.PathCompactPathA(hdc, middle, extent("C:\\...\\report.txt").cx);
  EXPECT_EQ(middle, "C:\\...\\report.txt");

  std::string plain = "A plain sentence without any folders in it";
  gdi.PathCompactPathA(hdc, plain, 80);
  EXPECT_LE(extent(plain).cx, 80);
  EXPECT_EQ(plain.substr(plain.size() - 3), "...");
  EXPECT_EQ(plain.substr(0, 3), "A p");
}

TEST(FontCacheBound, FontsNobodyHoldsAreForgottenOnceManyFacesWereMade) {
  FontCache cache(4);
  const std::shared_ptr<TextFont> held = cache.font(FontSpec{"Arial", 10}, 96);
  for (int i = 0; i < 10; ++i) cache.font(FontSpec{"Arial", 11.0 + i}, 96);  // nobody keeps these
  EXPECT_LE(cache.faceCount(), 4u);
  EXPECT_EQ(cache.font(FontSpec{"Arial", 10}, 96), held) << "a font in use stays the same font";
  const std::shared_ptr<TextFont> again = cache.font(FontSpec{"Arial", 20}, 96);
  EXPECT_EQ(cache.font(FontSpec{"Arial", 20}, 96), again) << "asking twice in a row gives one font";
  EXPECT_EQ(again->pixelSize(), 27);
}

}  // namespace
}  // namespace corvane

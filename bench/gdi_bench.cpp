// SPDX-License-Identifier: MIT
// Speed of the desktop drawing layer on its hot paths: measuring and printing single words (as
// the HTML view does, word by word) next to Pango doing the same work, and long aliased lines.
#include <benchmark/benchmark.h>
#include <pango/pangocairo.h>

#include <array>
#include <map>
#include <memory>
#include <string>

#include "desktop/font_cache.h"
#include "desktop/gdi.h"
#include "desktop/text_font.h"

namespace corvane {
namespace {

const std::array<std::string, 8> kWords = {"measure", "the",    "quick", "brown",
                                           "foxes",   "jumped", "over",  "Lazy"};

class BenchWindows : public WindowImages {
 public:
  Canvas* windowCanvas(HWND hWnd) override { return hWnd == 1 ? &m_canvas : nullptr; }
  void windowDrawn(HWND) override { ++m_drawn; }

 private:
  Canvas m_canvas{1200, 600};
  int64_t m_drawn = 0;
};

FontSpec tahoma() {
  FontSpec f;
  f.name = "Tahoma";
  f.size = 8.25;
  return f;
}

struct Desk {
  BenchWindows windows;
  DesktopGdi gdi{windows};
  HDC hdc = gdi.GetDC(1);
  Desk() {
    gdi.SetDCFont(hdc, tahoma());
    gdi.SetBkMode(hdc, 1);
    SIZE s;
    for (const auto& w : kWords) gdi.GetTextExtentPoint32A(hdc, w, s);  // warm-up
  }
};

// A Pango layout in the same face, size and font options as the desktop uses.
struct PangoSide {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1200, 600);
  cairo_t* cr = cairo_create(surface);
  PangoLayout* layout = pango_cairo_create_layout(cr);
  PangoSide() {
    cairo_font_options_t* o = cairo_font_options_create();
    cairo_font_options_set_antialias(o, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(o, CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(o, CAIRO_HINT_METRICS_ON);
    pango_cairo_context_set_font_options(pango_layout_get_context(layout), o);
    cairo_font_options_destroy(o);
    PangoFontDescription* d = pango_font_description_from_string("DejaVu Sans");
    pango_font_description_set_absolute_size(d, 11 * PANGO_SCALE);
    pango_layout_set_font_description(layout, d);
    pango_font_description_free(d);
    pango_layout_context_changed(layout);
    cairo_set_source_rgb(cr, 0, 0, 0);
  }
  ~PangoSide() {
    g_object_unref(layout);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
  }
};

void BM_GetTextExtentPoint32A_Word(benchmark::State& state) {
  Desk d;
  SIZE s;
  size_t i = 0;
  for (auto _ : state) {
    d.gdi.GetTextExtentPoint32A(d.hdc, kWords[i++ & 7], s);
    benchmark::DoNotOptimize(s);
  }
}
BENCHMARK(BM_GetTextExtentPoint32A_Word);

void BM_Pango_LayoutPixelSize_Word(benchmark::State& state) {
  PangoSide p;
  size_t i = 0;
  int w = 0, h = 0;
  for (auto _ : state) {
    const std::string& word = kWords[i++ & 7];
    pango_layout_set_text(p.layout, word.data(), static_cast<int>(word.size()));
    pango_layout_get_pixel_size(p.layout, &w, &h);
    benchmark::DoNotOptimize(w);
  }
}
BENCHMARK(BM_Pango_LayoutPixelSize_Word);

void BM_TextOutA_Word(benchmark::State& state) {
  Desk d;
  size_t i = 0;
  for (auto _ : state) {
    d.gdi.TextOutA(d.hdc, static_cast<int32_t>(i * 37 % 1100), static_cast<int32_t>(i * 13 % 580),
                   kWords[i & 7]);
    ++i;
  }
}
BENCHMARK(BM_TextOutA_Word);

// The same glyphs and advances through one cairo_show_glyphs call per word.
void BM_CairoShowGlyphs_Word(benchmark::State& state) {
  FontCache cache;
  auto font = cache.font(tahoma(), 96);
  Canvas canvas(1200, 600);
  const RECT clip{0, 0, 1200, 600};
  size_t i = 0;
  for (auto _ : state) {
    font->drawWithCairo(canvas, static_cast<int32_t>(i * 37 % 1100), static_cast<int32_t>(i * 13 % 580),
                        kWords[i & 7], 0, clip);
    ++i;
  }
}
BENCHMARK(BM_CairoShowGlyphs_Word);

void BM_Pango_ShowLayout_Word(benchmark::State& state) {
  PangoSide p;
  size_t i = 0;
  for (auto _ : state) {
    const std::string& word = kWords[i & 7];
    pango_layout_set_text(p.layout, word.data(), static_cast<int>(word.size()));
    cairo_move_to(p.cr, double(i * 37 % 1100), double(i * 13 % 580));
    pango_cairo_show_layout(p.cr, p.layout);
    ++i;
  }
}
BENCHMARK(BM_Pango_ShowLayout_Word);

void BM_DrawTextA_SingleLine(benchmark::State& state) {
  Desk d;
  RECT r{10, 10, 400, 40};
  for (auto _ : state)
    d.gdi.DrawTextA(d.hdc, "Click here to continue", -1, r, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
}
BENCHMARK(BM_DrawTextA_SingleLine);

void BM_LineTo_1000Pixels(benchmark::State& state) {
  Desk d;
  HPEN pen = d.gdi.CreatePen(PS_SOLID, 1, RGB(200, 0, 0));
  d.gdi.SelectObject(d.hdc, pen);
  const bool diagonal = state.range(0) != 0;
  for (auto _ : state) {
    d.gdi.MoveToEx(d.hdc, 100, 50, nullptr);
    d.gdi.LineTo(d.hdc, 1100, diagonal ? 550 : 50);
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(BM_LineTo_1000Pixels)->Arg(0)->Arg(1)->ArgNames({"diagonal"});

void BM_SetDCFont_KnownFont(benchmark::State& state) {
  Desk d;
  FontSpec bold = tahoma();
  bold.bold = true;
  size_t i = 0;
  for (auto _ : state) d.gdi.SetDCFont(d.hdc, (i++ & 1) ? bold : tahoma());
}
BENCHMARK(BM_SetDCFont_KnownFont);

}  // namespace
}  // namespace corvane

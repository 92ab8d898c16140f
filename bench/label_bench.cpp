// SPDX-License-Identifier: MIT
// The markup label against Pango's own markup layout and paint of the same text, the cost of
// measuring one word once its font is known, and the label's wrapping and parsing at scale.
#include <benchmark/benchmark.h>
#include <pango/pangocairo.h>

#include <memory>
#include <string>

#include "desktop/desktop.h"
#include "pango_label_layout.h"
#include <corvane/host/form.h>
#include <corvane/platform/api.h>
#include <corvane/platform/platform.h>
#include <corvane/widgets/vex_color_label.h>

using namespace corvane;

namespace {

struct LabelRig {
  Desktop desktop;
  FormRef form;
  std::shared_ptr<VexColorLabel> label;
  LabelRig(float widthTwips, float heightTwips) {
    setPlatform(&desktop);
    form = Form::create("BenchForm", 12000, 12000);
    form->surface().Font()->setName("Arial");
    form->surface().Font()->setSize(10);
    label = std::dynamic_pointer_cast<VexColorLabel>(form->add("VexColorLabel", "lbl", nullptr, 0, 0, widthTwips, heightTwips));
  }
  ~LabelRig() {
    label.reset();
    Forms::unloadAll();
    setPlatform(nullptr);
  }
};

const std::string kOneLine = "<b>Fett</b> und <c&HFF>rot</c> und <i>kursiv</i>";
const std::string kOneLinePango = "<b>Fett</b> und <span foreground=\"#FF0000\">rot</span> und <i>kursiv</i>";

// About 2 KB of caption with every kind of markup, and the same as Pango markup.
std::pair<std::string, std::string> longCaption() {
  std::string ours, pango;
  for (int i = 0; ours.size() < 2048; ++i) {
    ours += "Der <b>schnelle</b> braune <i>Fuchs</i> springt <c&HFF>ueber</c> den <u>faulen</u> Hund. ";
    pango += "Der <b>schnelle</b> braune <i>Fuchs</i> springt <span foreground=\"#FF0000\">ueber</span> den <u>faulen</u> Hund. ";
    if (i % 4 == 3) {
      ours += "<br>";
      pango += "\n";
    }
  }
  return {ours, pango};
}


// Pango's fresh layout: parsed, laid out and painted each time, on a cleared surface of the
// label's size.
void pangoLayoutAndPaint(benchmark::State& state, const std::string& markup, int widthPx, int heightPx, bool wrap) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, widthPx, heightPx);
  cairo_t* cr = cairo_create(surface);
  for (auto _ : state) {
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    PangoLayout* layout = pangoLabelLayout(cr, markup, widthPx, wrap);
    cairo_set_source_rgb(cr, 0, 0, 0);
    cairo_move_to(cr, 0, 0);
    pango_cairo_show_layout(cr, layout);
    g_object_unref(layout);
    cairo_surface_flush(surface);
    benchmark::DoNotOptimize(cairo_image_surface_get_data(surface));
  }
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
}

// Pango repainting a layout it kept: laid out once, then only cleared and painted.
void pangoKeptLayoutPaint(benchmark::State& state, const std::string& markup, int widthPx, int heightPx, bool wrap) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, widthPx, heightPx);
  cairo_t* cr = cairo_create(surface);
  PangoLayout* layout = pangoLabelLayout(cr, markup, widthPx, wrap);
  for (auto _ : state) {
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    cairo_set_source_rgb(cr, 0, 0, 0);
    cairo_move_to(cr, 0, 0);
    pango_cairo_show_layout(cr, layout);
    cairo_surface_flush(surface);
    benchmark::DoNotOptimize(cairo_image_surface_get_data(surface));
  }
  g_object_unref(layout);
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
}

void BM_DrawLabel_OneLine(benchmark::State& state) {
  LabelRig rig(6000, 300);
  rig.label->setCaption(kOneLine);
  for (auto _ : state) rig.label->DrawLabel();
}
BENCHMARK(BM_DrawLabel_OneLine);

void BM_PangoMarkup_OneLine(benchmark::State& state) { pangoLayoutAndPaint(state, kOneLinePango, 400, 20, false); }
BENCHMARK(BM_PangoMarkup_OneLine);

void BM_PangoKeptLayout_OneLine(benchmark::State& state) { pangoKeptLayoutPaint(state, kOneLinePango, 400, 20, false); }
BENCHMARK(BM_PangoKeptLayout_OneLine);

// The wrapped caption on a label as large as the Pango surface below: 400 by 800 pixels.
void BM_DrawLabel_2KB_WordWrap(benchmark::State& state) {
  LabelRig rig(6000, 12000);
  rig.label->setWordWrap(true);
  rig.label->setCaption(longCaption().first);
  state.counters["parts"] = rig.label->Parts().ubound();
  for (auto _ : state) rig.label->DrawLabel();
}
BENCHMARK(BM_DrawLabel_2KB_WordWrap);

void BM_PangoMarkup_2KB_WordWrap(benchmark::State& state) {
  pangoLayoutAndPaint(state, longCaption().second, 400, 800, true);
}
BENCHMARK(BM_PangoMarkup_2KB_WordWrap);

void BM_PangoKeptLayout_2KB_WordWrap(benchmark::State& state) {
  pangoKeptLayoutPaint(state, longCaption().second, 400, 800, true);
}
BENCHMARK(BM_PangoKeptLayout_2KB_WordWrap);

// Words of five to six letters, one blank between.
std::string words(int64_t count) {
  std::string caption;
  for (int64_t i = 0; i < count; ++i) caption += (i ? " wort" : "wort") + std::to_string(i % 100);
  return caption;
}

// About 1 MB of caption: sentences with bold, italic and colour tags and a line break now and then.
std::string megabyteCaption() {
  std::string caption;
  for (int i = 0; caption.size() < (1u << 20); ++i) {
    caption += "Der <b>schnelle</b> braune <i>Fuchs</i> springt <c&HFF>ueber</c> den faulen Hund. ";
    if (i % 8 == 7) caption += "<br>";
  }
  return caption;
}

// WordWrap on a label one pixel wide: every word on a line of its own. The time per word stays
// flat as the word count doubles (the Complexity line fits it).
void BM_Wrap_OnePixelWide(benchmark::State& state) {
  LabelRig rig(15, 300);
  rig.label->setWordWrap(true);
  rig.label->setCaption(words(state.range(0)));
  state.counters["parts"] = rig.label->Parts().ubound();
  for (auto _ : state) rig.label->DrawLabel();
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_Wrap_OnePixelWide)->Arg(800)->Arg(1600)->Arg(3200)->Unit(benchmark::kMillisecond)->Complexity();

// A 1 MB caption parsed and printed on one line per "<br>", and the same wrapped to 400 pixels.
void BM_Caption1MB_Tags(benchmark::State& state) {
  LabelRig rig(6000, 300);
  rig.label->setCaption(megabyteCaption());
  state.counters["parts"] = rig.label->Parts().ubound();
  for (auto _ : state) rig.label->DrawLabel();
}
BENCHMARK(BM_Caption1MB_Tags)->Unit(benchmark::kMillisecond);

void BM_Caption1MB_WordWrap(benchmark::State& state) {
  LabelRig rig(6000, 300);
  rig.label->setWordWrap(true);
  rig.label->setCaption(megabyteCaption());
  state.counters["parts"] = rig.label->Parts().ubound();
  for (auto _ : state) rig.label->DrawLabel();
}
BENCHMARK(BM_Caption1MB_WordWrap)->Unit(benchmark::kMillisecond);

void BM_TextWidth_Word(benchmark::State& state) {
  LabelRig rig(6000, 300);
  Surface& s = rig.label->surface();
  const std::string word = "Donaudampfschiff";
  s.TextWidth(word);  // warm-up: the font and its glyphs are known afterwards
  for (auto _ : state) benchmark::DoNotOptimize(s.TextWidth(word));
}
BENCHMARK(BM_TextWidth_Word);

// The platform call underneath, on the same surface's context, as the peer of TextWidth.
void BM_TextWidth_Word_Peer_GetTextExtentPoint32A(benchmark::State& state) {
  LabelRig rig(6000, 300);
  Surface& s = rig.label->surface();
  const std::string word = "Donaudampfschiff";
  s.TextWidth(word);  // selects the surface's font into its context
  SIZE size;
  for (auto _ : state) {
    gdi().GetTextExtentPoint32A(s.hdc(), word, size);
    benchmark::DoNotOptimize(size);
  }
}
BENCHMARK(BM_TextWidth_Word_Peer_GetTextExtentPoint32A);

void BM_TextHeight_Word(benchmark::State& state) {
  LabelRig rig(6000, 300);
  Surface& s = rig.label->surface();
  const std::string word = "Donaudampfschiff";
  s.TextHeight(word);
  for (auto _ : state) benchmark::DoNotOptimize(s.TextHeight(word));
}
BENCHMARK(BM_TextHeight_Word);

void BM_Print_Word(benchmark::State& state) {
  LabelRig rig(6000, 300);
  Surface& s = rig.label->surface();
  const std::string word = "Donaudampfschiff";
  s.Print(word, false);
  for (auto _ : state) {
    s.setCurrentX(0);
    s.setCurrentY(0);
    s.Print(word, false);
  }
}
BENCHMARK(BM_Print_Word);

// The platform calls underneath Print: the text drawn and measured once.
void BM_Print_Word_Peer_TextOutA(benchmark::State& state) {
  LabelRig rig(6000, 300);
  Surface& s = rig.label->surface();
  const std::string word = "Donaudampfschiff";
  s.Print(word, false);
  SIZE size;
  for (auto _ : state) {
    gdi().TextOutA(s.hdc(), 0, 0, word);
    gdi().GetTextExtentPoint32A(s.hdc(), word, size);
    benchmark::DoNotOptimize(size);
  }
}
BENCHMARK(BM_Print_Word_Peer_TextOutA);

void BM_PangoLayout_Word(benchmark::State& state) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 10, 10);
  cairo_t* cr = cairo_create(surface);
  PangoLayout* layout = pango_cairo_create_layout(cr);
  PangoFontDescription* font = pango_font_description_from_string("Liberation Sans 10");
  pango_layout_set_font_description(layout, font);
  for (auto _ : state) {
    int w, h;
    pango_layout_set_text(layout, "Donaudampfschiff", -1);
    pango_layout_get_pixel_size(layout, &w, &h);
    benchmark::DoNotOptimize(w);
  }
  pango_font_description_free(font);
  g_object_unref(layout);
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
}
BENCHMARK(BM_PangoLayout_Word);

}  // namespace

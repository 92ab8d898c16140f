// SPDX-License-Identifier: MIT
// The markup label against Pango's own markup layout and paint of the same text, the cost of
// measuring one word once its font is known, and the label's wrapping and parsing at scale.
#include <benchmark/benchmark.h>
#include <pango/pangocairo.h>

#include <memory>
#include <string>

#include "desktop/desktop.h"
#include <corvane/host/form.h>
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

void pangoLayoutAndPaint(benchmark::State& state, const std::string& markup, int widthPx, int heightPx, bool wrap) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, widthPx, heightPx);
  cairo_t* cr = cairo_create(surface);
  PangoFontDescription* font = pango_font_description_from_string("Liberation Sans 10");
  for (auto _ : state) {
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    PangoLayout* layout = pango_cairo_create_layout(cr);
    pango_layout_set_font_description(layout, font);
    if (wrap) {
      pango_layout_set_width(layout, widthPx * PANGO_SCALE);
      pango_layout_set_wrap(layout, PANGO_WRAP_WORD);
    }
    pango_layout_set_markup(layout, markup.c_str(), -1);
    cairo_set_source_rgb(cr, 0, 0, 0);
    cairo_move_to(cr, 0, 0);
    pango_cairo_show_layout(cr, layout);
    g_object_unref(layout);
    benchmark::DoNotOptimize(cairo_image_surface_get_data(surface));
  }
  pango_font_description_free(font);
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

void BM_DrawLabel_2KB_WordWrap(benchmark::State& state) {
  LabelRig rig(6000, 300);
  rig.label->setWordWrap(true);
  rig.label->setCaption(longCaption().first);
  state.counters["parts"] = rig.label->Parts().ubound();
  for (auto _ : state) rig.label->DrawLabel();
}
BENCHMARK(BM_DrawLabel_2KB_WordWrap);

void BM_PangoMarkup_2KB_WordWrap(benchmark::State& state) {
  pangoLayoutAndPaint(state, longCaption().second, 400, 1200, true);
}
BENCHMARK(BM_PangoMarkup_2KB_WordWrap);

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
  s.TextWidth("Donaudampfschiff");  // warm-up: the font and its glyphs are known afterwards
  for (auto _ : state) benchmark::DoNotOptimize(s.TextWidth("Donaudampfschiff"));
}
BENCHMARK(BM_TextWidth_Word);

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

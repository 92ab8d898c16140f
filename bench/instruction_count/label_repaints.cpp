// SPDX-License-Identifier: MIT
// A fixed number of label repaints, or of Pango repainting the layout it kept, for instruction
// counts under callgrind: run it with two counts and divide the difference of the totals by the
// difference of the counts, so that the set-up cancels out.
//   label_repaints label-line|label-2kb|pango-line|pango-2kb|text-width|text-extent COUNT
// text-width measures a word with Surface::TextWidth, text-extent with the platform call underneath
// on the same surface's context.
#include <corvane/host/form.h>
#include <corvane/platform/api.h>
#include <corvane/platform/platform.h>
#include <corvane/widgets/vex_color_label.h>
#include <pango/pangocairo.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "desktop/desktop.h"
#include "../pango_label_layout.h"

using namespace corvane;

namespace {

std::pair<std::string, std::string> caption(bool longOne) {
  if (!longOne)
    return {"<b>Fett</b> und <c&HFF>rot</c> und <i>kursiv</i>",
            "<b>Fett</b> und <span foreground=\"#FF0000\">rot</span> und <i>kursiv</i>"};
  std::string ours, pango;
  for (int i = 0; ours.size() < 2048; ++i) {
    ours += "Der <b>schnelle</b> braune <i>Fuchs</i> springt <c&HFF>ueber</c> den <u>faulen</u> Hund. ";
    pango +=
        "Der <b>schnelle</b> braune <i>Fuchs</i> springt <span foreground=\"#FF0000\">ueber</span> den "
        "<u>faulen</u> Hund. ";
    if (i % 4 == 3) {
      ours += "<br>";
      pango += "\n";
    }
  }
  return {ours, pango};
}

// A headless desktop with a form in Arial 10; the job gets the form, and everything goes again after.
template <class Job>
void onForm(Job job) {
  Desktop desktop;
  setPlatform(&desktop);
  {
    FormRef form = Form::create("CountForm", 12000, 12000);
    form->surface().Font()->setName("Arial");
    form->surface().Font()->setSize(10);
    job(*form);
  }
  Forms::unloadAll();
  setPlatform(nullptr);
}

void label(bool longOne, long count) {
  onForm([&](Form& form) {
    auto l = std::dynamic_pointer_cast<VexColorLabel>(
        form.add("VexColorLabel", "lbl", nullptr, 0, 0, 6000, longOne ? 12000.0f : 300.0f));
    l->setWordWrap(longOne);
    l->setCaption(caption(longOne).first);
    for (long i = 0; i < count; ++i) l->DrawLabel();
  });
}

void pango(bool longOne, long count) {
  const int w = 400, h = longOne ? 800 : 20;
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h);
  cairo_t* cr = cairo_create(surface);
  PangoLayout* layout = pangoLabelLayout(cr, caption(longOne).second, w, longOne);
  for (long i = 0; i < count; ++i) {
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    cairo_set_source_rgb(cr, 0, 0, 0);
    cairo_move_to(cr, 0, 0);
    pango_cairo_show_layout(cr, layout);
    cairo_surface_flush(surface);
  }
  g_object_unref(layout);
  cairo_destroy(cr);
  cairo_surface_destroy(surface);
}

void measure(bool throughSurface, long count) {
  onForm([&](Form& form) {
    Surface& s = form.surface();
    const std::string word = "Donaudampfschiff";
    s.TextWidth(word);  // the font and its glyphs are known afterwards
    SIZE size{};
    long sum = 0;
    for (long i = 0; i < count; ++i) {
      if (throughSurface) {
        sum += static_cast<long>(s.TextWidth(word));
      } else {
        gdi().GetTextExtentPoint32A(s.hdc(), word, size);
        sum += size.cx;
      }
    }
    if (sum == -1) std::printf("%ld\n", sum);
  });
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: label_repaints label-line|label-2kb|pango-line|pango-2kb|text-width|text-extent COUNT\n");
    return 2;
  }
  const std::string mode = argv[1];
  const long count = std::strtol(argv[2], nullptr, 10);
  if (mode == "label-line")
    label(false, count);
  else if (mode == "label-2kb")
    label(true, count);
  else if (mode == "pango-line")
    pango(false, count);
  else if (mode == "pango-2kb")
    pango(true, count);
  else if (mode == "text-width")
    measure(true, count);
  else if (mode == "text-extent")
    measure(false, count);
  else
    return 2;
  return 0;
}

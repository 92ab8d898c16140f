// SPDX-License-Identifier: MIT
// litehtml beside the HTML view: the 30 KB page parsed, laid out three times at 600 pixels (as
// the view's Refresh makes three passes) and drawn once onto a Cairo image of the page's height.
#include <benchmark/benchmark.h>

#include <string>

#include "../html_pages.h"
#include "litehtml_cairo_container.h"

namespace {

void BM_PeerLitehtmlCairo30KbAt600(benchmark::State& state) {
  const std::string page = thirtyKilobytePage();
  LitehtmlCairoContainer container(600);
  litehtml::context context;
  context.load_master_stylesheet(LitehtmlCairoContainer::masterStyleSheet());
  int height = 0;
  for (auto _ : state) {
    litehtml::document::ptr document = litehtml::document::createFromUTF8(page.c_str(), &container, &context);
    for (int pass = 0; pass < 3; ++pass) document->render(600);
    height = document->height();
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 600, height > 0 ? height : 1);
    cairo_t* cr = cairo_create(surface);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    litehtml::position clip(0, 0, 600, height);
    document->draw(reinterpret_cast<litehtml::uint_ptr>(cr), 0, 0, &clip);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
  }
  state.counters["docHeight"] = height;
}
BENCHMARK(BM_PeerLitehtmlCairo30KbAt600)->Unit(benchmark::kMillisecond);

}  // namespace

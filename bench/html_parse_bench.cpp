// SPDX-License-Identifier: MIT
// The HTML view's parse of a 30 KB page, from setting Text to the finished tree: normalising,
// splitting, classifying, the repair of open paragraphs, rows and cells, the links and the tree.
#include <benchmark/benchmark.h>
#include <corvane/html/vex_html.h>

#include <memory>
#include <string>

#include "html_pages.h"

using namespace corvane;

namespace {

void BM_HtmlParse30KbPage(benchmark::State& state) {
  const std::string page = thirtyKilobytePage();
  auto view = std::make_shared<VexHTML>();
  view->setEnableAnchors(true);
  for (auto _ : state) {
    view->setText(page);
    view->controlSite().changedKeys.clear();
    benchmark::DoNotOptimize(view->document().mChunkCount);
  }
  state.counters["bytes"] = static_cast<double>(page.size());
  state.counters["chunks"] = view->document().mChunkCount;
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(page.size()));
}
BENCHMARK(BM_HtmlParse30KbPage)->Unit(benchmark::kMillisecond);

}  // namespace

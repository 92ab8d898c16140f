// SPDX-License-Identifier: MIT
// The HTML view's layout and drawing of the 30 KB page at 600 pixels wide: Text plus the Refresh
// it runs (three passes and the bar loop), and one hover repaint (a measuring pass plus the copy
// into the viewport). A page about 20,000 pixels long reports the peak memory of the process.
#include <benchmark/benchmark.h>
#include <corvane/host/form.h>
#include <corvane/host/picture_box.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/platform.h>
#include <sys/resource.h>

#include <memory>
#include <string>

#include "desktop/desktop.h"
#include "html_pages.h"

using namespace corvane;

namespace {

struct HtmlRig {
  Desktop desktop;
  FormRef form;
  std::shared_ptr<VexHTML> view;
  HtmlRig() {
    setPlatform(&desktop);
    form = Form::create("BenchForm", 12000, 9000);
    // 600 by 400 pixels at 15 twips per pixel, both bars allowed.
    view = std::dynamic_pointer_cast<VexHTML>(form->add("VexHTML", "htm", nullptr, 0, 0, 9000, 6000));
    view->setEnableAnchors(true);
    view->setEnableScroll(3);
  }
  ~HtmlRig() {
    view.reset();
    Forms::unloadAll();
    setPlatform(nullptr);
  }
};

void BM_HtmlTextAndRefresh30KbAt600(benchmark::State& state) {
  HtmlRig rig;
  const std::string page = thirtyKilobytePage();
  for (auto _ : state) {
    rig.view->setText(page);
    rig.view->controlSite().changedKeys.clear();
  }
  state.counters["docHeight"] = rig.view->mDocHeight();
  state.counters["bytes"] = static_cast<double>(page.size());
}
BENCHMARK(BM_HtmlTextAndRefresh30KbAt600)->Unit(benchmark::kMillisecond);

void BM_HtmlHoverRepaint30KbAt600(benchmark::State& state) {
  HtmlRig rig;
  rig.view->setText(thirtyKilobytePage());
  for (auto _ : state) {
    rig.view->mRender(false);
    rig.view->mPaintViewport();
  }
}
BENCHMARK(BM_HtmlHoverRepaint30KbAt600)->Unit(benchmark::kMillisecond);

// The real mouse path: a synthetic move of the desktop's mouse onto the first link, the next one
// onto plain text beside it, each ending with the repainted viewport. One move per iteration.
void BM_HtmlHoverMouseMove30KbAt600(benchmark::State& state) {
  HtmlRig rig;
  rig.form->Show();
  rig.view->setText(thirtyKilobytePage());
  const auto& doc = rig.view->document();
  const html::HtmlChunk& link = doc.chunk(doc.mAnchors.at(0));
  const int32_t linkX = (link.Left + link.Right) / 2, linkY = (link.Top + link.Bottom) / 2;
  POINTAPI origin{0, 0};
  rig.desktop.user().ClientToScreen(rig.view->picViewPort()->surface().hWnd(), origin);
  bool over = false;
  for (auto _ : state) {
    over = !over;
    if (over)
      rig.desktop.mouseMove(origin.x + linkX, origin.y + linkY);
    else
      rig.desktop.mouseMove(origin.x + 2, origin.y + linkY);  // the left margin holds no link
  }
  state.counters["quickRepaints"] = static_cast<double>(rig.view->quickHoverRepaints());
}
BENCHMARK(BM_HtmlHoverMouseMove30KbAt600)->Unit(benchmark::kMillisecond);

void BM_HtmlPage20000PixelsPeakMemory(benchmark::State& state) {
  HtmlRig rig;
  std::string page;
  for (int n = 0; n < 1000; ++n) page += "Zeile " + std::to_string(n) + " mit etwas Text<BR>";
  for (auto _ : state) rig.view->setText(page);
  struct rusage usage {};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["docHeight"] = rig.view->mDocHeight();
  state.counters["peakRssMB"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
}
BENCHMARK(BM_HtmlPage20000PixelsPeakMemory)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

// SPDX-License-Identifier: MIT
// Composition on a 1920x1080 desktop with 40 windows: the pixels of one window (as saving it
// needs them) composed by themselves against composing the whole screen and cutting them out,
// and the screen brought up to date after one window was drawn on against composing it afresh.
#include <benchmark/benchmark.h>
#include <corvane/platform/platform.h>

#include <memory>
#include <vector>

#include "desktop/desktop.h"
#include "desktop/gdi.h"
#include "desktop/screen_composer.h"

using namespace corvane;

namespace {

struct ComposeRig {
  Desktop desktop{[] {
    Desktop::Options o;
    o.width = 1920;
    o.height = 1080;
    return o;
  }()};
  std::vector<HWND> windows;
  ComposeRig() {
    WindowManager& wm = desktop.windows();
    WNDPROC proc = wm.RegisterWindowProc([](HWND, int32_t, WPARAM, LPARAM) { return LRESULT{0}; });
    for (int i = 0; i < 40; ++i)
      windows.push_back(
          wm.CreateWindowExA(0, "Bench", "", WS_VISIBLE, (i % 8) * 230, (i / 8) * 200, 300, 260, 0, proc));
    desktop.screen();
  }
  void drawOn(HWND h) {
    GdiApi& g = desktop.gdi();
    HDC dc = g.GetDC(h);
    HBRUSH b = g.CreateSolidBrush(0x336699);
    g.FillRect(dc, RECT{0, 0, 20, 20}, b);
    g.DeleteObject(b);
    g.ReleaseDC(h, dc);
  }
};

void BM_OneWindowPixels_ComposedAlone(benchmark::State& state) {
  ComposeRig rig;
  ScreenComposer composer(rig.desktop.windows());
  RECT r;
  rig.desktop.windows().GetWindowRect(rig.windows[20], r);
  Canvas part(r.Right - r.Left, r.Bottom - r.Top, 0);
  for (auto _ : state) {
    composer.composePart(r, 1920, 1080, 0xA56E3A, part);
    benchmark::DoNotOptimize(part.row(0));
  }
}
BENCHMARK(BM_OneWindowPixels_ComposedAlone);

// How saving a window got its pixels before: the whole screen composed, the window cut out.
void BM_OneWindowPixels_FromWholeScreen(benchmark::State& state) {
  ComposeRig rig;
  Canvas screen(1920, 1080, 0);
  RECT r;
  rig.desktop.windows().GetWindowRect(rig.windows[20], r);
  Canvas part(r.Right - r.Left, r.Bottom - r.Top, 0);
  for (auto _ : state) {
    rig.desktop.windows().compose(screen, 0xA56E3A);
    cairo_t* cr = cairo_create(part.surface());
    cairo_set_source_surface(cr, screen.surface(), -r.Left, -r.Top);
    cairo_paint(cr);
    cairo_destroy(cr);
    benchmark::DoNotOptimize(part.row(0));
  }
}
BENCHMARK(BM_OneWindowPixels_FromWholeScreen);

void BM_ScreenAfterOneWindowDrawn_FromChanges(benchmark::State& state) {
  ComposeRig rig;
  for (auto _ : state) {
    rig.drawOn(rig.windows[20]);
    benchmark::DoNotOptimize(static_cast<const Canvas&>(rig.desktop.screen()).row(0));
  }
}
BENCHMARK(BM_ScreenAfterOneWindowDrawn_FromChanges);

void BM_ScreenAfterOneWindowDrawn_Whole(benchmark::State& state) {
  ComposeRig rig;
  Canvas screen(1920, 1080, 0);
  for (auto _ : state) {
    rig.drawOn(rig.windows[20]);
    rig.desktop.windows().compose(screen, 0xA56E3A);
    benchmark::DoNotOptimize(screen.row(0));
  }
}
BENCHMARK(BM_ScreenAfterOneWindowDrawn_Whole);

}  // namespace

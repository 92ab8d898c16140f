// SPDX-License-Identifier: MIT
// The gradient painter on a full-HD surface against Cairo's own linear gradient fill of an image
// of the same size in the same direction. The painter draws one pen line per pixel step along the
// sweep; Cairo computes every pixel of the image.
#include <benchmark/benchmark.h>

#include "gradient_rigs.h"

using namespace gradient_rigs;

namespace {

void BM_CGradient(benchmark::State& state) {
  GradientRig rig(static_cast<float>(state.range(0)));
  int32_t lines = 0;
  for (auto _ : state) {
    COLORREF centre = 0;
    lines = rig.draw(centre);
    benchmark::DoNotOptimize(centre);
    benchmark::DoNotOptimize(lines);
  }
  state.counters["lines"] = lines / 2;
  state.counters["Mpixel/s"] = benchmark::Counter(double(kWidth) * kHeight * double(state.iterations()) / 1e6,
                                                  benchmark::Counter::kIsRate);
}

void BM_CairoLinearGradient(benchmark::State& state) {
  CairoRig rig(static_cast<float>(state.range(0)));
  for (auto _ : state) rig.draw();
  state.counters["Mpixel/s"] = benchmark::Counter(double(kWidth) * kHeight * double(state.iterations()) / 1e6,
                                                  benchmark::Counter::kIsRate);
}

}  // namespace

// Each side timed on its own, at the same angles; compare BM_CGradient/a with BM_CairoLinearGradient/a.
BENCHMARK(BM_CGradient)->DenseRange(0, 315, 45)->Arg(30)->Arg(130)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CairoLinearGradient)->DenseRange(0, 315, 45)->Arg(30)->Arg(130)->Unit(benchmark::kMillisecond);

// SPDX-License-Identifier: MIT
// The gradient painter on a full-HD surface against Cairo's own linear gradient fill of an image
// of the same size in the same direction. The painter draws one pen line per pixel step along the
// sweep; Cairo computes every pixel of the image.
#include <benchmark/benchmark.h>
#include <cairo.h>

#include <chrono>
#include <cmath>

#include "desktop/desktop.h"
#include <corvane/frame/gradient.h>
#include <corvane/platform/api.h>

using namespace corvane;

namespace {

constexpr int32_t kWidth = 1920;
constexpr int32_t kHeight = 1080;
constexpr COLORREF kColour1 = 0xFFFFD0;
constexpr COLORREF kColour2 = 0x400000;

// A memory context with a 1920 by 1080 bitmap on the desktop, and a painter.
struct GradientRig {
  Desktop desktop;
  HDC hdc = 0;
  HBITMAP bitmap = 0;
  HGDIOBJ oldBitmap = 0;
  CGradient gradient;
  explicit GradientRig(float angle) {
    setPlatform(&desktop);
    hdc = gdi().CreateCompatibleDC(0);
    bitmap = gdi().CreateCompatibleBitmap(hdc, kWidth, kHeight);
    oldBitmap = gdi().SelectObject(hdc, bitmap);
    gradient.setAngle(angle);
    gradient.setColor1(kColour1);
    gradient.setColor2(kColour2);
  }
  ~GradientRig() {
    gdi().SelectObject(hdc, oldBitmap);
    gdi().DeleteObject(bitmap);
    gdi().DeleteDC(hdc);
    setPlatform(nullptr);
  }
  int32_t draw() { return gradient.DrawGradient(hdc, kWidth, kHeight); }
};

// Cairo's linear gradient over an image of the same size, from Colour1 to Colour2 in the direction
// of the angle (counter-clockwise from the x axis, with y pointing down on the image).
struct CairoRig {
  cairo_surface_t* surface;
  cairo_t* cr;
  cairo_pattern_t* pattern;
  explicit CairoRig(float angle) {
    surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight);
    cr = cairo_create(surface);
    const double a = angle * M_PI / 180.0, dx = std::cos(a), dy = -std::sin(a);
    const double half = (kWidth * std::fabs(dx) + kHeight * std::fabs(dy)) / 2.0;
    const double cx = kWidth / 2.0, cy = kHeight / 2.0;
    pattern = cairo_pattern_create_linear(cx - dx * half, cy - dy * half, cx + dx * half, cy + dy * half);
    auto stop = [&](double offset, COLORREF c) {
      cairo_pattern_add_color_stop_rgb(pattern, offset, (c & 0xFF) / 255.0, ((c >> 8) & 0xFF) / 255.0,
                                       ((c >> 16) & 0xFF) / 255.0);
    };
    stop(0, kColour1);
    stop(1, kColour2);
    cairo_set_source(cr, pattern);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  }
  ~CairoRig() {
    cairo_pattern_destroy(pattern);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
  }
  void draw() {
    cairo_paint(cr);
    cairo_surface_flush(surface);
  }
};

void BM_CGradient(benchmark::State& state) {
  GradientRig rig(static_cast<float>(state.range(0)));
  int32_t lines = 0;
  for (auto _ : state) {
    lines = rig.draw();
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

// Both, alternately, in one run: the mean time of each and Cairo's time over the painter's
// (above 1: the painter is faster).
void BM_CGradientVersusCairo(benchmark::State& state) {
  GradientRig painter(static_cast<float>(state.range(0)));
  CairoRig cairo(static_cast<float>(state.range(0)));
  using Clock = std::chrono::steady_clock;
  double painterSeconds = 0, cairoSeconds = 0;
  for (auto _ : state) {
    auto t0 = Clock::now();
    benchmark::DoNotOptimize(painter.draw());
    auto t1 = Clock::now();
    cairo.draw();
    auto t2 = Clock::now();
    painterSeconds += std::chrono::duration<double>(t1 - t0).count();
    cairoSeconds += std::chrono::duration<double>(t2 - t1).count();
  }
  const double n = static_cast<double>(state.iterations());
  state.counters["CGradient_ms"] = painterSeconds / n * 1e3;
  state.counters["cairo_ms"] = cairoSeconds / n * 1e3;
  state.counters["cairo/CGradient"] = painterSeconds > 0 ? cairoSeconds / painterSeconds : 0;
}

}  // namespace

BENCHMARK(BM_CGradient)->Arg(0)->Arg(45)->Arg(90)->Arg(130)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CairoLinearGradient)->Arg(0)->Arg(45)->Arg(90)->Arg(130)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CGradientVersusCairo)->Arg(0)->Arg(45)->Arg(90)->Arg(130)->Unit(benchmark::kMillisecond);

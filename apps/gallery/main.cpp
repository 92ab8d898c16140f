// SPDX-License-Identifier: MIT
// The gallery: renders every control of the library in representative states into PNG files,
// headless; with --live it shows the desktop in a window where a display exists.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

#include "desktop/desktop.h"
#include "gallery.h"
#include "live_viewer.h"
#include <corvane/platform/platform.h>

using namespace corvane;


int main(int argc, char** argv) {
  std::string out = "out/gallery";
  bool live = false;
  for (int i = 1; i < argc; ++i) {
    if (!std::strcmp(argv[i], "--out") && i + 1 < argc) out = argv[++i];
    else if (!std::strcmp(argv[i], "--live")) live = true;
    else {
      std::fprintf(stderr, "usage: %s [--out DIR] [--live]\n", argv[0]);
      return 2;
    }
  }
  Desktop desktop(Desktop::Options{.width = 2400, .height = 1400, .virtualClock = !live});
  setPlatform(&desktop);

  auto sources = gallery::sceneSources();
  std::sort(sources.begin(), sources.end());
  std::vector<gallery::Scene> scenes;
  for (auto& [group, source] : sources)
    for (gallery::Scene& s : source()) scenes.push_back(std::move(s));
  std::filesystem::create_directories(out);
  int failed = 0;
  // Forms flow down the screen in columns, so that the whole desktop shows every scene.
  int32_t x = 10, y = 10, columnWidth = 0;
  std::vector<FormRef> kept;
  for (const gallery::Scene& scene : scenes) {
    FormRef form = scene.build();
    RECT size;
    desktop.windows().GetWindowRect(form->hWnd(), size);
    if (y + (size.Bottom - size.Top) > 1390 && y > 10) {
      x += columnWidth + 10;
      y = 10;
      columnWidth = 0;
    }
    columnWidth = std::max(columnWidth, size.Right - size.Left);
    form->Move(static_cast<float>(x) * 15, static_cast<float>(y) * 15);
    std::string path = out + "/" + scene.name + ".png";
    if (desktop.saveWindowPng(form->hWnd(), path)) {
      std::printf("%s  (%s)\n", path.c_str(), scene.description.c_str());
    } else {
      std::fprintf(stderr, "could not write %s\n", path.c_str());
      ++failed;
    }
    RECT r;
    desktop.windows().GetWindowRect(form->hWnd(), r);
    y = r.Bottom + 10;
    kept.push_back(form);
  }
  std::string all = out + "/desktop.png";
  if (desktop.savePng(all)) std::printf("%s  (the whole desktop)\n", all.c_str());

  if (live) {
    if (!gallery::runLiveViewer(desktop)) std::fprintf(stderr, "no display: the live window is not available\n");
  }
  Forms::unloadAll();
  setPlatform(nullptr);
  return failed ? 1 : 0;
}

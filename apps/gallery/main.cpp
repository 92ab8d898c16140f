// SPDX-License-Identifier: MIT
// The gallery: renders every control of the library in representative states into PNG files,
// headless; with --live it then shows every scene as a window of its own on the user's display,
// until the last one is closed (or for --seconds N).
#include <corvane/app/application.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/runtime_error.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <set>
#include <string>

#include "desktop/desktop.h"
#include "gallery.h"

using namespace corvane;

namespace {

std::vector<gallery::Scene> allScenes() {
  auto sources = gallery::sceneSources();
  std::sort(sources.begin(), sources.end());
  std::vector<gallery::Scene> scenes;
  for (auto& [group, source] : sources)
    for (gallery::Scene& s : source()) scenes.push_back(std::move(s));
  return scenes;
}

// Places the forms in columns from the top left of an area; when the area is full, the next
// round starts again a little further in, so that every window keeps a visible corner.
class Placer {
 public:
  Placer(int32_t width, int32_t height) : m_width(width), m_height(height) {}
  POINTAPI next(int32_t w, int32_t h) {
    if (m_y + h > m_height - kGap && m_y > m_top) {
      m_x += m_column + kGap;
      m_y = m_top;
      m_column = 0;
    }
    if (m_x + w > m_width - kGap && m_x > m_left) {
      m_left += 40;
      m_top += 40;
      m_x = m_left;
      m_y = m_top;
      m_column = 0;
    }
    POINTAPI p{m_x, m_y};
    m_column = std::max(m_column, w);
    m_y += h + kGap;
    return p;
  }

 private:
  static constexpr int32_t kGap = 10;
  int32_t m_width, m_height;
  int32_t m_left = kGap, m_top = kGap, m_x = kGap, m_y = kGap, m_column = 0;
};

int renderPngs(const std::string& out) {
  // Wide enough that the columns of forms never start over again: the alerts and balloons stay
  // on top of everything, and a form placed under one would show it in its own picture.
  constexpr int32_t kScreenWidth = 4800, kScreenHeight = 1800;
  Desktop desktop(Desktop::Options{.width = kScreenWidth, .height = kScreenHeight});
  setPlatform(&desktop);
  std::filesystem::create_directories(out);
  int failed = 0;
  // Forms flow down the screen in columns, so that the whole desktop shows every scene.
  // A scene's form is placed as it is made, before the scene moves the mouse over it; a form the
  // scene made otherwise is placed when the scene is done.
  Placer placer(kScreenWidth, kScreenHeight);
  std::set<HWND> placed;
  gallery::formPlacer() = [&](Form& form) {
    RECT size;
    desktop.windows().GetWindowRect(form.hWnd(), size);
    POINTAPI at = placer.next(size.Right - size.Left, size.Bottom - size.Top);
    form.Move(static_cast<float>(at.x) * 15, static_cast<float>(at.y) * 15);
    placed.insert(form.hWnd());
  };
  for (const gallery::Scene& scene : allScenes()) {
    FormRef form = scene.build();
    if (!placed.count(form->hWnd())) gallery::formPlacer()(*form);
    std::string path = out + "/" + scene.name + ".png";
    if (desktop.saveWindowPng(form->hWnd(), path)) {
      std::printf("%s  (%s)\n", path.c_str(), scene.description.c_str());
    } else {
      std::fprintf(stderr, "could not write %s\n", path.c_str());
      ++failed;
    }
  }
  gallery::formPlacer() = nullptr;
  std::string all = out + "/desktop.png";
  if (desktop.savePng(all)) std::printf("%s  (the whole desktop)\n", all.c_str());
  Forms::unloadAll();
  setPlatform(nullptr);
  return failed;
}

constexpr int32_t kDeadlineTimer = 0x6A11;  // ends the live loop after --seconds

int showLive(int32_t seconds) {
  Application::Options options;
  options.display = Application::DisplayKind::Live;
  std::unique_ptr<Application> app;
  try {
    app = std::make_unique<Application>(options);
  } catch (const RuntimeError& e) {
    std::fprintf(stderr, "no live display: %s\n", e.description().c_str());
    return 0;
  }
  // The scenes were drawn for 15 twips per pixel; the forms are placed in the work area.
  Placer placer(user().GetSystemMetrics(SM_CXFULLSCREEN), user().GetSystemMetrics(SM_CYFULLSCREEN));
  std::set<HWND> placed;
  gallery::formPlacer() = [&](Form& form) {
    RECT size;
    user().GetWindowRect(form.hWnd(), size);
    POINTAPI at = placer.next(size.Right - size.Left, size.Bottom - size.Top);
    user().MoveWindow(form.hWnd(), at.x, at.y, size.Right - size.Left, size.Bottom - size.Top, true);
    placed.insert(form.hWnd());
  };
  HWND first = 0;
  gallery::inLiveViewer() = true;
  for (const gallery::Scene& scene : allScenes()) {
    FormRef form = scene.build();
    form->setCaption(scene.name);
    if (!placed.count(form->hWnd())) gallery::formPlacer()(*form);
    if (!first) first = form->hWnd();
  }
  gallery::formPlacer() = nullptr;
  std::printf("%zu scenes shown as windows\n", Forms::all().size());
  std::fflush(stdout);
  if (first && seconds > 0) {
    // The first form's window carries the deadline; the loop ends when it fires.
    WNDPROC old = user().GetWindowLongA(first, GWL_WNDPROC);
    WNDPROC hook = user().RegisterWindowProc([old](HWND h, int32_t msg, WPARAM w, LPARAM l) -> LRESULT {
      if (msg == wm::TIMER && w == kDeadlineTimer) {
        Application::current()->quit(0);
        return 0;
      }
      return user().CallWindowProcA(old, h, msg, w, l);
    });
    user().SetWindowLongA(first, GWL_WNDPROC, hook);
    user().SetTimer(first, kDeadlineTimer, seconds * 1000);
    int code = app->run();
    if (user().IsWindow(first)) user().SetWindowLongA(first, GWL_WNDPROC, old);
    user().UnregisterWindowProc(hook);
    return code;
  }
  return app->run();
}

}  // namespace

int main(int argc, char** argv) {
  std::string out = "out/gallery";
  bool live = false;
  int32_t seconds = 0;
  for (int i = 1; i < argc; ++i) {
    if (!std::strcmp(argv[i], "--out") && i + 1 < argc)
      out = argv[++i];
    else if (!std::strcmp(argv[i], "--live"))
      live = true;
    else if (!std::strcmp(argv[i], "--seconds") && i + 1 < argc)
      seconds = std::atoi(argv[++i]);
    else {
      std::fprintf(stderr, "usage: %s [--out DIR] [--live [--seconds N]]\n", argv[0]);
      return 2;
    }
  }
  int failed = renderPngs(out);
  if (live) showLive(seconds);
  return failed ? 1 : 0;
}

// SPDX-License-Identifier: MIT
#include <corvane/app/application.h>

#include <corvane/app/headless_display.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/runtime_error.h>

#include "desktop/desktop.h"
#include "live/live_desktop.h"
#include <corvane/platform/shell.h>

namespace corvane {

namespace {
Application* g_current = nullptr;
}

struct Application::State {
  Options options;
  std::unique_ptr<Desktop> desktop;
  std::unique_ptr<HeadlessDisplay> headless;
  Platform* previousPlatform = nullptr;
  bool quitAsked = false;
  int exitCode = 0;
};

Application::Application() : Application(Options{}) {}

Application::Application(const Options& options) : m_state(std::make_unique<State>()) {
  if (g_current) throw RuntimeError(err::InvalidProcedureCall, "An application is running already", "corvane");
  m_state->options = options;
  Desktop::Options d;
  d.width = options.screenWidth;
  d.height = options.screenHeight;
  d.virtualClock = options.virtualClock;
  d.twipsPerPixelX = d.twipsPerPixelY = options.twipsPerPixel;
  if (options.display == DisplayKind::Live) {
    m_state->desktop = openLiveDesktop(d);
    setShellRecording(false);  // a person is there: the shell really opens things
  } else {
    m_state->desktop = std::make_unique<Desktop>(d);
    m_state->headless.reset(new HeadlessDisplay(*m_state->desktop));
  }
  m_state->previousPlatform = currentPlatform();
  setPlatform(m_state->desktop.get());
  g_current = this;
}

Application::~Application() {
  // Forms first, while the display they draw on still exists; a failing Terminate must not stop
  // the others from ending.
  while (!Forms::all().empty()) {
    FormRef last = Forms::all().back();
    try {
      last->Unload();
    } catch (...) {
      auto& all = Forms::all();
      if (!all.empty() && all.back() == last) all.pop_back();
    }
  }
  setPlatform(m_state->previousPlatform);
  m_state->headless.reset();
  m_state->desktop.reset();
  g_current = nullptr;
}

Application* Application::current() { return g_current; }

Application::DisplayKind Application::displayKind() const { return m_state->options.display; }

HeadlessDisplay& Application::headless() {
  if (!m_state->headless) throw RuntimeError(err::InvalidProcedureCall, "The display is not headless", "corvane");
  return *m_state->headless;
}

const std::vector<FormRef>& Application::forms() const { return Forms::all(); }

int32_t Application::processEvents() { return user().DoEvents(); }

int Application::run() {
  m_state->quitAsked = false;
  m_state->exitCode = 0;
  while (!m_state->quitAsked && !Forms::all().empty()) {
    int32_t delivered = processEvents();
    if (m_state->quitAsked || Forms::all().empty()) break;
    // Headless, nothing comes from outside: with no message and no timer the loop is done.
    if (m_state->headless && delivered == 0 && m_state->desktop->windows().nextTimerDue() < 0) break;
    user().WaitForWork(-1);
  }
  return m_state->exitCode;
}

void Application::quit(int exitCode) {
  m_state->quitAsked = true;
  m_state->exitCode = exitCode;
}

}  // namespace corvane

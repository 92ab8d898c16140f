// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <memory>
#include <vector>

#include <corvane/export.h>
#include <corvane/host/form.h>

namespace corvane {

class HeadlessDisplay;

// The object a program creates first, and one at a time: it sets up the display the controls
// draw on, runs the message loop, and ends everything in order when it goes, whatever the
// program still holds: the forms still loaded are unloaded (each control's Terminate runs),
// then the display is released. Forms, controls and pictures kept beyond it become inert.
class CORVANE_API Application {
 public:
  // Which display shows the desktop's windows. Headless composes them into an image (PNG
  // output, synthetic input, deterministic). Live shows every top-level window as a real window
  // of the user's display (X11, DISPLAY), with real input, time and clipboard; the screen size
  // and scale then come from the display and the clock is the system's.
  enum class DisplayKind { Headless, Live };

  struct Options {
    DisplayKind display = DisplayKind::Headless;
    int32_t screenWidth = 1024;
    int32_t screenHeight = 768;
    // A virtual clock moves only when told to or when the loop waits for the next timer, so a
    // run is the same every time; otherwise the clock is the system's.
    bool virtualClock = true;
    int32_t twipsPerPixel = 15;
  };

  Application();
  explicit Application(const Options& options);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  // The application that is running, nullptr when none.
  static Application* current();

  DisplayKind displayKind() const;
  // The headless display's operations; a RuntimeError on another display.
  HeadlessDisplay& headless();

  // The loaded forms, in the order they were loaded.
  const std::vector<FormRef>& forms() const;

  // Delivers the messages posted so far and the timers due, and repaints; returns the number of
  // messages delivered.
  int32_t processEvents();
  // Runs the message loop until the last form unloads or quit() is called, and returns the exit
  // code given to quit (0 otherwise). On the headless display the loop also returns when nothing
  // is left that could happen: no message waiting and no timer set. On the live display it
  // sleeps until the next event of the display or the next timer.
  int run();
  // Makes run() return after the event being handled.
  void quit(int exitCode = 0);

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace corvane

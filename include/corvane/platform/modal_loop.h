// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>

#include <cstdint>
#include <functional>

namespace corvane {

// The loop that keeps a modal window on the screen: it delivers messages and timers and waits for
// the next thing to do until the window says it is done. On a live display it runs the display's
// events; on the headless desktop waiting moves the virtual clock to the next timer, and a test
// drives the window by queued steps (input or a jump of the clock), one each time the loop has
// delivered what was pending.
class CORVANE_API ModalLoop {
 public:
  // Runs until done() is true. On a display without a person a loop that can never end is an
  // error (5) instead of a hang: when no step is left and nothing is pending, or when the clock
  // has run on for more than the idle limit since the last step.
  static void run(const std::function<bool()>& done);

  static void queueStep(std::function<void()> step);
  static void clearSteps();
  static int32_t pendingSteps();
  // Milliseconds of the platform's clock that a loop may run without a step (0: no limit, the
  // default for a person at a live display).
  static void setIdleLimit(int64_t milliseconds);
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/platform/modal_loop.h>
#include <corvane/runtime/runtime_error.h>

#include <deque>

namespace corvane {

namespace {
struct LoopState {
  std::deque<std::function<void()>> steps;
  int64_t idleLimit = 0;
};
LoopState& state() {
  static LoopState s;
  return s;
}
constexpr int32_t kWaitSliceMs = 50;
}  // namespace

void ModalLoop::run(const std::function<bool()>& done) {
  LoopState& s = state();
  uint32_t lastStep = user().GetTickCount();
  while (!done()) {
    user().DoEvents();
    if (done()) break;
    if (!s.steps.empty()) {
      auto step = std::move(s.steps.front());
      s.steps.pop_front();
      step();
      lastStep = user().GetTickCount();
      continue;
    }
    if (s.idleLimit > 0 && static_cast<int64_t>(user().GetTickCount() - lastStep) > s.idleLimit)
      throw RuntimeError(err::InvalidProcedureCall, "The modal window was never closed");
    if (!user().WaitForWork(kWaitSliceMs))
      throw RuntimeError(err::InvalidProcedureCall, "Nothing is left that could close the modal window");
  }
}

void ModalLoop::queueStep(std::function<void()> step) { state().steps.push_back(std::move(step)); }
void ModalLoop::clearSteps() { state().steps.clear(); }
int32_t ModalLoop::pendingSteps() { return static_cast<int32_t>(state().steps.size()); }
void ModalLoop::setIdleLimit(int64_t milliseconds) { state().idleLimit = milliseconds; }

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <optional>
#include <type_traits>
#include <utility>

#include <corvane/export.h>
#include <corvane/runtime/runtime_error.h>

// Guarded execution: in a guarded procedure a statement that fails with a run-time error is
// skipped and the next one runs; nothing is reported. Only RuntimeError is swallowed; any other
// exception (a logic error, out of memory of the C++ runtime) still propagates.
namespace corvane {

// Runs one statement; returns false when it failed with a RuntimeError.
template <class F>
bool guarded(F&& statement) {
  try {
    std::forward<F>(statement)();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

// Runs a statement that computes a value and returns it; on a RuntimeError returns the fallback
// instead, converted to the statement's type.
template <class F, class T>
std::decay_t<std::invoke_result_t<F>> tryOr(F&& statement, T&& fallback) {
  try {
    return std::forward<F>(statement)();
  } catch (const RuntimeError&) {
    return std::forward<T>(fallback);
  }
}

// The guard of one procedure: `StatementGuard g; g([&]{ ... }); g([&]{ ... });`. It counts the
// statements that failed and keeps the last error, the way the language's Err object does.
class CORVANE_API StatementGuard {
 public:
  template <class F>
  bool operator()(F&& statement) {
    try {
      std::forward<F>(statement)();
      return true;
    } catch (const RuntimeError& e) {
      record(e);
      return false;
    }
  }

  int failures() const { return m_failures; }
  // The last error, if any statement failed.
  const std::optional<RuntimeError>& lastError() const { return m_lastError; }
  // The number of the last error, 0 when none.
  int32_t lastErrorNumber() const;
  // Forgets the failures so far (Err.Clear).
  void clear();

 private:
  void record(const RuntimeError& e);

  int m_failures = 0;
  std::optional<RuntimeError> m_lastError;
};

}  // namespace corvane

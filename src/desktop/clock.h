// SPDX-License-Identifier: MIT
#pragma once
#include <chrono>
#include <cstdint>

namespace corvane {

// Milliseconds since the desktop started: either real time, or a virtual time that moves only
// when a test or a modal loop moves it, so that timers fire deterministically.
class Clock {
 public:
  explicit Clock(bool virtualTime) : m_virtual(virtualTime), m_start(std::chrono::steady_clock::now()) {}

  bool isVirtual() const { return m_virtual; }
  int64_t now() const {
    if (m_virtual) return m_now;
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - m_start).count();
  }
  // Moves virtual time forward; real time cannot be moved.
  void setNow(int64_t ms) {
    if (m_virtual && ms > m_now) m_now = ms;
  }

 private:
  bool m_virtual;
  int64_t m_now = 0;
  std::chrono::steady_clock::time_point m_start;
};

}  // namespace corvane

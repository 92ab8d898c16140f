// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <atomic>
#include <cstdint>

namespace corvane {

// Counts the live objects of the component's public classes, which is what a host asks before it
// unloads the component. Each public class derives from it beside Object; the host's own objects
// (forms, Screen, App, fonts, pictures, wrappers) do not, so they never keep the component loaded.
class CORVANE_API ComponentObject {
 public:
  static int64_t liveCount();

 protected:
  ComponentObject() noexcept;
  ComponentObject(const ComponentObject&) noexcept;
  ComponentObject& operator=(const ComponentObject&) noexcept { return *this; }
  ~ComponentObject();

 private:
  static std::atomic<int64_t> s_live;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <memory>

#include "desktop/desktop.h"
#include <corvane/host/form.h>
#include <corvane/platform/platform.h>

namespace corvane::fuzz {

// The headless desktop with a virtual clock that every target runs on, made once per process.
inline Desktop& headlessDesktop() {
  static Desktop* desktop = [] {
    auto* d = new Desktop(Desktop::Options{});
    setPlatform(d);
    return d;
  }();
  return *desktop;
}

// Unloads every form at the end of one input, so that nothing carries over to the next.
struct FormsUnloader {
  ~FormsUnloader() { Forms::unloadAll(); }
};

}  // namespace corvane::fuzz

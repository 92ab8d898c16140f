// SPDX-License-Identifier: MIT
#include <corvane/platform/platform.h>

#include <corvane/runtime/runtime_error.h>

namespace corvane {

namespace {
Platform* g_platform = nullptr;
}

Platform& platform() {
  if (!g_platform)
    throw RuntimeError(err::ObjectNotSet,
                       "No platform: create a corvane::Application before forms, controls, pictures or drawing",
                       "corvane");
  return *g_platform;
}

Platform* currentPlatform() { return g_platform; }

void setPlatform(Platform* p) { g_platform = p; }

}  // namespace corvane

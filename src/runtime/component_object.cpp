// SPDX-License-Identifier: MIT
#include <corvane/runtime/component_object.h>

namespace corvane {

std::atomic<int64_t> ComponentObject::s_live{0};

ComponentObject::ComponentObject() noexcept { ++s_live; }
ComponentObject::ComponentObject(const ComponentObject&) noexcept { ++s_live; }
ComponentObject::~ComponentObject() { --s_live; }

int64_t ComponentObject::liveCount() { return s_live.load(); }

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace corvane {

// The platform's virtual-key code of an X key symbol; 0 for a key that has none.
int32_t virtualKeyFromKeysym(unsigned long keysym);

}  // namespace corvane

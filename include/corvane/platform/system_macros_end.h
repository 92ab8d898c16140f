// SPDX-License-Identifier: MIT
// No include guard: the closing half of system_macros_begin.h.
#pragma pop_macro("KeyPress")

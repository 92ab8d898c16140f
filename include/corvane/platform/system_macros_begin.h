// SPDX-License-Identifier: MIT
// No include guard: a public header includes this file at its top and system_macros_end.h at its
// end. The system's C headers define some names of the controls' interface as macros
// (<X11/Xlib.h>: "#define KeyPress 2"); they are saved and set aside while the header is read and
// restored afterwards, so a program may include those headers before or after ours.
#pragma push_macro("KeyPress")
#undef KeyPress

// SPDX-License-Identifier: MIT
#include "live/virtual_keys.h"

#include <X11/keysym.h>

namespace corvane {

int32_t virtualKeyFromKeysym(unsigned long k) {
  // Letters give their capital, digits their own code, whatever the shift state.
  if (k >= XK_a && k <= XK_z) return static_cast<int32_t>(k - XK_a + 'A');
  if (k >= XK_A && k <= XK_Z) return static_cast<int32_t>(k - XK_A + 'A');
  if (k >= XK_0 && k <= XK_9) return static_cast<int32_t>(k - XK_0 + '0');
  if (k >= XK_F1 && k <= XK_F24) return static_cast<int32_t>(k - XK_F1 + 0x70);
  if (k >= XK_KP_0 && k <= XK_KP_9) return static_cast<int32_t>(k - XK_KP_0 + 0x60);
  switch (k) {
    case XK_BackSpace:
      return 0x08;
    case XK_Tab:
    case XK_ISO_Left_Tab:
      return 0x09;
    case XK_Return:
    case XK_KP_Enter:
      return 0x0D;
    case XK_Shift_L:
    case XK_Shift_R:
      return 0x10;
    case XK_Control_L:
    case XK_Control_R:
      return 0x11;
    case XK_Alt_L:
    case XK_Alt_R:
    case XK_ISO_Level3_Shift:
      return 0x12;
    case XK_Pause:
      return 0x13;
    case XK_Caps_Lock:
      return 0x14;
    case XK_Escape:
      return 0x1B;
    case XK_space:
      return 0x20;
    case XK_Prior:
    case XK_KP_Prior:
      return 0x21;
    case XK_Next:
    case XK_KP_Next:
      return 0x22;
    case XK_End:
    case XK_KP_End:
      return 0x23;
    case XK_Home:
    case XK_KP_Home:
      return 0x24;
    case XK_Left:
    case XK_KP_Left:
      return 0x25;
    case XK_Up:
    case XK_KP_Up:
      return 0x26;
    case XK_Right:
    case XK_KP_Right:
      return 0x27;
    case XK_Down:
    case XK_KP_Down:
      return 0x28;
    case XK_Print:
      return 0x2C;
    case XK_Insert:
    case XK_KP_Insert:
      return 0x2D;
    case XK_Delete:
    case XK_KP_Delete:
      return 0x2E;
    case XK_Super_L:
      return 0x5B;
    case XK_Super_R:
      return 0x5C;
    case XK_Menu:
      return 0x5D;
    case XK_KP_Multiply:
      return 0x6A;
    case XK_KP_Add:
      return 0x6B;
    case XK_KP_Subtract:
      return 0x6D;
    case XK_KP_Decimal:
      return 0x6E;
    case XK_KP_Divide:
      return 0x6F;
    case XK_Num_Lock:
      return 0x90;
    case XK_Scroll_Lock:
      return 0x91;
    case XK_semicolon:
    case XK_colon:
      return 0xBA;
    case XK_plus:
    case XK_equal:
      return 0xBB;
    case XK_comma:
    case XK_less:
      return 0xBC;
    case XK_minus:
    case XK_underscore:
      return 0xBD;
    case XK_period:
    case XK_greater:
      return 0xBE;
    case XK_slash:
    case XK_question:
      return 0xBF;
    case XK_grave:
    case XK_asciitilde:
      return 0xC0;
    case XK_bracketleft:
    case XK_braceleft:
      return 0xDB;
    case XK_backslash:
    case XK_bar:
      return 0xDC;
    case XK_bracketright:
    case XK_braceright:
      return 0xDD;
    case XK_apostrophe:
    case XK_quotedbl:
      return 0xDE;
    default:
      return 0;
  }
}

}  // namespace corvane

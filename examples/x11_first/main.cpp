// SPDX-License-Identifier: MIT
// A program that includes the X11 headers before the library's, as a program with X11 code of its
// own does: their macros (None, Bool, Status, Success, True, False, KeyPress) stay as they are,
// and the library's names are reached in their prefixed or late-bound form.
#include <X11/Xlib.h>

#include <cstdio>

#include <corvane/corvane.h>

int main() {
  corvane::Application app;
  auto form = corvane::Form::create("frmX11", 3000, 1500);
  auto pane = form->add<corvane::VexPane>("paneBorder", 0, 0, 3000, 1500);

  // The border style "None" under its C++ name, and by name as late-bound code asks for it.
  pane->setBorderStyle(corvane::VexPane::btNone);
  int32_t byName = corvane::ClassRegistry::instance().enumValue("BorderType.None");
  pane->let("BorderStyle", corvane::Variant(static_cast<int16_t>(byName)));

  // The X11 macros are untouched.
  Window noWindow = None;
  Bool yes = True;
  bool ok = noWindow == 0 && yes == 1 && pane->BorderStyle() == corvane::VexPane::btNone && KeyPress == 2;
  std::puts(ok ? "x11_first: ok" : "x11_first: FAILED");
  return ok ? 0 : 1;
}

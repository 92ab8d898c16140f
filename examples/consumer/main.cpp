// SPDX-License-Identifier: MIT
// A program outside the library's tree: creates a markup label by class name, as a form file or
// late-bound code does, and reads its caption back by name.
#include <cstdio>

#include <corvane/corvane.h>

int main() {
  corvane::Application app;
  auto form = corvane::Form::create("ConsumerForm", 3000, 1000);
  auto label = form->add("VexColorLabel", "lblHello", nullptr, 0, 0, 2800, 300);
  label->let("Caption", corvane::Variant("<b>Hallo</b> Welt"));
  bool ok = label->get("Caption").toString() == "<b>Hallo</b> Welt";
  std::printf("consumer: %s (Corvane %s)\n", ok ? "ok" : "FAILED", CORVANE_VERSION_STRING);
  return ok ? 0 : 1;
}

// SPDX-License-Identifier: MIT
// A program that builds an application, forms and controls and returns from main without
// unloading anything: the application's end must release everything in order (run under
// AddressSanitizer by the test script).
#include <corvane/corvane.h>

// Fontconfig keeps its parsed configuration for the life of the process.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }

namespace {
// Held beyond the application: released after its end.
corvane::FormRef g_keptForm;
}  // namespace

int main() {
  corvane::Application app;
  auto form = corvane::Form::create("frmMain", 4800, 3600);
  form->Show();
  auto pane = form->add<corvane::VexPane>("paneBack", 0, 0, 4800, 3600);
  pane->setGradient(true);
  auto label = form->add<corvane::VexColorLabel>("lblHello", *pane, 300, 300, 3000, 400);
  label->setCaption("<b>Hallo</b> Welt");
  auto second = corvane::Form::create("frmSecond", 3000, 2000);
  second->add("VexHoverPic", "hovIcon", nullptr, 100, 100);
  g_keptForm = second;
  return 0;
}

// A program outside the library's tree: creates a markup label by name on a headless desktop.
#include <cstdio>

#include <corvane/desktop/desktop.h>
#include <corvane/host/form.h>
#include <corvane/platform/platform.h>

int main() {
  corvane::Desktop desktop;
  corvane::setPlatform(&desktop);
  auto form = corvane::Form::create("ConsumerForm", 3000, 1000);
  auto label = form->add("VexColorLabel", "lblHello", nullptr, 0, 0, 2800, 300);
  label->let("Caption", corvane::Variant("<b>Hallo</b> Welt"));
  bool ok = label->get("Caption").toString() == "<b>Hallo</b> Welt";
  corvane::Forms::unloadAll();
  corvane::setPlatform(nullptr);
  std::puts(ok ? "consumer: ok" : "consumer: FAILED");
  return ok ? 0 : 1;
}

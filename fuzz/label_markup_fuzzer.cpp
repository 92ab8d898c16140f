// SPDX-License-Identifier: MIT
// The markup label's caption: parsing, wrapping, printing and growing. The first byte chooses
// WordWrap (bit 0) and Autosize (bit 1); the rest is the caption.
#include <corvane/widgets/vex_color_label.h>

#include "fuzz_desktop.h"
#include "fuzz_input.h"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzz::headlessDesktop();
  fuzz::FormsUnloader unload;
  fuzz::FuzzInput in(data, size);
  const uint8_t flags = in.byte();
  FormRef form = Form::create("Form1", 6000, 3000);
  form->Show();
  auto label = std::dynamic_pointer_cast<VexColorLabel>(form->add("VexColorLabel", "Label1", nullptr, 0, 0, 3000, 300));
  if (!label) __builtin_trap();
  label->setWordWrap(flags & 1);
  label->setAutosize(flags & 2);
  label->setCaption(in.rest());
  return 0;
}

// SPDX-License-Identifier: MIT
// Sets Text of an HTML view to arbitrary bytes: normalising, splitting, classifying, the repair,
// the links and the tree must take any input without a crash, a hang or unbounded memory.
#include <corvane/html/vex_html.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "fuzz_desktop.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const auto view = [] {
    corvane::fuzz::headlessDesktop();
    auto v = std::make_shared<corvane::VexHTML>();
    v->setEnableAnchors(true);
    return v;
  }();
  // The first byte chooses the text colour so that TEXT attributes of earlier inputs do not
  // linger; the rest is the page.
  view->setDefaultTextColor(size ? data[0] : 0);
  view->setText(std::string(reinterpret_cast<const char*>(data), size));
  // The site collects reported keys; keep it from growing across runs.
  view->controlSite().changedKeys.clear();
  return 0;
}

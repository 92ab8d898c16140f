// SPDX-License-Identifier: MIT
// Form files: a malformed one is refused with FormFileError and nothing else.
#include <corvane/host/form_file.h>

#include "fuzz_desktop.h"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzz::headlessDesktop();
  fuzz::FormsUnloader unload;
  try {
    FormRef form = FormFile::load(std::string(reinterpret_cast<const char*>(data), size));
    if (!form) __builtin_trap();
  } catch (const FormFileError&) {
  }
  return 0;
}

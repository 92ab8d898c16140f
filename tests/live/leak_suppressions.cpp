// SPDX-License-Identifier: MIT
// Fontconfig keeps a few bytes of its parsed configuration for the life of the process and
// never frees them; LeakSanitizer would report that once for every test that uses a font.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }

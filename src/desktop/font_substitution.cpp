// SPDX-License-Identifier: MIT
#include "desktop/font_substitution.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace corvane {

namespace {

std::string lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return s;
}

// Arial, MS Sans Serif and their relatives go to Liberation Sans, whose advance widths match
// Arial's, so texts keep the widths the controls were laid out for. Tahoma and Verdana, wider
// humanist faces, go to DejaVu Sans, which is drawn after the same model and is as wide.
// Segoe UI is closer in width to Arial than to Verdana. Serif and fixed faces go to the
// metric-compatible Liberation Serif and Liberation Mono.
constexpr std::pair<const char*, const char*> kFaces[] = {
    {"ms sans serif", "Liberation Sans"},
    {"microsoft sans serif", "Liberation Sans"},
    {"arial", "Liberation Sans"},
    {"helvetica", "Liberation Sans"},
    {"segoe ui", "Liberation Sans"},
    {"system", "Liberation Sans"},
    {"tahoma", "DejaVu Sans"},
    {"verdana", "DejaVu Sans"},
    {"times new roman", "Liberation Serif"},
    {"times", "Liberation Serif"},
    {"ms serif", "Liberation Serif"},
    {"georgia", "Liberation Serif"},
    {"courier new", "Liberation Mono"},
    {"courier", "Liberation Mono"},
    {"lucida console", "Liberation Mono"},
    {"consolas", "Liberation Mono"},
    {"fixedsys", "Liberation Mono"},
};

}  // namespace

std::optional<FontSubstitution::Face> FontSubstitution::resolve(const std::string& windowsName) {
  const std::string name = lower(windowsName);
  // The symbol faces draw with DejaVu Sans, which has all the symbols they are mapped to.
  if (name == "marlett") return Face{"DejaVu Sans", Symbols::Marlett};
  if (name == "wingdings") return Face{"DejaVu Sans", Symbols::Wingdings};
  for (const auto& [from, to] : kFaces)
    if (name == from) return Face{to, Symbols::None};
  return std::nullopt;
}

char32_t FontSubstitution::mapSymbol(Symbols symbols, char32_t c) {
  if (symbols == Symbols::Marlett) {
    switch (c) {
      case 'r':
        return U'\u2715';  // close cross
      case '0':
        return U'\u2581';  // minimise bar
      case '1':
        return U'\u25A1';  // maximise box
      case '2':
        return U'\u2750';  // restore: two boxes
      case '3':
        return U'\u25C0';  // arrows left, right, up, down
      case '4':
        return U'\u25B6';
      case '5':
        return U'\u25B2';
      case '6':
        return U'\u25BC';
      case '8':
        return U'\u25B8';  // submenu arrow
      case 'a':
        return U'\u2713';  // check mark
      case 'b':
        return U'\u2713';
      case 'h':
        return U'\u25C6';  // diamond
      case 'i':
        return U'\u2022';  // small bullet
      case 'n':
        return U'\u25CF';  // round bullet
      case 't':
        return U'\u25B4';  // small arrows up and down, as on the steps of a spin button
      case 'u':
        return U'\u25BE';
      case 'y':
        return U'\u25AA';  // small square
      default:
        return c;
    }
  }
  if (symbols == Symbols::Wingdings) {
    switch (c) {
      case 'J':
        return U'\u263A';  // smiling face
      case 'L':
        return U'\u2639';  // frowning face
      case 'l':
        return U'\u25CF';  // black circle
      case 'n':
        return U'\u25A0';  // black square
      case 'o':
        return U'\u25A1';  // white square
      case 'u':
        return U'\u25C6';  // black diamond
      case U'\u00FC':
        return U'\u2713';  // check mark
      case U'\u00FB':
        return U'\u2717';  // ballot cross
      case U'\u00FD':
        return U'\u2612';  // ballot box with cross
      case U'\u00FE':
        return U'\u2611';  // ballot box with check
      default:
        return c;
    }
  }
  return c;
}

}  // namespace corvane

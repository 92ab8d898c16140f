// SPDX-License-Identifier: MIT
#pragma once
#include <optional>
#include <string>

namespace corvane {

// Which installed face stands in for a Windows face name, and how the letters of the two symbol
// faces become Unicode symbols.
class FontSubstitution {
 public:
  enum class Symbols { None, Marlett, Wingdings };
  struct Face {
    std::string family;
    Symbols symbols = Symbols::None;
  };

  // The substitute for a known Windows name (compared without regard to case), or nothing.
  static std::optional<Face> resolve(const std::string& windowsName);

  // The face used when a name is neither known nor installed.
  static constexpr const char* kFallbackFamily = "Liberation Sans";

  // The code point shown for a letter of a symbol face; letters without a symbol stay as they are.
  static char32_t mapSymbol(Symbols symbols, char32_t c);
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/host/std_font.h>

namespace corvane {

const Dispatch* StdFont::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<StdFont>(t)
        .prop("Name", &StdFont::Name, &StdFont::setName)
        .prop("Size", &StdFont::Size, &StdFont::setSize)
        .prop("Bold", &StdFont::Bold, &StdFont::setBold)
        .prop("Italic", &StdFont::Italic, &StdFont::setItalic)
        .prop("Underline", &StdFont::Underline, &StdFont::setUnderline)
        .prop("Strikethrough", &StdFont::Strikethrough, &StdFont::setStrikethrough);
    return t;
  }();
  return &d;
}

}  // namespace corvane

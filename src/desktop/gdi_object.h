// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <memory>

#include "desktop/canvas.h"
#include "desktop/region.h"
#include "desktop/text_font.h"
#include <corvane/platform/types.h>

namespace corvane {

// An entry of the handle table: a drawing object, a bitmap, a loaded picture or an open key of
// the settings store.
struct GdiObject {
  enum class Kind { Pen, Brush, Font, Region, Bitmap, Image, Key };
  explicit GdiObject(Kind k) : kind(k) {}

  Kind kind;
  bool stock = false;    // a context default: never deleted, not counted
  bool dcOwned = false;  // the font a context keeps for SetDCFont: freed with the context

  int32_t penStyle = 0, penWidth = 1;
  COLORREF colour = 0;  // pen or brush

  FontSpec fontSpec;
  std::shared_ptr<TextFont> font;

  Region region;

  std::shared_ptr<Canvas> canvas;  // bitmap or picture pixels
  bool icon = false;               // a loaded icon or cursor: drawn through its alpha

  int64_t keyId = 0;      // the key's row in the settings store
  int32_t keyAccess = 0;  // the access it was opened with

  // Counted by liveObjectCount: what a caller created and must delete.
  bool counted() const { return !stock && !dcOwned && kind != Kind::Image && kind != Kind::Key; }
};

}  // namespace corvane

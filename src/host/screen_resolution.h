// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include <corvane/platform/api.h>

namespace corvane {

// The screen's pixels per inch across and down, kept while the drawing side's resolution serial
// stays the same. Inline, as every measure in twips asks for them.
struct ScreenResolution {
  uint64_t serial = 0;
  int32_t x = 0, y = 0;
  float twipsPerPixelX = 0, twipsPerPixelY = 0;  // 1440 over the pixels per inch

  static const ScreenResolution& current(GdiApi& g);
  static const ScreenResolution& current() { return current(gdi()); }
  // Asks the screen's context again and keeps the answer under the serial.
  static const ScreenResolution& refresh(GdiApi& g, uint64_t serial);
};

inline ScreenResolution g_keptScreenResolution;

inline const ScreenResolution& ScreenResolution::current(GdiApi& g) {
  const uint64_t serial = g.resolutionSerial();
  return serial != 0 && serial == g_keptScreenResolution.serial ? g_keptScreenResolution : refresh(g, serial);
}

inline float screenTwipsPerPixelX(GdiApi& g) { return ScreenResolution::current(g).twipsPerPixelX; }
inline float screenTwipsPerPixelY(GdiApi& g) { return ScreenResolution::current(g).twipsPerPixelY; }
inline float screenTwipsPerPixelX() { return screenTwipsPerPixelX(gdi()); }
inline float screenTwipsPerPixelY() { return screenTwipsPerPixelY(gdi()); }

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <vector>

#include <corvane/platform/types.h>

namespace corvane {

// An area made of rectangles that do not overlap, kept in bands from top to bottom and, inside a
// band, from left to right. Right and bottom edges are exclusive.
class Region {
 public:
  Region() = default;
  Region(int32_t left, int32_t top, int32_t right, int32_t bottom);

  const std::vector<RECT>& rects() const { return m_rects; }
  bool empty() const { return m_rects.empty(); }
  bool contains(int32_t x, int32_t y) const;

  // The platform's result kinds: 1 empty, 2 one rectangle, 3 more than one.
  int32_t kind() const;

  // Combines two areas with RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF or RGN_COPY (a alone).
  static Region combine(const Region& a, const Region& b, int32_t mode);

 private:
  std::vector<RECT> m_rects;
};

}  // namespace corvane

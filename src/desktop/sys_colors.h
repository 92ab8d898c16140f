// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>

#include <corvane/platform/types.h>

namespace corvane {

// The system colour table (the classic grey scheme) and the translation of OLE colours to RGB.
class SysColors {
 public:
  SysColors();

  COLORREF get(int32_t index) const;  // 0 outside the table
  void set(int32_t index, COLORREF colour);

  // Top byte 0: the colour itself; top bit set with a known index: that system colour;
  // top byte 1 or 2 (palette forms): the low 24 bits. Anything else fails with E_INVALIDARG
  // and leaves result alone. Returns 0 on success.
  int32_t translate(OLE_COLOR colour, COLORREF& result) const;

  static constexpr int32_t E_INVALIDARG = static_cast<int32_t>(0x80070057);

 private:
  std::array<COLORREF, syscolor::COUNT> m_colours{};
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include "desktop/sys_colors.h"

namespace corvane {

SysColors::SysColors() {
  using namespace syscolor;
  const COLORREF face = RGB(212, 208, 200), grey = RGB(128, 128, 128), white = RGB(255, 255, 255), black = 0;
  const COLORREF navy = RGB(10, 36, 106);
  m_colours[SCROLLBAR] = face;
  m_colours[BACKGROUND] = RGB(58, 110, 165);
  m_colours[ACTIVECAPTION] = navy;
  m_colours[INACTIVECAPTION] = grey;
  m_colours[MENU] = face;
  m_colours[WINDOW] = white;
  m_colours[WINDOWFRAME] = black;
  m_colours[MENUTEXT] = black;
  m_colours[WINDOWTEXT] = black;
  m_colours[CAPTIONTEXT] = white;
  m_colours[ACTIVEBORDER] = face;
  m_colours[INACTIVEBORDER] = face;
  m_colours[APPWORKSPACE] = grey;
  m_colours[HIGHLIGHT] = navy;
  m_colours[HIGHLIGHTTEXT] = white;
  m_colours[BTNFACE] = face;
  m_colours[BTNSHADOW] = grey;
  m_colours[GRAYTEXT] = grey;
  m_colours[BTNTEXT] = black;
  m_colours[INACTIVECAPTIONTEXT] = face;
  m_colours[BTNHIGHLIGHT] = white;
  m_colours[DKSHADOW3D] = RGB(64, 64, 64);
  m_colours[LIGHT3D] = face;
  m_colours[INFOTEXT] = black;
  m_colours[INFOBK] = RGB(255, 255, 225);
}

COLORREF SysColors::get(int32_t index) const {
  if (index < 0 || index >= syscolor::COUNT) return 0;
  return m_colours[static_cast<size_t>(index)];
}

void SysColors::set(int32_t index, COLORREF colour) {
  if (index >= 0 && index < syscolor::COUNT) m_colours[static_cast<size_t>(index)] = colour & 0xFFFFFF;
}

int32_t SysColors::translate(OLE_COLOR colour, COLORREF& result) const {
  uint32_t value = static_cast<uint32_t>(colour);
  uint32_t top = value >> 24;
  if (top == 0) {
    result = colour;
    return 0;
  }
  if (top == 0x80) {
    uint32_t index = value & 0xFFFFFF;
    if (index >= static_cast<uint32_t>(syscolor::COUNT)) return E_INVALIDARG;
    result = get(static_cast<int32_t>(index));
    return 0;
  }
  if (top == 1 || top == 2) {  // palette index and palette-relative RGB: true colour has no palette
    result = static_cast<COLORREF>(value & 0xFFFFFF);
    return 0;
  }
  return E_INVALIDARG;
}

}  // namespace corvane

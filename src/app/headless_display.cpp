// SPDX-License-Identifier: MIT
#include <corvane/app/headless_display.h>

#include "desktop/desktop.h"
#include <corvane/host/form.h>

namespace corvane {

int32_t HeadlessDisplay::width() const { return m_desktop.windows().screenWidth(); }
int32_t HeadlessDisplay::height() const { return m_desktop.windows().screenHeight(); }

COLORREF HeadlessDisplay::pixel(int32_t x, int32_t y) {
  if (x < 0 || y < 0 || x >= width() || y >= height()) return -1;
  return m_desktop.screen().pixel(x, y);
}

bool HeadlessDisplay::saveScreenPng(const std::string& path) { return m_desktop.savePng(path); }

bool HeadlessDisplay::saveFormPng(const Form& form, const std::string& path) {
  return m_desktop.saveWindowPng(form.hWnd(), path);
}

uint32_t HeadlessDisplay::tickCount() const { return m_desktop.windows().GetTickCount(); }
void HeadlessDisplay::advance(int64_t milliseconds) { m_desktop.advance(milliseconds); }

void HeadlessDisplay::mouseMove(int32_t x, int32_t y) { m_desktop.mouseMove(x, y); }
void HeadlessDisplay::mouseDown(int32_t button) { m_desktop.mouseDown(button); }
void HeadlessDisplay::mouseUp(int32_t button) { m_desktop.mouseUp(button); }
void HeadlessDisplay::click(int32_t x, int32_t y) { m_desktop.click(x, y); }
void HeadlessDisplay::doubleClick(int32_t x, int32_t y) { m_desktop.doubleClick(x, y); }
void HeadlessDisplay::keyDown(int32_t virtualKey) { m_desktop.windows().keyDown(virtualKey); }
void HeadlessDisplay::keyUp(int32_t virtualKey) { m_desktop.windows().keyUp(virtualKey); }
void HeadlessDisplay::typeChar(int32_t charCode) { m_desktop.windows().typeChar(charCode); }

}  // namespace corvane

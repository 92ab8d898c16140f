// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>

#include <corvane/export.h>
#include <corvane/platform/types.h>

namespace corvane {

class Desktop;
class Form;

// What a program can do with the headless display: read and save the composed screen, move the
// virtual clock, and give synthetic mouse and keyboard input. Coordinates are screen pixels.
class CORVANE_API HeadlessDisplay {
 public:
  HeadlessDisplay(const HeadlessDisplay&) = delete;
  HeadlessDisplay& operator=(const HeadlessDisplay&) = delete;

  int32_t width() const;
  int32_t height() const;
  // The colour of a pixel of the composed screen, as &H00BBGGRR; -1 outside.
  COLORREF pixel(int32_t x, int32_t y);
  // Saves the composed screen, or the part a form covers, as PNG; false on failure.
  bool saveScreenPng(const std::string& path);
  bool saveFormPng(const Form& form, const std::string& path);

  // The clock in milliseconds; advance moves a virtual clock and fires the timers that fall due.
  uint32_t tickCount() const;
  void advance(int64_t milliseconds);

  // Synthetic input; each call delivers its messages at once. Buttons: 1 left, 2 right, 4 middle.
  void mouseMove(int32_t x, int32_t y);
  void mouseDown(int32_t button = 1);
  void mouseUp(int32_t button = 1);
  void click(int32_t x, int32_t y);
  void doubleClick(int32_t x, int32_t y);
  void keyDown(int32_t virtualKey);
  void keyUp(int32_t virtualKey);
  void typeChar(int32_t charCode);

 private:
  friend class Application;
  explicit HeadlessDisplay(Desktop& desktop) : m_desktop(desktop) {}

  Desktop& m_desktop;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <X11/Xlib.h>

#include <cstdint>
#include <string>
#include <vector>

namespace corvane::live_test {

// A second client of the X server, which looks at the program's windows from outside: the
// windows the display lists, their pixels, shapes and properties, and the clipboard.
class XProbe {
 public:
  XProbe();
  ~XProbe();
  XProbe(const XProbe&) = delete;
  XProbe& operator=(const XProbe&) = delete;
  bool ok() const { return m_display != nullptr; }
  Display* display() const { return m_display; }

  // The viewable children of the root, bottom to top.
  std::vector<Window> viewableTopLevels();
  // A pixel of a window's image as the server holds it, as &H00BBGGRR.
  std::vector<uint32_t> windowPixels(Window w, int32_t& width, int32_t& height);
  std::vector<XRectangle> shape(Window w, int kind);
  std::vector<unsigned long> cardinals(Window w, const char* property);
  std::vector<std::string> atomNames(Window w, const char* property);
  Window windowUnderPointer();
  // Asks the clipboard's owner for its text (UTF8_STRING); waits up to timeoutMs.
  std::string readClipboard(int timeoutMs);

 private:
  Display* m_display;
};

// Runs a command of the shell and returns its standard output.
std::string runCommand(const std::string& command);
// True when a program is on the search path.
bool haveProgram(const std::string& name);

}  // namespace corvane::live_test

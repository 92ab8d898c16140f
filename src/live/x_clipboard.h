// SPDX-License-Identifier: MIT
#pragma once
#include <X11/Xlib.h>

#include <string>

namespace corvane {

// The display's clipboard (the CLIPBOARD selection) for text. Setting it makes this program the
// selection's owner, which answers other programs' requests from the event loop.
class XClipboard {
 public:
  explicit XClipboard(Display* display);
  ~XClipboard();
  XClipboard(const XClipboard&) = delete;
  XClipboard& operator=(const XClipboard&) = delete;

  bool setText(const std::string& utf8);
  // The clipboard's text, asked of its owner with a bounded wait; empty when there is none.
  std::string text();
  // Handles selection events; true when the event was one of them.
  bool handle(const XEvent& event);

 private:
  void answer(const XSelectionRequestEvent& request);

  Display* m_display;
  Window m_window;
  Atom m_clipboard, m_targets, m_utf8, m_text, m_property;
  std::string m_text_;
  bool m_owner = false;
};

}  // namespace corvane

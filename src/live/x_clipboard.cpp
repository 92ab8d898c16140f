// SPDX-License-Identifier: MIT
#include "live/x_clipboard.h"

#include <X11/Xatom.h>
#include <poll.h>

#include <chrono>

namespace corvane {

XClipboard::XClipboard(Display* display)
    : m_display(display),
      m_window(XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0)),
      m_clipboard(XInternAtom(display, "CLIPBOARD", False)),
      m_targets(XInternAtom(display, "TARGETS", False)),
      m_utf8(XInternAtom(display, "UTF8_STRING", False)),
      m_text(XInternAtom(display, "TEXT", False)),
      m_property(XInternAtom(display, "CORVANE_CLIPBOARD", False)) {}

XClipboard::~XClipboard() { XDestroyWindow(m_display, m_window); }

bool XClipboard::setText(const std::string& utf8) {
  // Texts beyond one request would need the incremental transfer, which is not offered.
  if (utf8.size() + 1024 > static_cast<size_t>(XMaxRequestSize(m_display)) * 4) return false;
  m_text_ = utf8;
  XSetSelectionOwner(m_display, m_clipboard, m_window, CurrentTime);
  m_owner = XGetSelectionOwner(m_display, m_clipboard) == m_window;
  XFlush(m_display);
  return m_owner;
}

std::string XClipboard::text() {
  if (m_owner) return m_text_;
  if (XGetSelectionOwner(m_display, m_clipboard) == None) return {};
  XDeleteProperty(m_display, m_window, m_property);
  XConvertSelection(m_display, m_clipboard, m_utf8, m_property, m_window, CurrentTime);
  XFlush(m_display);
  // Another program answers in its own time: wait a second at most, for this one event only.
  auto end = std::chrono::steady_clock::now() + std::chrono::seconds(1);
  XEvent e;
  while (!XCheckTypedWindowEvent(m_display, m_window, SelectionNotify, &e)) {
    auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now()).count();
    if (left <= 0) return {};
    pollfd p{ConnectionNumber(m_display), POLLIN, 0};
    poll(&p, 1, static_cast<int>(left));
    XEventsQueued(m_display, QueuedAfterReading);
  }
  if (e.xselection.property == None) return {};
  Atom type;
  int format;
  unsigned long count, after;
  unsigned char* data = nullptr;
  std::string out;
  if (XGetWindowProperty(m_display, m_window, m_property, 0, 1 << 22, True, AnyPropertyType, &type, &format,
                         &count, &after, &data) == Success &&
      data && format == 8)
    out.assign(reinterpret_cast<char*>(data), count);
  if (data) XFree(data);
  return out;
}

bool XClipboard::handle(const XEvent& event) {
  if (event.type == SelectionClear && event.xselectionclear.window == m_window) {
    m_owner = false;
    return true;
  }
  if (event.type == SelectionRequest && event.xselectionrequest.owner == m_window) {
    answer(event.xselectionrequest);
    return true;
  }
  return false;
}

void XClipboard::answer(const XSelectionRequestEvent& request) {
  XSelectionEvent reply{};
  reply.type = SelectionNotify;
  reply.display = request.display;
  reply.requestor = request.requestor;
  reply.selection = request.selection;
  reply.target = request.target;
  reply.time = request.time;
  // Old clients name no property: the target's name stands for it.
  Atom property = request.property == None ? request.target : request.property;
  reply.property = None;
  if (m_owner && request.selection == m_clipboard) {
    if (request.target == m_targets) {
      Atom offered[] = {m_targets, m_utf8, XA_STRING, m_text};
      XChangeProperty(m_display, request.requestor, property, XA_ATOM, 32, PropModeReplace,
                      reinterpret_cast<unsigned char*>(offered), 4);
      reply.property = property;
    } else if (request.target == m_utf8 || request.target == XA_STRING || request.target == m_text) {
      XChangeProperty(m_display, request.requestor, property,
                      request.target == m_text ? m_utf8 : request.target, 8, PropModeReplace,
                      reinterpret_cast<const unsigned char*>(m_text_.data()),
                      static_cast<int>(m_text_.size()));
      reply.property = property;
    }
  }
  XSendEvent(m_display, request.requestor, False, 0, reinterpret_cast<XEvent*>(&reply));
  XFlush(m_display);
}

}  // namespace corvane

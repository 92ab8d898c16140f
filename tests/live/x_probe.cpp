// SPDX-License-Identifier: MIT
#include "live/x_probe.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/extensions/shape.h>
#include <poll.h>

#include <chrono>
#include <cstdio>
#include <thread>

namespace corvane::live_test {

// A busy server may turn a connection away for a moment: the probe tries again for a while.
XProbe::XProbe() : m_display(XOpenDisplay(nullptr)) {
  for (int i = 0; !m_display && i < 40; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    m_display = XOpenDisplay(nullptr);
  }
}
XProbe::~XProbe() {
  if (m_display) XCloseDisplay(m_display);
}

std::vector<Window> XProbe::viewableTopLevels() {
  std::vector<Window> out;
  Window root, parent, *children = nullptr;
  unsigned n = 0;
  if (!XQueryTree(m_display, DefaultRootWindow(m_display), &root, &parent, &children, &n)) return out;
  for (unsigned i = 0; i < n; ++i) {
    XWindowAttributes a;
    if (XGetWindowAttributes(m_display, children[i], &a) && a.map_state == IsViewable)
      out.push_back(children[i]);
  }
  if (children) XFree(children);
  return out;
}

std::vector<uint32_t> XProbe::windowPixels(Window w, int32_t& width, int32_t& height) {
  std::vector<uint32_t> out;
  XWindowAttributes a;
  width = height = 0;
  if (!XGetWindowAttributes(m_display, w, &a)) return out;
  XImage* image = XGetImage(m_display, w, 0, 0, a.width, a.height, AllPlanes, ZPixmap);
  if (!image) return out;
  width = a.width;
  height = a.height;
  for (int y = 0; y < a.height; ++y)
    for (int x = 0; x < a.width; ++x) {
      unsigned long p = XGetPixel(image, x, y);  // 0xRRGGBB on a true-colour screen
      out.push_back(static_cast<uint32_t>(((p >> 16) & 0xFF) | (p & 0xFF00) | ((p & 0xFF) << 16)));
    }
  XDestroyImage(image);
  return out;
}

std::vector<XRectangle> XProbe::shape(Window w, int kind) {
  int count = 0, ordering = 0;
  XRectangle* rects = XShapeGetRectangles(m_display, w, kind, &count, &ordering);
  std::vector<XRectangle> out(rects, rects + (rects ? count : 0));
  if (rects) XFree(rects);
  return out;
}

std::vector<unsigned long> XProbe::cardinals(Window w, const char* property) {
  Atom type;
  int format;
  unsigned long count = 0, after;
  unsigned char* data = nullptr;
  std::vector<unsigned long> out;
  if (XGetWindowProperty(m_display, w, XInternAtom(m_display, property, False), 0, 64, False, AnyPropertyType,
                         &type, &format, &count, &after, &data) == Success &&
      data && format == 32) {
    // Xlib hands 32-bit items over as longs, sign-extended: the server's value is the low 32 bits.
    const unsigned long* v = reinterpret_cast<const unsigned long*>(data);
    for (unsigned long i = 0; i < count; ++i) out.push_back(v[i] & 0xFFFFFFFFul);
  }
  if (data) XFree(data);
  return out;
}

std::vector<std::string> XProbe::atomNames(Window w, const char* property) {
  std::vector<std::string> out;
  for (unsigned long a : cardinals(w, property)) {
    char* name = XGetAtomName(m_display, static_cast<Atom>(a));
    if (name) {
      out.emplace_back(name);
      XFree(name);
    }
  }
  return out;
}

Window XProbe::windowUnderPointer() {
  Window root, child = None;
  int rx, ry, wx, wy;
  unsigned mask;
  XQueryPointer(m_display, DefaultRootWindow(m_display), &root, &child, &rx, &ry, &wx, &wy, &mask);
  return child;
}

std::string XProbe::readClipboard(int timeoutMs) {
  Window w = XCreateSimpleWindow(m_display, DefaultRootWindow(m_display), 0, 0, 1, 1, 0, 0, 0);
  Atom clipboard = XInternAtom(m_display, "CLIPBOARD", False),
       utf8 = XInternAtom(m_display, "UTF8_STRING", False),
       prop = XInternAtom(m_display, "PROBE_CLIP", False);
  XConvertSelection(m_display, clipboard, utf8, prop, w, CurrentTime);
  XFlush(m_display);
  std::string out = "(no answer)";
  auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
  XEvent e;
  for (;;) {
    if (XCheckTypedWindowEvent(m_display, w, SelectionNotify, &e)) {
      out = "(refused)";
      if (e.xselection.property != None) {
        Atom type;
        int format;
        unsigned long count, after;
        unsigned char* data = nullptr;
        if (XGetWindowProperty(m_display, w, prop, 0, 1 << 20, True, AnyPropertyType, &type, &format, &count,
                               &after, &data) == Success &&
            data)
          out.assign(reinterpret_cast<char*>(data), count);
        if (data) XFree(data);
      }
      break;
    }
    if (std::chrono::steady_clock::now() > end) break;
    pollfd p{ConnectionNumber(m_display), POLLIN, 0};
    poll(&p, 1, 20);
    XEventsQueued(m_display, QueuedAfterReading);
  }
  XDestroyWindow(m_display, w);
  return out;
}

std::string runCommand(const std::string& command) {
  std::string out;
  if (FILE* f = popen(command.c_str(), "r")) {
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof buf, f)) > 0) out.append(buf, n);
    pclose(f);
  }
  return out;
}

bool haveProgram(const std::string& name) {
  return runCommand("command -v " + name + " 2>/dev/null").find(name) != std::string::npos;
}

}  // namespace corvane::live_test

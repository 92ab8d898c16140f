// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <corvane/containers/vex_l_frame.h>
#include <corvane/containers/vex_l_pane.h>
#include <corvane/containers/vex_pane.h>
#include <corvane/host/extender.h>
#include <corvane/platform/api.h>
#include "support/desktop_fixture.h"

namespace corvane::test {

// A shown form at the screen's top left; containers are placed on it at a known pixel offset.
class ContainerTest : public DesktopTest {
 protected:
  // Where the controls of a test sit on the form, in pixels and in twips (at 15 twips a pixel).
  static constexpr int32_t kOffset = 20;

  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 9000, 6000);
    form->surface().setBackColor(0x303030);
    form->Show();
  }
  void TearDown() override {
    form.reset();
    DesktopTest::TearDown();
  }

  std::shared_ptr<VexPane> addPane(const std::string& name, float left, float top, float width, float height,
                                   PropertyBag* bag = nullptr) {
    return std::dynamic_pointer_cast<VexPane>(form->add("VexPane", name, nullptr, left, top, width, height, bag));
  }

  // A line of the operation log as its integer arguments, e.g. "LineTo(3,4)" gives {3, 4}.
  static std::vector<int> argsOf(const std::string& entry) {
    std::vector<int> out;
    size_t open = entry.find('(');
    if (open == std::string::npos) return out;
    std::string inner = entry.substr(open + 1, entry.size() - open - 2);
    size_t pos = 0;
    while (pos <= inner.size()) {
      size_t comma = inner.find(',', pos);
      std::string piece = inner.substr(pos, comma == std::string::npos ? std::string::npos : comma - pos);
      out.push_back(std::stoi(piece));
      if (comma == std::string::npos) break;
      pos = comma + 1;
    }
    return out;
  }
  static bool startsWith(const std::string& s, const char* prefix) { return s.rfind(prefix, 0) == 0; }

  // The pen lines drawn on a context while f runs, each as {x1, y1, x2, y2} in pixels (the
  // LineTo end point as the log has it).
  template <class F>
  std::vector<std::vector<int>> linesDrawn(HDC hdc, F&& f) {
    gdi().startRecording(hdc);
    f();
    std::vector<std::string> log = gdi().stopRecording(hdc);
    std::vector<std::vector<int>> lines;
    std::vector<int> at;
    for (const std::string& e : log) {
      if (startsWith(e, "MoveToEx(")) {
        at = argsOf(e);
      } else if (startsWith(e, "LineTo(") && at.size() >= 2) {
        std::vector<int> to = argsOf(e);
        lines.push_back({at[0], at[1], to[0], to[1]});
        at = {to[0], to[1]};
      }
    }
    return lines;
  }

  FormRef form;
};

// The expected picture of a control's window: a background with pixel-exact segments on top, drawn
// in the order given, as the drawing routine should have drawn them.
class ExpectedImage {
 public:
  ExpectedImage(int32_t width, int32_t height, COLORREF background)
      : m_w(width), m_h(height), m_px(static_cast<size_t>(width * height), background) {}
  // A horizontal or vertical run, both ends included, clipped to the image.
  void run(int32_t x1, int32_t y1, int32_t x2, int32_t y2, COLORREF c) {
    for (int32_t y = std::min(y1, y2); y <= std::max(y1, y2); ++y)
      for (int32_t x = std::min(x1, x2); x <= std::max(x1, x2); ++x)
        if (x >= 0 && y >= 0 && x < m_w && y < m_h) m_px[static_cast<size_t>(y * m_w + x)] = c;
  }
  COLORREF at(int32_t x, int32_t y) const { return m_px[static_cast<size_t>(y * m_w + x)]; }
  int32_t width() const { return m_w; }
  int32_t height() const { return m_h; }

 private:
  int32_t m_w, m_h;
  std::vector<COLORREF> m_px;
};

}  // namespace corvane::test

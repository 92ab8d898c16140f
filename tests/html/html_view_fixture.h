// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/containers/vex_pane.h>
#include <corvane/host/extender.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/screen.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/api.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/desktop_fixture.h"

namespace corvane::test {

// A shown run-mode form at the top left of the screen (screen and form pixels agree) holding one
// HTML view at (kLeft, kTop), its events logged in the order they come.
class HtmlViewTest : public DesktopTest {
 protected:
  static constexpr int32_t kLeft = 10, kTop = 10, kWidth = 300, kHeight = 160;

  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 9000, 6000, true);
    form->Show();
    const float tpp = Screen::instance().TwipsPerPixelX();
    view = std::dynamic_pointer_cast<VexHTML>(
        form->add("VexHTML", "HTML1", nullptr, kLeft * tpp, kTop * tpp, kWidth * tpp, kHeight * tpp));
    ASSERT_TRUE(view);
    view->setEnableAnchors(true);
    view->Click.connect([this] { log.push_back("Click"); });
    view->DblClick.connect([this] { log.push_back("DblClick"); });
    view->HyperlinkClick.connect(
        [this](std::string& id, std::string& href) { log.push_back("HyperlinkClick " + id + " " + href); });
    view->MouseDown.connect(
        [this](int16_t& b, int16_t&, float&, float&) { log.push_back("MouseDown " + std::to_string(b)); });
    view->MouseMove.connect([this](std::string& id, std::string& href, int16_t& b, int16_t&, float&, float&) {
      log.push_back("MouseMove " + id + " " + href + " " + std::to_string(b));
    });
    view->MouseUp.connect([this](std::string& id, std::string& href, int16_t& b, int16_t&, float&, float&) {
      log.push_back("MouseUp " + id + " " + href + " " + std::to_string(b));
    });
  }
  void TearDown() override {
    view.reset();
    form.reset();
    DesktopTest::TearDown();
  }

  // The chunk of the n-th link of the page.
  const html::HtmlChunk& link(size_t n = 0) {
    return view->document().chunk(view->document().mAnchors.at(n));
  }
  // Screen point inside a link's stored box, shifted by the bars.
  void moveOver(const html::HtmlChunk& c) {
    const int32_t sx = view->hscScroll()->Value(), sy = view->vscScroll()->Value();
    desktop().mouseMove(kLeft + (c.Left + c.Right) / 2 - sx, kTop + (c.Top + c.Bottom) / 2 - sy);
  }
  void moveTo(int32_t x, int32_t y) { desktop().mouseMove(kLeft + x, kTop + y); }
  void moveOffTheView() { desktop().mouseMove(kLeft + kWidth + 100, kTop + kHeight + 100); }
  void clickOn(const html::HtmlChunk& c) {
    moveOver(c);
    desktop().mouseDown(1);
    desktop().mouseUp(1);
  }
  HWND viewport() { return view->picViewPort()->surface().hWnd(); }
  // The viewport's pixels as its window holds them.
  std::vector<COLORREF> viewportPixels() {
    const int32_t w = view->picViewPort()->surface().pixelWidth(),
                  h = view->picViewPort()->surface().pixelHeight();
    std::vector<COLORREF> out;
    out.reserve(static_cast<size_t>(w) * h);
    auto* canvas = desktop().windows().windowCanvas(viewport());
    for (int32_t y = 0; y < h; ++y)
      for (int32_t x = 0; x < w; ++x) out.push_back(canvas->pixel(x, y));
    return out;
  }
  // Whether any pixel of a link's box (on the viewport) has the colour.
  bool boxHolds(const html::HtmlChunk& c, COLORREF colour) {
    auto* canvas = desktop().windows().windowCanvas(viewport());
    const int32_t sx = view->hscScroll()->Value(), sy = view->vscScroll()->Value();
    for (int32_t y = c.Top - sy; y < c.Bottom - sy; ++y)
      for (int32_t x = c.Left - sx; x < c.Right - sx; ++x)
        if (canvas->pixel(x, y) == colour) return true;
    return false;
  }
  size_t count(const std::string& entry) const {
    return static_cast<size_t>(std::count(log.begin(), log.end(), entry));
  }

  FormRef form;
  std::shared_ptr<VexHTML> view;
  std::vector<std::string> log;
};

}  // namespace corvane::test

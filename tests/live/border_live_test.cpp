// SPDX-License-Identifier: MIT
// The border of a child window on the live display: the real window shows the sunken edge round
// an HTML view, composed in process like the headless screen.
// clang-format off
// GoogleTest before the X headers, whose macros (None, Bool) would break it.
#include <gtest/gtest.h>
// clang-format on
#include <corvane/app/application.h>
#include <corvane/host/form.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/api.h>

#include <cstdlib>
#include <vector>

#include "live/live_app_support.h"
#include "live/x_probe.h"

namespace corvane {
namespace {

TEST(BorderLiveTest, TheRealWindowShowsTheSunkenEdgeRoundTheView) {
  if (!std::getenv("DISPLAY")) GTEST_SKIP() << "no X display (run under xvfb-run)";
  live_test::XProbe probe;
  ASSERT_TRUE(probe.ok());
  Application app(live_test::liveOptions());
  FormRef f = Form::create("BorderForm", 200 * 15.0f, 120 * 15.0f);
  f->setCaption("Rahmen");
  f->Move(80 * 15.0f, 80 * 15.0f);
  auto view = f->add<VexHTML>("htmView", 10 * 15.0f, 10 * 15.0f, 100 * 15.0f, 60 * 15.0f);
  view->setBackColor(0x0000FF);
  view->setText("<P>x</P>");
  view->setBorderStyle(1);
  view->setAppearance(1);
  f->Show();
  live_test::settle(app, 300);
  int32_t width = 0, height = 0;
  const std::vector<uint32_t> pixels = probe.windowPixels(live_test::nativeOf(*f), width, height);
  ASSERT_EQ(width, 200);
  ASSERT_EQ(height, 120);
  auto at = [&](int32_t x, int32_t y) { return pixels[static_cast<size_t>(y * width + x)]; };
  using namespace syscolor;
  EXPECT_EQ(at(10, 10), gdi().GetSysColor(BTNSHADOW));
  EXPECT_EQ(at(11, 11), gdi().GetSysColor(DKSHADOW3D));
  EXPECT_EQ(at(109, 69), gdi().GetSysColor(BTNHIGHLIGHT));
  EXPECT_EQ(at(108, 68), gdi().GetSysColor(LIGHT3D));
  EXPECT_EQ(at(12, 12), 0x0000FFu) << "the page starts inside the edge";
}

}  // namespace
}  // namespace corvane

// SPDX-License-Identifier: MIT
// Alerts on the live display under a real X server (the suite runs under xvfb-run), checked from
// outside by a second X client.
// clang-format off
// GoogleTest before the X headers, whose macros (None, Bool) would break it.
#include <gtest/gtest.h>
#include <X11/Xatom.h>
#include <X11/Xutil.h>
// clang-format on
#include <corvane/app/application.h>
#include <corvane/notify/c_mini_alert.h>
#include <corvane/notify/frm_alert.h>
#include <corvane/platform/api.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <set>

#include "desktop/desktop.h"
#include "live/live_window_manager.h"
#include "live/live_app_support.h"
#include "live/x_probe.h"

namespace corvane {
namespace {

using live_test::XProbe;
using live_test::liveOptions;
using live_test::nativeOf;
using live_test::pumpUntil;


Desktop& liveDesktop() { return dynamic_cast<Desktop&>(platform()); }


// Reads the alert window's opacity from outside at each pump of a blocking loop: a message that
// posts itself again is delivered once per pump.
class OpacityWatch {
 public:
  OpacityWatch(XProbe& probe, HWND watched) : m_probe(probe), m_watched(watched) {
    m_proc = user().RegisterWindowProc([this](HWND h, int32_t m, WPARAM, LPARAM) -> LRESULT {
      if (m == wm::USER + 9) {
        Window w = nativeOf(m_watched);
        if (w) {
          XSync(m_probe.display(), False);
          auto v = m_probe.cardinals(w, "_NET_WM_WINDOW_OPACITY");
          if (!v.empty()) seen.insert(v[0]);
        }
        user().PostMessageA(h, wm::USER + 9, 0, 0);
      }
      return 0;
    });
    m_hWnd = user().CreateWindowExA(0, "Watch", "", WS_POPUP, 0, 0, 1, 1, 0, m_proc);
    user().PostMessageA(m_hWnd, wm::USER + 9, 0, 0);
  }
  ~OpacityWatch() {
    user().DestroyWindow(m_hWnd);
    user().UnregisterWindowProc(m_proc);
  }
  std::set<unsigned long> seen;

 private:
  XProbe& m_probe;
  HWND m_watched;
  HWND m_hWnd = 0;
  WNDPROC m_proc = 0;
};

class AlertLiveTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!std::getenv("DISPLAY")) GTEST_SKIP() << "no X display (run under xvfb-run)";
    ASSERT_TRUE(probe.ok());
    frmAlert::AlertStackTop = 0;
  }
  void TearDown() override { frmAlert::AlertStackTop = 0; }
  XProbe probe;
};

TEST_F(AlertLiveTest,
       AlertIsATopMostBorderlessWindowAtTheWorkAreasBottomRightThatFadesWithoutTakingTheFocus) {
  Application app(liveOptions());
  OSVERSIONINFO vista;
  vista.dwPlatformId = 2;
  vista.dwMajorVersion = 6;
  liveDesktop().setVersion(vista);  // a system that fades
  FormRef host = Form::create("Host", 200 * 15.0f, 100 * 15.0f);
  host->setCaption("Anwendung");
  host->Move(50 * 15.0f, 50 * 15.0f);
  host->Show();
  user().SetForegroundWindow(host->hWnd());
  user().SetFocus(host->hWnd());
  pumpUntil(
      app, [] { return false; }, 200);

  // The alert is loaded first, so that its window can be watched while it fades in.
  auto mini = std::make_shared<cMiniAlert>();
  std::vector<std::string> events;
  mini->AlertShowedEvent.connect([&](std::string e, std::string) { events.push_back("AlertShowed " + e); });
  std::unique_ptr<OpacityWatch> watch;
  HWND alertWindow = 0;
  // Watch the window of the next alert: it is the next form named frmAlert.
  auto before = Forms::all().size();
  mini->AlertShow("Live", false, true, "Kopf", "L1", "v", "", "", "", "", 1500, 2700, 0, 0x400000, 0xFF8000,
                  0xFFFFFF, 0x404040, 0xFFFFFF, 0x99FFFF, 0xF5AB7A, 0x993F11, B0Normal, FX1Scroll, Zentriert,
                  130, false);
  ASSERT_EQ(Forms::all().size(), before + 1);
  // The first alert slides; a second one fades, watched from outside during the blocking fade.
  auto first = frmAlert::loaded().back();
  ASSERT_TRUE(pumpUntil(
      app, [&] { return !first->timerEnabled(1); }, 5000));
  {
    // The watch follows the window the fade is about to use: the alert's window is made before
    // DisplayAlert, so the watch starts on the first pump of the fade.
    auto second = frmAlert::Load();
    second->setParent(mini);
    alertWindow = second->form().hWnd();
    watch = std::make_unique<OpacityWatch>(probe, alertWindow);
    int32_t h = 1500, w = 2700, ix = 30, iy = 30, tx = 60, ty = 300;
    second->DisplayAlert("Zweite", "Blendet ein", "L2", "v", "", "", "", "", "", false, false, true, 0xFFFFFF,
                         0x404040, 0xFFFFFF, 0x99FFFF, 0x400000, 0xFF8000, 0xF5AB7A, 0x993F11, B4Flat,
                         FX2Fade, Zentriert, h, w, 130, 10, 0, nullptr, ix, iy, tx, ty, 4500, nullptr);
  }
  std::set<unsigned long> seen = watch->seen;
  watch.reset();
  // Opacity changed during the fade: several translucent steps, up to 230 of 255 at the end.
  EXPECT_GE(seen.size(), 3u);
  EXPECT_TRUE(seen.count(230ul * 0x01010101ul) || seen.count(229ul * 0x01010101ul)) << "ends near 230";
  pumpUntil(
      app, [] { return false; }, 200);
  Window xid = nativeOf(alertWindow);
  ASSERT_NE(xid, 0ul);
  auto opacity = probe.cardinals(xid, "_NET_WM_WINDOW_OPACITY");
  ASSERT_EQ(opacity.size(), 1u);
  EXPECT_LE(opacity[0], 230ul * 0x01010101ul);

  // Borderless, above the others, no task-bar entry, a notification that takes no input focus.
  auto motif = probe.cardinals(xid, "_MOTIF_WM_HINTS");
  ASSERT_EQ(motif.size(), 5u);
  EXPECT_EQ(motif[2], 0ul) << "no decorations";
  auto states = probe.atomNames(xid, "_NET_WM_STATE");
  EXPECT_NE(std::find(states.begin(), states.end(), "_NET_WM_STATE_ABOVE"), states.end());
  EXPECT_NE(std::find(states.begin(), states.end(), "_NET_WM_STATE_SKIP_TASKBAR"), states.end());
  auto type = probe.atomNames(xid, "_NET_WM_WINDOW_TYPE");
  ASSERT_EQ(type.size(), 1u);
  EXPECT_EQ(type[0], "_NET_WM_WINDOW_TYPE_NOTIFICATION");
  XWMHints* hints = XGetWMHints(probe.display(), xid);
  ASSERT_TRUE(hints);
  EXPECT_TRUE(hints->flags & InputHint);
  EXPECT_FALSE(hints->input);
  XFree(hints);
  auto shown = probe.viewableTopLevels();
  auto at = [&](Window w) { return std::find(shown.begin(), shown.end(), w) - shown.begin(); };
  EXPECT_GT(at(xid), at(nativeOf(host->hWnd()))) << "stacked above the application";
  EXPECT_EQ(user().GetForegroundWindow(), host->hWnd()) << "the application keeps the focus";

  // At the bottom right of the work area: the first alert's bottom on the area's bottom edge, the
  // second directly above it.
  Display* d = probe.display();
  auto geometry = [&](Window w) {
    Window root = DefaultRootWindow(d), child;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border, depth;
    Window r;
    int gx, gy;
    XGetGeometry(d, w, &r, &gx, &gy, &width, &height, &border, &depth);
    XTranslateCoordinates(d, w, root, 0, 0, &x, &y, &child);
    return RECT{x, y, x + static_cast<int>(width), y + static_cast<int>(height)};
  };
  RECT one = geometry(nativeOf(first->form().hWnd())), two = geometry(xid);
  int32_t workBottom = user().GetSystemMetrics(SM_CYFULLSCREEN) + 26;
  EXPECT_EQ(one.Right, user().GetSystemMetrics(SM_CXFULLSCREEN));
  EXPECT_EQ(one.Bottom, workBottom);
  EXPECT_EQ(two.Right, user().GetSystemMetrics(SM_CXFULLSCREEN));
  EXPECT_LE(two.Bottom, one.Top + 1);
  EXPECT_GE(two.Bottom, one.Top - 1);
  EXPECT_EQ(std::count(events.begin(), events.end(), "AlertShowed L2"), 1);

  Forms::unloadAll();
}

}  // namespace
}  // namespace corvane

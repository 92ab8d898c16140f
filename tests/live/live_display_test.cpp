// SPDX-License-Identifier: MIT
// The live display under a real X server (the suite runs under xvfb-run): the program's forms are
// checked from outside, by a second X client and by the X tools.
// clang-format off
// GoogleTest before the X headers, whose macros (None, Bool) would break it.
#include <gtest/gtest.h>
#include <X11/Xatom.h>
#include <X11/extensions/Xfixes.h>
#include <X11/extensions/Xrandr.h>
#include <X11/extensions/shape.h>
// clang-format on
#include <corvane/app/application.h>
#include <corvane/app/headless_display.h>
#include <corvane/containers/vex_pane.h>
#include <corvane/frame/global.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_color_label.h>
#include <corvane/widgets/vex_hover_pic.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <thread>

#include "desktop/desktop.h"
#include "live/live_window_manager.h"
#include "live/live_app_support.h"
#include "live/x_probe.h"

namespace corvane {
namespace {

using live_test::haveProgram;
using live_test::runCommand;
using live_test::XProbe;
using live_test::liveOptions;
using live_test::nativeOf;
using live_test::pumpUntil;
using live_test::settle;
using live_test::liveWindows;





FormRef shownForm(const std::string& name, const std::string& caption, int32_t x, int32_t y, int32_t w,
                  int32_t h, OLE_COLOR back = 0xE0FFFF) {
  FormRef f = Form::create(name, w * 15.0f, h * 15.0f);
  f->setCaption(caption);
  f->surface().setBackColor(back);
  f->surface().Cls();
  f->Move(x * 15.0f, y * 15.0f);
  f->Show();
  return f;
}

void xdotool(const std::string& args) { runCommand("xdotool " + args + " 2>&1"); }

class LiveDisplayTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!std::getenv("DISPLAY")) GTEST_SKIP() << "no X display (run under xvfb-run)";
    ASSERT_TRUE(probe.ok());
  }
  XProbe probe;
};

// The sample form of the pixel comparison: a coloured label and a pane on a light back.
FormRef pictureForm(int32_t x, int32_t y) {
  FormRef f = shownForm("Picture", "Bild", x, y, 240, 120);
  auto label = f->add<VexColorLabel>("lblText", 10 * 15.0f, 10 * 15.0f, 200 * 15.0f, 40 * 15.0f);
  label->setCaption("<b>Fett</b> und <c=255>rot</c> und normal");
  f->add<VexPane>("panBox", 20 * 15.0f, 60 * 15.0f, 120 * 15.0f, 40 * 15.0f);
  return f;
}

TEST_F(LiveDisplayTest, TwoFormsAreTwoTopLevelWindowsWithTheirTitlesAtTheirPlaces) {
  Application app(liveOptions());
  FormRef a = shownForm("FormA", "Erstes Formular", 100, 80, 300, 200);
  FormRef b = shownForm("FormB", "Zweites Formular", 500, 300, 320, 180);
  settle(app);
  std::string tree = runCommand("xwininfo -root -children");
  auto line = [&](const std::string& title) {
    size_t at = tree.find("\"" + title + "\"");
    EXPECT_NE(at, std::string::npos) << tree;
    EXPECT_EQ(tree.find("\"" + title + "\"", at + 1), std::string::npos) << "listed twice: " << tree;
    return at == std::string::npos ? std::string() : tree.substr(at, tree.find('\n', at) - at);
  };
  EXPECT_NE(line("Erstes Formular").find("300x200+100+80"), std::string::npos) << tree;
  EXPECT_NE(line("Zweites Formular").find("320x180+500+300"), std::string::npos) << tree;
  auto shown = probe.viewableTopLevels();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), nativeOf(*a)), 1);
  EXPECT_EQ(std::count(shown.begin(), shown.end(), nativeOf(*b)), 1);
  EXPECT_EQ(shown.size(), 2u) << "only the two forms are viewable";

  // Moving, retitling and hiding a form reach the real window.
  a->Move(150 * 15.0f, 90 * 15.0f);
  a->setCaption("Umbenannt");
  b->Hide();
  settle(app);
  tree = runCommand("xwininfo -root -children");
  EXPECT_NE(line("Umbenannt").find("+150+90"), std::string::npos) << tree;
  shown = probe.viewableTopLevels();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), nativeOf(*b)), 0);
}

// Another program destroying a form's window, or a form far off the screen, does not end the
// program: the form gets a new window, and the far one stays at the edge of the server's range.
TEST_F(LiveDisplayTest, WindowsLostToAnotherClientOrFarOffTheScreenAreNoFailure) {
  Application app(liveOptions());
  FormRef a = shownForm("Lost", "Verloren", 100, 100, 200, 100);
  FormRef b = shownForm("Far", "Fern", 300, 300, 200, 100);
  settle(app);
  Window first = nativeOf(*a);
  XDestroyWindow(probe.display(), first);
  XSync(probe.display(), False);
  a->Move(120 * 15.0f, 110 * 15.0f);
  b->Move(100000 * 15.0f, 200 * 15.0f);
  settle(app);
  ASSERT_NE(nativeOf(*a), 0u);
  EXPECT_NE(nativeOf(*a), first);
  auto shown = probe.viewableTopLevels();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), nativeOf(*a)), 1);
  std::string tree = runCommand("xwininfo -root -children");
  EXPECT_NE(tree.find("\"Verloren\""), std::string::npos) << tree;
  EXPECT_NE(tree.find("+120+110"), std::string::npos) << tree;
  XWindowAttributes far;
  ASSERT_TRUE(XGetWindowAttributes(probe.display(), nativeOf(*b), &far));
  EXPECT_EQ(far.x, 32767 - kMaxWindowSide);
}

TEST_F(LiveDisplayTest, WindowPixelsEqualTheHeadlessRendering) {
  std::vector<uint32_t> live;
  int32_t width = 0, height = 0;
  {
    Application app(liveOptions());
    FormRef f = pictureForm(60, 60);
    settle(app, 300);
    live = probe.windowPixels(nativeOf(*f), width, height);
  }
  ASSERT_EQ(width, 240);
  ASSERT_EQ(height, 120);
  Application::Options o;
  o.screenWidth = 1280;
  o.screenHeight = 1024;
  Application app(o);
  FormRef f = pictureForm(60, 60);
  app.processEvents();
  const Canvas& screen = dynamic_cast<Desktop&>(platform()).screen();  // composed once
  int32_t differing = 0, firstX = -1, firstY = -1;
  for (int32_t y = 0; y < height; ++y)
    for (int32_t x = 0; x < width; ++x)
      if (static_cast<uint32_t>(screen.pixel(60 + x, 60 + y)) != live[static_cast<size_t>(y * width + x)]) {
        if (differing++ == 0) firstX = x, firstY = y;
      }
  EXPECT_EQ(differing, 0) << "first at " << firstX << "," << firstY;
  // The comparison means something: the form is not one plain colour.
  EXPECT_NE(std::count(live.begin(), live.end(), live[0]), static_cast<long>(live.size()));
}

TEST_F(LiveDisplayTest, ClickFromAnotherProgramOverAHoverPicRaisesClickAndChangesItsLook) {
  if (!haveProgram("xdotool")) GTEST_SKIP() << "xdotool is missing";
  Application app(liveOptions());
  FormRef f = shownForm("HoverForm", "Hover", 200, 200, 200, 120, 0xFFFFFF);
  auto hover = std::dynamic_pointer_cast<VexHoverPic>(
      f->add("VexHoverPic", "hovOne", nullptr, 40 * 15.0f, 30 * 15.0f));
  hover->setImageUp(Global::LoadIconPicture("hover_demo"));
  int clicks = 0, outs = 0;
  hover->Click.connect([&] { ++clicks; });
  hover->MouseOut.connect([&](float&, float&) { ++outs; });
  xdotool("mousemove 10 10");
  settle(app);
  int32_t w, h;
  auto before = probe.windowPixels(nativeOf(*f), w, h);
  xdotool("mousemove 250 240");  // over the button: 40 + 10, 30 + 10 inside the form
  ASSERT_TRUE(pumpUntil(app, [&] {
    int32_t w2, h2;
    return probe.windowPixels(nativeOf(*f), w2, h2) != before;
  })) << "the hover look did not reach the real window";
  auto hot = probe.windowPixels(nativeOf(*f), w, h);
  xdotool("click 1");
  EXPECT_TRUE(pumpUntil(app, [&] { return clicks == 1; })) << "clicks: " << clicks;
  // Leaving the button brings its first look back, through the leave notice.
  xdotool("mousemove 10 10");
  EXPECT_TRUE(pumpUntil(app, [&] { return outs >= 1; }));
  settle(app);
  auto after = probe.windowPixels(nativeOf(*f), w, h);
  EXPECT_EQ(after, before);
  EXPECT_NE(hot, before);
}

TEST_F(LiveDisplayTest, TypedKeysReachKeyDownWithTheirCodesAndShiftState) {
  if (!haveProgram("xdotool")) GTEST_SKIP() << "xdotool is missing";
  Application app(liveOptions());
  FormRef f = shownForm("KeyForm", "Tasten", 300, 300, 200, 120);
  auto pane = f->add<VexPane>("panKeys", 10 * 15.0f, 10 * 15.0f, 100 * 15.0f, 50 * 15.0f);
  std::vector<std::pair<int, int>> downs;
  pane->KeyDown.connect([&](int16_t& k, int16_t& s) { downs.emplace_back(k, s); });
  settle(app);
  user().SetFocus(pane->hWnd());
  xdotool("windowfocus --sync " + std::to_string(nativeOf(*f)));
  xdotool("key a");
  xdotool("key shift+F5");
  ASSERT_TRUE(pumpUntil(app, [&] { return downs.size() >= 3; })) << downs.size();
  EXPECT_EQ(downs[0], std::make_pair(65, 0));   // "A", no shift
  EXPECT_EQ(downs[1].first, 16);                // the shift key itself
  EXPECT_EQ(downs[2], std::make_pair(116, 1));  // F5 with shift
}

TEST_F(LiveDisplayTest, CaptureKeepsTheMouseOutsideTheWindow) {
  if (!haveProgram("xdotool")) GTEST_SKIP() << "xdotool is missing";
  Application app(liveOptions());
  FormRef f = shownForm("CaptureForm", "Fang", 100, 100, 200, 100);
  float lastX = 0, lastY = 0;
  int moves = 0;
  f->surface().MouseMove.connect(
      [&](int16_t&, int16_t&, float& x, float& y) { lastX = x, lastY = y, ++moves; });
  settle(app);
  user().SetCapture(f->hWnd());
  xdotool("mousemove 600 500");
  EXPECT_TRUE(pumpUntil(app, [&] { return moves > 0 && lastX == 500 * 15.0f; }))
      << moves << " moves, last at " << lastX << "," << lastY;
  EXPECT_EQ(lastY, 400 * 15.0f);
  user().ReleaseCapture();
  moves = 0;
  xdotool("mousemove 620 520");
  settle(app);
  EXPECT_EQ(moves, 0) << "without capture the form hears nothing outside it";
  POINTAPI p;
  user().GetCursorPos(p);
  EXPECT_EQ(p.x, 620);
  EXPECT_EQ(p.y, 520);
}

// The subclassing of a window sees the real traffic: a double click and the wheel.
TEST_F(LiveDisplayTest, DoubleClickAndWheelReachTheSubclassedWindowProcedure) {
  if (!haveProgram("xdotool")) GTEST_SKIP() << "xdotool is missing";
  Application app(liveOptions());
  FormRef f = shownForm("WheelForm", "Rad", 200, 150, 300, 200);
  HWND h = f->hWnd();
  std::vector<std::pair<int32_t, WPARAM>> seen;
  WNDPROC old = user().GetWindowLongA(h, GWL_WNDPROC);
  WNDPROC hook = user().RegisterWindowProc([&](HWND w, int32_t msg, WPARAM wp, LPARAM lp) -> LRESULT {
    if (msg == wm::LBUTTONDOWN || msg == wm::LBUTTONDBLCLK || msg == wm::MOUSEWHEEL)
      seen.emplace_back(msg, wp);
    return user().CallWindowProcA(old, w, msg, wp, lp);
  });
  user().SetWindowLongA(h, GWL_WNDPROC, hook);
  settle(app);
  xdotool("mousemove 300 250");
  xdotool("click --repeat 2 --delay 80 1");
  xdotool("click 5");
  xdotool("click 4");
  EXPECT_TRUE(pumpUntil(app, [&] { return seen.size() >= 4; })) << seen.size();
  user().SetWindowLongA(h, GWL_WNDPROC, old);
  user().UnregisterWindowProc(hook);
  ASSERT_EQ(seen.size(), 4u);
  EXPECT_EQ(seen[0].first, wm::LBUTTONDOWN);
  EXPECT_EQ(seen[1].first, wm::LBUTTONDBLCLK);
  EXPECT_EQ(seen[2].first, wm::MOUSEWHEEL);
  EXPECT_EQ(static_cast<int16_t>(seen[2].second >> 16), -120);  // towards the user
  EXPECT_EQ(seen[3].first, wm::MOUSEWHEEL);
  EXPECT_EQ(static_cast<int16_t>(seen[3].second >> 16), 120);
}

// The size and serial of the cursor the server shows now.
std::pair<int, unsigned long> shownCursor(Display* d) {
  XFixesCursorImage* c = XFixesGetCursorImage(d);
  if (!c) return {0, 0};
  std::pair<int, unsigned long> out{c->width * 1000 + c->height, c->cursor_serial};
  XFree(c);
  return out;
}

TEST_F(LiveDisplayTest, TheMousePointerIsTheRealCursorOverTheWindow) {
  if (!haveProgram("xdotool")) GTEST_SKIP() << "xdotool is missing";
  Application app(liveOptions());
  FormRef f = shownForm("CursorForm", "Zeiger", 200, 200, 200, 150);
  PictureRef icon = Global::LoadIconPicture("hover_demo");
  SIZE size = gdi().GetImageSize(icon->Handle());
  ASSERT_GT(size.cx, 0);
  xdotool("mousemove 20 20");  // over the root: its cursor
  settle(app);
  auto root = shownCursor(probe.display());
  xdotool("mousemove 300 260");
  settle(app);
  EXPECT_EQ(shownCursor(probe.display()).second, root.second) << "pointer 0 keeps the default";
  f->surface().setMouseIcon(icon);
  f->surface().setMousePointer(99);
  settle(app);
  auto custom = shownCursor(probe.display());
  EXPECT_NE(custom.second, root.second);
  EXPECT_EQ(custom.first, std::min<int>(size.cx, 64) * 1000 + std::min<int>(size.cy, 64)) << "the image's size";
  f->surface().setMousePointer(2);
  settle(app);
  auto cross = shownCursor(probe.display());
  EXPECT_NE(cross.second, custom.second);
  EXPECT_NE(cross.second, root.second);
  f->surface().setMousePointer(0);
  settle(app);
  EXPECT_EQ(shownCursor(probe.display()).second, root.second);
}

TEST_F(LiveDisplayTest, ClipCursorKeepsTheRealPointerInItsRectangle) {
  if (!haveProgram("xdotool")) GTEST_SKIP() << "xdotool is missing";
  Application app(liveOptions());
  FormRef f = shownForm("ClipForm", "Klammer", 100, 100, 300, 200);
  settle(app);
  xdotool("mousemove 150 150");
  settle(app);
  RECT clip{100, 100, 400, 300};
  user().ClipCursor(&clip);
  xdotool("mousemove 700 600");
  settle(app, 300);
  POINTAPI p;
  user().GetCursorPos(p);
  EXPECT_EQ(p.x, 399);
  EXPECT_EQ(p.y, 299);
  std::string where = runCommand("xdotool getmouselocation");
  EXPECT_NE(where.find("x:399 y:299"), std::string::npos) << where;
  user().ClipCursor(nullptr);
  xdotool("mousemove 700 600");
  settle(app);
  user().GetCursorPos(p);
  EXPECT_EQ(p.x, 700);
}

TEST_F(LiveDisplayTest, ARegionIsTheWindowsShapeAndClicksOutsideItReachTheWindowBelow) {
  if (!haveProgram("xdotool")) GTEST_SKIP() << "xdotool is missing";
  Application app(liveOptions());
  FormRef below = shownForm("Below", "Unten", 50, 50, 400, 300, 0xC0C0C0);
  FormRef shaped = shownForm("Shaped", "Geformt", 100, 100, 200, 100, 0x0000FF);
  HRGN r = gdi().CreateRectRgn(0, 0, 50, 40);
  HRGN s = gdi().CreateRectRgn(100, 0, 200, 100);
  gdi().CombineRgn(r, r, s, RGN_OR);
  gdi().DeleteObject(s);
  user().SetWindowRgn(shaped->hWnd(), r, true);
  int belowClicks = 0, shapedClicks = 0;
  below->surface().Click.connect([&] { ++belowClicks; });
  shaped->surface().Click.connect([&] { ++shapedClicks; });
  settle(app);
  auto rects = probe.shape(nativeOf(*shaped), ShapeBounding);
  int64_t area = 0;
  for (const XRectangle& q : rects) area += int64_t(q.width) * q.height;
  EXPECT_EQ(area, 50 * 40 + 100 * 100);
  EXPECT_EQ(probe.shape(nativeOf(*shaped), ShapeInput).size(), rects.size());
  // Inside the shape the shaped form gets the click.
  xdotool("mousemove 250 150");
  settle(app);
  EXPECT_EQ(probe.windowUnderPointer(), nativeOf(*shaped));
  xdotool("click 1");
  EXPECT_TRUE(pumpUntil(app, [&] { return shapedClicks == 1; }));
  // A point in the form's box but outside its shape: the window below gets the click.
  xdotool("mousemove 170 150");
  settle(app);
  EXPECT_EQ(probe.windowUnderPointer(), nativeOf(*below));
  xdotool("click 1");
  EXPECT_TRUE(pumpUntil(app, [&] { return belowClicks == 1; }));
  EXPECT_EQ(shapedClicks, 1);
}

TEST_F(LiveDisplayTest, LayeredTopMostAndToolWindowsCarryTheirStates) {
  Application app(liveOptions());
  FormRef top = shownForm("TopMost", "Oben", 100, 100, 200, 100);
  FormRef other = shownForm("Other", "Anderes", 150, 150, 200, 100);
  user().SetWindowPos(top->hWnd(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  user().SetWindowLongA(other->hWnd(), GWL_EXSTYLE,
                        user().GetWindowLongA(other->hWnd(), GWL_EXSTYLE) | WS_EX_LAYERED | WS_EX_TOOLWINDOW);
  user().SetLayeredWindowAttributes(other->hWnd(), 0, 200, LWA_ALPHA);
  other->Show();  // shown again after the top-most one: it still stays below
  settle(app);
  auto opacity = probe.cardinals(nativeOf(*other), "_NET_WM_WINDOW_OPACITY");
  ASSERT_EQ(opacity.size(), 1u);
  EXPECT_EQ(opacity[0], 200ul * 0x01010101ul);  // alpha 200 of 255 on the full 32-bit scale
  EXPECT_TRUE(probe.cardinals(nativeOf(*top), "_NET_WM_WINDOW_OPACITY").empty());
  auto topStates = probe.atomNames(nativeOf(*top), "_NET_WM_STATE");
  EXPECT_NE(std::find(topStates.begin(), topStates.end(), "_NET_WM_STATE_ABOVE"), topStates.end());
  auto otherStates = probe.atomNames(nativeOf(*other), "_NET_WM_STATE");
  EXPECT_NE(std::find(otherStates.begin(), otherStates.end(), "_NET_WM_STATE_SKIP_TASKBAR"),
            otherStates.end());
  EXPECT_EQ(std::find(otherStates.begin(), otherStates.end(), "_NET_WM_STATE_ABOVE"), otherStates.end());
  auto shown = probe.viewableTopLevels();
  auto at = [&](Window w) { return std::find(shown.begin(), shown.end(), w) - shown.begin(); };
  EXPECT_GT(at(nativeOf(*top)), at(nativeOf(*other))) << "the top-most window is stacked above";
  // Taking the layered style away makes the window opaque again.
  user().SetWindowLongA(other->hWnd(), GWL_EXSTYLE, 0);
  settle(app);
  EXPECT_TRUE(probe.cardinals(nativeOf(*other), "_NET_WM_WINDOW_OPACITY").empty());
}

TEST_F(LiveDisplayTest, ClipboardTextIsReadByAnotherClient) {
  Application app(liveOptions());
  FormRef f = shownForm("ClipForm", "Ablage", 10, 10, 100, 60);
  const std::string text = "Grüße aus der Ablage\r\nZeile zwei";
  ASSERT_TRUE(user().setClipboardText(text));
  std::string read;
  bool done = false;
  std::thread reader([&] {
    XProbe other;
    read = other.readClipboard(3000);
    done = true;
  });
  pumpUntil(
      app, [&] { return done; }, 4000);
  reader.join();
  EXPECT_EQ(read, text);
  EXPECT_EQ(user().clipboardText(), text);
}

TEST_F(LiveDisplayTest, ScreenFactsComeFromTheDisplay) {
  Display* d = probe.display();
  Window root = DefaultRootWindow(d);
  // A work area as a window manager with a task bar of 40 pixels would publish it.
  long area[4] = {0, 0, DisplayWidth(d, 0), DisplayHeight(d, 0) - 40};
  Atom workArea = XInternAtom(d, "_NET_WORKAREA", False);
  XChangeProperty(d, root, workArea, XA_CARDINAL, 32, PropModeReplace, reinterpret_cast<unsigned char*>(area),
                  4);
  // A display scale of 144 dots per inch: 10 twips per pixel.
  XChangeProperty(d, root, XA_RESOURCE_MANAGER, XA_STRING, 8, PropModeReplace,
                  reinterpret_cast<const unsigned char*>("Xft.dpi:\t144\n"), 13);
  XSync(d, False);
  {
    Application app(liveOptions());
    EXPECT_EQ(user().GetSystemMetrics(SM_CXSCREEN), DisplayWidth(d, 0));
    EXPECT_EQ(user().GetSystemMetrics(SM_CYSCREEN), DisplayHeight(d, 0));
    EXPECT_EQ(user().GetSystemMetrics(SM_CXFULLSCREEN), DisplayWidth(d, 0));
    EXPECT_EQ(user().GetSystemMetrics(SM_CYFULLSCREEN), DisplayHeight(d, 0) - 40 - 26);  // less a caption
    int monitors = 0;
    XRRFreeMonitors(XRRGetMonitors(d, root, True, &monitors));
    EXPECT_EQ(user().GetSystemMetrics(SM_CMONITORS), std::max(monitors, 1));
    EXPECT_EQ(Screen::instance().TwipsPerPixelX(), 10);
    EXPECT_EQ(Screen::instance().TwipsPerPixelY(), 10);
  }
  XDeleteProperty(d, root, workArea);
  XDeleteProperty(d, root, XA_RESOURCE_MANAGER);
  XSync(d, False);
}

// A control that counts its window's timer ticks and ends the loop at the tenth.
class TickCounter : public HostedControl {
 public:
  std::string typeName() const override { return "TickCounter"; }
  int ticks = 0;

 protected:
  LRESULT windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override {
    if (msg == wm::TIMER && ++ticks == 10) Application::current()->quit(0);
    return HostedControl::windowProc(hWnd, msg, wParam, lParam);
  }
};

TEST_F(LiveDisplayTest, ALoopWithOneTimerOfASecondSleepsBetweenTicks) {
  Application app(liveOptions());
  FormRef f = shownForm("TimerForm", "Zeitgeber", 100, 100, 200, 100);
  auto counter = std::make_shared<TickCounter>();
  f->add(counter, "TickCounter", "tmrTick");
  user().SetTimer(counter->surface().hWnd(), 1, 1000);
  settle(app);
  auto cpu = [] {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_utime.tv_sec + u.ru_stime.tv_sec + (u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
  };
  double cpu0 = cpu();
  auto t0 = std::chrono::steady_clock::now();
  app.run();
  double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
  double used = cpu() - cpu0;
  std::printf("[ figure ] 10 ticks of a 1 s timer: %.3f s wall, %.4f s CPU, %.3f %% of a core\n", wall, used,
              100 * used / wall);
  EXPECT_EQ(counter->ticks, 10);
  EXPECT_GT(wall, 9.5);
  EXPECT_LT(used / wall, 0.01);
}

}  // namespace
}  // namespace corvane

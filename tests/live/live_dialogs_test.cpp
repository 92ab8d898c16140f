// SPDX-License-Identifier: MIT
// Size limits and common dialogs on the live display under a real X server: the window's size
// hints and sizes are read from outside, and a file dialog is answered by typed keys.
// clang-format off
// GoogleTest before the X headers, whose macros (None, Bool) would break it.
#include <gtest/gtest.h>
#include <X11/Xutil.h>
// clang-format on
#include <corvane/app/application.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/system/font_view_dlg.h>
#include <corvane/system/form_min_max.h>
#include <corvane/system/open_save_dlg.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <regex>
#include <thread>

#include "desktop/desktop.h"
#include "live/live_dialogs.h"
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




FormRef shownForm(const std::string& name, const std::string& caption, int32_t x, int32_t y, int32_t w,
                  int32_t h) {
  FormRef f = Form::create(name, w * 15.0f, h * 15.0f);
  f->setCaption(caption);
  f->Move(x * 15.0f, y * 15.0f);
  f->Show();
  return f;
}

// Two numbers after a label of xprop's output, "<label> 200 by 150".
std::pair<int, int> hintOf(const std::string& xprop, const std::string& label) {
  std::smatch m;
  if (!std::regex_search(xprop, m, std::regex(label + ": (\\d+) by (\\d+)"))) return {-1, -1};
  return {std::stoi(m[1]), std::stoi(m[2])};
}

class LiveDialogsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!std::getenv("DISPLAY")) GTEST_SKIP() << "no X display (run under xvfb-run)";
    if (!haveProgram("xdotool") || !haveProgram("xprop")) GTEST_SKIP() << "xdotool and xprop are needed";
    ASSERT_TRUE(probe.ok());
  }
  std::pair<int, int> outerSize(Window w) {
    XWindowAttributes a{};
    XGetWindowAttributes(probe.display(), w, &a);
    return {a.width, a.height};
  }
  XProbe probe;
};

TEST_F(LiveDialogsTest, FormSizeLimitsAreTheWindowsSizeHintsAndHoldAResizeFromOutside) {
  Application app(liveOptions());
  FormRef form = shownForm("Limits", "Grenzen", 100, 100, 300, 200);
  cFormMinMax limits;
  limits.AttachEx(form->hWnd(), 3000, 2250, 9000, 7500);
  const double twips = Screen::instance().TwipsPerPixelX();
  const int minW = CLng(3000 / twips), minH = CLng(2250 / twips), maxW = CLng(9000 / twips),
            maxH = CLng(7500 / twips);
  pumpUntil(app, [&] { return nativeOf(*form) != 0; });
  const Window xid = nativeOf(*form);
  ASSERT_NE(xid, 0u);
  std::string hints;
  pumpUntil(app, [&] {
    hints = runCommand("xprop -id " + std::to_string(xid) + " WM_NORMAL_HINTS");
    return hintOf(hints, "program specified minimum size").first == minW;
  });
  EXPECT_EQ(hintOf(hints, "program specified minimum size"), std::make_pair(minW, minH)) << hints;
  EXPECT_EQ(hintOf(hints, "program specified maximum size"), std::make_pair(maxW, maxH)) << hints;

  // Another program asks for a size below the minimum: the window ends at the minimum.
  runCommand("xdotool windowsize " + std::to_string(xid) + " 50 40 2>&1");
  EXPECT_TRUE(pumpUntil(app, [&] { return outerSize(xid) == std::make_pair(minW, minH); }))
      << outerSize(xid).first << "x" << outerSize(xid).second;
  RECT r;
  user().GetWindowRect(form->hWnd(), r);
  EXPECT_EQ(r.Right - r.Left, minW);
  EXPECT_EQ(r.Bottom - r.Top, minH);

  // Within the limits a size from outside is taken as it is.
  runCommand("xdotool windowsize " + std::to_string(xid) + " 350 260 2>&1");
  EXPECT_TRUE(pumpUntil(app, [&] {
    RECT r;
    user().GetWindowRect(form->hWnd(), r);
    return r.Right - r.Left == 350 && r.Bottom - r.Top == 260;
  }));

  // Without the limits the window keeps the size the program gives it, as before.
  limits.Detach();
  pumpUntil(app, [&] {
    hints = runCommand("xprop -id " + std::to_string(xid) + " WM_NORMAL_HINTS");
    return hintOf(hints, "program specified minimum size").first == 350;
  });
  EXPECT_EQ(hintOf(hints, "program specified minimum size"), std::make_pair(350, 260)) << hints;
}

TEST_F(LiveDialogsTest, AFileDialogAnsweredByTypedKeysGivesItsPathToReturnPath) {
  // No desktop portal: the GTK dialog is the one shown, also where a session bus is about.
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
  setenv("GSETTINGS_BACKEND", "memory", 1);  // the dialog's own settings stay in the process
  const auto folder =
      std::filesystem::temp_directory_path() / ("corvane_live_dialog_" + std::to_string(getpid()));
  std::filesystem::create_directories(folder);
  const std::string answer = (folder / "Antwort.txt").string();
  std::ofstream(answer) << "x";

  Application app(liveOptions());
  FormRef form = shownForm("Owner", "Besitzer", 120, 120, 320, 200);
  pumpUntil(app, [&] { return nativeOf(*form) != 0; });
  EXPECT_FALSE(LiveDialogs::gtkStarted()) << "GTK is set up only when a dialog is asked for";
  EXPECT_FALSE(LiveDialogs::moduleLoaded()) << "the dialogs module is loaded only when a dialog is asked for";

  OpenSaveDLG dialog;
  dialog.setOwner(form->hWnd());
  dialog.setDialogTitle("Corvane Testdatei");
  dialog.setFilter(std::string("Text\0*.txt\0Alle\0*\0", 19));
  dialog.setInitDir(folder.string());

  // A second program waits for the dialog, types the path and presses Return; if the dialog is
  // still there after a few tries it presses Escape, so that the test cannot hang.
  std::thread answerer([&] {
    const std::string find =
        "xdotool search --sync --onlyvisible --name 'Corvane Testdatei' 2>/dev/null | head -1";
    std::string id = runCommand("timeout 20 " + find);
    while (!id.empty() && (id.back() == '\n')) id.pop_back();
    if (id.empty()) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    runCommand("xdotool windowfocus --sync " + id + " 2>&1");
    runCommand("xdotool type --delay 40 '" + answer + "' 2>&1");
    for (int i = 0; i < 4; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(700));
      if (runCommand("xdotool search --onlyvisible --name 'Corvane Testdatei' 2>/dev/null").empty()) return;
      runCommand("xdotool windowfocus " + id + " key Return 2>&1");
    }
    runCommand("xdotool windowfocus " + id + " key Escape 2>&1");
  });
  bool open = true;
  bool shown = false;
  EXPECT_NO_THROW(shown = dialog.Show(open));
  answerer.join();
  EXPECT_TRUE(LiveDialogs::moduleLoaded());
  EXPECT_TRUE(LiveDialogs::gtkStarted());
  EXPECT_TRUE(shown);
  EXPECT_EQ(dialog.ReturnPath(), answer);
  std::filesystem::remove_all(folder);
}

// Accepts the dialog titled title with Return, or cancels it with Escape after a few tries.
void answerWithReturn(const std::string& title) {
  std::string id = runCommand("timeout 20 xdotool search --sync --onlyvisible --name '" + title +
                              "' 2>/dev/null | head -1");
  while (!id.empty() && id.back() == '\n') id.pop_back();
  if (id.empty()) return;
  for (int i = 0; i < 4; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(700));
    if (runCommand("xdotool search --onlyvisible --name '" + title + "' 2>/dev/null").empty()) return;
    runCommand("xdotool windowfocus " + id + " key Return 2>&1");
  }
  runCommand("xdotool windowfocus " + id + " key Escape 2>&1");
}

TEST_F(LiveDialogsTest, AFontDialogAcceptedWithReturnGivesItsFontWithoutEffects) {
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
  setenv("GSETTINGS_BACKEND", "memory", 1);
  Application app(liveOptions());
  FormRef form = shownForm("FontOwner", "Schriftbesitzer", 140, 140, 300, 200);
  pumpUntil(app, [&] { return nativeOf(*form) != 0; });
  FontViewDLG dialog;
  dialog.setOwner(form->hWnd());
  std::thread answerer(answerWithReturn, "Schriftart");
  bool shown = false;
  EXPECT_NO_THROW(shown = dialog.Show());
  answerer.join();
  EXPECT_TRUE(shown);
  EXPECT_FALSE(dialog.FontName().empty());
  EXPECT_GT(dialog.FontSize(), 0);
  EXPECT_FALSE(dialog.Underline());
  EXPECT_FALSE(dialog.StrikeOut());
  EXPECT_EQ(dialog.Color(), 0);  // black, as the colour button starts
}

}  // namespace
}  // namespace corvane

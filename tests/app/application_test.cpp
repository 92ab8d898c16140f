// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <corvane/app/application.h>
#include <corvane/app/headless_display.h>
#include <corvane/containers/vex_pane.h>
#include <corvane/host/form_file.h>
#include <corvane/host/std_picture.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/widgets/vex_color_label.h>

namespace corvane {
namespace {

// A control that counts its Terminate calls and the timer messages its window receives, and
// unloads its form at a chosen timer tick.
class TickingControl : public HostedControl {
 public:
  std::string typeName() const override { return "TickingControl"; }
  void Terminate() override { ++terminated; }
  int terminated = 0;
  int ticks = 0;
  int unloadAtTick = -1;
  int quitAtTick = -1;

 protected:
  LRESULT windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override {
    if (msg == wm::TIMER) {
      ++ticks;
      if (ticks == unloadAtTick) controlSite().form->Unload();
      if (ticks == quitAtTick) Application::current()->quit(7);
    }
    return HostedControl::windowProc(hWnd, msg, wParam, lParam);
  }
};

TEST(ApplicationTest, CreatingAFormWithoutApplicationIsAClearError) {
  ASSERT_EQ(currentPlatform(), nullptr);
  try {
    Form::create("NoApp");
    FAIL() << "a form was created without a platform";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), err::ObjectNotSet);
    EXPECT_NE(e.description().find("Application"), std::string::npos) << e.description();
  }
  EXPECT_TRUE(Forms::all().empty());
}

TEST(ApplicationTest, DrawingWithoutApplicationIsAClearError) {
  ASSERT_EQ(currentPlatform(), nullptr);
  try {
    gdi().CreateSolidBrush(0);
    FAIL() << "a drawing call ran without a platform";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), err::ObjectNotSet);
    EXPECT_NE(e.description().find("No platform"), std::string::npos) << e.description();
  }
}

TEST(ApplicationTest, InstallsItsDisplayAndReleasesIt) {
  {
    Application app;
    EXPECT_EQ(Application::current(), &app);
    EXPECT_NE(currentPlatform(), nullptr);
    EXPECT_EQ(app.displayKind(), Application::DisplayKind::Headless);
  }
  EXPECT_EQ(Application::current(), nullptr);
  EXPECT_EQ(currentPlatform(), nullptr);
}

TEST(ApplicationTest, OnlyOneRunsAtATime) {
  Application app;
  EXPECT_THROW(Application second, RuntimeError);
  EXPECT_EQ(Application::current(), &app);
}

TEST(ApplicationTest, EndUnloadsTheFormsAndTerminatesTheirControls) {
  auto control = std::make_shared<TickingControl>();
  {
    Application app;
    auto form = Form::create("Main");
    form->add(control, "TickingControl", "tick1");
    EXPECT_EQ(app.forms().size(), 1u);
  }
  EXPECT_EQ(control->terminated, 1);
  EXPECT_FALSE(control->isSited());
  EXPECT_TRUE(Forms::all().empty());
}

TEST(ApplicationTest, FormsControlsAndPicturesKeptBeyondTheEndAreReleasedSafely) {
  FormRef form;
  std::shared_ptr<VexColorLabel> label;
  PictureRef picture;
  {
    Application app;
    form = Form::create("Kept");
    label = form->add<VexColorLabel>("lblKept", 0, 0, 1500, 300);
    picture = LoadResPicture("hover_demo");
    ASSERT_NE(picture->Handle(), 0);
  }
  EXPECT_FALSE(label->isSited());
  // Dropping them after the end must not reach for the gone display (AddressSanitizer watches).
  picture.reset();
  label.reset();
  form.reset();
  EXPECT_EQ(currentPlatform(), nullptr);
}

TEST(ApplicationTest, RunReturnsWhenTheLastFormUnloads) {
  Application app;
  auto form = Form::create("Main");
  auto control = std::make_shared<TickingControl>();
  control->unloadAtTick = 3;
  form->add(control, "TickingControl", "tick1");
  user().SetTimer(control->surface().hWnd(), 1, 100);
  uint32_t start = app.headless().tickCount();
  EXPECT_EQ(app.run(), 0);
  EXPECT_EQ(control->ticks, 3);
  EXPECT_TRUE(app.forms().empty());
  EXPECT_EQ(app.headless().tickCount() - start, 300u) << "the virtual clock jumps from timer to timer";
}

TEST(ApplicationTest, RunReturnsWhenNothingIsLeftToHappen) {
  Application app;
  auto form = Form::create("Idle");
  EXPECT_EQ(app.run(), 0);
  EXPECT_EQ(app.forms().size(), 1u) << "the form stays loaded";
}

TEST(ApplicationTest, QuitEndsRunWithItsCode) {
  Application app;
  auto form = Form::create("Main");
  auto control = std::make_shared<TickingControl>();
  control->quitAtTick = 2;
  form->add(control, "TickingControl", "tick1");
  user().SetTimer(control->surface().hWnd(), 1, 50);
  EXPECT_EQ(app.run(), 7);
  EXPECT_EQ(control->ticks, 2);
  EXPECT_EQ(app.forms().size(), 1u) << "quit leaves the forms loaded";
}

TEST(ApplicationTest, ProcessEventsDeliversPostedMessages) {
  Application app;
  auto form = Form::create("Main");
  auto control = std::make_shared<TickingControl>();
  form->add(control, "TickingControl", "tick1");
  user().PostMessageA(control->surface().hWnd(), wm::TIMER, 1, 0);
  user().PostMessageA(control->surface().hWnd(), wm::TIMER, 1, 0);
  EXPECT_EQ(control->ticks, 0);
  EXPECT_EQ(app.processEvents(), 2);
  EXPECT_EQ(control->ticks, 2);
}

TEST(ApplicationTest, HeadlessDisplaySavesTheScreenAndAFormAsPng) {
  Application::Options options;
  options.screenWidth = 320;
  options.screenHeight = 200;
  Application app(options);
  HeadlessDisplay& display = app.headless();
  EXPECT_EQ(display.width(), 320);
  auto form = Form::create("Shot", 1500, 750);
  form->surface().setBackColor(0x0000FF);
  form->Show();
  EXPECT_EQ(display.pixel(5, 5), 0x0000FF);
  EXPECT_EQ(display.pixel(-1, 5), -1);
  auto dir = std::filesystem::temp_directory_path();
  auto screenPath = (dir / "corvane_app_screen.png").string();
  auto formPath = (dir / "corvane_app_form.png").string();
  ASSERT_TRUE(display.saveScreenPng(screenPath));
  ASSERT_TRUE(display.saveFormPng(*form, formPath));
  for (const auto& path : {screenPath, formPath}) {
    std::ifstream in(path, std::ios::binary);
    char signature[8] = {};
    in.read(signature, 8);
    EXPECT_EQ(std::string(signature + 1, 3), "PNG") << path;
    std::remove(path.c_str());
  }
}

TEST(ApplicationTest, HeadlessClockMovesOnlyWhenTold) {
  Application app;
  uint32_t t0 = app.headless().tickCount();
  app.processEvents();
  EXPECT_EQ(app.headless().tickCount(), t0);
  app.headless().advance(250);
  EXPECT_EQ(app.headless().tickCount(), t0 + 250);
}

TEST(ApplicationTest, HeadlessClickReachesAControl) {
  Application app;
  auto form = Form::create("Main", 3000, 1500);
  form->Show();
  auto label = form->add<VexColorLabel>("lblClick", 0, 0, 1500, 300);
  int clicks = 0;
  label->Click.connect([&clicks] { ++clicks; });
  app.headless().click(10, 10);
  EXPECT_EQ(clicks, 1);
}

TEST(TypedCreationTest, AddReturnsTheTypedControlSitedOnTheForm) {
  Application app;
  auto form = Form::create("Main", 6000, 4500);
  std::shared_ptr<VexColorLabel> label = form->add<VexColorLabel>("lblTitle", 150, 300, 3000, 450);
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(form->control("lblTitle"), label);
  EXPECT_EQ(form->classNameOf(*label), "VexColorLabel");
  EXPECT_EQ(label->surface().pixelWidth(), 200);
  label->setCaption("<b>Typed</b>");
  EXPECT_EQ(label->get("Caption").toString(), "<b>Typed</b>");
}

TEST(TypedCreationTest, AddInsideAContainer) {
  Application app;
  auto form = Form::create("Main", 6000, 4500);
  auto pane = form->add<VexPane>("paneMain", 0, 0, 4500, 3000);
  auto label = form->add<VexColorLabel>("lblInside", *pane, 150, 150, 1500, 300);
  EXPECT_EQ(label->controlSite().container, pane.get());
  EXPECT_EQ(user().GetParent(label->surface().hWnd()), pane->surface().hWnd());
}

TEST(TypedCreationTest, DuplicateNameIsRefused) {
  Application app;
  auto form = Form::create("Main");
  form->add<VexColorLabel>("lbl1");
  EXPECT_THROW(form->add<VexColorLabel>("LBL1"), RuntimeError);
  EXPECT_EQ(form->controls().size(), 1u);
}

TEST(TypedCreationTest, TypedAndNamedControlsRoundTripThroughAFormFile) {
  Application app;
  auto form = Form::create("Saved", 6000, 4500);
  form->add<VexColorLabel>("lblTyped", 0, 0, 3000, 300)->setCaption("typed");
  form->add("VexColorLabel", "lblNamed", nullptr, 0, 600, 3000, 300)->let("Caption", Variant("named"));
  std::string json = FormFile::save(*form);
  form->Unload();
  FormRef loaded = FormFile::load(json);
  auto typed = std::dynamic_pointer_cast<VexColorLabel>(loaded->control("lblTyped"));
  auto named = std::dynamic_pointer_cast<VexColorLabel>(loaded->control("lblNamed"));
  ASSERT_NE(typed, nullptr);
  ASSERT_NE(named, nullptr);
  EXPECT_EQ(typed->Caption(), "typed");
  EXPECT_EQ(named->Caption(), "named");
}

// Closing a form's window (the window manager's close box on a live display) unloads the form:
// its controls hear Terminate and it leaves the list of forms.
TEST(ApplicationTest, CloseMessageUnloadsTheForm) {
  Application app;
  FormRef f = Form::create("Closing");
  auto ticking = std::make_shared<TickingControl>();
  f->add(ticking, "TickingControl", "ctlTick");
  f->Show();
  HWND h = f->hWnd();
  user().PostMessageA(h, wm::CLOSE, 0, 0);
  app.processEvents();
  EXPECT_EQ(ticking->terminated, 1);
  EXPECT_TRUE(Forms::all().empty());
  f.reset();
  EXPECT_FALSE(user().IsWindow(h));
}

// Asked for a live display where none can be opened, the application says so and leaves nothing
// behind: no platform, and a headless one can start afterwards.
TEST(ApplicationTest, LiveDisplayWithoutAnXServerIsAClearError) {
  const char* old = std::getenv("DISPLAY");
  std::string saved = old ? old : "";
  setenv("DISPLAY", ":9871", 1);
  Application::Options o;
  o.display = Application::DisplayKind::Live;
  try {
    Application app(o);
    FAIL() << "a live application started without a display";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), err::InvalidProcedureCall);
    EXPECT_NE(e.description().find("display"), std::string::npos) << e.description();
  }
  if (old) setenv("DISPLAY", saved.c_str(), 1); else unsetenv("DISPLAY");
  EXPECT_EQ(currentPlatform(), nullptr);
  EXPECT_EQ(Application::current(), nullptr);
  Application headless;
  EXPECT_EQ(headless.displayKind(), Application::DisplayKind::Headless);
}

}  // namespace
}  // namespace corvane

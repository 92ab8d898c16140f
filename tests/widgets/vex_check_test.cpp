// SPDX-License-Identifier: MIT
#include <corvane/host/extender.h>
#include <corvane/host/property_bag.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_check.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/desktop_fixture.h"

namespace corvane {
namespace {

constexpr COLORREF kRed = 0x0000FF, kBlue = 0xFF0000, kGrey = 0x808080;
// Colours of the box pictures: the frame, the pressed inside and the mixed square.
constexpr COLORREF kFrame = 0x80511C, kPressedInside = 0xA7B0B0, kMixedSquare = 0x21A121, kWhite = 0xFFFFFF;

// Mouse coordinates as a mouse message carries them, x in the low word and y in the high word.
LPARAM mouseAt(int32_t x, int32_t y) {
  return static_cast<LPARAM>((static_cast<uint32_t>(y & 0xFFFF) << 16) | (x & 0xFFFF));
}

bool near(COLORREF a, COLORREF b, int tolerance = 40) {
  for (int sh = 0; sh < 24; sh += 8)
    if (std::abs(static_cast<int>((a >> sh) & 255) - static_cast<int>((b >> sh) & 255)) > tolerance)
      return false;
  return true;
}

// A shown form with a grey background and one check at (20, 20) pixels, 120 by 14 pixels, on a
// white back colour; its events are logged.
class CheckTest : public test::DesktopTest {
 protected:
  static constexpr int32_t kLeft = 20, kTop = 20, kWidth = 120, kHeight = 14;

  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 4000, 2250, true);
    form->surface().setBackColor(kGrey);
    form->Show();
    check = add("Check1");
    ASSERT_TRUE(check);
    check->setBackColor(kWhite);
    check->controlSite().changedKeys.clear();
    check->Click.connect([this] { log.push_back("Click"); });
    check->MouseOut.connect([this] { log.push_back("MouseOut"); });
    check->MouseDown.connect(
        [this](int16_t& b, int16_t&, float&, float&) { log.push_back("MouseDown " + std::to_string(b)); });
    check->MouseMove.connect(
        [this](int16_t& b, int16_t&, float&, float&) { log.push_back("MouseMove " + std::to_string(b)); });
    check->MouseUp.connect(
        [this](int16_t& b, int16_t&, float&, float&) { log.push_back("MouseUp " + std::to_string(b)); });
    check->KeyDown.connect([this](int16_t& k, int16_t&) { log.push_back("KeyDown " + std::to_string(k)); });
    check->KeyPress.connect([this](int16_t& k) { log.push_back("KeyPress " + std::to_string(k)); });
    check->KeyUp.connect([this](int16_t& k, int16_t&) { log.push_back("KeyUp " + std::to_string(k)); });
  }
  void TearDown() override {
    check.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  std::shared_ptr<VexCheck> add(const std::string& name, PropertyBag* bag = nullptr) {
    return std::dynamic_pointer_cast<VexCheck>(form->add("VexCheck", name, nullptr, kLeft * tpp(),
                                                         kTop * tpp(), kWidth * tpp(), kHeight * tpp(), bag));
  }
  static float tpp() { return Screen::instance().TwipsPerPixelX(); }

  COLORREF windowPx(int32_t x, int32_t y) {
    return desktop().windows().windowCanvas(check->hWnd())->pixel(x, y);
  }
  int pixelsOf(COLORREF colour, int32_t x0, int32_t y0, int32_t x1, int32_t y1, int tolerance = 40) {
    int n = 0;
    for (int32_t y = y0; y < y1; ++y)
      for (int32_t x = x0; x < x1; ++x) n += near(windowPx(x, y), colour, tolerance);
    return n;
  }
  void moveTo(int32_t x, int32_t y) { desktop().mouseMove(kLeft + x, kTop + y); }
  void moveOff() { desktop().mouseMove(kLeft + 60, kTop + 80); }
  void clickAt(int32_t x, int32_t y) { desktop().click(kLeft + x, kTop + y); }
  int count(const std::string& entry) const {
    return static_cast<int>(std::count(log.begin(), log.end(), entry));
  }

  FormRef form;
  std::shared_ptr<VexCheck> check;
  std::vector<std::string> log;
};

// ---- looks ----

TEST_F(CheckTest, NormalRowShowsTheEmptyBoxAtTheTopLeftAndNoMark) {
  EXPECT_EQ(check->look(), VexCheck::LookNormal);
  EXPECT_EQ(check->boxImage(), 20);
  EXPECT_TRUE(near(windowPx(0, 0), kFrame, 8));
  EXPECT_TRUE(near(windowPx(12, 12), kFrame, 8));
  EXPECT_TRUE(near(windowPx(6, 6), kWhite, 8));
  EXPECT_FALSE(check->ok().Visible);
}

TEST_F(CheckTest, CheckedShowsTheMarkInTheCheckColour) {
  check->setCheckColor(kRed);
  EXPECT_EQ(pixelsOf(kRed, 0, 0, 14, 14), 0);
  check->setValue(Checked);
  EXPECT_TRUE(check->ok().Visible);
  EXPECT_EQ(check->boxImage(), 20) << "checked and unchecked share a box";
  EXPECT_GT(pixelsOf(kRed, 0, 0, 14, 14), 5);
}

TEST_F(CheckTest, MixedShowsTheSquareBoxWithoutTheMark) {
  check->setCheckColor(kRed);
  check->setValue(Mixed);
  EXPECT_EQ(check->boxImage(), 24);
  EXPECT_FALSE(check->ok().Visible);
  EXPECT_TRUE(near(windowPx(6, 6), kMixedSquare, 8));
  EXPECT_EQ(pixelsOf(kRed, 0, 0, 14, 14), 0);
}

TEST_F(CheckTest, EachLookHasItsRowAndMarkColour) {
  check->setCheckColor(kBlue);
  check->setValue(Checked);
  EXPECT_EQ(check->ok().ForeColor, kBlue);
  check->setEnabled(false);
  EXPECT_EQ(check->look(), VexCheck::LookDisabled);
  EXPECT_EQ(check->boxImage(), 23);
  EXPECT_EQ(check->ok().ForeColor, 0xBDCECE);
  check->setValue(Mixed);
  EXPECT_EQ(check->boxImage(), 27) << "ShowEnabled of a disabled control shows the disabled row";
  check->setEnabled(true);
  check->setValue(Checked);
  moveTo(5, 5);
  desktop().mouseDown(1);
  EXPECT_EQ(check->look(), VexCheck::LookPressed);
  EXPECT_EQ(check->boxImage(), 22);
  EXPECT_EQ(check->ok().ForeColor, 0x636B6B);
  EXPECT_TRUE(near(windowPx(1, 11), kPressedInside, 8));
}

TEST_F(CheckTest, CaptionIsGreyWhileDisabledAndTheForeColourOtherwise) {
  check->setCaption("Nicht wieder anzeigen");
  check->setForeColor(kRed);
  EXPECT_GT(pixelsOf(kRed, 18, 0, kWidth, kHeight), 10);
  check->setEnabled(false);
  EXPECT_EQ(check->lbl().ForeColor, 0x92A1A1);
  EXPECT_EQ(pixelsOf(kRed, 18, 0, kWidth, kHeight), 0);
  EXPECT_GT(pixelsOf(0x92A1A1, 18, 0, kWidth, kHeight, 12), 10);
  check->setEnabled(true);
  EXPECT_EQ(check->lbl().ForeColor, kRed);
  EXPECT_FALSE(check->surface().Enabled() == false);
}

TEST_F(CheckTest, DisablingAtRunTimeDisablesTheWindow) {
  check->setEnabled(false);
  EXPECT_FALSE(check->surface().Enabled());
  EXPECT_EQ(check->controlSite().changedKeys, std::vector<std::string>{"Enabled"});
}

TEST_F(CheckTest, NoDrawingObjectIsLeftAlive) {
  check->setValue(Checked);
  const int32_t before = desktop().liveDrawingObjects();
  for (int i = 0; i < 3; ++i) {
    moveTo(5, 5);
    clickAt(60, 5);
    moveOff();
    check->setEnabled(false);
    check->setEnabled(true);
  }
  EXPECT_EQ(desktop().liveDrawingObjects(), before)
      << "each box picture is given back when the next one comes";
}

// ---- the mark ----

struct MarkRow {
  CheckMark kind;
  const char* font;
  const char* caption;
  double size;
  int32_t left, top;
};

TEST_F(CheckTest, MarkSetUpFollowsTheKind) {
  const MarkRow rows[] = {{Haken, "Marlett", "a", 14, -1, -2},
                          {HakenWing, "Wingdings", "\u00FC", 20, -1, -7},
                          {Kreuz, "Marlett", "r", 9, 1, 1},
                          {Kreis, "Marlett", "h", 16, -4, -3},
                          {Dreieck, "Marlett", "8", 16, -3, -3}};
  for (const MarkRow& r : rows) {
    check->setChecker(r.kind);
    EXPECT_EQ(check->Checker(), r.kind);
    EXPECT_EQ(check->ok().Font->Name(), r.font) << r.kind;
    EXPECT_EQ(check->ok().Caption, r.caption) << r.kind;
    EXPECT_EQ(check->ok().Font->Size(), r.size) << r.kind;
    EXPECT_EQ(check->ok().Left, r.left) << r.kind;
    EXPECT_EQ(check->ok().Top, r.top) << r.kind;
  }
}

TEST_F(CheckTest, HakenWingUsesWingdingsAndAnyLaterKindGoesBackToMarlett) {
  check->setChecker(HakenWing);
  EXPECT_EQ(check->ok().Font->Name(), "Wingdings");
  for (CheckMark kind : {Haken, Kreuz, Kreis, Dreieck}) {
    check->setChecker(HakenWing);
    check->setChecker(kind);
    EXPECT_EQ(check->ok().Font->Name(), "Marlett") << kind;
  }
}

TEST_F(CheckTest, EveryKindOfMarkIsVisibleInTheBox) {
  check->setCheckColor(kRed);
  check->setValue(Checked);
  for (CheckMark kind : {Haken, HakenWing, Kreuz, Kreis, Dreieck}) {
    check->setChecker(kind);
    EXPECT_GT(pixelsOf(kRed, 0, 0, 16, 14), 3) << kind;
  }
}

// ---- layout ----

TEST_F(CheckTest, HeightIsAtLeastFourteenPixels) {
  check->extenderObject().Move(check->extenderObject().Left(), check->extenderObject().Top(), kWidth * tpp(),
                               8 * tpp());
  EXPECT_EQ(check->surface().pixelHeight(), 14);
  check->extenderObject().Move(check->extenderObject().Left(), check->extenderObject().Top(), kWidth * tpp(),
                               20 * tpp());
  EXPECT_EQ(check->surface().pixelHeight(), 20);
  EXPECT_EQ(check->surface().ScaleMode(), Surface::Twips);
}

TEST_F(CheckTest, CaptionPlaceFollowsTheFontSize) {
  const std::pair<double, int32_t> rows[] = {{12, -1}, {9, -1}, {8.5, 0}, {8, 0}, {7.5, 1}, {6, 1}};
  for (auto [size, top] : rows) {
    check->setFont(StdFont::create(FontSpec{"Tahoma", size}));
    EXPECT_EQ(check->lbl().Top, top) << size;
  }
  EXPECT_EQ(check->lbl().Left, 18);
  EXPECT_EQ(check->lbl().Width, kWidth - 18);
  check->extenderObject().Move(check->extenderObject().Left(), check->extenderObject().Top(), 200 * tpp(),
                               kHeight * tpp());
  EXPECT_EQ(check->lbl().Width, 200 - 18);
}

TEST_F(CheckTest, FontNothingIsAnError) {
  try {
    check->setFont(nullptr);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
    EXPECT_EQ(e.description(), "Cannot set Font to Nothing");
  }
}

// ---- mouse and keys ----

TEST_F(CheckTest, ClicksCycleUncheckedCheckedUnchecked) {
  clickAt(5, 5);
  EXPECT_EQ(check->value(), Checked);
  EXPECT_TRUE(check->ok().Visible);
  clickAt(5, 5);
  EXPECT_EQ(check->value(), Unchecked);
  EXPECT_FALSE(check->ok().Visible);
  clickAt(60, 5);  // on the caption
  EXPECT_EQ(check->value(), Checked);
  EXPECT_EQ(count("Click"), 3);
}

TEST_F(CheckTest, ClickOnAMixedControlLeadsToUnchecked) {
  check->setValue(Mixed);
  clickAt(5, 5);
  EXPECT_EQ(check->value(), Unchecked);
  EXPECT_EQ(check->boxImage(), 20);
  clickAt(5, 5);
  EXPECT_EQ(check->value(), Checked) << "Mixed is never reached by the mouse";
}

TEST_F(CheckTest, ReleaseRaisesMouseUpThenToggledClick) {
  CheckState during = Mixed;
  check->Click.connect([&] { during = check->value(); });
  clickAt(5, 5);
  EXPECT_EQ(during, Checked) << "Click comes after the toggle";
  EXPECT_EQ(log, (std::vector<std::string>{"MouseDown 1", "MouseUp 1", "Click"}))
      << "no MouseMove while the mouse is inside";
}

TEST_F(CheckTest, ReleasingOutsideTheControlStillTogglesAndRaisesClick) {
  moveTo(5, 5);
  desktop().mouseDown(1);
  ASSERT_EQ(user().GetCapture(), check->hWnd());
  // The captured window gets the release with the cursor far outside it.
  user().SendMessageA(check->hWnd(), wm::LBUTTONUP, 0, mouseAt(300, 200));
  EXPECT_EQ(check->value(), Checked);
  EXPECT_EQ(count("Click"), 1);
  user().SendMessageA(check->hWnd(), wm::RBUTTONUP, 0, mouseAt(-40, -40));
  EXPECT_EQ(check->value(), Unchecked) << "any button toggles";
}

TEST_F(CheckTest, HoverCapturesTheMouseAndShowsTheHoverRowOnce) {
  moveTo(5, 5);
  EXPECT_EQ(user().GetCapture(), check->hWnd());
  EXPECT_EQ(check->look(), VexCheck::LookHover);
  EXPECT_EQ(check->boxImage(), 21);
  EXPECT_EQ(check->ok().Tag, "x");
  moveTo(50, 6);
  EXPECT_EQ(check->look(), VexCheck::LookHover);
  EXPECT_TRUE(log.empty()) << "the host hears nothing while the mouse is inside";
}

TEST_F(CheckTest, MovingInWithTheLeftButtonDownShowsThePressedRow) {
  // A move that carries the left button (MK_LBUTTON).
  user().SendMessageA(check->hWnd(), wm::MOUSEMOVE, 1, mouseAt(5, 5));
  EXPECT_EQ(check->look(), VexCheck::LookPressed);
  EXPECT_EQ(check->ok().Tag, "x");
}

TEST_F(CheckTest, MouseOutComesTogetherWithTheOneMouseMove) {
  moveTo(5, 5);
  moveTo(8, 8);
  moveTo(70, 4);
  moveOff();
  EXPECT_EQ(log, (std::vector<std::string>{"MouseMove 0", "MouseOut"}));
  EXPECT_EQ(user().GetCapture(), 0);
  EXPECT_EQ(check->look(), VexCheck::LookNormal);
  EXPECT_EQ(check->ok().Tag, "");
  moveTo(5, 5);
  moveOff();
  EXPECT_EQ(count("MouseOut"), 2);
  EXPECT_EQ(count("MouseMove 0"), 2);
}

TEST_F(CheckTest, MoveOverALabelCarriesTheLabelsPlace) {
  // The Wingdings mark reaches below the 14-pixel box; a captured move over it, outside the
  // control, arrives with the mark's left and top (-1 and -7 pixels) and so counts as leaving.
  check->setChecker(HakenWing);
  check->setValue(Checked);
  ASSERT_GT(check->ok().Top + check->ok().Height, 18);
  float seenX = 0, seenY = 0;
  check->MouseMove.connect([&](int16_t&, int16_t&, float& x, float& y) { seenX = x, seenY = y; });
  moveTo(60, 5);  // on the caption
  ASSERT_EQ(check->look(), VexCheck::LookHover);
  user().SendMessageA(check->hWnd(), wm::MOUSEMOVE, 0, mouseAt(2, 17));
  EXPECT_FLOAT_EQ(seenX, -1 * tpp());
  EXPECT_FLOAT_EQ(seenY, -7 * tpp());
  EXPECT_EQ(count("MouseOut"), 1) << ::testing::PrintToString(log);
}

TEST_F(CheckTest, PressAndReleaseOnTheCaptionArriveAsTheyAre) {
  float downX = 0, upX = 0;
  check->MouseDown.connect([&](int16_t&, int16_t&, float& x, float&) { downX = x; });
  check->MouseUp.connect([&](int16_t&, int16_t&, float& x, float&) { upX = x; });
  clickAt(60, 5);
  EXPECT_FLOAT_EQ(downX, 60 * tpp());
  EXPECT_FLOAT_EQ(upX, 60 * tpp());
}

TEST_F(CheckTest, DisabledControlTakesNoMouse) {
  check->setEnabled(false);
  clickAt(5, 5);
  EXPECT_EQ(check->value(), Unchecked);
  EXPECT_TRUE(log.empty());
}

TEST_F(CheckTest, SpaceAndOtherKeysOnlyForward) {
  user().SetFocus(check->hWnd());
  desktop().windows().keyDown(32);
  desktop().windows().typeChar(32);
  desktop().windows().keyUp(32);
  EXPECT_EQ(check->value(), Unchecked) << "no key toggles the control";
  EXPECT_EQ(log, (std::vector<std::string>{"KeyDown 32", "KeyPress 32", "KeyUp 32"}));
}

// ---- properties ----

TEST_F(CheckTest, EverySetterReportsItsKey) {
  check->setChecker(Kreuz);
  check->setCheckColor(1);
  check->setEnabled(true);
  check->setValue(Checked);
  check->setCaption("a");
  check->setFont(StdFont::create());
  check->setBackColor(2);
  check->setForeColor(3);
  EXPECT_EQ(check->controlSite().changedKeys,
            (std::vector<std::string>{"Checker", "CheckColor", "Enabled", "Value", "Caption", "Font",
                                      "BackColor", "ForeColor"}));
}

TEST_F(CheckTest, CallableByName) {
  check->let("Value", Variant(int32_t(2)));
  EXPECT_EQ(check->value(), Mixed);
  check->let("Checker", Variant(int32_t(3)));
  EXPECT_EQ(check->Checker(), Kreis);
  EXPECT_EQ(check->get("Caption").toString(), check->Caption());
}

// ---- persistence ----

const std::vector<std::string> kKeyOrder = {"Value",     "Caption",   "Enabled",    "Font",
                                            "BackColor", "ForeColor", "CheckColor", "Checker"};

TEST_F(CheckTest, KeysAreWrittenAndReadInTheirOrder) {
  PropertyBag bag;
  check->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), kKeyOrder);
  add("Check2", &bag);
  EXPECT_EQ(bag.readOrder(), kKeyOrder);
}

TEST_F(CheckTest, NewControlHasTheStatedDefaults) {
  auto fresh = add("Check2");
  EXPECT_EQ(fresh->Checker(), Haken);
  EXPECT_EQ(fresh->CheckColor(), 0);
  EXPECT_TRUE(fresh->Enabled());
  EXPECT_EQ(fresh->value(), Unchecked);
  EXPECT_EQ(fresh->Caption(), "Check2");
  EXPECT_EQ(fresh->Font(), fresh->ambient().Font());
  EXPECT_EQ(fresh->BackColor(), static_cast<OLE_COLOR>(0x8000000F));
  EXPECT_EQ(fresh->ForeColor(), 0);
}

TEST_F(CheckTest, BagAfterInitPropertiesHoldsNoDefaultValuedKey) {
  auto fresh = add("Check2");
  PropertyBag bag;
  fresh->WriteProperties(bag);
  EXPECT_TRUE(bag.entries().empty());
}

TEST_F(CheckTest, NewControlAndOneFromAnEmptyBagAgree) {
  auto fresh = add("Check2");
  PropertyBag empty;
  auto loaded = add("Check3", &empty);
  EXPECT_EQ(loaded->Caption(), "Check3") << "the ambient display name";
  loaded->setCaption(fresh->Caption());
  EXPECT_EQ(loaded->Checker(), fresh->Checker());
  EXPECT_EQ(loaded->CheckColor(), fresh->CheckColor());
  EXPECT_EQ(loaded->Enabled(), fresh->Enabled());
  EXPECT_EQ(loaded->value(), fresh->value());
  EXPECT_EQ(loaded->Caption(), fresh->Caption());
  EXPECT_EQ(loaded->Font(), fresh->Font());
  EXPECT_EQ(loaded->BackColor(), fresh->BackColor());
  EXPECT_EQ(loaded->ForeColor(), fresh->ForeColor());
}

TEST_F(CheckTest, EveryValueSurvivesARoundTrip) {
  FontRef font = StdFont::create(FontSpec{"Arial", 10});
  check->setChecker(Dreieck);
  check->setCheckColor(kRed);
  check->setValue(Mixed);
  check->setCaption("Immer");
  check->setFont(font);
  check->setBackColor(0x00FFFF);
  check->setForeColor(kBlue);
  check->setEnabled(false);
  PropertyBag bag;
  check->WriteProperties(bag);
  EXPECT_EQ(bag.entries().size(), kKeyOrder.size());
  auto loaded = add("Check2", &bag);
  EXPECT_EQ(loaded->Checker(), Dreieck);
  EXPECT_EQ(loaded->ok().Font->Name(), "Marlett");
  EXPECT_EQ(loaded->ok().Caption, "8");
  EXPECT_EQ(loaded->CheckColor(), kRed);
  EXPECT_EQ(loaded->value(), Mixed);
  EXPECT_EQ(loaded->Caption(), "Immer");
  EXPECT_EQ(loaded->Font(), font);
  EXPECT_EQ(loaded->BackColor(), 0x00FFFF);
  EXPECT_EQ(loaded->ForeColor(), kBlue);
  EXPECT_FALSE(loaded->Enabled());
  EXPECT_FALSE(loaded->surface().Enabled());
  EXPECT_EQ(loaded->boxImage(), 27);
  EXPECT_EQ(loaded->lbl().ForeColor, 0x92A1A1);
}

TEST_F(CheckTest, WrongTypedKeyIsSkipped) {
  PropertyBag bag;
  bag.set("CheckColor", Variant("rot"));
  bag.set("Caption", Variant("Weiter"));
  auto loaded = add("Check2", &bag);
  EXPECT_EQ(loaded->CheckColor(), 0);
  EXPECT_EQ(loaded->Caption(), "Weiter");
}

}  // namespace
}  // namespace corvane

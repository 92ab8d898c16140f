// SPDX-License-Identifier: MIT
#include <corvane/host/extender.h>
#include <corvane/host/property_bag.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_line_hover.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "support/desktop_fixture.h"
#include "support/hover_fixture.h"

namespace corvane {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF, kRed = 0x0000FF, kBlue = 0xFF0000, kGrey = 0x808080;

bool near(COLORREF a, COLORREF b, int tolerance = 40) {
  for (int sh = 0; sh < 24; sh += 8)
    if (std::abs(static_cast<int>((a >> sh) & 255) - static_cast<int>((b >> sh) & 255)) > tolerance)
      return false;
  return true;
}

// A shown form with a grey background and one line hover at (20, 20) pixels, 200 by 18 pixels,
// white, red text, blue hover colour. The form sits at the top left of the screen.
class LineHoverTest : public test::DesktopTest {
 protected:
  static constexpr int32_t kLeft = 20, kTop = 20, kWidth = 200, kHeight = 18;

  void SetUp() override {
    DesktopTest::SetUp();
    form = Form::create("Form1", 4000, 2250, true);
    form->surface().setBackColor(kGrey);
    form->Show();
    line = add("Line1");
    ASSERT_TRUE(line);
    line->setBackColor(kWhite);
    line->setForeColor(kRed);
    line->setForeColorHover(kBlue);
    line->controlSite().changedKeys.clear();
    line->Click.connect([this] { log.push_back("Click"); });
    line->DblClick.connect([this] { log.push_back("DblClick"); });
    line->MouseDown.connect(
        [this](int16_t& b, int16_t&, float&, float&) { log.push_back("MouseDown " + std::to_string(b)); });
    line->MouseMove.connect(
        [this](int16_t& b, int16_t&, float&, float&) { log.push_back("MouseMove " + std::to_string(b)); });
    line->MouseUp.connect(
        [this](int16_t& b, int16_t&, float&, float&) { log.push_back("MouseUp " + std::to_string(b)); });
  }
  void TearDown() override {
    line.reset();
    form.reset();
    DesktopTest::TearDown();
  }
  std::shared_ptr<VexLineHover> add(const std::string& name, PropertyBag* bag = nullptr) {
    return std::dynamic_pointer_cast<VexLineHover>(form->add(
        "VexLineHover", name, nullptr, kLeft * tpp(), kTop * tpp(), kWidth * tpp(), kHeight * tpp(), bag));
  }
  static float tpp() { return Screen::instance().TwipsPerPixelX(); }

  COLORREF windowPx(int32_t x, int32_t y) {
    return desktop().windows().windowCanvas(line->hWnd())->pixel(x, y);
  }
  // Pixels of the window image near a colour, within a rectangle (the whole control by default).
  int pixelsOf(COLORREF colour, int32_t x0 = 0, int32_t y0 = 0, int32_t x1 = kWidth, int32_t y1 = kHeight) {
    int n = 0;
    for (int32_t y = y0; y < y1; ++y)
      for (int32_t x = x0; x < x1; ++x) n += near(windowPx(x, y), colour);
    return n;
  }
  void moveTo(int32_t x, int32_t y) { desktop().mouseMove(kLeft + x, kTop + y); }
  void moveOff() { desktop().mouseMove(kLeft + 100, kTop + 100); }
  // The DrawTextA and PathCompactPathA calls of one drawing.
  std::vector<std::string> textCalls(bool hover) {
    gdi().startRecording(line->hdc());
    line->Draw(hover);
    std::vector<std::string> out;
    for (const std::string& l : gdi().stopRecording(line->hdc()))
      if (l.rfind("DrawTextA", 0) == 0 || l.rfind("PathCompactPathA", 0) == 0 ||
          l.rfind("DrawStateA", 0) == 0)
        out.push_back(l);
    return out;
  }

  FormRef form;
  std::shared_ptr<VexLineHover> line;
  std::vector<std::string> log;
};

// ---- text ----

TEST_F(LineHoverTest, AmpersandIsPrintedAsTheCharacter) {
  line->setCaption("Drucken & Senden");
  std::vector<std::string> calls = textCalls(false);
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[1], "DrawTextA(Drucken && Senden,32)");
}

TEST_F(LineHoverTest, TextThatFitsIsLeftAsItIs) {
  std::string text = "C:\\Daten\\a.txt";
  EXPECT_EQ(line->CompactString(text), text);
  line->setCaption(text);
  EXPECT_EQ(textCalls(false).back(), "DrawTextA(C:\\Daten\\a.txt,32)");
}

TEST_F(LineHoverTest, LongPathIsShortenedInTheMiddleAndKeepsItsLength) {
  std::string path = "C:\\Programme\\Corvane\\Beispiele\\Sehr\\Tief\\Verschachtelt\\Ordner\\bericht.txt";
  const std::string original = path;
  line->extenderObject().Move(line->extenderObject().Left(), line->extenderObject().Top(), 120 * tpp(),
                              kHeight * tpp());
  std::string result = line->CompactString(path);
  EXPECT_EQ(path, original) << "the argument is left unchanged";
  ASSERT_EQ(result.size(), original.size());
  size_t nul = result.find('\0');
  ASSERT_NE(nul, std::string::npos);
  std::string shown = result.substr(0, nul);
  EXPECT_EQ(shown.substr(0, 3), "C:\\");
  EXPECT_NE(shown.find("..."), std::string::npos);
  EXPECT_EQ(shown.substr(shown.size() - 11), "bericht.txt");
  EXPECT_EQ(result.substr(nul + 1), original.substr(nul + 1))
      << "the rest of the buffer stays behind the NUL";
  // Drawing stops at the NUL.
  line->setCaption(original);
  EXPECT_EQ(textCalls(false).back(), "DrawTextA(" + shown + ",32)");
}

TEST_F(LineHoverTest, CompactionWidthIsTheControlWidthLessTheIconInPixels) {
  line->setCaption("abc");
  std::vector<std::string> calls = textCalls(false);
  EXPECT_EQ(calls[0], "PathCompactPathA(abc," + std::to_string(kWidth) + ")");
  line->setIcon(test::squareIcon(16, RECT{0, 0, 16, 16}, kBlue));
  calls = textCalls(false);
  // 300 twips less, at 15 twips a pixel.
  EXPECT_EQ(calls[0], "PathCompactPathA(abc," + std::to_string(kWidth - 20) + ")");
}

TEST_F(LineHoverTest, WidthBeyondSixteenBitsLeavesTheTextUncompacted) {
  line->extenderObject().Move(line->extenderObject().Left(), line->extenderObject().Top(), 33000,
                              kHeight * tpp());
  std::string text = "C:\\a\\b\\c.txt";
  EXPECT_EQ(line->CompactString(text), text);
  line->setCaption(text);
  EXPECT_EQ(textCalls(false).back(), "DrawTextA(C:\\a\\b\\c.txt,32)")
      << "drawing goes on after the failed step";
}

// ---- drawing ----

TEST_F(LineHoverTest, PlainLookIsTheForeColourOnTheBackColour) {
  line->setCaption("Xxxxxx");
  EXPECT_GT(pixelsOf(kRed), 10);
  EXPECT_EQ(pixelsOf(kBlue), 0);
  EXPECT_TRUE(near(windowPx(kWidth - 1, kHeight - 1), kWhite));
}

TEST_F(LineHoverTest, IconIsDrawnAtTheTopLeftAndTheTextStartsAtTwenty) {
  line->setCaption("Xxxxxx");
  line->setIcon(test::squareIcon(16, RECT{0, 0, 16, 16}, kBlue));
  std::vector<std::string> calls = textCalls(false);
  ASSERT_EQ(calls.size(), 3u);
  EXPECT_EQ(calls[1], "DrawStateA(0,0," + std::to_string(line->Icon()->Handle()) + ",0,0,0,16,16,3)");
  EXPECT_GT(pixelsOf(kBlue, 0, 0, 16, 16), 200);
  EXPECT_EQ(pixelsOf(kRed, 0, 0, 20, kHeight), 0);
  EXPECT_GT(pixelsOf(kRed, 20, 0, kWidth, kHeight), 10);
}

TEST_F(LineHoverTest, HoverLooksFollowTheStyle) {
  line->setCaption("Xxxxxx");
  line->Draw(false);
  const int plainInk = pixelsOf(kRed);
  ASSERT_GT(plainInk, 10);

  line->setHoverStyle(ColorUnderline);
  line->Draw(true);
  EXPECT_EQ(pixelsOf(kRed), 0);
  EXPECT_GT(pixelsOf(kBlue), plainInk) << "hover colour, and the underline adds ink";

  line->setHoverStyle(OnlyUnderline);
  line->Draw(true);
  EXPECT_EQ(pixelsOf(kBlue), 0);
  EXPECT_GT(pixelsOf(kRed), plainInk);

  line->setHoverStyle(OnlyColor);
  line->Draw(true);
  EXPECT_EQ(pixelsOf(kRed), 0);
  EXPECT_EQ(pixelsOf(kBlue), plainInk);

  line->setHoverStyle(Deactivate);
  line->Draw(true);
  EXPECT_EQ(pixelsOf(kBlue), 0);
  EXPECT_EQ(pixelsOf(kRed), plainInk);
}

TEST_F(LineHoverTest, UnderlineOfTheLookLeavesTheSharedFontAlone) {
  line->Draw(true);
  EXPECT_FALSE(line->Font()->Underline());
}

TEST_F(LineHoverTest, DisabledTextIsEngravedWhateverTheLook) {
  line->setCaption("Xxxxxx");
  line->setBackColor(kGrey);
  line->setEnabled(false);
  line->Draw(true);
  EXPECT_EQ(pixelsOf(kRed), 0);
  EXPECT_EQ(pixelsOf(kBlue), 0);
  EXPECT_GT(pixelsOf(kWhite), 5);
  EXPECT_GT(pixelsOf(gdi().GetSysColor(syscolor::BTNSHADOW), 0, 0, kWidth, kHeight), 5);
  std::vector<std::string> calls = textCalls(false);
  EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                          [](const std::string& l) { return l.rfind("DrawTextA", 0) == 0; }),
            2);
}

TEST_F(LineHoverTest, NoDrawingObjectIsLeftAlive) {
  int32_t before = desktop().liveDrawingObjects();
  line->setIcon(test::squareIcon(16, RECT{0, 0, 16, 16}, kBlue));
  int32_t withIcon = desktop().liveDrawingObjects();
  line->Draw(true);
  line->setEnabled(false);
  EXPECT_EQ(desktop().liveDrawingObjects(), withIcon);
  EXPECT_GE(withIcon, before);
}

// ---- width ----

TEST_F(LineHoverTest, AutoWidthWithoutLimitFollowsTheText) {
  const std::string text = "Ein recht langer Text, der weit über die Breite hinausgeht und noch weiter";
  line->setCaption(text);
  line->setAutoWidth(true);
  float needed = line->surface().TextWidth(text) + 3 * tpp();
  EXPECT_FLOAT_EQ(line->surface().Width(), std::nearbyint(needed));
  EXPECT_GT(line->surface().Width(), kWidth * tpp());
  line->setIcon(test::squareIcon(16, RECT{0, 0, 16, 16}, kBlue));
  EXPECT_FLOAT_EQ(line->surface().Width(), std::nearbyint(line->surface().TextWidth(text) + 23 * tpp()));
}

TEST_F(LineHoverTest, MaxAutoWidthLimitsOnlyAWiderText) {
  line->setCaption("Xx");
  line->setMaxAutoWidth(1500);
  line->setAutoWidth(true);
  EXPECT_FLOAT_EQ(line->surface().Width(), std::nearbyint(line->surface().TextWidth("Xx") + 3 * tpp()));
  line->setCaption("Ein recht langer Text, der weit über die Breite hinausgeht");
  EXPECT_FLOAT_EQ(line->surface().Width(), 1500);
}

TEST_F(LineHoverTest, WithoutAutoWidthTheWidthStays) {
  line->setCaption("Ein recht langer Text, der weit über die Breite hinausgeht");
  EXPECT_FLOAT_EQ(line->surface().Width(), kWidth * tpp());
}

// ---- mouse ----

TEST_F(LineHoverTest, MoveRaisesMouseMoveAndShowsTheHoverLookUntilTheMouseLeaves) {
  line->setCaption("Xxxxxx");
  moveTo(5, 5);
  EXPECT_EQ(log, std::vector<std::string>{"MouseMove 0"});
  EXPECT_GT(pixelsOf(kBlue), 0);
  moveOff();
  EXPECT_EQ(pixelsOf(kBlue), 0) << "the leave notice brings the plain look back";
  EXPECT_GT(pixelsOf(kRed), 0);
}

TEST_F(LineHoverTest, ClickRaisesClickAndDrawsThePlainLook) {
  line->setCaption("Xxxxxx");
  desktop().click(kLeft + 5, kTop + 5);
  EXPECT_EQ(log, (std::vector<std::string>{"MouseMove 0", "MouseDown 1", "MouseUp 1", "Click"}));
  EXPECT_EQ(pixelsOf(kBlue), 0);
}

TEST_F(LineHoverTest, DoubleClickRaisesDblClickAndTheSecondPressArrivesAsADown) {
  desktop().doubleClick(kLeft + 5, kTop + 5);
  EXPECT_EQ(std::count(log.begin(), log.end(), "DblClick"), 1);
  EXPECT_EQ(std::count(log.begin(), log.end(), "MouseDown 1"), 2);
}

TEST_F(LineHoverTest, RightDoubleClickIsTurnedIntoALeftDown) {
  int32_t msg = wm::RBUTTONDBLCLK;
  user().SendMessageA(line->hWnd(), msg, 2, 0);
  EXPECT_EQ(log, (std::vector<std::string>{"DblClick", "MouseDown 1"}));
}

TEST_F(LineHoverTest, DeactivateRaisesNeitherClickNorDblClickAndShowsNoHoverLook) {
  line->setCaption("Xxxxxx");
  line->setHoverStyle(Deactivate);
  moveTo(5, 5);
  EXPECT_EQ(pixelsOf(kBlue), 0);
  desktop().doubleClick(kLeft + 5, kTop + 5);
  EXPECT_EQ(std::count(log.begin(), log.end(), "Click"), 0);
  EXPECT_EQ(std::count(log.begin(), log.end(), "DblClick"), 0);
  EXPECT_GT(std::count(log.begin(), log.end(), "MouseUp 1"), 0) << "the mouse events still come";
}

TEST_F(LineHoverTest, HoverStyleSetsTheMousePointer) {
  EXPECT_EQ(line->surface().MousePointer(), 99);
  line->setHoverStyle(Deactivate);
  EXPECT_EQ(line->surface().MousePointer(), 0);
  line->setHoverStyle(OnlyColor);
  EXPECT_EQ(line->surface().MousePointer(), 99);
  EXPECT_EQ(line->controlSite().changedKeys, (std::vector<std::string>{"HoverStyle", "HoverStyle"}));
}

TEST_F(LineHoverTest, KeysAreForwarded) {
  int16_t code = 65, shift = 0, ascii = 97;
  int n = 0;
  line->KeyDown.connect([&](int16_t&, int16_t&) { ++n; });
  line->KeyUp.connect([&](int16_t&, int16_t&) { ++n; });
  line->KeyPress.connect([&](int16_t&) { ++n; });
  line->surface().KeyDown(code, shift);
  line->surface().KeyPress(ascii);
  line->surface().KeyUp(code, shift);
  EXPECT_EQ(n, 3);
}

// ---- subclass and lifecycle ----

TEST_F(LineHoverTest, LeaveNoticeOnTheOwnWindowDrawsThePlainLook) {
  line->setCaption("Xxxxxx");
  line->Draw(true);
  ASSERT_GT(pixelsOf(kBlue), 0);
  user().SendMessageA(line->hWnd(), wm::MOUSELEAVE, 0, 0);
  EXPECT_EQ(pixelsOf(kBlue), 0);
  EXPECT_GT(pixelsOf(kRed), 0);
}

TEST_F(LineHoverTest, EveryShowDrawsThePlainLook) {
  line->setCaption("Xxxxxx");
  line->Draw(true);
  line->Show();
  EXPECT_EQ(pixelsOf(kBlue), 0);
  EXPECT_GT(pixelsOf(kRed), 0);
}

TEST_F(LineHoverTest, OwnWindowIsSubclassedUntilTerminate) {
  ASSERT_NE(line->subclass(), nullptr);
  EXPECT_NE(user().GetPropA(line->hWnd(), "SSC_OLDPROC"), 0);
  line->Terminate();
  EXPECT_EQ(line->subclass(), nullptr);
  EXPECT_EQ(user().GetPropA(line->hWnd(), "SSC_OLDPROC"), 0);
}

TEST_F(LineHoverTest, DesignerShowStopsTheSubclass) {
  FormRef designer = Form::create("Form2", 3000, 1500, false);
  designer->Show();
  auto l = std::dynamic_pointer_cast<VexLineHover>(designer->add("VexLineHover", "Line9"));
  ASSERT_TRUE(l);
  l->Show();
  EXPECT_EQ(user().GetPropA(l->hWnd(), "SSC_OLDPROC"), 0);
}

// ---- properties ----

TEST_F(LineHoverTest, SettingBackColorSwitchesAutoBackColorOff) {
  line->setAutoBackColor(true);
  EXPECT_EQ(line->BackColor(), kGrey) << "the container's colour";
  line->setBackColor(0x00FFFF);
  EXPECT_FALSE(line->AutoBackColor());
  EXPECT_EQ(line->BackColor(), 0x00FFFF);
}

TEST_F(LineHoverTest, EverySetterReportsItsKey) {
  line->setEnabled(true);
  line->setIcon(nullptr);
  line->setCaption("a");
  line->setHoverStyle(OnlyColor);
  line->setBackColor(1);
  line->setForeColor(2);
  line->setFont(line->Font());
  line->setForeColorHover(3);
  line->setAutoBackColor(false);
  line->setAutoWidth(false);
  line->setMaxAutoWidth(0);
  EXPECT_EQ(
      line->controlSite().changedKeys,
      (std::vector<std::string>{"Enabled", "Icon", "Caption", "HoverStyle", "BackColor", "ForeColor", "Font",
                                "ForeColorHover", "AutoBackColor", "AutoWidth", "MaxAutoWidth"}));
}

TEST_F(LineHoverTest, FontNothingIsAnError) {
  try {
    line->setFont(nullptr);
    FAIL() << "no error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
  }
}

// ---- persistence ----

const std::vector<std::string> kKeyOrder = {"Enabled",       "Icon",      "Caption",        "HoverStyle",
                                            "BackColor",     "ForeColor", "ForeColorHover", "Font",
                                            "AutoBackColor", "AutoWidth", "MaxAutoWidth"};

TEST_F(LineHoverTest, KeysAreWrittenAndReadInTheirOrder) {
  PropertyBag bag;
  line->WriteProperties(bag);
  EXPECT_EQ(bag.writeOrder(), kKeyOrder);
  add("Line2", &bag);
  EXPECT_EQ(bag.readOrder(), kKeyOrder);
}

TEST_F(LineHoverTest, NewControlHasTheStatedDefaults) {
  auto fresh = add("Line2");
  EXPECT_TRUE(fresh->Enabled());
  EXPECT_EQ(fresh->Icon(), nullptr);
  EXPECT_EQ(fresh->Caption(), "Xx");
  EXPECT_EQ(fresh->HoverStyle(), ColorUnderline);
  EXPECT_EQ(fresh->BackColor(), kGrey);
  EXPECT_EQ(fresh->ForeColor(), 0);
  EXPECT_EQ(fresh->Font(), fresh->ambient().Font());
  EXPECT_EQ(fresh->ForeColorHover(), 0);
  EXPECT_TRUE(fresh->AutoBackColor());
  EXPECT_FALSE(fresh->AutoWidth());
  EXPECT_EQ(fresh->MaxAutoWidth(), 0);
}

TEST_F(LineHoverTest, BagAfterInitPropertiesHoldsOnlyTheValuesThatDifferFromTheStoredDefaults) {
  auto fresh = add("Line2");
  PropertyBag bag;
  fresh->WriteProperties(bag);
  // The new caption "Xx" and the container's grey differ from the stored defaults (empty, 0).
  ASSERT_EQ(bag.entries().size(), 2u);
  EXPECT_EQ(bag.entries()[0].first, "Caption");
  EXPECT_EQ(bag.entries()[0].second.toString(), "Xx");
  EXPECT_EQ(bag.entries()[1].first, "BackColor");
  EXPECT_EQ(bag.entries()[1].second.toLong(), static_cast<int32_t>(kGrey));
}

TEST_F(LineHoverTest, EmptyBagGivesTheStoredDefaults) {
  PropertyBag empty;
  auto loaded = add("Line2", &empty);
  EXPECT_EQ(loaded->Caption(), "");
  EXPECT_TRUE(loaded->Enabled());
  EXPECT_EQ(loaded->Icon(), nullptr);
  EXPECT_EQ(loaded->HoverStyle(), ColorUnderline);
  EXPECT_EQ(loaded->BackColor(), kGrey) << "AutoBackColor takes the container's colour";
  EXPECT_EQ(loaded->Font(), loaded->ambient().Font());
  EXPECT_TRUE(loaded->AutoBackColor());
}

TEST_F(LineHoverTest, StoredBackColorIsIgnoredWhileAutoBackColorIsOn) {
  PropertyBag bag;
  bag.set("BackColor", Variant(int32_t(0x00FFFF)));
  EXPECT_EQ(add("Line2", &bag)->BackColor(), kGrey);
  bag.set("AutoBackColor", Variant(false));
  EXPECT_EQ(add("Line3", &bag)->BackColor(), 0x00FFFF);
}

TEST_F(LineHoverTest, EveryValueSurvivesARoundTrip) {
  PictureRef icon = test::squareIcon(16, RECT{0, 0, 4, 4}, kBlue);
  FontRef font = StdFont::create(FontSpec{"Arial", 12});
  line->setIcon(icon);
  line->setCaption("Weiter");
  line->setHoverStyle(OnlyUnderline);
  line->setBackColor(0x00FFFF);
  line->setForeColor(0x123456);
  line->setForeColorHover(0x654321);
  line->setFont(font);
  line->setAutoWidth(true);
  line->setMaxAutoWidth(900);
  line->setEnabled(false);
  PropertyBag bag;
  line->WriteProperties(bag);
  auto loaded = add("Line2", &bag);
  EXPECT_FALSE(loaded->Enabled());
  EXPECT_FALSE(loaded->surface().Enabled());
  EXPECT_EQ(loaded->Icon(), icon);
  EXPECT_EQ(loaded->Caption(), "Weiter");
  EXPECT_EQ(loaded->HoverStyle(), OnlyUnderline);
  EXPECT_EQ(loaded->BackColor(), 0x00FFFF);
  EXPECT_EQ(loaded->ForeColor(), 0x123456);
  EXPECT_EQ(loaded->ForeColorHover(), 0x654321);
  EXPECT_EQ(loaded->Font(), font);
  EXPECT_FALSE(loaded->AutoBackColor());
  EXPECT_TRUE(loaded->AutoWidth());
  EXPECT_EQ(loaded->MaxAutoWidth(), 900);
  EXPECT_EQ(loaded->surface().MousePointer(), 99);
}

TEST_F(LineHoverTest, WrongTypedKeyIsSkipped) {
  PropertyBag bag;
  bag.set("ForeColor", Variant("kein Wert"));
  bag.set("Caption", Variant("Hallo"));
  auto loaded = add("Line2", &bag);
  EXPECT_EQ(loaded->ForeColor(), 0);
  EXPECT_EQ(loaded->Caption(), "Hallo");
}

TEST_F(LineHoverTest, CreatableByNameAndCallableByName) {
  Dispatch::Args args{Variant("abc")};
  EXPECT_EQ(line->invoke("CompactString", CallType::Method, args).toString(), "abc");
  line->let("HoverStyle", Variant(int32_t(4)));
  EXPECT_EQ(line->HoverStyle(), Deactivate);
}

}  // namespace
}  // namespace corvane

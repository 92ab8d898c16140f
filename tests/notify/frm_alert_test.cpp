// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_pane.h>
#include <corvane/host/picture_box.h>
#include <corvane/widgets/vex_line_hover.h>
#include <gtest/gtest.h>

#include "support/alert_fixture.h"

namespace corvane::test {

namespace {
// Counts the event pumps of a blocking loop: a message that posts itself again is delivered once
// per pump, and notes the alpha of a window each time.
class PumpCounter {
 public:
  explicit PumpCounter(HWND watched) : m_watched(watched) {
    m_proc = user().RegisterWindowProc([this](HWND h, int32_t m, WPARAM, LPARAM) -> LRESULT {
      if (m == wm::USER + 7) {
        ++pumps;
        DesktopWindow const* w = m_desktop->windows().window(m_watched);
        if (w) alphas.push_back(w->alpha);
        user().PostMessageA(h, wm::USER + 7, 0, 0);
      }
      return 0;
    });
    m_hWnd = user().CreateWindowExA(0, "Counter", "", WS_POPUP, 0, 0, 1, 1, 0, m_proc);
  }
  ~PumpCounter() {
    user().DestroyWindow(m_hWnd);
    user().UnregisterWindowProc(m_proc);
  }
  void start(Desktop& d) {
    m_desktop = &d;
    user().PostMessageA(m_hWnd, wm::USER + 7, 0, 0);
  }
  int32_t pumps = 0;
  std::vector<int32_t> alphas;

 private:
  HWND m_watched;
  HWND m_hWnd = 0;
  WNDPROC m_proc = 0;
  Desktop* m_desktop = nullptr;
};

// The number of steps of the fade-out loop from an alpha, with the step the window's size gives.
int32_t fadeOutSteps(float height, float width, float alpha) {
  float speed = (height / 100) * (width / 100) / 1200;
  int32_t n = 0;
  for (float c = alpha; c > 0; c -= speed) ++n;
  return n;
}
}  // namespace

// ---- loading and showing ----

TEST_F(AlertTest, LoadingPutsTheWindowOffScreenTopMostAndWithoutTaskBarEntry) {
  auto a = frmAlert::Load();
  EXPECT_EQ(rectOf(*a).Left, -3900 / 15);
  EXPECT_TRUE(user().GetWindowLongA(a->form().hWnd(), GWL_EXSTYLE) & WS_EX_TOPMOST);
  EXPECT_TRUE(user().GetWindowLongA(a->form().hWnd(), GWL_EXSTYLE) & WS_EX_TOOLWINDOW);
  EXPECT_FALSE(a->Visible());
  EXPECT_EQ(Forms::find("frmAlert"), a->form().shared_from_this());
}

TEST_F(AlertTest, ChildControlsHaveTheirSizesAndFonts) {
  auto a = frmAlert::Load();
  EXPECT_EQ(a->lblHead().font->Name(), "Tahoma");
  EXPECT_TRUE(a->lblHead().font->Bold());
  EXPECT_DOUBLE_EQ(a->lblHead().font->Size(), 8.25);
  EXPECT_EQ(a->lblHead().left, 120);
  EXPECT_EQ(a->lblHead().top, 45);
  EXPECT_EQ(a->lblAlert().top, 400);
  EXPECT_EQ(a->lblAlert().height, 1275);
  EXPECT_FALSE(a->lblAlert().font->Bold());
  EXPECT_EQ(a->lblGrab().caption, "::::::::");
  EXPECT_EQ(a->lblGrab().font->Name(), "Arial");
  EXPECT_DOUBLE_EQ(a->lblGrab().font->Size(), 14.25);
  EXPECT_DOUBLE_EQ(a->lblOptHeader().font->Size(), 6.75);
  EXPECT_TRUE(a->lblOptHeader().font->Underline());
  EXPECT_EQ(a->cmdClose().surface().pixelWidth(), 19);
  EXPECT_EQ(a->cmdClose().surface().pixelHeight(), 19);
  EXPECT_EQ(a->panGrab().surface().Height(), 150.0f);  // 145 twips is ten pixels
  EXPECT_EQ(a->hovOpt(1).surface().pixelWidth(), 41);
  EXPECT_EQ(a->hovOpt(2).surface().pixelWidth(), 18);
  RECT r1, r2;
  user().GetWindowRect(a->hovOpt(1).surface().hWnd(), r1);
  user().GetWindowRect(a->hovOpt(2).surface().hWnd(), r2);
  EXPECT_EQ(r2.Top - r1.Top, 19);  // 285 twips apart
  EXPECT_FALSE(a->closeVisible());
  EXPECT_FALSE(a->grabVisible());
  EXPECT_FALSE(a->optionsVisible());
  EXPECT_THROW(a->hovOpt(4), RuntimeError);
}

TEST_F(AlertTest, DisplayStoresTextsColoursAndTimerIntervals) {
  AlertArgs args;
  args.TimeMove = 25;
  args.Timewait = 3000;
  args.Alignment = Rechts;
  auto a = show(args);
  EXPECT_EQ(a->EchoString, "A1");
  EXPECT_EQ(a->headTag(), "T1");
  EXPECT_EQ(a->lblHead().caption, "Kopf");
  EXPECT_EQ(a->lblAlert().caption, "Text");
  EXPECT_EQ(a->lblHead().fore, 0x404040);
  EXPECT_EQ(a->lblAlert().fore, 0xFFFFFF);
  EXPECT_EQ(a->lblAlert().alignment, Rechts);
  EXPECT_EQ(a->lblHead().alignment, Rechts);
  EXPECT_EQ(a->timerInterval(1), 25);
  EXPECT_EQ(a->timerInterval(2), 25);
  EXPECT_EQ(a->timerInterval(3), 3000);
  EXPECT_TRUE(a->timerEnabled(1));
  EXPECT_FALSE(a->timerEnabled(3));
}

TEST_F(AlertTest, ScrollAlertStartsWithoutHeightAtTheBottomRight) {
  auto a = show();
  // Width: the background of 2000 twips (133 pixels) and one pixel.
  RECT r = rectOf(*a);
  EXPECT_EQ(r.Right, 1024);
  EXPECT_EQ(r.Right - r.Left, 134);
  EXPECT_EQ(r.Bottom - r.Top, 0);
  EXPECT_EQ(r.Top, 768);
  EXPECT_TRUE(a->Visible());
  EXPECT_EQ(a->targetHeight(), 2030);
  EXPECT_EQ(a->Tag, std::to_string(kScreenBottom - 2030));
  EXPECT_EQ(frmAlert::AlertStackTop, kScreenBottom - 2030);
}

TEST_F(AlertTest, AlertOpensInFivePixelStepsWaitsAndSlidesOut) {
  auto a = show();  // target 2030 twips: 135 pixels, 27 steps of 5
  desktop().advance(10 * 26);
  EXPECT_EQ(pixelHeight(*a), 130);
  EXPECT_EQ(rectOf(*a).Bottom, 768) << "the bottom edge stays put";
  desktop().advance(10);
  EXPECT_EQ(pixelHeight(*a), 135);
  EXPECT_TRUE(creator->log.empty());
  desktop().advance(10);  // the step that finds the height reached
  ASSERT_EQ(creator->log.size(), 1u);
  EXPECT_EQ(creator->log[0], "AlertShowed A1 T1");
  EXPECT_FALSE(a->timerEnabled(1));
  EXPECT_TRUE(a->timerEnabled(3));
  EXPECT_EQ(rectOf(*a).Top, 768 - 135);
  // The wait of 1000 milliseconds.
  desktop().advance(999);
  EXPECT_EQ(pixelHeight(*a), 135);
  desktop().advance(1);
  EXPECT_TRUE(a->timerEnabled(2));
  // Out in steps of 5 down to no more than 8 pixels: 26 steps, and the next one unloads.
  desktop().advance(10 * 26);
  EXPECT_EQ(pixelHeight(*a), 5);
  EXPECT_EQ(rectOf(*a).Bottom, 768);
  EXPECT_TRUE(a->isLoaded());
  desktop().advance(10);
  EXPECT_FALSE(a->isLoaded());
  EXPECT_EQ(alertForms(), 0);
  ASSERT_EQ(creator->log.size(), 2u);
  EXPECT_EQ(creator->log[1], "AlertClosed A1 T1 " + std::to_string(kScreenBottom - 2030));
}

TEST_F(AlertTest, TimewaitZeroKeepsTheAlertUntilItIsClosed) {
  AlertArgs args;
  args.Timewait = 0;
  auto a = show(args);
  desktop().advance(60000);
  EXPECT_TRUE(a->isLoaded());
  EXPECT_EQ(pixelHeight(*a), 135);
  a->tmrWarten_Timer();
  desktop().advance(1000);
  EXPECT_FALSE(a->isLoaded());
}

TEST_F(AlertTest, FourAlertsStepUpwardAndTheNextThatDoesNotFitStartsAtTheBottom) {
  AlertArgs args;
  args.PopupHeight = 2600;  // target 2630
  args.Timewait = 0;
  std::vector<std::shared_ptr<frmAlert>> alerts;
  for (int i = 0; i < 4; ++i) alerts.push_back(show(args));
  for (int i = 0; i < 4; ++i) EXPECT_EQ(alerts[i]->Tag, std::to_string(kScreenBottom - 2630 * (i + 1)));
  desktop().advance(2000);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(rectOf(*alerts[i]).Bottom, CLng((kScreenBottom - 2630 * i) / 15.0)) << i;
    EXPECT_EQ(pixelHeight(*alerts[i]), CLng(2630 / 15.0));
  }
  // 1000 twips are left: the fifth starts again at the bottom, over the first.
  auto fifth = show(args);
  EXPECT_EQ(fifth->Tag, std::to_string(kScreenBottom - 2630));
  EXPECT_EQ(rectOf(*fifth).Top, 768);
}

TEST_F(AlertTest, ExplicitHeightIsKeptAndTextOutsideThePopupSetsItsSize) {
  AlertArgs args;
  args.PopupHeight = 500;
  args.PopupWidth = 2000;
  args.TextY = 900;  // below the popup: the popup takes the text's origin as its size
  args.TextX = 60;
  auto a = show(args);
  EXPECT_EQ(args.PopupWidth, 60);
  EXPECT_EQ(args.PopupHeight, 900);
  AlertArgs wide;
  wide.PopupWidth = 500;
  wide.TextX = 700;  // TextX wins over the width
  wide.PopupHeight = 0;
  auto b = show(wide);
  EXPECT_EQ(wide.PopupWidth, 700);
  EXPECT_GT(wide.PopupHeight, 0) << "a measured height stays measured";
}

TEST_F(AlertTest, MeasuredHeightOfOneLineIsFiftyPixelsAtLeast) {
  AlertArgs args;
  args.PopupHeight = 0;
  args.TextY = 30;
  args.AlertText = "Eine Zeile";
  auto a = show(args);
  EXPECT_EQ(args.PopupHeight, 50 * 15);
  EXPECT_EQ(a->targetHeight(), 50 * 15 + 30);
}

TEST_F(AlertTest, MeasuredHeightFollowsTheTextAndStopsAtAutoMaxHeight) {
  AlertArgs args;
  args.PopupHeight = 0;
  args.TextY = 30;
  args.AlertText = std::string(400, 'x') + " " + std::string(20, 'y');
  for (int i = 0; i < 20; ++i) args.AlertText += "\r\nZeile";
  args.AutoMaxHeight = 1500;
  show(args);
  EXPECT_EQ(args.PopupHeight, 1500);
  AlertArgs explicitHeight;
  explicitHeight.PopupHeight = 3000;
  explicitHeight.AutoMaxHeight = 1500;
  auto b = show(explicitHeight);
  EXPECT_EQ(b->targetHeight(), 3030) << "AutoMaxHeight limits only a measured height";
  // A measured text of several lines is higher than one of one line.
  AlertArgs one, three;
  one.PopupHeight = three.PopupHeight = 0;
  one.TextY = three.TextY = 30;
  one.AlertText = "a";
  three.AlertText = "a\r\nb\r\nc\r\nd\r\ne";
  show(one);
  show(three);
  EXPECT_GT(three.PopupHeight, one.PopupHeight);
}

TEST_F(AlertTest, CloseButtonPlacesByBorderStyleAndRaisesTextY) {
  const std::pair<myBorderStyle, int32_t> cases[] = {{B0Normal, 23},   {B3Thin, 23},   {B1Edel, 19},
                                                     {B5NoBorder, 19}, {B2Inline, 21}, {B4Flat, 21},
                                                     {B6Movable, 21}};
  for (auto [style, offset] : cases) {
    AlertArgs args;
    args.CloseButton = true;
    args.BorderStyle = style;
    args.TextY = 0;
    args.BannerShow = false;
    args.AlertHeader = "";
    auto a = show(args);
    RECT r;
    user().GetWindowRect(a->cmdClose().surface().hWnd(), r);
    RECT w = rectOf(*a);
    EXPECT_EQ(r.Left - w.Left, CLng((2000 - offset * 15) / 15.0)) << style;
    EXPECT_TRUE(a->closeVisible());
    EXPECT_EQ(args.TextY, 20 * 15) << style;
    Forms::unloadAll();
  }
}

TEST_F(AlertTest, StylesAboveTwoNarrowTheWindowButNotItsFinalWidth) {
  AlertArgs args;
  args.BorderStyle = B4Flat;
  auto a = show(args);
  EXPECT_EQ(rectOf(*a).Right - rectOf(*a).Left, 134);
}

TEST_F(AlertTest, MovableWithBannerAndTextYZeroStartsTheTextAt24PixelsUnderA23PixelBanner) {
  AlertArgs args;
  args.BorderStyle = B6Movable;
  args.BannerShow = true;
  args.BannerColor = 0x00FF00;
  args.TextY = 0;
  args.Timewait = 0;
  auto a = show(args);
  EXPECT_EQ(args.TextY, 24 * 15);
  EXPECT_EQ(a->lblAlert().top, 24 * 15);
  EXPECT_EQ(a->headHeight(), 23 * 15);
  EXPECT_TRUE(a->grabVisible());
  EXPECT_EQ(a->lblHead().top, 8 * 15);
  desktop().advance(2000);
  auto* canvas = desktop().windows().windowCanvas(a->picBackground().surface().hWnd());
  EXPECT_EQ(canvas->pixel(5, 22), 0x00FF00u) << "banner";
  EXPECT_NE(canvas->pixel(5, 23), 0x00FF00u) << "below the banner";
}

TEST_F(AlertTest, MovableHeaderRulesForTextY) {
  AlertArgs withHeader;
  withHeader.BorderStyle = B6Movable;
  withHeader.BannerShow = false;
  withHeader.TextY = 0;
  auto a = show(withHeader);
  EXPECT_EQ(withHeader.TextY, 22 * 15);
  EXPECT_EQ(a->headHeight(), 9 * 15);
  AlertArgs without = withHeader;
  without.TextY = 0;
  without.AlertHeader = "";
  show(without);
  EXPECT_EQ(without.TextY, 9 * 15);
  AlertArgs high = withHeader;
  high.TextY = 600;
  show(high);
  EXPECT_EQ(high.TextY, 600) << "TextY only grows";
}

TEST_F(AlertTest, OptionsGrowThePopupAndShowTheirLines) {
  struct Case {
    std::string t1, t2, t3;
    int32_t grow, above, lines;
  };
  const Case cases[] = {{"Eins", "", "", 38, 39, 1},
                        {"Eins", "Zwei", "", 56, 57, 2},
                        {"Eins", "Zwei", "Drei", 76, 76, 3},
                        {"Eins", "", "Drei", 38, 39, 1}};  // a third line without a second counts as one
  for (const Case& c : cases) {
    AlertArgs args;
    args.OptionTxt1 = c.t1;
    args.OptionTxt2 = c.t2;
    args.OptionTxt3 = c.t3;
    args.OptionHeader = "Wahl";
    auto a = show(args);
    EXPECT_EQ(args.PopupHeight, 2000 + c.grow * 15) << c.lines;
    EXPECT_TRUE(a->optionsVisible());
    RECT opt, back;
    user().GetWindowRect(a->panOpt().surface().hWnd(), opt);
    user().GetWindowRect(a->picBackground().surface().hWnd(), back);
    EXPECT_EQ(opt.Top - back.Top, CLng((args.PopupHeight - c.above * 15) / 15.0)) << c.lines;
    EXPECT_EQ(opt.Right - opt.Left, CLng(2000 / 15.0));
    for (int32_t i = 1; i <= 3; ++i) {
      bool shown = (user().GetWindowLongA(a->hovOpt(i).surface().hWnd(), GWL_STYLE) & WS_VISIBLE) != 0;
      EXPECT_EQ(shown, i <= c.lines) << c.lines << " " << i;
    }
    EXPECT_EQ(a->lblOptHeader().caption, "Wahl");
    EXPECT_EQ(a->hovOpt(1).Caption(), "Eins");
    EXPECT_EQ(a->hovOpt(3).Icon(), a->hovOpt(1).Icon());
    Forms::unloadAll();
  }
}

TEST_F(AlertTest, GradientUsesBackColorAltAsFirstAndBackColorAsSecondColour) {
  AlertArgs args;
  args.BackColor = 0x0000FF;
  args.BackColorAlt = 0xFF0000;
  args.GradientAngle = 0;  // from left to right
  args.BannerShow = false;
  args.AlertHeader = "";
  args.AlertText = "";
  args.BorderStyle = B5NoBorder;
  auto a = show(args);
  auto* canvas = desktop().windows().windowCanvas(a->picBackground().surface().hWnd());
  COLORREF left = canvas->pixel(1, 60), right = canvas->pixel(131, 60);
  EXPECT_GT(left & 0xFF0000, right & 0xFF0000) << "blue, the alternative colour, is first";
  EXPECT_GT(right & 0xFF, left & 0xFF);
}

TEST_F(AlertTest, WallpaperTilesTheBackgroundInsteadOfTheGradient) {
  AlertArgs args;
  args.BannerShow = false;
  args.AlertHeader = "";
  args.AlertText = "";
  args.BorderStyle = B5NoBorder;
  args.WallPic = LoadResPicture("CLOSE1");  // 19 by 19 pixels
  auto a = show(args);
  auto* canvas = desktop().windows().windowCanvas(a->picBackground().surface().hWnd());
  // A tile repeats every 19 pixels.
  EXPECT_EQ(canvas->pixel(3, 40), canvas->pixel(3 + 19, 40 + 19));
  EXPECT_EQ(canvas->pixel(9, 9 + 19 * 2), canvas->pixel(9 + 19 * 3, 9));
}

TEST_F(AlertTest, IconIsDrawnAtItsPlace) {
  AlertArgs args;
  args.IconPic = LoadResPicture("CLOSE2");
  args.IconX = 300;
  args.IconY = 600;
  args.BorderStyle = B5NoBorder;
  auto a = show(args);
  auto* canvas = desktop().windows().windowCanvas(a->picBackground().surface().hWnd());
  // The icon's frame colour at its top left corner (20, 40).
  EXPECT_EQ(canvas->pixel(20, 40), 0xB05020u);
}

TEST_F(AlertTest, FadeAlertStandsAtFullHeightTranslucentAndIsShowedAtOnce) {
  setVersion(6, 0);
  AlertArgs args;
  args.Effekt = FX2Fade;
  auto a = show(args);
  EXPECT_EQ(a->effectMarker(), "Fade");
  EXPECT_TRUE(a->Visible());
  EXPECT_EQ(pixelHeight(*a), 135);
  EXPECT_EQ(rectOf(*a).Top, CLng((kScreenBottom - 2030) / 15.0));
  EXPECT_TRUE(windowOf(*a)->exStyle & WS_EX_LAYERED);
  EXPECT_GE(windowOf(*a)->alpha, 225);
  EXPECT_LE(windowOf(*a)->alpha, 230);
  ASSERT_EQ(creator->log.size(), 1u);
  EXPECT_EQ(creator->log[0], "AlertShowed A1 T1");
  EXPECT_TRUE(a->timerEnabled(3));
}

TEST_F(AlertTest, WaitEndOfAFadeAlertFadesOutFrom230) {
  useXP();
  AlertArgs args;
  args.Effekt = FX2Fade;
  auto a = show(args);
  PumpCounter counter(a->form().hWnd());
  counter.start(desktop());
  a->tmrWarten_Timer();
  EXPECT_FALSE(a->isLoaded());
  ASSERT_FALSE(counter.alphas.empty());
  EXPECT_EQ(counter.alphas.front(), 230);
  EXPECT_LT(counter.alphas.back(), 5);
  EXPECT_EQ(counter.pumps, fadeOutSteps(2025, 2010, 230));
}

TEST_F(AlertTest, HoveringAFadingAlertMakesItOpaqueHoldsItAndItsCloseFadesFrom255) {
  useXP();
  AlertArgs args;
  args.Effekt = FX2Fade;
  args.Timewait = 500;
  auto a = show(args);
  RECT r = rectOf(*a);
  desktop().mouseMove(r.Left + 60, r.Top + 60);
  EXPECT_EQ(a->effectMarker(), "Faded");
  EXPECT_FALSE(windowOf(*a)->exStyle & WS_EX_LAYERED);
  EXPECT_FALSE(a->timerEnabled(3));
  // Held: the wait does not run again, not even after the mouse has left.
  desktop().mouseMove(10, 10);
  desktop().advance(5000);
  EXPECT_TRUE(a->isLoaded());
  PumpCounter counter(a->form().hWnd());
  counter.start(desktop());
  a->tmrWarten_Timer();
  EXPECT_FALSE(a->isLoaded());
  EXPECT_EQ(counter.pumps, fadeOutSteps(2025, 2010, 255));
}

TEST_F(AlertTest, HoverDoesNotHoldAScrollAlert) {
  AlertArgs args;
  args.Timewait = 500;
  auto a = show(args);
  desktop().advance(300);
  RECT r = rectOf(*a);
  desktop().mouseMove(r.Left + 60, r.Top + 60);
  EXPECT_TRUE(a->textUnderlined());
  desktop().advance(500 + 300);
  EXPECT_FALSE(a->isLoaded());
}

TEST_F(AlertTest, HoverUnderlinesTheTextInTheHyperColourAndLeavingRestoresIt) {
  AlertArgs args;
  args.Timewait = 0;
  args.ForeColor = 0xFFFFFF;
  args.ForeColorHyper = 0x00FFFF;
  auto a = show(args);
  desktop().advance(400);
  RECT r = rectOf(*a);
  desktop().mouseMove(r.Left + 60, r.Top + 60);
  EXPECT_TRUE(a->textUnderlined());
  EXPECT_EQ(a->textColour(), 0x00FFFF);
  EXPECT_EQ(a->picBackground().surface().MousePointer(), 99);
  EXPECT_EQ(creator->log.back(), "AlertMouseMove A1");
  EXPECT_EQ(user().GetCapture(), a->picBackground().surface().hWnd());
  // The head strip (the banner's 19 pixels) does not count as the text.
  desktop().mouseMove(r.Left + 60, r.Top + 5);
  EXPECT_FALSE(a->textUnderlined());
  EXPECT_EQ(a->textColour(), 0xFFFFFF);
  EXPECT_EQ(a->picBackground().surface().MousePointer(), 0);
  EXPECT_EQ(user().GetCapture(), 0);
  // Within three pixels of the right edge counts as outside too.
  desktop().mouseMove(r.Left + 60, r.Top + 60);
  EXPECT_TRUE(a->textUnderlined());
  desktop().mouseMove(r.Left + 131, r.Top + 60);
  EXPECT_FALSE(a->textUnderlined());
}

TEST_F(AlertTest, ClickOnTheTextCallsAlertClickOnceAndUnloadsAtOnce) {
  auto a = show();
  desktop().advance(400);
  RECT r = rectOf(*a);
  desktop().click(r.Left + 60, r.Top + 60);
  ASSERT_EQ(creator->log.size(), 4u);  // AlertShowed, AlertMouseMove, AlertClick, AlertClosed
  EXPECT_EQ(creator->log[2], "AlertClick A1 T1 0");
  EXPECT_EQ(creator->log[3], "AlertClosed A1 T1 " + std::to_string(kScreenBottom - 2030));
  EXPECT_FALSE(a->isLoaded());
  EXPECT_EQ(alertForms(), 0);
  desktop().advance(2000);
  EXPECT_EQ(creator->log.size(), 4u);
}

TEST_F(AlertTest, ClickInTheHeadStripClosesTheAlertToo) {
  auto a = show();
  desktop().advance(400);
  RECT r = rectOf(*a);
  desktop().click(r.Left + 60, r.Top + 5);
  EXPECT_FALSE(a->isLoaded());
  EXPECT_NE(std::find(creator->log.begin(), creator->log.end(), "AlertClick A1 T1 0"), creator->log.end());
}

TEST_F(AlertTest, CloseButtonShowsItsThreeLooksAndClicksWithOptionMinusOne) {
  AlertArgs args;
  args.CloseButton = true;
  auto a = show(args);
  desktop().advance(400);
  RECT b;
  user().GetWindowRect(a->cmdClose().surface().hWnd(), b);
  PictureRef close1 = a->cmdClose().surface().Picture();
  desktop().mouseMove(b.Left + 9, b.Top + 9);
  PictureRef hot = a->cmdClose().surface().Picture();
  EXPECT_NE(hot, close1);
  EXPECT_EQ(a->cmdClose().surface().MousePointer(), 99);
  auto* canvas = desktop().windows().windowCanvas(a->cmdClose().surface().hWnd());
  COLORREF hotFace = canvas->pixel(3, 9);
  desktop().mouseDown();
  EXPECT_NE(canvas->pixel(3, 9), hotFace) << "pressed looks different from hot";
  desktop().mouseUp();
  EXPECT_NE(std::find(creator->log.begin(), creator->log.end(), "AlertClick A1 T1 -1"), creator->log.end());
  EXPECT_FALSE(a->isLoaded());
}

TEST_F(AlertTest, LeavingTheCloseButtonDisablesTheTextAndTheBodyEnablesItAgain) {
  AlertArgs args;
  args.CloseButton = true;
  args.Timewait = 0;
  auto a = show(args);
  desktop().advance(400);
  RECT b;
  user().GetWindowRect(a->cmdClose().surface().hWnd(), b);
  desktop().mouseMove(b.Left + 9, b.Top + 9);
  desktop().mouseMove(b.Left - 3, b.Top + 9);  // captured: the move still reaches the button
  EXPECT_FALSE(a->lblAlert().enabled);
  EXPECT_EQ(a->cmdClose().surface().MousePointer(), 0);
  desktop().mouseMove(b.Left - 40, b.Top + 60);
  EXPECT_TRUE(a->lblAlert().enabled);
}

TEST_F(AlertTest, OptionClickCallsBackWithItsIndexAndUnloadsAtTheNextTick) {
  AlertArgs args;
  args.OptionTxt1 = "Eins";
  args.OptionTxt2 = "Zwei";
  auto a = show(args);
  desktop().advance(600);
  RECT line;
  user().GetWindowRect(a->hovOpt(2).surface().hWnd(), line);
  desktop().click(line.Left + 3, line.Top + 5);
  EXPECT_FALSE(a->Visible());
  EXPECT_EQ(pixelHeight(*a), 0);
  EXPECT_EQ(creator->log.back(), "AlertClick A1 T1 2");
  EXPECT_TRUE(a->isLoaded());
  desktop().advance(10);
  EXPECT_FALSE(a->isLoaded());
  EXPECT_EQ(creator->log.back(), "AlertClosed A1 T1 " + std::to_string(kScreenBottom - 2030 - 56 * 15));
}

TEST_F(AlertTest, WithOptionsTheBodyIsNoLinkAndAClickDoesNothing) {
  AlertArgs args;
  args.OptionTxt1 = "Eins";
  args.Timewait = 0;
  auto a = show(args);
  desktop().advance(600);
  RECT r = rectOf(*a);
  desktop().mouseMove(r.Left + 60, r.Top + 40);
  EXPECT_FALSE(a->textUnderlined());
  EXPECT_EQ(creator->log.back(), "AlertMouseMove A1");
  desktop().click(r.Left + 60, r.Top + 40);
  EXPECT_TRUE(a->isLoaded());
}

TEST_F(AlertTest, KilledAlertVanishesWithoutAnyCall) {
  AlertArgs args;
  auto a = show(args);
  desktop().advance(400);
  size_t before = creator->log.size();
  a->EchoString = frmAlert::kKilled;
  a->tmrWarten_Timer();
  EXPECT_FALSE(a->isLoaded());
  EXPECT_EQ(creator->log.size(), before);
}

TEST_F(AlertTest, ForcedCloseWhileOpeningSlidesOut) {
  auto a = show();
  desktop().advance(50);
  a->tmrWarten_Timer();
  EXPECT_FALSE(a->timerEnabled(1));
  EXPECT_TRUE(a->timerEnabled(2));
  EXPECT_FALSE(a->form().Enabled());
  desktop().advance(200);
  EXPECT_FALSE(a->isLoaded());
}

TEST_F(AlertTest, HiddenAlertUnloadsAtOnceOnTheWaitsEnd) {
  auto a = show();
  a->form().Hide();
  a->tmrWarten_Timer();
  EXPECT_FALSE(a->isLoaded());
}

TEST_F(AlertTest, WithoutCreatorNothingIsCalledAndEmptyEchoIsOrdinary) {
  AlertArgs args;
  args.EchoString = "";
  auto a = show(args, false);
  desktop().advance(5000);
  EXPECT_FALSE(a->isLoaded());
  EXPECT_TRUE(creator->log.empty());
  auto b = show(args);
  desktop().advance(5000);
  EXPECT_EQ(creator->log.back(), "AlertClosed  T1 " + b->Tag);
}

TEST_F(AlertTest, DraggingTheGripTakesTheAlertOutOfTheStack) {
  AlertArgs args;
  args.BorderStyle = B6Movable;
  args.Timewait = 500;
  auto below = show(args);
  auto a = show(args);
  desktop().advance(400);
  RECT r = rectOf(*a);
  desktop().mouseMove(r.Left + 20, r.Top + 4);
  desktop().mouseDown();
  desktop().mouseMove(r.Left + 10, r.Top + 2);  // the drag starts here
  EXPECT_EQ(a->Tag, frmAlert::kDetachedTag);
  EXPECT_EQ(a->effectMarker(), "Faded");
  EXPECT_FALSE(user().GetWindowLongA(a->form().hWnd(), GWL_EXSTYLE) & WS_EX_TOPMOST);
  EXPECT_EQ(frmAlert::AlertStackTop, CLng(Val(below->Tag))) << "only the other alert counts now";
  EXPECT_EQ(rectOf(*a).Left, r.Left);
  desktop().mouseMove(r.Left - 290, r.Top - 148);
  desktop().mouseUp();
  EXPECT_EQ(rectOf(*a).Left, r.Left - 300);
  EXPECT_EQ(rectOf(*a).Top, r.Top - 150);
  // It stays where it was left and no longer closes by time.
  desktop().advance(10000);
  EXPECT_FALSE(below->isLoaded());
  EXPECT_TRUE(a->isLoaded());
  EXPECT_EQ(rectOf(*a).Left, r.Left - 300);
  // Its unload passes 666666.
  a->tmrWarten_Timer();
  EXPECT_EQ(creator->log.back(), "AlertClosed A1 T1 666666");
}

TEST_F(AlertTest, DraggedAlertIsIgnoredByTheScansOfTheStack) {
  AlertArgs args;
  args.BorderStyle = B6Movable;
  args.Timewait = 0;
  auto a = show(args);
  desktop().advance(400);
  RECT r = rectOf(*a);
  desktop().mouseMove(r.Left + 20, r.Top + 4);
  desktop().mouseDown();
  desktop().mouseMove(r.Left + 10, r.Top + 4);
  desktop().mouseUp();
  EXPECT_EQ(frmAlert::AlertStackTop, 0) << "no alert left in the stack";
  auto next = show();
  EXPECT_EQ(next->Tag, std::to_string(kScreenBottom - 2030));
  frmAlert::repairStack(CLng(Val(next->Tag)));
  EXPECT_EQ(frmAlert::AlertStackTop, 0) << "the dragged one is no candidate";
}

TEST_F(AlertTest, AlertsWithoutPlaceAreUnloadedByTheDragScan) {
  AlertArgs args;
  args.BorderStyle = B6Movable;
  auto a = show(args);
  auto other = show();
  other->Tag = "";
  desktop().advance(400);
  RECT r = rectOf(*a);
  desktop().mouseMove(r.Left + 20, r.Top + 4);
  desktop().mouseDown();
  desktop().mouseMove(r.Left + 10, r.Top + 4);
  desktop().mouseUp();
  EXPECT_FALSE(other->isLoaded());
}

TEST_F(AlertTest, SoundPlaysOnlyWhenAllowed) {
  AlertArgs args;
  args.WaveFile = "C:\\ding.wav";
  args.PlaySound = false;
  show(args);
  EXPECT_TRUE(desktop().soundsPlayed().empty());
  args.PlaySound = true;
  show(args);
  EXPECT_EQ(desktop().soundsPlayed().size(), 1u);
  Global::setSoundOn(false);
  show(args);
  Global::setSoundOn(true);
  EXPECT_EQ(desktop().soundsPlayed().size(), 1u);
}

TEST_F(AlertTest, UnloadClearsTheCreatorAndASecondUnloadDoesNothing) {
  auto a = show();
  a->Unload();
  EXPECT_EQ(a->Parent(), nullptr);
  a->Unload();
  a->tmrWarten_Timer();
  EXPECT_EQ(std::count_if(creator->log.begin(), creator->log.end(),
                          [](const std::string& s) { return s.rfind("AlertClosed", 0) == 0; }),
            1);
}

TEST_F(AlertTest, ReachableByName) {
  auto a = show();
  EXPECT_EQ(a->get("EchoString").toString(), "A1");
  a->let("Tag", std::string("42"));
  EXPECT_EQ(a->Tag, "42");
  a->call("tmrWarten_Timer");
  desktop().advance(1000);
  EXPECT_FALSE(a->isLoaded());
}

}  // namespace corvane::test

namespace corvane::test {
TEST_F(AlertTest, MoveBarShowsItsGradientAboveTheBanner) {
  AlertArgs args;
  args.BorderStyle = B6Movable;
  args.MoveBarColor1 = 0x0000FF;
  args.MoveBarColor2 = 0x0000FF;
  args.Timewait = 0;
  auto a = show(args);
  desktop().advance(400);
  RECT r = rectOf(*a);
  // The bar covers the top nine pixels of the banner; its grip lies on it.
  EXPECT_EQ(screenPixel(r.Left + 100, r.Top + 4), 0x0000FFu);
  EXPECT_EQ(screenPixel(r.Left + 100, r.Top + 15), args.BannerColor);
}
}  // namespace corvane::test

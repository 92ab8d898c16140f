// SPDX-License-Identifier: MIT
// The balloon window's life: loading, placing and turning the tip, the timers on the virtual
// clock, closing by clicks, and the one shared instance.
#include <corvane/host/extender.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/widgets/vex_color_label.h>

#include "support/balloon_fixture.h"

namespace corvane::test {
namespace {

using BalloonWindowTest = BalloonTest;

// ---- loading ----

TEST_F(BalloonWindowTest, LoadingAlignsTheStubsAndMakesTheWindowTopMostWithADropShadow) {
  balloon().load();
  BalloonWindow& b = balloon();
  EXPECT_FLOAT_EQ(b.TopStub[0].Y1, 19 * ty());
  EXPECT_FLOAT_EQ(b.TopStub[1].Y2, b.TopStub[0].Y2);
  EXPECT_FLOAT_EQ(b.BottomStub[0].Y1, 8 * ty());
  EXPECT_FLOAT_EQ(b.BottomStub[1].Y2, b.BottomStub[0].Y2);
  for (const BalloonStub* s : {&b.TopStub[0], &b.TopStub[1], &b.BottomStub[0], &b.BottomStub[1]})
    EXPECT_TRUE(s->Visible);
  HWND h = b.form()->hWnd();
  EXPECT_TRUE(user().GetWindowLongA(h, GWL_EXSTYLE) & WS_EX_TOPMOST);
  EXPECT_TRUE(user().GetClassLongA(h, GCL_STYLE) & 131072);
  EXPECT_FALSE(b.tmrEnabled());
}

TEST_F(BalloonWindowTest, ControlsHaveTheirLoadedSizes) {
  balloon().load();
  BalloonWindow& b = balloon();
  Extender& icon = b.picIcon->extenderObject();
  EXPECT_FLOAT_EQ(icon.Left(), 120);
  EXPECT_FLOAT_EQ(icon.Top(), 390);
  EXPECT_FLOAT_EQ(icon.Width(), 240);
  EXPECT_FLOAT_EQ(icon.Height(), 240);
  Extender& msg = b.lblMsg->extenderObject();
  EXPECT_FLOAT_EQ(msg.Left(), 120);
  EXPECT_FLOAT_EQ(msg.Top(), 720);
  EXPECT_FLOAT_EQ(b.lblTitle->extenderObject().Top(), 420);
  EXPECT_EQ(b.lblTitle->Font()->Name(), "MS Sans Serif");
  EXPECT_TRUE(b.lblTitle->Font()->Bold());
  EXPECT_DOUBLE_EQ(b.lblTitle->Font()->Size(), 8.25);
  for (const auto& c : b.Corners) {
    EXPECT_EQ(c->surface().pixelWidth(), 37);
    EXPECT_EQ(c->surface().pixelHeight(), 28);
  }
}

// ---- sizes ----

TEST_F(BalloonWindowTest, WidthAndHeightFollowTheLabels) {
  popAtMouse(300, 400, "Kurz", false);
  BalloonWindow& b = balloon();
  Extender& msg = b.lblMsg->extenderObject();
  Extender& title = b.lblTitle->extenderObject();
  float width = std::max(msg.Width(), title.Width()) + 16 * tx();
  EXPECT_FLOAT_EQ(b.form()->surface().Width(), width);
  EXPECT_FLOAT_EQ(b.form()->surface().Height(), msg.Top() + msg.Height() + 12 * ty());
  EXPECT_FLOAT_EQ(title.Left(), 8 * tx());
  EXPECT_FALSE(b.picIcon->extenderObject().Visible());
}

TEST_F(BalloonWindowTest, AnIconShowsAndMovesTheTitleRight) {
  BalloonRequest r;
  r.Icon = vbInformation;
  r.Title = "Ein recht langer Titel, breiter als der Text";
  pop(r, "Kurz");
  BalloonWindow& b = balloon();
  EXPECT_TRUE(b.picIcon->extenderObject().Visible());
  EXPECT_NE(b.picIcon->surface().Picture()->Handle(), 0);
  Extender& title = b.lblTitle->extenderObject();
  EXPECT_FLOAT_EQ(title.Left(), 32 * tx());
  float width = std::max(b.lblMsg->extenderObject().Width(), title.Width() + 24 * tx()) + 16 * tx();
  EXPECT_FLOAT_EQ(b.form()->surface().Width(), width);
}

TEST_F(BalloonWindowTest, EachIconTypeHasItsOwnPicture) {
  for (IconType icon : std::initializer_list<IconType>{vbCritical, vbExclamation, vbInformation, vbFullContact}) {
    BalloonRequest r;
    r.Icon = icon;
    pop(r);
    EXPECT_NE(balloon().picIcon->surface().Picture()->Handle(), 0) << icon;
  }
}

TEST_F(BalloonWindowTest, AnIconWithoutAResourceLeavesTheIconBoxEmptyButShown) {
  BalloonRequest r;
  r.Icon = 32;  // resource 2 does not exist
  pop(r);
  EXPECT_EQ(balloon().picIcon->surface().Picture()->Handle(), 0);
  EXPECT_TRUE(balloon().picIcon->extenderObject().Visible());
}

TEST_F(BalloonWindowTest, ALongMessageWrapsAtMaxWidth) {
  BalloonRequest r;
  r.MaxWidth = 3000;
  pop(r, "Ein sehr langer Text, der nicht in eine Zeile passt, weil er viel breiter ist als erlaubt.");
  EXPECT_TRUE(balloon().lblMsg->WordWrap());
  EXPECT_FLOAT_EQ(balloon().lblMsg->extenderObject().Width(), 3000);
  EXPECT_GT(balloon().lblMsg->extenderObject().Height(), 195);
}

TEST_F(BalloonWindowTest, AShortMessageDoesNotWrap) {
  BalloonRequest r;
  r.MaxWidth = 3000;
  pop(r, "Kurz");
  EXPECT_FALSE(balloon().lblMsg->WordWrap());
  EXPECT_LT(balloon().lblMsg->extenderObject().Width(), 3000);
}

TEST_F(BalloonWindowTest, FontFaceSizeAndHeadColourReachTheLabels) {
  BalloonRequest r;
  r.fontFace = "Arial";
  r.FontSize = 12;
  r.HeadColor = 0x0000FF;
  r.Title = "Titel";
  pop(r);
  BalloonWindow& b = balloon();
  EXPECT_EQ(b.lblMsg->Font()->Name(), "Arial");
  EXPECT_DOUBLE_EQ(b.lblMsg->Font()->Size(), 12);
  EXPECT_EQ(b.lblTitle->Font()->Name(), "Arial");
  EXPECT_DOUBLE_EQ(b.lblTitle->Font()->Size(), 12);
  EXPECT_TRUE(b.lblTitle->Font()->Bold());
  EXPECT_EQ(b.lblTitle->ForeColor(), 0x0000FFu);
  EXPECT_EQ(b.lblTitle->Caption(), "Titel");
}

TEST_F(BalloonWindowTest, ShowCloseHidesTheCloseButton) {
  BalloonRequest r;
  r.showClose = false;
  pop(r);
  EXPECT_FALSE(balloon().hovClose->extenderObject().Visible());
  r.showClose = true;
  pop(r);
  EXPECT_TRUE(balloon().hovClose->extenderObject().Visible());
  Extender& c = balloon().hovClose->extenderObject();
  EXPECT_FLOAT_EQ(c.Left(), balloon().form()->surface().ScaleWidth() - c.Width() - 4 * tx());
}

// ---- placing ----

TEST_F(BalloonWindowTest, AtTheMouseAboveTheTipPointsDownAtTheMouse) {
  popAtMouse(300, 400);
  EXPECT_EQ(tip(), "bottom left");
  EXPECT_EQ(balloon().Tag, "420");  // 28 pixels in twips
  RECT r = rect();
  EXPECT_EQ(r.Left, 300 - 16);
  EXPECT_EQ(r.Bottom, 400);
}

TEST_F(BalloonWindowTest, AtTheMouseBelowWhenTipAboveIsFalse) {
  popAtMouse(300, 400, "Text", false);
  EXPECT_EQ(tip(), "top left");
  EXPECT_EQ(balloon().Tag, "135");  // 9 pixels in twips
  RECT r = rect();
  EXPECT_EQ(r.Top, 400);
  EXPECT_EQ(r.Left, 300 - 16);
}

TEST_F(BalloonWindowTest, NearTheTopOfTheScreenTheBalloonStandsBelowWithTheTipUp) {
  popAtMouse(300, 40);
  EXPECT_EQ(tip(), "top left");
  EXPECT_EQ(rect().Top, 40);
}

TEST_F(BalloonWindowTest, TheMouseRoomTestComparesPixelsWithTwoTwipsPerPixel) {
  // The room above must exceed 2 * 15 = 30 pixels beyond the balloon's unchanged height.
  popAtMouse(300, 400);
  float height = balloon().form()->surface().Height() - 19 * ty();
  int32_t needed = static_cast<int32_t>(height / ty()) + 30;
  popAtMouse(300, needed);
  EXPECT_EQ(tip(), "top left") << "exactly 30 pixels of room is not enough";
  popAtMouse(300, needed + 1);
  EXPECT_EQ(tip(), "bottom left");
}

TEST_F(BalloonWindowTest, AtAPointAboveTheTipEndsNineteenPixelsBelowThePoint) {
  BalloonRequest r;
  r.PutAtCurrentMousePos = false;
  r.XinPixels = 400;
  r.YinPixels = 300;
  pop(r);
  EXPECT_EQ(tip(), "bottom left");
  RECT rc = rect();
  EXPECT_EQ(rc.Bottom, 300 + 19);
  EXPECT_EQ(rc.Left, 400 - 16);
}

TEST_F(BalloonWindowTest, AtAPointTheRoomTestNeedsATopAboveTwoHundredTwips) {
  BalloonRequest r;
  r.PutAtCurrentMousePos = false;
  r.XinPixels = 400;
  r.YinPixels = 300;
  pop(r);
  float height = balloon().form()->surface().Height() - 19 * ty();
  // The last point whose top would be 200 twips or less: below.
  r.YinPixels = static_cast<int16_t>((200 + height) / ty());
  ASSERT_LE(r.YinPixels * ty() - height, 200);
  ASSERT_GT((r.YinPixels + 1) * ty() - height, 200);
  pop(r);
  EXPECT_EQ(tip(), "top left");
  EXPECT_EQ(rect().Top, r.YinPixels);
  r.YinPixels += 1;
  pop(r);
  EXPECT_EQ(tip(), "bottom left");
}

TEST_F(BalloonWindowTest, WithOnlyXGivenThePointCaseDoesNotApplyAndAMissingControlFails) {
  BalloonRequest r;
  r.PutAtCurrentMousePos = false;
  r.XinPixels = 400;
  r.YinPixels = 0;
  try {
    pop(r);
    FAIL() << "no control to point at";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 91);
  }
  EXPECT_FALSE(mini->m_IsVisible);
}

TEST_F(BalloonWindowTest, WithOnlyXGivenAndTheMouseWantedTheMouseCaseApplies) {
  desktop().mouseMove(500, 500);
  BalloonRequest r;
  r.XinPixels = 400;
  pop(r);
  EXPECT_EQ(rect().Left, 500 - 16);
}

TEST_F(BalloonWindowTest, AtAControlAboveTheTipPointsAtItsTopSixteenPixelsIn) {
  FormRef host = Form::create("Host", 3000, 1500);
  host->Move(200 * tx(), 300 * ty());
  host->Show();
  auto label = host->add<VexColorLabel>("lblTarget", 600, 600, 1500, 300);
  BalloonRequest r;
  r.CTRL = label->extenderRef();
  pop(r);
  RECT target{};
  user().GetWindowRect(label->hWnd(), target);
  EXPECT_EQ(tip(), "bottom left");
  EXPECT_EQ(rect().Left, target.Left + 16 - 16);
  EXPECT_EQ(rect().Bottom, target.Top);
}

TEST_F(BalloonWindowTest, AtAControlBelowTheBalloonStartsAtTheControlsBottomEdge) {
  FormRef host = Form::create("Host", 3000, 1500);
  host->Move(200 * tx(), 20 * ty());
  host->Show();
  auto label = host->add<VexColorLabel>("lblTarget", 600, 150, 1500, 300);
  BalloonRequest r;
  r.CTRL = label->extenderRef();
  pop(r);
  RECT target{};
  user().GetWindowRect(label->hWnd(), target);
  EXPECT_EQ(tip(), "top left");
  EXPECT_EQ(rect().Top, target.Top + 20);  // top plus the control's 300 twips
}

TEST_F(BalloonWindowTest, AControlNearTheRightAndBottomEdgesTurnsTheTipToTheRight) {
  // A form in the bottom right corner of the 1024 by 768 screen, a label at its right end.
  FormRef host = Form::create("Host", 3000, 1500);
  host->Move(1024 * tx() - 3000, 768 * ty() - 1500);
  host->Show();
  auto label = host->add<VexColorLabel>("lblTarget", 2100, 900, 800, 300);
  BalloonRequest r;
  r.CTRL = label->extenderRef();
  pop(r, "Eine Nachricht an einem Feld am Rand");
  RECT target{};
  user().GetWindowRect(label->hWnd(), target);
  // Room above, so the balloon stands above; no room to the right, so the tip turns right.
  EXPECT_EQ(tip(), "bottom right");
  EXPECT_TRUE(balloon().BottomStub[0].Visible);
  int32_t x = target.Left + 16;
  EXPECT_EQ(rect().Left, x - W() + 32);
  EXPECT_EQ(rect().Bottom, target.Top);
  EXPECT_LE(rect().Right, 1024);
}

TEST_F(BalloonWindowTest, BelowAndPastTheRightEdgeTheTipTurnsToTheTopRight) {
  popAtMouse(1010, 100, "Eine Nachricht am rechten Rand", false);
  EXPECT_EQ(tip(), "top right");
  EXPECT_TRUE(balloon().TopStub[0].Visible);
  EXPECT_EQ(rect().Left, 1010 - W() + 32);
}

TEST_F(BalloonWindowTest, ALeftBelowZeroBecomesZeroAndTheTipStaysLeft) {
  popAtMouse(5, 400);
  EXPECT_EQ(rect().Left, 0);
  EXPECT_EQ(tip(), "bottom left");
}

TEST_F(BalloonWindowTest, WithAWiderVirtualScreenOfTwoMonitorsTheTipDoesNotTurn) {
  desktop().setMonitors(2, 2048, 768);
  popAtMouse(1000, 400);
  EXPECT_EQ(tip(), "bottom left");
  EXPECT_EQ(rect().Left, 1000 - 16);
}

TEST_F(BalloonWindowTest, WithTwoMonitorsButPastTheVirtualScreenTheTipTurns) {
  desktop().setMonitors(2, 1024, 768);
  popAtMouse(1000, 400);
  EXPECT_EQ(tip(), "bottom right");
}

// ---- showing and closing ----

TEST_F(BalloonWindowTest, ANonModalBalloonIsShownGivesTheOwnerTheForegroundAndPollsTheButton) {
  popAtMouse(300, 400);
  EXPECT_TRUE(user().IsWindowVisible(balloon().form()->hWnd()));
  EXPECT_EQ(user().GetForegroundWindow(), owner->hWnd());
  EXPECT_TRUE(balloon().tmrEnabled());
  EXPECT_TRUE(mini->m_IsVisible);
  EXPECT_TRUE(mini->IsVisible());
}

TEST_F(BalloonWindowTest, ALeftClickAnywhereClosesANonModalBalloonAtTheNextTick) {
  popAtMouse(300, 400);
  desktop().advance(20);
  desktop().click(800, 700);  // far from the balloon
  EXPECT_TRUE(balloon().isLoaded());
  desktop().advance(29);
  EXPECT_TRUE(balloon().isLoaded()) << "the tick comes 50 ms after the show";
  desktop().advance(1);
  EXPECT_FALSE(balloon().isLoaded());
  EXPECT_FALSE(mini->m_IsVisible);
}

TEST_F(BalloonWindowTest, APressFromBeforeTheBalloonDoesNotCloseIt) {
  desktop().mouseMove(300, 400);
  desktop().mouseDown(1);
  desktop().mouseUp(1);
  popAtMouse(300, 400);
  desktop().advance(200);
  EXPECT_TRUE(balloon().isLoaded());
}

TEST_F(BalloonWindowTest, WithoutClicksTheBalloonStays) {
  popAtMouse(300, 400);
  desktop().advance(60000);
  EXPECT_TRUE(balloon().isLoaded());
  EXPECT_EQ(balloon().Timer1Interval(), 0);
}

TEST_F(BalloonWindowTest, AutoCloseTimeClosesAfterItsSeconds) {
  BalloonRequest r;
  r.autoCloseTime = 3;
  pop(r);
  EXPECT_EQ(balloon().Timer1Interval(), 3000);
  desktop().advance(2999);
  EXPECT_TRUE(balloon().isLoaded());
  desktop().advance(1);
  EXPECT_FALSE(balloon().isLoaded());
  EXPECT_FALSE(mini->m_IsVisible);
}

TEST_F(BalloonWindowTest, AnAutoCloseTimeOfThirtyTwoIsTheLargestThatFits) {
  BalloonRequest r;
  r.autoCloseTime = 32;
  pop(r);
  EXPECT_EQ(balloon().Timer1Interval(), 32000);
}

TEST_F(BalloonWindowTest, AnAutoCloseTimeAboveThirtyTwoOverflows) {
  BalloonRequest r;
  r.autoCloseTime = 33;
  std::string m = "Text";
  try {
    balloon().popUpBalloon(*mini, m, r);
    FAIL() << "33 * 1000 does not fit 16 bits";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 6);
  }
  EXPECT_EQ(m, "Text     ") << "the blanks come before the timer";
  EXPECT_FALSE(mini->m_IsVisible);
}

TEST_F(BalloonWindowTest, ANegativeAutoCloseTimeIsAnInvalidInterval) {
  BalloonRequest r;
  r.autoCloseTime = -1;
  try {
    pop(r);
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
  }
}

TEST_F(BalloonWindowTest, TheMessageComesBackWithFiveBlanks) {
  std::string m = "Hallo";
  balloon().popUpBalloon(*mini, m, BalloonRequest{});
  EXPECT_EQ(m, "Hallo     ");
  EXPECT_EQ(balloon().lblMsg->Caption(), "Hallo");  // the label trims its caption
}

// A click on each part of the balloon closes it at once, without the timer.
TEST_F(BalloonWindowTest, AClickOnAnyPartClosesIt) {
  struct Part {
    const char* name;
    std::function<HWND()> window;
  };
  std::vector<Part> parts = {
      {"body", [&] { return balloon().form()->hWnd(); }},
      {"message", [&] { return static_cast<HWND>(balloon().lblMsg->hWnd()); }},
      {"title", [&] { return balloon().lblTitle->surface().hWnd(); }},
      {"icon", [&] { return balloon().picIcon->surface().hWnd(); }},
      {"close", [&] { return static_cast<HWND>(balloon().hovClose->hWnd()); }},
      {"corner top right", [&] { return balloon().Corners[1]->surface().hWnd(); }},
      {"corner bottom left", [&] { return balloon().Corners[2]->surface().hWnd(); }},
  };
  for (const Part& p : parts) {
    BalloonRequest r;
    r.Icon = vbCritical;
    r.Title = "Titel";
    pop(r);
    ASSERT_TRUE(mini->m_IsVisible);
    HWND h = p.window();
    RECT wr{};
    user().GetWindowRect(h, wr);
    int32_t x = (wr.Left + wr.Right) / 2, y = (wr.Top + wr.Bottom) / 2;
    if (h == balloon().form()->hWnd()) y = wr.Top + 22;  // the body, between title and edge
    if (h == balloon().Corners[1]->surface().hWnd()) x = wr.Left + 30, y = wr.Top + 21;
    if (h == balloon().Corners[2]->surface().hWnd()) x = wr.Left + 8, y = wr.Top + 3;
    ASSERT_EQ(user().WindowFromPoint(x, y), h) << p.name;
    desktop().click(x, y);
    EXPECT_FALSE(balloon().isLoaded()) << p.name;
    EXPECT_FALSE(mini->m_IsVisible) << p.name;
  }
}

TEST_F(BalloonWindowTest, AClickInTheWindowsBoxButOutsideItsShapeReachesTheWindowBelow) {
  FormRef below = Form::create("Below", 15000, 11000);
  below->Show();
  int clicks = 0;
  below->surface().Click.connect([&] { ++clicks; });
  BalloonRequest r;
  r.ShowModal = false;
  popAtMouse(300, 400);
  RECT rc = rect();
  desktop().click(rc.Left + 2, rc.Top + 5);  // the upper rows are cut away
  EXPECT_EQ(clicks, 1);
}

TEST_F(BalloonWindowTest, ASecondBalloonReplacesTheFirst) {
  auto other = std::make_shared<cMiniBalloon>();
  popAtMouse(300, 400, "Erster");
  HWND first = balloon().form()->hWnd();
  ASSERT_TRUE(mini->m_IsVisible);
  std::string m = "Zweiter";
  balloon().popUpBalloon(*other, m, BalloonRequest{});
  EXPECT_FALSE(mini->m_IsVisible);
  EXPECT_TRUE(other->m_IsVisible);
  EXPECT_FALSE(user().IsWindow(first) && user().IsWindowVisible(first));
  int loaded = 0;
  for (const FormRef& f : Forms::all()) loaded += f->Name() == "frmBalloon";
  EXPECT_EQ(loaded, 1);
  EXPECT_EQ(balloon().lblMsg->Caption(), "Zweiter");
  // The new one starts with all stubs visible but its own.
  EXPECT_EQ(tip(), "bottom left");
  other.reset();
}

TEST_F(BalloonWindowTest, AfterACloseTheClassHasLostTheShadowAndANewBalloonSetsItAnew) {
  popAtMouse(300, 400);
  FormRef first = balloon().form();  // keeps the window for the look afterwards
  HWND h = first->hWnd();
  ASSERT_TRUE(user().GetClassLongA(h, GCL_STYLE) & 131072);
  desktop().click(rect().Left + 40, rect().Top + 60);
  ASSERT_FALSE(balloon().isLoaded());
  EXPECT_FALSE(user().GetClassLongA(h, GCL_STYLE) & 131072);
  EXPECT_FALSE(user().IsWindowVisible(h));
  first.reset();
  popAtMouse(300, 400);
  EXPECT_TRUE(user().GetClassLongA(balloon().form()->hWnd(), GCL_STYLE) & 131072);
}

TEST_F(BalloonWindowTest, AModalBalloonReturnsWhenTimer1ClosesIt) {
  BalloonRequest r;
  r.ShowModal = true;
  r.autoCloseTime = 2;
  uint32_t start = user().GetTickCount();
  pop(r);
  EXPECT_FALSE(balloon().isLoaded());
  EXPECT_EQ(user().GetTickCount() - start, 2000u);
  EXPECT_FALSE(mini->m_IsVisible);
}

TEST_F(BalloonWindowTest, AModalBalloonDoesNotPollTheButton) {
  BalloonRequest r;
  r.ShowModal = true;
  pop(r);  // nothing to wait for on the headless desktop: the call returns, the balloon stays
  ASSERT_TRUE(balloon().isLoaded());
  EXPECT_FALSE(balloon().tmrEnabled());
  desktop().click(900, 700);
  desktop().advance(500);
  EXPECT_TRUE(balloon().isLoaded());
  desktop().click(rect().Left + 40, rect().Top + 60);
  EXPECT_FALSE(balloon().isLoaded());
}

TEST_F(BalloonWindowTest, UnloadingWhatIsNotLoadedDoesNothing) {
  balloon().unload();
  balloon().unload();
  EXPECT_FALSE(balloon().isLoaded());
}

TEST_F(BalloonWindowTest, AnApplicationsEndUnloadsTheBalloonWithTheOtherForms) {
  popAtMouse(300, 400);
  Forms::unloadAll();
  EXPECT_FALSE(balloon().isLoaded());
  popAtMouse(300, 400);
  EXPECT_TRUE(balloon().isLoaded());
}

TEST_F(BalloonWindowTest, AControlWithoutAWindowHandleIsAClearError) {
  BalloonRequest r;
  r.CTRL = std::make_shared<cMiniBalloon>();
  try {
    pop(r);
    FAIL() << "the object has no hWnd";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 438);
  }
  EXPECT_FALSE(mini->m_IsVisible);
}

TEST_F(BalloonWindowTest, AMaxWidthOfZeroStillShowsABalloon) {
  BalloonRequest r;
  r.MaxWidth = 0;
  pop(r);
  EXPECT_TRUE(balloon().lblMsg->WordWrap());
  EXPECT_TRUE(mini->m_IsVisible);
  EXPECT_GT(W(), 0);
}

TEST_F(BalloonWindowTest, ANegativeMaxWidthIsAnInvalidWidth) {
  BalloonRequest r;
  r.MaxWidth = -100;
  try {
    pop(r);
    FAIL() << "a label cannot be -100 twips wide";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 380);
  }
  EXPECT_FALSE(mini->m_IsVisible);
}

}  // namespace
}  // namespace corvane::test

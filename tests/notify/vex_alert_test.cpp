// SPDX-License-Identifier: MIT
#include <corvane/host/picture_box.h>
#include <corvane/notify/c_mini_alert.h>
#include <corvane/notify/vex_alert.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "support/alert_fixture.h"

namespace corvane::test {

namespace {
// A host form with one VexAlert whose events are written down in order.
class VexAlertTest : public AlertTest {
 protected:
  void SetUp() override {
    AlertTest::SetUp();
    setVersion(6, 0);
    host = Form::create("Form1", 6000, 4500, true);
    alert = add("VexAlert1");
  }
  void TearDown() override {
    alert.reset();
    host.reset();
    AlertTest::TearDown();
  }
  std::shared_ptr<VexAlert> add(const std::string& name, PropertyBag* bag = nullptr) {
    auto c = std::dynamic_pointer_cast<VexAlert>(host->add("VexAlert", name, nullptr, 0, 0, -1, -1, bag));
    c->AlertShowedEvent.connect(
        [this](std::string e, std::string v) { events.push_back("AlertShowed " + e + " " + v); });
    c->AlertClosedEvent.connect(
        [this](std::string e, std::string v) { events.push_back("AlertClosed " + e + " " + v); });
    c->Click.connect([this](std::string e, std::string v, int16_t id) {
      events.push_back("Click " + e + " " + v + " " + std::to_string(id));
    });
    c->MouseMove.connect([this](std::string e, std::string, int16_t b, int16_t, float, float) {
      events.push_back("MouseMove " + e + " " + std::to_string(b));
    });
    return c;
  }
  std::shared_ptr<frmAlert> last() {
    auto all = frmAlert::loaded();
    return all.empty() ? nullptr : all.back();
  }
  FormRef host;
  std::shared_ptr<VexAlert> alert;
  std::vector<std::string> events;
};

// The same service without a host form: cMiniAlert with the values of every call.
class MiniAlertTest : public AlertTest {
 protected:
  void SetUp() override {
    AlertTest::SetUp();
    setVersion(6, 0);
    mini = std::make_shared<cMiniAlert>();
    mini->AlertShowedEvent.connect(
        [this](std::string e, std::string) { events.push_back("AlertShowed " + e); });
    mini->AlertClosedEvent.connect(
        [this](std::string e, std::string) { events.push_back("AlertClosed " + e); });
    mini->Click.connect([this](std::string e, std::string, int16_t id) {
      events.push_back("Click " + e + " " + std::to_string(id));
    });
  }
  void showMini(const std::string& echo, int32_t height = 2000, int32_t timewait = 1000,
                myFX fx = FX1Scroll) {
    mini->AlertShow("Text", false, false, "", echo, "v", "", "", "", "", height, 2000, timewait, 0x40, 0xFF,
                    0xFFFFFF, 0x404040, 0xFFFFFF, 0x99FFFF, 0xF5AB7A, 0x993F11, B0Normal, fx, Zentriert, 130,
                    true);
  }
  std::shared_ptr<frmAlert> byEcho(const std::string& echo) {
    for (const auto& a : frmAlert::loaded())
      if (a->EchoString == echo) return a;
    return nullptr;
  }
  std::shared_ptr<cMiniAlert> mini;
  std::vector<std::string> events;
};
}  // namespace

// ---- properties ----

TEST_F(VexAlertTest, NewControlHasTheDefaults) {
  EXPECT_EQ(alert->Effekt(), FX1Scroll);
  EXPECT_EQ(alert->TimeMove(), 10);
  EXPECT_EQ(alert->Timewait(), 0);
  EXPECT_EQ(alert->AutoMaxHeight(), 4500);
  EXPECT_EQ(alert->BackColor(), 0x000040);
  EXPECT_EQ(alert->BackColorAlt(), 0x0000FF);
  EXPECT_EQ(alert->ForeColor(), 0xFFFFFF);
  EXPECT_EQ(alert->ForeColorHead(), 0x404040);
  EXPECT_EQ(alert->ForeColorHyper(), 0x99FFFF);
  EXPECT_EQ(alert->BannerColor(), 0xFFFFFF);
  EXPECT_EQ(alert->MoveBarColor1(), 0xF5AB7A);
  EXPECT_EQ(alert->MoveBarColor2(), 0x993F11);
  EXPECT_EQ(alert->BorderStyle(), B0Normal);
  EXPECT_EQ(alert->Alignment(), Zentriert);
  EXPECT_EQ(alert->GradientAngle(), 130.0f);
  EXPECT_TRUE(alert->Sound());
  EXPECT_EQ(alert->WaveFile(), "");
  EXPECT_EQ(alert->OptionHeader(), "Bitte wählen:");
}

TEST_F(VexAlertTest, TimewaitBelowOneIsStoredAsZero) {
  alert->setTimewait(-5);
  EXPECT_EQ(alert->Timewait(), 0);
  alert->setTimewait(1);
  EXPECT_EQ(alert->Timewait(), 1);
  EXPECT_EQ(alert->controlSite().changedKeys.back(), "TimeWait");
}

TEST_F(VexAlertTest, SettersReportTheirPersistedKeys) {
  alert->setEffekt(FX2Fade);
  alert->setBannerColor(1);
  alert->setOptionHeader("x");
  alert->setGradientAngle(5);
  auto& keys = alert->controlSite().changedKeys;
  ASSERT_GE(keys.size(), 4u);
  EXPECT_EQ(std::vector<std::string>(keys.end() - 4, keys.end()),
            (std::vector<std::string>{"Effekt", "BannerColor", "OptionHeader", "GradientAngle"}));
}

TEST_F(VexAlertTest, PropertiesSurviveWriteAndRead) {
  alert->setEffekt(FX2Fade);
  alert->setTimeMove(20);
  alert->setTimewait(5000);
  alert->setAutoMaxHeight(3000);
  alert->setBackColor(0x123456);
  alert->setBackColorAlt(0x654321);
  alert->setForeColor(0x010203);
  alert->setForeColorHead(0x040506);
  alert->setForeColorHyper(0x070809);
  alert->setBannerColor(0x0A0B0C);
  alert->setMoveBarColor1(0x0D0E0F);
  alert->setMoveBarColor2(0x101112);
  alert->setBorderStyle(B6Movable);
  alert->setAlignment(Rechts);
  alert->setGradientAngle(45);
  alert->setSound(false);
  alert->setWaveFile("C:\\a.wav");
  alert->setOptionHeader("Wahl:");
  PropertyBag bag;
  alert->WriteProperties(bag);
  for (const char* key :
       {"Effekt", "TimeMove", "TimeWait", "AutoMaxHeight", "BackColor", "BackColorAlt", "ForeColor",
        "ForeColorHead", "ForeColorHyper", "BannerColor", "MoveBarColor1", "MoveBarColor2", "BorderStyle",
        "Alignment", "GradientAngle", "Sound", "WaveFile", "OptionHeader"})
    EXPECT_TRUE(bag.contains(key)) << key;
  auto again = add("VexAlert2", &bag);
  EXPECT_EQ(again->Effekt(), FX2Fade);
  EXPECT_EQ(again->TimeMove(), 20);
  EXPECT_EQ(again->Timewait(), 5000);
  EXPECT_EQ(again->AutoMaxHeight(), 3000);
  EXPECT_EQ(again->BackColor(), 0x123456);
  EXPECT_EQ(again->BackColorAlt(), 0x654321);
  EXPECT_EQ(again->ForeColor(), 0x010203);
  EXPECT_EQ(again->ForeColorHead(), 0x040506);
  EXPECT_EQ(again->ForeColorHyper(), 0x070809);
  EXPECT_EQ(again->BannerColor(), 0x0A0B0C);
  EXPECT_EQ(again->MoveBarColor1(), 0x0D0E0F);
  EXPECT_EQ(again->MoveBarColor2(), 0x101112);
  EXPECT_EQ(again->BorderStyle(), B6Movable);
  EXPECT_EQ(again->Alignment(), Rechts);
  EXPECT_EQ(again->GradientAngle(), 45.0f);
  EXPECT_FALSE(again->Sound());
  EXPECT_EQ(again->WaveFile(), "C:\\a.wav");
  EXPECT_EQ(again->OptionHeader(), "Wahl:");
}

TEST_F(VexAlertTest, DefaultsAreNotWrittenAndAnEmptyBagReadsTheDefaults) {
  PropertyBag bag;
  alert->WriteProperties(bag);
  EXPECT_FALSE(bag.contains("TimeMove"));
  EXPECT_FALSE(bag.contains("OptionHeader"));
  PropertyBag empty;
  auto again = add("VexAlert2", &empty);
  EXPECT_EQ(again->AutoMaxHeight(), 4500);
  EXPECT_EQ(again->OptionHeader(), "Bitte wählen:");
  EXPECT_EQ(again->Alignment(), Zentriert);
}

TEST_F(VexAlertTest, SizeIsFixedAndTheControlIsInvisibleAtRunTime) {
  alert->surface().setWidth(3000);
  EXPECT_EQ(alert->surface().Width(), 480);
  EXPECT_EQ(alert->surface().Height(), 450);
  EXPECT_FALSE(user().GetWindowLongA(alert->surface().hWnd(), GWL_STYLE) & WS_VISIBLE);
}

// ---- AlertShow ----

TEST_F(VexAlertTest, SmallSizesAreRaisedTo345AndAHeightBelowOneIsMeasured) {
  alert->AlertShow("Text", false, true, "", "A", "", "", "", "", "", 100, 100);
  EXPECT_EQ(last()->picBackground().surface().pixelWidth(), 23);
  EXPECT_EQ(last()->targetHeight(), 345 + 30);
  alert->AlertShow(std::string(300, 'x'), false, true, "", "B", "", "", "", "", "", -1, 2000);
  EXPECT_GE(last()->targetHeight(), 50 * 15 + 30) << "measured";
  EXPECT_NE(last()->targetHeight(), -1 + 30);
}

TEST_F(VexAlertTest, OmittedBannerShowShowsABannerAndAdds270ToTextY) {
  alert->AlertShow("Text", false);
  EXPECT_EQ(last()->lblAlert().top, 30 + 270);
  EXPECT_EQ(last()->headHeight(), 19 * 15);
  alert->AlertShow("Text", false, false);
  EXPECT_EQ(last()->lblAlert().top, 30);
  EXPECT_EQ(last()->headHeight(), 0);
  alert->AlertShow("Text", false, false, "Kopf");
  EXPECT_EQ(last()->lblAlert().top, 30 + 270);
}

TEST_F(VexAlertTest, BlackBackColorIsUsedAndOnlyMinusOneTakesTheProperty) {
  alert->setBackColor(0x00FF00);
  alert->setBackColorAlt(0x00FF00);
  alert->AlertShow("", false, false, "", "A", "", "", "", "", "", 2000, 2000, 0, 0, 0);
  auto* canvas = desktop().windows().windowCanvas(last()->picBackground().surface().hWnd());
  EXPECT_EQ(canvas->pixel(60, 60), 0x000000u);
  alert->AlertShow("", false, false, "", "B", "", "", "", "", "", 2000, 2000, 0, -1, -1);
  canvas = desktop().windows().windowCanvas(last()->picBackground().surface().hWnd());
  EXPECT_EQ(canvas->pixel(60, 60), 0x00FF00u);
}

TEST_F(VexAlertTest, EmptyOptionHeaderTakesTheProperty) {
  alert->setOptionHeader("Eigene Wahl:");
  alert->AlertShow("Text", false, true, "", "A", "", "", "Eins");
  EXPECT_EQ(last()->lblOptHeader().caption, "Eigene Wahl:");
  alert->AlertShow("Text", false, true, "", "B", "", "Andere:", "Eins");
  EXPECT_EQ(last()->lblOptHeader().caption, "Andere:");
}

TEST_F(VexAlertTest, PropertiesGiveTheLookOfTheAlert) {
  alert->setBorderStyle(B6Movable);
  alert->setTimeMove(33);
  alert->setForeColorHead(0x112233);
  alert->setAlignment(Links);
  alert->AlertShow("Text", true, true, "Kopf", "A", "v", "", "", "", "", 2000, 2000, 700);
  auto a = last();
  EXPECT_TRUE(a->grabVisible());
  EXPECT_EQ(a->timerInterval(1), 33);
  EXPECT_EQ(a->timerInterval(3), 700) << "the argument, not the property";
  EXPECT_EQ(a->lblHead().fore, 0x112233);
  EXPECT_EQ(a->lblAlert().alignment, Links);
  EXPECT_EQ(a->Parent(), alert);
}

TEST_F(VexAlertTest, OnNTTheEffektPropertyItselfBecomesScroll) {
  useNT();
  auto nt = add("VexAlertNT");
  nt->setEffekt(FX2Fade);
  nt->AlertShow("Text", false);
  EXPECT_EQ(nt->Effekt(), FX1Scroll);
  EXPECT_EQ(last()->effectMarker(), "");
  // Where the system fades, the property stays.
  setVersion(5, 1);
  auto xp = add("VexAlertXP");
  xp->setEffekt(FX2Fade);
  xp->AlertShow("Text", false);
  EXPECT_EQ(xp->Effekt(), FX2Fade);
  EXPECT_EQ(last()->effectMarker(), "Fade");
}

TEST_F(VexAlertTest, TimewaitOmittedKeepsTheAlertUntilItIsClicked) {
  alert->setTimewait(100);  // stored only
  alert->AlertShow("Text", false, true, "", "A", "v");
  desktop().advance(60000);
  EXPECT_TRUE(last()->isLoaded());
}

// ---- events ----

TEST_F(VexAlertTest, EventsComeInTheirOrderAndAClickRaisesClickOnce) {
  alert->AlertShow("Text", false, true, "", "A", "v", "", "", "", "", 2000, 2000, 0);
  desktop().advance(400);
  RECT r = rectOf(*last());
  desktop().click(r.Left + 60, r.Top + 60);
  desktop().advance(2000);
  EXPECT_EQ(events,
            (std::vector<std::string>{"AlertShowed A v", "MouseMove A 0", "Click A v 0", "AlertClosed A v"}));
  EXPECT_EQ(alertForms(), 0);
}

TEST_F(VexAlertTest, TwoAlertsOfOneNameAreBothClosedAndAlertCloseSaysFalse) {
  alert->AlertShow("Eins", false, true, "", "X", "1", "", "", "", "", 2000, 2000, 0);
  alert->AlertShow("Zwei", false, true, "", "X", "2", "", "", "", "", 2000, 2000, 0);
  alert->AlertShow("Drei", false, true, "", "Y", "3", "", "", "", "", 2000, 2000, 0);
  desktop().advance(500);
  EXPECT_FALSE(alert->AlertClose("X"));
  desktop().advance(1000);
  ASSERT_EQ(frmAlert::loaded().size(), 1u);
  EXPECT_EQ(frmAlert::loaded()[0]->EchoString, "Y");
  EXPECT_FALSE(alert->AlertClose("nobody"));
}

TEST_F(VexAlertTest, ReplaceReplacesBothByOneAndTheOldOnesAreHeardOnce) {
  alert->AlertShow("Eins", false, true, "", "X", "1", "", "", "", "", 2000, 2000, 0);
  alert->AlertShow("Zwei", false, true, "", "X", "2", "", "", "", "", 2000, 2000, 0);
  desktop().advance(500);
  events.clear();
  alert->AlertReplace("X", "Neu", false, true, "3", "", "", "", "", "", 2000, 2000, 0);
  desktop().advance(1000);
  auto all = frmAlert::loaded();
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0]->lblAlert().caption, "Neu");
  EXPECT_EQ(all[0]->headTag(), "3");
  EXPECT_EQ(events, (std::vector<std::string>{"AlertClosed X 1", "AlertClosed X 2", "AlertShowed X 3"}));
}

TEST_F(VexAlertTest, ReplaceWithoutARunningAlertShows) {
  alert->AlertReplace("Z", "Neu", false);
  ASSERT_EQ(frmAlert::loaded().size(), 1u);
  EXPECT_EQ(frmAlert::loaded()[0]->EchoString, "Z");
  EXPECT_TRUE(events.empty());
}

TEST_F(VexAlertTest, IsAlertShowedAsksEveryLoadedFormSoTheHostFormIsAnError) {
  alert->AlertShow("Text", false, true, "", "A");
  try {
    alert->IsAlertShowed("A");
    FAIL() << "the host's form has no EchoString";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 438);
  }
}

TEST_F(VexAlertTest, ReachableByNameWithOmittedArguments) {
  alert->call("AlertShow", {std::string("Text"), false});
  auto a = last();
  ASSERT_TRUE(a);
  EXPECT_EQ(a->lblAlert().top, 300);
  EXPECT_FALSE(alert->call("AlertClose", {std::string("")}).toBool());
  alert->let("Effekt", 1);
  EXPECT_EQ(alert->Effekt(), FX2Fade);
}

// ---- cMiniAlert ----

TEST_F(MiniAlertTest, ShowsWithTheValuesOfTheCallAndClampsSizes) {
  mini->AlertShow("Text", false, false, "", "M", "v", "Wahl", "Eins", "", "", 100, 100, 0, 0x40, 0xFF,
                  0xFFFFFF, 0x404040, 0xFFFFFF, 0x99FFFF, 0xF5AB7A, 0x993F11, B4Flat, FX1Scroll, Links, 130,
                  true);
  auto a = byEcho("M");
  ASSERT_TRUE(a);
  EXPECT_EQ(a->picBackground().surface().pixelWidth(), 23);
  EXPECT_EQ(a->lblOptHeader().caption, "Wahl");
  EXPECT_EQ(a->timerInterval(1), 10) << "TimeMove defaults to 10";
  EXPECT_EQ(a->lblAlert().top, 30) << "no header and no banner: TextY stays";
  EXPECT_EQ(a->Parent(), mini);
  EXPECT_TRUE(mini->IsAlertShowed("M"));
  EXPECT_FALSE(mini->IsAlertShowed("N"));
}

TEST_F(MiniAlertTest, EmptyOptionHeaderHasNoFallback) {
  mini->AlertShow("Text", false, false, "", "M", "v", "", "Eins", "", "", 2000, 2000, 0, 0x40, 0xFF, 0xFFFFFF,
                  0x404040, 0xFFFFFF, 0x99FFFF, 0xF5AB7A, 0x993F11, B0Normal, FX1Scroll, Links, 130, true);
  EXPECT_EQ(byEcho("M")->lblOptHeader().caption, "");
}

TEST_F(MiniAlertTest, OnNTEachCallIsForcedToScroll) {
  useNT();
  showMini("M", 2000, 1000, FX2Fade);
  EXPECT_EQ(byEcho("M")->effectMarker(), "");
  setVersion(5, 1);
  showMini("N", 2000, 1000, FX2Fade);
  EXPECT_EQ(byEcho("N")->effectMarker(), "Fade");
}

TEST_F(MiniAlertTest, FiveAlertsStackUpwardWithoutOverlap) {
  for (int i = 0; i < 5; ++i) showMini("M" + std::to_string(i));
  desktop().advance(400);
  for (int i = 0; i < 5; ++i) {
    RECT r = rectOf(*byEcho("M" + std::to_string(i)));
    EXPECT_EQ(r.Bottom - r.Top, 135);
    if (i > 0) {
      RECT below = rectOf(*byEcho("M" + std::to_string(i - 1)));
      EXPECT_LE(r.Bottom, below.Top) << i;
      EXPECT_GE(r.Bottom, below.Top - 1) << "directly above" << i;
    }
  }
}

TEST_F(MiniAlertTest, TheStackShrinksOnlyFromItsTopStraightToTheNextAlert) {
  for (int i = 0; i < 5; ++i) showMini("M" + std::to_string(i), 2000, 0);
  desktop().advance(400);
  const int32_t top3 = CLng(Val(byEcho("M3")->Tag)), top4 = CLng(Val(byEcho("M4")->Tag));
  EXPECT_EQ(frmAlert::AlertStackTop, top4);
  // A gap in the middle stays.
  mini->AlertClose("M2");
  desktop().advance(500);
  EXPECT_FALSE(byEcho("M2"));
  EXPECT_EQ(frmAlert::AlertStackTop, top4);
  // The top one goes: the stack comes down to the next alert there, M3.
  mini->AlertClose("M4");
  desktop().advance(500);
  EXPECT_EQ(frmAlert::AlertStackTop, top3);
  // A new alert stands directly on M3.
  showMini("New", 2000, 0);
  desktop().advance(400);
  EXPECT_EQ(rectOf(*byEcho("New")).Bottom, rectOf(*byEcho("M3")).Top);
  // The others leave in any order; the last one empties the stack.
  for (const char* e : {"M0", "New", "M3", "M1"}) {
    mini->AlertClose(e);
    desktop().advance(500);
  }
  EXPECT_EQ(frmAlert::AlertStackTop, 0);
  EXPECT_EQ(alertForms(), 0);
}

TEST_F(MiniAlertTest, KilledAlertVanishesWithoutAnEvent) {
  showMini("K", 2000, 300);
  showMini("L", 2000, 0);
  desktop().advance(300);                       // both are fully shown; K waits till 580
  byEcho("K")->EchoString = frmAlert::kKilled;  // as a replacement marks the old alert
  byEcho("L")->EchoString = frmAlert::kKilled;
  events.clear();
  desktop().advance(5000);              // K's wait ends
  mini->AlertClose(frmAlert::kKilled);  // L is closed from outside
  desktop().advance(5000);
  EXPECT_EQ(alertForms(), 0);
  EXPECT_TRUE(events.empty());
}

TEST_F(MiniAlertTest, NothingIsLeftBehindAndMemoryIsFlatOverAThousandAlerts) {
  const int32_t drawingObjects = desktop().liveDrawingObjects();
  const int64_t objects = Object::liveCount();
  auto one = [&](int i) {
    showMini("M" + std::to_string(i), 2000, 0);
    mini->AlertClose("M" + std::to_string(i));
    desktop().advance(30);
  };
  for (int i = 0; i < 20; ++i) one(i);
  const int64_t objectsAfterWarmUp = Object::liveCount();
  auto residentKb = [] {
    long pages = 0, resident = 0;
    if (FILE* f = std::fopen("/proc/self/statm", "r")) {
      if (std::fscanf(f, "%ld %ld", &pages, &resident) != 2) resident = 0;
      std::fclose(f);
    }
    return resident * 4;
  };
  const long before = residentKb();
  for (int i = 0; i < 1000; ++i) one(i);
  RecordProperty("resident_kb_before", static_cast<int>(before));
  RecordProperty("resident_kb_after", static_cast<int>(residentKb()));
  std::printf("resident memory over 1000 alerts: %ld kB before, %ld kB after\n", before, residentKb());
  EXPECT_EQ(alertForms(), 0);
  EXPECT_TRUE(frmAlert::loaded().empty());
  EXPECT_EQ(desktop().liveDrawingObjects(), drawingObjects);
  EXPECT_EQ(Object::liveCount(), objectsAfterWarmUp);
  EXPECT_LE(Object::liveCount(), objects + 5);
  EXPECT_EQ(frmAlert::AlertStackTop, 0);
  EXPECT_EQ(std::count(events.begin(), events.end(), std::string("AlertClosed M999")), 1);
}

}  // namespace corvane::test

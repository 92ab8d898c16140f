// SPDX-License-Identifier: MIT
#include <corvane/host/property_bag.h>
#include <corvane/runtime/class_registry.h>
#include <gtest/gtest.h>

#include "msgbox/msg_box_fixture.h"

namespace corvane::test {
namespace {

using MsgOptionsTest = MsgBoxTest;

const std::vector<std::pair<std::string, std::string>> kTexts = {
    {"strOk", "OK"},
    {"strRetry", "Wieder&holen"},
    {"strCancel", "Abbrechen"},
    {"strYes", "&Ja"},
    {"strNo", "&Nein"},
    {"strIgnore", "&Ignorieren"},
    {"strAbord", "&Abbrechen"},
    {"strHelp", "Hilfe"},
    {"strMoreOpen", "&Details >>"},
    {"strMoreClose", "<< &Details"},
    {"strSend", "Meldung per E-Mail versenden..."},
    {"strCopy", "Meldung in die Zwischenablage kopieren"},
    {"strCheck", "Diese Meldung nicht mehr anzeigen"},
    {"strDelText", "Löschbestätigung erforderlich!"},
    {"strMailAdress", ""},
    {"strMailSubject", ""},
    {"strMailBody", ""},
    {"AppPath", ""},
};

const std::vector<std::pair<std::string, int32_t>> kLengths = {
    {"spHleft", 165},       {"spHicon_Label", 240}, {"spHbuttons", 105},      {"spHleftButtons", 165},
    {"spHrightLabel", 165}, {"spVmiddle", 255},     {"spVup", 165},           {"spVdown", 165},
    {"spHleftCheck", 90},   {"spVdownCheck", 90},   {"ButtonsWidth", 1200},   {"ButtonsHeight", 360},
    {"CheckWidth", 3130},   {"CheckHeight", 300},   {"textMoreHeight", 2070}, {"cmdSendWidth", 3500},
    {"cmdSendHeight", 360}, {"cmdMoreWidth", 1200}, {"cmdMoreHeight", 360},   {"formMaxWidth", 9990},
    {"formMinWidth", 4000}, {"spHrightMore", 150},  {"spVdownMore", 90},      {"FormTop", 0},
    {"FormLeft", 0},        {"DelaySec", 3},
};

const std::vector<std::string> kPictures = {
    "imgCritical", "imgQuestion", "imgExclamation", "imgInformation", "imOk",     "imYes",
    "imNo",        "imCancel",    "imRetry",        "imAbort",        "imIgnore", "imCmdSend",
    "imCmdMore",   "imCmdHelp",   "imDelete",       "imFehler",       "imSave"};

// A control read from a bag that holds every key but one, each other key with a marked value.
std::shared_ptr<Msg> readWithout(Form& f, const std::string& missing, int n) {
  PropertyBag bag;
  for (const auto& [k, v] : kTexts)
    if (k != missing) bag.set(k, Variant(std::string("x")));
  for (const auto& [k, v] : kLengths)
    if (k != missing) bag.set(k, Variant(int32_t{7}));
  auto m = std::dynamic_pointer_cast<Msg>(
      f.add("Msg", "MsgRead" + std::to_string(n), nullptr, 0, 0, -1, -1, &bag));
  return m;
}

TEST_F(MsgOptionsTest, EnumerationsKeepTheirValues) {
  EXPECT_EQ(exCenterScreen, 0);
  EXPECT_EQ(exShowCheck, 2);
  EXPECT_EQ(exNoModal, 4);
  EXPECT_EQ(exWaitTime, 8);
  EXPECT_EQ(exCenterOwner, 16);
  EXPECT_EQ(exManualPos, 32);
  EXPECT_EQ(exMsgBoxCenter, 64);
  EXPECT_EQ(exAutoClose, 128);
  EXPECT_EQ(exNone, 0);
  EXPECT_EQ(exSendAuto, 1);
  EXPECT_EQ(exSendManual, 2);
}

TEST_F(MsgOptionsTest, NewControlHasTheGermanDefaults) {
  for (const auto& [k, v] : kTexts) EXPECT_EQ(msg->get(k).toString(), v) << k;
  for (const auto& [k, v] : kLengths) EXPECT_EQ(msg->get(k).toLong(), v) << k;
  for (const auto& k : kPictures) EXPECT_FALSE(msg->get(k).as<PictureRef>()) << k;
  EXPECT_FALSE(msg->GrayScale());
  EXPECT_EQ(msg->SendMethode(), exNone);
  EXPECT_EQ(msg->strAbord(), "&Abbrechen");
  EXPECT_EQ(msg->strMailAdress(), "");
}

TEST_F(MsgOptionsTest, EachMissingKeyReadsAsItsDefault) {
  int n = 0;
  for (const auto& [k, v] : kTexts) {
    auto m = readWithout(*host, k, ++n);
    EXPECT_EQ(m->get(k).toString(), v) << k;
    EXPECT_EQ(m->get(k == "strOk" ? "strYes" : "strOk").toString(), "x");
  }
  for (const auto& [k, v] : kLengths) {
    auto m = readWithout(*host, k, ++n);
    EXPECT_EQ(m->get(k).toLong(), v) << k;
    EXPECT_EQ(m->get(k == "spVup" ? "spVdown" : "spVup").toLong(), 7);
  }
  PropertyBag empty;
  auto m = std::dynamic_pointer_cast<Msg>(host->add("Msg", "MsgEmpty", nullptr, 0, 0, -1, -1, &empty));
  EXPECT_FALSE(m->GrayScale());
  EXPECT_EQ(m->SendMethode(), exNone);
  for (const auto& k : kPictures) EXPECT_FALSE(m->get(k).as<PictureRef>()) << k;
}

TEST_F(MsgOptionsTest, WrittenValuesComeBackAndDefaultsAreNotStored) {
  msg->setstrOk("Gut");
  msg->setDelaySec(9);
  msg->setSendMethode(exSendManual);
  msg->setGrayScale(true);
  msg->setstrMailAdress("a@b.c");
  PropertyBag bag;
  msg->WriteProperties(bag);
  EXPECT_TRUE(bag.contains("strOk"));
  EXPECT_FALSE(bag.contains("strNo"));
  EXPECT_FALSE(bag.contains("spVup"));
  auto m = std::dynamic_pointer_cast<Msg>(host->add("Msg", "MsgCopy", nullptr, 0, 0, -1, -1, &bag));
  EXPECT_EQ(m->strOk(), "Gut");
  EXPECT_EQ(m->DelaySec(), 9);
  EXPECT_EQ(m->SendMethode(), exSendManual);
  EXPECT_TRUE(m->GrayScale());
  EXPECT_EQ(m->strMailAdress(), "a@b.c");
  EXPECT_EQ(m->strNo(), "&Nein");
}

TEST_F(MsgOptionsTest, SettersReportTheirKey) {
  msg->controlSite().changedKeys.clear();
  msg->setstrCheck("Nie wieder");
  msg->setspHleft(200);
  msg->setimDelete(StdPicture::empty());
  msg->setSendMethode(exSendAuto);
  msg->let("strYes", Variant(std::string("Jawohl")));
  EXPECT_EQ(msg->controlSite().changedKeys,
            (std::vector<std::string>{"strCheck", "spHleft", "imDelete", "SendMethode", "strYes"}));
  EXPECT_EQ(msg->strYes(), "Jawohl");
}

TEST_F(MsgOptionsTest, InitialiseGivesTheFactoryLookBack) {
  msg->setstrOk("Gut");
  msg->setformMaxWidth(5000);
  msg->setFormTop(300);
  msg->setDelaySec(10);
  msg->setGrayScale(true);
  msg->setimOk(StdPicture::empty());
  msg->setstrMailAdress("a@b.c");
  msg->setstrMailSubject("Betreff");
  msg->setstrMailBody("Text");
  msg->setAppPath("C:\\App");
  msg->setSendMethode(exSendManual);
  msg->Initialise();
  EXPECT_EQ(msg->strOk(), "OK");
  EXPECT_EQ(msg->formMaxWidth(), 9990);
  EXPECT_EQ(msg->FormTop(), 0);
  EXPECT_EQ(msg->DelaySec(), 3);
  EXPECT_FALSE(msg->GrayScale());
  EXPECT_FALSE(msg->imOk());
  // The host's mail data, path and send method stay.
  EXPECT_EQ(msg->strMailAdress(), "a@b.c");
  EXPECT_EQ(msg->strMailSubject(), "Betreff");
  EXPECT_EQ(msg->strMailBody(), "Text");
  EXPECT_EQ(msg->AppPath(), "C:\\App");
  EXPECT_EQ(msg->SendMethode(), exSendManual);
}

TEST_F(MsgOptionsTest, InitialiseByNameToo) {
  msg->setstrOk("Gut");
  msg->call("Initialise");
  EXPECT_EQ(msg->strOk(), "OK");
}

TEST_F(MsgOptionsTest, SizeStaysAtItsDesignSideOnEveryResize) {
  EXPECT_EQ(msg->surface().pixelWidth() * tx(), 480);
  EXPECT_EQ(msg->surface().pixelHeight() * ty(), 480);
  user().MoveWindow(msg->surface().hWnd(), 10, 10, 200, 90, true);
  EXPECT_EQ(msg->surface().pixelWidth() * tx(), 480);
  EXPECT_EQ(msg->surface().pixelHeight() * ty(), 480);
}

TEST_F(MsgOptionsTest, TemporaryButtonValuesHaveNoGetterByName) {
  msg->let("TempButtonsWidth", Variant(int32_t{900}));
  msg->let("TempButtonsText2", Variant(std::string("Zwei")));
  EXPECT_EQ(msg->tempButtonsWidth(), 900);
  EXPECT_EQ(msg->tempButtonsText(1), "Zwei");
  EXPECT_ANY_THROW(msg->get("TempButtonsWidth"));
  PropertyBag bag;
  msg->WriteProperties(bag);
  EXPECT_FALSE(bag.contains("TempButtonsWidth"));
  EXPECT_FALSE(bag.contains("TempButtonsText2"));
}

TEST_F(MsgOptionsTest, CreatableByItsClassName) {
  ObjectRef o = ClassRegistry::instance().create("msg");
  ASSERT_TRUE(std::dynamic_pointer_cast<Msg>(o));
}

}  // namespace
}  // namespace corvane::test

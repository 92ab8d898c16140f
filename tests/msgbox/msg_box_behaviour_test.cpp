// SPDX-License-Identifier: MIT
// A running box, driven by the desktop's mouse and keyboard and by the virtual clock.
#include <corvane/html/html_source.h>
#include <corvane/html/vex_html.h>
#include <corvane/msgbox/msg_timer.h>
#include <corvane/runtime/datetime.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/strings.h>
#include <corvane/system/my_tools.h>
#include <gtest/gtest.h>

#include "msgbox/msg_box_fixture.h"

namespace corvane::test {
namespace {

using MsgBoxBehaviourTest = MsgBoxTest;

bool hasCloseEntry() {
  const auto& m = frmMsgBoxIe::instance().systemMenu();
  return std::find(m.begin(), m.end(), "Schließen") != m.end();
}

TEST_F(MsgBoxBehaviourTest, OkBoxReturnsOneByItsButton) {
  step([&] { clickOn(*box().cmdSys(0)); });
  EXPECT_EQ(msg->MsgBoxEx("Hallo"), vbOK);
  EXPECT_FALSE(box().isOpen());
  EXPECT_FALSE(Forms::find("frmMsgBoxIe"));
}

TEST_F(MsgBoxBehaviourTest, OkBoxReturnsOneByTheCloseEntryAndByEscape) {
  step([&] {
    EXPECT_TRUE(hasCloseEntry());
    box().systemClose();
  });
  EXPECT_EQ(msg->MsgBoxEx("Hallo", 0, "T", "", 0, 0), 1);
  step([&] { pressEscape(); });
  EXPECT_EQ(msg->MsgBoxEx("Hallo"), 1);
}

TEST_F(MsgBoxBehaviourTest, TheCloseBoxOfTheCaptionBarClosesThroughTheSystemMenu) {
  step([&] {
    RECT r;
    user().GetWindowRect(box().form()->hWnd(), r);
    desktop().click(r.Right - 3 - 9, r.Top + 3 + 9);  // the middle of the drawn close box
  });
  EXPECT_EQ(msg->MsgBoxEx("Hallo", vbOKCancel), vbCancel);
}

TEST_F(MsgBoxBehaviourTest, AnOkBoxReturnsOneByTheCloseBoxOfItsWindow) {
  step([&] {
    RECT r;
    user().GetWindowRect(box().form()->hWnd(), r);
    desktop().click(r.Right - 3 - 9, r.Top + 3 + 9);
  });
  EXPECT_EQ(msg->MsgBoxEx("Hallo", 0, "T", "", 0, 0), vbOK);
}

TEST_F(MsgBoxBehaviourTest, CancellableBoxesReturnTheirStartResultWhenClosed) {
  for (int32_t style : {vbOKCancel, vbAbortRetryIgnore, vbYesNoCancel, vbRetryCancel}) {
    step([&] { pressEscape(); });
    EXPECT_EQ(msg->MsgBoxEx("Frage?", style), 2) << style;
  }
}

TEST_F(MsgBoxBehaviourTest, YesNoBoxHasNoCloseEntryAndIgnoresEscape) {
  step([&] {
    EXPECT_FALSE(hasCloseEntry());
    EXPECT_EQ(box().systemMenu(), std::vector<std::string>{"Verschieben"});
    pressEscape();
    EXPECT_TRUE(box().isOpen());
    box().systemClose();
    EXPECT_TRUE(box().isOpen());
    // The display's own close request is refused too.
    user().SendMessageA(box().form()->hWnd(), wm::CLOSE, 0, 0);
    EXPECT_TRUE(box().isOpen());
    ASSERT_TRUE(Forms::find("frmMsgBoxIe"));
    clickOn(*box().cmdSys(1));
  });
  EXPECT_EQ(msg->MsgBoxEx("Weiter?", vbYesNo), vbNo);
}

TEST_F(MsgBoxBehaviourTest, ACancellableBoxKeepsItsCloseEntry) {
  step([&] {
    EXPECT_EQ(box().systemMenu(), (std::vector<std::string>{"Verschieben", "-", "Schließen"}));
    box().systemClose();
  });
  msg->MsgBoxEx("Frage?", vbOKCancel);
}

TEST_F(MsgBoxBehaviourTest, WaitTimeEnablesTheButtonsAfterTheCountAndTheUserMustChoose) {
  uint32_t start = user().GetTickCount();
  step([&] {
    EXPECT_EQ(box().result, 0);
    EXPECT_FALSE(box().cmdSys(0)->Enabled());
    EXPECT_EQ(box().Caption(), " 3 Titel");
    EXPECT_FALSE(hasCloseEntry());
    pressEscape();
    EXPECT_TRUE(box().isOpen());
    clickOn(*box().cmdSys(0));  // disabled: nothing happens
    EXPECT_TRUE(box().isOpen());
  });
  step([&] { desktop().advance(1000); });
  step([&] {
    // The count stands before the caption from before the count, which began with a blank.
    EXPECT_EQ(box().Caption(), " 2  Titel");
    EXPECT_FALSE(box().cmdSys(0)->Enabled());
  });
  step([&] { desktop().advance(1000); });
  step([&] { EXPECT_EQ(box().Caption(), " 1  Titel"); });
  step([&] { desktop().advance(1000); });
  step([&] {
    EXPECT_TRUE(box().cmdSys(0)->Enabled());
    EXPECT_FALSE(box().Timer1()->Enabled());
    EXPECT_EQ(box().Caption(), "  Titel");
    EXPECT_GE(user().GetTickCount() - start, 3000u);
    pressEscape();  // still no way to cancel
    EXPECT_TRUE(box().isOpen());
  });
  step([&] { clickOn(*box().cmdSys(0)); });
  EXPECT_EQ(msg->MsgBoxEx("Bitte lesen", 0, "Titel", "", 0, exWaitTime), vbOK);
}

TEST_F(MsgBoxBehaviourTest, WaitTimeCountsFromDelaySec) {
  msg->setDelaySec(5);
  step([&] { EXPECT_EQ(box().Caption(), " 5 Titel"); });
  step([&] { desktop().advance(4000); });
  step([&] { EXPECT_FALSE(box().cmdSys(1)->Enabled()); });
  step([&] { desktop().advance(1000); });
  step([&] {
    EXPECT_TRUE(box().cmdSys(1)->Enabled());
    clickOn(*box().cmdSys(1));
  });
  EXPECT_EQ(msg->MsgBoxEx("Bitte lesen", vbOKCancel, "Titel", "", 0, exWaitTime), vbCancel);
}

TEST_F(MsgBoxBehaviourTest, AutoCloseAnswersTheDefaultButtonAfterTheCountShowingTheSeconds) {
  uint32_t start = user().GetTickCount();
  std::vector<std::string> captions;
  step([&] {
    captions.push_back(box().cmdSys(1)->Caption());
    EXPECT_EQ(box().defaultButtonIndex, 1);
    EXPECT_EQ(box().result, 7);
  });
  step([&] { desktop().advance(1000); });
  step([&] { captions.push_back(box().cmdSys(1)->Caption()); });
  step([&] { desktop().advance(1000); });
  step([&] { captions.push_back(box().cmdSys(1)->Caption()); });
  EXPECT_EQ(msg->MsgBoxEx("Weiter?", vbYesNo + vbDefaultButton2, "T", "", 0, exAutoClose), vbNo);
  EXPECT_EQ(user().GetTickCount() - start, 3000u);
  EXPECT_EQ(captions, (std::vector<std::string>{"3 &Nein", "2 &Nein", "1 &Nein"}));
}

TEST_F(MsgBoxBehaviourTest, AutoCloseWithoutADelaySettingClosesAfterThreeSeconds) {
  uint32_t start = user().GetTickCount();
  step([&] { EXPECT_EQ(box().cmdSys(0)->Caption(), "3 OK"); });
  EXPECT_EQ(msg->MsgBoxEx("Gleich vorbei", 0, "T", "", 0, exAutoClose), vbOK);
  EXPECT_EQ(user().GetTickCount() - start, 3000u);
}

TEST_F(MsgBoxBehaviourTest, AutoCloseWithTheThirdButtonAsDefault) {
  EXPECT_EQ(msg->MsgBoxEx("Was tun?", vbAbortRetryIgnore + vbDefaultButton3, "T", "", 0, exAutoClose),
            vbIgnore);
}

TEST_F(MsgBoxBehaviourTest, TheCheckBoxValueReachesTheHost) {
  step([&] { clickOn(*box().chkMsg()); });
  step([&] {
    EXPECT_EQ(box().chkMsg()->Value(), 1);
    EXPECT_FALSE(box().showAgain);
    clickOn(*box().cmdSys(0));
  });
  msg->MsgBoxEx("Hinweis", 0, "T", "", 0, exShowCheck);
  EXPECT_FALSE(msg->DisplayAgain);
  EXPECT_FALSE(msg->get("DisplayAgain").toBool());
  // Checked and unchecked again: show again.
  step([&] { clickOn(*box().chkMsg()); });
  step([&] { clickOn(*box().chkMsg()); });
  step([&] { clickOn(*box().cmdSys(0)); });
  msg->MsgBoxEx("Hinweis", 0, "T", "", 0, exShowCheck);
  EXPECT_TRUE(msg->DisplayAgain);
}

TEST_F(MsgBoxBehaviourTest, TheHelpButtonOpensHelpForTheContextAndClosesNothing) {
  App::instance().setHelpFile("alt.chm");
  step([&] {
    EXPECT_EQ(App::instance().HelpFile(), "hilfe.html");
    clickOn(*box().cmdSys(3));
    EXPECT_TRUE(box().isOpen());
    EXPECT_FALSE(box().tmrSysModal()->Enabled());
    ASSERT_EQ(shellRequests().size(), 1u);
    EXPECT_EQ(shellRequests()[0].operation, "open");
    EXPECT_EQ(shellRequests()[0].file, "hilfe.html#42");
    clickOn(*box().cmdSys(0));
  });
  EXPECT_EQ(msg->MsgBoxEx("Frage", vbOKOnly + vbMsgBoxHelpButton, "T", "hilfe.html", 42), vbOK);
  EXPECT_EQ(App::instance().HelpFile(), "alt.chm");
}

TEST_F(MsgBoxBehaviourTest, TheDetailsToggleOpensAndClosesByTheButtonsText) {
  int32_t closed = 0;
  step([&] {
    closed = box().Height();
    clickOn(*box().cmdDetail());
  });
  step([&] {
    int32_t d = box().placeOf(*box().txtDetail()).Height + 8 * ty();
    EXPECT_EQ(box().Height(), closed + d);
    EXPECT_EQ(box().cmdDetail()->Caption(), "<< &Details");
    EXPECT_TRUE(user().IsWindowVisible(box().txtDetail()->surface().hWnd()));
    clickOn(*box().cmdDetail());
  });
  step([&] {
    EXPECT_EQ(box().Height(), closed);
    EXPECT_EQ(box().cmdDetail()->Caption(), "&Details >>");
    // Not hidden again, only outside the window.
    EXPECT_TRUE(user().IsWindowVisible(box().txtDetail()->surface().hWnd()));
    pressEscape();
  });
  msg->MsgBoxEx("Fehler", 0, "T", "", 0, 0, "Einzelheiten");
}

TEST_F(MsgBoxBehaviourTest, TheDetailsWithCopyButtonOpenByTheButtonsHeightToo) {
  step([&] {
    int32_t closed = box().Height();
    box().cmdDetail_Click();
    int32_t d =
        box().placeOf(*box().cmdCopier()).Height + box().placeOf(*box().txtDetail()).Height + 12 * ty();
    EXPECT_EQ(box().Height(), closed + d);
    pressEscape();
  });
  msg->MsgBoxEx("Fehler", 0, "T", "", 0, 0, "Einzelheiten", true);
}

TEST_F(MsgBoxBehaviourTest, EqualOpenAndCloseTextsGiveABoxThatOnlyOpens) {
  msg->setstrMoreOpen("Mehr");
  msg->setstrMoreClose("Mehr");
  step([&] {
    int32_t closed = box().Height();
    int32_t d = box().placeOf(*box().txtDetail()).Height + 8 * ty();
    box().cmdDetail_Click();
    box().cmdDetail_Click();
    EXPECT_EQ(box().Height(), closed + 2 * d);
    pressEscape();
  });
  msg->MsgBoxEx("Fehler", 0, "T", "", 0, 0, "Einzelheiten");
}

TEST_F(MsgBoxBehaviourTest, ALinkInTheDetailsOpensThroughTheShell) {
  step([&] {
    // The details view raises its link click with the link's id and address.
    std::string id = "0", href = "http://example.invalid/seite?a=1&b=2";
    box().txtDetail()->HyperlinkClick(id, href);
    EXPECT_TRUE(box().isOpen());
    pressEscape();
  });
  msg->MsgBoxEx("Fehler", 0, "T", "", 0, 0, "<a href=\"http://example.invalid/\">Link</a>");
  ASSERT_EQ(shellRequests().size(), 1u);
  EXPECT_EQ(shellRequests()[0].hWnd, 0);
  EXPECT_EQ(shellRequests()[0].operation, "open");
  EXPECT_EQ(shellRequests()[0].file, "http://example.invalid/seite?a=1&b=2");
  EXPECT_EQ(shellRequests()[0].showCommand, 1);
}

// The report as the copy button lays it out, for a box with the given caption, message and details.
std::string expectedReport(const std::string& stamp, const std::string& caption, const std::string& message,
                           const std::string& details) {
  const std::string sep = "-------------------------------------", crlf = "\r\n";
  cMyTools tools;
  std::string word = Replace(Replace(tools.OSVersion(), "Vista", "W6"), "Failed", "F");
  return sep + crlf + stamp + word + ":" + crlf + sep + crlf + caption + crlf + sep + crlf + message + crlf +
         sep + crlf + details + crlf + sep + crlf;
}

std::string stampNow() { return FormatDate(Now(), "<dd.mm.yyyy hh:nn:ss> - "); }

TEST_F(MsgBoxBehaviourTest, TheReportOnTheClipboardFollowsItsLayout) {
  std::string before, after, clip;
  step([&] {
    before = stampNow();
    clickOn(*box().cmdDetail());
    // The copy button lies below the details, which start a frame's height below the window's
    // former lower edge: only its top shows.
    clickNearTop(*box().cmdCopier());
    after = stampNow();
    clip = user().clipboardText();
    EXPECT_TRUE(box().isOpen());
    // The button has no address in its Tag, so the copy also asks the host to send.
    EXPECT_TRUE(box().sendFlag);
    pressEscape();
  });
  msg->MsgBoxEx("Die Datei fehlt.", 0, "Fehler beim Laden", "", 0, 0, "Pfad: <b>C:\\x.txt</b>", true);
  std::string details =
      Replace(Replace(html::normaliseHtmlSource("Pfad: <b>C:\\x.txt</b>"), "<b>", ""), "</b>", "");
  EXPECT_TRUE(clip == expectedReport(before, "Fehler beim Laden", "Die Datei fehlt.", details) ||
              clip == expectedReport(after, "Fehler beim Laden", "Die Datei fehlt.", details))
      << clip;
  EXPECT_EQ(clip.rfind("-------------------------------------\r\n<", 0), 0u);
}

TEST_F(MsgBoxBehaviourTest, TheVersionWordOfTheReportShortensVistaAndFailed) {
  OSVERSIONINFO v;
  v.dwPlatformId = 2;
  v.dwMajorVersion = 6;
  v.dwMinorVersion = 0;
  desktop().setVersion(v);
  EXPECT_EQ(cMyTools().OSVersion(), "Vista");
  EXPECT_EQ(frmMsgBoxIe::reportVersionWord(), "W6");
}

TEST_F(MsgBoxBehaviourTest, SendAutoAsksTheHostToSendAfterTheBoxHasEnded) {
  msg->setSendMethode(exSendAuto);
  std::vector<std::string> events;
  msg->SendClick.connect([&](const std::string& t, const std::string& m, const std::string& d) {
    events.push_back("SendClick " + t + "|" + m + "|" + d);
  });
  msg->Closed.connect([&](const std::string& t) { events.push_back("Closed " + t); });
  step([&] {
    EXPECT_EQ(box().cmdCopier()->Caption(), "Meldung per E-Mail versenden...");
    EXPECT_EQ(box().cmdCopier()->Tag, "");
    clickOn(*box().cmdDetail());
    // The copy button lies below the details, which start a frame's height below the window's
    // former lower edge: only its top shows.
    clickNearTop(*box().cmdCopier());
    EXPECT_TRUE(box().sendFlag);
    EXPECT_TRUE(events.empty());
    EXPECT_TRUE(box().isOpen());
    clickOn(*box().cmdSys(0));
  });
  msg->MsgBoxEx("Meldung", 0, "App.title", "", 0, 0, "Mehr", true);
  EXPECT_EQ(events, (std::vector<std::string>{"SendClick Testprogramm|Meldung|Mehr", "Closed Testprogramm"}));
  EXPECT_TRUE(shellRequests().empty());
}

TEST_F(MsgBoxBehaviourTest, ClosedIsRaisedWithoutSendClickWhenNothingWasSent) {
  std::vector<std::string> events;
  msg->SendClick.connect(
      [&](const std::string&, const std::string&, const std::string&) { events.push_back("S"); });
  msg->Closed.connect([&](const std::string& t) { events.push_back("Closed " + t); });
  step([&] { pressEscape(); });
  msg->MsgBoxEx("Meldung", 0, "Titel");
  EXPECT_EQ(events, std::vector<std::string>{"Closed Titel"});
}

TEST_F(MsgBoxBehaviourTest, SendManualWithABodyHandsTheEscapedBodyToTheMailClient) {
  msg->setSendMethode(exSendManual);
  msg->setstrMailAdress("support@example.invalid");
  msg->setstrMailSubject("Fehler im Programm");
  msg->setstrMailBody("Hallo Team,\tbitte \"sehen\" & pruefen: 100%\r\nDanke");
  std::string clip;
  step([&] {
    EXPECT_EQ(box().cmdCopier()->Tag, "support@example.invalid");
    clickOn(*box().cmdDetail());
    // The copy button lies below the details, which start a frame's height below the window's
    // former lower edge: only its top shows.
    clickNearTop(*box().cmdCopier());
    clip = user().clipboardText();
    EXPECT_TRUE(box().isOpen());
    pressEscape();
  });
  msg->MsgBoxEx("Meldung", 0, "T", "", 0, 0, "Mehr", true);
  ASSERT_EQ(shellRequests().size(), 1u);
  EXPECT_EQ(shellRequests()[0].operation, "open");
  EXPECT_EQ(shellRequests()[0].file,
            "mailto:support@example.invalid?subject=Fehler im Programm&body="
            "Hallo%20Team,%20bitte%20'sehen'%20%26%20pruefen:%20100%%0D%0ADanke");
  EXPECT_NE(clip.find("Meldung"), std::string::npos);  // the report went to the clipboard as well
  EXPECT_FALSE(box().sendFlag);
}

TEST_F(MsgBoxBehaviourTest, SendManualWithoutABodySendsTheRequestAndTheReport) {
  msg->setSendMethode(exSendManual);
  msg->setstrMailAdress("a@b.invalid");
  msg->setstrMailSubject("S");
  msg->setstrMailBody("   ");
  std::string clip;
  step([&] {
    clickOn(*box().cmdDetail());
    // The copy button lies below the details, which start a frame's height below the window's
    // former lower edge: only its top shows.
    clickNearTop(*box().cmdCopier());
    clip = user().clipboardText();
    pressEscape();
  });
  msg->MsgBoxEx("Meldung", 0, "T", "", 0, 0, "Mehr", true);
  std::string text = "Bitte eine möglichst genaue Fehlerbeschreibung angeben:";
  for (int i = 0; i < 7; ++i) text += "\r\n";
  text += "*******************************************************************\r\n" + clip;
  ASSERT_EQ(shellRequests().size(), 1u);
  EXPECT_EQ(shellRequests()[0].file, frmMsgBoxIe::mailToLink("a@b.invalid", "S", text));
  EXPECT_EQ(shellRequests()[0].file.rfind("mailto:a@b.invalid?subject=S&body=Bitte%20eine%20m", 0), 0u);
}

TEST_F(MsgBoxBehaviourTest, SendManualWithoutAnAddressSetsTheSendFlag) {
  msg->setSendMethode(exSendManual);
  step([&] {
    clickOn(*box().cmdDetail());
    // The copy button lies below the details, which start a frame's height below the window's
    // former lower edge: only its top shows.
    clickNearTop(*box().cmdCopier());
    EXPECT_TRUE(box().sendFlag);
    pressEscape();
  });
  bool sent = false;
  msg->SendClick.connect([&](const std::string&, const std::string&, const std::string&) { sent = true; });
  msg->MsgBoxEx("Meldung", 0, "T", "", 0, 0, "Mehr", true);
  EXPECT_TRUE(sent);
  EXPECT_TRUE(shellRequests().empty());
}

TEST_F(MsgBoxBehaviourTest, MailEscapingTouchesOnlyTheBodyAndOnlyItsFiveCharacters) {
  EXPECT_EQ(frmMsgBoxIe::mailToLink("a b@c", "x y&z", "a b"), "mailto:a b@c?subject=x y&z&body=a%20b");
  EXPECT_EQ(frmMsgBoxIe::mailToLink("a", "s", "1&2"), "mailto:a?subject=s&body=1%262");
  EXPECT_EQ(frmMsgBoxIe::mailToLink("a", "s", "50%"), "mailto:a?subject=s&body=50%");
  EXPECT_EQ(frmMsgBoxIe::mailToLink("a", "s", "\t\"q\"\r\n"), "mailto:a?subject=s&body=%20'q'%0D%0A");
  // A lone line feed or carriage return, a semicolon, a question mark: unchanged.
  EXPECT_EQ(frmMsgBoxIe::mailToLink("a", "s", "x\ny\rz;?#"), "mailto:a?subject=s&body=x\ny\rz;?#");
  EXPECT_EQ(frmMsgBoxIe::mailToLink("a", "s", "Grüße"), "mailto:a?subject=s&body=Grüße");
  frmMsgBoxIe::MailTo("a", "s", "b c");
  ASSERT_EQ(shellRequests().size(), 1u);
  EXPECT_EQ(shellRequests()[0].file, "mailto:a?subject=s&body=b%20c");
}

TEST_F(MsgBoxBehaviourTest, TheTopMostGuardMakesAPlainWindowTopMostOnly) {
  step([&] {
    HWND h = box().form()->hWnd();
    EXPECT_TRUE(box().tmrSysModal()->Enabled());
    EXPECT_EQ(user().GetWindowLongA(h, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    desktop().advance(box().tmrSysModal()->Interval());
    EXPECT_NE(user().GetWindowLongA(h, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    pressEscape();
  });
  msg->MsgBoxEx("Hallo");
  // With any other extended bit the guard leaves the window as it is.
  step([&] {
    HWND h = box().form()->hWnd();
    user().SetWindowLongA(h, GWL_EXSTYLE, WS_EX_TOOLWINDOW);
    desktop().advance(3 * box().tmrSysModal()->Interval());
    EXPECT_EQ(user().GetWindowLongA(h, GWL_EXSTYLE), WS_EX_TOOLWINDOW);
    pressEscape();
  });
  msg->MsgBoxEx("Hallo");
}

TEST_F(MsgBoxBehaviourTest, NoModalReturnsAtOnceWithTheStartResultAndIsReused) {
  EXPECT_EQ(msg->MsgBoxEx("Eins", vbOKCancel, "T", "", 0, exNoModal), 2);
  EXPECT_TRUE(box().isOpen());
  EXPECT_EQ(user().GetForegroundWindow(), box().form()->hWnd());
  EXPECT_EQ(msg->MsgBoxEx("Zwei", vbYesNo, "T", "", 0, exNoModal), 0);
  EXPECT_EQ(box().lblMsg()->Caption(), "Zwei");
  int n = 0;
  for (const FormRef& f : Forms::all()) n += f->Name() == "frmMsgBoxIe";
  EXPECT_EQ(n, 1);
  clickOn(*box().cmdSys(0));
  EXPECT_EQ(box().result, 6);
  EXPECT_FALSE(box().isOpen());
}

TEST_F(MsgBoxBehaviourTest, AModalBoxThatNothingClosesIsAnErrorAndNoHang) {
  ModalLoop::setIdleLimit(10000);
  try {
    msg->MsgBoxEx("Weiter?", vbYesNo);
    FAIL() << "the loop ended";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 5);
  }
  EXPECT_FALSE(box().isOpen());
  EXPECT_FALSE(Forms::find("frmMsgBoxIe"));
}

TEST_F(MsgBoxBehaviourTest, ButtonsReturnTheirValues) {
  const std::vector<std::tuple<int32_t, int, int32_t>> cases = {
      {vbOKCancel, 0, vbOK},
      {vbOKCancel, 1, vbCancel},
      {vbAbortRetryIgnore, 0, vbAbort},
      {vbAbortRetryIgnore, 1, vbRetry},
      {vbAbortRetryIgnore, 2, vbIgnore},
      {vbYesNoCancel, 0, vbYes},
      {vbYesNoCancel, 2, vbCancel},
      {vbRetryCancel, 0, vbRetry},
  };
  for (const auto& [style, index, value] : cases) {
    int i = index;
    step([&, i] { clickOn(*box().cmdSys(i)); });
    EXPECT_EQ(msg->MsgBoxEx("?", style), value) << style << " " << index;
  }
}

}  // namespace
}  // namespace corvane::test

// SPDX-License-Identifier: MIT
// The measuring and arrangement of a box, each figure worked out from the spacings of its Msg
// control and the measured sizes of the texts.
#include <corvane/frame/global.h>
#include <corvane/host/picture_box.h>
#include <corvane/html/html_source.h>
#include <corvane/html/vex_html.h>
#include <corvane/runtime/strings.h>
#include <gtest/gtest.h>

#include "msgbox/msg_box_fixture.h"

namespace corvane::test {
namespace {

class MsgBoxLayoutTest : public MsgBoxTest {
 protected:
  // Builds a modeless box and leaves it on the screen.
  void open(const std::string& prompt, int32_t buttons = 0, const std::string& title = "Titel",
            int32_t ex = 0, const std::string& details = "", bool copy = false, PictureRef icon = nullptr) {
    msg->MsgBoxEx(prompt, buttons, title, "", 0, ex | exNoModal, details, copy, icon);
  }
  frmMsgBoxIe::Place place(HostedControl* c) { return box().placeOf(*c); }
  static PictureRef icon32() { return Global::LoadIconPicture("hover_demo"); }
};

TEST_F(MsgBoxLayoutTest, ShortTextOkBoxTakesTheLeastWidth) {
  open("Hallo");
  auto [lw, lh] = measure("Hallo");
  const int32_t w = 4000;
  EXPECT_EQ(box().Width(), px(w + 165 + 165 + frmMsgBoxIe::frameW()));
  auto lbl = place(box().lblMsg());
  EXPECT_EQ(lbl.Left, 165);
  EXPECT_EQ(lbl.Top, 165);
  EXPECT_EQ(lbl.Width, px(w));
  EXPECT_EQ(lbl.Height, lh);
  EXPECT_LT(lw, w);
  EXPECT_EQ(box().Height(), 165 + lh + 255 + 360 + 165 + frmMsgBoxIe::frameH());
  auto ok = place(box().cmdSys(0));
  EXPECT_EQ(ok.Width, 1200);
  EXPECT_EQ(ok.Height, 360);
  EXPECT_EQ(ok.Top, lh + 165 + 255);
  EXPECT_EQ(ok.Left, box().Width() - frmMsgBoxIe::frameW() - 165 + tx() - (1200 + 105));
  EXPECT_TRUE(box().cmdSys(0)->Visible());
  EXPECT_FALSE(box().cmdSys(1)->Visible());
  EXPECT_EQ(box().Caption(), " Titel");
}

TEST_F(MsgBoxLayoutTest, MultiLineTextTakesTheHeightOfItsLines) {
  std::string text = "Erste Zeile\r\nZweite Zeile\r\nDritte";
  open(text);
  auto [lw, lh] = measure(text);
  auto [w1, h1] = measure("Erste Zeile");
  EXPECT_EQ(lh, 3 * h1);
  EXPECT_EQ(place(box().lblMsg()).Height, lh);
  EXPECT_EQ(box().lblMsg()->Caption(), text);
  EXPECT_EQ(box().Height(), 165 + lh + 255 + 360 + 165 + frmMsgBoxIe::frameH());
}

TEST_F(MsgBoxLayoutTest, LongTextIsWrappedAtTheWidestBoxByInsertedLineBreaks) {
  std::string prompt;
  for (int i = 0; i < 60; ++i) prompt += "Wort" + std::to_string(i) + " ";
  prompt += "Ende";
  open(prompt);
  std::string shown = box().lblMsg()->Caption();
  std::vector<std::string> lines = Split(shown, "\r\n");
  ASSERT_GT(lines.size(), 1u);
  // Only line breaks were added: with them as blanks the text is the prompt again.
  EXPECT_EQ(RTrim(Replace(shown, " \r\n", " ")), prompt);
  int32_t widest = 0;
  for (size_t i = 0; i < lines.size(); ++i) {
    int32_t width = measure(lines[i]).first;
    EXPECT_LE(width, 9990) << lines[i];
    widest = std::max(widest, width);
    // Each line is full: its next word would not have fitted.
    if (i + 1 < lines.size()) {
      EXPECT_GT(measure(lines[i] + Split(lines[i + 1], " ")[0] + " ").first, 9990) << lines[i];
    }
  }
  EXPECT_EQ(place(box().lblMsg()).Width, widest);
  EXPECT_EQ(box().Width(), widest + 165 + 165 + frmMsgBoxIe::frameW());
  EXPECT_EQ(place(box().lblMsg()).Height, measure(shown).second);
}

TEST_F(MsgBoxLayoutTest, ALongWordWithoutBlankStaysOnItsLineAndWidensTheBox) {
  std::string word(400, 'W');
  open(word);
  EXPECT_EQ(box().lblMsg()->Caption(), word + " ");
  int32_t width = measure(word + " ").first;
  ASSERT_GT(width, 9990);
  EXPECT_EQ(box().Width(), width + 165 + 165 + frmMsgBoxIe::frameW());
}

TEST_F(MsgBoxLayoutTest, ATitleWiderThanTheTextWidensTheBoxByItsAllowance) {
  std::string title = "Ein recht langer Titel des Fensters, der viel breiter ist als die Meldung selbst";
  open("Kurz", 0, title);
  int32_t tw = measure(title).first;
  ASSERT_GT(tw + 900, 4000);
  EXPECT_EQ(place(box().lblMsg()).Width, tw + 900);
  EXPECT_EQ(box().Width(), tw + 900 + 165 + 165 + frmMsgBoxIe::frameW());
}

TEST_F(MsgBoxLayoutTest, DetailsMakeTheBoxAtLeast6000WideAndAddTheirButton) {
  open("Kurz", 0, "T", 0, "Die <b>Einzelheiten</b>");
  EXPECT_EQ(place(box().lblMsg()).Width, 6000);
  int32_t base = 165 + measure("Kurz").second + 255 + 360 + 165 + frmMsgBoxIe::frameH();
  EXPECT_EQ(box().Height(), base + 360 + 90);
  auto more = place(box().cmdDetail());
  EXPECT_TRUE(box().cmdDetail()->Visible());
  EXPECT_EQ(box().cmdDetail()->Caption(), "&Details >>");
  EXPECT_EQ(more.Width, 1200);
  EXPECT_EQ(more.Height, 360);
  EXPECT_EQ(more.Left, box().ScaleWidth() - 150 - 1200 - tx());
  EXPECT_EQ(more.Top, box().ScaleHeight() - 90 - 360 - ty());
  EXPECT_EQ(box().cmdDetailTag, "<< &Details");
  EXPECT_EQ(box().txtDetailTag, "&Details >>");
  auto d = place(box().txtDetail());
  EXPECT_EQ(d.Left, 4 * tx());
  EXPECT_EQ(d.Top, box().Height());
  EXPECT_EQ(d.Width, box().ScaleWidth() - 8 * tx());
  EXPECT_EQ(d.Height, 2070);
  EXPECT_EQ(box().txtDetail()->Text(), html::normaliseHtmlSource("Die <b>Einzelheiten</b>"));
  // The details lie below the window's lower edge until they are opened.
  EXPECT_GE(d.Top, box().ScaleHeight());
}

TEST_F(MsgBoxLayoutTest, ACopyButtonSitsBelowTheDetails) {
  open("Kurz", 0, "T", 0, "Mehr", true);
  auto c = place(box().cmdCopier());
  auto d = place(box().txtDetail());
  EXPECT_TRUE(box().cmdCopier()->Visible());
  EXPECT_EQ(box().cmdCopier()->Caption(), "Meldung in die Zwischenablage kopieren");
  EXPECT_EQ(c.Width, px(3500));
  EXPECT_EQ(c.Height, 360);
  EXPECT_EQ(c.Top, d.Top + d.Height + 4 * ty());
  EXPECT_EQ(c.Left, px(box().ScaleWidth() - 3500 - tx() - 4 * tx()));
}

TEST_F(MsgBoxLayoutTest, AnIconStandsLeftOfTheTextAndWidensTheBox) {
  PictureRef ico = icon32();
  open("Hallo", 0, "T", 0, "", false, ico);
  auto i = place(box().ImIco());
  auto [lw, lh] = measure("Hallo");
  EXPECT_EQ(i.Width, 480);
  EXPECT_EQ(i.Left, 165);
  auto lbl = place(box().lblMsg());
  EXPECT_EQ(lbl.Left, 165 + 480 + 240);
  EXPECT_EQ(lbl.Width, px(4000));  // w grew by the icon and its gap, and the label gives them back
  EXPECT_EQ(box().Width(), px(4000 + 480 + 240 + 165 + 165 + frmMsgBoxIe::frameW()));
  // The icon is higher than one line: it sets the height, the text is centred beside it.
  ASSERT_GT(480, lh);
  EXPECT_EQ(i.Top, 165);
  EXPECT_NEAR(lbl.Top, (480 - lh) / 2 + 165, tx());
  EXPECT_EQ(place(box().cmdSys(0)).Top, 480 + 165 + 255);
}

TEST_F(MsgBoxLayoutTest, GrayScaleDrawsTheIconGrey) {
  PictureRef ico = icon32();
  open("Hallo", 0, "T", 0, "", false, ico);
  HDC hdc = box().ImIco()->surface().hdc();
  // A pixel of the picture that has colour.
  int32_t cx = -1, cy = -1;
  for (int32_t y = 0; y < 32 && cx < 0; ++y)
    for (int32_t x = 0; x < 32 && cx < 0; ++x) {
      COLORREF c = gdi().GetPixel(hdc, x, y);
      if ((c & 0xFF) != ((c >> 8) & 0xFF) || (c & 0xFF) != ((c >> 16) & 0xFF)) cx = x, cy = y;
    }
  ASSERT_GE(cx, 0) << "the sample picture has no coloured pixel";
  COLORREF colour = gdi().GetPixel(hdc, cx, cy);
  msg->setGrayScale(true);
  open("Hallo", 0, "T", 0, "", false, ico);
  hdc = box().ImIco()->surface().hdc();
  COLORREF grey = gdi().GetPixel(hdc, cx, cy);
  int32_t level =
      ((colour & 0xFF) * 299 + ((colour >> 8) & 0xFF) * 587 + ((colour >> 16) & 0xFF) * 114) / 1000;
  EXPECT_EQ(grey, static_cast<COLORREF>(level | (level << 8) | (level << 16)));
  box().ImIco()->surface().Cls();  // a repaint keeps it grey
  EXPECT_EQ(gdi().GetPixel(box().ImIco()->surface().hdc(), cx, cy), grey);
}

TEST_F(MsgBoxLayoutTest, AStyleIconWithoutIconArgumentIsNotLaidOut) {
  msg->setimgInformation(icon32());
  open("Hallo", vbInformation);
  EXPECT_TRUE(user().IsWindowVisible(box().ImIco()->surface().hWnd()));
  EXPECT_EQ(place(box().lblMsg()).Left, 165);
  EXPECT_EQ(box().Width(), px(4000 + 165 + 165 + frmMsgBoxIe::frameW()));
}

struct ButtonSet {
  int32_t style;
  std::vector<std::string> captions;
  std::vector<std::string> tags;
  int32_t startResult;
};

TEST_F(MsgBoxLayoutTest, EachButtonSetHasItsCaptionsTagsPlacesAndStartResult) {
  const std::vector<ButtonSet> sets = {
      {vbOKOnly, {"OK"}, {"1"}, 1},
      {vbOKCancel, {"OK", "Abbrechen"}, {"1", "2"}, 2},
      {vbAbortRetryIgnore, {"&Abbrechen", "Wieder&holen", "&Ignorieren"}, {"3", "4", "5"}, 2},
      {vbYesNoCancel, {"&Ja", "&Nein", "Abbrechen"}, {"6", "7", "2"}, 2},
      {vbYesNo, {"&Ja", "&Nein"}, {"6", "7"}, 0},
      {vbRetryCancel, {"Wieder&holen", "Abbrechen"}, {"4", "2"}, 2},
  };
  for (const ButtonSet& s : sets) {
    SCOPED_TRACE(s.style);
    open("Frage?", s.style);
    EXPECT_EQ(box().result, s.startResult);
    int32_t h = measure("Frage?").second;
    int32_t x = box().Width() - frmMsgBoxIe::frameW() - 165 + tx();
    for (int i = 3; i >= 0; --i) {
      MsgButton* b = box().cmdSys(i);
      if (i >= static_cast<int>(s.captions.size())) {
        EXPECT_EQ(b->Tag, "");
        continue;
      }
      EXPECT_EQ(b->Caption(), s.captions[i]);
      EXPECT_EQ(b->Tag, s.tags[i]);
      EXPECT_TRUE(b->Visible());
      x -= 1200 + 105;
      EXPECT_EQ(place(b).Left, x);
      EXPECT_EQ(place(b).Top, h + 165 + 255);
    }
    // Three buttons fit into the least width; the window keeps it.
    int32_t n = static_cast<int32_t>(s.captions.size());
    int32_t row = 105 + n * (1200 + 105);
    EXPECT_EQ(box().Width(), px((row > 4000 ? row + 2 * 165 : 4000 + 330) + frmMsgBoxIe::frameW()));
  }
}

TEST_F(MsgBoxLayoutTest, FourButtonsWiderThanTheTextSetTheWidth) {
  open("Frage?", vbYesNoCancel + vbMsgBoxHelpButton);
  int32_t x = 105 + 4 * (1200 + 105);
  ASSERT_GT(x, 4000);
  EXPECT_EQ(box().Width(), x + 2 * 165 + frmMsgBoxIe::frameW());
  EXPECT_EQ(place(box().lblMsg()).Width, x);
  EXPECT_EQ(box().cmdSys(3)->Caption(), "Hilfe");
  EXPECT_EQ(box().cmdSys(3)->Tag, "Hilfe");
  EXPECT_EQ(place(box().cmdSys(3)).Left, box().Width() - frmMsgBoxIe::frameW() - 165 + tx() - 1305);
}

TEST_F(MsgBoxLayoutTest, CustomButtonTextsAndWidthServeOneBox) {
  msg->setTempButtonsText1("Speichern");
  msg->setTempButtonsText2("Verwerfen");
  msg->setTempButtonsWidth(1500);
  msg->MsgBoxEx("Was nun?", vbYesNo, "T", "", 0, exNoModal, "", false, nullptr, true);
  EXPECT_EQ(box().cmdSys(0)->Caption(), "Speichern");
  EXPECT_EQ(box().cmdSys(1)->Caption(), "Verwerfen");
  EXPECT_EQ(place(box().cmdSys(0)).Width, 1500);
  EXPECT_EQ(box().cmdSys(0)->Tag, "6");
  // Used once: the next box has the standard texts.
  open("Was nun?", vbYesNo);
  EXPECT_EQ(box().cmdSys(0)->Caption(), "&Ja");
  EXPECT_EQ(place(box().cmdSys(0)).Width, 1200);
}

TEST_F(MsgBoxLayoutTest, TheCheckBoxAddsItsRowBelowTheButtons) {
  open("Hallo", 0, "T", exShowCheck);
  int32_t base = 165 + measure("Hallo").second + 255 + 360 + 165 + frmMsgBoxIe::frameH();
  auto c = place(box().chkMsg());
  EXPECT_EQ(box().Height(), base + c.Height + 90);
  EXPECT_TRUE(box().chkMsg()->Visible());
  EXPECT_EQ(box().chkMsg()->Caption(), "Diese Meldung nicht mehr anzeigen");
  EXPECT_EQ(c.Left, 90);
  EXPECT_EQ(c.Width, px(3130));
  EXPECT_EQ(c.Top, box().ScaleHeight() - 90 - c.Height - ty());
}

TEST_F(MsgBoxLayoutTest, WithDetailsTheCheckBoxAddsNoHeight) {
  open("Hallo", 0, "T", exShowCheck, "Mehr");
  int32_t base = 165 + measure("Hallo").second + 255 + 360 + 165 + frmMsgBoxIe::frameH();
  EXPECT_EQ(box().Height(), base + 360 + 90);
  EXPECT_TRUE(box().chkMsg()->Visible());
}

TEST_F(MsgBoxLayoutTest, PositionOnScreenOwnerOrByHand) {
  open("Hallo");
  int32_t sw = static_cast<int32_t>(Screen::instance().Width()),
          sh = static_cast<int32_t>(Screen::instance().Height());
  EXPECT_NEAR(box().Left(), (sw - box().Width()) / 2, tx());
  EXPECT_NEAR(box().Top(), (sh - box().Height()) / 2, ty());
  msg->setFormLeft(1500);
  msg->setFormTop(3000);
  open("Hallo", 0, "T", exManualPos);
  EXPECT_EQ(box().Left(), 1500);
  EXPECT_EQ(box().Top(), 3000);
  host->Move(3000, 1500, 9000, 6000);
  open("Hallo", 0, "T", exCenterOwner);
  EXPECT_NEAR(box().Left(), 3000 + (9000 - box().Width()) / 2, tx());
  EXPECT_NEAR(box().Top(), 1500 + (6000 - box().Height()) / 2, ty());
}

TEST_F(MsgBoxLayoutTest, CentredAndRightAlignedText) {
  open("Hallo\r\nWelt", 0, "T", exMsgBoxCenter);
  EXPECT_EQ(box().lblMsg()->Alignment(), 2);
  open("Hallo\r\nWelt", vbMsgBoxRight);
  EXPECT_EQ(box().lblMsg()->Alignment(), 1);
  open("Hallo\r\nWelt");
  EXPECT_EQ(box().lblMsg()->Alignment(), 0);
}

TEST_F(MsgBoxLayoutTest, TheApplicationsTitleStandsForTheDefault) {
  msg->MsgBoxEx("Hallo", 0, "App.title", "", 0, exNoModal);
  EXPECT_EQ(box().Caption(), " Testprogramm");
}

TEST_F(MsgBoxLayoutTest, DeleteConfirmationAndContextPicturesMakeTheBoxSystemModal) {
  PictureRef del = icon32(), err = Global::LoadIconPicture("hover_demo_hot"),
             save = Global::LoadIconPicture("hover_demo_down");
  msg->setimDelete(del);
  msg->setimFehler(err);
  msg->setimSave(save);
  open("Wirklich?", vbYesNo, "Löschbestätigung erforderlich!");
  EXPECT_TRUE(box().SystemModal);
  EXPECT_EQ(box().ImIco()->surface().Picture(), del);
  const std::vector<std::pair<int32_t, PictureRef>> contexts = {{-1, err}, {-2, del}, {-3, save}};
  for (const auto& [context, picture] : contexts) {
    msg->MsgBoxEx("Hallo", 0, "T", "", context, exNoModal);
    EXPECT_TRUE(box().SystemModal) << context;
    EXPECT_EQ(box().ImIco()->surface().Picture(), picture) << context;
  }
  open("Hallo");
  EXPECT_FALSE(box().SystemModal);
  open("Hallo", vbSystemModal);
  EXPECT_TRUE(box().SystemModal);
  open("Hallo", vbMsgBoxSetForeground);
  EXPECT_TRUE(box().SystemModal);
}

TEST_F(MsgBoxLayoutTest, DefaultButtonFlagsPutTheirButtonFirstInTheTabOrder) {
  open("Frage?", vbYesNoCancel + vbDefaultButton2);
  EXPECT_EQ(box().cmdSys(1)->TabIndex, 0);
  EXPECT_EQ(box().cmdSys(0)->TabIndex, 1);
  open("Frage?", vbYesNoCancel + vbDefaultButton3);
  EXPECT_EQ(box().cmdSys(2)->TabIndex, 0);
  open("Frage?", vbYesNoCancel);
  EXPECT_EQ(box().cmdSys(0)->TabIndex, 0);
}

TEST_F(MsgBoxLayoutTest, BadInputGivesABoxAndNoFailure) {
  // An empty text, unknown style bits, negative values and a huge text without blanks.
  open("");
  EXPECT_EQ(box().cmdSys(0)->Tag, "1");
  open("Hallo", -5, "");
  EXPECT_TRUE(box().isOpen());
  EXPECT_EQ(box().cmdSys(0)->Tag, "1");  // the OK button, the one way out
  open("Hallo", 0, "T", 0x7FFFFF00);     // unknown option bits are ignored
  EXPECT_EQ(box().result, 1);
  open(std::string(20000, 'x'), 0);
  EXPECT_GT(box().Width(), 9990);
  std::string many;
  for (int i = 0; i < 3000; ++i) many += "ab ";
  open(many);
  EXPECT_LE(place(box().lblMsg()).Width, 9990);
}

}  // namespace
}  // namespace corvane::test

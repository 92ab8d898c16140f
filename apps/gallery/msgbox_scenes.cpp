// SPDX-License-Identifier: MIT
// The extended message box: a plain box, one with its details open, one with the check box and
// one counting down, each shown as it stands on the screen; and a launcher whose buttons open
// each of them for real, so that a person at the live gallery can answer them.
#include <corvane/host/label.h>
#include <corvane/host/picture_box.h>
#include <corvane/msgbox/frm_msg_box_ie.h>
#include <corvane/msgbox/msg.h>
#include <corvane/msgbox/msg_button.h>
#include <corvane/platform/api.h>

#include <memory>
#include <string>

#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;

// A round message icon of 32 pixels with a sign on it, drawn on a picture box of the host form.
PictureRef drawIcon(Form& host, const std::string& name, COLORREF colour, const std::string& sign) {
  auto pic = std::make_shared<PictureBox>();
  host.add(pic, "PictureBox", name, nullptr, 0, 0, 32 * kTwips, 32 * kTwips);
  Surface& s = pic->surface();
  s.setAutoRedraw(true);
  s.setBackColor(static_cast<OLE_COLOR>(0x8000000F));
  HDC hdc = s.hdc();
  HBRUSH brush = gdi().CreateSolidBrush(colour);
  HPEN pen = gdi().CreatePen(0, 1, colour);
  HGDIOBJ oldBrush = gdi().SelectObject(hdc, brush), oldPen = gdi().SelectObject(hdc, pen);
  gdi().RoundRect(hdc, 1, 1, 31, 31, 30, 30);
  gdi().SelectObject(hdc, oldBrush);
  gdi().SelectObject(hdc, oldPen);
  gdi().DeleteObject(brush);
  gdi().DeleteObject(pen);
  FontSpec font{"Tahoma", 14};
  font.bold = true;
  Label::drawText(hdc, font, 0xFFFFFF, sign, RECT{0, 0, 32, 32}, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  PictureRef image = s.Image();
  user().ShowWindow(s.hWnd(), SW_HIDE);
  return image;
}

// A hidden host form with the Msg control that builds the boxes, and the four icons.
std::shared_ptr<Msg> hostMsg(const std::string& name) {
  FormRef host = Form::create(name, 3000, 2000);
  auto msg = host->add<Msg>("Msg1");
  msg->setimgInformation(drawIcon(*host, "picInfo", 0xC06020, "i"));
  msg->setimgExclamation(drawIcon(*host, "picWarn", 0x10A0E0, "!"));
  msg->setimgQuestion(drawIcon(*host, "picAsk", 0xC06020, "?"));
  msg->setimgCritical(drawIcon(*host, "picStop", 0x2020C0, "x"));
  return msg;
}

const char* kDetails =
    "<b>Datei:</b> C:\\Daten\\Kunden.mdb<br><b>Fehler 3044:</b> Der Pfad ist ungültig.<br>"
    "Weitere Hinweise unter <a href=\"http://example.invalid/hilfe\">der Hilfe-Seite</a>.";

FormRef plainBox(Msg& m) {
  m.MsgBoxEx("Die Änderungen wurden gespeichert.", vbOKOnly, "Kundenverwaltung", "", 0, exNoModal, "", false,
             m.imgInformation());
  return frmMsgBoxIe::instance().formRef();
}

FormRef detailsBox(Msg& m, bool open) {
  m.MsgBoxEx("Die Datenbank konnte nicht geöffnet werden.", vbRetryCancel, "Fehler beim Laden", "", 0,
             exNoModal, kDetails, true, m.imgCritical());
  if (open) frmMsgBoxIe::instance().cmdDetail_Click();
  return frmMsgBoxIe::instance().formRef();
}

FormRef checkBox(Msg& m) {
  m.MsgBoxEx("Neue Einträge werden ab jetzt automatisch gesichert.", vbOKOnly, "Hinweis", "", 0,
             exNoModal | exShowCheck, "", false, m.imgExclamation());
  return frmMsgBoxIe::instance().formRef();
}

FormRef countdownBox(Msg& m, bool run) {
  m.MsgBoxEx("Soll der Vorgang fortgesetzt werden?", vbYesNo + vbDefaultButton2, "Rückfrage", "", 0,
             exNoModal | exAutoClose, "", false, m.imgQuestion());
  // The box as it stands one second into its count, when the first tick has come.
  if (!run) frmMsgBoxIe::instance().Timer1_Timer();
  return frmMsgBoxIe::instance().formRef();
}
}  // namespace

std::vector<Scene> msgboxScenes();
namespace {
SceneRegistrar registerMsgBox("msgbox", msgboxScenes);
}

std::vector<Scene> msgboxScenes() {
  return {
      {"msgbox_plain", "an OK box with an information icon, its width the least a box has",
       [] { return plainBox(*hostMsg("GalleryMsgPlainHost")); }},
      {"msgbox_details", "an error with its details opened, the copy button below them",
       [] { return detailsBox(*hostMsg("GalleryMsgDetailsHost"), true); }},
      {"msgbox_check", "a notice with the check box against showing it again",
       [] { return checkBox(*hostMsg("GalleryMsgCheckHost")); }},
      {"msgbox_countdown", "a yes and no box closing by itself, the seconds before its default button",
       [] { return countdownBox(*hostMsg("GalleryMsgCountdownHost"), false); }},
      {"msgbox_zlauncher", "four buttons that open the four boxes for real; the answer shows below them",
       [] {
         FormRef f = makeSceneForm("GalleryMsgLauncher", 300 * kTwips, 150 * kTwips, 8);
         auto msg = f->add<Msg>("Msg1");
         auto answer = std::make_shared<Label>();
         f->add(answer, "Label", "lblAnswer", nullptr, 10 * kTwips, 110 * kTwips, 280 * kTwips, 20 * kTwips);
         answer->setCaption("Antwort: -");
         const char* captions[] = {"Einfache Meldung", "Mit Details", "Mit Kontrollkästchen",
                                   "Mit Countdown"};
         for (int i = 0; i < 4; ++i) {
           auto b = std::make_shared<MsgButton>();
           f->add(b, "CommandButton", "cmdOpen" + std::to_string(i), nullptr, (10 + (i % 2) * 145) * kTwips,
                  (10 + (i / 2) * 45) * kTwips, 135 * kTwips, 35 * kTwips);
           b->setCaption(captions[i]);
           std::weak_ptr<Msg> weak = msg;
           std::weak_ptr<Label> label = answer;
           b->Click.connect([weak, label, i] {
             auto m = weak.lock();
             if (!m) return;
             int32_t value = 0;
             if (i == 0)
               value = m->MsgBoxEx("Die Änderungen wurden gespeichert.", vbOKOnly, "Kundenverwaltung");
             if (i == 1)
               value = m->MsgBoxEx("Die Datenbank konnte nicht geöffnet werden.", vbRetryCancel,
                                   "Fehler beim Laden", "", 0, 0, kDetails, true);
             if (i == 2)
               value =
                   m->MsgBoxEx("Neue Einträge werden gesichert.", vbOKOnly, "Hinweis", "", 0, exShowCheck);
             if (i == 3)
               value = m->MsgBoxEx("Soll der Vorgang fortgesetzt werden?", vbYesNo + vbDefaultButton2,
                                   "Rückfrage", "", 0, exAutoClose);
             if (auto l = label.lock())
               l->setCaption("Antwort: " + std::to_string(value) +
                             (m->DisplayAgain ? "" : ", nicht mehr anzeigen"));
           });
         }
         return f;
       }},
  };
}

}  // namespace corvane::gallery

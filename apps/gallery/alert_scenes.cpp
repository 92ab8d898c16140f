// SPDX-License-Identifier: MIT
#include <corvane/host/picture_box.h>
#include <corvane/host/std_picture.h>
#include <corvane/notify/frm_alert.h>
#include <corvane/notify/vex_alert.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_line_hover.h>

#include <memory>
#include <string>

#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;  // the gallery's desktop runs at 15 twips per pixel
constexpr OLE_COLOR kDesktop = 0xA56E3A;

struct Look {
  std::string header = "Neue Nachricht", text = "Sie haben drei neue Nachrichten im Posteingang.";
  std::string echo = "Gallery", opt1, opt2, opt3;
  bool close = true, banner = true;
  myBorderStyle border = B0Normal;
  myFX effect = FX1Scroll;
  OLE_COLOR back = 0x400000, backAlt = 0xFF8000;
  int32_t height = 1500, width = 2700;
  PictureRef icon, wall;
};

// One alert, opened to its full height at once and kept until it is closed.
std::shared_ptr<frmAlert> raise(const Look& l) {
  auto a = frmAlert::Load();
  int32_t h = l.height, w = l.width, ix = 60, iy = 345, tx = 60,
          ty = l.banner || !l.header.empty() ? 300 : 30;
  if (l.icon) tx = 660;
  a->DisplayAlert(l.header, l.text, l.echo, "", "Bitte wählen:", l.opt1, l.opt2, l.opt3, "", false, l.close,
                  l.banner, 0xFFFFFF, 0x404040, 0xFFFFFF, 0x99FFFF, l.back, l.backAlt, 0xF5AB7A, 0x993F11,
                  l.border, l.effect, Zentriert, h, w, 130, 10, 0, l.icon, ix, iy, tx, ty, 4500, l.wall);
  while (a->timerEnabled(1)) a->tmrOpen_Timer();
  return a;
}

FormRef formOf(const std::shared_ptr<frmAlert>& a) {
  return std::static_pointer_cast<Form>(a->form().shared_from_this());
}

Scene alertScene(const std::string& name, const std::string& description, Look look) {
  return {name, description, [look] { return formOf(raise(look)); }};
}

// A stretch of the desktop's bottom right corner with alerts placed in it as they stand on the screen.
FormRef corner(const std::string& name, const std::vector<std::shared_ptr<frmAlert>>& alerts, int32_t width,
               int32_t height) {
  FormRef f = makeSceneForm(name, width * kTwips, height * kTwips, 8, kDesktop);
  RECT screen{0, 0, user().GetSystemMetrics(SM_CXSCREEN), user().GetSystemMetrics(SM_CYSCREEN)};
  for (const auto& a : alerts) {
    RECT r;
    user().GetWindowRect(a->form().hWnd(), r);
    user().SetParent(a->form().hWnd(), f->hWnd());
    user().MoveWindow(a->form().hWnd(), r.Left - (screen.Right - width), r.Top - (screen.Bottom - height),
                      r.Right - r.Left, r.Bottom - r.Top, true);
  }
  return f;
}
}  // namespace

std::vector<Scene> alertScenes();
namespace {
SceneRegistrar registerAlerts("alert", alertScenes);
}

std::vector<Scene> alertScenes() {
  std::vector<Scene> scenes;
  const std::pair<myBorderStyle, const char*> styles[] = {
      {B0Normal, "normal"}, {B1Edel, "edel"},         {B2Inline, "inline"},  {B3Thin, "thin"},
      {B4Flat, "flat"},     {B5NoBorder, "noborder"}, {B6Movable, "movable"}};
  int i = 0;
  for (auto [style, word] : styles) {
    Look l;
    l.border = style;
    l.effect = (i++ % 2) ? FX2Fade : FX1Scroll;
    l.header = std::string("Rahmen ") + word;
    scenes.push_back(alertScene(std::string("alert_border_") + word,
                                std::string("an alert with the border style ") + word +
                                    (l.effect == FX2Fade ? ", faded in (translucent)" : ", slid in"),
                                l));
  }
  {
    Look l;
    l.header = "";
    l.banner = false;
    l.close = false;
    l.height = 0;
    l.text =
        "Ohne Kopf und Banner: die Höhe folgt dem Text, der über mehrere Zeilen umbricht und so das Fenster "
        "wachsen lässt.";
    scenes.push_back(
        alertScene("alert_measured", "no header, no banner, the height measured from the text", l));
  }
  {
    Look l;
    l.header = "Termin";
    l.text = "Besprechung um 14 Uhr";
    l.opt1 = "Annehmen";
    l.opt2 = "Ablehnen";
    l.opt3 = "Später erinnern";
    l.height = 1200;
    scenes.push_back(alertScene("alert_options", "an alert with a header over three option lines", l));
  }
  {
    Look l;
    l.header = "Tapete";
    l.text = "Ein gekachelter Hintergrund mit Symbol";
    l.wall = LoadResPicture("hover_demo");
    l.icon = LoadResPicture("BPLUS");
    scenes.push_back(
        alertScene("alert_wallpaper", "a tiled wallpaper instead of the gradient, with an icon", l));
  }
  scenes.push_back({"alert_hover", "the mouse over the text: underlined in the hover colour", [] {
                      Look l;
                      l.header = "Maus darüber";
                      l.text = "Klicken öffnet die Nachricht";
                      auto a = raise(l);
                      HWND pic = a->picBackground().surface().hWnd();
                      RECT r;
                      user().GetWindowRect(pic, r);
                      user().SetCursorPos(r.Left + 60, r.Top + 50);
                      user().SendMessageA(pic, wm::MOUSEMOVE, 0, (50 << 16) | 60);
                      user().ReleaseCapture();
                      return formOf(a);
                    }});
  scenes.push_back(
      {"alert_stack", "four alerts stacked upward from the bottom right corner of the screen", [] {
         std::vector<std::shared_ptr<frmAlert>> alerts;
         frmAlert::AlertStackTop = 0;  // the other scenes' alerts are no part of this stack
         const char* texts[] = {"Erste Meldung", "Zweite Meldung", "Dritte Meldung", "Vierte Meldung"};
         for (int k = 0; k < 4; ++k) {
           Look l;
           l.header = "Meldung " + std::to_string(k + 1);
           l.text = texts[k];
           l.height = 1000;
           l.border = k % 2 ? B4Flat : B0Normal;
           alerts.push_back(raise(l));
         }
         return corner("GalleryAlertStack", alerts, 220, 330);
       }});
  scenes.push_back(
      {"alert_raiser", "a form with a VexAlert: in the live gallery its button raises real alerts", [] {
         FormRef f = makeSceneForm("GalleryAlertRaiser", 200 * kTwips, 60 * kTwips, 8);
         auto alert = std::dynamic_pointer_cast<VexAlert>(f->add("VexAlert", "VexAlert1", nullptr, 0, 0));
         alert->setBorderStyle(B6Movable);
         auto button = f->add<VexLineHover>("cmdRaise", 20 * kTwips, 20 * kTwips, 160 * kTwips, 16 * kTwips);
         button->setForeColor(0x8B4513);
         button->setForeColorHover(0x0000C0);
         button->setCaption("Alarm zeigen");
         std::weak_ptr<VexAlert> weak = alert;
         auto count = std::make_shared<int>(0);
         button->Click.connect([weak, count] {
           if (auto a = weak.lock())
             a->AlertShow("Alarm Nummer " + std::to_string(++*count) + " aus der Galerie", true, true,
                          "Galerie", "Galerie" + std::to_string(*count), "", "", "", "", "", 1200, 2700,
                          5000);
         });
         return f;
       }});
  return scenes;
}

}  // namespace corvane::gallery

// SPDX-License-Identifier: MIT
#include <corvane/host/screen.h>
#include <corvane/notify/balloon_window.h>
#include <corvane/notify/mini_balloon.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_color_label.h>

#include <memory>
#include <string>

#include "desktop/desktop.h"
#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;
constexpr int32_t kHostWidth = 360, kHostHeight = 200;
constexpr OLE_COLOR kHostBack = 0xF0E8E0;

Desktop* desktop() { return dynamic_cast<Desktop*>(&platform()); }
int32_t screenWidth() { return static_cast<int32_t>(Screen::instance().Width() / kTwips); }
int32_t screenHeight() { return static_cast<int32_t>(Screen::instance().Height() / kTwips); }

// A host form at a place of the screen in pixels, with a caption line at its top.
FormRef makeHost(int32_t x, int32_t y, const std::string& note) {
  FormRef f = makeSceneForm("BalloonHost", kHostWidth * kTwips, kHostHeight * kTwips, 8, kHostBack);
  f->Move(x * kTwips, y * kTwips);
  auto l = f->add<VexColorLabel>("lblNote", 8 * kTwips, 6 * kTwips, 340 * kTwips, 16 * kTwips);
  l->setBackColor(kHostBack);
  l->setCaption(note);
  return f;
}

// The balloon stands on the screen, not on a form, so the scene is a copy of the host's part of
// the screen with the balloon over it; the host and the balloon go before the next scene.
FormRef snapshot(const std::string& name, FormRef& host) {
  RECT r{};
  user().GetWindowRect(host->hWnd(), r);
  if (Desktop* d = desktop()) d->screen();  // brings the composed screen up to date
  FormRef scene = makeSceneForm(name, kHostWidth * kTwips, kHostHeight * kTwips, 8);
  HDC screenDc = gdi().GetDC(0);
  gdi().BitBlt(scene->surface().hdc(), 0, 0, kHostWidth, kHostHeight, screenDc, r.Left, r.Top, SRCCOPY);
  gdi().ReleaseDC(0, screenDc);
  BalloonWindow::instance().unload();
  host->Unload();
  host.reset();
  return scene;
}

// A balloon at a point of the screen.
void popAt(int32_t x, int32_t y, bool above, const std::string& text, const std::string& title,
           int32_t icon) {
  cMiniBalloon creator;
  BalloonRequest r;
  r.Title = title;
  r.Icon = icon;
  r.PutAtCurrentMousePos = false;
  r.TipAbove = above;
  r.XinPixels = static_cast<int16_t>(x);
  r.YinPixels = static_cast<int16_t>(y);
  std::string m = text;
  BalloonWindow::instance().popUpBalloon(creator, m, r);
}

// A scene with the tip in one corner: the left ones in the screen's middle, the right ones at
// its right edge, where the balloon has to turn.
FormRef tipScene(const std::string& name, bool above, bool right) {
  int32_t hx = right ? screenWidth() - kHostWidth : screenWidth() / 2;
  int32_t hy = screenHeight() / 2;
  FormRef host = makeHost(hx, hy, right ? "Am rechten Rand des Bildschirms" : "Mitten auf dem Bildschirm");
  int32_t px = right ? screenWidth() - 40 : hx + 60;
  int32_t py = above ? hy + 150 : hy + 40;
  popAt(px, py, above, "Die Spitze zeigt auf den Punkt.", above ? "Oben" : "Unten", vbInformation);
  return snapshot(name, host);
}
}  // namespace

std::vector<Scene> balloonScenes();
namespace {
SceneRegistrar registerBalloon("balloon", balloonScenes);
}

std::vector<Scene> balloonScenes() {
  return {
      {"balloon_tip_bottom_left", "a balloon above a point, its tip at the bottom left",
       [] { return tipScene("balloon_tip_bottom_left", true, false); }},
      {"balloon_tip_top_left", "a balloon below a point, its tip at the top left",
       [] { return tipScene("balloon_tip_top_left", false, false); }},
      {"balloon_tip_bottom_right", "at the screen's right edge the tip turns to the bottom right",
       [] { return tipScene("balloon_tip_bottom_right", true, true); }},
      {"balloon_tip_top_right", "below a point at the right edge, the tip at the top right",
       [] { return tipScene("balloon_tip_top_right", false, true); }},
      {"balloon_long_markup", "a long message with colour markup, wrapped at the widest width",
       [] {
         int32_t hx = screenWidth() / 2, hy = screenHeight() / 2;
         FormRef host = makeHost(hx, hy, "Ein langer Text");
         cMiniBalloon creator;
         BalloonRequest r;
         r.Title = "Speichern fehlgeschlagen";
         r.Icon = vbCritical;
         r.HeadColor = 0x0000C0;
         r.PutAtCurrentMousePos = false;
         r.XinPixels = static_cast<int16_t>(hx + 40);
         r.YinPixels = static_cast<int16_t>(hy + 30);
         r.TipAbove = false;
         r.MaxWidth = 4200;
         std::string m =
             "Die Datei <b>Bericht.txt</b> konnte nicht gespeichert werden, weil der Datentr\xC3\xA4ger "
             "<c&H0000C0>schreibgesch\xC3\xBCtzt</c> ist. Bitte w\xC3\xA4hlen Sie einen <i>anderen Ort</i> "
             "oder <u>entfernen</u> Sie den Schutz.";
         BalloonWindow::instance().popUpBalloon(creator, m, r);
         return snapshot("balloon_long_markup", host);
       }},
      {"balloon_control_edge", "at a field near the right and bottom edges the tip turns right",
       [] {
         FormRef host =
             makeHost(screenWidth() - kHostWidth, screenHeight() - kHostHeight, "Ein Feld am Rand");
         auto field =
             host->add<VexColorLabel>("lblField", 250 * kTwips, 160 * kTwips, 100 * kTwips, 20 * kTwips);
         field->setBackColor(0xFFFFFF);
         field->setCaption("Eingabefeld");
         cMiniBalloon creator;
         BalloonRequest r;
         r.Title = "Pflichtfeld";
         r.Icon = vbExclamation;
         r.CTRL = field->extenderRef();
         std::string m = "Bitte f\xC3\xBCllen Sie <b>dieses Feld</b> aus.";
         BalloonWindow::instance().popUpBalloon(creator, m, r);
         return snapshot("balloon_control_edge", host);
       }},
  };
}

}  // namespace corvane::gallery

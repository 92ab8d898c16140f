// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>
#include <corvane/widgets/vex_info_panel.h>
#include <corvane/widgets/vex_info_panel_light.h>

#include <memory>
#include <string>

#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;  // the gallery's desktop runs at 15 twips per pixel

std::shared_ptr<VexInfoPanelLight> addLight(Form& f, const std::string& name, int x, int y, int w, int h) {
  return std::dynamic_pointer_cast<VexInfoPanelLight>(
      f.add("VexInfoPanelLight", name, nullptr, x * kTwips, y * kTwips, w * kTwips, h * kTwips));
}
std::shared_ptr<VexInfoPanel> addPanel(Form& f, const std::string& name, int x, int y, int w, int h) {
  return std::dynamic_pointer_cast<VexInfoPanel>(
      f.add("VexInfoPanel", name, nullptr, x * kTwips, y * kTwips, w * kTwips, h * kTwips));
}
}  // namespace

std::vector<Scene> infoPanelScenes();
namespace {
SceneRegistrar registerInfoPanels("infopanel", infoPanelScenes);
}

std::vector<Scene> infoPanelScenes() {
  return {
      {"infopanel_states",
       "the info panel: headline and text, without headline, with a picture, and an overflowing text in its "
       "scrolling text box",
       [] {
         FormRef f = makeSceneForm("GalleryInfoPanel", 470 * kTwips, 200 * kTwips, 8, 0xFFFFFF);
         auto plain = addPanel(*f, "pnlPlain", 10, 10, 220, 80);
         plain->setCaption("Hinweis");
         plain->setText("Der Text passt in das Feld.<BR>Eine zweite Zeile.");
         auto bare = addPanel(*f, "pnlBare", 240, 10, 220, 80);
         bare->setCaption("");
         bare->setText("Ohne Überschrift rückt der Text nach oben.");
         auto pic = addPanel(*f, "pnlPicture", 10, 100, 220, 90);
         pic->setPicture(Global::LoadIconPicture("hover_demo"));
         pic->setCaption("Mit Bild");
         pic->setText("Überschrift und Text stehen neben dem Bild.");
         auto over = addPanel(*f, "pnlOverflow", 240, 100, 220, 90);
         over->setCaption("Zu viel Text");
         std::string text;
         for (int i = 1; i <= 12; ++i)
           text +=
               (i > 1 ? "<br>" : "") + std::string("Zeile ") + std::to_string(i) + " eines langen Hinweises";
         over->setText(text);
         return f;
       }},
      {"infopanel_light",
       "the light panel: plain, with a picture, with a wrapped text and a line break, moved text, coloured",
       [] {
         FormRef f = makeSceneForm("GalleryInfoPanelLight", 470 * kTwips, 170 * kTwips, 8, 0xFFFFFF);
         auto plain = addLight(*f, "pnlPlain", 10, 10, 220, 40);
         plain->setText("Ein schlichter Hinweis.");
         auto pic = addLight(*f, "pnlPicture", 240, 10, 220, 40);
         pic->setPicture(Global::LoadIconPicture("hover_demo"));
         pic->setTextPosLeft(44);
         pic->setText("Mit Bild: der Text rückt nach rechts.");
         auto wrap = addLight(*f, "pnlWrap", 10, 60, 220, 60);
         wrap->setWordWrap(true);
         wrap->setText(
             "Ein längerer Hinweis, der am Rand umbricht.<br>Neue Zeile nach <br>, nicht nach <BR>.");
         auto moved = addLight(*f, "pnlMoved", 240, 60, 220, 60);
         moved->setTextPosLeft(12);
         moved->setTextPosTop(20);
         moved->setText("Text frei gesetzt");
         auto coloured = addLight(*f, "pnlColour", 10, 130, 450, 30);
         coloured->setBackColor(0xF0E0D0);
         coloured->setBorderColor(0x804000);
         coloured->setTextColor(0x804000);
         coloured->setTextPosLeft(12);
         coloured->setText("Andere Farben: Rand, Grund und Text");
         return f;
       }},
  };
}

}  // namespace corvane::gallery

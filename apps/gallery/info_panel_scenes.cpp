// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>
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
}  // namespace

std::vector<Scene> infoPanelScenes();
namespace {
SceneRegistrar registerInfoPanels("infopanel", infoPanelScenes);
}

std::vector<Scene> infoPanelScenes() {
  return {
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

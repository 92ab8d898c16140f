// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_line_hover.h>

#include <memory>
#include <string>

#include "desktop/desktop.h"
#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;  // the gallery's desktop runs at 15 twips per pixel
constexpr OLE_COLOR kLink = 0x8B4513, kLinkHover = 0x0000C0;

std::shared_ptr<VexLineHover> addLine(Form& f, const std::string& name, const std::string& caption, int32_t x,
                                      int32_t y, int32_t width = 180) {
  auto l = std::dynamic_pointer_cast<VexLineHover>(
      f.add("VexLineHover", name, nullptr, x * kTwips, y * kTwips, width * kTwips, 16 * kTwips));
  l->setForeColor(kLink);
  l->setForeColorHover(kLinkHover);
  l->setCaption(caption);
  return l;
}
}  // namespace

std::vector<Scene> lineHoverScenes();
namespace {
SceneRegistrar registerLineHover("linehover", lineHoverScenes);
}

std::vector<Scene> lineHoverScenes() {
  return {
      {"linehover_looks",
       "the hover styles: plain, colour and underline, only underline, only colour, deactivated; then "
       "disabled",
       [] {
         FormRef f = makeSceneForm("GalleryLineHoverLooks", 420 * kTwips, 150 * kTwips, 8);
         auto plain = addLine(*f, "linPlain", "Ohne Maus: ForeColor", 20, 10);
         auto both = addLine(*f, "linBoth", "ColorUnderline: Farbe und Strich", 20, 32);
         both->setHoverStyle(ColorUnderline);
         both->Draw(true);
         auto under = addLine(*f, "linUnder", "OnlyUnderline: nur Strich", 20, 54);
         under->setHoverStyle(OnlyUnderline);
         under->Draw(true);
         auto colour = addLine(*f, "linColour", "OnlyColor: nur Farbe", 20, 76);
         colour->setHoverStyle(OnlyColor);
         colour->Draw(true);
         auto off = addLine(*f, "linOff", "Deactivate: ein schlichtes Label", 20, 98);
         off->setHoverStyle(Deactivate);
         off->Draw(true);
         auto disabled = addLine(*f, "linDisabled", "Deaktiviert: graviert", 20, 120);
         disabled->setEnabled(false);
         auto icon = addLine(*f, "linIcon", "Mit Symbol & Text", 220, 10);
         icon->setIcon(Global::LoadIconPicture("hover_demo"));
         auto iconHover = addLine(*f, "linIconHover", "Mit Symbol, Maus darüber", 220, 32);
         iconHover->setIcon(Global::LoadIconPicture("hover_demo"));
         iconHover->Draw(true);
         auto path = addLine(*f, "linPath", "C:\\Programme\\Corvane\\Beispiele\\Berichte\\Jahresbericht.txt",
                             220, 54, 170);
         auto fit = addLine(*f, "linAuto", "AutoWidth folgt dem Text", 220, 76, 40);
         fit->setAutoWidth(true);
         auto capped = addLine(*f, "linCapped", "MaxAutoWidth begrenzt einen langen Text", 220, 98, 40);
         capped->setMaxAutoWidth(120 * 15);
         capped->setAutoWidth(true);
         return f;
       }},
      {"linehover_mouse",
       "driven by the mouse: the link under the mouse shows its hover look, the one left shows none",
       [] {
         FormRef f = makeSceneForm("GalleryLineHoverMouse", 260 * kTwips, 60 * kTwips, 8);
         auto left = addLine(*f, "linLeft", "Verlassen", 20, 10);
         auto over = addLine(*f, "linOver", "Maus darüber", 20, 32);
         if (auto* d = dynamic_cast<Desktop*>(&platform())) {
           POINTAPI p{5, 5};
           user().ClientToScreen(left->hWnd(), p);
           d->mouseMove(p.x, p.y);
           POINTAPI q{5, 5};
           user().ClientToScreen(over->hWnd(), q);
           d->mouseMove(q.x, q.y);
         }
         return f;
       }},
  };
}

}  // namespace corvane::gallery

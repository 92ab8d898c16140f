// SPDX-License-Identifier: MIT
#include <memory>

#include "gallery.h"
#include <corvane/host/std_font.h>
#include <corvane/widgets/vex_color_label.h>

namespace corvane::gallery {

namespace {
std::shared_ptr<VexColorLabel> addLabel(Form& f, const std::string& name, float left, float top, float width,
                                        float height) {
  return std::dynamic_pointer_cast<VexColorLabel>(f.add("VexColorLabel", name, nullptr, left, top, width, height));
}

}  // namespace

std::vector<Scene> labelScenes();
namespace {
SceneRegistrar registerLabels("colorlabel", labelScenes);
}

std::vector<Scene> labelScenes() {
  return {
      {"colorlabel_markup", "bold, red and a forced line break",
       [] {
         FormRef f = makeSceneForm("GalleryMarkup", 4200, 900, 10);
         auto l = addLabel(*f, "lblMarkup", 120, 120, 3900, 600);
         l->setCaption("<b>Fett</b> und <c&HFF>rot</c><br>zweite Zeile");
         return f;
       }},
      {"colorlabel_styles", "all four font styles, several colours, system colour reset",
       [] {
         FormRef f = makeSceneForm("GalleryStyles", 5400, 1300, 10);
         auto l = addLabel(*f, "lblStyles", 120, 120, 5100, 1000);
         l->setCaption(
             "<b>fett</b> <i>kursiv</i> <u>unterstrichen</u> <s>durchgestrichen</s><br>"
             "<c&H00C00000&>blau</c> <c&H00008000&>gruen</c> <c&H000080FF&>orange</c> normal<br>"
             "<b><i><c&H800080>fett kursiv lila</c></i></b> und <center>schwarz");
         return f;
       }},
      {"colorlabel_wordwrap", "WordWrap at blanks with Autosize of the height",
       [] {
         FormRef f = makeSceneForm("GalleryWrap", 3300, 2200, 10);
         auto l = addLabel(*f, "lblWrap", 120, 120, 3000, 300);
         l->setWordWrap(true);
         l->setCaption(
             "Ein <b>langer</b> Text, der am Rand des Steuerelements <c&HFF>umbricht</c>, wobei "
             "Wortgrenzen erhalten bleiben. Ueberlangewoerterwiedieseswerdennichtgetrennt und "
             "der Rest beginnt auf einer neuen Zeile.");
         return f;
       }},
      {"colorlabel_autosize", "Autosize grows the width, six pixels per piece",
       [] {
         FormRef f = makeSceneForm("GalleryAutosize", 5000, 800, 10);
         auto l = addLabel(*f, "lblAuto", 120, 120, 600, 300);
         l->setBackColor(0xE0FFFF);
         l->setAutosize(true);
         l->setCaption("<b>Autosize:</b> die Breite <i>waechst</i> mit dem Text");
         return f;
       }},
  };
}

}  // namespace corvane::gallery

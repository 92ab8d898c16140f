// SPDX-License-Identifier: MIT
#include <corvane/html/vex_html.h>

#include <memory>
#include <string>

#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;  // the gallery's desktop runs at 15 twips per pixel
constexpr OLE_COLOR kWhite = 0xFFFFFF;

// An HTML view at a pixel position with the given host border, showing a short page.
void addBorderedView(Form& f, const std::string& name, int32_t x, int32_t y, int16_t appearance,
                     int16_t borderStyle, const std::string& caption) {
  auto view = std::dynamic_pointer_cast<VexHTML>(
      f.add("VexHTML", name, nullptr, x * kTwips, y * kTwips, 200 * kTwips, 120 * kTwips));
  view->setDefaultFontName("Arial");
  view->setBackColor(kWhite);
  view->setEnableScroll(1);
  view->setBorderStyle(borderStyle);
  view->setAppearance(appearance);
  std::string page =
      "<H3>" + caption + "</H3><P>The page, its viewport and the scroll bar lie inside the border.</P>";
  for (int i = 1; i <= 6; ++i) page += "<P>Line " + std::to_string(i) + "</P>";
  view->setText(page);
}
}  // namespace

std::vector<Scene> borderScenes();
namespace {
SceneRegistrar registerBorder("border", borderScenes);
}

std::vector<Scene> borderScenes() {
  return {
      {"html_border", "HTML views with the host's border: the sunken 3-D edge, the single line, and none",
       [] {
         FormRef f = makeSceneForm("GalleryHtmlBorder", 680 * kTwips, 140 * kTwips, 8);
         addBorderedView(*f, "htmSunken", 10, 10, 1, 1, "Appearance 1, BorderStyle 1");
         addBorderedView(*f, "htmSingle", 240, 10, 0, 1, "Appearance 0, BorderStyle 1");
         addBorderedView(*f, "htmNone", 470, 10, 1, 0, "BorderStyle 0");
         return f;
       }},
  };
}

}  // namespace corvane::gallery

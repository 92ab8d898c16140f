// SPDX-License-Identifier: MIT
#include <memory>
#include <string>

#include "desktop/desktop.h"
#include <corvane/frame/global.h>
#include "gallery.h"
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_color_label.h>
#include <corvane/widgets/vex_hover_pic.h>

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;  // the gallery's desktop runs at 15 twips per pixel
constexpr OLE_COLOR kFace = static_cast<OLE_COLOR>(0x8000000F);
// White, the button's own default back colour, so that its light grey shadow shows.
constexpr OLE_COLOR kWhite = 0xFFFFFF;


FormRef makeHoverForm(const std::string& name, float width, float height, OLE_COLOR back = kWhite) {
  return makeSceneForm(name, width, height, 8, back);
}

// A hover button at a pixel position with the demo picture.
std::shared_ptr<VexHoverPic> addHover(Form& f, const std::string& name, int32_t x, int32_t y) {
  auto h = std::dynamic_pointer_cast<VexHoverPic>(f.add("VexHoverPic", name, nullptr, x * kTwips, y * kTwips));
  h->setImageUp(Global::LoadIconPicture("hover_demo"));
  return h;
}

// A caption under a button.
void addCaption(Form& f, const std::string& name, const std::string& text, int32_t x, int32_t y) {
  auto l = std::dynamic_pointer_cast<VexColorLabel>(f.add("VexColorLabel", name, nullptr, x * kTwips, y * kTwips,
                                                          96 * kTwips, 16 * kTwips));
  l->setCaption(text);
}

// The desktop's mouse on a point of a control, in screen pixels (the scene's form still sits at
// the top left of the screen while it is built).
POINTAPI screenPoint(const VexHoverPic& h, int32_t x, int32_t y) {
  POINTAPI p{x, y};
  user().ClientToScreen(h.hWnd(), p);
  return p;
}
Desktop* desktop() { return dynamic_cast<Desktop*>(&platform()); }
void pointAt(const VexHoverPic& h, int32_t x, int32_t y) {
  POINTAPI p = screenPoint(h, x, y);
  if (Desktop* d = desktop()) d->mouseMove(p.x, p.y);
}
void clickAt(const VexHoverPic& h, int32_t x, int32_t y) {
  POINTAPI p = screenPoint(h, x, y);
  if (Desktop* d = desktop()) d->click(p.x, p.y);
}
}  // namespace

std::vector<Scene> hoverScenes();
namespace {
SceneRegistrar registerHover("hoverpic", hoverScenes);
}

std::vector<Scene> hoverScenes() {
  return {
      {"hoverpic_looks", "one up picture, four looks: up, hot with its shadow, down one pixel lower, disabled",
       [] {
         FormRef f = makeHoverForm("GalleryHoverLooks", 420 * kTwips, 80 * kTwips);
         const char* captions[] = {"oben", "heiß", "gedrückt", "deaktiviert"};
         for (int i = 0; i < 4; ++i) {
           int32_t x = 20 + i * 100;
           auto h = addHover(*f, "hovLook" + std::to_string(i), x + 20, 14);
           addCaption(*f, "lblLook" + std::to_string(i), captions[i], x, 56);
           if (i == 1) h->Draw(VexHoverPic::StateHot);
           if (i == 2) h->Draw(VexHoverPic::StateDown);
           if (i == 3) h->setEnabled(false);
         }
         return f;
       }},
      {"hoverpic_pictures", "explicit hot and down pictures replace the derived looks",
       [] {
         FormRef f = makeHoverForm("GalleryHoverPictures", 320 * kTwips, 80 * kTwips);
         const char* captions[] = {"ImageUp", "ImageHot", "ImageDown"};
         for (int i = 0; i < 3; ++i) {
           int32_t x = 20 + i * 100;
           auto h = addHover(*f, "hovPic" + std::to_string(i), x + 20, 14);
           h->setImageHot(Global::LoadIconPicture("hover_demo_hot"));
           h->setImageDown(Global::LoadIconPicture("hover_demo_down"));
           addCaption(*f, "lblPic" + std::to_string(i), captions[i], x, 56);
           if (i == 1) h->Draw(VexHoverPic::StateHot);
           if (i == 2) h->Draw(VexHoverPic::StateDown);
         }
         return f;
       }},
      {"hoverpic_mouse", "driven by the mouse: a pressed toggle keeps its look while the mouse is over it",
       [] {
         FormRef f = makeHoverForm("GalleryHoverMouse", 320 * kTwips, 80 * kTwips);
         auto plain = addHover(*f, "hovPlain", 40, 14);
         addCaption(*f, "lblPlain", "Maus darüber", 20, 56);
         auto toggle = addHover(*f, "hovToggle", 140, 14);
         toggle->setStyle(abCheckButton);
         addCaption(*f, "lblToggle", "Umschalter an", 120, 56);
         auto other = addHover(*f, "hovOther", 240, 14);
         addCaption(*f, "lblOther", "verlassen", 220, 56);
         // Hover over the third and leave it, press the toggle, and rest on the first.
         pointAt(*other, 10, 10);
         clickAt(*toggle, 10, 10);
         pointAt(*toggle, 12, 12);
         pointAt(*plain, 10, 10);
         return f;
       }},
      {"hoverpic_transparent", "a bitmap on the mask colour: opaque, and transparent over a striped container",
       [] {
         FormRef f = makeHoverForm("GalleryHoverTransparent", 220 * kTwips, 80 * kTwips, kFace);
         // Stripes on the form, so that what shows through is plain to see.
         for (int32_t y = 0; y < 80; y += 8) f->surface().Line(0, y * kTwips, 220 * kTwips, (y + 3) * kTwips, 0xD0A070, true, true);
         const char* captions[] = {"BackStyle 1", "BackStyle 0"};
         for (int i = 0; i < 2; ++i) {
           int32_t x = 20 + i * 100;
           auto h = std::dynamic_pointer_cast<VexHoverPic>(
               f->add("VexHoverPic", "hovMask" + std::to_string(i), nullptr, (x + 20) * kTwips, 14 * kTwips));
           h->setImageUp(LoadResPicture("hover_mask_demo"));
           if (i == 1) h->setBackStyle(abTransparent);
           addCaption(*f, "lblMask" + std::to_string(i), captions[i], x, 56);
         }
         return f;
       }},
  };
}

}  // namespace corvane::gallery

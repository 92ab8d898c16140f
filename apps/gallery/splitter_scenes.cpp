// SPDX-License-Identifier: MIT
#include <corvane/host/extender.h>
#include <corvane/host/property_bag.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_color_label.h>
#include <corvane/widgets/vex_splitter.h>

#include <memory>
#include <string>

#include "desktop/desktop.h"
#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;  // the gallery's desktop runs at 15 twips per pixel

Desktop* desktop() { return dynamic_cast<Desktop*>(&platform()); }

HostedControlRef addBox(Form& f, const std::string& name, int x, int y, int w, int h, OLE_COLOR back) {
  HostedControlRef box = f.add("PictureBox", name, nullptr, x * kTwips, y * kTwips, w * kTwips, h * kTwips);
  box->surface().setBackColor(back);
  return box;
}

// A splitter as a designer stores it: minimums of 30 pixels on each side, a grey border line.
std::shared_ptr<VexSplitter> addSplitter(Form& f, const std::string& name, enSplitterDir dir, int x, int y,
                                         int w, int h, HostedControl& a, HostedControl& b) {
  PropertyBag bag;
  bag.set("MinLeftTop", int32_t(30 * kTwips));
  bag.set("MinRightBottom", int32_t(30 * kTwips));
  bag.set("Direction", int32_t(dir));
  bag.set("BorderColor", int32_t(0x808080));
  auto s = std::dynamic_pointer_cast<VexSplitter>(
      f.add("VexSplitter", name, nullptr, x * kTwips, y * kTwips, w * kTwips, h * kTwips, &bag));
  ObjectRef l = a.extenderRef(), r = b.extenderRef();
  s->SetControls(l, r);
  return s;
}

void addCaption(Form& f, const std::string& name, const std::string& text, int32_t x, int32_t y) {
  auto l = std::dynamic_pointer_cast<VexColorLabel>(
      f.add("VexColorLabel", name, nullptr, x * kTwips, y * kTwips, 150 * kTwips, 16 * kTwips));
  l->setCaption(text);
}

// A pair of boxes with a bar between them, left to right or top to bottom, at a pixel origin.
std::shared_ptr<VexSplitter> addPair(Form& f, const std::string& tag, enSplitterDir dir, int x, int y) {
  if (dir == sdVertical) {
    auto a = addBox(f, "picLeft" + tag, x, y, 70, 100, 0xF0D8C0);
    auto b = addBox(f, "picRight" + tag, x + 75, y, 70, 100, 0xC0E0F0);
    return addSplitter(f, "spl" + tag, dir, x + 70, y, 5, 100, *a, *b);
  }
  auto a = addBox(f, "picTop" + tag, x, y, 145, 47, 0xF0D8C0);
  auto b = addBox(f, "picBottom" + tag, x, y + 52, 145, 48, 0xC0E0F0);
  return addSplitter(f, "spl" + tag, dir, x, y + 47, 145, 5, *a, *b);
}

// The bar's own press, without holding the desktop's button: the pressed look stays in the picture.
void pressBar(VexSplitter& s) {
  user().SendMessageA(s.hWnd(), wm::LBUTTONDOWN, MK_LBUTTON, 0x00100002);
  user().ReleaseCapture();
}

// A whole drag with the desktop's mouse, from a point of the bar by dx, dy pixels.
void dragBar(VexSplitter& s, int dx, int dy) {
  Desktop* d = desktop();
  if (!d || inLiveViewer()) return;
  POINTAPI p{2, 20};
  user().ClientToScreen(s.hWnd(), p);
  d->mouseMove(p.x, p.y);
  d->mouseDown(1);
  d->mouseMove(p.x + dx / 2, p.y + dy / 2);
  d->mouseMove(p.x + dx, p.y + dy);
  d->mouseUp(1);
}
}  // namespace

std::vector<Scene> splitterScenes();
namespace {
SceneRegistrar registerSplitter("splitter", splitterScenes);
}

std::vector<Scene> splitterScenes() {
  return {
      {"splitter_states",
       "a vertical and a horizontal bar, idle, pressed, and after a drag that resized both neighbours",
       [] {
         FormRef f = makeSceneForm("GallerySplitterStates", 520 * kTwips, 280 * kTwips, 8, 0xFFFFFF);
         const char* captions[] = {"ruhend", "gedrückt", "nach dem Ziehen"};
         for (int i = 0; i < 3; ++i) {
           int x = 16 + i * 165;
           addCaption(*f, "lblV" + std::to_string(i), captions[i], x, 6);
           auto v = addPair(*f, "V" + std::to_string(i), sdVertical, x, 24);
           auto h = addPair(*f, "H" + std::to_string(i), sdHorizontal, x, 140);
           if (i == 1) {
             pressBar(*v);
             pressBar(*h);
           }
           if (i == 2) {
             dragBar(*v, -30, 0);
             dragBar(*h, 0, 25);
           }
         }
         return f;
       }},
      {"splitter_live",
       "drag the bars: the cursor keeps 30 pixels of each box, the boxes follow at the release",
       [] {
         FormRef f = makeSceneForm("GallerySplitterLive", 530 * kTwips, 230 * kTwips, 8, 0xFFFFFF);
         addCaption(*f, "lblLive", "Balken ziehen, Esc bricht ab", 10, 6);
         auto left = addBox(*f, "picTree", 10, 26, 160, 190, 0xF0D8C0);
         auto right = addBox(*f, "picList", 175, 26, 175, 190, 0xC0E0F0);
         addSplitter(*f, "splTree", sdVertical, 170, 26, 5, 190, *left, *right);
         auto upper = addBox(*f, "picTop", 360, 26, 160, 90, 0xF0D8C0);
         auto lower = addBox(*f, "picBottom", 360, 121, 160, 95, 0xD0F0D0);
         addSplitter(*f, "splList", sdHorizontal, 360, 116, 160, 5, *upper, *lower);
         return f;
       }},
  };
}

}  // namespace corvane::gallery

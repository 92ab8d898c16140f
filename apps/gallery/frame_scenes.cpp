// SPDX-License-Identifier: MIT
#include <corvane/containers/frame_box_settings.h>
#include <corvane/containers/frame_settings.h>
#include <corvane/containers/vex_frame.h>
#include <corvane/containers/vex_frame_box.h>
#include <corvane/frame/global.h>
#include <corvane/host/extender.h>
#include <corvane/host/std_picture.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_color_label.h>

#include <algorithm>
#include <memory>
#include <string>

#include "desktop/desktop.h"
#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr OLE_COLOR kPane = 0xE0C8B8;  // a task-pane blue behind the frames

Desktop* desktop() { return dynamic_cast<Desktop*>(&platform()); }

// A frame in the box with one or two labels in its client area.
std::shared_ptr<VexFrame> addFrame(Form& f, VexFrameBox& box, const std::string& name,
                                   const std::string& caption, float top, float height, const char* line1,
                                   const char* line2) {
  auto frame = std::dynamic_pointer_cast<VexFrame>(f.add("VexFrame", name, &box, 120, top, 3000, height));
  frame->setCaption(caption);
  frame->setExpandierbar(true);
  frame->setBorderStyle(VexFrame::pbLine);
  frame->setBorderColor(0xA08070);
  int line = 0;
  for (const char* text : {line1, line2}) {
    if (!text) continue;
    auto l = std::dynamic_pointer_cast<VexColorLabel>(f.add(
        "VexColorLabel", name + "Label" + std::to_string(line), frame.get(), 12, 28 + line * 20, 170, 18));
    l->setBackColor(0xFFFFFF);
    l->setCaption(text);
    ++line;
  }
  // Expanding by click keeps the height of a frame collapsed from its full height; the host
  // gives it back its height and lets the box re-stack.
  std::weak_ptr<VexFrame> weak = frame;
  VexFrameBox* boxPtr = &box;
  frame->Expand.connect([weak, height, boxPtr] {
    if (auto self = weak.lock()) {
      self->setHeightExpanded(static_cast<int32_t>(height));
      boxPtr->CtrlRefresh(self->hWnd());
    }
  });
  return frame;
}

// The box of four frames: styles, one collapsed, one with icon and bullet, one under the mouse.
std::shared_ptr<VexFrameBox> buildBox(Form& f, float boxHeight, float frameHeight) {
  auto box = std::dynamic_pointer_cast<VexFrameBox>(
      f.add("VexFrameBox", "fbxTasks", nullptr, 150, 150, 3600, boxHeight));
  box->setBackColor(kPane);
  float gap = 255, top = 120;
  auto a = addFrame(f, *box, "fraFiles", "Datei- und Ordneraufgaben", top, frameHeight,
                    "Neuen <b>Ordner</b> erstellen", "Ordner im <c&HC00000>Web</c> veröffentlichen");
  a->setCaptionIcon(LoadResPicture("30001"));
  a->setShowBullet(true);
  top += frameHeight + gap;
  auto b =
      addFrame(f, *box, "fraPlaces", "Andere Orte", top, frameHeight, "Eigene Dateien", "Netzwerkumgebung");
  b->setCaptionStyle(VexFrame::pbHozSolid);
  b->setTopLeftAColor(0xFFFFFF);
  b->setTopRightAColor(0xD8B8A0);
  top += frameHeight + gap;
  auto c = addFrame(f, *box, "fraDetails", "Details", top, frameHeight, "<b>Lokaler Datenträger</b>",
                    "Frei: 12,4 GB");
  c->setCaptionStyle(VexFrame::pbVerSolid);
  c->setTopLeftAColor(0x804020);
  c->setTopRightBColor(0xE0B090);
  c->setCaptionFontColor(0xFFFFFF);
  c->setCaptionFontHoverColor(0xC0FFFF);
  c->setCaptionBorder(VexFrame::pbRound);
  c->setBorderStyle(VexFrame::pbRound);
  top += frameHeight + gap;
  auto d = addFrame(f, *box, "fraSettings", "Einstellungen", top, frameHeight, "Ansicht anpassen", nullptr);
  d->setCaptionStyle(VexFrame::pbSolid);
  d->setTopLeftAColor(0xF0E0D8);
  d->setCaptionBorder(VexFrame::pbLine);
  d->setCaptionHoverMode(VexFrame::ColorUnderline);
  d->setCaptionFontHoverColor(0xC00000);
  box->Paint();
  b->setExpandiert(false);  // collapsed; the box re-stacks the frames below it
  return box;
}

// The desktop's mouse over the caption of a frame. A control of an earlier scene may still hold
// the mouse capture, which would take the move; it lets go first.
void hoverCaption(const VexFrame& frame) {
  user().ReleaseCapture();
  POINTAPI p{60, 8};
  user().ClientToScreen(frame.hWnd(), p);
  if (Desktop* d = desktop()) d->mouseMove(p.x, p.y);
}
}  // namespace

std::vector<Scene> frameScenes();
namespace {
SceneRegistrar registerFrames("frames", frameScenes);
}

std::vector<Scene> frameScenes() {
  return {
      {"frames_box",
       "a box of four frames: hozlines with icon and bullet, collapsed hozsolid, round versolid, solid under "
       "the mouse",
       [] {
         FormRef f = makeSceneForm("GalleryFrameBox", 4200, 6300, 8);
         auto box = buildBox(*f, 6000, 1500);
         hoverCaption(*std::dynamic_pointer_cast<VexFrame>(f->control("fraSettings")));
         return f;
       }},
      {"frames_box_scrolled",
       "the same box too short for its stack: the bar in use, scrolled down by one step",
       [] {
         FormRef f = makeSceneForm("GalleryFrameBoxScrolled", 4200, 4200, 8);
         auto box = buildBox(*f, 3900, 1500);
         box->XPScroll().setValue(std::min<int16_t>(box->XPScroll().Max(), 2000));
         return f;
       }},
      {"frames_page_frame", "the designer's page of a frame, read from an expandable, expanded frame",
       [] {
         FormRef f = makeSceneForm("GalleryFramePage", 5850, 3465, 8);
         auto frame = std::dynamic_pointer_cast<VexFrame>(f->add("VexFrame", "fraSelected", nullptr, 0, 0));
         frame->setExpandierbar(true);
         user().ShowWindow(frame->hWnd(), SW_HIDE);  // the page covers the form
         FrameSettings page;
         page.setSelectedControls({frame->extenderRef()});
         page.draw(f->surface());
         return f;
       }},
      {"frames_page_box", "the designer's page of a frame box, with the scroll buttons and the grey hints",
       [] {
         FormRef f = makeSceneForm("GalleryFrameBoxPage", 5925, 3495, 8);
         auto box =
             std::dynamic_pointer_cast<VexFrameBox>(f->add("VexFrameBox", "fbxSelected", nullptr, 0, 0));
         user().ShowWindow(box->hWnd(), SW_HIDE);
         FrameBoxSettings page;
         page.setSelectedControls({box->extenderRef()});
         page.click("cmdScroll", 0);  // one step down, as a developer scrolls the stack in the designer
         page.draw(f->surface());
         return f;
       }},
  };
}

}  // namespace corvane::gallery

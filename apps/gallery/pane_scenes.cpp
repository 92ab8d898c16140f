// SPDX-License-Identifier: MIT
#include <memory>
#include <string>

#include <corvane/containers/vex_l_frame.h>
#include <corvane/containers/vex_l_pane.h>
#include <corvane/containers/vex_pane.h>
#include "gallery.h"
#include <corvane/host/extender.h>
#include <corvane/host/std_font.h>
#include <corvane/widgets/vex_color_label.h>

namespace corvane::gallery {

namespace {

void caption(Form& f, const std::string& name, const std::string& text, float left, float top, float width) {
  auto l = std::dynamic_pointer_cast<VexColorLabel>(f.add("VexColorLabel", name, nullptr, left, top, width, 255));
  l->setCaption(text);
}

std::shared_ptr<VexPane> addPane(Form& f, const std::string& name, float left, float top, float width, float height) {
  return std::dynamic_pointer_cast<VexPane>(f.add("VexPane", name, nullptr, left, top, width, height));
}

const char* styleName(VexPane::BorderType t) {
  switch (t) {
    case VexPane::btNone: return "None";
    case VexPane::btFlat: return "Flat";
    case VexPane::btFrame: return "Frame";
    case VexPane::btInset: return "Inset";
    case VexPane::btRaised: return "Raised";
    case VexPane::btCrossSingle: return "CrossSingle";
    case VexPane::btCrossFull: return "CrossFull";
    case VexPane::btHeadLines: return "HeadLines";
  }
  return "?";
}
}  // namespace

std::vector<Scene> paneScenes();
namespace {
SceneRegistrar registerPanes("panes", paneScenes);
}

std::vector<Scene> paneScenes() {
  return {
      {"pane_borders", "the eight border styles on a grey pane",
       [] {
         constexpr float w = 2400, h = 1500, gap = 150, label = 300;
         FormRef f = makeSceneForm("GalleryPaneBorders", 4 * w + 5 * gap, 2 * (h + label) + 3 * gap, 8);
         for (int i = 0; i < 8; ++i) {
           auto style = static_cast<VexPane::BorderType>(i);
           float left = gap + static_cast<float>(i % 4) * (w + gap);
           float top = gap + static_cast<float>(i / 4) * (h + label + gap);
           caption(*f, std::string("lbl") + styleName(style), styleName(style), left, top, w);
           auto p = addPane(*f, std::string("pan") + styleName(style), left, top + label, w, h);
           p->setBackColor(0xC0C0C0);
           p->setCrossColor1(0x808080);
           p->setCrossColor2(0xFFFFFF);
           p->setBorderStyle(style);
         }
         return f;
       }},
      {"pane_flat_colour", "Flat in a chosen CrossColor1, ornaments in two strong colours",
       [] {
         FormRef f = makeSceneForm("GalleryPaneColours", 7650, 1800, 8);
         auto a = addPane(*f, "panFlat", 150, 150, 2400, 1500);
         a->setBackColor(0xFFFFFF);
         a->setCrossColor1(0xC00000);
         a->setBorderStyle(VexPane::btFlat);
         auto b = addPane(*f, "panCross", 2700, 150, 2400, 1500);
         b->setBackColor(0xFFFFFF);
         b->setCrossColor1(0x0000C0);
         b->setCrossColor2(0x00A000);
         b->setBorderStyle(VexPane::btCrossFull);
         auto c = addPane(*f, "panHead", 5250, 150, 2250, 1500);
         c->setBackColor(0xFFFFFF);
         c->setCrossColor1(0x0000C0);
         c->setCrossColor2(0x00A000);
         c->setBorderStyle(VexPane::btHeadLines);
         return f;
       }},
      {"pane_gradients", "gradients at 0, 45 and 130 degrees, without a border and with Frame",
       [] {
         constexpr float w = 3000, h = 1800, gap = 150, label = 300;
         FormRef f = makeSceneForm("GalleryPaneGradients", 3 * w + 4 * gap, 2 * (h + label) + 3 * gap, 8);
         const float angles[] = {0, 45, 130};
         for (int row = 0; row < 2; ++row)
           for (int i = 0; i < 3; ++i) {
             float left = gap + static_cast<float>(i) * (w + gap);
             float top = gap + static_cast<float>(row) * (h + label + gap);
             std::string tag = std::to_string(static_cast<int>(angles[i])) + (row ? "Frame" : "");
             caption(*f, "lbl" + tag, std::to_string(static_cast<int>(angles[i])) + (row ? " Grad, Frame" : " Grad"),
                     left, top, w);
             auto p = addPane(*f, "pan" + tag, left, top + label, w, h);
             p->ChangeColors(0xFFE0C0, 0x803000);
             p->setGradientAngle(angles[i]);
             p->setGradient(true);
             if (row) p->setBorderStyle(VexPane::btFrame);
           }
         return f;
       }},
      {"pane_gradient_system_colour", "a gradient from the face colour (a system colour) to white, Raised",
       [] {
         FormRef f = makeSceneForm("GalleryPaneSystem", 4500, 2400, 8);
         auto p = addPane(*f, "panSys", 150, 150, 4200, 2100);
         p->ChangeColors(static_cast<OLE_COLOR>(0x8000000F), 0xFFFFFF);
         p->setGradientAngle(90);
         p->setGradient(true);
         p->setBorderStyle(VexPane::btRaised);
         return f;
       }},
      {"lframe_states", "VexLFrame enabled (dark blue border) and disabled (grey border)",
       [] {
         FormRef f = makeSceneForm("GalleryLFrame", 7200, 1950, 8);
         caption(*f, "lblOn", "Enabled", 150, 150, 3300);
         caption(*f, "lblOff", "Disabled", 3750, 150, 3300);
         for (int i = 0; i < 2; ++i) {
           auto l = std::dynamic_pointer_cast<VexLFrame>(
               f->add("VexLFrame", i ? "fraOff" : "fraOn", nullptr, 150 + static_cast<float>(i) * 3600, 450, 3300, 1350));
           l->setBackColor(0xFFFFFF);
           l->setBorderColor(0x800000);
           l->setBorderColorDisabled(0xB0B0B0);
           l->setEnabled(i == 0);
         }
         return f;
       }},
      {"lpane_child", "VexLPane with an attached picture box filling it",
       [] {
         FormRef f = makeSceneForm("GalleryLPane", 5100, 3300, 8);
         auto lp = std::dynamic_pointer_cast<VexLPane>(f->add("VexLPane", "lpnHost", nullptr, 300, 300, 4500, 2700));
         lp->setBackColor(0x0000FF);  // hidden by the child when it fills the pane
         auto pic = f->add("PictureBox", "picChild", nullptr, 0, 0, 900, 600);
         pic->surface().setBackColor(0xF0D8B0);
         lp->AttachControl(pic->extenderRef());
         Surface& s = pic->surface();
         s.Cls();  // the picture box does not repaint its new area by itself
         s.Line(0, 0, s.ScaleWidth() - 15, s.ScaleHeight() - 15, 0x804000, true);
         s.Line(0, 0, s.ScaleWidth() - 15, s.ScaleHeight() - 15, 0x804000);
         s.Line(0, s.ScaleHeight() - 15, s.ScaleWidth() - 15, 0, 0x804000);
         s.setCurrentX(300);
         s.setCurrentY(300);
         s.setForeColor(0x400000);
         s.Print("picChild: angeheftet, füllt den Bereich");
         return f;
       }},
  };
}

}  // namespace corvane::gallery

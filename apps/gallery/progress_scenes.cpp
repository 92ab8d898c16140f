// SPDX-License-Identifier: MIT
#include <corvane/widgets/vex_progress.h>
#include <corvane/widgets/vex_snip.h>

#include <memory>
#include <string>

#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;  // the gallery's desktop runs at 15 twips per pixel

std::shared_ptr<VexProgress> addProgress(Form& f, const std::string& name, int32_t x, int32_t y) {
  return std::dynamic_pointer_cast<VexProgress>(
      f.add("VexProgress", name, nullptr, x * kTwips, y * kTwips, 200 * kTwips, 18 * kTwips));
}
}  // namespace

std::vector<Scene> progressScenes();
namespace {
SceneRegistrar registerProgress("progress", progressScenes);
}

std::vector<Scene> progressScenes() {
  return {
      {"progress_states",
       "VexProgress at 0, 3 (too short for its number), 45, 100 and 250 of 100, and after Reset with other "
       "colours",
       [] {
         FormRef f = makeSceneForm("GalleryProgressStates", 440 * kTwips, 100 * kTwips, 8);
         const int32_t values[] = {0, 3, 45, 100, 250};
         for (int i = 0; i < 5; ++i)
           addProgress(*f, "prg" + std::to_string(i), 10 + (i % 2) * 215, 10 + (i / 2) * 28)
               ->UpdateTo(values[i]);
         auto coloured = addProgress(*f, "prgColours", 225, 66);
         coloured->Reset(0xE0F0FF, 0x2E8B57, 0x404040, 0xFFFF00);
         coloured->UpdateTo(70);
         return f;
       }},
      {"snip_titles", "VexSnip: a new item titled \"Daten\", and one with its own title",
       [] {
         FormRef f = makeSceneForm("GallerySnipTitles", 260 * kTwips, 40 * kTwips, 8);
         f->add("VexSnip", "snpNew", nullptr, 10 * kTwips, 10 * kTwips, 110 * kTwips, 20 * kTwips);
         auto own = std::dynamic_pointer_cast<VexSnip>(
             f->add("VexSnip", "snpOwn", nullptr, 135 * kTwips, 10 * kTwips, 110 * kTwips, 20 * kTwips));
         own->setTitel("Adressen");
         own->setText("Name;Straße;Ort");
         return f;
       }},
  };
}

}  // namespace corvane::gallery

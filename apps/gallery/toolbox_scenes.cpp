// SPDX-License-Identifier: MIT
#include <string>
#include <vector>

#include <corvane/host/std_picture.h>
#include "gallery.h"

namespace corvane::gallery {

std::vector<Scene> toolboxScenes();
namespace {
SceneRegistrar registerToolbox("toolbox", toolboxScenes);

constexpr int32_t kFirstBitmap = 30000, kBitmaps = 19;
}  // namespace

std::vector<Scene> toolboxScenes() {
  return {
      {"toolbox_bitmaps", "the 19 toolbox bitmaps of the controls, four times enlarged and at their size",
       [] {
         // Pixels as twips at 15 twips a pixel: each bitmap 64 by 60 pixels, ten in a row.
         const float px = 15;
         FormRef f = makeSceneForm("GalleryToolbox", 10 * 80 * px + 16 * px, 2 * 76 * px + 40 * px, 8);
         Surface& s = f->surface();
         for (int32_t i = 0; i < kBitmaps; ++i) {
           PictureRef p = LoadResPicture(kFirstBitmap + i);
           const float x = (8 + (i % 10) * 80) * px, y = (8 + (i / 10) * 76) * px;
           s.PaintPicture(p, x, y, 64 * px, 60 * px);
           s.PaintPicture(p, (8 + i * 24) * px, (2 * 76 + 12) * px, 16 * px, 15 * px);
         }
         return f;
       }},
  };
}

}  // namespace corvane::gallery

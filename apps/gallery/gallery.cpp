// SPDX-License-Identifier: MIT
#include "gallery.h"

#include <corvane/host/std_font.h>

namespace corvane::gallery {

std::vector<std::pair<std::string, SceneSource>>& sceneSources() {
  static std::vector<std::pair<std::string, SceneSource>> sources;
  return sources;
}

std::function<void(Form&)>& formPlacer() {
  static std::function<void(Form&)> placer;
  return placer;
}

bool& inLiveViewer() {
  static bool live = false;
  return live;
}

FormRef makeSceneForm(const std::string& name, float width, float height, double fontSize, OLE_COLOR back) {
  FormRef f = Form::create(name, width, height);
  f->surface().setBackColor(back);
  f->surface().Font()->setName("Tahoma");
  f->surface().Font()->setSize(fontSize);
  if (formPlacer()) formPlacer()(*f);
  f->Show();
  return f;
}

}  // namespace corvane::gallery

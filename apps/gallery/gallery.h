// SPDX-License-Identifier: MIT
#pragma once
#include <functional>
#include <string>
#include <vector>

#include <corvane/host/form.h>

namespace corvane::gallery {

// One picture of the gallery: a form built in a given state, saved as <name>.png.
struct Scene {
  std::string name;
  std::string description;
  std::function<FormRef()> build;
};

// A shown form in Tahoma of the given size, on the given back colour (the face colour by default).
FormRef makeSceneForm(const std::string& name, float width, float height, double fontSize,
                      OLE_COLOR back = static_cast<OLE_COLOR>(0x8000000F));

// Where the gallery puts a scene's form on the screen. makeSceneForm calls it before the form is
// shown, so that what a scene does with the mouse happens where its picture is taken and not under
// another scene's window. Empty, a form stays where it opens.
std::function<void(Form&)>& formPlacer();

// True while the gallery shows its scenes as windows on the user's display. A scene then plays
// no drag of its own: the user's real pointer stands elsewhere, and the window under the played
// drag would be pulled back and forth between the two.
bool& inLiveViewer();

using SceneSource = std::vector<Scene> (*)();

// Each scenes file registers its source with a static SceneRegistrar; the gallery renders them in
// the order of their names.
std::vector<std::pair<std::string, SceneSource>>& sceneSources();
struct SceneRegistrar {
  SceneRegistrar(const std::string& group, SceneSource source) { sceneSources().emplace_back(group, source); }
};

}  // namespace corvane::gallery

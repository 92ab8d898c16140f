// The factories of the classes built so far. The registry asks for them once, at its first use;
// a class of the table without a factory here is reported as not available in this build.
#include <memory>

#include "frame/gradient.h"
#include "frame/isubclass.h"
#include "frame/subclass.h"
#include "frame/tile_picture.h"
#include "runtime/class_registry.h"
#include "widgets/vex_color_label.h"
#include "widgets/vex_hover_pic.h"

namespace corvane {

void registerLibraryClasses(ClassRegistry& registry) {
  registry.registerFactory("VexColorLabel", [] { return std::make_shared<VexColorLabel>(); });
  registry.registerFactory("CGradient", [] { return std::make_shared<CGradient>(); });
  registry.registerFactory("clsTilePicture", [] { return std::make_shared<clsTilePicture>(); });
  // Window subclassing.
  registry.registerFactory("clsSubClass", [] { return std::make_shared<clsSubClass>(); });
  registry.registerFactory("ISubclass", [] { return std::make_shared<ISubclass>(); });
  // Small widgets.
  registry.registerFactory("VexHoverPic", [] { return std::make_shared<VexHoverPic>(); });
}

}  // namespace corvane

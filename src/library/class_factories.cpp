// The factories of the classes built so far. The registry asks for them once, at its first use;
// a class of the table without a factory here is reported as not available in this build.
#include <memory>

#include "runtime/class_registry.h"
#include "widgets/vex_color_label.h"
#include "widgets/vex_hover_pic.h"

namespace corvane {

void registerLibraryClasses(ClassRegistry& registry) {
  registry.registerFactory("VexColorLabel", [] { return std::make_shared<VexColorLabel>(); });
  registry.registerFactory("VexHoverPic", [] { return std::make_shared<VexHoverPic>(); });
}

}  // namespace corvane

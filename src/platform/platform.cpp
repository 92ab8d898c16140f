#include <corvane/platform/platform.h>

namespace corvane {

// The built-in desktop provides the default platform (defined in desktop/desktop.cpp).
Platform& defaultPlatform();

namespace {
Platform* g_platform = nullptr;
}

Platform& platform() { return g_platform ? *g_platform : defaultPlatform(); }
void setPlatform(Platform* p) { g_platform = p; }

}  // namespace corvane

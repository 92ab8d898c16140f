// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/types.h>

#include <cstdint>
#include <string_view>

namespace corvane {

// The hot spot of one of the library's cursor resources, by name without regard to case: the
// pointing hand's finger tip, the middle of the open and of the gripping hand. Any other
// resource has its hot spot at the top left.
POINTAPI resourceHotSpot(std::string_view name);

// The hot spots that pictures made from the library's resources keep with their image, by image
// handle, so that a display turning an image into a cursor finds the spot. An image without an
// entry has its hot spot at the top left.
void rememberHotSpot(int32_t image, POINTAPI spot);
void forgetHotSpot(int32_t image);
POINTAPI hotSpotOf(int32_t image);

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include "resources/cursor_hot_spots.h"

#include <corvane/runtime/strings.h>

#include <mutex>
#include <unordered_map>

namespace corvane {

namespace {
struct NamedSpot {
  const char* name;
  POINTAPI spot;
};
// Measured on the 32 by 32 pictures drawn for the library.
constexpr NamedSpot kCursorSpots[] = {{"HAND", {6, 0}}, {"ZHANDU", {9, 11}}, {"ZHANDD", {9, 11}}};

std::mutex& spotsLock() {
  static std::mutex m;
  return m;
}
std::unordered_map<int32_t, POINTAPI>& spots() {
  static std::unordered_map<int32_t, POINTAPI> m;
  return m;
}
}  // namespace

POINTAPI resourceHotSpot(std::string_view name) {
  const std::string upper = UCase(name);
  for (const NamedSpot& s : kCursorSpots)
    if (upper == s.name) return s.spot;
  return POINTAPI{0, 0};
}

void rememberHotSpot(int32_t image, POINTAPI spot) {
  if (!image) return;
  std::lock_guard<std::mutex> lock(spotsLock());
  if (spot.x == 0 && spot.y == 0)
    spots().erase(image);
  else
    spots()[image] = spot;
}

void forgetHotSpot(int32_t image) {
  std::lock_guard<std::mutex> lock(spotsLock());
  spots().erase(image);
}

POINTAPI hotSpotOf(int32_t image) {
  std::lock_guard<std::mutex> lock(spotsLock());
  auto it = spots().find(image);
  return it == spots().end() ? POINTAPI{0, 0} : it->second;
}

}  // namespace corvane

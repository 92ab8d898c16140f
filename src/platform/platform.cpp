// SPDX-License-Identifier: MIT
#include <corvane/platform/platform.h>

#include <corvane/runtime/runtime_error.h>

#include <algorithm>

namespace corvane {

namespace {
Platform* g_platform = nullptr;
}

Platform& platform() {
  if (!g_platform)
    throw RuntimeError(err::ObjectNotSet,
                       "No platform: create a corvane::Application before forms, controls, pictures or drawing",
                       "corvane");
  return *g_platform;
}

Platform* currentPlatform() { return g_platform; }

void setPlatform(Platform* p) { g_platform = p; }

void GdiApi::PenLines(HDC hdc, std::span<const POINTAPI> ends, std::span<const COLORREF> colours) {
  const size_t count = std::min(ends.size() / 2, colours.size());
  for (size_t k = 0; k < count; ++k) {
    MoveToEx(hdc, ends[2 * k].x, ends[2 * k].y, nullptr);
    const HPEN pen = CreatePen(PS_SOLID, 1, colours[k]);
    const HGDIOBJ old = SelectObject(hdc, pen);
    LineTo(hdc, ends[2 * k + 1].x, ends[2 * k + 1].y);
    SelectObject(hdc, old);
    DeleteObject(pen);
  }
}

}  // namespace corvane

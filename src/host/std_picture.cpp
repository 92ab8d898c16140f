// SPDX-License-Identifier: MIT
#include <corvane/host/std_picture.h>

#include <corvane/runtime/strings.h>

#include <fstream>
#include <iterator>

#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include "resources/cursor_hot_spots.h"
#include "resources/embedded.h"
#include <corvane/runtime/checked.h>

namespace corvane {

namespace {
bool looksLikeIcon(const std::vector<unsigned char>& b) {
  return b.size() >= 4 && b[0] == 0 && b[1] == 0 && (b[2] == 1 || b[2] == 2) && b[3] == 0;
}
}  // namespace

StdPicture::~StdPicture() {
  // A picture that outlives the application has nothing left to release.
  if (!m_handle) return;
  forgetHotSpot(m_handle);
  if (!currentPlatform()) return;
  if (m_type == vbPicTypeIcon) gdi().DestroyIcon(m_handle);
  else gdi().DeleteObject(m_handle);
}

std::shared_ptr<StdPicture> StdPicture::fromBytes(std::vector<unsigned char> bytes, bool asIcon) {
  int32_t type = (asIcon || looksLikeIcon(bytes)) ? IMAGE_ICON : IMAGE_BITMAP;
  HGDIOBJ h = gdi().LoadImageFromMemory(bytes, type);
  if (!h) return nullptr;
  auto p = std::make_shared<StdPicture>();
  p->m_handle = h;
  p->m_type = type == IMAGE_ICON ? vbPicTypeIcon : vbPicTypeBitmap;
  p->m_bytes = std::move(bytes);
  return p;
}

std::shared_ptr<StdPicture> StdPicture::fromBitmap(HBITMAP bitmap) {
  auto p = std::make_shared<StdPicture>();
  p->m_handle = bitmap;
  p->m_type = bitmap ? vbPicTypeBitmap : vbPicTypeNone;
  return p;
}

SIZE StdPicture::pixelSize() const { return m_handle ? gdi().GetImageSize(m_handle) : SIZE{}; }

// Pictures are measured at the screen's resolution: HiMetric = pixels * 2540 / pixels per inch.
int32_t StdPicture::Width() const {
  int32_t dpi = Screen::pixelsPerInchX();
  return CLng(pixelSize().cx * 2540.0 / dpi);
}

int32_t StdPicture::Height() const {
  int32_t dpi = Screen::pixelsPerInchY();
  return CLng(pixelSize().cy * 2540.0 / dpi);
}

void StdPicture::Render(HDC hdc, int32_t x, int32_t y, int32_t width, int32_t height, COLORREF maskColour) const {
  if (!m_handle) return;
  SIZE s = pixelSize();
  gdi().DrawImage(hdc, m_handle, x, y, width, height, 0, 0, s.cx, s.cy, maskColour);
}

const Dispatch* StdPicture::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<StdPicture>(t)
        .get("Handle", &StdPicture::Handle)
        .get("Type", &StdPicture::Type)
        .get("Width", &StdPicture::Width)
        .get("Height", &StdPicture::Height);
    return t;
  }();
  return &d;
}

PictureRef LoadPicture(const std::string& path) {
  if (path.empty()) return StdPicture::empty();
  std::ifstream in(path, std::ios::binary);
  if (!in) throw RuntimeError(53, "File not found: " + path);
  std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  auto p = StdPicture::fromBytes(std::move(bytes));
  if (!p) throw RuntimeError(481, "Invalid picture");
  return p;
}

PictureRef LoadResPicture(const std::string& name, int32_t) {
  for (const EmbeddedResource& r : embeddedResources())
    if (LCase(name) == LCase(r.name)) {  // resource names match regardless of case
      auto p = StdPicture::fromBytes(std::vector<unsigned char>(r.data, r.data + r.size));
      if (p) {
        // A cursor's image keeps its hot spot, for the display that makes a cursor of it.
        rememberHotSpot(p->Handle(), resourceHotSpot(r.name));
        return p;
      }
    }
  throw RuntimeError(326, "Resource with identifier '" + name + "' not found");
}

// A numbered resource is the file named by its number.
PictureRef LoadResPicture(int32_t id, int32_t type) { return LoadResPicture(std::to_string(id), type); }

}  // namespace corvane

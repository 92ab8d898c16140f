// SPDX-License-Identifier: MIT
#pragma once
#include <memory>
#include <string>
#include <vector>

#include <corvane/export.h>
#include <corvane/platform/types.h>
#include <corvane/runtime/object.h>

namespace corvane {

// A picture object: a bitmap (Type 1) or an icon (Type 3), or empty (Type 0). Width and Height
// are in HiMetric (hundredths of a millimetre). The object owns its image handle and keeps the
// bytes it was made from, so that a form file can store it again.
class CORVANE_API StdPicture : public Object {
 public:
  enum PictureType : int16_t { vbPicTypeNone = 0, vbPicTypeBitmap = 1, vbPicTypeIcon = 3 };

  StdPicture() = default;
  ~StdPicture() override;

  static std::shared_ptr<StdPicture> empty() { return std::make_shared<StdPicture>(); }
  // Decodes PNG, BMP or ICO bytes; nullptr when they are no picture. ICO data gives an icon,
  // anything else a bitmap, unless asIcon asks for an icon (which keeps transparency).
  static std::shared_ptr<StdPicture> fromBytes(std::vector<unsigned char> bytes, bool asIcon = false);
  // A bitmap picture that takes over a bitmap handle (no bytes: it is not stored in a form file).
  static std::shared_ptr<StdPicture> fromBitmap(HBITMAP bitmap);

  std::string typeName() const override { return "StdPicture"; }

  int32_t Handle() const { return m_handle; }
  int16_t Type() const { return m_type; }
  int32_t Width() const;   // HiMetric
  int32_t Height() const;  // HiMetric
  SIZE pixelSize() const;
  // Draws the picture stretched into a box of the context (pixel coordinates).
  void Render(HDC hdc, int32_t x, int32_t y, int32_t width, int32_t height, COLORREF maskColour = -1) const;

  const std::vector<unsigned char>& bytes() const { return m_bytes; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  int32_t m_handle = 0;
  int16_t m_type = vbPicTypeNone;
  std::vector<unsigned char> m_bytes;
};

using PictureRef = std::shared_ptr<StdPicture>;

// LoadPicture(): an empty picture; LoadPicture(path): the file's picture, error 53 when the file
// is missing and 481 when it is no picture.
CORVANE_API PictureRef LoadPicture(const std::string& path = {});
// A picture from the library's own resources, by name; error 326 when there is none.
CORVANE_API PictureRef LoadResPicture(const std::string& name, int32_t type = 0);
// The same by number: the toolbox bitmaps of the controls are 30000 to 30018.
CORVANE_API PictureRef LoadResPicture(int32_t id, int32_t type = 0);

}  // namespace corvane

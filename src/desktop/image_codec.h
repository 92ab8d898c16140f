// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <memory>
#include <span>

#include "desktop/canvas.h"

namespace corvane {

// Decodes picture files held in memory: PNG, BMP (uncompressed, 1, 4, 8, 24 and 32 bits per pixel,
// bottom-up or top-down) and ICO/CUR (the largest entry, the deepest of equal sizes; PNG or DIB
// entries, the AND mask giving the transparency). The format comes from the bytes themselves.
class ImageCodec {
 public:
  // The picture in premultiplied ARGB, or nullptr for anything malformed, cut short, or declaring
  // a side above 16,384 pixels or more than 2^26 pixels (refused before decoding). Without
  // keepAlpha the result is opaque: transparent parts are laid on white.
  static std::unique_ptr<Canvas> decode(std::span<const unsigned char> bytes, bool keepAlpha);

 private:
  static std::unique_ptr<Canvas> decodePng(std::span<const unsigned char> bytes);
  static std::unique_ptr<Canvas> decodeBmp(std::span<const unsigned char> bytes, bool keepAlpha);
  static std::unique_ptr<Canvas> decodeIcon(std::span<const unsigned char> bytes);
  // A device-independent bitmap starting at its info header. pixelOffset 0 means "right after the
  // colour table". With iconMask the height counts the colour rows and the AND mask rows together.
  static std::unique_ptr<Canvas> decodeDib(std::span<const unsigned char> dib, size_t pixelOffset,
                                           bool iconMask, bool keepAlpha);
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <cairo.h>

#include <vector>

namespace corvane::test {

// The PNG file of a Cairo image surface, as bytes: test pictures are drawn with Cairo.
inline std::vector<unsigned char> pngBytesOf(cairo_surface_t* surface) {
  std::vector<unsigned char> bytes;
  cairo_surface_write_to_png_stream(
      surface,
      [](void* closure, const unsigned char* data, unsigned int length) {
        auto* out = static_cast<std::vector<unsigned char>*>(closure);
        out->insert(out->end(), data, data + length);
        return CAIRO_STATUS_SUCCESS;
      },
      &bytes);
  return bytes;
}

}  // namespace corvane::test

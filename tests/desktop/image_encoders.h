// SPDX-License-Identifier: MIT
#pragma once
#include <cairo.h>

#include <cstdint>
#include <vector>

// Tiny writers of picture files for tests: BMP, ICO and, through Cairo, PNG.
namespace corvane::test {

using Bytes = std::vector<unsigned char>;

inline void put16(Bytes& b, uint32_t v) {
  b.push_back(v & 255);
  b.push_back((v >> 8) & 255);
}
inline void put32(Bytes& b, uint32_t v) {
  put16(b, v & 0xFFFF);
  put16(b, v >> 16);
}

// A device-independent bitmap: info header, colour table, pixel rows (bottom-up unless topDown)
// and, for icons, the AND mask (1 = transparent). pixels are top-down rows: palette indexes for
// 1, 4 and 8 bits, 0xAARRGGBB for 24 and 32 bits.
inline Bytes dib(int32_t w, int32_t h, int bits, const std::vector<uint32_t>& pixels,
                 const std::vector<uint32_t>& palette = {}, bool topDown = false,
                 const std::vector<bool>* andMask = nullptr) {
  Bytes b;
  put32(b, 40);
  put32(b, static_cast<uint32_t>(w));
  const int32_t rows = andMask ? 2 * h : h;
  put32(b, static_cast<uint32_t>(topDown ? -rows : rows));
  put16(b, 1);
  put16(b, static_cast<uint32_t>(bits));
  put32(b, 0);  // no compression
  put32(b, 0);
  put32(b, 2835);
  put32(b, 2835);
  put32(b, static_cast<uint32_t>(palette.size()));
  put32(b, 0);
  for (uint32_t c : palette) put32(b, c & 0xFFFFFF);
  const size_t stride = ((static_cast<size_t>(w) * bits + 31) / 32) * 4;
  for (int32_t r = 0; r < h; ++r) {
    const int32_t y = topDown ? r : h - 1 - r;
    Bytes row(stride, 0);
    for (int32_t x = 0; x < w; ++x) {
      const uint32_t p = pixels[static_cast<size_t>(y * w + x)];
      switch (bits) {
        case 1:
          row[x / 8] |= static_cast<unsigned char>((p & 1) << (7 - x % 8));
          break;
        case 4:
          row[x / 2] |= static_cast<unsigned char>((p & 15) << (x % 2 ? 0 : 4));
          break;
        case 8:
          row[x] = p & 255;
          break;
        case 24:
          row[3 * x] = p & 255;
          row[3 * x + 1] = (p >> 8) & 255;
          row[3 * x + 2] = (p >> 16) & 255;
          break;
        default:
          for (int k = 0; k < 4; ++k) row[4 * x + k] = (p >> (8 * k)) & 255;
      }
    }
    b.insert(b.end(), row.begin(), row.end());
  }
  if (andMask) {
    const size_t maskStride = ((static_cast<size_t>(w) + 31) / 32) * 4;
    for (int32_t r = 0; r < h; ++r) {
      const int32_t y = topDown ? r : h - 1 - r;
      Bytes row(maskStride, 0);
      for (int32_t x = 0; x < w; ++x)
        if ((*andMask)[static_cast<size_t>(y * w + x)])
          row[x / 8] |= static_cast<unsigned char>(1 << (7 - x % 8));
      b.insert(b.end(), row.begin(), row.end());
    }
  }
  return b;
}

inline Bytes bmp(const Bytes& info, size_t paletteEntries) {
  Bytes b{'B', 'M'};
  put32(b, static_cast<uint32_t>(14 + info.size()));
  put32(b, 0);
  put32(b, static_cast<uint32_t>(14 + 40 + 4 * paletteEntries));
  b.insert(b.end(), info.begin(), info.end());
  return b;
}

struct IconEntry {
  int32_t width, height;
  Bytes data;  // a DIB with its AND mask, or a PNG file
};

inline Bytes ico(const std::vector<IconEntry>& entries, uint32_t type = 1) {
  Bytes b;
  put16(b, 0);
  put16(b, type);
  put16(b, static_cast<uint32_t>(entries.size()));
  uint32_t offset = static_cast<uint32_t>(6 + 16 * entries.size());
  for (const IconEntry& e : entries) {
    b.push_back(e.width >= 256 ? 0 : static_cast<unsigned char>(e.width));
    b.push_back(e.height >= 256 ? 0 : static_cast<unsigned char>(e.height));
    b.push_back(0);
    b.push_back(0);
    put16(b, 1);
    put16(b, 32);
    put32(b, static_cast<uint32_t>(e.data.size()));
    put32(b, offset);
    offset += static_cast<uint32_t>(e.data.size());
  }
  for (const IconEntry& e : entries) b.insert(b.end(), e.data.begin(), e.data.end());
  return b;
}

// A PNG of straight (not premultiplied) 0xAARRGGBB pixels, top-down.
inline Bytes png(int32_t w, int32_t h, const std::vector<uint32_t>& pixels) {
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h);
  cairo_surface_flush(s);
  unsigned char* data = cairo_image_surface_get_data(s);
  const int stride = cairo_image_surface_get_stride(s);
  for (int32_t y = 0; y < h; ++y)
    for (int32_t x = 0; x < w; ++x) {
      const uint32_t p = pixels[static_cast<size_t>(y * w + x)], a = p >> 24;
      auto m = [a](uint32_t c) { return (c * a + 127) / 255; };
      reinterpret_cast<uint32_t*>(data + y * stride)[x] =
          (a << 24) | (m((p >> 16) & 255) << 16) | (m((p >> 8) & 255) << 8) | m(p & 255);
    }
  cairo_surface_mark_dirty(s);
  Bytes out;
  cairo_surface_write_to_png_stream(
      s,
      [](void* closure, const unsigned char* bytes, unsigned int length) {
        auto* o = static_cast<Bytes*>(closure);
        o->insert(o->end(), bytes, bytes + length);
        return CAIRO_STATUS_SUCCESS;
      },
      &out);
  cairo_surface_destroy(s);
  return out;
}

}  // namespace corvane::test

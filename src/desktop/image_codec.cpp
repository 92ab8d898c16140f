// SPDX-License-Identifier: MIT
#include "desktop/image_codec.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <tuple>
#include <utility>
#include <vector>

namespace corvane {

namespace {

// Limits far beyond any screen, checked against the sizes a file declares before anything is
// decoded or allocated, so that a small file cannot ask for gigabytes.
constexpr int32_t kMaxSide = 16384;
constexpr int64_t kMaxPixels = int64_t{1} << 26;  // 256 MB of pixels

constexpr std::array<unsigned char, 8> kPngSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

bool isPng(std::span<const unsigned char> b) {
  return b.size() >= 8 && std::equal(kPngSignature.begin(), kPngSignature.end(), b.begin());
}

uint16_t u16(std::span<const unsigned char> b, size_t at) {
  return static_cast<uint16_t>(b[at] | (b[at + 1] << 8));
}
uint32_t u32(std::span<const unsigned char> b, size_t at) {
  return uint32_t{b[at]} | (uint32_t{b[at + 1]} << 8) | (uint32_t{b[at + 2]} << 16) |
         (uint32_t{b[at + 3]} << 24);
}
int32_t i32(std::span<const unsigned char> b, size_t at) { return static_cast<int32_t>(u32(b, at)); }
uint32_t u32be(std::span<const unsigned char> b, size_t at) {
  return (uint32_t{b[at]} << 24) | (uint32_t{b[at + 1]} << 16) | (uint32_t{b[at + 2]} << 8) |
         uint32_t{b[at + 3]};
}

bool sizeOk(int64_t w, int64_t h) {
  return w > 0 && h > 0 && w <= kMaxSide && h <= kMaxSide && w * h <= kMaxPixels;
}

// The size a PNG declares in its header chunk, which must come first; {0, 0} when there is none.
std::pair<int64_t, int64_t> declaredPngSize(std::span<const unsigned char> b) {
  static constexpr unsigned char kHeader[] = {0, 0, 0, 13, 'I', 'H', 'D', 'R'};
  if (b.size() < 24 || !std::equal(std::begin(kHeader), std::end(kHeader), b.begin() + 8)) return {0, 0};
  return {u32be(b, 16), u32be(b, 20)};
}

uint32_t premultiply(uint32_t a, uint32_t r, uint32_t g, uint32_t b) {
  if (a == 255) return 0xFF000000u | (r << 16) | (g << 8) | b;
  auto m = [a](uint32_t c) { return (c * a + 127) / 255; };
  return (a << 24) | (m(r) << 16) | (m(g) << 8) | m(b);
}

// Lays every pixel on white, so that the picture is opaque.
void flatten(Canvas& c) {
  for (int32_t y = 0; y < c.height(); ++y) {
    uint32_t* row = c.row(y);
    for (int32_t x = 0; x < c.width(); ++x) {
      uint32_t p = row[x], a = p >> 24, rest = 255 - a;
      row[x] = 0xFF000000u | ((((p >> 16) & 255) + rest) << 16) | ((((p >> 8) & 255) + rest) << 8) |
               ((p & 255) + rest);
    }
  }
}

// Position of the lowest set bit and the width of a channel mask, for bit-field pixels.
struct Channel {
  uint32_t mask = 0;
  int shift = 0;
  uint32_t max = 0;
  explicit Channel(uint32_t m) : mask(m) {
    if (!m) return;
    while (!((m >> shift) & 1)) ++shift;
    max = m >> shift;
  }
  uint32_t get(uint32_t v) const { return max ? ((v & mask) >> shift) * 255 / max : 0; }
};

}  // namespace

std::unique_ptr<Canvas> ImageCodec::decode(std::span<const unsigned char> bytes, bool keepAlpha) {
  std::unique_ptr<Canvas> out;
  if (isPng(bytes))
    out = decodePng(bytes);
  else if (bytes.size() >= 2 && bytes[0] == 'B' && bytes[1] == 'M')
    return decodeBmp(bytes, keepAlpha);
  else if (bytes.size() >= 4 && bytes[0] == 0 && bytes[1] == 0 && (bytes[2] == 1 || bytes[2] == 2) &&
           bytes[3] == 0)
    out = decodeIcon(bytes);
  if (out && !keepAlpha) flatten(*out);
  if (out) out->markDirty();
  return out;
}

std::unique_ptr<Canvas> ImageCodec::decodePng(std::span<const unsigned char> bytes) {
  const auto [declaredWidth, declaredHeight] = declaredPngSize(bytes);
  if (!sizeOk(declaredWidth, declaredHeight)) return nullptr;
  struct Reader {
    std::span<const unsigned char> bytes;
    size_t at = 0;
  } reader{bytes};
  auto read = [](void* closure, unsigned char* data, unsigned int length) -> cairo_status_t {
    auto* r = static_cast<Reader*>(closure);
    if (length > r->bytes.size() - r->at) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(data, r->bytes.data() + r->at, length);
    r->at += length;
    return CAIRO_STATUS_SUCCESS;
  };
  cairo_surface_t* decoded = cairo_image_surface_create_from_png_stream(read, &reader);
  if (cairo_surface_status(decoded) != CAIRO_STATUS_SUCCESS) {
    cairo_surface_destroy(decoded);
    return nullptr;
  }
  int w = cairo_image_surface_get_width(decoded), h = cairo_image_surface_get_height(decoded);
  if (!sizeOk(w, h)) {
    cairo_surface_destroy(decoded);
    return nullptr;
  }
  // Whatever format Cairo chose (opaque pictures come as RGB24), store premultiplied ARGB.
  auto out = std::make_unique<Canvas>(w, h, 0);
  cairo_t* cr = cairo_create(out->surface());
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  cairo_set_source_surface(cr, decoded, 0, 0);
  cairo_paint(cr);
  cairo_destroy(cr);
  cairo_surface_destroy(decoded);
  out->flush();
  return out;
}

std::unique_ptr<Canvas> ImageCodec::decodeBmp(std::span<const unsigned char> bytes, bool keepAlpha) {
  if (bytes.size() < 14 + 40) return nullptr;
  uint32_t offBits = u32(bytes, 10);
  if (offBits < 14 + 40 || offBits > bytes.size()) return nullptr;
  auto out = decodeDib(bytes.subspan(14), offBits - 14, false, keepAlpha);
  if (out) out->markDirty();
  return out;
}

std::unique_ptr<Canvas> ImageCodec::decodeIcon(std::span<const unsigned char> bytes) {
  if (bytes.size() < 6) return nullptr;
  size_t count = u16(bytes, 4);
  if (count == 0 || 6 + 16 * count > bytes.size()) return nullptr;
  // Choose the largest entry, and of equal sizes the deepest; sizes and depths come from the
  // entry's own header, since the directory's are often 0.
  std::span<const unsigned char> best;
  int64_t bestArea = -1;
  int32_t bestBits = -1;
  for (size_t i = 0; i < count; ++i) {
    size_t e = 6 + 16 * i;
    uint32_t length = u32(bytes, e + 8), offset = u32(bytes, e + 12);
    if (offset >= bytes.size() || length > bytes.size() - offset || length < 40) continue;
    std::span<const unsigned char> data = bytes.subspan(offset, length);
    int64_t w = 0, h = 0;
    int32_t bits = 0;
    if (isPng(data)) {
      std::tie(w, h) = declaredPngSize(data);
      bits = 32;
    } else {
      w = i32(data, 4);
      h = i32(data, 8);
      h = (h < 0 ? -h : h) / 2;
      bits = u16(data, 14);
    }
    if (!sizeOk(w, h)) continue;
    if (w * h > bestArea || (w * h == bestArea && bits > bestBits)) {
      best = data;
      bestArea = w * h;
      bestBits = bits;
    }
  }
  if (best.empty()) return nullptr;
  return isPng(best) ? decodePng(best) : decodeDib(best, 0, true, true);
}

std::unique_ptr<Canvas> ImageCodec::decodeDib(std::span<const unsigned char> dib, size_t pixelOffset,
                                              bool iconMask, bool keepAlpha) {
  if (dib.size() < 40) return nullptr;
  const uint32_t headerSize = u32(dib, 0);
  if (headerSize < 40 || headerSize > dib.size()) return nullptr;
  const int64_t width = i32(dib, 4);
  int64_t height = i32(dib, 8);
  const bool topDown = height < 0;
  if (topDown) height = -height;
  if (iconMask) height /= 2;
  const uint32_t bits = u16(dib, 14), compression = u32(dib, 16), coloursUsed = u32(dib, 32);
  if (!sizeOk(width, height) || u16(dib, 12) != 1) return nullptr;
  if (bits != 1 && bits != 4 && bits != 8 && bits != 24 && bits != 32) return nullptr;

  // Bit fields (32 bits only): the masks sit at the same place after a plain or a larger header.
  uint32_t masks[4] = {0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000};
  size_t paletteStart = headerSize;
  if (compression == 3) {
    if (bits != 32) return nullptr;
    if (headerSize == 40) paletteStart += 12;  // the three masks follow a plain info header
    if (40 + 12 > dib.size()) return nullptr;
    for (size_t i = 0; i < 3; ++i) masks[i] = u32(dib, 40 + 4 * i);
    masks[3] = headerSize >= 56 ? u32(dib, 52) : 0;
  } else if (compression != 0) {
    return nullptr;
  }

  std::vector<uint32_t> palette;
  if (bits <= 8) {
    size_t n = coloursUsed ? coloursUsed : (size_t{1} << bits);
    if (n > 256 || paletteStart + 4 * n > dib.size()) return nullptr;
    for (size_t i = 0; i < n; ++i) {
      size_t at = paletteStart + 4 * i;
      palette.push_back((uint32_t{dib[at + 2]} << 16) | (uint32_t{dib[at + 1]} << 8) | dib[at]);
    }
    palette.resize(256, 0);  // indexes beyond the table read black
  }
  if (pixelOffset == 0)
    pixelOffset = paletteStart + 4 * (bits <= 8 ? (coloursUsed ? coloursUsed : (1u << bits)) : 0);

  const size_t rowBytes = ((static_cast<size_t>(width) * bits + 31) / 32) * 4;
  const size_t h = static_cast<size_t>(height), w = static_cast<size_t>(width);
  if (pixelOffset > dib.size() || rowBytes * h > dib.size() - pixelOffset) return nullptr;

  // Straight (not premultiplied) ARGB first; the alpha is settled once all pixels are known.
  std::vector<uint32_t> pixels(w * h);
  const Channel red(masks[0]), green(masks[1]), blue(masks[2]), alpha(masks[3]);
  bool anyAlpha = false;
  for (size_t r = 0; r < h; ++r) {
    const unsigned char* src = dib.data() + pixelOffset + r * rowBytes;
    uint32_t* dst = pixels.data() + (topDown ? r : h - 1 - r) * w;
    for (size_t x = 0; x < w; ++x) {
      uint32_t p = 0;
      switch (bits) {
        case 1:
          p = 0xFF000000u | palette[(src[x / 8] >> (7 - x % 8)) & 1];
          break;
        case 4:
          p = 0xFF000000u | palette[(src[x / 2] >> (x % 2 ? 0 : 4)) & 15];
          break;
        case 8:
          p = 0xFF000000u | palette[src[x]];
          break;
        case 24:
          p = 0xFF000000u | (uint32_t{src[3 * x + 2]} << 16) | (uint32_t{src[3 * x + 1]} << 8) | src[3 * x];
          break;
        default: {
          uint32_t v = u32(dib, static_cast<size_t>(src - dib.data()) + 4 * x);
          uint32_t a = alpha.max ? alpha.get(v) : 0;
          anyAlpha = anyAlpha || a != 0;
          p = (a << 24) | (red.get(v) << 16) | (green.get(v) << 8) | blue.get(v);
        }
      }
      dst[x] = p;
    }
  }

  // 32-bit pixels carry their own alpha when any of it is set; otherwise they are opaque, and an
  // icon takes its transparency from the AND mask (a set bit is a transparent pixel).
  const bool useAlpha = bits == 32 && anyAlpha && keepAlpha;
  if (bits == 32 && !useAlpha)
    for (uint32_t& p : pixels) p |= 0xFF000000u;
  if (iconMask && !useAlpha) {
    const size_t maskRow = ((w + 31) / 32) * 4, maskAt = pixelOffset + rowBytes * h;
    if (maskAt > dib.size() || maskRow * h > dib.size() - maskAt) return nullptr;
    for (size_t r = 0; r < h; ++r) {
      const unsigned char* src = dib.data() + maskAt + r * maskRow;
      uint32_t* dst = pixels.data() + (topDown ? r : h - 1 - r) * w;
      for (size_t x = 0; x < w; ++x)
        if ((src[x / 8] >> (7 - x % 8)) & 1) dst[x] = 0;
    }
  }

  auto out = std::make_unique<Canvas>(static_cast<int32_t>(w), static_cast<int32_t>(h), 0);
  for (size_t y = 0; y < h; ++y) {
    uint32_t* row = out->row(static_cast<int32_t>(y));
    const uint32_t* src = pixels.data() + y * w;
    for (size_t x = 0; x < w; ++x) {
      uint32_t p = src[x];
      row[x] = premultiply(p >> 24, (p >> 16) & 255, (p >> 8) & 255, p & 255);
    }
  }
  if (!keepAlpha) flatten(*out);
  out->markDirty();
  return out;
}

}  // namespace corvane

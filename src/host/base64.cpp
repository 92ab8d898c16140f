// SPDX-License-Identifier: MIT
#include "host/base64.h"

namespace corvane {

namespace {
const char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int valueOf(char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return c - 'a' + 26;
  if (c >= '0' && c <= '9') return c - '0' + 52;
  if (c == '+') return 62;
  if (c == '/') return 63;
  return -1;
}
}  // namespace

std::string base64Encode(const std::vector<unsigned char>& bytes) {
  std::string out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  for (size_t i = 0; i < bytes.size(); i += 3) {
    uint32_t n = static_cast<uint32_t>(bytes[i]) << 16;
    if (i + 1 < bytes.size()) n |= static_cast<uint32_t>(bytes[i + 1]) << 8;
    if (i + 2 < bytes.size()) n |= bytes[i + 2];
    out += kAlphabet[(n >> 18) & 63];
    out += kAlphabet[(n >> 12) & 63];
    out += i + 1 < bytes.size() ? kAlphabet[(n >> 6) & 63] : '=';
    out += i + 2 < bytes.size() ? kAlphabet[n & 63] : '=';
  }
  return out;
}

std::optional<std::vector<unsigned char>> base64Decode(const std::string& text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::vector<unsigned char> out;
  out.reserve(text.size() / 4 * 3);
  for (size_t i = 0; i < text.size(); i += 4) {
    int v[4];
    int pad = 0;
    for (int k = 0; k < 4; ++k) {
      char c = text[i + k];
      if (c == '=' && i + 4 == text.size() && k >= 2) {
        v[k] = 0;
        ++pad;
      } else {
        if (pad) return std::nullopt;  // data after padding
        v[k] = valueOf(c);
        if (v[k] < 0) return std::nullopt;
      }
    }
    uint32_t n = (v[0] << 18) | (v[1] << 12) | (v[2] << 6) | v[3];
    out.push_back(static_cast<unsigned char>(n >> 16));
    if (pad < 2) out.push_back(static_cast<unsigned char>(n >> 8));
    if (pad < 1) out.push_back(static_cast<unsigned char>(n));
  }
  return out;
}

}  // namespace corvane

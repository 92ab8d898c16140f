// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace corvane::fuzz {

// Reads typed values off the front of a fuzzer's input; past the end every read gives zeros.
class FuzzInput {
 public:
  FuzzInput(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

  bool empty() const { return m_at >= m_size; }
  uint8_t byte() { return m_at < m_size ? m_data[m_at++] : 0; }
  template <class T>
  T number() {
    unsigned char raw[sizeof(T)] = {};
    for (unsigned char& b : raw) b = byte();
    T value;
    std::memcpy(&value, raw, sizeof(T));
    return value;
  }
  std::vector<unsigned char> bytes(size_t n) {
    n = std::min(n, m_size - std::min(m_at, m_size));
    std::vector<unsigned char> out(m_data + m_at, m_data + m_at + n);
    m_at += n;
    return out;
  }
  std::string text(size_t n) {
    std::vector<unsigned char> b = bytes(n);
    return std::string(b.begin(), b.end());
  }
  std::string rest() { return text(m_size); }

 private:
  const uint8_t* m_data;
  size_t m_size;
  size_t m_at = 0;
};

}  // namespace corvane::fuzz

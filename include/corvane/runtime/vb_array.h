// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

#include <corvane/runtime/runtime_error.h>

namespace corvane {

// A dynamic array of the language: elements lower..upper, bounds-checked (error 9). It starts
// empty, without bounds; redim gives it bounds, erase takes them away again. Elements are real
// objects for every T (also bool), so operator() always returns a reference.
template <class T>
class VbArray {
 public:
  VbArray() = default;
  VbArray(int32_t lower, int32_t upper) { redim(lower, upper); }

  // Assignment copies the elements, as array assignment in the language does.
  VbArray(const VbArray& other) { *this = other; }
  VbArray& operator=(const VbArray& other) {
    if (this == &other) return *this;
    auto items = other.m_dimensioned ? allocate(other.m_size) : nullptr;
    std::copy(other.begin(), other.end(), items.get());
    m_items = std::move(items);
    m_size = other.m_size;
    m_lower = other.m_lower;
    m_dimensioned = other.m_dimensioned;
    return *this;
  }
  VbArray(VbArray&& other) noexcept { *this = std::move(other); }
  VbArray& operator=(VbArray&& other) noexcept {
    if (this == &other) return *this;
    m_items = std::move(other.m_items);
    m_size = std::exchange(other.m_size, 0);
    m_lower = std::exchange(other.m_lower, 0);
    m_dimensioned = std::exchange(other.m_dimensioned, false);
    return *this;
  }

  // ReDim: new bounds, every element a fresh default value. upper < lower is error 9.
  void redim(int32_t lower, int32_t upper) {
    checkBounds(lower, upper);
    size_t n = count(lower, upper);
    m_items = allocate(n);
    m_size = n;
    m_lower = lower;
    m_dimensioned = true;
  }

  // ReDim Preserve: a new upper bound, the elements up to it kept, new ones default. An empty
  // array gets the lower bound 0.
  void redimPreserve(int32_t upper) { redimPreserve(m_dimensioned ? m_lower : 0, upper); }

  // ReDim Preserve with both bounds: the lower bound of a dimensioned array cannot change
  // (error 9).
  void redimPreserve(int32_t lower, int32_t upper) {
    if (m_dimensioned && lower != m_lower) throw RuntimeError(err::SubscriptOutOfRange);
    checkBounds(lower, upper);
    size_t n = count(lower, upper);
    auto items = allocate(n);
    std::move(m_items.get(), m_items.get() + std::min(n, m_size), items.get());
    m_items = std::move(items);
    m_size = n;
    m_lower = lower;
    m_dimensioned = true;
  }

  // Erase: back to the empty state without bounds.
  void erase() {
    m_items.reset();
    m_size = 0;
    m_lower = 0;
    m_dimensioned = false;
  }

  T& operator()(int32_t i) { return m_items[index(i)]; }
  const T& operator()(int32_t i) const { return m_items[index(i)]; }
  T& at(int32_t i) { return m_items[index(i)]; }
  const T& at(int32_t i) const { return m_items[index(i)]; }

  // LBound and UBound; error 9 when the array has no bounds.
  int32_t lbound() const {
    requireBounds();
    return m_lower;
  }
  int32_t ubound() const {
    requireBounds();
    return static_cast<int32_t>(m_lower + static_cast<int64_t>(m_size) - 1);
  }

  size_t size() const { return m_size; }
  bool empty() const { return !m_dimensioned; }

  // Iteration from the lower to the upper bound.
  T* begin() { return m_items.get(); }
  T* end() { return m_items.get() + m_size; }
  const T* begin() const { return m_items.get(); }
  const T* end() const { return m_items.get() + m_size; }

 private:
  static void checkBounds(int32_t lower, int32_t upper) {
    if (upper < lower) throw RuntimeError(err::SubscriptOutOfRange);
  }
  static size_t count(int32_t lower, int32_t upper) {
    return static_cast<size_t>(static_cast<int64_t>(upper) - lower + 1);
  }
  // Out of memory is the language's error 7.
  static std::unique_ptr<T[]> allocate(size_t n) {
    try {
      return std::make_unique<T[]>(n);
    } catch (const std::bad_alloc&) {
      throw RuntimeError(err::OutOfMemory);
    }
  }
  void requireBounds() const {
    if (!m_dimensioned) throw RuntimeError(err::SubscriptOutOfRange);
  }
  size_t index(int32_t i) const {
    int64_t k = static_cast<int64_t>(i) - m_lower;
    if (!m_dimensioned || k < 0 || k >= static_cast<int64_t>(m_size))
      throw RuntimeError(err::SubscriptOutOfRange);
    return static_cast<size_t>(k);
  }

  std::unique_ptr<T[]> m_items;
  size_t m_size = 0;
  int32_t m_lower = 0;
  bool m_dimensioned = false;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// A two-dimensional array of Variants as a late-bound caller holds it, with bounds
// (lower1 to upper1, lower2 to upper2). By name: LBound(dimension) and UBound(dimension), the
// dimension 1 or 2 (1 when left out), and Item(i, j), which can be read and assigned. A bad index
// or dimension is error 9.
class CORVANE_API Array2DObject : public Object {
 public:
  Array2DObject(int32_t lower1, int32_t upper1, int32_t lower2, int32_t upper2);
  std::string typeName() const override { return "Variant()"; }

  int32_t lbound(int32_t dimension = 1) const;
  int32_t ubound(int32_t dimension = 1) const;
  Variant& operator()(int32_t i, int32_t j);
  const Variant& operator()(int32_t i, int32_t j) const;

 protected:
  const Dispatch* dispatch() const override;

 private:
  size_t index(int32_t i, int32_t j) const;

  int32_t m_lower1, m_upper1, m_lower2, m_upper2;
  std::vector<Variant> m_items;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/runtime/array2d_object.h>

#include <new>

namespace corvane {

Array2DObject::Array2DObject(int32_t lower1, int32_t upper1, int32_t lower2, int32_t upper2)
    : m_lower1(lower1), m_upper1(upper1), m_lower2(lower2), m_upper2(upper2) {
  if (upper1 < lower1 || upper2 < lower2) throw RuntimeError(err::SubscriptOutOfRange);
  const auto rows = static_cast<size_t>(static_cast<int64_t>(upper1) - lower1 + 1);
  const auto columns = static_cast<size_t>(static_cast<int64_t>(upper2) - lower2 + 1);
  try {
    m_items.resize(rows * columns);
  } catch (const std::bad_alloc&) {
    throw RuntimeError(err::OutOfMemory);
  }
}

int32_t Array2DObject::lbound(int32_t dimension) const {
  if (dimension != 1 && dimension != 2) throw RuntimeError(err::SubscriptOutOfRange);
  return dimension == 1 ? m_lower1 : m_lower2;
}

int32_t Array2DObject::ubound(int32_t dimension) const {
  if (dimension != 1 && dimension != 2) throw RuntimeError(err::SubscriptOutOfRange);
  return dimension == 1 ? m_upper1 : m_upper2;
}

size_t Array2DObject::index(int32_t i, int32_t j) const {
  if (i < m_lower1 || i > m_upper1 || j < m_lower2 || j > m_upper2)
    throw RuntimeError(err::SubscriptOutOfRange);
  const auto columns = static_cast<size_t>(static_cast<int64_t>(m_upper2) - m_lower2 + 1);
  return static_cast<size_t>(i - m_lower1) * columns + static_cast<size_t>(j - m_lower2);
}

Variant& Array2DObject::operator()(int32_t i, int32_t j) { return m_items[index(i, j)]; }
const Variant& Array2DObject::operator()(int32_t i, int32_t j) const { return m_items[index(i, j)]; }

namespace {
int32_t dimensionArgument(const Dispatch::Args& a) { return a.empty() ? 1 : a[0].toLong(); }
void requireTwo(const Dispatch::Args& a) {
  if (a.size() < 2) throw RuntimeError(err::SubscriptOutOfRange);
}
}  // namespace

const Dispatch* Array2DObject::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    t.addGetter("LBound", [](Object& o, Dispatch::Args& a) {
      return Variant(static_cast<Array2DObject&>(o).lbound(dimensionArgument(a)));
    });
    t.addGetter("UBound", [](Object& o, Dispatch::Args& a) {
      return Variant(static_cast<Array2DObject&>(o).ubound(dimensionArgument(a)));
    });
    t.addMethod("Item", [](Object& o, Dispatch::Args& a) {
      requireTwo(a);
      return static_cast<Array2DObject&>(o)(a[0].toLong(), a[1].toLong());
    });
    t.addSetter("Item", [](Object& o, Dispatch::Args& a, const Variant& v) {
      requireTwo(a);
      static_cast<Array2DObject&>(o)(a[0].toLong(), a[1].toLong()) = v;
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane

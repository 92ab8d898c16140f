// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/runtime/object.h>
#include <corvane/runtime/vb_array.h>

#include <string>

namespace corvane {

// An array as a late-bound caller holds it: a Variant carries no array, so an argument that a
// member fills by reference (CGradient.BlendColors) is one of these. By name: LBound, UBound and
// Item(i), which can be read and assigned; a bad index is error 9.
class CORVANE_API ArrayObject : public Object {
 public:
  std::string typeName() const override { return "Variant()"; }

  VbArray<Variant>& items() { return m_items; }
  const VbArray<Variant>& items() const { return m_items; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  VbArray<Variant> m_items;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <string>
#include <utility>
#include <vector>

#include <corvane/export.h>
#include <corvane/runtime/object.h>

namespace corvane {

// The stored state of one control: keys with values, in the order they were written.
class CORVANE_API PropertyBag : public Object {
 public:
  std::string typeName() const override { return "PropertyBag"; }

  // The stored value, or the default when the key is absent.
  Variant ReadProperty(const std::string& name, const Variant& defaultValue = {});
  // Stores the key; a value equal to its default is not stored (and an older entry is dropped).
  void WriteProperty(const std::string& name, const Variant& value, const Variant& defaultValue = {});

  bool contains(const std::string& name) const;
  const std::vector<std::pair<std::string, Variant>>& entries() const { return m_entries; }
  void set(const std::string& name, const Variant& value);  // stores unconditionally (loading)

  // The keys in the order they were asked for, for tests of reading and writing order.
  const std::vector<std::string>& readOrder() const { return m_readOrder; }
  const std::vector<std::string>& writeOrder() const { return m_writeOrder; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  std::vector<std::pair<std::string, Variant>> m_entries;
  std::vector<std::string> m_readOrder, m_writeOrder;
};

}  // namespace corvane

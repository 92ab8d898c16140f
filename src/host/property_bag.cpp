// SPDX-License-Identifier: MIT
#include <corvane/host/property_bag.h>

#include <algorithm>

namespace corvane {

Variant PropertyBag::ReadProperty(const std::string& name, const Variant& defaultValue) {
  m_readOrder.push_back(name);
  for (auto& [k, v] : m_entries)
    if (k == name) return v;
  return defaultValue;
}

void PropertyBag::WriteProperty(const std::string& name, const Variant& value, const Variant& defaultValue) {
  m_writeOrder.push_back(name);
  std::erase_if(m_entries, [&](auto& e) { return e.first == name; });
  if (value == defaultValue) return;
  m_entries.emplace_back(name, value);
}

bool PropertyBag::contains(const std::string& name) const {
  return std::any_of(m_entries.begin(), m_entries.end(), [&](auto& e) { return e.first == name; });
}

void PropertyBag::set(const std::string& name, const Variant& value) {
  for (auto& [k, v] : m_entries)
    if (k == name) {
      v = value;
      return;
    }
  m_entries.emplace_back(name, value);
}

const Dispatch* PropertyBag::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<PropertyBag>(t)
        .method("ReadProperty",
                [](PropertyBag& b, Dispatch::Args& a) {
                  return b.ReadProperty(a.at(0).toString(), a.size() > 1 ? a[1] : Variant());
                })
        .method("WriteProperty", [](PropertyBag& b, Dispatch::Args& a) {
          b.WriteProperty(a.at(0).toString(), a.at(1), a.size() > 2 ? a[2] : Variant());
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane

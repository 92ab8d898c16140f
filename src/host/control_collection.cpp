// SPDX-License-Identifier: MIT
#include <corvane/host/control_collection.h>
#include <corvane/host/extender.h>
#include <corvane/runtime/strings.h>

namespace corvane {

std::shared_ptr<Extender> ControlCollection::Item(const Variant& indexOrName) const {
  if (indexOrName.isString()) {
    const std::string wanted = LCase(indexOrName.toString());
    for (const auto& c : m_controls)
      if (LCase(c->Name()) == wanted) return c;
    throw RuntimeError(err::SubscriptOutOfRange);
  }
  const int32_t i = indexOrName.toLong();
  if (i < 0 || i >= Count()) throw RuntimeError(err::SubscriptOutOfRange);
  return m_controls[static_cast<size_t>(i)];
}

const Dispatch* ControlCollection::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<ControlCollection>(t)
        .get("Count", &ControlCollection::Count)
        .method("Item", [](ControlCollection& c, Dispatch::Args& a) -> ObjectRef {
          if (a.empty()) throw RuntimeError(err::SubscriptOutOfRange);
          return c.Item(a[0]);
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane

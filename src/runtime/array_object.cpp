// SPDX-License-Identifier: MIT
#include <corvane/runtime/array_object.h>

namespace corvane {

namespace {
int32_t indexArgument(const Dispatch::Args& a) {
  if (a.empty()) throw RuntimeError(err::SubscriptOutOfRange);
  return a[0].toLong();
}
}  // namespace

const Dispatch* ArrayObject::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<ArrayObject>(t)
        .get("LBound", [](ArrayObject& o) { return o.items().lbound(); })
        .get("UBound", [](ArrayObject& o) { return o.items().ubound(); })
        .method("Item", [](ArrayObject& o, Dispatch::Args& a) { return o.items()(indexArgument(a)); });
    t.addSetter("Item", [](Object& o, Dispatch::Args& a, const Variant& v) {
      static_cast<ArrayObject&>(o).items()(indexArgument(a)) = v;
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane

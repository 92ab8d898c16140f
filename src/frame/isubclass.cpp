// SPDX-License-Identifier: MIT
#include <corvane/frame/isubclass.h>

#include <corvane/frame/subclass.h>

namespace corvane {

namespace {

subclassing::UncountedRefs<ISubclass>& liveClients() {
  static subclassing::UncountedRefs<ISubclass> table;
  return table;
}

int32_t argLong(const Dispatch::Args& a, size_t i) {
  if (i >= a.size()) throw RuntimeError(449, "Argument not optional");
  return a[i].toLong();
}

}  // namespace

ISubclass::ISubclass() : m_objectId(liveClients().add(this)) {}

ISubclass::~ISubclass() { liveClients().remove(m_objectId); }

ISubclass* ISubclass::fromObjectId(int32_t id) { return id ? liveClients().find(id) : nullptr; }

int32_t ISubclass::WindowProc(int32_t, int32_t, int32_t, int32_t) { return 0; }

const Dispatch* ISubclass::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<ISubclass>(t)
        .get("MsgResponse", [](const ISubclass& o) { return static_cast<int32_t>(o.MsgResponse()); })
        .let("MsgResponse", &ISubclass::setMsgResponse)
        .method("WindowProc", [](ISubclass& o, Dispatch::Args& a) {
          return o.WindowProc(argLong(a, 0), argLong(a, 1), argLong(a, 2), argLong(a, 3));
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane

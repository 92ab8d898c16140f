// SPDX-License-Identifier: MIT
#pragma once
#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <vector>

#include <corvane/export.h>
#include <corvane/runtime/variant.h>

namespace corvane {

enum class CallType { Method, Get, Let };

class Object;

// The members of a class that can be reached by name. Names compare without regard to case.
class CORVANE_API Dispatch {
 public:
  using Args = std::vector<Variant>;
  using Getter = std::function<Variant(Object&, Args&)>;
  using Setter = std::function<void(Object&, Args&, const Variant&)>;
  using Method = std::function<Variant(Object&, Args&)>;

  struct Member {
    Getter get;
    Setter let;
    Method call;
  };

  void addGetter(std::string_view name, Getter g);
  void addSetter(std::string_view name, Setter s);
  void addMethod(std::string_view name, Method m);
  const Member* find(std::string_view name) const;

 private:
  std::unordered_map<std::string, Member> m_members;
};

// A value returned by a member, as a Variant; enumerations travel as Long.
template <class R>
Variant toVariant(R&& value) {
  if constexpr (std::is_enum_v<std::decay_t<R>>) return Variant(static_cast<int32_t>(value));
  else return Variant(std::forward<R>(value));
}

// Typed helpers to fill a Dispatch for class T.
template <class T>
class DispatchBuilder {
 public:
  explicit DispatchBuilder(Dispatch& d) : m_d(d) {}

  template <class G>
  DispatchBuilder& get(std::string_view name, G getter) {
    m_d.addGetter(name, [getter](Object& o, Dispatch::Args&) { return toVariant(std::invoke(getter, static_cast<T&>(o))); });
    return *this;
  }
  template <class V>
  DispatchBuilder& let(std::string_view name, void (T::*setter)(V)) {
    m_d.addSetter(name, [setter](Object& o, Dispatch::Args&, const Variant& v) {
      (static_cast<T&>(o).*setter)(v.as<std::decay_t<V>>());
    });
    return *this;
  }
  // A setter given as a callable f(T&, const Variant&), for conversions of its own.
  template <class F>
    requires std::is_invocable_v<F, T&, const Variant&>
  DispatchBuilder& let(std::string_view name, F setter) {
    m_d.addSetter(name, [setter](Object& o, Dispatch::Args&, const Variant& v) { setter(static_cast<T&>(o), v); });
    return *this;
  }
  template <class G, class V>
  DispatchBuilder& prop(std::string_view name, G getter, void (T::*setter)(V)) {
    get(name, getter);
    return let(name, setter);
  }
  template <class F>
  DispatchBuilder& method(std::string_view name, F f) {
    m_d.addMethod(name, [f](Object& o, Dispatch::Args& a) -> Variant {
      if constexpr (std::is_void_v<std::invoke_result_t<F, T&, Dispatch::Args&>>) {
        f(static_cast<T&>(o), a);
        return Variant();
      } else {
        return toVariant(f(static_cast<T&>(o), a));
      }
    });
    return *this;
  }

 private:
  Dispatch& m_d;
};

// Base of every object that can be held in a Variant and called by member name at run time.
// Counts the live objects of the component.
class CORVANE_API Object : public std::enable_shared_from_this<Object> {
 public:
  Object();
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object();

  virtual std::string typeName() const = 0;

  // Late-bound access by member name; a missing member is error 438.
  virtual Variant invoke(std::string_view member, CallType type, Dispatch::Args& args);
  bool hasMember(std::string_view member) const;

  Variant get(std::string_view member, Dispatch::Args args = {});
  void let(std::string_view member, const Variant& value, Dispatch::Args args = {});
  Variant call(std::string_view member, Dispatch::Args args = {});

  static int64_t liveCount();

 protected:
  // The class's table of members; classes build it once in a function-local static.
  virtual const Dispatch* dispatch() const { return nullptr; }

 private:
  static std::atomic<int64_t> s_live;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

#include <corvane/export.h>
#include <corvane/runtime/runtime_error.h>

namespace corvane {

class Object;
using ObjectRef = std::shared_ptr<Object>;

// A value of any of the language's types, as property bags, late-bound calls and events carry it.
// Booleans are 16 bits wide with True as -1 when read as a number.
class CORVANE_API Variant {
 public:
  enum class Type { Empty, Null, Boolean, Byte, Integer, Long, Single, Double, String, Object };

  struct NullTag {
    bool operator==(const NullTag&) const = default;
  };

  Variant() = default;
  Variant(NullTag) : m_value(NullTag{}) {}
  Variant(bool v) : m_value(v) {}
  Variant(uint8_t v) : m_value(v) {}
  Variant(int16_t v) : m_value(v) {}
  Variant(int32_t v) : m_value(v) {}
  // An unsigned 32-bit value is the bit pattern of a Long, as the language's &H literals are:
  // Variant(0x8000000F) is the system colour -2147483633.
  Variant(uint32_t v) : m_value(static_cast<int32_t>(v)) {}
  // Wider integers (sizes, counts): a Long when they fit, a Double otherwise.
  Variant(long v) : m_value(wide(v)) {}
  Variant(long long v) : m_value(wide(v)) {}
  Variant(unsigned long v) : m_value(wide(v)) {}
  Variant(unsigned long long v) : m_value(wide(v)) {}
  Variant(float v) : m_value(v) {}
  Variant(double v) : m_value(v) {}
  Variant(std::string v) : m_value(std::move(v)) {}
  Variant(const char* v) : m_value(std::string(v)) {}
  Variant(std::string_view v) : m_value(std::string(v)) {}
  Variant(ObjectRef v) : m_value(std::move(v)) {}
  template <class T, class = std::enable_if_t<std::is_base_of_v<Object, T>>>
  Variant(std::shared_ptr<T> v) : m_value(ObjectRef(std::move(v))) {}

  static Variant null() { return Variant(NullTag{}); }

  Type type() const { return static_cast<Type>(m_value.index()); }
  bool isEmpty() const { return type() == Type::Empty; }
  bool isNull() const { return type() == Type::Null; }
  bool isNumeric() const;  // a number or a Boolean
  bool isString() const { return type() == Type::String; }
  bool isObject() const { return type() == Type::Object; }
  std::string typeName() const;  // "Empty", "Long", "String" ...

  // Conversions with the language's rules: numbers round ties to even and are range checked
  // (error 6); a text that is no number is a type mismatch (error 13).
  bool toBool() const;
  uint8_t toByte() const;
  int16_t toInteger() const;
  int32_t toLong() const;
  float toSingle() const;
  double toDouble() const;
  std::string toString() const;
  ObjectRef toObject() const;  // Empty gives nullptr; any other non-object is error 13

  template <class T>
  T as() const;

  // Same type and same value; objects compare by identity, numbers of different width by value.
  bool operator==(const Variant& other) const;

 private:
  template <class I>
  static std::variant<std::monostate, NullTag, bool, uint8_t, int16_t, int32_t, float, double, std::string, ObjectRef>
  wide(I v) {
    if (std::in_range<int32_t>(v)) return static_cast<int32_t>(v);
    return static_cast<double>(v);
  }

  std::variant<std::monostate, NullTag, bool, uint8_t, int16_t, int32_t, float, double, std::string, ObjectRef>
      m_value;
};

template <class T>
T Variant::as() const {
  using U = std::decay_t<T>;
  if constexpr (std::is_same_v<U, Variant>) return *this;
  else if constexpr (std::is_same_v<U, bool>) return toBool();
  else if constexpr (std::is_same_v<U, uint8_t>) return toByte();
  else if constexpr (std::is_same_v<U, int16_t>) return toInteger();
  else if constexpr (std::is_same_v<U, int32_t>) return toLong();
  else if constexpr (std::is_same_v<U, float>) return toSingle();
  else if constexpr (std::is_same_v<U, double>) return toDouble();
  else if constexpr (std::is_same_v<U, std::string>) return toString();
  else if constexpr (std::is_same_v<U, ObjectRef>) return toObject();
  else if constexpr (std::is_enum_v<U>) return static_cast<U>(toLong());
  else {
    // std::shared_ptr<Derived>
    using Elem = typename U::element_type;
    ObjectRef o = toObject();
    if (!o) return nullptr;
    auto d = std::dynamic_pointer_cast<Elem>(o);
    if (!d) throw RuntimeError(err::TypeMismatch);
    return d;
  }
}

}  // namespace corvane

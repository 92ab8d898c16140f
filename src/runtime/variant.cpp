// SPDX-License-Identifier: MIT
#include <corvane/runtime/variant.h>

#include <cctype>
#include <charconv>
#include <cmath>

#include <corvane/runtime/checked.h>
#include <corvane/runtime/object.h>
#include <corvane/runtime/val.h>

namespace corvane {

namespace {

bool equalsNoCase(const std::string& a, const char* b) {
  size_t n = std::char_traits<char>::length(b);
  if (a.size() != n) return false;
  for (size_t i = 0; i < n; ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) return false;
  return true;
}

// A text read as a number: blanks around it allowed, "&H" and "&O" literals accepted; anything
// else is a type mismatch. (The texts "True" and "False" are handled by the caller.)
double parseNumericText(const std::string& s) {
  if (auto v = parseNumber(s)) return *v;
  throw RuntimeError(err::TypeMismatch);
}

// The language's text of a floating value: up to `digits` significant digits, exponent form
// from 1E+15 up and from 1E-05 down. to_chars, unlike printf, ignores the process locale.
std::string formatFloating(double v, int digits) {
  if (v == 0) return "0";
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, digits);
  std::string s(buf, r.ptr);
  for (char& c : s)
    if (c == 'e') c = 'E';
  return s;
}

}  // namespace

bool Variant::isNumeric() const {
  switch (type()) {
    case Type::Boolean: case Type::Byte: case Type::Integer: case Type::Long: case Type::Single: case Type::Double:
      return true;
    default:
      return false;
  }
}

std::string Variant::typeName() const {
  static const char* names[] = {"Empty", "Null", "Boolean", "Byte", "Integer", "Long", "Single", "Double", "String", "Object"};
  return names[m_value.index()];
}

double Variant::toDouble() const {
  switch (type()) {
    case Type::Empty: return 0;
    case Type::Null: throw RuntimeError(err::InvalidUseOfNull);
    case Type::Boolean: return std::get<bool>(m_value) ? -1 : 0;
    case Type::Byte: return std::get<uint8_t>(m_value);
    case Type::Integer: return std::get<int16_t>(m_value);
    case Type::Long: return std::get<int32_t>(m_value);
    case Type::Single: return std::get<float>(m_value);
    case Type::Double: return std::get<double>(m_value);
    case Type::String: {
      const auto& s = std::get<std::string>(m_value);
      if (equalsNoCase(s, "True")) return -1;
      if (equalsNoCase(s, "False")) return 0;
      return parseNumericText(s);
    }
    case Type::Object: break;
  }
  throw RuntimeError(err::TypeMismatch);
}

bool Variant::toBool() const { return toDouble() != 0; }
uint8_t Variant::toByte() const { return CByte(toDouble()); }
int16_t Variant::toInteger() const { return CInt(toDouble()); }
int32_t Variant::toLong() const { return CLng(toDouble()); }
float Variant::toSingle() const { return CSng(toDouble()); }

std::string Variant::toString() const {
  switch (type()) {
    case Type::Empty: return {};
    case Type::Null: throw RuntimeError(err::InvalidUseOfNull);
    case Type::Boolean: return std::get<bool>(m_value) ? "True" : "False";
    case Type::Byte: return std::to_string(std::get<uint8_t>(m_value));
    case Type::Integer: return std::to_string(std::get<int16_t>(m_value));
    case Type::Long: return std::to_string(std::get<int32_t>(m_value));
    case Type::Single: return formatFloating(std::get<float>(m_value), 7);
    case Type::Double: return formatFloating(std::get<double>(m_value), 15);
    case Type::String: return std::get<std::string>(m_value);
    case Type::Object: break;
  }
  throw RuntimeError(err::TypeMismatch);
}

ObjectRef Variant::toObject() const {
  if (type() == Type::Object) return std::get<ObjectRef>(m_value);
  if (type() == Type::Empty) return nullptr;
  throw RuntimeError(err::TypeMismatch);
}

bool Variant::operator==(const Variant& other) const {
  if (isNumeric() && other.isNumeric()) {
    if ((type() == Type::Boolean) != (other.type() == Type::Boolean)) return false;
    return toDouble() == other.toDouble();
  }
  if (type() != other.type()) return false;
  if (type() == Type::Object) return std::get<ObjectRef>(m_value) == std::get<ObjectRef>(other.m_value);
  return m_value == other.m_value;
}

}  // namespace corvane

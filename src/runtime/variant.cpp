#include "runtime/variant.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "runtime/checked.h"
#include "runtime/object.h"

namespace corvane {

namespace {

bool equalsNoCase(const std::string& a, const char* b) {
  size_t n = std::char_traits<char>::length(b);
  if (a.size() != n) return false;
  for (size_t i = 0; i < n; ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) return false;
  return true;
}

// A text read as a number: blanks around it allowed, "True"/"False" not (a type mismatch),
// "&H" and "&O" prefixes accepted as the language's numeric literals.
double parseNumericText(const std::string& s) {
  size_t b = s.find_first_not_of(" \t");
  size_t e = s.find_last_not_of(" \t");
  if (b == std::string::npos) throw RuntimeError(err::TypeMismatch);
  std::string t = s.substr(b, e - b + 1);
  if (t.size() > 2 && t[0] == '&' && (t[1] == 'H' || t[1] == 'h' || t[1] == 'O' || t[1] == 'o')) {
    int base = (t[1] == 'H' || t[1] == 'h') ? 16 : 8;
    std::string digits = t.substr(2);
    if (!digits.empty() && digits.back() == '&') digits.pop_back();
    char* end = nullptr;
    unsigned long long v = std::strtoull(digits.c_str(), &end, base);
    if (digits.empty() || *end != '\0') throw RuntimeError(err::TypeMismatch);
    if (v > 0xFFFFFFFFull) raiseOverflow();
    if (v <= 0xFFFF && digits.size() <= (base == 16 ? 4u : 6u) && t.back() != '&') return int16_t(uint16_t(v));
    return int32_t(uint32_t(v));
  }
  char* end = nullptr;
  double v = std::strtod(t.c_str(), &end);
  if (end == t.c_str() || *end != '\0') throw RuntimeError(err::TypeMismatch);
  // strtod accepts forms the language does not ("inf", "nan", hex floats).
  for (char c : t)
    if (!(std::isdigit(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E'))
      throw RuntimeError(err::TypeMismatch);
  return v;
}

std::string formatFloating(double v, int digits) {
  if (v == 0) return "0";
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*G", digits, v);
  std::string s = buf;
  // Drop trailing zeros of the mantissa, which %G keeps in exponent form.
  size_t epos = s.find('E');
  std::string mant = epos == std::string::npos ? s : s.substr(0, epos);
  std::string expo = epos == std::string::npos ? "" : s.substr(epos);
  if (mant.find('.') != std::string::npos) {
    while (!mant.empty() && mant.back() == '0') mant.pop_back();
    if (!mant.empty() && mant.back() == '.') mant.pop_back();
  }
  if (!expo.empty()) {
    // "E+05" -> "E+05" is kept two digits wide at least, as the language prints it.
    char sign = expo[1];
    std::string num = expo.substr(2);
    while (num.size() > 2 && num[0] == '0') num.erase(0, 1);
    expo = std::string("E") + sign + num;
  }
  return mant + expo;
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
    case Type::Null: throw RuntimeError(94, "Invalid use of Null");
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
    case Type::Null: throw RuntimeError(94, "Invalid use of Null");
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

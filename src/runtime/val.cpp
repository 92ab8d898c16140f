// SPDX-License-Identifier: MIT
#include <corvane/runtime/val.h>

#include <charconv>
#include <cstdint>
#include <string>

#include <corvane/runtime/checked.h>
#include <corvane/runtime/runtime_error.h>

namespace corvane {

namespace {

inline bool isDigit(char c) { return c >= '0' && c <= '9'; }

int digitValue(char c, int base) {
  int d;
  if (c >= '0' && c <= '9')
    d = c - '0';
  else if (c >= 'a' && c <= 'f')
    d = c - 'a' + 10;
  else if (c >= 'A' && c <= 'F')
    d = c - 'A' + 10;
  else
    return -1;
  return d < base ? d : -1;
}

// Whether a literal of `digits` digits with value `v` is a 16-bit number. The count of digits
// decides, as it does for the language's literals: four hexadecimal digits are 16 bits, so one to
// four form a 16-bit number and five or more a 32-bit one (&HFFFF is -1, &H0FFFF is 65535). Six
// octal digits hold 18 bits: one to six digits form a 16-bit number while the value fits 16 bits
// (&O177777 is -1, &O100000 is -32768), a six-digit value above &O177777 cannot and is a 32-bit
// number (&O200000 is 65536), and seven or more digits are a 32-bit number (&O0177777 is 65535).
bool isShortLiteral(int base, size_t digits, uint64_t v) {
  if (base == 16) return digits <= 4;
  return digits <= 6 && v <= 0xFFFF;
}

// Reads "&H..." or "&O..." at t[i] (which is '&'). Returns false when no radix prefix stands
// there. Stops at the first character that is no digit of the base; `digits` tells how many
// were read.
bool readRadix(std::string_view t, size_t& i, double& value, size_t& digits) {
  if (i + 1 >= t.size()) return false;
  char p = t[i + 1];
  int base = (p == 'H' || p == 'h') ? 16 : (p == 'O' || p == 'o') ? 8 : 0;
  if (!base) return false;
  size_t j = i + 2;
  uint64_t v = 0;
  digits = 0;
  for (int d; j < t.size() && (d = digitValue(t[j], base)) >= 0; ++j, ++digits) {
    v = v * base + d;
    if (v > 0xFFFFFFFFull) raiseOverflow();
  }
  bool forceLong = digits && j < t.size() && t[j] == '&';
  if (forceLong) ++j;
  if (!forceLong && isShortLiteral(base, digits, v))
    value = static_cast<int16_t>(static_cast<uint16_t>(v));
  else
    value = static_cast<int32_t>(static_cast<uint32_t>(v));
  i = j;
  return true;
}

// Reads a decimal number at t[i]: sign, digits, point, digits, exponent. Returns false (and
// leaves i) when no mantissa digit stands there. An exponent letter without digits is not part
// of the number.
bool readDecimal(std::string_view t, size_t& i, double& value, bool allowD) {
  size_t j = i;
  bool negative = false;
  if (j < t.size() && (t[j] == '+' || t[j] == '-')) negative = t[j++] == '-';
  std::string buf;  // canonical form for from_chars, which ignores the locale
  size_t mantissaDigits = 0, intDigits = 0;
  bool significant = false;  // a non-zero digit seen
  int64_t leadingFractionZeros = 0;
  for (; j < t.size() && isDigit(t[j]); ++j) {
    buf += t[j];
    ++mantissaDigits;
    if (t[j] != '0') significant = true;
    if (significant) ++intDigits;
  }
  if (j < t.size() && t[j] == '.') {
    buf += '.';
    for (++j; j < t.size() && isDigit(t[j]); ++j) {
      buf += t[j];
      ++mantissaDigits;
      if (t[j] != '0')
        significant = true;
      else if (!significant)
        ++leadingFractionZeros;
    }
  }
  if (mantissaDigits == 0) return false;
  int64_t exponent = 0;
  if (j < t.size() && (t[j] == 'E' || t[j] == 'e' || (allowD && (t[j] == 'D' || t[j] == 'd')))) {
    size_t k = j + 1;
    bool expNegative = false;
    if (k < t.size() && (t[k] == '+' || t[k] == '-')) expNegative = t[k++] == '-';
    if (k < t.size() && isDigit(t[k])) {
      buf += 'e';
      if (expNegative) buf += '-';
      for (; k < t.size() && isDigit(t[k]); ++k) {
        buf += t[k];
        if (exponent < 100000) exponent = exponent * 10 + (t[k] - '0');
      }
      if (expNegative) exponent = -exponent;
      j = k;
    }
  }
  double v = 0;
  auto r = std::from_chars(buf.data(), buf.data() + buf.size(), v);
  if (r.ec == std::errc::result_out_of_range) {
    // Too large or too small for a double: the decimal magnitude tells which.
    int64_t magnitude =
        intDigits ? exponent + static_cast<int64_t>(intDigits) : exponent - leadingFractionZeros;
    if (magnitude > 0) raiseOverflow();
    v = 0;
  }
  value = negative && v != 0 ? -v : v;
  i = j;
  return true;
}

bool skipped(char c) { return c == ' ' || c == '\t' || c == '\n'; }

}  // namespace

double Val(std::string_view text) {
  std::string compact;
  std::string_view t = text;
  for (char c : text)
    if (skipped(c)) {
      compact.reserve(text.size());
      for (char d : text)
        if (!skipped(d)) compact += d;
      t = compact;
      break;
    }
  if (t.empty()) return 0;
  size_t i = 0;
  double v = 0;
  if (t[0] == '&') {
    size_t digits;
    return readRadix(t, i, v, digits) ? v : 0;
  }
  return readDecimal(t, i, v, true) ? v : 0;
}

std::optional<double> parseNumber(std::string_view text) {
  size_t b = text.find_first_not_of(" \t");
  if (b == std::string_view::npos) return std::nullopt;
  size_t e = text.find_last_not_of(" \t");
  std::string_view t = text.substr(b, e - b + 1);
  size_t i = 0;
  double v = 0;
  if (t[0] == '&') {
    size_t digits = 0;
    if (!readRadix(t, i, v, digits) || digits == 0) return std::nullopt;
  } else if (!readDecimal(t, i, v, false)) {
    return std::nullopt;
  }
  if (i != t.size()) return std::nullopt;
  return v;
}

bool IsNumeric(std::string_view text) {
  try {
    return parseNumber(text).has_value();
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace corvane

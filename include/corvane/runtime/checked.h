// SPDX-License-Identifier: MIT
#pragma once
#include <cmath>
#include <cstdint>
#include <limits>

#include <corvane/runtime/runtime_error.h>

// Checked integer arithmetic and the numeric conversions of the language: an integer result out
// of its 16- or 32-bit range raises error 6 (overflow) instead of wrapping; a floating value
// becomes an integer by rounding to nearest with ties to even.
namespace corvane {

[[noreturn]] inline void raiseOverflow() { throw RuntimeError(err::Overflow); }

// Rounds to the nearest integer, ties to even, as a double.
inline double roundHalfEven(double v) { return std::nearbyint(v); }  // default FE_TONEAREST

// Int: the largest integer not above v. Fix: v truncated toward zero.
inline double Int(double v) { return std::floor(v); }
inline double Fix(double v) { return std::trunc(v); }

template <class T>
T checkedRange(double v) {
  if (!(v >= static_cast<double>(std::numeric_limits<T>::min()) &&
        v <= static_cast<double>(std::numeric_limits<T>::max())))
    raiseOverflow();
  return static_cast<T>(v);
}

// CInt, CLng, CByte: rounding conversions with range check.
inline int16_t CInt(double v) { return checkedRange<int16_t>(roundHalfEven(v)); }
inline int32_t CLng(double v) { return checkedRange<int32_t>(roundHalfEven(v)); }
inline uint8_t CByte(double v) { return checkedRange<uint8_t>(roundHalfEven(v)); }
inline float CSng(double v) {
  if (std::isfinite(v) && std::fabs(v) > std::numeric_limits<float>::max()) raiseOverflow();
  return static_cast<float>(v);
}

// 16-bit arithmetic.
inline int16_t add16(int16_t a, int16_t b) { return checkedRange<int16_t>(double(a) + double(b)); }
inline int16_t sub16(int16_t a, int16_t b) { return checkedRange<int16_t>(double(a) - double(b)); }
inline int16_t mul16(int16_t a, int16_t b) { return checkedRange<int16_t>(double(a) * double(b)); }

// 32-bit arithmetic.
inline int32_t add32(int32_t a, int32_t b) {
  int32_t r;
  if (__builtin_add_overflow(a, b, &r)) raiseOverflow();
  return r;
}
inline int32_t sub32(int32_t a, int32_t b) {
  int32_t r;
  if (__builtin_sub_overflow(a, b, &r)) raiseOverflow();
  return r;
}
inline int32_t mul32(int32_t a, int32_t b) {
  int32_t r;
  if (__builtin_mul_overflow(a, b, &r)) raiseOverflow();
  return r;
}

// Negation: -(-32768) does not fit 16 bits, -(-2147483648) not 32.
inline int16_t neg16(int16_t a) { return checkedRange<int16_t>(-double(a)); }
inline int32_t neg32(int32_t a) {
  if (a == std::numeric_limits<int32_t>::min()) raiseOverflow();
  return -a;
}

// Integer division (the backslash operator): both operands rounded to integers first, quotient
// truncated; division by zero is error 11.
inline int32_t intDiv(double a, double b) {
  int32_t ia = CLng(a), ib = CLng(b);
  if (ib == 0) throw RuntimeError(err::DivisionByZero);
  if (ia == std::numeric_limits<int32_t>::min() && ib == -1) raiseOverflow();
  return ia / ib;
}

// Mod: both operands rounded to integers first; the result has the sign of the dividend;
// a zero divisor is error 11.
inline int32_t mod32(double a, double b) {
  int32_t ia = CLng(a), ib = CLng(b);
  if (ib == 0) throw RuntimeError(err::DivisionByZero);
  if (ib == -1) return 0;  // avoids the trap of INT32_MIN % -1
  return ia % ib;
}

// Round(v, digits): to `digits` decimals, ties to even; negative digits are error 5.
inline double Round(double v, int digits = 0) {
  if (digits < 0) throw RuntimeError(err::InvalidProcedureCall);
  if (digits == 0) return roundHalfEven(v);
  double scale = std::pow(10.0, digits);
  double scaled = v * scale;
  if (!std::isfinite(scaled)) return v;
  return roundHalfEven(scaled) / scale;
}

// Floating division; dividing by zero is a run-time error too.
inline double fdiv(double a, double b) {
  if (b == 0) throw RuntimeError(a == 0 ? err::Overflow : err::DivisionByZero);
  return a / b;
}

}  // namespace corvane

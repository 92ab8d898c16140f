// SPDX-License-Identifier: MIT
#include <corvane/runtime/win1252.h>

#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/utf8.h>

namespace corvane {

namespace {

// 0x80..0x9F; the rest of the code page equals Latin-1.
constexpr char16_t kHigh[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};

}  // namespace

char32_t win1252ToUnicode(uint8_t code) {
  if (code >= 0x80 && code <= 0x9F) return kHigh[code - 0x80];
  return code;
}

int32_t unicodeToWin1252(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int32_t>(cp);
  for (int i = 0; i < 32; ++i)
    if (kHigh[i] == cp) return 0x80 + i;
  return -1;
}

std::string Chr(int32_t code) {
  if (code < 0 || code > 255) throw RuntimeError(err::InvalidProcedureCall);
  return utf8::encode(win1252ToUnicode(static_cast<uint8_t>(code)));
}

int32_t Asc(std::string_view s) {
  if (s.empty()) throw RuntimeError(err::InvalidProcedureCall);
  size_t i = 0;
  int32_t code = unicodeToWin1252(utf8::decode(s, i));
  return code < 0 ? '?' : code;
}

std::string ChrW(int32_t code) {
  if (code < -32768 || code > 0x10FFFF) throw RuntimeError(err::InvalidProcedureCall);
  if (code < 0) code += 65536;
  if (code >= 0xD800 && code <= 0xDFFF) throw RuntimeError(err::InvalidProcedureCall);
  return utf8::encode(static_cast<char32_t>(code));
}

int32_t AscW(std::string_view s) {
  if (s.empty()) throw RuntimeError(err::InvalidProcedureCall);
  size_t i = 0;
  return static_cast<int32_t>(utf8::decode(s, i));
}

std::string toAnsi(std::string_view s) {
  if (utf8::isAscii(s)) return std::string(s);
  std::string out;
  out.reserve(s.size());
  size_t i = 0;
  while (i < s.size()) {
    int32_t code = unicodeToWin1252(utf8::decode(s, i));
    out += static_cast<char>(code < 0 ? '?' : code);
  }
  return out;
}

std::string fromAnsi(std::string_view a) {
  if (utf8::isAscii(a)) return std::string(a);
  std::string out;
  out.reserve(a.size() + a.size() / 2);
  for (char c : a) utf8::append(out, win1252ToUnicode(static_cast<uint8_t>(c)));
  return out;
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/runtime/strings.h>

#include <algorithm>
#include <limits>

#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/utf8.h>
#include <corvane/runtime/win1252.h>

namespace corvane {

namespace {

[[noreturn]] void invalidCall() { throw RuntimeError(err::InvalidProcedureCall); }

inline bool isCont(unsigned char c) { return (c & 0xC0) == 0x80; }

// Case mapping works on the bytes: every letter pair of the code page is two bytes long in both
// cases (C3 xx and C5 xx), so mapping never changes a byte offset. That lets text comparison
// search a folded copy and use the offsets on the original.
void lowerInPlace(std::string& s) {
  for (size_t i = 0; i < s.size(); ++i) {
    auto b = static_cast<unsigned char>(s[i]);
    if (b < 0x80) {
      if (b >= 'A' && b <= 'Z') s[i] = static_cast<char>(b + 32);
      continue;
    }
    if (i + 1 >= s.size()) break;
    auto c = static_cast<unsigned char>(s[i + 1]);
    if (!isCont(c)) continue;
    if (b == 0xC3) {
      if (c >= 0x80 && c <= 0x9E && c != 0x97) s[i + 1] = static_cast<char>(c + 0x20);  // À..Þ, not ×
      ++i;
    } else if (b == 0xC5) {
      if (c == 0x92 || c == 0xA0 || c == 0xBD)
        s[i + 1] = static_cast<char>(c + 1);  // Œ Š Ž
      else if (c == 0xB8)
        s[i] = static_cast<char>(0xC3), s[i + 1] = static_cast<char>(0xBF);  // Ÿ -> ÿ
      ++i;
    }
  }
}

void upperInPlace(std::string& s) {
  for (size_t i = 0; i < s.size(); ++i) {
    auto b = static_cast<unsigned char>(s[i]);
    if (b < 0x80) {
      if (b >= 'a' && b <= 'z') s[i] = static_cast<char>(b - 32);
      continue;
    }
    if (i + 1 >= s.size()) break;
    auto c = static_cast<unsigned char>(s[i + 1]);
    if (!isCont(c)) continue;
    if (b == 0xC3) {
      if (c >= 0xA0 && c <= 0xBE && c != 0xB7)
        s[i + 1] = static_cast<char>(c - 0x20);  // à..þ, not ÷
      else if (c == 0xBF)
        s[i] = static_cast<char>(0xC5), s[i + 1] = static_cast<char>(0xB8);  // ÿ -> Ÿ
      ++i;
    } else if (b == 0xC5) {
      if (c == 0x93 || c == 0xA1 || c == 0xBE) s[i + 1] = static_cast<char>(c - 1);  // œ š ž
      ++i;
    }
  }
}

std::string folded(std::string_view s) {
  std::string r(s);
  lowerInPlace(r);
  return r;
}

// True when every byte of s belongs to a well-formed character: then a byte match of s inside
// any text starts and ends on character boundaries.
bool wellFormed(std::string_view s) {
  for (size_t i = 0; i < s.size();) {
    if (static_cast<unsigned char>(s[i]) < 0x80) {
      ++i;
      continue;
    }
    size_t n = utf8::charSize(s, i);
    if (n == 1) return false;
    i += n;
  }
  return true;
}

// The character boundaries of s from `from` on, for the rare search with an ill-formed needle.
bool onBoundaries(std::string_view s, size_t from, size_t begin, size_t end) {
  size_t i = from;
  while (i < begin) i += utf8::charSize(s, i);
  if (i != begin) return false;
  while (i < end) i += utf8::charSize(s, i);
  return i == end;
}

// Byte offset of the first match of `find` in `s` at or after byte `from`, or npos.
size_t findFrom(std::string_view s, std::string_view find, size_t from, bool aligned) {
  for (size_t p = s.find(find, from); p != std::string_view::npos; p = s.find(find, p + 1))
    if (aligned || onBoundaries(s, from, p, p + find.size())) return p;
  return std::string_view::npos;
}

// Byte offset of the last match that ends at or before s.size(), or npos.
size_t findLast(std::string_view s, std::string_view find, bool aligned) {
  for (size_t p = s.rfind(find); p != std::string_view::npos;
       p = p ? s.rfind(find, p - 1) : std::string_view::npos)
    if (aligned || onBoundaries(s, 0, p, p + find.size())) return p;
  return std::string_view::npos;
}

int32_t charCount(std::string_view s) { return static_cast<int32_t>(utf8::length(s)); }

// Byte offset of character `index` (0-based); `rest` > 0 afterwards when s is shorter.
size_t offsetOf(std::string_view s, int64_t index, int64_t& rest) {
  rest = index;
  return utf8::skip(s, 0, rest);
}

// Searches with the chosen comparison. Both texts are folded for Text; folding keeps offsets.
struct Search {
  Search(std::string_view s, std::string_view find, CompareMethod compare) : aligned(wellFormed(find)) {
    if (compare == CompareMethod::Text) {
      m_hay = folded(s);
      m_needle = folded(find);
      hay = m_hay;
      needle = m_needle;
    } else {
      hay = s;
      needle = find;
    }
  }
  std::string_view hay, needle;
  bool aligned;

 private:
  std::string m_hay, m_needle;
};

}  // namespace

int32_t Len(std::string_view s) { return charCount(s); }

std::string Mid(std::string_view s, int32_t start) {
  if (start < 1) invalidCall();
  int64_t rest;
  size_t b = offsetOf(s, start - 1, rest);
  return std::string(s.substr(b));
}

std::string Mid(std::string_view s, int32_t start, int32_t length) {
  if (start < 1 || length < 0) invalidCall();
  int64_t rest;
  size_t b = offsetOf(s, start - 1, rest);
  int64_t n = length;
  size_t e = utf8::skip(s, b, n);
  return std::string(s.substr(b, e - b));
}

std::string Left(std::string_view s, int32_t length) {
  if (length < 0) invalidCall();
  int64_t rest;
  return std::string(s.substr(0, offsetOf(s, length, rest)));
}

std::string Right(std::string_view s, int32_t length) {
  if (length < 0) invalidCall();
  if (utf8::isAscii(s)) return std::string(s.substr(s.size() - std::min<size_t>(s.size(), length)));
  int64_t total = utf8::length(s);
  if (length >= total) return std::string(s);
  int64_t rest;
  return std::string(s.substr(offsetOf(s, total - length, rest)));
}

int32_t InStr(std::string_view s, std::string_view find) { return InStr(1, s, find); }

int32_t InStr(int32_t start, std::string_view s, std::string_view find, CompareMethod compare) {
  if (start < 1) invalidCall();
  if (s.empty()) return 0;
  int64_t rest;
  size_t from = offsetOf(s, start - 1, rest);
  if (rest > 0) return 0;  // start beyond Len + 1
  if (find.empty()) return start;
  if (find.size() > s.size() - from) return 0;
  Search q(s, find, compare);
  size_t p = findFrom(q.hay, q.needle, from, q.aligned);
  if (p == std::string_view::npos) return 0;
  return start + charCount(s.substr(from, p - from));
}

int32_t InStrRev(std::string_view s, std::string_view find, int32_t start, CompareMethod compare) {
  if (start == 0 || start < -1) invalidCall();
  int32_t len = charCount(s);
  if (start == -1) start = len;
  if (start > len) return 0;
  if (find.empty()) return start;
  int64_t rest;
  std::string_view head = s.substr(0, offsetOf(s, start, rest));
  Search q(head, find, compare);
  size_t p = findLast(q.hay, q.needle, q.aligned);
  if (p == std::string_view::npos) return 0;
  return 1 + charCount(head.substr(0, p));
}

std::string Replace(std::string_view expr, std::string_view find, std::string_view replaceWith, int32_t start,
                    int32_t count, CompareMethod compare) {
  if (start < 1 || count < -1) invalidCall();
  int64_t rest;
  std::string_view s = expr.substr(offsetOf(expr, start - 1, rest));
  if (find.empty() || count == 0 || s.size() < find.size()) return std::string(s);
  Search q(s, find, compare);
  std::string out;
  out.reserve(s.size());
  size_t pos = 0;
  int64_t left = count < 0 ? std::numeric_limits<int64_t>::max() : count;
  while (left > 0) {
    size_t p = findFrom(q.hay, q.needle, pos, q.aligned);
    if (p == std::string_view::npos) break;
    out.append(s.substr(pos, p - pos));
    out.append(replaceWith);
    pos = p + find.size();
    --left;
  }
  out.append(s.substr(pos));
  return out;
}

std::string LTrim(std::string_view s) {
  size_t b = s.find_first_not_of(' ');
  return b == std::string_view::npos ? std::string() : std::string(s.substr(b));
}

std::string RTrim(std::string_view s) {
  size_t e = s.find_last_not_of(' ');
  return e == std::string_view::npos ? std::string() : std::string(s.substr(0, e + 1));
}

std::string Trim(std::string_view s) {
  size_t b = s.find_first_not_of(' ');
  if (b == std::string_view::npos) return {};
  size_t e = s.find_last_not_of(' ');
  return std::string(s.substr(b, e - b + 1));
}

std::string UCase(std::string_view s) {
  std::string r(s);
  upperInPlace(r);
  return r;
}

std::string LCase(std::string_view s) {
  std::string r(s);
  lowerInPlace(r);
  return r;
}

std::string Space(int32_t n) {
  if (n < 0) invalidCall();
  return std::string(static_cast<size_t>(n), ' ');
}

std::string String(int32_t n, std::string_view ch) {
  if (n < 0 || ch.empty()) invalidCall();
  std::string_view first = ch.substr(0, utf8::charSize(ch, 0));
  if (first.size() == 1) return std::string(static_cast<size_t>(n), first[0]);
  std::string r;
  r.reserve(first.size() * static_cast<size_t>(n));
  for (int32_t i = 0; i < n; ++i) r.append(first);
  return r;
}

std::string String(int32_t n, int32_t code) {
  if (code < 0) invalidCall();
  return String(n, Chr(code % 256));
}

int32_t StrComp(std::string_view a, std::string_view b, CompareMethod compare) {
  int c;
  if (compare == CompareMethod::Text)
    c = folded(a).compare(folded(b));
  else
    c = a.compare(b);  // UTF-8 byte order is code point order
  return c < 0 ? -1 : c > 0 ? 1 : 0;
}

std::vector<std::string> Split(std::string_view expr, std::string_view delimiter, int32_t limit,
                               CompareMethod compare) {
  if (limit < -1) invalidCall();
  std::vector<std::string> parts;
  if (expr.empty() || limit == 0) return parts;
  if (delimiter.empty() || limit == 1) {
    parts.emplace_back(expr);
    return parts;
  }
  Search q(expr, delimiter, compare);
  size_t pos = 0;
  while (limit < 0 || static_cast<int32_t>(parts.size()) < limit - 1) {
    size_t p = findFrom(q.hay, q.needle, pos, q.aligned);
    if (p == std::string_view::npos) break;
    parts.emplace_back(expr.substr(pos, p - pos));
    pos = p + delimiter.size();
  }
  parts.emplace_back(expr.substr(pos));
  return parts;
}

std::string Join(const std::vector<std::string>& parts, std::string_view delimiter) {
  std::string r;
  for (size_t i = 0; i < parts.size(); ++i) {
    if (i) r.append(delimiter);
    r.append(parts[i]);
  }
  return r;
}

namespace {
std::string inBase(uint32_t v, unsigned base) {
  if (v == 0) return "0";
  std::string r;
  for (; v; v /= base) r.insert(r.begin(), "0123456789ABCDEF"[v % base]);
  return r;
}
}  // namespace

std::string Hex(int32_t value) { return inBase(static_cast<uint32_t>(value), 16); }
std::string Hex(int16_t value) { return inBase(static_cast<uint16_t>(value), 16); }
std::string Oct(int32_t value) { return inBase(static_cast<uint32_t>(value), 8); }
std::string Oct(int16_t value) { return inBase(static_cast<uint16_t>(value), 8); }

}  // namespace corvane

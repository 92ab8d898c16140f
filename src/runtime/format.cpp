// SPDX-License-Identifier: MIT
#include <corvane/runtime/format.h>

#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

#include <corvane/runtime/val.h>

namespace corvane {

namespace {

// |v| as decimal digits: value = 0.digits x 10^exp; empty digits for zero.
struct Decimal {
  std::string digits;
  int exp = 0;
};

Decimal toDecimal(double v, int significant) {
  Decimal d;
  v = std::fabs(v);
  if (v == 0 || !std::isfinite(v)) return d;
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::scientific, significant - 1);
  std::string_view s(buf, r.ptr - buf);
  size_t e = s.find('e');
  for (char c : s.substr(0, e))
    if (c != '.') d.digits += c;
  int x = 0;
  std::from_chars(s.data() + e + (s[e + 1] == '+' ? 2 : 1), s.data() + s.size(), x);
  d.exp = x + 1;
  while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
  return d;
}

// Rounds half away from zero to `decimals` places after the point.
void roundTo(Decimal& d, int decimals) {
  long keep = static_cast<long>(d.exp) + decimals;
  if (keep < 0) {
    d.digits.clear();
    return;
  }
  if (keep >= static_cast<long>(d.digits.size())) return;
  bool up = d.digits[keep] >= '5';
  d.digits.resize(keep);
  if (up) {
    long i = keep - 1;
    for (; i >= 0 && d.digits[i] == '9'; --i) d.digits[i] = '0';
    if (i >= 0) {
      ++d.digits[i];
    } else {
      d.digits.insert(d.digits.begin(), '1');
      ++d.exp;
    }
  }
  while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
}

std::string integerDigits(const Decimal& d) {
  std::string s;
  for (int i = 0; i < d.exp; ++i) s += i < static_cast<int>(d.digits.size()) ? d.digits[i] : '0';
  return s;
}

std::string fractionDigits(const Decimal& d, int decimals) {
  std::string s;
  for (int j = 0; j < decimals; ++j) {
    long idx = static_cast<long>(d.exp) + j;
    s += idx >= 0 && idx < static_cast<long>(d.digits.size()) ? d.digits[idx] : '0';
  }
  return s;
}

enum class Tok { Zero, Hash, Point, Literal };

struct Token {
  Tok kind;
  std::string text;  // for literals
};

struct Section {
  std::vector<Token> tokens;
  bool thousands = false;
  int percent = 0;
};

std::vector<std::string_view> splitSections(std::string_view pattern) {
  std::vector<std::string_view> sections;
  size_t begin = 0;
  bool quoted = false;
  for (size_t i = 0; i < pattern.size(); ++i) {
    char c = pattern[i];
    if (c == '"')
      quoted = !quoted;
    else if (!quoted && c == '\\')
      ++i;
    else if (!quoted && c == ';') {
      sections.push_back(pattern.substr(begin, i - begin));
      begin = i + 1;
    }
  }
  sections.push_back(pattern.substr(begin));
  return sections;
}

Section parseSection(std::string_view p) {
  Section s;
  bool seenPoint = false, seenDigit = false;
  auto literal = [&](std::string_view text) {
    if (!s.tokens.empty() && s.tokens.back().kind == Tok::Literal)
      s.tokens.back().text += text;
    else
      s.tokens.push_back({Tok::Literal, std::string(text)});
  };
  for (size_t i = 0; i < p.size(); ++i) {
    char c = p[i];
    switch (c) {
      case '0':
        s.tokens.push_back({Tok::Zero, {}});
        seenDigit = true;
        break;
      case '#':
        s.tokens.push_back({Tok::Hash, {}});
        seenDigit = true;
        break;
      case '.':
        if (seenPoint)
          literal(".");
        else
          s.tokens.push_back({Tok::Point, {}}), seenPoint = true;
        break;
      case ',':
        // Groups thousands when it stands among the integer digits; elsewhere it is ignored.
        if (seenDigit && !seenPoint) s.thousands = true;
        break;
      case '%':
        ++s.percent;
        literal("%");
        break;
      case '"': {
        size_t end = p.find('"', i + 1);
        if (end == std::string_view::npos) end = p.size();
        literal(p.substr(i + 1, end - i - 1));
        i = end;
        break;
      }
      case '\\':
        if (i + 1 < p.size()) literal(p.substr(++i, 1));
        break;
      default:
        literal(p.substr(i, 1));
        break;
    }
  }
  return s;
}

std::string grouped(const std::string& digits) {
  std::string r;
  size_t n = digits.size();
  for (size_t i = 0; i < n; ++i) {
    if (i && (n - i) % 3 == 0) r += ',';
    r += digits[i];
  }
  return r;
}

std::string formatNumber(double value, std::string_view pattern, int significant) {
  auto sections = splitSections(pattern);
  std::string_view chosen = sections[0];
  bool showSign = value < 0;
  if (value < 0 && sections.size() >= 2 && !sections[1].empty()) {
    chosen = sections[1];
    showSign = false;
  } else if (value == 0 && sections.size() >= 3 && !sections[2].empty()) {
    chosen = sections[2];
  }
  Section sec = parseSection(chosen);

  // Placeholders before and after the point.
  int intCount = 0, decimals = 0, firstZero = -1, lastDecimalZero = -1;
  bool afterPoint = false, literalInside = false;
  int firstInt = -1, lastInt = -1;
  for (size_t t = 0; t < sec.tokens.size(); ++t) {
    const Token& k = sec.tokens[t];
    if (k.kind == Tok::Point)
      afterPoint = true;
    else if (k.kind == Tok::Zero || k.kind == Tok::Hash) {
      if (afterPoint) {
        if (k.kind == Tok::Zero) lastDecimalZero = decimals;
        ++decimals;
      } else {
        if (k.kind == Tok::Zero && firstZero < 0) firstZero = intCount;
        if (firstInt < 0) firstInt = static_cast<int>(t);
        lastInt = static_cast<int>(t);
        ++intCount;
      }
    }
  }
  for (int t = firstInt + 1; firstInt >= 0 && t < lastInt; ++t)
    if (sec.tokens[t].kind == Tok::Literal) literalInside = true;

  Decimal d = toDecimal(value, significant);
  if (!d.digits.empty()) d.exp += 2 * sec.percent;  // scaling in decimal keeps the digits exact; zero stays zero
  roundTo(d, decimals);

  std::string intDigits = integerDigits(d);
  int minDigits = firstZero < 0 ? 0 : intCount - firstZero;
  if (static_cast<int>(intDigits.size()) < minDigits) intDigits.insert(0, minDigits - intDigits.size(), '0');
  std::string frac = fractionDigits(d, decimals);
  // Digits behind the last "0" are shown only up to the last significant one.
  int shown = decimals;
  while (shown > lastDecimalZero + 1 && frac[shown - 1] == '0') --shown;

  std::string out;
  if (showSign) out += '-';
  int intIndex = 0, decIndex = 0;
  bool intEmitted = false, inFraction = false;
  const int extra = static_cast<int>(intDigits.size()) - intCount;  // digits beyond the placeholders
  for (const Token& k : sec.tokens) {
    switch (k.kind) {
      case Tok::Literal:
        out += k.text;
        break;
      case Tok::Point:
        if (intCount == 0) out += intDigits;  // no integer placeholder: the digits stand here
        out += '.';
        inFraction = true;
        break;
      case Tok::Zero:
      case Tok::Hash:
        if (inFraction) {
          if (decIndex < shown) out += frac[decIndex];
          ++decIndex;
        } else if (!literalInside) {
          if (!intEmitted) out += sec.thousands ? grouped(intDigits) : intDigits;
          intEmitted = true;
          ++intIndex;
        } else {
          // Right-aligned into the placeholders; surplus digits go with the first one.
          int pos = intIndex - intCount + static_cast<int>(intDigits.size());
          if (intIndex == 0 && extra > 0) out += intDigits.substr(0, extra);
          if (pos >= 0) out += intDigits[pos];
          ++intIndex;
        }
        break;
    }
  }
  return out;
}

// A text the language reads as a time of day: one or two digits and "A" or "P" ("AM", "PM"),
// hours 0 to 12. Gives the fraction of the day.
std::optional<double> timeOfDay(std::string_view s) {
  size_t i = 0, n = s.size();
  auto blanks = [&] {
    while (i < n && (s[i] == ' ' || s[i] == '\t')) ++i;
  };
  blanks();
  int hour = 0, digits = 0;
  for (; i < n && s[i] >= '0' && s[i] <= '9' && digits < 3; ++i, ++digits) hour = hour * 10 + (s[i] - '0');
  if (digits < 1 || digits > 2 || hour > 12) return std::nullopt;
  blanks();
  if (i >= n) return std::nullopt;
  char m = s[i++];
  bool pm;
  if (m == 'A' || m == 'a')
    pm = false;
  else if (m == 'P' || m == 'p')
    pm = true;
  else
    return std::nullopt;
  if (i < n && (s[i] == 'M' || s[i] == 'm')) ++i;
  blanks();
  if (i != n) return std::nullopt;
  if (hour == 12) hour = 0;
  if (pm) hour += 12;
  return hour / 24.0;
}

}  // namespace

std::string Format(const Variant& value, std::string_view pattern) {
  if (value.isNull()) return {};
  if (pattern.empty()) return value.toString();
  double number;
  int significant = 15;
  if (value.isString()) {
    const std::string text = value.toString();
    std::optional<double> v;
    try {
      v = parseNumber(text);
    } catch (const RuntimeError&) {
      // A literal too large for 32 bits is no number here either.
    }
    if (!v) v = timeOfDay(text);
    if (!v) return text;
    number = *v;
  } else {
    if (value.type() == Variant::Type::Single) significant = 7;
    number = value.toDouble();
  }
  return formatNumber(number, pattern, significant);
}

}  // namespace corvane

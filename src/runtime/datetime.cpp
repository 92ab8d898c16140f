// SPDX-License-Identifier: MIT
#include <corvane/runtime/datetime.h>

#include <ctime>

namespace corvane {

namespace {

std::string padded(int32_t v, size_t width) {
  // The magnitude in 64 bits: a field may hold the smallest 32-bit value, whose negation overflows.
  const int64_t magnitude = v < 0 ? -int64_t{v} : int64_t{v};
  std::string s = std::to_string(magnitude);
  if (s.size() < width) s.insert(0, width - s.size(), '0');
  return v < 0 ? "-" + s : s;
}

char lower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c; }

}  // namespace

DateTime Now() {
  std::time_t t = std::time(nullptr);
  std::tm tm{};
#ifdef _WIN32
  localtime_s(&tm, &t);
#else
  localtime_r(&t, &tm);  // the reentrant form; std::localtime shares one buffer
#endif
  return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

std::string FormatDate(const DateTime& v, std::string_view p) {
  std::string out;
  bool afterHour = false;  // the last token was an hour: "m" means minutes
  for (size_t i = 0; i < p.size();) {
    char c = p[i];
    if (c == '"') {
      size_t end = p.find('"', i + 1);
      if (end == std::string_view::npos) end = p.size();
      out.append(p.substr(i + 1, end - i - 1));
      i = end + 1;
      continue;
    }
    if (c == '\\') {
      if (i + 1 < p.size()) out += p[i + 1];
      i += 2;
      continue;
    }
    char l = lower(c);
    size_t run = 1;
    while (i + run < p.size() && lower(p[i + run]) == l) ++run;
    std::string_view token = p.substr(i, run);
    bool known = true;
    bool hour = false;
    switch (l) {
      case 'd':
        if (run <= 2)
          out += padded(v.day, run);
        else
          known = false;
        break;
      case 'm':
        if (run <= 2)
          out += padded(afterHour ? v.minute : v.month, run);
        else
          known = false;
        break;
      case 'y':
        if (run == 2)
          out += padded(((v.year % 100) + 100) % 100, 2);
        else if (run == 4)
          out += padded(v.year, 4);
        else
          known = false;
        break;
      case 'h':
        if (run <= 2)
          out += padded(v.hour, run), hour = true;
        else
          known = false;
        break;
      case 'n':
        if (run <= 2)
          out += padded(v.minute, run);
        else
          known = false;
        break;
      case 's':
        if (run <= 2)
          out += padded(v.second, run);
        else
          known = false;
        break;
      default:
        known = false;
        break;
    }
    if (!known) {
      out.append(token);
    } else {
      afterHour = hour;
    }
    i += run;
  }
  return out;
}

}  // namespace corvane

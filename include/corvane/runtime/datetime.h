// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include <corvane/export.h>

namespace corvane {

// A calendar date and time of day, in local time.
struct CORVANE_API DateTime {
  int32_t year = 1899, month = 12, day = 30;  // the language's day zero
  int32_t hour = 0, minute = 0, second = 0;
  bool operator==(const DateTime&) const = default;
};

// The present local date and time, to the second.
CORVANE_API DateTime Now();

// Formats a date by a pattern of the language: "d"/"dd" day, "m"/"mm" month, "yy"/"yyyy" year,
// "h"/"hh" hour (0-23), "n"/"nn" minute, "s"/"ss" second; the doubled forms have two digits.
// As in the language, "m"/"mm" straight after an hour token means minutes ("hh:mm"). Letters
// are matched without regard to case. Text in double quotes and a character behind "\" are
// copied; so is every other character, including letter runs the list does not name.
CORVANE_API std::string FormatDate(const DateTime& value, std::string_view pattern);

}  // namespace corvane

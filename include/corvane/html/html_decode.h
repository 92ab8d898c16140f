// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <cstdint>
#include <string>
#include <string_view>

// Values of the HTML view's sources: text with numeric references, and colours.
namespace corvane::html {

// Text with each "&#digits" that has a ";" somewhere behind it replaced by the character of that
// single-byte code (Windows-1252); the character after the digits is dropped. A number that
// needs four digits or more, or a code above 255, gives nothing. Then CR-LF, LF and tab each
// become one blank; a lone CR stays.
CORVANE_API std::string mDecodeText(std::string_view value);

// The colour of one of the sixteen colour names (compared in lower case); black for any other.
CORVANE_API int32_t mColorFromName(std::string_view name);

// Red, green and blue from the first, middle and last two characters, each read as hexadecimal;
// a pair that is missing or short gives what the characters there yield.
CORVANE_API int32_t colorFromHexDigits(std::string_view digits);

// A colour attribute (BGCOLOR, COLOR, TEXT): "#" removed, then hexadecimal digits when "&H"
// plus the value is a number, otherwise a colour name.
CORVANE_API int32_t colorFromAttribute(std::string_view value);

}  // namespace corvane::html

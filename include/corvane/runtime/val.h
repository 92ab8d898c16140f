// SPDX-License-Identifier: MIT
#pragma once
#include <optional>
#include <string_view>

#include <corvane/export.h>

// Reading numbers from text the way the language does.
namespace corvane {

// Val: the number at the start of a text, 0 when none stands there. Blanks, tabs and line feeds
// are skipped wherever they are ("1 2 3" reads 123). A decimal number is an optional sign,
// digits with at most one decimal point and an optional exponent (E or D). "&H" and "&O" start
// a hexadecimal or octal number. The number of digits decides its width: one to four
// hexadecimal digits form a signed 16-bit number (&HFFFF is -1, &H8000 is -32768), five or more a
// signed 32-bit one (&H0FFFF is 65535, &HFFFFFFFF is -1). One to six octal digits form a signed
// 16-bit number while the value fits 16 bits (&O177777 is -1), otherwise, and with seven or more
// digits, a signed 32-bit one (&O200000 is 65536, &O0177777 is 65535). A trailing "&" makes it
// 32-bit always (&HFFFF& is 65535). More than 32 bits, or a decimal number beyond the range of a
// double, is error 6; leading zeros beyond eight hexadecimal digits are allowed. A sign does not combine with "&H": "-&H1" reads 0, since a sign starts a
// decimal number and "&" is no digit of one.
CORVANE_API double Val(std::string_view text);

// The whole text, blanks and tabs at its ends aside, as a number: a decimal number (exponent
// with E) or an "&H"/"&O" literal. Empty when the text is something else. A literal beyond 32
// bits is error 6, as its conversion would be.
CORVANE_API std::optional<double> parseNumber(std::string_view text);

// IsNumeric for a text: parseNumber would give a number (and no error).
CORVANE_API bool IsNumeric(std::string_view text);

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <corvane/export.h>

// The language's string functions over UTF-8 text. Positions and lengths count characters (code
// points), 1-based where the language is; a UTF-8 sequence is never cut. Invalid arguments raise
// RuntimeError 5, as the language does.
namespace corvane {

// Binary compares code points as they are; Text ignores the case of ASCII and Latin letters.
enum class CompareMethod { Binary = 0, Text = 1 };

CORVANE_API int32_t Len(std::string_view s);

// Mid(s, start): from character `start` to the end. start < 1 or length < 0 is error 5; a start
// past the end gives "".
CORVANE_API std::string Mid(std::string_view s, int32_t start);
CORVANE_API std::string Mid(std::string_view s, int32_t start, int32_t length);
CORVANE_API std::string Left(std::string_view s, int32_t length);
CORVANE_API std::string Right(std::string_view s, int32_t length);

// InStr: 1-based position of `find` in `s` at or after `start`, 0 when absent. start < 1 is
// error 5. An empty `find` gives `start` while start <= Len(s) + 1; an empty `s` gives 0.
CORVANE_API int32_t InStr(std::string_view s, std::string_view find);
CORVANE_API int32_t InStr(int32_t start, std::string_view s, std::string_view find,
              CompareMethod compare = CompareMethod::Binary);

// InStrRev: position of the last `find` that ends at or before character `start` (-1: the end).
// start 0 or below -1 is error 5; start past the end gives 0; an empty `find` gives start.
CORVANE_API int32_t InStrRev(std::string_view s, std::string_view find, int32_t start = -1,
                 CompareMethod compare = CompareMethod::Binary);

// Replace: the text from character `start` on (the part before it is dropped, as the language
// does), with at most `count` (-1: all) occurrences of `find` replaced, left to right and
// without overlap. start < 1 or count < -1 is error 5. An empty `find` or a count of 0 leaves
// the text unchanged.
CORVANE_API std::string Replace(std::string_view expr, std::string_view find, std::string_view replaceWith,
                    int32_t start = 1, int32_t count = -1, CompareMethod compare = CompareMethod::Binary);

// Blank removal: the space character only, never tabs or other white space.
CORVANE_API std::string Trim(std::string_view s);
CORVANE_API std::string LTrim(std::string_view s);
CORVANE_API std::string RTrim(std::string_view s);

// Case mapping of ASCII and the letters of Windows-1252 (Latin-1 plus Š, Œ, Ž, Ÿ); other
// characters, ß and µ among them, stay as they are.
CORVANE_API std::string UCase(std::string_view s);
CORVANE_API std::string LCase(std::string_view s);

// Space(n) and String(n, ch): n blanks, or n times the first character of `ch` (or the
// character of a Windows-1252 code; codes above 255 are taken modulo 256). n < 0, an empty
// `ch` or a negative code is error 5.
CORVANE_API std::string Space(int32_t n);
CORVANE_API std::string String(int32_t n, std::string_view ch);
CORVANE_API std::string String(int32_t n, int32_t code);

// StrComp: -1, 0 or 1 as a sorts before, equal to or after b.
CORVANE_API int32_t StrComp(std::string_view a, std::string_view b, CompareMethod compare = CompareMethod::Binary);

// Split: the pieces between delimiters, 0-based. An empty expression gives no piece, an empty
// delimiter the whole expression as one piece; `limit` > 0 caps the number of pieces (the last
// keeps the rest), 0 gives none, below -1 is error 5.
CORVANE_API std::vector<std::string> Split(std::string_view expr, std::string_view delimiter = " ", int32_t limit = -1,
                               CompareMethod compare = CompareMethod::Binary);
CORVANE_API std::string Join(const std::vector<std::string>& parts, std::string_view delimiter = " ");

// Hex and Oct: upper-case hexadecimal or octal text of an integer; a negative Integer shows its
// 16-bit pattern (Hex(-1 as Integer) = "FFFF"), a negative Long its 32-bit one.
CORVANE_API std::string Hex(int32_t value);
CORVANE_API std::string Hex(int16_t value);
CORVANE_API std::string Oct(int32_t value);
CORVANE_API std::string Oct(int16_t value);

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include <corvane/export.h>

// Character codes of the language. A character code (Chr, Asc, a byte per character) is a
// Windows-1252 code; strings themselves are UTF-8.
namespace corvane {

// The Unicode code point of a Windows-1252 byte. The five codes the code page leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) map to the C1 control of the same number.
CORVANE_API char32_t win1252ToUnicode(uint8_t code);

// The Windows-1252 code of a code point, or -1 when the code page has no such character.
CORVANE_API int32_t unicodeToWin1252(char32_t cp);

// Chr: the character of a Windows-1252 code 0..255, as UTF-8; other codes are error 5.
CORVANE_API std::string Chr(int32_t code);
// Asc: the Windows-1252 code of the first character; empty text is error 5, a character the
// code page lacks gives 63 ('?').
CORVANE_API int32_t Asc(std::string_view s);

// ChrW: the character of a code point. -32768..-1 stand for 32768..65535 (a 16-bit code read
// as signed); surrogates, values past U+10FFFF and below -32768 are error 5.
CORVANE_API std::string ChrW(int32_t code);
// AscW: the code point of the first character; empty text is error 5.
CORVANE_API int32_t AscW(std::string_view s);

// Whole strings: UTF-8 to Windows-1252 bytes (missing characters become '?') and back.
CORVANE_API std::string toAnsi(std::string_view utf8);
CORVANE_API std::string fromAnsi(std::string_view ansi);

}  // namespace corvane

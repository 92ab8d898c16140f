// SPDX-License-Identifier: MIT
#pragma once
#include <string>
#include <string_view>

#include <corvane/export.h>
#include <corvane/runtime/variant.h>

// Format: the language's formatting of a value by a pattern.
namespace corvane {

// Numeric patterns: "0" a digit that is always shown, "#" a digit shown only when significant,
// "." the decimal point, "," between integer digits groups thousands, "%" multiplies by 100 and
// shows itself; text in double quotes, a character behind "\" and any other character is copied.
// Up to three sections separated by ";" serve positive, negative and zero values; the negative
// section shows no sign of its own. Rounding is half away from zero on the value's 15 significant
// digits (7 for a Single), as the language's Format does (unlike CInt, which rounds ties to
// even). A negative value that rounds to zero keeps its sign ("-0"), as the language's Format
// does. The separators are always "." and ",", whatever the process locale.
//
// The value: a number or Boolean (-1) is formatted as a number, Empty as 0. A text that reads as
// a number is that number. A text of one or two digits and "A" or "P" (optionally "AM"/"PM") is
// read as a time of day, as the language reads it, and formatted as its fraction of a day: so
// Format("1A", "00") is "00". Any other text comes back unchanged (Format("FF", "00") is "FF").
//
// The empty pattern gives the text of the value, as CStr does (Empty and Null give "").
// Scientific and date patterns are not supported by this function: see FormatDate.
CORVANE_API std::string Format(const Variant& value, std::string_view pattern = {});

}  // namespace corvane

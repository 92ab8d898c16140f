// SPDX-License-Identifier: MIT
// Val, IsNumeric, Format and FormatDate. The input is a text, a zero byte and a pattern; the
// first 24 bytes also give the fields of a date. A run-time error is a defined answer.
#include <corvane/runtime/datetime.h>
#include <corvane/runtime/format.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/val.h>
#include <corvane/runtime/variant.h>

#include <string>

#include "fuzz_input.h"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string all(reinterpret_cast<const char*>(data), size);
  const size_t split = all.find('\0');
  const std::string text = all.substr(0, split);
  const std::string pattern = split == std::string::npos ? std::string() : all.substr(split + 1);

  double value = 0;
  try {
    value = Val(text);
  } catch (const RuntimeError&) {
  }
  try {
    (void)parseNumber(text);
  } catch (const RuntimeError&) {
  }
  (void)IsNumeric(text);
  try {
    (void)Format(Variant(text), pattern);
  } catch (const RuntimeError&) {
  }
  try {
    (void)Format(Variant(value), pattern);
  } catch (const RuntimeError&) {
  }

  fuzz::FuzzInput in(data, size);
  DateTime date;
  for (int32_t* field : {&date.year, &date.month, &date.day, &date.hour, &date.minute, &date.second})
    *field = in.number<int32_t>();
  (void)FormatDate(date, pattern);
  return 0;
}

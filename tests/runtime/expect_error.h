// SPDX-License-Identifier: MIT
#pragma once
#include <gtest/gtest.h>

#include <corvane/runtime/runtime_error.h>

namespace corvane::test {

// The number of the RuntimeError a statement raises, 0 when it raises none.
template <class F>
int32_t errorNumberOf(F&& statement) {
  try {
    statement();
  } catch (const RuntimeError& e) {
    return e.number();
  }
  return 0;
}

}  // namespace corvane::test

#define EXPECT_RUNTIME_ERROR(statement, number) \
  EXPECT_EQ(::corvane::test::errorNumberOf([&] { (void)(statement); }), (number))

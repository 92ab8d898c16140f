// SPDX-License-Identifier: MIT
#include <corvane/runtime/runtime_error.h>

#include <gtest/gtest.h>

#include <string>

using namespace corvane;

TEST(RuntimeError, CarriesNumberDescriptionAndSource) {
  RuntimeError e(380, "Cannot set Font to Nothing", "VexFrame");
  EXPECT_EQ(e.number(), 380);
  EXPECT_EQ(e.description(), "Cannot set Font to Nothing");
  EXPECT_EQ(e.source(), "VexFrame");
  EXPECT_EQ(std::string(e.what()), "Run-time error 380: Cannot set Font to Nothing");
}

TEST(RuntimeError, StandardDescriptionWhenNoneIsGiven) {
  EXPECT_EQ(RuntimeError(err::Overflow).description(), "Overflow");
  EXPECT_EQ(RuntimeError(err::SubscriptOutOfRange).description(), "Subscript out of range");
  EXPECT_EQ(RuntimeError(err::TypeMismatch).description(), "Type mismatch");
  EXPECT_EQ(RuntimeError(err::DivisionByZero).description(), "Division by zero");
  EXPECT_EQ(RuntimeError(err::InvalidProcedureCall).description(), "Invalid procedure call or argument");
  EXPECT_EQ(RuntimeError(err::InvalidUseOfNull).description(), "Invalid use of Null");
  EXPECT_EQ(RuntimeError(err::CannotCreateObject).description(), "ActiveX component can't create object");
  EXPECT_EQ(RuntimeError(13081).description(), "Application-defined or object-defined error");
  EXPECT_EQ(std::string(RuntimeError(6).what()), "Run-time error 6: Overflow");
  EXPECT_EQ(RuntimeError(6).source(), "");
}

TEST(RuntimeError, IsAStandardException) {
  try {
    throw RuntimeError(err::Overflow);
  } catch (const std::exception& e) {
    EXPECT_EQ(std::string(e.what()), "Run-time error 6: Overflow");
  }
}

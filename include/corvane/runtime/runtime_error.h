// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <stdexcept>
#include <string>

#include <corvane/export.h>

namespace corvane {

// The run-time error numbers the library raises or passes on.
namespace err {
constexpr int32_t InvalidProcedureCall = 5;
constexpr int32_t Overflow = 6;
constexpr int32_t OutOfMemory = 7;
constexpr int32_t SubscriptOutOfRange = 9;
constexpr int32_t DivisionByZero = 11;
constexpr int32_t TypeMismatch = 13;
constexpr int32_t CancelError = 18;
constexpr int32_t InternalError = 51;
constexpr int32_t ObjectNotSet = 91;
constexpr int32_t InvalidUseOfNull = 94;
constexpr int32_t InvalidPropertyValue = 380;
constexpr int32_t CannotCreateObject = 429;
constexpr int32_t MemberNotFound = 438;
}  // namespace err

// A numbered run-time error with description and source, as a host sees it.
class CORVANE_API RuntimeError : public std::runtime_error {
 public:
  RuntimeError(int32_t number, std::string description = {}, std::string source = {});

  int32_t number() const { return m_number; }
  const std::string& description() const { return m_description; }
  const std::string& source() const { return m_source; }

  // The platform's standard text for a number ("Overflow", "Subscript out of range" ...).
  static std::string standardDescription(int32_t number);

 private:
  int32_t m_number;
  std::string m_description;
  std::string m_source;
};

}  // namespace corvane

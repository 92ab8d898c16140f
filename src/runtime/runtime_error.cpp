// SPDX-License-Identifier: MIT
#include <corvane/runtime/runtime_error.h>

namespace corvane {

namespace {
std::string composeMessage(int32_t number, const std::string& description) {
  return "Run-time error " + std::to_string(number) + ": " + description;
}
}  // namespace

RuntimeError::RuntimeError(int32_t number, std::string description, std::string source)
    : std::runtime_error(composeMessage(number, description.empty() ? standardDescription(number) : description)),
      m_number(number),
      m_description(description.empty() ? standardDescription(number) : std::move(description)),
      m_source(std::move(source)) {}

std::string RuntimeError::standardDescription(int32_t number) {
  switch (number) {
    case err::InvalidProcedureCall: return "Invalid procedure call or argument";
    case err::Overflow: return "Overflow";
    case err::OutOfMemory: return "Out of memory";
    case err::SubscriptOutOfRange: return "Subscript out of range";
    case err::DivisionByZero: return "Division by zero";
    case err::TypeMismatch: return "Type mismatch";
    case err::CancelError: return "User interrupt occurred";
    case err::InternalError: return "Internal error";
    case err::ObjectNotSet: return "Object variable or With block variable not set";
    case err::InvalidUseOfNull: return "Invalid use of Null";
    case err::InvalidPropertyValue: return "Invalid property value";
    case err::CannotCreateObject: return "ActiveX component can't create object";
    case err::MemberNotFound: return "Object doesn't support this property or method";
    default: return "Application-defined or object-defined error";
  }
}

}  // namespace corvane

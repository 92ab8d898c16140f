// SPDX-License-Identifier: MIT
#include <corvane/runtime/guard.h>

namespace corvane {

void StatementGuard::record(const RuntimeError& e) {
  ++m_failures;
  m_lastError = e;
}

int32_t StatementGuard::lastErrorNumber() const { return m_lastError ? m_lastError->number() : 0; }

void StatementGuard::clear() {
  m_failures = 0;
  m_lastError.reset();
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/platform/message_memory.h>

#include <cstring>
#include <map>

namespace corvane {

namespace {

struct Record {
  void* data;
  size_t size;
};

// Lent records by number. Numbers count up from 1, so a stale number does not reach a later
// record until the count wraps.
std::map<LPARAM, Record>& loans() {
  static std::map<LPARAM, Record> table;
  return table;
}
LPARAM s_next = 0;

const Record* recordOf(LPARAM address, size_t bytes) {
  auto it = loans().find(address);
  return it != loans().end() && bytes <= it->second.size ? &it->second : nullptr;
}

}  // namespace

MessageMemoryLoan::MessageMemoryLoan(void* record, size_t size) {
  s_next = s_next == INT32_MAX ? 1 : s_next + 1;
  m_address = s_next;
  loans()[m_address] = Record{record, size};
}

MessageMemoryLoan::~MessageMemoryLoan() { loans().erase(m_address); }

bool copyFromMessage(void* destination, LPARAM source, size_t bytes) {
  const Record* r = recordOf(source, bytes);
  if (!r) return false;
  std::memcpy(destination, r->data, bytes);
  return true;
}

bool copyToMessage(LPARAM destination, const void* source, size_t bytes) {
  const Record* r = recordOf(destination, bytes);
  if (!r) return false;
  std::memcpy(r->data, source, bytes);
  return true;
}

}  // namespace corvane

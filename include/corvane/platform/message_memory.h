// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/platform/types.h>

#include <cstddef>
#include <cstdint>

// Records that a message's lParam points at. Message parameters are 32-bit numbers, so the
// sender lends its record under a number for the time of the call, and a window procedure copies
// the bytes in and out through that number; a number that names no record, or a copy beyond the
// record's end, copies nothing.
namespace corvane {

// The sizes and positions a window may take, in pixels, as WM_GETMINMAXINFO asks for them.
struct CORVANE_API MINMAXINFO {
  POINTAPI ptReserved;
  POINTAPI ptMaxSize;
  POINTAPI ptMaxPosition;
  POINTAPI ptMinTrackSize;
  POINTAPI ptMaxTrackSize;
};
static_assert(sizeof(MINMAXINFO) == 40, "MINMAXINFO is five points of two 32-bit integers");

// Lends a record under a number for as long as the loan lives.
class CORVANE_API MessageMemoryLoan {
 public:
  MessageMemoryLoan(void* record, size_t size);
  ~MessageMemoryLoan();
  MessageMemoryLoan(const MessageMemoryLoan&) = delete;
  MessageMemoryLoan& operator=(const MessageMemoryLoan&) = delete;
  LPARAM address() const { return m_address; }

 private:
  LPARAM m_address;
};

// Copies bytes from a lent record; false (and nothing copied) when it is no record of that size.
CORVANE_API bool copyFromMessage(void* destination, LPARAM source, size_t bytes);
// Copies bytes into a lent record; false (and nothing copied) when it is no record of that size.
CORVANE_API bool copyToMessage(LPARAM destination, const void* source, size_t bytes);

}  // namespace corvane

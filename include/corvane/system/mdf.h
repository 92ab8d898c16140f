// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>
#include <corvane/runtime/vb_array.h>

#include <cstdint>
#include <string>

namespace corvane {

// An MD5 digest of a text or a file, as 32 lower-case hexadecimal digits. The block transform is
// the standard one; the padding and the reading of files are the class's own and are kept as they
// are, because its digests are compared with earlier digests of the same class:
// - a count of 56 bytes modulo 64 gets no padding at all, only the length;
// - for a count above 56 modulo 64 the pad is 120 minus the whole count, which is standard only
//   below 64 bytes and otherwise short, empty or negative;
// - a file whose length is a multiple of 64 loses its last block.
// Files are read through a handle of each call, so objects may digest files at the same time.
class CORVANE_API cMDF : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "cMDF"; }

  // The state words as signed decimal text.
  std::string RegisterA() const;
  std::string RegisterB() const;
  std::string RegisterC() const;
  std::string RegisterD() const;

  // A missing or unreadable file is error 53; a file of 2 GiB or more overflows the 32-bit byte
  // counter (error 6).
  std::string DigestFileToHexStr(const std::string& FileName);
  // One byte per character: its Windows-1252 code ('?' for a character the code page lacks).
  std::string DigestStrToHexStr(const std::string& SourceString);
  // A, B, C, D, each from its low byte to its high byte.
  std::string GetValues() const;

  void MD5Init();
  void MD5Final();
  // Adds the first InputLen bytes of InputBuffer, from its lower bound on. More bytes than the
  // array holds, or bytes after the counter was lowered below zero, are error 9 and change
  // nothing. A negative InputLen only lowers the counter.
  void MD5Update(int32_t InputLen, const VbArray<uint8_t>& InputBuffer);
  // value rotated left by bits, taken modulo 32.
  static int32_t LongLeftRotate(int32_t value, int32_t bits);

  int32_t ByteCounter() const { return m_ByteCounter; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  void update(const uint8_t* input, int32_t length);

  uint32_t m_A = 0, m_B = 0, m_C = 0, m_D = 0;  // read as signed where the interface shows them
  int32_t m_ByteCounter = 0;
  uint8_t m_block[64] = {};
};

}  // namespace corvane

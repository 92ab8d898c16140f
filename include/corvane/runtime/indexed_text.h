// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <corvane/export.h>
#include <corvane/runtime/strings.h>

namespace corvane {

// A text with its character positions indexed once, for loops that walk a long text by
// position (Mid(s, i, 1), InStr(i, s, ...)): each lookup is then O(1) instead of a walk from the
// start. The results and errors are those of the free functions of the same names.
class CORVANE_API IndexedText {
 public:
  IndexedText() = default;
  explicit IndexedText(std::string text);

  const std::string& str() const { return m_text; }
  int32_t Len() const { return m_length; }

  std::string Mid(int32_t start) const;
  std::string Mid(int32_t start, int32_t length) const;
  // Like Mid, as a view into the text (valid while this object lives unchanged).
  std::string_view midView(int32_t start, int32_t length) const;
  int32_t InStr(int32_t start, std::string_view find, CompareMethod compare = CompareMethod::Binary) const;

  // Byte offset of character `index` (1-based); Len() + 1 and beyond give the text's size.
  size_t byteOffset(int32_t index) const;
  // The 1-based character that holds byte `offset`; the size gives Len() + 1.
  int32_t charIndex(size_t offset) const;

 private:
  std::string m_text;
  int32_t m_length = 0;
  std::vector<uint32_t> m_offsets;  // byte offset per character; empty for ASCII text
};

}  // namespace corvane

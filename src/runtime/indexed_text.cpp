// SPDX-License-Identifier: MIT
#include <corvane/runtime/indexed_text.h>

#include <algorithm>

#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/utf8.h>

namespace corvane {

IndexedText::IndexedText(std::string text) : m_text(std::move(text)) {
  if (utf8::isAscii(m_text)) {
    m_length = static_cast<int32_t>(m_text.size());
    return;
  }
  m_offsets.reserve(m_text.size());
  for (size_t i = 0; i < m_text.size(); i += utf8::charSize(m_text, i))
    m_offsets.push_back(static_cast<uint32_t>(i));
  m_length = static_cast<int32_t>(m_offsets.size());
}

size_t IndexedText::byteOffset(int32_t index) const {
  if (index < 1) throw RuntimeError(err::InvalidProcedureCall);
  if (index > m_length) return m_text.size();
  return m_offsets.empty() ? static_cast<size_t>(index - 1) : m_offsets[index - 1];
}

int32_t IndexedText::charIndex(size_t offset) const {
  if (offset >= m_text.size()) return m_length + 1;
  if (m_offsets.empty()) return static_cast<int32_t>(offset) + 1;
  auto it = std::upper_bound(m_offsets.begin(), m_offsets.end(), static_cast<uint32_t>(offset));
  return static_cast<int32_t>(it - m_offsets.begin());
}

std::string_view IndexedText::midView(int32_t start, int32_t length) const {
  if (start < 1 || length < 0) throw RuntimeError(err::InvalidProcedureCall);
  size_t b = byteOffset(start);
  int64_t endIndex = static_cast<int64_t>(start) + length;
  size_t e = endIndex > m_length ? m_text.size() : byteOffset(static_cast<int32_t>(endIndex));
  return std::string_view(m_text).substr(b, e - b);
}

std::string IndexedText::Mid(int32_t start, int32_t length) const {
  return std::string(midView(start, length));
}

std::string IndexedText::Mid(int32_t start) const {
  if (start < 1) throw RuntimeError(err::InvalidProcedureCall);
  return m_text.substr(byteOffset(start));
}

int32_t IndexedText::InStr(int32_t start, std::string_view find, CompareMethod compare) const {
  if (start < 1) throw RuntimeError(err::InvalidProcedureCall);
  if (m_text.empty() || start > m_length + 1) return 0;
  if (find.empty()) return start;
  if (compare == CompareMethod::Binary && utf8::isAscii(find)) {
    // An ASCII needle matches on character boundaries only: search the bytes directly.
    size_t p = m_text.find(find, byteOffset(start));
    return p == std::string::npos ? 0 : charIndex(p);
  }
  // Rare forms: the general function on the rest of the text.
  size_t from = byteOffset(start);
  int32_t r = corvane::InStr(1, std::string_view(m_text).substr(from), find, compare);
  return r ? r + start - 1 : 0;
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <memory>
#include <string>

#include <corvane/export.h>
#include <corvane/platform/types.h>
#include <corvane/runtime/object.h>

namespace corvane {

// A font object, shared by reference: controls that hold the same font see each other's changes.
class CORVANE_API StdFont : public Object {
 public:
  StdFont() = default;
  explicit StdFont(const FontSpec& desc) : m_desc(desc) {}
  static std::shared_ptr<StdFont> create(const FontSpec& desc = {}) { return std::make_shared<StdFont>(desc); }
  std::shared_ptr<StdFont> clone() const { return create(m_desc); }

  std::string typeName() const override { return "StdFont"; }

  const std::string& Name() const { return m_desc.name; }
  void setName(const std::string& v) { m_desc.name = v; }
  double Size() const { return m_desc.size; }
  void setSize(double v) { m_desc.size = v; }
  bool Bold() const { return m_desc.bold; }
  void setBold(bool v) { m_desc.bold = v; }
  bool Italic() const { return m_desc.italic; }
  void setItalic(bool v) { m_desc.italic = v; }
  bool Underline() const { return m_desc.underline; }
  void setUnderline(bool v) { m_desc.underline = v; }
  bool Strikethrough() const { return m_desc.strikethrough; }
  void setStrikethrough(bool v) { m_desc.strikethrough = v; }

  const FontSpec& desc() const { return m_desc; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  FontSpec m_desc;
};

using FontRef = std::shared_ptr<StdFont>;

}  // namespace corvane

#pragma once
#include <memory>
#include <string>

#include "platform/types.h"
#include "runtime/object.h"

namespace corvane {

// A font object, shared by reference: controls that hold the same font see each other's changes.
class StdFont : public Object {
 public:
  StdFont() = default;
  explicit StdFont(const FontSpec& spec) : m_spec(spec) {}
  static std::shared_ptr<StdFont> create(const FontSpec& spec = {}) { return std::make_shared<StdFont>(spec); }
  std::shared_ptr<StdFont> clone() const { return create(m_spec); }

  std::string typeName() const override { return "StdFont"; }

  const std::string& Name() const { return m_spec.name; }
  void setName(const std::string& v) { m_spec.name = v; }
  double Size() const { return m_spec.size; }
  void setSize(double v) { m_spec.size = v; }
  bool Bold() const { return m_spec.bold; }
  void setBold(bool v) { m_spec.bold = v; }
  bool Italic() const { return m_spec.italic; }
  void setItalic(bool v) { m_spec.italic = v; }
  bool Underline() const { return m_spec.underline; }
  void setUnderline(bool v) { m_spec.underline = v; }
  bool Strikethrough() const { return m_spec.strikethrough; }
  void setStrikethrough(bool v) { m_spec.strikethrough = v; }

  const FontSpec& spec() const { return m_spec; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  FontSpec m_spec;
};

using FontRef = std::shared_ptr<StdFont>;

}  // namespace corvane

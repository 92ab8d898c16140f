// SPDX-License-Identifier: MIT
#pragma once
#include <memory>
#include <string>

#include <corvane/export.h>
#include <corvane/platform/types.h>
#include <corvane/runtime/event.h>
#include <corvane/runtime/object.h>

namespace corvane {

// A font object, shared by reference: controls that hold the same font see each other's changes.
// A holder that has to act on a change listens to FontChanged, which names the property set.
class CORVANE_API StdFont : public Object {
 public:
  StdFont() = default;
  explicit StdFont(const FontSpec& desc) : m_desc(desc) {}
  static std::shared_ptr<StdFont> create(const FontSpec& desc = {}) { return std::make_shared<StdFont>(desc); }
  std::shared_ptr<StdFont> clone() const { return create(m_desc); }

  std::string typeName() const override { return "StdFont"; }

  const std::string& Name() const { return m_desc.name; }
  void setName(const std::string& v) { assign(m_desc.name, v, "Name"); }
  double Size() const { return m_desc.size; }
  void setSize(double v) { assign(m_desc.size, v, "Size"); }
  bool Bold() const { return m_desc.bold; }
  void setBold(bool v) { assign(m_desc.bold, v, "Bold"); }
  bool Italic() const { return m_desc.italic; }
  void setItalic(bool v) { assign(m_desc.italic, v, "Italic"); }
  bool Underline() const { return m_desc.underline; }
  void setUnderline(bool v) { assign(m_desc.underline, v, "Underline"); }
  bool Strikethrough() const { return m_desc.strikethrough; }
  void setStrikethrough(bool v) { assign(m_desc.strikethrough, v, "Strikethrough"); }

  const FontSpec& desc() const { return m_desc; }

  // Raised after every property set, with the property's name; a clone starts without listeners.
  Event<const std::string&> FontChanged;

 protected:
  const Dispatch* dispatch() const override;

 private:
  template <class T>
  void assign(T& field, const T& value, const char* property) {
    field = value;
    FontChanged(std::string(property));
  }

  FontSpec m_desc;
};

using FontRef = std::shared_ptr<StdFont>;

}  // namespace corvane

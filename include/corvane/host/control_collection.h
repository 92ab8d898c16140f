// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

class Extender;

// The controls contained in a container, as a host reaches them by name: Count, and Item by a
// zero-based index or by a control's name. It holds the list as it was when it was asked for.
class CORVANE_API ControlCollection : public Object {
 public:
  explicit ControlCollection(std::vector<std::shared_ptr<Extender>> controls)
      : m_controls(std::move(controls)) {}
  std::string typeName() const override { return "ContainedControls"; }

  int32_t Count() const { return static_cast<int32_t>(m_controls.size()); }
  // Error 9 for an index outside 0 to Count - 1 or a name that no control has.
  std::shared_ptr<Extender> Item(const Variant& indexOrName) const;

 protected:
  const Dispatch* dispatch() const override;

 private:
  std::vector<std::shared_ptr<Extender>> m_controls;
};

}  // namespace corvane

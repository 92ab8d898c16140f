// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/property_page.h>

namespace corvane {

// The designer's page "Einstellungen" of VexFrameBox: the scroll position (with three step
// buttons, so that the stack can be scrolled in the designer), the bar's switches, the distance
// between the controls and the bar's top, read from and written to the first selected box by name.
class CORVANE_API FrameBoxSettings : public PropertyPage {
 public:
  FrameBoxSettings();
  std::string typeName() const override { return "FrameBoxSettings"; }

 protected:
  void SelectionChanged() override;
  void ApplyChanges() override;
  void onClick(const std::string& name, int16_t index) override;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/property_page.h>

namespace corvane {

// The designer's page "Einstellungen" of VexFrame: two check boxes for Expandiert and
// Expandierbar, read from and written to the first selected frame by name.
class CORVANE_API FrameSettings : public PropertyPage {
 public:
  FrameSettings();
  std::string typeName() const override { return "FrameSettings"; }

 protected:
  void SelectionChanged() override;
  void ApplyChanges() override;
};

}  // namespace corvane

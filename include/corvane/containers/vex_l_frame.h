// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/runtime/event.h>

namespace corvane {

// A light box with a one-pixel border whose colour follows the enabled state. It has no
// caption and no defaults of its own for a new control: Initialize takes the container's back
// colour.
class CORVANE_API VexLFrame : public ControlBase {
 public:
  std::string typeName() const override { return "VexLFrame"; }
  DesignForm designForm() const override { return {3165, 1275, Surface::Pixels, static_cast<OLE_COLOR>(0x8000000F)}; }

  void setBackColor(OLE_COLOR value) override;
  OLE_COLOR BorderColor() const { return m_BorderColor; }
  void setBorderColor(OLE_COLOR value);
  OLE_COLOR BorderColorDisabled() const { return m_BorderColorDisabled; }
  void setBorderColorDisabled(OLE_COLOR value);
  // Stores, updates the look, and only then reports.
  void setEnabled(bool value) override;

  // The colour the border is drawn in now.
  OLE_COLOR currentBorderColor() const { return m_CurrentBorderColor; }

  Event<> Resize;

  // Lifecycle.
  void Initialize() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;

  // The state and drawing steps, public so that tests can follow them.
  void UpdateState();
  void DrawBorder();

 protected:
  void redraw() override { UpdateState(); }
  const Dispatch* dispatch() const override;

 private:
  OLE_COLOR m_BorderColor = 0;
  OLE_COLOR m_BorderColorDisabled = 0;
  OLE_COLOR m_CurrentBorderColor = 0;
};

}  // namespace corvane

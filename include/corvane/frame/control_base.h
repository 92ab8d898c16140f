// SPDX-License-Identifier: MIT
#pragma once
#include <string>
#include <vector>

#include <corvane/export.h>
#include <corvane/host/extender.h>
#include <corvane/host/hosted_control.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/guard.h>

namespace corvane {

// The common life of the library's controls: the standard members, the design-time rule for
// Enabled, the window events as overridable handlers, guarded access to the container, and the
// persistence helpers. A control states only what differs.
//
// Two failure regimes: drawing, persistence, layout and anything that touches the container are
// guarded (a failing statement is skipped, nothing is reported); plain property procedures let a
// RuntimeError go to the caller.
class CORVANE_API ControlBase : public HostedControl, public ComponentObject {
 public:
  // Standard members.
  int32_t hWnd() const { return surface().hWnd(); }
  int32_t hdc() const { return surface().hdc(); }
  bool Enabled() const { return m_Enabled; }
  // Stores, reports and redraws; the surface is disabled only at run time, so that the control
  // stays selectable in a designer.
  virtual void setEnabled(bool value);
  OLE_COLOR BackColor() const { return surface().BackColor(); }
  virtual void setBackColor(OLE_COLOR value);
  void Refresh() { surface().Refresh(); }
  // The contained controls; by name, an object with Count and Item.
  std::vector<std::shared_ptr<Extender>> Controls() const { return ContainedControls(); }
  float CurrentX() const { return surface().CurrentX(); }
  void setCurrentX(float v) { surface().setCurrentX(v); }
  float CurrentY() const { return surface().CurrentY(); }
  void setCurrentY(float v) { surface().setCurrentY(v); }

  // A member of the container reached by name (Extender.Container.BackColor); errors pass.
  Variant containerMember(const std::string& name) const;

 protected:
  // The control's draw routine, run by the standard setters.
  virtual void redraw() {}

  // Window events; the defaults do nothing.
  virtual void onClick() {}
  virtual void onDblClick() {}
  virtual void onMouseDown(int16_t&, int16_t&, float&, float&) {}
  virtual void onMouseMove(int16_t&, int16_t&, float&, float&) {}
  virtual void onMouseUp(int16_t&, int16_t&, float&, float&) {}
  virtual void onKeyDown(int16_t&, int16_t&) {}
  virtual void onKeyUp(int16_t&, int16_t&) {}
  virtual void onKeyPress(int16_t&) {}

  void onSited() override;

  // Applies the stored Enabled to the surface, at run time only.
  void applyEnabledToSurface();

  // The members every control offers by name; a control copies this table and adds its own.
  static Dispatch standardDispatch();

  bool m_Enabled = true;
};

}  // namespace corvane

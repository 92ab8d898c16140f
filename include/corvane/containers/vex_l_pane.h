// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <memory>

#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/runtime/event.h>

namespace corvane {

// A light panel that hosts one child and sizes it to its whole area when asked: on attaching,
// and whenever the host calls FullResizeChild (typically from the Resize event).
class CORVANE_API VexLPane : public ControlBase {
 public:
  std::string typeName() const override { return "VexLPane"; }
  DesignForm designForm() const override { return {4800, 3600, Surface::Twips, static_cast<OLE_COLOR>(0x8000000F)}; }

  // The number of contained controls.
  int32_t ChildControls() const;
  // Control 0 of the contained controls; error 9 when there is none.
  ObjectRef GetChildControl() const;

  // Moves a control into the pane, shows it and sizes the first child to the pane.
  void AttachControl(const ObjectRef& oCtrl);
  // Gives the first child back to the pane's own container.
  void DetachControl();
  // Sizes the first child to the pane's whole area.
  void FullResizeChild();

  Event<int16_t&, int16_t&, float&, float&> MouseDown, MouseMove, MouseUp;
  Event<> Resize;

  // Lifecycle.
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;

 protected:
  void onMouseDown(int16_t& b, int16_t& s, float& x, float& y) override { MouseDown(b, s, x, y); }
  void onMouseMove(int16_t& b, int16_t& s, float& x, float& y) override { MouseMove(b, s, x, y); }
  void onMouseUp(int16_t& b, int16_t& s, float& x, float& y) override { MouseUp(b, s, x, y); }
  const Dispatch* dispatch() const override;

 private:
  std::shared_ptr<Extender> firstChild() const;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/frame/control_base.h>

#include <memory>

#include <corvane/host/control_collection.h>

namespace corvane {

void ControlBase::onSited() {
  Surface& s = surface();
  s.Click.connect([this] { onClick(); });
  s.DblClick.connect([this] { onDblClick(); });
  s.MouseDown.connect([this](int16_t& b, int16_t& sh, float& x, float& y) { onMouseDown(b, sh, x, y); });
  s.MouseMove.connect([this](int16_t& b, int16_t& sh, float& x, float& y) { onMouseMove(b, sh, x, y); });
  s.MouseUp.connect([this](int16_t& b, int16_t& sh, float& x, float& y) { onMouseUp(b, sh, x, y); });
  s.KeyDown.connect([this](int16_t& k, int16_t& sh) { onKeyDown(k, sh); });
  s.KeyUp.connect([this](int16_t& k, int16_t& sh) { onKeyUp(k, sh); });
  s.KeyPress.connect([this](int16_t& k) { onKeyPress(k); });
}

void ControlBase::applyEnabledToSurface() {
  if (ambient().UserMode()) surface().setEnabled(m_Enabled);
}

void ControlBase::setEnabled(bool value) {
  m_Enabled = value;
  applyEnabledToSurface();
  PropertyChanged("Enabled");
  redraw();
}

void ControlBase::setBackColor(OLE_COLOR value) {
  surface().setBackColor(value);
  PropertyChanged("BackColor");
  redraw();
}

Variant ControlBase::containerMember(const std::string& name) const {
  ObjectRef c = containerObject();
  if (!c) throw RuntimeError(err::ObjectNotSet);
  return c->get(name);
}

Dispatch ControlBase::standardDispatch() {
  Dispatch t;
  DispatchBuilder<ControlBase>(t)
      .get("hWnd", &ControlBase::hWnd)
      .get("hDC", &ControlBase::hdc)
      .prop("Enabled", &ControlBase::Enabled, &ControlBase::setEnabled)
      .prop("BackColor", &ControlBase::BackColor, &ControlBase::setBackColor)
      .prop("CurrentX", &ControlBase::CurrentX, &ControlBase::setCurrentX)
      .prop("CurrentY", &ControlBase::CurrentY, &ControlBase::setCurrentY)
      .method("Refresh", [](ControlBase& c, Dispatch::Args&) { c.Refresh(); })
      .get("Controls",
           [](ControlBase& c) { return ObjectRef(std::make_shared<ControlCollection>(c.Controls())); });
  return t;
}

}  // namespace corvane

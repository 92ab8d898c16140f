// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_l_frame.h>

namespace corvane {

namespace {
constexpr OLE_COLOR kStoredBackColor = 0xFFFFFF;
constexpr OLE_COLOR kDefaultBorderColor = 0;
constexpr OLE_COLOR kDefaultBorderColorDisabled = 0;
}  // namespace

void VexLFrame::setBackColor(OLE_COLOR value) {
  surface().setBackColor(value);
  PropertyChanged("BackColor");
  UpdateState();
}

void VexLFrame::setBorderColor(OLE_COLOR value) {
  m_BorderColor = value;
  PropertyChanged("BorderColor");
  UpdateState();
}

void VexLFrame::setBorderColorDisabled(OLE_COLOR value) {
  m_BorderColorDisabled = value;
  PropertyChanged("BorderColorDisabled");
  UpdateState();
}

void VexLFrame::setEnabled(bool value) {
  m_Enabled = value;
  UpdateState();
  PropertyChanged("Enabled");
}

void VexLFrame::Initialize() {
  guarded([&] { surface().setBackColor(containerMember("BackColor").toLong()); });
  m_Enabled = true;
}

void VexLFrame::ReadProperties(PropertyBag& bag) {
  guarded([&] { surface().setBackColor(bag.ReadProperty("BackColor", kStoredBackColor).toLong()); });
  guarded([&] { m_BorderColor = bag.ReadProperty("BorderColor", kDefaultBorderColor).toLong(); });
  guarded([&] { m_BorderColorDisabled = bag.ReadProperty("BorderColorDisabled", kDefaultBorderColorDisabled).toLong(); });
  guarded([&] { m_Enabled = bag.ReadProperty("Enabled", true).toBool(); });
  guarded([&] { UpdateState(); });
}

void VexLFrame::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor(), kStoredBackColor); });
  guarded([&] { bag.WriteProperty("BorderColor", m_BorderColor, kDefaultBorderColor); });
  guarded([&] { bag.WriteProperty("BorderColorDisabled", m_BorderColorDisabled, kDefaultBorderColorDisabled); });
  guarded([&] { bag.WriteProperty("Enabled", m_Enabled, true); });
}

void VexLFrame::onResize() {
  guarded([&] { DrawBorder(); });
  guarded([&] { Resize(); });
}

void VexLFrame::UpdateState() {
  // In a designer the surface stays enabled, so that the frame can still be selected.
  if (ambient().UserMode()) surface().setEnabled(m_Enabled);
  m_CurrentBorderColor = m_Enabled ? m_BorderColor : m_BorderColorDisabled;
  DrawBorder();
}

void VexLFrame::DrawBorder() {
  guarded([&] { surface().Cls(); });
  guarded([&] {
    Surface& s = surface();
    s.Line(0, 0, s.ScaleWidth() - 1, s.ScaleHeight() - 1, m_CurrentBorderColor, true);
  });
}

const Dispatch* VexLFrame::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexLFrame>(t)
        .prop("BackColor", &VexLFrame::BackColor, &VexLFrame::setBackColor)
        .prop("BorderColor", &VexLFrame::BorderColor, &VexLFrame::setBorderColor)
        .prop("BorderColorDisabled", &VexLFrame::BorderColorDisabled, &VexLFrame::setBorderColorDisabled)
        .prop("Enabled", &VexLFrame::Enabled, &VexLFrame::setEnabled);
    return t;
  }();
  return &d;
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_l_pane.h>

#include <corvane/host/extender.h>

namespace corvane {

std::shared_ptr<Extender> VexLPane::firstChild() const {
  auto children = ContainedControls();
  if (children.empty()) throw RuntimeError(err::SubscriptOutOfRange);
  return children.front();
}

int32_t VexLPane::ChildControls() const { return static_cast<int32_t>(ContainedControls().size()); }

ObjectRef VexLPane::GetChildControl() const { return firstChild(); }

void VexLPane::AttachControl(const ObjectRef& oCtrl) {
  guarded([&] {
    if (!oCtrl) throw RuntimeError(err::ObjectNotSet);
    oCtrl->let("Container", Variant(ObjectRef(extenderRef())));
  });
  guarded([&] {
    if (!oCtrl) throw RuntimeError(err::ObjectNotSet);
    oCtrl->let("Visible", true);
  });
  guarded([&] { FullResizeChild(); });
}

void VexLPane::DetachControl() {
  guarded([&] { firstChild()->setContainer(extenderObject().Container()); });
}

void VexLPane::FullResizeChild() {
  guarded([&] { firstChild()->Move(0, 0, surface().ScaleWidth(), surface().ScaleHeight()); });
}

void VexLPane::ReadProperties(PropertyBag& bag) {
  // Stored without a default: an absent key reads as empty, which is colour 0.
  guarded([&] { surface().setBackColor(bag.ReadProperty("BackColor").toLong()); });
  guarded([&] {
    m_Enabled = bag.ReadProperty("Enabled", true).toBool();
    applyEnabledToSurface();
  });
}

void VexLPane::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor()); });
  guarded([&] { bag.WriteProperty("Enabled", m_Enabled, true); });
}

// Guarded like every container's: an error in the host's handler stays here.
void VexLPane::onResize() {
  guarded([&] { Resize(); });
}

const Dispatch* VexLPane::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexLPane>(t)
        .get("ChildControls", &VexLPane::ChildControls)
        .get("GetChildControl", &VexLPane::GetChildControl)
        .method("AttachControl", [](VexLPane& p, Dispatch::Args& a) { p.AttachControl(a.at(0).toObject()); })
        .method("DetachControl", [](VexLPane& p, Dispatch::Args&) { p.DetachControl(); })
        .method("FullResizeChild", [](VexLPane& p, Dispatch::Args&) { p.FullResizeChild(); });
    return t;
  }();
  return &d;
}

}  // namespace corvane

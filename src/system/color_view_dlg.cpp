// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/system/color_view_dlg.h>

namespace corvane {

bool ColorViewDLG::Show() {
  CHOOSECOLOR cc;
  cc.lStructSize = 36;
  cc.hwndOwner = m_Owner;
  cc.Flags = CC_SOLIDCOLOR + (m_ExView ? CC_FULLOPEN : 0);
  // No initial colour, and custom colours that start empty at every call.
  cc.lpCustColors = std::string(64, '\0');
  if (dlg().ChooseColorA(cc)) {
    m_Color = cc.rgbResult;
    return true;
  }
  if (m_CancelError) throw RuntimeError(err::CancelError);
  return false;
}

const Dispatch* ColorViewDLG::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<ColorViewDLG>(t)
        .prop("ExView", &ColorViewDLG::ExView, &ColorViewDLG::setExView)
        .get("Color", &ColorViewDLG::Color)
        .prop("Owner", &ColorViewDLG::Owner, &ColorViewDLG::setOwner)
        .method("Show", [](ColorViewDLG& o, Dispatch::Args&) { return o.Show(); })
        .prop("CancelError", &ColorViewDLG::CancelError, &ColorViewDLG::setCancelError);
    return t;
  }();
  return &d;
}

}  // namespace corvane

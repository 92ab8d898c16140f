// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/notify/balloon_window.h>

#include <string>

namespace corvane {

// An invisible control that pops up a balloon tip at the mouse, at a point or at a control. It
// persists nothing; at design time it shows as a small fixed-size box.
class CORVANE_API VexBalloon : public ControlBase {
 public:
  std::string typeName() const override { return "VexBalloon"; }
  DesignForm designForm() const override;

  // "Indikator, der anzeigt, ob gerade ein Balloontipp angezeigt wird."
  bool IsVisible() const { return m_IsVisible; }
  // The value behind IsVisible; the balloon window clears it by name when it closes.
  bool m_IsVisible = false;

  // Shows a balloon; Message comes back with five blanks added.
  void popUpBalloon(int32_t OwnerFormHwnd, std::string& Message, const std::string& Title = "",
                    IconType Icon = vbNone, bool ShowModal = false, bool showClose = true,
                    int16_t autoCloseTime = 0, int16_t FontSize = 8,
                    const std::string& fontFace = "MS Sans Serif", OLE_COLOR HeadColor = 0,
                    bool PutAtCurrentMousePos = true, bool TipAbove = true, int32_t MaxWidth = 6000,
                    int16_t XinPixels = 0, int16_t YinPixels = 0, ObjectRef CTRL = nullptr);
  void UnloadBalloon();

  void onResize() override;
  void Show() override;
  void Paint() override;
  void Terminate() override;

 protected:
  const Dispatch* dispatch() const override;
};

}  // namespace corvane

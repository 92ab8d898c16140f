// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/notify/balloon_window.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/object.h>

#include <string>

namespace corvane {

// The balloon tip as a plain creatable object, for code without a form to put a control on.
class CORVANE_API cMiniBalloon : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "cMiniBalloon"; }

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

 protected:
  const Dispatch* dispatch() const override;
};

}  // namespace corvane

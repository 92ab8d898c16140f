// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/platform/system_macros_begin.h>

#include <cstdint>
#include <memory>

namespace corvane {

class PictureBox;

// A host for one command button: the button that the host drops into it is pinned to the right
// edge, in front of a square frame (fra) with a shape (shp) inside; the surface around it shows
// BorderColor. A button is recognised by its GreyDisabledPicture member reading true.
class CORVANE_API VexFrameButton : public ControlBase {
 public:
  VexFrameButton();
  ~VexFrameButton() override;
  std::string typeName() const override { return "VexFrameButton"; }
  DesignForm designForm() const override {
    return {2190, 300, Surface::Twips, static_cast<OLE_COLOR>(0xE8E7E6)};
  }

  // Also sets Enabled by name on every contained control.
  void setEnabled(bool value) override;
  OLE_COLOR BorderColor() const { return surface().BackColor(); }
  void setBorderColor(OLE_COLOR value);

  // The number of the button among the contained controls, -1 while none is found.
  int32_t buttonIndex() const { return m_button; }
  // The fixed children.
  PictureBox& fra() const { return *m_fra; }
  PictureBox& shp() const { return *m_shp; }

  void Initialize() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;
  void Show() override { onResize(); }
  void Terminate() override;

 protected:
  const Dispatch* dispatch() const override;

 private:
  int32_t FindButton();
  void enableContained(bool value);

  int32_t m_button = -1;
  std::shared_ptr<PictureBox> m_fra, m_shp;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/hosted_control.h>

namespace corvane {

// The form engine's picture box: a plain drawing surface that can also contain controls.
class CORVANE_API PictureBox : public HostedControl {
 public:
  std::string typeName() const override { return "PictureBox"; }
  DesignForm designForm() const override { return {1215, 1215, Surface::Twips, static_cast<OLE_COLOR>(0x8000000F)}; }
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

 protected:
  const Dispatch* dispatch() const override;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/widgets/painted_label.h>

#include <string>

namespace corvane {

// A small design-time item that carries a title, shown in its label lblTitel, and a piece of
// text for the host. A title equal to "Daten" is not stored, and reading gives an empty title
// then: such a title is lost on a reload, as the stored form has always behaved.
class CORVANE_API VexSnip : public ControlBase {
 public:
  VexSnip();
  std::string typeName() const override { return "VexSnip"; }
  DesignForm designForm() const override;

  const std::string& Text() const { return m_Text; }
  void setText(const std::string& value);
  const std::string& Titel() const { return m_lblTitel.Caption; }
  void setTitel(const std::string& value);

  // Lifecycle.
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;

  const PaintedLabel& lblTitel() const { return m_lblTitel; }

 protected:
  void redraw() override { render(); }
  const Dispatch* dispatch() const override;

 private:
  void render();

  std::string m_Text;
  PaintedLabel m_lblTitel;
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <memory>
#include <string>

#include <corvane/export.h>
#include <corvane/runtime/object.h>

namespace corvane {

class HostedControl;

// The host's wrapper of a control: its name, container, position and size in the container's
// scale, visibility; any other member is passed on to the control itself.
class CORVANE_API Extender : public Object {
 public:
  explicit Extender(HostedControl& control) : m_control(control) {}
  std::string typeName() const override;

  HostedControl& control() const { return m_control; }

  std::string Name() const;
  ObjectRef Container() const;
  void setContainer(const ObjectRef& container);  // a form or another control's wrapper
  float Left() const;
  float Top() const;
  float Width() const;
  float Height() const;
  void setLeft(float v);
  void setTop(float v);
  void setWidth(float v);
  void setHeight(float v);
  bool Visible() const;
  void setVisible(bool v);
  void Move(float left, float top = -1e30f, float width = -1e30f, float height = -1e30f);

  Variant invoke(std::string_view member, CallType type, Dispatch::Args& args) override;

 protected:
  const Dispatch* dispatch() const override;

 private:
  HostedControl& m_control;
};

}  // namespace corvane

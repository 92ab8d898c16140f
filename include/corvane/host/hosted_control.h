// SPDX-License-Identifier: MIT
#pragma once
#include <memory>
#include <string>
#include <vector>

#include <corvane/export.h>
#include <corvane/host/property_bag.h>
#include <corvane/host/surface.h>
#include <corvane/runtime/object.h>

namespace corvane {

class Form;
class Extender;
class HostedControl;

// What a control is told about where it sits: the form, the name the host gave it, its wrapper
// (Extender), the design or run mode, and the keys it reported as changed.
struct CORVANE_API ControlSite {
  Form* form = nullptr;
  std::string name;
  std::shared_ptr<Extender> extender;
  HostedControl* container = nullptr;  // nullptr: the control sits on the form itself
  std::vector<std::string> changedKeys;
};

// The read-only environment of the control's container.
class CORVANE_API Ambient {
 public:
  explicit Ambient(const HostedControl& c) : m_control(c) {}
  bool UserMode() const;
  FontRef Font() const;
  std::string DisplayName() const;

 private:
  const HostedControl& m_control;
};

// Size, scale and back colour that a freshly dropped control gets.
struct CORVANE_API DesignForm {
  float width = 1200;  // twips
  float height = 495;  // twips
  int16_t scaleMode = Surface::Twips;
  OLE_COLOR backColor = static_cast<OLE_COLOR>(0x8000000F);
};

// Anything a form can hold: it has a window with a surface, lifecycle hooks the host calls in
// order, and a site that links it to its host.
class CORVANE_API HostedControl : public Object {
 public:
  HostedControl();
  ~HostedControl() override;

  // Lifecycle hooks, in the order the host calls them.
  virtual void Initialize() {}
  virtual void InitProperties() {}
  virtual void ReadProperties(PropertyBag&) {}
  virtual void WriteProperties(PropertyBag&) {}
  // The control's size changed (also the first layout); named apart from a control's Resize event.
  virtual void onResize() {}
  virtual void Show() {}
  virtual void Paint() {}
  virtual void Terminate() {}

  virtual DesignForm designForm() const { return {}; }

  // Called by the host: gives the control its window inside the parent and its site.
  void site(ControlSite site, HWND parent, int32_t x, int32_t y, int32_t width, int32_t height);
  bool isSited() const { return m_surface != nullptr; }
  void unsite();  // destroys the window (after Terminate)

  Surface& surface() const;
  ControlSite& controlSite() { return m_site; }
  const ControlSite& controlSite() const { return m_site; }

  // The host link.
  Extender& extenderObject() const;
  std::shared_ptr<Extender> extenderRef() const { return m_site.extender; }
  Ambient ambient() const { return Ambient(*this); }
  std::vector<std::shared_ptr<Extender>> ContainedControls() const;
  void PropertyChanged(const std::string& key);
  // The container's object as a host reaches it by name: the form, or the wrapper of the
  // control that contains this one.
  ObjectRef containerObject() const;

 protected:
  // The window procedure of the control's window; it turns messages into surface events.
  virtual LRESULT windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam);
  // Connects surface events to the hooks below; controls override what they handle.
  virtual void onResizeEvent() { onResize(); }
  virtual void onPaintEvent() { Paint(); }
  // Called once the window and the site exist, before Initialize.
  virtual void onSited() {}

 private:
  ControlSite m_site;
  std::unique_ptr<Surface> m_surface;
  WNDPROC m_proc = 0;
};

using HostedControlRef = std::shared_ptr<HostedControl>;

}  // namespace corvane

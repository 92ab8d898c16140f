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

// Size, scale, back colour and border that a freshly dropped control gets.
struct CORVANE_API DesignForm {
  float width = 1200;  // twips
  float height = 495;  // twips
  int16_t scaleMode = Surface::Twips;
  OLE_COLOR backColor = static_cast<OLE_COLOR>(0x8000000F);
  int16_t appearance = 1;   // HostedControl::Appearance
  int16_t borderStyle = 0;  // HostedControl::BorderStyle
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

  // The host's border round the control's window: BorderStyle 1 (fixed single) with Appearance 1
  // (3-D) is the sunken client edge, with Appearance 0 (flat) a one-pixel line; BorderStyle 0 is
  // none. The border takes room from the client area, so a change resizes the control's inside.
  // Switching the appearance also switches a back colour that is the old look's system colour
  // (window background for flat, button face for 3-D) to the new one's, as a form designer does;
  // any other back colour stays. Values other than 0 and 1 are error 380. Controls with a drawn
  // border property of the same name (VexPane, VexFrame) hide these; theirs is painted inside.
  int16_t Appearance() const { return m_appearance; }
  void setAppearance(int16_t value);
  int16_t BorderStyle() const { return m_borderStyle; }
  void setBorderStyle(int16_t value);

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
  int16_t m_appearance = 1, m_borderStyle = 0;
  bool m_quietResize = false;  // the first of two style changes that make one frame change
  void applyBorder();
};

using HostedControlRef = std::shared_ptr<HostedControl>;

}  // namespace corvane

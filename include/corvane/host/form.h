// SPDX-License-Identifier: MIT
#pragma once
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <corvane/export.h>
#include <corvane/host/hosted_control.h>
#include <corvane/host/surface.h>
#include <corvane/runtime/event.h>
#include <corvane/runtime/object.h>

namespace corvane {

// A top-level window of the host application that holds controls. In design mode (UserMode
// false) it stands for a form in the designer.
class CORVANE_API Form : public Object {
 public:
  // Creates the form's window and enters it into the list of loaded forms.
  static std::shared_ptr<Form> create(const std::string& name, float widthTwips = 6000, float heightTwips = 4500,
                                      bool userMode = true);
  ~Form() override;
  std::string typeName() const override { return m_mdiParent ? "MDIForm" : "Form"; }

  // A multiple-document parent form holds child forms and cannot be painted on.
  bool isMdiParent() const { return m_mdiParent; }
  void setMdiParent(bool v) { m_mdiParent = v; }

  const std::string& Name() const { return m_name; }
  std::string Caption() const;
  void setCaption(const std::string& c);
  HWND hWnd() const { return m_surface->hWnd(); }
  Surface& surface() const { return *m_surface; }
  bool userMode() const { return m_userMode; }
  void setUserMode(bool v) { m_userMode = v; }
  const FontRef& Font() const { return m_surface->Font(); }

  // Position and size in twips.
  float Left() const;
  float Top() const;
  void Move(float left, float top, float width = -1, float height = -1);

  bool Enabled() const;
  void setEnabled(bool v);
  void Show();
  void Hide();
  // Terminates every control (last added first), destroys the window and leaves the list of forms.
  void Unload();

  // Adds a control by class name ("VexColorLabel", or an intrinsic "PictureBox"): sites it in
  // the container (the form when nullptr) at the position and size given in the container's
  // scale (negative size: the control's design size), then runs Initialize, InitProperties
  // (no bag) or ReadProperties (with a bag), Resize and Show.
  HostedControlRef add(const std::string& className, const std::string& name, HostedControl* container = nullptr,
                       float left = 0, float top = 0, float width = -1, float height = -1, PropertyBag* bag = nullptr);
  // The same for a control object made by the caller (a host's own control class).
  HostedControlRef add(HostedControlRef control, const std::string& className, const std::string& name,
                       HostedControl* container = nullptr, float left = 0, float top = 0, float width = -1,
                       float height = -1, PropertyBag* bag = nullptr);
  // Typed creation: form.add<VexColorLabel>("lblTitle", left, top, width, height) makes the
  // control, sites it on the form as add by class name does, and returns it with its own type.
  template <class T>
  std::shared_ptr<T> add(const std::string& name, float left = 0, float top = 0, float width = -1,
                         float height = -1) {
    return addTyped<T>(name, nullptr, left, top, width, height);
  }
  // The same inside a container control, in the container's scale.
  template <class T>
  std::shared_ptr<T> add(const std::string& name, HostedControl& container, float left = 0, float top = 0,
                         float width = -1, float height = -1) {
    return addTyped<T>(name, &container, left, top, width, height);
  }
  const std::vector<HostedControlRef>& controls() const { return m_controls; }
  HostedControlRef control(const std::string& name) const;
  std::string classNameOf(const HostedControl& c) const;

  // PropertyChanged marks the form as changed.
  bool dirty() const { return m_dirty; }
  void setDirty(bool v) { m_dirty = v; }

  // QueryUnload (Cancel, UnloadMode) before the user's close unloads the form; a handler that
  // sets Cancel keeps it open.
  Event<int16_t&, int16_t&> QueryUnload;
  // A public procedure of the host's form, reached by name like the form's own members (a
  // control's late-bound call on its parent form). Names compare without regard to case.
  using HostProcedure = std::function<Variant(Dispatch::Args&)>;
  void setHostProcedure(const std::string& name, HostProcedure procedure);
  Variant invoke(std::string_view member, CallType type, Dispatch::Args& args) override;

 protected:
  const Dispatch* dispatch() const override;

 private:
  Form(std::string name, bool userMode);
  template <class T>
  std::shared_ptr<T> addTyped(const std::string& name, HostedControl* container, float left, float top, float width,
                              float height) {
    static_assert(std::is_base_of_v<HostedControl, T>, "a form holds controls");
    auto control = std::make_shared<T>();
    // The class name a form file stores is the one the class answers with.
    add(control, control->typeName(), name, container, left, top, width, height);
    return control;
  }
  LRESULT windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam);

  std::string m_name;
  bool m_userMode;
  bool m_dirty = false;
  bool m_mdiParent = false;
  std::unique_ptr<Surface> m_surface;
  WNDPROC m_proc = 0;
  std::vector<HostedControlRef> m_controls;
  std::vector<std::string> m_classNames;
  std::map<std::string, HostProcedure> m_hostProcedures;
};

using FormRef = std::shared_ptr<Form>;

// The list of loaded forms of the application.
class CORVANE_API Forms {
 public:
  static std::vector<FormRef>& all();
  static FormRef find(const std::string& name);  // case-insensitive; nullptr when not loaded
  static void unloadAll();
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/host/form.h>

#include <algorithm>

#include <corvane/host/extender.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/class_registry.h>
#include <corvane/runtime/strings.h>

namespace corvane {

namespace {
HostedControlRef createControl(const std::string& className) {
  if (LCase(className) == "picturebox") return std::make_shared<PictureBox>();
  if (LCase(className) == "vscrollbar") return std::make_shared<ScrollBar>(true);
  if (LCase(className) == "hscrollbar") return std::make_shared<ScrollBar>(false);
  auto c = std::dynamic_pointer_cast<HostedControl>(ClassRegistry::instance().create(className));
  if (!c) throw RuntimeError(err::TypeMismatch, "'" + className + "' is no control");
  return c;
}
}  // namespace

Form::Form(std::string name, bool userMode) : m_name(std::move(name)), m_userMode(userMode) {}

std::shared_ptr<Form> Form::create(const std::string& name, float widthTwips, float heightTwips, bool userMode) {
  std::shared_ptr<Form> f(new Form(name, userMode));
  Form* raw = f.get();
  f->m_proc = user().RegisterWindowProc(
      [raw](HWND h, int32_t m, WPARAM w, LPARAM l) { return raw->windowProc(h, m, w, l); });
  Screen& s = Screen::instance();
  HWND hwnd = user().CreateWindowExA(0, "Form", name, WS_POPUP, 0, 0, CLng(widthTwips / s.TwipsPerPixelX()),
                                     CLng(heightTwips / s.TwipsPerPixelY()), 0, f->m_proc);
  f->m_surface = std::make_unique<Surface>(hwnd);
  f->m_surface->Cls();
  Forms::all().push_back(f);
  return f;
}

Form::~Form() {
  for (auto it = m_controls.rbegin(); it != m_controls.rend(); ++it) (*it)->unsite();
  if (!currentPlatform()) return;  // the application has ended: its windows went with it
  if (m_surface) {
    HWND h = m_surface->hWnd();
    m_surface.reset();
    user().DestroyWindow(h);
  }
  if (m_proc) user().UnregisterWindowProc(m_proc);
}

std::string Form::Caption() const { return user().GetWindowTextA(hWnd()); }
void Form::setCaption(const std::string& c) { user().SetWindowTextA(hWnd(), c); }

float Form::Left() const {
  RECT r;
  user().GetWindowRect(hWnd(), r);
  return static_cast<float>(r.Left) * Screen::instance().TwipsPerPixelX();
}

float Form::Top() const {
  RECT r;
  user().GetWindowRect(hWnd(), r);
  return static_cast<float>(r.Top) * Screen::instance().TwipsPerPixelY();
}

void Form::Move(float left, float top, float width, float height) {
  Screen& s = Screen::instance();
  int32_t w = width < 0 ? m_surface->pixelWidth() : CLng(width / s.TwipsPerPixelX());
  int32_t h = height < 0 ? m_surface->pixelHeight() : CLng(height / s.TwipsPerPixelY());
  user().MoveWindow(hWnd(), CLng(left / s.TwipsPerPixelX()), CLng(top / s.TwipsPerPixelY()), w, h, true);
}

bool Form::Enabled() const { return user().IsWindowEnabled(hWnd()); }
void Form::setEnabled(bool v) { user().EnableWindow(hWnd(), v); }

void Form::Show() { user().ShowWindow(hWnd(), SW_SHOW); }
void Form::Hide() { user().ShowWindow(hWnd(), SW_HIDE); }

void Form::Unload() {
  auto self = shared_from_this();  // the form may be held only by the list
  for (auto it = m_controls.rbegin(); it != m_controls.rend(); ++it) (*it)->Terminate();
  for (auto it = m_controls.rbegin(); it != m_controls.rend(); ++it) (*it)->unsite();
  m_controls.clear();
  m_classNames.clear();
  auto& all = Forms::all();
  all.erase(std::remove(all.begin(), all.end(), self), all.end());
}

HostedControlRef Form::add(const std::string& className, const std::string& name, HostedControl* container,
                           float left, float top, float width, float height, PropertyBag* bag) {
  if (control(name)) throw RuntimeError(err::InvalidPropertyValue, "A control named '" + name + "' exists already");
  return add(createControl(className), className, name, container, left, top, width, height, bag);
}

HostedControlRef Form::add(HostedControlRef c, const std::string& className, const std::string& name,
                           HostedControl* container, float left, float top, float width, float height,
                           PropertyBag* bag) {
  if (!c || c->isSited()) throw RuntimeError(err::InvalidPropertyValue);
  if (control(name)) throw RuntimeError(err::InvalidPropertyValue, "A control named '" + name + "' exists already");
  DesignForm d = c->designForm();
  Surface& place = container ? container->surface() : surface();
  int32_t x = place.toPixelX(left), y = place.toPixelY(top);
  int32_t w = width < 0 ? CLng(d.width / Screen::instance().TwipsPerPixelX()) : CLng(place.ScaleX(width, -1, 3));
  int32_t h = height < 0 ? CLng(d.height / Screen::instance().TwipsPerPixelY()) : CLng(place.ScaleY(height, -1, 3));
  ControlSite site;
  site.form = this;
  site.name = name;
  site.container = container;
  site.extender = std::make_shared<Extender>(*c);
  c->site(std::move(site), container ? container->surface().hWnd() : hWnd(), x, y, w, h);
  m_controls.push_back(c);
  m_classNames.push_back(className);
  c->Initialize();
  if (bag) c->ReadProperties(*bag);
  else c->InitProperties();
  c->onResize();
  user().ShowWindow(c->surface().hWnd(), SW_SHOWNOACTIVATE);
  c->Show();
  return c;
}

HostedControlRef Form::control(const std::string& name) const {
  for (const auto& c : m_controls)
    if (LCase(c->controlSite().name) == LCase(name)) return c;
  return nullptr;
}

std::string Form::classNameOf(const HostedControl& c) const {
  for (size_t i = 0; i < m_controls.size(); ++i)
    if (m_controls[i].get() == &c) return m_classNames[i];
  return {};
}

LRESULT Form::windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  if (msg == wm::CLOSE) {
    // Closed by the user on a live display: the form unloads, as its close box does.
    int16_t cancel = 0, mode = 0;
    QueryUnload(cancel, mode);
    if (cancel) return 0;
    Unload();
    return 0;
  }
  if (m_surface) m_surface->handleMessage(msg, wParam, lParam);
  return user().DefWindowProcA(hWnd, msg, wParam, lParam);
}

void Form::setHostProcedure(const std::string& name, HostProcedure procedure) {
  m_hostProcedures[LCase(name)] = std::move(procedure);
}

Variant Form::invoke(std::string_view member, CallType type, Dispatch::Args& args) {
  if (type == CallType::Method) {
    auto it = m_hostProcedures.find(LCase(member));
    if (it != m_hostProcedures.end()) return it->second(args);
  }
  return Object::invoke(member, type, args);
}

const Dispatch* Form::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<Form>(t)
        .get("Name", &Form::Name)
        .prop("Caption", &Form::Caption, &Form::setCaption)
        .get("hWnd", &Form::hWnd)
        .get("hDC", [](Form& f) { return f.surface().hdc(); })
        .get("BackColor", [](Form& f) { return f.surface().BackColor(); })
        .get("ForeColor", [](Form& f) { return f.surface().ForeColor(); })
        .get("Font", [](Form& f) { return f.Font(); })
        .get("ScaleLeft", [](Form& f) { return f.surface().ScaleLeft(); })
        .get("ScaleTop", [](Form& f) { return f.surface().ScaleTop(); })
        .get("ScaleWidth", [](Form& f) { return f.surface().ScaleWidth(); })
        .get("ScaleHeight", [](Form& f) { return f.surface().ScaleHeight(); })
        .get("Width", [](Form& f) { return f.surface().Width(); })
        .get("Height", [](Form& f) { return f.surface().Height(); })
        .get("Left", &Form::Left)
        .prop("Enabled", &Form::Enabled, &Form::setEnabled)
        .get("Top", &Form::Top)
        .get("Picture", [](Form& f) { return f.surface().Picture(); })
        .method("Cls", [](Form& f, Dispatch::Args&) { f.surface().Cls(); })
        .method("Refresh", [](Form& f, Dispatch::Args&) { f.surface().Refresh(); })
        .method("ScaleX", [](Form& f, Dispatch::Args& a) {
          return f.surface().ScaleX(a.at(0).toSingle(), a.size() > 1 ? a[1].toInteger() : 8,
                                    a.size() > 2 ? a[2].toInteger() : -1);
        })
        .method("ScaleY", [](Form& f, Dispatch::Args& a) {
          return f.surface().ScaleY(a.at(0).toSingle(), a.size() > 1 ? a[1].toInteger() : 8,
                                    a.size() > 2 ? a[2].toInteger() : -1);
        })
        .method("PaintPicture", [](Form& f, Dispatch::Args& a) {
          f.surface().PaintPicture(a.at(0).as<PictureRef>(), a.at(1).toSingle(), a.at(2).toSingle(),
                                   a.at(3).toSingle(), a.at(4).toSingle());
        });
    t.addSetter("BackColor", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<Form&>(o).surface().setBackColor(v.toLong());
    });
    t.addSetter("Picture", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<Form&>(o).surface().setPicture(v.as<PictureRef>());
    });
    return t;
  }();
  return &d;
}

std::vector<FormRef>& Forms::all() {
  static std::vector<FormRef> forms;
  return forms;
}

FormRef Forms::find(const std::string& name) {
  for (const FormRef& f : all())
    if (LCase(f->Name()) == LCase(name)) return f;
  return nullptr;
}

void Forms::unloadAll() {
  while (!all().empty()) all().back()->Unload();
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/host/hosted_control.h>

#include <map>

#include <corvane/host/extender.h>
#include <corvane/host/form.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>

namespace corvane {

namespace {
// The surfaces that are delivering a message. An unload from one of the control's own event
// handlers (a click that closes its form) must not free the surface under the running message:
// unsite hands it over here, and it is freed when the message ends.
std::map<const Surface*, std::unique_ptr<Surface>>& surfacesInUse() {
  static std::map<const Surface*, std::unique_ptr<Surface>> inUse;
  return inUse;
}
}  // namespace

bool Ambient::UserMode() const {
  const Form* f = m_control.controlSite().form;
  return f ? f->userMode() : true;
}

FontRef Ambient::Font() const {
  const ControlSite& s = m_control.controlSite();
  if (s.container) return s.container->surface().Font();
  return s.form ? s.form->Font() : StdFont::create();
}

std::string Ambient::DisplayName() const { return m_control.controlSite().name; }

HostedControl::HostedControl() = default;

HostedControl::~HostedControl() { unsite(); }

void HostedControl::site(ControlSite site, HWND parent, int32_t x, int32_t y, int32_t width, int32_t height) {
  m_site = std::move(site);
  m_proc = user().RegisterWindowProc(
      [this](HWND h, int32_t m, WPARAM w, LPARAM l) { return windowProc(h, m, w, l); });
  HWND hwnd = user().CreateWindowExA(0, typeName(), m_site.name, WS_CHILD, x, y, width, height, parent, m_proc);
  m_surface = std::make_unique<Surface>(hwnd);
  DesignForm d = designForm();
  m_surface->setScaleMode(d.scaleMode);
  m_surface->setBackColor(d.backColor);
  m_surface->Resize.connect([this] { onResizeEvent(); });
  m_surface->Paint.connect([this] { onPaintEvent(); });
  onSited();
}

void HostedControl::unsite() {
  if (!m_surface) return;
  HWND h = m_surface->hWnd();
  auto busy = surfacesInUse().find(m_surface.get());
  if (busy != surfacesInUse().end()) busy->second = std::move(m_surface);  // freed when its message ends
  m_surface.reset();
  // After the application has ended its windows are gone with the platform.
  if (!currentPlatform()) return;
  user().DestroyWindow(h);
  user().UnregisterWindowProc(m_proc);
  m_proc = 0;
}

Surface& HostedControl::surface() const {
  if (!m_surface) throw RuntimeError(398, "Client site not available");
  return *m_surface;
}

Extender& HostedControl::extenderObject() const {
  if (!m_site.extender) throw RuntimeError(398, "Client site not available");
  return *m_site.extender;
}

std::vector<std::shared_ptr<Extender>> HostedControl::ContainedControls() const {
  std::vector<std::shared_ptr<Extender>> out;
  if (!m_site.form) return out;
  for (const HostedControlRef& c : m_site.form->controls())
    if (c->controlSite().container == this) out.push_back(c->extenderRef());
  return out;
}

void HostedControl::PropertyChanged(const std::string& key) {
  m_site.changedKeys.push_back(key);
  if (m_site.form) m_site.form->setDirty(true);
}

ObjectRef HostedControl::containerObject() const {
  if (m_site.container) return m_site.container->extenderRef();
  if (m_site.form) return m_site.form->shared_from_this();
  throw RuntimeError(398, "Client site not available");
}

LRESULT HostedControl::windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  auto keepAlive = weak_from_this().lock();  // a handler may unload the form that holds the control
  if (m_surface) {
    Surface* s = m_surface.get();
    bool outermost = surfacesInUse().emplace(s, nullptr).second;
    s->handleMessage(msg, wParam, lParam);
    if (outermost) surfacesInUse().erase(s);  // frees a surface retired meanwhile
  }
  return user().DefWindowProcA(hWnd, msg, wParam, lParam);
}

}  // namespace corvane

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
  DesignForm d = designForm();
  m_appearance = d.appearance == 0 ? 0 : 1;
  m_borderStyle = d.borderStyle == 1 ? 1 : 0;
  HWND hwnd = user().CreateWindowExA(0, typeName(), m_site.name, WS_CHILD, x, y, width, height, parent, m_proc);
  m_surface = std::make_unique<Surface>(hwnd);
  applyBorder();
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

namespace {
constexpr OLE_COLOR kFlatBack = static_cast<OLE_COLOR>(0x80000005), kThreeDBack = static_cast<OLE_COLOR>(0x8000000F);

int16_t checkedBinary(int16_t value) {
  if (value != 0 && value != 1) throw RuntimeError(err::InvalidPropertyValue);
  return value;
}
}  // namespace

void HostedControl::setAppearance(int16_t value) {
  checkedBinary(value);
  const int16_t old = m_appearance;
  m_appearance = value;
  if (m_surface && old != value) {
    const OLE_COLOR oldBack = old == 0 ? kFlatBack : kThreeDBack;
    if (m_surface->BackColor() == oldBack) m_surface->setBackColor(value == 0 ? kFlatBack : kThreeDBack);
  }
  applyBorder();
}

void HostedControl::setBorderStyle(int16_t value) {
  m_borderStyle = checkedBinary(value);
  applyBorder();
}

// Writes the border into the window's styles. When both styles change, the first change only
// passes through: the control hears of one resize, to the final inner size.
void HostedControl::applyBorder() {
  if (!m_surface) return;
  const HWND h = m_surface->hWnd();
  const int32_t style = user().GetWindowLongA(h, GWL_STYLE), exStyle = user().GetWindowLongA(h, GWL_EXSTYLE);
  int32_t newStyle = style & ~WS_BORDER, newExStyle = exStyle & ~WS_EX_CLIENTEDGE;
  if (m_borderStyle == 1) {
    if (m_appearance == 1) newExStyle |= WS_EX_CLIENTEDGE;
    else newStyle |= WS_BORDER;
  }
  m_quietResize = newStyle != style && newExStyle != exStyle;
  if (newStyle != style) user().SetWindowLongA(h, GWL_STYLE, newStyle);
  m_quietResize = false;
  if (newExStyle != exStyle) user().SetWindowLongA(h, GWL_EXSTYLE, newExStyle);
}

LRESULT HostedControl::windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  auto keepAlive = weak_from_this().lock();  // a handler may unload the form that holds the control
  if (msg == wm::SIZE && m_quietResize) return user().DefWindowProcA(hWnd, msg, wParam, lParam);
  if (m_surface) {
    Surface* s = m_surface.get();
    bool outermost = surfacesInUse().emplace(s, nullptr).second;
    s->handleMessage(msg, wParam, lParam);
    if (outermost) surfacesInUse().erase(s);  // frees a surface retired meanwhile
  }
  return user().DefWindowProcA(hWnd, msg, wParam, lParam);
}

}  // namespace corvane

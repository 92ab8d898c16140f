// SPDX-License-Identifier: MIT
#include <corvane/host/extender.h>

#include <corvane/host/form.h>
#include <corvane/host/hosted_control.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>

#include "host/window_geometry.h"

namespace corvane {

namespace {
// The surface whose scale places the control: its container's, or the form's.
Surface& placingSurface(const HostedControl& c) {
  const ControlSite& s = c.controlSite();
  if (s.container) return s.container->surface();
  if (!s.form) throw RuntimeError(398, "Client site not available");
  return s.form->surface();
}
}  // namespace

std::string Extender::typeName() const { return m_control.typeName(); }
std::string Extender::Name() const { return m_control.controlSite().name; }
ObjectRef Extender::Container() const { return m_control.containerObject(); }

void Extender::setContainer(const ObjectRef& container) {
  ControlSite& s = m_control.controlSite();
  HostedControl* target = nullptr;
  if (auto ext = std::dynamic_pointer_cast<Extender>(container)) {
    target = &ext->control();
    for (HostedControl* p = target; p; p = p->controlSite().container)
      if (p == &m_control) throw RuntimeError(err::InvalidPropertyValue);  // no control inside itself
  } else if (!std::dynamic_pointer_cast<Form>(container)) {
    throw RuntimeError(err::InvalidPropertyValue);
  }
  RECT before = clientRectInParent(m_control);
  s.container = target;
  HWND parent = target ? target->surface().hWnd() : s.form->hWnd();
  user().SetParent(m_control.surface().hWnd(), parent);
  user().MoveWindow(m_control.surface().hWnd(), before.Left, before.Top, before.Right - before.Left,
                    before.Bottom - before.Top, true);
}

float Extender::Left() const {
  return placingSurface(m_control).fromPixelX(clientRectInParent(m_control).Left);
}
float Extender::Top() const { return placingSurface(m_control).fromPixelY(clientRectInParent(m_control).Top); }
float Extender::Width() const {
  RECT r = clientRectInParent(m_control);
  return placingSurface(m_control).ScaleX(static_cast<float>(r.Right - r.Left), 3, -1);
}
float Extender::Height() const {
  RECT r = clientRectInParent(m_control);
  return placingSurface(m_control).ScaleY(static_cast<float>(r.Bottom - r.Top), 3, -1);
}

void Extender::Move(float left, float top, float width, float height) {
  constexpr float kMissing = -1e30f;
  Surface& s = placingSurface(m_control);
  RECT r = clientRectInParent(m_control);
  int32_t x = s.toPixelX(left);
  int32_t y = top == kMissing ? r.Top : s.toPixelY(top);
  int32_t w = width == kMissing ? r.Right - r.Left : CLng(s.ScaleX(width, -1, 3));
  int32_t h = height == kMissing ? r.Bottom - r.Top : CLng(s.ScaleY(height, -1, 3));
  if (w < 0 || h < 0) throw RuntimeError(err::InvalidPropertyValue);
  user().MoveWindow(m_control.surface().hWnd(), x, y, w, h, true);
}

void Extender::setLeft(float v) { Move(v, Top()); }
void Extender::setTop(float v) { Move(Left(), v); }
void Extender::setWidth(float v) { Move(Left(), Top(), v); }
void Extender::setHeight(float v) { Move(Left(), Top(), Width(), v); }

bool Extender::Visible() const { return (user().GetWindowLongA(m_control.surface().hWnd(), GWL_STYLE) & WS_VISIBLE) != 0; }
void Extender::setVisible(bool v) { user().ShowWindow(m_control.surface().hWnd(), v ? SW_SHOWNOACTIVATE : SW_HIDE); }

Variant Extender::invoke(std::string_view member, CallType type, Dispatch::Args& args) {
  if (hasMember(member)) return Object::invoke(member, type, args);
  return m_control.invoke(member, type, args);  // the control's own members
}

const Dispatch* Extender::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<Extender>(t)
        .get("Name", &Extender::Name)
        .get("Container", &Extender::Container)
        .let("Container", &Extender::setContainer)
        .prop("Left", &Extender::Left, &Extender::setLeft)
        .prop("Top", &Extender::Top, &Extender::setTop)
        .prop("Width", &Extender::Width, &Extender::setWidth)
        .prop("Height", &Extender::Height, &Extender::setHeight)
        .prop("Visible", &Extender::Visible, &Extender::setVisible)
        .method("Move", [](Extender& e, Dispatch::Args& a) {
          constexpr float kMissing = -1e30f;
          auto at = [&](size_t i) { return i < a.size() && !a[i].isEmpty() ? a[i].toSingle() : kMissing; };
          e.Move(a.at(0).toSingle(), at(1), at(2), at(3));
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_frame_button.h>
#include <corvane/host/extender.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>

#include <algorithm>

namespace corvane {

namespace {
// The contained controls as the host's collection numbers them: the one added last first.
std::vector<std::shared_ptr<Extender>> newestFirst(const HostedControl& c) {
  std::vector<std::shared_ptr<Extender>> list = c.ContainedControls();
  std::reverse(list.begin(), list.end());
  return list;
}

// A child sited by the control itself: it is not among the host's contained controls.
std::shared_ptr<PictureBox> ownBox(HostedControl& owner, HWND parent, const std::string& name) {
  auto child = std::make_shared<PictureBox>();
  ControlSite site;
  site.name = name;
  site.container = &owner;
  site.extender = std::make_shared<Extender>(*child);
  child->site(std::move(site), parent, 0, 0, 1, 1);
  user().ShowWindow(child->surface().hWnd(), SW_SHOWNOACTIVATE);
  return child;
}

void bringToFront(HWND h) {
  user().SetWindowPos(h, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}
}  // namespace

VexFrameButton::VexFrameButton() = default;
VexFrameButton::~VexFrameButton() { Terminate(); }

void VexFrameButton::Initialize() {
  m_fra = ownBox(*this, hWnd(), "fra");
  m_shp = ownBox(*m_fra, m_fra->surface().hWnd(), "shp");
  m_fra->surface().setBackColor(static_cast<OLE_COLOR>(0x8000000F));
  m_shp->surface().setBackColor(static_cast<OLE_COLOR>(0x8000000F));
}

void VexFrameButton::Terminate() {
  if (m_shp) m_shp->unsite();
  if (m_fra) m_fra->unsite();
}

int32_t VexFrameButton::FindButton() {
  int32_t found = -1;
  guarded([&] {
    std::vector<std::shared_ptr<Extender>> list = newestFirst(*this);
    for (size_t i = 0; i < list.size() && found < 0; ++i)
      guarded([&] {
        if (list[i]->get("GreyDisabledPicture").toBool()) found = static_cast<int32_t>(i);
      });
    if (found < 0) return;
    float tx = Screen::instance().TwipsPerPixelX();
    Extender& fra = *m_fra->extenderRef();
    Extender& shp = *m_shp->extenderRef();
    float side = surface().Height();
    guarded([&] { fra.Move(0, 0, side, side); });
    // One pixel past the left edge of fra, hiding that edge.
    guarded([&] { shp.Move(-tx, 0, fra.Width() + tx, fra.Height()); });
    guarded([&] { bringToFront(m_fra->surface().hWnd()); });
    guarded([&] { bringToFront(list[found]->get("hWnd").toLong()); });
  });
  return found;
}

void VexFrameButton::onResize() {
  if (m_button == -1) m_button = FindButton();
  // Without a button (index -1) this statement fails alone; the square is placed all the same.
  guarded([&] {
    std::vector<std::shared_ptr<Extender>> list = newestFirst(*this);
    if (m_button < 0 || m_button >= static_cast<int32_t>(list.size()))
      throw RuntimeError(err::SubscriptOutOfRange);
    std::shared_ptr<Extender> button = list[m_button];
    button->setLeft(surface().Width() - button->Width() - button->Top());
  });
  guarded([&] { m_fra->extenderRef()->setLeft(surface().Width() - m_fra->extenderRef()->Width()); });
}

void VexFrameButton::enableContained(bool value) {
  for (const auto& c : ContainedControls()) guarded([&] { c->let("Enabled", value); });
}

void VexFrameButton::setEnabled(bool value) {
  m_Enabled = value;
  enableContained(value);
  PropertyChanged("Enabled");
}

void VexFrameButton::setBorderColor(OLE_COLOR value) {
  surface().setBackColor(value);
  PropertyChanged("BorderColor");
}

void VexFrameButton::ReadProperties(PropertyBag& bag) {
  guarded([&] {
    m_Enabled = bag.ReadProperty("Enabled", true).toBool();
    enableContained(m_Enabled);
  });
}

void VexFrameButton::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("Enabled", m_Enabled, true); });
}

const Dispatch* VexFrameButton::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<VexFrameButton>(t)
        .get("hWnd", &VexFrameButton::hWnd)
        .prop("Enabled", &VexFrameButton::Enabled, &VexFrameButton::setEnabled)
        .prop("BorderColor", &VexFrameButton::BorderColor, &VexFrameButton::setBorderColor);
    return t;
  }();
  return &d;
}

}  // namespace corvane

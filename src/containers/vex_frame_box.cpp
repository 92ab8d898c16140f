// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_frame_box.h>
#include <corvane/host/extender.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/screen.h>
#include <corvane/host/std_picture.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>

#include <algorithm>

namespace corvane {

namespace {
constexpr float kBarWidth = 240;  // twips
constexpr float kBarLeft = 3360;  // design position of the bar
constexpr float kBarHeight = 5535;
constexpr int16_t kSmallStep = 2000, kLargeStep = 4000;
constexpr float kIndent = 100;  // how much narrower the controls get while the bar is in use
constexpr float kBottomMargin = 80;

bool hasPicture(const PictureRef& p) { return p && p->Handle() != 0; }
PictureRef pictureFrom(const Variant& v) {
  PictureRef p = v.as<PictureRef>();
  return p ? p : LoadPicture();
}
Variant pictureToStore(const PictureRef& p) { return hasPicture(p) ? Variant(p) : Variant(); }

// A child sited by the box itself: it is not among the host's contained controls.
template <class T>
std::shared_ptr<T> ownChild(HostedControl& owner, const std::string& name, float left, float top, float width,
                            float height) {
  auto child = std::make_shared<T>();
  ControlSite site;
  site.name = name;
  site.container = &owner;
  site.extender = std::make_shared<Extender>(*child);
  Surface& s = owner.surface();
  child->site(std::move(site), s.hWnd(), s.toPixelX(left), s.toPixelY(top), CLng(s.ScaleX(width, -1, 3)),
              CLng(s.ScaleY(height, -1, 3)));
  return child;
}
}  // namespace

VexFrameBox::VexFrameBox() : m_BackgroundImage(StdPicture::empty()) {}

VexFrameBox::~VexFrameBox() { Terminate(); }

ScrollBar& VexFrameBox::bar() const {
  if (!m_XPScroll || !m_XPScroll->isSited()) throw RuntimeError(err::ObjectNotSet);
  return *m_XPScroll;
}

void VexFrameBox::Initialize() {
  m_XPScroll = ownChild<ScrollBar>(*this, "XPScroll", kBarLeft, 0, kBarWidth, kBarHeight);
  m_XPScroll->setSmallChange(kSmallStep);
  m_XPScroll->setLargeChange(kLargeStep);
  m_XPScroll->Change.connect([this] { guarded([&] { ApplyScroll(m_XPScroll->Value()); }); });
  m_XPScroll->Scroll.connect([this] { guarded([&] { ApplyScroll(m_XPScroll->Value()); }); });
  // The focus goes on at once, so that the bar never shows a focus mark.
  m_XPScroll->GotFocus.connect([this] { user().SetFocus(m_FocusWeg->surface().hWnd()); });
  m_FocusWeg = ownChild<PictureBox>(*this, "FocusWeg", -1500, -1500, 15, 15);
  user().ShowWindow(m_FocusWeg->surface().hWnd(), SW_SHOWNOACTIVATE);
}

void VexFrameBox::Terminate() {
  if (m_XPScroll) m_XPScroll->unsite();
  if (m_FocusWeg) m_FocusWeg->unsite();
}

// ---- the contained controls ----

std::vector<std::shared_ptr<Extender>> VexFrameBox::items() const {
  std::vector<std::shared_ptr<Extender>> list = ContainedControls();
  std::reverse(list.begin(), list.end());
  return list;
}

std::shared_ptr<Extender> VexFrameBox::orderItem(int32_t position) const {
  std::vector<std::shared_ptr<Extender>> list = items();
  if (position < 0 || position >= static_cast<int32_t>(m_order.size()))
    throw RuntimeError(err::SubscriptOutOfRange);
  int16_t index = m_order[position].first;
  if (index < 0 || index >= static_cast<int32_t>(list.size())) throw RuntimeError(err::SubscriptOutOfRange);
  return list[index];
}

void VexFrameBox::sortOrder(int32_t low, int32_t high) {
  int32_t i = low, j = high;
  int16_t pivot = m_order[CLng((low + high) / 2.0)].second;
  while (i <= j) {
    while (m_order[i].second < pivot) ++i;
    while (m_order[j].second > pivot) --j;
    if (i <= j) {
      std::swap(m_order[i], m_order[j]);
      ++i;
      --j;
    }
  }
  if (low < j) sortOrder(low, j);
  if (i < high) sortOrder(i, high);
}

// ---- arranging ----

void VexFrameBox::Paint() {
  int32_t count = 0;
  std::vector<std::shared_ptr<Extender>> list;
  guarded([&] {
    list = items();
    count = static_cast<int32_t>(list.size());
  });
  if (count == m_lastCount || count < 1) return;
  m_lastCount = static_cast<int16_t>(count);
  if (m_AutoFrameAlign && count >= 2) {
    guarded([&] {
      Extender& newest = *list[0];
      if (newest.Top() == 0 && newest.Left() == 0)
        newest.setTop(surface().Height() - newest.Height() - kBottomMargin);
    });
  }
  m_order.assign(count, {0, 0});
  for (int32_t i = 0; i < count; ++i) {
    m_order[i].first = static_cast<int16_t>(i);
    guarded([&] { m_order[i].second = CInt(list[i]->Top()); });
  }
  guarded([&] { sortOrder(0, count - 1); });
  bool outgrown = false;
  guarded([&] {
    std::shared_ptr<Extender> last = orderItem(count - 1);
    outgrown = last->Top() + last->Height() + kBottomMargin > surface().ScaleHeight();
  });
  if (outgrown) {
    guarded([&] { setScrollVisible(true); });
    XPBarScrollCheck();
  } else {
    guarded([&] { setScrollVisible(false); });
  }
  if (m_AutoFrameAlign || ambient().UserMode()) {
    CtrlRefresh(-1);
    guarded([&] { surface().setAutoRedraw(true); });
    paintBackground();
  }
}

void VexFrameBox::CtrlRefresh(int32_t lhwnd) {
  int32_t found = -1;
  int32_t count = static_cast<int32_t>(m_order.size());
  for (int32_t i = 0; i <= count - 2; ++i) {
    guarded([&] {
      std::shared_ptr<Extender> self = orderItem(i), next = orderItem(i + 1);
      guarded([&] { next->setTop(self->Top() + self->Height() + m_FrameDistance); });
      guarded([&] { next->setLeft(self->Left()); });
      guarded([&] {
        if (next->get("hWnd").toLong() == lhwnd) found = m_order[i + 1].first;
      });
    });
  }
  XPBarScrollCheck();
  if (!m_ScrollVisible || found == -1) return;
  // Bring the changed control into view: a frame that opens near the bottom is shown whole.
  guarded([&] {
    std::shared_ptr<Extender> changed = items().at(found);
    int32_t target =
        CLng(changed->Top() + changed->Height() - surface().ScaleHeight() + bar().Value() + kBottomMargin);
    if (orderItem(0)->Top() > -target) bar().setValue(CInt(target));  // beyond 16 bits: overflow
  });
}

void VexFrameBox::XPBarScrollCheck() {
  guarded([&] {
    std::shared_ptr<Extender> last = orderItem(static_cast<int32_t>(m_order.size()) - 1);
    int32_t total = CLng(last->Height() + last->Top() + bar().Value() + kBottomMargin);
    float height = surface().ScaleHeight();
    if (height <= total) {
      if (!m_ScrollVisible) {
        guarded([&] { bar().setValue(0); });
        if (m_AutoIndent)
          for (const auto& c : items()) guarded([&] { c->setWidth(c->Width() - kIndent); });
        guarded([&] { setScrollVisible(true); });
      }
      guarded([&] { bar().setMax(CInt(total - height)); });
    } else if (m_ScrollVisible) {
      if (m_AutoIndent)
        for (const auto& c : items()) guarded([&] { c->setWidth(c->Width() + kIndent); });
      guarded([&] { setScrollVisible(false); });
      guarded([&] { bar().setValue(0); });
    }
  });
}

void VexFrameBox::ApplyScroll(int32_t value) {
  double delta = value - m_lastScroll;
  for (const auto& c : items()) guarded([&] { c->setTop(static_cast<float>(c->Top() - delta)); });
  m_lastScroll = value;
}

void VexFrameBox::paintBackground() {
  guarded([&] {
    Surface& s = surface();
    if (!hasPicture(m_BackgroundImage)) {
      s.setPicture(StdPicture::empty());
      return;
    }
    if (m_BackgroundImageStyle == vxstandard) {
      s.setPicture(m_BackgroundImage);
      return;
    }
    float tw = s.ScaleX(static_cast<float>(m_BackgroundImage->Width()), 8, 1);
    float th = s.ScaleY(static_cast<float>(m_BackgroundImage->Height()), 8, 1);
    if (tw <= 0 || th <= 0) return;  // the loops would not end
    for (float x = 1; x <= s.Width(); x += tw)
      for (float y = 1; y <= s.Height(); y += th)
        guarded([&] { s.PaintPicture(m_BackgroundImage, x, y, tw, th); });
  });
}

// ---- properties ----

void VexFrameBox::setAutoFrameAlign(bool v) {
  m_AutoFrameAlign = v;
  if (v) {
    m_lastCount = 0;
    Paint();
  }
  PropertyChanged("AutoFrameAlign");
}

int16_t VexFrameBox::ScrollValue() const { return m_XPScroll ? m_XPScroll->Value() : int16_t(0); }

void VexFrameBox::setScrollValue(int16_t v) {
  int32_t value = v;
  guarded([&] {
    if (value < bar().Min()) value = bar().Min();
  });
  guarded([&] {
    std::shared_ptr<Extender> last = orderItem(static_cast<int32_t>(m_order.size()) - 1);
    float bottom = last->Top() + last->Height();
    if (value > bottom) value = CLng(bottom);
  });
  guarded([&] { bar().setValue(CInt(value)); });
  guarded([&] { PropertyChanged("ScrollValue"); });
}

void VexFrameBox::setScrollVisible(bool v) {
  PropertyChanged("ScrollVisible");
  bar().setEnabled(v);
  m_ScrollVisible = m_ScrollBarAlways ? true : v;
  bar().setVisible(m_ScrollVisible);
  ScrollVisibleEvent(m_ScrollVisible);
}

void VexFrameBox::setBackgroundImage(const PictureRef& v) {
  m_BackgroundImage = v;
  PropertyChanged("BackgroundImage");
  paintBackground();
}

void VexFrameBox::setBackgroundImageStyle(int16_t v) {
  m_BackgroundImageStyle = CByte(v);  // stored as a byte
  PropertyChanged("BackgroundImageStyle");
  paintBackground();
}

void VexFrameBox::setFrameDistance(int16_t v) {
  m_FrameDistance = v;
  PropertyChanged("FrameDistance");
  CtrlRefresh(-1);
}

void VexFrameBox::setAutoIndent(bool v) {
  m_AutoIndent = v;
  PropertyChanged("AutoIndent");
}

void VexFrameBox::setScrollBarAlways(bool v) {
  m_ScrollBarAlways = v;
  PropertyChanged("ScrollBarAlways");
  m_lastCount = -1;
  Paint();
}

void VexFrameBox::setScrollBarTop(int32_t v) {
  m_ScrollBarTop = v;
  PropertyChanged("ScrollBarTop");
  bar().extenderRef()->setTop(static_cast<float>(v));
  onResize();
}

// ---- lifecycle ----

void VexFrameBox::InitProperties() {
  m_AutoFrameAlign = true;
  m_ScrollVisible = false;
  guarded([&] { m_BackgroundImage = LoadPicture(); });
  m_BackgroundImageStyle = vxstandard;
  m_FrameDistance = 255;
  m_AutoIndent = true;
  guarded([&] { bar().setVisible(false); });
}

void VexFrameBox::ReadProperties(PropertyBag& bag) {
  guarded([&] {
    surface().setBackColor(bag.ReadProperty("BackColor", static_cast<int32_t>(0x8000000F)).toLong());
  });
  guarded([&] {
    m_Enabled = bag.ReadProperty("Enabled", true).toBool();
    applyEnabledToSurface();
  });
  guarded([&] { m_AutoFrameAlign = bag.ReadProperty("AutoFrameAlign", true).toBool(); });
  guarded([&] { setScrollValue(bag.ReadProperty("ScrollValue", int16_t(0)).toInteger()); });
  guarded([&] { m_ScrollVisible = bag.ReadProperty("ScrollVisible", false).toBool(); });
  guarded([&] { bar().setVisible(m_ScrollVisible); });
  guarded([&] { m_BackgroundImage = pictureFrom(bag.ReadProperty("BackgroundImage", Variant())); });
  guarded([&] { m_BackgroundImageStyle = bag.ReadProperty("BackgroundImageStyle", int16_t(1)).toInteger(); });
  guarded([&] { m_FrameDistance = bag.ReadProperty("FrameDistance", int16_t(255)).toInteger(); });
  guarded([&] { m_AutoIndent = bag.ReadProperty("AutoIndent", true).toBool(); });
  guarded([&] { m_ScrollBarAlways = bag.ReadProperty("ScrollBarAlways", false).toBool(); });
  guarded([&] { m_ScrollBarTop = bag.ReadProperty("ScrollBarTop", 0).toLong(); });
  guarded([&] { bar().extenderRef()->setTop(static_cast<float>(m_ScrollBarTop)); });
}

void VexFrameBox::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor(), static_cast<int32_t>(0x8000000F)); });
  guarded([&] { bag.WriteProperty("Enabled", m_Enabled, true); });
  guarded([&] { bag.WriteProperty("AutoFrameAlign", m_AutoFrameAlign, true); });
  guarded([&] { bag.WriteProperty("ScrollValue", ScrollValue(), int16_t(0)); });
  guarded([&] { bag.WriteProperty("ScrollVisible", m_ScrollVisible, false); });
  guarded([&] { bag.WriteProperty("BackgroundImage", pictureToStore(m_BackgroundImage), Variant()); });
  guarded([&] { bag.WriteProperty("BackgroundImageStyle", m_BackgroundImageStyle, int16_t(1)); });
  guarded([&] { bag.WriteProperty("FrameDistance", m_FrameDistance, int16_t(255)); });
  guarded([&] { bag.WriteProperty("AutoIndent", m_AutoIndent, true); });
  guarded([&] { bag.WriteProperty("ScrollBarAlways", m_ScrollBarAlways, false); });
  guarded([&] { bag.WriteProperty("ScrollBarTop", m_ScrollBarTop, 0); });
}

void VexFrameBox::onResize() {
  guarded([&] { bar().extenderRef()->setHeight(surface().Height() - m_ScrollBarTop); });
  guarded([&] { bar().extenderRef()->setLeft(surface().Width() - kBarWidth); });
  if (hasPicture(m_BackgroundImage)) paintBackground();
  XPBarScrollCheck();
  guarded([&] { Resize(); });
}

void VexFrameBox::Show() {
  if (m_XPScroll && m_XPScroll->Value() >= 1) setScrollValue(0);
}

// ---- members by name ----

const Dispatch* VexFrameBox::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexFrameBox>(t)
        .prop("AutoFrameAlign", &VexFrameBox::AutoFrameAlign, &VexFrameBox::setAutoFrameAlign)
        .prop("ScrollValue", &VexFrameBox::ScrollValue, &VexFrameBox::setScrollValue)
        .prop("ScrollVisible", &VexFrameBox::ScrollVisible, &VexFrameBox::setScrollVisible)
        .prop("BackgroundImage", &VexFrameBox::BackgroundImage, &VexFrameBox::setBackgroundImage)
        .prop("BackgroundImageStyle", &VexFrameBox::BackgroundImageStyle,
              &VexFrameBox::setBackgroundImageStyle)
        .prop("FrameDistance", &VexFrameBox::FrameDistance, &VexFrameBox::setFrameDistance)
        .prop("AutoIndent", &VexFrameBox::AutoIndent, &VexFrameBox::setAutoIndent)
        .prop("ScrollBarAlways", &VexFrameBox::ScrollBarAlways, &VexFrameBox::setScrollBarAlways)
        .prop("ScrollBarTop", &VexFrameBox::ScrollBarTop, &VexFrameBox::setScrollBarTop)
        .method("CtrlRefresh", [](VexFrameBox& b, Dispatch::Args& a) { b.CtrlRefresh(a.at(0).toLong()); })
        .method("XPBarScrollCheck", [](VexFrameBox& b, Dispatch::Args&) { b.XPBarScrollCheck(); })
        .get("ScaleHeight", [](VexFrameBox& b) { return b.surface().ScaleHeight(); })
        .get("ScaleWidth", [](VexFrameBox& b) { return b.surface().ScaleWidth(); })
        .get("ScaleLeft", [](VexFrameBox& b) { return b.surface().ScaleLeft(); })
        .get("ScaleTop", [](VexFrameBox& b) { return b.surface().ScaleTop(); })
        .method("ScaleX",
                [](VexFrameBox& b, Dispatch::Args& a) {
                  return b.surface().ScaleX(a.at(0).toSingle(), a.size() > 1 ? a[1].toInteger() : 8,
                                            a.size() > 2 ? a[2].toInteger() : -1);
                })
        .method("ScaleY", [](VexFrameBox& b, Dispatch::Args& a) {
          return b.surface().ScaleY(a.at(0).toSingle(), a.size() > 1 ? a[1].toInteger() : 8,
                                    a.size() > 2 ? a[2].toInteger() : -1);
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/host/extender.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/widgets/vex_splitter.h>

#include <algorithm>

namespace corvane {

namespace {
constexpr int32_t kStoredMin = 250;
constexpr OLE_COLOR kStoredFace = static_cast<OLE_COLOR>(0x8000000F);
constexpr OLE_COLOR kStoredActivateColor = 0x404040;
constexpr OLE_COLOR kActivateBorder = 0xA1A1A1;
constexpr int16_t kSizeNorthSouth = 7, kSizeWestEast = 9;
constexpr int16_t kEscape = 27;

float tppX() { return Screen::instance().TwipsPerPixelX(); }
float tppY() { return Screen::instance().TwipsPerPixelY(); }

bool isEmpty(const RECT& r) { return r.Right <= r.Left || r.Bottom <= r.Top; }

// The smallest rectangle holding both; an empty one does not count, as with the platform's union.
RECT unionRect(const RECT& a, const RECT& b) {
  if (isEmpty(a)) return isEmpty(b) ? RECT{} : b;
  if (isEmpty(b)) return a;
  return RECT{std::min(a.Left, b.Left), std::min(a.Top, b.Top), std::max(a.Right, b.Right),
              std::max(a.Bottom, b.Bottom)};
}

// A failed read leaves the rectangle as it was.
void readWindowRect(const ObjectRef& o, RECT& r) {
  if (!o) throw RuntimeError(err::ObjectNotSet);
  HWND h = o->get("hWnd").toLong();
  RECT read;
  if (user().GetWindowRect(h, read)) r = read;
}

float member(const ObjectRef& o, const char* name) {
  if (!o) throw RuntimeError(err::ObjectNotSet);
  return o->get(name).toSingle();
}

// A neighbour that was never set is error 91, as any call on an empty object variable is.
Object& neighbour(const ObjectRef& o) {
  if (!o) throw RuntimeError(err::ObjectNotSet);
  return *o;
}
}  // namespace

DesignForm VexSplitter::designForm() const {
  DesignForm d;
  d.width = 75;  // five pixels
  d.height = 1200;
  d.scaleMode = Surface::Twips;
  d.backColor = kStoredFace;
  return d;
}

// ---- properties ----

void VexSplitter::SetControls(ObjectRef& oLeftOrTop, ObjectRef& oRightOrBottom) {
  guarded([&] { m_LeftOrTop = oLeftOrTop; });
  guarded([&] { m_RightOrBottom = oRightOrBottom; });
}

void VexSplitter::setBackColor(OLE_COLOR value) {
  m_BackColor = value;
  surface().setBackColor(value);
  drawIdle();
  PropertyChanged("BackColor");
}

void VexSplitter::setBorderColor(OLE_COLOR value) {
  m_BorderColor = value;
  drawIdle();
  PropertyChanged("BorderColor");
}

void VexSplitter::setActivateColor(OLE_COLOR value) {
  m_ActivateColor = value;
  PropertyChanged("ActivateColor");
}

void VexSplitter::setActivateBorder(OLE_COLOR value) {
  m_ActivateBorder = value;
  PropertyChanged("ActivateBorder");
}

void VexSplitter::setDirection(enSplitterDir value) {
  m_Direction = value;
  PropertyChanged("Direction");
}

// ---- drawing ----

// The box's left and right sides lie one pixel outside the bar on purpose, in both directions:
// only its top and bottom lines show.
void VexSplitter::drawIdle() {
  Surface& s = surface();
  guarded([&] { s.Line(-tppX(), 0, s.Width(), s.Height() - tppY(), m_BorderColor, true); });
}

void VexSplitter::drawActive() {
  Surface& s = surface();
  guarded([&] { s.Line(0, 0, s.Width() - tppX(), s.Height() - tppY(), m_ActivateBorder, true); });
}

void VexSplitter::Paint() { drawIdle(); }

void VexSplitter::onResize() {
  guarded([&] { surface().Cls(); });
  drawIdle();
}

// ---- dragging ----

bool VexSplitter::ComputeClip() {
  RECT r1{}, r2{};
  bool canDrag = false;
  guarded([&] { readWindowRect(m_LeftOrTop, r1); });
  guarded([&] { readWindowRect(m_RightOrBottom, r2); });
  if (m_Direction == sdVertical) {
    // The vertical scale on both sides, though widths are compared: kept as it stands.
    guarded([&] {
      canDrag = static_cast<float>(m_MinLeftTop) / tppY() < static_cast<float>(r1.Right - r1.Left) ||
                static_cast<float>(m_MinRightBottom) / tppY() < static_cast<float>(r2.Right - r2.Left);
    });
    guarded([&] { r1.Left = CLng(static_cast<double>(r1.Left) + CLng(m_MinLeftTop / tppX())); });
    guarded([&] { r2.Right = CLng(static_cast<double>(r2.Right) - CLng(m_MinRightBottom / tppX())); });
  } else {
    guarded([&] {
      canDrag = static_cast<float>(m_MinLeftTop) / tppY() < static_cast<float>(r1.Bottom - r1.Top) ||
                static_cast<float>(m_MinRightBottom) / tppY() < static_cast<float>(r2.Bottom - r2.Top);
    });
    guarded([&] { r1.Top = CLng(static_cast<double>(r1.Top) + CLng(m_MinLeftTop / tppY())); });
    guarded([&] { r2.Bottom = CLng(static_cast<double>(r2.Bottom) - CLng(m_MinRightBottom / tppY())); });
  }
  m_ClipRect = unionRect(r1, r2);
  return canDrag;
}

void VexSplitter::onMouseDown(int16_t&, int16_t&, float&, float&) {
  bool canDrag = false;
  guarded([&] { canDrag = ComputeClip(); });
  if (canDrag) {
    m_Dragging = 1;
    guarded([&] { user().GetCursorPos(m_StartCursor); });
    guarded([&] { m_StartTop = extenderObject().Top(); });
    guarded([&] { m_StartLeft = extenderObject().Left(); });
    guarded([&] { BeforeScroll(); });
  }
  // The active look comes even when no drag may start.
  guarded(
      [&] { user().SetWindowPos(hWnd(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE); });
  guarded([&] { surface().setBackColor(m_ActivateColor); });
  drawActive();
}

void VexSplitter::onMouseMove(int16_t&, int16_t&, float&, float&) {
  if (m_Dragging != 1) return;
  // Applied on every move: the first move applies it, not the press.
  guarded([&] { user().ClipCursor(&m_ClipRect); });
  POINTAPI p;
  guarded([&] { user().GetCursorPos(p); });
  if (m_Direction == sdVertical) {
    guarded(
        [&] { extenderObject().setLeft(m_StartLeft + tppX() * static_cast<float>(p.x - m_StartCursor.x)); });
    int32_t side = p.x > m_StartCursor.x ? 1 : 0;
    if (p.x != m_StartCursor.x) guarded([&] { Scrolling(side); });
  } else {
    guarded(
        [&] { extenderObject().setTop(m_StartTop + tppY() * static_cast<float>(p.y - m_StartCursor.y)); });
    int32_t side = p.y > m_StartCursor.y ? 1 : 0;
    if (p.y != m_StartCursor.y) guarded([&] { Scrolling(side); });
  }
}

void VexSplitter::onMouseUp(int16_t&, int16_t&, float&, float&) { ArrangeNeighbours(); }

void VexSplitter::ArrangeNeighbours() {
  guarded([&] { user().ClipCursor(nullptr); });
  guarded([&] { surface().setBackColor(m_BackColor); });
  guarded([&] { surface().Cls(); });
  drawIdle();
  // Positions in twips as read from the objects, windows moved in pixels of the container.
  if (m_Direction == sdHorizontal) {
    guarded([&] { neighbour(m_LeftOrTop).let("Height", extenderObject().Top() - member(m_LeftOrTop, "Top")); });
    guarded([&] {
      const ObjectRef& lower = m_RightOrBottom;
      float barTop = extenderObject().Top(), barHeight = extenderObject().Height();
      int32_t x = CLng(member(lower, "Left") / tppX());
      int32_t y = CLng((barTop + surface().Height()) / tppY());
      int32_t w = CLng(member(lower, "Width") / tppX());
      int32_t h = CLng((member(lower, "Top") + member(lower, "Height") - barTop - barHeight) / tppY());
      user().MoveWindow(lower->get("hWnd").toLong(), x, y, w, h, true);
    });
  } else {
    guarded([&] { neighbour(m_LeftOrTop).let("Width", extenderObject().Left() - member(m_LeftOrTop, "Left")); });
    guarded([&] {
      const ObjectRef& right = m_RightOrBottom;
      float barLeft = extenderObject().Left(), barWidth = extenderObject().Width();
      int32_t x = CLng((barLeft + surface().Width()) / tppX());
      int32_t y = CLng(member(right, "Top") / tppY());
      int32_t w = CLng((member(right, "Left") + member(right, "Width") - barLeft - barWidth) / tppX());
      int32_t h = CLng(member(right, "Height") / tppY());
      user().MoveWindow(right->get("hWnd").toLong(), x, y, w, h, true);
    });
  }
  if (m_Dragging == 1) {
    m_Dragging = 0;
    guarded([&] { AfterScroll(); });
  }
}

void VexSplitter::onKeyDown(int16_t& keyCode, int16_t&) {
  if (keyCode != kEscape || m_Dragging != 1) return;
  m_Dragging = 0;
  guarded([&] { extenderObject().Move(m_StartLeft, m_StartTop); });
  guarded([&] { user().ClipCursor(nullptr); });
  guarded([&] { surface().setBackColor(m_BackColor); });
  guarded([&] { surface().Cls(); });
  drawIdle();
  // Disabling the window takes the mouse capture away, so the coming release is not ours.
  guarded([&] { surface().setEnabled(false); });
  guarded([&] { surface().setEnabled(true); });
}

// ---- lifecycle ----

// A freshly placed bar starts at zero everywhere but ActivateBorder, and is saved as such.
void VexSplitter::InitProperties() {
  m_MinLeftTop = 0;
  m_MinRightBottom = 0;
  m_Direction = sdVertical;
  m_BackColor = 0;
  m_BorderColor = 0;
  m_ActivateColor = 0;
  m_ActivateBorder = kActivateBorder;
}

void VexSplitter::ReadProperties(PropertyBag& bag) {
  guarded([&] { m_MinLeftTop = bag.ReadProperty("MinLeftTop", kStoredMin).toLong(); });
  guarded([&] { m_MinRightBottom = bag.ReadProperty("MinRightBottom", kStoredMin).toLong(); });
  guarded([&] {
    m_Direction = static_cast<enSplitterDir>(bag.ReadProperty("Direction", int32_t(sdVertical)).toLong());
  });
  guarded([&] { m_BackColor = bag.ReadProperty("BackColor", kStoredFace).toLong(); });
  guarded([&] { m_BorderColor = bag.ReadProperty("BorderColor", kStoredFace).toLong(); });
  guarded([&] { m_ActivateColor = bag.ReadProperty("ActivateColor", kStoredActivateColor).toLong(); });
  guarded([&] { m_ActivateBorder = bag.ReadProperty("ActivateBorder", kActivateBorder).toLong(); });
  guarded([&] { surface().setBackColor(m_BackColor); });
  guarded([&] { surface().setMousePointer(m_Direction == sdHorizontal ? kSizeNorthSouth : kSizeWestEast); });
}

void VexSplitter::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("MinLeftTop", m_MinLeftTop, kStoredMin); });
  guarded([&] { bag.WriteProperty("MinRightBottom", m_MinRightBottom, kStoredMin); });
  guarded([&] { bag.WriteProperty("Direction", int32_t(m_Direction), int32_t(sdVertical)); });
  guarded([&] { bag.WriteProperty("BackColor", m_BackColor, kStoredFace); });
  guarded([&] { bag.WriteProperty("BorderColor", m_BorderColor, kStoredFace); });
  guarded([&] { bag.WriteProperty("ActivateColor", m_ActivateColor, kStoredActivateColor); });
  guarded([&] { bag.WriteProperty("ActivateBorder", m_ActivateBorder, kActivateBorder); });
}

// At run time the neighbours line up with the bar once, at the start.
void VexSplitter::Show() {
  bool userMode = false;
  guarded([&] { userMode = ambient().UserMode(); });
  if (userMode) ArrangeNeighbours();
}

void VexSplitter::Terminate() {
  m_LeftOrTop.reset();
  m_RightOrBottom.reset();
}

// ---- by name ----

const Dispatch* VexSplitter::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexSplitter>(t)
        .prop("MinRightBottom", &VexSplitter::MinRightBottom, &VexSplitter::setMinRightBottom)
        .prop("MinLeftTop", &VexSplitter::MinLeftTop, &VexSplitter::setMinLeftTop)
        .method("SetControls",
                [](VexSplitter& c, Dispatch::Args& a) {
                  ObjectRef l = a.size() > 0 ? a[0].toObject() : nullptr;
                  ObjectRef r = a.size() > 1 ? a[1].toObject() : nullptr;
                  c.SetControls(l, r);
                })
        .prop("BackColor", &VexSplitter::BackColor, &VexSplitter::setBackColor)
        .prop("BorderColor", &VexSplitter::BorderColor, &VexSplitter::setBorderColor)
        .prop("ActivateColor", &VexSplitter::ActivateColor, &VexSplitter::setActivateColor)
        .prop("ActivateBorder", &VexSplitter::ActivateBorder, &VexSplitter::setActivateBorder)
        .get("Direction", [](VexSplitter& c) { return int32_t(c.Direction()); });
    t.addSetter("Direction", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexSplitter&>(o).setDirection(static_cast<enSplitterDir>(v.toLong()));
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane

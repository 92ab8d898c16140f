// SPDX-License-Identifier: MIT
// The mouse, keyboard and link handling of the HTML view: hit testing against the link boxes
// that layout stored in the chunks, hover colouring, the delayed link click, internal jumps,
// calls by name on the parent form, the page-dragging hand and key scrolling.
#include <corvane/containers/vex_pane.h>
#include <corvane/frame/subclass.h>
#include <corvane/host/extender.h>
#include <corvane/host/form.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/strings.h>

#include <algorithm>

namespace corvane {

namespace {
constexpr int32_t kClickTimerId = 1;
constexpr int32_t kClickDelayMs = 100;
constexpr int16_t kCustomPointer = 99;
constexpr int16_t kCtrlMask = 2;
constexpr size_t kMaxCallArguments = 8;

bool isQuote(char c) { return c == '"' || c == '\''; }

PictureRef resourceCursor(const char* name) {
  PictureRef p;
  guarded([&] { p = LoadResPicture(name); });
  return p;
}
}  // namespace

void VexHTML::connectViewport() {
  m_cursorHand = resourceCursor("HAND");
  m_cursorOpen = resourceCursor("ZHANDU");
  m_cursorGrip = resourceCursor("ZHANDD");
  Surface& view = m_picViewPort->surface();
  view.MouseMove.connect(
      [this](int16_t& b, int16_t& s, float& x, float& y) { viewportMouseMove(b, s, x, y); });
  view.MouseDown.connect(
      [this](int16_t& b, int16_t& s, float& x, float& y) { viewportMouseDown(b, s, x, y); });
  view.MouseUp.connect([this](int16_t& b, int16_t& s, float& x, float& y) { viewportMouseUp(b, s, x, y); });
  view.KeyDown.connect([this](int16_t& k, int16_t& s) { viewportKeyDown(k, s); });
  view.Click.connect([this] { Click(); });
}

// ---- hit test and hover ----

int32_t VexHTML::hitTest(float x, float y) const {
  const float sx = m_hscScroll ? m_hscScroll->Value() : 0, sy = m_vscScroll ? m_vscScroll->Value() : 0;
  for (int16_t index : m_Document.mAnchors) {
    if (index < 0 || index > m_Document.upperBound()) continue;
    const html::HtmlChunk& c = m_Document.chunk(index);
    if (c.Href.empty()) continue;
    // A wrapped link's box runs from its first word's left to its end's right and may be empty.
    if (x >= c.Left - sx && x < c.Right - sx && y >= c.Top - sy && y < c.Bottom - sy) return index;
  }
  return -1;
}

void VexHTML::repaintHover(int16_t previous) {
  // A hover changes only the colours of the links concerned. When nothing else can differ from
  // the last pass (no background image asked for at each pass, no frozen changes), repainting
  // those links gives the same page as a whole pass.
  const bool quick = !m_FreezeUpdates && m_Document.mBackgroundSource.empty() && m_picHTML;
  const int16_t now = m_layout.HoverIndex;
  if (quick && m_hoverRuns.repaint(m_picHTML->surface(), previous, previous == now ? 0 : now, now,
                                   m_layout.LinkColor, m_layout.LinkHoverColor)) {
    ++m_quickHoverRepaints;
  } else {
    mRender(false);
  }
  mPaintViewport();
}

void VexHTML::clearHover() {
  if (m_layout.HoverIndex == 0) return;
  const int16_t previous = m_layout.HoverIndex;
  m_layout.HoverIndex = 0;
  repaintHover(previous);
}

bool VexHTML::anyPaneVisible() const {
  return (m_panV && m_panV->extenderRef()->Visible()) || (m_panH && m_panH->extenderRef()->Visible());
}

void VexHTML::setViewportCursor(const PictureRef& icon) {
  if (!m_picViewPort) return;
  guarded([&] {
    Surface& view = m_picViewPort->surface();
    if (view.MouseIcon() != icon) view.setMouseIcon(icon);
    if (view.MousePointer() != kCustomPointer) view.setMousePointer(kCustomPointer);
  });
}

void VexHTML::resetViewportCursor() {
  if (m_picViewPort && m_picViewPort->surface().MousePointer() != 0)
    guarded([&] { m_picViewPort->surface().setMousePointer(0); });
}

// ---- mouse ----

void VexHTML::viewportMouseMove(int16_t& button, int16_t& shift, float& x, float& y) {
  if (!m_Enabled) return;
  guarded([&] {
    TRACKMOUSEEVENT tme;
    tme.dwFlags = TME_LEAVE;
    tme.hwndTrack = m_picViewPort->surface().hWnd();
    user().TrackMouseEvent(tme);
  });
  const int32_t hit = m_Document.view.EnableAnchors ? hitTest(x, y) : -1;
  if (hit >= 0) {
    const html::HtmlChunk& link = m_Document.chunk(hit);
    m_OverLink = true;
    setViewportCursor(m_cursorHand);
    if (m_EnableTooltips) m_viewportToolTip = link.Title.empty() ? link.Href : link.Title;
    if (m_HoverEnabled) {
      // Every move over a link repaints, even over the same link.
      const int16_t previous = m_layout.HoverIndex;
      m_layout.HoverIndex = link.Index;
      repaintHover(previous);
    }
    std::string id = link.ID, href = link.Href;
    MouseMove(id, href, button, shift, x, y);
    return;
  }
  m_viewportToolTip.clear();
  clearHover();
  m_OverLink = false;
  if (button != 0 && m_PageMover && anyPaneVisible()) {
    setViewportCursor(m_cursorGrip);
    // A value out of the bar's range fails silently.
    guarded([&] { m_vscScroll->setValue(CInt(m_DragY - y + m_vscScroll->Value())); });
    m_DragY = CLng(y);
    guarded([&] { m_hscScroll->setValue(CInt(m_DragX - x + m_hscScroll->Value())); });
    m_DragX = CLng(x);
  } else if (button == 0) {
    if (m_PageMover && anyPaneVisible())
      setViewportCursor(m_cursorOpen);
    else
      resetViewportCursor();
  }
  std::string none = "-1", none2 = "-1";
  MouseMove(none, none2, button, shift, x, y);
}

void VexHTML::viewportMouseDown(int16_t& button, int16_t& shift, float& x, float& y) {
  // A press gives the viewport the focus, as a picture box takes it, so that the keys scroll.
  guarded([&] {
    const HWND view = m_picViewPort->surface().hWnd();
    if (user().GetFocus() != view) user().SetFocus(view);
  });
  if (m_PageMover && anyPaneVisible()) {
    m_DragY = CLng(y);
    m_DragX = CLng(x);
    setViewportCursor(m_cursorGrip);
  }
  MouseDown(button, shift, x, y);
}

void VexHTML::viewportMouseUp(int16_t& button, int16_t& shift, float& x, float& y) {
  const int32_t hit = m_Document.view.EnableAnchors ? hitTest(x, y) : -1;
  if (hit >= 0) {
    const html::HtmlChunk& link = m_Document.chunk(hit);
    const bool scrollsVertically = m_layout.EnableScroll == 1 || m_layout.EnableScroll == 3;
    if (!(link.Href[0] == '#' && scrollsVertically)) {
      m_ClickHref = link.Href;
      m_ClickID = link.ID;
      if (!m_clickTimerOn) {
        // An enabled timer is left running: a second click within the delay gives one event.
        guarded(
            [&] { m_clickTimerOn = user().SetTimer(surface().hWnd(), kClickTimerId, kClickDelayMs) != 0; });
      }
      std::string id = link.ID, href = link.Href;
      MouseUp(id, href, button, shift, x, y);
      return;
    }
    // An internal jump: every chunk with the name moves the bar, so the last one wins.
    const std::string target = link.Href.substr(1);
    for (int32_t i = 0; i <= m_Document.upperBound(); ++i) {
      const html::HtmlChunk& c = m_Document.chunk(i);
      if (c.ID != target) continue;
      guarded([&] {
        ScrollBar& v = *m_vscScroll;
        v.setValue(c.Top > v.Max() ? v.Max() : CInt(c.Top));
      });
    }
  }
  std::string none = "-1", none2 = "-1";
  MouseUp(none, none2, button, shift, x, y);
}

void VexHTML::tmrHyperlinkClick_Timer() {
  guarded([&] { user().KillTimer(surface().hWnd(), kClickTimerId); });
  m_clickTimerOn = false;
  if (m_ClickHref.empty()) return;
  std::string href = m_ClickHref, id = m_ClickID;
  m_ClickHref.clear();
  if (UCase(Left(href, 3)) == "VB:") {
    std::string name;
    std::vector<Variant> args;
    mParseCall(Mid(href, 4), name, args);
    mCallParent(name, args);
  } else {
    HyperlinkClick(id, href);
  }
}

LRESULT VexHTML::windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  if (msg == wm::TIMER && wParam == kClickTimerId) {
    tmrHyperlinkClick_Timer();
    return 0;
  }
  return ControlBase::windowProc(hWnd, msg, wParam, lParam);
}

// ---- calls by name ----

void VexHTML::mParseCall(const std::string& text, std::string& name, std::vector<Variant>& args) {
  name.clear();
  args.clear();
  std::string collected;
  // A text with a quote at one end only is still open: a comma inside the quotes stays.
  auto stillOpen = [](const std::string& t) {
    if (t.empty()) return false;
    return t.size() == 1 ? isQuote(t[0]) : isQuote(t.front()) != isQuote(t.back());
  };
  auto takeArgument = [&](bool final) {
    std::string t = Trim(collected);
    if (!final && stillOpen(t)) return false;
    if (t.size() >= 2 && isQuote(t.front()) && t.front() == t.back()) t = t.substr(1, t.size() - 2);
    if (!t.empty()) args.emplace_back(t);  // an empty argument is dropped
    collected.clear();
    return true;
  };
  for (char ch : text) {
    if (name.empty() && (ch == '(' || ch == ' ')) {
      name = Trim(collected);
      collected.clear();
    } else if (!name.empty() && (ch == ')' || ch == ',')) {
      if (!takeArgument(false)) collected += ch;
    } else {
      collected += ch;
    }
  }
  if (name.empty())
    name = Trim(collected);
  else if (!Trim(collected).empty())
    takeArgument(true);
}

void VexHTML::mCallParent(const std::string& name, std::vector<Variant>& args) {
  try {
    Form* form = controlSite().form;
    if (!form || name.empty()) return;
    Dispatch::Args passed;
    if (!args.empty() && args.size() <= kMaxCallArguments) passed = args;
    form->call(name, passed);
  } catch (...) {
    // A failed call by name is swallowed.
  }
}

// ---- keys ----

void VexHTML::viewportKeyDown(int16_t& keyCode, int16_t& shift) {
  if (!m_vscScroll || !m_hscScroll) return;
  ScrollBar& v = *m_vscScroll;
  ScrollBar& h = *m_hscScroll;
  const bool vertical = m_layout.EnableScroll == 1 || m_layout.EnableScroll == 3;
  const bool horizontal = m_layout.EnableScroll == 2 || m_layout.EnableScroll == 3;
  // Up and Down are not clamped: a step past the end fails and is swallowed.
  guarded([&] {
    if (vertical) {
      switch (keyCode) {
        case 38:
          if (v.Value() > v.Min()) v.setValue(CInt(v.Value() - v.SmallChange()));
          break;
        case 40:
          if (v.Value() < v.Max()) v.setValue(CInt(v.Value() + v.SmallChange()));
          break;
        case 33:
          if (v.Value() > v.Min()) v.setValue(CInt(std::max<int32_t>(v.Value() - v.LargeChange(), v.Min())));
          break;
        case 34:
          if (v.Value() < v.Max()) v.setValue(CInt(std::min<int32_t>(v.Value() + v.LargeChange(), v.Max())));
          break;
        case 36:
          if (shift & kCtrlMask) v.setValue(v.Min());
          break;
        case 35:
          if (shift & kCtrlMask) v.setValue(v.Max());
          break;
        default:
          break;
      }
    }
    if (horizontal) {
      if (keyCode == 37 && h.Value() > h.Min())
        h.setValue(CInt(std::max<int32_t>(h.Value() - h.SmallChange(), h.Min())));
      else if (keyCode == 39 && h.Value() < h.Max())
        h.setValue(CInt(std::min<int32_t>(h.Value() + h.SmallChange(), h.Max())));
    }
  });
}

// The wheel moves the page by three small steps a notch, within the bar's range.
void VexHTML::wheel(int16_t delta) {
  if (!m_vscScroll || !(m_layout.EnableScroll == 1 || m_layout.EnableScroll == 3)) return;
  ScrollBar& v = *m_vscScroll;
  const int32_t target = v.Value() - delta * 3 * v.SmallChange() / 120;
  guarded([&] { v.setValue(CInt(std::clamp<int32_t>(target, v.Min(), v.Max()))); });
}

// ---- the viewport's subclass ----

void VexHTML::subclassMessage(int32_t& msg, int32_t wParam) {
  if (msg == wm::MOUSEWHEEL) {
    wheel(static_cast<int16_t>((static_cast<uint32_t>(wParam) >> 16) & 0xFFFF));
    return;
  }
  if (msg == wm::KILLFOCUS || msg == wm::MOUSELEAVE) {
    clearHover();
  } else if (msg == wm::LBUTTONDBLCLK) {
    // The viewport sees a second press in place of the double click.
    msg = wm::LBUTTONDOWN;
    DblClick();
  }
}

void VexHTML::subclassViewport() {
  if (m_SubClass || !m_picViewPort) return;
  m_SubClass = std::make_shared<clsSubClass>();
  m_SubClass->NewMessage.connect(
      [this](int32_t, int32_t& msg, int32_t& wParam, int32_t&, bool&) { subclassMessage(msg, wParam); });
  guarded([&] { m_SubClass->SubClassHwnd(m_picViewPort->surface().hWnd(), true); });
}

void VexHTML::releaseSubclass() {
  if (!m_SubClass) return;
  if (m_picViewPort && m_picViewPort->isSited())
    guarded([&] { m_SubClass->SubClassHwnd(m_picViewPort->surface().hWnd(), false); });
  m_SubClass.reset();
}

}  // namespace corvane

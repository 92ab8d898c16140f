// SPDX-License-Identifier: MIT
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/widgets/vex_line_hover.h>

namespace corvane {

namespace {
constexpr int16_t kCustomPointer = 99;
constexpr OLE_COLOR kWhite = 0xFFFFFF;
constexpr OLE_COLOR kShadowColour = static_cast<OLE_COLOR>(0x80000010);
// The icon is drawn at 16 by 16 pixels; the text starts at 20.
constexpr int32_t kIconSize = 16, kTextLeftWithIcon = 20;
// Room the icon takes from the width available to the text, in twips.
constexpr int32_t kIconTwips = 300;

std::string doubledAmpersands(const std::string& s) {
  std::string out;
  out.reserve(s.size());
  for (char c : s) {
    out += c;
    if (c == '&') out += '&';
  }
  return out;
}
}  // namespace

VexLineHover::VexLineHover() = default;

VexLineHover::~VexLineHover() {
  // A host that drops the control without Terminate must not leave the window hooked to it.
  if (m_SubClass && isSited()) guarded([&] { m_SubClass->SubClassHwnd(hWnd(), false); });
}

DesignForm VexLineHover::designForm() const {
  DesignForm d;
  d.width = 1215;
  d.height = 255;
  d.scaleMode = Surface::Twips;
  return d;
}

bool VexLineHover::hasIcon() const { return m_Icon && m_Icon->Handle() != 0; }

void VexLineHover::applyPointer() {
  surface().setMousePointer(m_HoverStyle == Deactivate ? 0 : kCustomPointer);
}

// ---- properties ----

void VexLineHover::setIcon(const PictureRef& value) {
  m_Icon = value;
  PropertyChanged("Icon");
  if (m_AutoWidth) AdjustWidth();
  Draw(false);
}

void VexLineHover::setCaption(const std::string& value) {
  m_Caption = value;
  PropertyChanged("Caption");
  if (m_AutoWidth) AdjustWidth();
  Draw(false);
}

void VexLineHover::setHoverStyle(CapHoverMode value) {
  m_HoverStyle = value;
  PropertyChanged("HoverStyle");
  applyPointer();
}

void VexLineHover::setBackColor(OLE_COLOR value) {
  surface().setBackColor(value);
  m_AutoBackColor = false;
  PropertyChanged("BackColor");
  Draw(false);
}

void VexLineHover::setForeColor(OLE_COLOR value) {
  m_ForeColor = value;
  PropertyChanged("ForeColor");
  Draw(false);
}

void VexLineHover::setFont(const FontRef& value) {
  surface().setFont(value);  // Nothing is error 380
  PropertyChanged("Font");
  if (m_AutoWidth) AdjustWidth();
  Draw(false);
}

void VexLineHover::setForeColorHover(OLE_COLOR value) {
  m_ForeColorHover = value;
  PropertyChanged("ForeColorHover");
}

void VexLineHover::setAutoBackColor(bool value) {
  m_AutoBackColor = value;
  if (value) {
    guarded([&] { surface().setBackColor(containerMember("BackColor").toLong()); });
    Draw(false);
  }
  PropertyChanged("AutoBackColor");
}

void VexLineHover::setAutoWidth(bool value) {
  m_AutoWidth = value;
  PropertyChanged("AutoWidth");
  if (value) AdjustWidth();
}

void VexLineHover::setMaxAutoWidth(int32_t value) {
  m_MaxAutoWidth = value;
  PropertyChanged("MaxAutoWidth");
  if (m_AutoWidth) AdjustWidth();
}

// ---- text and drawing ----

std::string VexLineHover::CompactString(std::string& Str) {
  std::string buffer = Str;
  if (!isSited()) return buffer;
  guarded([&] {
    Surface& s = surface();
    int16_t twips = CInt(s.Width() - (hasIcon() ? kIconTwips : 0));
    int32_t pixels = CLng(twips / Screen::instance().TwipsPerPixelX());
    std::string compacted = Str;
    gdi().SetDCFont(s.hdc(), s.Font()->desc());
    if (!gdi().PathCompactPathA(s.hdc(), compacted, pixels)) return;
    // The shortened text is written over the start of the buffer and ends at a NUL.
    if (compacted.size() < Str.size())
      buffer = compacted + '\0' + Str.substr(compacted.size() + 1);
    else
      buffer = compacted;
  });
  return buffer;
}

void VexLineHover::Draw(bool Hover) {
  if (!isSited()) return;
  Surface& s = surface();
  std::string text;
  guarded([&] { text = doubledAmpersands(CompactString(m_Caption)); });
  guarded([&] { s.Cls(); });
  int32_t left = 0;
  if (hasIcon()) {
    guarded(
        [&] { gdi().DrawStateA(s.hdc(), 0, 0, m_Icon->Handle(), 0, 0, 0, kIconSize, kIconSize, DST_ICON); });
    left = kTextLeftWithIcon;
  }

  bool underline = false;
  OLE_COLOR colour = m_ForeColor;
  if (Hover) {
    if (m_HoverStyle == ColorUnderline) {
      underline = true;
      colour = m_ForeColorHover;
    } else if (m_HoverStyle == OnlyUnderline) {
      underline = true;
    } else if (m_HoverStyle == OnlyColor) {
      colour = m_ForeColorHover;
    }
  }

  // The look's underline is drawn from a copy, so that the shared font object keeps its own.
  FontSpec font = s.Font()->desc();
  font.underline = underline;
  HDC hdc = s.hdc();
  guarded([&] { gdi().SetDCFont(hdc, font); });
  guarded([&] { gdi().SetBkMode(hdc, 1); });
  RECT rc{left, 1, s.pixelWidth(), s.pixelHeight()};
  if (m_Enabled) {
    guarded([&] { gdi().SetTextColor(hdc, translateColor(colour)); });
    guarded([&] { gdi().DrawTextA(hdc, text, -1, rc, DT_SINGLELINE); });
  } else {
    // Engraved: a white copy one pixel lower and to the right, the shadow colour over it.
    RECT moved{left + 1, 2, s.pixelWidth() + 1, s.pixelHeight() + 1};
    guarded([&] { gdi().SetTextColor(hdc, translateColor(kWhite)); });
    guarded([&] { gdi().DrawTextA(hdc, text, -1, moved, DT_SINGLELINE); });
    guarded([&] { gdi().SetTextColor(hdc, translateColor(kShadowColour)); });
    guarded([&] { gdi().DrawTextA(hdc, text, -1, rc, DT_SINGLELINE); });
  }
  guarded([&] { gdi().SetDCFont(hdc, s.Font()->desc()); });
}

void VexLineHover::AdjustWidth() {
  if (!isSited()) return;
  Surface& s = surface();
  Screen& screen = Screen::instance();
  // Twips: the text, and room for the icon and a margin.
  double needed =
      s.ScaleX(s.TextWidth(m_Caption), -1, Surface::Twips) + (hasIcon() ? 23 : 3) * screen.TwipsPerPixelX();
  int32_t width = CLng(needed);
  if (m_MaxAutoWidth < 1 || m_MaxAutoWidth >= width)
    s.setWidth(static_cast<float>(width));
  else
    s.setWidth(static_cast<float>(m_MaxAutoWidth));
}

// ---- mouse ----

void VexLineHover::onMouseMove(int16_t& b, int16_t& s, float& x, float& y) {
  MouseMove(b, s, x, y);
  // Asked again on every move: the notice is one-shot.
  TRACKMOUSEEVENT tme;
  tme.cbSize = 16;
  tme.dwFlags = TME_LEAVE;
  tme.hwndTrack = hWnd();
  user().TrackMouseEvent(tme);
  Draw(true);
}

void VexLineHover::onClick() {
  guarded([&] {
    if (m_HoverStyle != Deactivate) Click();
  });
  guarded([&] { Draw(false); });
}

void VexLineHover::subclassMessage(int32_t, int32_t& uMsg, int32_t&, int32_t&, bool&) {
  if (uMsg == wm::LBUTTONDBLCLK || uMsg == wm::RBUTTONDBLCLK) {
    // The window goes on with a plain left down.
    uMsg = wm::LBUTTONDOWN;
    if (m_HoverStyle != Deactivate) DblClick();
    Draw(false);
  } else if (uMsg == wm::MOUSELEAVE) {
    Draw(false);
  }
}

// ---- lifecycle ----

void VexLineHover::Initialize() {
  surface().setAutoRedraw(true);
  m_SubClass = std::make_shared<clsSubClass>();
  m_SubClass->NewMessage.connect([this](int32_t h, int32_t& m, int32_t& w, int32_t& l, bool& cancel) {
    subclassMessage(h, m, w, l, cancel);
  });
  m_SubClass->SubClassHwnd(hWnd(), true);
}

void VexLineHover::InitProperties() {
  m_Enabled = true;
  m_Icon = nullptr;
  m_Caption = "Xx";
  m_HoverStyle = ColorUnderline;
  guarded([&] { surface().setBackColor(containerMember("BackColor").toLong()); });
  m_ForeColor = 0;
  guarded([&] { surface().setFont(ambient().Font()); });
  m_ForeColorHover = 0;
  m_AutoBackColor = true;
  m_AutoWidth = false;
  m_MaxAutoWidth = 0;
  applyPointer();
}

void VexLineHover::ReadProperties(PropertyBag& bag) {
  guarded([&] {
    m_Enabled = bag.ReadProperty("Enabled", true).toBool();
    applyEnabledToSurface();
  });
  guarded([&] { m_Icon = bag.ReadProperty("Icon", Variant()).as<PictureRef>(); });
  guarded([&] { m_Caption = bag.ReadProperty("Caption", std::string()).toString(); });
  guarded(
      [&] { m_HoverStyle = static_cast<CapHoverMode>(bag.ReadProperty("HoverStyle", int32_t(2)).toLong()); });
  guarded([&] { surface().setBackColor(bag.ReadProperty("BackColor", int32_t(0)).toLong()); });
  guarded([&] { m_ForeColor = bag.ReadProperty("ForeColor", int32_t(0)).toLong(); });
  guarded([&] { m_ForeColorHover = bag.ReadProperty("ForeColorHover", int32_t(0)).toLong(); });
  guarded([&] { surface().setFont(bag.ReadProperty("Font", ambient().Font()).as<FontRef>()); });
  guarded([&] { m_AutoBackColor = bag.ReadProperty("AutoBackColor", true).toBool(); });
  guarded([&] { m_AutoWidth = bag.ReadProperty("AutoWidth", false).toBool(); });
  guarded([&] { m_MaxAutoWidth = bag.ReadProperty("MaxAutoWidth", int32_t(0)).toLong(); });
  // A control that follows its container ignores the stored colour.
  if (m_AutoBackColor) guarded([&] { surface().setBackColor(containerMember("BackColor").toLong()); });
  guarded([&] { applyPointer(); });
}

void VexLineHover::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("Enabled", m_Enabled, true); });
  guarded([&] { bag.WriteProperty("Icon", m_Icon ? Variant(m_Icon) : Variant(), Variant()); });
  guarded([&] { bag.WriteProperty("Caption", m_Caption, std::string()); });
  guarded([&] { bag.WriteProperty("HoverStyle", int32_t(m_HoverStyle), int32_t(2)); });
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor(), int32_t(0)); });
  guarded([&] { bag.WriteProperty("ForeColor", m_ForeColor, int32_t(0)); });
  guarded([&] { bag.WriteProperty("ForeColorHover", m_ForeColorHover, int32_t(0)); });
  guarded([&] { bag.WriteProperty("Font", surface().Font(), ambient().Font()); });
  guarded([&] { bag.WriteProperty("AutoBackColor", m_AutoBackColor, true); });
  guarded([&] { bag.WriteProperty("AutoWidth", m_AutoWidth, false); });
  guarded([&] { bag.WriteProperty("MaxAutoWidth", m_MaxAutoWidth, int32_t(0)); });
}

void VexLineHover::Show() {
  // No hover in a form designer.
  if (!ambient().UserMode() && m_SubClass) m_SubClass->SubClassHwnd(hWnd(), false);
  Draw(false);
}

void VexLineHover::Terminate() {
  if (!m_SubClass) return;
  m_SubClass->SubClassHwnd(hWnd(), false);
  m_SubClass->Terminate();
  m_SubClass.reset();
}

// ---- by name ----

const Dispatch* VexLineHover::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexLineHover>(t)
        .prop("Icon", &VexLineHover::Icon, &VexLineHover::setIcon)
        .prop("Caption", &VexLineHover::Caption, &VexLineHover::setCaption)
        .get("HoverStyle", [](VexLineHover& c) { return int32_t(c.HoverStyle()); })
        .prop("BackColor", &VexLineHover::BackColor, &VexLineHover::setBackColor)
        .prop("ForeColor", &VexLineHover::ForeColor, &VexLineHover::setForeColor)
        .prop("Font", &VexLineHover::Font, &VexLineHover::setFont)
        .prop("ForeColorHover", &VexLineHover::ForeColorHover, &VexLineHover::setForeColorHover)
        .prop("AutoBackColor", &VexLineHover::AutoBackColor, &VexLineHover::setAutoBackColor)
        .prop("AutoWidth", &VexLineHover::AutoWidth, &VexLineHover::setAutoWidth)
        .prop("MaxAutoWidth", &VexLineHover::MaxAutoWidth, &VexLineHover::setMaxAutoWidth)
        .method("CompactString", [](VexLineHover& c, Dispatch::Args& a) {
          std::string s = a.at(0).toString();
          return Variant(c.CompactString(s));
        });
    t.addSetter("HoverStyle", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexLineHover&>(o).setHoverStyle(static_cast<CapHoverMode>(v.toLong()));
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/host/screen.h>
#include <corvane/host/std_picture.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/guard.h>
#include <corvane/widgets/vex_check.h>

namespace corvane {

namespace {
constexpr OLE_COLOR kDefaultBackColor = static_cast<OLE_COLOR>(0x8000000F);
constexpr OLE_COLOR kDisabledText = 0x92A1A1;  // RGB 161, 161, 146
constexpr OLE_COLOR kPressedMark = 0x636B6B, kDisabledMark = 0xBDCECE;
constexpr int32_t kMinHeight = 14;    // pixels
constexpr int32_t kCaptionLeft = 18;  // pixels
constexpr int32_t kFirstBoxImage = 20, kMixedOffset = 4;

struct MarkSetUp {
  const char* font;
  const char* caption;
  double size;
  int32_t left, top;
};

// Font, character, size in points and place relative to the box, by kind of mark.
MarkSetUp markSetUp(CheckMark kind) {
  switch (kind) {
    case HakenWing:
      return {"Wingdings", "\u00FC", 20, -1, -7};
    case Kreuz:
      return {"Marlett", "r", 9, 1, 1};
    case Kreis:
      return {"Marlett", "h", 16, -4, -3};
    case Dreieck:
      return {"Marlett", "8", 16, -3, -3};
    case Haken:
    default:
      return {"Marlett", "a", 14, -1, -2};
  }
}
}  // namespace

VexCheck::VexCheck() {
  m_ok.Font = StdFont::create(FontSpec{"Marlett", 14});
  m_lbl.Caption = "OK";
  m_lbl.Font = StdFont::create();
  m_lbl.Left = kCaptionLeft;
  m_lbl.Top = -1;
}

DesignForm VexCheck::designForm() const {
  DesignForm d;
  d.width = 1215;
  d.height = 210;  // the box's 14 pixels
  d.scaleMode = Surface::Twips;
  d.backColor = kDefaultBackColor;
  return d;
}

// ---- properties ----

void VexCheck::setChecker(CheckMark value) {
  m_Checker = value;
  setUpMark();
  PropertyChanged("Checker");
  render();
}

void VexCheck::setCheckColor(OLE_COLOR value) {
  m_CheckColor = value;
  showRow(m_look);
  PropertyChanged("CheckColor");
}

void VexCheck::setEnabled(bool value) {
  m_Enabled = value;
  applyEnabledToSurface();
  m_lbl.ForeColor = value ? m_ForeColor : kDisabledText;
  if (value)
    ShowEnabled();
  else
    ShowDisabled();
  PropertyChanged("Enabled");
}

void VexCheck::setValue(CheckState value) {
  m_value = value;
  ShowEnabled();
  PropertyChanged("Value");
}

void VexCheck::setCaption(const std::string& value) {
  m_lbl.Caption = value;
  PropertyChanged("Caption");
  Layout();
}

void VexCheck::setFont(const FontRef& value) {
  if (!value) throw RuntimeError(err::InvalidPropertyValue, "Cannot set Font to Nothing");
  m_lbl.Font = value;
  PropertyChanged("Font");
  Layout();
}

void VexCheck::setBackColor(OLE_COLOR value) {
  surface().setBackColor(value);
  PropertyChanged("BackColor");
  render();
}

void VexCheck::setForeColor(OLE_COLOR value) {
  m_ForeColor = value;
  if (m_Enabled) m_lbl.ForeColor = value;
  PropertyChanged("ForeColor");
  render();
}

// ---- looks ----

int32_t VexCheck::boxImage() const {
  return kFirstBoxImage + static_cast<int32_t>(m_look) + (m_value == Mixed ? kMixedOffset : 0);
}

void VexCheck::setUpMark() {
  MarkSetUp m = markSetUp(m_Checker);
  m_ok.Font = StdFont::create(FontSpec{m.font, m.size});
  m_ok.Caption = m.caption;
  m_ok.Left = m.left;
  m_ok.Top = m.top;
  if (isSited()) guarded([&] { m_ok.AutoSize(hdc()); });
}

void VexCheck::showRow(Look row) {
  m_look = row;
  m_ok.Visible = m_value == Checked;
  if (row == LookPressed)
    m_ok.ForeColor = kPressedMark;
  else if (row == LookDisabled)
    m_ok.ForeColor = kDisabledMark;
  else
    m_ok.ForeColor = m_CheckColor;
  if (!isSited()) return;
  // A missing picture leaves the box out; mark and caption still show.
  guarded([&] { surface().setPicture(LoadResPicture(boxImage(), 0)); });
  render();
}

void VexCheck::render() {
  if (!isSited()) return;
  Surface& s = surface();
  guarded([&] { s.Cls(); });
  guarded([&] { m_lbl.paint(s.hdc()); });
  guarded([&] { m_ok.paint(s.hdc()); });
}

void VexCheck::ShowEnabled() {
  if (!m_Enabled) {
    ShowDisabled();
    return;
  }
  m_ok.Tag.clear();
  showRow(LookNormal);
}

void VexCheck::ShowDisabled() { showRow(LookDisabled); }

void VexCheck::Layout() {
  if (!isSited()) return;
  Surface& s = surface();
  guarded([&] { s.setScaleMode(Surface::Twips); });
  guarded([&] {
    if (s.pixelHeight() < kMinHeight)
      s.setHeight(static_cast<float>(kMinHeight * Screen::instance().TwipsPerPixelY()));
  });
  guarded([&] {
    double size = m_lbl.Font->Size();
    m_lbl.Top = size >= 9 ? -1 : size >= 8 ? 0 : 1;
  });
  guarded([&] { m_lbl.Width = s.pixelWidth() - kCaptionLeft; });
  guarded([&] { m_lbl.Height = s.pixelHeight() - m_lbl.Top; });
  render();
}

// ---- mouse ----

const PaintedLabel* VexCheck::labelAt(float x, float y) const {
  const Surface& s = surface();
  int32_t px = s.toPixelX(x), py = s.toPixelY(y);
  if (m_ok.contains(px, py)) return &m_ok;
  if (m_lbl.contains(px, py)) return &m_lbl;
  return nullptr;
}

void VexCheck::onMouseDown(int16_t& b, int16_t& s, float& x, float& y) {
  if (m_Enabled) {
    m_ok.Tag.clear();
    showRow(LookPressed);
  }
  MouseDown(b, s, x, y);
}

void VexCheck::onMouseMove(int16_t& b, int16_t& sh, float& x, float& y) {
  // A move over a label arrives with the label's place instead of the mouse's.
  if (const PaintedLabel* label = labelAt(x, y)) {
    x = surface().fromPixelX(label->Left);
    y = surface().fromPixelY(label->Top);
  }
  if (!m_Enabled) return;
  Surface& s = surface();
  POINTAPI cursor{};
  user().GetCursorPos(cursor);
  HWND under = user().WindowFromPoint(cursor.x, cursor.y);
  const float onePixelY = s.ScaleY(1, Surface::Pixels, -1);
  const bool inside = x >= 0 && y >= -onePixelY && y <= s.ScaleHeight() && x <= s.ScaleWidth();
  if (inside) {
    if (user().GetCapture() == under) return;
    user().SetCapture(hWnd());
    if (m_ok.Tag != "x") {
      showRow((b & 1) ? LookPressed : LookHover);
      m_ok.Tag = "x";
    }
  } else {
    // The host hears of moves only at the moment the mouse leaves.
    user().ReleaseCapture();
    MouseMove(b, sh, x, y);
    MouseOut();
    ShowEnabled();
  }
}

void VexCheck::onMouseUp(int16_t& b, int16_t& s, float& x, float& y) {
  MouseUp(b, s, x, y);
  // Any button, wherever the cursor is. Mixed is reached only from the host's code.
  m_value = m_value == Unchecked ? Checked : Unchecked;
  ShowEnabled();
  Click();
}

// ---- lifecycle ----

void VexCheck::Initialize() {
  surface().setAutoRedraw(true);
  ShowEnabled();
  Layout();
  guarded([&] { surface().setBackColor(surface().BackColor()); });
  setUpMark();
  render();
}

void VexCheck::InitProperties() {
  m_value = Unchecked;
  guarded([&] { m_lbl.Caption = ambient().DisplayName(); });
  m_Enabled = true;
  guarded([&] { m_lbl.Font = ambient().Font(); });
  guarded([&] { surface().setBackColor(kDefaultBackColor); });
  m_ForeColor = 0;
  m_lbl.ForeColor = 0;
  m_CheckColor = 0;
  m_Checker = Haken;
  setUpMark();
}

void VexCheck::ReadProperties(PropertyBag& bag) {
  guarded([&] { m_value = static_cast<CheckState>(bag.ReadProperty("Value", int32_t(Unchecked)).toLong()); });
  guarded([&] { m_lbl.Caption = bag.ReadProperty("Caption", ambient().DisplayName()).toString(); });
  guarded([&] {
    m_Enabled = bag.ReadProperty("Enabled", true).toBool();
    applyEnabledToSurface();
  });
  guarded([&] {
    FontRef f = bag.ReadProperty("Font", ambient().Font()).as<FontRef>();
    if (f) m_lbl.Font = f;
  });
  guarded([&] { surface().setBackColor(bag.ReadProperty("BackColor", kDefaultBackColor).toLong()); });
  guarded([&] { m_ForeColor = bag.ReadProperty("ForeColor", int32_t(0)).toLong(); });
  guarded([&] { m_CheckColor = bag.ReadProperty("CheckColor", int32_t(0)).toLong(); });
  guarded([&] { m_Checker = static_cast<CheckMark>(bag.ReadProperty("Checker", int32_t(Haken)).toLong()); });
  // Computed from what was read; the Resize after loading draws.
  m_lbl.ForeColor = m_Enabled ? m_ForeColor : kDisabledText;
  setUpMark();
  m_look = m_Enabled ? LookNormal : LookDisabled;
  m_ok.Visible = m_value == Checked;
  m_ok.ForeColor = m_Enabled ? m_CheckColor : kDisabledMark;
  guarded([&] { surface().setPicture(LoadResPicture(boxImage(), 0)); });
}

void VexCheck::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("Value", int32_t(m_value), int32_t(Unchecked)); });
  guarded([&] { bag.WriteProperty("Caption", m_lbl.Caption, ambient().DisplayName()); });
  guarded([&] { bag.WriteProperty("Enabled", m_Enabled, true); });
  guarded([&] { bag.WriteProperty("Font", m_lbl.Font, ambient().Font()); });
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor(), kDefaultBackColor); });
  guarded([&] { bag.WriteProperty("ForeColor", m_ForeColor, int32_t(0)); });
  guarded([&] { bag.WriteProperty("CheckColor", m_CheckColor, int32_t(0)); });
  guarded([&] { bag.WriteProperty("Checker", int32_t(m_Checker), int32_t(Haken)); });
}

// ---- by name ----

const Dispatch* VexCheck::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexCheck>(t)
        .get("Checker", [](VexCheck& c) { return int32_t(c.Checker()); })
        .prop("CheckColor", &VexCheck::CheckColor, &VexCheck::setCheckColor)
        .prop("Enabled", &VexCheck::Enabled, &VexCheck::setEnabled)
        .get("Value", [](VexCheck& c) { return int32_t(c.value()); })
        .prop("Caption", &VexCheck::Caption, &VexCheck::setCaption)
        .prop("Font", &VexCheck::Font, &VexCheck::setFont)
        .prop("BackColor", &VexCheck::BackColor, &VexCheck::setBackColor)
        .prop("ForeColor", &VexCheck::ForeColor, &VexCheck::setForeColor);
    t.addSetter("Checker", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexCheck&>(o).setChecker(static_cast<CheckMark>(v.toLong()));
    });
    t.addSetter("Value", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexCheck&>(o).setValue(static_cast<CheckState>(v.toLong()));
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane

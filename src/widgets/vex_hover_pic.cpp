// SPDX-License-Identifier: MIT
#include <corvane/widgets/vex_hover_pic.h>

#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>

namespace corvane {

namespace {
constexpr int16_t kCustomPointer = 99;
constexpr OLE_COLOR kDefaultMaskColor = 255;
constexpr OLE_COLOR kDefaultBackColor = 0xFFFFFF;
constexpr OLE_COLOR kDefaultIconShadow = 0xC0C0C0;
// The disabled look of the up picture always covers this many pixels each way.
constexpr int32_t kDisabledSize = 32;

// A picture property counts as set when it holds an image; an empty picture is none.
bool hasPicture(const PictureRef& p) { return p && p->Handle() != 0; }
bool isIcon(const PictureRef& p) { return p && p->Type() == StdPicture::vbPicTypeIcon; }
bool isBitmap(const PictureRef& p) { return p && p->Type() == StdPicture::vbPicTypeBitmap; }

PictureRef pictureFrom(const Variant& v) {
  PictureRef p = v.as<PictureRef>();
  return p ? p : LoadPicture();
}

// An empty picture is stored as none.
Variant pictureToStore(const PictureRef& p) { return hasPicture(p) ? Variant(p) : Variant(); }
}  // namespace

VexHoverPic::VexHoverPic()
    : m_ImageDown(StdPicture::empty()),
      m_ImageHot(StdPicture::empty()),
      m_ImageDisabled(StdPicture::empty()),
      m_ImageUp(StdPicture::empty()) {}

VexHoverPic::~VexHoverPic() {
  // A host that drops the control without Terminate must not leave the window hooked to it.
  if (m_SubClass && isSited()) guarded([&] { m_SubClass->SubClassHwnd(hWnd(), false); });
}

DesignForm VexHoverPic::designForm() const {
  DesignForm d;
  d.width = 510;  // a 32-pixel icon with room for its shadow
  d.height = 510;
  d.scaleMode = Surface::Twips;
  d.backColor = kDefaultBackColor;
  return d;
}

// ---- properties ----

void VexHoverPic::setEnabled(bool value) {
  m_Enabled = value;
  surface().setMousePointer(kCustomPointer);
  applyEnabledToSurface();
  Draw(m_Value);
  PropertyChanged("Enabled");
}

void VexHoverPic::setImageDown(const PictureRef& value) {
  m_ImageDown = value;
  PropertyChanged("ImageDown");
}

void VexHoverPic::setImageHot(const PictureRef& value) {
  m_ImageHot = value;
  PropertyChanged("ImageHot");
}

void VexHoverPic::setImageDisabled(const PictureRef& value) {
  m_ImageDisabled = value;
  PropertyChanged("ImageDisabled");
}

void VexHoverPic::setStyle(STYLE_B value) {
  m_Style = value;
  PropertyChanged("Style");
  m_Value = abUnPressed;
  Draw(StateUp);
}

void VexHoverPic::setValue(VAL_U_P value) {
  m_Value = value;
  PropertyChanged("Value");
  Draw(m_Value);
}

// The up picture is not reported as changed: only its drawing and the size follow it.
void VexHoverPic::setImageUp(const PictureRef& value) {
  m_ImageUp = value;
  surface().setPicture(nullptr);
  AdjustSize();
  Draw(StateUp);
}

void VexHoverPic::setMaskColor(OLE_COLOR value) {
  guarded([&] { m_MaskColor = value; });
  guarded([&] { PropertyChanged("MaskColor"); });
  guarded([&] { surface().setMaskColor(value); });
  guarded([&] {
    Surface& s = surface();
    // Enabled and disabled are crossed in this test on purpose; the rule is kept as it stands.
    if ((isIcon(m_ImageUp) && !m_Enabled) || (isIcon(m_ImageDisabled) && m_Enabled)) s.setMaskPicture(nullptr);
    else s.setMaskPicture(s.Picture());
  });
}

void VexHoverPic::setBackStyle(BACKSTYLE_TO value) {
  guarded([&] { m_BackStyle = value; });
  guarded([&] { PropertyChanged("BackStyle"); });
  guarded([&] { surface().setBackStyle(static_cast<int16_t>(CInt(value))); });
  guarded([&] { surface().setMaskPicture(nullptr); });
  guarded([&] {
    Surface& s = surface();
    if (isBitmap(m_ImageUp)) s.setMaskPicture(s.Picture());
    else if (isBitmap(m_ImageDisabled)) s.setMaskPicture(s.Picture());
  });
}

void VexHoverPic::setBackColor(OLE_COLOR value) {
  surface().setBackColor(value);
  PropertyChanged("BackColor");
  Draw(m_Value);
}

void VexHoverPic::setIconShadow(OLE_COLOR value) {
  m_IconShadow = value;
  PropertyChanged("IconShadow");
}

void VexHoverPic::setMouseIcon(const PictureRef& value) {
  surface().setMouseIcon(value);
  PropertyChanged("MouseIcon");
}

void VexHoverPic::setAutosize(bool value) {
  m_Autosize = value;
  PropertyChanged("AutoSize");
  AdjustSize();
  Draw(m_Value);
}

// Kept and persisted for the host; the control makes no sound.
void VexHoverPic::setSound(bool value) {
  m_Sound = value;
  PropertyChanged("Sound");
}

// ---- drawing ----

void VexHoverPic::redraw() { Draw(m_Value); }

int32_t VexHoverPic::pixelsX(const PictureRef& p) const {
  if (!p) throw RuntimeError(err::ObjectNotSet);
  return CLng(surface().ScaleX(static_cast<float>(p->Width()), Surface::HiMetric, Surface::Pixels));
}

int32_t VexHoverPic::pixelsY(const PictureRef& p) const {
  if (!p) throw RuntimeError(err::ObjectNotSet);
  return CLng(surface().ScaleY(static_cast<float>(p->Height()), Surface::HiMetric, Surface::Pixels));
}

void VexHoverPic::Draw(int32_t State) {
  if (!isSited()) return;
  Surface& s = surface();
  PictureRef chosen;
  int32_t offset = 0;
  auto handleOf = [](const PictureRef& p) {
    if (!p) throw RuntimeError(err::ObjectNotSet);
    return p->Handle();
  };

  guarded([&] { s.Cls(); });

  if (!m_Enabled) {
    if (hasPicture(m_ImageDisabled)) {
      chosen = m_ImageDisabled;
    } else {
      guarded([&] {
        gdi().DrawStateA(s.hdc(), 0, 0, handleOf(m_ImageUp), 0, 0, 0, kDisabledSize, kDisabledSize,
                         DST_ICON | DSS_DISABLED);
      });
      return;
    }
  } else if (State == StateUp) {
    chosen = m_ImageUp;
  } else if (State == StateDown) {
    if (hasPicture(m_ImageDown)) {
      chosen = m_ImageDown;
    } else {
      chosen = m_ImageUp;
      offset = 1;
    }
  } else if (State == StateHot) {
    if (hasPicture(m_ImageHot)) {
      chosen = m_ImageHot;
    } else {
      // The up picture over its own silhouette, two pixels lower and to the right.
      HBRUSH brush = 0;
      guarded([&] { brush = gdi().CreateSolidBrush(translateColor(m_IconShadow)); });
      guarded([&] {
        gdi().DrawStateA(s.hdc(), brush, 0, handleOf(m_ImageUp), 0, 2, 2, pixelsX(m_ImageUp), pixelsY(m_ImageUp),
                         DST_ICON | DSS_MONO);
      });
      guarded([&] {
        gdi().DrawStateA(s.hdc(), 0, 0, handleOf(m_ImageUp), 0, 0, 0, pixelsX(m_ImageUp), pixelsY(m_ImageUp),
                         DST_ICON);
      });
      guarded([&] {
        if (brush) gdi().DeleteObject(brush);
      });
      return;
    }
  }

  guarded([&] {
    if (!chosen) throw RuntimeError(err::ObjectNotSet);
    if (chosen->Type() == StdPicture::vbPicTypeBitmap) {
      // A bitmap is the surface's background, and its own mask where the back style is transparent.
      s.setPicture(chosen);
      s.setMaskPicture(chosen);
    } else {
      gdi().DrawStateA(s.hdc(), 0, 0, chosen->Handle(), 0, offset, offset, pixelsX(chosen), pixelsY(chosen), DST_ICON);
    }
  });
}

void VexHoverPic::AdjustSize() {
  if (!hasPicture(m_ImageUp) || !m_Autosize) return;
  Surface& s = surface();
  Screen& screen = Screen::instance();
  float width = s.ScaleX(static_cast<float>(m_ImageUp->Width()), Surface::HiMetric, Surface::Twips);
  float height = s.ScaleY(static_cast<float>(m_ImageUp->Height()), Surface::HiMetric, Surface::Twips);
  if (m_ImageUp->Type() == StdPicture::vbPicTypeIcon) {
    // Room for the hover shadow.
    width += 2 * screen.TwipsPerPixelX();
    height += 2 * screen.TwipsPerPixelY();
  }
  s.setWidth(width);
  s.setHeight(height);
}

// ---- mouse ----

void VexHoverPic::onMouseDown(int16_t& b, int16_t& s, float& x, float& y) {
  if (m_SkipNextDown) {
    // The down that a double click was turned into.
    m_SkipNextDown = 0;
    return;
  }
  if (b == 1) Draw(StateDown);
  MouseDown(b, s, x, y);
}

void VexHoverPic::onMouseMove(int16_t& b, int16_t& s, float& x, float& y) {
  MouseMove(b, s, x, y);
  // Asked again on every move: the notice is one-shot.
  TRACKMOUSEEVENT tme;
  tme.cbSize = 16;
  tme.dwFlags = TME_LEAVE;
  tme.hwndTrack = hWnd();
  user().TrackMouseEvent(tme);
  if (b == 1) {
    Draw(StateDown);
  } else if (m_Style != abStandardButton && m_Value != abUnPressed) {
    // A pressed toggle does not light up: it keeps its picture.
  } else {
    Draw(StateHot);
  }
}

void VexHoverPic::onMouseUp(int16_t& b, int16_t& s, float& x, float& y) {
  if (m_Style == abCheckButton) m_Value = m_Value == abUnPressed ? abPressed : abUnPressed;
  else m_Value = abUnPressed;
  // No redraw: the next move or the leave notice brings the picture up to date.
  MouseUp(b, s, x, y);
}

void VexHoverPic::subclassMessage(int32_t, int32_t& uMsg, int32_t&, int32_t&, bool&) {
  if (uMsg == wm::LBUTTONDBLCLK || uMsg == wm::RBUTTONDBLCLK) {
    // The window goes on with a plain left down, which the flag swallows.
    uMsg = wm::LBUTTONDOWN;
    Draw(StateUp);
    DblClick();
    m_SkipNextDown = -1;
  } else if (uMsg == wm::MOUSELEAVE) {
    Draw(m_Value);
    float x = 0, y = 0;
    MouseOut(x, y);
  }
}

// ---- lifecycle ----

void VexHoverPic::Initialize() {
  surface().setAutoRedraw(true);
  surface().setMousePointer(kCustomPointer);
  m_SubClass = std::make_shared<clsSubClass>();
  m_SubClass->NewMessage.connect([this](int32_t h, int32_t& m, int32_t& w, int32_t& l, bool& cancel) {
    subclassMessage(h, m, w, l, cancel);
  });
  m_SubClass->SubClassHwnd(hWnd(), true);
}

void VexHoverPic::InitProperties() {
  m_Enabled = true;
  guarded([&] { m_ImageDown = LoadPicture(); });
  guarded([&] { m_ImageHot = LoadPicture(); });
  guarded([&] { m_ImageDisabled = LoadPicture(); });
  guarded([&] { m_ImageUp = LoadPicture(); });
  m_Style = abStandardButton;
  m_Value = abUnPressed;
  m_MaskColor = kDefaultMaskColor;
  guarded([&] { surface().setMaskColor(kDefaultMaskColor); });
  m_BackStyle = abOpaque;
  guarded([&] { surface().setBackStyle(abOpaque); });
  guarded([&] { surface().setBackColor(kDefaultBackColor); });
  m_IconShadow = kDefaultIconShadow;
  guarded([&] { surface().setMouseIcon(LoadPicture()); });
  m_Autosize = true;
  m_Sound = true;
}

void VexHoverPic::ReadProperties(PropertyBag& bag) {
  guarded([&] {
    m_Enabled = bag.ReadProperty("Enabled", true).toBool();
    applyEnabledToSurface();
  });
  guarded([&] { m_ImageDown = pictureFrom(bag.ReadProperty("ImageDown", Variant())); });
  guarded([&] { m_ImageHot = pictureFrom(bag.ReadProperty("ImageHot", Variant())); });
  guarded([&] { m_ImageDisabled = pictureFrom(bag.ReadProperty("ImageDisabled", Variant())); });
  guarded([&] { m_ImageUp = pictureFrom(bag.ReadProperty("ImageUp", Variant())); });
  guarded([&] { m_Style = static_cast<STYLE_B>(bag.ReadProperty("Style", int32_t(abStandardButton)).toLong()); });
  guarded([&] { m_Value = static_cast<VAL_U_P>(bag.ReadProperty("Value", int32_t(abUnPressed)).toLong()); });
  guarded([&] {
    m_MaskColor = bag.ReadProperty("MaskColor", kDefaultMaskColor).toLong();
    surface().setMaskColor(m_MaskColor);
  });
  guarded([&] {
    m_BackStyle = static_cast<BACKSTYLE_TO>(bag.ReadProperty("BackStyle", int32_t(abOpaque)).toLong());
    surface().setBackStyle(CInt(m_BackStyle));
  });
  guarded([&] { surface().setBackColor(bag.ReadProperty("BackColor", kDefaultBackColor).toLong()); });
  guarded([&] { m_IconShadow = bag.ReadProperty("IconShadow", kDefaultIconShadow).toLong(); });
  guarded([&] { surface().setMouseIcon(pictureFrom(bag.ReadProperty("MouseIcon", Variant()))); });
  guarded([&] { m_Autosize = bag.ReadProperty("AutoSize", true).toBool(); });
  guarded([&] { m_Sound = bag.ReadProperty("Sound", true).toBool(); });
  guarded([&] { Draw(m_Value); });
}

void VexHoverPic::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("Enabled", m_Enabled, true); });
  guarded([&] { bag.WriteProperty("ImageDown", pictureToStore(m_ImageDown), Variant()); });
  guarded([&] { bag.WriteProperty("ImageHot", pictureToStore(m_ImageHot), Variant()); });
  guarded([&] { bag.WriteProperty("ImageDisabled", pictureToStore(m_ImageDisabled), Variant()); });
  guarded([&] { bag.WriteProperty("ImageUp", pictureToStore(m_ImageUp), Variant()); });
  guarded([&] { bag.WriteProperty("Style", int32_t(m_Style), int32_t(abStandardButton)); });
  guarded([&] { bag.WriteProperty("Value", int32_t(m_Value), int32_t(abUnPressed)); });
  guarded([&] { bag.WriteProperty("MaskColor", m_MaskColor, kDefaultMaskColor); });
  guarded([&] { bag.WriteProperty("BackStyle", int32_t(m_BackStyle), int32_t(abOpaque)); });
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor(), kDefaultBackColor); });
  guarded([&] { bag.WriteProperty("IconShadow", m_IconShadow, kDefaultIconShadow); });
  guarded([&] { bag.WriteProperty("MouseIcon", pictureToStore(surface().MouseIcon()), Variant()); });
  guarded([&] { bag.WriteProperty("AutoSize", m_Autosize, true); });
  guarded([&] { bag.WriteProperty("Sound", m_Sound, true); });
}

void VexHoverPic::Show() {
  if (ambient().UserMode()) return;
  // No hover in a form designer.
  if (m_SubClass) m_SubClass->SubClassHwnd(hWnd(), false);
  surface().setEnabled(false);
}

void VexHoverPic::Terminate() {
  if (!m_SubClass) return;
  m_SubClass->SubClassHwnd(hWnd(), false);
  m_SubClass->Terminate();
  m_SubClass.reset();
}

// ---- by name ----

const Dispatch* VexHoverPic::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexHoverPic>(t)
        .prop("Enabled", &VexHoverPic::Enabled, &VexHoverPic::setEnabled)
        .prop("ImageDown", &VexHoverPic::ImageDown, &VexHoverPic::setImageDown)
        .prop("ImageHot", &VexHoverPic::ImageHot, &VexHoverPic::setImageHot)
        .prop("ImageDisabled", &VexHoverPic::ImageDisabled, &VexHoverPic::setImageDisabled)
        .get("Style", [](VexHoverPic& c) { return int32_t(c.Style()); })
        .get("Value", [](VexHoverPic& c) { return int32_t(c.Value()); })
        .prop("ImageUp", &VexHoverPic::ImageUp, &VexHoverPic::setImageUp)
        .prop("MaskColor", &VexHoverPic::MaskColor, &VexHoverPic::setMaskColor)
        .get("BackStyle", [](VexHoverPic& c) { return int32_t(c.BackStyle()); })
        .prop("BackColor", &VexHoverPic::BackColor, &VexHoverPic::setBackColor)
        .prop("IconShadow", &VexHoverPic::IconShadow, &VexHoverPic::setIconShadow)
        .prop("MouseIcon", &VexHoverPic::MouseIcon, &VexHoverPic::setMouseIcon)
        .prop("Autosize", &VexHoverPic::Autosize, &VexHoverPic::setAutosize)
        .prop("Sound", &VexHoverPic::Sound, &VexHoverPic::setSound);
    t.addSetter("Style", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexHoverPic&>(o).setStyle(static_cast<STYLE_B>(v.toLong()));
    });
    t.addSetter("Value", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexHoverPic&>(o).setValue(static_cast<VAL_U_P>(v.toLong()));
    });
    t.addSetter("BackStyle", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexHoverPic&>(o).setBackStyle(static_cast<BACKSTYLE_TO>(v.toLong()));
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/strings.h>
#include <corvane/widgets/vex_info_panel_light.h>

namespace corvane {

namespace {
constexpr OLE_COLOR kBorderColor = 0x808080;
constexpr OLE_COLOR kBackColor = 0xE2FFFF;
constexpr OLE_COLOR kInfoText = static_cast<OLE_COLOR>(0x80000017);
constexpr int32_t kPicPosLeft = 6, kTextPosLeft = 26, kTextPosTop = 6, kPicPosTop = 5;

bool hasPicture(const PictureRef& p) { return p && p->Handle() != 0; }
PictureRef pictureFrom(const Variant& v) {
  PictureRef p = v.as<PictureRef>();
  return p ? p : LoadPicture();
}
Variant pictureToStore(const PictureRef& p) { return hasPicture(p) ? Variant(p) : Variant(); }
}  // namespace

VexInfoPanelLight::VexInfoPanelLight() : m_Picture(StdPicture::empty()) {}

VexInfoPanelLight::~VexInfoPanelLight() {
  if (m_pen && currentPlatform()) gdi().DeleteObject(m_pen);
}

DesignForm VexInfoPanelLight::designForm() const { return {2700, 900, Surface::Pixels, kBackColor}; }

// ---- properties ----

void VexInfoPanelLight::setBorderColor(OLE_COLOR value) {
  m_BorderColor = value;
  Refresh();
  PropertyChanged("BorderColor");
}

void VexInfoPanelLight::setPicture(const PictureRef& value) {
  m_Picture = value;
  onResize();
  PropertyChanged("Picture");
}

void VexInfoPanelLight::setFont(const FontRef& value) {
  if (!value) throw RuntimeError(err::InvalidPropertyValue, "Cannot set Font to Nothing");
  FontRef own = lblHead.Font()->clone();
  own->setName(value->Name());
  own->setSize(value->Size());
  own->setItalic(value->Italic());
  own->setBold(value->Bold());
  own->setUnderline(value->Underline());
  lblHead.setFont(own);
  PropertyChanged("Font");
}

void VexInfoPanelLight::setText(const std::string& value) {
  m_Text = value;
  lblHead.setCaption(Replace(value, "<br>", "\r\n"));
  PropertyChanged("Text");
}

void VexInfoPanelLight::setBackColor(OLE_COLOR value) {
  surface().setBackColor(value);
  Refresh();
  PropertyChanged("BackColor");
}

void VexInfoPanelLight::setTextColor(OLE_COLOR value) {
  lblHead.setForeColor(value);
  PropertyChanged("TextColor");
}

void VexInfoPanelLight::setRightMargin(int32_t value) {
  m_RightMargin = value;
  onResize();
  PropertyChanged("RightMargin");
}

void VexInfoPanelLight::setWordWrap(bool value) {
  lblHead.setWordWrap(value);
  PropertyChanged("WordWrap");
}

void VexInfoPanelLight::setPicPosLeft(int32_t value) {
  m_PicPosLeft = value;
  onResize();
  PropertyChanged("PicPosLeft");
}

void VexInfoPanelLight::setTextPosLeft(int32_t value) {
  m_TextPosLeft = value;
  onResize();
  PropertyChanged("TextPosLeft");
}

void VexInfoPanelLight::setTextPosTop(int32_t value) {
  m_TextPosTop = value;
  onResize();
  PropertyChanged("TextPosTop");
}

void VexInfoPanelLight::setPicPosTop(int32_t value) {
  m_PicPosTop = value;
  onResize();
  PropertyChanged("PicPosTop");
}

// ---- drawing ----

// The rounded border on the back colour. The border pen stays selected after drawing; it is
// freed when the next drawing replaces it, so that no pen piles up.
void VexInfoPanelLight::Refresh() {
  if (!isSited()) return;
  Surface& s = surface();
  guarded([&] { s.setAutoRedraw(true); });
  guarded([&] { s.setBackColor(s.BackColor()); });
  guarded([&] { s.Cls(); });
  guarded([&] {
    HPEN pen = gdi().CreatePen(0, 0, translateColor(m_BorderColor));
    gdi().SelectObject(s.hdc(), pen);
    if (m_pen) gdi().DeleteObject(m_pen);
    m_pen = pen;
    // The surface fills shapes with nothing: the inside keeps the back colour.
    HBRUSH inside = gdi().CreateSolidBrush(translateColor(s.BackColor()));
    HGDIOBJ old = gdi().SelectObject(s.hdc(), inside);
    gdi().RoundRect(s.hdc(), 0, 0, CLng(s.ScaleWidth()), CLng(s.ScaleHeight()), 20, 20);
    gdi().SelectObject(s.hdc(), old);
    gdi().DeleteObject(inside);
  });
  guarded([&] { s.Refresh(); });
  // With a transparent back style, what lies outside the rounded border in the mask colour falls
  // out of the control's shape.
  guarded([&] { s.setMaskPicture(s.Image()); });
  guarded([&] { s.setAutoRedraw(false); });
}

// ---- layout ----

void VexInfoPanelLight::onResize() {
  if (!isSited()) return;
  Surface& s = surface();
  guarded([&] {
    if (!hasPicture(m_Picture)) {
      imgPicture.surface().setPicture(nullptr);
      user().ShowWindow(imgPicture.surface().hWnd(), SW_HIDE);
    } else {
      int32_t w = CLng(s.ScaleX(static_cast<float>(m_Picture->Width()), 8, 3));
      int32_t h = CLng(s.ScaleY(static_cast<float>(m_Picture->Height()), 8, 3));
      user().MoveWindow(imgPicture.surface().hWnd(), m_PicPosLeft, m_PicPosTop, w, h, true);
      imgPicture.surface().setBackColor(s.BackColor());
      imgPicture.surface().setPicture(m_Picture);
      user().ShowWindow(imgPicture.surface().hWnd(), SW_SHOWNOACTIVATE);
    }
  });
  guarded([&] {
    int32_t w =
        CLng(s.ScaleWidth() - static_cast<float>(m_TextPosLeft) - static_cast<float>(m_RightMargin) - 5);
    int32_t h = CLng(s.ScaleHeight() - static_cast<float>(m_TextPosTop) - 5);
    lblHead.Move(m_TextPosLeft, m_TextPosTop, w, h);
  });
  guarded([&] { setText(m_Text); });
  guarded([&] { lblHead.setBackColor(s.BackColor()); });
  Refresh();
}

// ---- lifecycle ----

void VexInfoPanelLight::Initialize() {
  HWND h = hWnd();
  lblHead.create(h, kTextPosLeft, kTextPosTop, 100, 20);
  lblHead.setForeColor(kInfoText);
  lblHead.surface().Click.connect([this] { Click(); });
  imgPicture.site(ControlSite{}, h, kPicPosLeft, kPicPosTop, 16, 16);
  imgPicture.surface().setScaleMode(Surface::Pixels);
  imgPicture.surface().Click.connect([this] { Click(); });
}

void VexInfoPanelLight::InitProperties() {
  m_BorderColor = kBorderColor;
  guarded([&] { m_Picture = LoadPicture(); });
  guarded([&] { lblHead.setFont(ambient().Font()); });
  guarded([&] { surface().setBackColor(kBackColor); });
  m_RightMargin = 0;
  guarded([&] { lblHead.setWordWrap(false); });
  m_PicPosLeft = kPicPosLeft;
  m_TextPosLeft = kTextPosLeft;
  m_TextPosTop = kTextPosTop;
  m_PicPosTop = kPicPosTop;
}

void VexInfoPanelLight::ReadProperties(PropertyBag& bag) {
  guarded([&] { m_BorderColor = bag.ReadProperty("BorderColor", kBorderColor).toLong(); });
  guarded([&] { m_Picture = pictureFrom(bag.ReadProperty("Picture", Variant())); });
  guarded([&] {
    FontRef f = bag.ReadProperty("Font", Variant(ambient().Font())).as<FontRef>();
    lblHead.setFont(f ? f : ambient().Font());
  });
  guarded([&] { m_Text = bag.ReadProperty("Text", ambient().DisplayName()).toString(); });
  guarded([&] { surface().setBackColor(bag.ReadProperty("BackColor", kBackColor).toLong()); });
  guarded([&] { lblHead.setForeColor(bag.ReadProperty("TextColor", kInfoText).toLong()); });
  guarded([&] { m_RightMargin = bag.ReadProperty("RightMargin", int32_t(0)).toLong(); });
  guarded([&] { lblHead.setWordWrap(bag.ReadProperty("WordWrap", false).toBool()); });
  guarded([&] { m_PicPosLeft = bag.ReadProperty("PicPosLeft", kPicPosLeft).toLong(); });
  guarded([&] { m_TextPosLeft = bag.ReadProperty("TextPosLeft", kTextPosLeft).toLong(); });
  guarded([&] { m_TextPosTop = bag.ReadProperty("TextPosTop", kTextPosTop).toLong(); });
  guarded([&] { m_PicPosTop = bag.ReadProperty("PicPosTop", kPicPosTop).toLong(); });
  onResize();
}

void VexInfoPanelLight::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("BorderColor", m_BorderColor, kBorderColor); });
  guarded([&] { bag.WriteProperty("Picture", pictureToStore(m_Picture), Variant()); });
  guarded([&] { bag.WriteProperty("Font", Variant(Font()), Variant(ambient().Font())); });
  guarded([&] { bag.WriteProperty("Text", m_Text, ambient().DisplayName()); });
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor(), kBackColor); });
  guarded([&] { bag.WriteProperty("TextColor", TextColor(), kInfoText); });
  guarded([&] { bag.WriteProperty("RightMargin", m_RightMargin, int32_t(0)); });
  guarded([&] { bag.WriteProperty("WordWrap", WordWrap(), false); });
  guarded([&] { bag.WriteProperty("PicPosLeft", m_PicPosLeft, kPicPosLeft); });
  guarded([&] { bag.WriteProperty("TextPosLeft", m_TextPosLeft, kTextPosLeft); });
  guarded([&] { bag.WriteProperty("TextPosTop", m_TextPosTop, kTextPosTop); });
  guarded([&] { bag.WriteProperty("PicPosTop", m_PicPosTop, kPicPosTop); });
}

void VexInfoPanelLight::Terminate() {
  if (m_pen && currentPlatform()) gdi().DeleteObject(m_pen);
  m_pen = 0;
}

// ---- by name ----

const Dispatch* VexInfoPanelLight::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexInfoPanelLight>(t)
        .prop("BorderColor", &VexInfoPanelLight::BorderColor, &VexInfoPanelLight::setBorderColor)
        .prop("Picture", &VexInfoPanelLight::Picture, &VexInfoPanelLight::setPicture)
        .prop("Font", &VexInfoPanelLight::Font, &VexInfoPanelLight::setFont)
        .prop("Text", &VexInfoPanelLight::Text, &VexInfoPanelLight::setText)
        .method("Refresh", [](VexInfoPanelLight& c, Dispatch::Args&) { c.Refresh(); })
        .prop("BackColor", &VexInfoPanelLight::BackColor, &VexInfoPanelLight::setBackColor)
        .prop("TextColor", &VexInfoPanelLight::TextColor, &VexInfoPanelLight::setTextColor)
        .prop("RightMargin", &VexInfoPanelLight::RightMargin, &VexInfoPanelLight::setRightMargin)
        .prop("WordWrap", &VexInfoPanelLight::WordWrap, &VexInfoPanelLight::setWordWrap)
        .prop("PicPosLeft", &VexInfoPanelLight::PicPosLeft, &VexInfoPanelLight::setPicPosLeft)
        .prop("TextPosLeft", &VexInfoPanelLight::TextPosLeft, &VexInfoPanelLight::setTextPosLeft)
        .prop("TextPosTop", &VexInfoPanelLight::TextPosTop, &VexInfoPanelLight::setTextPosTop)
        .prop("PicPosTop", &VexInfoPanelLight::PicPosTop, &VexInfoPanelLight::setPicPosTop);
    return t;
  }();
  return &d;
}

}  // namespace corvane

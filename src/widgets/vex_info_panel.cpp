// SPDX-License-Identifier: MIT
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/strings.h>
#include <corvane/widgets/vex_info_panel.h>

namespace corvane {

namespace {
constexpr OLE_COLOR kBorderColor = 0x808080;
constexpr OLE_COLOR kBackColor = 0xE2FFFF;
constexpr OLE_COLOR kInfoText = static_cast<OLE_COLOR>(0x80000017);
constexpr int32_t kPicPosLeft = 8, kPicPosTop = 6;
constexpr int32_t kTopWithCaption = 26, kTopWithoutCaption = 6;
constexpr int32_t kHeadHeight = 17;  // the headline's designed height

bool hasPicture(const PictureRef& p) { return p && p->Handle() != 0; }
PictureRef pictureFrom(const Variant& v) {
  PictureRef p = v.as<PictureRef>();
  return p ? p : LoadPicture();
}
Variant pictureToStore(const PictureRef& p) { return hasPicture(p) ? Variant(p) : Variant(); }
}  // namespace

VexInfoPanel::VexInfoPanel() : m_Picture(StdPicture::empty()) {}

VexInfoPanel::~VexInfoPanel() {
  keepFont(nullptr);
  if (m_pen && currentPlatform()) gdi().DeleteObject(m_pen);
}

DesignForm VexInfoPanel::designForm() const { return {3600, 1200, Surface::Pixels, kBackColor}; }

// ---- properties ----

void VexInfoPanel::setBorderColor(OLE_COLOR value) {
  m_BorderColor = value;
  Refresh();
  PropertyChanged("BorderColor");
}

void VexInfoPanel::setPicture(const PictureRef& value) {
  m_Picture = value;
  onResize();
  PropertyChanged("Picture");
}

void VexInfoPanel::setFont(const FontRef& value) {
  if (!value) throw RuntimeError(err::InvalidPropertyValue, "Cannot set Font to Nothing");
  keepFont(value);
  lblTip.setFont(value);
  txtTip.setFont(value);
  FontRef head = lblHead.Font()->clone();
  head->setName(value->Name());
  head->setSize(value->Size());
  head->setItalic(value->Italic());
  lblHead.setFont(head);
  PropertyChanged("Font");
  Refresh();
}

void VexInfoPanel::setText(const std::string& value) {
  m_Text = value;
  lblTip.setCaption(Replace(value, "<BR>", "\r", 1, -1, CompareMethod::Text));
  txtTip.setText(Replace(value, "<BR>", "\r\n", 1, -1, CompareMethod::Text));
  lblTip.setAutoSize(false);
  lblTip.setAutoSize(true);
  MakeSize();
  PropertyChanged("Text");
}

void VexInfoPanel::setCaption(const std::string& value) {
  m_Caption = value;
  lblHead.setCaption(value);
  m_TextTop = value.empty() ? kTopWithoutCaption : kTopWithCaption;
  lblTip.Move(lblTip.Left(), m_TextTop, lblTip.Width(), lblTip.Height());
  txtTip.Move(txtTip.Left(), m_TextTop, txtTip.Width(), txtTip.Height());
  MakeSize();
  PropertyChanged("Caption");
}

void VexInfoPanel::setBackColor(OLE_COLOR value) {
  surface().setBackColor(value);
  Refresh();
  PropertyChanged("BackColor");
}

void VexInfoPanel::setCaptionColor(OLE_COLOR value) {
  lblHead.setForeColor(value);
  PropertyChanged("CaptionColor");
}

void VexInfoPanel::setTextColor(OLE_COLOR value) {
  lblTip.setForeColor(value);
  txtTip.setForeColor(value);
  PropertyChanged("TextColor");
}

void VexInfoPanel::setRightMargin(int32_t value) {
  m_RightMargin = value;
  onResize();
  PropertyChanged("RightMargin");
}

void VexInfoPanel::setWordWrap(bool value) {
  m_WordWrap = value;
  lblHead.setWordWrap(value);
  PropertyChanged("WordWrap");
}

void VexInfoPanel::setPicPosLeft(int32_t value) {
  m_PicPosLeft = value;
  onResize();
  PropertyChanged("PicPosLeft");
}

void VexInfoPanel::setPicPosTop(int32_t value) {
  m_PicPosTop = value;
  onResize();
  PropertyChanged("PicPosTop");
}

void VexInfoPanel::keepFont(const FontRef& font) {
  if (m_pFont) m_pFont->FontChanged.disconnect(m_pFontListener);
  m_pFont = font;
  m_pFontListener = 0;
  if (m_pFont)
    m_pFontListener = m_pFont->FontChanged.connect([this](const std::string&) { setFont(m_pFont); });
}

// ---- layout ----

int32_t VexInfoPanel::textLeft() const {
  if (!hasPicture(m_Picture)) return m_PicPosLeft;
  return CLng(surface().ScaleX(static_cast<float>(m_Picture->Width()), 8, 3) + 2.0 * m_PicPosLeft);
}

void VexInfoPanel::MakeSize() {
  if (!isSited()) return;
  Surface& s = surface();
  int32_t x = m_PicPosLeft, w = 0;
  guarded([&] { x = textLeft(); });
  guarded([&] {
    w = CLng(s.ScaleWidth() - static_cast<float>(m_PicPosLeft + x) - static_cast<float>(m_RightMargin));
  });
  // The label's height is that of its whole text: when it exceeds the room, the text box takes over.
  bool overflow =
      s.ScaleHeight() - static_cast<float>(m_PicPosTop + m_TextTop) < static_cast<float>(lblTip.Height());
  txtTip.setVisible(overflow);
  lblTip.setVisible(!overflow);
  if (w < 2) {
    lblHead.setWidth(0);
    lblTip.setVisible(false);
    txtTip.setVisible(false);
  } else {
    lblHead.setWidth(w);
    lblTip.setWidth(w);
    txtTip.Move(txtTip.Left(), txtTip.Top(), w, txtTip.Height());
  }
}

void VexInfoPanel::onResize() {
  if (!isSited()) return;
  Surface& s = surface();
  int32_t x = m_PicPosLeft;
  guarded([&] { x = textLeft(); });
  guarded([&] {
    if (!hasPicture(m_Picture)) {
      imgPicture.surface().setPicture(nullptr);
      user().ShowWindow(imgPicture.surface().hWnd(), SW_HIDE);
    } else {
      int32_t w = CLng(s.ScaleX(static_cast<float>(m_Picture->Width()), 8, 3));
      int32_t h = CLng(s.ScaleY(static_cast<float>(m_Picture->Height()), 8, 3));
      user().MoveWindow(imgPicture.surface().hWnd(), m_PicPosLeft, m_PicPosTop, w, h, true);
      imgPicture.surface().setPicture(m_Picture);
      user().ShowWindow(imgPicture.surface().hWnd(), SW_SHOWNOACTIVATE);
    }
  });
  guarded([&] {
    int32_t w =
        CLng(s.ScaleWidth() - static_cast<float>(x + m_PicPosLeft) - static_cast<float>(m_RightMargin));
    lblHead.Move(x, m_PicPosTop, w, lblHead.Height());
  });
  guarded([&] {
    int32_t h = CLng(s.ScaleHeight() - static_cast<float>(m_PicPosTop + m_TextTop));
    lblTip.Move(x, m_TextTop, lblHead.Width(), h);
    txtTip.Move(x, m_TextTop, lblHead.Width(), lblTip.Height());
  });
  guarded([&] { setCaption(m_Caption); });
  guarded([&] { setText(m_Text); });
  Refresh();
}

// ---- drawing ----

// As the light panel: the rounded border on the back colour, the pen kept until the next drawing.
void VexInfoPanel::Refresh() {
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
  guarded([&] { txtTip.setBackColor(s.BackColor()); });
  guarded([&] { txtTip.setForeColor(lblTip.ForeColor()); });
  guarded([&] { imgPicture.surface().setBackColor(s.BackColor()); });
  // The labels are windows of their own here: they take the panel's colour to look see-through.
  guarded([&] { lblHead.setBackColor(s.BackColor()); });
  guarded([&] { lblTip.setBackColor(s.BackColor()); });
}

// ---- lifecycle ----

void VexInfoPanel::Initialize() {
  HWND h = hWnd();
  surface().setAutoRedraw(true);
  imgPicture.site(ControlSite{}, h, kPicPosLeft, kPicPosTop, 16, 16);
  imgPicture.surface().setScaleMode(Surface::Pixels);
  lblHead.create(h, kPicPosLeft, kPicPosTop, 100, kHeadHeight);
  lblTip.create(h, kPicPosLeft, kTopWithoutCaption, 100, 20);
  lblTip.setWordWrap(true);
  lblTip.setAutoSize(true);
  txtTip.create(h, kPicPosLeft, kTopWithoutCaption, 100, 20);
  txtTip.setVisible(false);
  auto click = [this] { Click(); };
  imgPicture.surface().Click.connect(click);
  lblHead.surface().Click.connect(click);
  lblTip.surface().Click.connect(click);
  txtTip.surface().MouseUp.connect([this](int16_t&, int16_t&, float&, float&) { Click(); });
}

void VexInfoPanel::InitProperties() {
  m_BorderColor = kBorderColor;
  guarded([&] { m_Picture = LoadPicture(); });
  guarded([&] {
    keepFont(ambient().Font());
    lblTip.setFont(m_pFont);
    txtTip.setFont(m_pFont);
    FontRef head = m_pFont->clone();
    head->setBold(true);
    lblHead.setFont(head);
  });
  guarded([&] { m_Text = ambient().DisplayName(); });
  m_Caption.clear();
  m_TextTop = kTopWithoutCaption;
  guarded([&] { surface().setBackColor(kBackColor); });
  guarded([&] { lblHead.setForeColor(kInfoText); });
  guarded([&] { lblTip.setForeColor(kInfoText); });
  guarded([&] { txtTip.setForeColor(kInfoText); });
  m_RightMargin = 0;
  m_WordWrap = false;
  m_PicPosLeft = kPicPosLeft;
  m_PicPosTop = kPicPosTop;
}

void VexInfoPanel::ReadProperties(PropertyBag& bag) {
  guarded([&] { m_BorderColor = bag.ReadProperty("BorderColor", kBorderColor).toLong(); });
  guarded([&] { m_Picture = pictureFrom(bag.ReadProperty("Picture", Variant())); });
  guarded([&] {
    FontRef f = bag.ReadProperty("Font", Variant(ambient().Font())).as<FontRef>();
    keepFont(f ? f : ambient().Font());
    lblTip.setFont(m_pFont);
    txtTip.setFont(m_pFont);
    FontRef head = m_pFont->clone();
    head->setBold(true);
    head->setUnderline(false);
    head->setStrikethrough(false);
    lblHead.setFont(head);
  });
  guarded([&] { m_Text = bag.ReadProperty("Text", ambient().DisplayName()).toString(); });
  guarded([&] {
    m_Caption = bag.ReadProperty("Caption", ambient().DisplayName()).toString();
    m_TextTop = m_Caption.empty() ? kTopWithoutCaption : kTopWithCaption;
  });
  guarded([&] { surface().setBackColor(bag.ReadProperty("BackColor", kBackColor).toLong()); });
  guarded([&] { lblHead.setForeColor(bag.ReadProperty("CaptionColor", kInfoText).toLong()); });
  guarded([&] {
    OLE_COLOR c = bag.ReadProperty("TextColor", kInfoText).toLong();
    lblTip.setForeColor(c);
    txtTip.setForeColor(c);
  });
  guarded([&] { m_RightMargin = bag.ReadProperty("RightMargin", int32_t(0)).toLong(); });
  guarded([&] {
    m_WordWrap = bag.ReadProperty("WordWrap", false).toBool();
    lblHead.setWordWrap(m_WordWrap);
  });
  guarded([&] { m_PicPosLeft = bag.ReadProperty("PicPosLeft", kPicPosLeft).toLong(); });
  guarded([&] { m_PicPosTop = bag.ReadProperty("PicPosTop", kPicPosTop).toLong(); });
  onResize();
}

void VexInfoPanel::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("BorderColor", m_BorderColor, kBorderColor); });
  guarded([&] { bag.WriteProperty("Picture", pictureToStore(m_Picture), Variant()); });
  guarded([&] { bag.WriteProperty("Font", Variant(m_pFont), Variant(ambient().Font())); });
  guarded([&] { bag.WriteProperty("Text", m_Text, ambient().DisplayName()); });
  guarded([&] { bag.WriteProperty("Caption", m_Caption, ambient().DisplayName()); });
  guarded([&] { bag.WriteProperty("BackColor", surface().BackColor(), kBackColor); });
  guarded([&] { bag.WriteProperty("CaptionColor", CaptionColor(), kInfoText); });
  guarded([&] { bag.WriteProperty("TextColor", TextColor(), kInfoText); });
  guarded([&] { bag.WriteProperty("RightMargin", m_RightMargin, int32_t(0)); });
  guarded([&] { bag.WriteProperty("WordWrap", m_WordWrap, false); });
  guarded([&] { bag.WriteProperty("PicPosLeft", m_PicPosLeft, kPicPosLeft); });
  guarded([&] { bag.WriteProperty("PicPosTop", m_PicPosTop, kPicPosTop); });
}

void VexInfoPanel::Terminate() {
  if (m_pFont) m_pFont->FontChanged.disconnect(m_pFontListener);
  m_pFontListener = 0;
  if (m_pen && currentPlatform()) gdi().DeleteObject(m_pen);
  m_pen = 0;
}

// ---- by name ----

const Dispatch* VexInfoPanel::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexInfoPanel>(t)
        .prop("BorderColor", &VexInfoPanel::BorderColor, &VexInfoPanel::setBorderColor)
        .method("MakeSize", [](VexInfoPanel& c, Dispatch::Args&) { c.MakeSize(); })
        .prop("Picture", &VexInfoPanel::Picture, &VexInfoPanel::setPicture)
        .prop("Font", &VexInfoPanel::Font, &VexInfoPanel::setFont)
        .prop("Text", &VexInfoPanel::Text, &VexInfoPanel::setText)
        .prop("Caption", &VexInfoPanel::Caption, &VexInfoPanel::setCaption)
        .method("Refresh", [](VexInfoPanel& c, Dispatch::Args&) { c.Refresh(); })
        .prop("BackColor", &VexInfoPanel::BackColor, &VexInfoPanel::setBackColor)
        .prop("CaptionColor", &VexInfoPanel::CaptionColor, &VexInfoPanel::setCaptionColor)
        .prop("TextColor", &VexInfoPanel::TextColor, &VexInfoPanel::setTextColor)
        .prop("RightMargin", &VexInfoPanel::RightMargin, &VexInfoPanel::setRightMargin)
        .prop("WordWrap", &VexInfoPanel::WordWrap, &VexInfoPanel::setWordWrap)
        .prop("PicPosLeft", &VexInfoPanel::PicPosLeft, &VexInfoPanel::setPicPosLeft)
        .prop("PicPosTop", &VexInfoPanel::PicPosTop, &VexInfoPanel::setPicPosTop);
    return t;
  }();
  return &d;
}

}  // namespace corvane

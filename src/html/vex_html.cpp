// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_pane.h>
#include <corvane/frame/gradient.h>
#include <corvane/frame/subclass.h>
#include <corvane/host/extender.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/screen.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/html/html_decode.h>
#include <corvane/html/html_tags.h>
#include <corvane/html/html_tree.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/strings.h>

namespace corvane {

namespace {
constexpr OLE_COLOR kDefaultBackColor = static_cast<OLE_COLOR>(0x8000000F);

constexpr int32_t kBarPixels = 17;

// A child sited by the view itself: it is not among the host's contained controls.
template <class T>
std::shared_ptr<T> ownChild(HostedControl& owner, const std::string& name, int32_t width, int32_t height,
                            std::shared_ptr<T> child = std::make_shared<T>()) {
  ControlSite site;
  site.name = name;
  site.container = &owner;
  site.extender = std::make_shared<Extender>(*child);
  child->site(std::move(site), owner.surface().hWnd(), 0, 0, std::max(1, width), std::max(1, height));
  return child;
}
std::shared_ptr<PictureBox> ownPicture(HostedControl& owner, const std::string& name) {
  auto picture =
      ownChild<PictureBox>(owner, name, owner.surface().pixelWidth(), owner.surface().pixelHeight());
  picture->surface().setScaleMode(Surface::Pixels);
  return picture;
}
std::string barTwipsText(bool vertical) {
  const float tpp = vertical ? Screen::instance().TwipsPerPixelX() : Screen::instance().TwipsPerPixelY();
  return std::to_string(CLng(kBarPixels * tpp));
}
float tagValue(const std::string& tag) { return static_cast<float>(std::stod(tag)); }
}  // namespace

VexHTML::~VexHTML() { Terminate(); }

void VexHTML::Initialize() {
  m_picHTML = ownPicture(*this, "picHTML");
  m_picHTML->surface().setAutoRedraw(true);
  m_picViewPort = ownPicture(*this, "picViewPort");
  m_picViewPort->surface().setBackColor(static_cast<OLE_COLOR>(0x80000005));
  m_picViewPort->surface().Paint.connect([this] { mPaintViewport(); });
  user().ShowWindow(m_picViewPort->surface().hWnd(), SW_SHOWNOACTIVATE);
  m_panV = ownChild<VexPane>(*this, "panV", kBarPixels, 100);
  m_panH = ownChild<VexPane>(*this, "panH", 100, kBarPixels);
  m_vscScroll = ownChild<ScrollBar>(*m_panV, "vscScroll", kBarPixels, 100, std::make_shared<ScrollBar>(true));
  m_hscScroll =
      ownChild<ScrollBar>(*m_panH, "hscScroll", 100, kBarPixels, std::make_shared<ScrollBar>(false));
  connectViewport();
  m_FocusWeg = ownChild<PictureBox>(*this, "FocusWeg", 1, 1);
  m_FocusWeg->extenderRef()->Move(-1500, -1500);
  user().ShowWindow(m_FocusWeg->surface().hWnd(), SW_SHOWNOACTIVATE);
  for (ScrollBar* bar : {m_vscScroll.get(), m_hscScroll.get()}) {
    bar->setMin(0);
    bar->setSmallChange(10);
    user().ShowWindow(bar->surface().hWnd(), SW_SHOWNOACTIVATE);
    bar->Change.connect([this] {
      if (m_Document.mChunkCount > 0) mPaintViewport();
    });
    bar->Scroll.connect([this] {
      if (m_Document.mChunkCount > 0) mPaintViewport();
    });
    bar->GotFocus.connect([this] { guarded([&] { user().SetFocus(m_FocusWeg->surface().hWnd()); }); });
  }
}

void VexHTML::Terminate() {
  releaseSubclass();
  m_hoverRuns.release();
  if (m_clickTimerOn && isSited()) guarded([&] { user().KillTimer(surface().hWnd(), 1); });
  m_clickTimerOn = false;
  for (auto* bar : {&m_vscScroll, &m_hscScroll})
    if (*bar) (*bar)->unsite();
  for (auto* pane : {&m_panV, &m_panH})
    if (*pane) (*pane)->unsite();
  if (m_FocusWeg) m_FocusWeg->unsite();
  if (m_picViewPort) m_picViewPort->unsite();
  if (m_picHTML) m_picHTML->unsite();
  m_picViewPort.reset();
  m_picHTML.reset();
}

void VexHTML::onResize() { Refresh(false); }

// ---- painting ----

void VexHTML::Refresh(bool PaintOnly) {
  m_hoverRuns.invalidate();
  if (m_FreezeUpdates || !m_picHTML || !m_picViewPort) return;
  Surface& view = m_picViewPort->surface();
  // Each round can only show a bar, so a few rounds settle any page.
  for (int round = 0; round < 4; ++round) {
    if (!PaintOnly) guarded([&] { mArrange(); });
    if (m_Document.mChunkCount > 0) {
      Surface& page = m_picHTML->surface();
      page.setAutoRedraw(false);
      mRender(false);
      guarded([&] {
        if (view.ScaleHeight() < m_DocHeight)
          m_picHTML->extenderRef()->setHeight(static_cast<float>(m_DocHeight) *
                                              Screen::instance().TwipsPerPixelY());
      });
      guarded([&] {
        if (view.ScaleWidth() < m_DocWidth)
          m_picHTML->extenderRef()->setWidth(static_cast<float>(m_DocWidth) *
                                             Screen::instance().TwipsPerPixelX());
      });
      page.setAutoRedraw(true);
      mRender(true);
      mRender(false);
    }
    if (m_layout.EnableScroll == 0) break;
    const bool vWas = m_panV->extenderRef()->Visible(), hWas = m_panH->extenderRef()->Visible();
    ScrollBar& v = *m_vscScroll;
    ScrollBar& h = *m_hscScroll;
    guarded([&] { v.setMax(m_Document.mChunkCount > 0 ? CInt(m_DocHeight - view.ScaleHeight()) : 0); });
    guarded([&] { h.setMax(m_Document.mChunkCount > 0 ? CInt(m_DocWidth - view.ScaleWidth()) : 0); });
    guarded([&] { h.setLargeChange(CInt(view.ScaleWidth())); });
    auto settle = [&](ScrollBar& bar, VexPane& pane, std::string& tag, float extent) {
      if (tag == "-1") return;
      guarded([&] { bar.setLargeChange(CInt(extent)); });
      if (bar.Max() >= 1) {
        tag = "255";
        guarded([&] { bar.setValue(0); });
        pane.extenderRef()->setVisible(true);
      } else {
        pane.extenderRef()->setVisible(false);
        guarded([&] { bar.setMax(0); });
        guarded([&] { bar.setValue(0); });
        tag = "0";
      }
    };
    settle(v, *m_panV, m_panVTag, view.ScaleHeight());
    settle(h, *m_panH, m_panHTag, view.ScaleWidth());
    if (vWas == m_panV->extenderRef()->Visible() && hWas == m_panH->extenderRef()->Visible()) break;
  }
  mPaintViewport();
}

void VexHTML::mArrange() {
  const float w = surface().ScaleX(surface().ScaleWidth(), -1, 1);
  const float h = surface().ScaleY(surface().ScaleHeight(), -1, 1);
  if (m_layout.EnableScroll != 0) {
    // The panes are docked along the right and the bottom edge.
    const float vThick = std::max(0.0f, tagValue(m_panVTag)), hThick = std::max(0.0f, tagValue(m_panHTag));
    guarded([&] {
      m_panV->extenderRef()->Move(w - vThick, 0, std::max(vThick, 15.0f), std::max(h - hThick, 15.0f));
    });
    guarded([&] { m_panH->extenderRef()->Move(0, h - hThick, std::max(w, 15.0f), std::max(hThick, 15.0f)); });
    guarded(
        [&] { m_vscScroll->extenderRef()->Move(0, 0, std::max(vThick, 15.0f), m_panV->surface().Height()); });
    guarded([&] {
      m_hscScroll->extenderRef()->Move(0, 0, std::max(m_panH->surface().Width() - tagValue(m_panVTag), 15.0f),
                                       std::max(hThick, 15.0f));
    });
    const float vw = w - tagValue(m_panVTag), vh = h - tagValue(m_panHTag);
    guarded([&] { m_picViewPort->extenderRef()->Move(0, 0, vw, vh); });
    guarded([&] { m_picHTML->extenderRef()->Move(0, 0, vw, vh); });
  } else {
    guarded([&] { m_picHTML->extenderRef()->Move(0, 0, w, h); });
    guarded([&] { m_picViewPort->extenderRef()->Move(0, 0, w, h); });
  }
}

void VexHTML::mRender(bool final) {
  if (!m_picHTML || !m_picViewPort) return;
  Surface& page = m_picHTML->surface();
  if (m_Gradient) {
    page.Cls();
    guarded([&] {
      CGradient gradient;
      gradient.setAngle(m_GradientAngle);
      gradient.setColor1(m_Document.view.BackColor);
      gradient.setColor2(m_BackColor2);
      gradient.DrawGradient(page.hdc(), page.pixelWidth(), page.pixelHeight());
    });
  } else if (!guarded([&] { page.setBackColor(m_Document.mBodyColor); })) {
    // Setting the page colour clears the page in it; a colour it refuses leaves the plain clear.
    page.Cls();
  }
  html::HtmlLayoutSettings settings = m_layout;
  settings.ViewportWidth = static_cast<int32_t>(m_picViewPort->surface().ScaleWidth());
  settings.ViewportHeight = static_cast<int32_t>(m_picViewPort->surface().ScaleHeight());
  html::HtmlLayout layout(m_Document, page, m_Images, settings,
                          [this](std::string& source, PictureRef& image) { LoadImage(source, image); });
  layout.mDocWidth = m_DocWidth;
  // The visible page comes from a measuring pass; it keeps the link runs for quick hovers.
  if (!final) {
    m_hoverRuns.begin();
    layout.setHoverRuns(&m_hoverRuns);
  } else {
    m_hoverRuns.invalidate();  // the drawing pass leaves fills that the next pass covers
  }
  const bool done = guarded([&] { layout.mRender(final); });
  if (!final && done) m_hoverRuns.end();
  m_DocWidth = layout.mDocWidth;
  m_DocHeight = layout.mDocHeight;
}

void VexHTML::mPaintViewport() {
  if (!m_picHTML || !m_picViewPort) return;
  guarded([&] {
    Surface& view = m_picViewPort->surface();
    gdi().BitBlt(view.hdc(), 0, 0, CLng(view.ScaleWidth()), CLng(view.ScaleHeight()),
                 m_picHTML->surface().hdc(), m_hscScroll ? m_hscScroll->Value() : 0,
                 m_vscScroll ? m_vscScroll->Value() : 0, SRCCOPY);
  });
}

void VexHTML::setUpPanes() {
  if (!m_panV || !m_panH) return;
  const int16_t value = m_layout.EnableScroll;
  const bool vertical = value == 1 || value == 3, horizontal = value == 2 || value == 3;
  m_panV->extenderRef()->setVisible(vertical);
  m_panVTag = vertical ? barTwipsText(true) : "-1";
  m_panH->extenderRef()->setVisible(horizontal);
  m_panHTag = horizontal ? barTwipsText(false) : "-1";
}

void VexHTML::setEnableScroll(int16_t value) {
  m_layout.EnableScroll = value;
  PropertyChanged("EnableScroll");
  setUpPanes();
  Refresh(false);
}

void VexHTML::setGradient(bool value) {
  m_Gradient = value;
  PropertyChanged("Gradient");
  Refresh(false);
}

void VexHTML::setGradientAngle(float value) {
  m_GradientAngle = value;
  PropertyChanged("GradientAngle");
  if (m_Gradient) Refresh(false);
}

void VexHTML::setBackColor2(OLE_COLOR value) {
  m_BackColor2 = value;
  PropertyChanged("BackColor2");
  if (m_Gradient) Refresh(false);
}

DesignForm VexHTML::designForm() const {
  DesignForm d;
  d.appearance = 0;
  return d;
}

// The host's appearance may switch its back colour; the view keeps the one it had.
void VexHTML::setAppearance(int16_t value) {
  const OLE_COLOR back = surface().BackColor();
  HostedControl::setAppearance(value);
  surface().setBackColor(back);
  PropertyChanged("Appearance");
  Refresh(false);
}

void VexHTML::setBorderStyle(int16_t value) {
  HostedControl::setBorderStyle(value);
  PropertyChanged("BorderStyle");
  Refresh(false);
}

void VexHTML::setFreezeUpdates(bool value) {
  m_FreezeUpdates = value;
  PropertyChanged("FreezeUpdates");
  if (!value) Refresh(false);
}

void VexHTML::setDefaultPadding(int16_t value) {
  m_layout.DefaultPadding = value;
  PropertyChanged("DefaultPadding");
  Refresh(false);
}

void VexHTML::setDefaultSpacing(int16_t value) {
  m_layout.DefaultSpacing = value;
  PropertyChanged("DefaultSpacing");
  Refresh(false);
}

void VexHTML::setLinkColor(OLE_COLOR value) {
  m_layout.LinkColor = value;
  PropertyChanged("LinkColor");
  if (!m_Document.mText.empty()) Refresh(false);
}

// ---- properties ----

void VexHTML::setText(const std::string& value) {
  m_Images.assign(1, PictureRef());
  m_Document.normalise(value);
  PropertyChanged("Text");
  m_Document.parse();
  Refresh(false);
}

void VexHTML::setDefaultFontName(const std::string& value) {
  m_Document.view.DefaultFontName = value;
  PropertyChanged("DefaultFontName");
  if (!m_Document.mText.empty()) Refresh(false);
}

void VexHTML::setDefaultFontSize(float value) {
  m_Document.view.DefaultFontSize = value;
  PropertyChanged("DefaultFontSize");
  if (!m_Document.mText.empty()) Refresh(false);
}

void VexHTML::setDefaultTextColor(OLE_COLOR value) {
  m_Document.view.DefaultTextColor = value;
  PropertyChanged("DefaultTextColor");
  if (!m_Document.mText.empty()) Refresh(false);
}

void VexHTML::setBackColor(OLE_COLOR value) {
  m_Document.view.BackColor = value;
  // The page colour follows, unless the page's BODY carries its own (which BODY never flags).
  const int16_t body = m_Document.mBodyIndex;
  const bool noChunks = m_Document.mChunkCount == 0;
  bool bodyHasColour =
      !noChunks && body >= 0 && body <= m_Document.upperBound() && m_Document.chunk(body).HasBgColor;
  if (!bodyHasColour) {
    m_Document.mBodyColor = value;
    if (m_picHTML) guarded([&] { m_picHTML->surface().setBackColor(value); });
    if (noChunks) mPaintViewport();
  }
  PropertyChanged("BackColor");
  Refresh(false);
}

void VexHTML::setEnableAnchors(bool value) {
  m_Document.view.EnableAnchors = value;
  m_hoverRuns.invalidate();
  PropertyChanged("EnableAnchors");
}

// ---- public routines of the parse ----

std::string VexHTML::mstrTagID(const std::string& strTag) const {
  return html::HtmlTagReader::mstrTagID(strTag);
}

int16_t VexHTML::mintExtractTagAttributes(const std::string& strTag) {
  return m_Document.tagReader.mintExtractTagAttributes(strTag);
}

void VexHTML::mBuildHierarchy() { html::HtmlTree(m_Document).mBuildHierarchy(); }

// ---- lifecycle ----

void VexHTML::InitProperties() {
  m_Document.view.DefaultFontName = "MS Sans Serif";
  m_Document.view.DefaultFontSize = 10;
  m_Document.view.DefaultTextColor = 0;
  m_Document.view.BackColor = kDefaultBackColor;
  m_Document.view.EnableAnchors = false;
  m_Document.mBodyColor = kDefaultBackColor;
  m_Gradient = false;
  m_GradientAngle = 270;
  m_BackColor2 = 255;
  m_HoverEnabled = true;
  m_PageMover = false;
  m_FreezeUpdates = false;
  // A new view shows the name the host gave it; it is parsed when the control is shown.
  guarded([&] { m_Document.mText = ambient().DisplayName(); });
}

void VexHTML::Show() {
  bool userMode = false;
  guarded([&] { userMode = ambient().UserMode(); });
  if (userMode) {
    m_viewportTabStop = false;
    subclassViewport();
  }
  setText(m_Document.mText);
}

void VexHTML::ReadProperties(PropertyBag& bag) {
  // Values come back without their side effects; only the panes are set up as EnableScroll does.
  guarded([&] { m_FreezeUpdates = bag.ReadProperty("FreezeUpdates", false).toBool(); });
  // These two go back onto the host (no refresh here); a border that changes the view's inner
  // size brings the host's resize hook.
  guarded([&] { HostedControl::setAppearance(bag.ReadProperty("Appearance", int16_t(0)).toInteger()); });
  guarded([&] { HostedControl::setBorderStyle(bag.ReadProperty("BorderStyle", int16_t(0)).toInteger()); });
  guarded([&] { m_Gradient = bag.ReadProperty("Gradient", false).toBool(); });
  guarded([&] { m_GradientAngle = bag.ReadProperty("GradientAngle", 270.0f).toSingle(); });
  guarded([&] { m_BackColor2 = bag.ReadProperty("BackColor2", int32_t(255)).toLong(); });
  guarded([&] {
    m_BackgroundImage = bag.ReadProperty("BackgroundImage", Variant()).as<PictureRef>();
    if (m_picHTML) m_picHTML->surface().setPicture(m_BackgroundImage ? m_BackgroundImage : LoadPicture());
  });
  guarded(
      [&] { m_Document.view.DefaultTextColor = bag.ReadProperty("DefaultTextColor", int32_t(0)).toLong(); });
  guarded([&] { m_layout.LinkColor = bag.ReadProperty("LinkColor", int32_t(0xFF0000)).toLong(); });
  guarded([&] { m_layout.LinkHoverColor = bag.ReadProperty("LinkHoverColor", int32_t(0x800080)).toLong(); });
  guarded([&] {
    m_Document.view.BackColor = bag.ReadProperty("BackColor", kDefaultBackColor).toLong();
    m_Document.mBodyColor = m_Document.view.BackColor;
  });
  guarded([&] {
    m_Enabled = bag.ReadProperty("Enabled", true).toBool();
    m_viewportTabStop = m_Enabled;
  });
  guarded([&] { m_Document.view.EnableAnchors = bag.ReadProperty("EnableAnchors", false).toBool(); });
  guarded([&] {
    m_layout.EnableScroll = bag.ReadProperty("EnableScroll", int16_t(0)).toInteger();
    setUpPanes();
  });
  guarded([&] { m_EnableTooltips = bag.ReadProperty("EnableTooltips", true).toBool(); });
  guarded([&] {
    m_Document.view.DefaultFontName =
        bag.ReadProperty("DefaultFontName", std::string("MS Sans Serif")).toString();
  });
  guarded([&] { m_Document.view.DefaultFontSize = bag.ReadProperty("DefaultFontSize", 10.0f).toSingle(); });
  guarded([&] { m_layout.UnderlineLinks = bag.ReadProperty("UnderlineLinks", true).toBool(); });
  guarded([&] { m_layout.DefaultPadding = bag.ReadProperty("DefaultPadding", int16_t(4)).toInteger(); });
  guarded([&] { m_layout.DefaultSpacing = bag.ReadProperty("DefaultSpacing", int16_t(4)).toInteger(); });
  guarded([&] { m_HoverEnabled = bag.ReadProperty("HoverEnabled", true).toBool(); });
  guarded([&] { m_PageMover = bag.ReadProperty("PageMover", false).toBool(); });
  // Held raw: it is parsed when the control is shown.
  guarded([&] { m_Document.mText = bag.ReadProperty("Text", ambient().DisplayName()).toString(); });
}

void VexHTML::WriteProperties(PropertyBag& bag) {
  guarded([&] { bag.WriteProperty("FreezeUpdates", m_FreezeUpdates, false); });
  guarded([&] { bag.WriteProperty("Appearance", Appearance(), int16_t(0)); });
  guarded([&] { bag.WriteProperty("BorderStyle", BorderStyle(), int16_t(0)); });
  guarded([&] { bag.WriteProperty("Gradient", m_Gradient, false); });
  guarded([&] { bag.WriteProperty("GradientAngle", m_GradientAngle, 270.0f); });
  guarded([&] { bag.WriteProperty("BackColor2", static_cast<int32_t>(m_BackColor2), int32_t(255)); });
  guarded([&] {
    const bool has = m_BackgroundImage && m_BackgroundImage->Handle() != 0;
    bag.WriteProperty("BackgroundImage", has ? Variant(m_BackgroundImage) : Variant(), Variant());
  });
  guarded([&] {
    bag.WriteProperty("DefaultTextColor", static_cast<int32_t>(m_Document.view.DefaultTextColor), int32_t(0));
  });
  guarded(
      [&] { bag.WriteProperty("LinkColor", static_cast<int32_t>(m_layout.LinkColor), int32_t(0xFF0000)); });
  guarded([&] {
    bag.WriteProperty("LinkHoverColor", static_cast<int32_t>(m_layout.LinkHoverColor), int32_t(0x800080));
  });
  guarded([&] {
    bag.WriteProperty("BackColor", static_cast<int32_t>(m_Document.view.BackColor), kDefaultBackColor);
  });
  guarded([&] { bag.WriteProperty("Enabled", m_Enabled, true); });
  guarded([&] { bag.WriteProperty("EnableAnchors", m_Document.view.EnableAnchors, false); });
  guarded([&] { bag.WriteProperty("EnableScroll", m_layout.EnableScroll, int16_t(0)); });
  guarded([&] { bag.WriteProperty("EnableTooltips", m_EnableTooltips, true); });
  guarded([&] {
    bag.WriteProperty("DefaultFontName", m_Document.view.DefaultFontName, std::string("MS Sans Serif"));
  });
  guarded([&] { bag.WriteProperty("DefaultFontSize", m_Document.view.DefaultFontSize, 10.0f); });
  guarded([&] { bag.WriteProperty("UnderlineLinks", m_layout.UnderlineLinks, true); });
  guarded([&] { bag.WriteProperty("DefaultPadding", m_layout.DefaultPadding, int16_t(4)); });
  guarded([&] { bag.WriteProperty("DefaultSpacing", m_layout.DefaultSpacing, int16_t(4)); });
  guarded([&] { bag.WriteProperty("HoverEnabled", m_HoverEnabled, true); });
  guarded([&] { bag.WriteProperty("PageMover", m_PageMover, false); });
  guarded([&] { bag.WriteProperty("Text", m_Document.mText, ambient().DisplayName()); });
}

// ---- the rest of the surface ----

void VexHTML::setEnabled(bool value) {
  m_Enabled = value;
  m_viewportTabStop = value;
  PropertyChanged("Enabled");
}

void VexHTML::setEnableTooltips(bool value) {
  m_EnableTooltips = value;  // stored only, not reported
}

void VexHTML::setHoverEnabled(bool value) {
  m_HoverEnabled = value;
  PropertyChanged("HoverEnabled");
}

void VexHTML::setPageMover(bool value) {
  m_PageMover = value;
  PropertyChanged("PageMover");
}

void VexHTML::setBackgroundImage(const PictureRef& value) {
  m_BackgroundImage = value;
  guarded([&] { surface().setPicture(value ? value : LoadPicture()); });
  if (m_picHTML) guarded([&] { m_picHTML->surface().setPicture(value ? value : LoadPicture()); });
  PropertyChanged("BackgroundImage");
  Refresh(false);
}

std::string VexHTML::RawText() const {
  std::string text = m_Document.mText;
  for (const char* wrapper : {"</HTML>", "<HTML>", "</BODY>", "<BODY>"})
    text = Replace(text, wrapper, "", 1, -1, CompareMethod::Text);
  return Replace(text, "<BR>", "\r\n", 1, -1, CompareMethod::Text);
}

void VexHTML::setRawText(const std::string& value) { setText(Replace(value, "\r\n", "<BR>")); }

std::string VexHTML::DocumentTitle() const {
  const int32_t last = m_Document.upperBound();
  if (m_Document.mChunkCount == 0) return "Unknown";
  for (int32_t i = 0; i <= last; ++i) {
    if (m_Document.chunk(i).TagID != html::TagTitle) continue;
    // Whatever follows the title tag is taken, the closer of an empty title too.
    if (i + 1 > last) return "Unknown";
    return html::mDecodeText(m_Document.chunk(i + 1).Source);
  }
  return "Unknown";
}

const Dispatch* VexHTML::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexHTML>(t)
        .prop("Text", &VexHTML::Text, &VexHTML::setText)
        .get("Caption", &VexHTML::Caption)
        .prop("DefaultFontName", &VexHTML::DefaultFontName, &VexHTML::setDefaultFontName)
        .prop("DefaultFontSize", &VexHTML::DefaultFontSize, &VexHTML::setDefaultFontSize)
        .prop("DefaultTextColor", &VexHTML::DefaultTextColor, &VexHTML::setDefaultTextColor)
        .prop("BackColor", &VexHTML::BackColor, &VexHTML::setBackColor)
        .prop("EnableAnchors", &VexHTML::EnableAnchors, &VexHTML::setEnableAnchors)
        .prop("DefaultPadding", &VexHTML::DefaultPadding, &VexHTML::setDefaultPadding)
        .prop("DefaultSpacing", &VexHTML::DefaultSpacing, &VexHTML::setDefaultSpacing)
        .prop("LinkColor", &VexHTML::LinkColor, &VexHTML::setLinkColor)
        .prop("LinkHoverColor", &VexHTML::LinkHoverColor, &VexHTML::setLinkHoverColor)
        .prop("UnderlineLinks", &VexHTML::UnderlineLinks, &VexHTML::setUnderlineLinks)
        .prop("EnableScroll", &VexHTML::EnableScroll, &VexHTML::setEnableScroll)
        .prop("Gradient", &VexHTML::Gradient, &VexHTML::setGradient)
        .prop("GradientAngle", &VexHTML::GradientAngle, &VexHTML::setGradientAngle)
        .prop("BackColor2", &VexHTML::BackColor2, &VexHTML::setBackColor2)
        .prop("Appearance", &VexHTML::Appearance, &VexHTML::setAppearance)
        .prop("BorderStyle", &VexHTML::BorderStyle, &VexHTML::setBorderStyle)
        .prop("FreezeUpdates", &VexHTML::FreezeUpdates, &VexHTML::setFreezeUpdates)
        .prop("RawText", &VexHTML::RawText, &VexHTML::setRawText)
        .get("DocumentTitle", &VexHTML::DocumentTitle)
        .prop("EnableTooltips", &VexHTML::EnableTooltips, &VexHTML::setEnableTooltips)
        .prop("HoverEnabled", &VexHTML::HoverEnabled, &VexHTML::setHoverEnabled)
        .prop("PageMover", &VexHTML::PageMover, &VexHTML::setPageMover)
        .prop("Enabled", &VexHTML::Enabled, &VexHTML::setEnabled)
        .get("BackgroundImage", &VexHTML::BackgroundImage)
        .let("BackgroundImage",
             [](VexHTML& v, const Variant& value) { v.setBackgroundImage(value.as<PictureRef>()); })
        .get("hWnd", [](VexHTML& v) { return v.hWnd(); })
        .get("hdc", [](VexHTML& v) { return v.hdc(); })
        .method("Refresh",
                [](VexHTML& v, Dispatch::Args& a) {
                  v.Refresh(!a.empty() && a.at(0).toBool());
                  return Variant();
                })
        .method("mstrTagID", [](VexHTML& v, Dispatch::Args& a) { return v.mstrTagID(a.at(0).toString()); })
        .method("mintExtractTagAttributes",
                [](VexHTML& v, Dispatch::Args& a) { return v.mintExtractTagAttributes(a.at(0).toString()); })
        .method("mBuildHierarchy", [](VexHTML& v, Dispatch::Args&) { v.mBuildHierarchy(); });
    return t;
  }();
  return &d;
}

}  // namespace corvane

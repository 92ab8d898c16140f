// SPDX-License-Identifier: MIT
#include <corvane/host/extender.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/screen.h>
#include <corvane/html/html_tree.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>

namespace corvane {

namespace {
constexpr OLE_COLOR kDefaultBackColor = static_cast<OLE_COLOR>(0x8000000F);

// A child sited by the view itself, in pixel scale: it is not among the host's contained controls.
std::shared_ptr<PictureBox> ownPicture(HostedControl& owner, const std::string& name) {
  auto child = std::make_shared<PictureBox>();
  ControlSite site;
  site.name = name;
  site.container = &owner;
  site.extender = std::make_shared<Extender>(*child);
  Surface& s = owner.surface();
  child->site(std::move(site), s.hWnd(), 0, 0, std::max(1, s.pixelWidth()), std::max(1, s.pixelHeight()));
  child->surface().setScaleMode(Surface::Pixels);
  return child;
}
}  // namespace

VexHTML::~VexHTML() { Terminate(); }

void VexHTML::Initialize() {
  m_picHTML = ownPicture(*this, "picHTML");
  m_picHTML->surface().setAutoRedraw(true);
  m_picViewPort = ownPicture(*this, "picViewPort");
  m_picViewPort->surface().setBackColor(static_cast<OLE_COLOR>(0x80000005));
  m_picViewPort->surface().Paint.connect([this] { mPaintViewport(); });
  user().ShowWindow(m_picViewPort->surface().hWnd(), SW_SHOWNOACTIVATE);
}

void VexHTML::Terminate() {
  if (m_picViewPort) m_picViewPort->unsite();
  if (m_picHTML) m_picHTML->unsite();
  m_picViewPort.reset();
  m_picHTML.reset();
}

void VexHTML::onResize() { Refresh(false); }

// ---- painting ----

void VexHTML::Refresh(bool PaintOnly) {
  if (m_FreezeUpdates || !m_picHTML || !m_picViewPort) return;
  guarded([&] {
    if (!PaintOnly) mArrange();
    if (m_Document.mChunkCount > 0) {
      Surface& page = m_picHTML->surface();
      Surface& view = m_picViewPort->surface();
      page.setAutoRedraw(false);
      mRender(false);
      if (view.ScaleHeight() < m_DocHeight)
        m_picHTML->extenderRef()->setHeight(static_cast<float>(m_DocHeight) *
                                            Screen::instance().TwipsPerPixelY());
      if (view.ScaleWidth() < m_DocWidth)
        m_picHTML->extenderRef()->setWidth(static_cast<float>(m_DocWidth) *
                                           Screen::instance().TwipsPerPixelX());
      page.setAutoRedraw(true);
      mRender(true);
      mRender(false);
    }
  });
  mPaintViewport();
}

void VexHTML::mArrange() {
  const float w = surface().ScaleX(surface().ScaleWidth(), -1, 1);
  const float h = surface().ScaleY(surface().ScaleHeight(), -1, 1);
  m_picHTML->extenderRef()->Move(0, 0, w, h);
  m_picViewPort->extenderRef()->Move(0, 0, w, h);
}

void VexHTML::mRender(bool final) {
  if (!m_picHTML || !m_picViewPort) return;
  Surface& page = m_picHTML->surface();
  page.setBackColor(m_Document.mBodyColor);
  page.Cls();
  html::HtmlLayoutSettings settings = m_layout;
  settings.ViewportWidth = static_cast<int32_t>(m_picViewPort->surface().ScaleWidth());
  settings.ViewportHeight = static_cast<int32_t>(m_picViewPort->surface().ScaleHeight());
  html::HtmlLayout layout(m_Document, page, m_Images, settings,
                          [this](std::string& source, PictureRef& image) { LoadImage(source, image); });
  layout.mDocWidth = m_DocWidth;
  guarded([&] { layout.mRender(final); });
  m_DocWidth = layout.mDocWidth;
  m_DocHeight = layout.mDocHeight;
}

void VexHTML::mPaintViewport() {
  if (!m_picHTML || !m_picViewPort) return;
  guarded([&] {
    Surface& view = m_picViewPort->surface();
    gdi().BitBlt(view.hdc(), 0, 0, CLng(view.ScaleWidth()), CLng(view.ScaleHeight()),
                 m_picHTML->surface().hdc(), 0, 0, SRCCOPY);
  });
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
}

void VexHTML::setDefaultFontSize(float value) {
  m_Document.view.DefaultFontSize = value;
  PropertyChanged("DefaultFontSize");
}

void VexHTML::setDefaultTextColor(OLE_COLOR value) {
  m_Document.view.DefaultTextColor = value;
  PropertyChanged("DefaultTextColor");
}

void VexHTML::setBackColor(OLE_COLOR value) {
  m_Document.view.BackColor = value;
  // The page colour follows, unless the page's BODY carries its own (which BODY never flags).
  const int16_t body = m_Document.mBodyIndex;
  bool bodyHasColour = body >= 0 && body <= m_Document.upperBound() && m_Document.chunk(body).HasBgColor;
  if (!bodyHasColour) m_Document.mBodyColor = value;
  PropertyChanged("BackColor");
}

void VexHTML::setEnableAnchors(bool value) {
  m_Document.view.EnableAnchors = value;
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
  // A new view shows the name the host gave it; it is parsed when the control is shown.
  guarded([&] { m_Document.mText = ambient().DisplayName(); });
}

void VexHTML::Show() { setText(m_Document.mText); }

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
        .method("mstrTagID", [](VexHTML& v, Dispatch::Args& a) { return v.mstrTagID(a.at(0).toString()); })
        .method("mintExtractTagAttributes",
                [](VexHTML& v, Dispatch::Args& a) { return v.mintExtractTagAttributes(a.at(0).toString()); })
        .method("mBuildHierarchy", [](VexHTML& v, Dispatch::Args&) { v.mBuildHierarchy(); });
    return t;
  }();
  return &d;
}

}  // namespace corvane

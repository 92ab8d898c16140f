// SPDX-License-Identifier: MIT
#include <corvane/html/html_tree.h>
#include <corvane/html/vex_html.h>

namespace corvane {

namespace {
constexpr OLE_COLOR kDefaultBackColor = static_cast<OLE_COLOR>(0x8000000F);
}  // namespace

// ---- properties ----

void VexHTML::setText(const std::string& value) {
  m_Images.assign(1, PictureRef());
  m_Document.normalise(value);
  PropertyChanged("Text");
  m_Document.parse();
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

// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/host/std_picture.h>
#include <corvane/html/html_document.h>

#include <string>
#include <vector>

namespace corvane {

// A small HTML view: the host hands it a string, and it keeps the parsed page. Setting Text
// normalises the string and runs the parse: chunks, their tag ids and attributes, the repair of
// missing closers, the list of links and the document tree. Layout and drawing come on top of
// this parse state; for now the control draws nothing of its own.
class CORVANE_API VexHTML : public ControlBase {
 public:
  std::string typeName() const override { return "VexHTML"; }

  // The normalised source, wrappers and all.
  const std::string& Text() const { return m_Document.mText; }
  // Normalises, reports "Text" and parses the whole page again.
  void setText(const std::string& value);
  // The constant that marks this control for the Caption page.
  std::string Caption() const { return "*HTMLCntrl*"; }

  const std::string& DefaultFontName() const { return m_Document.view.DefaultFontName; }
  void setDefaultFontName(const std::string& value);
  float DefaultFontSize() const { return m_Document.view.DefaultFontSize; }
  void setDefaultFontSize(float value);
  // A TEXT attribute anywhere in a page overwrites this for the whole view.
  OLE_COLOR DefaultTextColor() const { return m_Document.view.DefaultTextColor; }
  void setDefaultTextColor(OLE_COLOR value);
  OLE_COLOR BackColor() const { return m_Document.view.BackColor; }
  void setBackColor(OLE_COLOR value) override;
  // Read at the next Text only: the list of links is made there.
  bool EnableAnchors() const { return m_Document.view.EnableAnchors; }
  void setEnableAnchors(bool value);

  // Public routines of the parse.
  std::string mstrTagID(const std::string& strTag) const;
  int16_t mintExtractTagAttributes(const std::string& strTag);
  void mBuildHierarchy();

  // The parse state, for layout and tests.
  const html::HtmlDocument& document() const { return m_Document; }
  // The image list: slot 0 is always empty.
  const std::vector<PictureRef>& images() const { return m_Images; }

  // Lifecycle.
  void InitProperties() override;
  void Show() override;

 protected:
  const Dispatch* dispatch() const override;

 private:
  html::HtmlDocument m_Document;
  std::vector<PictureRef> m_Images{PictureRef()};
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/host/std_picture.h>
#include <corvane/html/html_document.h>
#include <corvane/html/html_layout.h>
#include <corvane/runtime/event.h>

#include <memory>
#include <string>
#include <vector>

namespace corvane {

// A small HTML view: the host hands it a string, and it keeps the parsed page. Setting Text
// normalises the string and runs the parse: chunks, their tag ids and attributes, the repair of
// missing closers, the list of links and the document tree. Layout and drawing come on top of
// this parse state: Refresh lays the page out onto an off-screen page surface in three passes and
// copies the visible part into the viewport.
class PictureBox;
class ScrollBar;
class VexPane;

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

  int16_t DefaultPadding() const { return m_layout.DefaultPadding; }
  void setDefaultPadding(int16_t value);
  int16_t DefaultSpacing() const { return m_layout.DefaultSpacing; }
  void setDefaultSpacing(int16_t value);
  OLE_COLOR LinkColor() const { return m_layout.LinkColor; }
  void setLinkColor(OLE_COLOR value);
  OLE_COLOR LinkHoverColor() const { return m_layout.LinkHoverColor; }
  void setLinkHoverColor(OLE_COLOR value) { m_layout.LinkHoverColor = value; }
  bool UnderlineLinks() const { return m_layout.UnderlineLinks; }
  void setUnderlineLinks(bool value) { m_layout.UnderlineLinks = value; }
  // 0 none, 1 vertical, 2 horizontal, 3 both.
  int16_t EnableScroll() const { return m_layout.EnableScroll; }
  void setEnableScroll(int16_t value);
  // A gradient page from BackColor to BackColor2; a BODY BGCOLOR then has no effect.
  bool Gradient() const { return m_Gradient; }
  void setGradient(bool value);
  float GradientAngle() const { return m_GradientAngle; }
  void setGradientAngle(float value);
  OLE_COLOR BackColor2() const { return m_BackColor2; }
  void setBackColor2(OLE_COLOR value);
  int16_t Appearance() const { return m_Appearance; }
  void setAppearance(int16_t value);
  int16_t BorderStyle() const { return m_BorderStyle; }
  void setBorderStyle(int16_t value);
  // While true, nothing is laid out or drawn; setting it false refreshes.
  bool FreezeUpdates() const { return m_FreezeUpdates; }
  void setFreezeUpdates(bool value);

  // Lays out and draws the page (three passes) and shows it; PaintOnly keeps the arrangement.
  void Refresh(bool PaintOnly = false);
  // One pass over the page; `final` is the drawing pass between two measuring ones.
  void mRender(bool final);
  void mArrange();
  void mPaintViewport();
  int32_t mDocWidth() const { return m_DocWidth; }
  int32_t mDocHeight() const { return m_DocHeight; }
  // The off-screen page and the visible part; null before the control is sited.
  PictureBox* picHTML() const { return m_picHTML.get(); }
  PictureBox* picViewPort() const { return m_picViewPort.get(); }
  VexPane* panV() const { return m_panV.get(); }
  VexPane* panH() const { return m_panH.get(); }
  ScrollBar* vscScroll() const { return m_vscScroll.get(); }
  ScrollBar* hscScroll() const { return m_hscScroll.get(); }
  // Each pane's thickness in twips as text, "-1" while its bar is switched off.
  const std::string& panVTag() const { return m_panVTag; }
  const std::string& panHTag() const { return m_panHTag; }

  // Raised for each image at its first layout and for the page background at every pass: the
  // host may fill Image for Source.
  Event<std::string&, PictureRef&> LoadImage;

  // Public routines of the parse.
  std::string mstrTagID(const std::string& strTag) const;
  int16_t mintExtractTagAttributes(const std::string& strTag);
  void mBuildHierarchy();

  // The parse state, for layout and tests.
  const html::HtmlDocument& document() const { return m_Document; }
  // The image list: slot 0 is always empty.
  const std::vector<PictureRef>& images() const { return m_Images; }

  // Lifecycle.
  void Initialize() override;
  void InitProperties() override;
  void Show() override;
  void onResize() override;
  void Terminate() override;
  ~VexHTML() override;

 protected:
  const Dispatch* dispatch() const override;

 private:
  html::HtmlDocument m_Document;
  std::vector<PictureRef> m_Images{PictureRef()};
  html::HtmlLayoutSettings m_layout;
  bool m_FreezeUpdates = false;
  int32_t m_DocWidth = 0, m_DocHeight = 0;
  bool m_Gradient = false;
  float m_GradientAngle = 270;
  OLE_COLOR m_BackColor2 = 255;
  int16_t m_Appearance = 0, m_BorderStyle = 0;
  std::shared_ptr<PictureBox> m_picHTML, m_picViewPort, m_FocusWeg;
  std::shared_ptr<VexPane> m_panV, m_panH;
  std::shared_ptr<ScrollBar> m_vscScroll, m_hscScroll;
  std::string m_panVTag = "-1", m_panHTag = "-1";
};

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/host/std_picture.h>
#include <corvane/html/html_document.h>
#include <corvane/html/html_hover_runs.h>
#include <corvane/html/html_layout.h>
#include <corvane/runtime/event.h>
#include <corvane/runtime/variant.h>

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
class clsSubClass;

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
  void setUnderlineLinks(bool value) {
    m_layout.UnderlineLinks = value;
    m_hoverRuns.invalidate();  // a whole pass would now draw every link differently
  }
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
  // The host's look and border (htmlAppearance: Flat 0, Frame 1; htmlBorder: kein 0, Fest 1):
  // the values live on the host, whose border takes room from the view's inner size.
  int16_t Appearance() const { return HostedControl::Appearance(); }
  void setAppearance(int16_t value);
  int16_t BorderStyle() const { return HostedControl::BorderStyle(); }
  void setBorderStyle(int16_t value);
  // A new view is flat and without a border.
  DesignForm designForm() const override;
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

  // ---- interaction ----
  bool EnableTooltips() const { return m_EnableTooltips; }
  void setEnableTooltips(bool value);
  bool HoverEnabled() const { return m_HoverEnabled; }
  void setHoverEnabled(bool value);
  bool PageMover() const { return m_PageMover; }
  void setPageMover(bool value);
  // Blocks only the mouse moves of the viewport; stored on the viewport as its tab stop.
  void setEnabled(bool value) override;
  // Drawn under the page, set on the page surface too.
  const PictureRef& BackgroundImage() const { return m_BackgroundImage; }
  void setBackgroundImage(const PictureRef& value);
  // The text of the page with line ends: CR-LF and <BR> trade places, the wrappers fall away.
  std::string RawText() const;
  void setRawText(const std::string& value);
  // The decoded text behind the first TITLE, "Unknown" without one.
  std::string DocumentTitle() const;

  // The link under the mouse (its chunk index, 0 for none) and whether the mouse is over a link.
  int16_t mHoverIndex() const { return m_layout.HoverIndex; }
  bool mOverLink() const { return m_OverLink; }
  // The viewport's tool tip: the title or the address of the link under the mouse.
  const std::string& viewportToolTipText() const { return m_viewportToolTip; }
  // The viewport's tab stop, the attribute that Enabled is copied to.
  bool viewportTabStop() const { return m_viewportTabStop; }
  // Hover repaints done by repainting only the links concerned instead of a whole pass.
  int64_t quickHoverRepaints() const { return m_quickHoverRepaints; }
  // Whether the one-shot click timer is running.
  bool clickTimerEnabled() const { return m_clickTimerOn; }

  // Reads a call such as Name(1, 'text') into its name and arguments.
  static void mParseCall(const std::string& text, std::string& name, std::vector<Variant>& args);
  // Calls name on the form that holds the control, late bound; failures are swallowed.
  void mCallParent(const std::string& name, std::vector<Variant>& args);

  Event<> Click, DblClick;
  Event<std::string&, std::string&> HyperlinkClick;
  Event<int16_t&, int16_t&, float&, float&> MouseDown;
  Event<std::string&, std::string&, int16_t&, int16_t&, float&, float&> MouseMove, MouseUp;

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
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  ~VexHTML() override;

 protected:
  const Dispatch* dispatch() const override;
  LRESULT windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override;

 private:
  html::HtmlDocument m_Document;
  std::vector<PictureRef> m_Images{PictureRef()};
  html::HtmlLayoutSettings m_layout;
  bool m_FreezeUpdates = false;
  int32_t m_DocWidth = 0, m_DocHeight = 0;
  bool m_Gradient = false;
  float m_GradientAngle = 270;
  OLE_COLOR m_BackColor2 = 255;
  std::shared_ptr<PictureBox> m_picHTML, m_picViewPort, m_FocusWeg;
  std::shared_ptr<VexPane> m_panV, m_panH;
  std::shared_ptr<ScrollBar> m_vscScroll, m_hscScroll;
  std::string m_panVTag = "-1", m_panHTag = "-1";

  void setUpPanes();  // shows the panes EnableScroll asks for and sets their tags
  // Interaction (vex_html_input.cpp).
  void connectViewport();
  int32_t hitTest(float x, float y) const;  // the link chunk under a viewport point, -1 for none
  void viewportMouseMove(int16_t& button, int16_t& shift, float& x, float& y);
  void viewportMouseDown(int16_t& button, int16_t& shift, float& x, float& y);
  void viewportMouseUp(int16_t& button, int16_t& shift, float& x, float& y);
  void viewportKeyDown(int16_t& keyCode, int16_t& shift);
  void subclassMessage(int32_t& msg, int32_t wParam);
  void wheel(int16_t delta);
  void tmrHyperlinkClick_Timer();
  void clearHover();
  void repaintHover(int16_t previous);
  bool anyPaneVisible() const;
  void setViewportCursor(const PictureRef& icon);
  void resetViewportCursor();
  void subclassViewport();
  void releaseSubclass();

  bool m_EnableTooltips = true, m_HoverEnabled = true, m_PageMover = false;
  bool m_OverLink = false, m_clickTimerOn = false, m_viewportTabStop = true;
  std::string m_ClickHref, m_ClickID, m_viewportToolTip;
  int32_t m_DragY = 0, m_DragX = 0;
  PictureRef m_cursorHand, m_cursorOpen, m_cursorGrip, m_BackgroundImage;
  std::shared_ptr<clsSubClass> m_SubClass;
  html::HtmlHoverRuns m_hoverRuns;
  int64_t m_quickHoverRepaints = 0;
};

}  // namespace corvane

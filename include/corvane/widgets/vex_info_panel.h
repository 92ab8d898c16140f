// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/host/label.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/text_box.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/event.h>

#include <memory>
#include <string>

namespace corvane {

// A tip panel: a rounded rectangle with an optional picture, a headline and a text. The text is a
// label while it fits, and becomes a scrolling, read-only text box when it no longer does.
// Positions are pixels of the panel.
class CORVANE_API VexInfoPanel : public ControlBase {
 public:
  VexInfoPanel();
  ~VexInfoPanel() override;
  std::string typeName() const override { return "VexInfoPanel"; }
  DesignForm designForm() const override;

  OLE_COLOR BorderColor() const { return m_BorderColor; }
  void setBorderColor(OLE_COLOR value);
  // Chooses label or text box for the text and gives the children their width.
  void MakeSize();
  const PictureRef& Picture() const { return m_Picture; }
  void setPicture(const PictureRef& value);
  const FontRef& Font() const { return m_pFont; }
  // Nothing is error 380; the headline takes only name, size and italic, its bold stays.
  void setFont(const FontRef& value);
  const std::string& Text() const { return m_Text; }
  // "<BR>" in any case breaks the line.
  void setText(const std::string& value);
  const std::string& Caption() const { return m_Caption; }
  // An empty headline lifts the text from 26 to 6 pixels.
  void setCaption(const std::string& value);
  void Refresh();
  void setBackColor(OLE_COLOR value) override;
  OLE_COLOR CaptionColor() const { return lblHead.ForeColor(); }
  void setCaptionColor(OLE_COLOR value);
  OLE_COLOR TextColor() const { return lblTip.ForeColor(); }
  void setTextColor(OLE_COLOR value);
  int32_t RightMargin() const { return m_RightMargin; }
  void setRightMargin(int32_t value);
  bool WordWrap() const { return m_WordWrap; }
  void setWordWrap(bool value);
  int32_t PicPosLeft() const { return m_PicPosLeft; }
  void setPicPosLeft(int32_t value);
  int32_t PicPosTop() const { return m_PicPosTop; }
  void setPicPosTop(int32_t value);

  Event<> Click;

  void Initialize() override;
  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;
  void Show() override { Refresh(); }
  void Terminate() override;

  int32_t textTop() const { return m_TextTop; }
  // The child controls, for tests and the gallery.
  PictureBox imgPicture;
  Label lblHead;
  Label lblTip;
  TextBox txtTip;

 protected:
  void onClick() override { Click(); }
  const Dispatch* dispatch() const override;

 private:
  // The text's left edge: beside the picture, or at PicPosLeft without one.
  int32_t textLeft() const;
  // Keeps the font object and listens to it: a change inside it is applied again through setFont.
  void keepFont(const FontRef& font);

  OLE_COLOR m_BorderColor = 0x808080;
  PictureRef m_Picture;
  FontRef m_pFont;
  int m_pFontListener = 0;
  std::string m_Text, m_Caption;
  int32_t m_RightMargin = 0, m_PicPosLeft = 8, m_PicPosTop = 6;
  bool m_WordWrap = false;
  int32_t m_TextTop = 6;
  HPEN m_pen = 0;  // the border pen stays selected until the next drawing
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

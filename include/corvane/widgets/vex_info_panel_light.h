// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/host/label.h>
#include <corvane/host/picture_box.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/event.h>

#include <memory>
#include <string>

namespace corvane {

// A tip panel: a rounded rectangle with an optional picture and one text at a free position.
// Positions are pixels of the panel.
class CORVANE_API VexInfoPanelLight : public ControlBase {
 public:
  VexInfoPanelLight();
  ~VexInfoPanelLight() override;
  std::string typeName() const override { return "VexInfoPanelLight"; }
  DesignForm designForm() const override;

  OLE_COLOR BorderColor() const { return m_BorderColor; }
  void setBorderColor(OLE_COLOR value);
  const PictureRef& Picture() const { return m_Picture; }
  void setPicture(const PictureRef& value);
  FontRef Font() const { return lblHead.Font(); }
  // Nothing is error 380; the text takes name, size, bold, italic and underline.
  void setFont(const FontRef& value);
  std::string Text() const { return m_Text; }
  // Only a lower-case "<br>" breaks the line.
  void setText(const std::string& value);
  void Refresh();
  void setBackColor(OLE_COLOR value) override;
  OLE_COLOR TextColor() const { return lblHead.ForeColor(); }
  void setTextColor(OLE_COLOR value);
  int32_t RightMargin() const { return m_RightMargin; }
  void setRightMargin(int32_t value);
  bool WordWrap() const { return lblHead.WordWrap(); }
  void setWordWrap(bool value);
  int32_t PicPosLeft() const { return m_PicPosLeft; }
  void setPicPosLeft(int32_t value);
  int32_t TextPosLeft() const { return m_TextPosLeft; }
  void setTextPosLeft(int32_t value);
  int32_t TextPosTop() const { return m_TextPosTop; }
  void setTextPosTop(int32_t value);
  int32_t PicPosTop() const { return m_PicPosTop; }
  void setPicPosTop(int32_t value);

  Event<> Click;
  Event<int16_t&, int16_t&, float&, float&> MouseMove;

  void Initialize() override;
  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;
  void Show() override { Refresh(); }
  void Terminate() override;

  // The child controls, for tests and the gallery.
  Label lblHead;
  PictureBox imgPicture;

 protected:
  void onClick() override { Click(); }
  void onMouseMove(int16_t& b, int16_t& s, float& x, float& y) override { MouseMove(b, s, x, y); }
  const Dispatch* dispatch() const override;

 private:
  void layout();

  OLE_COLOR m_BorderColor = 0x808080;
  PictureRef m_Picture;
  std::string m_Text;
  int32_t m_RightMargin = 0, m_PicPosLeft = 6, m_TextPosLeft = 26, m_TextPosTop = 6, m_PicPosTop = 5;
  HPEN m_pen = 0;  // the border pen stays selected until the next drawing
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/control_base.h>
#include <corvane/notify/frm_alert.h>
#include <corvane/runtime/event.h>

#include <cstdint>
#include <string>

namespace corvane {

// The control a host places on a form to raise alerts. It is invisible at run time and holds the
// look of all its alerts as persisted properties; each AlertShow makes one alert window, and the
// window's calls back become the events below. It keeps no reference to its windows: it finds
// them again by name in the list of loaded forms.
class CORVANE_API VexAlert : public ControlBase {
 public:
  std::string typeName() const override { return "VexAlert"; }
  DesignForm designForm() const override {
    return {480, 450, Surface::Twips, static_cast<OLE_COLOR>(0x8000000F)};
  }

  // Properties; a new value is stored and reported, nothing repaints.
  myFX Effekt() const { return m_Effekt; }
  void setEffekt(myFX v);
  int32_t TimeMove() const { return m_TimeMove; }
  void setTimeMove(int32_t v);
  // Stored only: AlertShow takes its own Timewait argument. A value below 1 is stored as 0.
  int32_t Timewait() const { return m_Timewait; }
  void setTimewait(int32_t v);
  int32_t AutoMaxHeight() const { return m_AutoMaxHeight; }
  void setAutoMaxHeight(int32_t v);
  void setBackColor(OLE_COLOR v) override;
  OLE_COLOR BackColorAlt() const { return m_BackColorAlt; }
  void setBackColorAlt(OLE_COLOR v);
  OLE_COLOR ForeColor() const { return m_ForeColor; }
  void setForeColor(OLE_COLOR v);
  OLE_COLOR ForeColorHead() const { return m_ForeColorHead; }
  void setForeColorHead(OLE_COLOR v);
  OLE_COLOR ForeColorHyper() const { return m_ForeColorHyper; }
  void setForeColorHyper(OLE_COLOR v);
  OLE_COLOR BannerColor() const { return m_BannerColor; }
  void setBannerColor(OLE_COLOR v);
  OLE_COLOR MoveBarColor1() const { return m_MoveBarColor1; }
  void setMoveBarColor1(OLE_COLOR v);
  OLE_COLOR MoveBarColor2() const { return m_MoveBarColor2; }
  void setMoveBarColor2(OLE_COLOR v);
  myBorderStyle BorderStyle() const { return m_BorderStyle; }
  void setBorderStyle(myBorderStyle v);
  myAlignment Alignment() const { return m_Alignment; }
  void setAlignment(myAlignment v);
  float GradientAngle() const { return m_GradientAngle; }
  void setGradientAngle(float v);
  bool Sound() const { return m_Sound; }
  void setSound(bool v);
  const std::string& WaveFile() const { return m_WaveFile; }
  void setWaveFile(const std::string& v);
  const std::string& OptionHeader() const { return m_OptionHeader; }
  void setOptionHeader(const std::string& v);
  const PictureRef& MouseIcon() const { return surface().MouseIcon(); }
  void setMouseIcon(const PictureRef& v);

  // Methods.
  void AlertShow(const std::string& AlertText, bool CloseButton, bool BannerShow = true,
                 const std::string& AlertHeader = {}, const std::string& EchoString = {},
                 const std::string& vTag = {}, const std::string& OptionHeader = {},
                 const std::string& OptionTxt1 = {}, const std::string& OptionTxt2 = {},
                 const std::string& OptionTxt3 = {}, int32_t PopupHeight = 2000, int32_t PopupWidth = 2000,
                 int32_t Timewait = 0, OLE_COLOR BackColor = -1, OLE_COLOR BackColorAlt = -1,
                 const PictureRef& IconPic = nullptr, int32_t IconX = 30, int32_t IconY = 30,
                 int32_t TextX = 60, int32_t TextY = 30, const PictureRef& WallPic = nullptr);
  void AlertReplace(const std::string& EchoString, const std::string& AlertText, bool CloseButton,
                    bool BannerShow = true, const std::string& vTag = {}, const std::string& AlertHeader = {},
                    const std::string& OptionHeader = {}, const std::string& OptionTxt1 = {},
                    const std::string& OptionTxt2 = {}, const std::string& OptionTxt3 = {},
                    int32_t PopupHeight = 2000, int32_t PopupWidth = 2000, int32_t Timewait = 0,
                    OLE_COLOR BackColor = -1, OLE_COLOR BackColorAlt = -1,
                    const PictureRef& IconPic = nullptr, int32_t IconX = 30, int32_t IconY = 30,
                    int32_t TextX = 60, int32_t TextY = 30, const PictureRef& WallPic = nullptr);
  // Closes every alert of that identifier; the result is false in every case.
  bool AlertClose(const std::string& EchoString);
  bool IsAlertShowed(const std::string& EchoString);

  // What the alert windows call back on.
  void AlertClick(const std::string& EchoString, const std::string& vTag, int16_t OptionID);
  void AlertClosed(const std::string& EchoString, const std::string& vTag, int32_t aktTop);
  void AlertMouseMove(const std::string& EchoString, const std::string& vTag, int16_t Button, int16_t Shift,
                      float x, float Y);
  void AlertShowed(const std::string& EchoString, const std::string& vTag);

  // Events, in their order of dispatch.
  Event<std::string, std::string> AlertShowedEvent;  // by name: AlertShowed
  Event<std::string, std::string> AlertClosedEvent;  // by name: AlertClosed
  Event<std::string, std::string, int16_t> Click;
  Event<std::string, std::string, int16_t, int16_t, float, float> MouseMove;

  // Whether the system can fade, worked out when the properties are read.
  bool canFade() const { return m_canFade; }

  // Lifecycle.
  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;
  void onResize() override;
  void Show() override;
  void Paint() override { redraw(); }

 protected:
  void redraw() override;
  const Dispatch* dispatch() const override;

 private:
  void changed(const std::string& key);

  myFX m_Effekt = FX1Scroll;
  int32_t m_TimeMove = 10;
  int32_t m_Timewait = 0;
  int32_t m_AutoMaxHeight = 4500;
  OLE_COLOR m_BackColorAlt = 0xFF;
  OLE_COLOR m_ForeColor = 0xFFFFFF;
  OLE_COLOR m_ForeColorHead = 0x404040;
  OLE_COLOR m_ForeColorHyper = 0x99FFFF;
  OLE_COLOR m_BannerColor = 0xFFFFFF;
  OLE_COLOR m_MoveBarColor1 = 0xF5AB7A;
  OLE_COLOR m_MoveBarColor2 = 0x993F11;
  myBorderStyle m_BorderStyle = B0Normal;
  myAlignment m_Alignment = Zentriert;
  float m_GradientAngle = 130;
  bool m_Sound = true;
  std::string m_WaveFile;
  std::string m_OptionHeader;
  bool m_canFade = false;
  bool m_sizing = false;
};

}  // namespace corvane

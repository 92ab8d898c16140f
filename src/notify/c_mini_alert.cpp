// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>
#include <corvane/notify/c_mini_alert.h>

namespace corvane {

void cMiniAlert::AlertShow(const std::string& AlertText, bool CloseButton, bool BannerShow,
                           const std::string& AlertHeader, const std::string& EchoString,
                           const std::string& vTag, const std::string& OptionHeader,
                           const std::string& OptionTxt1, const std::string& OptionTxt2,
                           const std::string& OptionTxt3, int32_t PopupHeight, int32_t PopupWidth,
                           int32_t Timewait, OLE_COLOR BackColor, OLE_COLOR BackColorAlt,
                           OLE_COLOR BannerColor, OLE_COLOR ForeColorHead, OLE_COLOR ForeColor,
                           OLE_COLOR ForeColorHyper, OLE_COLOR MoveBarColor1, OLE_COLOR MoveBarColor2,
                           myBorderStyle lBorderStyle, myFX Effekt, myAlignment iAlignment,
                           float sGradientAngle, bool PlaySound, int32_t AutoMaxHeight, int32_t TimeMove,
                           const PictureRef& IconPic, int32_t IconX, int32_t IconY, int32_t TextX,
                           int32_t TextY, const PictureRef& WallPic, const std::string& WaveFile) {
  auto alert = frmAlert::Load();
  alert->setParent(shared_from_this());
  if (PopupHeight > 0 && PopupHeight < 345) PopupHeight = 345;
  if (PopupWidth < 345) PopupWidth = 345;
  if (!AlertHeader.empty() || BannerShow) TextY += 270;
  // The version word is asked at each call.
  std::string os = Global::OSName();
  if (os == "98" || os == "95" || os == "NT") Effekt = FX1Scroll;
  alert->DisplayAlert(AlertHeader, AlertText, EchoString, vTag, OptionHeader, OptionTxt1, OptionTxt2,
                      OptionTxt3, WaveFile, PlaySound, CloseButton, BannerShow, BannerColor, ForeColorHead,
                      ForeColor, ForeColorHyper, BackColor, BackColorAlt, MoveBarColor1, MoveBarColor2,
                      lBorderStyle, Effekt, iAlignment, PopupHeight, PopupWidth, sGradientAngle, TimeMove,
                      Timewait, IconPic, IconX, IconY, TextX, TextY, AutoMaxHeight, WallPic);
}

bool cMiniAlert::AlertClose(const std::string& EchoString) {
  frmAlert::closeAll(EchoString);
  return false;
}

bool cMiniAlert::IsAlertShowed(const std::string& EchoString) { return frmAlert::isShowed(EchoString); }

void cMiniAlert::AlertClick(const std::string& EchoString, const std::string& vTag, int16_t OptionID) {
  Click(EchoString, vTag, OptionID);
}

void cMiniAlert::AlertClosed(const std::string& EchoString, const std::string& vTag, int32_t aktTop) {
  frmAlert::repairStack(aktTop);
  AlertClosedEvent(EchoString, vTag);
}

void cMiniAlert::AlertMouseMove(const std::string& EchoString, const std::string& vTag, int16_t Button,
                                int16_t Shift, float x, float Y) {
  MouseMove(EchoString, vTag, Button, Shift, x, Y);
}

void cMiniAlert::AlertShowed(const std::string& EchoString, const std::string& vTag) {
  AlertShowedEvent(EchoString, vTag);
}

const Dispatch* cMiniAlert::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    auto str = [](Dispatch::Args& a, size_t i) {
      return a.size() > i && !a[i].isEmpty() ? a[i].toString() : std::string();
    };
    DispatchBuilder<cMiniAlert>(t)
        .method("AlertClose", [str](cMiniAlert& c, Dispatch::Args& a) { return c.AlertClose(str(a, 0)); })
        .method("IsAlertShowed",
                [str](cMiniAlert& c, Dispatch::Args& a) { return c.IsAlertShowed(str(a, 0)); })
        .method("AlertClick",
                [str](cMiniAlert& c, Dispatch::Args& a) {
                  c.AlertClick(str(a, 0), str(a, 1), a.at(2).toInteger());
                })
        .method("AlertClosed",
                [str](cMiniAlert& c, Dispatch::Args& a) {
                  c.AlertClosed(str(a, 0), str(a, 1), a.size() > 2 ? a[2].toLong() : 0);
                })
        .method("AlertMouseMove",
                [str](cMiniAlert& c, Dispatch::Args& a) {
                  c.AlertMouseMove(str(a, 0), str(a, 1), a.at(2).toInteger(), a.at(3).toInteger(),
                                   a.at(4).toSingle(), a.at(5).toSingle());
                })
        .method("AlertShowed",
                [str](cMiniAlert& c, Dispatch::Args& a) { c.AlertShowed(str(a, 0), str(a, 1)); });
    return t;
  }();
  return &d;
}

}  // namespace corvane

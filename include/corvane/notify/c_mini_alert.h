// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/notify/frm_alert.h>
#include <corvane/runtime/component_object.h>
#include <corvane/runtime/event.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <string>

namespace corvane {

// The alert service as a plain creatable class: no surface and no properties, every value comes
// with each call. Like VexAlert it makes one alert window per AlertShow and turns the window's
// calls back into the same four events.
class CORVANE_API cMiniAlert : public Object, public ComponentObject {
 public:
  std::string typeName() const override { return "cMiniAlert"; }

  // Everything up to PlaySound is required.
  void AlertShow(const std::string& AlertText, bool CloseButton, bool BannerShow,
                 const std::string& AlertHeader, const std::string& EchoString, const std::string& vTag,
                 const std::string& OptionHeader, const std::string& OptionTxt1,
                 const std::string& OptionTxt2, const std::string& OptionTxt3, int32_t PopupHeight,
                 int32_t PopupWidth, int32_t Timewait, OLE_COLOR BackColor, OLE_COLOR BackColorAlt,
                 OLE_COLOR BannerColor, OLE_COLOR ForeColorHead, OLE_COLOR ForeColor,
                 OLE_COLOR ForeColorHyper, OLE_COLOR MoveBarColor1, OLE_COLOR MoveBarColor2,
                 myBorderStyle lBorderStyle, myFX Effekt, myAlignment iAlignment, float sGradientAngle,
                 bool PlaySound, int32_t AutoMaxHeight = 4500, int32_t TimeMove = 10,
                 const PictureRef& IconPic = nullptr, int32_t IconX = 30, int32_t IconY = 30,
                 int32_t TextX = 60, int32_t TextY = 30, const PictureRef& WallPic = nullptr,
                 const std::string& WaveFile = {});
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

 protected:
  const Dispatch* dispatch() const override;
};

}  // namespace corvane

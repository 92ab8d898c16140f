// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/host/screen.h>
#include <corvane/notify/frm_alert.h>
#include <corvane/platform/api.h>
#include <corvane/frame/global.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/val.h>

#include <memory>
#include <string>
#include <vector>

#include "support/desktop_fixture.h"

namespace corvane::test {

// A creator that writes down every call an alert makes back on it by name.
class AlertCreator : public Object {
 public:
  std::string typeName() const override { return "AlertCreator"; }
  std::vector<std::string> log;
  // Set to run something inside the AlertClick call.
  std::function<void()> onClick;

 protected:
  const Dispatch* dispatch() const override {
    static const Dispatch d = [] {
      Dispatch t;
      DispatchBuilder<AlertCreator>(t)
          .method("AlertClick",
                  [](AlertCreator& c, Dispatch::Args& a) {
                    c.log.push_back("AlertClick " + a.at(0).toString() + " " + a.at(1).toString() + " " +
                                    std::to_string(a.at(2).toLong()));
                    if (c.onClick) c.onClick();
                  })
          .method("AlertClosed",
                  [](AlertCreator& c, Dispatch::Args& a) {
                    c.log.push_back("AlertClosed " + a.at(0).toString() + " " + a.at(1).toString() + " " +
                                    std::to_string(a.at(2).toLong()));
                  })
          .method("AlertMouseMove",
                  [](AlertCreator& c, Dispatch::Args& a) {
                    c.log.push_back("AlertMouseMove " + a.at(0).toString());
                  })
          .method("AlertShowed", [](AlertCreator& c, Dispatch::Args& a) {
            c.log.push_back("AlertShowed " + a.at(0).toString() + " " + a.at(1).toString());
          });
      return t;
    }();
    return &d;
  }
};

// The 35 arguments of DisplayAlert with the values a creator passes by default.
struct AlertArgs {
  std::string AlertHeader = "Kopf", AlertText = "Text", EchoString = "A1", vTag = "T1",
              OptionHeader = "Bitte wählen:";
  std::string OptionTxt1, OptionTxt2, OptionTxt3, WaveFile;
  bool PlaySound = true, CloseButton = false, BannerShow = true;
  OLE_COLOR BannerColor = 0xFFFFFF, ForeColorHead = 0x404040, ForeColor = 0xFFFFFF, ForeColorHyper = 0x99FFFF;
  OLE_COLOR BackColor = 0x40, BackColorAlt = 0xFF, MoveBarColor1 = 0xF5AB7A, MoveBarColor2 = 0x993F11;
  myBorderStyle BorderStyle = B0Normal;
  myFX Effekt = FX1Scroll;
  myAlignment Alignment = Zentriert;
  int32_t PopupHeight = 2000, PopupWidth = 2000;
  float GradientAngle = 130;
  int32_t TimeMove = 10, Timewait = 1000;
  PictureRef IconPic;
  int32_t IconX = 30, IconY = 30, TextX = 60, TextY = 300, AutoMaxHeight = 4500;
  PictureRef WallPic;
};

// A headless desktop of 1024 by 768 pixels at 15 twips per pixel with an empty alert stack. The
// full-screen client area is 742 pixels high, so an empty stack starts at 768 pixels.
class AlertTest : public DesktopTest {
 protected:
  static constexpr int32_t kScreenBottom = 768 * 15;  // twips: the full-screen height plus 26 pixels
  void SetUp() override {
    DesktopTest::SetUp();
    frmAlert::AlertStackTop = 0;
    creator = std::make_shared<AlertCreator>();
  }
  void TearDown() override {
    Forms::unloadAll();
    frmAlert::AlertStackTop = 0;
    DesktopTest::TearDown();
  }
  std::shared_ptr<frmAlert> show(AlertArgs& a, bool withCreator = true) {
    auto alert = frmAlert::Load();
    if (withCreator) alert->setParent(creator);
    alert->DisplayAlert(a.AlertHeader, a.AlertText, a.EchoString, a.vTag, a.OptionHeader, a.OptionTxt1,
                        a.OptionTxt2, a.OptionTxt3, a.WaveFile, a.PlaySound, a.CloseButton, a.BannerShow,
                        a.BannerColor, a.ForeColorHead, a.ForeColor, a.ForeColorHyper, a.BackColor,
                        a.BackColorAlt, a.MoveBarColor1, a.MoveBarColor2, a.BorderStyle, a.Effekt,
                        a.Alignment, a.PopupHeight, a.PopupWidth, a.GradientAngle, a.TimeMove, a.Timewait,
                        a.IconPic, a.IconX, a.IconY, a.TextX, a.TextY, a.AutoMaxHeight, a.WallPic);
    return alert;
  }
  std::shared_ptr<frmAlert> show() {
    AlertArgs a;
    return show(a);
  }
  // The window's rectangle on the screen, in pixels.
  RECT rectOf(const frmAlert& a) {
    RECT r;
    user().GetWindowRect(a.form().hWnd(), r);
    return r;
  }
  int32_t pixelHeight(const frmAlert& a) {
    RECT r = rectOf(a);
    return r.Bottom - r.Top;
  }
  // The window system's view of the alert window.
  const DesktopWindow* windowOf(const frmAlert& a) { return desktop().windows().window(a.form().hWnd()); }
  int32_t alertForms() {
    int32_t n = 0;
    for (const auto& f : Forms::all()) n += f->Name() == "frmAlert";
    return n;
  }
  // A version word for the fades: "XP" fades both ways, "NT" not at all.
  void setVersion(int32_t major, int32_t minor) {
    OSVERSIONINFO v;
    v.dwPlatformId = 2;
    v.dwMajorVersion = major;
    v.dwMinorVersion = minor;
    desktop().setVersion(v);
  }
  void useXP() { setVersion(5, 1); }
  void useNT() { setVersion(4, 0); }
  std::shared_ptr<AlertCreator> creator;
};

}  // namespace corvane::test

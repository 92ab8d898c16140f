// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/form.h>
#include <corvane/host/std_picture.h>
#include <corvane/platform/system_macros_begin.h>
#include <corvane/runtime/object.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

class PictureBox;
class VexPane;
class VexLineHover;
class CGradient;

// How an alert enters and leaves.
enum myFX : int32_t { FX1Scroll = 0, FX2Fade = 1 };
// The frame of an alert.
enum myBorderStyle : int32_t {
  B0Normal = 0,
  B1Edel = 1,
  B2Inline = 2,
  B3Thin = 3,
  B4Flat = 4,
  B5NoBorder = 5,
  B6Movable = 6
};
// The alignment of an alert's texts.
enum myAlignment : int32_t { Links = 0, Rechts = 1, Zentriert = 2 };

// The window of one alert: a borderless, top-most notification at the bottom right of the screen
// that slides or fades in above the ones already there, stays for its time and leaves. It is not
// owned by its creator: it is found again by name ("frmAlert") in the list of loaded forms, lives
// until it unloads itself, and calls AlertClick, AlertClosed, AlertMouseMove and AlertShowed on
// its creator by name.
class CORVANE_API frmAlert : public Object {
 public:
  // Loads a new alert window: off screen at Left -3900, made top-most without being activated.
  static std::shared_ptr<frmAlert> Load();
  // The alert behind a loaded form, or nullptr for any other form.
  static std::shared_ptr<frmAlert> of(const Form& form);
  ~frmAlert() override;
  std::string typeName() const override { return "frmAlert"; }

  // The lowest screen top (twips) of the alerts in the stack, 0 for an empty stack. It is shared
  // by every alert of the process; 666666 is the start value of every scan for the smallest top.
  static int32_t AlertStackTop;
  static constexpr int32_t kNoTop = 666666;
  static constexpr const char* kDetachedTag = "666666";
  static constexpr const char* kKilled = "-killed-";

  // The host's identifier of the alert; "-killed-" makes it vanish without any event.
  std::string EchoString;
  // The creator that hears of the alert by name; nothing suppresses every call back.
  const ObjectRef& Parent() const { return m_Parent; }
  void setParent(ObjectRef creator) { m_Parent = std::move(creator); }
  // The window's Tag: the screen top (twips, as text) at which the next alert would stand on this
  // one, or "666666" once the user has dragged it out of the stack.
  std::string Tag;

  void DisplayAlert(const std::string& AlertHeader, const std::string& AlertText, const std::string& EchoStr,
                    const std::string& vTag, const std::string& OptionHeader, const std::string& OptionTxt1,
                    const std::string& OptionTxt2, const std::string& OptionTxt3, const std::string& WaveFile,
                    bool PlaySound, bool CloseButton, bool BannerShow, OLE_COLOR BannerColor,
                    OLE_COLOR ForeColorHead, OLE_COLOR ForeColor, OLE_COLOR ForeColorHyper,
                    OLE_COLOR BackColor, OLE_COLOR BackColorAlt, OLE_COLOR MoveBarColor1,
                    OLE_COLOR MoveBarColor2, myBorderStyle BorderStyle, myFX Effekt, myAlignment Alignment,
                    int32_t& PopupHeight, int32_t& PopupWidth, float GradientAngle, int32_t TimeMove,
                    int32_t Timewait, const PictureRef& IconPic, int32_t& IconX, int32_t& IconY,
                    int32_t& TextX, int32_t& TextY, int32_t AutoMaxHeight, const PictureRef& WallPic);

  // The creators' walks over the list of loaded forms. loaded() gives the alerts behind the forms
  // named "frmAlert", in the list's order.
  static std::vector<std::shared_ptr<frmAlert>> loaded();
  // The stack after an alert with the top aktTop has gone: only the going of the alert on top of
  // the stack lowers AlertStackTop, straight to the next alert still there; windows without a
  // place or hidden ones are unloaded on the way.
  static void repairStack(int32_t aktTop);
  // Closes every alert of that identifier through its tmrWarten_Timer.
  static void closeAll(const std::string& echo);
  // Whether a loaded window has that identifier. Every loaded window is asked for its EchoString,
  // so a form of the host that is no alert is error 438.
  static bool isShowed(const std::string& echo);

  // The end of the wait, and the way every forced close goes.
  void tmrWarten_Timer();
  // Unloads the window: the creator hears AlertClosed unless the alert is "-killed-". A second
  // call, or one during the unload, does nothing.
  void Unload();

  // The timers' ticks, as the window delivers them.
  void tmrOpen_Timer();
  void tmrClose_Timer();

  // What the window shows and holds, for the creator's walks, tests and the gallery.
  Form& form() const { return *m_form; }
  bool isLoaded() const { return !m_unloaded; }
  const std::string& headTag() const { return m_head.tag; }      // lblHead.Tag: the host's vTag
  const std::string& effectMarker() const { return m_grabTag; }  // panGrab.Tag: "", "Fade" or "Faded"
  int32_t targetHeight() const { return m_targetHeight; }
  int32_t headHeight() const { return m_headHeight; }
  bool textUnderlined() const { return m_text.underline; }
  OLE_COLOR textColour() const { return m_text.fore; }
  // Geometry in twips.
  float Left() const;
  float Top() const;
  float Width() const;
  float Height() const;
  bool Visible() const;
  // Whether a timer is running: 1 tmrOpen, 2 tmrClose, 3 tmrWarten.
  bool timerEnabled(int32_t id) const;
  int32_t timerInterval(int32_t id) const;
  // The child controls.
  PictureBox& picBackground() const { return *m_picBackground; }
  PictureBox& cmdClose() const { return *m_cmdClose; }
  VexPane& panGrab() const { return *m_panGrab; }
  VexPane& panOpt() const { return *m_panOpt; }
  VexLineHover& hovOpt(int32_t index) const;  // 1 to 3
  bool closeVisible() const;
  bool grabVisible() const;
  bool optionsVisible() const;
  // The texts lying on the background, in twips of their container.
  struct TextBox {
    std::string caption;
    float left = 0, top = 0, width = 0, height = 0;
    int32_t alignment = 0;
    OLE_COLOR fore = 0;
    FontRef font;
    bool underline = false;
    bool enabled = true;
    std::string tag;
  };
  const TextBox& lblHead() const { return m_head; }
  const TextBox& lblAlert() const { return m_text; }
  const TextBox& lblGrab() const { return m_grip; }
  const TextBox& lblOptHeader() const { return m_optHeader; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  frmAlert() = default;
  void build();
  std::shared_ptr<frmAlert> self();
  void setTimer(int32_t id, bool enabled);
  void moveWindow(float left, float top, float width, float height);
  void paintBackground();
  void paintGrip();
  void paintOptionHeader();
  void drawText(HDC hdc, const TextBox& box, float originX, float originY);
  void callParent(const std::string& member, Dispatch::Args args);
  void clearUnderline();
  // The event handlers of the children.
  void bodyMouseMove(int16_t button, int16_t shift, float x, float y);
  void bodyClick();
  void closeMouseDown();
  void closeMouseMove(int16_t button, float x, float y);
  void closeMouseUp();
  void optionClick(int32_t index);
  void grabMouseMove(int16_t button, float x, float y);
  void onFormUnload();
  POINTAPI cursorIn(HWND hWnd) const;

  FormRef m_form;
  ObjectRef m_Parent;
  std::shared_ptr<PictureBox> m_picBackground, m_cmdClose;
  std::shared_ptr<VexPane> m_panGrab, m_panOpt;
  std::shared_ptr<VexLineHover> m_hovOpt[3];
  HostedControlRef m_timerHost;
  std::shared_ptr<CGradient> m_gradient;
  TextBox m_head, m_text, m_grip, m_optHeader;
  PictureRef m_icon, m_wall;
  int32_t m_iconX = 0, m_iconY = 0;
  bool m_banner = false;
  OLE_COLOR m_bannerColour = 0;
  int32_t m_pictureBorder = 0;  // 0 none, 1 three-dimensional, 2 flat
  std::string m_grabTag;
  int32_t m_grabX = 0, m_grabY = 0;
  int32_t m_screenWidth = 0, m_screenHeight = 0;
  int32_t m_targetHeight = 0, m_headHeight = 0;
  OLE_COLOR m_foreColour = 0, m_hyperColour = 0;
  bool m_soundOn = false;
  struct TimerState {
    int32_t interval = 0;
    bool enabled = false;
  };
  TimerState m_timers[3];
  bool m_unloaded = false;
  bool m_unloading = false;
};

}  // namespace corvane

#include <corvane/platform/system_macros_end.h>

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/host/form.h>
#include <corvane/host/label.h>
#include <corvane/host/picture_box.h>
#include <corvane/runtime/msg_box_result.h>
#include <corvane/runtime/object.h>
#include <corvane/runtime/variant.h>
#include <corvane/widgets/vex_color_label.h>
#include <corvane/widgets/vex_hover_pic.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

// The picture at the head of a balloon: vbNone, vbCritical (16), vbExclamation (48),
// vbInformation (64) or vbFullContact (80); the library's icon resource is the value / 16. The
// three middle ones are the message box's icon styles, so they are not declared twice.
using IconType = int32_t;
inline constexpr IconType vbNone = 0;
inline constexpr IconType vbFullContact = 80;

// One of the short edge lines that close the balloon's body where no tip stands. It lies in a
// corner picture, in that picture's twips.
struct CORVANE_API BalloonStub {
  float X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
  bool Visible = true;
  OLE_COLOR BorderColor = 0;
};

// What a balloon is asked to show, with the defaults of popUpBalloon.
struct CORVANE_API BalloonRequest {
  int32_t OwnerFormHwnd = 0;
  std::string Title;
  int32_t Icon = vbNone;
  bool ShowModal = false;
  bool showClose = true;
  int16_t autoCloseTime = 0;
  int16_t FontSize = 8;
  std::string fontFace = "MS Sans Serif";
  OLE_COLOR HeadColor = 0;
  bool PutAtCurrentMousePos = true;
  bool TipAbove = true;
  int32_t MaxWidth = 6000;
  int16_t XinPixels = 0, YinPixels = 0;
  ObjectRef CTRL;  // needs hWnd and Height
};

// The balloon tip window: a top-most, shadowed window with a rounded body and a triangular tip in
// one of four corners, cut to that shape by a window region. There is one shared instance; a new
// balloon unloads the previous one. Any click on it, a left click anywhere while it is shown
// without modality, or the auto-close timer unloads it.
class CORVANE_API BalloonWindow {
 public:
  static BalloonWindow& instance();
  // Fills, places and shows a balloon for the creator (which has m_IsVisible). Message gets its
  // five trailing blanks, as the caller's variable does.
  void popUpBalloon(Object& creator, std::string& Message, const BalloonRequest& request);

  // The request of a call by name: popUpBalloon's arguments in order, Message (the second) left out.
  static BalloonRequest requestFromArgs(const std::vector<Variant>& args);
  // Runs a call by name for the creator: the second argument receives the changed Message.
  void popUpBalloonByName(Object& creator, std::vector<Variant>& args);

  bool isLoaded() const { return !m_form.expired(); }
  void load();
  // Hides the window, gives the window class its style back, unloads and tells the creator.
  void unload();

  // The window and its parts; nullptr while it is not loaded. The list of loaded forms owns the
  // window, so that an application's end unloads it with the others.
  FormRef form() const { return m_form.lock(); }
  std::shared_ptr<PictureBox> picIcon;
  std::shared_ptr<Label> lblTitle;
  std::shared_ptr<VexColorLabel> lblMsg;
  std::shared_ptr<VexHoverPic> hovClose;
  // 0 top left, 1 top right, 2 bottom left, 3 bottom right; 37 by 28 pixels each.
  std::array<std::shared_ptr<PictureBox>, 4> Corners;
  // Hiding a stub opens the tip in its corner.
  std::array<BalloonStub, 2> TopStub, BottomStub;
  // Twips from the bottom of the scale to the top of the lower corners.
  std::string Tag;

  // The two timers: tmr polls the left button, Timer1 closes the balloon.
  static constexpr int32_t tmrInterval = 50;
  bool tmrEnabled() const { return m_tmrEnabled; }
  void setTmrEnabled(bool on);
  int32_t Timer1Interval() const { return m_timer1Interval; }
  void setTimer1Interval(int32_t ms);  // 0 stops it
  bool Timer1Enabled() const { return m_timer1Enabled; }

  // The frame's layout: corners, edges, close button and the shape.
  void Form_Resize();
  void MakeBalloonShape();

  // The balloon's colours.
  static constexpr OLE_COLOR kBackColor = 0xE1FFFF;
  static constexpr OLE_COLOR kBorderColor = 0x000000;

 private:
  BalloonWindow() = default;
  void paintCorner(int32_t index);
  void applyTimers();
  void tmr_Timer();
  void Timer1_Timer();
  LRESULT windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam);
  // Clicks only ask for the unload: the clicked control's window must outlive its own event.
  void requestUnload();
  void forgetParts();

  std::weak_ptr<Form> m_form;
  std::weak_ptr<Object> m_parent;
  int32_t m_classStyle = 0;
  WNDPROC m_formProc = 0, m_ownProc = 0;
  bool m_tmrEnabled = false;
  int32_t m_timer1Interval = 0;
  bool m_timer1Enabled = true;
};

}  // namespace corvane

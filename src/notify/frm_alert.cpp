// SPDX-License-Identifier: MIT
#include <corvane/containers/vex_pane.h>
#include <corvane/frame/global.h>
#include <corvane/frame/gradient.h>
#include <corvane/frame/tile_picture.h>
#include <corvane/host/label.h>
#include <corvane/host/picture_box.h>
#include <corvane/host/screen.h>
#include <corvane/notify/frm_alert.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/strings.h>
#include <corvane/runtime/val.h>
#include <corvane/widgets/vex_line_hover.h>

#include <algorithm>

#include "host/window_geometry.h"

namespace corvane {

int32_t frmAlert::AlertStackTop = 0;

namespace {

constexpr int32_t kOpen = 1, kClose = 2, kWait = 3;  // timer ids: tmrOpen, tmrClose, tmrWarten

float tx() { return Screen::instance().TwipsPerPixelX(); }
float ty() { return Screen::instance().TwipsPerPixelY(); }

// The alerts that are loaded; an alert leaves the list when its window unloads.
std::vector<std::shared_ptr<frmAlert>>& loadedAlerts() {
  static std::vector<std::shared_ptr<frmAlert>> alerts;
  return alerts;
}

// The window's three timers and the form's unload notice come through this invisible control of
// the form: its Terminate runs when the form unloads, by whatever way (a fade unloads it too).
class AlertTimers : public HostedControl {
 public:
  explicit AlertTimers(std::weak_ptr<frmAlert> owner, std::function<void(int32_t)> tick,
                       std::function<void()> unload)
      : m_owner(std::move(owner)), m_tick(std::move(tick)), m_unload(std::move(unload)) {}
  std::string typeName() const override { return "Timer"; }
  void Terminate() override {
    if (auto keep = m_owner.lock()) m_unload();
  }

 protected:
  LRESULT windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override {
    if (msg == wm::TIMER) {
      if (auto keep = m_owner.lock()) m_tick(static_cast<int32_t>(wParam));
      return 0;
    }
    return HostedControl::windowProc(hWnd, msg, wParam, lParam);
  }

 private:
  std::weak_ptr<frmAlert> m_owner;
  std::function<void(int32_t)> m_tick;
  std::function<void()> m_unload;
};

FontRef makeFont(const std::string& name, double size, bool bold, bool underline = false) {
  return StdFont::create({.name = name, .size = size, .bold = bold, .underline = underline});
}

// A carriage return, a line feed or both end a line, as the label shows it.
std::string oneLineEnd(const std::string& text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r') {
      out += '\n';
      if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      out += text[i];
    }
  }
  return out;
}

bool styleVisible(HWND h) { return (user().GetWindowLongA(h, GWL_STYLE) & WS_VISIBLE) != 0; }

}  // namespace

std::shared_ptr<frmAlert> frmAlert::Load() {
  std::shared_ptr<frmAlert> a(new frmAlert());
  a->build();
  loadedAlerts().push_back(a);
  return a;
}

std::shared_ptr<frmAlert> frmAlert::of(const Form& form) {
  for (const auto& a : loadedAlerts())
    if (a->m_form.get() == &form) return a;
  return nullptr;
}

frmAlert::~frmAlert() = default;

std::shared_ptr<frmAlert> frmAlert::self() { return std::static_pointer_cast<frmAlert>(shared_from_this()); }

void frmAlert::build() {
  m_form = Form::create("frmAlert", 1845, 1695);
  std::weak_ptr<frmAlert> weak = self();
  m_timerHost = std::make_shared<AlertTimers>(
      weak,
      [this](int32_t id) {
        if (id == kOpen)
          tmrOpen_Timer();
        else if (id == kClose)
          tmrClose_Timer();
        else if (id == kWait)
          tmrWarten_Timer();
      },
      [this] { onFormUnload(); });
  m_form->add(m_timerHost, "Timer", "tmrAlert", nullptr, 0, 0, 0, 0);

  m_picBackground = std::static_pointer_cast<PictureBox>(
      m_form->add("PictureBox", "picBackground", nullptr, 0, 0, 1845, 1695));
  m_picBackground->surface().setBackColor(0xFFFFFF);
  m_cmdClose = std::static_pointer_cast<PictureBox>(
      m_form->add("PictureBox", "cmdClose", m_picBackground.get(), 1560, 0, 285, 285));
  user().ShowWindow(m_cmdClose->surface().hWnd(), SW_HIDE);
  m_panGrab = m_form->add<VexPane>("panGrab", *m_picBackground, -15, -15, 1575, 145);
  m_panGrab->surface().setScaleMode(Surface::Twips);  // a pane comes with a scale of its own
  m_panGrab->setGradient(true);
  m_panGrab->setBorderStyle(VexPane::btNone);
  user().ShowWindow(m_panGrab->surface().hWnd(), SW_HIDE);
  m_panOpt = m_form->add<VexPane>("panOpt", *m_picBackground, 0, 1200, 1455, 1200);
  m_panOpt->surface().setScaleMode(Surface::Twips);
  m_panOpt->setBorderStyle(VexPane::btNone);
  user().ShowWindow(m_panOpt->surface().hWnd(), SW_HIDE);
  const float tops[3] = {240, 525, 810}, widths[3] = {615, 270, 270};
  for (int32_t i = 0; i < 3; ++i) {
    m_hovOpt[i] =
        m_form->add<VexLineHover>("hovOpt" + std::to_string(i + 1), *m_panOpt, 60, tops[i], widths[i], 225);
    m_hovOpt[i]->setFont(makeFont("Tahoma", 8.25, false));
    m_hovOpt[i]->setForeColorHover(0xFF0000);
    user().ShowWindow(m_hovOpt[i]->surface().hWnd(), SW_HIDE);
    int32_t index = i + 1;
    m_hovOpt[i]->Click.connect([weak, index] {
      if (auto a = weak.lock()) a->optionClick(index);
    });
  }
  // The first line's bullet, which the others copy.
  guarded([&] { m_hovOpt[0]->setIcon(LoadResPicture("BPoint")); });

  auto box = [](const std::string& caption, float left, float top, float width, float height, FontRef font) {
    TextBox b;
    b.caption = caption;
    b.left = left;
    b.top = top;
    b.width = width;
    b.height = height;
    b.font = std::move(font);
    return b;
  };
  m_head = box("", 120, 45, 1635, 195, makeFont("Tahoma", 8.25, true));
  m_text = box("", 120, 400, 1635, 1275, makeFont("Tahoma", 8.25, false));
  m_grip = box("::::::::", -15, -60, 855, 210, makeFont("Arial", 14.25, false));
  m_optHeader = box("", 360, 30, 6900, 180, makeFont("Tahoma", 6.75, true, true));

  // The events of the children.
  auto body = [weak](int16_t& b, int16_t& s, float& x, float& y) {
    if (auto a = weak.lock()) a->bodyMouseMove(b, s, x, y);
  };
  m_picBackground->surface().MouseMove.connect(body);
  m_picBackground->surface().MouseUp.connect([weak](int16_t&, int16_t&, float&, float&) {
    if (auto a = weak.lock()) a->bodyClick();
  });
  m_cmdClose->surface().MouseDown.connect([weak](int16_t&, int16_t&, float&, float&) {
    if (auto a = weak.lock()) a->closeMouseDown();
  });
  m_cmdClose->surface().MouseMove.connect([weak](int16_t& b, int16_t&, float& x, float& y) {
    if (auto a = weak.lock()) a->closeMouseMove(b, x, y);
  });
  m_cmdClose->surface().MouseUp.connect([weak](int16_t&, int16_t&, float&, float&) {
    if (auto a = weak.lock()) a->closeMouseUp();
  });
  m_panGrab->MouseMove.connect([weak](int16_t& b, int16_t&, float& x, float& y) {
    if (auto a = weak.lock()) a->grabMouseMove(b, x, y);
  });

  // Off the screen until it is shown, top-most without taking the focus, no task-bar entry.
  HWND h = m_form->hWnd();
  user().SetWindowLongA(h, GWL_EXSTYLE, user().GetWindowLongA(h, GWL_EXSTYLE) | WS_EX_TOOLWINDOW);
  moveWindow(-3900, Top(), Width(), Height());
  user().SetWindowPos(h, HWND_TOPMOST, 0, 0, 0, 0, 19);
}

// ---- geometry ----

float frmAlert::Left() const {
  RECT r;
  user().GetWindowRect(m_form->hWnd(), r);
  return static_cast<float>(r.Left) * tx();
}
float frmAlert::Top() const {
  RECT r;
  user().GetWindowRect(m_form->hWnd(), r);
  return static_cast<float>(r.Top) * ty();
}
float frmAlert::Width() const { return m_form->surface().Width(); }
float frmAlert::Height() const { return m_form->surface().Height(); }
bool frmAlert::Visible() const { return styleVisible(m_form->hWnd()); }

void frmAlert::moveWindow(float left, float top, float width, float height) {
  user().MoveWindow(m_form->hWnd(), CLng(left / tx()), CLng(top / ty()), std::max(0, CLng(width / tx())),
                    std::max(0, CLng(height / ty())), true);
}

bool frmAlert::closeVisible() const { return styleVisible(m_cmdClose->surface().hWnd()); }
bool frmAlert::grabVisible() const { return styleVisible(m_panGrab->surface().hWnd()); }
bool frmAlert::optionsVisible() const { return styleVisible(m_panOpt->surface().hWnd()); }
VexLineHover& frmAlert::hovOpt(int32_t index) const {
  if (index < 1 || index > 3) throw RuntimeError(err::SubscriptOutOfRange);
  return *m_hovOpt[index - 1];
}

bool frmAlert::timerEnabled(int32_t id) const { return id >= 1 && id <= 3 && m_timers[id - 1].enabled; }
int32_t frmAlert::timerInterval(int32_t id) const {
  return id >= 1 && id <= 3 ? m_timers[id - 1].interval : 0;
}

// A timer ticks while it is enabled and its interval is above 0.
void frmAlert::setTimer(int32_t id, bool enabled) {
  TimerState& t = m_timers[id - 1];
  t.enabled = enabled;
  if (!m_timerHost->isSited()) return;
  HWND h = m_timerHost->surface().hWnd();
  if (enabled && t.interval > 0)
    user().SetTimer(h, id, t.interval);
  else
    user().KillTimer(h, id);
}

// ---- showing ----

void frmAlert::DisplayAlert(const std::string& AlertHeader, const std::string& AlertText,
                            const std::string& EchoStr, const std::string& vTag,
                            const std::string& OptionHeader, const std::string& OptionTxt1,
                            const std::string& OptionTxt2, const std::string& OptionTxt3,
                            const std::string& WaveFile, bool PlaySound, bool CloseButton, bool BannerShow,
                            OLE_COLOR BannerColor, OLE_COLOR ForeColorHead, OLE_COLOR ForeColor,
                            OLE_COLOR ForeColorHyper, OLE_COLOR BackColor, OLE_COLOR BackColorAlt,
                            OLE_COLOR MoveBarColor1, OLE_COLOR MoveBarColor2, myBorderStyle BorderStyle,
                            myFX Effekt, myAlignment Alignment, int32_t& PopupHeight, int32_t& PopupWidth,
                            float GradientAngle, int32_t TimeMove, int32_t Timewait,
                            const PictureRef& IconPic, int32_t& IconX, int32_t& IconY, int32_t& TextX,
                            int32_t& TextY, int32_t AutoMaxHeight, const PictureRef& WallPic) {
  auto keep = self();
  if (m_unloaded) return;
  // 1. The texts, colours and timers.
  EchoString = EchoStr;
  m_foreColour = ForeColor;
  m_hyperColour = ForeColorHyper;
  m_soundOn = PlaySound;
  m_headHeight = 0;
  m_text.alignment = m_head.alignment = Alignment;
  m_text.fore = ForeColor;
  m_head.fore = ForeColorHead;
  m_head.tag = vTag;
  m_head.caption = AlertHeader;
  m_text.caption = AlertText;
  m_timers[kWait - 1].interval = Timewait;
  m_timers[kOpen - 1].interval = TimeMove;
  m_timers[kClose - 1].interval = TimeMove;
  // 2. Styles above 2 have no window border: the window has none here, but it still narrows.
  if (BorderStyle > 2) {
    m_form->setCaption(m_form->Caption());
    moveWindow(Left(), Top(), Width() - tx(), Height());
  }
  // 3. The screen.
  m_screenWidth = user().GetSystemMetrics(SM_CXFULLSCREEN);
  m_screenHeight = user().GetSystemMetrics(SM_CYFULLSCREEN);
  // 4. A text origin outside the popup sets the popup's size; TextX wins over the width.
  if (!((PopupHeight >= TextY || PopupHeight <= 0) && PopupWidth >= TextX)) {
    PopupWidth = TextX;
    if (PopupHeight > 0) PopupHeight = TextY;
  }
  // 5. The frame of the background and the place of the close button.
  float closeLeft = 0;
  switch (BorderStyle) {
    case B1Edel:
    case B5NoBorder:
      m_pictureBorder = 0;
      closeLeft = PopupWidth - 19 * tx();
      break;
    case B2Inline:
    case B4Flat:
    case B6Movable:
      m_pictureBorder = 2;
      closeLeft = PopupWidth - 21 * tx();
      break;
    default:
      m_pictureBorder = 1;
      closeLeft = PopupWidth - 23 * tx();
      break;
  }
  float grabWidth = 1575;
  if (BorderStyle == B6Movable) {
    grabWidth = static_cast<float>(PopupWidth);
    m_grip.width = static_cast<float>(PopupWidth);
    m_head.top = 8 * ty();
    m_headHeight = CLng(9 * ty());
    if (BannerShow) {
      TextY = std::max(TextY, CLng(24 * ty()));
      m_headHeight = CLng(4 * ty());
    } else if (!AlertHeader.empty()) {
      TextY = std::max(TextY, CLng(22 * ty()));
    } else {
      TextY = std::max(TextY, CLng(9 * ty()));
    }
    m_panGrab->setBackColor(MoveBarColor1);
    m_panGrab->setBackColor2(MoveBarColor2);
    user().ShowWindow(m_panGrab->surface().hWnd(), SW_SHOWNOACTIVATE);
  }
  // 6. The close button; the move bar stops at it.
  RECT closeRect = clientRectInParent(*m_cmdClose);
  user().MoveWindow(m_cmdClose->surface().hWnd(), CLng(closeLeft / tx()), closeRect.Top,
                    closeRect.Right - closeRect.Left, closeRect.Bottom - closeRect.Top, true);
  if (CloseButton) {
    m_cmdClose->surface().setPicture(LoadResPicture("CLOSE1"));
    m_cmdClose->surface().Cls();
    user().ShowWindow(m_cmdClose->surface().hWnd(), SW_SHOWNOACTIVATE);
    grabWidth = closeLeft + tx();
    TextY = std::max(TextY, CLng(20 * ty()));
  }
  m_panGrab->surface().setWidth(grabWidth);
  // 7.
  const int32_t m = Alignment == Zentriert ? 2 : 1;
  const float frame = Height() - m_form->surface().ScaleHeight();
  // 8. Measure the text in the label's font when no height is given.
  if (PopupHeight <= 0) {
    HDC hdc = m_form->surface().hdc();
    gdi().SetDCFont(hdc, m_text.font->desc());
    RECT r{0, 0, CLng((PopupWidth - 12 * tx() - static_cast<float>(TextX) * m) / tx()), 0};
    gdi().DrawTextA(hdc, oneLineEnd(AlertText), -1, r, DT_CALCRECT | DT_WORDBREAK);
    PopupHeight = CLng(r.Bottom * ty() + TextY + 6 * ty() + frame);
    if (PopupHeight < 50 * ty())
      PopupHeight = CLng(50 * ty());
    else if (PopupHeight > AutoMaxHeight)
      PopupHeight = AutoMaxHeight;
  }
  // 9. The option lines.
  if (!OptionTxt1.empty()) {
    int32_t lines = OptionTxt2.empty() ? 1 : OptionTxt3.empty() ? 2 : 3;
    const int32_t grow[3] = {38, 56, 76}, above[3] = {39, 57, 76};
    PopupHeight = CLng(PopupHeight + grow[lines - 1] * ty());
    float optTop = PopupHeight - (above[lines - 1] * ty() + frame);
    for (int32_t i = 1; i < 3; ++i) m_hovOpt[i]->setIcon(m_hovOpt[0]->Icon());
    m_optHeader.caption = OptionHeader;
    const std::string* texts[3] = {&OptionTxt1, &OptionTxt2, &OptionTxt3};
    for (int32_t i = 0; i < 3; ++i) {
      // A line grows with its text, up to the panel's width.
      m_hovOpt[i]->setMaxAutoWidth(PopupWidth - 120);
      m_hovOpt[i]->setAutoWidth(true);
      m_hovOpt[i]->setCaption(*texts[i]);
      if (i < lines) user().ShowWindow(m_hovOpt[i]->surface().hWnd(), SW_SHOWNOACTIVATE);
    }
    RECT optRect = clientRectInParent(*m_panOpt);
    user().MoveWindow(m_panOpt->surface().hWnd(), 0, CLng(optTop / ty()), CLng(PopupWidth / tx()),
                      optRect.Bottom - optRect.Top, true);
    user().ShowWindow(m_panOpt->surface().hWnd(), SW_SHOWNOACTIVATE);
    paintOptionHeader();
  }
  // 10. and 11. The background and the window.
  user().MoveWindow(m_picBackground->surface().hWnd(), 0, 0, CLng(PopupWidth / tx()),
                    CLng((PopupHeight + 2 * ty()) / ty()), true);
  m_targetHeight = CLng(PopupHeight + frame + 2 * ty());
  float width = Width() - m_form->surface().ScaleWidth() + m_picBackground->surface().Width() + tx();
  // 12. Placement and stacking: directly above the lowest alert, or at the bottom again.
  float left = m_screenWidth * tx() - width;
  if (AlertStackTop - m_targetHeight < 6 * ty()) AlertStackTop = CLng(m_screenHeight * ty() + 26 * ty());
  float top = AlertStackTop - frame;
  AlertStackTop = AlertStackTop - m_targetHeight;
  Tag = std::to_string(AlertStackTop);
  // 13.
  if (Effekt == FX1Scroll) {
    moveWindow(left, top, width, 0);
    user().ShowWindow(m_form->hWnd(), SW_SHOWNOACTIVATE);
  } else {
    moveWindow(left, static_cast<float>(AlertStackTop), width, static_cast<float>(m_targetHeight));
  }
  // 14. to 17. Background, banner, texts and icon.
  m_wall = WallPic && WallPic->Handle() ? WallPic : nullptr;
  m_gradient = std::make_shared<CGradient>();
  m_gradient->setAngle(GradientAngle);
  m_gradient->setColor1(static_cast<int32_t>(BackColorAlt));
  m_gradient->setColor2(static_cast<int32_t>(BackColor));
  m_banner = BannerShow;
  m_bannerColour = BannerColor;
  if (BannerShow) m_headHeight = CLng(m_headHeight + 19 * ty());
  m_text.left = static_cast<float>(TextX);
  m_text.top = static_cast<float>(TextY);
  m_text.width = PopupWidth - 5 * tx() - static_cast<float>(TextX) * m;
  m_text.height = m_picBackground->surface().Height();
  m_head.left = m_text.left;
  m_head.width = m_text.width;
  m_icon = IconPic && IconPic->Handle() ? IconPic : nullptr;
  m_iconX = IconX;
  m_iconY = IconY;
  paintBackground();
  paintGrip();
  // 18. The hand over the text.
  guarded([&] {
    PictureRef hand = LoadResPicture("HAND");
    m_form->surface().setMouseIcon(hand);
    m_picBackground->surface().setMouseIcon(hand);
  });
  // 19. The sound, when both this alert and the library's switch allow it.
  if (!WaveFile.empty()) Global::PlayWav(WaveFile, m_soundOn);
  // 20. Slide in by the timer, or fade in at once.
  if (Effekt == FX1Scroll) {
    setTimer(kOpen, true);
  } else {
    m_grabTag = "Fade";
    float speed = 0;
    uint8_t alpha = 230;
    Global::FadeInForm(*m_form, speed, alpha);
    if (m_unloaded) return;
    setTimer(kWait, true);
    callParent("AlertShowed", {EchoString, m_head.tag});
  }
}

// ---- painting ----

void frmAlert::drawText(HDC hdc, const TextBox& box, float originX, float originY) {
  if (box.caption.empty()) return;
  FontSpec font = box.font->desc();
  font.underline = font.underline || box.underline;
  int32_t flags = DT_WORDBREAK | (box.alignment == Rechts      ? DT_RIGHT
                                  : box.alignment == Zentriert ? DT_CENTER
                                                               : 0);
  RECT r{CLng((box.left - originX) / tx()), CLng((box.top - originY) / ty()),
         CLng((box.left - originX + box.width) / tx()), CLng((box.top - originY + box.height) / ty())};
  Label::drawText(hdc, font, box.fore, box.caption, r, flags);
}

// The gradient or the wallpaper, the banner, the icon and the two texts, then the frame.
void frmAlert::paintBackground() {
  Surface& s = m_picBackground->surface();
  HDC hdc = s.hdc();
  int32_t w = s.pixelWidth(), h = s.pixelHeight();
  if (m_wall) {
    guarded([&] {
      auto tile = std::make_shared<clsTilePicture>();
      tile->Init(m_picBackground, m_wall);
      tile->Paint();
    });
  } else {
    guarded([&] {
      if (!m_gradient) m_gradient = std::make_shared<CGradient>();
      m_gradient->Draw(m_picBackground);
    });
  }
  if (m_banner) {
    guarded([&] {
      COLORREF colour = 0;
      gdi().OleTranslateColor(m_bannerColour, 0, colour);
      HBRUSH brush = gdi().CreateSolidBrush(colour);
      gdi().FillRect(hdc, RECT{0, 0, w, CLng(m_headHeight / ty())}, brush);
      gdi().DeleteObject(brush);
    });
  }
  if (m_icon)
    guarded([&] {
      gdi().DrawStateA(hdc, 0, 0, m_icon->Handle(), 0, CLng(m_iconX / tx()), CLng(m_iconY / ty()), 0, 0,
                       DST_ICON);
    });
  guarded([&] { drawText(hdc, m_head, 0, 0); });
  guarded([&] { drawText(hdc, m_text, 0, 0); });
  if (m_pictureBorder == 1) {
    RECT r{0, 0, w, h};
    guarded([&] { gdi().DrawEdge(hdc, r, EDGE_SUNKEN, BF_RECT); });
  } else if (m_pictureBorder == 2) {
    guarded([&] {
      HBRUSH brush = gdi().CreateSolidBrush(0);
      gdi().FrameRect(hdc, RECT{0, 0, w, h}, brush);
      gdi().DeleteObject(brush);
    });
  }
  user().InvalidateRect(s.hWnd(), nullptr, false);
}

// The grip "::::::::" lies on the move bar, see-through.
void frmAlert::paintGrip() {
  if (!grabVisible()) return;
  guarded([&] {
    m_panGrab->DrawPane();
    // The bar sits at -15, -15 in the background; the grip's place is given in the background.
    drawText(m_panGrab->surface().hdc(), m_grip, -15, -15);
  });
}

void frmAlert::paintOptionHeader() {
  guarded([&] {
    m_panOpt->DrawPane();
    drawText(m_panOpt->surface().hdc(), m_optHeader, 0, 0);
  });
}

// ---- calls back to the creator ----

void frmAlert::callParent(const std::string& member, Dispatch::Args args) {
  if (!m_Parent) return;
  ObjectRef parent = m_Parent;  // the call may unload this alert
  parent->call(member, std::move(args));
}

// ---- timers ----

void frmAlert::tmrOpen_Timer() {
  auto keep = self();
  if (m_unloaded) return;
  // Counted in whole pixels, which the window has: a target between two pixels is reached at
  // the nearer one instead of being chased for ever.
  RECT r;
  user().GetWindowRect(m_form->hWnd(), r);
  int32_t old = r.Bottom - r.Top, target = CLng(m_targetHeight / ty());
  if (old < target) {
    int32_t grown = std::min(old + 5, target);
    user().MoveWindow(m_form->hWnd(), r.Left, r.Top - (grown - old), r.Right - r.Left, grown, true);
  } else {
    setTimer(kOpen, false);
    setTimer(kWait, true);
    m_picBackground->surface().Refresh();
    callParent("AlertShowed", {EchoString, m_head.tag});
  }
}

void frmAlert::tmrWarten_Timer() {
  auto keep = self();
  if (m_unloaded) return;
  m_form->setEnabled(false);
  setTimer(kOpen, false);
  setTimer(kWait, false);
  if (EchoString == kKilled || !Visible()) {
    m_form->Hide();
    Unload();
  } else if (m_grabTag.empty()) {
    setTimer(kClose, true);
  } else {
    float speed = 0;
    uint8_t alpha = m_grabTag == "Fade" ? 230 : 255;
    FormRef f = m_form;
    Global::FadeOutForm(f, speed, alpha);  // unloads the window itself
  }
}

void frmAlert::tmrClose_Timer() {
  auto keep = self();
  if (m_unloaded) return;
  if (8 * ty() < Height()) {
    moveWindow(Left(), Top() + 5 * ty(), Width(), Height() - 5 * ty());
  } else {
    m_form->Hide();
    Unload();
  }
}

// ---- unloading ----

void frmAlert::Unload() {
  auto keep = self();
  if (m_unloaded || m_unloading) return;
  m_form->Unload();
  onFormUnload();  // in case the form's controls were already gone
}

void frmAlert::onFormUnload() {
  if (m_unloaded || m_unloading) return;
  auto keep = self();
  m_unloading = true;
  for (int32_t id = 1; id <= 3; ++id) guarded([&] { setTimer(id, false); });
  guarded([&] { user().ShowWindow(m_form->hWnd(), SW_HIDE); });
  if (EchoString != kKilled && m_Parent) {
    int32_t aktTop = 0;
    guarded([&] { aktTop = CLng(Val(Tag)); });
    guarded([&] { callParent("AlertClosed", {EchoString, m_head.tag, aktTop}); });
  }
  m_Parent = nullptr;
  m_unloaded = true;
  auto& all = loadedAlerts();
  all.erase(std::remove(all.begin(), all.end(), keep), all.end());
}

// ---- the mouse ----

POINTAPI frmAlert::cursorIn(HWND hWnd) const {
  POINTAPI p{0, 0};
  user().GetCursorPos(p);
  user().ScreenToClient(hWnd, p);
  return p;
}

void frmAlert::clearUnderline() {
  if (!m_text.underline) return;
  m_text.underline = false;
  m_text.fore = m_foreColour;
  paintBackground();
}

void frmAlert::bodyMouseMove(int16_t button, int16_t shift, float x, float y) {
  auto keep = self();
  if (m_unloaded) return;
  // A fading alert under the mouse becomes opaque and no longer closes by time.
  if (m_grabTag == "Fade") {
    setTimer(kWait, false);
    m_grabTag = "Faded";
    float speed = 0;
    uint8_t alpha = 0;
    Global::FadeInForm(*m_form, speed, alpha);
  }
  m_text.enabled = true;
  if (optionsVisible()) {
    callParent("AlertMouseMove", {EchoString, m_head.tag, button, shift, x, y});
    return;
  }
  user().DoEvents();
  if (m_unloaded) return;
  HWND pic = m_picBackground->surface().hWnd();
  user().SetCapture(pic);
  POINTAPI p = cursorIn(pic);
  float cx = p.x * tx(), cy = p.y * ty();
  RECT closeRect = clientRectInParent(*m_cmdClose);
  float closeLeft = closeRect.Left * tx();
  bool overClose =
      closeVisible() && cx >= closeLeft && cx < closeLeft + 17 * tx() && cy > 2 * ty() && cy < 19 * ty();
  Surface& s = m_picBackground->surface();
  if (cx < 0 || cy < m_headHeight || cx + 3 * tx() > s.Width() || cy + 3 * ty() > s.Height() || overClose) {
    user().ReleaseCapture();
    s.setMousePointer(0);
    clearUnderline();
  } else {
    if (!m_text.underline) {
      m_text.underline = true;
      m_text.fore = m_hyperColour;
      paintBackground();
    }
    s.setMousePointer(99);
    callParent("AlertMouseMove", {EchoString, m_head.tag, button, shift, x, y});
  }
}

void frmAlert::bodyClick() {
  auto keep = self();
  if (m_unloaded || optionsVisible()) return;
  callParent("AlertClick", {EchoString, m_head.tag, static_cast<int16_t>(0)});
  if (m_unloaded) return;
  m_form->Hide();
  tmrWarten_Timer();
}

void frmAlert::closeMouseDown() {
  if (m_unloaded) return;
  m_cmdClose->surface().setPicture(LoadResPicture("CLOSE3"));
  m_cmdClose->surface().Cls();
}

void frmAlert::closeMouseMove(int16_t button, float x, float y) {
  auto keep = self();
  if (m_unloaded) return;
  if (m_text.underline) {
    m_text.underline = false;
    paintBackground();
  }
  Surface& s = m_cmdClose->surface();
  user().SetCapture(s.hWnd());
  POINTAPI p = cursorIn(s.hWnd());
  float cx = p.x * tx(), cy = p.y * ty();
  if (cx >= 0 && cx < 285 && cy >= 0 && cy < 285) {
    s.setPicture(LoadResPicture((button & 1) ? "CLOSE3" : "CLOSE2"));
    s.setMousePointer(99);
  } else {
    user().ReleaseCapture();
    if (y >= 0 && x < 300) m_text.enabled = false;  // the mouse goes on to the background
    s.setMousePointer(0);
    s.setPicture(LoadResPicture("CLOSE1"));
  }
  s.Cls();
}

void frmAlert::closeMouseUp() {
  auto keep = self();
  if (m_unloaded) return;
  m_cmdClose->surface().setPicture(LoadResPicture("CLOSE1"));
  m_cmdClose->surface().Cls();
  callParent("AlertClick", {EchoString, m_head.tag, static_cast<int16_t>(-1)});
  if (m_unloaded) return;
  m_form->Hide();
  tmrWarten_Timer();
}

void frmAlert::optionClick(int32_t index) {
  auto keep = self();
  if (m_unloaded) return;
  m_form->Hide();
  moveWindow(Left(), Top(), Width(), 0);
  setTimer(kWait, false);
  m_form->setEnabled(false);
  callParent("AlertClick", {EchoString, m_head.tag, static_cast<int16_t>(index)});
  if (m_unloaded) return;
  setTimer(kClose, true);  // its next tick unloads
}

// The grip on the move bar drags the alert out of the stack.
void frmAlert::grabMouseMove(int16_t button, float x, float y) {
  auto keep = self();
  if (m_unloaded) return;
  // The bar's coordinates, in the grip's own.
  int32_t gx = CLng(x - 15 - m_grip.left), gy = CLng(y - 15 - m_grip.top);
  if (button != 1) {
    m_grabX = gx;
    m_grabY = gy;
    return;
  }
  if (Tag != kDetachedTag) {
    m_grabX = gx;
    m_grabY = gy;
    Tag = kDetachedTag;
    clearUnderline();
    setTimer(kWait, false);
    m_grabTag = "Faded";
    float speed = 0;
    uint8_t alpha = 0;
    Global::FadeInForm(*m_form, speed, alpha);
    user().SetWindowPos(m_form->hWnd(), HWND_NOTOPMOST, 0, 0, 0, 0, 3);
    // The rest of the stack: the lowest top of the alerts still in it.
    AlertStackTop = kNoTop;
    for (const FormRef& f : std::vector<FormRef>(Forms::all())) {
      if (LCase(f->Name()) != "frmalert") continue;
      auto other = of(*f);
      if (!other || other->Tag == kDetachedTag) continue;
      if (other->Tag.empty()) {
        other->Unload();
        continue;
      }
      user().SetWindowPos(f->hWnd(), HWND_TOPMOST, 0, 0, 0, 0, 19);
      if (Val(other->Tag) < AlertStackTop) AlertStackTop = CLng(Val(other->Tag));
    }
    if (AlertStackTop == kNoTop) AlertStackTop = 0;
  }
  moveWindow(Left() + gx - m_grabX, Top() + gy - m_grabY, Width(), Height());
}

// ---- the creators' walks ----

std::vector<std::shared_ptr<frmAlert>> frmAlert::loaded() {
  std::vector<std::shared_ptr<frmAlert>> out;
  for (const FormRef& f : std::vector<FormRef>(Forms::all()))
    if (LCase(f->Name()) == "frmalert")
      if (auto a = of(*f)) out.push_back(a);
  return out;
}

void frmAlert::repairStack(int32_t aktTop) {
  if (aktTop != AlertStackTop) return;
  AlertStackTop = kNoTop;
  for (const auto& a : loaded()) {
    if (a->Tag.empty() || !a->Visible()) {
      a->Unload();
    } else {
      double top = Val(a->Tag);
      if (top < AlertStackTop && top != aktTop) AlertStackTop = CLng(top);
    }
  }
  if (AlertStackTop == kNoTop) AlertStackTop = 0;
}

void frmAlert::closeAll(const std::string& echo) {
  for (const auto& a : loaded())
    if (a->EchoString == echo) a->tmrWarten_Timer();
}

bool frmAlert::isShowed(const std::string& echo) {
  for (const FormRef& f : std::vector<FormRef>(Forms::all())) {
    auto a = of(*f);
    if (!a) throw RuntimeError(err::MemberNotFound);
    if (a->EchoString == echo) return true;
  }
  return false;
}

const Dispatch* frmAlert::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<frmAlert>(t)
        .get("Name", [](frmAlert&) { return std::string("frmAlert"); })
        .get("EchoString", [](frmAlert& a) { return a.EchoString; })
        .get("Tag", [](frmAlert& a) { return a.Tag; })
        .get("Visible", &frmAlert::Visible)
        .method("tmrWarten_Timer", [](frmAlert& a, Dispatch::Args&) { a.tmrWarten_Timer(); });
    t.addSetter("EchoString", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<frmAlert&>(o).EchoString = v.toString();
    });
    t.addSetter("Tag", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<frmAlert&>(o).Tag = v.toString();
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane

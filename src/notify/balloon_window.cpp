// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>
#include <corvane/host/extender.h>
#include <corvane/host/screen.h>
#include <corvane/notify/balloon_window.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/guard.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/runtime/val.h>

#include <algorithm>

namespace corvane {

namespace {
constexpr int32_t kTmrId = 1, kTimer1Id = 2;
// Posted to the balloon's window by a click: the unload runs once the click's own handling is over.
constexpr int32_t kUnloadRequest = 0x0400 + 0x42;
constexpr int32_t kDropShadow = 131072;
constexpr int32_t kCornerWidth = 37, kCornerHeight = 28;
// Where the close button stands below the body's upper edge, in pixels.
constexpr int32_t kCloseTop = 23;

float tx() { return Screen::instance().TwipsPerPixelX(); }
float ty() { return Screen::instance().TwipsPerPixelY(); }

FontRef balloonFont(const std::string& face, double size, bool bold) {
  return StdFont::create({.name = face, .size = size, .bold = bold});
}
}  // namespace

BalloonWindow& BalloonWindow::instance() {
  static BalloonWindow balloon;
  return balloon;
}

// ---- loading and unloading ----

void BalloonWindow::load() {
  if (isLoaded()) return;
  forgetParts();
  FormRef f = Form::create("frmBalloon", 3000, 1500);
  m_form = f;
  HWND h = f->hWnd();
  f->surface().setBackColor(kBackColor);
  // The balloon's own window procedure goes in front of the form's, for the timers and the
  // unload that clicks ask for.
  m_ownProc = user().RegisterWindowProc(
      [this](HWND hw, int32_t m, WPARAM w, LPARAM l) { return windowProc(hw, m, w, l); });
  m_formProc = user().SetWindowLongA(h, GWL_WNDPROC, m_ownProc);

  // The corners first, so that the icon and the close button stand above them.
  for (int32_t i = 0; i < 4; ++i) {
    Corners[i] = std::dynamic_pointer_cast<PictureBox>(
        f->add("PictureBox", "Corners(" + std::to_string(i) + ")", nullptr, 0, 0, kCornerWidth * tx(),
               kCornerHeight * ty()));
    Corners[i]->surface().setBackColor(kBackColor);
    Corners[i]->surface().Click.connect([this] { requestUnload(); });
  }
  picIcon =
      std::dynamic_pointer_cast<PictureBox>(f->add("PictureBox", "picIcon", nullptr, 120, 390, 240, 240));
  picIcon->surface().setBackColor(kBackColor);
  lblTitle = std::make_shared<Label>();
  f->add(lblTitle, "Label", "lblTitle", nullptr, 420, 420, 390, 195);
  lblTitle->setBackColor(kBackColor);
  lblTitle->setFont(balloonFont("MS Sans Serif", 8.25, true));
  lblTitle->setAutoSize(true);
  lblMsg = f->add<VexColorLabel>("lblMsg", 120, 720, 390, 195);
  lblMsg->setBackColor(kBackColor);
  lblMsg->setAutosize(true);
  hovClose = f->add<VexHoverPic>("hovClose", 0, kCloseTop * ty());
  hovClose->setBackColor(kBackColor);
  hovClose->setImageUp(Global::LoadIconPicture("BalloonClose"));
  f->surface().Click.connect([this] { requestUnload(); });
  lblTitle->surface().Click.connect([this] { requestUnload(); });
  lblMsg->Click.connect([this] { requestUnload(); });
  picIcon->surface().Click.connect([this] { requestUnload(); });
  hovClose->Click.connect([this] { requestUnload(); });

  // The stubs close the edges where no tip stands; the upper ones share their height, and so do
  // the lower ones.
  TopStub[0] = {17 * tx(), 19 * ty(), 34 * tx(), 19 * ty(), true, kBorderColor};
  TopStub[1] = {3 * tx(), TopStub[0].Y2, 20 * tx(), TopStub[0].Y2, true, kBorderColor};
  BottomStub[0] = {17 * tx(), 8 * ty(), 34 * tx(), 8 * ty(), true, kBorderColor};
  BottomStub[1] = {3 * tx(), BottomStub[0].Y2, 20 * tx(), BottomStub[0].Y2, true, kBorderColor};
  Tag.clear();
  m_tmrEnabled = false;
  m_timer1Interval = 0;
  m_timer1Enabled = true;

  // A press of the left button from before the balloon must not count for tmr.
  user().GetAsyncKeyState(VK_LBUTTON);
  user().SetWindowPos(h, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOACTIVATE);
  // The drop shadow is a style of the whole window class: kept here, given back on unload.
  m_classStyle = user().GetClassLongA(h, GCL_STYLE);
  user().SetClassLongA(h, GCL_STYLE, m_classStyle | kDropShadow);
}

void BalloonWindow::unload() {
  FormRef f = m_form.lock();
  if (!f) {
    forgetParts();
    return;
  }
  HWND h = f->hWnd();
  guarded([&] { user().KillTimer(h, kTmrId); });
  guarded([&] { user().KillTimer(h, kTimer1Id); });
  m_tmrEnabled = false;
  guarded([&] { user().ShowWindow(h, SW_HIDE); });
  guarded([&] { user().SetClassLongA(h, GCL_STYLE, m_classStyle); });
  guarded([&] { user().SetWindowLongA(h, GWL_WNDPROC, m_formProc); });
  // The procedure may be the one running now; the window system keeps it alive until it returns.
  guarded([&] { user().UnregisterWindowProc(m_ownProc); });
  m_ownProc = m_formProc = 0;
  std::shared_ptr<Object> creator = m_parent.lock();
  m_parent.reset();
  forgetParts();
  m_form.reset();
  f->Unload();
  if (creator) guarded([&] { creator->let("m_IsVisible", false); });
}

void BalloonWindow::forgetParts() {
  picIcon.reset();
  lblTitle.reset();
  lblMsg.reset();
  hovClose.reset();
  for (auto& c : Corners) c.reset();
}

void BalloonWindow::requestUnload() {
  if (FormRef f = m_form.lock()) user().PostMessageA(f->hWnd(), kUnloadRequest, 0, 0);
}

// ---- timers ----

void BalloonWindow::setTmrEnabled(bool on) {
  m_tmrEnabled = on;
  applyTimers();
}

void BalloonWindow::setTimer1Interval(int32_t ms) {
  if (ms < 0) throw RuntimeError(err::InvalidPropertyValue);
  m_timer1Interval = ms;
  applyTimers();
}

void BalloonWindow::applyTimers() {
  FormRef f = m_form.lock();
  if (!f) return;
  HWND h = f->hWnd();
  if (m_tmrEnabled)
    user().SetTimer(h, kTmrId, tmrInterval);
  else
    user().KillTimer(h, kTmrId);
  // A timer with interval 0 never ticks.
  if (m_timer1Enabled && m_timer1Interval > 0)
    user().SetTimer(h, kTimer1Id, m_timer1Interval);
  else
    user().KillTimer(h, kTimer1Id);
}

void BalloonWindow::tmr_Timer() {
  if (user().GetAsyncKeyState(VK_LBUTTON) != 0) unload();
}

void BalloonWindow::Timer1_Timer() {
  if (m_timer1Interval == 0) {
    m_timer1Enabled = false;
    applyTimers();
  }
  unload();
}

LRESULT BalloonWindow::windowProc(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) {
  if (msg == wm::TIMER && wParam == kTmrId) {
    tmr_Timer();
    return 0;
  }
  if (msg == wm::TIMER && wParam == kTimer1Id) {
    Timer1_Timer();
    return 0;
  }
  if (msg == kUnloadRequest) {
    unload();
    return 0;
  }
  return user().CallWindowProcA(m_formProc, hWnd, msg, wParam, lParam);
}

// ---- layout and shape ----

void BalloonWindow::Form_Resize() {
  FormRef f = m_form.lock();
  if (!f) return;
  Surface& s = f->surface();
  float tag = static_cast<float>(Val(Tag));
  float bottom = s.ScaleHeight() + 9 * ty() - tag;
  guarded(
      [&] { Corners[1]->extenderObject().setLeft(s.ScaleWidth() - Corners[1]->extenderObject().Width()); });
  guarded(
      [&] { Corners[3]->extenderObject().setLeft(s.ScaleWidth() - Corners[3]->extenderObject().Width()); });
  guarded([&] { Corners[2]->extenderObject().setTop(s.ScaleHeight() - tag); });
  guarded([&] { Corners[3]->extenderObject().setTop(s.ScaleHeight() - tag); });
  guarded([&] { s.Cls(); });
  OLE_COLOR c = TopStub[0].BorderColor;
  float w = s.ScaleWidth();
  guarded([&] { s.Line(36 * tx(), 19 * ty(), w - 7 * tx(), 19 * ty(), c); });
  guarded([&] { s.Line(8 * tx(), bottom - ty(), w - 7 * tx(), bottom - ty(), c); });
  guarded([&] { s.Line(0, 27 * ty(), 0, bottom - 8 * ty(), c); });
  guarded([&] { s.Line(w - tx(), 27 * ty() - ty(), w - tx(), bottom - 8 * ty() - ty(), c); });
  for (int32_t i = 0; i < 4; ++i) guarded([&] { paintCorner(i); });
  guarded([&] {
    Extender& e = hovClose->extenderObject();
    e.setLeft(w - e.Width() - 4 * tx());
  });
  guarded([&] { MakeBalloonShape(); });
}

// The corner drawings: the rounded corner of the body, the outline of the tip that opens there,
// and the stub over the tip's opening while it is closed.
void BalloonWindow::paintCorner(int32_t index) {
  Surface& s = Corners[index]->surface();
  s.Cls();
  OLE_COLOR c = kBorderColor;
  auto hline = [&](int32_t x1, int32_t x2, int32_t y) {
    s.Line(x1 * tx(), y * ty(), (x2 + 1) * tx(), y * ty(), c);
  };
  auto vline = [&](int32_t x, int32_t y1, int32_t y2) {
    s.Line(x * tx(), y1 * ty(), x * tx(), (y2 + 1) * ty(), c);
  };
  auto dot = [&](int32_t x, int32_t y) { hline(x, x, y); };
  const BalloonStub* stub = nullptr;
  switch (index) {
    case 0:
      vline(16, 1, 18);
      for (int32_t i = 1; i <= 18; ++i) dot(16 + i, i);
      hline(2, 16, 19);
      hline(34, 36, 19);
      dot(1, 20);
      vline(0, 21, 27);
      stub = &TopStub[0];
      break;
    case 1:
      vline(20, 1, 18);
      for (int32_t i = 1; i <= 18; ++i) dot(20 - i, i);
      hline(0, 2, 19);
      hline(20, 34, 19);
      dot(35, 20);
      vline(36, 21, 27);
      stub = &TopStub[1];
      break;
    case 2:
      vline(0, 0, 6);
      dot(1, 7);
      hline(2, 16, 8);
      hline(34, 36, 8);
      vline(16, 9, 26);
      for (int32_t j = 1; j <= 18; ++j) dot(35 - j, 8 + j);
      stub = &BottomStub[0];
      break;
    default:
      vline(36, 0, 6);
      dot(35, 7);
      hline(0, 2, 8);
      hline(20, 34, 8);
      vline(20, 9, 26);
      for (int32_t m = 0; m <= 17; ++m) dot(19 - m, 26 - m);
      stub = &BottomStub[1];
      break;
  }
  if (stub->Visible) s.Line(stub->X1, stub->Y1, stub->X2, stub->Y2, stub->BorderColor);
}

void BalloonWindow::MakeBalloonShape() {
  FormRef f = m_form.lock();
  if (!f) return;
  Surface& s = f->surface();
  GdiApi& g = gdi();
  s.setScaleMode(Surface::Pixels);
  int32_t W = CLng(s.ScaleWidth()), H = CLng(s.ScaleHeight());
  HRGN result = g.CreateRectRgn(0, 0, 0, 0);
  auto add = [&](int32_t l, int32_t t, int32_t r, int32_t b) {
    HRGN part = g.CreateRectRgn(l, t, r, b);
    g.CombineRgn(result, result, part, RGN_OR);
    g.DeleteObject(part);
  };
  int32_t B = H;
  if (!BottomStub[0].Visible || !BottomStub[1].Visible) {
    B = H - 19;
    if (!BottomStub[0].Visible) {
      int32_t k = 19;
      for (int32_t i = B; i <= B + 18; ++i) {
        --k;
        add(16, i, 18 + k, i - 1);
      }
    } else {
      int32_t k = 17;
      for (int32_t i = B + 18; i >= B; --i) {
        ++k;
        add(W - k, i - 1, W - 16, i);
      }
    }
  } else if (!TopStub[0].Visible) {
    for (int32_t i = 1; i <= 18; ++i) add(16, i, 17 + i, i + 1);
  } else {
    for (int32_t i = 1; i <= 18; ++i) add(W - 17 - i, i, W - 16, i + 1);
  }
  add(1, 20, 2, 21);
  add(W - 2, 20, W - 1, 21);
  add(1, B - 2, 2, B - 1);
  add(W - 2, B - 2, W - 1, B - 1);
  add(2, 19, W - 2, 24);
  add(2, B - 3, W - 2, B);
  add(0, 21, W, B - 2);
  user().SetWindowRgn(f->hWnd(), result, false);
  s.setScaleMode(Surface::Twips);
}

// ---- the balloon ----

BalloonRequest BalloonWindow::requestFromArgs(const std::vector<Variant>& a) {
  BalloonRequest r;
  auto given = [&](size_t i) { return a.size() > i && !a[i].isEmpty(); };
  r.OwnerFormHwnd = a.at(0).toLong();
  if (given(2)) r.Title = a[2].toString();
  if (given(3)) r.Icon = a[3].toLong();
  if (given(4)) r.ShowModal = a[4].toBool();
  if (given(5)) r.showClose = a[5].toBool();
  if (given(6)) r.autoCloseTime = a[6].toInteger();
  if (given(7)) r.FontSize = a[7].toInteger();
  if (given(8)) r.fontFace = a[8].toString();
  if (given(9)) r.HeadColor = a[9].toLong();
  if (given(10)) r.PutAtCurrentMousePos = a[10].toBool();
  if (given(11)) r.TipAbove = a[11].toBool();
  if (given(12)) r.MaxWidth = a[12].toLong();
  if (given(13)) r.XinPixels = a[13].toInteger();
  if (given(14)) r.YinPixels = a[14].toInteger();
  if (given(15)) r.CTRL = a[15].toObject();
  return r;
}

void BalloonWindow::popUpBalloonByName(Object& creator, std::vector<Variant>& args) {
  std::string message = args.at(1).toString();
  BalloonRequest r = requestFromArgs(args);
  // The message is passed by reference: the caller sees the blanks even when the call fails.
  try {
    popUpBalloon(creator, message, r);
  } catch (...) {
    args[1] = Variant(message);
    throw;
  }
  args[1] = Variant(message);
}

void BalloonWindow::popUpBalloon(Object& creator, std::string& Message, const BalloonRequest& r) {
  POINTAPI cursor{};
  user().GetCursorPos(cursor);
  unload();
  load();
  FormRef f = m_form.lock();
  Message += "     ";
  setTimer1Interval(mul16(r.autoCloseTime, 1000));
  hovClose->extenderObject().setVisible(r.showClose);

  lblMsg->setCaption(Message);
  lblMsg->setFont(balloonFont(r.fontFace, r.FontSize, false));
  Extender& msg = lblMsg->extenderObject();
  if (msg.Width() > static_cast<float>(r.MaxWidth)) {
    lblMsg->setWordWrap(true);
    msg.setWidth(static_cast<float>(r.MaxWidth));
  }

  lblTitle->setForeColor(r.HeadColor);
  lblTitle->setFont(balloonFont(r.fontFace, r.FontSize, true));
  lblTitle->setCaption(r.Title);

  bool hasIcon = r.Icon != 0;
  picIcon->surface().setPicture(Global::LoadIconPicture(std::to_string(CInt(r.Icon / 16.0))));
  picIcon->extenderObject().setVisible(hasIcon);
  Extender& title = lblTitle->extenderObject();
  title.setLeft(8 * tx() + (hasIcon ? 24 * tx() : 0));

  float width = std::max(msg.Width(), title.Width() + (hasIcon ? 24 * tx() : 0)) + 16 * tx();
  float height = msg.Top() + msg.Height() + 12 * ty();

  // The point the tip shows at, in pixels, and whether the balloon stands above it.
  enum class Place { Mouse, Point, Control } where;
  int32_t x = 0, y = 0;
  float controlHeight = 0;
  bool above = false;
  if (!r.CTRL && r.PutAtCurrentMousePos) {
    where = Place::Mouse;
    x = cursor.x;
    y = cursor.y;
    // Pixels against twips: the mouse's room test is as loose as it has always been.
    above = r.TipAbove && (static_cast<float>(y) - height / ty()) > 2 * ty();
  } else if (r.XinPixels != 0 && r.YinPixels != 0) {
    where = Place::Point;
    x = r.XinPixels;
    y = r.YinPixels;
    above = r.TipAbove && (static_cast<float>(y) * ty() - height) > 200;
  } else {
    where = Place::Control;
    if (!r.CTRL) throw RuntimeError(err::ObjectNotSet, "The balloon has no control to point at");
    RECT rc{};
    user().GetWindowRect(r.CTRL->get("hWnd").toLong(), rc);
    x = rc.Left + 16;
    y = rc.Top;
    controlHeight = r.CTRL->get("Height").toSingle();
    above = r.TipAbove && (static_cast<float>(y) * ty() - height) > 99;
  }
  float top = 0;
  if (above) {
    float before = height;
    height += 19 * ty();
    // At a point the tip's end lies 19 pixels below it.
    top = static_cast<float>(y) * ty() - (where == Place::Point ? before : height);
    Tag = Variant(28 * ty()).toString();
    BottomStub[0].Visible = false;
  } else {
    top = static_cast<float>(y) * ty() + (where == Place::Control ? controlHeight : 0);
    Tag = Variant(9 * ty()).toString();
    TopStub[0].Visible = false;
  }
  float left = static_cast<float>(x) * tx() - 16 * tx();
  if (left < 0) left = 0;
  bool pastScreen = left + width > Screen::instance().Width();
  if (pastScreen && user().GetSystemMetrics(SM_CMONITORS) > 1)
    pastScreen = left + width > static_cast<float>(user().GetSystemMetrics(SM_CXVIRTUALSCREEN)) * tx();
  if (pastScreen) {
    left = static_cast<float>(x) * tx() - width + 32 * tx();
    if (!TopStub[0].Visible) {
      TopStub[0].Visible = true;
      TopStub[1].Visible = false;
    } else {
      BottomStub[0].Visible = true;
      BottomStub[1].Visible = false;
    }
  }
  f->Move(left, top, width, height);

  creator.let("m_IsVisible", true);
  m_parent = creator.weak_from_this();
  Form_Resize();
  if (r.ShowModal) {
    // The call returns when the balloon closes; only its own clicks and Timer1 close it. A loop
    // with nothing left to wait for (a headless desktop without timers) returns at once.
    f->Show();
    f.reset();
    while (isLoaded()) {
      if (user().DoEvents() == 0 && !user().WaitForWork(-1)) break;
    }
    return;
  }
  user().ShowWindow(f->hWnd(), SW_SHOWNOACTIVATE);
  user().SetForegroundWindow(r.OwnerFormHwnd);
  setTmrEnabled(true);
}

}  // namespace corvane

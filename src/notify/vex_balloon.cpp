// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>
#include <corvane/host/extender.h>
#include <corvane/notify/vex_balloon.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/guard.h>

namespace corvane {

namespace {
constexpr float kDesignWidth = 885, kDesignHeight = 555;
}

DesignForm VexBalloon::designForm() const {
  DesignForm d;
  d.width = kDesignWidth;
  d.height = kDesignHeight;
  return d;
}

void VexBalloon::popUpBalloon(int32_t OwnerFormHwnd, std::string& Message, const std::string& Title,
                              IconType Icon, bool ShowModal, bool showClose, int16_t autoCloseTime,
                              int16_t FontSize, const std::string& fontFace, OLE_COLOR HeadColor,
                              bool PutAtCurrentMousePos, bool TipAbove, int32_t MaxWidth, int16_t XinPixels,
                              int16_t YinPixels, ObjectRef CTRL) {
  BalloonRequest r{OwnerFormHwnd, Title,    Icon,      ShowModal, showClose,
                   autoCloseTime, FontSize, fontFace,  HeadColor, PutAtCurrentMousePos,
                   TipAbove,      MaxWidth, XinPixels, YinPixels, CTRL};
  BalloonWindow::instance().popUpBalloon(*this, Message, r);
}

void VexBalloon::UnloadBalloon() { BalloonWindow::instance().unload(); }

// At design time the control keeps its fixed size whatever the designer asks.
void VexBalloon::onResize() {
  if (ambient().UserMode()) return;
  guarded([&] {
    Extender& e = extenderObject();
    if (e.Width() != kDesignWidth || e.Height() != kDesignHeight)
      e.Move(e.Left(), e.Top(), kDesignWidth, kDesignHeight);
  });
  Paint();
}

// Invisible at run time.
void VexBalloon::Show() {
  if (ambient().UserMode()) guarded([&] { user().ShowWindow(hWnd(), SW_HIDE); });
}

// The design-time look: the information icon on the control's face, in a frame.
void VexBalloon::Paint() {
  if (ambient().UserMode()) return;
  guarded([&] {
    Surface& s = surface();
    s.Cls();
    s.PaintPicture(Global::LoadIconPicture("4"), s.ScaleWidth() / 2 - 120, s.ScaleHeight() / 2 - 120, 240,
                   240);
    s.Line(0, 0, s.ScaleWidth() - s.ScaleX(1, 3, -1), s.ScaleHeight() - s.ScaleY(1, 3, -1), 0x808080, true);
  });
}

void VexBalloon::Terminate() {
  guarded([&] { UnloadBalloon(); });
}

const Dispatch* VexBalloon::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t = standardDispatch();
    DispatchBuilder<VexBalloon>(t)
        .get("IsVisible", &VexBalloon::IsVisible)
        .get("m_IsVisible", [](VexBalloon& c) { return c.m_IsVisible; })
        .method("popUpBalloon",
                [](VexBalloon& c, Dispatch::Args& a) { BalloonWindow::instance().popUpBalloonByName(c, a); })
        .method("UnloadBalloon", [](VexBalloon& c, Dispatch::Args&) { c.UnloadBalloon(); });
    t.addSetter("m_IsVisible", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<VexBalloon&>(o).m_IsVisible = v.toBool();
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane

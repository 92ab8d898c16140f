// SPDX-License-Identifier: MIT
#include <corvane/notify/mini_balloon.h>

namespace corvane {

void cMiniBalloon::popUpBalloon(int32_t OwnerFormHwnd, std::string& Message, const std::string& Title,
                                IconType Icon, bool ShowModal, bool showClose, int16_t autoCloseTime,
                                int16_t FontSize, const std::string& fontFace, OLE_COLOR HeadColor,
                                bool PutAtCurrentMousePos, bool TipAbove, int32_t MaxWidth, int16_t XinPixels,
                                int16_t YinPixels, ObjectRef CTRL) {
  BalloonRequest r{OwnerFormHwnd, Title,    Icon,      ShowModal, showClose,
                   autoCloseTime, FontSize, fontFace,  HeadColor, PutAtCurrentMousePos,
                   TipAbove,      MaxWidth, XinPixels, YinPixels, CTRL};
  BalloonWindow::instance().popUpBalloon(*this, Message, r);
}

void cMiniBalloon::UnloadBalloon() { BalloonWindow::instance().unload(); }

const Dispatch* cMiniBalloon::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<cMiniBalloon>(t)
        .get("IsVisible", &cMiniBalloon::IsVisible)
        .get("m_IsVisible", [](cMiniBalloon& c) { return c.m_IsVisible; })
        .method("popUpBalloon", [](cMiniBalloon& c,
                                   Dispatch::Args& a) { BalloonWindow::instance().popUpBalloonByName(c, a); })
        .method("UnloadBalloon", [](cMiniBalloon& c, Dispatch::Args&) { c.UnloadBalloon(); });
    t.addSetter("m_IsVisible", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<cMiniBalloon&>(o).m_IsVisible = v.toBool();
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane

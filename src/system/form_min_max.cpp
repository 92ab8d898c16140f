// SPDX-License-Identifier: MIT
#include <corvane/frame/msubclass.h>
#include <corvane/host/screen.h>
#include <corvane/platform/message_memory.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/runtime_error.h>
#include <corvane/system/form_min_max.h>

namespace corvane {

cFormMinMax::~cFormMinMax() {
  try {
    Detach();
  } catch (const RuntimeError&) {
    // The platform may be gone already at the end of the program: nothing is left to undo.
  }
}

void cFormMinMax::AttachEx(int32_t hWnd, std::optional<int32_t> lMinTrackWidth,
                           std::optional<int32_t> lMinTrackHeight, std::optional<int32_t> lMaxTrackWidth,
                           std::optional<int32_t> lMaxTrackHeight) {
  const int16_t minWidth = CInt(lMinTrackWidth.value_or(0));
  const int16_t minHeight = CInt(lMinTrackHeight.value_or(0));
  const int16_t maxWidth = CInt(lMaxTrackWidth.value_or(0));
  const int16_t maxHeight = CInt(lMaxTrackHeight.value_or(0));
  m_MinTrackWidth = minWidth;
  m_MinTrackHeight = minHeight;
  m_MaxTrackWidth = maxWidth;
  m_MaxTrackHeight = maxHeight;
  Attach(hWnd);
}

void cFormMinMax::Attach(int32_t hWnd) {
  Detach();
  m_hWnd = hWnd;
  MSubclass::AttachMessage(*this, hWnd, wm::GETMINMAXINFO);
}

void cFormMinMax::Detach() {
  if (m_hWnd) MSubclass::DetachMessage(*this, m_hWnd, wm::GETMINMAXINFO);
}

int32_t cFormMinMax::WindowProc(int32_t, int32_t iMsg, int32_t, int32_t lParam) {
  if (iMsg != wm::GETMINMAXINFO) return 0;
  MINMAXINFO info;
  if (!copyFromMessage(&info, lParam, sizeof info)) return 0;  // no record to change
  const double twips = Screen::instance().TwipsPerPixelX();
  auto apply = [twips](int16_t field, int32_t& member) {
    if (field > 0) member = CLng(field / twips);
  };
  apply(m_MaxLeft, info.ptMaxPosition.x);
  apply(m_MaxTop, info.ptMaxPosition.y);
  apply(m_MaxWidth, info.ptMaxSize.x);
  apply(m_MaxHeight, info.ptMaxSize.y);
  apply(m_MaxTrackWidth, info.ptMaxTrackSize.x);
  apply(m_MaxTrackHeight, info.ptMaxTrackSize.y);
  apply(m_MinTrackWidth, info.ptMinTrackSize.x);
  apply(m_MinTrackHeight, info.ptMinTrackSize.y);
  copyToMessage(lParam, &info, sizeof info);
  return 0;
}

const Dispatch* cFormMinMax::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    using C = cFormMinMax;
    auto arg = [](Dispatch::Args& a, size_t i) -> std::optional<int32_t> {
      if (i >= a.size() || a[i].isEmpty()) return std::nullopt;
      return a[i].toLong();
    };
    DispatchBuilder<C>(t)
        .method("AttachEx",
                [arg](C& o, Dispatch::Args& a) {
                  if (a.empty()) throw RuntimeError(449, "Argument not optional");
                  o.AttachEx(a[0].toLong(), arg(a, 1), arg(a, 2), arg(a, 3), arg(a, 4));
                })
        .prop("MaxTrackHeight", &C::MaxTrackHeight, &C::setMaxTrackHeight)
        .prop("MaxTrackWidth", &C::MaxTrackWidth, &C::setMaxTrackWidth)
        .prop("MinTrackHeight", &C::MinTrackHeight, &C::setMinTrackHeight)
        .prop("MinTrackWidth", &C::MinTrackWidth, &C::setMinTrackWidth)
        .prop("MaxTop", &C::MaxTop, &C::setMaxTop)
        .prop("MaxLeft", &C::MaxLeft, &C::setMaxLeft)
        .prop("MaxHeight", &C::MaxHeight, &C::setMaxHeight)
        .prop("MaxWidth", &C::MaxWidth, &C::setMaxWidth)
        .method("Attach",
                [](C& o, Dispatch::Args& a) {
                  if (a.empty()) throw RuntimeError(449, "Argument not optional");
                  o.Attach(a[0].toLong());
                })
        .method("Detach", [](C& o, Dispatch::Args&) { o.Detach(); })
        .get("MsgResponse", [](const C& o) { return static_cast<int32_t>(o.MsgResponse()); })
        .let("MsgResponse", [](C&, const Variant&) {})
        .method("WindowProc", [](C& o, Dispatch::Args& a) {
          if (a.size() < 4) throw RuntimeError(449, "Argument not optional");
          return o.WindowProc(a[0].toLong(), a[1].toLong(), a[2].toLong(), a[3].toLong());
        });
    return t;
  }();
  return &d;
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/frame/isubclass.h>

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

// Limits of the size a window can be dragged to, and its maximised size and position. It answers
// WM_GETMINMAXINFO of one window at a time. The eight limits are in twips; zero or less leaves the
// system's value. All of them, the heights too, are turned into pixels with TwipsPerPixelX.
class CORVANE_API cFormMinMax : public ISubclass {
 public:
  ~cFormMinMax() override;
  std::string typeName() const override { return "cFormMinMax"; }

  // Stores the four tracking limits (a missing one is 0) and attaches. A value beyond 16 bits is
  // error 6, and nothing is attached then.
  void AttachEx(int32_t hWnd, std::optional<int32_t> lMinTrackWidth = {},
                std::optional<int32_t> lMinTrackHeight = {}, std::optional<int32_t> lMaxTrackWidth = {},
                std::optional<int32_t> lMaxTrackHeight = {});
  int16_t MaxTrackHeight() const { return m_MaxTrackHeight; }
  void setMaxTrackHeight(int16_t value) { m_MaxTrackHeight = value; }
  int16_t MaxTrackWidth() const { return m_MaxTrackWidth; }
  void setMaxTrackWidth(int16_t value) { m_MaxTrackWidth = value; }
  int16_t MinTrackHeight() const { return m_MinTrackHeight; }
  void setMinTrackHeight(int16_t value) { m_MinTrackHeight = value; }
  int16_t MinTrackWidth() const { return m_MinTrackWidth; }
  void setMinTrackWidth(int16_t value) { m_MinTrackWidth = value; }
  int16_t MaxTop() const { return m_MaxTop; }
  void setMaxTop(int16_t value) { m_MaxTop = value; }
  int16_t MaxLeft() const { return m_MaxLeft; }
  void setMaxLeft(int16_t value) { m_MaxLeft = value; }
  int16_t MaxHeight() const { return m_MaxHeight; }
  void setMaxHeight(int16_t value) { m_MaxHeight = value; }
  int16_t MaxWidth() const { return m_MaxWidth; }
  void setMaxWidth(int16_t value) { m_MaxWidth = value; }
  // Detaches from the former window, then registers for WM_GETMINMAXINFO of this one; the
  // errors of the registration reach the caller.
  void Attach(int32_t hWnd);
  void Detach();

  // Always emrConsume; a new value is ignored.
  EMsgResponse MsgResponse() const override { return emrConsume; }
  void setMsgResponse(EMsgResponse) override {}
  int32_t WindowProc(int32_t hWnd, int32_t iMsg, int32_t wParam, int32_t lParam) override;

  int32_t hWnd() const { return m_hWnd; }

 protected:
  const Dispatch* dispatch() const override;

 private:
  int16_t m_MaxWidth = 0, m_MaxHeight = 0, m_MaxLeft = 0, m_MaxTop = 0;
  int16_t m_MinTrackWidth = 0, m_MinTrackHeight = 0, m_MaxTrackWidth = 0, m_MaxTrackHeight = 0;
  int32_t m_hWnd = 0;
};

}  // namespace corvane

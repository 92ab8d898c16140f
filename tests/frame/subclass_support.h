// SPDX-License-Identifier: MIT
#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <corvane/host/hosted_control.h>
#include <corvane/host/picture_box.h>
#include <corvane/platform/api.h>
#include <corvane/platform/platform.h>

// Helpers of the window hooking tests: a top-level window whose procedure records what reaches
// it, and a platform whose window side can be told to fail single calls.
namespace corvane::test {

struct RecordedMessage {
  HWND hWnd = 0;
  int32_t msg = 0;
  WPARAM wParam = 0;
  LPARAM lParam = 0;
  bool operator==(const RecordedMessage&) const = default;
};

// A visible top-level window with a recording procedure that returns `result`. Create it in the
// test body, so that it goes before the desktop.
class RecordingWindow {
 public:
  explicit RecordingWindow(int32_t x = 10, int32_t y = 10, int32_t width = 100, int32_t height = 80) {
    proc = user().RegisterWindowProc([this](HWND h, int32_t m, WPARAM w, LPARAM l) {
      RecordedMessage r{h, m, w, l};
      messages.push_back(r);
      if (onMessage) onMessage(r);
      return result;
    });
    hWnd = user().CreateWindowExA(0, "Recorder", "", WS_VISIBLE, x, y, width, height, 0, proc);
  }
  ~RecordingWindow() {
    if (user().IsWindow(hWnd)) user().DestroyWindow(hWnd);
    user().UnregisterWindowProc(proc);
  }
  RecordingWindow(const RecordingWindow&) = delete;
  RecordingWindow& operator=(const RecordingWindow&) = delete;

  // The messages of one number that reached the procedure.
  std::vector<RecordedMessage> of(int32_t msg) const {
    std::vector<RecordedMessage> out;
    for (const RecordedMessage& r : messages)
      if (r.msg == msg) out.push_back(r);
    return out;
  }
  WNDPROC currentProc() const { return user().GetWindowLongA(hWnd, GWL_WNDPROC); }

  HWND hWnd = 0;
  WNDPROC proc = 0;
  LRESULT result = 77;
  std::vector<RecordedMessage> messages;
  std::function<void(const RecordedMessage&)> onMessage;
};

// A picture box placed in pixels at 20,10 to 120,60 of a plain parent window at the screen's
// origin, with a pixel scale: a click at screen 50,30 is its client point 30,20.
class PictureScene {
 public:
  PictureScene() {
    pic->site(ControlSite{}, parent.hWnd, 20, 10, 100, 50);
    pic->surface().setScaleMode(Surface::Pixels);
    user().ShowWindow(pic->surface().hWnd(), SW_SHOWNOACTIVATE);
  }
  ~PictureScene() { pic->unsite(); }
  HWND picWnd() const { return pic->surface().hWnd(); }

  RecordingWindow parent{0, 0, 300, 200};
  std::shared_ptr<PictureBox> pic = std::make_shared<PictureBox>();
};

// The window side of another platform, passed through unless a test asks a call to fail.
class FaultyUser : public UserApi {
 public:
  explicit FaultyUser(UserApi& inner) : m_inner(inner) {}

  // SetPropA fails (false, nothing stored) where this says so.
  std::function<bool(HWND, const std::string&, int32_t)> failSetProp;
  // SetWindowLongA fails (0, nothing changed) where this says so.
  std::function<bool(HWND, int32_t, int32_t)> failSetWindowLong;

  bool SetPropA(HWND hWnd, const std::string& name, int32_t value) override {
    if (failSetProp && failSetProp(hWnd, name, value)) return false;
    return m_inner.SetPropA(hWnd, name, value);
  }
  int32_t SetWindowLongA(HWND hWnd, int32_t index, int32_t value) override {
    if (failSetWindowLong && failSetWindowLong(hWnd, index, value)) return 0;
    return m_inner.SetWindowLongA(hWnd, index, value);
  }

  HWND CreateWindowExA(int32_t exStyle, const std::string& className, const std::string& title, int32_t style,
                       int32_t x, int32_t y, int32_t width, int32_t height, HWND parent,
                       WNDPROC proc) override {
    return m_inner.CreateWindowExA(exStyle, className, title, style, x, y, width, height, parent, proc);
  }
  bool DestroyWindow(HWND hWnd) override { return m_inner.DestroyWindow(hWnd); }
  bool IsWindow(HWND hWnd) override { return m_inner.IsWindow(hWnd); }
  bool IsWindowVisible(HWND hWnd) override { return m_inner.IsWindowVisible(hWnd); }
  bool IsWindowEnabled(HWND hWnd) override { return m_inner.IsWindowEnabled(hWnd); }
  bool EnableWindow(HWND hWnd, bool enable) override { return m_inner.EnableWindow(hWnd, enable); }
  bool ShowWindow(HWND hWnd, int32_t command) override { return m_inner.ShowWindow(hWnd, command); }
  bool MoveWindow(HWND hWnd, int32_t x, int32_t y, int32_t width, int32_t height, bool repaint) override {
    return m_inner.MoveWindow(hWnd, x, y, width, height, repaint);
  }
  bool SetWindowPos(HWND hWnd, HWND after, int32_t x, int32_t y, int32_t cx, int32_t cy,
                    int32_t flags) override {
    return m_inner.SetWindowPos(hWnd, after, x, y, cx, cy, flags);
  }
  bool GetWindowRect(HWND hWnd, RECT& rect) override { return m_inner.GetWindowRect(hWnd, rect); }
  bool GetClientRect(HWND hWnd, RECT& rect) override { return m_inner.GetClientRect(hWnd, rect); }
  HWND GetParent(HWND hWnd) override { return m_inner.GetParent(hWnd); }
  HWND SetParent(HWND hWnd, HWND parent) override { return m_inner.SetParent(hWnd, parent); }
  std::vector<HWND> childWindows(HWND hWnd) override { return m_inner.childWindows(hWnd); }
  int32_t GetWindowLongA(HWND hWnd, int32_t index) override { return m_inner.GetWindowLongA(hWnd, index); }
  int32_t GetClassLongA(HWND hWnd, int32_t index) override { return m_inner.GetClassLongA(hWnd, index); }
  int32_t SetClassLongA(HWND hWnd, int32_t index, int32_t value) override {
    return m_inner.SetClassLongA(hWnd, index, value);
  }
  bool SetLayeredWindowAttributes(HWND hWnd, COLORREF key, uint8_t alpha, int32_t flags) override {
    return m_inner.SetLayeredWindowAttributes(hWnd, key, alpha, flags);
  }
  int32_t SetWindowRgn(HWND hWnd, HRGN region, bool redraw) override {
    return m_inner.SetWindowRgn(hWnd, region, redraw);
  }
  bool SetForegroundWindow(HWND hWnd) override { return m_inner.SetForegroundWindow(hWnd); }
  HWND GetForegroundWindow() override { return m_inner.GetForegroundWindow(); }
  HWND SetFocus(HWND hWnd) override { return m_inner.SetFocus(hWnd); }
  HWND GetFocus() override { return m_inner.GetFocus(); }
  bool SetWindowTextA(HWND hWnd, const std::string& text) override {
    return m_inner.SetWindowTextA(hWnd, text);
  }
  std::string GetWindowTextA(HWND hWnd) override { return m_inner.GetWindowTextA(hWnd); }
  bool InvalidateRect(HWND hWnd, const RECT* rect, bool erase) override {
    return m_inner.InvalidateRect(hWnd, rect, erase);
  }
  bool UpdateWindow(HWND hWnd) override { return m_inner.UpdateWindow(hWnd); }
  WNDPROC RegisterWindowProc(WindowProcedure proc) override { return m_inner.RegisterWindowProc(proc); }
  void UnregisterWindowProc(WNDPROC proc) override { m_inner.UnregisterWindowProc(proc); }
  LRESULT CallWindowProcA(WNDPROC proc, HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override {
    return m_inner.CallWindowProcA(proc, hWnd, msg, wParam, lParam);
  }
  LRESULT DefWindowProcA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override {
    return m_inner.DefWindowProcA(hWnd, msg, wParam, lParam);
  }
  LRESULT SendMessageA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override {
    return m_inner.SendMessageA(hWnd, msg, wParam, lParam);
  }
  bool PostMessageA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) override {
    return m_inner.PostMessageA(hWnd, msg, wParam, lParam);
  }
  int32_t GetPropA(HWND hWnd, const std::string& name) override { return m_inner.GetPropA(hWnd, name); }
  int32_t RemovePropA(HWND hWnd, const std::string& name) override { return m_inner.RemovePropA(hWnd, name); }
  int32_t GetWindowThreadProcessId(HWND hWnd, int32_t* processId) override {
    return m_inner.GetWindowThreadProcessId(hWnd, processId);
  }
  int32_t GetCurrentProcessId() override { return m_inner.GetCurrentProcessId(); }
  bool GetCursorPos(POINTAPI& point) override { return m_inner.GetCursorPos(point); }
  bool SetCursorPos(int32_t x, int32_t y) override { return m_inner.SetCursorPos(x, y); }
  HWND WindowFromPoint(int32_t x, int32_t y) override { return m_inner.WindowFromPoint(x, y); }
  bool ScreenToClient(HWND hWnd, POINTAPI& point) override { return m_inner.ScreenToClient(hWnd, point); }
  bool ClientToScreen(HWND hWnd, POINTAPI& point) override { return m_inner.ClientToScreen(hWnd, point); }
  HWND SetCapture(HWND hWnd) override { return m_inner.SetCapture(hWnd); }
  bool ReleaseCapture() override { return m_inner.ReleaseCapture(); }
  HWND GetCapture() override { return m_inner.GetCapture(); }
  bool ClipCursor(const RECT* rect) override { return m_inner.ClipCursor(rect); }
  int16_t GetAsyncKeyState(int32_t key) override { return m_inner.GetAsyncKeyState(key); }
  bool TrackMouseEvent(TRACKMOUSEEVENT& request) override { return m_inner.TrackMouseEvent(request); }
  int32_t GetSystemMetrics(int32_t index) override { return m_inner.GetSystemMetrics(index); }
  bool setWindowCursor(HWND hWnd, int32_t pointer, HGDIOBJ image) override {
    return m_inner.setWindowCursor(hWnd, pointer, image);
  }
  bool setClipboardText(const std::string& text) override { return m_inner.setClipboardText(text); }
  std::string clipboardText() override { return m_inner.clipboardText(); }
  int32_t SetTimer(HWND hWnd, int32_t id, int32_t milliseconds) override {
    return m_inner.SetTimer(hWnd, id, milliseconds);
  }
  bool KillTimer(HWND hWnd, int32_t id) override { return m_inner.KillTimer(hWnd, id); }
  uint32_t GetTickCount() override { return m_inner.GetTickCount(); }
  int32_t DoEvents() override { return m_inner.DoEvents(); }
  bool WaitForWork(int32_t maxMilliseconds) override { return m_inner.WaitForWork(maxMilliseconds); }

 private:
  UserApi& m_inner;
};

class FaultyPlatform : public Platform {
 public:
  explicit FaultyPlatform(Platform& inner) : m_inner(inner), m_user(inner.user()) {}
  GdiApi& gdi() override { return m_inner.gdi(); }
  UserApi& user() override { return m_user; }
  SystemApi& system() override { return m_inner.system(); }
  RegistryApi& registry() override { return m_inner.registry(); }
  FaultyUser& faults() { return m_user; }

 private:
  Platform& m_inner;
  FaultyUser m_user;
};

}  // namespace corvane::test

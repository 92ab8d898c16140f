// SPDX-License-Identifier: MIT
#include <corvane/frame/msubclass.h>

#include <corvane/frame/subclass.h>
#include <corvane/host/screen.h>
#include <corvane/platform/api.h>
#include <corvane/runtime/checked.h>
#include <corvane/runtime/runtime_error.h>

namespace corvane::MSubclass {

namespace {

bool g_lastSetProp = false;    // the result of the last SetPropA
int32_t g_currentMessage = 0;  // set before each client call

void setProp(HWND hWnd, const std::string& key, int32_t value) {
  g_lastSetProp = subclassing::setWindowProp(hWnd, key, value);
}

bool isForeign(HWND hWnd) {
  int32_t processId = 0;
  user().GetWindowThreadProcessId(hWnd, &processId);
  return processId != user().GetCurrentProcessId();
}

void restoreProc(HWND hWnd, WNDPROC old) { user().SetWindowLongA(hWnd, GWL_WNDPROC, old); }

}  // namespace

std::string AttachCountKey(HWND hWnd) { return std::to_string(hWnd) + "C"; }
std::string OldWindowProcKey(HWND hWnd) { return std::to_string(hWnd); }
std::string MsgCountKey(HWND hWnd, int32_t iMsg) {
  return std::to_string(hWnd) + "#" + std::to_string(iMsg) + "C";
}
std::string MsgClientKey(HWND hWnd, int32_t iMsg, int32_t index) {
  return std::to_string(hWnd) + "#" + std::to_string(iMsg) + "#" + std::to_string(index);
}

int32_t AttachCount(HWND hWnd) { return user().GetPropA(hWnd, AttachCountKey(hWnd)); }
void setAttachCount(HWND hWnd, int32_t count) { setProp(hWnd, AttachCountKey(hWnd), count); }
WNDPROC OldWindowProc(HWND hWnd) { return user().GetPropA(hWnd, OldWindowProcKey(hWnd)); }
void setOldWindowProc(HWND hWnd, WNDPROC proc) { setProp(hWnd, OldWindowProcKey(hWnd), proc); }
int32_t MsgCount(HWND hWnd, int32_t iMsg) { return user().GetPropA(hWnd, MsgCountKey(hWnd, iMsg)); }
void setMsgCount(HWND hWnd, int32_t iMsg, int32_t count) { setProp(hWnd, MsgCountKey(hWnd, iMsg), count); }
int32_t MsgClient(HWND hWnd, int32_t iMsg, int32_t index) {
  return user().GetPropA(hWnd, MsgClientKey(hWnd, iMsg, index));
}
void setMsgClient(HWND hWnd, int32_t iMsg, int32_t index, int32_t clientId) {
  setProp(hWnd, MsgClientKey(hWnd, iMsg, index), clientId);
}

int32_t CurrentMessage() { return g_currentMessage; }
bool LastSetPropResult() { return g_lastSetProp; }

std::string ErrorDescription(int32_t code) {
  switch (code) {
    case errCantSubclass:
      return "Can't subclass window";
    case errAlreadyHandled:
      return "Message already handled by another class";
    case errInvalidWindow:
      return "Invalid window";
    case errForeignWindow:
      return "Can't modify external window";
    default:
      return {};
  }
}

void ErrRaise(int32_t code) {
  if (code > 1000)
    throw RuntimeError(code | errorBase, ErrorDescription(code), App::instance().Title() + ".WindowProc");
  throw RuntimeError(code);
}

int32_t ErrorCode(int32_t number) {
  if ((static_cast<uint32_t>(number) & 0xFFFF0000u) == static_cast<uint32_t>(errorBase))
    return number & 0xFFFF;
  return number;
}

void AttachMessage(ISubclass& client, HWND hWnd, int32_t iMsg) {
  if (!user().IsWindow(hWnd)) ErrRaise(errInvalidWindow);
  if (isForeign(hWnd)) ErrRaise(errForeignWindow);

  const int32_t id = client.objectId();
  int32_t count = MsgCount(hWnd, iMsg);
  for (int32_t i = 1; i <= count; ++i)
    if (MsgClient(hWnd, iMsg, i) == id) ErrRaise(errAlreadyHandled);

  count = add32(count, 1);
  setMsgCount(hWnd, iMsg, count);
  if (!g_lastSetProp) ErrRaise(err::InvalidProcedureCall);

  setMsgClient(hWnd, iMsg, count, id);
  if (!g_lastSetProp) {
    setMsgCount(hWnd, iMsg, count - 1);
    ErrRaise(err::InvalidProcedureCall);
  }

  if (AttachCount(hWnd) == 0) {
    WNDPROC old = user().SetWindowLongA(hWnd, GWL_WNDPROC, WindowProcAddress());
    if (old == 0) {
      setMsgClient(hWnd, iMsg, count, 0);
      setMsgCount(hWnd, iMsg, count - 1);
      ErrRaise(errCantSubclass);
    }
    setOldWindowProc(hWnd, old);
    if (!g_lastSetProp) {
      restoreProc(hWnd, old);
      setMsgClient(hWnd, iMsg, count, 0);
      setMsgCount(hWnd, iMsg, count - 1);
      ErrRaise(err::InvalidProcedureCall);
    }
  }

  setAttachCount(hWnd, add32(AttachCount(hWnd), 1));
  if (!g_lastSetProp) {
    setMsgClient(hWnd, iMsg, count, 0);
    setMsgCount(hWnd, iMsg, count - 1);
    // The window was hooked for this attachment alone: undo the hook as well.
    if (AttachCount(hWnd) == 0) {
      WNDPROC old = OldWindowProc(hWnd);
      if (old != 0) {
        restoreProc(hWnd, old);
        setOldWindowProc(hWnd, 0);
      }
    }
    ErrRaise(err::InvalidProcedureCall);
  }
}

void DetachMessage(ISubclass& client, HWND hWnd, int32_t iMsg) {
  if (!user().IsWindow(hWnd) || isForeign(hWnd)) return;
  int32_t count = MsgCount(hWnd, iMsg);
  if (count < 1) return;
  const int32_t id = client.objectId();
  int32_t index = 0;
  for (int32_t i = 1; i <= count; ++i)
    if (MsgClient(hWnd, iMsg, i) == id) {
      index = i;
      break;
    }
  if (index == 0) return;

  for (int32_t i = index; i < count; ++i) setMsgClient(hWnd, iMsg, i, MsgClient(hWnd, iMsg, i + 1));
  setMsgClient(hWnd, iMsg, count, 0);
  setMsgCount(hWnd, iMsg, count - 1);

  int32_t attached = AttachCount(hWnd);
  if (attached == 1) {
    WNDPROC old = OldWindowProc(hWnd);
    if (old != 0) restoreProc(hWnd, old);
    setOldWindowProc(hWnd, 0);
  }
  setAttachCount(hWnd, sub32(attached, 1));
}

void UnhookAll(HWND hWnd) {
  if (AttachCount(hWnd) > 0) {
    WNDPROC old = OldWindowProc(hWnd);
    if (old != 0) restoreProc(hWnd, old);
    setOldWindowProc(hWnd, 0);
    setAttachCount(hWnd, 0);
  }
}

LRESULT WindowProc(HWND hWnd, int32_t iMsg, WPARAM wParam, LPARAM lParam) {
  const WNDPROC old = OldWindowProc(hWnd);
  if (old == 0) return 0;
  bool called = false;
  LRESULT result = 0;
  const int32_t count = MsgCount(hWnd, iMsg);

  if (count < 1) {
    // Nobody asked for the window's end: unhook now, before the previous procedure hears of it.
    if (iMsg == wm::DESTROY) UnhookAll(hWnd);
    return user().CallWindowProcA(old, hWnd, iMsg, wParam, lParam);
  }

  int32_t lastClient = 0;  // the id of the last client called
  for (int32_t i = count; i >= 1; --i) {
    const int32_t id = MsgClient(hWnd, iMsg, i);
    ISubclass* client = ISubclass::fromObjectId(id);  // held without counting it
    if (!client) continue;
    lastClient = id;
    g_currentMessage = iMsg;
    // Only the first-attached client's response mode counts.
    if (i == 1 && client->MsgResponse() == emrPreprocess && !called) {
      user().CallWindowProcA(old, hWnd, iMsg, wParam, lParam);
      called = true;
    }
    result = client->WindowProc(hWnd, iMsg, wParam, lParam);
  }

  // The client may have gone during its call; then its response mode cannot be read.
  if (ISubclass* last = ISubclass::fromObjectId(lastClient); last && old != 0) {
    if (last->MsgResponse() == emrPostProcess && !called) {
      result = user().CallWindowProcA(old, hWnd, iMsg, wParam, lParam);
      called = true;
    }
  }
  return result;
}

WNDPROC WindowProcAddress() {
  static subclassing::ModuleWindowProc proc(&WindowProc);
  return proc.address();
}

}  // namespace corvane::MSubclass

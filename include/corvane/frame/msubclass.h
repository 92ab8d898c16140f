// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>

#include <corvane/export.h>
#include <corvane/frame/isubclass.h>
#include <corvane/platform/types.h>

namespace corvane {

// Many clients on one window, each registered for single messages with a response mode. All
// state lives in window properties, whose keys are numbers in decimal text:
//   hWnd "C"                  number of attachments to the window
//   hWnd                      previous window procedure
//   hWnd "#" msg "C"          number of clients of the message
//   hWnd "#" msg "#" index    client number index (from 1), the client's id
// A property set to 0 is removed at once.
namespace MSubclass {

// The library's own error codes; raised as number Or &H80040000 (see ErrorCode).
constexpr int32_t errCantSubclass = 13081;
constexpr int32_t errAlreadyHandled = 13082;
constexpr int32_t errInvalidWindow = 13083;
constexpr int32_t errForeignWindow = 13084;
constexpr int32_t errorBase = static_cast<int32_t>(0x80040000);

// Registers client for iMsg of hWnd, hooking the window at its first attachment. Raises 13083
// (no window), 13084 (window of another process), 13082 (client already registered for the
// message), 13081 (window procedure not replaced) or 5 (a window property could not be set),
// each after taking back what it had done.
CORVANE_API void AttachMessage(ISubclass& client, HWND hWnd, int32_t iMsg);
// Takes client off iMsg of hWnd, unhooking the window at its last attachment. Raises nothing.
CORVANE_API void DetachMessage(ISubclass& client, HWND hWnd, int32_t iMsg);

// Raises a code: above 1000 as code Or &H80040000 with its description and the source
// "<App.Title>.WindowProc"; otherwise the plain number.
[[noreturn]] CORVANE_API void ErrRaise(int32_t code);
// The description of one of the library's codes; empty for other numbers.
CORVANE_API std::string ErrorDescription(int32_t code);
// The plain code of a raised number: 13081 for 13081 Or &H80040000; other numbers unchanged.
CORVANE_API int32_t ErrorCode(int32_t number);

// The window procedure of hooked windows: calls the clients of the message from the last
// attached to the first, and the previous procedure as the first-attached client's response
// mode says.
CORVANE_API LRESULT WindowProc(HWND hWnd, int32_t iMsg, WPARAM wParam, LPARAM lParam);
// The address of WindowProc on the current platform.
CORVANE_API WNDPROC WindowProcAddress();
// Restores the previous procedure and clears the window's procedure key and attachment count.
CORVANE_API void UnhookAll(HWND hWnd);

// The message number of the client call under way (or of the last one).
CORVANE_API int32_t CurrentMessage();
// Whether the last write of a window property succeeded.
CORVANE_API bool LastSetPropResult();

// The four kinds of window property.
CORVANE_API std::string AttachCountKey(HWND hWnd);
CORVANE_API std::string OldWindowProcKey(HWND hWnd);
CORVANE_API std::string MsgCountKey(HWND hWnd, int32_t iMsg);
CORVANE_API std::string MsgClientKey(HWND hWnd, int32_t iMsg, int32_t index);

CORVANE_API int32_t AttachCount(HWND hWnd);
CORVANE_API void setAttachCount(HWND hWnd, int32_t count);
CORVANE_API WNDPROC OldWindowProc(HWND hWnd);
CORVANE_API void setOldWindowProc(HWND hWnd, WNDPROC proc);
CORVANE_API int32_t MsgCount(HWND hWnd, int32_t iMsg);
CORVANE_API void setMsgCount(HWND hWnd, int32_t iMsg, int32_t count);
CORVANE_API int32_t MsgClient(HWND hWnd, int32_t iMsg, int32_t index);  // the client's id, 0 for none
CORVANE_API void setMsgClient(HWND hWnd, int32_t iMsg, int32_t index, int32_t clientId);

}  // namespace MSubclass

}  // namespace corvane

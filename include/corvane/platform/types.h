// SPDX-License-Identifier: MIT
#pragma once
#include <climits>
#include <cstdint>
#include <functional>
#include <string>

#include <corvane/export.h>

// The platform's handle and record types. Handles are 32-bit integers; 0 is "none".
namespace corvane {

using HWND = int32_t;
using HDC = int32_t;
using HGDIOBJ = int32_t;
using HBRUSH = int32_t;
using HPEN = int32_t;
using HFONT = int32_t;
using HBITMAP = int32_t;
using HICON = int32_t;
using HRGN = int32_t;
using HPALETTE = int32_t;
using WNDPROC = int32_t;  // the address of a registered window procedure
using LRESULT = int32_t;
using WPARAM = int32_t;
using LPARAM = int32_t;
using COLORREF = int32_t;  // &H00BBGGRR
using OLE_COLOR = int32_t;
using HKEY = int32_t;  // a predefined root or an open key of the settings store

// The longest side, in pixels, that a window and so its image can have. A window asked for more
// (CreateWindowExA, MoveWindow, SetWindowPos) gets this side; form files refuse larger sizes.
// 16,384 pixels is beyond every real screen, and a window image of that side can still be made.
constexpr int32_t kMaxWindowSide = 16384;

struct CORVANE_API RECT {
  int32_t Left = 0, Top = 0, Right = 0, Bottom = 0;
  bool operator==(const RECT&) const = default;
};

struct CORVANE_API POINTAPI {
  int32_t x = 0, y = 0;
  bool operator==(const POINTAPI&) const = default;
};

struct CORVANE_API SIZE {
  int32_t cx = 0, cy = 0;
  bool operator==(const SIZE&) const = default;
};

// A window procedure: (hWnd, uMsg, wParam, lParam) -> result.
using WindowProcedure = std::function<LRESULT(HWND, int32_t, WPARAM, LPARAM)>;

// What a font handle is made from.
struct CORVANE_API FontSpec {
  std::string name = "MS Sans Serif";
  double size = 8.25;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;
  bool operator==(const FontSpec&) const = default;
};

struct CORVANE_API TEXTMETRIC {
  int32_t tmHeight = 0, tmAscent = 0, tmDescent = 0, tmInternalLeading = 0, tmAveCharWidth = 0, tmMaxCharWidth = 0;
};

struct CORVANE_API TRACKMOUSEEVENT {
  int32_t cbSize = 16;
  int32_t dwFlags = 0;
  HWND hwndTrack = 0;
  int32_t dwHoverTime = 0;
};

struct CORVANE_API OSVERSIONINFO {
  int32_t dwOSVersionInfoSize = 148;
  int32_t dwMajorVersion = 0, dwMinorVersion = 0, dwBuildNumber = 0, dwPlatformId = 0;
  std::string szCSDVersion;
};

// A 128-bit identifier in the platform's layout.
struct GUID {
  uint32_t Data1 = 0;
  uint16_t Data2 = 0, Data3 = 0;
  uint8_t Data4[8] = {};
};

// One running process as a snapshot lists it: its identifier and its program's file name.
struct PROCESSENTRY32 {
  int32_t th32ProcessID = 0;
  std::string szExeFile;
};

// Special folders.
constexpr int32_t CSIDL_PERSONAL = 5, CSIDL_APPDATA = 26;

// Message numbers.
namespace wm {
constexpr int32_t CREATE = 1, DESTROY = 2, MOVE = 3, SIZE = 5, SETFOCUS = 7, KILLFOCUS = 8, ENABLE = 10,
                  PAINT = 15, CLOSE = 16, ERASEBKGND = 20, SHOWWINDOW = 24, SETCURSOR = 32,
                  GETMINMAXINFO = 36, WINDOWPOSCHANGED = 71, KEYDOWN = 256, KEYUP = 257, CHAR = 258,
                  TIMER = 275, MOUSEMOVE = 512, LBUTTONDOWN = 513, LBUTTONUP = 514, LBUTTONDBLCLK = 515,
                  RBUTTONDOWN = 516, RBUTTONUP = 517, RBUTTONDBLCLK = 518, MBUTTONDOWN = 519, MBUTTONUP = 520,
                  MBUTTONDBLCLK = 521, MOUSEWHEEL = 522, CAPTURECHANGED = 533, MOUSELEAVE = 675, USER = 1024;
}

// Constants of the drawing and window calls.
constexpr int32_t PS_SOLID = 0;
constexpr int32_t BDR_RAISEDOUTER = 1, BDR_SUNKENOUTER = 2, BDR_RAISEDINNER = 4, BDR_SUNKENINNER = 8,
                  EDGE_RAISED = 5, EDGE_SUNKEN = 10, BF_LEFT = 1, BF_TOP = 2, BF_RIGHT = 4, BF_BOTTOM = 8,
                  BF_RECT = 15;
constexpr int32_t DT_LEFT = 0, DT_CENTER = 1, DT_RIGHT = 2, DT_VCENTER = 4, DT_BOTTOM = 8, DT_WORDBREAK = 16,
                  DT_SINGLELINE = 32, DT_EXPANDTABS = 64, DT_NOCLIP = 256, DT_CALCRECT = 1024,
                  DT_NOPREFIX = 2048;
constexpr int32_t DST_ICON = 3, DST_BITMAP = 4, DSS_DISABLED = 32, DSS_MONO = 128;
constexpr int32_t SRCCOPY = 0xCC0020;
constexpr int32_t RGN_AND = 1, RGN_OR = 2, RGN_XOR = 3, RGN_DIFF = 4, RGN_COPY = 5;
constexpr int32_t GWL_WNDPROC = -4, GWL_STYLE = -16, GWL_EXSTYLE = -20, GCL_STYLE = -26;
constexpr int32_t WS_EX_TOPMOST = 0x8, WS_EX_TOOLWINDOW = 0x80, WS_EX_LAYERED = 0x80000;
constexpr int32_t WS_CHILD = 0x40000000, WS_VISIBLE = 0x10000000, WS_DISABLED = 0x08000000,
                  WS_POPUP = static_cast<int32_t>(0x80000000);
constexpr int32_t CS_DBLCLKS = 0x8;
// The non-client border of a child window: a single line, and the sunken 3-D client edge.
constexpr int32_t WS_BORDER = 0x800000, WS_EX_CLIENTEDGE = 0x200;
constexpr int32_t LWA_COLORKEY = 1, LWA_ALPHA = 2;
constexpr int32_t SW_HIDE = 0, SW_SHOWNORMAL = 1, SW_SHOW = 5, SW_SHOWNOACTIVATE = 4, SW_SHOWNA = 8;
constexpr HWND HWND_TOP = 0, HWND_BOTTOM = 1, HWND_TOPMOST = -1, HWND_NOTOPMOST = -2;
constexpr int32_t SWP_NOSIZE = 1, SWP_NOMOVE = 2, SWP_NOZORDER = 4, SWP_NOACTIVATE = 0x10,
                  SWP_SHOWWINDOW = 0x40, SWP_HIDEWINDOW = 0x80;
constexpr int32_t TME_LEAVE = 2;
constexpr int32_t MK_LBUTTON = 1, MK_RBUTTON = 2, MK_SHIFT = 4, MK_CONTROL = 8, MK_MBUTTON = 16;
constexpr int32_t VK_LBUTTON = 1, VK_RBUTTON = 2, VK_MBUTTON = 4, VK_SHIFT = 16, VK_CONTROL = 17,
                  VK_MENU = 18;
constexpr int32_t SM_CXSCREEN = 0, SM_CYSCREEN = 1, SM_CXFULLSCREEN = 16, SM_CYFULLSCREEN = 17, SM_CXDOUBLECLK = 36, SM_CYDOUBLECLK = 37;
constexpr int32_t SM_CXVIRTUALSCREEN = 78, SM_CYVIRTUALSCREEN = 79, SM_CMONITORS = 80;
constexpr int32_t LOGPIXELSX = 88, LOGPIXELSY = 90, BITSPIXEL = 12, HORZRES = 8, VERTRES = 10;
constexpr int32_t IMAGE_BITMAP = 0, IMAGE_ICON = 1, IMAGE_CURSOR = 2;

// The settings store: predefined roots, value types, access masks and result codes.
constexpr HKEY HKEY_CLASSES_ROOT = INT32_MIN, HKEY_CURRENT_USER = INT32_MIN + 1,
               HKEY_LOCAL_MACHINE = INT32_MIN + 2, HKEY_USERS = INT32_MIN + 3,
               HKEY_PERFORMANCE_DATA = INT32_MIN + 4, HKEY_CURRENT_CONFIG = INT32_MIN + 5,
               HKEY_DYN_DATA = INT32_MIN + 6;
constexpr int32_t REG_NONE = 0, REG_SZ = 1, REG_EXPAND_SZ = 2, REG_BINARY = 3, REG_DWORD = 4,
                  REG_MULTI_SZ = 7;
constexpr int32_t KEY_SET_VALUE = 2, KEY_READ = 131097, KEY_ALL_ACCESS = 0xF003F;
constexpr int32_t REG_CREATED_NEW_KEY = 1, REG_OPENED_EXISTING_KEY = 2;
constexpr int32_t ERROR_SUCCESS = 0, ERROR_FILE_NOT_FOUND = 2, ERROR_ACCESS_DENIED = 5,
                  ERROR_INVALID_HANDLE = 6, ERROR_INVALID_PARAMETER = 87, ERROR_BAD_PATHNAME = 161,
                  ERROR_MORE_DATA = 234, ERROR_NO_MORE_ITEMS = 259, ERROR_REGISTRY_CORRUPT = 1015,
                  ERROR_REGISTRY_IO_FAILED = 1016, ERROR_KEY_DELETED = 1018;

// System colour indexes.
namespace syscolor {
constexpr int32_t SCROLLBAR = 0, BACKGROUND = 1, ACTIVECAPTION = 2, INACTIVECAPTION = 3, MENU = 4, WINDOW = 5,
                  WINDOWFRAME = 6, MENUTEXT = 7, WINDOWTEXT = 8, CAPTIONTEXT = 9, ACTIVEBORDER = 10,
                  INACTIVEBORDER = 11, APPWORKSPACE = 12, HIGHLIGHT = 13, HIGHLIGHTTEXT = 14, BTNFACE = 15,
                  BTNSHADOW = 16, GRAYTEXT = 17, BTNTEXT = 18, INACTIVECAPTIONTEXT = 19, BTNHIGHLIGHT = 20,
                  DKSHADOW3D = 21, LIGHT3D = 22, INFOTEXT = 23, INFOBK = 24, COUNT = 25;
}

// Makes an &H00BBGGRR colour.
constexpr COLORREF RGB(int r, int g, int b) { return (r & 255) | ((g & 255) << 8) | ((b & 255) << 16); }

}  // namespace corvane

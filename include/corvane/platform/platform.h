// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include <corvane/export.h>
#include <corvane/platform/dialogs.h>
#include <corvane/platform/types.h>

// The platform layer: the drawing, window and system operations the controls use, under their
// platform names and in their argument order. The desktop implements it; a native build could too.
namespace corvane {

// Drawing: device contexts, drawing objects, pixels, text and images.
class CORVANE_API GdiApi {
 public:
  virtual ~GdiApi() = default;

  // Device contexts.
  virtual HDC GetDC(HWND hWnd) = 0;  // 0 gives a context on the screen image
  virtual int32_t ReleaseDC(HWND hWnd, HDC hdc) = 0;
  virtual HDC CreateCompatibleDC(HDC hdc) = 0;
  virtual bool DeleteDC(HDC hdc) = 0;
  virtual int32_t GetDeviceCaps(HDC hdc, int32_t index) = 0;
  // A number that changes whenever the pixels per inch GetDeviceCaps reports may have changed, and
  // that no other drawing side in the process gives: callers may keep what they derived from the
  // resolution while it stays the same. 0 (this default) keeps nothing: ask every time.
  virtual uint64_t resolutionSerial() const { return 0; }
  virtual HPALETTE SelectPalette(HDC hdc, HPALETTE pal, bool forceBackground) = 0;
  virtual int32_t RealizePalette(HDC hdc) = 0;

  // Drawing objects. The creator deletes each one; liveObjectCount tells how many are alive.
  virtual HBRUSH CreateSolidBrush(COLORREF colour) = 0;
  virtual HPEN CreatePen(int32_t style, int32_t width, COLORREF colour) = 0;
  virtual HFONT CreateFontIndirect(const FontSpec& font) = 0;
  virtual HBITMAP CreateCompatibleBitmap(HDC hdc, int32_t width, int32_t height) = 0;
  virtual HRGN CreateRectRgn(int32_t left, int32_t top, int32_t right, int32_t bottom) = 0;
  virtual int32_t CombineRgn(HRGN dest, HRGN src1, HRGN src2, int32_t mode) = 0;
  virtual HGDIOBJ SelectObject(HDC hdc, HGDIOBJ obj) = 0;
  // The font a surface keeps in its own context. It belongs to the context, not to the caller,
  // so it is no drawing object the caller must free and liveObjectCount does not count it.
  virtual void SetDCFont(HDC hdc, const FontSpec& font) = 0;
  virtual bool DeleteObject(HGDIOBJ obj) = 0;
  virtual int32_t liveObjectCount() const = 0;

  // Pixels and shapes. Lines and rectangles are aliased and pixel-exact.
  virtual COLORREF SetTextColor(HDC hdc, COLORREF colour) = 0;
  virtual COLORREF SetBkColor(HDC hdc, COLORREF colour) = 0;
  virtual int32_t SetBkMode(HDC hdc, int32_t mode) = 0;                    // 1 transparent, 2 opaque
  virtual int32_t FillRect(HDC hdc, const RECT& rect, HBRUSH brush) = 0;   // right and bottom edge excluded
  virtual int32_t FrameRect(HDC hdc, const RECT& rect, HBRUSH brush) = 0;  // one pixel inside the rectangle
  virtual bool DrawEdge(HDC hdc, RECT& rect, int32_t edge, int32_t flags) = 0;
  virtual bool RoundRect(HDC hdc, int32_t left, int32_t top, int32_t right, int32_t bottom,
                         int32_t ellipseWidth, int32_t ellipseHeight) = 0;
  virtual bool Rectangle(HDC hdc, int32_t left, int32_t top, int32_t right, int32_t bottom) = 0;
  virtual bool MoveToEx(HDC hdc, int32_t x, int32_t y, POINTAPI* previous) = 0;
  virtual bool LineTo(HDC hdc, int32_t x, int32_t y) = 0;  // end point excluded
  // Lines of one pen each, as a painter sweeping a gradient draws them: line k runs from ends[2k]
  // to ends[2k + 1] in colours[k] (the shorter list decides how many), and is drawn by MoveToEx,
  // CreatePen(PS_SOLID, 1, colour), SelectObject, LineTo, SelectObject of the pen it replaced and
  // DeleteObject. This default makes exactly those calls; an implementation may take a faster way
  // to the same pixels, state, handles and recorded calls.
  virtual void PenLines(HDC hdc, std::span<const POINTAPI> ends, std::span<const COLORREF> colours);
  virtual COLORREF SetPixel(HDC hdc, int32_t x, int32_t y, COLORREF colour) = 0;
  virtual COLORREF GetPixel(HDC hdc, int32_t x, int32_t y) = 0;  // -1 outside
  virtual bool BitBlt(HDC dest, int32_t x, int32_t y, int32_t width, int32_t height, HDC src, int32_t srcX,
                      int32_t srcY, int32_t rop) = 0;
  virtual bool StretchBlt(HDC dest, int32_t x, int32_t y, int32_t width, int32_t height, HDC src,
                          int32_t srcX, int32_t srcY, int32_t srcWidth, int32_t srcHeight, int32_t rop) = 0;

  // Text, in the font selected into the context.
  virtual bool TextOutA(HDC hdc, int32_t x, int32_t y, const std::string& text) = 0;
  // A text is never narrower than its beginning: callers may stop measuring a long text at the
  // first beginning that is too wide.
  virtual bool GetTextExtentPoint32A(HDC hdc, const std::string& text, SIZE& size) = 0;
  virtual bool GetTextMetricsA(HDC hdc, TEXTMETRIC& metrics) = 0;
  virtual int32_t DrawTextA(HDC hdc, const std::string& text, int32_t count, RECT& rect, int32_t flags) = 0;
  virtual bool PathCompactPathA(HDC hdc, std::string& path, int32_t width) = 0;

  // Images: bitmaps and icons.
  virtual bool DrawStateA(HDC hdc, HBRUSH brush, int32_t reserved, int32_t image, int32_t wParam, int32_t x,
                          int32_t y, int32_t width, int32_t height, int32_t flags) = 0;
  virtual bool DrawIconEx(HDC hdc, int32_t x, int32_t y, HICON icon, int32_t width, int32_t height) = 0;
  virtual HGDIOBJ LoadImageFromMemory(std::span<const unsigned char> bytes,
                                      int32_t type) = 0;                         // 0 on failure
  virtual HGDIOBJ LoadImageFromFile(const std::string& path, int32_t type) = 0;  // 0 on failure
  virtual SIZE GetImageSize(HGDIOBJ image) = 0;  // pixels; 0 by 0 for an unknown handle
  virtual bool DestroyIcon(HICON icon) = 0;
  // Draws an image stretched into a box, with the transparent pixels of an icon or a mask colour
  // (-1 for none) left out. Source coordinates are in image pixels.
  virtual bool DrawImage(HDC hdc, HGDIOBJ image, int32_t x, int32_t y, int32_t width, int32_t height,
                         int32_t srcX, int32_t srcY, int32_t srcWidth, int32_t srcHeight,
                         COLORREF maskColour) = 0;

  // Colours.
  virtual COLORREF GetSysColor(int32_t index) = 0;
  virtual void SetSysColor(int32_t index, COLORREF colour) = 0;  // for tests of colour changes
  virtual int32_t OleTranslateColor(OLE_COLOR colour, HPALETTE palette,
                                    COLORREF& result) = 0;  // 0 is success

  // An operation log per context, for tests that check which calls were made.
  virtual void startRecording(HDC hdc) = 0;
  virtual std::vector<std::string> stopRecording(HDC hdc) = 0;
};

// Windows, messages, input and timers.
class CORVANE_API UserApi {
 public:
  virtual ~UserApi() = default;

  virtual HWND CreateWindowExA(int32_t exStyle, const std::string& className, const std::string& title,
                               int32_t style, int32_t x, int32_t y, int32_t width, int32_t height,
                               HWND parent, WNDPROC proc) = 0;
  virtual bool DestroyWindow(HWND hWnd) = 0;
  virtual bool IsWindow(HWND hWnd) = 0;
  virtual bool IsWindowVisible(HWND hWnd) = 0;
  virtual bool IsWindowEnabled(HWND hWnd) = 0;
  virtual bool EnableWindow(HWND hWnd, bool enable) = 0;
  virtual bool ShowWindow(HWND hWnd, int32_t command) = 0;
  virtual bool MoveWindow(HWND hWnd, int32_t x, int32_t y, int32_t width, int32_t height, bool repaint) = 0;
  virtual bool SetWindowPos(HWND hWnd, HWND after, int32_t x, int32_t y, int32_t cx, int32_t cy,
                            int32_t flags) = 0;
  virtual bool GetWindowRect(HWND hWnd, RECT& rect) = 0;  // screen coordinates
  virtual bool GetClientRect(HWND hWnd, RECT& rect) = 0;
  virtual HWND GetParent(HWND hWnd) = 0;
  virtual HWND SetParent(HWND hWnd, HWND parent) = 0;
  virtual std::vector<HWND> childWindows(HWND hWnd) = 0;  // bottom to top
  virtual int32_t GetWindowLongA(HWND hWnd, int32_t index) = 0;
  virtual int32_t SetWindowLongA(HWND hWnd, int32_t index, int32_t value) = 0;
  virtual int32_t GetClassLongA(HWND hWnd, int32_t index) = 0;
  virtual int32_t SetClassLongA(HWND hWnd, int32_t index, int32_t value) = 0;
  virtual bool SetLayeredWindowAttributes(HWND hWnd, COLORREF key, uint8_t alpha, int32_t flags) = 0;
  virtual int32_t SetWindowRgn(HWND hWnd, HRGN region, bool redraw) = 0;  // the window owns the region
  virtual bool SetForegroundWindow(HWND hWnd) = 0;
  virtual HWND GetForegroundWindow() = 0;
  virtual HWND SetFocus(HWND hWnd) = 0;
  virtual HWND GetFocus() = 0;
  virtual bool SetWindowTextA(HWND hWnd, const std::string& text) = 0;
  virtual std::string GetWindowTextA(HWND hWnd) = 0;
  virtual bool InvalidateRect(HWND hWnd, const RECT* rect, bool erase) = 0;
  virtual bool UpdateWindow(HWND hWnd) = 0;

  // Window procedures and properties.
  virtual WNDPROC RegisterWindowProc(WindowProcedure proc) = 0;
  virtual void UnregisterWindowProc(WNDPROC proc) = 0;
  virtual LRESULT CallWindowProcA(WNDPROC proc, HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) = 0;
  virtual LRESULT DefWindowProcA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) = 0;
  virtual LRESULT SendMessageA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) = 0;
  virtual bool PostMessageA(HWND hWnd, int32_t msg, WPARAM wParam, LPARAM lParam) = 0;
  virtual bool SetPropA(HWND hWnd, const std::string& name, int32_t value) = 0;
  virtual int32_t GetPropA(HWND hWnd, const std::string& name) = 0;
  virtual int32_t RemovePropA(HWND hWnd, const std::string& name) = 0;
  virtual int32_t GetWindowThreadProcessId(HWND hWnd, int32_t* processId) = 0;
  virtual int32_t GetCurrentProcessId() = 0;

  // Input.
  virtual bool GetCursorPos(POINTAPI& point) = 0;
  virtual bool SetCursorPos(int32_t x, int32_t y) = 0;
  virtual HWND WindowFromPoint(int32_t x, int32_t y) = 0;
  virtual bool ScreenToClient(HWND hWnd, POINTAPI& point) = 0;
  virtual bool ClientToScreen(HWND hWnd, POINTAPI& point) = 0;
  virtual HWND SetCapture(HWND hWnd) = 0;
  virtual bool ReleaseCapture() = 0;
  virtual HWND GetCapture() = 0;
  virtual bool ClipCursor(const RECT* rect) = 0;
  virtual int16_t GetAsyncKeyState(int32_t key) = 0;
  virtual bool TrackMouseEvent(TRACKMOUSEEVENT& request) = 0;
  virtual int32_t GetSystemMetrics(int32_t index) = 0;

  // The cursor over a window: a mouse-pointer value (0 default, 1 arrow, 2 cross, 3 I-beam,
  // 5 and 15 size all, 6 to 9 the sizing arrows, 10 up arrow, 11 and 13 hourglass, 12 no drop,
  // 14 arrow and question mark, 99 the given image, an icon or a bitmap).
  virtual bool setWindowCursor(HWND hWnd, int32_t pointer, HGDIOBJ image) = 0;

  // The clipboard's text (clear and set in one call).
  virtual bool setClipboardText(const std::string& text) = 0;
  virtual std::string clipboardText() = 0;

  // Timers and the message loop.
  virtual int32_t SetTimer(HWND hWnd, int32_t id, int32_t milliseconds) = 0;
  virtual bool KillTimer(HWND hWnd, int32_t id) = 0;
  virtual uint32_t GetTickCount() = 0;
  // Delivers posted messages and due timers; returns the number of messages delivered.
  virtual int32_t DoEvents() = 0;
  // Waits for the next thing to do (a real wait, or a jump of the virtual clock to the next timer).
  virtual bool WaitForWork(int32_t maxMilliseconds) = 0;
};

// System facts and services.
class CORVANE_API SystemApi {
 public:
  virtual ~SystemApi() = default;
  virtual bool GetVersionExA(OSVERSIONINFO& info) = 0;
  virtual int32_t GetShortPathNameA(const std::string& longPath, std::string& shortPath,
                                    int32_t bufferSize) = 0;
  virtual bool sndPlaySoundA(const std::string& path, int32_t flags) = 0;
  virtual std::string applicationPath() = 0;  // folder of the running program, no trailing separator
  virtual std::string applicationName() = 0;

  // The user, folders, identifiers and processes. Text results are cut to size - 1 characters
  // where a size is given, as a fixed buffer of that size holds them.
  virtual bool GetUserNameA(std::string& name, int32_t size) = 0;          // false when unknown
  virtual int32_t GetTempPathA(int32_t size, std::string& path) = 0;         // its length, 0 when none
  virtual int32_t GetWindowsDirectoryA(std::string& path, int32_t size) = 0;  // its length, 0 when none
  virtual int32_t GetSystemDirectoryA(std::string& path, int32_t size) = 0;   // its length, 0 when none
  virtual bool SHGetSpecialFolderPathA(int32_t folder, std::string& path) = 0;  // false for an unknown one
  virtual bool CoCreateGuid(GUID& guid) = 0;  // a random identifier of version 4
  virtual std::vector<int32_t> EnumProcesses() = 0;
  // The path of the process's program; 0 when the process cannot be opened.
  virtual int32_t GetModuleFileNameExA(int32_t processId, std::string& path, int32_t size) = 0;
  virtual std::vector<PROCESSENTRY32> CreateToolhelp32Snapshot() = 0;
};

// The settings store: a tree of keys under the predefined roots, each key with typed values.
// Names of keys and values compare without regard to case. Every call returns ERROR_SUCCESS (0)
// or an error code; a failed call changes nothing.
class CORVANE_API RegistryApi {
 public:
  virtual ~RegistryApi() = default;
  virtual int32_t RegOpenKeyExA(HKEY key, const std::string& subKey, int32_t options, int32_t samDesired,
                                HKEY& result) = 0;
  virtual int32_t RegOpenKeyA(HKEY key, const std::string& subKey, HKEY& result) = 0;
  // Creates the missing keys of the path, all in one transaction; disposition may be null.
  virtual int32_t RegCreateKeyExA(HKEY key, const std::string& subKey, int32_t reserved,
                                  const std::string& className, int32_t options, int32_t samDesired,
                                  HKEY& result, int32_t* disposition) = 0;
  // With data null only the type and the size are asked for. With a buffer of *dataSize bytes
  // that is too small the result is ERROR_MORE_DATA and *dataSize the size needed.
  virtual int32_t RegQueryValueExA(HKEY key, const std::string& valueName, int32_t* type, uint8_t* data,
                                   int32_t* dataSize) = 0;
  // Stores exactly dataSize bytes of data, whatever the type.
  virtual int32_t RegSetValueExA(HKEY key, const std::string& valueName, int32_t reserved, int32_t type,
                                 const uint8_t* data, int32_t dataSize) = 0;
  // Counts and longest lengths (in bytes, without a terminating NUL); any pointer may be null.
  virtual int32_t RegQueryInfoKeyA(HKEY key, int32_t* subKeys, int32_t* maxSubKeyLen, int32_t* values,
                                   int32_t* maxValueNameLen, int32_t* maxValueLen) = 0;
  // Subkeys in the order of their names without regard to case; values in the order they were
  // first written. ERROR_NO_MORE_ITEMS past the last one.
  virtual int32_t RegEnumKeyExA(HKEY key, int32_t index, std::string& name) = 0;
  virtual int32_t RegEnumValueA(HKEY key, int32_t index, std::string& name, int32_t* type,
                                std::vector<uint8_t>* data) = 0;
  // Deletes a key without subkeys, with its values (ERROR_ACCESS_DENIED while it has subkeys).
  virtual int32_t RegDeleteKeyA(HKEY key, const std::string& subKey) = 0;
  virtual int32_t RegDeleteValueA(HKEY key, const std::string& valueName) = 0;
  virtual int32_t RegCloseKey(HKEY key) = 0;
};

class CORVANE_API Platform {
 public:
  virtual ~Platform() = default;
  virtual GdiApi& gdi() = 0;
  virtual UserApi& user() = 0;
  virtual SystemApi& system() = 0;
  virtual RegistryApi& registry() = 0;
  // The common dialogs. A platform without them answers every dialog with a cancel.
  virtual DialogApi& dialogs();
};

// The platform in use, which the application object sets up. Without one, any window, drawing or
// picture operation is a RuntimeError (91) that says so: nothing is drawn on a hidden display.
CORVANE_API Platform& platform();
// The platform in use or nullptr, for releases that may run after the application has ended.
CORVANE_API Platform* currentPlatform();
// Installs a platform (nullptr: none). The application object does this; tests set their own.
CORVANE_API void setPlatform(Platform* p);

}  // namespace corvane

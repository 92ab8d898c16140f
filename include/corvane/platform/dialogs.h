// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/export.h>
#include <corvane/platform/types.h>

#include <cstdint>
#include <string>
#include <vector>

// The common dialogs: the structures the dialog classes fill, and the operations that show the
// dialogs. Text buffers are strings whose length is the buffer's size; a dialog writes its text
// into the buffer followed by a NUL, as a fixed buffer is written.
namespace corvane {

struct CORVANE_API CHOOSECOLOR {
  int32_t lStructSize = 0;
  HWND hwndOwner = 0;
  int32_t hInstance = 0;
  COLORREF rgbResult = 0;
  std::string lpCustColors;  // the custom colours' buffer; the dialog may keep its custom colours there
  int32_t Flags = 0;
};
constexpr int32_t CC_RGBINIT = 1, CC_FULLOPEN = 2, CC_SOLIDCOLOR = 128;

struct CORVANE_API OPENFILENAME {
  int32_t lStructSize = 0;
  HWND hwndOwner = 0;
  int32_t hInstance = 0;
  std::string lpstrFilter;  // pairs of description and pattern, each part ended by a NUL
  int32_t nFilterIndex = 0;
  std::string lpstrFile;  // the proposed name on the way in, the chosen path on the way out
  int32_t nMaxFile = 0;
  std::string lpstrFileTitle;
  int32_t nMaxFileTitle = 0;
  std::string lpstrInitialDir;
  std::string lpstrTitle;
  int32_t Flags = 0;
};
constexpr int32_t OFN_READONLY = 1, OFN_EXPLORER = 0x80000;

struct CORVANE_API BROWSEINFO {
  HWND hOwner = 0;
  int32_t pidlRoot = 0;
  std::string lpszTitle;
  int32_t ulFlags = 0;
};

// The part of a printer's settings the library reads.
struct CORVANE_API DEVMODE {
  std::string dmDeviceName;  // a field of 32 characters
  int16_t dmCopies = 1;
  int16_t dmColor = 1;  // 1 monochrome, 2 colour
};
constexpr int32_t DMCOLOR_COLOR = 2;

struct CORVANE_API PRINTDLG {
  int32_t lStructSize = 0;
  HWND hwndOwner = 0;
  DEVMODE devMode;  // the settings chosen, read after OK
  HDC hDC = 0;
  int32_t Flags = 0;
  int32_t nFromPage = 0, nToPage = 0, nMinPage = 0, nMaxPage = 0, nCopies = 0;
};
constexpr int32_t PD_SELECTION = 1, PD_PAGENUMS = 2, PD_NOSELECTION = 4, PD_NOPAGENUMS = 8, PD_COLLATE = 16,
                  PD_PRINTTOFILE = 32, PD_RETURNDC = 0x100, PD_DISABLEPRINTTOFILE = 0x80000,
                  PD_HIDEPRINTTOFILE = 0x100000;

struct CORVANE_API LOGFONT {
  int32_t lfHeight = 0;
  int32_t lfWeight = 0;
  uint8_t lfItalic = 0, lfUnderline = 0, lfStrikeOut = 0;
  std::string lfFaceName;  // a field of 32 characters
};

struct CORVANE_API CHOOSEFONT {
  int32_t lStructSize = 0;
  HWND hwndOwner = 0;
  HDC hDC = 0;
  LOGFONT lf;              // the font, in its zeroed block
  int32_t iPointSize = 0;  // tenths of a point
  int32_t Flags = 0;
  COLORREF rgbColors = 0;
};
constexpr int32_t CF_SCREENFONTS = 1, CF_EFFECTS = 0x100;

// One filter of a file dialog: its description and its patterns ("*.txt;*.log" gives two).
struct CORVANE_API FileFilter {
  std::string name;
  std::vector<std::string> patterns;
};
// The filters of a filter in the platform's form. A description without a pattern after it
// (an odd count of parts) is left out; empty parts at the end are the terminators.
CORVANE_API std::vector<FileFilter> parseDialogFilter(const std::string& filter);

// The text of a fixed buffer: everything before its first NUL.
CORVANE_API std::string bufferText(const std::string& buffer);
// Writes text into a buffer of the buffer's length, followed by a NUL where there is room; text
// longer than the buffer is cut so that the NUL fits (an empty buffer takes nothing).
CORVANE_API void writeBuffer(std::string& buffer, const std::string& text);

// The dialogs. Each returns 1 for OK and 0 for a cancel, and fills the structure's results on OK.
class CORVANE_API DialogApi {
 public:
  virtual ~DialogApi() = default;
  virtual int32_t ChooseColorA(CHOOSECOLOR& cc) = 0;
  virtual int32_t GetOpenFileNameA(OPENFILENAME& ofn) = 0;
  virtual int32_t GetSaveFileNameA(OPENFILENAME& ofn) = 0;
  // The chosen folder as an item list; 0 for a cancel. The item list stays until the process ends.
  virtual int32_t SHBrowseForFolderA(BROWSEINFO& bi) = 0;
  // Writes the item list's path into the buffer; false for an unknown item list.
  virtual bool SHGetPathFromIDListA(int32_t pidl, std::string& path) = 0;
  virtual int32_t PrintDlgA(PRINTDLG& pd) = 0;
  virtual int32_t ChooseFontA(CHOOSEFONT& cf) = 0;
};

}  // namespace corvane

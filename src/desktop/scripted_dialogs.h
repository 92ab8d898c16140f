// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/dialogs.h>

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

// The common dialogs of the headless desktop: answers queued in advance by a test, each request
// recorded as it arrived. A dialog with no answer queued is cancelled.
class ScriptedDialogs : public DialogApi {
 public:
  // What a dialog was asked, whichever dialog it was.
  struct Request {
    std::string kind;  // the operation's name: "ChooseColorA", "GetOpenFileNameA" ...
    int32_t structSize = 0;
    HWND owner = 0;
    std::string title;
    std::string filter;               // as given, in the platform's form
    std::vector<FileFilter> filters;  // the filter as the dialog offers it
    int32_t filterIndex = 0;
    std::string initialDir;
    std::string file;  // the file buffer as given (its length is the buffer's size)
    int32_t maxFile = 0;
    int32_t flags = 0;
    std::string customColours;  // the custom colours' buffer as given
    COLORREF colour = 0;        // the colour the colour dialog started from
    int32_t fromPage = 0, toPage = 0, minPage = 0, maxPage = 0, copies = 0;
    LOGFONT font;  // the font the font dialog started from
  };

  // The user's answer. ok false is a cancel; result, when set, is returned as it stands.
  struct Answer {
    bool ok = false;
    std::optional<int32_t> result;
    COLORREF colour = 0;        // colour dialog; font dialog's colour
    std::string customColours;  // written into the custom colours' buffer, when not empty
    std::string path;           // file and folder dialogs
    LOGFONT font;               // font dialog
    int32_t pointSize = 0;      // font dialog, tenths of a point
    int32_t printFlags = 0;     // print dialog: the flags it gives back
    int32_t fromPage = 0, toPage = 0, maxPage = 0;
    HDC printDC = 0;
    DEVMODE devMode;
  };

  void queue(Answer answer) { m_answers.push_back(std::move(answer)); }
  const std::vector<Request>& requests() const { return m_requests; }
  size_t pendingAnswers() const { return m_answers.size(); }
  // Item lists handed out by the folder dialog; they are never freed.
  size_t itemLists() const { return m_itemLists.size(); }

  int32_t ChooseColorA(CHOOSECOLOR& cc) override;
  int32_t GetOpenFileNameA(OPENFILENAME& ofn) override;
  int32_t GetSaveFileNameA(OPENFILENAME& ofn) override;
  int32_t SHBrowseForFolderA(BROWSEINFO& bi) override;
  bool SHGetPathFromIDListA(int32_t pidl, std::string& path) override;
  int32_t PrintDlgA(PRINTDLG& pd) override;
  int32_t ChooseFontA(CHOOSEFONT& cf) override;

 private:
  Answer next();
  int32_t fileDialog(const char* kind, OPENFILENAME& ofn);
  static int32_t resultOf(const Answer& a) { return a.result ? *a.result : (a.ok ? 1 : 0); }

  std::deque<Answer> m_answers;
  std::vector<Request> m_requests;
  std::map<int32_t, std::string> m_itemLists;
};

}  // namespace corvane

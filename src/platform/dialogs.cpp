// SPDX-License-Identifier: MIT
#include <corvane/platform/dialogs.h>
#include <corvane/platform/platform.h>

#include <algorithm>

namespace corvane {

namespace {

// The dialogs of a platform that has none: every dialog is cancelled at once.
class NoDialogs : public DialogApi {
 public:
  int32_t ChooseColorA(CHOOSECOLOR&) override { return 0; }
  int32_t GetOpenFileNameA(OPENFILENAME&) override { return 0; }
  int32_t GetSaveFileNameA(OPENFILENAME&) override { return 0; }
  int32_t SHBrowseForFolderA(BROWSEINFO&) override { return 0; }
  bool SHGetPathFromIDListA(int32_t, std::string&) override { return false; }
  int32_t PrintDlgA(PRINTDLG&) override { return 0; }
  int32_t ChooseFontA(CHOOSEFONT&) override { return 0; }
};

std::vector<std::string> splitPatterns(const std::string& text) {
  std::vector<std::string> out;
  size_t start = 0;
  for (;;) {
    size_t end = text.find(';', start);
    std::string part = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
    size_t a = part.find_first_not_of(' '), b = part.find_last_not_of(' ');
    if (a != std::string::npos) out.push_back(part.substr(a, b - a + 1));
    if (end == std::string::npos) return out;
    start = end + 1;
  }
}

}  // namespace

DialogApi& Platform::dialogs() {
  static NoDialogs none;
  return none;
}

std::vector<FileFilter> parseDialogFilter(const std::string& filter) {
  std::vector<std::string> parts;
  size_t start = 0;
  while (start < filter.size()) {
    size_t end = filter.find('\0', start);
    if (end == std::string::npos) end = filter.size();
    parts.push_back(filter.substr(start, end - start));
    start = end + 1;
  }
  while (!parts.empty() && parts.back().empty()) parts.pop_back();
  std::vector<FileFilter> filters;
  for (size_t i = 0; i + 1 < parts.size(); i += 2) filters.push_back({parts[i], splitPatterns(parts[i + 1])});
  return filters;
}

std::string bufferText(const std::string& buffer) { return buffer.substr(0, buffer.find('\0')); }

void writeBuffer(std::string& buffer, const std::string& text) {
  if (buffer.empty()) return;
  const size_t n = std::min(text.size(), buffer.size() - 1);
  buffer.replace(0, n, text, 0, n);
  buffer[n] = '\0';
}

}  // namespace corvane

// SPDX-License-Identifier: MIT
// The small parsers of the HTML view, the dialogs, the message box and the Caption page: a "VB:"
// call read into name and arguments, a dialog filter split into its pairs, a mailto: address
// escaped, and colour tags normalised. The first byte picks the parser, the rest is its text;
// each must take any bytes without a crash, a hang or unbounded memory.
#include <corvane/html/caption_page.h>
#include <corvane/html/vex_html.h>
#include <corvane/msgbox/frm_msg_box_ie.h>
#include <corvane/platform/dialogs.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0] % 4) {
    case 0: {
      std::string name;
      std::vector<corvane::Variant> args;
      corvane::VexHTML::mParseCall(text, name, args);
      break;
    }
    case 1:
      corvane::parseDialogFilter(text);
      break;
    case 2: {
      // Address, subject and body are split at the first two NULs.
      const size_t a = text.find('\0'), b = a == std::string::npos ? a : text.find('\0', a + 1);
      const std::string address = text.substr(0, a);
      const std::string subject = a == std::string::npos ? "" : text.substr(a + 1, b == std::string::npos ? b : b - a - 1);
      const std::string body = b == std::string::npos ? "" : text.substr(b + 1);
      corvane::frmMsgBoxIe::mailToLink(address, subject, body);
      break;
    }
    default:
      corvane::CaptionPage::normaliseColourTags(text);
      break;
  }
  return 0;
}

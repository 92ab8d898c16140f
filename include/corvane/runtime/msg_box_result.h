// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace corvane {

// The buttons, icon and flags of a message box style, and the value a box returns. The icon
// values also name the picture of a balloon.
enum MsgBoxStyle : int32_t {
  vbOKOnly = 0,
  vbOKCancel = 1,
  vbAbortRetryIgnore = 2,
  vbYesNoCancel = 3,
  vbYesNo = 4,
  vbRetryCancel = 5,
  vbCritical = 16,
  vbQuestion = 32,
  vbExclamation = 48,
  vbInformation = 64,
  vbDefaultButton2 = 256,
  vbDefaultButton3 = 512,
  vbDefaultButton4 = 768,
  vbSystemModal = 4096,
  vbMsgBoxHelpButton = 16384,
  vbMsgBoxSetForeground = 65536,
  vbMsgBoxRight = 524288,
  vbMsgBoxRtlReading = 1048576,
};

enum MsgBoxResult : int32_t {
  vbOK = 1,
  vbCancel = 2,
  vbAbort = 3,
  vbRetry = 4,
  vbIgnore = 5,
  vbYes = 6,
  vbNo = 7
};

}  // namespace corvane

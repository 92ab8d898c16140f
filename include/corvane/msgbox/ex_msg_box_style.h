// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace corvane {

// The extended options of a message box, added together.
enum exMsgBoxStyle : int32_t {
  exCenterScreen = 0,
  exShowCheck = 2,
  exNoModal = 4,
  exWaitTime = 8,
  exCenterOwner = 16,
  exManualPos = 32,
  exMsgBoxCenter = 64,
  exAutoClose = 128,
};

}  // namespace corvane

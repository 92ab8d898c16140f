// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace corvane {

// How the send button of a message box works: not at all, through the host's SendClick, or by
// handing a mailto: link with the report to the mail client.
enum exSendMethode : int32_t { exNone = 0, exSendAuto = 1, exSendManual = 2 };

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once
#include <corvane/platform/types.h>

namespace corvane {

class HostedControl;

// The control's window rectangle in the client pixels of its parent window.
RECT clientRectInParent(const HostedControl& c);

}  // namespace corvane

// SPDX-License-Identifier: MIT
#pragma once

#include <corvane/export.h>
#include <string>
#include <string_view>

namespace corvane::html {

// The source that the HTML view keeps for a value given to its Text: wrapped in "<BODY>" and
// "<HTML>" where those are missing, the named entities of the entity table replaced (without
// regard to case, in the table's order), each tab turned into a blank, and doubled blanks
// halved three times over.
CORVANE_API std::string normaliseHtmlSource(std::string_view value);

}  // namespace corvane::html

// SPDX-License-Identifier: MIT
#pragma once
#include <optional>
#include <string>
#include <vector>

namespace corvane {

std::string base64Encode(const std::vector<unsigned char>& bytes);
// nullopt when the text is no valid base64.
std::optional<std::vector<unsigned char>> base64Decode(const std::string& text);

}  // namespace corvane

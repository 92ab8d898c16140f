// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <span>

namespace corvane {

// One library resource (bitmap, cursor or icon) as PNG bytes, named after its file.
struct EmbeddedResource {
  const char* name;
  const unsigned char* data;
  std::size_t size;
};

// All resources that were embedded into the library at build time.
std::span<const EmbeddedResource> embeddedResources();

}  // namespace corvane

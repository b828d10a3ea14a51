// Names as numbers: nearly all names are short enough to be compared and hashed in one go.
#pragma once

#include <cstdint>
#include <string_view>

#include "framework/text/utf8.h"

namespace sumlet {

// The bytes of `name` in lower case as one number, different for each name; 0 when it is empty, longer than eight
// bytes, not ASCII, or begins with NUL.
[[nodiscard]] constexpr std::uint64_t PackedName(std::string_view name) {
  if (name.empty() || name.size() > sizeof(std::uint64_t) || name.front() == '\0') return 0;
  std::uint64_t packed = 0;
  for (const char c : name) packed = packed << 8 | static_cast<unsigned char>(FoldAscii(c));
  return (packed & 0x8080808080808080) == 0 ? packed : 0;
}

}  // namespace sumlet

// The constants of the record format. docs/settings-format.md draws it.
#pragma once

#include <cstddef>

#include "framework/text/text.h"

namespace sumlet {

// A value's length takes 1, 2 or 4 bytes, the same for all items of one list; the first byte of the list says which.
inline constexpr Int32 widestLength = 4;

[[nodiscard]] constexpr bool IsLengthWidth(Int32 format) {
  return format == 1 || format == 2 || format == widestLength;
}

// The fewest bytes that hold the length of the longest value.
[[nodiscard]] constexpr Int32 NarrowestWidth(std::size_t longestValue) {
  if (longestValue > 65535) return widestLength;
  return longestValue > 255 ? 2 : 1;
}

}  // namespace sumlet

// What makes a line a comment.
#pragma once

#include <string_view>

namespace sumlet {

// Whether the very first characters of `line` are those of a comment; the same signs later are operators or errors.
[[nodiscard]] constexpr bool IsComment(std::string_view line) {
  return line.starts_with('\'') || line.starts_with('#') || line.starts_with("//");
}

}  // namespace sumlet

// What each line of an equation is to the eye: an ordinary line, a comment, or the line that failed.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

enum class LineRole { Ordinary, Comment, Error };

// One role for each line of `text`, whose lines end in CR or LF, each of them one end. A closing line end begins no
// further line. `errorLine` is the 0-based line that failed, if one did; a comment stays a comment all the same.
//
// Only the very first characters of a line make it a comment here, blanks included, while the calculation trims the
// line first.
[[nodiscard]] std::vector<LineRole> LineRoles(std::string_view text, std::optional<Int32> errorLine);

}  // namespace sumlet

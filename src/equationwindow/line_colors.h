// The colour of each line of an equation: grey for comments, red for the line that failed.
#pragma once

#include <QColor>
#include <optional>
#include <string_view>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

inline constexpr QColor CommentColor(0x7F, 0x7F, 0x7F);
inline constexpr QColor ErrorColor(0xFF, 0x00, 0x00);

// Returns one colour for each line of `text`. Both CR and LF end a line, and CR LF ends two. A line end at the end of
// the text begins no further line. The colour of an ordinary line is invalid. `errorLine` is the 0-based number of the
// line that failed, if one did. A comment is grey even if it has that number.
//
// Only the very first characters of a line make it a comment here, blanks included, while the calculation trims the
// line first.
[[nodiscard]] std::vector<QColor> LineColors(std::string_view text, std::optional<Int32> errorLine);

}  // namespace sumlet

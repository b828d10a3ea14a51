// Numbers longer than any double needs. A value that no operation has touched can be as long as the equation itself,
// and a line can use it as often as the line is long; put in whole each time, a pasted megabyte would grow to
// gigabytes.
#pragma once

#include <cstddef>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

inline constexpr std::size_t shortNumberLength = 1500;          // up to here a number is never worth abridging
inline constexpr std::size_t abridgingThreshold = 1024 * 1024;  // bytes of such values in a run before that begins

// A shorter text, below 4000 bytes, that reads as the same double as `number`, whatever digits, points, commas and
// signs are written in front of it and behind it; and so do the first two of the fields into which its commas divide
// it. Unless `pointMayPrecede`, only digits may be written in front of it, and the text can be shorter still. `number`
// is made of digits, ".", "," and a "-" in front.
[[nodiscard]] String AbridgedNumber(std::string_view number, bool pointMayPrecede = true);

}  // namespace sumlet

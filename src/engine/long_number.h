// Shortens numbers that are longer than any double needs. The value of a variable can be as long as the equation, and a
// line can use it many times: substituted in whole each time, a pasted megabyte would grow to gigabytes.
#pragma once

#include <cstddef>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

inline constexpr std::size_t shortNumberLength = 1500;          // bytes; shorter numbers are never abridged
inline constexpr std::size_t abridgingThreshold = 1024 * 1024;  // bytes of longer values in a run before abridging

// A text of less than 4000 bytes that reads as the same double as `number`, whatever digits, points, commas and signs
// are in front of it and behind it. The same holds for each of the first two fields that its commas separate. If
// `pointMayPrecede` is false, only digits may be in front of it, and the text can be shorter. `number` consists of
// digits, ".", "," and at most a "-" in front.
[[nodiscard]] String AbridgedNumber(std::string_view number, bool pointMayPrecede = true);

}  // namespace sumlet

// Functions for bytes, which the stored formats use. Positions are 1-based and count bytes. Comparisons are exact. None
// of these functions fails.
#pragma once

#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// Number of bytes, at most the largest Int32.
[[nodiscard]] Int32 LenB(std::string_view s);

// The bytes from `start` to the end, or at most `length` bytes. Empty if `start` is out of range or length <= 0.
[[nodiscard]] String MidB(std::string_view s, Int32 start);
[[nodiscard]] String MidB(std::string_view s, Int32 start, Int32 length);

// Position of the first `find` at or after `start`, or 0. A start below 1 counts as 1.
[[nodiscard]] Int32 InStrB(Int32 start, std::string_view source, std::string_view find);

// The first byte, 0 to 255; 0 for the empty text.
[[nodiscard]] Int32 AscB(std::string_view s);
// A text of one byte: the lowest eight bits of `n`.
[[nodiscard]] String ChrB(Int32 n);

// Percent-encoding (RFC 3986): the unreserved characters A-Z a-z 0-9 - . _ ~ stay, every other byte becomes "%" and two
// upper-case hexadecimal digits.
[[nodiscard]] String EncodeURLComponent(std::string_view s);
// The inverse. Keeps "+", and any "%" that is not followed by two hexadecimal digits.
[[nodiscard]] String DecodeURLComponent(std::string_view s);

}  // namespace sumlet

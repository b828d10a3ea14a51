// Texts as bytes: what the stored forms are written and read with. Positions are 1-based and count bytes, and bytes
// are compared exactly. Like the functions of text.h, none of these fails.
#pragma once

#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// Number of bytes, at most the largest Int32.
[[nodiscard]] Int32 LenB(std::string_view s);

// From `start` to the end, or at most `length` bytes. Empty when `start` lies below 1 or behind the end, and for
// length <= 0.
[[nodiscard]] String MidB(std::string_view s, Int32 start);
[[nodiscard]] String MidB(std::string_view s, Int32 start, Int32 length);

// Position of the first `find` at or behind `start`, or 0. A start below 1 searches from the beginning.
[[nodiscard]] Int32 InStrB(Int32 start, std::string_view source, std::string_view find);

// The first byte, 0 to 255; 0 for the empty text.
[[nodiscard]] Int32 AscB(std::string_view s);
// The single byte of the lowest eight bits of `n`.
[[nodiscard]] String ChrB(Int32 n);

// Percent-encoding (RFC 3986): the unreserved characters A-Z a-z 0-9 - . _ ~ stay, every other byte becomes "%" and two
// upper-case hexadecimal digits.
[[nodiscard]] String EncodeURLComponent(std::string_view s);
// The inverse. A "%" without two hexadecimal digits behind it stays as it is, and so does "+".
[[nodiscard]] String DecodeURLComponent(std::string_view s);

}  // namespace sumlet

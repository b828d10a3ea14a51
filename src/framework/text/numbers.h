// Converts between numbers and text, and generates random numbers. mathematics.h declares mathematical functions.
//
// Independent of the locale: "." is always the decimal point and "," groups digits.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// Parses the longest prefix that is a number: spaces, an optional sign, digits, an optional "." and digits, an optional
// exponent. Ignores the rest. Returns 0 if there is no number, and an infinity or zero for a value out of range.
[[nodiscard]] double Val(std::string_view s);
// The same, but skips a "," after a digit as a group separator, and reads "&h" as the start of a hexadecimal integer.
[[nodiscard]] double CDbl(std::string_view s);

// Parses and removes the number at the front of `text`: digits with at most one "." before, among or after them.
// Returns nothing, and leaves `text` unchanged, if there is no digit.
[[nodiscard]] std::optional<double> TakeNumber(std::string_view& text);

// The decimal digits of `n`, with "-" if it is negative.
[[nodiscard]] String Str(Int32 n);
// Seven significant digits without trailing zeros. From 1e7 on and below 1e-4 in the form "1.234568e+9", with six
// decimal places. An infinity is "inf", not-a-number "nan".
[[nodiscard]] String Str(double x);

// `pattern` is an optional "-", then "#", then optionally "." and N times "#". Rounds the exact magnitude of `x` to N
// places. Writes at least one digit before the point, no trailing zeros and no exponent. A pattern with "." always
// writes the point: Format(3, "#.#") is "3.". Only a pattern with "-" writes the sign, except for a value that rounds
// to zero. An infinity is "inf", not-a-number "nan".
[[nodiscard]] String Format(double x, std::string_view pattern);

// Equals CDbl(Format(x, "-#.##########")) without the text. Returns infinities and not-a-number unchanged, and +0 for a
// negative value that rounds to zero.
//
// From 2^19 on, neighbouring doubles differ by more than 1e-10, so the text identifies x. Below, the text is an
// integral number of units of 1e-10, which is an exact double, and parsing divides it by 1e10, rounding once.
[[nodiscard]] double RoundToTenPlaces(double x);

// Upper-case hexadecimal digits of the 32 bits of `n`, without leading zeros.
[[nodiscard]] String Hex(Int32 n);

// Truncates toward zero. Returns the nearest Int32 for a value out of range, 0 for not-a-number.
[[nodiscard]] Int32 ToInt32(double x);

// Returns a random number, 0 <= value < 1. Each thread has its own generator, seeded by the system.
[[nodiscard]] double Rnd();

[[nodiscard]] constexpr std::uint64_t BitAnd(std::uint64_t a, std::uint64_t b) { return a & b; }

struct Color {
  std::uint8_t Red = 0;
  std::uint8_t Green = 0;
  std::uint8_t Blue = 0;
  [[nodiscard]] bool operator==(const Color&) const = default;
};
// Limits each component to 0 to 255.
[[nodiscard]] Color RGB(Int32 red, Int32 green, Int32 blue);

}  // namespace sumlet

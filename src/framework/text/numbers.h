// Number services: numbers from text, text from numbers, and random numbers. mathematics.h has the functions.
//
// No locale ever shows: "." divides the fraction and "," groups digits, whatever the user's settings.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "framework/text/mathematics.h"
#include "framework/text/text.h"

namespace sumlet {

// The longest leading piece that forms a number: spaces, an optional sign, digits, an optional "." and digits, an
// optional exponent. Whatever follows is ignored; 0 when there is no number. A value beyond the range of a double
// gives an infinity or zero.
[[nodiscard]] double Val(std::string_view s);
// The same, but a "," behind a digit is a group separator and is skipped, and "&h" begins a hexadecimal integer.
[[nodiscard]] double CDbl(std::string_view s);

// The number at the front of `text`: digits with at most one "." among or around them, and nothing in front of them.
// Removes it from `text`. Nothing, and `text` unchanged, when there is no digit.
[[nodiscard]] std::optional<double> TakeNumber(std::string_view& text);

// Decimal digits with a leading "-" for a negative number.
[[nodiscard]] String Str(Int32 n);
// Seven significant digits, without trailing zeros. From 1e7 on and below 1e-4 as "1.234568e+9", with six digits
// behind the point. An infinity is "inf", not-a-number "nan".
[[nodiscard]] String Str(double x);

// `pattern` is an optional "-", then "#", then optionally "." and N times "#". Writes the magnitude of `x` rounded to N
// places from its exact value, with at least one digit in front of the point, without trailing zeros, never with an
// exponent. A pattern with "." always writes the point: Format(3, "#.#") is "3.". The sign is written only by a pattern
// with "-", and not for a value that rounds to zero. An infinity is "inf", not-a-number "nan".
[[nodiscard]] String Format(double x, std::string_view pattern);

// What CDbl reads back from Format(x, "-#.##########"), without the text. A value that is not finite stays as it is,
// and a negative one that rounds to zero becomes a plain zero.
//
// From 2^19 on, doubles lie further apart than ten places, so the text names x alone. Below, the text is a whole number
// of units of 1e-10 that is an exact double, and reading divides it by 1e10, rounding once.
[[nodiscard]] double RoundToTenPlaces(double x);

// Upper-case hexadecimal digits of the 32 bits of `n`, without leading zeros.
[[nodiscard]] String Hex(Int32 n);

// Cut toward zero. A value out of range takes the nearest Int32, not-a-number takes 0.
[[nodiscard]] Int32 ToInt32(double x);

// A new random number, 0 <= value < 1, at every call. One sequence a thread, seeded by the system.
[[nodiscard]] double Rnd();

[[nodiscard]] constexpr std::uint64_t BitAnd(std::uint64_t a, std::uint64_t b) { return a & b; }

struct Color {
  std::uint8_t Red = 0;
  std::uint8_t Green = 0;
  std::uint8_t Blue = 0;
  [[nodiscard]] bool operator==(const Color&) const = default;
};
// From three integers 0 to 255; one outside takes the nearest end.
[[nodiscard]] Color RGB(Int32 red, Int32 green, Int32 blue);

}  // namespace sumlet

// Text from numbers. std::to_chars rounds correctly from the exact value of a double at any number of places. Nearly
// all values that a calculation writes need ten places at most and have few bits behind the point; these are rounded
// here in whole numbers, to the same digits in a fifth of the time.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "framework/text/numbers.h"

namespace sumlet {
namespace {

constexpr int significantDigits = 7;

// Digits of the largest double in front of the point, the point, and more places than any pattern asks for.
constexpr std::size_t maxFixedLength = 309 + 1 + 1100;
constexpr int maxPlaces = 1100;  // the exact value of a double has at most 1074 places

struct Pattern {
  bool sign = false;
  bool point = false;
  int places = 0;
};

Pattern ReadPattern(std::string_view pattern) {
  Pattern result;
  result.sign = pattern.substr(0, 1) == "-";
  const std::size_t point = pattern.find('.');
  result.point = point != std::string_view::npos;
  if (result.point) result.places = static_cast<int>(std::min<std::size_t>(pattern.size() - point - 1, maxPlaces));
  return result;
}

constexpr int shortPlaces = 10;
constexpr std::array<std::uint64_t, shortPlaces + 1> powersOfFive{1,     5,     25,     125,     625,    3125,
                                                                  15625, 78125, 390625, 1953125, 9765625};
constexpr std::array<std::uint64_t, shortPlaces + 1> powersOfTen{
    1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000, 10000000000};

struct Decimal {
  std::uint64_t whole;
  std::uint64_t fraction;  // in units of the last place
};

// `magnitude` < 2^53, rounded to `places` <= shortPlaces, a tie to the even digit. Nothing when it has bits below
// 2^-64, as only a very small number does.
//
// With r the part behind the point in units of 2^-64, the digits are r * 10^places / 2^64 = r * 5^places /
// 2^(64-places). The product, up to 88 bits, is kept in two halves: `high`, in units of 2^32, and `low`.
std::optional<Decimal> RoundShort(double magnitude, int places) {
  constexpr double twoTo64 = 18446744073709551616.0;
  const double whole = std::floor(magnitude);
  const double scaled = (magnitude - whole) * twoTo64;
  const auto r = static_cast<std::uint64_t>(scaled);
  if (static_cast<double>(r) != scaled) return {};
  constexpr std::uint64_t lowHalf = 0xFFFFFFFF;
  const std::uint64_t power = powersOfFive[static_cast<std::size_t>(places)];
  const std::uint64_t lowProduct = (r & lowHalf) * power;
  const std::uint64_t high = (r >> 32) * power + (lowProduct >> 32);
  const std::uint64_t low = lowProduct & lowHalf;

  const int shift = 32 - places;
  const std::uint64_t half = std::uint64_t{1} << (shift - 1);
  const std::uint64_t rest = high & (2 * half - 1);
  Decimal result{static_cast<std::uint64_t>(whole), high >> shift};
  const bool isTie = rest == half && low == 0;
  if (isTie ? result.fraction % 2 == 1 : rest >= half) ++result.fraction;
  if (result.fraction == powersOfTen[static_cast<std::size_t>(places)]) return Decimal{result.whole + 1, 0};
  return result;
}

// Writes `value` with `places` digits behind the point; gives the end.
char* WriteDecimal(Decimal value, int places, char* begin, char* limit) {
  char* const point = std::to_chars(begin, limit, value.whole).ptr;
  *point = '.';
  for (char* digit = point + places; digit != point; --digit) {
    *digit = static_cast<char>('0' + value.fraction % 10);
    value.fraction /= 10;
  }
  return point + places + 1;
}

// The fixed-point form of a finite `magnitude`, at least one digit and `places` behind the point; a whole number may
// come without any.
std::string_view FixedPoint(double magnitude, int places, std::array<char, maxFixedLength>& buffer) {
  char* const begin = buffer.data();
  char* const limit = begin + buffer.size();
  constexpr double exactIntegers = 9007199254740992.0;  // 2^53: below it a double can have places behind the point
  char* end = nullptr;
  if (magnitude < exactIntegers && magnitude == std::floor(magnitude)) {
    end = std::to_chars(begin, limit, static_cast<std::uint64_t>(magnitude)).ptr;
  } else if (const auto decimal = magnitude < exactIntegers && places >= 1 && places <= shortPlaces
                                      ? RoundShort(magnitude, places)
                                      : std::nullopt) {
    end = WriteDecimal(*decimal, places, begin, limit);
  } else {
    end = std::to_chars(begin, limit, magnitude, std::chars_format::fixed, places).ptr;
  }
  return {begin, static_cast<std::size_t>(end - begin)};
}

// Whether digits of FixedPoint have the point, which then stands in one place only.
bool HasPoint(std::string_view digits, int places) {
  const std::size_t behind = static_cast<std::size_t>(places) + 1;
  return digits.size() > behind && digits[digits.size() - behind] == '.';
}

std::string_view WithoutTrailingZeros(std::string_view digits) {
  return digits.substr(0, digits.find_last_not_of('0') + 1);
}

// An infinity or not-a-number.
String Letters(double x) { return std::isnan(x) ? "nan" : "inf"; }

}  // namespace

String Format(double x, std::string_view pattern) {
  const Pattern parts = ReadPattern(pattern);
  const bool isNegative = parts.sign && x < 0;
  if (!std::isfinite(x)) return isNegative ? "-inf" : Letters(x);
  std::array<char, maxFixedLength> buffer;
  std::string_view digits = FixedPoint(std::fabs(x), parts.places, buffer);
  const bool hasPoint = HasPoint(digits, parts.places);
  if (hasPoint) digits = WithoutTrailingZeros(digits);
  String text;
  if (isNegative && digits.find_first_not_of("0.") != std::string_view::npos) text += '-';
  text += digits;
  if (parts.point && !hasPoint) text += '.';
  return text;
}

String Str(Int32 n) { return std::to_string(n); }

String Str(double x) {
  if (!std::isfinite(x)) return Letters(x);
  if (x == 0) return "0";
  std::array<char, 32> buffer;
  char* const begin = buffer.data();
  const auto end =
      std::to_chars(begin, begin + buffer.size(), x, std::chars_format::scientific, significantDigits - 1).ptr;
  const std::string_view scientific(begin, static_cast<std::size_t>(end - begin));
  const std::size_t mark = scientific.find('e');
  const int exponent = ToInt32(Val(scientific.substr(mark + 1)));  // after rounding, so that 9999999.6 is 1e+7
  if (exponent >= significantDigits || exponent < -4) {
    const char* const sign = exponent < 0 ? "e-" : "e+";
    return String(scientific.substr(0, mark)) + sign + Str(std::abs(exponent));
  }
  std::array<char, maxFixedLength> fixed;
  const String minus = x < 0 ? "-" : "";
  const int places = significantDigits - 1 - exponent;
  std::string_view digits = FixedPoint(std::fabs(x), places, fixed);
  if (HasPoint(digits, places)) digits = WithoutTrailingZeros(digits);
  return minus + String(digits.substr(0, digits.find_last_not_of('.') + 1));
}

String Hex(Int32 n) {
  std::array<char, 8> buffer;
  char* const begin = buffer.data();
  char* const end = std::to_chars(begin, begin + buffer.size(), static_cast<std::uint32_t>(n), 16).ptr;
  std::transform(begin, end, begin, [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
  return String(begin, end);
}

}  // namespace sumlet

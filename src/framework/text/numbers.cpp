// Parses and converts numbers, and generates random ones. number_text.cpp converts numbers to text.
//
// In most numbers the digits, read as an integer, and the power of ten to divide it by are both exact doubles, so one
// division rounds correctly (W. D. Clinger, How to Read Floating Point Numbers Accurately, 1990). std::from_chars
// parses the others, after their extent is known, because it would accept "inf" and refuse "+".

#include "framework/text/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <system_error>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

enum class Commas { End, Skip };

constexpr std::uint64_t largestExactInteger = std::uint64_t{1} << 53;
constexpr std::size_t digitsInUint64 = 19;  // any number of that many digits fits
constexpr std::array<double, digitsInUint64 + 1> exactPowersOfTen{
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19};

// Parses a signed integer of any length. May return an infinity.
double WholeNumber(std::string_view digits) {
  const bool negative = digits.front() == '-';
  double value = 0;
  for (const char c : digits) {
    if (IsDigit(c)) value = value * 10 + (c - '0');
  }
  return negative ? -value : value;
}

// For a number out of range: whether it is too small rather than too large. The position of its first nonzero digit and
// the exponent decide.
bool IsBelowOne(std::string_view number) {
  const std::size_t exponentAt = number.find_first_of("eE");
  const std::string_view mantissa = number.substr(0, exponentAt);
  const double point = static_cast<double>(std::min(mantissa.find('.'), mantissa.size()));
  const double first = static_cast<double>(std::min(mantissa.find_first_not_of("0."), mantissa.size()));
  const double exponent = exponentAt == std::string_view::npos ? 0 : WholeNumber(number.substr(exponentAt + 1));
  return point - first + exponent < 0;
}

// `number` consists of digits, at most one point, an optional complete exponent, and commas, which it ignores.
double Convert(std::string_view number) {
  if (number.find(',') != std::string_view::npos) {
    String withoutCommas(number);
    std::erase(withoutCommas, ',');
    return Convert(withoutCommas);
  }
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc::result_out_of_range) return value;
  return IsBelowOne(number) ? 0 : std::numeric_limits<double>::infinity();
}

// The digits, with at most one ".", at the front of a text.
struct Digits {
  std::size_t length = 0;  // in bytes, including the point and commas; 0 if there is no digit
  std::size_t count = 0;
  std::size_t places = 0;      // the number of decimal places
  std::uint64_t mantissa = 0;  // all digits as one integer; undefined if there are too many
};

Digits FindDigits(std::string_view text, Commas commas) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  const char* at = begin;
  Digits digits;
  const auto readRun = [&] {
    std::uint64_t mantissa = digits.mantissa;
    std::size_t count = digits.count;
    for (; at != end; ++at) {
      if (IsDigit(*at)) {
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(*at - '0');
        ++count;
      } else if (*at != ',' || commas == Commas::End || count == 0) {
        break;
      }
    }
    digits.mantissa = mantissa;
    digits.count = count;
  };
  readRun();
  if (at != end && *at == '.') {
    const std::size_t whole = digits.count;
    ++at;
    readRun();
    digits.places = digits.count - whole;
  }
  if (digits.count > 0) digits.length = static_cast<std::size_t>(at - begin);
  return digits;
}

// `text` begins with the digits.
double ValueOf(const Digits& digits, std::string_view text) {
  if (digits.count > digitsInUint64 || digits.mantissa > largestExactInteger)
    return Convert(text.substr(0, digits.length));
  return static_cast<double>(static_cast<std::int64_t>(digits.mantissa)) / exactPowersOfTen[digits.places];
}

// The length of the exponent at the front of `text`; 0 if it is incomplete: "2e" and "2e+" are the number 2.
std::size_t ExponentLength(std::string_view text) {
  if (text.empty() || FoldAscii(text.front()) != 'e') return 0;
  const std::size_t digits = text.size() > 1 && (text[1] == '+' || text[1] == '-') ? 2 : 1;
  std::size_t end = digits;
  while (end < text.size() && IsDigit(text[end])) ++end;
  return end > digits ? end : 0;
}

double ReadNumber(std::string_view text, Commas commas) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  const bool negative = !text.empty() && text.front() == '-';
  if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
  const Digits digits = FindDigits(text, commas);
  if (digits.count == 0) return 0;
  const std::size_t exponentLength = ExponentLength(text.substr(digits.length));
  const double magnitude =
      exponentLength > 0 ? Convert(text.substr(0, digits.length + exponentLength)) : ValueOf(digits, text);
  return negative ? -magnitude : magnitude;
}

double HexadecimalValue(std::string_view digits) {
  double value = 0;
  for (const char c : digits) {
    const char folded = FoldAscii(c);
    const bool isLetter = folded >= 'a' && folded <= 'f';
    if (!IsDigit(c) && !isLetter) break;
    value = value * 16 + (isLetter ? folded - 'a' + 10 : c - '0');
  }
  return value;
}

std::mt19937_64 SeededGenerator() {
  std::random_device device;
  std::seed_seq seed{device(), device(), device(), device()};
  return std::mt19937_64(seed);
}

}  // namespace

std::optional<double> TakeNumber(std::string_view& text) {
  const Digits digits = FindDigits(text, Commas::End);
  if (digits.count == 0) return {};
  const double value = ValueOf(digits, text);
  text.remove_prefix(digits.length);
  return value;
}

double Val(std::string_view s) { return ReadNumber(s, Commas::End); }

double CDbl(std::string_view s) {
  if (s.size() >= 2 && s[0] == '&' && FoldAscii(s[1]) == 'h') return HexadecimalValue(s.substr(2));
  return ReadNumber(s, Commas::Skip);
}

Int32 ToInt32(double x) {
  using Limits = std::numeric_limits<Int32>;
  if (std::isnan(x)) return 0;
  if (x >= static_cast<double>(Limits::max())) return Limits::max();
  if (x <= static_cast<double>(Limits::min())) return Limits::min();
  return static_cast<Int32>(x);
}

double Rnd() {
  thread_local std::mt19937_64 generator = SeededGenerator();
  constexpr double unit = 1.0 / (std::uint64_t{1} << 53);  // a double's significand has 53 bits
  return static_cast<double>(generator() >> 11) * unit;
}

Color RGB(Int32 red, Int32 green, Int32 blue) {
  const auto component = [](Int32 n) { return static_cast<std::uint8_t>(std::clamp(n, 0, 255)); };
  return {component(red), component(green), component(blue)};
}

}  // namespace sumlet

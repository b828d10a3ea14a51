// Numbers from text, conversions and random numbers. number_text.cpp writes numbers.
//
// A number is scanned here. Most are short enough that their digits and the power of ten that divides them are both
// exact doubles, so one division rounds correctly (W. D. Clinger, How to Read Floating Point Numbers Accurately, 1990).
// The exact extent of any other goes to std::from_chars, which on its own would also take "inf" and would refuse a "+".

#include "framework/text/numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

enum class Commas { End, Skip };

constexpr std::uint64_t largestExactInteger = std::uint64_t{1} << 53;
constexpr std::array<double, 23> exactPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::size_t digitsInUint64 = 19;  // any number of that many digits fits

// Eight characters at once as one number, the first in its lowest byte (D. Lemire, Quickly parsing eight digits, 2018).
constexpr std::size_t blockSize = 8;

constexpr bool IsEightDigits(std::uint64_t block) {
  constexpr std::uint64_t highHalves = 0xF0F0F0F0F0F0F0F0;
  constexpr std::uint64_t threes = 0x3333333333333333;
  return ((block & highHalves) | (((block + 0x0606060606060606) & highHalves) >> 4)) == threes;
}

// Joins neighbours to numbers of two digits, these to four, and these to eight.
constexpr std::uint64_t EightDigits(std::uint64_t block) {
  constexpr std::uint64_t everyFourth = 0x000000FF000000FF;
  block -= 0x3030303030303030;
  block = block * 10 + (block >> 8);
  const std::uint64_t first = (block & everyFourth) * (100 + (std::uint64_t{1000000} << 32));
  const std::uint64_t second = (block >> 16 & everyFourth) * (1 + (std::uint64_t{10000} << 32));
  return (first + second) >> 32;
}

// Reads one number from the front of a text, piece by piece.
class NumberScanner {
 public:
  NumberScanner(std::string_view s, Commas commas) : s_(s), commas_(commas) {}

  double Read() {
    while (Peek() == ' ') ++at_;
    const bool negative = Peek() == '-';
    if (negative || Peek() == '+') ++at_;
    begin_ = at_;
    ReadDigits();
    if (Peek() == '.') {
      ++at_;
      const std::size_t wholeDigits = digitCount_;
      ReadDigits();
      places_ = digitCount_ - wholeDigits;
    }
    if (digitCount_ == 0) return 0;
    const bool hasExponent = ReadExponent();
    const double magnitude = !hasExponent && IsExact() ? ExactQuotient() : Convert();
    return negative ? -magnitude : magnitude;
  }

 private:
  [[nodiscard]] char Peek(std::size_t ahead = 0) const { return at_ + ahead < s_.size() ? s_[at_ + ahead] : '\0'; }

  void ReadDigits() {
    const std::size_t begin = at_;
    std::size_t commaCount = 0;
    std::size_t at = AfterBlocks();
    for (; at < s_.size(); ++at) {
      const char c = s_[at];
      if (IsDigit(c)) {
        mantissa_ = mantissa_ * 10 + static_cast<std::uint64_t>(c - '0');
      } else if (c == ',' && commas_ == Commas::Skip && digitCount_ + (at - begin) > commaCount) {
        ++commaCount;
      } else {
        break;
      }
    }
    at_ = at;
    digitCount_ += at - begin - commaCount;
  }

  // Takes the digits as long as there are eight together; gives the place behind them.
  std::size_t AfterBlocks() {
    std::size_t at = at_;
    if constexpr (std::endian::native != std::endian::little) return at;
    for (std::uint64_t block = 0; s_.size() - at >= blockSize; at += blockSize) {
      std::memcpy(&block, s_.data() + at, blockSize);
      if (!IsEightDigits(block)) break;
      mantissa_ = mantissa_ * 100000000 + EightDigits(block);
    }
    return at;
  }

  [[nodiscard]] bool IsExact() const {
    return digitCount_ <= digitsInUint64 && mantissa_ <= largestExactInteger && places_ < exactPowersOfTen.size();
  }

  [[nodiscard]] double ExactQuotient() const { return static_cast<double>(mantissa_) / exactPowersOfTen[places_]; }

  // Taken only when it is whole: behind "2e" and "2e+" the number is 2.
  bool ReadExponent() {
    if (FoldAscii(Peek()) != 'e') return false;
    std::size_t ahead = 1;
    if (Peek(1) == '+' || Peek(1) == '-') ++ahead;
    if (!IsDigit(Peek(ahead))) return false;
    while (IsDigit(Peek(ahead))) ++ahead;
    at_ += ahead;
    return true;
  }

  [[nodiscard]] double Convert() const {
    const std::string_view extent = s_.substr(begin_, at_ - begin_);
    if (extent.find(',') == std::string_view::npos) return ConvertDigits(extent);
    return ConvertDigits(ReplaceAll(extent, ",", ""));
  }

  [[nodiscard]] static double ConvertDigits(std::string_view digits) {
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc::result_out_of_range) return value;
    return IsBelowOne(digits) ? 0 : std::numeric_limits<double>::infinity();
  }

  // For a number out of range only: whether it is too small and not too large. Its size is told by the place of its
  // first digit other than 0, moved by the exponent.
  [[nodiscard]] static bool IsBelowOne(std::string_view digits) {
    const std::size_t exponentAt = digits.find_first_of("eE");
    const std::string_view mantissa = digits.substr(0, exponentAt);
    const double point = static_cast<double>(std::min(mantissa.find('.'), mantissa.size()));
    const double first = static_cast<double>(std::min(mantissa.find_first_not_of("0."), mantissa.size()));
    const double exponent = exponentAt == std::string_view::npos ? 0 : WholeNumber(digits.substr(exponentAt + 1));
    return point - first + exponent < 0;
  }

  // A signed whole number of any length, close enough to compare it with a length of text.
  [[nodiscard]] static double WholeNumber(std::string_view digits) {
    const bool negative = digits.front() == '-';
    double value = 0;
    for (const char c : digits) {
      if (IsDigit(c)) value = value * 10 + (c - '0');
    }
    return negative ? -value : value;
  }

  std::string_view s_;
  Commas commas_;
  std::size_t at_ = 0;
  std::size_t begin_ = 0;
  std::uint64_t mantissa_ = 0;  // all digits read; meaningless when there are too many
  std::size_t digitCount_ = 0;
  std::size_t places_ = 0;
};

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

double Val(std::string_view s) { return NumberScanner(s, Commas::End).Read(); }

double CDbl(std::string_view s) {
  if (s.size() >= 2 && s[0] == '&' && FoldAscii(s[1]) == 'h') return HexadecimalValue(s.substr(2));
  return NumberScanner(s, Commas::Skip).Read();
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
  constexpr double unit = 1.0 / (std::uint64_t{1} << 53);  // the 53 bits of a double's fraction
  return static_cast<double>(generator() >> 11) * unit;
}

Color RGB(Int32 red, Int32 green, Int32 blue) {
  const auto component = [](Int32 n) { return static_cast<std::uint8_t>(std::clamp(n, 0, 255)); };
  return {component(red), component(green), component(blue)};
}

}  // namespace sumlet

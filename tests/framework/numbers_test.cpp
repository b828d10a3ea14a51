// Reading and writing numbers. Every result of a calculation passes through these functions.
#include "framework/text/numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <tuple>

namespace sumlet {
namespace {

using namespace std::string_view_literals;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Numbers, ReadFromText) {
  // clang-format off
  const std::tuple<std::string_view, double, double> rows[] = {
      {"", 0, 0}, {" 1.5e2x", 150, 150}, {"+5", 5, 5}, {"  -2.5.1", -2.5, -2.5}, {"5.", 5, 5}, {"-.5", -0.5, -0.5},
      {"3.14159265358979323846264338327950", 3.141592653589793, 3.141592653589793},
      // signs and points without a digit are no number; an exponent counts when it has a digit
      {"-.", 0, 0}, {".e5", 0, 0}, {"--5", 0, 0}, {"- 5", 0, 0}, {"\u22125", 0, 0}, {"5\0007"sv, 5, 5},
      {"1e+", 1, 1}, {"1E3", 1000, 1000}, {"25e-1", 2.5, 2.5}, {"5.e1", 50, 50}, {"1e2.5", 100, 100},
      // beyond the range of a double
      {"-1e999", -infinity, -infinity}, {"1e99999999999999999999", infinity, infinity}, {"1e-999", 0, 0},
      {"1e-99999999999999999999", 0, 0}, {"0e999", 0, 0}, {"4.9e-324", 4.9e-324, 4.9e-324},
      // words that some readers take for numbers
      {"-infinity", 0, 0}, {"nan", 0, 0}, {"0x10", 0, 0},
      // group separators, hexadecimal
      {"1,000,000.25", 1, 1000000.25}, {"-1,2,3", -1, -123}, {",5", 0, 0}, {"1.5,0", 1.5, 1.5}, {"&Hff8000", 0, 0xFF8000},
      {"&h00FFzz", 0, 255}, {"&hg", 0, 0}, {"&", 0, 0}, {"&h80000000", 0, 2147483648.0},
  };
  // clang-format on
  for (const auto& [text, val, cdbl] : rows) {
    EXPECT_EQ(Val(text), val) << text;
    EXPECT_EQ(CDbl(text), cdbl) << text;
  }
  EXPECT_EQ(Val(String(400, '9')), infinity);
  EXPECT_EQ(Val(String(100000, '0') + "7." + String(100000, '0')), 7);
}

TEST(Numbers, StrHasSevenDigits) {
  // clang-format off
  const std::pair<double, const char*> rows[] = {
      {3.0, "3"}, {0.0, "0"}, {-2.25, "-2.25"}, {2.0 / 3.0, "0.6666667"}, {100000, "100000"},
      // the exponent form, and rounding across its border
      {1234567, "1234567"}, {9999999.6, "1.000000e+7"}, {-1e10, "-1.000000e+10"}, {0.000099999999, "0.0001"},
      {0.00009999999, "9.999999e-5"}, {1e-300, "1.000000e-300"}, {-infinity, "inf"}, {-notANumber, "nan"},
  };
  // clang-format on
  for (const auto& [value, text] : rows) EXPECT_EQ(Str(value), text);
}

TEST(Numbers, Format) {
  const char* const ten = "-#.##########";
  const char* const twentyFive = "-#.#########################";
  // clang-format off
  const std::tuple<double, const char*, const char*> rows[] = {
      {-0.5, ten, "-0.5"}, {-0.5, "#.#", "0.5"}, {3, ten, "3."}, {2.0 / 3.0, ten, "0.6666666667"}, {-7, "-#", "-7"},
      {1180591620717411303424.0, ten, "1180591620717411303424."}, {0.1, twentyFive, "0.1000000000000000055511151"},
      // a carry through all digits; what rounds to zero has no sign
      {0.99999999999, ten, "1."}, {-9.6, "-#", "-10"}, {-0.0, ten, "0."}, {-0.4, "-#", "0"}, {-5e-324, twentyFive, "0."},
      // the exact value decides: 0.15 lies below the half, 0.45 above; a true half goes to the even digit
      {0.15, "#.#", "0.1"}, {0.45, "#.#", "0.5"}, {0.25, "#.#", "0.2"}, {0.75, "#.#", "0.8"}, {2.5, "#", "2"},
      {-infinity, ten, "-inf"}, {-infinity, "#", "inf"}, {-notANumber, ten, "nan"},
  };
  // clang-format on
  for (const auto& [value, pattern, text] : rows) EXPECT_EQ(Format(value, pattern), text) << pattern;
  const double largest = std::numeric_limits<double>::max();
  EXPECT_EQ(Val(Format(-largest, twentyFive)), -largest);
}

// Short numbers have a fast path, both in reading and in writing. It must give the same digits.
TEST(Numbers, AgreeWithTheCLibrary) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 20'000; ++i) {
    const auto bits = static_cast<double>(random() >> (11 + random() % 53));
    const double value = std::ldexp(bits, -static_cast<int>(random() % 70)) / (i % 3 == 0 ? 1e5 : 1);
    const int places = 1 + static_cast<int>(random() % 13);
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.*f", places, value);
    ASSERT_EQ(Val(buffer), std::strtod(buffer, nullptr)) << buffer;
    String expected = buffer;
    expected.erase(expected.find_last_not_of('0') + 1);
    ASSERT_EQ(Format(value, "#." + String(static_cast<std::size_t>(places), '#')), expected) << places;

    std::snprintf(buffer, sizeof buffer, "%.7g", value);
    const bool hasExponent = std::strchr(buffer, 'e') != nullptr;
    ASSERT_TRUE(hasExponent || Str(value) == buffer) << buffer << " " << Str(value);
    std::snprintf(buffer, sizeof buffer, "%.17g", value);
    ASSERT_EQ(Val(buffer), value) << buffer;
    ASSERT_EQ(CDbl(buffer), value) << buffer;
  }
}

// Values on or next to a tie at the tenth decimal place: 1 / 2048 is 4882812.5 units of it.
TEST(Numbers, RoundingToTenPlacesEqualsWritingAndReading) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 20'000; ++i) {
    const auto bits = static_cast<double>(random() >> (11 + random() % 53));
    double value = i % 2 == 0 ? bits / 2048 : (bits + 0.5) / 1e10;
    for (std::uint64_t steps = random() % 3; steps > 0; --steps) value = std::nextafter(value, 0);
    if (random() % 2 == 0) value = -value;
    std::array<char, 400> text;
    char* const end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 10).ptr;
    double expected = 0;
    std::from_chars(text.data(), end, expected);
    const double rounded = RoundToTenPlaces(value);
    ASSERT_EQ(rounded, expected) << std::hexfloat << value;
    ASSERT_FALSE(rounded == 0 && std::signbit(rounded)) << std::hexfloat << value;
    ASSERT_EQ(CDbl(Format(value, "-#.##########")), expected) << std::hexfloat << value;
  }
  EXPECT_EQ(RoundToTenPlaces(-infinity), -infinity);
}

TEST(Numbers, ConversionsKeepToTheRange) {
  // clang-format off
  const std::pair<double, Int32> rows[] = {
      {2.9, 2}, {-2.9, -2}, {2147483648.0, 2147483647}, {-2147483649.0, -2147483647 - 1}, {infinity, 2147483647},
      {-infinity, -2147483647 - 1}, {notANumber, 0},
  };
  // clang-format on
  for (const auto& [value, cut] : rows) EXPECT_EQ(ToInt32(value), cut) << value;
  EXPECT_EQ(Round(-2.5), -3);
  EXPECT_EQ(Round(0.49999999999999994), 0);
  EXPECT_EQ(Round(4503599627370497.0), 4503599627370497.0);
  EXPECT_EQ(Hex(48879), "BEEF");
  EXPECT_EQ(Hex(-1), "FFFFFFFF");
  EXPECT_EQ(RGB(-1, 128, 256), (Color{0, 128, 255}));
}

}  // namespace
}  // namespace sumlet

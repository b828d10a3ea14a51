// Reading and writing numbers. Every result of a calculation passes through these functions.
#include "framework/text/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ios>
#include <limits>
#include <random>
#include <tuple>

#include "framework/text/mathematics.h"

namespace sumlet {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Numbers, ReadFromText) {
  const std::tuple<const char*, double, double> rows[] = {
      // clang-format off
      {" 1.5e2x", 150, 150},
      {"+5", 5, 5},
      {"  -2.5.1", -2.5, -2.5},
      {"3.14159265358979323846264338327950", 3.141592653589793, 3.141592653589793},
      // signs and points without a digit are no number; an exponent counts when it has a digit
      {"-.", 0, 0},
      {"--5", 0, 0},
      {"1e+", 1, 1},
      {"25e-1", 2.5, 2.5},
      // beyond the range of a double
      {"-1e999", -infinity, -infinity},
      {"1e-99999999999999999999", 0, 0},
      // words that some readers take for numbers
      {"-infinity", 0, 0},
      // group separators, hexadecimal
      {"1,000,000.25", 1, 1000000.25},
      {"1,.5,0e1,2", 1, 15},
      {",5", 0, 0},
      {"&Hff8000", 0, 0xFF8000},
      {"&h80000000", 0, 2147483648.0},
      // clang-format on
  };
  for (const auto& [text, val, cdbl] : rows) {
    EXPECT_EQ(Val(text), val) << text;
    EXPECT_EQ(CDbl(text), cdbl) << text;
  }
  EXPECT_EQ(Val(String(400, '9')), infinity);
}

TEST(Numbers, StrHasSevenDigits) {
  // Numbers next to the exponent form.
  EXPECT_EQ(Str(1234567), "1234567");
  EXPECT_EQ(Str(9999999.6), "1.000000e+7");
  EXPECT_EQ(Str(0.000099999999), "0.0001");
  EXPECT_EQ(Str(0.00009999999), "9.999999e-5");
  EXPECT_EQ(Str(-infinity), "inf");
  EXPECT_EQ(Str(-notANumber), "nan");
}

TEST(Numbers, Format) {
  const char* const ten = "-#.##########";
  const char* const twentyFive = "-#.#########################";
  const std::tuple<double, const char*, const char*> rows[] = {
      // clang-format off
      {1180591620717411303424.0, ten, "1180591620717411303424."},
      {0.1, twentyFive, "0.1000000000000000055511151"},
      // a carry through all digits; what rounds to zero has no sign
      {0.99999999999, ten, "1."},
      {-0.4, "-#", "0"},
      {-5e-324, twentyFive, "0."},
      // the exact value decides: 0.15 lies below the half, 0.45 above; a true half goes to the even digit
      {0.15, "#.#", "0.1"},
      {0.25, "#.#", "0.2"},
      {0.75, "#.#", "0.8"},
      {-infinity, ten, "-inf"},
      {-notANumber, ten, "nan"},
      // clang-format on
  };
  for (const auto& [value, pattern, text] : rows) EXPECT_EQ(Format(value, pattern), text) << pattern;
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
    const double tie = bits / 2048;  // at the tenth decimal place, if `bits` is odd
    const double anyExponent = std::ldexp(bits, i % 2000 - 1050);
    for (const double x : {tie, std::nextafter(tie, 0), std::nextafter(tie, infinity), anyExponent}) {
      std::snprintf(buffer, sizeof buffer, "%.10f", x);
      ASSERT_EQ(RoundToTenPlaces(-x), -std::strtod(buffer, nullptr)) << std::hexfloat << x;
    }
  }
  EXPECT_FALSE(std::signbit(RoundToTenPlaces(-1e-11)));
}

TEST(Numbers, ConversionsKeepToTheRange) {
  EXPECT_EQ(ToInt32(-2.9), -2);
  EXPECT_EQ(ToInt32(2147483648.0), 2147483647);
  EXPECT_EQ(ToInt32(-infinity), -2147483647 - 1);
  EXPECT_EQ(ToInt32(notANumber), 0);
  EXPECT_EQ(Round(-2.5), -3);
  EXPECT_EQ(Round(0.49999999999999994), 0);
  EXPECT_EQ(Round(4503599627370497.0), 4503599627370497.0);
  EXPECT_EQ(Hex(-1), "FFFFFFFF");
  EXPECT_EQ(RGB(-1, 128, 256), (Color{0, 128, 255}));
}

}  // namespace
}  // namespace sumlet

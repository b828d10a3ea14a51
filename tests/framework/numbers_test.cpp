// The number services by tables. Every result of the calculation passes through them, so each digit counts.
#include "framework/text/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

namespace sumlet {
namespace {

using namespace std::string_view_literals;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Numbers, ReadFromText) {
  // clang-format off
  const struct {
    std::string_view text;
    double val;
    double cdbl;
  } rows[] = {
      {"", 0, 0}, {"12abc", 12, 12}, {"abc", 0, 0}, {" 1.5e2", 150, 150}, {"+5", 5, 5}, {"-5", -5, -5},
      {"  -2.5.1", -2.5, -2.5}, {"5.", 5, 5}, {".5", 0.5, 0.5}, {"-.5x", -0.5, -0.5}, {"007", 7, 7},
      {"0.1", 0.1, 0.1}, {"1 2", 1, 1}, {"3.14159265358979323846264338327950", 3.141592653589793, 3.141592653589793},
      {"12345678901234567890", 12345678901234567890.0, 12345678901234567890.0},
      // signs and points without a digit are no number
      {".", 0, 0}, {"-", 0, 0}, {"+", 0, 0}, {"-.", 0, 0}, {".e5", 0, 0}, {"--5", 0, 0}, {"+-5", 0, 0}, {"-+5", 0, 0},
      {"- 5", 0, 0}, {"\u22125", 0, 0}, {"\xFF", 0, 0}, {"5\0007"sv, 5, 5},
      // an exponent counts when it has a digit
      {"1e", 1, 1}, {"1e+", 1, 1}, {"1e-x", 1, 1}, {"1E3", 1000, 1000}, {"25e-1", 2.5, 2.5}, {"5.e1", 50, 50},
      {"1e2.5", 100, 100},
      // beyond the range of a double
      {"1e999", infinity, infinity}, {"-1e999", -infinity, -infinity}, {"1e99999999999999999999", infinity, infinity},
      {"1e-999", 0, 0}, {"1e-99999999999999999999", 0, 0}, {"0e999", 0, 0}, {"4.9e-324", 4.9e-324, 4.9e-324},
      // words that some readers take for numbers
      {"inf", 0, 0}, {"-infinity", 0, 0}, {"nan", 0, 0}, {"0x10", 0, 0}, {"0b1", 0, 0},
      // group separators
      {"1,000", 1, 1000}, {"1,000,000.25", 1, 1000000.25}, {"-1,2,3", -1, -123}, {"1,", 1, 1}, {",5", 0, 0},
      {"1.5,0", 1.5, 1.5},
      // hexadecimal
      {"&hFF", 0, 255}, {"&Hff8000", 0, 0xFF8000}, {"&h0000FFzz", 0, 255}, {"&h", 0, 0}, {"&hg", 0, 0}, {"&", 0, 0},
      {"&h80000000", 0, 2147483648.0},
  };
  // clang-format on
  for (const auto& row : rows) {
    EXPECT_EQ(Val(row.text), row.val) << row.text;
    EXPECT_EQ(CDbl(row.text), row.cdbl) << row.text;
  }
  EXPECT_EQ(Val(String(400, '9')), infinity);
  EXPECT_EQ(Val("0." + String(400, '0') + "1"), 0);
  EXPECT_EQ(Val(String(100000, '0') + "7." + String(100000, '0')), 7);
}

TEST(Numbers, StrHasSevenDigits) {
  // clang-format off
  const struct {
    double value;
    const char* text;
  } rows[] = {
      {1.5, "1.5"}, {3.0, "3"}, {0.0, "0"}, {-2.25, "-2.25"}, {1.0 / 3.0, "0.3333333"}, {2.0 / 3.0, "0.6666667"},
      {1234.5678, "1234.568"}, {100000, "100000"}, {0.1 + 0.2, "0.3"},
      // the exponent form, and rounding across its border
      {1234567, "1234567"}, {9999999.4, "9999999"}, {9999999.6, "1.000000e+7"}, {12345678, "1.234568e+7"},
      {1234567890, "1.234568e+9"}, {-1e10, "-1.000000e+10"}, {1e100, "1.000000e+100"}, {0.0001, "0.0001"},
      {0.000099999999, "0.0001"}, {0.00009999999, "9.999999e-5"}, {0.00012345678, "0.0001234568"},
      {1e-300, "1.000000e-300"}, {infinity, "inf"}, {-infinity, "inf"}, {notANumber, "nan"}, {-notANumber, "nan"},
  };
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(Str(row.value), row.text);
  EXPECT_EQ(Str(Int32{0}), "0");
  EXPECT_EQ(Str(std::numeric_limits<Int32>::min()), "-2147483648");
  EXPECT_EQ(Str(std::numeric_limits<Int32>::max()), "2147483647");
}

TEST(Numbers, Format) {
  const char* const signed10 = "-#.##########";
  const char* const magnitude10 = "#.##########";
  const char* const signed25 = "-#.#########################";
  // clang-format off
  const struct {
    double value;
    const char* pattern;
    const char* text;
  } rows[] = {
      {0, signed10, "0."}, {0.5, signed10, "0.5"}, {-0.5, signed10, "-0.5"}, {-0.5, magnitude10, "0.5"},
      {3, signed10, "3."}, {2.25, magnitude10, "2.25"}, {1.0 / 3.0, signed10, "0.3333333333"},
      {2.0 / 3.0, signed10, "0.6666666667"}, {1e15, signed10, "1000000000000000."},
      {1180591620717411303424.0, signed10, "1180591620717411303424."},
      {123456789.123456789, signed10, "123456789.123456791"}, {100.10, signed10, "100.1"}, {1234.5, "#.#", "1234.5"},
      {-7, "-#", "-7"}, {-7, "#", "7"}, {7, "-#", "7"}, {0, "#", "0"}, {0.1, signed25, "0.1000000000000000055511151"},
      {-1.5, signed25, "-1.5"},
      // a carry through all digits
      {0.99999999999, signed10, "1."}, {999.96, "#.#", "1000."}, {-9.6, "-#", "-10"},
      // what rounds to zero has no sign
      {-0.0, signed10, "0."}, {-0.00000000001, signed10, "0."}, {-0.4, "-#", "0"}, {5e-324, signed25, "0."},
      // the exact value decides: 0.15 lies below the half, 0.45 above; a true half goes to the even digit
      {0.15, "#.#", "0.1"}, {0.45, "#.#", "0.5"}, {2.675, "#.##", "2.67"}, {0.25, "#.#", "0.2"}, {0.75, "#.#", "0.8"},
      {0.5, "#", "0"}, {1.5, "#", "2"}, {2.5, "#", "2"},
      // no number
      {infinity, signed10, "inf"}, {-infinity, signed10, "-inf"}, {-infinity, magnitude10, "inf"},
      {notANumber, signed10, "nan"}, {-notANumber, signed10, "nan"}, {infinity, "#", "inf"},
  };
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(Format(row.value, row.pattern), row.text) << row.pattern;

  const double largest = std::numeric_limits<double>::max();
  const String digits = Format(-largest, signed25);
  EXPECT_EQ(digits.size(), 311U) << digits;  // the sign, 309 digits, the point
  EXPECT_EQ(digits.substr(0, 18), "-17976931348623157");
  EXPECT_EQ(Val(digits), -largest);
  for (const double value : {0.1, 1.0 / 3.0, 12345.678, 1e-5, 98765432109.87654}) {
    EXPECT_EQ(Val(Format(value, signed25)), value) << value;
  }
}

// Short numbers take a way of their own, both in reading and in writing. It must give the digits of the general one.
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

TEST(Numbers, ToInt32CutsAndKeepsToTheRange) {
  // clang-format off
  const struct {
    double value;
    Int32 cut;
  } rows[] = {
      {2.9, 2}, {-2.9, -2}, {-0.9, 0}, {2147483647.9, 2147483647}, {2147483648.0, 2147483647},
      {-2147483648.9, -2147483647 - 1}, {-2147483649.0, -2147483647 - 1}, {1e300, 2147483647}, {infinity, 2147483647},
      {-infinity, -2147483647 - 1}, {notANumber, 0},
  };
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(ToInt32(row.value), row.cut) << row.value;
}

TEST(Numbers, Mathematics) {
  EXPECT_EQ(Round(2.5), 3);
  EXPECT_EQ(Round(-2.5), -3);
  EXPECT_EQ(Round(0.49999999999999994), 0);
  EXPECT_EQ(Round(4503599627370497.0), 4503599627370497.0);
  EXPECT_EQ(Sign(-0.1), -1);
  EXPECT_EQ(Sign(0), 0);
  EXPECT_EQ(Sign(infinity), 1);
  EXPECT_EQ(Max(-1, -2), -1);
  EXPECT_EQ(Min(-1, -2), -2);
  EXPECT_EQ(Hex(0), "0");
  EXPECT_EQ(Hex(48879), "BEEF");
  EXPECT_EQ(Hex(-1), "FFFFFFFF");
  EXPECT_EQ(RGB(-1, 128, 256), (Color{0, 128, 255}));
}

TEST(Numbers, RndIsNewAtEveryCall) {
  const double first = Rnd();
  bool differs = false;
  for (int i = 0; i < 1000; ++i) {
    const double value = Rnd();
    ASSERT_TRUE(value >= 0 && value < 1) << value;
    differs = differs || value != first;
  }
  EXPECT_TRUE(differs);
}

}  // namespace
}  // namespace sumlet

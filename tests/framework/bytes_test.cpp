// Pieces of bytes, percent-encoding, and values of several types.
#include "framework/text/bytes.h"

#include <gtest/gtest.h>

#include <string_view>
#include <tuple>
#include <utility>

#include "framework/text/variant.h"

namespace sumlet {
namespace {

TEST(Bytes, PiecesAndSearches) {
  const std::tuple<const char*, Int32, Int32, const char*> pieces[] = {
      {"aé", 2, 1, "\xC3"}, {"abc", 2, 9, "bc"}, {"abc", 4, 1, ""}, {"abc", 0, 1, ""}, {"abc", 2, -1, ""},
  };
  for (const auto& [text, start, length, piece] : pieces) EXPECT_EQ(MidB(text, start, length), piece) << start;
  EXPECT_EQ(MidB("abc", 3), "c");
  EXPECT_EQ(InStrB(1, "aBc", "b"), 0);
  EXPECT_EQ(InStrB(3, "ababé€", "ab"), 3);
  EXPECT_EQ(InStrB(9, "ab", "a"), 0);
}

TEST(Bytes, UrlComponents) {
  String every;
  for (int byte = 0; byte < 256; ++byte) every += static_cast<char>(byte);
  EXPECT_EQ(DecodeURLComponent(EncodeURLComponent(every)), every);
  EXPECT_EQ(EncodeURLComponent("Az09-._~ é\n\t+%<"), "Az09-._~%20%C3%A9%0A%09%2B%25%3C");
  EXPECT_EQ(DecodeURLComponent(std::string_view("%41").substr(0, 2)), "%4");
  const std::pair<const char*, const char*> leniencies[] = {
      {"%c3%Af", "ï"}, {"a+b", "a+b"}, {"50%", "50%"}, {"%4", "%4"}, {"%G1%1G%41", "%G1%1GA"}, {"%%41", "%A"},
  };
  for (const auto& [encoded, text] : leniencies) EXPECT_EQ(DecodeURLComponent(encoded), text) << encoded;
}

TEST(Variant, Conversions) {
  // clang-format off
  const struct {
    Variant value;
    const char* text;
    Int32 integer;
    double number;
    bool boolean, isNumeric;
  } rows[] = {
      {{}, "", 0, 0, false, false}, {"13", "13", 13, 13, true, true}, {" -2.9e0 ", " -2.9e0 ", -2, -2.9, true, true},
      {"0.0", "0.0", 0, 0, false, true}, {"TRUE", "TRUE", 0, 0, true, false}, {"2e", "2e", 2, 2, false, false},
      {"5 apples", "5 apples", 5, 5, false, false}, {"\t5", "\t5", 0, 0, false, false},
      {"99999999999", "99999999999", 2147483647, 99999999999.0, true, true},
      {BooleanToVariant(true), "True", 1, 1, true, false}, {Int32ToVariant(-7), "-7", -7, -7, true, true},
      {DoubleToVariant(-2.9), "-2.9", -2, -2.9, true, true},
      {ColorToVariant({0, 10, 255}), "&h000AFF", 0xAFF, 0xAFF, true, false},
  };
  // clang-format on
  for (const auto& [value, text, integer, number, boolean, isNumeric] : rows) {
    EXPECT_EQ(VariantToString(value), text);
    EXPECT_EQ(VariantToInt32(value), integer) << text;
    EXPECT_EQ(VariantToDouble(value), number) << text;
    EXPECT_EQ(VariantToBoolean(value), boolean) << text;
    EXPECT_EQ(VariantToString(VariantNot(value)), boolean ? "False" : "True") << text;
    EXPECT_EQ(IsNumeric(value), isNumeric) << text;
  }
}

// A dictionary compares a few keys one by one, and keeps an index of many.
TEST(Variant, DictionaryKeys) {
  for (const Int32 others : {0, 12}) {
    Dictionary map;
    for (Int32 i = 0; i < others; ++i) map.SetValue(Int32ToVariant(100 + i), Int32ToVariant(i));
    map.SetValue("Pi", "a");
    map.SetValue("pI", "b");
    map.SetValue(DoubleToVariant(0.0), "c");
    EXPECT_EQ(map.Count(), 2 + others);
    EXPECT_EQ(VariantToString(map.Value("PI")) + VariantToString(map.Value(DoubleToVariant(-0.0))), "bc");
    EXPECT_FALSE(map.HasKey("0") || map.HasKey(Int32ToVariant(0)));
    map.Remove(others > 0 ? Int32ToVariant(100) : "absent");
    map.Remove("PI");
    EXPECT_EQ(VariantToString(map.Lookup("pi", "none")), "none");
    EXPECT_THROW((void)map.Value("pi"), Fault);
    EXPECT_EQ(VariantToString(map.Value(DoubleToVariant(0.0))), "c");
    map.Clear();
    EXPECT_FALSE(map.HasKey(Int32ToVariant(101)));
  }
}

}  // namespace
}  // namespace sumlet

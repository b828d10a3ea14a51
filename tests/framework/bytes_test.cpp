// Bytes, percent-encoding, and values that remember their type.
#include "framework/text/bytes.h"

#include <gtest/gtest.h>

#include "framework/text/variant.h"

namespace sumlet {
namespace {

TEST(Bytes, CountAndCompareBytes) {
  EXPECT_EQ(MidB("aé", 2, 1) + MidB("abc", 3) + MidB("abc", 2, 9),
            "\xC3"
            "cbc");
  EXPECT_EQ(MidB("abc", 4) + MidB("abc", 0) + MidB("abc", 2, -1), "");
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
    bool boolean;
    bool isNumeric;
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
  for (const auto& row : rows) {
    EXPECT_EQ(VariantToString(row.value), row.text);
    EXPECT_EQ(VariantToInt32(row.value), row.integer) << row.text;
    EXPECT_EQ(VariantToDouble(row.value), row.number) << row.text;
    EXPECT_EQ(VariantToBoolean(row.value), row.boolean) << row.text;
    EXPECT_EQ(VariantToString(VariantNot(row.value)), row.boolean ? "False" : "True") << row.text;
    EXPECT_EQ(IsNumeric(row.value), row.isNumeric) << row.text;
  }
}

// A few keys are compared one by one, many have an index.
TEST(Variant, DictionaryKeys) {
  for (const Int32 others : {0, 12}) {
    Dictionary map;
    map.SetValue("Pi", "a");
    map.SetValue("pI", "b");
    map.SetValue(DoubleToVariant(0.1), "c");
    map.SetValue(DoubleToVariant(0.0), "e");
    for (Int32 i = 0; i < others; ++i) map.SetValue(Int32ToVariant(100 + i), Int32ToVariant(i));
    EXPECT_EQ(map.Count(), 3 + others);
    EXPECT_EQ(VariantToString(map.Value("PI")), "b");
    EXPECT_FALSE(map.HasKey("0") || map.HasKey(Int32ToVariant(0)));
    map.Remove("PI");
    map.Remove("absent");
    EXPECT_EQ(VariantToString(map.Lookup("pi", "none")), "none");
    EXPECT_THROW((void)map.Value("pi"), Fault);
    EXPECT_EQ(VariantToString(map.Value(DoubleToVariant(-0.0))) + VariantToString(map.Values()[0]), "ec");
    if (others > 0) {
      EXPECT_EQ(VariantToInt32(map.Value(Int32ToVariant(105))), 5);
    }
  }
}

}  // namespace
}  // namespace sumlet

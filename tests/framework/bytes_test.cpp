// Percent-encoding, dates, and values of several types.
#include "framework/text/bytes.h"

#include <gtest/gtest.h>

#include <string_view>
#include <variant>

#include "framework/text/date.h"
#include "framework/text/variant.h"

namespace sumlet {
namespace {

TEST(Bytes, UrlComponents) {
  String every;
  for (int byte = 0; byte < 256; ++byte) every += static_cast<char>(byte);
  EXPECT_EQ(DecodeURLComponent(EncodeURLComponent(every)), every);
  EXPECT_EQ(EncodeURLComponent("Az09-._~ é\n\t+%<"), "Az09-._~%20%C3%A9%0A%09%2B%25%3C");
  EXPECT_EQ(DecodeURLComponent(std::string_view("%41").substr(0, 2)), "%4");
  EXPECT_EQ(DecodeURLComponent("na%c3%Afve+50%"), "naïve+50%");
  EXPECT_EQ(DecodeURLComponent("%G1%1G%%41"), "%G1%1G%A");
}

TEST(Variant, Conversions) {
  const struct {
    Variant value;
    const char* text;
    Int32 integer;
    double number;
    bool boolean;
    bool isNumeric;
  } rows[] = {
      // clang-format off
      {{}, "", 0, 0, false, false},
      {" -2.9e0 ", " -2.9e0 ", -2, -2.9, true, true},
      {"0.0", "0.0", 0, 0, false, true},
      {"5 apples", "5 apples", 5, 5, false, false},
      {"99999999999", "99999999999", 2147483647, 99999999999.0, true, true},
      {BooleanToVariant(true), "True", 1, 1, true, false},
      {DoubleToVariant(-2.9), "-2.9", -2, -2.9, true, true},
      {ColorToVariant({0, 10, 255}), "&h000AFF", 0xAFF, 0xAFF, true, false},
      // clang-format on
  };
  for (const auto& [value, text, integer, number, boolean, isNumeric] : rows) {
    EXPECT_EQ(VariantToString(value), text);
    EXPECT_EQ(VariantToInt32(value), integer) << text;
    EXPECT_EQ(VariantToDouble(value), number) << text;
    EXPECT_EQ(VariantToBoolean(value), boolean) << text;
    EXPECT_EQ(VariantToString(VariantNot(value)), boolean ? "False" : "True") << text;
    EXPECT_EQ(IsNumeric(value), isNumeric) << text;
  }
}

TEST(Date, RejectsWhatIsNoTime) {
  Date date;
  ASSERT_TRUE(date.SetSQLDateTime("2026-03-04T05:06:07Z"));
  for (const char* wrong : {"2026-03-04T05:06:07", "2026-02-30 00:00:00", "2026-01-01 24:00:00"}) {
    EXPECT_FALSE(date.SetSQLDateTime(wrong)) << wrong;
    EXPECT_EQ(date.SQLDateTime(), "2026-03-04 05:06:07");
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

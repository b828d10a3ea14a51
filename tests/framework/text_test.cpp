// Text functions: what counts as a character, which texts are the same, and the limits of all arguments.
#include "framework/text/text.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <limits>
#include <random>
#include <string_view>
#include <tuple>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

using namespace std::string_view_literals;

const Int32 lowest = std::numeric_limits<Int32>::min();
const Int32 highest = std::numeric_limits<Int32>::max();

TEST(Text, LenCountsCharacters) {
  // A byte outside a valid sequence is a character of its own.
  const std::tuple<const char*, std::string_view, Int32> rows[] = {
      {"a zero byte", "a\0b"sv, 3},
      {"characters of 1 to 4 bytes", "aé€😀", 4},
      {"truncated at the end", "\xF0\x9F\x98", 3},
      {"truncated in front of a character", "\xE2\x82é", 3},
      {"overlong, of two bytes", "\xC0\x80", 2},
      {"a surrogate", "\xED\xA0\x80", 3},
      {"the last code point", "\xF4\x8F\xBF\xBF", 1},
      {"beyond the last code point", "\xF4\x90\x80\x80", 4},
  };
  for (const auto& [name, text, length] : rows) EXPECT_EQ(Len(text), length) << name;
}

TEST(Text, PiecesByCharacters) {
  const std::tuple<const char*, Int32, const char*, const char*, const char*> rows[] = {
      // clang-format off
      {"abc", 0, "", "", ""},
      {"abc", 1, "a", "c", "abc"},
      {"abc", highest, "abc", "abc", ""},
      {"é😀€x", 2, "é😀", "€x", "😀€x"},
      {"é\xE2\x82", 2, "é\xE2", "\xE2\x82", "\xE2\x82"},
      // clang-format on
  };
  for (const auto& [text, n, left, right, mid] : rows) {
    EXPECT_EQ(Left(text, n), left) << text << " " << n;
    EXPECT_EQ(Right(text, n), right) << text << " " << n;
    EXPECT_EQ(Mid(text, n), mid) << text << " " << n;
  }
  EXPECT_EQ(Mid("a😀é€", 2, 2), "😀é");
  EXPECT_EQ(Mid("abcd", 3, highest), "cd");
  EXPECT_EQ(Mid("abcd", lowest, highest), "");
}

// Long texts use another algorithm. Texts of few letters repeat their beginnings, which tests its table of borders.
TEST(Text, InStrOfLongTexts) {
  std::mt19937 random(7);
  const String letters[] = {"a", "A", "b", "é", "\xFF"};
  const auto text = [&](std::size_t length) {
    String result;
    while (length-- > 0) result += letters[random() % 5];
    return result;
  };
  for (int round = 0; round < 200; ++round) {
    const String unit = text(1 + random() % 6);
    String find;
    while (find.size() <= 64) find += unit;
    find += text(random() % 2);
    String source = text(random() % 3);
    while (source.size() < 300) source += unit;
    source += find + unit;
    Int32 expected = 1 + static_cast<Int32>(random() % 5);
    const Int32 start = expected;
    while (!SameText(Mid(source, expected, Len(find)), find)) ++expected;
    EXPECT_EQ(InStr(start, source, find), expected) << source << " " << find;
    EXPECT_EQ(InStr(source, find + "no"), 0);
  }
  EXPECT_EQ(InStr("x" + String(30, 'k'), ReplaceAll(String(30, 'x'), "x", "\u212A")), 2);  // a third of the bytes
}

TEST(Text, InStr) {
  const std::tuple<Int32, const char*, const char*, Int32> rows[] = {
      // clang-format off
      {3, "abcabc", "bc", 5},
      {-5, "aab", "aB", 2},
      // the empty text is found where the search begins
      {4, "abc", "", 4},
      {5, "abc", "", 0},
      // characters, not bytes: the bytes of é are not in it
      {3, "😀x😀x", "x", 4},
      {0, "é", "\xA9", 0},
      {0, "a\xA9", "\xA9", 2},
      // same letters of different byte lengths: k and the Kelvin sign, s and the long s
      {0, "12\u212A4", "k", 3},
      {4, "\u212A\u212A\u212Ak\u212A", "\u212A", 4},
      {0, "ſin", "SIN", 1},
      // clang-format on
  };
  for (const auto& [start, source, find, position] : rows)
    EXPECT_EQ(InStr(start, source, find), position) << start << " " << source << " " << find;
}

TEST(Text, Replace) {
  const std::array<const char*, 5> rows[] = {
      // clang-format off
      {"Pi+pi", "PI", "3", "3+pi", "3+3"},
      {"aa", "a", "aa", "aaa", "aaaa"},
      {"abc", "", "y", "abc", "abc"},
      {"é\xA9", "\xA9", "x", "éx", "éx"},
      {"1\u212A2k3", "K", "·", "1·2k3", "1·2·3"},
      // clang-format on
  };
  for (const auto& [text, old, replacement, first, all] : rows) {
    EXPECT_EQ(Replace(text, old, replacement), first) << text;
    EXPECT_EQ(ReplaceAll(text, old, replacement), all) << text;
  }
}

TEST(Text, Fields) {
  const std::tuple<const char*, const char*, Array<String>> rows[] = {
      // clang-format off
      {"", "(", {}},
      {"(", "(", {"", ""}},
      {",a,,", ",", {"", "a", "", ""}},
      {"aXbxc", "x", {"a", "b", "c"}},
      {"a--b---c", "--", {"a", "b", "-c"}},
      // clang-format on
  };
  for (const auto& [text, separator, fields] : rows) {
    EXPECT_EQ(Split(text, separator), fields) << text;
    EXPECT_EQ(CountFields(text, separator), fields.Ubound() + 1) << text;
    for (Int32 n = 1; const String& field : fields) EXPECT_EQ(NthField(text, separator, n++), field) << text;
    for (const Int32 none : {0, fields.Ubound() + 2, lowest}) EXPECT_EQ(NthField(text, separator, none), "") << text;
  }
}

TEST(Text, TrimAndCase) {
  EXPECT_EQ(Trim(" \t\r\n a \t b \n\r\t "), "a \t b");
  EXPECT_EQ(Trim("\u00A0a\v"), "\u00A0a\v");
  EXPECT_EQ(Lowercase("AbC-ÀÉ ΠΣ Ж\xFF 😀 ß"), "abc-àé πσ ж\xFF 😀 ß");
}

TEST(Text, Codes) {
  EXPECT_EQ(Chr(0x1F600), "😀");
  for (const Int32 none : {-1, 0xD800, 0xDFFF, 0x110000}) EXPECT_EQ(Chr(none), "\uFFFD") << none;
  EXPECT_EQ(Asc("😀"), 0x1F600);
  EXPECT_EQ(Asc("\xFF"), 255);
}

TEST(Text, Comparison) {
  const std::tuple<const char*, const char*, int> rows[] = {
      // clang-format off
      {"", "a", -1},
      {"ab", "A", 1},
      {"\uFFFD", "😀", -1},
      // one character folds to one character: the Kelvin sign, the long s, a letter outside the first plane
      {"\u212A", "k", 0},
      {"ſ", "S", 0},
      {"ΣΙΓΜΑΣ", "σιγμας", 0},
      {"𐐀", "𐐨", 0},
      {"İ", "i", 1},
      {"ß", "ss", 1},
      {"é", "e\u0301", 1},
      {"\xFF", "\u00FF", 1},
      // clang-format on
  };
  for (const auto& [a, b, order] : rows) {
    EXPECT_EQ(CompareText(a, b), order) << a << " " << b;
    EXPECT_EQ(CompareText(b, a), -order) << b << " " << a;
    EXPECT_EQ(FoldCase(a) == FoldCase(b), order == 0) << a << " " << b;
  }
}

TEST(Text, ArrayChecksEveryIndex) {
  Array<String> list = {"b", "c"};
  list.Insert(0, "a");
  list.Redim(3);
  list.Remove(1);
  EXPECT_EQ(list, (Array<String>{"a", "c", ""}));
  EXPECT_THROW((void)list[3], Fault);
  EXPECT_THROW(list.Insert(4, "x"), Fault);
  EXPECT_THROW(list.Remove(3), Fault);
  EXPECT_THROW(list.Redim(-2), Fault);
}

}  // namespace
}  // namespace sumlet

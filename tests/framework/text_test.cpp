// Text functions: what counts as a character, which texts are the same, and the limits of all arguments.
#include "framework/text/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <tuple>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

using namespace std::string_view_literals;

const Int32 lowest = std::numeric_limits<Int32>::min();
const Int32 highest = std::numeric_limits<Int32>::max();

TEST(Text, LenCountsCharacters) {
  // A byte outside a valid sequence is a character of its own: a stray byte, one of a sequence that is truncated or
  // overlong, of a surrogate, or beyond the last code point.
  // clang-format off
  const std::pair<std::string_view, Int32> rows[] = {
      {"", 0}, {"a\0b"sv, 3}, {"aé€😀", 4}, {"e\u0301", 2}, {"\x80\xFF", 2}, {"\xC3", 1}, {"\xF0\x9F\x98", 3},
      {"\xE2\x82é", 3}, {"\xC3\xC3\xA9", 2}, {"\xC0\x80", 2}, {"\xE0\x80\xAF", 3}, {"\xED\xA0\x80", 3},
      {"\xF4\x8F\xBF\xBF", 1}, {"\xF4\x90\x80\x80", 4},
  };
  // clang-format on
  for (const auto& [text, length] : rows) EXPECT_EQ(Len(text), length) << text;
}

TEST(Text, PiecesByCharacters) {
  // clang-format off
  const std::tuple<std::string_view, Int32, const char*, const char*, const char*> rows[] = {
      {"abc", 0, "", "", ""}, {"abc", lowest, "", "", ""}, {"abc", 1, "a", "c", "abc"}, {"abc", 3, "abc", "abc", "c"},
      {"abc", highest, "abc", "abc", ""}, {"é😀€x", 2, "é😀", "€x", "😀€x"}, {"é\xE2\x82", 2, "é\xE2", "\xE2\x82", "\xE2\x82"},
      {"\xE2\x82é", 1, "\xE2", "é", "\xE2\x82é"},
  };
  // clang-format on
  for (const auto& [text, n, left, right, fromN] : rows) {
    EXPECT_EQ(Left(text, n), left) << text << " " << n;
    EXPECT_EQ(Right(text, n), right) << text << " " << n;
    EXPECT_EQ(Mid(text, n), fromN) << text << " " << n;
  }
  EXPECT_EQ(Mid("a😀é€", 2, 2), "😀é");
  EXPECT_EQ(Mid("abcd", 3, highest), "cd");
  for (const auto& [start, length] : {std::pair{2, 0}, {2, -1}, {0, 2}, {lowest, highest}})
    EXPECT_EQ(Mid("abcd", start, length), "") << start << " " << length;
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
  // clang-format off
  const std::tuple<Int32, std::string_view, std::string_view, Int32> rows[] = {
      {0, "aBc", "b", 2}, {3, "abcabc", "bc", 5}, {6, "abcabc", "bc", 0}, {highest, "abc", "c", 0}, {-5, "aab", "aB", 2},
      {0, "abc", "abcd", 0},
      // the empty text is found where the search begins
      {0, "", "", 1}, {3, "abc", "", 3}, {4, "abc", "", 4}, {5, "abc", "", 0},
      // characters, not bytes: the bytes of é are not in it
      {3, "😀x😀x", "x", 4}, {0, "pi Π", "π", 4}, {0, "a\0b"sv, "\0"sv, 2}, {0, "é", "\xA9", 0}, {0, "é", "\xC3", 0},
      {0, "a\xA9", "\xA9", 2}, {0, "\xFF", "\xFE", 0},
      // same letters of different byte lengths
      {0, "12\u212A4", "k", 3}, {4, "\u212A\u212A\u212Ak\u212A", "\u212A", 4}, {0, "ſin", "SIN", 1},
  };
  // clang-format on
  for (const auto& [start, source, find, position] : rows)
    EXPECT_EQ(InStr(start, source, find), position) << start << " " << source << " " << find;
}

TEST(Text, Replace) {
  // clang-format off
  const std::string_view rows[][5] = {
      {"Pi+pi", "PI", "3", "3+pi", "3+3"}, {"- - -", "- -", "--", "-- -", "-- -"}, {"    ", "  ", " ", "   ", "  "},
      {"aa", "a", "aa", "aaa", "aaaa"}, {"abc", "", "y", "abc", "abc"}, {"é\xA9", "\xA9", "x", "éx", "éx"},
      {"1\u212A2k3", "K", "·", "1·2k3", "1·2·3"},
  };
  // clang-format on
  for (const auto& [text, old, replacement, first, every] : rows) {
    EXPECT_EQ(Replace(text, old, replacement), first) << text;
    EXPECT_EQ(ReplaceAll(text, old, replacement), every) << text;
  }
}

TEST(Text, Fields) {
  // clang-format off
  const std::tuple<std::string_view, std::string_view, Array<String>> rows[] = {
      {"abc", "(", {"abc"}}, {"", "(", {}}, {"(", "(", {"", ""}}, {",a,,", ",", {"", "a", "", ""}},
      {"aXbxc", "x", {"a", "b", "c"}}, {"a--b---c", "--", {"a", "b", "-c"}}, {"é,😀", ",", {"é", "😀"}},
      {"abc", "", {"abc"}},
  };
  // clang-format on
  for (const auto& [text, separator, fields] : rows) {
    EXPECT_EQ(Split(text, separator), fields) << text;
    EXPECT_EQ(CountFields(text, separator), fields.Ubound() + 1) << text;
    for (Int32 n = 1; const String& field : fields) EXPECT_EQ(NthField(text, separator, n++), field) << text;
    for (const Int32 none : {0, fields.Ubound() + 2, lowest}) EXPECT_EQ(NthField(text, separator, none), "") << text;
  }
  EXPECT_EQ(Join({"a", "", "c"}, ", "), "a, , c");
}

TEST(Text, TrimAndCase) {
  EXPECT_EQ(Trim(" \t\r\n a \t b \n\r\t "), "a \t b");
  EXPECT_EQ(Trim(" \n "), "");
  EXPECT_EQ(Trim("\u00A0a\v"), "\u00A0a\v");
  EXPECT_EQ(Lowercase("AbC-ÀÉ ΠΣ Ж\xFF 😀 ß"), "abc-àé πσ ж\xFF 😀 ß");
}

TEST(Text, Codes) {
  EXPECT_EQ(Chr(0x3C0), "π");
  EXPECT_EQ(Chr(0x1F600), "😀");
  for (const Int32 none : {-1, 0xD800, 0xDFFF, 0x110000}) EXPECT_EQ(Chr(none), "\uFFFD") << none;
  EXPECT_EQ(Asc("😀"), 0x1F600);
  EXPECT_EQ(Asc("\xFF"), 255);
  EXPECT_EQ(Asc(""), 0);
}

TEST(Text, Comparison) {
  // One character folds to one character: the Kelvin sign, the long s, a letter outside the first plane, the micro
  // sign.
  // clang-format off
  const std::tuple<std::string_view, std::string_view, int> rows[] = {
      {"PI", "pi", 0}, {"", "a", -1}, {"a", "B", -1}, {"ab", "A", 1}, {"[", "a", -1}, {"z", "é", -1}, {"\uFFFD", "😀", -1},
      {"\u212A", "k", 0}, {"ſ", "S", 0}, {"ΣΙΓΜΑΣ", "σιγμας", 0}, {"ẞ", "ß", 0}, {"𐐀", "𐐨", 0}, {"µ", "μ", 0},
      {"ß", "ss", 1}, {"İ", "i", 1}, {"ı", "i", 1}, {"ﬁ", "fi", 1}, {"é", "e\u0301", 1}, {"\xC3", "\xE3", -1},
      {"\xFF", "\u00FF", 1},
  };
  // clang-format on
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
  EXPECT_THROW((void)list[-1], Fault);
  EXPECT_THROW(list.Insert(4, "x"), Fault);
  EXPECT_THROW(list.Remove(3), Fault);
  EXPECT_THROW(list.Redim(-2), Fault);
}

}  // namespace
}  // namespace sumlet

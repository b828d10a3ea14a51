// The text services by tables: what counts as a character, what counts as the same text, and what every function does
// at the ends of its arguments.
#include "framework/text/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

using namespace std::string_view_literals;

const Int32 lowest = std::numeric_limits<Int32>::min();
const Int32 highest = std::numeric_limits<Int32>::max();

TEST(Text, LenCountsCharacters) {
  const struct {
    std::string_view text;
    Int32 length;
  } rows[] = {
      {"", 0},
      {"abc", 3},
      {"a\0b"sv, 3},
      {"aé€😀", 4},
      {"e\u0301", 2},
      // a byte that belongs to no valid sequence is a character of its own
      {"\xFF", 1},
      {"\x80\x80", 2},
      {"\xC3", 1},              // cut short
      {"\xE2\x82", 2},          // cut short
      {"\xF0\x9F\x98", 3},      // cut short
      {"\xE2\x82é", 3},         // cut short by another character
      {"\xC3\xC3\xA9", 2},      // cut short by the same
      {"\xC0\x80", 2},          // longer than needed
      {"\xE0\x80\xAF", 3},      // longer than needed
      {"\xED\xA0\x80", 3},      // a surrogate
      {"\xF4\x8F\xBF\xBF", 1},  // the last code point
      {"\xF4\x90\x80\x80", 4},  // behind it
  };
  for (const auto& row : rows) EXPECT_EQ(Len(row.text), row.length) << row.text;
}

TEST(Text, PiecesByCharacters) {
  // clang-format off
  const struct {
    std::string_view text;
    Int32 n;
    const char* left;
    const char* right;
    const char* mid;  // from n to the end
  } rows[] = {
      {"abc", 0, "", "", ""}, {"abc", -1, "", "", ""}, {"abc", lowest, "", "", ""}, {"abc", 1, "a", "c", "abc"},
      {"abc", 3, "abc", "abc", "c"}, {"abc", 4, "abc", "abc", ""}, {"abc", highest, "abc", "abc", ""},
      {"", 1, "", "", ""}, {"é😀€x", 2, "é😀", "€x", "😀€x"}, {"é😀€x", 3, "é😀€", "😀€x", "€x"},
      {"\xE2\x82é", 1, "\xE2", "é", "\xE2\x82é"}, {"é\xE2\x82", 2, "é\xE2", "\xE2\x82", "\xE2\x82"},
  };
  // clang-format on
  for (const auto& row : rows) {
    EXPECT_EQ(Left(row.text, row.n), row.left) << row.text << " " << row.n;
    EXPECT_EQ(Right(row.text, row.n), row.right) << row.text << " " << row.n;
    EXPECT_EQ(Mid(row.text, row.n), row.mid) << row.text << " " << row.n;
  }
  EXPECT_EQ(Mid("abcd", 2, 2), "bc");
  EXPECT_EQ(Mid("abcd", 3, 9), "cd");
  EXPECT_EQ(Mid("abcd", 3, highest), "cd");
  EXPECT_EQ(Mid("abcd", 2, 0), "");
  EXPECT_EQ(Mid("abcd", 2, -1), "");
  EXPECT_EQ(Mid("abcd", 0, 2), "");
  EXPECT_EQ(Mid("abcd", -3, 5), "");
  EXPECT_EQ(Mid("abcd", lowest, highest), "");
  EXPECT_EQ(Mid("a😀é€", 2, 2), "😀é");
}

// A long text is searched for in another way, which has to find the same: texts of few letters, so that beginnings
// recur.
TEST(Text, InStrOfLongTexts) {
  std::mt19937 random(7);
  const String letters[] = {"a", "A", "b", "é", "\xFF"};
  const auto text = [&](std::size_t length, std::size_t kinds) {
    String result;
    while (length-- > 0) result += letters[random() % kinds];
    return result;
  };
  for (int round = 0; round < 200; ++round) {
    const String unit = text(1 + random() % 6, 5);
    String find;
    while (find.size() <= 64) find += unit;
    find += text(random() % 2, 5);
    String source = text(random() % 3, 5);
    while (source.size() < 300) source += unit;
    source += find + unit;
    const Int32 start = static_cast<Int32>(random() % 5);
    Int32 expected = std::max(start, 1);
    while (!SameText(Mid(source, expected, Len(find)), find)) ++expected;
    EXPECT_EQ(InStr(start, source, find), expected) << source << " " << find;
    EXPECT_EQ(InStr(source, find + "no"), 0);
  }
}

TEST(Text, InStr) {
  // clang-format off
  const struct {
    Int32 start;
    std::string_view source;
    std::string_view find;
    Int32 position;
  } rows[] = {
      {0, "aBc", "b", 2}, {0, "abcabc", "BC", 2}, {2, "abcabc", "bc", 2}, {3, "abcabc", "bc", 5},
      {6, "abcabc", "bc", 0}, {highest, "abc", "c", 0}, {-5, "abc", "a", 1}, {0, "aab", "ab", 2},
      {0, "abc", "abcd", 0}, {0, "", "a", 0},
      // the empty text is found where the search begins
      {0, "abc", "", 1}, {3, "abc", "", 3}, {4, "abc", "", 4}, {5, "abc", "", 0}, {0, "", "", 1},
      // characters, not bytes
      {0, "é😀x", "X", 3}, {3, "😀x😀x", "x", 4}, {0, "pi Π", "π", 4}, {0, "a\0b"sv, "\0"sv, 2},
      {0, "é", "\xA9", 0},  // the second byte of é
      {0, "é", "\xC3", 0}, {0, "a\xA9", "\xA9", 2}, {0, "\xFF", "\xFE", 0},
      // same letters of different byte lengths
      {0, "12\u212A4", "k", 3}, {4, "\u212A\u212A\u212Ak\u212A", "\u212A", 4}, {0, "ſin", "SIN", 1},
      {0, "Variable ERROR", "error", 10},
  };
  // clang-format on
  for (const auto& row : rows) {
    EXPECT_EQ(InStr(row.start, row.source, row.find), row.position)
        << row.start << " " << row.source << " " << row.find;
    if (row.start != 0) continue;
    EXPECT_EQ(InStr(row.source, row.find), row.position) << row.source << " " << row.find;
  }
}

TEST(Text, Replace) {
  const struct {
    std::string_view text;
    std::string_view old;
    std::string_view replacement;
    const char* first;
    const char* every;
  } rows[] = {
      {"Pi+pi", "PI", "3", "3+pi", "3+3"},
      {"---", "--", "", "-", "-"},
      {"- - -", "- -", "--", "-- -", "-- -"},
      {"    ", "  ", " ", "   ", "  "},
      {"aaa", "a", "aa", "aaaa", "aaaaaa"},
      {"abc", "x", "y", "abc", "abc"},
      {"abc", "", "y", "abc", "abc"},
      {"", "a", "b", "", ""},
      {"1\u212A2k3", "K", "·", "1·2k3", "1·2·3"},
      {"é\xA9", "\xA9", "x", "éx", "éx"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Replace(row.text, row.old, row.replacement), row.first) << row.text;
    EXPECT_EQ(ReplaceAll(row.text, row.old, row.replacement), row.every) << row.text;
  }
}

TEST(Text, Fields) {
  // clang-format off
  const struct {
    std::string_view text;
    std::string_view separator;
    Array<String> fields;
  } rows[] = {
      {"a(b(c", "(", {"a", "b", "c"}}, {"abc", "(", {"abc"}}, {"", "(", {}}, {"(", "(", {"", ""}},
      {",a,,", ",", {"", "a", "", ""}}, {"1 1/2", " ", {"1", "1/2"}}, {"aXbxc", "x", {"a", "b", "c"}},
      {"a--b---c", "--", {"a", "b", "-c"}}, {"1\u212A2k3", "k", {"1", "2", "3"}}, {"é,😀", ",", {"é", "😀"}},
      {"abc", "", {"abc"}},
  };
  // clang-format on
  for (const auto& row : rows) {
    EXPECT_EQ(Split(row.text, row.separator), row.fields) << row.text;
    ASSERT_EQ(CountFields(row.text, row.separator), row.fields.Ubound() + 1) << row.text;
    for (Int32 i = 0; i <= row.fields.Ubound(); ++i) {
      EXPECT_EQ(NthField(row.text, row.separator, i + 1), row.fields[i]) << row.text << " field " << i + 1;
    }
    for (const Int32 none : {0, -1, row.fields.Ubound() + 2, lowest, highest}) {
      EXPECT_EQ(NthField(row.text, row.separator, none), "") << row.text << " field " << none;
    }
  }
  EXPECT_EQ(Join({"a", "", "c"}, ", "), "a, , c");
  EXPECT_EQ(Join({"a", "b"}, ""), "ab");
  EXPECT_EQ(Join({}, ","), "");
}

TEST(Text, TrimAndCase) {
  const struct {
    std::string_view text;
    const char* trimmed;
  } trims[] = {
      {" \t\r\n a \t b \n\r\t ", "a \t b"}, {"", ""}, {" \n ", ""}, {"a", "a"}, {"\u00A0a\v", "\u00A0a\v"},
  };
  for (const auto& row : trims) EXPECT_EQ(Trim(row.text), row.trimmed) << row.text;
  EXPECT_EQ(Lowercase("AbC-ÀÉ ΠΣ Ж\xFF 😀"), "abc-àé πσ ж\xFF 😀");
  EXPECT_EQ(Lowercase("ß"), "ß");
}

// LineReader must cut a text into the very lines that the two functions give.
TEST(Text, Lines) {
  const struct {
    std::string_view text;
    Array<String> lines;
  } rows[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\r\nb\rc\nd", {"a", "b", "c", "d"}},
      {"a\n", {"a", ""}},
      {"\r\n", {"", ""}},
      {"\n\r", {"", "", ""}},
      {"\r\r\n", {"", "", ""}},
      {"a\u2028b\v\f", {"a\u2028b\v\f"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Split(ReplaceLineEndings(row.text, EndOfLine), EndOfLine), row.lines) << row.text;
    Array<String> read;
    std::string_view line;
    for (LineReader reader(row.text); reader.Next(line);) read.Append(String(line));
    EXPECT_EQ(read, row.lines) << row.text;
  }
  EXPECT_EQ(ReplaceLineEndings("a\r\nb\n\nc", "\r\n"), "a\r\nb\r\n\r\nc");
}

TEST(Text, Codes) {
  EXPECT_EQ(Asc("Abc"), 65);
  EXPECT_EQ(Asc("😀"), 0x1F600);
  EXPECT_EQ(Asc("\xFF"), 255);
  EXPECT_EQ(Asc(""), 0);
  EXPECT_EQ(Chr(9), "\t");
  EXPECT_EQ(Chr(0), "\0"sv);
  EXPECT_EQ(Chr(0x3C0), "π");
  EXPECT_EQ(Chr(0x1F600), "😀");
  for (const Int32 none : {-1, 0xD800, 0xDFFF, 0x110000, highest}) EXPECT_EQ(Chr(none), "\uFFFD") << none;
}

TEST(Text, Comparison) {
  // clang-format off
  const struct {
    std::string_view a;
    std::string_view b;
    int order;
  } rows[] = {
      {"PI", "pi", 0}, {"", "", 0}, {"", "a", -1}, {"a", "", 1}, {"a", "B", -1}, {"ab", "A", 1}, {"Z", "a", 1},
      {"[", "a", -1},  // lies between the upper and the lower case letters
      {"z", "é", -1}, {"\uFFFD", "😀", -1},
      // one character folds to one character
      {"\u212A", "k", 0},  // the Kelvin sign
      {"ſ", "S", 0},       // the long s
      {"ΣΙΓΜΑΣ", "σιγμας", 0}, {"ẞ", "ß", 0},
      {"𐐀", "𐐨", 0},  // outside the first plane
      {"µ", "μ", 0},  // the micro sign and the Greek letter
      {"ß", "ss", 1}, {"İ", "i", 1}, {"ı", "i", 1}, {"ﬁ", "fi", 1}, {"é", "e\u0301", 1}, {"\xC3", "\xC3", 0},
      {"\xC3", "\xE3", -1}, {"\xFF", "\u00FF", 1},
  };
  // clang-format on
  for (const auto& row : rows) {
    EXPECT_EQ(CompareText(row.a, row.b), row.order) << row.a << " " << row.b;
    EXPECT_EQ(CompareText(row.b, row.a), -row.order) << row.b << " " << row.a;
    EXPECT_EQ(SameText(row.a, row.b), row.order == 0) << row.a << " " << row.b;
    EXPECT_EQ(FoldCase(row.a) == FoldCase(row.b), row.order == 0) << row.a << " " << row.b;
  }
  EXPECT_EQ(IndexOf({"a", "PI", "pi"}, "Pi"), 1);
  EXPECT_EQ(IndexOf({"a"}, "b"), -1);
  EXPECT_EQ(IndexOf({}, ""), -1);
}

TEST(Text, ArrayChecksEveryIndex) {
  Array<String> list;
  EXPECT_EQ(list.Ubound(), -1);
  EXPECT_THROW((void)list[0], Fault);
  list.Append("b");
  list.Insert(0, "a");
  list.Insert(2, "c");
  EXPECT_EQ(list, (Array<String>{"a", "b", "c"}));
  EXPECT_THROW(list.Insert(4, "x"), Fault);
  EXPECT_THROW(list.Insert(-1, "x"), Fault);
  EXPECT_THROW(list.Remove(3), Fault);
  EXPECT_THROW((void)list[-1], Fault);
  EXPECT_THROW(list.Redim(-2), Fault);
  EXPECT_EQ(list.Ubound(), 2);
  list.Remove(1);
  EXPECT_EQ(list, (Array<String>{"a", "c"}));
  list.Redim(2);
  EXPECT_EQ(list, (Array<String>{"a", "c", ""}));
  list.Redim(-1);
  EXPECT_EQ(list.Ubound(), -1);
}

}  // namespace
}  // namespace sumlet

// Texts that are meant to exhaust the stack, the memory or the patience. Each must end, and where reasoning tells the
// outcome, with that outcome. The sizes are far above what a step that copies the whole line, or a call for each level,
// could bear.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "engine/long_number.h"
#include "engine/math_class.h"
#include "engine/worked_examples.h"
#include "framework/text/numbers.h"

namespace sumlet {
namespace {

String Times(std::size_t count, std::string_view piece) {
  String text;
  text.reserve(count * piece.size());
  while (count-- > 0) text += piece;
  return text;
}

struct Hostile {
  const char* name;
  String text;
  String result;
  String details = {};  // of an error
};

void Check(std::initializer_list<Hostile> rows) {
  for (const Hostile& row : rows) {
    MathClass math(row.text);
    EXPECT_TRUE(math.Evaluate() == row.result) << row.name << " gave " << math.Result.substr(0, 100);
    if (!math.ResultIsError()) continue;
    EXPECT_TRUE(math.ResultDetails == row.details) << row.name << " has details " << math.ResultDetails.substr(0, 100);
  }
}

TEST(Hostile, DeepNesting) {
  const std::size_t n = 100'000;
  Check({
      {"opening right for ever", Times(n, "(1+"), parenthesis},
      {"wrong order behind a value", "(1)" + Times(n, ")1") + Times(n, "2("), parenthesis, "2"},
      {"factors", Times(n, "1(") + "1" + Times(n, ")"), "1"},
      {"signs", Times(n, "-(") + "1" + Times(n, ")"), "1"},
      {"calls of two arguments", Times(n, "max(") + "1" + Times(n, ",2)"), "2"},
      {"a long number", "1" + Times(n, "(") + String(n, '0') + "2" + Times(n, ")"), "2"},
  });
}

TEST(Hostile, LongLines) {
  const std::size_t n = 100'000;
  Check({
      {"differences", "1" + Times(n, "-1"), "-99999"},
      {"products and sums", Times(n, "1*1+") + "1", "100001"},
      {"operators behind a number", "5" + Times(n, "*"), twoOperands, "*"},
      {"signs for ever", "3" + Times(n, "-"), twoOperands, "-"},
      {"bars around numbers", Times(n, "|1|"), "1"},
      {"variables", "x=1\n0" + Times(n, "+x"), "100000"},
      {"a fraction of many words", "dec(0 " + Times(n, "0 ") + "/2)", "Error: Incomplete Fraction"},
  });
}

TEST(Hostile, AMegabyteOfOneCharacter) {
  const std::size_t n = 1'000'000;
  const String letters(n, 'a');
  Check({
      {"digits beyond every number", String(n, '9') + "+1", unknown, "inf"},
      {"blanks", "1" + String(n, ' ') + "+" + String(n, ' ') + "1", "2"},
      {"a variable's name", letters + "=2\n" + letters + "+1", "3"},
  });
}

// The substituted texts would hold gigabytes if anyone wrote them out.
TEST(Hostile, ValuesThatGrow) {
  const String zeros(500'000, '0');
  const String tiny = "x=." + zeros.substr(0, 30'000) + "1\n";
  const String digits(1430, '0');
  const String arguments = "\"=" + Times(2, digits + "." + digits + ",") + digits + "\nx=frac(0.5)\n";
  Check({
      {"a long value in many sums", "x=" + zeros + "\n" + Times(20'000, "x+") + "1", "1"},
      {"a long value on many lines", "x=" + zeros + "\n" + Times(200, "y=x\n") + "y", zeros},
      {"computed on many lines", tiny + Times(2'000, "(x)(x)(x)(x)\n") + "2", "2"},
      {"as it stands", tiny + Times(8'000, "(x)\n") + "x", tiny.substr(2, tiny.size() - 3)},
      {"twice in the value of another name", arguments + Times(3'000, "x+") + "1", "1"},
      {"the same value again", "x=" + Times(15'000, "1,") + "1\n" + Times(8'000, "x=x\n") + "x^0", "1"},
  });
}

String RandomDigits(std::mt19937& random, std::string_view choices, std::size_t count) {
  String text;
  while (count-- > 0) text += choices[random() % choices.size()];
  return text;
}

// A long value may be put in shortened, but never so that a digit of any outcome changes: it must read as the same
// number whatever stands around it.
TEST(Hostile, ShortenedNumbersReadTheSame) {
  std::mt19937 random(1);
  const String around[] = {"", "7", "0", ".", "1.", ",", "0.0", String(320, '0'), "-"};
  for (int i = 0; i < 150; ++i) {
    String number = i % 5 == 0 ? "-" : "";
    for (std::uint32_t runs = 1 + random() % 5; runs > 0; --runs) {
      number += RandomDigits(random, i % 3 == 0 ? "0123456789" : "0", random() % 3000);
      number += RandomDigits(random, "0,.5", random() % 3);
    }
    // just above 2^-1075, half of the smallest double, which has as many places as any tie
    if (i == 0) number = "0.0" + Format(5 * 0x1p-1074, "#." + String(1074, '#')).substr(2) + String(3000, '0') + "1";
    for (const String& front : around) {
      const bool pointMayPrecede = front.find_first_not_of("0123456789") != String::npos;
      const String abridged = AbridgedNumber(number, pointMayPrecede);
      ASSERT_LE(abridged.size(), std::min<std::size_t>(number.size(), 4000));
      for (const String& behind : around) {
        const String whole = Join({front, number, behind}, "");
        const String shortened = Join({front, abridged, behind}, "");
        ASSERT_EQ(CDbl(shortened), CDbl(whole)) << whole;
        ASSERT_EQ(Val(shortened), Val(whole)) << whole;
        ASSERT_EQ(CDbl(NthField(shortened, ",", 2)), CDbl(NthField(whole, ",", 2))) << whole;
      }
    }
  }
}

// Abridging begins when a run has put in long values for a megabyte. Whatever a line then does with one, nothing may
// show that it came abridged: it is as without that megabyte.
TEST(Hostile, ShortenedNumbersShowNowhere) {
  const String values =
      "z=-" + String(3000, '7') + ".1\nt=." + String(2000, '0') + "5\nc=" + Times(900, "1,") + "2.5.1\ne=\nm=-\n";
  // Bars are rewritten, which puts the value in; a sum would only use its number.
  const String megabyte = "w=" + String(600'000, '0') + "\n|w|\n|w|\n";
  const std::pair<const char*, const char*> around[] = {
      {"(", ")"},        {"(", ")"},    {"|", "|"},    {"-", ""},   {"--", ""},   {"\t ", ""}, {"", " \t"},
      {"()", ""},        {"", "||"},    {"e ", ""},    {"", " m"},  {"1 ", ""},   {"", "+1"},  {"7*", ""},
      {"", "^0"},        {",", ""},     {"(", ",.1)"}, {"", "."},   {"pi", ""},   {"", " c"},  {"max(", ",t)"},
      {"dec(", " 1/2)"}, {"sin(", ")"}, {"foo ", ""},  {"7.+", ""}, {"2*1 ", ""}, {"1.-", ""}};
  std::mt19937 random(1);
  int shownInWhole = 0;
  for (int i = 0; i < 250; ++i) {
    String line(1, "ztc"[random() % 3]);
    for (std::uint32_t count = random() % 5; count > 0; --count) {
      const auto& [front, behind] = around[random() % std::size(around)];
      line = front + line + behind;
    }
    if (random() % 3 == 0) line = "y=" + line;
    if (i == 0) line = "(\t z)";  // white space is no part of a calculation
    MathClass plain(values + line);
    MathClass abridging(megabyte + values + line);
    plain.Evaluate();
    abridging.Evaluate();
    ASSERT_TRUE(abridging.Result == plain.Result) << line;
    ASSERT_TRUE(!plain.ResultIsError() || abridging.ResultDetails == plain.ResultDetails) << line;
    if (plain.Result.size() > 1000) ++shownInWhole;
  }
  EXPECT_GE(shownInWhole, 25) << "the comparison needs values that are shown as they stand";
}

}  // namespace
}  // namespace sumlet

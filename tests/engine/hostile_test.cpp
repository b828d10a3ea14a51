// Texts that try to exhaust the stack, the memory or the time. The sizes are too large for an engine that copies the
// whole line in each step or calls itself for each level.
#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "engine/math_class.h"
#include "engine/worked_examples.h"

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
      {"unclosed sums", Times(n, "(1+"), parenthesis},
      {"wrong order behind a value", "(1)" + Times(n, ")1") + Times(n, "2("), parenthesis, "2"},
      {"factors", Times(n, "1(") + "1" + Times(n, ")"), "1"},
      {"signs", Times(n, "-(") + String(n, '7') + Times(n, ")"), String(n, '7')},
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
      {"signs behind a number", "3" + Times(n, "-"), twoOperands, "-"},
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

// The substituted texts would need gigabytes if all values were substituted in whole.
TEST(Hostile, ValuesThatGrow) {
  const String zeros(500'000, '0');
  const String tiny = "x=." + zeros.substr(0, 30'000) + "1\n";
  const String digits(1430, '0');
  const String arguments = "\"=" + Times(2, digits + "." + digits + ",") + digits + "\nx=frac(0.5)\n";
  Check({
      {"a long value in many sums", "x=" + zeros + "\n" + Times(20'000, "x+") + "--1", "1"},
      {"a long value on many lines", "x=" + zeros + "\n" + Times(200, "y=x\n") + "y", zeros},
      {"computed on many lines", tiny + Times(2'000, "(x)(x)(x)(x)\n") + "2", "2"},
      {"not computed", tiny + Times(8'000, "(x)\n") + "x", tiny.substr(2, tiny.size() - 3)},
      {"twice in the value of another name", arguments + Times(3'000, "x+") + "1", "1"},
      {"the same value again", "x=" + Times(15'000, "1,") + "1\n" + Times(8'000, "x=x\n") + "x^0", "1"},
  });
}

}  // namespace
}  // namespace sumlet

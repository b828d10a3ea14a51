// The line language by its worked examples, and the interface of MathClass.
#include <gtest/gtest.h>

#include "engine/expression_parser.h"
#include "engine/math_class.h"
#include "engine/variable_index.h"
#include "engine/worked_examples.h"

#include <string>
#include <string_view>
#include "framework/text/numbers.h"

namespace sumlet {
namespace {

TEST(Language, WorkedExamples) {
  for (const Example& example : workedExamples) {
    MathClass math(example.text);
    EXPECT_EQ(math.Evaluate(), example.result) << example.text;
    EXPECT_TRUE(example.details != nullptr || !math.ResultIsError()) << example.text;
    if (example.details != nullptr) {
      EXPECT_EQ(math.ResultDetails, example.details) << example.text;
    }
    EXPECT_TRUE(example.lastLine < 0 || math.LastLineEvaluated == example.lastLine) << example.text;
  }
}

// One line of each kind that has a value, evaluated by the parser and by rewriting, and of each kind that has none.
TEST(Language, ObserverReceivesTheValueOfEachLine) {
  MathClass math("x = 2\n# 1\r\n x*21\r\n\nfrac(2.5)\r2x\n()\ny = -x\n y\n2+*3\n7");
  String values;
  math.Evaluate();
  math.LineObserver = [&](Int32 line, std::string_view value) {
    EXPECT_EQ(math.Result, "") << "of the run before";
    values.append(std::to_string(line)).append(": ").append(value).append("; ");
  };
  EXPECT_TRUE(math.ResultIsError(math.Evaluate()));
  EXPECT_EQ(values, "0: 2; 2: 42; 4: \"2 1/2\"; 5: 4; 6: ; 7: -2; 8: -2; ");
}

// Tries a few times, because a random number below 0.0001 has an exponent, whose letter is an unknown variable.
String EvaluateRandom(const char* text) {
  MathClass math(text);
  for (int i = 0; i < 5 && (i == 0 || math.ResultIsError()); ++i) math.Evaluate();
  return math.Result;
}

TEST(Language, RandomNumbers) {
  for (const char* text : {"rnd", "RND=5\nRND", "0+Rnd"}) {
    const String result = EvaluateRandom(text);
    EXPECT_TRUE(!result.empty() && InStr(result, "Error") == 0 && Val(result) < 1) << text << " gave " << result;
  }
  EXPECT_NE(EvaluateRandom("RND-RND"), "0") << "each occurrence is a new number";
  EXPECT_EQ(EvaluateRandom("x=RND\nx-x"), "0") << "a stored number does not change";
}

// The fuzz target `rewriting` checks that the parser and rewriting give the same values; this test, that ordinary lines
// take the parser.
TEST(Language, OrdinaryExpressionsAreNotRewritten) {
  VariableIndex variables;
  variables.Add("x", {.number = -2.5});
  ExpressionParser parser(variables);
  for (const char* text : {"1+2*3^4-5/6\\7%8", " - x ^ 2 - -1.5", "-(-(x))*(3.+.5)", "2-max( -x , -x )*SIN(-1)",
                           "atan2(x,1)", "5--3", "((1.50))", "-(x)", "- 5"}) {
    EXPECT_TRUE(parser.Evaluate(text)) << text;
  }
}

}  // namespace
}  // namespace sumlet

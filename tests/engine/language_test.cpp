// The line language by its worked examples, and MathClass as a whole.
#include <gtest/gtest.h>

#include "engine/math_class.h"
#include "engine/worked_examples.h"
#include "framework/text/numbers.h"

namespace sumlet {

class MathClassPeer {
 public:
  static String DoOperation(MathClass& math, const char* left, const char* right, const char* op) {
    return math.DoOperation(left, right, op);
  }
  static String SubstituteMultiplication(MathClass& math, const char* text) {
    return math.SubstituteMultiplication(text);
  }
};

namespace {

TEST(Language, WorkedExamples) {
  for (const Example& example : WorkedExamples()) {
    SCOPED_TRACE(example.text);
    MathClass math(example.text);
    EXPECT_EQ(math.Evaluate(), example.result);
    EXPECT_EQ(math.Result, example.result);
    if (example.details != nullptr) {
      EXPECT_EQ(math.ResultDetails, example.details);
    } else {
      EXPECT_FALSE(math.ResultIsError()) << "an error has details";
    }
    if (example.lastLine >= 0) {
      EXPECT_EQ(math.LastLineEvaluated, example.lastLine);
    }
  }
}

// A random number below 0.0001 is written with an exponent, and its line then fails for the letter in it; so a few
// tries.
String EvaluateRandom(const char* text) {
  MathClass math(text);
  for (int i = 0; i < 5 && (i == 0 || math.ResultIsError()); ++i) math.Evaluate();
  return math.Result;
}

TEST(Language, RandomNumbers) {
  for (const char* text : {"RND", "rnd", "RND=5\nRND", "0+Rnd"}) {
    const String result = EvaluateRandom(text);
    EXPECT_NE(result, "") << text;
    EXPECT_EQ(InStr(result, "Error"), 0) << text << " gave " << result;
    EXPECT_TRUE(Val(result) >= 0 && Val(result) < 1) << text << " gave " << result;
  }
  EXPECT_NE(EvaluateRandom("RND-RND"), "0") << "each occurrence is a new number";
  EXPECT_EQ(EvaluateRandom("x=RND\nx-x"), "0") << "a stored one stays";
  EXPECT_EQ(EvaluateRandom("RND=5"), "5");
}

TEST(Language, VariablesAfterARun) {
  MathClass math("Ab=1\nPI=3\nc=aB+pi\naB=c\nx=\n2=5\nd=q");
  EXPECT_EQ(math.Evaluate(), "Error: Variable Unknown");
  EXPECT_EQ(math.varKey, (Array<String>{"pi", "π", "RND", "mod", "Ab", "c", "x", "2"}));
  EXPECT_EQ(math.varValue,
            (Array<String>{"3", "3.14159265358979323846264338327950", "[random]", "%", "4", "4", "", "5"}));
}

TEST(Language, EveryRunStartsAfresh) {
  MathClass math("x=2\npi=3\nfoo");
  EXPECT_EQ(math.varKey.Ubound(), -1);
  EXPECT_EQ(math.Evaluate(), "Error: Variable Unknown");
  EXPECT_EQ(math.LastLineEvaluated, 2);

  math.equationText = "";
  EXPECT_EQ(math.Evaluate(), "");
  EXPECT_EQ(math.ResultDetails, "");
  EXPECT_EQ(math.LastLineEvaluated, 2) << "no line was looked at";

  math.equationText = "pi";
  EXPECT_EQ(math.Evaluate(), "3.14159265358979323846264338327950");
  EXPECT_EQ(math.LastLineEvaluated, 0);

  math.equationText = "1\nx";
  EXPECT_EQ(math.Evaluate(), "Error: Variable Unknown");
  EXPECT_EQ(math.ResultDetails, "x");
}

TEST(Language, ErrorsAreToldByAWord) {
  MathClass math("|");
  EXPECT_FALSE(math.ResultIsError());
  math.Evaluate();
  EXPECT_TRUE(math.ResultIsError());
  EXPECT_TRUE(math.ResultIsError("an eRRoR inside"));
  EXPECT_FALSE(math.ResultIsError("err or"));
}

// Operators that no line can hold.
TEST(Language, OperationsOutOfReach) {
  const struct {
    const char* left;
    const char* right;
    const char* op;
    const char* result;
    const char* details;
  } rows[] = {
      {" 1 2", "", "", "12", ""},
      {"1", "2", "", "Error: Missing an Operator", ""},
      {"1", "2", "an error", "an error", ""},
      {"-7", "3", "Mod", "-1", ""},
      {"1", "2", "Max", "Error: Format as FunctionName(arguments)", "Max"},
      {"1", "2", "foo", "Error: Function Unknown", "foo"},
  };
  for (const auto& row : rows) {
    MathClass math;
    EXPECT_EQ(MathClassPeer::DoOperation(math, row.left, row.right, row.op), row.result) << row.op;
    EXPECT_EQ(math.ResultDetails, row.details) << row.op;
  }
  MathClass math;
  EXPECT_EQ(MathClassPeer::SubstituteMultiplication(math, "2x"), "");
}

}  // namespace
}  // namespace sumlet

// The line language by its worked examples, and MathClass as a whole.
#include <gtest/gtest.h>

#include "engine/math_class.h"
#include "engine/worked_examples.h"
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

// A random number below 0.0001 is written with an exponent, and its line then fails for the letter in it; so a few
// tries.
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
  EXPECT_EQ(EvaluateRandom("x=RND\nx-x"), "0") << "a stored one stays";
}

TEST(Language, ErrorsAreToldByAWord) {
  const MathClass math("|");
  EXPECT_TRUE(!math.ResultIsError() && math.ResultIsError("an eRRoR inside") && !math.ResultIsError("err or"));
}

}  // namespace
}  // namespace sumlet

// The engine against the plain evaluator, on random texts: whatever is typed, all that a run leaves must be equal.
#include <gtest/gtest.h>

#include <random>

#include "engine/plain_rewriting.h"
#include "engine/random_equations.h"

namespace sumlet {
namespace {

String Described(const Outcome& run) {
  String text = "[" + run.result + "] details [" + run.details + "] line " + std::to_string(run.lastLine);
  for (Int32 i = 0; i <= run.varKey.Ubound(); ++i) text += " [" + run.varKey[i] + "=" + run.varValue[i] + "]";
  return text;
}

TEST(Differential, RandomTexts) {
  constexpr int rounds = 40'000;
  std::mt19937 random(1);
  const Choose choose = [&random](std::size_t limit) { return random() % limit; };
  MathClass math;  // one for all texts: nothing of an earlier run may show
  int compared = 0;
  int values = 0;
  for (int round = 0; round < rounds; ++round) {
    const String text = RandomEquation(choose);
    const Int32 lastLine = math.LastLineEvaluated;
    math.equationText = text;
    math.Evaluate();
    if (InStr(text, "rnd") > 0) continue;  // it needs only end
    std::optional<Outcome> plain = EvaluatePlainly(text, 200'000);
    if (!plain) continue;
    if (text.empty()) plain->lastLine = lastLine;
    ASSERT_EQ(Described(OutcomeOf(math)), Described(*plain))
        << "round " << round << ": " << testing::PrintToString(text);
    ++compared;
    if (!math.ResultIsError()) ++values;
  }
  EXPECT_GE(compared, rounds / 100 * 90);
  EXPECT_GE(values, rounds / 100 * 35) << "comparing errors alone means little";
}

}  // namespace
}  // namespace sumlet

// The engine against the plain evaluator of its tests: they agree on every short text. Long ones, for which the plain
// one is too slow, are the business of engine.cpp.
#include "check.h"
#include "engine/plain_rewriting.h"

namespace sumlet {

void CheckInput(std::string_view input) {
  if (input.empty() || InStr(input, "rnd") > 0) return;
  const std::optional<Outcome> plain = EvaluatePlainly(input, 20'000);
  if (!plain) return;
  MathClass math{String(input)};
  math.Evaluate();
  Check(OutcomeOf(math) == *plain, "the engine and the plain evaluator agree");
}

}  // namespace sumlet

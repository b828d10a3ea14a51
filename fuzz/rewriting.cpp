// The engine against the plain evaluator of its tests: they agree on every short text. Long ones, for which the plain
// one is too slow, are the business of engine.cpp.
#include "check.h"
#include "engine/plain_rewriting.h"
#include "engine/random_equations.h"

namespace sumlet {
namespace {

// An input that begins with this byte chooses the words of a grammar; any other is an equation as it stands.
constexpr char choosesWords = '\x01';

String EquationOf(std::string_view input) {
  if (input.front() != choosesWords) return String(input);
  std::size_t at = 1;
  const Choose choose = [&](std::size_t limit) {
    return at < input.size() ? static_cast<unsigned char>(input[at++]) % limit : 0;
  };
  return RandomEquation(choose);
}

}  // namespace

void CheckInput(std::string_view input) {
  if (input.empty()) return;
  const String equation = EquationOf(input);
  if (equation.empty() || InStr(equation, "rnd") > 0) return;
  const std::optional<Outcome> plain = EvaluatePlainly(equation, 20'000);
  if (!plain) return;
  MathClass math(equation);
  math.Evaluate();
  Check(OutcomeOf(math) == *plain, "the engine and the plain evaluator agree");
}

}  // namespace sumlet

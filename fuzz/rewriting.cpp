// Compares the engine with the plain evaluator on short texts. The plain evaluator is too slow for long texts, which
// engine.cpp checks.
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "check.h"
#include "framework/text/text.h"
#include "plain_rewriting.h"
#include "random_equations.h"

namespace sumlet {
namespace {

// An input that begins with one of these bytes chooses the words of a grammar. Any other input is an equation itself.
constexpr char choosesWords = '\x01';
constexpr char choosesArithmetic = '\x02';

String EquationOf(std::string_view input) {
  const bool isArithmetic = input.front() == choosesArithmetic;
  if (input.front() != choosesWords && !isArithmetic) return String(input);
  const Choose choose = ChooseBy(input.substr(1));
  return isArithmetic ? RandomArithmetic(choose) : RandomEquation(choose);
}

String Described(const Outcome& run) {
  String text = "[" + run.result + "] details [" + run.details + "] line " + std::to_string(run.lastLine);
  for (Int32 i = 0; i <= run.varKey.Ubound(); ++i) text += " [" + run.varKey[i] + "=" + run.varValue[i] + "]";
  return text;
}

}  // namespace

void CheckInput(std::string_view input) {
  if (input.empty()) return;
  const String equation = EquationOf(input);
  if (equation.empty() || InStr(equation, "rnd") > 0) return;
  const std::optional<Outcome> plain = EvaluatePlainly(equation, 20'000);
  if (!plain) return;
  MathClass math("used=1\nx=2\nunknown");
  math.Evaluate();  // leaves variables and the details of an error, which must not affect the next run
  math.equationText = equation;
  math.Evaluate();
  const Outcome outcome = OutcomeOf(math);
  if (outcome != *plain)
    std::fprintf(stderr, "%s\n%s\n%s\n", equation.c_str(), Described(outcome).c_str(), Described(*plain).c_str());
  Check(outcome == *plain, "the engine and the plain evaluator agree");
}

}  // namespace sumlet

// Evaluates any text, and checks what the header of MathClass promises about the results.
#include <string_view>

#include "check.h"
#include "engine/math_class.h"
#include "framework/text/text.h"
#include "plain_rewriting.h"

namespace sumlet {
namespace {

void CheckOutcome(const MathClass& math, const String& result) {
  Check(result == math.Result, "Evaluate gives Result");
  Check(math.ResultIsError() == (InStr(math.Result, "error") > 0), "an error is a result that contains the word");
  Check(ShownResult(math, result).size() >= result.size(), "the shown result contains the result");
}

// Each run starts afresh, so a used object and a new one give the same results for the same text.
void CheckRepetition(MathClass& math) {
  if (InStr(math.equationText, "rnd") > 0) return;
  MathClass fresh(math.equationText);
  fresh.Evaluate();
  Check(OutcomeOf(math) == OutcomeOf(fresh), "two runs over one text agree");
  if (math.equationText.size() > 4096) return;
  math.Evaluate();
  Check(OutcomeOf(math) == OutcomeOf(fresh), "an earlier run has no effect");
}

}  // namespace

void CheckInput(std::string_view input) {
  MathClass math{String(input)};
  const String result = math.Evaluate();
  CheckOutcome(math, result);
  CheckRepetition(math);
}

}  // namespace sumlet

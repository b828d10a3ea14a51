// The line language: any text is evaluated, and all that a run leaves is as the header of MathClass says.
#include "check.h"
#include "engine/math_class.h"
#include "plain_rewriting.h"

namespace sumlet {
namespace {

void CheckOutcome(const MathClass& math, const String& result) {
  Check(result == math.Result, "Evaluate gives Result");
  Check(math.ResultIsError() == (InStr(math.Result, "error") > 0), "an error is a result that holds the word");
  Check(ShownResult(math, result).size() >= result.size(), "the shown result holds the result");
}

// Each run starts afresh, so the same text leaves the same, on an object that has been used and on a new one.
void CheckRepetition(MathClass& math) {
  if (InStr(math.equationText, "rnd") > 0) return;
  MathClass fresh(math.equationText);
  fresh.Evaluate();
  Check(OutcomeOf(math) == OutcomeOf(fresh), "two runs over one text agree");
  if (math.equationText.size() > 4096) return;
  math.Evaluate();
  Check(OutcomeOf(math) == OutcomeOf(fresh), "nothing of an earlier run shows");
}

}  // namespace

void CheckInput(std::string_view input) {
  MathClass math{String(input)};
  const String result = math.Evaluate();
  CheckOutcome(math, result);
  CheckRepetition(math);
}

}  // namespace sumlet

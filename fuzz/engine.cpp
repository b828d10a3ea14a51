// The line language: any text is evaluated, and all that a run leaves is as the header of MathClass says.
#include "check.h"
#include "engine/math_class.h"
#include "engine/result_text.h"

namespace sumlet {
namespace {

void CheckOutcome(const MathClass& math, const String& result) {
  Check(result == math.Result, "Evaluate gives Result");
  Check(math.ResultIsError() == (InStr(math.Result, "error") > 0), "an error is a result that holds the word");
  Check(math.varKey.Ubound() == math.varValue.Ubound(), "each name has a value");
  Check(ShownResult(math, result).size() >= result.size(), "the shown result holds the result");

  LineReader lines(math.equationText);
  Int32 last = -1;
  bool allBlank = true;
  for (std::string_view line; lines.Next(line); ++last) allBlank = allBlank && Trimmed(line).empty();
  if (last >= 0) Check(math.LastLineEvaluated >= 0 && math.LastLineEvaluated <= last, "the last line is one of them");
  if (last >= 0 && !math.ResultIsError()) Check(math.LastLineEvaluated == last, "without an error all lines are read");
  if (allBlank) Check(result.empty() && math.ResultDetails.empty(), "nothing comes out of nothing");
}

// Each run starts afresh, so the same text leaves the same, on an object that has been used and on a new one.
void CheckRepetition(MathClass& math) {
  if (InStr(math.equationText, "rnd") > 0) return;
  MathClass fresh(math.equationText);
  fresh.Evaluate();
  const auto agrees = [&fresh](const MathClass& other) {
    return other.Result == fresh.Result && other.ResultDetails == fresh.ResultDetails &&
           other.LastLineEvaluated == fresh.LastLineEvaluated && other.varKey == fresh.varKey &&
           other.varValue == fresh.varValue;
  };
  Check(agrees(math), "two runs over one text agree");
  if (math.equationText.size() > 4096) return;
  math.Evaluate();
  Check(agrees(math), "nothing of an earlier run shows");
}

}  // namespace
}  // namespace sumlet

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  sumlet::MathClass math{sumlet::String(sumlet::Input(data, size))};
  const sumlet::String result = math.Evaluate();
  sumlet::CheckOutcome(math, result);
  sumlet::CheckRepetition(math);
  return 0;
}

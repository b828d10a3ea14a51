// The engine against the plain evaluator of its tests: they agree on every short text. Long ones, for which the plain
// one is too slow, are the business of engine.cpp.
#include "check.h"
#include "engine/math_class.h"
#include "engine/plain_rewriting.h"

namespace sumlet {
namespace {

constexpr std::size_t budget = 20'000;

void CheckAgreement(const String& text) {
  if (text.empty() || InStr(text, "rnd") > 0) return;
  const std::optional<PlainOutcome> plain = EvaluatePlainly(text, budget);
  if (!plain) return;
  MathClass math(text);
  Check(math.Evaluate() == plain->result, "the results agree");
  Check(math.ResultDetails == plain->details, "the details agree");
  Check(math.LastLineEvaluated == plain->lastLine, "the lines agree");
  Check(math.varKey == plain->varKey && math.varValue == plain->varValue, "the variables agree");
}

}  // namespace
}  // namespace sumlet

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  sumlet::CheckAgreement(sumlet::String(sumlet::Input(data, size)));
  return 0;
}

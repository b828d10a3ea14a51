#include "engine/result_text.h"

namespace sumlet {

String ShownResult(const MathClass& math, std::string_view result) {
  if (!math.ResultIsError(result) || math.ResultDetails.empty()) return String(result);
  return "\"" + math.ResultDetails + "\" " + String(result);
}

}  // namespace sumlet

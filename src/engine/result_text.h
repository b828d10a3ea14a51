// How a result is shown to people.
#pragma once

#include "engine/math_class.h"

namespace sumlet {

// The text for `result`, which math.Evaluate() has just given: the result itself or, for an error that speaks of
// something, the name or operator in double quotation marks, a blank and the error.
[[nodiscard]] String ShownResult(const MathClass& math, std::string_view result);

}  // namespace sumlet

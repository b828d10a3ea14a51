// A literal implementation of the language: every step copies the whole text and starts again on it.
//
// The engine must give the same results for every text, although it processes only the part of a text that changes.
// This evaluator is slow, but short enough to be checked by reading. It shares with the engine the text functions and
// the values of single operators, functions and fractions, which the worked examples test.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "engine/math_class.h"
#include "framework/text/array.h"
#include "framework/text/text.h"

namespace sumlet {

// The results of a run. Each field has the meaning of the property of MathClass.
struct Outcome {
  String result;
  String details;
  Int32 lastLine = 0;
  Array<String> varKey;
  Array<String> varValue;
  [[nodiscard]] bool operator==(const Outcome&) const = default;
};

inline Outcome OutcomeOf(const MathClass& math) {
  return {math.Result, math.ResultDetails, math.LastLineEvaluated, math.varKey, math.varValue};
}

// Evaluates `text` as MathClass::Evaluate does. Returns nothing if the rewritten texts together exceed `budget` bytes,
// because that would take too long.
[[nodiscard]] std::optional<Outcome> EvaluatePlainly(std::string_view text, std::size_t budget);

}  // namespace sumlet

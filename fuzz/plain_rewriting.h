// The calculation done to the letter: every step copies the whole text and starts again on it.
//
// The engine keeps its text normalised only around the place of each rewrite, so that long lines stay cheap. Whether
// anyone could tell is what this plain evaluator is for: it is short enough to be checked by reading, as slow as it
// looks, and the engine has to agree with it on every text. It shares with the engine the text functions and the
// leaves: the value of one operator, of one function and of one fraction, which the worked examples test.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "engine/math_class.h"

namespace sumlet {

// What a run leaves; every field means what the property of MathClass means.
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

// Evaluates `text` as MathClass::Evaluate does. Gives nothing when the rewritten texts together exceed `budget` bytes:
// this evaluator is no judge of texts that long.
[[nodiscard]] std::optional<Outcome> EvaluatePlainly(std::string_view text, std::size_t budget);

}  // namespace sumlet

// The calculation done to the letter: every step copies the whole text and starts again on it.
//
// The engine keeps its text normalised only around the place of each rewrite, so that long lines stay cheap. Whether
// anyone could tell is what this plain evaluator is for: it is short enough to be checked by reading, as slow as it
// looks, and the engine has to agree with it on every text. It shares nothing with the engine but the text functions.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

struct PlainOutcome {
  String result;
  String details;
  Int32 lastLine = 0;
  Array<String> varKey;
  Array<String> varValue;
};

// Evaluates `text` as MathClass::Evaluate does; every field means what the property there means. Gives nothing when the
// rewritten texts together exceed `budget` bytes: this evaluator is no judge of texts that long.
[[nodiscard]] std::optional<PlainOutcome> EvaluatePlainly(std::string_view text, std::size_t budget);

}  // namespace sumlet

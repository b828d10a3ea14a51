// The run over the lines of an equation.

#include <algorithm>

#include "engine/arithmetic.h"
#include "engine/characters.h"
#include "engine/comments.h"
#include "engine/long_number.h"
#include "engine/math_class.h"
#include "framework/text/search.h"
#include "framework/text/utf8.h"

namespace sumlet {

String MathClass::Evaluate() {
  Result.clear();
  ResultDetails.clear();
  DefineBuiltIns();

  String running;
  Int32 index = 0;
  LineReader lines(equationText);
  for (std::string_view line; lines.Next(line); ++index) {
    LastLineEvaluated = index;
    line = Trimmed(line);
    if (line.empty() || IsComment(line)) continue;
    if (!EvaluateStraight(line, running)) {
      ReduceLevel = 0;
      running = Reduce(line);
      if (ResultIsError(running)) break;
    }
    if (LineObserver) LineObserver(index, running);
  }
  Result = running;
  return Result;
}

// The short cut of straight_line.h, for an expression or an assignment. Gives false and changes nothing when the line
// has to be rewritten. Only the name to be assigned can hold the word that makes the line an error.
bool MathClass::EvaluateStraight(std::string_view line, String& value) {
  const std::size_t equalsSign = line.find('=');
  const bool isAssignment = equalsSign != std::string_view::npos;
  const std::string_view name = isAssignment ? Trimmed(line.substr(0, equalsSign)) : std::string_view();
  if (isAssignment) {
    const bool isWord =
        !name.empty() && std::none_of(name.begin(), name.end(), [](char c) { return IsIn(c, delimiter); });
    if (!isWord || ResultIsError(name) || !NameError(name).empty()) return false;
  }
  const std::optional<StraightLine::Value> result =
      straightLine_.Evaluate(isAssignment ? line.substr(equalsSign + 1) : line);
  if (!result) return false;
  if (result->variable >= 0) {
    value = varValue[result->variable];
  } else if (!result->text.empty()) {
    value = result->text;
  } else {
    value = ValueText(result->number);
  }
  if (isAssignment) {
    ResultDetails = name;
    AddVariable(name, value, {.number = result->number, .isLong = value.size() > shortNumberLength});
  } else if (std::optional<String> tried = straightLine_.NameTriedLast()) {
    ResultDetails = *std::move(tried);
  }
  return true;
}

bool MathClass::ResultIsError() const { return ResultIsError(Result); }

// Asked after every step. Wherever the word stands, it covers one of every five characters, so a text that has none of
// its letters in these places needs no search.
bool MathClass::ResultIsError(std::string_view text) const {
  constexpr std::string_view word = "Error";
  for (std::size_t i = word.size() - 1; i < text.size(); i += word.size()) {
    const char c = FoldAscii(text[i]);
    if (c == 'e' || c == 'r' || c == 'o') return FindText(text, word, 0).found;
  }
  return false;
}

}  // namespace sumlet

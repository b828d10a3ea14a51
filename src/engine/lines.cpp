// The run over the lines of an equation.

#include "engine/comments.h"
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
    ReduceLevel = 0;
    running = Reduce(line);
    if (ResultIsError(running)) break;
  }
  Result = running;
  return Result;
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

// The evaluation of an equation: splits it into lines, and gives each to the parser or else checks, assigns or rewrites
// it.
//
// Rewriting replaces the innermost parenthesis that closes first, then the first pair of bars, then the leftmost of the
// operators that bind tightest. No step brings back what an earlier kind of step has removed, so each kind is one pass
// over a RewriteBuffer from left to right. Reduce calls itself for the right side of an assignment, for the
// text inside a parenthesis, which contains no parenthesis, and for the text inside bars, which contains no bar either.
// So these calls nest at most four deep.

#include "engine/math_class.h"

#include <algorithm>
#include <cmath>

#include "engine/arithmetic.h"
#include "engine/language.h"
#include "engine/long_number.h"
#include "engine/rewrite_buffer.h"
#include "framework/text/search.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

struct BracketCounts {
  std::size_t opening = 0;
  std::size_t closing = 0;
  std::size_t bars = 0;
  bool hasWords = false;  // there are word characters; without them the text cannot contain "Error"
};

BracketCounts CountBrackets(std::string_view text) {
  BracketCounts counts;
  for (const char c : text) {
    const CharacterSet sets = SetsOf(c);
    if ((sets & delimiter) == 0) counts.hasWords = true;
    if ((sets & (parenthesis | bar)) == 0) continue;
    if (c == '(') ++counts.opening;
    if (c == ')') ++counts.closing;
    if (c == '|') ++counts.bars;
  }
  return counts;
}

// The first run of characters that cannot be part of a number.
std::string_view FirstWord(std::string_view text) {
  const auto isPlain = [](char c) { return IsIn(c, signedNumberCharacter); };
  const auto begin = std::find_if_not(text.begin(), text.end(), isPlain);
  const auto end = std::find_if(begin, text.end(), isPlain);
  return {begin, end};
}

// Removes minus signs and blanks in front of `text`, and blanks behind it. Returns whether the number of signs is odd.
bool RemoveSigns(std::string_view& text) {
  bool isNegative = false;
  for (; !text.empty() && (text.front() == '-' || text.front() == ' '); text.remove_prefix(1)) {
    if (text.front() == '-') isNegative = !isNegative;
  }
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return isNegative;
}

// The value of a text that is one number with minus signs and blanks, or such a text between bars. A fast path, because
// a long number can be inside many parentheses and bars.
std::optional<String> LoneNumber(std::string_view text) {
  const bool isNegative = RemoveSigns(text);
  if (text.size() > 2 && text.front() == '|' && text.back() == '|') {
    text = text.substr(1, text.size() - 2);
    static_cast<void>(RemoveSigns(text));
  }
  const auto isPart = [](char c) { return c != ' ' && IsIn(c, numberCharacter); };
  if (text.empty() || !std::all_of(text.begin(), text.end(), isPart)) return {};
  String number;
  number.reserve(text.size() + 1);
  if (isNegative) number += '-';
  return number += text;
}

}  // namespace

String MathClass::Evaluate() {
  Result.clear();
  ResultDetails.clear();
  DefineBuiltIns();

  String lastValue;
  Int32 index = 0;
  LineReader lines(equationText);
  for (std::string_view line; lines.Next(line); ++index) {
    LastLineEvaluated = index;
    line = Trimmed(line);
    if (line.empty() || IsComment(line)) continue;
    if (!EvaluateByParser(line, lastValue)) {
      ReduceLevel = 0;
      lastValue = Reduce(line);
      if (ResultIsError(lastValue)) break;
    }
    if (LineObserver) LineObserver(index, lastValue);
  }
  Result = lastValue;
  return Result;
}

// Evaluates an expression or assignment by the ExpressionParser. Returns false and changes nothing if the line must be
// rewritten. Every text that contains "Error" is an error. Looks only at the assigned name, because the parser accepts
// no expression that contains the word.
bool MathClass::EvaluateByParser(std::string_view line, String& value) {
  const std::size_t equalsSign = line.find('=');
  const bool isAssignment = equalsSign != std::string_view::npos;
  const std::string_view name = isAssignment ? Trimmed(line.substr(0, equalsSign)) : std::string_view();
  if (isAssignment) {
    const bool isWord =
        !name.empty() && std::none_of(name.begin(), name.end(), [](char c) { return IsIn(c, delimiter); });
    if (!isWord || ResultIsError(name) || FindFunction(name) != nullptr) return false;
  }
  const std::optional<ExpressionParser::Value> result =
      parser_.Evaluate(isAssignment ? line.substr(equalsSign + 1) : line);
  if (!result) return false;
  SetText(value, *result);
  if (isAssignment) {
    ResultDetails = name;
    AddVariable(name, value, {.number = result->number, .isLong = value.size() > shortNumberLength});
  } else if (std::optional<String> tried = parser_.NameTriedLast()) {
    ResultDetails = *std::move(tried);  // rewriting leaves it there, too; an error without details shows it
  }
  return true;
}

// Sets `text` to the text of the value. Minus signs in front of a variable or a parenthesis, and pairs that cancel,
// show only in the sign of the double.
void MathClass::SetText(String& text, const ExpressionParser::Value& value) const {
  if (value.variable >= 0) {
    text = varValue[value.variable];
  } else if (!value.magnitude.empty()) {
    text = value.magnitude;
  } else {
    text = ValueText(value.number);
  }
  const bool isNegative = std::signbit(value.number);
  if (isNegative == text.starts_with('-')) return;
  if (isNegative) {
    text.insert(0, 1, '-');
  } else {
    text.erase(0, 1);
  }
}

bool MathClass::ResultIsError() const { return ResultIsError(Result); }

// Called after every step, so it must be fast for texts without "Error". The word has five letters, so a text that
// contains it has one of them at index 4, 9, 14 or so on. Only then the slow search runs.
bool MathClass::ResultIsError(std::string_view text) const {
  constexpr std::string_view word = "Error";
  for (std::size_t i = word.size() - 1; i < text.size(); i += word.size()) {
    const char c = FoldAscii(text[i]);
    if (c == 'e' || c == 'r' || c == 'o') return FindText(text, word, 0).found;
  }
  return false;
}

String MathClass::Reduce(std::string_view expression) {
  if (expression.empty()) return {};
  if (ReduceLevel > 0) {
    if (std::optional<String> number = LoneNumber(expression)) return *std::move(number);
  }
  const BracketCounts counts = CountBrackets(expression);
  if (counts.hasWords && ResultIsError(expression)) return String(expression);
  if (counts.opening != counts.closing) return String(errors::unmatchedParenthesis);
  if (counts.bars % 2 != 0) return String(errors::unmatchedBar);
  ++ReduceLevel;
  if (ReduceLevel > 1) {
    RewriteBuffer text(expression);
    return Rewrite(text);
  }

  const std::size_t equalsSign = expression.find('=');
  if (equalsSign != std::string_view::npos) return Assign(expression, equalsSign);
  String substituted = SubstituteVariables(expression);
  if (ResultIsError(substituted)) return substituted;
  RewriteBuffer text(substituted);
  substituted = String();  // frees the memory: the text can be thousands of times as long as the line
  return Rewrite(text);
}

// Evaluates the right side before checking that the name is no function, because an error there takes precedence.
String MathClass::Assign(std::string_view expression, std::size_t equalsSign) {
  const std::string_view rightSide = expression.substr(equalsSign + 1);
  if (rightSide.find('=') != std::string_view::npos) return String(errors::multipleAssignments);
  const std::string_view name = Trimmed(expression.substr(0, equalsSign));
  if (name.find(' ') != std::string_view::npos) return Fail(errors::nameContainsSpace, name);

  String value = Reduce(SubstituteVariables(rightSide));
  if (ResultIsError(value) || name.empty()) return value;
  if (FindFunction(name) != nullptr) return Fail(errors::nameIsFunction, name);
  ResultDetails = name;
  AddVariable(name, value);
  return value;
}

String MathClass::Rewrite(RewriteBuffer& text) {
  if (text.MayContain(parenthesis)) {
    if (Ending ending = ReduceParentheses(text)) return *std::move(ending);
  }
  if (text.MayContain(bar)) {
    if (Ending ending = ReduceBars(text)) return *std::move(ending);
  }
  return ReduceOperators(text);
}

// Bars pair up in order, so pairs never nest.
MathClass::Ending MathClass::ReduceBars(RewriteBuffer& text) {
  text.Rewind();
  while (text.MoveTo(bar)) {
    const std::string_view after = text.After();
    const std::size_t closing = after.find('|', 1);
    String value = Reduce(after.substr(1, closing - 1));
    if (ResultIsError(value)) {
      ResultDetails.clear();
      return value;
    }
    const std::size_t signLength = value.substr(0, 1) == "-" ? 1 : 0;
    text.Replace(0, closing + 1, std::string_view(value).substr(signLength), TrimMode::Blanks);
  }
  return {};
}

// Without operators the text is a number, or contains an unknown word, or is a row of numbers, which are multiplied.
String MathClass::ReduceOperators(RewriteBuffer& text) {
  text.Rewind();
  for (;;) {
    std::size_t level = 0;
    while (LookupNextOp(text, level)) {
      if (Ending ending = ApplyOperator(text)) return *std::move(ending);
    }
    const std::string_view numbers = Trimmed(text.Whole());
    if (text.MayContain(wordCharacter)) {
      if (const std::string_view word = FirstWord(numbers); !word.empty()) return Fail(errors::variableUnknown, word);
    }
    if (numbers.find(' ') == std::string_view::npos) return String(numbers);
    text.ReplaceBlanks('*');
  }
}

String MathClass::Fail(std::string_view error, std::string_view details) {
  ResultDetails = details;
  return String(error);
}

String ShownResult(const MathClass& math, std::string_view result) {
  if (!math.ResultIsError(result) || math.ResultDetails.empty()) return String(result);
  return "\"" + math.ResultDetails + "\" " + String(result);
}

}  // namespace sumlet

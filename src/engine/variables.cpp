// Replaces the names of variables by their values, each between blanks.
//
// A value can contain names itself (an infinity, or a fraction in quotation marks). The pass replaces the names in such
// a value before it reads on. The text before it then contains no names, so one pass suffices. A name inside its own
// value is an error, because replacing it would never end.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/language.h"
#include "engine/long_number.h"
#include "engine/math_class.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

bool HasWords(std::string_view value) {
  for (const char c : value) {
    if (!IsIn(c, delimiter)) return true;
  }
  return false;
}

// Whether no value that is substituted in this text can be the line's result unchanged. A number or an operator ensures
// this, because numbers side by side are multiplied. Parentheses, bars, minus signs and white space do not.
bool HasNumberOrOperator(std::string_view text) {
  const auto isPart = [](char c) { return c != ' ' && c != '-' && IsIn(c, delimiter) && !IsIn(c, parenthesis | bar); };
  return std::any_of(text.begin(), text.end(), isPart);
}

// Whether only digits and blanks follow the last operator or sign, so that no "." can join a value appended to `text`.
// False if none is within `reach`.
bool OnlyDigitsSinceOperator(std::string_view text) {
  constexpr std::size_t reach = 64;  // characters; limits the time for many values in a long text
  for (std::size_t i = 1; i <= std::min(text.size(), reach); ++i) {
    const char c = text[text.size() - i];
    if (IsIn(c, operatorSign)) return true;
    if (c != ' ' && !IsDigit(c)) return false;
  }
  return false;
}

}  // namespace

// The state of the substitution of one line.
struct MathClass::Substitution {
  String result;
  bool isComputed = false;     // no value will be the line's result without a calculation
  int longValues = 0;          // substituted so far
  int wholeLongValues = 0;     // of these, not abridged
  std::vector<Int32> entered;  // the variables whose values are being read, outer to inner
};

ValueForm MathClass::FormOf(std::string_view value) {
  const bool isNegative = value.starts_with('-');
  std::string_view rest = value.substr(isNegative ? 1 : 0);
  const std::optional<double> magnitude = TakeNumber(rest);
  ValueForm form;
  form.hasWords = HasWords(value);
  if (magnitude && rest.empty()) form.number = isNegative ? -*magnitude : *magnitude;
  form.isLong = !form.hasWords && value.size() > shortNumberLength;
  return form;
}

// Removes all variables and defines the built-in ones. A run may assign to any of these except RND.
void MathClass::DefineBuiltIns() {
  varKey.Redim(-1);
  varValue.Redim(-1);
  variables_.Clear();
  abridgedValues_.clear();
  longValueBytes_ = 0;
  AddVariable("pi", "3.14159265358979323846264338327950");
  AddVariable("\u03C0", "3.14159265358979323846264338327950");
  AddVariable("RND", "[random]");  // never read: each use takes a new random number
  randomIndex_ = varKey.Ubound();
  AddVariable("mod", "%");
}

// `form` is that of `value`.
void MathClass::AddVariable(std::string_view name, std::string_view value, const ValueForm& form) {
  const Int32 index = variables_.Find(name);
  if (index < 0) {
    varKey.Append(String(name));
    varValue.Append(String(value));
    variables_.Add(name, form);
    return;
  }
  if (varValue[index] == value) return;
  varValue[index] = value;
  abridgedValues_.erase(index);
  if (index != randomIndex_) variables_.SetForm(index, form);
}

// A long value is substituted in whole as long as it may be the line's result. Where the text behind it shows that it
// is only a part of a calculation, repeats the substitution with the value abridged, which saves time in later steps.
// Does so only after a run has substituted abridgingThreshold bytes of long values.
String MathClass::SubstituteVariables(std::string_view text) {
  Substitution line;
  line.result.reserve(text.size());
  line.isComputed = HasNumberOrOperator(text);
  bool succeeds = AppendSubstituted(line, text);
  line.isComputed = line.isComputed || line.longValues > 1;
  if (succeeds && line.isComputed && line.wholeLongValues > 0 && longValueBytes_ > abridgingThreshold) {
    line.result.clear();
    succeeds = AppendSubstituted(line, text);
  }
  if (!succeeds) return String(errors::twoArgumentsRequired);
  const std::string_view trimmed = Trimmed(line.result);
  line.result.erase(0, static_cast<std::size_t>(trimmed.data() - line.result.data()));
  line.result.resize(trimmed.size());
  return std::move(line.result);
}

// Appends `text` with its names replaced. Returns false if a value contains its own name.
bool MathClass::AppendSubstituted(Substitution& line, std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    std::size_t end = at;
    while (end < text.size() && IsIn(text[end], delimiter)) ++end;
    line.result += text.substr(at, end - at);
    at = end;
    while (end < text.size() && !IsIn(text[end], delimiter)) ++end;
    const std::string_view word = text.substr(at, end - at);
    at = end;
    if (word.empty()) continue;
    const Int32 index = variables_.Find(word);
    if (index < 0) {
      line.result += word;  // a function, an unknown word, or white space other than blanks
      line.isComputed = line.isComputed || !Trimmed(word).empty();
    } else if (!AppendValue(line, index)) {
      return false;
    }
  }
  return true;
}

bool MathClass::AppendValue(Substitution& line, Int32 index) {
  line.result += ' ';
  const ValueForm& form = variables_.Form(index);
  if (index == randomIndex_) {
    if (!AppendSubstituted(line, Str(Rnd()))) return false;
  } else if (form.hasWords) {
    if (std::find(line.entered.begin(), line.entered.end(), index) != line.entered.end()) return false;
    line.entered.push_back(index);
    if (!AppendSubstituted(line, varValue[index])) return false;
    line.entered.pop_back();
  } else if (form.isLong) {
    AppendLongValue(line, index);
  } else {
    line.result += varValue[index];
  }
  line.result += ' ';
  return true;
}

// Two values in a line always take part in a calculation.
void MathClass::AppendLongValue(Substitution& line, Int32 index) {
  const bool isComputed = line.isComputed || line.longValues > 0;
  ++line.longValues;
  if (isComputed && longValueBytes_ > abridgingThreshold) {
    const bool pointMayPrecede = !OnlyDigitsSinceOperator(line.result);
    AbridgedValue& value = abridgedValues_[index];
    String& abridged = pointMayPrecede ? value.anywhere : value.behindOperator;
    if (abridged.empty()) abridged = AbridgedNumber(varValue[index], pointMayPrecede);
    line.result += abridged;
  } else {
    ++line.wholeLongValues;
    line.result += varValue[index];
    longValueBytes_ += varValue[index].size();
  }
}

// Inserts nothing: rewriting multiplies numbers side by side when no operator is left.
String MathClass::SubstituteMultiplication(std::string_view) { return {}; }

}  // namespace sumlet

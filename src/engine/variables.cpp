// Variables: a name in the text gives way to its value between blanks.
//
// The search starts again at the first character after each replacement, so that a value can hold names in its turn.
// Only a handful of values do (infinities, fractions in quotation marks), and what stands in front of the replacement
// is known to hold none; so one walk suffices that goes into such a value before it goes on behind it. A name met
// inside its own value would be replaced for ever: that is an error.

#include <algorithm>
#include <utility>
#include <vector>

#include "engine/language.h"
#include "engine/long_number.h"
#include "engine/math_class.h"
#include "framework/text/numbers.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

bool HasWords(std::string_view value) {
  for (const char c : value) {
    if (!IsIn(c, delimiter)) return true;
  }
  return false;
}

// Whether a value in this text is computed, or the text ends in an error, whatever the value. A value stands between
// blanks, and numbers with a blank between them are multiplied; an operator leaves a number. Parentheses, bars, a minus
// sign and white space can all go without a trace.
bool HoldsNumberOrOperator(std::string_view text) {
  const auto tells = [](char c) { return c != ' ' && c != '-' && IsIn(c, delimiter) && !IsIn(c, parenthesis | bar); };
  return std::any_of(text.begin(), text.end(), tells);
}

// Whether what follows `text` is read behind an operator, or the sign of a number, and digits only. Parentheses and
// bars go without a trace.
bool FollowsOperator(std::string_view text) {
  constexpr std::size_t reach = 64;  // characters; long texts are looked at once for each value
  for (std::size_t i = 1; i <= std::min(text.size(), reach); ++i) {
    const char c = text[text.size() - i];
    if (IsIn(c, operatorSign)) return true;
    if (c != ' ' && !IsDigit(c)) return false;
  }
  return false;
}

}  // namespace

// One line on its way through the substitution.
struct MathClass::Substitution {
  String result;
  bool isComputed = false;  // no value put in will be shown as it stands
  int longValues = 0;       // put in, and how many of them in whole
  int wholeLongValues = 0;
  std::vector<Int32> opened;  // the variables whose values are being read
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

// Empties the table and fills it anew. A run may give any built-in another value except RND.
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

// What follows a long value can tell that it need not have been put in whole. Once that has cost enough, it is done
// over with the value abridged, since all the steps that follow read it again.
String MathClass::SubstituteVariables(std::string_view text) {
  Substitution line;
  line.result.reserve(text.size() + 64);
  line.isComputed = HoldsNumberOrOperator(text);
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

// Appends `text` with its names replaced. Gives false when a value holds its own name.
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
      line.result += word;  // a function, or unknown, unless it is white space
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
    if (std::find(line.opened.begin(), line.opened.end(), index) != line.opened.end()) return false;
    line.opened.push_back(index);
    if (!AppendSubstituted(line, varValue[index])) return false;
    line.opened.pop_back();
  } else if (form.isLong) {
    AppendLongValue(line, index);
  } else {
    line.result += varValue[index];
  }
  line.result += ' ';
  return true;
}

// A text with two numbers is always computed and never shown as it stands.
void MathClass::AppendLongValue(Substitution& line, Int32 index) {
  const bool isComputed = line.isComputed || line.longValues > 0;
  ++line.longValues;
  if (isComputed && longValueBytes_ > abridgingThreshold) {
    const bool pointMayPrecede = !FollowsOperator(line.result);
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

// Numbers side by side are multiplied by the rewriting itself, once no operator is left among them; nothing is put in
// for it beforehand.
String MathClass::SubstituteMultiplication(std::string_view) { return {}; }

}  // namespace sumlet

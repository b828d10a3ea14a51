// Rewrites parentheses and the calls of functions.

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "engine/language.h"
#include "engine/math_class.h"
#include "engine/rewrite_buffer.h"
#include "framework/text/text.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

// The byte offset of the last "(" in `before`. Skips the value inserted last, which contains none, so that the digits
// of a long number inside many parentheses are not read again for each of them.
std::size_t LastOpening(std::string_view before, std::string_view lastValue) {
  const std::size_t valueEnd = static_cast<std::size_t>(lastValue.data() - before.data()) + lastValue.size();
  const std::size_t behind = lastValue.empty() ? 0 : valueEnd;
  const std::size_t found = before.substr(behind).rfind('(');
  if (found != std::string_view::npos) return behind + found;
  return before.substr(0, behind - lastValue.size()).rfind('(');
}

// Whether `text` is the value inserted last and ends like a number. "nan" and "inf" do not.
bool IsLastNumber(std::string_view text, std::string_view lastValue) {
  const bool isLastValue = text.data() == lastValue.data() && text.size() == lastValue.size();
  return isLastValue && !text.empty() && IsIn(text.back(), signedNumberCharacter);
}

bool IsPlainOpening(std::string_view before, std::size_t open) {
  return open == 0 || !CanEndFunctionName(before[open - 1]);
}

// Pairs of parentheses without a call, one directly inside the other.
struct Nest {
  std::size_t pairs = 0;
  std::size_t bytesAfter = 0;  // from the cursor to the end of the outermost pair
};

// The nest around a number whose innermost pair opens at `open` and closes at the first byte of `after`. Moves `open`
// to the outermost pair.
Nest FindNest(std::string_view before, std::string_view after, std::size_t& open) {
  Nest nest{1, 1};
  for (;;) {
    const std::size_t front = open > 0 && before[open - 1] == ' ' ? open - 1 : open;
    const std::size_t close = nest.bytesAfter + (after.substr(nest.bytesAfter, 1) == " " ? 1 : 0);
    if (front == 0 || before[front - 1] != '(' || !IsPlainOpening(before, front - 1)) return nest;
    if (close == after.size() || after[close] != ')') return nest;
    open = front - 1;
    nest = {nest.pairs + 1, close + 1};
  }
}

}  // namespace

MathClass::Ending MathClass::ReduceParentheses(RewriteBuffer& text) {
  std::size_t open = 0;
  while (text.MoveTo(parenthesis)) {
    if (text.After().front() == '(') {
      ++open;
      text.Advance(1);
    } else if (open == 0) {
      text.Advance(1);  // there are as many "(", so one of them will stay unmatched, too
    } else {
      const std::size_t pairs = UnwrapNumber(text);
      open -= std::max<std::size_t>(pairs, 1);
      if (pairs > 0) continue;
      if (Ending ending = ReduceInnermost(text)) return ending;
    }
  }
  if (open == 0) return {};
  const std::string_view whole = text.Whole();
  return FailUnclosed(whole.substr(0, whole.find('(')));
}

// The cursor is before the ")" of an innermost pair. If the pair holds only the value inserted last, removes all pairs
// directly around it at once, so that a long number in many parentheses is copied only once. Returns how many pairs it
// removed: 0 if the pair holds anything else or belongs to a call.
std::size_t MathClass::UnwrapNumber(RewriteBuffer& text) {
  const std::string_view before = text.Before();
  const std::string_view lastValue = text.LastValue();
  std::size_t open = LastOpening(before, lastValue);
  const std::string_view number = Trimmed(before.substr(open + 1));
  if (!IsLastNumber(number, lastValue) || !IsPlainOpening(before, open)) return 0;
  const Nest nest = FindNest(before, text.After(), open);
  ResultDetails = String(open == 0 ? std::string_view() : before.substr(open - 1, 1));
  text.Replace(before.size() - open, nest.bytesAfter, String(number), TrimMode::WhiteSpace);
  return nest.pairs;
}

// The cursor is in front of the ")" of an innermost pair.
MathClass::Ending MathClass::ReduceInnermost(RewriteBuffer& text) {
  const std::string_view before = text.Before();
  const std::size_t open = LastOpening(before, text.LastValue());
  const std::string_view inner = before.substr(open + 1);
  const bool hasComma = inner.find(',') != std::string_view::npos;

  String first;
  String second;
  if (hasComma) {
    first = Reduce(NthField(inner, ",", 1));
    second = Reduce(NthField(inner, ",", 2));
  } else {
    first = Reduce(inner);
  }
  if (ResultIsError(first)) return first;
  if (ResultIsError(second)) return second;

  if (const std::optional<Call> call = FindCall(before.substr(0, open))) {
    return ReduceCall(text, *call, inner, first, second);
  }
  const String value = hasComma ? Reduce(inner) : std::move(first);
  if (ResultIsError(value)) return value;
  text.Replace(before.size() - open, 1, value, TrimMode::WhiteSpace);
  return {};
}

// `inner` is the text between the parentheses of the call, `first` and `second` are its reduced arguments. The cursor
// is in front of the ")".
MathClass::Ending MathClass::ReduceCall(RewriteBuffer& text, const Call& call, std::string_view inner,
                                        std::string_view first, std::string_view second) {
  if (call.function == nullptr) return FractionToDecimal(inner);
  String value = Apply(*call.function, call.name, first, second);
  if (ResultIsError(value)) return value;
  const std::string_view before = text.Before();
  const std::string_view front = before.substr(0, static_cast<std::size_t>(call.name.data() - before.data()));
  if (call.function->IsFraction()) {
    const bool isAlone = Trimmed(front).empty() && Trimmed(text.After().substr(1)).empty();
    return isAlone ? value : String(errors::fractionNotAlone);
  }
  // Arguments after the second are dropped. If one bar of a pair is among them, the other one is left over.
  if ((CountFields(inner, "|") - 1) % 2 == 1) return String(errors::unmatchedBar);
  text.Replace(before.size() - front.size(), 1, value, TrimMode::WhiteSpace);
  return {};
}

// The error for a text with a "(" that no ")" closes, as for ")(". `front` is the text in front of the first such "(".
// A function name at its end is evaluated without arguments, and its error takes precedence.
String MathClass::FailUnclosed(std::string_view front) {
  const std::optional<Call> call = FindCall(front);
  if (!call) return String(errors::unmatchedParenthesis);
  if (call->function == nullptr) return FractionToDecimal({});
  if (call->function->IsFraction()) return String(errors::fractionNotAlone);
  return Apply(*call->function, call->name, {}, {});
}

// Looks up the last five characters of `front` as a function name, then the last four and so on, so the longest name
// wins. Each name that is no function goes into ResultDetails.
std::optional<MathClass::Call> MathClass::FindCall(std::string_view front) {
  if (front.empty() || !CanEndFunctionName(front.back())) {
    ResultDetails = front.substr(front.size() - LastCharacterLength(front));
    return {};
  }
  std::array<std::string_view, maxFunctionNameLength> names;  // by length in characters minus 1; empty if too long
  std::size_t bytes = 0;
  for (std::string_view& name : names) {
    const std::size_t length = LastCharacterLength(front.substr(0, front.size() - bytes));
    if (length == 0) break;
    bytes += length;
    name = front.substr(front.size() - bytes);
  }
  for (auto name = names.rbegin(); name != names.rend(); ++name) {
    const Function* function = FindFunction(*name);
    if (function != nullptr || SameText(*name, "dec")) return Call{*name, function};
    ResultDetails = *name;
  }
  return {};
}

}  // namespace sumlet

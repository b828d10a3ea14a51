// One operator: its operands, its value.

#include <array>

#include "engine/language.h"
#include "engine/math_class.h"
#include "engine/rewrite_buffer.h"

namespace sumlet {
namespace {

// The end of `text` that is the left operand: number characters, and the minus sign in front of them when it is the
// sign of the number: when nothing stands before it, or something that is no part of a number.
std::string_view LeftOperand(std::string_view text) {
  std::size_t begin = text.size();
  bool seen = false;
  for (; begin > 0 && IsIn(text[begin - 1], numberCharacter); --begin) {
    if (text[begin - 1] != ' ') seen = true;
  }
  if (begin > 0 && seen && text[begin - 1] == '-') {
    std::size_t ahead = begin - 1;
    while (ahead > 0 && text[ahead - 1] == ' ') --ahead;
    if (ahead == 0 || !IsIn(text[ahead - 1], numberCharacter)) --begin;
  }
  return text.substr(begin);
}

// The beginning of `text` that is the right operand: minus signs and blanks, then number characters. Nothing when the
// text ends before a number has begun.
std::optional<std::string_view> RightOperand(std::string_view text) {
  bool seen = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == ' ' || (!seen && c == '-')) continue;
    if (!IsIn(c, numberCharacter)) return text.substr(0, i);
    seen = true;
  }
  if (!seen) return {};
  return text;
}

}  // namespace

// Moves the cursor in front of the next operator and gives true, or gives false when none is left. `level` is the level
// of precedence reached, 0 for a new text: as no operator brings in one that binds tighter, none is ever lowered.
bool MathClass::LookupNextOp(RewriteBuffer& text, std::size_t& level) {
  constexpr std::array<CharacterSet, 3> signsByLevel{powerSign, productSign, sumSign};
  for (; level < signsByLevel.size(); ++level) {
    const CharacterSet signs = signsByLevel[level];
    if (text.Held(signs) && text.MoveTo(signs)) return true;
    text.Rewind();
  }
  return false;
}

// The cursor stands in front of the operator.
//
// A "-" with nothing but minus signs behind it, as in "3--", would put the whole text back behind each value and go on
// for ever, always with these signs at the end. It fails like any operator that lacks its right operand.
MathClass::Ending MathClass::ApplyOperator(RewriteBuffer& text) {
  const std::string_view after = text.After();
  const std::string_view op = after.substr(0, 1);
  const std::optional<std::string_view> right = RightOperand(after.substr(1));
  if (text.Before().empty() || !right) return Fail(errors::twoArgumentsRequired, op);
  const std::string_view left = LeftOperand(text.Before());
  String value = DoOperation(left, *right, op);
  if (ResultIsError(value)) return value;
  text.Replace(left.size(), 1 + right->size(), value, SeamTrim::Blanks);
  // A negative value behind other text brings in a minus sign that is the next operator of its level.
  text.StepBackOverValue();
  return {};
}

}  // namespace sumlet

// Finds the next operator and its operands, and puts its value in their place.

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "engine/language.h"
#include "engine/math_class.h"
#include "engine/rewrite_buffer.h"
#include "framework/text/text.h"

namespace sumlet {
namespace {

// The left operand: the longest run of number characters (digits, blanks, "," and ".") at the end of `text`. A minus
// sign before the run belongs to it if the text begins there or if the last character before the sign, apart from
// blanks, is not a number character.
std::string_view LeftOperand(std::string_view text) {
  std::size_t begin = text.size();
  bool hasNumber = false;
  for (; begin > 0 && IsIn(text[begin - 1], numberCharacter); --begin) {
    if (text[begin - 1] != ' ') hasNumber = true;
  }
  if (begin > 0 && hasNumber && text[begin - 1] == '-') {
    std::size_t ahead = begin - 1;
    while (ahead > 0 && text[ahead - 1] == ' ') --ahead;
    if (ahead == 0 || !IsIn(text[ahead - 1], numberCharacter)) --begin;
  }
  return text.substr(begin);
}

// The right operand at the beginning of `text`: minus signs and blanks, then number characters. Nothing if the text
// ends before a number begins.
std::optional<std::string_view> RightOperand(std::string_view text) {
  bool hasNumber = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == ' ' || (!hasNumber && c == '-')) continue;
    if (!IsIn(c, numberCharacter)) return text.substr(0, i);
    hasNumber = true;
  }
  if (!hasNumber) return {};
  return text;
}

}  // namespace

// Moves the cursor in front of the next operator. Returns false if none is left. `level` is the current level of
// precedence, 0 for a new text with the cursor at the start. It never decreases, because a value contains no operator
// but a minus sign, which has the lowest precedence.
bool MathClass::LookupNextOp(RewriteBuffer& text, std::size_t& level) {
  static constexpr std::array<CharacterSet, 3> signsByLevel{powerSign, productSign, sumSign};
  for (; level < signsByLevel.size(); ++level) {
    const CharacterSet signs = signsByLevel[level];
    if (!text.MayContain(signs)) continue;
    if (text.MoveTo(signs)) return true;
    text.Rewind();
  }
  return false;
}

// The cursor is in front of the operator.
//
// Fails if no text precedes the operator or if it has no right operand. Minus signs alone are no operand: "3--" would
// be rewritten to itself again and again.
MathClass::Ending MathClass::ApplyOperator(RewriteBuffer& text) {
  const std::string_view after = text.After();
  const std::string_view op = after.substr(0, 1);
  const std::optional<std::string_view> right = RightOperand(after.substr(1));
  if (text.Before().empty() || !right) return Fail(errors::twoArgumentsRequired, op);
  const std::string_view left = LeftOperand(text.Before());
  String value = DoOperation(left, *right, op);
  if (ResultIsError(value)) return value;
  text.Replace(left.size(), 1 + right->size(), value, TrimMode::Blanks);
  // The minus sign of a negative value is an operator unless the value begins the text, so the search must find it.
  text.StepBackOverValue();
  return {};
}

}  // namespace sumlet

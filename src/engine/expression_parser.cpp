#include "engine/expression_parser.h"

#include <cmath>
#include <cstddef>

#include "engine/arithmetic.h"
#include "engine/language.h"
#include "framework/text/numbers.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

// The level of an opening parenthesis, which binds looser than every operator, so its number is larger.
constexpr CharacterSet group = sumSign << 1;
static_assert(powerSign < productSign && productSign < sumSign && sumSign < group);

}  // namespace

// One pass. The first element of the stack represents the whole expression, as if it were in parentheses.
class ExpressionParser::Pass {
 public:
  Pass(std::string_view expression, const VariableIndex& variables, std::vector<Waiting>& waiting)
      : at_(expression.data()), end_(at_ + expression.size()), variables_(variables), waiting_(waiting) {
    waiting_.clear();
    waiting_.push_back({.level = group});
  }

  // Returns whether the pass reached the end of the expression and applied all operators.
  [[nodiscard]] bool Run() {
    bool isFirst = true;  // the next operand begins its expression
    for (;;) {
      SkipBlanks();
      const bool isNegated = at_ != end_ && *at_ == '-';
      if (isNegated) {
        ++at_;
        SkipBlanks();
      }
      if (!ReadOperand(isNegated, isFirst)) return false;
      if (isOpened_) {
        isFirst = true;
        continue;
      }
      if (!CloseParentheses()) return false;
      if (at_ == end_) return Apply(sumSign) && waiting_.size() == 1;
      isFirst = *at_ == ',';
      if (!(isFirst ? TakeFirstArgument() : TakeOperator())) return false;
      ++at_;
    }
  }

  [[nodiscard]] double Number() const { return value_; }
  [[nodiscard]] bool IsComputed() const { return isComputed_; }
  // The function's name in front of the parenthesis closed last; empty for a plain parenthesis. Skips calls of
  // functions with names of the greatest length, because rewriting tries these first. Its data is null if no
  // parenthesis remains.
  [[nodiscard]] std::string_view LastCall() const { return lastCall_; }

 private:
  void SkipBlanks() {
    while (at_ != end_ && *at_ == ' ') ++at_;
  }

  // Reads a number or a variable, or opens a parenthesis and sets isOpened_.
  [[nodiscard]] bool ReadOperand(bool isNegated, bool isFirst) {
    isOpened_ = false;
    if (at_ == end_) return false;
    if (IsDigit(*at_) || *at_ == '.') return ReadNumber(isNegated);
    const char* const begin = at_;
    while (at_ != end_ && !IsIn(*at_, delimiter)) ++at_;
    const std::string_view word(begin, static_cast<std::size_t>(at_ - begin));
    const Int32 variable = word.empty() ? -1 : variables_.Find(word);
    if (variable < 0) return Open(begin, isNegated, isFirst);
    const std::optional<double>& number = variables_.Form(variable).number;
    if (!number) return false;
    value_ = *number;
    return ApplySign(isNegated, isFirst);
  }

  [[nodiscard]] bool ReadNumber(bool isNegated) {
    std::string_view rest(at_, static_cast<std::size_t>(end_ - at_));
    const std::optional<double> number = TakeNumber(rest);
    if (!number) return false;
    at_ = rest.data();
    value_ = isNegated ? -*number : *number;
    return true;
  }

  [[nodiscard]] bool ApplySign(bool isNegated, bool isFirst) {
    if (!isNegated) return true;
    if (std::signbit(value_) && !isFirst) return false;
    value_ = -value_;
    return true;
  }

  // Opens a parenthesis. The cursor is behind the letters of a word that begins at `begin` and is no variable; the word
  // may be empty.
  [[nodiscard]] bool Open(const char* begin, bool isNegated, bool isFirst) {
    if (at_ != begin && at_ != end_ && IsDigit(*at_)) ++at_;  // a digit ends a word, but atan2 has one
    if (at_ == end_ || *at_ != '(') return false;
    const Function* function = nullptr;
    if (at_ != begin) {
      const std::string_view name(begin, static_cast<std::size_t>(at_ - begin));
      function = FindFunction(name);
      if (function == nullptr || function->name.size() != name.size()) return false;  // written with a long s
      if (function->IsFraction()) return false;
    }
    waiting_.push_back(
        {.level = group, .isNegated = isNegated, .isFirst = isFirst, .function = function, .begin = begin});
    ++at_;
    isOpened_ = true;
    return true;
  }

  [[nodiscard]] bool CloseParentheses() {
    for (;;) {
      SkipBlanks();
      if (at_ == end_ || *at_ != ')') return true;
      if (!Close()) return false;
      ++at_;
    }
  }

  [[nodiscard]] bool Close() {
    if (!Apply(sumSign) || waiting_.size() == 1) return false;
    const Waiting opened = waiting_.back();
    waiting_.pop_back();
    const std::size_t nameLength = opened.function == nullptr ? 0 : opened.function->name.size();
    if (nameLength < maxFunctionNameLength) lastCall_ = {opened.begin, nameLength};
    if (opened.function != nullptr && !Call(opened)) return false;
    return ApplySign(opened.isNegated, opened.isFirst);
  }

  [[nodiscard]] bool Call(const Waiting& opened) {
    const Function& function = *opened.function;
    if (opened.hasFirstArgument != (function.binary != nullptr)) return false;
    return Compute(std::fabs(opened.hasFirstArgument ? function.binary(opened.left, value_) : function.unary(value_)));
  }

  // The cursor is at the comma.
  [[nodiscard]] bool TakeFirstArgument() {
    if (!Apply(sumSign)) return false;
    Waiting& opened = waiting_.back();
    if (opened.function == nullptr || opened.hasFirstArgument) return false;
    opened.hasFirstArgument = true;
    opened.left = value_;
    return true;
  }

  // The cursor is behind an operand.
  [[nodiscard]] bool TakeOperator() {
    const CharacterSet level = SetsOf(*at_) & operatorSign;
    if (level == 0 || !Apply(level)) return false;
    waiting_.push_back({.level = level, .sign = *at_, .left = value_});
    return true;
  }

  // Applies the waiting operators that bind as tightly as `level` or tighter.
  [[nodiscard]] bool Apply(CharacterSet level) {
    while (waiting_.back().level <= level) {
      if (!Compute(Operate(waiting_.back().sign, waiting_.back().left, value_))) return false;
      waiting_.pop_back();
    }
    return true;
  }

  [[nodiscard]] bool Compute(double value) {
    value_ = RoundToTenPlaces(value);
    isComputed_ = true;
    return std::isfinite(value_);
  }

  const char* at_;
  const char* end_;
  const VariableIndex& variables_;
  std::vector<Waiting>& waiting_;
  double value_ = 0;  // of the last operand, after the operators and calls applied to it
  bool isComputed_ = false;
  bool isOpened_ = false;
  std::string_view lastCall_;
};

namespace {

// The operand of an expression that computes nothing, without the signs, parentheses and blanks around it.
std::string_view LoneOperand(std::string_view expression) {
  const std::size_t begin = expression.find_first_not_of(" (-");
  const std::size_t end = expression.find_last_not_of(" )") + 1;
  return expression.substr(begin, end - begin);
}

}  // namespace

std::optional<ExpressionParser::Value> ExpressionParser::Evaluate(std::string_view expression) {
  Pass pass(expression, variables_, waiting_);
  if (!pass.Run()) return {};
  Value value;
  value.number = pass.Number();
  if (!pass.IsComputed()) {
    const std::string_view operand = LoneOperand(expression);
    if (IsDigit(operand.front()) || operand.front() == '.') {
      value.magnitude = operand;  // even if a line such as "2=3" has made a variable of this name
    } else {
      value.variable = variables_.Find(operand);
    }
  }
  expression_ = expression;
  lastCall_ = pass.LastCall();
  return value;
}

// The last name that rewriting tries before it finds the function is one character longer. It looks for names in a text
// in normal form (rewrite_buffer.h): no white space at the beginning, no two blanks in a row, and no blank behind a "-"
// at the beginning.
std::optional<String> ExpressionParser::NameTriedLast() const {
  if (lastCall_.data() == nullptr) return {};
  const std::string_view front = expression_.substr(0, static_cast<std::size_t>(lastCall_.data() - expression_.data()));
  const std::string_view trimmed = Trimmed(front);
  if (trimmed.empty()) return String();
  const char inFront = trimmed == "-" ? '-' : front.back();
  return inFront + String(lastCall_);
}

}  // namespace sumlet

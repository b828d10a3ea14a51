// The operators as arithmetic, and the form of every computed value.
#pragma once

#include "framework/text/numbers.h"

namespace sumlet {

// Both cut their operands to Int32, and compute in 64 bits so that no pair of operands traps. A divisor that is then 0
// gives the quotient 0, and the dividend as the remainder. The remainder has the sign of the dividend.
[[nodiscard]] double IntegerQuotient(double dividend, double divisor);
[[nodiscard]] double IntegerRemainder(double dividend, double divisor);

// The unrounded value of the operator `sign`, one of those that language.h gives a level of precedence.
[[nodiscard]] inline double Operate(char sign, double left, double right) {
  switch (sign) {
    case '+':
      return left + right;
    case '-':
      return left - right;
    case '*':
      return left * right;
    case '/':
      return left / right;
    case '\\':
      return IntegerQuotient(left, right);
    case '%':
      return IntegerRemainder(left, right);
    default:  // '^'
      return Pow(left, right);
  }
}

// A computed value as it goes back into a line: rounded to ten places, with its sign.
[[nodiscard]] String ValueText(double value);

}  // namespace sumlet

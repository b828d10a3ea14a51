// The arithmetic of the operators, and the text form of computed values.
#pragma once

#include "framework/text/mathematics.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"

namespace sumlet {

// Both truncate their operands to Int32, and compute in 64 bits so that no pair of operands overflows. For a divisor of
// 0 the quotient is 0 and the remainder is the dividend. The remainder has the sign of the dividend.
[[nodiscard]] double IntegerQuotient(double dividend, double divisor);
[[nodiscard]] double IntegerRemainder(double dividend, double divisor);

// The unrounded value of the operator `sign`, which must be an operatorSign of language.h.
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

// The text of a computed value, rounded to ten decimals.
[[nodiscard]] String ValueText(double value);

}  // namespace sumlet

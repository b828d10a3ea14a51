// Pieces of arithmetic that operators, functions and fractions share.
#pragma once

#include "framework/text/text.h"

namespace sumlet {

// The remainder of a and b, both cut to Int32, with the sign of a; a as cut when b is then 0.
[[nodiscard]] double IntegerRemainder(double a, double b);

// `number` without a "." in the last place, as Format leaves it behind a whole number.
[[nodiscard]] String WithoutClosingPoint(String number);

}  // namespace sumlet

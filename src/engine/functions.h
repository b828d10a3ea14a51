// The functions of the line language, except dec, which takes its argument as text (parentheses.cpp).
#pragma once

#include <cstddef>
#include <string_view>

#include "framework/text/utf8.h"

namespace sumlet {

struct Function {
  std::string_view name;  // in lower case
  // One of the two is set, and none for frac, whose value is a text. A line shows the magnitude of a value only:
  // cos(pi) is 1.
  double (*ofOne)(double);
  double (*ofTwo)(double, double);
};

// In characters. That many in front of a parenthesis are tried as a name.
inline constexpr std::size_t longestFunctionName = 5;

// Whether a function name can end in `c`. It saves trying five names in front of each plain parenthesis.
[[nodiscard]] constexpr bool CanEndFunctionName(char c) {
  return !IsAscii(c) || (FoldAscii(c) >= 'a' && FoldAscii(c) <= 'z') || c == '2';
}

// The function of this name in any case; nullptr when there is none.
[[nodiscard]] const Function* FindFunction(std::string_view name);

}  // namespace sumlet

// What a function can be called, so that it is found in front of a parenthesis.
#pragma once

#include <cstddef>
#include <string_view>

#include "framework/text/utf8.h"

namespace sumlet {

// In characters. That many in front of a parenthesis are tried as a name.
inline constexpr std::size_t longestFunctionName = 5;

// Whether a function name can end in `c`, a letter or a 2. It saves trying five names in front of each plain
// parenthesis.
[[nodiscard]] constexpr bool CanEndFunctionName(char c) {
  return !IsAscii(c) || (FoldAscii(c) >= 'a' && FoldAscii(c) <= 'z') || c == '2';
}

// Whether a function of this name, in lower case, can be called.
[[nodiscard]] constexpr bool CanBeCalled(std::string_view name) {
  return !name.empty() && name.size() <= longestFunctionName && CanEndFunctionName(name.back());
}

}  // namespace sumlet

// Equations made up at random: sentences of the line language, and texts that just miss being one.
#pragma once

#include <cstddef>
#include <functional>

#include "framework/text/text.h"

namespace sumlet {

// Gives a number below `limit`, which is at least 1.
using Choose = std::function<std::size_t(std::size_t limit)>;

// A few lines of the language, most of which have a value, or a worked example with a few characters changed.
[[nodiscard]] String RandomEquation(const Choose& choose);

// A few lines of plain arithmetic: numbers, variables, operators, parentheses and functions.
[[nodiscard]] String RandomArithmetic(const Choose& choose);

}  // namespace sumlet

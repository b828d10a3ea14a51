// Equations made up at random: sentences of the line language, and texts that just miss being one.
#pragma once

#include <cstddef>
#include <functional>

#include "framework/text/text.h"

namespace sumlet {

// Gives a number below `limit`, which is at least 1.
using Choose = std::function<std::size_t(std::size_t limit)>;

// A few lines of the whole language, loose tokens, or a worked example; some with a few characters changed.
[[nodiscard]] String RandomEquation(const Choose& choose);

// A few lines of plain arithmetic: assignments, operators, parentheses and calls. Few of them fail, so their values go
// through many operations, of small, large and tiny numbers.
[[nodiscard]] String RandomArithmetic(const Choose& choose);

}  // namespace sumlet

// Random equations: sentences of the line language, and texts that are almost sentences.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

// Returns a number below `limit`, which is at least 1.
using Choose = std::function<std::size_t(std::size_t limit)>;

// Chooses by the bytes of `input`, one for each choice; 0 after the last. `input` must outlive it.
[[nodiscard]] Choose ChooseBy(std::string_view input);

// A few lines of the language, most of which have a value, or a worked example with a few characters changed.
[[nodiscard]] String RandomEquation(const Choose& choose);

// A few lines of plain arithmetic: numbers, variables, operators, parentheses and functions.
[[nodiscard]] String RandomArithmetic(const Choose& choose);

}  // namespace sumlet

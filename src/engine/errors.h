// The engine's error texts, as users see them.
#pragma once

#include <string_view>

namespace sumlet::errors {

inline constexpr std::string_view unmatchedParenthesis = "Error: Unmatched Parenthesis";
inline constexpr std::string_view unmatchedBar = "Error: Unmatched Absolute Bar ";
inline constexpr std::string_view multipleAssignments = "Error: Multiple Assignment Operators";
inline constexpr std::string_view nameContainsSpace = "Error: Variable Name Contains Space";
inline constexpr std::string_view nameIsFunction = "Error: Variable Name is a Function";
inline constexpr std::string_view variableUnknown = "Error: Variable Unknown";
inline constexpr std::string_view fractionNotAlone =
    "Error: Function \"Fraction()\" can not be combined with other statements.";
inline constexpr std::string_view twoArgumentsRequired = "Error: Operator Requires Two Arguments";
inline constexpr std::string_view missingOperator = "Error: Missing an Operator";
inline constexpr std::string_view functionUnknown = "Error: Function Unknown";
inline constexpr std::string_view oneArgumentFormat = "Error: Format as FunctionName(arguments)";
inline constexpr std::string_view twoArgumentFormat = "Error: Format as FunctionName( argument, argument)";
inline constexpr std::string_view notAFraction = "Error: Not a Fraction";
inline constexpr std::string_view incompleteFraction = "Error: Incomplete Fraction";

}  // namespace sumlet::errors

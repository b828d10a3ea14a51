// Worked examples of the line language: the text that a user types, and its result. docs/language.md has others, which
// System.sumlet_eval_test checks.
#pragma once

namespace sumlet {

struct Example {
  const char* text;
  const char* result;
  const char* details = nullptr;  // ResultDetails; for an error always given
  int lastLine = -1;              // LastLineEvaluated; -1 if the example is not about it
};

constexpr auto parenthesis = "Error: Unmatched Parenthesis";
constexpr auto bar = "Error: Unmatched Absolute Bar ";
constexpr auto unknown = "Error: Variable Unknown";
constexpr auto nameIsFunction = "Error: Variable Name is a Function";
constexpr auto twoOperands = "Error: Operator Requires Two Arguments";
constexpr auto oneArgument = "Error: Format as FunctionName(arguments)";
constexpr auto twoArguments = "Error: Format as FunctionName( argument, argument)";
constexpr auto notAlone = "Error: Function \"Fraction()\" can not be combined with other statements.";
constexpr auto notAFraction = "Error: Not a Fraction";
constexpr auto incomplete = "Error: Incomplete Fraction";
constexpr auto longPi = "3.14159265358979323846264338327950";

inline constexpr Example workedExamples[] = {
    // lines: the result is that of the last expression; the first error ends the run
    {"", "", ""},
    {" \n' note\n\n  # x\n// y", "", "", 4},
    {"1\n2\n3", "3", "", 2},
    {"1\r\n2\r3", "3", "", 2},
    {"  # x\n7", "7"},
    {"5 // c", twoOperands, "/", 0},
    {"/ /5", twoOperands, "/"},
    // a line that contains the word "error" is an error
    {"error", "error", ""},
    // operators
    {"1 2 3*2", "246"},
    // integer operators truncate their operands; division by zero is no error
    {"7\\0.5", "0"},
    {"99999999999\\1", "2147483647"},
    // clusters of minus signs
    {"---5", "-5"},
    {"x=-3\n2*-x^2", "-18"},
    {"x=-0\n2*-x^0", "-2"},
    {"2*-(0-3)^2", "-18"},
    // missing operands
    {"5-", twoOperands, "-"},
    {"3+x", twoOperands, "+"},
    {"2*- ^3", twoOperands, "^"},
    {"3-x", unknown, "x"},
    // values that are no numbers
    {"0/0", unknown, "nan"},
    // values side by side
    {"1+2(3)", "24"},
    // without an operation a number keeps its form
    {"Π", longPi},
    // parentheses
    {"1+2)", parenthesis, ""},
    {"sqrt 4)", parenthesis, ""},
    // absolute bars
    {"2=3\n|3", bar, "2", 1},
    {"- (2)*3\n|3", bar, "-", 1},
    {"max(|-3|,2)", "3"},
    // assignments
    {"=5", "5", ""},
    {"a b=3", "Error: Variable Name Contains Space", "a b"},
    {"frac=3", nameIsFunction, "frac"},
    // variables are words, replaced by the text of their values
    {"ab=3\nAB", "3"},
    {"s=3\nſ", "3"},  // a long s, which is an s in another case
    {"pi=3\npi", "3"},
    {"2=3\n2", "2"},
    {"x=-2\n3-x", "5"},
    // functions
    {"sqrt(4)sqrt(9)", "6"},
    {"abs(2,3)", "2"},
    {"pow(2,10)", "1024"},
    {"cos(1)", "0.5403023059"},
    {"tan(1)", "1.5574077247"},
    {"asin(0.5)", "0.5235987756"},
    {"acos(0.5)", "1.0471975512"},
    {"atan(2)", "1.1071487178"},
    {"atan2(1,2)", "0.463647609"},
    {"ceil(2.5)", "3"},
    {"round(2.4)", "2"},
    {"sign(0)", "0"},
    // values of functions have no sign
    {"sin(-1)-1", "-0.1585290152"},
    {"min(-3,2)", "3"},
    // calls that fail
    {"sqrt()", oneArgument, "sqrt"},
    {"atan2(1,)", twoArguments, "atan2"},
    {"mod(7,3)", twoOperands, "%"},
    // decimals to fractions
    {"frac(0.999)", "\"1 0/9\""},
    {"frac()", "0"},
    {"frac(-0.333)", "\"-2/9\""},
    {"frac(1234567891)", "\"1234567891 1/1\""},  // seven digits and an exponent: 1.234568e+9
    {"frac(0.00001234)", "\"1/5\""},             // 1.234000e-5
    {"1+frac(0.5)", notAlone, "+frac"},
    // fractions to decimals; the rest of the line is ignored
    {"Dec( 2  3/4 )", "2.75"},
    {"dec(1 1/2 3)", "1.5"},
    {"x=3\ndec(x 1/2)", "3.5"},
    {"dec(1,2)", notAFraction, ""},
};

}  // namespace sumlet

// StraightLine: evaluates an expression in one walk from left to right, wherever that gives what rewriting gives.
//
// The language is defined by rewriting the text of a line (math_class.cpp). Most lines need none of that. The walk is
// an ordinary operator-precedence parser: values are doubles, and operators, parentheses and calls whose right side is
// still to come wait on a stack. It either gives the value or declines and changes nothing; what it declines is
// rewritten.
//
// Which expressions it takes
//
//   expression = operand { operator operand }     powers first, then * / \ %, then + -; each level from left to right
//   operand    = [ "-" ] ( number | variable | "(" expression ")" | function "(" expression [ "," expression ] ")" )
//   number     = digits with at most one "." among or around them
//
// A variable holds a number, possibly with a "-" in front. A function has exactly as many arguments as it takes. Blanks
// may stand around operands and operators; no other white space may. Everything else is declined: operands side by
// side, bars, frac, dec, RND, signs in a row, commas elsewhere, every error, and the cases named below.
//
// Why the value is the same
//
//   1. A value needs no text on its way. Rewriting writes each computed value with ten decimals and reads it back;
//      RoundToTenPlaces gives the same double. A value that is not finite would become a word: declined.
//   2. Each rewriting finds the operands that the grammar gives. Rewriting looks for the ends of an operand among
//      digits, blanks and signs. Operands here have an operator, a parenthesis or a comma between them, which ends that
//      search, and each value leaves such a text behind.
//   3. A "-" in front of an operand is a part of it, for rewriting as for the walk, so it binds before a power. It can
//      meet the "-" of a negative value. Two signs at the beginning of a text cancel, but elsewhere a power would take
//      the second one only: "-" in front of a negative value is taken only where the operand begins the expression, a
//      parenthesis or an argument.
//   4. A function's value loses its sign, since rewriting writes its magnitude.
//
// Why the rest is the same
//
//   5. The text of a computed value is ValueText of its double. A value that nothing computed keeps the text that
//      it has in the line or in its variable. "-0" would be a text of its own: a computed negative zero is declined.
//   6. Rewriting tries names in front of each parenthesis, from the longest possible length down. The last one tried in
//      vain stays in ResultDetails: NameTriedLast.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "engine/variable_index.h"

namespace sumlet {

struct Function;

class StraightLine {
 public:
  // `variables` has to outlive the object; their forms are read at each evaluation.
  explicit StraightLine(const VariableIndex& variables) : variables_(variables) {}

  struct Value {
    double number = 0;
    // Of a value that nothing computed, one of the two: its text, a part of the expression, or its variable.
    std::string_view text;
    Int32 variable = -1;
  };
  // Nothing when the walk declines the expression.
  [[nodiscard]] std::optional<Value> Evaluate(std::string_view expression);

  // Behind an evaluation that gave a value: what its last parenthesis leaves in ResultDetails. Nothing when
  // ResultDetails keeps what it held.
  [[nodiscard]] std::optional<String> NameTriedLast() const;

 private:
  // An operator with its left operand, or an opening parenthesis.
  struct Waiting {
    std::uint16_t level;     // of precedence: a CharacterSet of language.h, lower where it binds tighter
    char sign = '\0';        // of an operator
    bool isNegated = false;  // the parenthesis has a "-" in front,
    bool isFirst = false;    // and begins its text
    bool hasFirstArgument = false;
    double left = 0;                     // operand of an operator, first argument of a call
    const Function* function = nullptr;  // in front of the parenthesis
    const char* begin = nullptr;         // of the function's name, or of the parenthesis
  };
  class Walk;

  const VariableIndex& variables_;
  std::vector<Waiting> waiting_;  // kept for its memory
  std::string_view expression_;   // of the last evaluation
  std::string_view tried_;        // the name in front of the last parenthesis that left one, or else this parenthesis
};

}  // namespace sumlet

// ExpressionParser: evaluates an expression in one pass from left to right, if rewriting would give the same value.
//
// The language is defined by rewriting the text of a line (math_class.cpp). Most lines do not need that. This is an
// ordinary operator-precedence parser: values are doubles, and operators, parentheses and calls wait on a stack until
// their right side has been read. It either returns the value, or rejects the expression and changes nothing; the
// caller then rewrites the expression.
//
// Which expressions it accepts
//
//   expression = operand { operator operand }     powers first, then * / \ %, then + -; each level from left to right
//   operand    = [ "-" ] ( number | variable | "(" expression ")" | function "(" expression [ "," expression ] ")" )
//   number     = digits with at most one "." among or around them
//
// The value of a variable must be a number, possibly with a "-" in front. A function must have exactly as many
// arguments as it takes. Blanks may be around operands and operators, and behind a sign; other white space may not. The
// parser rejects everything else: operands side by side, bars, frac, dec, RND, several signs in front of an operand,
// commas elsewhere, every error, and the values named in points 1 and 3.
//
// Why the value is the same
//
//   1. Intermediate values need no text. Rewriting writes each computed value with ten decimals and reads it back;
//      RoundToTenPlaces gives the same double. Rewriting would write an infinity or NaN as a word, so the parser
//      rejects the expression.
//   2. Rewriting finds the same operands as the grammar. It looks for the ends of an operand among digits, points,
//      commas, blanks and signs. In these expressions an operator or a parenthesis ends that search, because it
//      separates operands; there are no commas, because arguments are evaluated one by one. A text with a value
//      inserted is again such an expression, except for the two signs of point 3.
//   3. A "-" in front of an operand is a part of it, in rewriting as in the parser, so it binds tighter than a power.
//      In front of a negative value, "-0" included, there are then two signs. At the beginning of a text they cancel.
//      Elsewhere a power uses only the second one: for x = -3, `2*-x^2` becomes `2*--3^2` and then `2*-9`. So the
//      parser accepts "-" in front of a negative value only where the operand begins the expression, a parenthesis or
//      an argument.
//   4. A function's value loses its sign, because rewriting writes its magnitude.
//
// Why the result text and ResultDetails are the same
//
//   5. The text of a value is a "-" if its double is negative, "-0" included, and the text of its magnitude: ValueText
//      if it was computed, or else its text in the line or in its variable.
//   6. Rewriting tries names in front of each parenthesis, the longest first. It stores the last one that is no
//      function in ResultDetails: see NameTriedLast.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "engine/variable_index.h"
#include "framework/text/text.h"

namespace sumlet {

struct Function;

class ExpressionParser {
 public:
  // `variables` must outlive the object; each evaluation reads its present content.
  explicit ExpressionParser(const VariableIndex& variables) : variables_(variables) {}

  struct Value {
    double number = 0;
    // For a value that was not computed, one of the two is set: its text without a sign, or its variable.
    std::string_view magnitude;
    Int32 variable = -1;
  };
  // The value, or nothing if the parser rejects the expression.
  [[nodiscard]] std::optional<Value> Evaluate(std::string_view expression);

  // Returns what rewriting would leave in ResultDetails after all parentheses, or nothing if it stores nothing. Call
  // it only after Evaluate has returned a value, while the text given to Evaluate still exists.
  [[nodiscard]] std::optional<String> NameTriedLast() const;

 private:
  // An operator with its left operand, or an opening parenthesis.
  struct Waiting {
    std::uint16_t level;     // precedence: its CharacterSet (language.h), of which the smaller binds tighter
    char sign = '\0';        // the operator's character
    bool isNegated = false;  // the parenthesis has a "-" in front
    bool isFirst = false;    // the parenthesis, or the "-" in front of it, begins its text
    bool hasFirstArgument = false;
    double left = 0;                     // operand of an operator, first argument of a call
    const Function* function = nullptr;  // the called function; null for a plain parenthesis
    const char* begin = nullptr;         // of the function's name, or of the parenthesis
  };
  class Pass;

  const VariableIndex& variables_;
  std::vector<Waiting> waiting_;  // a member only to reuse its memory
  std::string_view expression_;   // of the last evaluation
  std::string_view lastCall_;     // of the last evaluation: see Pass::LastCall
};

}  // namespace sumlet

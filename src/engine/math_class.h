// MathClass: the calculation engine. The text of a whole equation goes in, one result text comes out.
//
// Everything is text. A line is evaluated by rewriting it: the innermost parenthesis, a pair of absolute bars or one
// operator at a time gives way to its value, until a number is left. Each value is cut to ten decimals as it goes
// back, and that is the arithmetic of this language: (1/3)*3 is 0.9999999999. docs/language.md tells it to users,
// docs/architecture.md tells how the rewriting is kept linear.
//
// An error is a result text that holds the word "Error", and nothing else is: ResultIsError is the one test.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "engine/straight_line.h"
#include "engine/variable_index.h"
#include "framework/text/array.h"
#include "framework/text/text.h"

namespace sumlet {

class RewriteBuffer;

class MathClass {
 public:
  explicit MathClass(String text = {}) : equationText(std::move(text)) {}
  MathClass(const MathClass&) = delete;
  MathClass& operator=(const MathClass&) = delete;
  virtual ~MathClass() = default;

  // The equation: any number of lines, each ended by CR, LF or CR LF.
  String equationText;

  // The variables of the last run, in the order of their first assignment; element i of varValue is the text value of
  // the name in element i of varKey. Read them between runs only.
  Array<String> varKey;
  Array<String> varValue;

  // The outcome of the last finished run; empty during a run.
  String Result;

 private:
  Int32 ReduceLevel = 0;  // how many texts of the present line have passed the checks of Reduce

 public:
  // 0-based index of the line that the run looked at last: the failed line, or else the very last one. A run over the
  // empty text has no line and leaves it as it was.
  Int32 LastLineEvaluated = 0;

  // The name or operator that an error speaks of. Emptied at the start of a run and by an error inside absolute bars;
  // an error that speaks of nothing leaves what an earlier step put there.
  String ResultDetails;

  // Evaluates the lines of equationText from the first to the last, or to the first that fails. Gives the result of the
  // last line that is no comment and not blank, or the error; Result holds the same text. Never fails otherwise,
  // whatever the text.
  virtual String Evaluate();

  // Observer of the runs; empty by default, which costs nothing. Evaluate calls it once for each line that has a value,
  // in the order of the lines and before it goes on to the next one. These are the expressions and assignments ahead of
  // the first that fails: comments, blank lines, the failed line and those below it are left out.
  //
  // `line` is the 0-based index of the line, counted as LastLineEvaluated is. `value` is what Evaluate would return if
  // the equation ended with that line. It can be empty, as that of "()", is never an error, and is valid during the
  // call only. The observer must not change this object. What it throws leaves Evaluate, and the next run starts anew.
  std::function<void(Int32 line, std::string_view value)> LineObserver;

  // Whether `text` (or Result) is an error: it holds the word "Error", in any case.
  [[nodiscard]] virtual bool ResultIsError() const;
  [[nodiscard]] virtual bool ResultIsError(std::string_view text) const;

 private:
  friend class MathClassPeer;  // lets a test reach an operation that no line of the language reaches

  // What a step gives that ends the evaluation of its text; nothing when the text goes on being rewritten.
  using Ending = std::optional<String>;

  // A function found in front of a parenthesis.
  struct Call {
    std::string_view name;     // the last characters of the text in front of the parenthesis
    const Function* function;  // nullptr for dec, which takes its argument as text
  };

  [[nodiscard]] bool EvaluateStraight(std::string_view line, String& value);

  // One text to its value or error.
  [[nodiscard]] String Reduce(std::string_view expression);
  [[nodiscard]] String Assign(std::string_view expression, std::size_t equalsSign);
  [[nodiscard]] String Rewrite(RewriteBuffer& text);
  [[nodiscard]] Ending ReduceBars(RewriteBuffer& text);
  [[nodiscard]] String ReduceOperators(RewriteBuffer& text);
  [[nodiscard]] String Fail(std::string_view error, std::string_view details);

  // parentheses.cpp
  [[nodiscard]] Ending ReduceParentheses(RewriteBuffer& text);
  [[nodiscard]] std::size_t UnwrapNumber(RewriteBuffer& text);
  [[nodiscard]] Ending ReduceInnermost(RewriteBuffer& text);
  [[nodiscard]] Ending ReduceCall(RewriteBuffer& text, const Call& call, std::string_view inner, std::string_view first,
                                  std::string_view second);
  [[nodiscard]] String FailUnclosed(std::string_view front);
  [[nodiscard]] std::optional<Call> FindCall(std::string_view front);

  // operators.cpp
  [[nodiscard]] static bool LookupNextOp(RewriteBuffer& text, std::size_t& level);
  [[nodiscard]] Ending ApplyOperator(RewriteBuffer& text);

  // arithmetic.cpp
  [[nodiscard]] static String CleanupNumber(std::string_view text);
  [[nodiscard]] String DoOperation(std::string_view left, std::string_view right, std::string_view op);
  [[nodiscard]] String DoFunction(std::string_view argument1, std::string_view argument2, std::string_view name);
  [[nodiscard]] String Apply(const Function& function, std::string_view name, std::string_view argument1,
                             std::string_view argument2);
  [[nodiscard]] static String DecimalToFraction(double value);
  [[nodiscard]] static String FractionToDecimal(std::string_view text);

  // variables.cpp
  struct Substitution;
  struct AbridgedValue {
    String anywhere;
    String behindOperator;  // where only digits may be written in front of it
  };
  [[nodiscard]] static ValueForm FormOf(std::string_view value);
  void DefineBuiltIns();
  void AddVariable(std::string_view name, std::string_view value) { AddVariable(name, value, FormOf(value)); }
  void AddVariable(std::string_view name, std::string_view value, const ValueForm& form);
  [[nodiscard]] String SubstituteVariables(std::string_view text);
  [[nodiscard]] bool AppendSubstituted(Substitution& line, std::string_view text);
  [[nodiscard]] bool AppendValue(Substitution& line, Int32 index);
  void AppendLongValue(Substitution& line, Int32 index);
  [[nodiscard]] static String SubstituteMultiplication(std::string_view text);

  VariableIndex variables_;  // variable i is element i of varKey and varValue
  StraightLine straightLine_{variables_};
  std::unordered_map<Int32, AbridgedValue> abridgedValues_;  // of long values, made when first wanted
  std::size_t longValueBytes_ = 0;                           // of the long values put in during the run
  Int32 randomIndex_ = -1;                                   // of RND, whose value is never read
};

// The text that shows `result`, which math.Evaluate() has just given, to people: the result itself or, for an error
// that speaks of something, the name or operator in double quotation marks, a blank and the error.
[[nodiscard]] String ShownResult(const MathClass& math, std::string_view result);

}  // namespace sumlet

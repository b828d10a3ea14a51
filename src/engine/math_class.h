// MathClass: the calculation engine. Evaluates the text of a whole equation to one result text.
//
// The language is defined by rewriting text: each step replaces the innermost parenthesis, a pair of absolute bars or
// one operator by its value, until a number is left. Each value is rounded to ten decimals when it is put back, so
// (1/3)*3 is 0.9999999999. ExpressionParser evaluates most lines faster, with the same results; this class rewrites the
// others. docs/language.md describes the language, docs/architecture.md how rewriting stays linear.
//
// An error is a result text that contains the word "Error"; ResultIsError is the only test for it.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "engine/expression_parser.h"
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

  // The variables of the last run, in the order of their first assignment: element i of varValue is the value of the
  // name in element i of varKey. Read them between runs only.
  Array<String> varKey;
  Array<String> varValue;

  // The result of the last finished run; empty during a run.
  String Result;

 private:
  Int32 ReduceLevel = 0;  // how many texts of the current line have passed the checks of Reduce

 public:
  // 0-based index of the last line that the run read: the failed line, or else the last line of the text. A run over
  // the empty text reads no line and does not change it.
  Int32 LastLineEvaluated = 0;

  // The name or operator that caused an error. Cleared at the start of a run and by an error inside absolute bars. An
  // error without a name or operator leaves what an earlier step has set.
  String ResultDetails;

  // Evaluates the lines of equationText from the first to the last, or to the first that fails. Returns the result of
  // the last line that is neither blank nor a comment, or the error, and sets Result to it. Accepts any text.
  virtual String Evaluate();

  // Callback for the value of each line; may be empty, which costs nothing. Evaluate calls it once for each expression
  // or assignment before the first one that fails, in the order of the lines.
  //
  // `line` is the 0-based index of the line. `value` is what Evaluate would return if the equation ended with that
  // line; it may be empty, as for "()", is never an error, and is valid during the call only. The callback must not
  // change this object. An exception that it throws leaves Evaluate; the next run starts afresh.
  std::function<void(Int32 line, std::string_view value)> LineObserver;

  // Whether `text` (or Result) is an error: whether it contains the word "Error", in any case.
  [[nodiscard]] virtual bool ResultIsError() const;
  [[nodiscard]] virtual bool ResultIsError(std::string_view text) const;

 private:
  friend class MathClassPeer;  // for the evaluator that tests compare this class with

  // The final result of a text when a step ends its evaluation; nothing when rewriting continues.
  using Ending = std::optional<String>;

  // A function found in front of a parenthesis.
  struct Call {
    std::string_view name;     // the last characters of the text in front of the parenthesis
    const Function* function;  // nullptr for dec, which takes its argument as text
  };

  [[nodiscard]] bool EvaluateByParser(std::string_view line, String& value);
  void SetText(String& text, const ExpressionParser::Value& value) const;

  // Evaluates one text to its value or error.
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
  // Looks the function up by its name. The rewriting looks it up before, so only the reference evaluator calls this.
  [[nodiscard]] String DoFunction(std::string_view argument1, std::string_view argument2, std::string_view name);
  [[nodiscard]] String Apply(const Function& function, std::string_view name, std::string_view argument1,
                             std::string_view argument2);
  [[nodiscard]] static String DecimalToFraction(double value);
  [[nodiscard]] static String FractionToDecimal(std::string_view text);

  // variables.cpp
  struct Substitution;
  struct AbridgedValue {
    String anywhere;
    String behindOperator;  // valid where the text before it ends in an operator and digits only
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
  ExpressionParser parser_{variables_};
  std::unordered_map<Int32, AbridgedValue> abridgedValues_;  // cache, by variable
  std::size_t longValueBytes_ = 0;                           // of long values substituted during the run
  Int32 randomIndex_ = -1;                                   // of RND, whose value is never read
};

// The text that users see for `result`, which math.Evaluate() has just returned: the result itself or, for an error
// with ResultDetails, these in double quotation marks, a blank and the error.
[[nodiscard]] String ShownResult(const MathClass& math, std::string_view result);

}  // namespace sumlet

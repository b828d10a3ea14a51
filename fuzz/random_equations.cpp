#include "random_equations.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <vector>

#include "engine/worked_examples.h"

namespace sumlet {
namespace {

// "{rule}" is replaced by one of the choices of that rule, or by a number where expressions are nested too deep.
const std::map<String, std::vector<const char*>, std::less<>> grammar = {
    {"text", {"{values}{line}", "{values}{line}{end}{line}", "{values}{line}{end}{rare line}"}},
    {"values", {"x=2\ny=-3\nab={number}\n", "x=-4\ny=.5\nab=-1.5\n", "ab=pi\ny=-{number}\nx={expression}\n"}},
    {"end", {"\n", "\r\n", "\r"}},
    {"line",
     {"{expression}", "{expression}", "{expression}", "{name}={expression}", "x = {expression}\nx", "{expression}"}},
    {"rare line",
     {"# {expression}", "dec({expression} {number}/{number})", "y=frac({number})", "inf=dec(1 1/. 5)\ninf",
      "\"={odd number}\n\"", "{expression}{rare operator}"}},
    {"expression",
     {"{operand}{operator}{operand}", "{operand}{operator}{expression}", "{expression}{operator}{operand}", "{operand}",
      "{operand}{rare operator}{operand}", "{rare expression}"}},
    {"rare expression",
     {"{operand}{blank}{operand}", "{odd number}{operator}{operand}", "{odd number}", "|{expression}|",
      "--{blank}{operand}", "max({expression})", "({expression}", "sin({expression},{expression})",
      "mod({expression},2)", "foo({expression})", "{token}{token}"}},
    {"operand", {"{number}", "{number}", "{name}", "-{operand}", "({expression})", "( {expression} )", "{call}"}},
    {"sums", {"{values}{sum}", "{values}x={sum}\n{sum}", "{values}{name}={sum}\ny={sum}\n{sum}"}},
    {"sum", {"{term}{operator}{term}", "{term}{operator}{sum}", "{sum}{operator}{term}", "{term}"}},
    {"term",
     {"{number}", "{name}", "{name}", "-{name}", "-{term}", "- {term}", "({sum})", "-( {sum} )", "{function}({sum})",
      "{function of two}({sum}, {sum})"}},
    {"call", {"{function}({expression})", "{function of two}({expression},{expression})"}},
    {"function", {"sin", "Sqrt", "abs", "floor", "round", "exp", "log", "\u017Fin", "atan"}},
    {"function of two", {"max", "MIN", "pow", "atan2"}},
    {"operator", {"+", "-", "*", "/", "^", "\\", "%", " + ", " - "}},
    {"rare operator", {"--", "- -", "*-", " mod ", "\t- ", "^--", "\u2212", "="}},
    {"blank", {"", " ", "  ", "\t"}},
    {"name", {"x", "X", "y", "ab", "pi", "Π"}},
    {"number",
     {"{digit}", "{digit}{digit}", "{digit}.{digit}", ".{digit}", "0.{digit}{digit}5", "{digit}.", "{long number}"}},
    {"long number",
     {"0.00000000005", "524287.99999999995", "524288.12345678915", "99999999999", "0.{digit}{digit}{digit}"}},
    {"odd number", {"1,000", "2.5.1", "1 000", "", "(1,2)", "()", "1e3", "sqrt(-1)", "1/0"}},
    {"digit", {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}},
    {"token", {"-",    "--",   "(",     ")",  "|",   "=", ",",    ".", " ",     "\t", "x", "mod",
               "sin(", "dec(", "frac(", "\"", "inf", "é", "\xC3", "😀", "error", "#",  "\v"}},
};

bool IsNested(std::string_view rule) {
  return rule == "expression" || rule == "rare expression" || rule == "call" || rule == "sum";
}

String Expanded(const Choose& choose, std::string_view pattern, std::size_t depth) {
  String text;
  while (!pattern.empty()) {
    const std::size_t open = std::min(pattern.find('{'), pattern.size());
    text += pattern.substr(0, open);
    if (open == pattern.size()) break;
    const std::size_t close = pattern.find('}');
    const std::string_view rule = pattern.substr(open + 1, close - open - 1);
    const auto& choices = grammar.find(IsNested(rule) && depth == 0 ? "number" : rule)->second;
    text += Expanded(choose, choices[choose(choices.size())], depth - (IsNested(rule) && depth > 0 ? 1 : 0));
    pattern.remove_prefix(close + 1);
  }
  return text;
}

void Change(String& text, const Choose& choose) {
  const std::size_t place = text.empty() ? 0 : choose(text.size());
  if (choose(3) == 0) {
    text.erase(place, 1);
  } else {
    text.insert(place, Expanded(choose, "{token}", 1));
  }
}

}  // namespace

Choose ChooseBy(std::string_view input) {
  return [input, at = std::size_t{0}](std::size_t limit) mutable {
    return at < input.size() ? static_cast<unsigned char>(input[at++]) % limit : 0;
  };
}

String RandomEquation(const Choose& choose) {
  if (choose(4) > 0) return Expanded(choose, "{text}", 1 + choose(5));
  String text = workedExamples[choose(std::size(workedExamples))].text;
  for (std::size_t changes = 1 + choose(3); changes > 0; --changes) Change(text, choose);
  return text;
}

String RandomArithmetic(const Choose& choose) { return Expanded(choose, "{sums}", 1 + choose(5)); }

}  // namespace sumlet

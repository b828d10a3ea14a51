#include "engine/random_equations.h"

#include <iterator>
#include <map>
#include <vector>

#include "engine/worked_examples.h"

namespace sumlet {
namespace {

using Grammar = std::map<char, std::vector<const char*>>;

// "$" and a letter stand for one of the choices of that rule. An expression, E, is an atom, A, when it is too deep.
// clang-format off
const Grammar language = {
    {'T', {"$P$L", "$P$L$B$L", "$P$L$B$L$B$L", "$L", "$L$B$L", "$P$S", "$S$B$S"}},
    {'P', {"x=2\ny=-3\n", "x=4\ny=.5\nab=1.5\n\"=3\ninf=4\n"}}, {'B', {"\n", "\r\n", "\r"}},
    {'L', {"$E", "$E", "$E", "$E", "$V$I$E", "$V$I$E", "$V=$D", "$C$E", "dec($E $N/$A)", "2+dec($E $N/$A) + 1"}},
    {'I', {"=", "=", " = ", "=dec(1 1/. 5)", "=frac(0.5)"}}, {'C', {"# ", "'", "//", "  # ", "=", " "}},
    {'D', {"dec(1 1/. 5)", "dec(1 0/. 5)", "frac(0.5)", "frac(7/3)", "-", "(1,2)", "|-0|"}},
    {'E', {"$E$O$E", "$E$O$E", "$E$O$E", "($E)", "|$E|", "$F($G)", "$M$E", "$E$W$E", "($G)", "$A", "$A"}},
    {'A', {"$N", "$N", "$N", "$V"}}, {'G', {"$E", "$E,$G"}}, {'W', {" ", "", "  ", "\t"}},
    {'N', {"$d", "$d", "$d$d", "$d$d$d", "$d.5", "$d.", "$d 0", "$d", "$d$d", "$d", "$H"}},
    {'d', {"0", "1", "2", "3", "4", "7", "9"}},
    {'H', {"sqrt(-1)", "log(0)", "1/0", "(1,2)", "()", "||", ",", ".", "-", "1e3", "\t7", "", "1 000", "1,000", ".5",
           "2.5.1", "00", "0.333", "1.99", "12345678.9", "0.00001234", "99999999999"}},
    {'V', {"x", "X", "y", "pi", "Π", "x", "X", "y", "pi", "Π", "$v"}},
    {'v', {"\"", "inf", "ab", "é", "É", "_q", "nan", "dec", "x1", "zz", "mod", "a\tb"}},
    {'O', {"+", "-", "*", " / ", "\\", "%", "^", " + ", "- ", "--", "- -", " mod ", "*-", "+ - ", "^--", "$o"}},
    {'o', {"\t- ", "-+", "\u2212", "=", "-\t"}}, {'M', {"-", "--", "- -", "- ", "---", " ", "\t", "-- ", "--\t"}},
    {'F', {"sin", "Sqrt", "max", "MIN", "pow", "abs", "floor", "round", "atan2", "sign", "\u017Fin", "2abs", "$f", "$h"}},
    {'h', {"deg", "rad", "exp", "log", "cos", "tan", "acos", "asin", "atan", "ceil"}},
    {'f', {"frac", "dec", "xmod", "foo", "xlog", "sqrt ", "e"}}, {'S', {"$Y$Y", "$Y$Y$Y$Y", "$S$S"}},
    {'Y', {"1", "2", ".", ",", " ", "  ", "\t", "-", "- ", "--", "+", "*", "/", "\\", "%", "^", "(", ")", "(", ")",
           "|", "=", "x", "y", "pi", "mod", "sin(", "max(", "frac(", "dec(", "\"", "inf", "e", "π", "é", "\xC3", "\xA9",
           "\xFF", "\u2212", "\u00A0", "😀", "error", "'", "#", "//", "&h", "\v", "\x01"}},
};

const Grammar arithmetic = {
    {'T', {"$P$L", "$P$L", "$P$L\n$L", "$P$L\n$L\n$L"}},
    {'P', {"x=2\ny=-3\nab=$N\n", "x=$N\ny=-$N\nab=pi\n", "x=4\ny=.5\nab=-1.5\n", "ab=1\ny=$N\nx=$E\ny=$E\n",
           "\"=3\nx=7.\ny=-0\nab=-x\n"}},
    {'L', {"$E", "$E", "$E", "$E", "$V=$E", "$V = $E", "x=$E\ny=x\ny", "$E$O$m"}},
    {'E', {"$U$O$U", "$U$O$U", "$U$O$U", "$U$O$U$O$U", "$U$O$E", "$E$O$U", "$U$O$U$O$E", "$U", "$e"}},
    {'U', {"$A", "$A", "$A", "$A", "-$A", "- $A", "-$G"}},
    {'A', {"$N", "$N", "$N", "$V", "$V", "$G", "$G"}}, {'V', {"x", "y", "x", "Y", "ab", "pi", "X"}},
    {'e', {"$U", "$U", "$m"}},
    {'G', {"($E)", "($E)", "( $E )", "($E)", "$f($E)", "$f($E)", "$g($E,$E)", "$g( $E , $E)"}},
    {'f', {"sin", "sqrt", "abs", "floor", "round", "sign", "Exp", "log", "tan", "deg", "ATAN", "cos", "ceil", "atan"}},
    {'g', {"max", "min", "pow", "atan2", "Max"}},
    {'O', {"+", "-", "*", "/", "+", "-", "*", "/", "^", "\\", "%", " + ", " - ", "* ", " ^ ", "-  "}},
    {'N', {"$d", "$d", "$d.$d", "$d$d", "$d.$d$d", "0.$d", ".$d", "$d.", "$d$d$d.$d", "$n"}},
    {'d', {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}},
    {'n', {"0.3333333333", "1000000", "0.00001", "524288.12345678915", "524287.99999999995", "1234567.8901",
           "0.00000000005", "0.5000000000", "99999999999999999999", "2147483648", "1.50", "007", "0.$d$d$d$d$d$d$d$d$d$d5"}},
    {'m', {"$U$U", "$U $U", "|$E|", "--$U", "$U$O", "+$U", "1,000", "1.2.3", ".", "()", "$V\t", "max($E)", "sin($E,$E)",
           "max($E,$E,$E)", "(,$E)", "mod($E,$E)", "($E", "$f ($E)", "x2($E)", "abs", "dec($E $N/$N)", "atan2$N",
           "frac($E)", "zz", "terror", "xsin($E)", "ab\u017F($E)", "$E mod $E"}},
};
// clang-format on

String Expanded(const Grammar& grammar, const Choose& choose, std::string_view pattern, std::size_t depth) {
  String text;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '$') {
      text += pattern[i];
      continue;
    }
    const char rule = pattern[++i];
    const auto& choices = grammar.at(depth > 0 ? rule : rule == 'E' ? 'A' : rule == 'G' || rule == 'm' ? 'N' : rule);
    const bool isNested = depth > 0 && (rule == 'E' || rule == 'm');
    text += Expanded(grammar, choose, choices[choose(choices.size())], depth - (isNested ? 1 : 0));
  }
  return text;
}

void Change(String& text, const Choose& choose) {
  const std::size_t place = text.empty() ? 0 : choose(text.size());
  const std::size_t kind = choose(4);
  if (kind == 0) text.erase(place, 1);
  if (kind == 1 && place + 1 < text.size()) std::swap(text[place], text[place + 1]);
  if (kind == 2) text.insert(place, text.substr(place, choose(4)));
  if (kind == 3) text.insert(place, choose(20) > 0 ? Expanded(language, choose, "$Y", 1) : String(1, '\0'));
}

}  // namespace

String RandomEquation(const Choose& choose) {
  const bool isExample = choose(3) == 0;
  String text =
      isExample ? workedExamples[choose(std::size(workedExamples))].text : Expanded(language, choose, "$T", choose(5));
  for (std::size_t changes = isExample || choose(9) == 0 ? 1 + choose(3) : 0; changes > 0; --changes) {
    Change(text, choose);
  }
  return text;
}

String RandomArithmetic(const Choose& choose) { return Expanded(arithmetic, choose, "$T", 1 + choose(4)); }

}  // namespace sumlet

// The engine against the plain evaluator, on random texts: whatever is typed, all that a run leaves must be equal.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <vector>

#include "engine/plain_rewriting.h"
#include "engine/worked_examples.h"

namespace sumlet {
namespace {

// "$" and a letter stand for one of the choices of that rule. An expression, E, is an atom, A, when it is too deep.
// clang-format off
const std::map<char, std::vector<const char*>> grammar = {
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
// clang-format on

class TextGenerator {
 public:
  // A few lines: sentences of the language, loose tokens, or a worked example; some with a few characters changed.
  String Next() {
    const bool isExample = Below(3) == 0;
    String text = isExample ? workedExamples[Below(std::size(workedExamples))].text : Expanded("$T", Below(5));
    for (std::size_t changes = isExample || Below(9) == 0 ? 1 + Below(3) : 0; changes > 0; --changes) Change(text);
    return text;
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }

  String Expanded(std::string_view pattern, std::size_t depth) {
    String text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
      if (pattern[i] != '$') {
        text += pattern[i];
        continue;
      }
      const char rule = pattern[++i];
      const auto& choices = grammar.at(rule == 'E' && depth == 0 ? 'A' : rule);
      text += Expanded(choices[Below(choices.size())], depth - (rule == 'E' && depth > 0 ? 1 : 0));
    }
    return text;
  }

  void Change(String& text) {
    const std::size_t place = text.empty() ? 0 : Below(text.size());
    const std::size_t kind = Below(4);
    if (kind == 0) text.erase(place, 1);
    if (kind == 1 && place + 1 < text.size()) std::swap(text[place], text[place + 1]);
    if (kind == 2) text.insert(place, text.substr(place, Below(4)));
    if (kind == 3) text.insert(place, Below(20) > 0 ? Expanded("$Y", 0) : String(1, '\0'));
  }

  std::mt19937 random_{1};
};

String Described(const Outcome& run) {
  String text = "[" + run.result + "] details [" + run.details + "] line " + std::to_string(run.lastLine);
  for (Int32 i = 0; i <= run.varKey.Ubound(); ++i) text += " [" + run.varKey[i] + "=" + run.varValue[i] + "]";
  return text;
}

TEST(Differential, RandomTexts) {
  constexpr int rounds = 20'000;
  TextGenerator generator;
  MathClass math;  // one for all texts: nothing of an earlier run may show
  int compared = 0;
  int values = 0;
  for (int round = 0; round < rounds; ++round) {
    const String text = generator.Next();
    const Int32 lastLine = math.LastLineEvaluated;
    math.equationText = text;
    math.Evaluate();
    if (InStr(text, "rnd") > 0) continue;  // it needs only end
    std::optional<Outcome> plain = EvaluatePlainly(text, 200'000);
    if (!plain) continue;
    if (text.empty()) plain->lastLine = lastLine;
    ASSERT_EQ(Described(OutcomeOf(math)), Described(*plain))
        << "round " << round << ": " << testing::PrintToString(text);
    ++compared;
    if (!math.ResultIsError()) ++values;
  }
  // The comparison means something only when most texts are compared and many of them have a value.
  EXPECT_GE(compared, rounds * 9 / 10);
  EXPECT_GE(values, rounds / 4);
}

}  // namespace
}  // namespace sumlet

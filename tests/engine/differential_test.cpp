// The engine against the plain evaluator, on random texts: whatever is typed, all that a run leaves must be equal.
//
// SUMLET_DIFFERENTIAL_ROUNDS and SUMLET_DIFFERENTIAL_SEED ask for another number of texts and for other texts.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "engine/math_class.h"
#include "engine/plain_rewriting.h"
#include "engine/worked_examples.h"

namespace sumlet {
namespace {

constexpr std::size_t budget = 200'000;

class TextGenerator {
 public:
  explicit TextGenerator(std::uint32_t seed) : random_(seed) {}

  // A few lines: sentences of the language, loose tokens, or a worked example with a few characters changed.
  String Next() {
    const std::uint32_t kind = Below(10);
    if (kind < 3) return Changed(WorkedExamples()[Below(static_cast<std::uint32_t>(WorkedExamples().size()))].text);
    String text = Pick({"", "x=2\ny=-3\n", "x=4\ny=.5\nab=1.5\n\"=3\ninf=4\n"});
    for (std::uint32_t lines = 1 + Below(3); lines > 0; --lines) {
      text += kind < 8 ? Line() : Soup();
      if (lines > 1) text += Pick({"\n", "\r\n", "\r"});
    }
    return kind == 3 ? Changed(text) : text;
  }

 private:
  using Choices = std::initializer_list<const char*>;

  std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_() % limit); }
  String Pick(Choices choices) { return choices.begin()[Below(static_cast<std::uint32_t>(choices.size()))]; }

  String Number() {
    if (Below(6) > 0) return std::to_string(Below(Below(2) > 0 ? 10 : 2000)) + Pick({"", "", "", ".5", ".", " 0"});
    if (Below(5) == 0) return Pick({"sqrt(-1)", "log(0)", "1/0", "(1,2)", "()", "||", ",", ".", "-", "1e3", "\t7", ""});
    return Pick({"1 000", "1,000", ".5", "2.5.1", "00", "0.333", "1.99", "12345678.9", "0.00001234", "99999999999"});
  }

  String Name() {
    if (Below(5) > 0) return Pick({"x", "X", "y", "pi", "Π"});
    return Pick({"\"", "inf", "ab", "é", "É", "_q", "nan", "dec", "x1", "zz", "mod", "a\tb"});
  }

  String Operator() {
    const String blank = Pick({"", "", " ", "  "});
    if (Below(12) == 0) return Pick({"\t- ", "-+", "\u2212", "=", "-\t"});
    return blank + Pick({"+", "-", "*", "/", "\\", "%", "^", "+", "-", "--", "- -", " mod "}) +
           Pick({"", "", "", " ", "- ", "-", " - ", "--"});
  }

  String Function() {
    if (Below(5) == 0) return Pick({"frac", "dec", "xmod", "foo", "xlog", "sqrt ", "e"});
    return Pick(
        {"sin", "Sqrt", "max", "MIN", "pow", "abs", "floor", "round", "atan2", "sign", "cos", "\u017Fin", "2abs"});
  }

  String Arguments(int depth) {
    String list = Expression(depth);
    while (Below(2) > 0) list += "," + Expression(depth);
    return list;
  }

  String Expression(int depth) {
    if (depth <= 0) return Below(3) > 0 ? Number() : Name();
    switch (Below(12)) {
      case 0:
      case 1:
      case 2:
      case 3:
        return Expression(depth - 1) + Operator() + Expression(depth - 1);
      case 4:
        return "(" + Expression(depth - 1) + ")";
      case 5:
        return "|" + Expression(depth - 1) + "|";
      case 6:
        return Function() + "(" + Arguments(depth - 1) + ")";
      case 7:
        return Pick({"-", "--", "- -", "- ", "---", " ", "\t", "-- ", "--\t"}) + Expression(depth - 1);
      case 8:
        return Expression(depth - 1) + Pick({" ", "", "  ", "\t"}) + Expression(depth - 1);
      case 9:
        return "(" + Arguments(depth - 1) + ")";
      default:
        return Below(2) > 0 ? Number() : Name();
    }
  }

  String Line() {
    switch (Below(10)) {
      case 0:
        return Pick({"# ", "'", "//", "  # ", "=", "", " "}) + Expression(1);
      case 1:
        return Pick({"dec(", "2+dec("}) + Expression(1) + " " + Number() + "/" + Expression(0) + Pick({")", ") + 1"});
      case 2:
      case 3:
      case 4:
        return Name() + Pick({"=", " = "}) + Pick({"dec(1 1/. 5)", "frac(0.5)", "", "", "", ""}) + Expression(2);
      case 5:
        return Name() + "=" + Pick({"dec(1 1/. 5)", "dec(1 0/. 5)", "frac(0.5)", "frac(7/3)", "-", "(1,2)", "|-0|"});
      default:
        return Expression(static_cast<int>(Below(5)));
    }
  }

  String Token() {
    return Pick({"1",      "2",      "30",   ".",     ",",    " ",  "  ",  "\t", "-",  "- ",  "--",   "+",    "*",
                 "/",      "\\",     "%",    "^",     "(",    ")",  "(",   ")",  "|",  "=",   "x",    "y",    "pi",
                 "mod",    "sin(",   "max(", "frac(", "dec(", "\"", "inf", "e",  "π",  "é",   "\xC3", "\xA9", "\xFF",
                 "\u2212", "\u00A0", "😀",    "error", "'",    "#",  "//",  "&h", "\v", "\x01"});
  }

  String Soup() {
    String line;
    for (std::uint32_t tokens = 1 + Below(12); tokens > 0; --tokens) line += Token();
    return line;
  }

  String Changed(String text) {
    for (std::uint32_t changes = 1 + Below(3); changes > 0; --changes) {
      const std::size_t place = text.empty() ? 0 : Below(static_cast<std::uint32_t>(text.size()));
      switch (Below(4)) {
        case 0:
          text.erase(place, 1);
          break;
        case 1:
          if (place + 1 < text.size()) std::swap(text[place], text[place + 1]);
          break;
        case 2:
          text.insert(place, text.substr(place, Below(4)));
          break;
        default:
          text.insert(place, Below(20) > 0 ? Token() : String(1, '\0'));
      }
    }
    return text;
  }

  std::mt19937 random_;
};

String Escaped(std::string_view text) {
  static constexpr char hex[] = "0123456789abcdef";
  String escaped;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x7F && c != '\\') {
      escaped += c;
    } else {
      escaped += String("\\x") + hex[byte / 16] + hex[byte % 16];
    }
  }
  return escaped;
}

String Described(const PlainOutcome& outcome) {
  String described = "result [" + outcome.result + "] details [" + outcome.details + "] last line " +
                     std::to_string(outcome.lastLine) + " variables";
  for (Int32 i = 0; i <= outcome.varKey.Ubound(); ++i)
    described += " [" + outcome.varKey[i] + "=" + outcome.varValue[i] + "]";
  return Escaped(described);
}

// Both outcomes where they differ, else nothing. Texts with random numbers need only end.
class Comparison {
 public:
  String Difference(const String& text) {
    const Int32 lastLine = math_.LastLineEvaluated;
    math_.equationText = text;
    math_.Evaluate();
    if (InStr(text, "rnd") > 0) return "";
    std::optional<PlainOutcome> expected = EvaluatePlainly(text, budget);
    if (!expected) return "";
    if (text.empty()) expected->lastLine = lastLine;
    ++compared;
    if (!math_.ResultIsError()) ++values;
    const String plain = Described(*expected);
    const String engine =
        Described({math_.Result, math_.ResultDetails, math_.LastLineEvaluated, math_.varKey, math_.varValue});
    return plain == engine ? "" : "\nplain:  " + plain + "\nengine: " + engine;
  }

  // Leaves out what the difference does not need.
  String Shrunk(String text) {
    for (std::size_t i = 0; i < text.size();) {
      const String shorter = String(text).erase(i, 1);
      if (Difference(shorter).empty()) {
        ++i;
      } else {
        text = shorter;
        i = 0;
      }
    }
    return text;
  }

  int compared = 0;
  int values = 0;

 private:
  MathClass math_;  // one for all texts: nothing of an earlier run may show
};

void CompareRandomTexts(int rounds, std::uint32_t seed) {
  TextGenerator generator(seed);
  Comparison comparison;
  for (int round = 0; round < rounds; ++round) {
    const String text = generator.Next();
    if (comparison.Difference(text).empty()) continue;
    const String shrunk = comparison.Shrunk(text);
    FAIL() << "seed " << seed << ", round " << round << ": " << Escaped(text) << "\nshrunk:  " << Escaped(shrunk)
           << comparison.Difference(shrunk);
  }
  // The comparison means something only when most texts are compared and many of them have a value.
  EXPECT_GE(comparison.compared, rounds * 9 / 10);
  EXPECT_GE(comparison.values, rounds / 4);
}

TEST(Differential, WorkedExamples) {
  Comparison comparison;
  for (const Example& example : WorkedExamples()) EXPECT_EQ(comparison.Difference(example.text), "") << example.text;
}

TEST(Differential, RandomTexts) {
  const char* rounds = std::getenv("SUMLET_DIFFERENTIAL_ROUNDS");
  const char* seed = std::getenv("SUMLET_DIFFERENTIAL_SEED");
  CompareRandomTexts(rounds == nullptr ? 20'000 : std::atoi(rounds),
                     seed == nullptr ? 1 : static_cast<std::uint32_t>(std::atoi(seed)));
}

}  // namespace
}  // namespace sumlet

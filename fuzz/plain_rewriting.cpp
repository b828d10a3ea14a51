#include "plain_rewriting.h"

#include <utility>
#include <vector>

#include "engine/language.h"
#include "engine/math_class.h"
#include "framework/text/array.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"

namespace sumlet {

// The operations of MathClass that the plain evaluator shares. Those that fail leave the details in `math`.
class MathClassPeer {
 public:
  static String DoOperation(MathClass& math, std::string_view left, std::string_view right, std::string_view op) {
    return math.DoOperation(left, right, op);
  }
  static String DoFunction(MathClass& math, std::string_view first, std::string_view second, std::string_view name) {
    return math.DoFunction(first, second, name);
  }
  static String FractionToDecimal(std::string_view text) { return MathClass::FractionToDecimal(text); }
};

namespace {

const String signedNumberCharacters = "0123456789,. -";
const String numberCharacters = "0123456789 ,.";
const String delimiterCharacters = " ,.0123456789)(^*/\\+-%|";

struct OutOfBudget {};

bool Has(const String& text, const String& part) { return InStr(text, part) > 0; }

String ReplaceWhileThere(String text, const String& old, const String& replacement) {
  while (Has(text, old)) text = ReplaceAll(text, old, replacement);
  return text;
}

bool IsError(const String& text) { return Has(text, "Error"); }
bool IsNumberCharacter(const String& c) { return Has(numberCharacters, c); }

// The 1-based position of the first of the operators that bind tightest, or 0. A "-" at the start is a sign.
Int32 NextOperator(const String& text) {
  for (const char* level : {"^", "*/\\%", "+-"}) {
    for (Int32 i = 1; i <= Len(text); ++i) {
      if (Has(level, Mid(text, i, 1)) && (i > 1 || Left(text, 1) != "-")) return i;
    }
  }
  return 0;
}

class PlainRewriting {
 public:
  explicit PlainRewriting(std::size_t budget) : budget_(budget) {}

  Outcome Evaluate(std::string_view equationText) {
    const Array<String> lines = Split(ReplaceLineEndings(equationText, EndOfLine), EndOfLine);
    AddVariable("pi", "3.14159265358979323846264338327950");
    AddVariable("π", "3.14159265358979323846264338327950");
    AddVariable("RND", "[random]");
    AddVariable("mod", "%");
    String running;
    for (Int32 i = 0; i <= lines.Ubound(); ++i) {
      outcome_.lastLine = i;
      const String line = Trim(lines[i]);
      if (Left(line, 1) == "'" || Left(line, 1) == "#" || Left(line, 2) == "//" || line.empty()) continue;
      reduceLevel_ = 0;
      running = Reduce(line);
      if (IsError(running)) break;
    }
    outcome_.result = running;
    outcome_.details = operations_.ResultDetails;
    return outcome_;
  }

 private:
  struct Step {
    bool isEnd;  // otherwise `text` is reduced next
    String text;
  };
  static Step End(std::string_view text) { return {true, String(text)}; }
  static Step GoOn(const String& text) { return {false, text}; }
  Step Fail(std::string_view error, const String& details) {
    operations_.ResultDetails = details;
    return End(error);
  }

  String Reduce(const String& expression) {
    Step step = GoOn(expression);
    while (!step.isEnd) step = ReduceOnce(step.text);
    return step.text;
  }

  Step ReduceOnce(String text) {
    Spend(text);
    if (text.empty() || IsError(text)) return End(text);
    if (CountFields(text, "(") != CountFields(text, ")")) return End(errors::unmatchedParenthesis);
    if (CountFields(text, "|") % 2 == 0) return End(errors::unmatchedBar);
    if (++reduceLevel_ == 1) {
      if (Has(text, "=")) return AssignmentStep(text);
      text = SubstituteVariables(text);
      if (IsError(text)) return End(text);
    }
    text = Trim(ReplaceWhileThere(text, "  ", " "));
    text = ReplaceWhileThere(text, "- -", "--");
    while (InStr(text, "--") == 1) text = Mid(text, 3);
    if (Left(text, 2) == "- ") text = "-" + Mid(text, 3);
    if (Has(text, "(")) return ParenthesesStep(text);
    if (Has(text, "|")) return BarsStep(text);
    const Int32 place = NextOperator(text);
    return place == 0 ? NoOperatorStep(text) : OperatorStep(text, place);
  }

  Step AssignmentStep(const String& text) {
    const Int32 p = InStr(text, "=");
    if (CountFields(text, "=") >= 3) return End(errors::multipleAssignments);
    const String name = Trim(Left(text, p - 1));
    if (Has(name, " ")) return Fail(errors::nameContainsSpace, name);
    const String value = Reduce(SubstituteVariables(Mid(text, p + 1)));
    if (!IsError(value) && !name.empty()) {
      if (MathClassPeer::DoFunction(operations_, "", "", name) != errors::functionUnknown)
        return Fail(errors::nameIsFunction, name);
      AddVariable(name, value);
    }
    return End(value);
  }

  Step ParenthesesStep(const String& text) {
    Int32 open = InStr(text, "(");
    for (Int32 next = open; next > 0 && next < InStr(open, text, ")"); next = InStr(open + 1, text, "(")) open = next;
    const Int32 close = InStr(open, text, ")");
    String inner = Mid(text, open + 1, close - open - 1);
    const bool hasComma = Has(inner, ",");
    const String a = Reduce(hasComma ? NthField(inner, ",", 1) : inner);
    const String b = hasComma ? Reduce(NthField(inner, ",", 2)) : "";
    if (IsError(a)) return End(a);
    if (IsError(b)) return End(b);
    String candidate;
    bool found = false;
    for (Int32 i = 5; i >= 1 && !found; --i) {
      candidate = Mid(text, open - i, i);
      if (SameText(candidate, "dec")) return End(MathClassPeer::FractionToDecimal(inner));
      const String r = MathClassPeer::DoFunction(operations_, a, b, candidate);
      if (r == errors::functionUnknown) continue;
      found = true;
      open -= i;
      inner = r;
    }
    const String before = Trim(Left(text, open - 1));
    const String after = Trim(Mid(text, close + 1));
    if (!found) inner = Reduce(inner);
    if (IsError(inner)) return End(inner);
    if (SameText(candidate, "frac")) {
      if (before.empty() && after.empty()) return End(inner);
      return End(errors::fractionNotAlone);
    }
    return GoOn(before + " " + inner + " " + after);
  }

  Step BarsStep(const String& text) {
    const Int32 p = InStr(text, "|");
    const Int32 q = InStr(p + 1, text, "|");
    String inner = Reduce(Mid(text, p + 1, q - p - 1));
    if (IsError(inner)) return Fail(inner, "");
    if (Left(inner, 1) == "-") inner = Mid(inner, 2);
    return GoOn(Left(text, p - 1) + " " + inner + " " + Mid(text, q + 1));
  }

  Step NoOperatorStep(const String& untrimmed) {
    const String text = Trim(untrimmed);
    const Int32 n = Len(text);
    const auto isKnown = [&text](Int32 i) { return Has(signedNumberCharacters, Mid(text, i, 1)); };
    Int32 begin = 1;
    while (begin <= n && isKnown(begin)) ++begin;
    Int32 end = begin;
    while (end <= n && !isKnown(end)) ++end;
    if (end > begin) return Fail(errors::variableUnknown, Mid(text, begin, end - begin));
    if (!Has(text, " ")) return End(text);
    return GoOn(ReplaceAll(ReplaceWhileThere(text, "  ", " "), " ", "*"));
  }

  Step OperatorStep(const String& text, Int32 pos) {
    const Int32 n = Len(text);
    const String op = Mid(text, pos, 1);
    const auto isSpace = [&text](Int32 i) { return Mid(text, i, 1) == " "; };
    const auto isNumber = [&text](Int32 i) { return IsNumberCharacter(Mid(text, i, 1)); };
    Int32 start = pos;
    while (start > 1 && isNumber(start - 1)) --start;
    if (start > 1 && Mid(text, start - 1, 1) == "-" && !Trim(Mid(text, start, pos - start)).empty()) {
      Int32 before = start - 2;
      while (before >= 1 && isSpace(before)) --before;
      if (before < 1 || !isNumber(before)) --start;
    }
    const String left = Mid(text, start, pos - start);
    Int32 after = pos + 1;
    while (after <= n && (isSpace(after) || Mid(text, after, 1) == "-")) ++after;
    // An operator needs text on both sides. Without this check a "-" followed only by signs would be rewritten for
    // ever.
    if (pos == 1 || after > n) return Fail(errors::twoArgumentsRequired, op);
    while (after <= n && isNumber(after)) ++after;
    const String right = Mid(text, pos + 1, after - pos - 1);
    const String value = MathClassPeer::DoOperation(operations_, left, right, op);
    if (IsError(value)) return End(value);
    return GoOn(Trim(Left(text, start - 1) + " " + value + " " + Mid(text, after)));
  }

  void AddVariable(const String& name, const String& value) {
    if (IndexOf(outcome_.varKey, name) < 0) {
      outcome_.varKey.Append(name);
      outcome_.varValue.Append("");
    }
    outcome_.varValue[IndexOf(outcome_.varKey, name)] = value;
  }

  String SubstituteVariables(String text) {
    // The variables whose values are being read, each with the number of characters after its value.
    std::vector<std::pair<Int32, Int32>> inside;
    for (;;) {
      Spend(text);
      const Int32 n = Len(text);
      String name;
      Int32 start = 0;
      Int32 index = -1;
      Int32 i = 0;
      while (index < 0 && ++i <= n) {
        const String c = Mid(text, i, 1);
        const bool isDelimiter = Has(delimiterCharacters, c);
        if (!isDelimiter) {
          if (name.empty()) start = i;
          name += c;
          if (i < n) continue;
        }
        index = IndexOf(outcome_.varKey, name);
        if (index < 0) name.clear();
      }
      if (index < 0) return Trim(text);
      const Int32 after = n - (start + Len(name) - 1);
      while (!inside.empty() && inside.back().second > after) inside.pop_back();
      for (const auto& entry : inside) {
        if (entry.first == index) return String(errors::twoArgumentsRequired);
      }
      inside.emplace_back(index, after);
      const String value = SameText(name, "RND") ? Str(Rnd()) : outcome_.varValue[index];
      text = Join({Left(text, start - 1), value, Right(text, after)}, " ");
    }
  }

  void Spend(const String& text) {
    if (budget_ < text.size()) throw OutOfBudget();
    budget_ -= text.size();
  }

  MathClass operations_;  // evaluates single operators, functions and fractions, and keeps the details of an error
  std::size_t budget_;
  Int32 reduceLevel_ = 0;
  Outcome outcome_;
};

}  // namespace

std::optional<Outcome> EvaluatePlainly(std::string_view text, std::size_t budget) {
  try {
    return PlainRewriting(budget).Evaluate(text);
  } catch (const OutOfBudget&) {
    return std::nullopt;
  }
}

}  // namespace sumlet

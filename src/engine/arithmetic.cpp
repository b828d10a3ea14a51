// Evaluates single operators, functions and fractions. Operands and values are text.
//
// Fractions are computed from the digits of a number as it is written, not from its value. This gives odd results for
// some numbers, and users rely on them.
#include "engine/arithmetic.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string_view>

#include "engine/language.h"
#include "engine/math_class.h"
#include "framework/text/numbers.h"

namespace sumlet {
namespace {

struct Fraction {
  Int32 whole;
  Int32 numerator;
  Int32 denominator;
};

bool IsRepeating(std::string_view digits) {
  return digits.size() >= 2 && digits.find_first_not_of(digits.front()) == std::string_view::npos;
}

// For a repeating decimal x, 10x - x is a whole number of ninths.
Fraction RepeatingFraction(double value) {
  const Int32 ninths = ToInt32(Ceil(value * 10 - value));
  return {ninths / 9, ninths % 9, 9};
}

// The denominator has as many zeros as the numerator has digits, so zeros directly behind the point are lost.
Fraction TerminatingFraction(Int32 whole, Int32 numerator) {
  String power = "1";
  power.append(Str(numerator).size(), '0');
  return {whole, numerator, ToInt32(Val(power))};
}

String FractionText(Fraction fraction) {
  if (fraction.numerator >= 2) {
    const Int32 divisor = std::gcd(fraction.numerator, fraction.denominator);
    fraction.numerator /= divisor;
    fraction.denominator /= divisor;
  }
  const String whole = fraction.whole > 0 ? Str(fraction.whole) + " " : "";
  return "\"" + whole + Str(fraction.numerator) + "/" + Str(fraction.denominator) + "\"";
}

String WithSingleBlanks(std::string_view text) {
  String result;
  for (const char c : text) {
    if (c != ' ' || result.empty() || result.back() != ' ') result += c;
  }
  return result;
}

}  // namespace

double IntegerQuotient(double dividend, double divisor) {
  const std::int64_t by = ToInt32(divisor);
  return static_cast<double>(by == 0 ? 0 : ToInt32(dividend) / by);
}

double IntegerRemainder(double dividend, double divisor) {
  const std::int64_t by = ToInt32(divisor);
  const std::int64_t cut = ToInt32(dividend);
  return static_cast<double>(by == 0 ? cut : cut % by);
}

String ValueText(double value) {
  String text = Format(value, "-#.##########");
  if (text.back() == '.') text.pop_back();
  return text;
}

// Removes blanks, so that digits separated by them become one number, and cancels pairs of minus signs.
String MathClass::CleanupNumber(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  if (std::none_of(text.begin(), text.end(), [](char c) { return c == ' ' || c == '-'; })) return String(text);
  String number;
  for (const char c : text) {
    if (c == ' ') continue;
    if (c == '-' && !number.empty() && number.back() == '-') {
      number.pop_back();
    } else {
      number += c;
    }
  }
  return number;
}

String MathClass::DoOperation(std::string_view left, std::string_view right, std::string_view op) {
  if (ResultIsError(op)) return String(op);
  const String leftNumber = CleanupNumber(left);
  const String rightNumber = CleanupNumber(right);
  if (op.empty()) return rightNumber.empty() ? leftNumber : String(errors::missingOperator);
  if (op == "-" && rightNumber.empty()) return ValueText(-CDbl(leftNumber));
  const char sign = op.size() == 1 ? op.front() : SameText(op, "mod") ? '%' : '\0';
  if (IsIn(sign, operatorSign)) {
    if (leftNumber.empty() || rightNumber.empty()) return Fail(errors::twoArgumentsRequired, op);
    return ValueText(Operate(sign, CDbl(leftNumber), CDbl(rightNumber)));
  }
  return Fail(FindFunction(op) != nullptr ? errors::oneArgumentFormat : errors::functionUnknown, op);
}

String MathClass::DoFunction(std::string_view argument1, std::string_view argument2, std::string_view name) {
  const Function* function = FindFunction(name);
  return function != nullptr ? Apply(*function, name, argument1, argument2) : Fail(errors::functionUnknown, name);
}

// `name` is the function's name as the user wrote it, for ResultDetails.
String MathClass::Apply(const Function& function, std::string_view name, std::string_view argument1,
                        std::string_view argument2) {
  if (function.IsFraction()) return DecimalToFraction(CDbl(argument1));
  if (function.binary != nullptr) {
    if (argument1.empty() || argument2.empty()) return Fail(errors::twoArgumentFormat, name);
    return ValueText(Abs(function.binary(CDbl(argument1), CDbl(argument2))));
  }
  if (argument1.empty()) return Fail(errors::oneArgumentFormat, name);
  return ValueText(Abs(function.unary(CDbl(argument1))));
}

String MathClass::DecimalToFraction(double value) {
  const Int32 whole = ToInt32(value);
  const String digits = NthField(Str(value), ".", 2);
  const Int32 numerator = ToInt32(Val(digits));
  if (numerator == 0) return Str(whole);
  return FractionText(IsRepeating(digits) ? RepeatingFraction(value) : TerminatingFraction(whole, numerator));
}

// Expects a whole number, a blank and a fraction; a fraction alone is incomplete.
String MathClass::FractionToDecimal(std::string_view text) {
  const String parts = WithSingleBlanks(Trimmed(text));
  if (parts.find('/') == String::npos) return String(errors::notAFraction);
  const Int32 whole = parts.find(' ') == String::npos ? 0 : ToInt32(Val(NthField(parts, " ", 1)));
  const String fraction = NthField(parts, " ", 2);
  const String numerator = Trim(NthField(NthField(fraction, "/", 1), " ", 1));
  const String denominator = Trim(NthField(NthField(fraction, "/", 2), " ", 1));
  if (numerator.empty() || denominator.empty()) return String(errors::incompleteFraction);
  return ValueText(whole + Val(numerator) / Val(denominator));
}

}  // namespace sumlet

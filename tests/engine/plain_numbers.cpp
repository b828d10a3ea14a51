#include "engine/plain_numbers.h"

#include <numeric>

#include "framework/text/numbers.h"

namespace sumlet {
namespace {

String WithoutPoint(const String& number) { return Right(number, 1) == "." ? Left(number, Len(number) - 1) : number; }

}  // namespace

bool Has(const String& text, const String& part) { return InStr(text, part) > 0; }

String ReplaceWhileThere(String text, const String& old, const String& replacement) {
  while (Has(text, old)) text = ReplaceAll(text, old, replacement);
  return text;
}

String SignedText(double value) { return WithoutPoint(Format(value, "-#.##########")); }
String UnsignedText(double value) { return WithoutPoint(Format(value, "#.##########")); }

String CleanupNumber(const String& text) { return ReplaceWhileThere(ReplaceAll(text, " ", ""), "--", ""); }

double Quotient(double a, double b) {
  const std::int64_t divisor = ToInt32(b);
  const std::int64_t quotient = divisor == 0 ? 0 : ToInt32(a) / divisor;
  return static_cast<double>(quotient);
}

double Remainder(double a, double b) {
  const std::int64_t divisor = ToInt32(b);
  return divisor == 0 ? ToInt32(a) : static_cast<double>(ToInt32(a) % divisor);
}

String DecimalToFraction(double value) {
  Int32 whole = ToInt32(value);
  const String digits = NthField(Str(value), ".", 2);
  Int32 numerator = ToInt32(Val(digits));
  Int32 denominator = 0;
  if (numerator == 0) return Str(whole);
  if (Len(digits) >= 2 && ReplaceAll(digits, Left(digits, 1), "").empty()) {
    const Int32 t = ToInt32(Ceil(value * 10 - value));
    whole = ToInt32(t / 9.0);
    numerator = t % 9;
    denominator = 9;
  } else {
    denominator = ToInt32(Val("1" + String(Str(numerator).size(), '0')));
  }
  const Int32 g = numerator < 2 ? 0 : std::gcd(numerator, denominator);
  if (g > 1) {
    numerator /= g;
    denominator /= g;
  }
  return "\"" + (whole > 0 ? Str(whole) + " " : "") + Str(numerator) + "/" + Str(denominator) + "\"";
}

String FractionToDecimal(const String& argument) {
  String text = ReplaceWhileThere(Trim(argument), "  ", " ");
  if (!Has(text, "/")) return "Error: Not a Fraction";
  const Int32 whole = Has(text, " ") ? ToInt32(Val(NthField(text, " ", 1))) : 0;
  text = NthField(text, " ", 2);
  const String numerator = Trim(NthField(NthField(text, "/", 1), " ", 1));
  const String denominator = Trim(NthField(NthField(text, "/", 2), " ", 1));
  if (numerator.empty() || denominator.empty()) return "Error: Incomplete Fraction";
  return SignedText(whole + Val(numerator) / Val(denominator));
}

}  // namespace sumlet

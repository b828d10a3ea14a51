// Long numbers: a run that uses many of them substitutes them abridged, and no result may show that.
//
// The bytes of the input choose the number and the text around it.
#include "engine/long_number.h"

#include <cstddef>
#include <cstdio>
#include <iterator>
#include <string_view>
#include <utility>

#include "check.h"
#include "engine/math_class.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"
#include "random_equations.h"

namespace sumlet {
namespace {

String Repeated(std::string_view piece, std::size_t count) {
  String text;
  while (count-- > 0) text += piece;
  return text;
}

// Just above 2^-1075, half of the smallest double, which has as many decimals as any tie between two doubles.
String NumberAboveTie() {
  return "0.0" + Format(5 * 0x1p-1074, "#." + String(1074, '#')).substr(2) + String(3000, '0') + "1";
}

String LongNumber(const Choose& choose) {
  constexpr std::string_view digits[] = {"0", "0", "9", "05", "8163", "4950"};
  String number = choose(5) == 0 ? "-" : "";
  for (std::size_t runs = 1 + choose(5); runs > 0; --runs) {
    const std::string_view piece = digits[choose(std::size(digits))];
    number += Repeated(piece, choose(256) * 12 / piece.size());
    for (std::size_t count = choose(3); count > 0; --count) number += "0,.5"[choose(4)];
  }
  return number;
}

// The abridged number reads as the same number, whatever is written around it.
void CheckReading(const Choose& choose) {
  const String around[] = {"", "7", "0", ".", "1.", ",", "0.0", String(320, '0'), "-"};
  const String number = choose(16) == 0 ? NumberAboveTie() : LongNumber(choose);
  for (const String& front : around) {
    const bool pointMayPrecede = front.find_first_not_of("0123456789") != String::npos;
    const String abridged = AbridgedNumber(number, pointMayPrecede);
    Check(abridged.size() <= number.size() && abridged.size() < 4000, "an abridged number is short");
    for (const String& behind : around) {
      const String whole = Join({front, number, behind}, "");
      const String shortened = Join({front, abridged, behind}, "");
      Check(CDbl(shortened) == CDbl(whole) && Val(shortened) == Val(whole), "an abridged number has the same value");
      Check(CDbl(NthField(shortened, ",", 2)) == CDbl(NthField(whole, ",", 2)), "so has its second field");
    }
  }
}

String LineWithValue(const Choose& choose) {
  constexpr std::pair<const char*, const char*> around[] = {
      {"(", ")"},        {"(", ")"},    {"|", "|"},    {"-", ""},   {"--", ""},   {"\t ", ""}, {"", " \t"},
      {"()", ""},        {"", "||"},    {"e ", ""},    {"", " m"},  {"1 ", ""},   {"", "+1"},  {"7*", ""},
      {"", "^0"},        {",", ""},     {"(", ",.1)"}, {"", "."},   {"pi", ""},   {"", " c"},  {"max(", ",t)"},
      {"dec(", " 1/2)"}, {"sin(", ")"}, {"foo ", ""},  {"7.+", ""}, {"2*1 ", ""}, {"1.-", ""}};
  String line(1, "ztc"[choose(3)]);
  for (std::size_t count = choose(5); count > 0; --count) {
    const auto& [front, behind] = around[choose(std::size(around))];
    line = front + line + behind;
  }
  return choose(3) == 0 ? "y=" + line : line;
}

// A line has the same result after a run has substituted long values for a megabyte, from when on they are abridged.
void CheckLine(const Choose& choose) {
  static const String values =
      "z=-" + String(3000, '7') + ".1\nt=." + String(2000, '0') + "5\nc=" + Repeated("1,", 900) + "2.5.1\ne=\nm=-\n";
  // Bars are rewritten, which substitutes the value; a sum would only use its number.
  static const String megabyte = "w=" + String(600'000, '0') + "\n|w|\n|w|\n";
  const String line = LineWithValue(choose);
  MathClass plain(values + line);
  MathClass abridging(megabyte + values + line);
  plain.Evaluate();
  abridging.Evaluate();
  const bool isSame =
      abridging.Result == plain.Result && (!plain.ResultIsError() || abridging.ResultDetails == plain.ResultDetails);
  if (!isSame) std::fprintf(stderr, "%s\n", line.c_str());
  Check(isSame, "abridging does not show in the result");
}

}  // namespace

void CheckInput(std::string_view input) {
  const Choose choose = ChooseBy(input);
  if (choose(2) == 0) {
    CheckReading(choose);
  } else {
    CheckLine(choose);
  }
}

}  // namespace sumlet

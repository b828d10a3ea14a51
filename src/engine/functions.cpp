// The functions of the line language: one more is a row of a table.

#include <algorithm>
#include <iterator>

#include "engine/arithmetic.h"
#include "engine/errors.h"
#include "engine/function_names.h"
#include "engine/math_class.h"
#include "framework/text/numbers.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

// A pattern without "-": a function's value goes back into the text without its sign, so cos(pi) is 1.
constexpr std::string_view functionFormat = "#.##########";

struct OneArgument {
  std::string_view name;
  double (*apply)(double);
};

struct TwoArguments {
  std::string_view name;
  double (*apply)(double, double);
};

constexpr double degreesPerRadian = 57.29577951308232;     // 180 / pi
constexpr double radiansPerDegree = 0.017453292519943295;  // pi / 180

constexpr TwoArguments twoArgumentFunctions[] = {
    {"atan2", ATan2}, {"max", Max}, {"mod", IntegerRemainder}, {"min", Min}, {"pow", Pow},
};

constexpr OneArgument oneArgumentFunctions[] = {
    {"abs", Abs},
    {"acos", ACos},
    {"asin", ASin},
    {"atan", ATan},
    {"ceil", Ceil},
    {"cos", Cos},
    {"deg", [](double x) { return x * degreesPerRadian; }},
    {"rad", [](double x) { return x * radiansPerDegree; }},
    {"exp", Exp},
    {"floor", Floor},
    {"log", Log},
    {"round", Round},
    {"sign", [](double x) { return static_cast<double>(Sign(x)); }},
    {"sin", Sin},
    {"sqrt", Sqrt},
    {"tan", Tan},
};

constexpr auto canBeCalled = [](const auto& function) { return CanBeCalled(function.name); };
static_assert(std::all_of(std::begin(twoArgumentFunctions), std::end(twoArgumentFunctions), canBeCalled));
static_assert(std::all_of(std::begin(oneArgumentFunctions), std::end(oneArgumentFunctions), canBeCalled));

// nullptr when there is none of this name.
template <typename Function, std::size_t count>
const Function* Find(const Function (&functions)[count], std::string_view foldedName) {
  const Function* function = std::begin(functions);
  while (function != std::end(functions) && function->name != foldedName) ++function;
  return function == std::end(functions) ? nullptr : function;
}

}  // namespace

String MathClass::DoFunction(std::string_view argument1, std::string_view argument2, std::string_view name) {
  const String folded = FoldCase(name);
  if (const TwoArguments* function = Find(twoArgumentFunctions, folded)) {
    if (argument1.empty() || argument2.empty()) return Fail(errors::twoArgumentFormat, name);
    return WithoutClosingPoint(Format(function->apply(CDbl(argument1), CDbl(argument2)), functionFormat));
  }
  if (folded == "frac") return DecimalToFraction(CDbl(argument1));
  const OneArgument* function = Find(oneArgumentFunctions, folded);
  if (function == nullptr) return Fail(errors::functionUnknown, name);
  if (argument1.empty()) return Fail(errors::oneArgumentFormat, name);
  return WithoutClosingPoint(Format(function->apply(CDbl(argument1)), functionFormat));
}

}  // namespace sumlet

// The table of functions. To add a function, add a row.
#include "engine/language.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "engine/arithmetic.h"
#include "framework/text/mathematics.h"
#include "framework/text/numbers.h"

namespace sumlet {
namespace {

constexpr double degreesPerRadian = 57.29577951308232;     // 180 / pi
constexpr double radiansPerDegree = 0.017453292519943295;  // pi / 180

constexpr Function functions[] = {
    {"atan2", nullptr, ATan2},
    {"max", nullptr, Max},
    {"min", nullptr, Min},
    {"mod", nullptr, IntegerRemainder},  // also a variable; a call only behind a tab, as "\tmod" is another word
    {"pow", nullptr, Pow},
    {"abs", Abs, nullptr},
    {"acos", ACos, nullptr},
    {"asin", ASin, nullptr},
    {"atan", ATan, nullptr},
    {"ceil", Ceil, nullptr},
    {"cos", Cos, nullptr},
    {"deg", [](double x) { return x * degreesPerRadian; }, nullptr},
    {"rad", [](double x) { return x * radiansPerDegree; }, nullptr},
    {"exp", Exp, nullptr},
    {"floor", Floor, nullptr},
    {"frac", nullptr, nullptr},
    {"log", Log, nullptr},
    {"round", Round, nullptr},
    {"sign", [](double x) { return static_cast<double>(Sign(x)); }, nullptr},
    {"sin", Sin, nullptr},
    {"sqrt", Sqrt, nullptr},
    {"tan", Tan, nullptr},
};

static_assert(std::all_of(std::begin(functions), std::end(functions), [](const Function& function) {
  return !function.name.empty() && function.name.size() <= maxFunctionNameLength &&
         CanEndFunctionName(function.name.back());
}));

// An open-addressing hash table of packed names and the rows they belong to, filled at compile time.
struct FunctionIndex {
  static constexpr std::size_t size = 64;
  std::array<std::uint64_t, size> names{};
  std::array<std::uint8_t, size> rows{};

  static constexpr std::size_t FirstSlot(std::uint64_t packed) { return packed * 0x9E3779B97F4A7C15 >> 58; }

  constexpr FunctionIndex() {
    for (std::size_t row = 0; row < std::size(functions); ++row) {
      const std::uint64_t packed = PackedName(functions[row].name);
      const std::size_t slot = Find(packed);
      names[slot] = packed;
      rows[slot] = static_cast<std::uint8_t>(row);
    }
  }
  // The slot of the name, or the empty slot where it would be inserted.
  [[nodiscard]] constexpr std::size_t Find(std::uint64_t packed) const {
    std::size_t slot = FirstSlot(packed);
    while (names[slot] != 0 && names[slot] != packed) slot = (slot + 1) % size;
    return slot;
  }
};

constexpr FunctionIndex functionIndex;

}  // namespace

const Function* FindFunction(std::string_view name) {
  const std::uint64_t packed = PackedName(IsAscii(name) ? name : FoldCase(name));
  if (packed == 0) return nullptr;
  const std::size_t slot = functionIndex.Find(packed);
  return functionIndex.names[slot] == packed ? &functions[functionIndex.rows[slot]] : nullptr;
}

}  // namespace sumlet

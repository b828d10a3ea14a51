// The vocabulary of the calculator's language: sets of characters, comments, function names and error texts.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "framework/text/utf8.h"

namespace sumlet {

// ---- Characters

// Sets of bytes. Each byte is a delimiter or a word character. Word characters include all bytes beyond ASCII, and "=",
// "'" and "#", which have no meaning inside an expression.
using CharacterSet = std::uint16_t;

inline constexpr CharacterSet numberCharacter = 1 << 0;        // digits, blank, "," and "."
inline constexpr CharacterSet delimiter = 1 << 1;              // a character of any other set: it ends a word
inline constexpr CharacterSet signedNumberCharacter = 1 << 2;  // a number character or "-"
inline constexpr CharacterSet parenthesis = 1 << 3;
inline constexpr CharacterSet bar = 1 << 4;
inline constexpr CharacterSet powerSign = 1 << 5;
inline constexpr CharacterSet productSign = 1 << 6;
inline constexpr CharacterSet sumSign = 1 << 7;
inline constexpr CharacterSet wordCharacter = 1 << 8;                            // every byte that is no delimiter
inline constexpr CharacterSet operatorSign = powerSign | productSign | sumSign;  // all levels of precedence

namespace detail {

constexpr std::array<CharacterSet, 256> BuildCharacterTable() {
  std::array<CharacterSet, 256> table{};
  const auto mark = [&table](std::string_view characters, CharacterSet set) {
    for (const char c : characters) table[static_cast<unsigned char>(c)] |= set;
  };
  mark("0123456789 ,.", numberCharacter);
  mark("0123456789,. -", signedNumberCharacter);
  mark("()", parenthesis);
  mark("|", bar);
  mark("^", powerSign);
  mark("*/\\%", productSign);
  mark("+-", sumSign);
  for (CharacterSet& sets : table) sets |= sets == 0 ? wordCharacter : delimiter;
  return table;
}

inline constexpr std::array<CharacterSet, 256> characterTable = BuildCharacterTable();

}  // namespace detail

[[nodiscard]] constexpr CharacterSet SetsOf(char c) { return detail::characterTable[static_cast<unsigned char>(c)]; }
[[nodiscard]] constexpr bool IsIn(char c, CharacterSet sets) { return (SetsOf(c) & sets) != 0; }

// ---- Comments

// Whether `line` begins with "'", "#" or "//". There are no comments later in a line.
[[nodiscard]] constexpr bool IsComment(std::string_view line) {
  return line.starts_with('\'') || line.starts_with('#') || line.starts_with("//");
}

// ---- Names and functions

// The bytes of `name` in lower case as one number, unique for each name, to compare and hash names quickly. Returns 0
// when the name is empty, longer than eight bytes, not ASCII, or begins with NUL.
[[nodiscard]] constexpr std::uint64_t PackedName(std::string_view name) {
  if (name.empty() || name.size() > sizeof(std::uint64_t) || name.front() == '\0') return 0;
  std::uint64_t packed = 0;
  for (const char c : name) packed = packed << 8 | static_cast<unsigned char>(FoldAscii(c));
  return (packed & 0x8080808080808080) == 0 ? packed : 0;
}

// A function of the language. dec has no Function, because it takes its argument as text (parentheses.cpp).
struct Function {
  std::string_view name;  // in lower case
  // One of the two is set; neither for frac, whose value is a text. A call takes the absolute value of what they
  // return: in this language cos(pi) is 1.
  double (*unary)(double);
  double (*binary)(double, double);
  [[nodiscard]] constexpr bool IsFraction() const { return unary == nullptr && binary == nullptr; }
};

// In characters. The search for a function name before a parenthesis tries this length first.
inline constexpr std::size_t maxFunctionNameLength = 5;

// Whether a function name can end in `c`. Saves five look-ups before most parentheses. True for every byte
// beyond ASCII, because ignoring case also maps some longer characters to ASCII letters.
[[nodiscard]] constexpr bool CanEndFunctionName(char c) {
  return !IsAscii(c) || (FoldAscii(c) >= 'a' && FoldAscii(c) <= 'z') || c == '2';
}

// The function of this name, in any case; nullptr if there is none.
[[nodiscard]] const Function* FindFunction(std::string_view name);

// ---- Error texts, as users see them

namespace errors {

inline constexpr std::string_view unmatchedParenthesis = "Error: Unmatched Parenthesis";
inline constexpr std::string_view unmatchedBar = "Error: Unmatched Absolute Bar ";
inline constexpr std::string_view multipleAssignments = "Error: Multiple Assignment Operators";
inline constexpr std::string_view nameContainsSpace = "Error: Variable Name Contains Space";
inline constexpr std::string_view nameIsFunction = "Error: Variable Name is a Function";
inline constexpr std::string_view variableUnknown = "Error: Variable Unknown";
inline constexpr std::string_view fractionNotAlone =
    "Error: Function \"Fraction()\" can not be combined with other statements.";
inline constexpr std::string_view twoArgumentsRequired = "Error: Operator Requires Two Arguments";
inline constexpr std::string_view missingOperator = "Error: Missing an Operator";
inline constexpr std::string_view functionUnknown = "Error: Function Unknown";
inline constexpr std::string_view oneArgumentFormat = "Error: Format as FunctionName(arguments)";
inline constexpr std::string_view twoArgumentFormat = "Error: Format as FunctionName( argument, argument)";
inline constexpr std::string_view notAFraction = "Error: Not a Fraction";
inline constexpr std::string_view incompleteFraction = "Error: Incomplete Fraction";

}  // namespace errors

}  // namespace sumlet

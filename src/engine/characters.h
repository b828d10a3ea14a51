// What each byte means to the engine. Every sign of the language is ASCII, so bytes serve as well as characters; all
// others, bytes of longer characters included, are parts of words.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace sumlet {

using CharacterSet = std::uint16_t;

inline constexpr CharacterSet numberCharacter = 1 << 0;  // what an operand may hold: digits, blank, "," and "."
inline constexpr CharacterSet delimiter = 1 << 1;        // what ends a word: every sign of the language
inline constexpr CharacterSet plainCharacter = 1 << 2;   // what a finished number may hold: a number character or "-"
inline constexpr CharacterSet wordCharacter = 1 << 8;    // whatever is neither plain nor a sign of the language
inline constexpr CharacterSet parenthesis = 1 << 3;
inline constexpr CharacterSet bar = 1 << 4;
inline constexpr CharacterSet powerSign = 1 << 5;
inline constexpr CharacterSet productSign = 1 << 6;
inline constexpr CharacterSet sumSign = 1 << 7;
inline constexpr CharacterSet operatorSign = powerSign | productSign | sumSign;  // the levels of precedence

namespace detail {

constexpr std::array<CharacterSet, 256> BuildCharacterTable() {
  std::array<CharacterSet, 256> table{};
  const auto mark = [&table](std::string_view characters, CharacterSet set) {
    for (const char c : characters) table[static_cast<unsigned char>(c)] |= set;
  };
  mark("0123456789 ,.", numberCharacter);
  mark("0123456789,. -", plainCharacter);
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

}  // namespace sumlet

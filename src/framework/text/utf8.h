// Access to the characters of UTF-8 text, and the case folding of all text comparisons.
//
// Text may contain any bytes. A byte outside valid UTF-8 counts as a character of its own and equals only itself, so
// these functions work for any input.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sumlet {

struct Utf8Character {
  char32_t code;       // the code point; for an invalid byte, invalidByteBase plus the byte
  std::size_t length;  // in bytes, 1 to 4
};

// Above the last code point, so that an invalid byte never equals a character.
inline constexpr char32_t invalidByteBase = 0x110000;

// The character at byte `offset`, which must be inside `text`.
[[nodiscard]] Utf8Character CharacterAt(std::string_view text, std::size_t offset);

// The number of bytes of the last character of `text`; 0 for the empty text.
[[nodiscard]] std::size_t LastCharacterLength(std::string_view text);

// The byte offset of the character with the 0-based number `index`, or text.size() when there are fewer.
[[nodiscard]] std::size_t ByteOffset(std::string_view text, std::size_t index);

// Unicode's simple case folding of one code point (CaseFolding.txt, status C and S). A code point whose full folding
// has several code points maps to its simple lower case, unless that is an ASCII letter: the dotted capital I is not i.
[[nodiscard]] char32_t FoldCase(char32_t code);

// Unicode's simple lower case of one code point.
[[nodiscard]] char32_t LowerCase(char32_t code);

// `text` with every character folded. Two texts that differ only in case fold to the same bytes.
[[nodiscard]] std::string FoldCase(std::string_view text);

// The width of `text` on a terminal or in a font of fixed width, in columns: two for an East Asian wide character or an
// emoji, none for a combining mark or a control character.
[[nodiscard]] std::size_t DisplayColumns(std::string_view text);

// Appends `code` in UTF-8. For a code from CharacterAt, appends the original bytes.
void AppendCharacter(std::string& text, char32_t code);

[[nodiscard]] constexpr bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }
[[nodiscard]] constexpr char FoldAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
[[nodiscard]] bool IsAscii(std::string_view text);
[[nodiscard]] constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace sumlet

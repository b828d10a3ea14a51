// Text functions, for all code that does not use Qt.
//
// A String is UTF-8, or plain bytes. Positions are 1-based and count characters; a result of 0 means "not found".
// Searches and comparisons ignore case (FoldCase in utf8.h); operator== on String compares bytes. No function fails:
// positions and counts out of range are limited to the text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "framework/text/array.h"

namespace sumlet {

using String = std::string;
using Int32 = std::int32_t;

// Number of characters, at most the largest Int32.
[[nodiscard]] Int32 Len(std::string_view s);

// The first or last `n` characters; empty for n <= 0, all of `s` for n >= Len(s).
[[nodiscard]] String Left(std::string_view s, Int32 n);
[[nodiscard]] String Right(std::string_view s, Int32 n);

// The characters from `start` to the end, or at most `length` of them. Empty if `start` is out of range or length <= 0.
[[nodiscard]] String Mid(std::string_view s, Int32 start);
[[nodiscard]] String Mid(std::string_view s, Int32 start, Int32 length);

// Position of the first `find` at or after `start`, or 0. A start below 1 counts as 1. An empty `find` is found at the
// start, if that is inside `source` or directly after it.
[[nodiscard]] Int32 InStr(std::string_view source, std::string_view find);
[[nodiscard]] Int32 InStr(Int32 start, std::string_view source, std::string_view find);

// Replaces the first or every occurrence of `old`, in one pass from left to right that does not search the inserted
// text. An empty `old` replaces nothing.
[[nodiscard]] String Replace(std::string_view s, std::string_view old, std::string_view replacement);
[[nodiscard]] String ReplaceAll(std::string_view s, std::string_view old, std::string_view replacement);

// Fields are the pieces into which `separator` divides `s`. The empty text has 0 fields. An empty separator does not
// divide.
[[nodiscard]] Int32 CountFields(std::string_view s, std::string_view separator);
// Field `n`, 1-based; empty if there is no such field.
[[nodiscard]] String NthField(std::string_view s, std::string_view separator, Int32 n);
[[nodiscard]] Array<String> Split(std::string_view s, std::string_view delimiter);
[[nodiscard]] String Join(const Array<String>& list, std::string_view delimiter);

// White space is space, tab, carriage return and line feed.
[[nodiscard]] constexpr bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
[[nodiscard]] String Trim(std::string_view s);
// The same as a view of `s`, without a copy.
[[nodiscard]] std::string_view Trimmed(std::string_view s);

[[nodiscard]] String Lowercase(std::string_view s);

// Replaces every CR LF, CR and LF by `lineEnding`. The program's logic uses EndOfLine.
inline constexpr std::string_view EndOfLine = "\n";
[[nodiscard]] String ReplaceLineEndings(std::string_view s, std::string_view lineEnding);

// Iterates over the lines of a text, without their line endings: Next sets `line` to a view of the text and returns
// whether there was another line. The lines equal Split(ReplaceLineEndings(text, EndOfLine), EndOfLine): none for the
// empty text, and an empty last one after a final line ending.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text), more_(!text.empty()) {}
  [[nodiscard]] bool Next(std::string_view& line);

 private:
  std::string_view rest_;
  bool more_;
};

// Code of the first character; 0 for the empty text, and the byte's value for an invalid byte.
[[nodiscard]] Int32 Asc(std::string_view s);
// The character with code `n`; U+FFFD if `n` is no code point.
[[nodiscard]] String Chr(Int32 n);

// Compares without regard to case. CompareText orders by folded code points and returns -1, 0 or 1; the empty text is
// the smallest.
[[nodiscard]] bool SameText(std::string_view a, std::string_view b);
[[nodiscard]] int CompareText(std::string_view a, std::string_view b);

// The lowest 0-based index of an element that SameText finds equal to `value`, or -1.
[[nodiscard]] Int32 IndexOf(const Array<String>& list, std::string_view value);

}  // namespace sumlet

// Text services: the vocabulary in which all logic is written.
//
// A String is UTF-8, or plain bytes. Positions are 1-based and count characters; a result of 0 means "not found".
// Searches and comparisons ignore case (FoldCase in utf8.h); operator== on String compares bytes. No function fails:
// a position or count out of range is cut to what is there.
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

// From `start` to the end, or at most `length` characters. Empty when `start` lies below 1 or behind the end, and
// for length <= 0.
[[nodiscard]] String Mid(std::string_view s, Int32 start);
[[nodiscard]] String Mid(std::string_view s, Int32 start, Int32 length);

// Position of the first `find` at or behind `start`, or 0. A start below 1 searches from the beginning. The empty
// `find` is found at the place where the search begins, if that lies inside `source` or directly behind it.
[[nodiscard]] Int32 InStr(std::string_view source, std::string_view find);
[[nodiscard]] Int32 InStr(Int32 start, std::string_view source, std::string_view find);

// The first or every occurrence of `old` replaced, in one pass from left to right: what has been put in is not looked
// at again. An empty `old` replaces nothing.
[[nodiscard]] String Replace(std::string_view s, std::string_view old, std::string_view replacement);
[[nodiscard]] String ReplaceAll(std::string_view s, std::string_view old, std::string_view replacement);

// Fields are what `separator` divides `s` into. The empty text has 0 fields; an empty separator divides nothing.
[[nodiscard]] Int32 CountFields(std::string_view s, std::string_view separator);
// Field number `n`, counted from 1; empty when there is no such field.
[[nodiscard]] String NthField(std::string_view s, std::string_view separator, Int32 n);
[[nodiscard]] Array<String> Split(std::string_view s, std::string_view delimiter);
[[nodiscard]] String Join(const Array<String>& list, std::string_view delimiter);

// White space is space, tab, carriage return and line feed.
[[nodiscard]] constexpr bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
[[nodiscard]] String Trim(std::string_view s);
// The same as a part of `s`, for callers that need no copy.
[[nodiscard]] std::string_view Trimmed(std::string_view s);

[[nodiscard]] String Lowercase(std::string_view s);

// Every CR LF pair, lone CR and lone LF becomes `lineEnding`. EndOfLine is the ending that all logic uses.
inline constexpr std::string_view EndOfLine = "\n";
[[nodiscard]] String ReplaceLineEndings(std::string_view s, std::string_view lineEnding);

// The lines of a text one after the other, without their endings: Next sets `line`, a part of the text, and says
// whether there was one. They are those of Split(ReplaceLineEndings(text, EndOfLine), EndOfLine) without building the
// list: none for the empty text, and an empty last one behind a closing line ending.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text), more_(!text.empty()) {}
  [[nodiscard]] bool Next(std::string_view& line);

 private:
  std::string_view rest_;
  bool more_;
};

// Code of the first character, 0 for the empty text; an invalid byte gives its own value.
[[nodiscard]] Int32 Asc(std::string_view s);
// The character of code `n`; U+FFFD when `n` is no code point.
[[nodiscard]] String Chr(Int32 n);

// Comparison that ignores case. CompareText orders by folded code points and gives -1, 0 or 1; the empty text is the
// smallest.
[[nodiscard]] bool SameText(std::string_view a, std::string_view b);
[[nodiscard]] int CompareText(std::string_view a, std::string_view b);

// The lowest 0-based index of an element that is the same text as `value`, or -1.
[[nodiscard]] Int32 IndexOf(const Array<String>& list, std::string_view value);

}  // namespace sumlet

#include "framework/text/text.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "framework/text/search.h"
#include "framework/text/utf8.h"

namespace sumlet {
namespace {

constexpr Int32 maxInt32 = std::numeric_limits<Int32>::max();

std::size_t CharacterCount(std::string_view s) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < s.size(); ++count) i += IsAscii(s[i]) ? 1 : CharacterAt(s, i).length;
  return count;
}

// Calls visit(piece) for each piece of `s` between occurrences of `separator`, including those at both ends, until it
// returns false. An empty separator does not occur.
template <typename Visitor>
void ForEachPiece(std::string_view s, std::string_view separator, Visitor visit) {
  std::size_t begin = 0;
  while (!separator.empty()) {
    const Match match = FindText(s, separator, begin);
    if (!match.found) break;
    if (!visit(s.substr(begin, match.begin - begin))) return;
    begin = match.end;
  }
  visit(s.substr(begin));
}

}  // namespace

Int32 Len(std::string_view s) { return static_cast<Int32>(std::min<std::size_t>(CharacterCount(s), maxInt32)); }

String Left(std::string_view s, Int32 n) { return Mid(s, 1, n); }

String Right(std::string_view s, Int32 n) {
  std::size_t begin = s.size();
  while (n > 0 && begin > 0) {
    begin -= LastCharacterLength(s.substr(0, begin));
    --n;
  }
  return String(s.substr(begin));
}

String Mid(std::string_view s, Int32 start) { return Mid(s, start, maxInt32); }

String Mid(std::string_view s, Int32 start, Int32 length) {
  if (start < 1 || length <= 0) return {};
  const std::string_view tail = s.substr(ByteOffset(s, static_cast<std::size_t>(start) - 1));
  return String(tail.substr(0, ByteOffset(tail, static_cast<std::size_t>(length))));
}

Int32 InStr(std::string_view source, std::string_view find) { return InStr(1, source, find); }

Int32 InStr(Int32 start, std::string_view source, std::string_view find) {
  const auto skipped = static_cast<std::size_t>(std::max(start, 1) - 1);
  const std::size_t from = ByteOffset(source, skipped);
  if (from == source.size() && CharacterCount(source) < skipped) return 0;
  const Match match = FindText(source, find, from);
  if (!match.found) return 0;
  return Len(source.substr(0, match.begin)) + 1;
}

String Replace(std::string_view s, std::string_view old, std::string_view replacement) {
  const Match match = old.empty() ? Match{} : FindText(s, old, 0);
  String result(s);
  if (match.found) result.replace(match.begin, match.end - match.begin, replacement);
  return result;
}

String ReplaceAll(std::string_view s, std::string_view old, std::string_view replacement) {
  String result;
  result.reserve(s.size());
  bool first = true;
  ForEachPiece(s, old, [&](std::string_view piece) {
    if (!first) result += replacement;
    first = false;
    result += piece;
    return true;
  });
  return result;
}

Int32 CountFields(std::string_view s, std::string_view separator) {
  if (s.empty()) return 0;
  Int32 count = 0;
  ForEachPiece(s, separator, [&](std::string_view) {
    ++count;
    return true;
  });
  return count;
}

String NthField(std::string_view s, std::string_view separator, Int32 n) {
  String field;
  if (n < 1) return field;
  ForEachPiece(s, separator, [&](std::string_view piece) {
    if (--n == 0) field = piece;
    return n > 0;
  });
  return field;
}

Array<String> Split(std::string_view s, std::string_view delimiter) {
  Array<String> fields;
  if (s.empty()) return fields;
  ForEachPiece(s, delimiter, [&](std::string_view piece) {
    fields.Append(String(piece));
    return true;
  });
  return fields;
}

String Join(const Array<String>& list, std::string_view delimiter) {
  String text;
  for (Int32 i = 0; i <= list.Ubound(); ++i) {
    if (i > 0) text += delimiter;
    text += list[i];
  }
  return text;
}

String Trim(std::string_view s) { return String(Trimmed(s)); }

std::string_view Trimmed(std::string_view s) {
  while (!s.empty() && IsWhiteSpace(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsWhiteSpace(s.back())) s.remove_suffix(1);
  return s;
}

String Lowercase(std::string_view s) {
  String lower;
  lower.reserve(s.size());
  for (std::size_t i = 0; i < s.size();) {
    const Utf8Character character = CharacterAt(s, i);
    AppendCharacter(lower, LowerCase(character.code));
    i += character.length;
  }
  return lower;
}

String ReplaceLineEndings(std::string_view s, std::string_view lineEnding) {
  String result;
  result.reserve(s.size());
  LineReader lines(s);
  bool first = true;
  for (std::string_view line; lines.Next(line); first = false) {
    if (!first) result += lineEnding;
    result += line;
  }
  return result;
}

bool LineReader::Next(std::string_view& line) {
  if (!more_) return false;
  std::size_t end = 0;
  while (end < rest_.size() && rest_[end] != '\r' && rest_[end] != '\n') ++end;
  line = rest_.substr(0, end);
  more_ = end < rest_.size();
  if (more_) rest_.remove_prefix(end + (rest_.substr(end, 2) == "\r\n" ? 2 : 1));
  return true;
}

Int32 Asc(std::string_view s) {
  if (s.empty()) return 0;
  const char32_t code = CharacterAt(s, 0).code;
  return static_cast<Int32>(code < invalidByteBase ? code : code - invalidByteBase);
}

String Chr(Int32 n) {
  const bool isCodePoint = n >= 0 && n <= 0x10FFFF && (n < 0xD800 || n > 0xDFFF);
  String character;
  AppendCharacter(character, isCodePoint ? static_cast<char32_t>(n) : U'\uFFFD');
  return character;
}

bool SameText(std::string_view a, std::string_view b) { return CompareText(a, b) == 0; }

int CompareText(std::string_view a, std::string_view b) {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() && j < b.size()) {
    const Utf8Character x = CharacterAt(a, i);
    const Utf8Character y = CharacterAt(b, j);
    const char32_t foldedX = FoldCase(x.code);
    const char32_t foldedY = FoldCase(y.code);
    if (foldedX != foldedY) return foldedX < foldedY ? -1 : 1;
    i += x.length;
    j += y.length;
  }
  if (i < a.size()) return 1;
  return j < b.size() ? -1 : 0;
}

Int32 IndexOf(const Array<String>& list, std::string_view value) {
  for (Int32 i = 0; i <= list.Ubound(); ++i) {
    if (SameText(list[i], value)) return i;
  }
  return -1;
}

}  // namespace sumlet

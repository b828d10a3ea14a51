// Fields and replacements: functions that divide a text at each occurrence of another.

#include "framework/text/search.h"
#include "framework/text/text.h"

namespace sumlet {
namespace {

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

}  // namespace sumlet

#include "framework/text/search.h"

#include <algorithm>
#include <string>
#include <vector>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

// Of the ASCII letters only s and k are the fold of a character outside ASCII (long s and the Kelvin sign). For a text
// without them, comparing bytes is enough.
constexpr bool HasTwinOutsideAscii(char c) { return FoldAscii(c) == 's' || FoldAscii(c) == 'k'; }

constexpr char UpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

bool IsByteComparable(std::string_view find) {
  return std::none_of(find.begin(), find.end(), [](char c) { return !IsAscii(c) || HasTwinOutsideAscii(c); });
}

bool MatchesBytesAt(std::string_view source, std::size_t begin, std::string_view find) {
  std::size_t i = 1;
  while (i < find.size() && FoldAscii(source[begin + i]) == FoldAscii(find[i])) ++i;
  return i == find.size();
}

Match FindBytes(std::string_view source, std::string_view find, std::size_t from) {
  if (find.empty()) return {true, from, from};
  if (source.size() < find.size()) return {};
  const char lower = FoldAscii(find.front());
  const char upper = UpperAscii(lower);
  if (find.size() == 1 && lower == upper) {
    const std::size_t begin = source.find(lower, from);
    return begin == std::string_view::npos ? Match{} : Match{true, begin, begin + 1};
  }
  const std::size_t lastBegin = source.size() - find.size();
  for (std::size_t begin = from; begin <= lastBegin; ++begin) {
    const bool firstMatches = source[begin] == lower || source[begin] == upper;
    if (firstMatches && MatchesBytesAt(source, begin, find)) {
      return {true, begin, begin + find.size()};
    }
  }
  return {};
}

// Whether the folded text is at `begin`. Sets `end` to the offset after it.
bool MatchesAt(std::string_view source, std::size_t begin, const std::u32string& folded, std::size_t& end) {
  end = begin;
  for (const char32_t code : folded) {
    if (end >= source.size()) return false;
    const Utf8Character character = CharacterAt(source, end);
    if (FoldCase(character.code) != code) return false;
    end += character.length;
  }
  return true;
}

std::u32string Folded(std::string_view text) {
  std::u32string folded;
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Character character = CharacterAt(text, i);
    folded += FoldCase(character.code);
    i += character.length;
  }
  return folded;
}

Match FindCharacters(std::string_view source, std::string_view find, std::size_t from) {
  const std::u32string folded = Folded(find);
  for (std::size_t begin = from; begin < source.size(); begin += CharacterAt(source, begin).length) {
    std::size_t end = 0;
    if (MatchesAt(source, begin, folded, end)) return {true, begin, end};
  }
  return {};
}

// For each prefix of `text`: the length of its longest proper prefix that is also its suffix.
std::vector<std::size_t> Borders(const std::u32string& text) {
  std::vector<std::size_t> borders(text.size() + 1, 0);
  for (std::size_t i = 1, length = 0; i < text.size(); ++i) {
    while (length > 0 && text[i] != text[length]) length = borders[length];
    if (text[i] == text[length]) ++length;
    borders[i + 1] = length;
  }
  return borders;
}

// The search of Knuth, Morris and Pratt, in linear time. The searches above restart at each match of the first
// character, which for a crafted file takes the product of both lengths.
Match FindLong(std::string_view source, std::string_view find, std::size_t from) {
  if ((source.size() - from) * 4 < find.size()) return {};  // a character has at most four bytes
  const std::u32string folded = Folded(find);
  const std::vector<std::size_t> borders = Borders(folded);
  std::vector<std::size_t> begins(folded.size());  // of the latest characters, as many as a match has
  std::size_t matched = 0;
  for (std::size_t at = from, count = 0; at < source.size(); ++count) {
    const Utf8Character character = CharacterAt(source, at);
    const char32_t code = FoldCase(character.code);
    begins[count % folded.size()] = at;
    at += character.length;
    while (matched > 0 && folded[matched] != code) matched = borders[matched];
    if (folded[matched] == code) ++matched;
    if (matched == folded.size()) return {true, begins[(count + 1) % folded.size()], at};
  }
  return {};
}

constexpr std::size_t longText = 64;  // bytes

}  // namespace

Match FindText(std::string_view source, std::string_view find, std::size_t from) {
  if (from > source.size()) return {};
  if (find.size() > longText) return FindLong(source, find, from);
  const bool bytes = IsByteComparable(find) || (IsAscii(find) && IsAscii(source));
  return bytes ? FindBytes(source, find, from) : FindCharacters(source, find, from);
}

}  // namespace sumlet

#include "framework/text/search.h"

#include <algorithm>
#include <string>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

// The only letters of ASCII that a character outside ASCII folds to are s and k (long s and the Kelvin sign). A text
// without them is found by comparing bytes, whatever stands around it.
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

// Whether the folded text stands at `begin`; sets `end` behind it.
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

Match FindCharacters(std::string_view source, std::string_view find, std::size_t from) {
  std::u32string folded;
  for (std::size_t i = 0; i < find.size();) {
    const Utf8Character character = CharacterAt(find, i);
    folded += FoldCase(character.code);
    i += character.length;
  }
  for (std::size_t begin = from; begin < source.size(); begin += CharacterAt(source, begin).length) {
    std::size_t end = 0;
    if (MatchesAt(source, begin, folded, end)) return {true, begin, end};
  }
  return {};
}

}  // namespace

Match FindText(std::string_view source, std::string_view find, std::size_t from) {
  if (from > source.size()) return {};
  const bool bytes = IsByteComparable(find) || (IsAscii(find) && IsAscii(source));
  return bytes ? FindBytes(source, find, from) : FindCharacters(source, find, from);
}

}  // namespace sumlet

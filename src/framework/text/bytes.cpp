#include "framework/text/bytes.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace sumlet {
namespace {

constexpr Int32 maxInt32 = std::numeric_limits<Int32>::max();

constexpr bool IsUnreserved(char c) {
  const bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  return isLetter || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == '_' || c == '~';
}

// The value of a hexadecimal digit, -1 for any other character.
constexpr int HexadecimalDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

}  // namespace

Int32 LenB(std::string_view s) { return static_cast<Int32>(std::min<std::size_t>(s.size(), maxInt32)); }

String MidB(std::string_view s, Int32 start) { return MidB(s, start, maxInt32); }

String MidB(std::string_view s, Int32 start, Int32 length) {
  if (start < 1 || length <= 0 || static_cast<std::size_t>(start) > s.size()) return {};
  return String(s.substr(static_cast<std::size_t>(start) - 1, static_cast<std::size_t>(length)));
}

Int32 InStrB(Int32 start, std::string_view source, std::string_view find) {
  const std::size_t found = source.find(find, static_cast<std::size_t>(std::max(start, 1) - 1));
  return found == std::string_view::npos ? 0 : static_cast<Int32>(found) + 1;
}

Int32 AscB(std::string_view s) { return s.empty() ? 0 : static_cast<unsigned char>(s.front()); }

String ChrB(Int32 n) { return String(1, static_cast<char>(static_cast<unsigned char>(n & 0xFF))); }

String EncodeURLComponent(std::string_view s) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  String encoded;
  encoded.reserve(s.size());
  for (const char c : s) {
    if (IsUnreserved(c)) {
      encoded += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    encoded += {'%', digits[byte >> 4], digits[byte & 0xF]};
  }
  return encoded;
}

String DecodeURLComponent(std::string_view s) {
  String decoded;
  decoded.reserve(s.size());
  for (std::size_t i = 0; i < s.size(); ++i) {
    const bool isEscape = s[i] == '%' && s.size() - i > 2;
    const int high = isEscape ? HexadecimalDigit(s[i + 1]) : -1;
    const int low = isEscape ? HexadecimalDigit(s[i + 2]) : -1;
    if (high < 0 || low < 0) {
      decoded += s[i];
    } else {
      decoded += static_cast<char>(high * 16 + low);
      i += 2;
    }
  }
  return decoded;
}

}  // namespace sumlet

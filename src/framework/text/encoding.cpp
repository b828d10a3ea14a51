#include "framework/text/encoding.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "framework/text/utf8.h"

namespace sumlet {
namespace {

constexpr char32_t replacement = 0xFFFD;

// Bytes 0x80 to 0x9F of Windows-1252 (unicode.org, MAPPINGS/VENDORS/MICSFT/WINDOWS/CP1252.TXT). From 0xA0 on a byte is
// its own code point.
constexpr std::array<char16_t, 32> windows1252{0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
                                               0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

String DecodeUtf8(String bytes) {
  if (IsAscii(bytes)) return bytes;
  String text;
  std::size_t copied = 0;  // bytes that `text` accounts for
  for (std::size_t i = 0; i < bytes.size();) {
    const Utf8Character character = CharacterAt(bytes, i);
    if (character.code >= invalidByteBase) {
      const char32_t byte = character.code - invalidByteBase;
      text.append(bytes, copied, i - copied);
      AppendCharacter(text, byte < 0xA0 ? windows1252[byte - 0x80] : byte);
      copied = i + 1;
    }
    i += character.length;
  }
  if (copied == 0) return bytes;
  text.append(bytes, copied);
  return text;
}

// `high` is the place of the higher byte in each pair. An odd byte at the end is dropped.
String DecodeUtf16(std::string_view bytes, std::size_t high) {
  const auto unitAt = [&](std::size_t i) -> char32_t {
    if (i + 1 >= bytes.size()) return 0;
    return static_cast<char32_t>(static_cast<unsigned char>(bytes[i + high]) << 8 |
                                 static_cast<unsigned char>(bytes[i + 1 - high]));
  };
  const auto isHigh = [](char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; };
  const auto isLow = [](char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; };
  String text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t unit = unitAt(i);
    const char32_t next = unitAt(i + 2);
    if (isHigh(unit) && isLow(next)) {
      AppendCharacter(text, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
      i += 2;
    } else {
      AppendCharacter(text, isHigh(unit) || isLow(unit) ? replacement : unit);
    }
  }
  return text;
}

}  // namespace

String DecodeText(String bytes) {
  const std::string_view start = bytes;
  if (start.starts_with("\xFF\xFE")) return DecodeUtf16(start.substr(2), 1);
  if (start.starts_with("\xFE\xFF")) return DecodeUtf16(start.substr(2), 0);
  if (start.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
  return DecodeUtf8(std::move(bytes));
}

}  // namespace sumlet
